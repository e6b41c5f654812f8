#include "runtime/util/QzNumeric.h"

#include "rtl/SysUtils.h"

#include <charconv>
#include <cmath>
#include <system_error>

namespace {

// A finite double as its shortest exact decimal digits: value =
// (negative ? -1 : 1) * 0.d1d2d3... * 10^pointPos, digits without leading or
// trailing zeros ("" for zero).
struct TDecimal {
    bool Negative = false;
    std::string Digits;
    int PointPos = 0;
};

TDecimal ToDecimal(double value)
{
    TDecimal d;
    if (value == 0)
        return d;
    char buf[64];
    const auto res = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::scientific);
    std::string text(buf, res.ptr);
    size_t i = 0;
    if (text[i] == '-') {
        d.Negative = true;
        ++i;
    }
    const size_t e = text.find('e');
    for (; i < e; ++i)
        if (text[i] != '.')
            d.Digits += text[i];
    const int exponent = std::stoi(text.substr(e + 1));
    d.PointPos = exponent + 1;
    while (!d.Digits.empty() && d.Digits.back() == '0')
        d.Digits.pop_back();
    return d;
}

AnsiString FromDecimal(const TDecimal& d)
{
    if (d.Digits.empty())
        return "0";
    AnsiString out;
    if (d.Negative)
        out += '-';
    const int n = int(d.Digits.size());
    if (d.PointPos <= 0) {
        out += "0.";
        out.append(size_t(-d.PointPos), '0');
        out += d.Digits;
    } else if (d.PointPos >= n) {
        out += d.Digits;
        out.append(size_t(d.PointPos - n), '0');
    } else {
        out.append(d.Digits, 0, size_t(d.PointPos));
        out += '.';
        out.append(d.Digits, size_t(d.PointPos));
    }
    return out;
}

[[noreturn]] void NotANumber(const AnsiString& text)
{
    throw EConvertError(Format("'%s' is not a valid number", text));
}

} // namespace

AnsiString QzCNumericToStr(double value)
{
    if (!std::isfinite(value))
        throw EConvertError("The value has no fixed decimal form (not a finite number)");
    return FromDecimal(ToDecimal(value));
}

double QzCStrToNumeric(const AnsiString& text)
{
    const AnsiString s = Trim(text);
    size_t i = 0;
    if (i < s.size() && s[i] == '-')
        ++i;
    size_t intDigits = 0, fracDigits = 0;
    while (i < s.size() && s[i] >= '0' && s[i] <= '9') {
        ++i;
        ++intDigits;
    }
    if (i < s.size() && s[i] == '.') {
        ++i;
        while (i < s.size() && s[i] >= '0' && s[i] <= '9') {
            ++i;
            ++fracDigits;
        }
    }
    if (i != s.size() || intDigits + fracDigits == 0)
        NotANumber(text);
    double value = 0;
    const auto res = std::from_chars(s.data(), s.data() + s.size(), value, std::chars_format::fixed);
    if (res.ec != std::errc() || res.ptr != s.data() + s.size())
        NotANumber(text);
    if (!std::isfinite(value))
        NotANumber(text);
    return value;
}

double QzRoundDec(double value, int decimals)
{
    if (!std::isfinite(value) || value == 0)
        return value;
    TDecimal d = ToDecimal(value);
    // Digits kept: those before the point plus decimals after it.
    const long keep = long(d.PointPos) + decimals;
    const long n = long(d.Digits.size());
    if (keep >= n)
        return value;  // already has no more than decimals places
    if (keep < 0)
        return 0.0;
    const bool roundUp = d.Digits[size_t(keep)] >= '5';
    d.Digits.resize(size_t(keep));
    if (roundUp) {
        long j = keep - 1;
        while (j >= 0 && d.Digits[size_t(j)] == '9') {
            d.Digits[size_t(j)] = '0';
            --j;
        }
        if (j < 0) {
            d.Digits.insert(d.Digits.begin(), '1');
            ++d.PointPos;
        } else {
            ++d.Digits[size_t(j)];
        }
    }
    while (!d.Digits.empty() && d.Digits.back() == '0')
        d.Digits.pop_back();
    if (d.Digits.empty())
        return 0.0;
    double result = 0;
    const AnsiString text = FromDecimal(d);
    const auto res = std::from_chars(text.data(), text.data() + text.size(), result, std::chars_format::fixed);
    if (res.ec == std::errc::result_out_of_range)  // rounded up past the largest double
        return d.Negative ? -HUGE_VAL : HUGE_VAL;
    return result;
}
