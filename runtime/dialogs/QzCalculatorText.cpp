#include "runtime/dialogs/QzCalculatorText.h"

#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdlib>

namespace {

// value = (Negative ? -1 : 1) * 0.Digits * 10^PointPos, Digits without
// leading or trailing zeros ("" for zero).
struct TDecimal {
    bool Negative = false;
    std::string Digits;
    int PointPos = 0;
};

void Trim(TDecimal& d)
{
    size_t lead = 0;
    while (lead < d.Digits.size() && d.Digits[lead] == '0')
        ++lead;
    d.Digits.erase(0, lead);
    d.PointPos -= int(lead);
    while (!d.Digits.empty() && d.Digits.back() == '0')
        d.Digits.pop_back();
    if (d.Digits.empty())
        d = TDecimal{};
}

TDecimal FromValue(Extended value)
{
    char buf[80];
    // to_chars rounds correctly and ignores the locale, unlike printf.
    const auto res = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::scientific, QzCalcMaxDigits - 1);
    const std::string text(buf, res.ptr);
    TDecimal d;
    size_t i = 0;
    if (text[i] == '-') {
        d.Negative = true;
        ++i;
    }
    const size_t e = text.find('e');
    for (; i < e; ++i)
        if (text[i] != '.')
            d.Digits += text[i];
    d.PointPos = std::atoi(text.c_str() + e + 1) + 1;
    Trim(d);
    return d;
}

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
bool FromText(const AnsiString& text, TDecimal& d)
{
    d = TDecimal{};
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
    Trim(d);
    return true;
}

bool ToValue(const TDecimal& d, Extended& value)
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

std::string Plain(const TDecimal& d)
{
    const int n = int(d.Digits.size());
    std::string out;
    if (d.PointPos <= 0) {
        out = "0.";
        out.append(size_t(-d.PointPos), '0');
        out += d.Digits;
    } else if (d.PointPos >= n) {
        out = d.Digits;
        out.append(size_t(d.PointPos - n), '0');
    } else {
        out = d.Digits.substr(0, size_t(d.PointPos)) + '.' + d.Digits.substr(size_t(d.PointPos));
    }
    return out;
}

std::string Scientific(const TDecimal& d)
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
    const TDecimal d = FromValue(value);
    if (d.Digits.empty())
        return "0";
    const int exponent = d.PointPos - 1;
    const std::string body =
        exponent < MinPlainExponent || exponent > MaxPlainExponent ? Scientific(d) : Plain(d);
    return d.Negative ? '-' + body : body;
}

bool QzCalcParse(const AnsiString& text, Extended& value)
{
    TDecimal d;
    return FromText(text, d) && ToValue(d, value);
}

bool QzCalcRound(const AnsiString& text, int decimals, Extended& value)
{
    TDecimal d;
    if (!FromText(text, d))
        return false;
    const int keep = d.PointPos + decimals;
    if (keep < 0) {
        d = TDecimal{};
    } else if (keep < int(d.Digits.size())) {
        const bool up = d.Digits[size_t(keep)] >= '5';
        d.Digits.resize(size_t(keep));
        if (up) {
            int i = keep - 1;
            for (; i >= 0 && d.Digits[size_t(i)] == '9'; --i)
                d.Digits[size_t(i)] = '0';
            if (i >= 0) {
                ++d.Digits[size_t(i)];
            } else {
                d.Digits.insert(0, 1, '1');
                ++d.PointPos;
            }
        }
        Trim(d);
    }
    return ToValue(d, value);
}
