#pragma once
// Which code page 8-bit text was written in, guessed from its bytes: forms
// from another machine say nothing of it, and a wrong one garbles every
// character above 127 when the form is converted.

#include <string_view>
#include <vector>

// The code pages a guess chooses among, in the order that wins a tie:
// Western, Central European, Cyrillic, Greek, Simplified Chinese,
// Traditional Chinese, Japanese, Korean.
inline constexpr int GuessedCodePages[] = {1252, 1250, 1251, 1253, 936, 950, 932, 949};

struct TCodePageGuess {
    int CodePage = 1252;
    // The bytes above 127 the guess rests on; 0 when there were none and
    // the Western code page was taken.
    size_t Bytes = 0;
};

// Decodes the samples with each code page and scores what comes out as
// text of that script: letters of the script count, undefined bytes and
// broken double-byte characters count against; Latin accents stand among
// ASCII letters, Cyrillic and Greek letters among their own, with capitals
// only at the start of words; double-byte text is scored by how many of its
// characters are among the most common of the language.
TCodePageGuess GuessCodePage(const std::vector<std::string_view>& samples);
