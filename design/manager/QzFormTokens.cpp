#include "design/manager/QzFormTokens.h"

#include <cstring>

namespace {

constexpr std::string_view ColonToken = ":";
constexpr std::string_view EqualToken = "=";

// Codes 1 to 32: what the tokenizer skips and trims. Code 0 is text.
inline bool IsBlank(unsigned char c)
{
    return c >= 1 && c <= 32;
}

std::string_view TrimBlanks(std::string_view s)
{
    // Trimming also takes code 0, as the class library's Trim does.
    std::size_t b = 0, e = s.size();
    while (b < e && static_cast<unsigned char>(s[b]) <= 32)
        ++b;
    while (e > b && static_cast<unsigned char>(s[e - 1]) <= 32)
        --e;
    return s.substr(b, e - b);
}

void AppendUtf8(AnsiString& out, unsigned long code)
{
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0 | (code >> 12));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (code >> 18));
        out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
}

// A character escape at value[i] == '#': decimal (#39) or hex (#$27).
bool ParseCharEscape(std::string_view value, std::size_t& i, AnsiString& out)
{
    ++i;
    const bool hex = i < value.size() && value[i] == '$';
    if (hex)
        ++i;
    unsigned long code = 0;
    std::size_t digits = 0;
    for (; i < value.size(); ++i, ++digits) {
        const char c = value[i];
        int d;
        if (c >= '0' && c <= '9')
            d = c - '0';
        else if (hex && QzFoldAscii(c) >= 'A' && QzFoldAscii(c) <= 'F')
            d = QzFoldAscii(c) - 'A' + 10;
        else
            break;
        code = code * (hex ? 16 : 10) + static_cast<unsigned long>(d);
        if (code > 0x10FFFF)
            return false;
    }
    if (digits == 0)
        return false;
    AppendUtf8(out, code);
    return true;
}

// A quoted piece at value[i] == '\'', doubled quotes undone.
bool ParseQuoted(std::string_view value, std::size_t& i, AnsiString& out)
{
    ++i;
    for (;;) {
        const std::size_t q = value.find('\'', i);
        if (q == std::string_view::npos)
            return false;
        out.append(value.substr(i, q - i));
        i = q + 1;
        if (i < value.size() && value[i] == '\'') {
            out += '\'';
            ++i;
            continue;
        }
        return true;
    }
}

// A string literal of pieces, possibly joined by '+'; false when value is
// not one, in which case it compares as it stands.
bool DecodeLiteral(std::string_view value, AnsiString& out)
{
    std::size_t i = 0;
    bool any = false;
    while (i < value.size()) {
        const char c = value[i];
        if (IsBlank(static_cast<unsigned char>(c)) || c == '+') {
            ++i;
        } else if (c == '\'') {
            if (!ParseQuoted(value, i, out))
                return false;
            any = true;
        } else if (c == '#') {
            if (!ParseCharEscape(value, i, out))
                return false;
            any = true;
        } else {
            return false;
        }
    }
    return any;
}

}  // namespace

void GetListTokens(TQzTokens& tokens, std::string_view line)
{
    tokens.clear();
    const char* p = line.data();
    const std::size_t n = line.size();
    bool afterEqual = false;
    bool skipping = true;
    bool pending = false;
    std::size_t start = 0;

    const auto endToken = [&](std::size_t stop) {
        if (!pending)
            return;
        pending = false;
        const std::string_view token = TrimBlanks(line.substr(start, stop - start));
        if (!token.empty())
            tokens.push_back(token);
    };

    std::size_t i = 0;
    while (i < n) {
        const auto c = static_cast<unsigned char>(p[i]);
        if (skipping && IsBlank(c)) {
            ++i;
            continue;
        }
        skipping = false;
        if (c == ':' || c == '=') {
            endToken(i);
            tokens.push_back(c == ':' ? ColonToken : EqualToken);
            afterEqual = afterEqual || c == '=';
            skipping = true;
        } else if (!afterEqual && (c == '.' || c == ' ')) {
            endToken(i);
            skipping = true;
        } else if (c == '\'') {
            // The text before the quote is dropped, not made a token.
            start = i;
            pending = true;
            const void* close = std::memchr(p + i + 1, '\'', n - i - 1);
            i = close ? static_cast<std::size_t>(static_cast<const char*>(close) - p) + 1 : n;
            continue;
        } else if (!pending) {
            start = i;
            pending = true;
        }
        ++i;
    }
    endToken(n);
}

std::string_view GetToken(const TQzTokens& tokens, int index)
{
    if (index < 0 || index >= static_cast<int>(tokens.size()))
        return {};
    return tokens[static_cast<std::size_t>(index)];
}

int ScannerTokensEqual(const TQzTokens& tokens)
{
    for (std::size_t i = 0; i < tokens.size(); ++i)
        if (tokens[i] == EqualToken || tokens[i] == ColonToken)
            return static_cast<int>(i);
    return -1;
}

std::string_view QzValueText(std::string_view line)
{
    bool quoted = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '\'')
            quoted = !quoted;
        else if (line[i] == '=' && !quoted)
            return TrimBlanks(line.substr(i + 1));
    }
    return {};
}

AnsiString QzDecodeValue(std::string_view value)
{
    value = TrimBlanks(value);
    AnsiString decoded;
    if (!value.empty() && (value.front() == '\'' || value.front() == '#') && DecodeLiteral(value, decoded))
        return decoded;
    return AnsiString(value);
}

bool QzSameValue(std::string_view value, std::string_view searched)
{
    value = TrimBlanks(value);
    if (value.empty() || (value.front() != '\'' && value.front() != '#'))
        return QzSameAscii(value, searched);
    // 'DEMO': the common case, compared in place.
    if (value.size() >= 2 && value.front() == '\'' && value.back() == '\'' &&
        value.find('\'', 1) == value.size() - 1)
        return QzSameAscii(value.substr(1, value.size() - 2), searched);
    return QzSameAscii(QzDecodeValue(value), searched);
}
