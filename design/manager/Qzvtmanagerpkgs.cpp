#include "design/manager/Qzvtmanagerpkgs.h"

#include "vcl/QzQtString.h"

TFrManagerPkgs::TFrManagerPkgs(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    QzSetModalResult(BtOk, mrOk);
    QzSetModalResult(BtCancel, mrCancel);
}

TModalResult TFrManagerPkgs::Execute(const std::vector<AnsiString>& packages)
{
    LBPkgs->clear();
    for (const AnsiString& name : packages) {
        auto* item = new QListWidgetItem(QzQString(name), LBPkgs);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Checked);
    }
    return ShowModal();
}

std::vector<AnsiString> TFrManagerPkgs::Selected() const
{
    std::vector<AnsiString> names;
    for (int i = 0; i < LBPkgs->count(); ++i)
        if (LBPkgs->item(i)->checkState() == Qt::Checked)
            names.push_back(QzAnsiString(LBPkgs->item(i)->text()));
    return names;
}
