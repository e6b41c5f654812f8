#pragma once
// Numbers as the suite writes them in variable values and mask examples:
// one fixed notation whatever the locale, so that a package written on one
// machine reads the same on another.
//
// The notation: an optional '-', decimal digits, and a '.' followed by the
// fraction digits when there is a fraction. No thousands separator, no
// exponent, no '+'. A number is written with the fewest digits that read
// back to exactly the same double ("0.1", not "0.1000000000000000055"), then
// spelled out without exponent ("100000000000000000000", "0.0000001").

#include "rtl/System.h"

// Raises EConvertError for NaN and infinities, which have no such form.
// Negative zero is written "0".
AnsiString QzCNumericToStr(double value);

// Reads the notation above; blanks around the number are allowed. Anything
// else (a ',' decimal separator, an exponent, a value beyond the range of a
// double) raises EConvertError "'<text>' is not a valid number".
double QzCStrToNumeric(const AnsiString& text);

// Rounds to decimals places (negative: to tens, hundreds, ...), halves away
// from zero, on the decimal digits the value is written with: 2.675 gives
// 2.68 although the double nearest to 2.675 lies just below it.
double QzRoundDec(double value, int decimals);
