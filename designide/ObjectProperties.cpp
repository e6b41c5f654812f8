// The default editors of properties that refer to something: published
// objects, component references, event handlers and variants.

#include "designide/DesignEditors.h"

namespace {

bool IsIdentifier(const AnsiString& name)
{
    if (name.empty())
        return false;
    const auto letter = [](char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_'; };
    if (!letter(name[0]))
        return false;
    for (char c : name)
        if (!letter(c) && !(c >= '0' && c <= '9'))
            return false;
    return true;
}

AnsiString WithoutDots(AnsiString name)
{
    std::erase(name, '.');
    return name;
}

}  // namespace

// ---------------------------------------------------------------------------
// Published objects

TPropertyAttributes TClassProperty::GetAttributes()
{
    return {paMultiSelect, paSubProperties, paReadOnly};
}

AnsiString TClassProperty::GetValue()
{
    return "(" + GetPropType()->Name + ")";
}

void TClassProperty::GetProperties(const TGetPropProc& proc)
{
    TDesignerSelections objects;
    for (int i = 0; i < PropCount(); ++i) {
        auto* object = dynamic_cast<TPersistent*>(GetObjectValueAt(i));
        // Nothing to show below a missing object, even for one of several.
        if (!object)
            return;
        objects.push_back(object);
    }
    GetComponentProperties(objects, Designer(), proc);
}

// ---------------------------------------------------------------------------
// Component references

TPropertyAttributes TComponentProperty::GetAttributes()
{
    return {paMultiSelect, paValueList, paSortList, paRevertable};
}

AnsiString TComponentProperty::GetValue()
{
    auto* component = dynamic_cast<TPersistent*>(GetObjectValue());
    if (!component)
        return {};
    if (Designer())
        return Designer()->GetObjectName(component);
    auto* named = dynamic_cast<TComponent*>(component);
    return named ? named->Name() : component->GetNamePath();
}

void TComponentProperty::GetValues(const TGetStrProc& proc)
{
    if (Designer())
        Designer()->GetComponentNames(GetPropType(), proc);
}

void TComponentProperty::SetValue(const AnsiString& value)
{
    const AnsiString name = Trim(value);
    TComponent* component = nullptr;
    if (!name.empty()) {
        component = Designer() ? Designer()->GetComponent(name) : nullptr;
        const TMetaClass* required = GetPropType()->ClassType;
        if (!component || (required && !component->InheritsFrom(required)))
            RaiseInvalidPropertyValue();
    }
    SetObjectValue(component);
}

bool TComponentProperty::AllEqual()
{
    TObject* first = GetObjectValue();
    for (int i = 1; i < PropCount(); ++i)
        if (GetObjectValueAt(i) != first)
            return false;
    return true;
}

// ---------------------------------------------------------------------------
// Events

TPropertyAttributes TMethodProperty::GetAttributes()
{
    return {paMultiSelect, paValueList, paSortList, paRevertable, paReadOnly};
}

AnsiString TMethodProperty::GetValue()
{
    return GetMethodValue();
}

void TMethodProperty::GetValues(const TGetStrProc& proc)
{
    if (Designer())
        Designer()->GetMethods(GetPropType(), proc);
}

void TMethodProperty::SetValue(const AnsiString& value)
{
    const AnsiString name = Trim(value);
    if (!name.empty()) {
        if (!IsIdentifier(name))
            RaiseInvalidPropertyValue();
        if (Designer() && !Designer()->MethodExists(name))
            Designer()->CreateMethod(name, GetPropType());
    }
    SetMethodValue(name);
}

bool TMethodProperty::AllEqual()
{
    const AnsiString first = GetMethodValue();
    for (int i = 1; i < PropCount(); ++i)
        if (!SameText(GetMethodValueAt(i), first))
            return false;
    return true;
}

void TMethodProperty::Edit()
{
    if (GetMethodValue().empty())
        SetValue(GetFormMethodName() + GetTrimmedEventName());
}

AnsiString TMethodProperty::GetFormMethodName()
{
    TPersistent* instance = GetComponent(0);
    if (Designer() && instance == Designer()->GetRoot()) {
        AnsiString name = instance->ClassName();
        if (!name.empty() && name[0] == 'T')
            name.erase(0, 1);
        return name;
    }
    if (Designer())
        return WithoutDots(Designer()->GetObjectName(instance));
    return WithoutDots(instance->GetNamePath());
}

AnsiString TMethodProperty::GetTrimmedEventName()
{
    AnsiString name = GetName();
    if (name.size() >= 2 && SameText(name.substr(0, 2), "On"))
        name.erase(0, 2);
    return name;
}

// ---------------------------------------------------------------------------
// Variants

AnsiString TVariantProperty::GetValue()
{
    const Variant value = GetVarValue();
    if (value.IsEmpty())
        return {};
    if (value.IsNull())
        return "Null";
    return value.AsString();
}

void TVariantProperty::SetValue(const AnsiString& value)
{
    if (value.empty()) {
        SetVarValue(Variant());
        return;
    }
    if (SameText(value, "Null")) {
        SetVarValue(Null());
        return;
    }
    const AnsiString text = Trim(value);
    switch (GetVarValue().VarType()) {
    case varInteger: {
        Int64 number = 0;
        if (!TryStrToInt64(text, number))
            RaiseInvalidPropertyValue();
        SetVarValue(number);
        return;
    }
    case varDouble: {
        Extended number = 0;
        if (!TryStrToFloat(text, number))
            RaiseInvalidPropertyValue();
        SetVarValue(static_cast<double>(number));
        return;
    }
    case varBoolean:
        if (SameText(text, "True"))
            SetVarValue(true);
        else if (SameText(text, "False"))
            SetVarValue(false);
        else
            RaiseInvalidPropertyValue();
        return;
    case varDate: {
        TDateTime date = 0;
        if (!TryStrToDateTime(text, date))
            RaiseInvalidPropertyValue();
        SetVarValue(VarFromDateTime(date));
        return;
    }
    default:
        SetVarValue(value);
        return;
    }
}

bool TVariantProperty::AllEqual()
{
    const Variant first = GetVarValue();
    for (int i = 1; i < PropCount(); ++i) {
        const Variant other = GetVarValueAt(i);
        if (other.VarType() != first.VarType() || !(other == first))
            return false;
    }
    return true;
}
