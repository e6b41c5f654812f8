#pragma once
// TFrQzCalculator: the runtime's standard calculator window, a thin face on
// TQzCalculatorEngine. It starts from the caller's number and gives back
// the displayed one.
//
// Keyboard: digits, '.' and ',' (the decimal point), + - * / = %,
// Backspace, Delete (CE). Enter completes a waiting operation; with none
// waiting it is OK, so "12*3 Enter Enter" shows 36 and then accepts it.
// Escape is Cancel. OK completes a waiting operation as well; it is
// disabled while the display shows "Error".

#include "runtime/dialogs/QzCalculatorEngine.h"
#include "vcl/QzDialog.h"

#include "ui_TFrQzCalculator.h"

class TFrQzCalculator : public TQzDialog, public Ui::TFrQzCalculator {
    Q_OBJECT

public:
    explicit TFrQzCalculator(QWidget* parent = nullptr);

    using TQzDialog::Execute;
    // Runs the window starting from `value`. On OK writes the displayed
    // number, rounded as TQzCalculatorEngine::Result(decimals) does, into
    // `value` and returns true; otherwise leaves `value` alone. A value that
    // is not a finite number is refused with a message, without opening.
    bool Execute(int decimals, Extended& value);

    // OK completes a waiting operation first, and stays open on an error.
    void accept() override;

protected:
    bool FormKeyPress(QKeyEvent* event) override;

private:
    void Press(TQzCalcKey key);
    void FitDisplay();
    void ConnectKeys();
    void ShowEngine();

    TQzCalculatorEngine FEngine;
};
