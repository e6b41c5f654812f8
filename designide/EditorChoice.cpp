// Which editor a property gets, and the editors of a selection.

#include "designide/DesignEditors.h"

#include <climits>
#include <tuple>

namespace {

// Steps from cls up to ancestor (0 when they are the same), or -1 when
// ancestor is not one of cls's ancestors.
int ClassDistance(const TMetaClass* cls, const TMetaClass* ancestor)
{
    int steps = 0;
    for (const TMetaClass* c = cls; c; c = c->ClassParent(), ++steps)
        if (c == ancestor)
            return steps;
    return -1;
}

// Class types are one type per class, however many type records name it.
bool SameType(const TTypeInfo* a, const TTypeInfo* b)
{
    if (a == b)
        return true;
    if (a->Kind == tkClass && b->Kind == tkClass)
        return a->ClassType && a->ClassType == b->ClassType;
    return false;
}

// How far a binding's type is from the property's type: 0 for the same
// type, the class distance for an ancestor class type, -1 when it does not
// apply.
int TypeDistance(const TTypeInfo* propType, const TTypeInfo* bound)
{
    if (SameType(propType, bound))
        return 0;
    if (propType->Kind == tkClass && bound->Kind == tkClass && propType->ClassType && bound->ClassType)
        return ClassDistance(propType->ClassType, bound->ClassType);
    return -1;
}

TPropertyEditorClass DefaultEditorClass(const TTypeInfo* type)
{
    if (type == TypeInfo_TComponentName())
        return EditorClass<TComponentNameProperty>();
    switch (type->Kind) {
    case tkInteger:
        return EditorClass<TIntegerProperty>();
    case tkChar:
        return EditorClass<TCharProperty>();
    case tkEnumeration:
        if (type == TypeInfo_Boolean())
            return EditorClass<TBoolProperty>();
        return EditorClass<TEnumProperty>();
    case tkInt64:
        return EditorClass<TInt64Property>();
    case tkFloat:
        return EditorClass<TFloatProperty>();
    case tkString:
        return EditorClass<TStringProperty>();
    case tkSet:
        return EditorClass<TSetProperty>();
    case tkClass:
        if (type->ClassType && type->ClassType->InheritsFrom(ClassOf<TComponent>()))
            return EditorClass<TComponentProperty>();
        return EditorClass<TClassProperty>();
    case tkMethod:
        return EditorClass<TMethodProperty>();
    case tkVariant:
        return EditorClass<TVariantProperty>();
    case tkUnknown:
        break;
    }
    return {};
}

// Whether the inspector can change the property: a setter, or an object
// whose own properties can be changed.
bool IsEditable(const TPropInfo* prop)
{
    return prop->SetProc || prop->PropType->Kind == tkClass;
}

}  // namespace

TPropertyEditorClass GetEditorClass(const TMetaClass* componentClass, const TPropInfo* propInfo)
{
    const TTypeInfo* propType = propInfo->PropType;
    const TPropertyEditorBinding* best = nullptr;
    std::tuple<int, int, int, int> bestRank{};

    for (const TPropertyEditorBinding& binding : DesignRegistry().PropertyEditors()) {
        const int typeDistance = TypeDistance(propType, binding.PropertyType);
        if (typeDistance < 0)
            continue;
        int componentDistance = INT_MAX;
        if (binding.ComponentClass) {
            componentDistance = ClassDistance(componentClass, binding.ComponentClass);
            if (componentDistance < 0)
                continue;
        }
        if (!binding.PropertyName.empty() && !SameText(binding.PropertyName, propInfo->Name))
            continue;
        // Smaller is closer; the later registration wins a tie.
        const std::tuple<int, int, int, int> rank{typeDistance, binding.PropertyName.empty() ? 1 : 0,
                                                  componentDistance, -binding.Order};
        if (!best || rank < bestRank) {
            best = &binding;
            bestRank = rank;
        }
    }
    return best ? best->EditorClass : DefaultEditorClass(propType);
}

void GetComponentProperties(const TDesignerSelections& selection, IDesigner* designer, const TGetPropProc& proc,
                            TTypeKinds filter)
{
    if (selection.empty() || !selection[0])
        return;
    const int count = static_cast<int>(selection.size());
    std::vector<const TPropInfo*> entries(selection.size());

    for (const TPropInfo* prop : GetPropList(selection[0])) {
        if (!filter.Contains(prop->PropType->Kind) || !IsEditable(prop))
            continue;
        const TPropertyEditorClass editorClass = GetEditorClass(selection[0]->ClassType(), prop);
        if (!editorClass)
            continue;

        bool shared = true;
        entries[0] = prop;
        for (int i = 1; i < count && shared; ++i) {
            const TPropInfo* other = GetPropInfo(selection[i], prop->Name);
            shared = other && SameType(other->PropType, prop->PropType) && IsEditable(other) &&
                     GetEditorClass(selection[i]->ClassType(), other) == editorClass;
            entries[i] = other;
        }
        if (!shared)
            continue;

        std::unique_ptr<TPropertyEditor> editor = editorClass.Create(designer, count);
        for (int i = 0; i < count; ++i)
            editor->SetPropEntry(i, selection[i], entries[i]);
        editor->Initialize();
        if (count > 1 && !editor->GetAttributes().Contains(paMultiSelect))
            continue;
        if (!editor->ValueAvailable())
            continue;
        proc(std::move(editor));
    }
}
