#pragma once
// What a design package sees of the designer host: the registration calls
// its Register makes, the editor-class descriptors those calls take, and
// IDesigner, through which editors reach the form being designed.
//
// A design package's Register reads as in the IDE:
//
//     RegisterComponents("Qz Standard", {ClassOf<TQzLabel>(), ClassOf<TQzEdit>()});
//     RegisterPropertyEditor(TypeInfo_TQzMemoryLabel(), nullptr, "",
//                            EditorClass<TQzMemoryLabelPropertyEditor>());
//     RegisterComponentEditor(ClassOf<TQzPkgStrings>(), EditorClass<TQzPkgStringsComponentEditor>());
//     DesignIntf::RegisterClass(ClassOf<TQzMenuItem>());
//
// The class library already has a global RegisterClass(TMetaClass*) and
// RegisterClasses({...}) that only make classes streamable; the host's
// recording versions of those two have the same signatures and therefore
// live in namespace DesignIntf. Every other call is global (and in
// DesignIntf too, so a package may qualify all of them alike).

#include "rtl/Component.h"

#include <functional>
#include <initializer_list>
#include <memory>
#include <typeinfo>
#include <vector>

class TPropertyEditor;
class TComponentEditor;
class IDesigner;

using TGetStrProc = std::function<void(const AnsiString&)>;
using TDesignerSelections = std::vector<TPersistent*>;

// ---------------------------------------------------------------------------
// The form being designed, as editors see it.

class IDesigner {
public:
    virtual ~IDesigner() = default;

    // The form changed: the host marks it for saving and refreshes the inspector.
    virtual void Modified() = 0;
    virtual TComponent* GetRoot() const = 0;
    // A component of the form by name (case-insensitive), the root included;
    // nullptr when there is none.
    virtual TComponent* GetComponent(const AnsiString& name) const = 0;
    TComponent* FindComponent(const AnsiString& name) const { return GetComponent(name); }
    // The names of the form's components whose class is typeData's class or
    // descends from it (typeData must be a class type), in creation order.
    virtual void GetComponentNames(const TTypeInfo* typeData, const TGetStrProc& proc) const = 0;
    // The name a reference to obj shows in the inspector: a component's
    // name, the root's name for the root, otherwise its name path.
    virtual AnsiString GetObjectName(TPersistent* obj) const = 0;

    virtual TDesignerSelections GetSelections() const = 0;
    virtual void SetSelections(const TDesignerSelections& selections) = 0;
    void SelectComponent(TPersistent* instance) { SetSelections(instance ? TDesignerSelections{instance} : TDesignerSelections{}); }

    // Event handlers: a design-time event holds the handler's name; the
    // designer knows which handlers the form's source has.
    virtual bool MethodExists(const AnsiString& name) const = 0;
    virtual AnsiString CreateMethod(const AnsiString& name, const TTypeInfo* typeData) = 0;
    virtual void GetMethods(const TTypeInfo* typeData, const TGetStrProc& proc) const = 0;

    // A name for a new component of the form: baseName without its leading
    // "T" followed by the first free number ("QzTabSheet1").
    virtual AnsiString UniqueName(const AnsiString& baseName) const = 0;
    // Creates a component of cls owned by the root, named UniqueName of its
    // class, under parent (when given) in the component tree; marks the
    // form modified.
    virtual TComponent* CreateComponent(TMetaClass* cls, TComponent* parent) = 0;
};

// ---------------------------------------------------------------------------
// Editor classes. A registration names an editor class by a small
// descriptor: the class's name (for listings) and how to make one.

using TPropertyEditorFactory = std::unique_ptr<TPropertyEditor> (*)(IDesigner* designer, int propCount);
using TComponentEditorFactory = std::unique_ptr<TComponentEditor> (*)(TComponent* component, IDesigner* designer);

struct TPropertyEditorClass {
    AnsiString ClassName;
    TPropertyEditorFactory Create = nullptr;

    explicit operator bool() const { return Create != nullptr; }
    // By name: the same class seen from the host and from a plug-in has two
    // factories but one name.
    bool operator==(const TPropertyEditorClass& other) const { return ClassName == other.ClassName; }
};

struct TComponentEditorClass {
    AnsiString ClassName;
    TComponentEditorFactory Create = nullptr;

    explicit operator bool() const { return Create != nullptr; }
    bool operator==(const TComponentEditorClass& other) const { return ClassName == other.ClassName; }
};

// The class's own name as written in its source, without namespaces.
AnsiString EditorClassNameOf(const std::type_info& type);

// EditorClass<TFooProperty>() for a property editor (constructed with
// (IDesigner*, int propCount)) or a component editor (constructed with
// (TComponent*, IDesigner*)); the name is the class's own unless given.
template <class T>
auto EditorClass(const AnsiString& className = {})
{
    static_assert(std::is_base_of_v<TPropertyEditor, T> || std::is_base_of_v<TComponentEditor, T>,
                  "an editor class derives from TPropertyEditor or TComponentEditor");
    const AnsiString name = className.empty() ? EditorClassNameOf(typeid(T)) : className;
    if constexpr (std::is_base_of_v<TPropertyEditor, T>) {
        return TPropertyEditorClass{name, [](IDesigner* designer, int propCount) -> std::unique_ptr<TPropertyEditor> {
                                        return std::make_unique<T>(designer, propCount);
                                    }};
    } else {
        return TComponentEditorClass{name, [](TComponent* component, IDesigner* designer) -> std::unique_ptr<TComponentEditor> {
                                         return std::make_unique<T>(component, designer);
                                     }};
    }
}

// ---------------------------------------------------------------------------
// The registration calls. Each is recorded, in order, in the design
// registry below; palette and streamable classes are also registered with
// the class library so that forms can create them.

namespace DesignIntf {

// The palette page's classes, in palette order.
void RegisterComponents(const AnsiString& page, std::initializer_list<TMetaClass*> classes);
void RegisterComponents(const AnsiString& page, const std::vector<TMetaClass*>& classes);
// C++Builder's form: the array and the index of its last element.
void RegisterComponents(const AnsiString& page, TMetaClass* const classes[], int lastIndex);

// Streamable classes the designer may create but the palette does not show.
void RegisterNoIcon(std::initializer_list<TMetaClass*> classes);
void RegisterNoIcon(TMetaClass* const classes[], int lastIndex);

void RegisterClass(TMetaClass* cls);
void RegisterClasses(std::initializer_list<TMetaClass*> classes);
void RegisterClasses(TMetaClass* const classes[], int lastIndex);

// cls and its descendants are offered only where groupClass's group is
// (menu items and button groups beside controls).
void GroupDescendentsWith(TMetaClass* cls, TMetaClass* groupClass);

// Binds editorClass to the properties of propertyType; componentClass
// nullptr means on any component, an empty propertyName any property of
// that type.
void RegisterPropertyEditor(const TTypeInfo* propertyType, TMetaClass* componentClass,
                            const AnsiString& propertyName, const TPropertyEditorClass& editorClass);
void RegisterComponentEditor(TMetaClass* componentClass, const TComponentEditorClass& editorClass);

}  // namespace DesignIntf

using DesignIntf::GroupDescendentsWith;
using DesignIntf::RegisterComponentEditor;
using DesignIntf::RegisterComponents;
using DesignIntf::RegisterNoIcon;
using DesignIntf::RegisterPropertyEditor;
// The array form does not clash with the class library's list form.
inline void RegisterClasses(TMetaClass* const classes[], int lastIndex) { DesignIntf::RegisterClasses(classes, lastIndex); }

// ---------------------------------------------------------------------------
// What the registrations left behind.

// One call as made: its name and its arguments as text. Class lists are
// comma-separated class names; a component class of nullptr is "nil".
struct TRegistrationRecord {
    AnsiString Call;
    std::vector<AnsiString> Args;

    // The call and its arguments separated by tabs.
    AnsiString Text() const;
};

struct TPalettePage {
    AnsiString Name;
    std::vector<TMetaClass*> Classes;   // palette order
};

struct TPropertyEditorBinding {
    const TTypeInfo* PropertyType = nullptr;
    TMetaClass* ComponentClass = nullptr;   // nullptr: any component
    AnsiString PropertyName;                // empty: any property of the type
    TPropertyEditorClass EditorClass;
    int Order = 0;                          // position among all bindings
};

struct TComponentEditorBinding {
    TMetaClass* ComponentClass = nullptr;
    TComponentEditorClass EditorClass;
};

// Everything registered since the program started or the registrations
// were last cleared. The host has one; design packages add to it.
class TDesignRegistry {
public:
    const std::vector<TRegistrationRecord>& Records() const { return FRecords; }
    // One line per record, as TRegistrationRecord::Text.
    std::vector<AnsiString> Listing() const;

    // Pages in the order they were first named; a page named again (in any
    // case) gets the new classes appended.
    const std::vector<TPalettePage>& Pages() const { return FPages; }
    const TPalettePage* FindPage(const AnsiString& name) const;
    bool IsNoIcon(const TMetaClass* cls) const;
    // The group class of cls or of its nearest grouped ancestor; nullptr
    // when none of them is grouped.
    TMetaClass* GroupOf(const TMetaClass* cls) const;

    const std::vector<TPropertyEditorBinding>& PropertyEditors() const { return FPropertyEditors; }
    const std::vector<TComponentEditorBinding>& ComponentEditors() const { return FComponentEditors; }

    void Clear();

private:
    friend void DesignIntf::RegisterComponents(const AnsiString&, TMetaClass* const[], int);
    friend void DesignIntf::RegisterNoIcon(TMetaClass* const[], int);
    friend void DesignIntf::RegisterClass(TMetaClass*);
    friend void DesignIntf::RegisterClasses(TMetaClass* const[], int);
    friend void DesignIntf::GroupDescendentsWith(TMetaClass*, TMetaClass*);
    friend void DesignIntf::RegisterPropertyEditor(const TTypeInfo*, TMetaClass*, const AnsiString&,
                                                   const TPropertyEditorClass&);
    friend void DesignIntf::RegisterComponentEditor(TMetaClass*, const TComponentEditorClass&);

    void Record(AnsiString call, std::vector<AnsiString> args);

    std::vector<TRegistrationRecord> FRecords;
    std::vector<TPalettePage> FPages;
    std::vector<TMetaClass*> FNoIcon;
    std::vector<std::pair<TMetaClass*, TMetaClass*>> FGroups;   // class, group class
    std::vector<TPropertyEditorBinding> FPropertyEditors;
    std::vector<TComponentEditorBinding> FComponentEditors;
};

TDesignRegistry& DesignRegistry();
// Forgets every registration (the class library keeps its classes); for
// tests and for unloading a design package.
void ClearRegistrations();
