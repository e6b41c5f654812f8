#pragma once
// A number as its decimal digits. Writing numbers without exponent and
// rounding them "as written" (2.675 to 2.68) both work on the digits, not on
// the binary value, whose nearest double may lie just below the half.

#include <string>

// value = (Negative ? -1 : 1) * 0.Digits * 10^PointPos, Digits without
// leading or trailing zeros ("" for zero, which is never negative).
struct TQzDecimal {
    bool Negative = false;
    std::string Digits;
    int PointPos = 0;
};

// The fewest digits that read back to exactly the same double. value must
// be finite.
TQzDecimal QzDecimalOf(double value);
// value rounded to `significant` digits (at least 1). value must be finite.
TQzDecimal QzDecimalOf(long double value, int significant);

// Drops leading and trailing zeros, keeping the value; zero loses its sign.
void QzDecimalTrim(TQzDecimal& d);

// Rounds to `decimals` places after the point (negative: to tens,
// hundreds, ...), halves away from zero.
void QzDecimalRound(TQzDecimal& d, int decimals);

// The digits without sign or exponent: "1234.5", "0.000001", "100", "0".
std::string QzDecimalPlain(const TQzDecimal& d);
