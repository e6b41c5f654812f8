#include "runtime/dialogs/QzCalculator.h"

#include "vcl/QzDialogs.h"
#include "vcl/QzQtString.h"

#include <QKeyEvent>

#include <algorithm>

TFrQzCalculator::TFrQzCalculator(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    FitDisplay();
    ConnectKeys();
    connect(BtOk, &QPushButton::clicked, this, &TFrQzCalculator::accept);
    connect(BtCancel, &QPushButton::clicked, this, &TFrQzCalculator::reject);
    ShowEngine();
}

void TFrQzCalculator::FitDisplay()
{
    // Wide enough for the longest numbers the display can show, so that the
    // window keeps its size whatever it shows.
    const QFontMetrics metrics = LbDisplay->fontMetrics();
    const int widest = std::max(metrics.horizontalAdvance(QStringLiteral("-0.00000888888888888888888")),
                                metrics.horizontalAdvance(QStringLiteral("-8.88888888888888888e-4888")));
    const QMargins margins = LbDisplay->contentsMargins();
    LbDisplay->setMinimumWidth(widest + margins.left() + margins.right() + 2 * LbDisplay->margin());
}

void TFrQzCalculator::ConnectKeys()
{
    const std::pair<QPushButton*, TQzCalcKey> keys[] = {
        {BtDigit0, TQzCalcKey::Digit0}, {BtDigit1, TQzCalcKey::Digit1}, {BtDigit2, TQzCalcKey::Digit2},
        {BtDigit3, TQzCalcKey::Digit3}, {BtDigit4, TQzCalcKey::Digit4}, {BtDigit5, TQzCalcKey::Digit5},
        {BtDigit6, TQzCalcKey::Digit6}, {BtDigit7, TQzCalcKey::Digit7}, {BtDigit8, TQzCalcKey::Digit8},
        {BtDigit9, TQzCalcKey::Digit9}, {BtPoint, TQzCalcKey::Point}, {BtAdd, TQzCalcKey::Add},
        {BtSubtract, TQzCalcKey::Subtract}, {BtMultiply, TQzCalcKey::Multiply}, {BtDivide, TQzCalcKey::Divide},
        {BtEquals, TQzCalcKey::Equals}, {BtPercent, TQzCalcKey::Percent}, {BtSqrt, TQzCalcKey::Sqrt},
        {BtReciprocal, TQzCalcKey::Reciprocal}, {BtNegate, TQzCalcKey::Negate},
        {BtBackspace, TQzCalcKey::Backspace}, {BtClearEntry, TQzCalcKey::ClearEntry}, {BtClear, TQzCalcKey::Clear},
        {BtMemoryClear, TQzCalcKey::MemoryClear}, {BtMemoryRecall, TQzCalcKey::MemoryRecall},
        {BtMemoryStore, TQzCalcKey::MemoryStore}, {BtMemoryAdd, TQzCalcKey::MemoryAdd},
    };
    for (const auto& [button, key] : keys)
        connect(button, &QPushButton::clicked, this, [this, key = key] { Press(key); });
}

bool TFrQzCalculator::Execute(int decimals, Extended& value)
{
    if (!FEngine.SetValue(value)) {
        QzMessage("The calculator cannot start from this value: it is not a finite number.", mtError, {mbOK}, mbOK,
                  parentWidget());
        return false;
    }
    ShowEngine();
    if (Execute() != mrOk)
        return false;
    value = FEngine.Result(decimals);
    return true;
}

void TFrQzCalculator::Press(TQzCalcKey key)
{
    FEngine.Press(key);
    ShowEngine();
}

void TFrQzCalculator::accept()
{
    // Whoever presses OK on "12 × 3" means 36, not the 3 on the display.
    if (FEngine.HasPendingOperation())
        Press(TQzCalcKey::Equals);
    if (!FEngine.IsError())
        TQzDialog::accept();
}

bool TFrQzCalculator::FormKeyPress(QKeyEvent* event)
{
    if (TQzDialog::FormKeyPress(event))
        return true;
    // Shortcuts with Ctrl or Alt belong to someone else; Shift is how some
    // layouts reach + * % =.
    if (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier))
        return false;
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (FEngine.HasPendingOperation())
            Press(TQzCalcKey::Equals);
        else
            accept();
        return true;
    case Qt::Key_Backspace:
        Press(TQzCalcKey::Backspace);
        return true;
    case Qt::Key_Delete:
        Press(TQzCalcKey::ClearEntry);
        return true;
    default:
        break;
    }
    // Qt's codes of the printable keys are their ASCII characters, whatever
    // the keyboard layout put under them.
    const int code = event->key();
    if (code < 0x20 || code > 0x7e)
        return false;
    const std::optional<TQzCalcKey> key = QzCalcKeyOfChar(char(code));
    if (!key)
        return false;
    Press(*key);
    return true;
}

void TFrQzCalculator::ShowEngine()
{
    LbDisplay->setText(QzQString(FEngine.Display()));
    LbExpression->setText(QzQString(FEngine.PendingText()));
    LbMemory->setText(FEngine.HasMemory() ? QStringLiteral("M") : QString());
    BtOk->setEnabled(!FEngine.IsError());
}
