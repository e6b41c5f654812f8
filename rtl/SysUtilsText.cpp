// SysUtils: case, comparison, trimming and quoting.

#include "rtl/SysUtils.h"
#include "rtl/SysUtilsShared.h"

#include <algorithm>
#include <vector>

using SysUtilsImpl::AsciiUpper;

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
