#include "design/strings/QzMemoryEditor.h"

#include "design/reg/QzEditorDialogs.h"
#include "design/strings/QzMemoryItemAdd.h"
#include "design/strings/QzMemoryListModel.h"
#include "runtime/model/QzRegistry.h"
#include "runtime/util/QzDesigner.h"
#include "runtime/util/QzMessages.h"
#include "vcl/QzIdEdit.h"
#include "vcl/QzListView.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>

TQzMemoryEditor::TQzMemoryEditor(TQzMemoryFamily family, QWidget* parent)
    : TQzDialog(parent), FFamily(family), FInfo(QzMemoryFamilyInfo(family))
{
}

TQzMemoryEditor::~TQzMemoryEditor() = default;

void TQzMemoryEditor::Bind(const TControls& controls)
{
    C = controls;
    setWindowTitle(QString::fromLatin1(FInfo.Caption));
    QzMakeIdEdit(C.EdId);
    C.List->SetSortable(false);
    // The search edit is the list's search; typing in the list itself
    // should not jump elsewhere by a second rule.
    C.List->SetSearchColumn(-1);
    CreateMenu();

    connect(C.EdPkg, &QComboBox::currentTextChanged, this, &TQzMemoryEditor::EdPkgChange);
    connect(C.EdId, &QLineEdit::textChanged, this, &TQzMemoryEditor::EdIdChange);
    connect(C.Search, &QLineEdit::textChanged, this, &TQzMemoryEditor::SearchChange);
    connect(C.OrderLabel, &QRadioButton::toggled, this, &TQzMemoryEditor::OrderChange);
    connect(C.List, &TQzListView::CurrentRowChanged, this, &TQzMemoryEditor::ListRowChanged);
    connect(C.List, &QAbstractItemView::doubleClicked, this, &TQzMemoryEditor::BtModifyClick);
    connect(C.BtAdd, &QPushButton::clicked, this, &TQzMemoryEditor::BtAddClick);
    connect(C.BtModify, &QPushButton::clicked, this, &TQzMemoryEditor::BtModifyClick);
    connect(C.BtDelete, &QPushButton::clicked, this, &TQzMemoryEditor::BtDeleteClick);
    connect(C.BtNull, &QPushButton::clicked, this, &TQzMemoryEditor::BtNullClick);
    connect(C.BtDefault, &QPushButton::clicked, this, &TQzMemoryEditor::BtDefaultClick);
    connect(C.BtManager, &QPushButton::clicked, this, &TQzMemoryEditor::BtManagerClick);
    connect(C.BtOk, &QPushButton::clicked, this, &TQzMemoryEditor::accept);
    connect(C.BtCancel, &QPushButton::clicked, this, &TQzMemoryEditor::reject);
}

void TQzMemoryEditor::CreateMenu()
{
    PPList = new QMenu(this);
    PPList->setObjectName(QStringLiteral("PPList"));
    const QString plural = QString::fromLatin1(FInfo.Caption);
    MnProtectAll = PPList->addAction("Protect All " + plural);
    MnProtectAll->setObjectName(QStringLiteral("MnProtectAll"));
    MnUnprotectAll = PPList->addAction("Unprotect All " + plural);
    MnUnprotectAll->setObjectName(QStringLiteral("MnUnprotectAll"));
    connect(MnProtectAll, &QAction::triggered, this, [this] { ProtectAll(true); });
    connect(MnUnprotectAll, &QAction::triggered, this, [this] { ProtectAll(false); });
    connect(C.List, &QWidget::customContextMenuRequested, this,
            [this](const QPoint& at) { PPList->popup(C.List->viewport()->mapToGlobal(at)); });
}

TModalResult TQzMemoryEditor::Execute()
{
    if (!FRef)
        return mrCancel;
    const TQzMemoryChoice start = QzMemoryStartOf(*FRef);
    FillPackages(start.PkgName);
    QzSetIdEditValue(C.EdId, start.Id);
    // A name the list does not hold asks for a package first.
    const bool listed = C.EdPkg->findText(QzQString(start.PkgName), Qt::MatchFixedString) >= 0;
    (listed ? static_cast<QWidget*>(C.EdId) : C.EdPkg)->setFocus();
    return ShowModal();
}

void TQzMemoryEditor::FillPackages(const AnsiString& selected)
{
    TStringList names;
    QzPkgStringsActives(&names);
    const QSignalBlocker block(C.EdPkg);
    C.EdPkg->clear();
    for (int i = 0; i < names.Count(); ++i)
        C.EdPkg->addItem(QzQString(names[i]));
    const int at = C.EdPkg->findText(QzQString(selected), Qt::MatchFixedString);
    if (at >= 0)
        C.EdPkg->setCurrentIndex(at);
    else
        C.EdPkg->setEditText(QzQString(selected));
    FPkg = nullptr;
    EdPkgChange();
}

AnsiString TQzMemoryEditor::PkgName() const
{
    return Trim(QzAnsiString(C.EdPkg->currentText()));
}

// ------------------------------------------------------------------ the list

void TQzMemoryEditor::EdPkgChange()
{
    TQzPkgStrings* pkg = QzFindPkgStrings(PkgName());
    if (pkg == FPkg && FModel)
        return;
    FPkg = pkg;
    const bool withProtected = FPkg && FPkg->IsSystem();
    if (!FModel || withProtected != FModelProtected) {
        TQzListModel* old = FModel;
        FModel = QzNewMemoryListModel(&FRows, withProtected, this);
        FModelProtected = withProtected;
        FRows.Clear();
        C.List->SetListModel(FModel);
        delete old;
    }
    LoadList(QzIdEditValue(C.EdId));
}

void TQzMemoryEditor::LoadList(Integer keepId)
{
    const TQzMemoryOrder order = C.OrderLabel->isChecked() ? TQzMemoryOrder::ByText : TQzMemoryOrder::ById;
    const AnsiString filter = FInfo.FilterSearch ? QzAnsiString(C.Search->text()) : AnsiString();
    FRows.Load(FPkg ? QzMemoryItems(*FPkg, FFamily) : nullptr, order, filter);
    FModel->Reload();
    SelectRow(keepId >= 0 ? FRows.RowOfId(keepId) : -1, false);
}

void TQzMemoryEditor::SelectRow(int row, bool writeId)
{
    const bool updating = FUpdating;
    FUpdating = true;
    C.List->SelectSourceRow(row);
    const TQzPkgIdItem* item = FRows.Item(row);
    if (writeId && item)
        QzSetIdEditValue(C.EdId, item->Id());
    ShowDetail(item);
    FUpdating = updating;
    ChangeState();
}

void TQzMemoryEditor::ShowDetail(const TQzPkgIdItem* item)
{
    if (!C.Detail)
        return;
    const AnsiString text = !item ? AnsiString()
                            : FFamily == TQzMemoryFamily::Labels ? QzMemoryItemHint(*item)
                                                                 : QzMemoryItemText(*item);
    QzSetMemoText(C.Detail, text);
}

TQzPkgIdItem* TQzMemoryEditor::SelectedItem() const
{
    return FRows.Item(C.List->CurrentSourceRow());
}

void TQzMemoryEditor::EdIdChange()
{
    if (FUpdating)
        return;
    const Integer id = QzIdEditValue(C.EdId);
    const int row = FRows.RowOfId(id);
    if (row >= 0)
        SelectRow(row, false);
}

void TQzMemoryEditor::SearchChange()
{
    if (FInfo.FilterSearch) {
        LoadList(QzIdEditValue(C.EdId));
        return;
    }
    const int row = FRows.FindText(QzAnsiString(C.Search->text()));
    if (row >= 0)
        SelectRow(row, true);
}

void TQzMemoryEditor::OrderChange()
{
    if (FModel)
        LoadList(QzIdEditValue(C.EdId));
}

void TQzMemoryEditor::ListRowChanged(int row)
{
    if (FUpdating)
        return;
    SelectRow(row, true);
}

void TQzMemoryEditor::ChangeState()
{
    const bool item = SelectedItem() != nullptr;
    C.BtAdd->setEnabled(FPkg != nullptr);
    C.BtModify->setEnabled(item);
    C.BtDelete->setEnabled(item);
    const bool system = FPkg && FPkg->IsSystem();
    MnProtectAll->setEnabled(system && FRows.Count() > 0);
    MnUnprotectAll->setEnabled(system && FRows.Count() > 0);
}

// ------------------------------------------------------------------ commands

void TQzMemoryEditor::Modified()
{
    // A package kept in its own file is written when the editor closes.
    if (FPkg && FPkg->InitMode() != imFile)
        QzDesignerModified(QzMemoryDesignOwner(*FPkg));
}

void TQzMemoryEditor::RunAddDialog(bool modify)
{
    if (!FPkg)
        return;
    const TQzPkgIdItem* selected = SelectedItem();
    if (modify && !selected)
        return;
    std::unique_ptr<TQzMemoryItemAdd> dialog = CreateAddDialog();
    dialog->setWindowTitle(QString::fromLatin1(modify ? FInfo.ModifyCaption : FInfo.AddCaption));
    const Integer id = modify ? selected->Id() : QzMemoryItems(*FPkg, FFamily)->UniqueId();
    if (dialog->Execute(FPkg, modify, id) != 1)
        return;
    const Integer written = dialog->Item()->Id();
    Modified();
    LoadList(written);
    const bool updating = FUpdating;
    FUpdating = true;
    QzSetIdEditValue(C.EdId, written);
    FUpdating = updating;
    C.Search->setFocus();
}

void TQzMemoryEditor::BtAddClick()
{
    RunAddDialog(false);
}

void TQzMemoryEditor::BtModifyClick()
{
    RunAddDialog(true);
}

void TQzMemoryEditor::BtDeleteClick()
{
    TQzPkgIdItem* item = SelectedItem();
    if (!FPkg || !item)
        return;
    if (QzMsgPkg(mtConfirmation, "System", 26, {bkYes, bkNo}, bkYes) != bkYes)
        return;
    const int row = C.List->CurrentSourceRow();
    if (!QzRunReportingErrors(this, [&] { QzMemoryItems(*FPkg, FFamily)->Delete(item->Index()); }))
        return;
    Modified();
    LoadList(TQzMemoryRef::IdNone);
    SelectRow(std::min(row, FRows.Count() - 1), true);
}

void TQzMemoryEditor::ProtectAll(bool value)
{
    if (!FPkg)
        return;
    bool changed = false;
    if (!QzRunReportingErrors(this, [&] { changed = QzMemoryItems(*FPkg, FFamily)->SetAllProtected(value); }))
        return;
    if (!changed)
        return;
    Modified();
    LoadList(QzIdEditValue(C.EdId));
}

void TQzMemoryEditor::BtNullClick()
{
    FClosingId = TQzMemoryRef::IdNone;
    done(mrOk);
}

void TQzMemoryEditor::BtDefaultClick()
{
    FClosingId = TQzMemoryRef::IdDefault;
    done(mrOk);
}

void TQzMemoryEditor::BtManagerClick()
{
    TQzEditorDialogRequest request;
    request.Kind = static_cast<int>(FInfo.ManagerKind);
    request.PkgName = PkgName();
    request.Package = FPkg;
    request.Value = QzAnsiString(C.EdId->text());
    QzRunEditorDialog(TQzEditorDialog::Manager, request);
    // The manager may have replaced or cleaned items of the package.
    if (FModel)
        LoadList(QzIdEditValue(C.EdId));
}

// ------------------------------------------------------------------ closing

bool TQzMemoryEditor::FormClose(int result)
{
    if (FPkg) {
        TQzPkgStrings* pkg = FPkg;
        QzRunReportingErrors(this, [pkg] { QzMemorySaveFiles(*pkg); });
    }
    if (result != mrOk || !FRef)
        return true;
    TQzMemoryChoice choice{PkgName(), TQzMemoryRef::IdNone};
    if (FClosingId) {
        choice.Id = *FClosingId;
    } else if (!QzRunReportingErrors(this, [&] { choice.Id = QzMemoryIdOfText(QzAnsiString(C.EdId->text())); })) {
        return false;
    }
    QzMemoryApply(*FRef, choice);
    return true;
}

void TQzMemoryEditor::done(int result)
{
    const bool closing = FormClose(result);
    FClosingId.reset();
    if (closing)
        TQzDialog::done(result);
}
