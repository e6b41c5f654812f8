#include "design/manager/Qzvtmanagerrepl.h"

#include "design/manager/QzManagerLogic.h"

#include "vcl/QzDialogs.h"
#include "vcl/QzIdEdit.h"
#include "vcl/QzQtString.h"

TFrManagerRepl::TFrManagerRepl(TQzDlgManager kind, const std::vector<AnsiString>& packages, QWidget* parent)
    : TQzDialog(parent), FKind(kind)
{
    setupUi(this);
    for (const AnsiString& name : packages)
        EdPkg->addItem(QzQString(name));
    EdPkg->setEnabled(QzDlgManagerUsesPackage(kind));
    // A set is named; every other reference has a numeric Id.
    if (!QzDlgManagerIsSet(kind))
        QzMakeIdEdit(EdId);
    QzSetModalResult(BtCancel, mrCancel);
    connect(BtOk, &QPushButton::clicked, this, [this] { BtOkClick(); });
}

TModalResult TFrManagerRepl::Execute(const AnsiString& pkgName, const AnsiString& value)
{
    EdPkg->setCurrentText(QzDlgManagerUsesPackage(FKind) ? QzQString(pkgName) : QString());
    EdId->setText(QzQString(value));
    EdId->selectAll();
    EdId->setFocus();
    return ShowModal();
}

AnsiString TFrManagerRepl::PkgName() const
{
    return QzDlgManagerUsesPackage(FKind) ? QzAnsiString(EdPkg->currentText().trimmed()) : AnsiString();
}

AnsiString TFrManagerRepl::Value() const { return QzAnsiString(EdId->text().trimmed()); }

void TFrManagerRepl::BtOkClick()
{
    if (const AnsiString problem = QzCheckSearchInput(FKind, PkgName(), Value()); !problem.empty()) {
        QzMessage(problem, mtWarning, {mbOK}, mbOK, this);
        return;
    }
    SetModalResult(mrOk);
}
