#include "runtime/dialogs/QzCalculatorEngine.h"

#include <algorithm>
#include <cmath>

namespace {

const char* OperatorSign(int op)
{
    static const char* const signs[] = {"", "+", "\u2212", "\u00d7", "\u00f7"};
    return signs[op];
}

int TypedDigits(const AnsiString& text)
{
    const int digits = int(std::count_if(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; }));
    // The zero in front of the point of "0.5" is not a digit the user typed.
    const size_t start = text.starts_with('-') ? 1 : 0;
    return text.compare(start, 2, "0.") == 0 ? digits - 1 : digits;
}

} // namespace

TQzCalcKey QzCalcDigitKey(int digit)
{
    return static_cast<TQzCalcKey>(static_cast<int>(TQzCalcKey::Digit0) + std::clamp(digit, 0, 9));
}

std::optional<TQzCalcKey> QzCalcKeyOfChar(char c)
{
    if (c >= '0' && c <= '9')
        return QzCalcDigitKey(c - '0');
    switch (c) {
    case '.':
    case ',':
        return TQzCalcKey::Point;
    case '+':
        return TQzCalcKey::Add;
    case '-':
        return TQzCalcKey::Subtract;
    case '*':
        return TQzCalcKey::Multiply;
    case '/':
        return TQzCalcKey::Divide;
    case '=':
        return TQzCalcKey::Equals;
    case '%':
        return TQzCalcKey::Percent;
    default:
        return std::nullopt;
    }
}

bool TQzCalculatorEngine::SetValue(Extended value)
{
    if (!std::isfinite(value))
        return false;
    Clear();
    ShowResult(value);
    return true;
}

void TQzCalculatorEngine::Press(TQzCalcKey key)
{
    if (FError && key != TQzCalcKey::Clear && key != TQzCalcKey::ClearEntry)
        return;
    if (key >= TQzCalcKey::Digit0 && key <= TQzCalcKey::Digit9) {
        Digit(char('0' + (static_cast<int>(key) - static_cast<int>(TQzCalcKey::Digit0))));
        return;
    }
    switch (key) {
    case TQzCalcKey::Point:
        Point();
        break;
    case TQzCalcKey::Add:
        Operator(TOp::Add);
        break;
    case TQzCalcKey::Subtract:
        Operator(TOp::Subtract);
        break;
    case TQzCalcKey::Multiply:
        Operator(TOp::Multiply);
        break;
    case TQzCalcKey::Divide:
        Operator(TOp::Divide);
        break;
    case TQzCalcKey::Equals:
        Equals();
        break;
    case TQzCalcKey::Percent:
        Percent();
        break;
    case TQzCalcKey::Sqrt:
        if (FValue < 0)
            Fail();
        else
            ShowResult(std::sqrt(FValue));
        FHaveOperand = true;
        break;
    case TQzCalcKey::Reciprocal:
        if (FValue == 0)
            Fail();
        else
            ShowResult(1 / FValue);
        FHaveOperand = true;
        break;
    case TQzCalcKey::Negate:
        Negate();
        break;
    case TQzCalcKey::Backspace:
        Backspace();
        break;
    case TQzCalcKey::ClearEntry:
        ClearEntry();
        break;
    case TQzCalcKey::Clear:
        Clear();
        break;
    case TQzCalcKey::MemoryClear:
        FMemory = 0;
        break;
    case TQzCalcKey::MemoryRecall:
        ShowResult(FMemory);
        FHaveOperand = true;
        break;
    case TQzCalcKey::MemoryStore:
        FMemory = FValue;
        FTyping = false;
        break;
    case TQzCalcKey::MemoryAdd:
        // An overflowing sum leaves the memory as it was.
        if (std::isfinite(FMemory + FValue))
            FMemory += FValue;
        else
            Fail();
        FTyping = false;
        break;
    default:
        break;
    }
}

AnsiString TQzCalculatorEngine::PendingText() const
{
    if (FPending == TOp::None)
        return {};
    return QzCalcFormat(FLeft) + ' ' + OperatorSign(static_cast<int>(FPending));
}

Extended TQzCalculatorEngine::Result(int decimals) const
{
    if (FError)
        return 0;
    Extended value = FValue;
    if (decimals < 0 || decimals > QzCalcMaxDigits)
        QzCalcParse(FText, value);
    else
        QzCalcRound(FText, decimals, value);
    return value;
}

void TQzCalculatorEngine::StartEntry()
{
    if (!FTyping) {
        FText = "0";
        FTyping = true;
    }
}

void TQzCalculatorEngine::EntryChanged()
{
    QzCalcParse(FText, FValue);
    FHaveOperand = true;
}

void TQzCalculatorEngine::Digit(char digit)
{
    StartEntry();
    if (FText == "0" || FText == "-0")
        FText.back() = digit;
    else if (TypedDigits(FText) < QzCalcMaxDigits)
        FText += digit;
    EntryChanged();
}

void TQzCalculatorEngine::Point()
{
    StartEntry();
    if (FText.find('.') == AnsiString::npos)
        FText += '.';
    EntryChanged();
}

void TQzCalculatorEngine::Operator(TOp op)
{
    if (FPending != TOp::None && FHaveOperand) {
        Apply(FPending, FLeft, FValue);
        if (FError)
            return;
    }
    FLeft = FValue;
    FPending = op;
    FTyping = false;
    FHaveOperand = false;
}

void TQzCalculatorEngine::Equals()
{
    if (FPending != TOp::None) {
        FLastOp = FPending;
        FLastOperand = FHaveOperand ? FValue : FLeft;
        FPending = TOp::None;
        Apply(FLastOp, FLeft, FLastOperand);
    } else if (FLastOp != TOp::None) {
        Apply(FLastOp, FValue, FLastOperand);
    } else {
        ShowResult(FValue);
    }
    FHaveOperand = false;
}

void TQzCalculatorEngine::Percent()
{
    const bool ofLeft = FPending == TOp::Add || FPending == TOp::Subtract;
    ShowResult(ofLeft ? FLeft * FValue / 100 : FValue / 100);
    FHaveOperand = true;
}

void TQzCalculatorEngine::Negate()
{
    if (!FTyping) {
        ShowResult(-FValue);
    } else if (FText.starts_with('-')) {
        FText.erase(0, 1);
    } else if (FText != "0") {
        FText.insert(0, 1, '-');
    }
    if (FTyping)
        QzCalcParse(FText, FValue);
    FHaveOperand = true;
}

void TQzCalculatorEngine::Backspace()
{
    if (!FTyping)
        return;
    FText.pop_back();
    if (FText.empty() || FText == "-" || FText == "-0")
        FText = "0";
    EntryChanged();
}

void TQzCalculatorEngine::ClearEntry()
{
    if (FError) {
        Clear();
        return;
    }
    FText = "0";
    FValue = 0;
    FTyping = false;
    FHaveOperand = true;
}

void TQzCalculatorEngine::Clear()
{
    const Extended memory = FMemory;
    *this = TQzCalculatorEngine();
    FMemory = memory;
}

void TQzCalculatorEngine::ShowResult(Extended value)
{
    if (!std::isfinite(value)) {
        Fail();
        return;
    }
    FValue = value;
    FText = QzCalcFormat(FValue);
    FTyping = false;
}

void TQzCalculatorEngine::Apply(TOp op, Extended left, Extended right)
{
    switch (op) {
    case TOp::Add:
        ShowResult(left + right);
        break;
    case TOp::Subtract:
        ShowResult(left - right);
        break;
    case TOp::Multiply:
        ShowResult(left * right);
        break;
    case TOp::Divide:
        if (right == 0)
            Fail();
        else
            ShowResult(left / right);
        break;
    case TOp::None:
        break;
    }
}

void TQzCalculatorEngine::Fail()
{
    Clear();
    FError = true;
    FText = "Error";
}
