#pragma once
// TQzCalculatorEngine: what the calculator window does with its keys,
// without the window. It behaves as a desktop calculator does:
//
// - Operations chain left to right: "2 + 3 ×" shows 5 and waits for the
//   right operand of the ×. An operator pressed again before a number only
//   replaces the one waiting.
// - = completes the waiting operation; with nothing typed after the operator
//   the displayed number is its own operand ("2 + =" gives 4). Pressed again,
//   = repeats the last operation with the same right operand ("2 + 3 = ="
//   gives 8), also on a number typed after it.
// - % turns the display into a percentage: of the left operand under + and
//   − ("200 + 10 %" shows 20), of one under × and ÷ and alone ("10 %" shows
//   0.1).
// - √, 1/x, ± and MR give a new right operand, as typing it would.
// - Backspace removes the last typed character; a result is not edited.
// - CE clears what is being entered and keeps the waiting operation; C
//   clears everything but the memory.
// - Division by zero (also 1/0), the square root of a negative number and a
//   result beyond the range of Extended put the calculator in an error state:
//   the display shows "Error" and every key but C and CE is ignored; both
//   leave it as C does.
// - The memory (MC MR MS M+) keeps its number through C.
//
// Numbers carry full Extended precision between operations; the display
// shows them rounded to 18 significant digits and a typed number holds 18
// digits at most (QzCalculatorText.h).

#include "runtime/dialogs/QzCalculatorText.h"

#include <optional>

enum class TQzCalcKey {
    Digit0, Digit1, Digit2, Digit3, Digit4, Digit5, Digit6, Digit7, Digit8, Digit9,
    Point,
    Add, Subtract, Multiply, Divide, Equals,
    Percent, Sqrt, Reciprocal, Negate,
    Backspace, ClearEntry, Clear,
    MemoryClear, MemoryRecall, MemoryStore, MemoryAdd,
};

// The key of digit 0 to 9.
TQzCalcKey QzCalcDigitKey(int digit);
// The key a typed character stands for: digits, '.' and ',' (both the
// decimal point), + - * / = and %. Nothing for any other character.
std::optional<TQzCalcKey> QzCalcKeyOfChar(char c);

class TQzCalculatorEngine {
public:
    // Starts over (as C) showing value. A value that is not a finite number
    // is refused: false, and nothing changes.
    bool SetValue(Extended value);

    void Press(TQzCalcKey key);

    // What the display shows: a number, or "Error".
    const AnsiString& Display() const { return FText; }
    bool IsError() const { return FError; }
    // The left operand and the operation waiting for its right operand
    // ("12 ×"); empty when none waits.
    AnsiString PendingText() const;
    bool HasPendingOperation() const { return FPending != TOp::None; }
    // Whether the memory holds a number other than zero.
    bool HasMemory() const { return FMemory != 0; }

    // The number on the display (0 in the error state) as handed to a
    // caller: rounded to `decimals` places, halves away from zero on the
    // displayed digits; 0 gives whole numbers. A negative `decimals`, or
    // one beyond the display's 18 digits, gives the number as shown.
    Extended Result(int decimals) const;

private:
    enum class TOp { None, Add, Subtract, Multiply, Divide };

    void Digit(char digit);
    void Point();
    void Operator(TOp op);
    void Equals();
    void Percent();
    void Negate();
    void Backspace();
    void ClearEntry();
    void Clear();
    void StartEntry();
    void EntryChanged();
    void ShowResult(Extended value);
    void Apply(TOp op, Extended left, Extended right);
    void Fail();

    AnsiString FText = "0";
    Extended FValue = 0;        // the displayed number at full precision
    bool FTyping = false;       // FText is a number being typed
    bool FHaveOperand = false;  // the display holds the waiting operation's right operand
    bool FError = false;
    Extended FLeft = 0;
    TOp FPending = TOp::None;
    TOp FLastOp = TOp::None;    // what a repeated = applies
    Extended FLastOperand = 0;
    Extended FMemory = 0;
};
