#include "runtime/dialogs/QzCalculatorText.h"

#include "runtime/util/QzDecimal.h"

#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace {

bool AllDigits(const std::string& s, size_t from, size_t to)
{
    for (size_t i = from; i < to; ++i)
        if (!std::isdigit(static_cast<unsigned char>(s[i])))
            return false;
    return true;
}

// Far beyond any long double, and keeps the point position an int.
constexpr int MaxExponent = 100000;

// '-'? digit+ ('.' digit*)? ('e' [+-]? digit+)?
bool FromText(const AnsiString& text, TQzDecimal& d)
{
    d = TQzDecimal{};
    size_t i = 0;
    if (i < text.size() && text[i] == '-') {
        d.Negative = true;
        ++i;
    }
    size_t end = text.find('e', i);
    int exponent = 0;
    if (end != std::string::npos) {
        size_t j = end + 1;
        if (j < text.size() && (text[j] == '+' || text[j] == '-'))
            ++j;
        if (j == text.size() || !AllDigits(text, j, text.size()))
            return false;
        const char* first = text.data() + end + 1 + (text[end + 1] == '+' ? 1 : 0);
        const auto res = std::from_chars(first, text.data() + text.size(), exponent);
        if (res.ec != std::errc() || std::abs(exponent) > MaxExponent)
            return false;
    } else {
        end = text.size();
    }
    const size_t point = text.find('.', i);
    const size_t intEnd = point < end ? point : end;
    if (intEnd == i || !AllDigits(text, i, intEnd) || (point < end && !AllDigits(text, point + 1, end)))
        return false;
    d.Digits = text.substr(i, intEnd - i);
    if (point < end)
        d.Digits += text.substr(point + 1, end - point - 1);
    d.PointPos = int(intEnd - i) + exponent;
    QzDecimalTrim(d);
    return true;
}

bool ToValue(const TQzDecimal& d, Extended& value)
{
    if (d.Digits.empty()) {
        value = 0;
        return true;
    }
    const std::string text =
        (d.Negative ? "-0." : "0.") + d.Digits + "e" + std::to_string(d.PointPos);
    Extended result = 0;
    const auto res = std::from_chars(text.data(), text.data() + text.size(), result);
    if (res.ec != std::errc() || res.ptr != text.data() + text.size())
        return false;
    value = result;
    return true;
}


std::string Scientific(const TQzDecimal& d)
{
    const int exponent = d.PointPos - 1;
    std::string out(1, d.Digits[0]);
    if (d.Digits.size() > 1)
        out += '.' + d.Digits.substr(1);
    return out + (exponent < 0 ? "e-" : "e+") + std::to_string(std::abs(exponent));
}

// Beyond these the plain notation would need more than the display's digits
// or a row of zeros the user has to count.
constexpr int MinPlainExponent = -6;
constexpr int MaxPlainExponent = QzCalcMaxDigits - 1;

} // namespace

AnsiString QzCalcFormat(Extended value)
{
    const TQzDecimal d = QzDecimalOf(value, QzCalcMaxDigits);
    if (d.Digits.empty())
        return "0";
    const int exponent = d.PointPos - 1;
    const std::string body =
        exponent < MinPlainExponent || exponent > MaxPlainExponent ? Scientific(d) : QzDecimalPlain(d);
    return d.Negative ? '-' + body : body;
}

bool QzCalcParse(const AnsiString& text, Extended& value)
{
    TQzDecimal d;
    return FromText(text, d) && ToValue(d, value);
}

bool QzCalcRound(const AnsiString& text, int decimals, Extended& value)
{
    TQzDecimal d;
    if (!FromText(text, d))
        return false;
    QzDecimalRound(d, decimals);
    return ToValue(d, value);
}
