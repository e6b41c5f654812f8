#pragma once
// The editor framework the object inspector and the form designer drive:
// TPropertyEditor and its default for every kind of property, the rule that
// picks a property's editor, and TComponentEditor.
//
// A property editor works on one property of every selected object at
// once: entry i is (object i, its property). It reads through the first
// entry and writes to all of them, then tells the designer.

#include "designide/DesignIntf.h"

#include <memory>
#include <vector>

// What the inspector may do with a property; the IDE's names.
enum TPropertyAttribute {
    paValueList,              // GetValues gives the values to pick from
    paSubProperties,          // GetProperties gives nested editors
    paDialog,                 // Edit opens a dialog ("..." button)
    paMultiSelect,            // shown when several objects are selected
    paAutoUpdate,             // SetValue on every change, not only on Enter
    paSortList,               // the value list is shown sorted
    paReadOnly,               // the value cannot be typed
    paRevertable,             // Revert restores the default
    paFullWidthName,          // the name takes the whole row
    paVolatileSubProperties,  // sub-properties change with the value
    paVCL,
    paNotNestable,            // not shown as a sub-property of another
    paDisplayReadOnly,
    paCustomDropDown,
    paValueEditable,          // a value list whose text may also be typed
};
using TPropertyAttributes = TEnumSet<TPropertyAttribute>;
using TTypeKinds = TEnumSet<TTypeKind>;

class TPropertyEditor;
using TGetPropProc = std::function<void(std::unique_ptr<TPropertyEditor>)>;

// Every kind the inspector shows.
TTypeKinds tkProperties();

class TPropertyEditor {
public:
    // propCount entries, filled with SetPropEntry, then Initialize.
    TPropertyEditor(IDesigner* designer, int propCount);
    virtual ~TPropertyEditor() = default;
    TPropertyEditor(const TPropertyEditor&) = delete;
    TPropertyEditor& operator=(const TPropertyEditor&) = delete;

    void SetPropEntry(int index, TPersistent* instance, const TPropInfo* propInfo);
    virtual void Initialize() {}

    // What the inspector calls.
    virtual TPropertyAttributes GetAttributes();
    virtual AnsiString GetName();
    virtual AnsiString GetValue();
    // Parses value and stores it in every selected object, then Modified();
    // text that does not fit raises EConvertError ("Invalid property value").
    virtual void SetValue(const AnsiString& value);
    virtual void GetValues(const TGetStrProc& proc);
    virtual void GetProperties(const TGetPropProc& proc);
    virtual void Edit();
    // Whether every selected object holds the same value; the inspector
    // shows an empty value otherwise.
    virtual bool AllEqual();
    virtual bool ValueAvailable() { return true; }
    virtual bool AutoFill() { return true; }
    virtual int GetEditLimit() { return 255; }
    virtual void Activate() {}
    // Back to the property's default value in every selected object.
    virtual void Revert();
    // The value when all are equal, else empty.
    AnsiString GetVisualValue();

    IDesigner* Designer() const { return FDesigner; }
    IDesigner* GetDesigner() const { return FDesigner; }
    int PropCount() const { return static_cast<int>(FProps.size()); }
    TPersistent* GetComponent(int index) const;
    const TPropInfo* GetPropInfo() const { return PropInfoAt(0); }
    const TTypeInfo* GetPropType() const;
    // Tells the designer the form changed.
    void Modified();

    // The value in the first (or the index-th) selected object. For a class
    // property the ordinal value is the object's address, as the IDE's
    // editors cast it back.
    Int64 GetOrdValue() const { return GetOrdValueAt(0); }
    Int64 GetOrdValueAt(int index) const;
    Int64 GetInt64Value() const { return GetInt64ValueAt(0); }
    Int64 GetInt64ValueAt(int index) const;
    Extended GetFloatValue() const { return GetFloatValueAt(0); }
    Extended GetFloatValueAt(int index) const;
    AnsiString GetStrValue() const { return GetStrValueAt(0); }
    AnsiString GetStrValueAt(int index) const;
    Variant GetVarValue() const { return GetVarValueAt(0); }
    Variant GetVarValueAt(int index) const;
    AnsiString GetMethodValue() const { return GetMethodValueAt(0); }
    AnsiString GetMethodValueAt(int index) const;
    TObject* GetObjectValue() const { return GetObjectValueAt(0); }
    TObject* GetObjectValueAt(int index) const;

    // Store in every selected object, then Modified().
    void SetOrdValue(Int64 value);
    void SetInt64Value(Int64 value);
    void SetFloatValue(Extended value);
    void SetStrValue(const AnsiString& value);
    void SetVarValue(const Variant& value);
    void SetMethodValue(const AnsiString& value);
    void SetObjectValue(TObject* value);

protected:
    struct TInstProp {
        TPersistent* Instance = nullptr;
        const TPropInfo* PropInfo = nullptr;
    };

    const TPropInfo* PropInfoAt(int index) const;
    TPersistent* InstanceAt(int index) const;
    const std::vector<TInstProp>& Entries() const { return FProps; }
    // A nested editor starts from its parent's entries.
    void CopyEntries(const TPropertyEditor& parent) { FProps = parent.FProps; }
    // Sets every entry through store(instance, propInfo), then Modified().
    void SetEach(const std::function<void(TPersistent*, const TPropInfo*)>& store);

private:
    IDesigner* FDesigner;
    std::vector<TInstProp> FProps;
};

// Raises EConvertError "Invalid property value".
[[noreturn]] void RaiseInvalidPropertyValue();

// ---------------------------------------------------------------------------
// The default editors, one per kind of property.

class TOrdinalProperty : public TPropertyEditor {
public:
    using TPropertyEditor::TPropertyEditor;
    bool AllEqual() override;
    int GetEditLimit() override { return 63; }
};

// Decimal; accepts "$" and "0x" hex; the type's range is enforced. A type
// with identifiers (colours, cursors) shows and offers them.
class TIntegerProperty : public TOrdinalProperty {
public:
    using TOrdinalProperty::TOrdinalProperty;
    TPropertyAttributes GetAttributes() override;
    AnsiString GetValue() override;
    void GetValues(const TGetStrProc& proc) override;
    void SetValue(const AnsiString& value) override;
};

// A printable character as itself, any other as "#nn".
class TCharProperty : public TOrdinalProperty {
public:
    using TOrdinalProperty::TOrdinalProperty;
    AnsiString GetValue() override;
    void SetValue(const AnsiString& value) override;
};

class TEnumProperty : public TOrdinalProperty {
public:
    using TOrdinalProperty::TOrdinalProperty;
    TPropertyAttributes GetAttributes() override;
    AnsiString GetValue() override;
    void GetValues(const TGetStrProc& proc) override;
    void SetValue(const AnsiString& value) override;
};

class TBoolProperty : public TEnumProperty {
public:
    using TEnumProperty::TEnumProperty;
    AnsiString GetValue() override;
    void GetValues(const TGetStrProc& proc) override;
    void SetValue(const AnsiString& value) override;
};

class TInt64Property : public TPropertyEditor {
public:
    using TPropertyEditor::TPropertyEditor;
    bool AllEqual() override;
    int GetEditLimit() override { return 63; }
    AnsiString GetValue() override;
    void SetValue(const AnsiString& value) override;
};

class TFloatProperty : public TPropertyEditor {
public:
    using TPropertyEditor::TPropertyEditor;
    bool AllEqual() override;
    AnsiString GetValue() override;
    void SetValue(const AnsiString& value) override;
};

class TStringProperty : public TPropertyEditor {
public:
    using TPropertyEditor::TPropertyEditor;
    bool AllEqual() override;
    AnsiString GetValue() override;
    void SetValue(const AnsiString& value) override;
};

// The "Name" property: renaming goes through the component, which refuses
// a duplicate or an invalid identifier. One component at a time.
class TComponentNameProperty : public TStringProperty {
public:
    using TStringProperty::TStringProperty;
    TPropertyAttributes GetAttributes() override;
    int GetEditLimit() override { return 63; }
};

// "[dfBold,dfItalic]", with one True/False sub-property per element.
class TSetProperty : public TOrdinalProperty {
public:
    using TOrdinalProperty::TOrdinalProperty;
    TPropertyAttributes GetAttributes() override;
    AnsiString GetValue() override;
    void SetValue(const AnsiString& value) override;
    void GetProperties(const TGetPropProc& proc) override;
};

// One element of a set: "True" when the set holds it.
class TSetElementProperty : public TPropertyEditor {
public:
    TSetElementProperty(const TPropertyEditor& parent, int element);
    TPropertyAttributes GetAttributes() override;
    AnsiString GetName() override;
    AnsiString GetValue() override;
    void GetValues(const TGetStrProc& proc) override;
    void SetValue(const AnsiString& value) override;
    bool AllEqual() override;
    int Element() const { return FElement; }

private:
    bool HasElement(int index) const;
    int FElement;
};

// An object the component owns and publishes (a font, a collection): shown
// as "(TypeName)" with the object's published properties below it.
class TClassProperty : public TPropertyEditor {
public:
    using TPropertyEditor::TPropertyEditor;
    TPropertyAttributes GetAttributes() override;
    AnsiString GetValue() override;
    void GetProperties(const TGetPropProc& proc) override;
    bool AllEqual() override { return true; }
};

// A reference to another component of the form, by name.
class TComponentProperty : public TPropertyEditor {
public:
    using TPropertyEditor::TPropertyEditor;
    TPropertyAttributes GetAttributes() override;
    AnsiString GetValue() override;
    void GetValues(const TGetStrProc& proc) override;
    // A name of the form's components whose class fits; empty clears it.
    void SetValue(const AnsiString& value) override;
    bool AllEqual() override;
    int GetEditLimit() override { return 127; }
};

// An event: the name of its handler. The handlers are the form's source's
// business, so the inspector offers them but does not type them in.
class TMethodProperty : public TPropertyEditor {
public:
    using TPropertyEditor::TPropertyEditor;
    TPropertyAttributes GetAttributes() override;
    AnsiString GetValue() override;
    void GetValues(const TGetStrProc& proc) override;
    // An identifier (the designer creates the handler when it has none of
    // that name) or empty to clear.
    void SetValue(const AnsiString& value) override;
    bool AllEqual() override;
    // Gives the event a handler when it has none (named GetFormMethodName
    // and the event without "On").
    void Edit() override;
    // The name a new handler gets: "Button1Click", the root's "DtFormCreate".
    AnsiString GetFormMethodName();
    AnsiString GetTrimmedEventName();
};

// Unassigned shows empty and Null as "Null"; typed text keeps the type
// the value has (a number stays a number).
class TVariantProperty : public TPropertyEditor {
public:
    using TPropertyEditor::TPropertyEditor;
    AnsiString GetValue() override;
    void SetValue(const AnsiString& value) override;
    bool AllEqual() override;
};

// ---------------------------------------------------------------------------
// Choosing and building editors.

// The editor for propInfo on componentClass: the registered binding that
// fits most closely (an exact property type before an ancestor class type,
// then a named property before any property, then the nearest component
// class before its ancestors and before "any component", then the later
// registration), else the default for the property's kind. An empty class
// means the property is not shown.
TPropertyEditorClass GetEditorClass(const TMetaClass* componentClass, const TPropInfo* propInfo);

// Hands proc an initialised editor for every property that every selected
// object publishes (same name and type), that has a kind in filter and an
// editor, and that can be changed (a setter, or a published object).
// With several objects selected only editors with paMultiSelect come, and
// only when every object gets the same editor class.
void GetComponentProperties(const TDesignerSelections& selection, IDesigner* designer, const TGetPropProc& proc,
                            TTypeKinds filter = tkProperties());

// ---------------------------------------------------------------------------
// Component editors: the context-menu verbs and the double-click.

class TComponentEditor {
public:
    TComponentEditor(TComponent* component, IDesigner* designer) : FComponent(component), FDesigner(designer) {}
    virtual ~TComponentEditor() = default;
    TComponentEditor(const TComponentEditor&) = delete;
    TComponentEditor& operator=(const TComponentEditor&) = delete;

    // The double-click: the first verb when there is one.
    virtual void Edit();
    virtual void ExecuteVerb(int /*index*/) {}
    virtual AnsiString GetVerb(int /*index*/) { return {}; }
    virtual int GetVerbCount() { return 0; }
    // Copy to the clipboard: nothing beyond the designer's own copy.
    virtual void Copy() {}

    TComponent* Component() const { return FComponent; }
    TComponent* GetComponent() const { return FComponent; }
    IDesigner* GetDesigner() const { return FDesigner; }
    IDesigner* Designer() const { return FDesigner; }

private:
    TComponent* FComponent;
    IDesigner* FDesigner;
};

// The editor of components nobody registered one for: a double-click
// goes to the component's main event (OnCreate, OnChange, OnClick or else
// its first event), giving it a handler when it has none.
class TDefaultEditor : public TComponentEditor {
public:
    using TComponentEditor::TComponentEditor;
    void Edit() override;
};

// The registered editor of the nearest class of component (the later
// registration among equals), else a TDefaultEditor.
std::unique_ptr<TComponentEditor> GetComponentEditor(TComponent* component, IDesigner* designer);
TComponentEditorClass GetComponentEditorClass(const TMetaClass* componentClass);
