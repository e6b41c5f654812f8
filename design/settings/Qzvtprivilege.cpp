#include "design/settings/Qzvtprivilege.h"

#include "design/reg/QzEditorDialogs.h"
#include "design/settings/QzPrivilegesLogic.h"
#include "runtime/model/QzMemory.h"
#include "runtime/model/QzPkgPrivileges.h"
#include "vcl/QzQtString.h"
#include "vcl/QzWindowBounds.h"

#include <QApplication>
#include <QHeaderView>

namespace {

TQzResizeInfoDesigner Bounds;

constexpr int IdRole = Qt::UserRole;

QTreeWidgetItem* NewRow(QTreeWidget* list, Integer id, const QString& access, const QString& caption)
{
    auto* row = new QTreeWidgetItem(list, {id < 0 ? QString() : QString::number(id), access, caption});
    row->setData(0, IdRole, id);
    return row;
}

}  // namespace

TFrPrivilege::TFrPrivilege(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    RememberBounds(&Bounds);
    Privileges->header()->setStretchLastSection(true);
    connect(EdSearch, &QLineEdit::textChanged, this, [this] {
        const Integer id = SelectedId();
        FillList();
        SelectId(id);
    });
    connect(Privileges, &QTreeWidget::itemDoubleClicked, this, &TFrPrivilege::accept);
    connect(BtEdit, &QPushButton::clicked, this, &TFrPrivilege::BtEditClick);
    connect(BtOk, &QPushButton::clicked, this, &TFrPrivilege::accept);
    connect(BtCancel, &QPushButton::clicked, this, &TFrPrivilege::reject);
}

int TFrPrivilege::Execute(TQzPrivilege* target, TQzPkgPrivileges* package)
{
    FPackage = package;
    FillList();
    SelectId(target ? target->Id() : TQzPrivilege::IdNone);
    EdSearch->setFocus();
    if (Execute() != mrOk)
        return 0;
    if (target)
        target->SetId(SelectedId());
    return 1;
}

void TFrPrivilege::FillList()
{
    Privileges->clear();
    // "(None)" stays whatever the search: it is always a valid answer.
    NewRow(Privileges, TQzPrivilege::IdNone, QString(), QStringLiteral("(None)"));
    if (FPackage)
        for (const TQzPkgPrivilegesItem* item : QzPrivilegesMatching(*FPackage, QzAnsiString(EdSearch->text())))
            NewRow(Privileges, item->Id(), QzQString(QzAccessText(item->Access())),
                   QzQString(QzPrivilegeCaption(*item)));
    for (int column = 0; column < 2; ++column)
        Privileges->resizeColumnToContents(column);
    BtEdit->setEnabled(FPackage != nullptr);
}

Integer TFrPrivilege::SelectedId() const
{
    const QTreeWidgetItem* row = Privileges->currentItem();
    return row ? row->data(0, IdRole).toInt() : TQzPrivilege::IdNone;
}

bool TFrPrivilege::SelectId(Integer id)
{
    for (int i = 0; i < Privileges->topLevelItemCount(); ++i) {
        QTreeWidgetItem* row = Privileges->topLevelItem(i);
        if (row->data(0, IdRole).toInt() == (id < 0 ? TQzPrivilege::IdNone : id)) {
            Privileges->setCurrentItem(row);
            Privileges->scrollToItem(row);
            return true;
        }
    }
    // A search that hides the privilege leaves the first match selected, so
    // that Enter takes what the user narrowed the list to.
    const bool searching = !EdSearch->text().trimmed().isEmpty();
    Privileges->setCurrentItem(Privileges->topLevelItem(searching && Privileges->topLevelItemCount() > 1 ? 1 : 0));
    return false;
}

void TFrPrivilege::BtEditClick()
{
    const Integer id = SelectedId();
    TQzEditorDialogRequest request;
    request.Package = FPackage;
    QzRunEditorDialog(TQzEditorDialog::Privileges, request);
    FillList();
    SelectId(id);
}

void RegisterQzvtprivilege()
{
    QzSetEditorDialog(TQzEditorDialog::Privilege, [](TQzEditorDialogRequest& request) {
        TFrPrivilege form(QApplication::activeWindow());
        return form.Execute(dynamic_cast<TQzPrivilege*>(request.Target),
                            dynamic_cast<TQzPkgPrivileges*>(request.Package));
    });
}
