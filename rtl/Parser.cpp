#include "rtl/Parser.h"

#include <array>
#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <cstring>

namespace {

bool IsSymbolStart(char c)
{
    // Bytes above 127 are letters of identifiers written by later IDEs.
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || Byte(c) >= 0x80;
}

bool IsSymbolChar(char c)
{
    return IsSymbolStart(c) || (c >= '0' && c <= '9');
}

int HexValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return -1;
}

AnsiString TokenDescription(char token)
{
    switch (token) {
    case toSymbol:
        return "Identifier";
    case toString:
        return "String";
    case toInteger:
    case toFloat:
        return "Number";
    case toEOF:
        return "End of file";
    default:
        return AnsiString("'") + token + "'";
    }
}

} // namespace

bool IsTextIdent(std::string_view text, bool dotted)
{
    size_t i = 0;
    for (;;) {
        if (i >= text.size() || !IsSymbolStart(text[i]))
            return false;
        while (++i < text.size() && IsSymbolChar(text[i])) {
        }
        if (i == text.size())
            return true;
        if (!dotted || text[i] != '.')
            return false;
        ++i;
    }
}

TParser::TParser(std::string_view text) : FText(text), FPos(text.data()), FEnd(text.data() + text.size())
{
    NextToken();
}

void TParser::Error(const AnsiString& what) const
{
    throw ETextParseError(what, FTokenLine);
}

void TParser::ErrorAt(const AnsiString& what, int line) const
{
    throw ETextParseError(what, line);
}

void TParser::CheckToken(char expected) const
{
    if (FToken != expected)
        Error(TokenDescription(expected) + " expected");
}

void TParser::CheckTokenSymbol(std::string_view symbol) const
{
    if (!TokenSymbolIs(symbol))
        Error("'" + std::string(symbol) + "' expected");
}

bool TParser::TokenSymbolIs(std::string_view symbol) const
{
    if (FToken != toSymbol || FTokenText.size() != symbol.size())
        return false;
    for (size_t i = 0; i < symbol.size(); ++i)
        if ((FTokenText[i] | 0x20) != (symbol[i] | 0x20))
            return false;
    return true;
}

char TParser::NextToken()
{
    // Skip blanks, counting lines.
    while (FPos < FEnd) {
        char c = *FPos;
        if (c == '\n')
            ++FLine;
        else if (c != ' ' && c != '\t' && c != '\r' && c != '\f' && c != '\v' && c != '\0')
            break;
        ++FPos;
    }
    FTokenLine = FLine;
    const char* start = FPos;
    if (FPos >= FEnd) {
        FToken = toEOF;
        FTokenText = {};
        return FToken;
    }
    char c = *FPos;
    if (IsSymbolStart(c)) {
        ++FPos;
        while (FPos < FEnd && IsSymbolChar(*FPos))
            ++FPos;
        FToken = toSymbol;
    } else if (c == '\'' || c == '#') {
        ScanString();
        FToken = toString;
    } else if (c == '$' || c == '-' || c == '+' || (c >= '0' && c <= '9')) {
        if ((c == '-' || c == '+') && !(FPos + 1 < FEnd && ((FPos[1] >= '0' && FPos[1] <= '9') || FPos[1] == '.'))) {
            ++FPos;
            FToken = c;
        } else {
            ScanNumber();
        }
    } else {
        // Control characters would read as the token kinds that share their codes.
        if (Byte(c) < 0x20)
            Error("Invalid character");
        ++FPos;
        FToken = c;
    }
    FTokenText = std::string_view(start, size_t(FPos - start));
    return FToken;
}

void TParser::ScanNumber()
{
    FFloatType = 0;
    if (*FPos == '$') {
        ++FPos;
        const char* digits = FPos;
        while (FPos < FEnd && HexValue(*FPos) >= 0)
            ++FPos;
        if (FPos == digits)
            Error("Invalid number");
        FToken = toInteger;
        return;
    }
    ++FPos;
    while (FPos < FEnd && *FPos >= '0' && *FPos <= '9')
        ++FPos;
    FToken = toInteger;
    while (FPos < FEnd && ((*FPos >= '0' && *FPos <= '9') || *FPos == '.' || *FPos == 'e' || *FPos == 'E' ||
                           ((*FPos == '+' || *FPos == '-') && (FPos[-1] == 'e' || FPos[-1] == 'E')))) {
        ++FPos;
        FToken = toFloat;
    }
    if (FPos < FEnd && (*FPos == 's' || *FPos == 'S' || *FPos == 'c' || *FPos == 'C' || *FPos == 'd' || *FPos == 'D')) {
        FFloatType = char(*FPos | 0x20);
        ++FPos;
        FToken = toFloat;
    }
}

void TParser::ScanString()
{
    FBytes.clear();
    FHighEscape = false;
    FRawHigh = false;
    while (FPos < FEnd && (*FPos == '#' || *FPos == '\'')) {
        if (*FPos == '#') {
            ++FPos;
            unsigned long code = 0;
            const char* digits = FPos;
            if (FPos < FEnd && *FPos == '$') {
                digits = ++FPos;
                while (FPos < FEnd && HexValue(*FPos) >= 0 && code <= 0x10FFFF)
                    code = code * 16 + unsigned(HexValue(*FPos++));
            } else {
                while (FPos < FEnd && *FPos >= '0' && *FPos <= '9' && code <= 0x10FFFF)
                    code = code * 10 + unsigned(*FPos++ - '0');
            }
            if (FPos == digits || code > 0x10FFFF)
                Error("Invalid character code in string");
            if (code > 127)
                FHighEscape = true;
            FBytes.push_back(char(code));
            continue;
        }
        ++FPos;
        for (;;) {
            if (FPos >= FEnd || *FPos == '\r' || *FPos == '\n')
                Error("Unterminated string");
            char c = *FPos++;
            if (c == '\'') {
                if (FPos < FEnd && *FPos == '\'') {
                    ++FPos;
                } else {
                    break;
                }
            }
            if (Byte(c) >= 0x80)
                FRawHigh = true;
            FBytes.push_back(c);
        }
    }
}

std::string_view TParser::TokenComponentIdent()
{
    CheckToken(toSymbol);
    const char* start = FTokenText.data();
    while (FPos < FEnd && *FPos == '.') {
        ++FPos;
        if (FPos >= FEnd || !IsSymbolStart(*FPos))
            Error("Identifier expected");
        while (FPos < FEnd && IsSymbolChar(*FPos))
            ++FPos;
    }
    FTokenText = std::string_view(start, size_t(FPos - start));
    return FTokenText;
}

Int64 TParser::TokenInt() const
{
    std::string text(FTokenText);
    errno = 0;
    char* end = nullptr;
    long long v = text[0] == '$' ? static_cast<long long>(std::strtoull(text.c_str() + 1, &end, 16))
                                 : std::strtoll(text.c_str(), &end, 10);
    if (errno == ERANGE || !end || *end)
        Error("Invalid integer value " + text);
    return v;
}

Extended TParser::TokenFloat() const
{
    std::string_view text = FTokenText;
    if (FFloatType)
        text.remove_suffix(1);
    Extended v = 0;
    // Out of range reads as infinity, which no text form can say again.
    if (!TryStrToFloat(std::string(text), v) || !std::isfinite(v))
        Error("Invalid floating point value " + std::string(FTokenText));
    return v;
}

std::string TParser::HexToBinary()
{
    std::string out;
    HexToBinary(out);
    return out;
}

void TParser::HexToBinary(std::string& out)
{
    // Pictures make up most of a large form: the digits are decoded in
    // pairs through a table into a buffer sized once for the whole value.
    static const auto digits = [] {
        std::array<signed char, 256> table{};
        table.fill(-1);
        for (int c = 0; c < 256; ++c)
            table[size_t(c)] = static_cast<signed char>(HexValue(char(c)));
        return table;
    }();
    const void* close = std::memchr(FPos, '}', size_t(FEnd - FPos));
    const char* end = close ? static_cast<const char*>(close) : FEnd;
    const size_t start = out.size();
    out.resize(start + size_t(end - FPos) / 2);
    char* o = out.data() + start;
    // Locals, not members: the compiler cannot keep a member in a register
    // across writes through a char pointer.
    const char* p = FPos;
    int hi = -1;
    while (p < end) {
        if (hi < 0) {
            while (p + 1 < end) {
                const int a = digits[Byte(p[0])];
                const int b = digits[Byte(p[1])];
                if ((a | b) < 0)
                    break;
                *o++ = char(a << 4 | b);
                p += 2;
            }
            if (p >= end)
                break;
        }
        char c = *p++;
        if (c == '\n') {
            ++FLine;
            // The next line's indentation.
            while (p < end && *p == ' ')
                ++p;
            continue;
        }
        if (c == ' ' || c == '\r' || c == '\t')
            continue;
        int v = digits[Byte(c)];
        if (v < 0) {
            FPos = p;
            FTokenLine = FLine;
            Error("Invalid binary value");
        }
        if (hi < 0) {
            hi = v;
        } else {
            *o++ = char(hi * 16 + v);
            hi = -1;
        }
    }
    FPos = p;
    out.resize(size_t(o - out.data()));
    FTokenLine = FLine;
    if (FPos >= FEnd)
        Error("'}' expected");
    if (hi >= 0)
        Error("Invalid binary value");
    ++FPos;  // the closing brace
}
