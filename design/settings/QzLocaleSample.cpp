#include "design/settings/QzLocaleSample.h"

#include <cmath>
#include <cstdio>

namespace {

AnsiString TwoDigits(Integer value)
{
    return (value < 10 ? "0" : "") + IntToStr(value);
}

// The digits of |value| rounded half away from zero to decimals, before
// and after the point, as the application rounds what it shows.
void SplitDigits(double value, Integer decimals, AnsiString& whole, AnsiString& fraction)
{
    long long scale = 1;
    for (Integer i = 0; i < decimals; ++i)
        scale *= 10;
    const double scaled = std::fabs(value) * static_cast<double>(scale);
    if (scaled < 9e15) {
        const long long n = std::llround(scaled);
        whole = IntToStr(n / scale);
        fraction = decimals > 0 ? IntToStr(n % scale) : AnsiString();
        fraction.insert(0, static_cast<size_t>(decimals) - fraction.size(), '0');
        return;
    }
    // Beyond what an integer holds exactly the digits are printf's.
    char buffer[400];
    std::snprintf(buffer, sizeof buffer, "%.*f", static_cast<int>(decimals), std::fabs(value));
    const AnsiString text = buffer;
    const size_t point = text.find('.');
    whole = text.substr(0, point);
    fraction = point == AnsiString::npos ? AnsiString() : text.substr(point + 1);
}

AnsiString Grouped(const AnsiString& digits, char separator)
{
    AnsiString out;
    const size_t n = digits.size();
    for (size_t i = 0; i < n; ++i) {
        if (i > 0 && (n - i) % 3 == 0)
            out += separator;
        out += digits[i];
    }
    return out;
}

// |value| as the locale writes it, and whether a sign goes in front.
AnsiString Magnitude(const TQzLocaleValues& locale, double value, bool& negative)
{
    AnsiString whole, fraction;
    SplitDigits(value, locale.Decimals, whole, fraction);
    AnsiString text = Grouped(whole, locale.NumericTrousandSeparator);
    if (!fraction.empty())
        text += locale.NumericDecimalSeparator + fraction;
    // A value that rounds to zero shows no sign.
    negative = value < 0 && (whole + fraction).find_first_not_of('0') != AnsiString::npos;
    return text;
}

}  // namespace

AnsiString QzLocaleDate(const TQzLocaleValues& locale, Word year, Word month, Word day)
{
    const AnsiString sep(1, locale.DateSeparator);
    const AnsiString y = IntToStr(year), m = TwoDigits(month), d = TwoDigits(day);
    switch (locale.DateFormat) {
    case dfMDY:
        return m + sep + d + sep + y;
    case dfYMD:
        return y + sep + m + sep + d;
    case dfDMY:
        break;
    }
    return d + sep + m + sep + y;
}

AnsiString QzLocaleTime(const TQzLocaleValues& locale, Word hour, Word minute, Word second, bool twelveHour)
{
    const AnsiString sep(1, locale.TimeSeparator);
    if (!twelveHour)
        return TwoDigits(hour) + sep + TwoDigits(minute) + sep + TwoDigits(second);
    const Word h = hour % 12 == 0 ? 12 : hour % 12;
    return IntToStr(h) + sep + TwoDigits(minute) + sep + TwoDigits(second) + " " +
           (hour < 12 ? locale.TimeAMString : locale.TimePMString);
}

AnsiString QzLocaleNumber(const TQzLocaleValues& locale, double value)
{
    bool negative = false;
    const AnsiString text = Magnitude(locale, value, negative);
    return negative ? "-" + text : text;
}

AnsiString QzLocaleCurrency(const TQzLocaleValues& locale, double value)
{
    bool negative = false;
    const AnsiString number = Magnitude(locale, value, negative);
    const AnsiString& symbol = locale.NumericCurrencyString;
    AnsiString text;
    switch (locale.NumericCurrencyFormat) {
    case cfAfter:
        text = number + symbol;
        break;
    case cfBeforeSpace:
        text = symbol + " " + number;
        break;
    case cfAfterSpace:
        text = number + " " + symbol;
        break;
    case cfBefore:
        text = symbol + number;
        break;
    }
    return negative ? "-" + text : text;
}

Integer QzLocaleYear(const TQzLocaleValues& locale, Integer twoDigitYear)
{
    switch (locale.DateYear) {
    case dyFourDigits:
        return -1;
    case dyCentury:
        return locale.DateCentury + twoDigitYear;
    case dyWindow:
        break;
    }
    // Years below the pivot belong to the century, the others to the one before.
    return twoDigitYear < locale.DateYearFix ? locale.DateCentury + twoDigitYear
                                             : locale.DateCentury - 100 + twoDigitYear;
}
