#include "design/manager/Qzvtmanagerprogress.h"

#include "vcl/QzQtString.h"

#include <QCoreApplication>
#include <QKeyEvent>

#include <algorithm>

TFrManagerProgress::TFrManagerProgress(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    setWindowModality(Qt::ApplicationModal);
    connect(BtCancel, &QPushButton::clicked, this, [this] { BtCancelClick(); });
}

void TFrManagerProgress::SetWindowProgress(bool on, const AnsiString& title, int total)
{
    // A pass may run inside another (a count reads the forms as a scan
    // does); the outer one owns the window.
    if (!on) {
        if (FDepth > 0 && --FDepth == 0)
            hide();
        return;
    }
    if (FDepth++ > 0)
        return;
    setWindowTitle(QzQString(title));
    FCancelled = false;
    FDone = 0;
    BtCancel->setEnabled(true);
    LabPhase->clear();
    // An unknown total shows a busy bar.
    ProBar->setRange(0, total > 0 ? total : 0);
    ProBar->setValue(0);
    show();
    raise();
    FClock.start();
}

void TFrManagerProgress::ProgressLabel(const AnsiString& text)
{
    LabPhase->setText(QzQString(text));
    Pump();
}

void TFrManagerProgress::IncProgressBar(int count)
{
    FDone += count;
    Pump();
}

bool TFrManagerProgress::CheckCancel()
{
    Pump();
    return FCancelled;
}

void TFrManagerProgress::BtCancelClick()
{
    FCancelled = true;
    BtCancel->setEnabled(false);
    LabPhase->setText(tr("Cancelling..."));
}

void TFrManagerProgress::reject()
{
    if (isVisible() && FDepth > 0)
        BtCancelClick();
    else
        TQzDialog::reject();
}

bool TFrManagerProgress::FormKeyPress(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        BtCancelClick();
        return true;
    }
    return TQzDialog::FormKeyPress(event);
}

void TFrManagerProgress::Pump()
{
    if (!isVisible() || FClock.elapsed() < FPumpInterval)
        return;
    if (ProBar->maximum() > 0)
        ProBar->setValue(std::min(FDone, ProBar->maximum()));
    QCoreApplication::processEvents();
    FClock.start();
}
