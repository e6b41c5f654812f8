#pragma once
// Tokenizer for the text form format: symbols, integers, floats with their
// type suffix, string literals made of quoted runs and #nnn escapes, and
// single punctuation characters. Tracks the line for error messages.

#include "rtl/SysUtils.h"

#include <cctype>
#include <string>
#include <string_view>

// A parse error with the line it was found on; the message starts with
// "line N: ".
class ETextParseError : public EParserError {
public:
    ETextParseError(const AnsiString& what, int line)
        : EParserError("line " + std::to_string(line) + ": " + what), FLine(line), FWhat(what) {}
    int Line() const { return FLine; }
    const AnsiString& What() const { return FWhat; }

private:
    int FLine;
    AnsiString FWhat;
};

// Whether text reads back as one symbol token, or as symbols joined by dots
// where `dotted` (a component reference, a nested property's name): what a
// name written bare into a text form must be.
bool IsTextIdent(std::string_view text, bool dotted);

enum TTokenKind : char {
    toEOF = 0,
    toSymbol = 1,
    toString = 2,
    toInteger = 3,
    toFloat = 4,
};

class TParser {
public:
    explicit TParser(std::string_view text);

    char Token() const { return FToken; }
    char NextToken();
    int SourceLine() const { return FLine; }
    int TokenLine() const { return FTokenLine; }

    // The token's text as it stands in the source (symbols, numbers).
    std::string_view TokenText() const { return FTokenText; }
    // For a symbol: the text followed by ".Part" runs (component references).
    std::string_view TokenComponentIdent();
    bool TokenSymbolIs(std::string_view symbol) const;
    Int64 TokenInt() const;
    Extended TokenFloat() const;
    char FloatType() const { return FFloatType; }

    // String tokens. The literal's pieces are decoded on request: the
    // quoted runs are raw source bytes, escapes are character codes.
    // HasHighEscape: some #nnn escape is above 127.
    bool HasHighEscape() const { return FHighEscape; }
    bool HasRawHighBytes() const { return FRawHigh; }
    // Raw bytes and escapes below 256 as bytes (valid when !HasHighEscape).
    const std::string& TokenBytes() const { return FBytes; }
    // Walks the text of a string token: onRaw(bytes) for each quoted run,
    // onCode(code) for each escape.
    template <typename Raw, typename Code>
    static void ForEachStringPiece(std::string_view tokenText, Raw onRaw, Code onCode);

    void CheckToken(char expected) const;
    void CheckTokenSymbol(std::string_view symbol) const;
    [[noreturn]] void Error(const AnsiString& what) const;
    [[noreturn]] void ErrorAt(const AnsiString& what, int line) const;

    // Reads hexadecimal digit pairs up to '}' (the current token is '{').
    std::string HexToBinary();
    // The same, appended to out.
    void HexToBinary(std::string& out);

private:
    void ScanString();
    void ScanNumber();

    std::string_view FText;
    const char* FPos;
    const char* FEnd;
    char FToken = toEOF;
    std::string_view FTokenText;
    int FLine = 1;
    int FTokenLine = 1;
    char FFloatType = 0;
    bool FHighEscape = false;
    bool FRawHigh = false;
    std::string FBytes;
};

template <typename Raw, typename Code>
void TParser::ForEachStringPiece(std::string_view tokenText, Raw onRaw, Code onCode)
{
    const char* p = tokenText.data();
    const char* end = p + tokenText.size();
    while (p < end) {
        if (*p == '#') {
            ++p;
            unsigned code = 0;
            if (p < end && *p == '$') {
                for (++p; p < end && std::isxdigit(Byte(*p)); ++p)
                    code = code * 16 + unsigned(std::isdigit(Byte(*p)) ? *p - '0' : (*p | 0x20) - 'a' + 10);
            } else {
                for (; p < end && *p >= '0' && *p <= '9'; ++p)
                    code = code * 10 + unsigned(*p - '0');
            }
            onCode(char32_t(code));
            continue;
        }
        // A quoted run; '' inside stands for one quote.
        ++p;
        const char* run = p;
        for (;;) {
            if (*p == '\'') {
                onRaw(std::string_view(run, size_t(p - run)));
                ++p;
                if (p < end && *p == '\'') {
                    run = p;
                    ++p;
                    continue;
                }
                break;
            }
            ++p;
        }
    }
}
