// SysUtils: dates and times, their texts and parsing.

#include "rtl/SysUtils.h"
#include "rtl/SysUtilsShared.h"

#include <array>
#include <cmath>
#include <ctime>

using SysUtilsImpl::AsciiUpper;

// ---- Dates and times ------------------------------------------------------

namespace {

// Days from 1970-01-01 to a proleptic Gregorian date (H. Hinnant's method).
Int64 DaysFromCivil(Int64 y, unsigned m, unsigned d)
{
    y -= m <= 2;
    const Int64 era = (y >= 0 ? y : y - 399) / 400;
    const unsigned yoe = unsigned(y - era * 400);
    const unsigned doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + Int64(doe) - 719468;
}

void CivilFromDays(Int64 z, Int64& y, unsigned& m, unsigned& d)
{
    z += 719468;
    const Int64 era = (z >= 0 ? z : z - 146096) / 146097;
    const unsigned doe = unsigned(z - era * 146097);
    const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    y = Int64(yoe) + era * 400;
    const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const unsigned mp = (5 * doy + 2) / 153;
    d = doy - (153 * mp + 2) / 5 + 1;
    m = mp < 10 ? mp + 3 : mp - 9;
    y += m <= 2;
}

// TDateTime 0 is 1899-12-30.
constexpr Int64 UnixDateDelta = 25569;

// Splits a TDateTime into whole days and milliseconds of the day. The
// time of a negative value counts forward from its day as well.
void SplitDateTime(TDateTime dt, Int64& days, Int64& msecs)
{
    double whole = std::trunc(dt);
    days = Int64(whole);
    msecs = std::llround(std::fabs(dt - whole) * MSecsPerDay);
    if (msecs >= MSecsPerDay) {
        days += dt >= 0 ? 1 : -1;
        msecs = 0;
    }
}

struct TDateFields {
    Word Year = 0, Month = 0, Day = 0, Hour = 0, Min = 0, Sec = 0, MSec = 0;
    int DayOfWeek = 0;  // 0 = Sunday
};

TDateFields Decode(TDateTime dt)
{
    TDateFields p;
    DecodeDate(dt, p.Year, p.Month, p.Day);
    DecodeTime(dt, p.Hour, p.Min, p.Sec, p.MSec);
    Int64 days = 0, ms = 0;
    SplitDateTime(dt, days, ms);
    // 1899-12-30 was a Saturday.
    p.DayOfWeek = int(((days + 6) % 7 + 7) % 7);
    return p;
}

AnsiString Pad(unsigned value, int width)
{
    AnsiString s = std::to_string(value);
    if (int(s.size()) < width)
        s.insert(0, std::size_t(width) - s.size(), '0');
    return s;
}

constexpr std::array<const char*, 12> MonthNames = {"January", "February", "March", "April", "May", "June",
    "July", "August", "September", "October", "November", "December"};
constexpr std::array<const char*, 7> DayNames = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday",
    "Friday", "Saturday"};

std::size_t RunLength(const AnsiString& fmt, std::size_t i)
{
    std::size_t n = 1;
    while (i + n < fmt.size() && AsciiUpper(fmt[i + n]) == AsciiUpper(fmt[i]))
        ++n;
    return n;
}

// Reads 1 to maxDigits decimal digits.
bool ReadField(const AnsiString& s, std::size_t& i, int maxDigits, int& value)
{
    int n = 0;
    value = 0;
    while (i < s.size() && n < maxDigits && s[i] >= '0' && s[i] <= '9') {
        value = value * 10 + (s[i++] - '0');
        ++n;
    }
    return n > 0;
}

bool Expect(const AnsiString& s, std::size_t& i, char c)
{
    if (i < s.size() && s[i] == c) {
        ++i;
        return true;
    }
    return false;
}

bool ParseDateText(const AnsiString& s, std::size_t& i, TDateTime& value)
{
    int y = 0, m = 0, d = 0;
    return ReadField(s, i, 4, y) && Expect(s, i, '-') && ReadField(s, i, 2, m) && Expect(s, i, '-') &&
           ReadField(s, i, 2, d) && TryEncodeDate(Word(y), Word(m), Word(d), value);
}

bool ParseTimeText(const AnsiString& s, std::size_t& i, TDateTime& value)
{
    int h = 0, n = 0, sec = 0, ms = 0;
    if (!ReadField(s, i, 2, h) || !Expect(s, i, ':') || !ReadField(s, i, 2, n))
        return false;
    if (Expect(s, i, ':')) {
        if (!ReadField(s, i, 2, sec))
            return false;
        if (Expect(s, i, '.') && !ReadField(s, i, 3, ms))
            return false;
    }
    return TryEncodeTime(Word(h), Word(n), Word(sec), Word(ms), value);
}

} // namespace

bool IsLeapYear(Word year)
{
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

int DaysInAMonth(Word year, Word month)
{
    static constexpr int days[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    if (month < 1 || month > 12)
        return 0;
    return days[month - 1] + (month == 2 && IsLeapYear(year) ? 1 : 0);
}

bool TryEncodeDate(Word year, Word month, Word day, TDateTime& date)
{
    if (year < 1 || year > 9999 || month < 1 || month > 12 || day < 1 || day > DaysInAMonth(year, month))
        return false;
    date = TDateTime(DaysFromCivil(year, month, day) + UnixDateDelta);
    return true;
}

bool TryEncodeTime(Word hour, Word min, Word sec, Word msec, TDateTime& time)
{
    if (hour >= 24 || min >= 60 || sec >= 60 || msec >= 1000)
        return false;
    time = TDateTime(((hour * 60 + min) * 60 + sec) * 1000 + msec) / MSecsPerDay;
    return true;
}

TDateTime EncodeDate(Word year, Word month, Word day)
{
    TDateTime d = 0;
    if (!TryEncodeDate(year, month, day, d))
        throw EConvertError("Invalid argument to date encode");
    return d;
}

TDateTime EncodeTime(Word hour, Word min, Word sec, Word msec)
{
    TDateTime t = 0;
    if (!TryEncodeTime(hour, min, sec, msec, t))
        throw EConvertError("Invalid argument to time encode");
    return t;
}

void DecodeDate(TDateTime dateTime, Word& year, Word& month, Word& day)
{
    Int64 days = 0, ms = 0;
    SplitDateTime(dateTime, days, ms);
    Int64 y = 0;
    unsigned m = 0, d = 0;
    CivilFromDays(days - UnixDateDelta, y, m, d);
    year = Word(y);
    month = Word(m);
    day = Word(d);
}

void DecodeTime(TDateTime dateTime, Word& hour, Word& min, Word& sec, Word& msec)
{
    Int64 days = 0, ms = 0;
    SplitDateTime(dateTime, days, ms);
    msec = Word(ms % 1000);
    sec = Word(ms / 1000 % 60);
    min = Word(ms / 60000 % 60);
    hour = Word(ms / 3600000);
}

TDateTime Now()
{
    timespec ts{};
    clock_gettime(CLOCK_REALTIME, &ts);
    std::tm tm{};
    localtime_r(&ts.tv_sec, &tm);
    return EncodeDate(Word(tm.tm_year + 1900), Word(tm.tm_mon + 1), Word(tm.tm_mday)) +
           EncodeTime(Word(tm.tm_hour), Word(tm.tm_min), Word(std::min(tm.tm_sec, 59)),
                      Word(ts.tv_nsec / 1000000));
}

TDateTime Date()
{
    return std::trunc(Now());
}

TDateTime Time()
{
    TDateTime now = Now();
    return now - std::trunc(now);
}

AnsiString DateToStr(TDateTime date)
{
    return FormatDateTime("yyyy-mm-dd", date);
}

AnsiString TimeToStr(TDateTime time)
{
    return FormatDateTime("hh:nn:ss", time);
}

AnsiString DateTimeToStr(TDateTime dateTime)
{
    Int64 days = 0, ms = 0;
    SplitDateTime(dateTime, days, ms);
    return ms == 0 ? DateToStr(dateTime) : FormatDateTime("yyyy-mm-dd hh:nn:ss", dateTime);
}

AnsiString FormatDateTime(const AnsiString& fmt, TDateTime dateTime)
{
    const TDateFields p = Decode(dateTime);
    AnsiString out;
    char lastLetter = 0;
    std::size_t i = 0;
    while (i < fmt.size()) {
        char c = fmt[i];
        if (c == '"' || c == '\'') {
            std::size_t close = fmt.find(c, i + 1);
            if (close == AnsiString::npos)
                close = fmt.size();
            out.append(fmt, i + 1, close - i - 1);
            i = close + 1;
            continue;
        }
        char token = AsciiUpper(c);
        if (token < 'A' || token > 'Z') {
            out += c;
            ++i;
            continue;
        }
        std::size_t n = RunLength(fmt, i);
        // Delphi reads "m" after an hour as minutes, whatever lies between.
        if (token == 'M' && lastLetter == 'H' && n <= 2)
            token = 'N';
        lastLetter = token;
        switch (token) {
        case 'Y':
            out += n <= 2 ? Pad(p.Year % 100, 2) : Pad(p.Year, 4);
            break;
        case 'M':
            out += n == 1 ? Pad(p.Month, 1)
                 : n == 2 ? Pad(p.Month, 2)
                 : n == 3 ? AnsiString(MonthNames[p.Month - 1u]).substr(0, 3)
                          : AnsiString(MonthNames[p.Month - 1u]);
            break;
        case 'D':
            out += n == 1 ? Pad(p.Day, 1)
                 : n == 2 ? Pad(p.Day, 2)
                 : n == 3 ? AnsiString(DayNames[std::size_t(p.DayOfWeek)]).substr(0, 3)
                 : n == 4 ? AnsiString(DayNames[std::size_t(p.DayOfWeek)])
                          : DateToStr(dateTime);
            break;
        case 'H':
            out += Pad(p.Hour, n == 1 ? 1 : 2);
            break;
        case 'N':
            out += Pad(p.Min, n == 1 ? 1 : 2);
            break;
        case 'S':
            out += Pad(p.Sec, n == 1 ? 1 : 2);
            break;
        case 'Z':
            out += Pad(p.MSec, n == 1 ? 1 : 3);
            break;
        case 'T':
            out += FormatDateTime(n == 1 ? "hh:nn" : "hh:nn:ss", dateTime);
            break;
        case 'C':
            out += DateTimeToStr(dateTime);
            break;
        default:
            out.append(fmt, i, n);
            break;
        }
        i += n;
    }
    return out;
}

bool TryStrToDate(const AnsiString& text, TDateTime& value)
{
    AnsiString s = Trim(text);
    std::size_t i = 0;
    return ParseDateText(s, i, value) && i == s.size();
}

bool TryStrToTime(const AnsiString& text, TDateTime& value)
{
    AnsiString s = Trim(text);
    std::size_t i = 0;
    return ParseTimeText(s, i, value) && i == s.size();
}

bool TryStrToDateTime(const AnsiString& text, TDateTime& value)
{
    AnsiString s = Trim(text);
    std::size_t i = 0;
    TDateTime date = 0, time = 0;
    if (!ParseDateText(s, i, date)) {
        // A time alone is a time on day zero.
        i = 0;
        if (!ParseTimeText(s, i, time) || i != s.size())
            return false;
        value = time;
        return true;
    }
    if (i < s.size()) {
        std::size_t t = i;
        while (t < s.size() && s[t] == ' ')
            ++t;
        if (t == i || !ParseTimeText(s, t, time) || t != s.size())
            return false;
    }
    // A negative date counts its time forward too.
    value = date < 0 ? date - time : date + time;
    return true;
}

TDateTime StrToDate(const AnsiString& text)
{
    TDateTime v = 0;
    if (!TryStrToDate(text, v))
        throw EConvertError("'" + text + "' is not a valid date");
    return v;
}

TDateTime StrToTime(const AnsiString& text)
{
    TDateTime v = 0;
    if (!TryStrToTime(text, v))
        throw EConvertError("'" + text + "' is not a valid time");
    return v;
}

TDateTime StrToDateTime(const AnsiString& text)
{
    TDateTime v = 0;
    if (!TryStrToDateTime(text, v))
        throw EConvertError("'" + text + "' is not a valid date and time");
    return v;
}
