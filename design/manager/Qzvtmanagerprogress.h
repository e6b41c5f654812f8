#pragma once
// TFrManagerProgress: what the packages manager shows while a pass runs:
// the phase, how far the pass is, and Cancel. Passes run on the main
// thread, so the window lets the event loop run now and then; that is what
// makes Cancel clickable at all. It is modal while shown, so nothing else
// of the manager can start a second pass inside the first.

#include "design/manager/QzManagerProgress.h"

#include "vcl/QzDialog.h"

#include "ui_Qzvtmanagerprogress.h"

#include <QElapsedTimer>

class TFrManagerProgress : public TQzDialog, public Ui::TFrManagerProgress, public IQzManagerProgress {
    Q_OBJECT
    Q_PROPERTY(int PumpInterval READ PumpInterval WRITE SetPumpInterval)

public:
    explicit TFrManagerProgress(QWidget* parent = nullptr);

    void SetWindowProgress(bool on, const AnsiString& title, int total) override;
    void ProgressLabel(const AnsiString& text) override;
    void IncProgressBar(int count = 1) override;
    bool CheckCancel() override;

    // At most how often (in milliseconds) a pass lets events through:
    // letting them through after every line would cost more than the scan.
    // Whoever drives the windows from outside (tests) may want none at all.
    int PumpInterval() const { return FPumpInterval; }
    void SetPumpInterval(int ms) { FPumpInterval = ms; }

    bool Cancelled() const { return FCancelled; }
    // The pass stops after the line it is on.
    void BtCancelClick();

    // Closing the window by its frame cancels the pass rather than hiding
    // a window the pass still reports to.
    void reject() override;

protected:
    bool FormKeyPress(QKeyEvent* event) override;

private:
    // Shows the count reached and runs the event loop, once the interval
    // has passed since it last did.
    void Pump();

    int FDepth = 0;
    int FDone = 0;
    bool FCancelled = false;
    int FPumpInterval = 50;
    QElapsedTimer FClock;
};
