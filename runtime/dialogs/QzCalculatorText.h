#pragma once
// The calculator's numbers as text. The display is the truth the user sees,
// so the value handed back to a caller is read from these digits, and
// rounding for the caller works on them too.

#include "rtl/System.h"

// Significant digits the display shows and a typed number may hold.
inline constexpr int QzCalcMaxDigits = 18;

// A finite value rounded to 18 significant digits, without trailing zeros:
// plain notation ("-1234.5", "0.000001") from 1e-6 up to below 1e18,
// exponent notation ("1.5e+20", "2.5e-9") beyond. '.' is the decimal point
// whatever the locale; negative zero is "0".
AnsiString QzCalcFormat(Extended value);

// Reads a number as the display shows it or as it is being typed ("12.",
// "-0.5", "1e+20"); false, with value untouched, for anything else.
bool QzCalcParse(const AnsiString& text, Extended& value);

// The number in `text` rounded to `decimals` places, halves away from zero
// on its decimal digits ("2.675" gives 2.68). QzRoundDec does the same on a
// double, whose 15 to 17 digits cannot hold all 18 the display shows.
// False, with value untouched, when text is not a number.
bool QzCalcRound(const AnsiString& text, int decimals, Extended& value);
