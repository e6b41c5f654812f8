#include "runtime/util/QzNumeric.h"

#include "runtime/util/QzDecimal.h"

#include "rtl/SysUtils.h"

#include <charconv>
#include <cmath>
#include <system_error>

namespace {

// The notation of the header: sign and plain digits.
AnsiString FromDecimal(const TQzDecimal& d)
{
    return (d.Negative ? "-" : "") + QzDecimalPlain(d);
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
    return FromDecimal(QzDecimalOf(value));
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
    TQzDecimal d = QzDecimalOf(value);
    if (long(d.PointPos) + decimals >= long(d.Digits.size()))
        return value;  // already has no more than decimals places
    QzDecimalRound(d, decimals);
    if (d.Digits.empty())
        return 0.0;
    double result = 0;
    const AnsiString text = FromDecimal(d);
    const auto res = std::from_chars(text.data(), text.data() + text.size(), result, std::chars_format::fixed);
    if (res.ec == std::errc::result_out_of_range)  // rounded up past the largest double
        return d.Negative ? -HUGE_VAL : HUGE_VAL;
    return result;
}
