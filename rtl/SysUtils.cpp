// SysUtils: integers and their texts, and assertions. The other concerns
// have a file each: SysUtilsText, SysUtilsFormat, SysUtilsFiles, SysUtilsDates.

#include "rtl/SysUtils.h"
#include "rtl/SysUtilsShared.h"

#include <algorithm>
#include <charconv>
#include <limits>

using SysUtilsImpl::UnsignedToStr;

// ---- Integers -------------------------------------------------------------

namespace {

// The magnitude and sign of an integer text, before the range of the target
// type is known. Hex keeps its full unsigned range so that "$FFFFFFFF" can
// mean -1 in a 32-bit target.
struct TParsedInt {
    std::uint64_t Magnitude = 0;
    bool Negative = false;
    bool Hex = false;
};

int HexDigitValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

bool ParseIntText(const AnsiString& text, TParsedInt& out)
{
    std::size_t i = 0;
    const std::size_t n = text.size();
    while (i < n && text[i] == ' ')
        ++i;
    if (i < n && (text[i] == '+' || text[i] == '-'))
        out.Negative = text[i++] == '-';
    if (i < n && text[i] == '$') {
        out.Hex = true;
        ++i;
    } else if (i + 1 < n && text[i] == '0' && (text[i + 1] == 'x' || text[i + 1] == 'X')) {
        out.Hex = true;
        i += 2;
    }
    if (i == n)
        return false;
    const unsigned base = out.Hex ? 16 : 10;
    const std::uint64_t max = std::numeric_limits<std::uint64_t>::max();
    for (; i < n; ++i) {
        int d = HexDigitValue(text[i]);
        if (d < 0 || unsigned(d) >= base)
            return false;
        if (out.Magnitude > (max - unsigned(d)) / base)
            return false;
        out.Magnitude = out.Magnitude * base + unsigned(d);
    }
    return true;
}

// Fits a parsed value into a signed type of the given width in bits.
bool FitSigned(const TParsedInt& p, int bits, Int64& value)
{
    const std::uint64_t maxPositive = (std::uint64_t(1) << (bits - 1)) - 1;
    const std::uint64_t maxUnsigned = bits == 64 ? ~std::uint64_t(0) : (std::uint64_t(1) << bits) - 1;
    std::uint64_t m = p.Magnitude;
    if (p.Hex && !p.Negative && m > maxPositive && m <= maxUnsigned) {
        // Two's complement reinterpretation of the full-width hex value.
        value = bits == 64 ? Int64(m) : Int64(m) - Int64(maxUnsigned) - 1;
        return true;
    }
    if (p.Negative ? m > maxPositive + 1 : m > maxPositive)
        return false;
    value = p.Negative ? Int64(0 - m) : Int64(m);
    return true;
}

[[noreturn]] void RaiseInvalidInteger(const AnsiString& text)
{
    throw EConvertError("'" + text + "' is not a valid integer value");
}

} // namespace

AnsiString IntToStr(Int64 value)
{
    char buf[24];
    auto res = std::to_chars(buf, buf + sizeof buf, value);
    return AnsiString(buf, res.ptr);
}

AnsiString IntToHex(Int64 value, int digits)
{
    AnsiString s = UnsignedToStr(std::uint64_t(value), 16);
    if (int(s.size()) < digits)
        s.insert(0, std::size_t(digits) - s.size(), '0');
    return s;
}

bool TryStrToInt64(const AnsiString& text, Int64& value)
{
    TParsedInt p;
    return ParseIntText(text, p) && FitSigned(p, 64, value);
}

bool TryStrToInt(const AnsiString& text, Integer& value)
{
    TParsedInt p;
    Int64 v = 0;
    if (!ParseIntText(text, p) || !FitSigned(p, 32, v))
        return false;
    value = Integer(v);
    return true;
}

Integer StrToInt(const AnsiString& text)
{
    Integer v = 0;
    if (!TryStrToInt(text, v))
        RaiseInvalidInteger(text);
    return v;
}

Int64 StrToInt64(const AnsiString& text)
{
    Int64 v = 0;
    if (!TryStrToInt64(text, v))
        RaiseInvalidInteger(text);
    return v;
}

Integer StrToIntDef(const AnsiString& text, Integer defaultValue)
{
    Integer v = 0;
    return TryStrToInt(text, v) ? v : defaultValue;
}

Int64 StrToInt64Def(const AnsiString& text, Int64 defaultValue)
{
    Int64 v = 0;
    return TryStrToInt64(text, v) ? v : defaultValue;
}

// ---- Assertions -----------------------------------------------------------

void QzAssert(bool cond, const AnsiString& msg, const char* file, int line)
{
    if (cond)
        return;
    throw EAssertionFailed((msg.empty() ? AnsiString("Assertion failed") : msg) + " (" +
                           (file ? file : "") + ", line " + std::to_string(line) + ")");
}

AnsiString SysUtilsImpl::UnsignedToStr(std::uint64_t value, int base)
{
    char buf[32];
    auto res = std::to_chars(buf, buf + sizeof buf, value, base);
    AnsiString s(buf, res.ptr);
    if (base == 16)
        std::transform(s.begin(), s.end(), s.begin(), [](char c) { return c >= 'a' && c <= 'f' ? char(c - 32) : c; });
    return s;
}
