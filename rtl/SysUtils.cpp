#include "rtl/SysUtils.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <ctime>
#include <filesystem>
#include <limits>
#include <sys/stat.h>
#include <vector>

namespace fs = std::filesystem;

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

AnsiString UnsignedToStr(std::uint64_t value, int base)
{
    char buf[32];
    auto res = std::to_chars(buf, buf + sizeof buf, value, base);
    AnsiString s(buf, res.ptr);
    if (base == 16)
        std::transform(s.begin(), s.end(), s.begin(), [](char c) { return c >= 'a' && c <= 'f' ? char(c - 32) : c; });
    return s;
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

// ---- Case and comparison --------------------------------------------------

namespace {

// Pairs laid out as upper/lower neighbours: which parity is the upper case
// letter differs from block to block.
bool InPairRange(char32_t c, char32_t first, char32_t last, bool upperIsEven, bool wantUpper)
{
    if (c < first || c > last)
        return false;
    bool even = c % 2 == 0;
    return wantUpper ? even == upperIsEven : even != upperIsEven;
}

char32_t UpperChar(char32_t c)
{
    if (c < 0x80)
        return c >= 'a' && c <= 'z' ? c - 32 : c;
    if ((c >= 0xE0 && c <= 0xFE && c != 0xF7))
        return c - 0x20;
    if (c == 0xFF)
        return 0x178;
    if (c == 0x131)
        return 'I';
    if (c == 0x17F)
        return 'S';
    if (InPairRange(c, 0x100, 0x12F, true, false) || InPairRange(c, 0x132, 0x137, true, false) ||
        InPairRange(c, 0x139, 0x148, false, false) || InPairRange(c, 0x14A, 0x177, true, false) ||
        InPairRange(c, 0x179, 0x17E, false, false))
        return c - 1;
    // Greek
    if (c == 0x3C2)
        return 0x3A3;
    if ((c >= 0x3B1 && c <= 0x3CB))
        return c - 0x20;
    if (c == 0x3AC)
        return 0x386;
    if (c >= 0x3AD && c <= 0x3AF)
        return c - 0x25;
    if (c == 0x3CC)
        return 0x38C;
    if (c == 0x3CD || c == 0x3CE)
        return c - 0x3F;
    // Cyrillic
    if (c >= 0x430 && c <= 0x44F)
        return c - 0x20;
    if (c >= 0x450 && c <= 0x45F)
        return c - 0x50;
    if (c == 0x4CF)
        return 0x4C0;
    if (InPairRange(c, 0x460, 0x481, true, false) || InPairRange(c, 0x48A, 0x4BF, true, false) ||
        InPairRange(c, 0x4C1, 0x4CE, false, false) || InPairRange(c, 0x4D0, 0x52F, true, false))
        return c - 1;
    return c;
}

char32_t LowerChar(char32_t c)
{
    if (c < 0x80)
        return c >= 'A' && c <= 'Z' ? c + 32 : c;
    if (c >= 0xC0 && c <= 0xDE && c != 0xD7)
        return c + 0x20;
    if (c == 0x178)
        return 0xFF;
    if (c == 0x130)
        return 'i';
    if (InPairRange(c, 0x100, 0x12F, true, true) || InPairRange(c, 0x132, 0x137, true, true) ||
        InPairRange(c, 0x139, 0x148, false, true) || InPairRange(c, 0x14A, 0x177, true, true) ||
        InPairRange(c, 0x179, 0x17E, false, true))
        return c + 1;
    // Greek
    if (c >= 0x391 && c <= 0x3AB && c != 0x3A2)
        return c + 0x20;
    if (c == 0x386)
        return 0x3AC;
    if (c >= 0x388 && c <= 0x38A)
        return c + 0x25;
    if (c == 0x38C)
        return 0x3CC;
    if (c == 0x38E || c == 0x38F)
        return c + 0x3F;
    // Cyrillic
    if (c >= 0x410 && c <= 0x42F)
        return c + 0x20;
    if (c >= 0x400 && c <= 0x40F)
        return c + 0x50;
    if (c == 0x4C0)
        return 0x4CF;
    if (InPairRange(c, 0x460, 0x481, true, true) || InPairRange(c, 0x48A, 0x4BF, true, true) ||
        InPairRange(c, 0x4C1, 0x4CE, false, true) || InPairRange(c, 0x4D0, 0x52F, true, true))
        return c + 1;
    return c;
}

char32_t FoldChar(char32_t c)
{
    // Through upper case first so that final sigma and long s meet their
    // ordinary forms.
    return LowerChar(UpperChar(c));
}

// Decodes one well-formed UTF-8 sequence at s[i]; on malformed input
// returns false and leaves the caller to take the byte as it is.
bool DecodeUtf8(std::string_view s, std::size_t i, char32_t& cp, std::size_t& len)
{
    unsigned char b = static_cast<unsigned char>(s[i]);
    if (b < 0x80) {
        cp = b;
        len = 1;
        return true;
    }
    char32_t minValue = 0;
    if ((b & 0xE0) == 0xC0) {
        cp = b & 0x1F;
        len = 2;
        minValue = 0x80;
    } else if ((b & 0xF0) == 0xE0) {
        cp = b & 0x0F;
        len = 3;
        minValue = 0x800;
    } else if ((b & 0xF8) == 0xF0) {
        cp = b & 0x07;
        len = 4;
        minValue = 0x10000;
    } else {
        return false;
    }
    if (i + len > s.size())
        return false;
    for (std::size_t k = 1; k < len; ++k) {
        unsigned char cb = static_cast<unsigned char>(s[i + k]);
        if ((cb & 0xC0) != 0x80)
            return false;
        cp = (cp << 6) | (cb & 0x3F);
    }
    return cp >= minValue && cp <= 0x10FFFF && !(cp >= 0xD800 && cp <= 0xDFFF);
}

void AppendUtf8(AnsiString& out, char32_t cp)
{
    if (cp < 0x80) {
        out += char(cp);
    } else if (cp < 0x800) {
        out += char(0xC0 | (cp >> 6));
        out += char(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        out += char(0xE0 | (cp >> 12));
        out += char(0x80 | ((cp >> 6) & 0x3F));
        out += char(0x80 | (cp & 0x3F));
    } else {
        out += char(0xF0 | (cp >> 18));
        out += char(0x80 | ((cp >> 12) & 0x3F));
        out += char(0x80 | ((cp >> 6) & 0x3F));
        out += char(0x80 | (cp & 0x3F));
    }
}

// Calls fn(cp, valid, start, length) for every code point; a malformed byte
// comes as its own unit with valid false.
template <class TFn>
void ForEachCodePoint(std::string_view s, TFn fn)
{
    std::size_t i = 0;
    while (i < s.size()) {
        char32_t cp = 0;
        std::size_t len = 1;
        bool valid = DecodeUtf8(s, i, cp, len);
        if (!valid) {
            cp = static_cast<unsigned char>(s[i]);
            len = 1;
        }
        fn(cp, valid, i, len);
        i += len;
    }
}

template <class TMap>
AnsiString MapCodePoints(std::string_view s, TMap map)
{
    AnsiString out;
    out.reserve(s.size());
    ForEachCodePoint(s, [&](char32_t cp, bool valid, std::size_t start, std::size_t len) {
        if (valid)
            AppendUtf8(out, map(cp));
        else
            out.append(s.substr(start, len));
    });
    return out;
}

AnsiString FoldCase(std::string_view s)
{
    return MapCodePoints(s, FoldChar);
}

int Sign(int v)
{
    return (v > 0) - (v < 0);
}

int CompareBytes(std::string_view a, std::string_view b)
{
    return Sign(a.compare(b));
}

std::vector<char32_t> CodePoints(std::string_view s)
{
    std::vector<char32_t> out;
    out.reserve(s.size());
    // Malformed bytes are kept apart from real code points above U+10FFFF.
    ForEachCodePoint(s, [&](char32_t cp, bool valid, std::size_t, std::size_t) {
        out.push_back(valid ? cp : 0x110000 + cp);
    });
    return out;
}

bool IsLowerLetter(char32_t c)
{
    return c <= 0x10FFFF && UpperChar(c) != c;
}

char AsciiUpper(char c)
{
    return c >= 'a' && c <= 'z' ? char(c - 32) : c;
}

char AsciiLower(char c)
{
    return c >= 'A' && c <= 'Z' ? char(c + 32) : c;
}

} // namespace

AnsiString UpperCase(const AnsiString& s)
{
    AnsiString out(s);
    std::transform(out.begin(), out.end(), out.begin(), AsciiUpper);
    return out;
}

AnsiString LowerCase(const AnsiString& s)
{
    AnsiString out(s);
    std::transform(out.begin(), out.end(), out.begin(), AsciiLower);
    return out;
}

AnsiString AnsiUpperCase(const AnsiString& s)
{
    return MapCodePoints(s, UpperChar);
}

AnsiString AnsiLowerCase(const AnsiString& s)
{
    return MapCodePoints(s, LowerChar);
}

int CompareStr(const AnsiString& s1, const AnsiString& s2)
{
    return CompareBytes(s1, s2);
}

int CompareText(const AnsiString& s1, const AnsiString& s2)
{
    std::size_t n = std::min(s1.size(), s2.size());
    for (std::size_t i = 0; i < n; ++i) {
        unsigned char a = static_cast<unsigned char>(AsciiUpper(s1[i]));
        unsigned char b = static_cast<unsigned char>(AsciiUpper(s2[i]));
        if (a != b)
            return a < b ? -1 : 1;
    }
    return s1.size() == s2.size() ? 0 : (s1.size() < s2.size() ? -1 : 1);
}

bool SameStr(const AnsiString& s1, const AnsiString& s2)
{
    return s1 == s2;
}

bool SameText(const AnsiString& s1, const AnsiString& s2)
{
    return s1.size() == s2.size() && CompareText(s1, s2) == 0;
}

int AnsiCompareStr(const AnsiString& s1, const AnsiString& s2)
{
    if (int c = AnsiCompareText(s1, s2); c != 0)
        return c;
    // Equal ignoring case: the first difference in case decides.
    std::vector<char32_t> a = CodePoints(s1), b = CodePoints(s2);
    for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i) {
        if (a[i] == b[i])
            continue;
        bool lowerA = IsLowerLetter(a[i]), lowerB = IsLowerLetter(b[i]);
        if (lowerA != lowerB)
            return lowerA ? -1 : 1;
        return a[i] < b[i] ? -1 : 1;
    }
    return CompareBytes(s1, s2);
}

int AnsiCompareText(const AnsiString& s1, const AnsiString& s2)
{
    return CompareBytes(FoldCase(s1), FoldCase(s2));
}

bool AnsiSameStr(const AnsiString& s1, const AnsiString& s2)
{
    return s1 == s2;
}

bool AnsiSameText(const AnsiString& s1, const AnsiString& s2)
{
    return AnsiCompareText(s1, s2) == 0;
}

// ---- Trimming, quoting, replacing -----------------------------------------

namespace {

bool IsBlank(char c)
{
    return static_cast<unsigned char>(c) <= ' ';
}

} // namespace

AnsiString Trim(const AnsiString& s)
{
    return TrimLeft(TrimRight(s));
}

AnsiString TrimLeft(const AnsiString& s)
{
    auto it = std::find_if_not(s.begin(), s.end(), IsBlank);
    return AnsiString(it, s.end());
}

AnsiString TrimRight(const AnsiString& s)
{
    auto it = std::find_if_not(s.rbegin(), s.rend(), IsBlank);
    return AnsiString(s.begin(), it.base());
}

AnsiString QuotedStr(const AnsiString& s)
{
    return AnsiQuotedStr(s, '\'');
}

AnsiString AnsiQuotedStr(const AnsiString& s, char quote)
{
    AnsiString out;
    out.reserve(s.size() + 2);
    out += quote;
    for (char c : s) {
        out += c;
        if (c == quote)
            out += quote;
    }
    out += quote;
    return out;
}

AnsiString AnsiDequotedStr(const AnsiString& s, char quote)
{
    if (s.empty() || s[0] != quote)
        return s;
    AnsiString out;
    std::size_t i = 1;
    while (i < s.size()) {
        if (s[i] == quote) {
            if (i + 1 < s.size() && s[i + 1] == quote) {
                out += quote;
                i += 2;
                continue;
            }
            ++i;
            break;
        }
        out += s[i++];
    }
    // Text that merely starts with a quote, such as "'abc", is not a quoted
    // string and stays as it was.
    bool nothingAfter = i >= s.size();
    if ((out.empty() || nothingAfter) && s.back() != quote)
        return s;
    return out;
}

AnsiString StringReplace(const AnsiString& s, const AnsiString& oldPattern,
                         const AnsiString& newPattern, TReplaceFlags flags)
{
    if (oldPattern.empty())
        return s;
    const bool all = flags & rfReplaceAll;
    if (!(flags & rfIgnoreCase)) {
        AnsiString out;
        std::size_t from = 0;
        for (;;) {
            std::size_t at = s.find(oldPattern, from);
            if (at == AnsiString::npos)
                break;
            out.append(s, from, at - from);
            out += newPattern;
            from = at + oldPattern.size();
            if (!all)
                break;
        }
        out.append(s, from, AnsiString::npos);
        return out;
    }
    // Search the folded text and map every match back to the original
    // bytes: folding may change the byte length of a letter.
    AnsiString folded;
    std::vector<std::size_t> origin;  // origin[k]: original offset of folded byte k
    ForEachCodePoint(s, [&](char32_t cp, bool valid, std::size_t start, std::size_t len) {
        std::size_t before = folded.size();
        if (valid)
            AppendUtf8(folded, FoldChar(cp));
        else
            folded.append(s, start, len);
        origin.insert(origin.end(), folded.size() - before, start);
    });
    origin.push_back(s.size());
    const AnsiString pattern = FoldCase(oldPattern);
    AnsiString out;
    std::size_t from = 0;  // in folded
    for (;;) {
        std::size_t at = folded.find(pattern, from);
        if (at == AnsiString::npos)
            break;
        out.append(s, origin[from], origin[at] - origin[from]);
        out += newPattern;
        from = at + pattern.size();
        if (!all)
            break;
    }
    out.append(s, origin[from], AnsiString::npos);
    return out;
}

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

// ---- File names -----------------------------------------------------------

namespace {

bool IsPathDelim(char c)
{
    return c == '/' || c == '\\';
}

bool HasDrive(const AnsiString& s)
{
    return s.size() >= 2 && s[1] == ':' && ((s[0] >= 'A' && s[0] <= 'Z') || (s[0] >= 'a' && s[0] <= 'z'));
}

// Index of the last path delimiter, counting the colon of a "C:" drive,
// or npos.
std::size_t LastDelimiter(const AnsiString& s)
{
    for (std::size_t i = s.size(); i-- > 0;) {
        if (IsPathDelim(s[i]) || (i == 1 && HasDrive(s)))
            return i;
    }
    return AnsiString::npos;
}

// Index of the dot starting the extension, or npos.
std::size_t ExtensionDot(const AnsiString& s)
{
    std::size_t delim = LastDelimiter(s);
    std::size_t dot = s.rfind('.');
    if (dot == AnsiString::npos || (delim != AnsiString::npos && dot < delim))
        return AnsiString::npos;
    return dot;
}

} // namespace

AnsiString ExtractFilePath(const AnsiString& fileName)
{
    std::size_t i = LastDelimiter(fileName);
    return i == AnsiString::npos ? AnsiString() : fileName.substr(0, i + 1);
}

AnsiString ExtractFileDir(const AnsiString& fileName)
{
    std::size_t i = LastDelimiter(fileName);
    if (i == AnsiString::npos)
        return {};
    // Keep the separator of a root ("/", "C:\") and of a doubled one.
    bool root = i == 0 || IsPathDelim(fileName[i - 1]) || (i == 2 && HasDrive(fileName));
    if (IsPathDelim(fileName[i]) && !root)
        return fileName.substr(0, i);
    return fileName.substr(0, i + 1);
}

AnsiString ExtractFileName(const AnsiString& fileName)
{
    std::size_t i = LastDelimiter(fileName);
    return i == AnsiString::npos ? fileName : fileName.substr(i + 1);
}

AnsiString ExtractFileExt(const AnsiString& fileName)
{
    std::size_t dot = ExtensionDot(fileName);
    return dot == AnsiString::npos ? AnsiString() : fileName.substr(dot);
}

AnsiString ChangeFileExt(const AnsiString& fileName, const AnsiString& extension)
{
    return fileName.substr(0, ExtensionDot(fileName)) + extension;
}

AnsiString ExtractFileDrive(const AnsiString& fileName)
{
    if (HasDrive(fileName))
        return fileName.substr(0, 2);
    if (fileName.size() > 2 && fileName[0] == '\\' && fileName[1] == '\\') {
        // \\server\share
        std::size_t server = fileName.find('\\', 2);
        if (server == AnsiString::npos || server == 2)
            return {};
        std::size_t share = fileName.find('\\', server + 1);
        return fileName.substr(0, share);
    }
    return {};
}

AnsiString IncludeTrailingPathDelimiter(const AnsiString& path)
{
    if (!path.empty() && IsPathDelim(path.back()))
        return path;
    return path + '/';
}

AnsiString ExcludeTrailingPathDelimiter(const AnsiString& path)
{
    if (!path.empty() && IsPathDelim(path.back()))
        return path.substr(0, path.size() - 1);
    return path;
}

AnsiString ExpandFileName(const AnsiString& fileName)
{
    if (fileName.empty())
        return {};
    AnsiString name = fileName;
    std::replace(name.begin(), name.end(), '\\', '/');
    if (name[0] != '/')
        name = IncludeTrailingPathDelimiter(GetCurrentDir()) + name;
    std::vector<AnsiString> segments;
    std::size_t from = 1;
    while (from <= name.size()) {
        std::size_t to = std::min(name.find('/', from), name.size());
        AnsiString segment = name.substr(from, to - from);
        if (segment == "..") {
            if (!segments.empty())
                segments.pop_back();
        } else if (!segment.empty() && segment != ".") {
            segments.push_back(segment);
        }
        from = to + 1;
    }
    AnsiString out;
    for (const AnsiString& segment : segments)
        out += "/" + segment;
    if (out.empty() || name.back() == '/')
        out += '/';
    return out;
}

bool SameFileName(const AnsiString& s1, const AnsiString& s2)
{
    return s1 == s2;
}

bool FileExists(const AnsiString& fileName)
{
    std::error_code ec;
    return !fileName.empty() && fs::exists(fileName, ec) && !fs::is_directory(fileName, ec);
}

bool DirectoryExists(const AnsiString& dirName)
{
    std::error_code ec;
    return !dirName.empty() && fs::is_directory(dirName, ec);
}

bool ForceDirectories(const AnsiString& dir)
{
    AnsiString path = ExcludeTrailingPathDelimiter(dir);
    if (path.empty() && dir.empty())
        throw EInOutError("Unable to create directory");
    if (path.empty())
        return true;  // the root
    std::error_code ec;
    fs::create_directories(path, ec);
    return DirectoryExists(path);
}

bool DeleteFile(const AnsiString& fileName)
{
    std::error_code ec;
    return !fs::is_directory(fileName, ec) && fs::remove(fileName, ec);
}

bool RenameFile(const AnsiString& oldName, const AnsiString& newName)
{
    std::error_code ec;
    fs::rename(oldName, newName, ec);
    return !ec;
}

AnsiString GetCurrentDir()
{
    std::error_code ec;
    fs::path p = fs::current_path(ec);
    return ec ? AnsiString() : p.string();
}

TDateTime FileDateToDateTime(Int64 fileDate)
{
    std::time_t t = std::time_t(fileDate);
    std::tm tm{};
    localtime_r(&t, &tm);
    return EncodeDate(Word(tm.tm_year + 1900), Word(tm.tm_mon + 1), Word(tm.tm_mday)) +
           EncodeTime(Word(tm.tm_hour), Word(tm.tm_min), Word(std::min(tm.tm_sec, 59)), 0);
}

Int64 FileAge(const AnsiString& fileName)
{
    struct stat st {};
    if (fileName.empty() || ::stat(fileName.c_str(), &st) != 0)
        return -1;
    return Int64(st.st_mtime);
}

bool FileAge(const AnsiString& fileName, TDateTime& dateTime)
{
    Int64 age = FileAge(fileName);
    if (age < 0)
        return false;
    dateTime = FileDateToDateTime(age);
    return true;
}

Int64 FileGetDate(int handle)
{
    struct stat st {};
    if (::fstat(handle, &st) != 0)
        return -1;
    return Int64(st.st_mtime);
}

AnsiString FindFileCaseInsensitive(const AnsiString& dir, const AnsiString& name)
{
    if (name.empty())
        return {};
    fs::path base = dir.empty() ? fs::path(".") : fs::path(dir);
    std::error_code ec;
    if (fs::exists(base / name, ec))
        return name;
    AnsiString best;
    for (fs::directory_iterator it(base, ec), end; !ec && it != end; it.increment(ec)) {
        AnsiString entry = it->path().filename().string();
        // Of several matches the byte-wise first, so the answer does not
        // depend on the order the directory lists them.
        if (SameText(entry, name) && (best.empty() || entry < best))
            best = entry;
    }
    return best;
}

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

// ---- Assertions -----------------------------------------------------------

void QzAssert(bool cond, const AnsiString& msg, const char* file, int line)
{
    if (cond)
        return;
    throw EAssertionFailed((msg.empty() ? AnsiString("Assertion failed") : msg) + " (" +
                           (file ? file : "") + ", line " + std::to_string(line) + ")");
}
