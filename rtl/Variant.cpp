#include "rtl/Variant.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>

namespace {

AnsiString Trimmed(const AnsiString& s)
{
    const auto first = s.find_first_not_of(" \t\r\n");
    if (first == AnsiString::npos)
        return {};
    const auto last = s.find_last_not_of(" \t\r\n");
    return s.substr(first, last - first + 1);
}

bool SameTextAscii(const AnsiString& a, const char* b)
{
    std::size_t i = 0;
    for (; i < a.size() && b[i]; ++i) {
        const auto x = static_cast<unsigned char>(a[i]);
        const auto y = static_cast<unsigned char>(b[i]);
        if (std::tolower(x) != std::tolower(y))
            return false;
    }
    return i == a.size() && !b[i];
}

// Decimal, or hexadecimal with Delphi's '$' or C's "0x" prefix.
bool TryTextToInt(const AnsiString& text, Int64& out)
{
    const AnsiString s = Trimmed(text);
    std::size_t pos = 0;
    bool negative = false;
    if (pos < s.size() && (s[pos] == '-' || s[pos] == '+'))
        negative = s[pos++] == '-';
    int base = 10;
    if (s.compare(pos, 1, "$") == 0) {
        base = 16;
        pos += 1;
    } else if (s.compare(pos, 2, "0x") == 0 || s.compare(pos, 2, "0X") == 0) {
        base = 16;
        pos += 2;
    }
    if (pos >= s.size())
        return false;
    std::uint64_t magnitude = 0;
    const char* end = s.data() + s.size();
    const auto result = std::from_chars(s.data() + pos, end, magnitude, base);
    if (result.ec != std::errc() || result.ptr != end)
        return false;
    if (base == 16 && !negative) {
        out = static_cast<Int64>(magnitude);   // $FFFFFFFFFFFFFFFF is -1, as in Delphi
        return true;
    }
    const std::uint64_t limit = negative ? std::uint64_t(1) << 63 : (std::uint64_t(1) << 63) - 1;
    if (magnitude > limit)
        return false;
    out = negative ? static_cast<Int64>(0 - magnitude) : static_cast<Int64>(magnitude);
    return true;
}

bool TryTextToFloat(const AnsiString& text, double& out)
{
    AnsiString s = Trimmed(text);
    if (!s.empty() && s[0] == '+')
        s.erase(0, 1);
    if (s.empty())
        return false;
    const char* end = s.data() + s.size();
    const auto result = std::from_chars(s.data(), end, out);
    return result.ec == std::errc() && result.ptr == end;
}

// Fifteen significant digits with Delphi's exponent style: 1E20, 1.5E-7.
AnsiString FloatText(double value)
{
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.15G", value);
    AnsiString s = buffer;
    const auto e = s.find('E');
    if (e == AnsiString::npos)
        return s;
    AnsiString mantissa = s.substr(0, e);
    AnsiString exponent = s.substr(e + 1);
    const bool negative = exponent[0] == '-';
    exponent.erase(0, exponent.find_first_not_of("+-"));
    exponent.erase(0, std::min(exponent.find_first_not_of('0'), exponent.size() - 1));
    return mantissa + "E" + (negative ? "-" : "") + exponent;
}

AnsiString TwoDigits(int n)
{
    return AnsiString(1, char('0' + n / 10)) + char('0' + n % 10);
}

// yyyy-mm-dd, and hh:nn:ss unless it is midnight.
AnsiString DateTimeText(TDateTime value)
{
    const double dayPart = std::trunc(value);
    // Days since 1970-01-01 to a civil date (proleptic Gregorian calendar).
    const Int64 z = static_cast<Int64>(dayPart) - 25569 + 719468;
    const Int64 era = (z >= 0 ? z : z - 146096) / 146097;
    const Int64 doe = z - era * 146097;
    const Int64 yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const Int64 doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const Int64 mp = (5 * doy + 2) / 153;
    const int day = int(doy - (153 * mp + 2) / 5 + 1);
    const int month = int(mp < 10 ? mp + 3 : mp - 9);
    const Int64 year = yoe + era * 400 + (month <= 2 ? 1 : 0);

    AnsiString text = std::to_string(year) + "-" + TwoDigits(month) + "-" + TwoDigits(day);
    const Int64 seconds = std::min<Int64>(std::llround(std::fabs(value - dayPart) * 86400.0), 86399);
    if (seconds != 0)
        text += " " + TwoDigits(int(seconds / 3600)) + ":" + TwoDigits(int(seconds / 60 % 60)) + ":" +
                TwoDigits(int(seconds % 60));
    return text;
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

TDateTime Variant::AsDateTime() const
{
    if (VarType() == varDate)
        return std::get<DateTag>(FValue).Value;
    if (VarType() == varNull || VarType() == varString) {
        double d = 0;
        if (VarType() == varString && TryTextToFloat(std::get<AnsiString>(FValue), d))
            return d;
        ConversionError(varDate);
    }
    return AsFloat();
}

AnsiString Variant::AsString() const
{
    switch (VarType()) {
    case varEmpty: return {};
    case varInteger: return std::to_string(std::get<Int64>(FValue));
    case varDouble: return FloatText(std::get<double>(FValue));
    case varDate: return DateTimeText(std::get<DateTag>(FValue).Value);
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
        const AnsiString s = Trimmed(std::get<AnsiString>(FValue));
        if (SameTextAscii(s, "True"))
            return true;
        if (SameTextAscii(s, "False"))
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
