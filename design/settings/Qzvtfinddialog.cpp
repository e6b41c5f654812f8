#include "design/settings/Qzvtfinddialog.h"

#include "vcl/QzQtString.h"

TFrFindDialog::TFrFindDialog(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    setWindowFlag(Qt::WindowStaysOnTopHint);
    connect(BtFindNext, &QPushButton::clicked, this, &TFrFindDialog::BtFindNextClick);
    connect(BtCancel, &QPushButton::clicked, this, &TFrFindDialog::reject);
    connect(EdFind, &QLineEdit::textChanged, this, [this] { BtFindNext->setEnabled(!EdFind->text().isEmpty()); });
    BtFindNext->setEnabled(false);
}

TQzVarsFindOptions TFrFindDialog::Options() const
{
    TQzVarsFindOptions options;
    options.Text = QzAnsiString(EdFind->text());
    options.Down = RBDown->isChecked();
    options.MatchCase = CBMatchCase->isChecked();
    options.WholeWord = CBWholeWord->isChecked();
    return options;
}

void TFrFindDialog::BtFindNextClick()
{
    if (OnFind)
        OnFind(Options());
}
