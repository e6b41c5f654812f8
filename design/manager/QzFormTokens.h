#pragma once
// The line tokenizer the form-file scanner reads form text with, and the
// value rule it compares with.
//
// Tokens are views into the line they came from: the tokenizer allocates
// nothing once the token list has grown to the longest line's needs.

#include "rtl/System.h"

#include <string_view>
#include <vector>

using TQzTokens = std::vector<std::string_view>;

// Form text's names compare without regard to case, in ASCII only: a
// name in a form is never anything else, and no locale is asked.
inline char QzFoldAscii(char c)
{
    return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c;
}

inline bool QzSameAscii(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (QzFoldAscii(a[i]) != QzFoldAscii(b[i]))
            return false;
    return true;
}

// Splits line into tokens; tokens is cleared first.
//  - Characters 1 to 32 are skipped at the start and after each separator.
//  - ':' and '=' end the pending token and are tokens themselves; after
//    the first '=', '.' and ' ' are ordinary characters.
//  - Before any '=', '.' and ' ' end the pending token and are dropped.
//  - A quote discards the pending text (deliberately) and starts a token
//    that runs to the next quote, quotes kept, or to the end of the line.
//  - Tokens are trimmed; empty ones are dropped.
// "object Label1: TQzLabel" gives object, Label1, :, TQzLabel;
// "Font.Name = 'Arial'" gives Font, Name, =, 'Arial'.
void GetListTokens(TQzTokens& tokens, std::string_view line);

// Token index, or an empty view when index is out of range.
std::string_view GetToken(const TQzTokens& tokens, int index);

// The index of the first token that is "=" or ":", or -1.
int ScannerTokensEqual(const TQzTokens& tokens);

// The value written after the first '=' of line (outside quotes), trimmed;
// empty when the line has no '='.
std::string_view QzValueText(std::string_view line);

// A value as it is compared: a string literal ('DEMO', 'It''s', #39,
// 'a'#39'b', 'a' + 'b') decoded to its content (#NNNN above 127 becomes
// that character in UTF-8), anything else (Blue, 25) as it stands.
AnsiString QzDecodeValue(std::string_view value);

// Whether the value written value equals searched, without regard to
// (ASCII) case, by the rule above. Does not allocate for a bare value.
bool QzSameValue(std::string_view value, std::string_view searched);
