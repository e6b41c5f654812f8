#include "runtime/util/QzDecimal.h"

#include <charconv>
#include <cstdlib>

namespace {

// Reads to_chars' scientific form "-d.ddde-12" (the point and the sign are
// optional).
TQzDecimal FromScientific(const char* first, const char* last)
{
    TQzDecimal d;
    const std::string text(first, last);
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
    QzDecimalTrim(d);
    return d;
}

} // namespace

TQzDecimal QzDecimalOf(double value)
{
    char buf[64];
    const auto res = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::scientific);
    return FromScientific(buf, res.ptr);
}

TQzDecimal QzDecimalOf(long double value, int significant)
{
    char buf[80];
    // to_chars rounds correctly and ignores the locale, unlike printf.
    const auto res = std::to_chars(buf, buf + sizeof buf, value, std::chars_format::scientific,
                                   significant > 1 ? significant - 1 : 0);
    return FromScientific(buf, res.ptr);
}

void QzDecimalTrim(TQzDecimal& d)
{
    size_t lead = 0;
    while (lead < d.Digits.size() && d.Digits[lead] == '0')
        ++lead;
    d.Digits.erase(0, lead);
    d.PointPos -= int(lead);
    while (!d.Digits.empty() && d.Digits.back() == '0')
        d.Digits.pop_back();
    if (d.Digits.empty())
        d = TQzDecimal{};
}

void QzDecimalRound(TQzDecimal& d, int decimals)
{
    // Digits kept: those before the point plus decimals after it.
    const long keep = long(d.PointPos) + decimals;
    if (keep >= long(d.Digits.size()))
        return;
    if (keep < 0) {
        d = TQzDecimal{};
        return;
    }
    const bool up = d.Digits[size_t(keep)] >= '5';
    d.Digits.resize(size_t(keep));
    if (up) {
        long i = keep - 1;
        for (; i >= 0 && d.Digits[size_t(i)] == '9'; --i)
            d.Digits[size_t(i)] = '0';
        if (i >= 0) {
            ++d.Digits[size_t(i)];
        } else {
            d.Digits.insert(0, 1, '1');
            ++d.PointPos;
        }
    }
    QzDecimalTrim(d);
}

std::string QzDecimalPlain(const TQzDecimal& d)
{
    if (d.Digits.empty())
        return "0";
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
