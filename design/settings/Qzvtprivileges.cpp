#include "design/settings/Qzvtprivileges.h"

#include "design/manager/QzManagerKinds.h"
#include "design/manager/Qzvtpkgloadsave.h"
#include "design/reg/QzEditorDialogs.h"
#include "runtime/model/QzApplication.h"
#include "runtime/util/QzDesigner.h"
#include "vcl/QzDialogs.h"
#include "vcl/QzIdEdit.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"
#include "vcl/QzWindowBounds.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>

namespace {

TQzResizeInfoDesigner Bounds;

constexpr int IdRole = Qt::UserRole;

QStringList RowTexts(const TQzPkgPrivilegesItem& item)
{
    return {QString::number(item.Id()), QzQString(QzAccessText(item.Access())),
            item.Visible() ? QStringLiteral("Yes") : QStringLiteral("No"), QzQString(QzPrivilegeCaption(item))};
}

int IndexOf(const TQzPkgPrivileges& package, const TQzPkgPrivilegesItem* item)
{
    for (int i = 0; i < package.Count(); ++i)
        if (package.GetItems(i) == item)
            return i;
    return -1;
}

}  // namespace

TFrPrivileges::TFrPrivileges(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    RememberBounds(&Bounds);
    QzMakeIdEdit(EdId);
    Privileges->header()->setStretchLastSection(true);

    connect(EdSearch, &QLineEdit::textChanged, this, [this] {
        const TQzPkgPrivilegesItem* item = Selected();
        FillList();
        Select(item);
    });
    connect(Privileges, &QTreeWidget::currentItemChanged, this, &TFrPrivileges::ShowItem);
    connect(EdId, &QLineEdit::editingFinished, this, &TFrPrivileges::EdIdEditingFinished);
    connect(EdDescription, &QLineEdit::textEdited, this, [this](const QString& text) {
        ChangeSelected([&](TQzPkgPrivilegesItem& item) { item.SetDescription(QzAnsiString(text)); });
    });
    connect(CBAccess, &QComboBox::activated, this, [this](int index) {
        ChangeSelected([&](TQzPkgPrivilegesItem& item) { item.SetAccess(static_cast<TQzAccess>(index)); });
    });
    connect(CBVisible, &QCheckBox::clicked, this, [this](bool on) {
        ChangeSelected([&](TQzPkgPrivilegesItem& item) { item.SetVisible(on); });
    });
    connect(CBReadStateDisableControl, &QCheckBox::clicked, this, [this](bool on) {
        QzRunReportingErrors(this, [&] { FPackage->SetReadStateDisableControl(on); });
        CBReadStateDisableControl->setChecked(FPackage->ReadStateDisableControl());
    });
    connect(BtDescriptionId, &QToolButton::clicked, this, &TFrPrivileges::BtDescriptionIdClick);
    connect(BtAdd, &QPushButton::clicked, this, &TFrPrivileges::BtAddClick);
    connect(BtDelete, &QPushButton::clicked, this, &TFrPrivileges::BtDeleteClick);
    connect(BtWhereUsed, &QPushButton::clicked, this, &TFrPrivileges::BtWhereUsedClick);
    connect(BtLoad, &QPushButton::clicked, this, &TFrPrivileges::BtLoadClick);
    connect(BtSave, &QPushButton::clicked, this, &TFrPrivileges::BtSaveClick);
    connect(BtOk, &QPushButton::clicked, this, &TFrPrivileges::accept);
    connect(BtCancel, &QPushButton::clicked, this, &TFrPrivileges::reject);
}

TFrPrivileges::~TFrPrivileges() = default;

int TFrPrivileges::Execute(TQzPkgPrivileges* package)
{
    if (!package)
        return 0;
    FPackage = package;
    FSnapshot = std::make_unique<TQzPrivilegesSnapshot>(*package);
    EdKey->setText(QzQString(package->Key()));
    CBReadStateDisableControl->setChecked(package->ReadStateDisableControl());
    FillList();
    Privileges->setCurrentItem(Privileges->topLevelItem(0));
    ShowItem();
    const bool accepted = Execute() == mrOk;
    // The key is the one field kept in the box until Ok: a half-typed key
    // must never reach the package, not even for a moment.
    if (accepted)
        QzRunReportingErrors(this, [&] { package->SetKey(QzAnsiString(EdKey->text())); });
    const bool changed = FSnapshot->Changed();
    if (!accepted) {
        if (changed)
            FSnapshot->Restore();
        return 0;
    }
    if (changed)
        Modified();
    return 1;
}

TQzPkgPrivilegesItem* TFrPrivileges::Selected() const
{
    const QTreeWidgetItem* row = Privileges->currentItem();
    return row && FPackage ? FPackage->FindId(row->data(0, IdRole).toInt()) : nullptr;
}

bool TFrPrivileges::Select(const TQzPkgPrivilegesItem* item)
{
    for (int i = 0; item && i < Privileges->topLevelItemCount(); ++i) {
        QTreeWidgetItem* row = Privileges->topLevelItem(i);
        if (row->data(0, IdRole).toInt() == item->Id()) {
            Privileges->setCurrentItem(row);
            Privileges->scrollToItem(row);
            return true;
        }
    }
    Privileges->setCurrentItem(Privileges->topLevelItem(0));
    return false;
}

void TFrPrivileges::FillList()
{
    const QSignalBlocker blocker(Privileges);
    Privileges->clear();
    for (const TQzPkgPrivilegesItem* item : QzPrivilegesMatching(*FPackage, QzAnsiString(EdSearch->text()))) {
        auto* row = new QTreeWidgetItem(Privileges, RowTexts(*item));
        row->setData(0, IdRole, item->Id());
    }
    for (int column = 0; column < 3; ++column)
        Privileges->resizeColumnToContents(column);
    UpdateInfo();
}

void TFrPrivileges::ShowItem()
{
    FShowing = true;
    const TQzPkgPrivilegesItem* item = Selected();
    GBItem->setEnabled(item != nullptr);
    BtDelete->setEnabled(item != nullptr);
    BtWhereUsed->setEnabled(item != nullptr);
    QzSetIdEditValue(EdId, item ? item->Id() : -1);
    EdDescription->setText(item ? QzQString(item->Description()) : QString());
    LabDescriptionId->setText(item && item->DescriptionId()->Defined() ? QzQString(item->DescriptionId()->Info())
                                                                       : QStringLiteral("(None)"));
    CBAccess->setCurrentIndex(item ? int(item->Access()) : int(qaRW));
    CBVisible->setChecked(item ? item->Visible() : true);
    FShowing = false;
}

void TFrPrivileges::UpdateInfo()
{
    const int count = FPackage->Count();
    QString info = QString::number(count) + (count == 1 ? " privilege" : " privileges");
    if (Privileges->topLevelItemCount() != count)
        info += ", " + QString::number(Privileges->topLevelItemCount()) + " shown";
    info += FPackage->InitMode() == imFile ? QStringLiteral(" - FILE ") + QzQString(FPackage->FileName())
                                           : QStringLiteral(" - DFM");
    LabInfo->setText(info);
}

void TFrPrivileges::ChangeSelected(const std::function<void(TQzPkgPrivilegesItem&)>& change)
{
    TQzPkgPrivilegesItem* item = Selected();
    if (FShowing || !item)
        return;
    QzRunReportingErrors(this, [&] { change(*item); });
    if (QTreeWidgetItem* row = Privileges->currentItem()) {
        const QStringList texts = RowTexts(*item);
        for (int column = 0; column < texts.size(); ++column)
            row->setText(column, texts[column]);
    }
}

bool TFrPrivileges::FormKeyPress(QKeyEvent* event)
{
    // Enter in the Id box gives the privilege its Id rather than closing
    // the editor, so that a refused Id can be typed again.
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && EdId->hasFocus()) {
        EdIdEditingFinished();
        return true;
    }
    return TQzDialog::FormKeyPress(event);
}

void TFrPrivileges::EdIdEditingFinished()
{
    TQzPkgPrivilegesItem* item = Selected();
    if (FShowing || !item || QzIdEditValue(EdId) == item->Id())
        return;
    // The message box takes the focus, which finishes the edit again.
    FShowing = true;
    const bool done = QzRunReportingErrors(this, [&] {
        QzRenumberPrivilege(*FPackage, *item, QzAnsiString(EdId->text()));
    });
    FShowing = false;
    FillList();
    Select(item);
    if (!done)
        EdId->setFocus();
}

void TFrPrivileges::BtAddClick()
{
    TQzPkgPrivilegesItem* item = nullptr;
    if (!QzRunReportingErrors(this, [&] { item = QzAddPrivilege(*FPackage); }))
        return;
    EdSearch->clear();
    FillList();
    Select(item);
    EdDescription->setFocus();
    EdDescription->selectAll();
}

void TFrPrivileges::BtDeleteClick()
{
    const TQzPkgPrivilegesItem* item = Selected();
    if (!item)
        return;
    const AnsiString question = "Delete the privilege " + IntToStr(item->Id()) + " \"" + QzPrivilegeCaption(*item) +
                                "\"? Components that ask for it will find no privilege of that Id.";
    if (QzMessage(question, mtConfirmation, mbYesNo, mbNo, this) != mrYes)
        return;
    const int row = Privileges->indexOfTopLevelItem(Privileges->currentItem());
    QzRunReportingErrors(this, [&] { FPackage->Delete(IndexOf(*FPackage, item)); });
    FillList();
    Privileges->setCurrentItem(Privileges->topLevelItem(std::min(row, Privileges->topLevelItemCount() - 1)));
    ShowItem();
}

void TFrPrivileges::BtWhereUsedClick()
{
    const TQzPkgPrivilegesItem* item = Selected();
    if (!item)
        return;
    TQzEditorDialogRequest request;
    request.Kind = int(TQzDlgManager::Privileges);
    request.Value = IntToStr(item->Id());
    request.Package = FPackage;
    QzRunEditorDialog(TQzEditorDialog::Manager, request);
}

void TFrPrivileges::BtLoadClick()
{
    const TQzPkgPrivilegesItem* before = Selected();
    const Integer id = before ? before->Id() : -1;
    if (!QzExecutePkgLoadSave(FPackage, TQzLoadSave::Load, this))
        return;
    EdKey->setText(QzQString(FPackage->Key()));
    CBReadStateDisableControl->setChecked(FPackage->ReadStateDisableControl());
    FillList();
    Select(FPackage->FindId(id));
    ShowItem();
}

void TFrPrivileges::BtSaveClick()
{
    // The save dialog offers the package's key and stores the one it saved
    // with, so it starts from what the box holds and the box shows what was
    // saved; Cancel still gives the old key back with the rest.
    QzRunReportingErrors(this, [&] { FPackage->SetKey(QzAnsiString(EdKey->text())); });
    QzExecutePkgLoadSave(FPackage, TQzLoadSave::Save, this);
    EdKey->setText(QzQString(FPackage->Key()));
    UpdateInfo();
}

void TFrPrivileges::BtDescriptionIdClick()
{
    TQzPkgPrivilegesItem* item = Selected();
    if (!item)
        return;
    TQzEditorDialogRequest request;
    request.Target = item->DescriptionId();
    if (QzRunEditorDialog(TQzEditorDialog::MemoryLabel, request) == 1)
        ChangeSelected([](TQzPkgPrivilegesItem&) {});
    ShowItem();
}

void TFrPrivileges::Modified()
{
    if (FPackage->InitMode() == imFile) {
        QzRunReportingErrors(this, [&] { FPackage->SaveFile(); });
        return;
    }
    TComponent* owner = FPackage->Owner();
    if (dynamic_cast<TQzCApplication*>(owner))
        owner = owner->Owner();
    QzDesignerModified(owner);
}

void RegisterQzvtprivileges()
{
    QzSetEditorDialog(TQzEditorDialog::Privileges, [](TQzEditorDialogRequest& request) {
        TFrPrivileges form(QApplication::activeWindow());
        return form.Execute(dynamic_cast<TQzPkgPrivileges*>(request.Package));
    });
}
