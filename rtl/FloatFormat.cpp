#include "rtl/SysUtils.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <locale.h>

namespace {

// Qt applications switch the C library to the user's locale, whose decimal
// separator may be ','. Stored floats always use '.', so formatting and
// parsing run under the "C" locale for their duration.
class TCLocaleScope {
public:
    TCLocaleScope()
    {
        static locale_t c = newlocale(LC_ALL_MASK, "C", locale_t(nullptr));
        FPrevious = uselocale(c);
    }
    ~TCLocaleScope() { uselocale(FPrevious); }
    TCLocaleScope(const TCLocaleScope&) = delete;
    TCLocaleScope& operator=(const TCLocaleScope&) = delete;

private:
    locale_t FPrevious;
};

} // namespace

AnsiString FloatToStr(Extended value)
{
    if (std::isnan(value))
        return "NAN";
    if (std::isinf(value))
        return value < 0 ? "-INF" : "INF";
    char buf[64];
    TCLocaleScope cLocale;
    std::snprintf(buf, sizeof buf, "%.15Lg", value);
    // printf writes "1.5e-05"; the suite writes "1.5E-5".
    AnsiString out;
    for (const char* p = buf; *p; ++p) {
        if (*p != 'e') {
            out.push_back(*p);
            continue;
        }
        out.push_back('E');
        ++p;
        if (*p == '-')
            out.push_back('-');
        if (*p == '-' || *p == '+')
            ++p;
        while (*p == '0' && p[1])
            ++p;
        out.append(p);
        break;
    }
    if (out == "-0")
        out = "0";
    return out;
}

bool TryStrToFloat(const AnsiString& text, Extended& value)
{
    const char* s = text.c_str();
    while (*s == ' ')
        ++s;
    if (!*s)
        return false;
    // strtold would also take hex floats, "inf" and "nan"; forms never hold those.
    for (const char* p = s; *p; ++p) {
        char c = *p;
        if (!((c >= '0' && c <= '9') || c == '.' || c == 'e' || c == 'E' || c == '+' || c == '-' || c == ' '))
            return false;
    }
    char* end = nullptr;
    TCLocaleScope cLocale;
    long double v = std::strtold(s, &end);
    while (end && *end == ' ')
        ++end;
    if (end == s || (end && *end))
        return false;
    value = v;
    return true;
}

Extended StrToFloat(const AnsiString& text)
{
    Extended v = 0;
    if (!TryStrToFloat(text, v))
        throw EConvertError("'" + text + "' is not a valid floating point value");
    return v;
}

AnsiString FloatToStrFixed(Extended value, int precision, int digits)
{
    if (std::isnan(value) || std::isinf(value))
        return FloatToStr(value);
    precision = std::clamp(precision, 1, 18);
    digits = std::clamp(digits, 0, 18);
    char buf[64];
    {
        TCLocaleScope cLocale;
        std::snprintf(buf, sizeof buf, "%.*Le", precision - 1, value);
    }
    // buf is "-d.ddde+XX": collect the significant digits and the exponent.
    const char* p = buf;
    bool negative = *p == '-';
    if (negative)
        ++p;
    std::string mantissa;
    for (; *p && *p != 'e'; ++p)
        if (*p != '.')
            mantissa.push_back(*p);
    int exponent = *p == 'e' ? std::atoi(p + 1) : 0;
    if (exponent + 1 > precision)
        return FloatToStr(value);
    // Digit k of the number (k = 0 the first integer digit when exponent >= 0)
    // sits at decimal position exponent - k.
    auto digitAt = [&](int power) {
        int index = exponent - power;
        return index >= 0 && index < int(mantissa.size()) ? mantissa[size_t(index)] : '0';
    };
    std::string out;
    // More significant digits than decimals: printf rounds at the last decimal.
    if (exponent - int(mantissa.size()) + 1 < -digits) {
        TCLocaleScope cLocale;
        std::snprintf(buf, sizeof buf, "%.*Lf", digits, value);
        out = buf;
        if (out.find_first_not_of("-0.") == std::string::npos && out[0] == '-')
            out.erase(0, 1);
        return out;
    }
    if (negative && mantissa.find_first_not_of('0') != std::string::npos)
        out.push_back('-');
    for (int power = std::max(exponent, 0); power >= 0; --power)
        out.push_back(digitAt(power));
    if (digits > 0) {
        out.push_back('.');
        for (int power = -1; power >= -digits; --power)
            out.push_back(digitAt(power));
    }
    return out;
}
