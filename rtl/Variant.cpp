#include "rtl/Variant.h"

#include <cmath>

namespace {

bool TryTextToInt(const AnsiString& text, Int64& out)
{
    return TryStrToInt64(Trim(text), out);
}

bool TryTextToFloat(const AnsiString& text, double& out)
{
    Extended value = 0;
    if (!TryStrToFloat(Trim(text), value))
        return false;
    out = static_cast<double>(value);
    return true;
}

}  // namespace

Variant Variant::FromDateTime(TDateTime value)
{
    Variant v;
    v.FValue = DateTag{value};
    return v;
}

Variant Variant::MakeNull()
{
    Variant v;
    v.FValue = NullTag{};
    return v;
}

TVarType Variant::VarType() const
{
    static constexpr TVarType types[] = {varEmpty, varNull, varInteger, varDouble, varString, varBoolean, varDate};
    return types[FValue.index()];
}

void Variant::ConversionError(TVarType target) const
{
    throw EVariantError("Could not convert variant of type (" + VarTypeAsText(VarType()) + ") into type (" +
                        VarTypeAsText(target) + ")");
}

Int64 Variant::AsInteger() const
{
    const auto fromFloat = [this](double d) {
        const double r = std::nearbyint(d);   // round half to even, as Delphi does
        if (!(r >= -9223372036854775808.0 && r < 9223372036854775808.0))
            ConversionError(varInteger);
        return static_cast<Int64>(r);
    };
    switch (VarType()) {
    case varEmpty: return 0;
    case varInteger: return std::get<Int64>(FValue);
    case varDouble: return fromFloat(std::get<double>(FValue));
    case varDate: return fromFloat(std::get<DateTag>(FValue).Value);
    case varBoolean: return std::get<bool>(FValue) ? -1 : 0;
    case varString: {
        const AnsiString& s = std::get<AnsiString>(FValue);
        Int64 i = 0;
        double d = 0;
        if (TryTextToInt(s, i))
            return i;
        if (TryTextToFloat(s, d))
            return fromFloat(d);
        break;
    }
    case varNull: break;
    }
    ConversionError(varInteger);
}

double Variant::AsFloat() const
{
    switch (VarType()) {
    case varEmpty: return 0;
    case varInteger: return double(std::get<Int64>(FValue));
    case varDouble: return std::get<double>(FValue);
    case varDate: return std::get<DateTag>(FValue).Value;
    case varBoolean: return std::get<bool>(FValue) ? -1 : 0;
    case varString: {
        const AnsiString& s = std::get<AnsiString>(FValue);
        double d = 0;
        Int64 i = 0;
        if (TryTextToFloat(s, d))
            return d;
        if (TryTextToInt(s, i))
            return double(i);
        break;
    }
    case varNull: break;
    }
    ConversionError(varDouble);
}

// Text may hold a date as AsString writes it, or a number of days.
TDateTime Variant::AsDateTime() const
{
    if (VarType() == varDate)
        return std::get<DateTag>(FValue).Value;
    if (VarType() == varNull || VarType() == varString) {
        double d = 0;
        TDateTime date = 0;
        if (VarType() == varString && TryTextToFloat(std::get<AnsiString>(FValue), d))
            return d;
        if (VarType() == varString && TryStrToDateTime(Trim(std::get<AnsiString>(FValue)), date))
            return date;
        ConversionError(varDate);
    }
    return AsFloat();
}

AnsiString Variant::AsString() const
{
    switch (VarType()) {
    case varEmpty: return {};
    case varInteger: return std::to_string(std::get<Int64>(FValue));
    case varDouble: return FloatToStr(std::get<double>(FValue));
    case varDate: return DateTimeToStr(std::get<DateTag>(FValue).Value);
    case varBoolean: return std::get<bool>(FValue) ? "True" : "False";
    case varString: return std::get<AnsiString>(FValue);
    case varNull: break;
    }
    ConversionError(varString);
}

bool Variant::AsBoolean() const
{
    switch (VarType()) {
    case varEmpty: return false;
    case varBoolean: return std::get<bool>(FValue);
    case varInteger: return std::get<Int64>(FValue) != 0;
    case varDouble:
    case varDate: return AsFloat() != 0;
    case varString: {
        const AnsiString s = Trim(std::get<AnsiString>(FValue));
        if (SameText(s, "True"))
            return true;
        if (SameText(s, "False"))
            return false;
        double d = 0;
        Int64 i = 0;
        if (TryTextToInt(s, i))
            return i != 0;
        if (TryTextToFloat(s, d))
            return d != 0;
        break;
    }
    case varNull: break;
    }
    ConversionError(varBoolean);
}

bool Variant::operator==(const Variant& other) const
{
    if (FValue.index() == other.FValue.index())
        return FValue == other.FValue;
    const TVarType a = VarType();
    const TVarType b = other.VarType();
    if (a == varEmpty || a == varNull || b == varEmpty || b == varNull)
        return false;
    try {
        if (a == varBoolean || b == varBoolean)
            return AsBoolean() == other.AsBoolean();
        return AsFloat() == other.AsFloat();
    } catch (const EVariantError&) {
        return false;   // text that is no number differs from every number
    }
}

AnsiString VarToStr(const Variant& value)
{
    return value.IsNull() ? AnsiString() : value.AsString();
}

AnsiString VarTypeAsText(TVarType type)
{
    switch (type) {
    case varEmpty: return "Empty";
    case varNull: return "Null";
    case varInteger: return "Integer";
    case varDouble: return "Double";
    case varDate: return "Date";
    case varBoolean: return "Boolean";
    case varString: return "String";
    }
    return "Unknown";
}
