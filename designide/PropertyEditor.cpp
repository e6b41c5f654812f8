// TPropertyEditor: the selected (object, property) pairs and the typed
// reads and writes that every editor builds on.

#include "designide/DesignEditors.h"

#include <algorithm>
#include <cstdint>

namespace {

bool IsComponentClass(const TTypeInfo* type)
{
    return type->Kind == tkClass && type->ClassType && type->ClassType->InheritsFrom(ClassOf<TComponent>());
}

}  // namespace

void RaiseInvalidPropertyValue()
{
    throw EConvertError("Invalid property value");
}

TTypeKinds tkProperties()
{
    return {tkInteger, tkInt64, tkChar, tkEnumeration, tkSet, tkFloat, tkString, tkClass, tkMethod, tkVariant};
}

TPropertyEditor::TPropertyEditor(IDesigner* designer, int propCount)
    : FDesigner(designer), FProps(static_cast<std::size_t>(propCount > 0 ? propCount : 0))
{
}

void TPropertyEditor::SetPropEntry(int index, TPersistent* instance, const TPropInfo* propInfo)
{
    QZ_ASSERT(index >= 0 && index < PropCount(), Format("SetPropEntry: index %d out of range", index));
    FProps[static_cast<std::size_t>(index)] = {instance, propInfo};
}

const TPropInfo* TPropertyEditor::PropInfoAt(int index) const
{
    if (index < 0 || index >= PropCount())
        throw EListError(Format("Property entry index out of bounds (%d)", index));
    return FProps[static_cast<std::size_t>(index)].PropInfo;
}

TPersistent* TPropertyEditor::InstanceAt(int index) const
{
    PropInfoAt(index);
    return FProps[static_cast<std::size_t>(index)].Instance;
}

TPersistent* TPropertyEditor::GetComponent(int index) const
{
    return InstanceAt(index);
}

const TTypeInfo* TPropertyEditor::GetPropType() const
{
    return GetPropInfo()->PropType;
}

TPropertyAttributes TPropertyEditor::GetAttributes()
{
    return {paMultiSelect, paRevertable};
}

AnsiString TPropertyEditor::GetName()
{
    return GetPropInfo()->Name;
}

AnsiString TPropertyEditor::GetValue()
{
    return "(unknown)";
}

void TPropertyEditor::SetValue(const AnsiString&)
{
}

void TPropertyEditor::GetValues(const TGetStrProc&)
{
}

void TPropertyEditor::GetProperties(const TGetPropProc&)
{
}

void TPropertyEditor::Edit()
{
    // With a value list and nothing else to open, a double-click steps to
    // the next value, as the inspector does.
    const TPropertyAttributes attributes = GetAttributes();
    if (!attributes.Contains(paValueList) || !AutoFill())
        return;
    std::vector<AnsiString> values;
    GetValues([&](const AnsiString& v) { values.push_back(v); });
    if (values.empty())
        return;
    if (attributes.Contains(paSortList))
        std::stable_sort(values.begin(), values.end(),
                         [](const AnsiString& a, const AnsiString& b) { return AnsiCompareText(a, b) < 0; });
    const AnsiString current = GetValue();
    std::size_t next = 0;
    for (std::size_t i = 0; i < values.size(); ++i)
        if (SameText(values[i], current))
            next = (i + 1) % values.size();
    SetValue(values[next]);
}

bool TPropertyEditor::AllEqual()
{
    return PropCount() == 1;
}

AnsiString TPropertyEditor::GetVisualValue()
{
    return AllEqual() ? GetValue() : AnsiString();
}

void TPropertyEditor::Modified()
{
    if (FDesigner)
        FDesigner->Modified();
}

void TPropertyEditor::Revert()
{
    SetEach([](TPersistent* instance, const TPropInfo* prop) {
        if (!prop->SetProc)
            return;
        const TTypeInfo* type = prop->PropType;
        switch (type->Kind) {
        case tkInteger:
        case tkChar:
        case tkEnumeration:
        case tkSet:
            SetOrdProp(instance, prop, prop->Default != NoDefaultValue ? prop->Default : 0);
            break;
        case tkInt64:
            SetInt64Prop(instance, prop, 0);
            break;
        case tkFloat:
            SetFloatProp(instance, prop, 0);
            break;
        case tkString:
            SetStrProp(instance, prop, {});
            break;
        case tkMethod:
            SetMethodProp(instance, prop, {});
            break;
        case tkVariant:
            SetVariantProp(instance, prop, Variant());
            break;
        case tkClass:
            // A reference can be cleared; an object the component owns stays.
            if (IsComponentClass(type))
                SetObjectProp(instance, prop, nullptr);
            break;
        case tkUnknown:
            break;
        }
    });
}

// ---------------------------------------------------------------------------
// Typed reads

Int64 TPropertyEditor::GetOrdValueAt(int index) const
{
    const TPropInfo* prop = PropInfoAt(index);
    if (prop->PropType->Kind == tkClass)
        return static_cast<Int64>(reinterpret_cast<std::intptr_t>(GetObjectProp(InstanceAt(index), prop)));
    return GetOrdProp(InstanceAt(index), prop);
}

Int64 TPropertyEditor::GetInt64ValueAt(int index) const
{
    return GetInt64Prop(InstanceAt(index), PropInfoAt(index));
}

Extended TPropertyEditor::GetFloatValueAt(int index) const
{
    return GetFloatProp(InstanceAt(index), PropInfoAt(index));
}

AnsiString TPropertyEditor::GetStrValueAt(int index) const
{
    return GetStrProp(InstanceAt(index), PropInfoAt(index));
}

Variant TPropertyEditor::GetVarValueAt(int index) const
{
    return GetVariantProp(InstanceAt(index), PropInfoAt(index));
}

AnsiString TPropertyEditor::GetMethodValueAt(int index) const
{
    return GetMethodProp(InstanceAt(index), PropInfoAt(index));
}

TObject* TPropertyEditor::GetObjectValueAt(int index) const
{
    return GetObjectProp(InstanceAt(index), PropInfoAt(index));
}

// ---------------------------------------------------------------------------
// Writes to every selected object

void TPropertyEditor::SetEach(const std::function<void(TPersistent*, const TPropInfo*)>& store)
{
    for (const TInstProp& entry : FProps)
        store(entry.Instance, entry.PropInfo);
    Modified();
}

void TPropertyEditor::SetOrdValue(Int64 value)
{
    SetEach([value](TPersistent* instance, const TPropInfo* prop) {
        if (prop->PropType->Kind == tkClass)
            SetObjectProp(instance, prop, reinterpret_cast<TObject*>(static_cast<std::intptr_t>(value)));
        else
            SetOrdProp(instance, prop, value);
    });
}

void TPropertyEditor::SetInt64Value(Int64 value)
{
    SetEach([value](TPersistent* instance, const TPropInfo* prop) { SetInt64Prop(instance, prop, value); });
}

void TPropertyEditor::SetFloatValue(Extended value)
{
    SetEach([value](TPersistent* instance, const TPropInfo* prop) { SetFloatProp(instance, prop, value); });
}

void TPropertyEditor::SetStrValue(const AnsiString& value)
{
    SetEach([&value](TPersistent* instance, const TPropInfo* prop) { SetStrProp(instance, prop, value); });
}

void TPropertyEditor::SetVarValue(const Variant& value)
{
    SetEach([&value](TPersistent* instance, const TPropInfo* prop) { SetVariantProp(instance, prop, value); });
}

void TPropertyEditor::SetMethodValue(const AnsiString& value)
{
    SetEach([&value](TPersistent* instance, const TPropInfo* prop) { SetMethodProp(instance, prop, value); });
}

void TPropertyEditor::SetObjectValue(TObject* value)
{
    SetEach([value](TPersistent* instance, const TPropInfo* prop) { SetObjectProp(instance, prop, value); });
}
