// The registration calls and the registry that records them.

#include "designide/DesignIntf.h"

#include <cxxabi.h>

#include <algorithm>
#include <cstdlib>

namespace {

AnsiString ClassNameOrNil(const TMetaClass* cls)
{
    return cls ? cls->ClassName() : AnsiString("nil");
}

// The property type as the IDE's sources name it: the string type is the
// language's "String", whatever the class library calls it.
AnsiString TypeNameForListing(const TTypeInfo* type)
{
    return type->Name == "AnsiString" ? AnsiString("String") : type->Name;
}

AnsiString JoinClassNames(TMetaClass* const classes[], int count)
{
    AnsiString text;
    for (int i = 0; i < count; ++i) {
        if (i > 0)
            text += ',';
        text += ClassNameOrNil(classes[i]);
    }
    return text;
}

void RequireClasses(TMetaClass* const classes[], int lastIndex, const char* call)
{
    QZ_ASSERT(lastIndex < 0 || classes != nullptr, AnsiString(call) + ": no class array");
    for (int i = 0; i <= lastIndex; ++i)
        QZ_ASSERT(classes[i] != nullptr, Format("%s: class %d is nil", call, i));
}

// Drops "ns::" and "(anonymous namespace)::" prefixes outside template arguments.
AnsiString WithoutQualifiers(const AnsiString& name)
{
    int depth = 0;
    std::size_t start = 0;
    for (std::size_t i = 0; i + 1 < name.size(); ++i) {
        if (name[i] == '<')
            ++depth;
        else if (name[i] == '>')
            --depth;
        else if (depth == 0 && name[i] == ':' && name[i + 1] == ':')
            start = i + 2;
    }
    return name.substr(start);
}

}  // namespace

AnsiString EditorClassNameOf(const std::type_info& type)
{
    int status = 0;
    char* demangled = abi::__cxa_demangle(type.name(), nullptr, nullptr, &status);
    const AnsiString full = status == 0 && demangled ? AnsiString(demangled) : AnsiString(type.name());
    std::free(demangled);
    return WithoutQualifiers(full);
}

// ---------------------------------------------------------------------------
// The registry

AnsiString TRegistrationRecord::Text() const
{
    AnsiString text = Call;
    for (const AnsiString& arg : Args)
        text += '\t' + arg;
    return text;
}

std::vector<AnsiString> TDesignRegistry::Listing() const
{
    std::vector<AnsiString> lines;
    lines.reserve(FRecords.size());
    for (const TRegistrationRecord& record : FRecords)
        lines.push_back(record.Text());
    return lines;
}

const TPalettePage* TDesignRegistry::FindPage(const AnsiString& name) const
{
    const auto it = std::find_if(FPages.begin(), FPages.end(),
                                 [&](const TPalettePage& page) { return SameText(page.Name, name); });
    return it == FPages.end() ? nullptr : &*it;
}

bool TDesignRegistry::IsNoIcon(const TMetaClass* cls) const
{
    return std::find(FNoIcon.begin(), FNoIcon.end(), cls) != FNoIcon.end();
}

TMetaClass* TDesignRegistry::GroupOf(const TMetaClass* cls) const
{
    for (const TMetaClass* c = cls; c; c = c->ClassParent()) {
        // The latest grouping of a class is the one that holds.
        for (auto it = FGroups.rbegin(); it != FGroups.rend(); ++it)
            if (it->first == c)
                return it->second;
    }
    return nullptr;
}

void TDesignRegistry::Clear()
{
    FRecords.clear();
    FPages.clear();
    FNoIcon.clear();
    FGroups.clear();
    FPropertyEditors.clear();
    FComponentEditors.clear();
}

void TDesignRegistry::Record(AnsiString call, std::vector<AnsiString> args)
{
    FRecords.push_back({std::move(call), std::move(args)});
}

TDesignRegistry& DesignRegistry()
{
    static TDesignRegistry registry;
    return registry;
}

void ClearRegistrations()
{
    DesignRegistry().Clear();
}

// ---------------------------------------------------------------------------
// The calls

namespace DesignIntf {

void RegisterComponents(const AnsiString& page, std::initializer_list<TMetaClass*> classes)
{
    DesignIntf::RegisterComponents(page, classes.begin(), static_cast<int>(classes.size()) - 1);
}

void RegisterComponents(const AnsiString& page, const std::vector<TMetaClass*>& classes)
{
    DesignIntf::RegisterComponents(page, classes.data(), static_cast<int>(classes.size()) - 1);
}

void RegisterComponents(const AnsiString& page, TMetaClass* const classes[], int lastIndex)
{
    RequireClasses(classes, lastIndex, "RegisterComponents");
    for (int i = 0; i <= lastIndex; ++i)
        ::RegisterClass(classes[i]);

    TDesignRegistry& registry = DesignRegistry();
    auto it = std::find_if(registry.FPages.begin(), registry.FPages.end(),
                           [&](const TPalettePage& p) { return SameText(p.Name, page); });
    if (it == registry.FPages.end())
        it = registry.FPages.insert(registry.FPages.end(), TPalettePage{page, {}});
    // An empty list may come as a null pointer with lastIndex -1: add the
    // count to it, never -1 first.
    it->Classes.insert(it->Classes.end(), classes, classes + (lastIndex + 1));
    registry.Record("RegisterComponents", {page, JoinClassNames(classes, lastIndex + 1), IntToStr(lastIndex)});
}

void RegisterNoIcon(std::initializer_list<TMetaClass*> classes)
{
    DesignIntf::RegisterNoIcon(classes.begin(), static_cast<int>(classes.size()) - 1);
}

void RegisterNoIcon(TMetaClass* const classes[], int lastIndex)
{
    RequireClasses(classes, lastIndex, "RegisterNoIcon");
    for (int i = 0; i <= lastIndex; ++i)
        ::RegisterClass(classes[i]);

    TDesignRegistry& registry = DesignRegistry();
    registry.FNoIcon.insert(registry.FNoIcon.end(), classes, classes + (lastIndex + 1));
    registry.Record("RegisterNoIcon", {JoinClassNames(classes, lastIndex + 1)});
}

void RegisterClass(TMetaClass* cls)
{
    RequireClasses(&cls, 0, "RegisterClass");
    ::RegisterClass(cls);
    DesignRegistry().Record("RegisterClass", {cls->ClassName()});
}

void RegisterClasses(std::initializer_list<TMetaClass*> classes)
{
    DesignIntf::RegisterClasses(classes.begin(), static_cast<int>(classes.size()) - 1);
}

void RegisterClasses(TMetaClass* const classes[], int lastIndex)
{
    RequireClasses(classes, lastIndex, "RegisterClasses");
    for (int i = 0; i <= lastIndex; ++i)
        ::RegisterClass(classes[i]);
    DesignRegistry().Record("RegisterClasses", {JoinClassNames(classes, lastIndex + 1)});
}

void GroupDescendentsWith(TMetaClass* cls, TMetaClass* groupClass)
{
    QZ_ASSERT(cls && groupClass, "GroupDescendentsWith: nil class");
    TDesignRegistry& registry = DesignRegistry();
    registry.FGroups.emplace_back(cls, groupClass);
    registry.Record("GroupDescendentsWith", {cls->ClassName(), groupClass->ClassName()});
}

void RegisterPropertyEditor(const TTypeInfo* propertyType, TMetaClass* componentClass,
                            const AnsiString& propertyName, const TPropertyEditorClass& editorClass)
{
    QZ_ASSERT(propertyType != nullptr, "RegisterPropertyEditor: nil property type");
    TDesignRegistry& registry = DesignRegistry();
    const int order = static_cast<int>(registry.FPropertyEditors.size());
    registry.FPropertyEditors.push_back({propertyType, componentClass, propertyName, editorClass, order});
    // An editor class of nil hides the property, as in the IDE.
    registry.Record("RegisterPropertyEditor",
                    {TypeNameForListing(propertyType), ClassNameOrNil(componentClass), propertyName,
                     editorClass ? editorClass.ClassName : AnsiString("nil")});
}

void RegisterComponentEditor(TMetaClass* componentClass, const TComponentEditorClass& editorClass)
{
    QZ_ASSERT(componentClass != nullptr, "RegisterComponentEditor: nil component class");
    QZ_ASSERT(static_cast<bool>(editorClass), "RegisterComponentEditor: nil editor class");
    TDesignRegistry& registry = DesignRegistry();
    registry.FComponentEditors.push_back({componentClass, editorClass});
    registry.Record("RegisterComponentEditor", {componentClass->ClassName(), editorClass.ClassName});
}

}  // namespace DesignIntf
