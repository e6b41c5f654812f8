#include "rtl/SysUtils.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

AnsiString FloatToStr(Extended value)
{
    if (std::isnan(value))
        return "NAN";
    if (std::isinf(value))
        return value < 0 ? "-INF" : "INF";
    char buf[64];
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
