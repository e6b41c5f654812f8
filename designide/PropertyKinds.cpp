// The default editors of the value kinds: ordinals, characters,
// enumerations, sets, 64-bit integers, floats and strings.

#include "designide/DesignEditors.h"

namespace {

AnsiString BoolText(bool value)
{
    return value ? "True" : "False";
}

bool ParseBool(const AnsiString& text)
{
    if (SameText(text, "True"))
        return true;
    if (SameText(text, "False"))
        return false;
    RaiseInvalidPropertyValue();
}

void CheckRange(const TTypeInfo* type, Int64 value)
{
    if (value < type->MinValue || value > type->MaxValue)
        throw EConvertError(Format("Value must be between %d and %d", type->MinValue, type->MaxValue));
}

}  // namespace

// ---------------------------------------------------------------------------
// Ordinals

bool TOrdinalProperty::AllEqual()
{
    const Int64 first = GetOrdValue();
    for (int i = 1; i < PropCount(); ++i)
        if (GetOrdValueAt(i) != first)
            return false;
    return true;
}

TPropertyAttributes TIntegerProperty::GetAttributes()
{
    TPropertyAttributes attributes = TOrdinalProperty::GetAttributes();
    if (!GetPropType()->IntegerIdents.empty())
        attributes << paValueList << paValueEditable;
    return attributes;
}

void TIntegerProperty::GetValues(const TGetStrProc& proc)
{
    for (const auto& ident : GetPropType()->IntegerIdents)
        proc(ident.first);
}

AnsiString TIntegerProperty::GetValue()
{
    const Int64 value = GetOrdValue();
    const AnsiString ident = IntToIdent(GetPropType(), value);
    return ident.empty() ? IntToStr(value) : ident;
}

void TIntegerProperty::SetValue(const AnsiString& value)
{
    Int64 number = 0;
    if (!IdentToInt(GetPropType(), Trim(value), number) && !TryStrToInt64(Trim(value), number))
        RaiseInvalidPropertyValue();
    CheckRange(GetPropType(), number);
    SetOrdValue(number);
}

AnsiString TCharProperty::GetValue()
{
    const Int64 code = GetOrdValue() & 0xFF;
    if (code >= 33 && code <= 126)
        return AnsiString(1, static_cast<char>(code));
    return "#" + IntToStr(code);
}

void TCharProperty::SetValue(const AnsiString& value)
{
    Int64 code = 0;
    if (value.size() == 1)
        code = static_cast<unsigned char>(value[0]);
    else if (value.size() > 1 && value[0] == '#') {
        if (!TryStrToInt64(value.substr(1), code))
            RaiseInvalidPropertyValue();
    } else if (!value.empty())
        RaiseInvalidPropertyValue();
    CheckRange(GetPropType(), code);
    SetOrdValue(code);
}

TPropertyAttributes TEnumProperty::GetAttributes()
{
    return {paMultiSelect, paValueList, paSortList, paRevertable};
}

AnsiString TEnumProperty::GetValue()
{
    return GetEnumName(GetPropType(), static_cast<int>(GetOrdValue()));
}

void TEnumProperty::GetValues(const TGetStrProc& proc)
{
    const TTypeInfo* type = GetPropType();
    for (Int64 i = type->MinValue; i <= type->MaxValue; ++i)
        proc(GetEnumName(type, static_cast<int>(i)));
}

void TEnumProperty::SetValue(const AnsiString& value)
{
    const int ord = GetEnumValue(GetPropType(), Trim(value));
    if (ord < 0)
        RaiseInvalidPropertyValue();
    SetOrdValue(ord);
}

AnsiString TBoolProperty::GetValue()
{
    return BoolText(GetOrdValue() != 0);
}

void TBoolProperty::GetValues(const TGetStrProc& proc)
{
    proc("False");
    proc("True");
}

void TBoolProperty::SetValue(const AnsiString& value)
{
    SetOrdValue(ParseBool(Trim(value)) ? 1 : 0);
}

// ---------------------------------------------------------------------------
// Sets

TPropertyAttributes TSetProperty::GetAttributes()
{
    return {paMultiSelect, paSubProperties, paReadOnly, paRevertable};
}

AnsiString TSetProperty::GetValue()
{
    return SetToString(GetPropType(), GetOrdValue(), true);
}

// The inspector does not let the text be typed, but a caller may set the
// whole set at once.
void TSetProperty::SetValue(const AnsiString& value)
{
    Int64 bits = 0;
    try {
        bits = StringToSet(GetPropType(), value);
    } catch (const EPropertyError&) {
        RaiseInvalidPropertyValue();
    }
    SetOrdValue(bits);
}

void TSetProperty::GetProperties(const TGetPropProc& proc)
{
    const TTypeInfo* elements = GetPropType()->CompType;
    if (!elements)
        return;
    for (Int64 i = elements->MinValue; i <= elements->MaxValue; ++i)
        proc(std::make_unique<TSetElementProperty>(*this, static_cast<int>(i)));
}

TSetElementProperty::TSetElementProperty(const TPropertyEditor& parent, int element)
    : TPropertyEditor(parent.Designer(), 0), FElement(element)
{
    CopyEntries(parent);
}

TPropertyAttributes TSetElementProperty::GetAttributes()
{
    return {paMultiSelect, paValueList, paSortList};
}

AnsiString TSetElementProperty::GetName()
{
    return GetEnumName(GetPropType()->CompType, FElement);
}

bool TSetElementProperty::HasElement(int index) const
{
    return (static_cast<std::uint64_t>(GetOrdValueAt(index)) >> FElement) & 1u;
}

AnsiString TSetElementProperty::GetValue()
{
    return BoolText(HasElement(0));
}

void TSetElementProperty::GetValues(const TGetStrProc& proc)
{
    proc("False");
    proc("True");
}

void TSetElementProperty::SetValue(const AnsiString& value)
{
    const bool include = ParseBool(Trim(value));
    const std::uint64_t bit = std::uint64_t(1) << FElement;
    // Each object keeps its other elements.
    SetEach([&](TPersistent* instance, const TPropInfo* prop) {
        const auto bits = static_cast<std::uint64_t>(GetOrdProp(instance, prop));
        SetOrdProp(instance, prop, static_cast<Int64>(include ? bits | bit : bits & ~bit));
    });
}

bool TSetElementProperty::AllEqual()
{
    const bool first = HasElement(0);
    for (int i = 1; i < PropCount(); ++i)
        if (HasElement(i) != first)
            return false;
    return true;
}

// ---------------------------------------------------------------------------
// 64-bit integers, floats, strings

bool TInt64Property::AllEqual()
{
    const Int64 first = GetInt64Value();
    for (int i = 1; i < PropCount(); ++i)
        if (GetInt64ValueAt(i) != first)
            return false;
    return true;
}

AnsiString TInt64Property::GetValue()
{
    return IntToStr(GetInt64Value());
}

void TInt64Property::SetValue(const AnsiString& value)
{
    Int64 number = 0;
    if (!TryStrToInt64(Trim(value), number))
        RaiseInvalidPropertyValue();
    SetInt64Value(number);
}

bool TFloatProperty::AllEqual()
{
    const Extended first = GetFloatValue();
    for (int i = 1; i < PropCount(); ++i)
        if (GetFloatValueAt(i) != first)
            return false;
    return true;
}

AnsiString TFloatProperty::GetValue()
{
    return FloatToStr(GetFloatValue());
}

void TFloatProperty::SetValue(const AnsiString& value)
{
    Extended number = 0;
    if (!TryStrToFloat(Trim(value), number))
        RaiseInvalidPropertyValue();
    SetFloatValue(number);
}

bool TStringProperty::AllEqual()
{
    const AnsiString first = GetStrValue();
    for (int i = 1; i < PropCount(); ++i)
        if (GetStrValueAt(i) != first)
            return false;
    return true;
}

AnsiString TStringProperty::GetValue()
{
    return GetStrValue();
}

void TStringProperty::SetValue(const AnsiString& value)
{
    SetStrValue(value);
}

TPropertyAttributes TComponentNameProperty::GetAttributes()
{
    return {};
}
