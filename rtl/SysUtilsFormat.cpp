// SysUtils: Format and the float texts it writes.

#include "rtl/SysUtils.h"
#include "rtl/SysUtilsShared.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

using SysUtilsImpl::AsciiUpper;
using SysUtilsImpl::UnsignedToStr;

// ---- Format ---------------------------------------------------------------

namespace {

// Decimal digits of a float, as Delphi works with them: eighteen significant
// digits rounded once from the binary value, then rounded half away from
// zero at the precision asked for (so "%.2f" of 0.125 gives "0.13").
struct TDecimal {
    std::string Digits;  // significant digits, Digits[0] at 10^Exponent
    int Exponent = 0;
    bool Negative = false;
};

TDecimal ToDecimal(Extended value)
{
    TDecimal d;
    d.Negative = std::signbit(value);
    char buf[64];
    auto res = std::to_chars(buf, buf + sizeof buf, std::fabs(value), std::chars_format::scientific, 17);
    std::string_view text(buf, std::size_t(res.ptr - buf));
    std::size_t e = text.find('e');
    for (char c : text.substr(0, e))
        if (c != '.')
            d.Digits += c;
    std::from_chars(text.data() + e + (text[e + 1] == '+' ? 2 : 1), text.data() + text.size(), d.Exponent);
    return d;
}

// Keeps count significant digits (count may be 0 or negative: the value
// then rounds to zero or up to one unit at 10^(Exponent + 1 - count)).
void RoundDigits(TDecimal& d, int count)
{
    if (count >= int(d.Digits.size()))
        return;
    bool up = count >= 0 && d.Digits[std::size_t(count)] >= '5';
    if (count <= 0) {
        d.Exponent += 1 - count;
        d.Digits = up ? "1" : "0";
        if (!up)
            d.Exponent = 0;
        return;
    }
    d.Digits.resize(std::size_t(count));
    if (!up)
        return;
    int i = count - 1;
    while (i >= 0 && d.Digits[std::size_t(i)] == '9')
        d.Digits[std::size_t(i--)] = '0';
    if (i >= 0) {
        ++d.Digits[std::size_t(i)];
    } else {
        d.Digits.insert(d.Digits.begin(), '1');
        d.Digits.pop_back();
        ++d.Exponent;
    }
}

bool IsZero(const TDecimal& d)
{
    return d.Digits.find_first_not_of('0') == std::string::npos;
}

char DigitAt(const TDecimal& d, int power)
{
    int idx = d.Exponent - power;
    return idx >= 0 && idx < int(d.Digits.size()) ? d.Digits[std::size_t(idx)] : '0';
}

AnsiString SignOf(const TDecimal& d)
{
    return d.Negative && !IsZero(d) ? "-" : "";
}

AnsiString FixedText(Extended value, int decimals, bool thousands)
{
    TDecimal d = ToDecimal(value);
    RoundDigits(d, d.Exponent + 1 + decimals);
    AnsiString intPart;
    for (int p = std::max(d.Exponent, 0); p >= 0; --p) {
        intPart += DigitAt(d, p);
        if (thousands && p > 0 && p % 3 == 0)
            intPart += ',';
    }
    AnsiString out = SignOf(d) + intPart;
    if (decimals > 0) {
        out += '.';
        for (int p = -1; p >= -decimals; --p)
            out += DigitAt(d, p);
    }
    return out;
}

AnsiString ExponentText(int exponent, bool plusSign)
{
    AnsiString digits = std::to_string(std::abs(exponent));
    if (digits.size() < 3)
        digits.insert(0, 3 - digits.size(), '0');
    return AnsiString("E") + (exponent < 0 ? "-" : plusSign ? "+" : "") + digits;
}

AnsiString ScientificText(Extended value, int precision)
{
    TDecimal d = ToDecimal(value);
    RoundDigits(d, precision);
    d.Digits.resize(std::size_t(precision), '0');
    AnsiString out = SignOf(d) + d.Digits[0];
    if (precision > 1)
        out += "." + d.Digits.substr(1);
    return out + ExponentText(IsZero(d) ? 0 : d.Exponent, true);
}

AnsiString GeneralText(Extended value, int precision)
{
    TDecimal d = ToDecimal(value);
    RoundDigits(d, precision);
    if (IsZero(d))
        return "0";
    std::string digits = d.Digits.substr(0, d.Digits.find_last_not_of('0') + 1);
    AnsiString out = SignOf(d);
    if (d.Exponent >= precision || d.Exponent < -5) {
        out += digits[0];
        if (digits.size() > 1)
            out += "." + digits.substr(1);
        return out + ExponentText(d.Exponent, false);
    }
    for (int p = std::max(d.Exponent, 0); p >= 0; --p)
        out += DigitAt(d, p);
    int lastPower = d.Exponent - int(digits.size()) + 1;
    if (lastPower < 0) {
        out += '.';
        for (int p = -1; p >= lastPower; --p)
            out += DigitAt(d, p);
    }
    return out;
}

std::size_t CodePointCount(std::string_view s)
{
    return std::size_t(std::count_if(s.begin(), s.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; }));
}

// The first count code points of s.
std::string_view CodePointPrefix(std::string_view s, std::size_t count)
{
    std::size_t i = 0;
    for (std::size_t seen = 0; i < s.size(); ++i) {
        if ((static_cast<unsigned char>(s[i]) & 0xC0) != 0x80 && seen++ == count)
            break;
    }
    return s.substr(0, i);
}

class TFormatter {
public:
    TFormatter(const AnsiString& fmt, const TVarRec* args, std::size_t count)
        : FFmt(fmt), FArgs(args), FCount(count) {}

    AnsiString Run()
    {
        while (FPos < FFmt.size()) {
            char c = FFmt[FPos++];
            if (c != '%')
                FOut += c;
            else
                ReadDirective();
        }
        return FOut;
    }

private:
    const AnsiString& FFmt;
    const TVarRec* FArgs;
    std::size_t FCount;
    std::size_t FPos = 0;
    std::size_t FNextArg = 0;
    AnsiString FOut;

    [[noreturn]] void Fail() const
    {
        throw EConvertError("Format '" + FFmt + "' invalid or incompatible with argument");
    }

    const TVarRec& NextArg()
    {
        if (FNextArg >= FCount)
            Fail();
        return FArgs[FNextArg++];
    }

    char Peek() const { return FPos < FFmt.size() ? FFmt[FPos] : '\0'; }

    // Digits or '*'; -1 when neither is there.
    int ReadNumber()
    {
        if (Peek() == '*') {
            ++FPos;
            const TVarRec& a = NextArg();
            if (a.VType != vtInteger)
                Fail();
            return std::max<int>(int(a.VInteger), 0);
        }
        if (Peek() < '0' || Peek() > '9')
            return -1;
        int n = 0;
        while (Peek() >= '0' && Peek() <= '9') {
            n = std::min(n * 10 + (FFmt[FPos++] - '0'), 1 << 20);
        }
        return n;
    }

    void ReadDirective()
    {
        if (Peek() == '%') {
            FOut += FFmt[FPos++];
            return;
        }
        int number = ReadNumber();
        if (Peek() == ':') {
            ++FPos;
            if (number < 0)
                Fail();
            FNextArg = std::size_t(number);
            number = -1;
        }
        bool left = false;
        if (number < 0 && Peek() == '-') {
            left = true;
            ++FPos;
        }
        int width = number >= 0 ? number : ReadNumber();
        int precision = -1;
        if (Peek() == '.') {
            ++FPos;
            precision = std::max(ReadNumber(), 0);
        }
        if (FPos >= FFmt.size())
            Fail();
        char type = AsciiUpper(FFmt[FPos++]);
        AnsiString text = Convert(type, NextArg(), precision);
        std::size_t len = CodePointCount(text);
        if (width > 0 && len < std::size_t(width)) {
            AnsiString pad(std::size_t(width) - len, ' ');
            text = left ? text + pad : pad + text;
        }
        FOut += text;
    }

    static bool IsIntegerArg(const TVarRec& a)
    {
        return a.VType == vtInteger || a.VType == vtInt64 || a.VType == vtUInt64;
    }

    // The value as the unsigned number %u and %x show: negatives wrap at
    // the width of their type.
    static std::uint64_t AsUnsigned(const TVarRec& a)
    {
        if (a.VType == vtInteger)
            return std::uint32_t(a.VInteger);
        return std::uint64_t(a.VInteger);
    }

    static AnsiString MinDigits(AnsiString digits, int precision)
    {
        if (precision > int(digits.size()))
            digits.insert(0, std::size_t(precision) - digits.size(), '0');
        return digits;
    }

    AnsiString Convert(char type, const TVarRec& a, int precision)
    {
        switch (type) {
        case 'D':
            if (!IsIntegerArg(a))
                Fail();
            if (a.VType == vtUInt64 || a.VInteger >= 0)
                return MinDigits(UnsignedToStr(std::uint64_t(a.VInteger), 10), precision);
            return "-" + MinDigits(UnsignedToStr(0 - std::uint64_t(a.VInteger), 10), precision);
        case 'U':
            if (!IsIntegerArg(a))
                Fail();
            return MinDigits(UnsignedToStr(AsUnsigned(a), 10), precision);
        case 'X':
            if (!IsIntegerArg(a))
                Fail();
            return MinDigits(UnsignedToStr(AsUnsigned(a), 16), precision);
        case 'P':
            if (a.VType != vtPointer)
                Fail();
            return MinDigits(UnsignedToStr(reinterpret_cast<std::uintptr_t>(a.VPointer), 16),
                             int(sizeof(void*) * 2));
        case 'S':
            if (a.VType != vtString && a.VType != vtChar)
                Fail();
            return AnsiString(precision >= 0 ? CodePointPrefix(a.VString, std::size_t(precision)) : a.VString);
        case 'E':
        case 'F':
        case 'G':
        case 'N':
        case 'M':
            if (a.VType != vtExtended)
                Fail();
            return FloatText(type, a.VExtended, precision);
        default:
            Fail();
        }
    }

    static AnsiString FloatText(char type, Extended v, int precision)
    {
        if (std::isnan(v))
            return "NAN";
        if (std::isinf(v))
            return v < 0 ? "-INF" : "INF";
        switch (type) {
        case 'E':
            return ScientificText(v, precision < 0 ? 15 : std::clamp(precision, 1, 18));
        case 'G':
            return GeneralText(v, precision < 0 ? 15 : std::clamp(precision, 1, 18));
        default: {
            int decimals = precision < 0 ? 2 : std::min(precision, 18);
            return FixedText(v, decimals, type != 'F');
        }
        }
    }
};

} // namespace

AnsiString FormatBuf(const AnsiString& fmt, const TVarRec* args, std::size_t count)
{
    return TFormatter(fmt, args, count).Run();
}

AnsiString Format(const AnsiString& fmt, std::initializer_list<TVarRec> args)
{
    return FormatBuf(fmt, args.begin(), args.size());
}
