#pragma once
// The syntax of an edit's mask string, without a window: the options as the
// mask editor's controls hold them, the options string built from them and
// read back into them, the rules for typing options by hand, and the mask
// string's three parts ("options;mask text;space").
//
// The mask editor (TFrMask) is a thin window over these functions, so that
// every rule here is tested without one.

#include "runtime/model/QzTypes.h"

#include "rtl/System.h"

#include <array>

// Which options page a data type uses.
enum class TQzMaskGroup { Integer, Decimal, String, DateTime, None };

TQzMaskGroup QzMaskGroupOf(TQzDataType type);
// The options an empty mask string stands for: ">" for integers, ">.-&"
// for decimal numbers, "<sadw" for strings, "<dmy" for dates; none for
// type 5.
AnsiString QzMaskDefaultOptions(TQzDataType type);
// Whether options are the type's default: as long as the default and made of
// its characters only, in any order. Type 5 is never default.
bool QzMaskIsDefault(TQzDataType type, const AnsiString& options);

// The state of every option control. Radio groups hold their index (0 is
// "none" where the group has one).
struct TQzMaskOptions {
    char Align = '<';                 // '<', '%' or '>'

    // numbers
    int Negatives = 0;                // 1 "-", 2 "+"
    bool SignRight = false;           // *
    bool NoZero = false;              // z
    bool Thousands = false;           // .
    bool TrimDec = false;             // &
    bool CheckRange = false;          // k
    bool FillAllDigits = false;       // $
    bool FillZeros = false;           // 0
    bool ShowCurrency = false;        // @
    int Scientific = 0;               // 1 to 4

    // date and time
    bool Day = false;                 // d
    int DayName = 0;                  // 1 "D", 2 "1"
    int Month = 0;                    // 1 "m", 2 "M", 3 "2"
    int Year = 0;                     // 1 "y"
    bool Hour = false;                // h
    bool Minutes = false;             // n
    bool Seconds = false;             // s
    bool AmPm = false;                // a
    bool Hour12 = false;              // o
    bool AutoAdjust12H = false;       // k
    int Duration = 0;                 // 1 to 6: z x c v b p

    // strings
    bool AcceptsSymbols = false;      // s
    bool AcceptsLetters = false;      // a
    bool AcceptsDigits = false;       // d
    bool AcceptsSpaces = false;       // w
    bool NoAutoTrim = false;          // t
    bool FillAllCharacters = false;   // $
    bool SaveMask = false;            // m
    int Case = 0;                     // 1 "u", 2 "l", 3 "f"
    bool Password = false;            // *
    bool DataAlignRight = false;      // r

    bool operator==(const TQzMaskOptions&) const = default;
};

// The duration letters, duration 1 first.
inline constexpr char QzMaskDurationChars[] = "zxcvbp";

// Builds the options string of the type's group from the controls, in the
// fixed order: the alignment, then the group's characters.
AnsiString MakeStringOptions(TQzDataType type, const TQzMaskOptions& options);

// Reads options into the controls of the type's group: resets that group
// (save-mask of strings is left as it is), and unless the text is the
// type's default (or empty), applies each character in turn. Characters
// without a meaning for the type are ignored; the other groups' controls
// are left alone.
void ScanOptions(TQzDataType type, const AnsiString& text, TQzMaskOptions& options);

// Whether ch may be typed into the options text `current` of that type.
// Backspace (8) always may.
bool QzMaskOptionKeyAllowed(TQzDataType type, const AnsiString& current, char ch);

// The date page's enabling rules, which follow "12 H" and the duration.
struct TQzMaskDateEnabling {
    bool AmPm = true;
    bool AutoAdjust12H = false;
    bool Hour12 = true;
    bool DayMonthYear = true;          // numeric day, day name, month, year
};
TQzMaskDateEnabling QzMaskDateEnabling(const TQzMaskOptions& options);
// After a click on an option box: "12 H" on checks AM/PM; off, unchecks
// auto-adjust.
void QzApply12HourRule(TQzMaskOptions& options);

// Choosing a duration clears numeric day, day name, month and year after
// keeping them in `saved`; going back to none restores them. Only a change
// between none and a duration acts.
struct TQzMaskDateSaved {
    bool Day = false;
    int DayName = 0;
    int Month = 0;
    int Year = 0;
};
void QzMaskSetDuration(TQzMaskOptions& options, int duration, TQzMaskDateSaved& saved);

// The mask string's parts. With exactly one part the space is "_".
struct TQzMaskParts {
    AnsiString Options;
    AnsiString MaskText;
    AnsiString Space;
};
TQzMaskParts QzSplitMaskText(const AnsiString& text);

// The mask string stored on OK for options already rebuilt: empty when they
// are the type's default, else the options; for string types with a mask
// text (not blank) the options, the mask text and, when the space is not
// blank, the space.
AnsiString QzJoinMaskText(TQzDataType type, const AnsiString& options, const AnsiString& maskText,
                          const AnsiString& space);

// The ready-made masks of the examples list.
struct TQzMaskExample {
    const char* Name;
    TQzDataType Type;
    const char* Size;
    int Decimals;
    const char* Mask;
};
inline constexpr int QzMaskExampleCount = 9;
const std::array<TQzMaskExample, QzMaskExampleCount>& QzMaskExamples();
