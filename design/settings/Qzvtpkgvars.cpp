#include "design/settings/Qzvtpkgvars.h"

#include "design/manager/Qzvtpkgloadsave.h"
#include "design/reg/QzEditorDialogs.h"
#include "design/settings/QzPkgVarsListModel.h"
#include "design/settings/Qzvtfinddialog.h"
#include "design/settings/Qzvtpkgvarsmodify.h"
#include "runtime/model/QzApplication.h"
#include "runtime/util/QzDesigner.h"
#include "runtime/util/QzMessages.h"
#include "runtime/util/QzPaths.h"
#include "vcl/QzDialogs.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"
#include "vcl/QzWindowBounds.h"

#include <QAction>
#include <QActionGroup>
#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QStyle>
#include <QTimer>

namespace {

constexpr int ImageSelectedFolder = 0;
constexpr int ImageFolder = 1;
constexpr int ImageVariable = 2;
constexpr int ImageRoot = 3;

// The menu's types, in the order it lists them.
constexpr TQzPkgVarsItemType MenuTypes[] = {qvString, qvInteger, qvFloat, qvBoolean};

TQzPkgVarsItem* ItemOf(const QTreeWidgetItem* node)
{
    return node ? reinterpret_cast<TQzPkgVarsItem*>(node->data(0, Qt::UserRole).value<quintptr>()) : nullptr;
}

QAction* MakeAction(QWidget* owner, const char* name, const QString& text, const QKeySequence& keys = {})
{
    auto* action = new QAction(text, owner);
    action->setObjectName(QString::fromLatin1(name));
    if (!keys.isEmpty()) {
        action->setShortcut(keys);
        action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
        owner->addAction(action);
    }
    return action;
}

}  // namespace

TFrPkgVars::TFrPkgVars(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    QStyle* style = this->style();
    FIcons[ImageSelectedFolder] = style->standardIcon(QStyle::SP_DirOpenIcon);
    FIcons[ImageFolder] = style->standardIcon(QStyle::SP_DirClosedIcon);
    FIcons[ImageFolder].addPixmap(FIcons[ImageSelectedFolder].pixmap(18, 18), QIcon::Selected);
    FIcons[ImageVariable] = style->standardIcon(QStyle::SP_FileIcon);
    FIcons[ImageRoot] = style->standardIcon(QStyle::SP_DriveHDIcon);
    TView->setIconSize(QSize(18, 18));
    LView->setIconSize(QSize(18, 18));

    FList = new TQzVarsListModel(this);
    FList->SetIcon(FIcons[ImageVariable]);
    FList->OnRenamed = [this](TQzPkgVarsItem*) {
        if (FPackage->InitMode() != imFile)
            Modified();
    };
    LView->setModel(FList);
    LView->setColumnWidth(0, 125);
    LView->setColumnWidth(1, 176);
    CreateMenus();

    connect(TView, &QTreeWidget::currentItemChanged, this, &TFrPkgVars::TViewChange);
    connect(TView, &QTreeWidget::itemChanged, this, &TFrPkgVars::TViewEdited);
    connect(LView, &QTreeView::doubleClicked, this, &TFrPkgVars::Modify1Click);
    connect(LView->selectionModel(), &QItemSelectionModel::currentChanged, this, &TFrPkgVars::ChangeState);
    connect(BtLoad, &QPushButton::clicked, this, &TFrPkgVars::Load2Click);
    connect(BtSave, &QPushButton::clicked, this, &TFrPkgVars::Save2Click);
    connect(BtLoadFrom, &QPushButton::clicked, this, &TFrPkgVars::Import1Click);
    connect(BtSaveTo, &QPushButton::clicked, this, &TFrPkgVars::Export1Click);
    connect(BtClearFolder, &QPushButton::clicked, this, &TFrPkgVars::ClearAll2Click);
    connect(BtClearAll, &QPushButton::clicked, this, &TFrPkgVars::ClearAll1Click);
    connect(BtFind, &QPushButton::clicked, this, &TFrPkgVars::Find1Click);
    connect(BtOk, &QPushButton::clicked, this, &TFrPkgVars::accept);
    // The buttons' panel has no layout: they are stacked from its bottom.
    PanelButtons->installEventFilter(this);
}

TFrPkgVars::~TFrPkgVars() = default;

void TFrPkgVars::CreateMenus()
{
    PopupTView1 = new QMenu(this);
    PopupTView1->setObjectName("PopupTView1");
    NewFolder1 = MakeAction(TView, "NewFolder1", "&New ", QKeySequence(Qt::Key_Insert));
    NewSubFolder1 = MakeAction(TView, "NewSubFolder1", "New &SubFolder", QKeySequence(Qt::CTRL | Qt::Key_Right));
    Delete1 = MakeAction(TView, "Delete1", "&Delete", QKeySequence(Qt::CTRL | Qt::Key_Delete));
    ChangeName1 = MakeAction(TView, "ChangeName1", "&Change Name", QKeySequence(Qt::Key_F2));
    PopupTView1->addActions({NewFolder1, NewSubFolder1, Delete1, ChangeName1});
    connect(NewFolder1, &QAction::triggered, this, [this] { NewFolder(false); });
    connect(NewSubFolder1, &QAction::triggered, this, [this] { NewFolder(true); });
    connect(Delete1, &QAction::triggered, this, &TFrPkgVars::Delete1Click);
    connect(ChangeName1, &QAction::triggered, this, &TFrPkgVars::ChangeName1Click);

    PopupLView1 = new QMenu(this);
    PopupLView1->setObjectName("PopupLView1");
    Modify1 = MakeAction(LView, "Modify1", "&Modify");
    PopupLView1->addAction(Modify1);
    connect(Modify1, &QAction::triggered, this, &TFrPkgVars::Modify1Click);
    PopupLView1->addSeparator();
    const char* newNames[] = {"NewString1", "NewInteger1", "NewFloat1", "NewBoolean1"};
    const char* newTexts[] = {"New &String", "New &Integer", "New Fl&oat", "New &Boolean"};
    for (int i = 0; i < 4; ++i) {
        QAction* action = MakeAction(LView, newNames[i], QString::fromLatin1(newTexts[i]));
        PopupLView1->addAction(action);
        const TQzPkgVarsItemType type = MenuTypes[i];
        connect(action, &QAction::triggered, this, [this, type] { NewVariable(type); });
    }
    PopupLView1->addSeparator();
    Delete2 = MakeAction(LView, "Delete2", "&Delete", QKeySequence(Qt::CTRL | Qt::Key_Delete));
    ChangeName2 = MakeAction(LView, "ChangeName2", "&Change Name", QKeySequence(Qt::Key_F2));
    PopupLView1->addActions({Delete2, ChangeName2});
    connect(Delete2, &QAction::triggered, this, &TFrPkgVars::Delete2Click);
    connect(ChangeName2, &QAction::triggered, this, &TFrPkgVars::ChangeName2Click);
    ChangeType3 = PopupLView1->addMenu("Change &Type");
    ChangeType3->setObjectName("ChangeType3");
    auto* types = new QActionGroup(ChangeType3);
    const char* typeTexts[] = {"String", "Integer", "Float", "Boolean"};
    for (int i = 0; i < 4; ++i) {
        QAction* action = ChangeType3->addAction(QString::fromLatin1(typeTexts[i]));
        action->setObjectName(QString::fromLatin1(typeTexts[i]) + "3");
        action->setCheckable(true);
        types->addAction(action);
        const TQzPkgVarsItemType type = MenuTypes[i];
        connect(action, &QAction::triggered, this, [this, type] { Folder3Click(type); });
    }
    // Opening the sub-menu checks the selected variable's type.
    connect(ChangeType3, &QMenu::aboutToShow, this, [this, types] {
        const TQzPkgVarsItem* item = SelectedVariable();
        for (int i = 0; i < 4; ++i)
            types->actions()[i]->setChecked(item && item->GetItemType() == MenuTypes[i]);
    });
    ClearFolder2 = MakeAction(LView, "ClearFolder2", "C&lear Folder");
    PopupLView1->addAction(ClearFolder2);
    connect(ClearFolder2, &QAction::triggered, this, &TFrPkgVars::ClearAll2Click);

    connect(TView, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        // A right click selects the node it is on.
        if (QTreeWidgetItem* node = TView->itemAt(at))
            TView->setCurrentItem(node);
        UpdatePopups();
        PopupTView1->popup(TView->viewport()->mapToGlobal(at));
    });
    connect(LView, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) {
        UpdatePopups();
        PopupLView1->popup(LView->viewport()->mapToGlobal(at));
    });
}

TModalResult TFrPkgVars::Execute()
{
    if (!FPackage)
        return mrNone;
    setWindowTitle(QzQString("PkgVars : " + FPackage->PkgName()));
    TQzPlacementTracker tracker(this, FPackage->Placement());
    if (FPackage->InitMode() == imFile && FPackage->FileModified()) {
        QzRunReportingErrors(this, [&] { FPackage->LoadFile(); });
    }
    LoadFullTree();
    ChangeState();
    AdjustComponents();
    const TModalResult result = ShowModal();
    if (FFindDialog)
        FFindDialog->hide();
    if (tracker.Changed()) {
        FPackage->SetPlacement(tracker.Current());
        Modified();
    }
    UpdateFile();
    return result;
}

// ------------------------------------------------------------------- tree

QTreeWidgetItem* TFrPkgVars::RootNode() const
{
    return TView->topLevelItemCount() > 0 ? TView->topLevelItem(0) : nullptr;
}

TQzPkgVarsItem* TFrPkgVars::FolderOf(QTreeWidgetItem* node) const
{
    return ItemOf(node);
}

QTreeWidgetItem* TFrPkgVars::AddNode(QTreeWidgetItem* parent, TQzPkgVarsItem* folder)
{
    auto* node = new QTreeWidgetItem(parent);
    node->setText(0, QzQString(folder->Ident()));
    node->setData(0, Qt::UserRole, QVariant::fromValue(reinterpret_cast<quintptr>(folder)));
    node->setIcon(0, FIcons[ImageFolder]);
    node->setFlags(node->flags() | Qt::ItemIsEditable);
    return node;
}

QTreeWidgetItem* TFrPkgVars::NodeOf(const TQzPkgVarsItem* folder) const
{
    QTreeWidgetItem* root = RootNode();
    if (!folder || !root)
        return root;
    std::vector<QTreeWidgetItem*> pending{root};
    while (!pending.empty()) {
        QTreeWidgetItem* node = pending.back();
        pending.pop_back();
        if (ItemOf(node) == folder)
            return node;
        for (int i = 0; i < node->childCount(); ++i)
            pending.push_back(node->child(i));
    }
    return nullptr;
}

void TFrPkgVars::LoadFullTree()
{
    const QSignalBlocker block(TView);
    TView->clear();
    LoadTree();
    QTreeWidgetItem* root = RootNode();
    root->setExpanded(true);
    TView->setCurrentItem(root);
    LoadListView(root);
}

// The tree is built from the folder order the search walks, so that the
// search meets the folders in the order they are shown.
void TFrPkgVars::LoadTree()
{
    const AnsiString name = FPackage->PkgName();
    auto* root = new QTreeWidgetItem(TView, QStringList(QzQString(name.empty() ? AnsiString("Unknown") : name)));
    root->setIcon(0, FIcons[ImageRoot]);
    root->setData(0, Qt::UserRole, QVariant::fromValue(quintptr(0)));
    std::vector<QTreeWidgetItem*> parents;
    for (const TQzVarsFolder& f : QzVarsFolderOrder(*FPackage)) {
        parents.resize(static_cast<size_t>(f.Depth));
        parents.push_back(f.Item ? AddNode(parents.back(), f.Item) : root);
    }
}

void TFrPkgVars::TViewChange()
{
    LoadListView(TView->currentItem());
    ChangeState();
}

void TFrPkgVars::LoadListView(QTreeWidgetItem* node)
{
    if (!node) {
        FList->Clear();
        SBar->clearMessage();
        return;
    }
    FList->SetFolder(FPackage, FolderOf(node));
    const AnsiString path = GetPath(node);
    SBar->showMessage(QzQString(path.empty() ? FPackage->PkgName() : FPackage->PkgName() + "\\" + path));
}

AnsiString TFrPkgVars::GetPath(QTreeWidgetItem* node) const
{
    AnsiString path;
    for (; node && node->parent(); node = node->parent())
        path = path.empty() ? QzAnsiString(node->text(0)) : QzAnsiString(node->text(0)) + "\\" + path;
    return path;
}

void TFrPkgVars::TViewEdited(QTreeWidgetItem* node, int /*column*/)
{
    TQzPkgVarsItem* folder = FolderOf(node);
    if (!folder || QzQString(folder->Ident()) == node->text(0))
        return;
    // Taken as typed: the package allows any name, even a repeated one.
    folder->SetIdent(QzAnsiString(node->text(0)));
    if (FPackage->InitMode() != imFile)
        Modified();
    // The tree is sorted by name: rebuilt once the edit has ended.
    QTimer::singleShot(0, this, [this, folder] {
        LoadFullTree();
        SelectFolder(folder);
    });
}

TQzPkgVarsItem* TFrPkgVars::SelectedFolder() const
{
    return FolderOf(TView->currentItem());
}

bool TFrPkgVars::SelectFolder(const TQzPkgVarsItem* folder)
{
    QTreeWidgetItem* node = NodeOf(folder);
    if (!node)
        return false;
    for (QTreeWidgetItem* up = node->parent(); up; up = up->parent())
        up->setExpanded(true);
    TView->setCurrentItem(node);
    return true;
}

int TFrPkgVars::SelectedRow() const
{
    const QModelIndex current = LView->currentIndex();
    return current.isValid() && LView->selectionModel()->isSelected(current) ? current.row() : -1;
}

void TFrPkgVars::SelectRow(int row)
{
    if (row < 0 || row >= FList->rowCount()) {
        LView->selectionModel()->clear();
        return;
    }
    LView->setCurrentIndex(FList->index(row, 0));
}

TQzPkgVarsItem* TFrPkgVars::SelectedVariable() const
{
    return FList->Item(SelectedRow());
}

bool TFrPkgVars::SelectVariable(const TQzPkgVarsItem* item)
{
    if (!item || !SelectFolder(item->Parent()))
        return false;
    const int row = FList->FindData(item);
    SelectRow(row);
    // A variable is chosen in the list: the commands that work on either
    // the tree or the list take the list.
    LView->setFocus();
    return row >= 0;
}

// --------------------------------------------------------------- commands

bool TFrPkgVars::Confirm(Integer msgId, bool yesNo)
{
    if (yesNo)
        return QzMsgPkg(mtConfirmation, "System", msgId, {bkYes, bkNo}, bkYes) == bkYes;
    return QzMsgPkg(mtConfirmation, "System", msgId, {bkOK, bkCancel}, msgId == 36 ? bkOK : bkCancel) == bkOK;
}

void TFrPkgVars::NewFolder(bool subFolder)
{
    QTreeWidgetItem* selected = TView->currentItem();
    if (!selected)
        return;
    QTreeWidgetItem* parent = selected == RootNode() || subFolder ? selected : selected->parent();
    const AnsiString path = GetPath(parent);
    TQzPkgVarsItem* folder = FPackage->Add(QzVarsJoinPath(path, NameFolder(*FPackage, path)), qvFolder);
    LoadFullTree();
    SelectFolder(folder);
    if (FPackage->InitMode() != imFile)
        Modified();
    ChangeState();
    TView->editItem(TView->currentItem(), 0);
}

void TFrPkgVars::NewVariable(TQzPkgVarsItemType type)
{
    QTreeWidgetItem* node = TView->currentItem();
    if (!node)
        return;
    const AnsiString path = GetPath(node);
    TQzPkgVarsItem* item = FPackage->Add(QzVarsJoinPath(path, NameVar(*FPackage, path)), type);
    QzVarsSetInitialValue(*item);
    FList->Reload();
    const int row = FList->FindData(item);
    SelectRow(row);
    if (FPackage->InitMode() != imFile)
        Modified();
    ChangeState();
    LView->setFocus();
    LView->edit(FList->index(row, 0));
}

void TFrPkgVars::ChangeName1Click()
{
    QTreeWidgetItem* node = TView->currentItem();
    if (node && node != RootNode())
        TView->editItem(node, 0);
}

void TFrPkgVars::ChangeName2Click()
{
    const int row = SelectedRow();
    if (row >= 0)
        LView->edit(FList->index(row, 0));
}

void TFrPkgVars::Delete1Click()
{
    QTreeWidgetItem* node = TView->currentItem();
    if (!node || node == RootNode() || !Confirm(34, true))
        return;
    QTreeWidgetItem* parent = node->parent();
    const int index = parent->indexOfChild(node);
    QTreeWidgetItem* next = index + 1 < parent->childCount() ? parent->child(index + 1) : nullptr;
    QTreeWidgetItem* previous = index > 0 ? parent->child(index - 1) : nullptr;
    const TQzPkgVarsItem* select = FolderOf(next ? next : previous ? previous : parent);
    delete FolderOf(node);  // the package drops the folder with its contents
    LoadFullTree();
    SelectFolder(select);
    if (FPackage->InitMode() != imFile)
        Modified();
    ChangeState();
}

void TFrPkgVars::Delete2Click()
{
    const int row = SelectedRow();
    TQzPkgVarsItem* item = FList->Item(row);
    if (!item || !Confirm(35, true))
        return;
    const bool last = row == FList->rowCount() - 1;
    delete item;
    FList->Reload();
    // The row before a deleted last row takes the selection; otherwise
    // nothing is selected.
    SelectRow(row > 0 && last ? row - 1 : -1);
    if (FPackage->InitMode() != imFile)
        Modified();
    ChangeState();
}

void TFrPkgVars::Folder3Click(TQzPkgVarsItemType type)
{
    const bool fromTree = TView->hasFocus();
    TQzPkgVarsItem* item = fromTree ? SelectedFolder() : SelectedVariable();
    if (!item || item->GetItemType() == type || !Confirm(36, false))
        return;
    item->SetItemType(type);
    if (fromTree) {
        // A folder turned variable: shown in its parent's list.
        LoadFullTree();
        SelectVariable(item);
    } else if (type == qvFolder) {
        LoadFullTree();
        SelectFolder(item);
    } else {
        FList->RowChanged(FList->FindData(item));
    }
    if (FPackage->InitMode() != imFile)
        Modified();
}

void TFrPkgVars::Modify1Click()
{
    const int row = SelectedRow();
    TQzPkgVarsItem* item = FList->Item(row);
    if (!item)
        return;
    TFrPkgVarsModify dialog(this);
    dialog.EdNameVar->setText(QzQString(item->Ident()));
    dialog.SetType(item->GetItemType());
    dialog.SetValue(QzVarsValueEdit(*item));
    if (dialog.Execute() != mrOk)
        return;
    QzVarsSetValue(*item, dialog.Value());
    FList->RowChanged(row);
    if (FPackage->InitMode() != imFile)
        Modified();
}

void TFrPkgVars::ClearAll2Click()
{
    if (FList->rowCount() == 0 || !Confirm(60, false))
        return;
    for (TQzPkgVarsItem* item : QzVarsVariables(*FPackage, SelectedFolder()))
        delete item;
    FList->Reload();
    if (FPackage->InitMode() != imFile)
        Modified();
    ChangeState();
}

void TFrPkgVars::ClearAll1Click()
{
    if (!Confirm(59, false))
        return;
    FPackage->Clear();
    LoadFullTree();
    if (FPackage->InitMode() != imFile)
        Modified();
    ChangeState();
}

// ----------------------------------------------------------------- search

void TFrPkgVars::Find1Click()
{
    if (!FFindDialog) {
        FFindDialog = new TFrFindDialog(this);
        FFindDialog->OnFind = [this](const TQzVarsFindOptions& options) { FindDialog1Find(options); };
    }
    FFindDialog->show();
    FFindDialog->raise();
    FFindDialog->activateWindow();
}

void TFrPkgVars::FindDialog1Find(const TQzVarsFindOptions& options)
{
    const std::vector<TQzVarsFolder> folders = QzVarsFolderOrder(*FPackage);
    TQzVarsPlace from;
    if (QTreeWidgetItem* node = TView->currentItem()) {
        const TQzPkgVarsItem* folder = FolderOf(node);
        for (size_t i = 0; i < folders.size(); ++i)
            if (folders[i].Item == folder)
                from.Folder = static_cast<int>(i);
        from.Row = SelectedRow();
    }
    const TQzVarsHit hit = FFinder.Find(*FPackage, folders, from, options);
    if (!hit.Found) {
        QzMsgPkg(mtInformation, "System", 2, {bkOK}, bkOK);
        LView->setFocus();
        return;
    }
    SelectFolder(folders[static_cast<size_t>(hit.Folder)].Item);
    if (hit.Row < 0) {
        TView->setFocus();
        return;
    }
    SelectRow(hit.Row);
    LView->setFocus();
}

// ------------------------------------------------------------------ files

TQzFileRequest TFrPkgVars::FileRequest(const AnsiString& title)
{
    const AnsiString mask = "*" + QzAddPointExt(FPackage->DefaultExt());
    TQzFileRequest request;
    request.Title = title;
    request.Filter = "Package Vars (" + mask + ")|" + mask + "|All files (*.*)|*.*";
    request.DefaultExt = FPackage->DefaultExt();
    request.Parent = this;
    return request;
}

void TFrPkgVars::Load2Click()
{
    UpdateFile();
    if (!QzExecutePkgLoadSave(FPackage, TQzLoadSave::Load, this))
        return;
    ChangeState();
    LoadFullTree();
    Modified();
}

void TFrPkgVars::Save2Click()
{
    UpdateFile();
    if (!QzExecutePkgLoadSave(FPackage, TQzLoadSave::Save, this))
        return;
    ChangeState();
    Modified();
}

void TFrPkgVars::Import1Click()
{
    TQzFileRequest request = FileRequest("Load From");
    const AnsiString name = QzOpenFile(request);
    if (name.empty())
        return;
    if (!QzRunReportingErrors(this, [&] { FPackage->LoadFromFile(name); }))
        return;
    FPackage->SetModified(true);
    LoadFullTree();
    if (FPackage->InitMode() != imFile)
        Modified();
    ChangeState();
}

void TFrPkgVars::Export1Click()
{
    TQzFileRequest request = FileRequest("Save To");
    const AnsiString name = QzSaveFile(request);
    if (name.empty())
        return;
    QzRunReportingErrors(this, [&] { FPackage->SaveToFile(name); });
}

void TFrPkgVars::UpdateFile()
{
    QzRunReportingErrors(this, [&] { FPackage->SaveFile(); });
}

void TFrPkgVars::Modified()
{
    TComponent* owner = FPackage->Owner();
    if (dynamic_cast<TQzCApplication*>(owner))
        owner = owner->Owner();
    QzDesignerModified(owner);
}

// ------------------------------------------------------------------ state

void TFrPkgVars::ChangeState()
{
    Label6->setText(FPackage->InitMode() == imFile ? "FILE" : "DFM");
    Label7->setText(FPackage->FileName().empty() ? QStringLiteral("(Memory)") : QzQString(FPackage->FileName()));
    const bool rows = FList->rowCount() > 0;
    QTreeWidgetItem* root = RootNode();
    BtClearAll->setEnabled(rows || (root && root->childCount() > 0));
    BtClearFolder->setEnabled(rows);
    UpdatePopups();
}

void TFrPkgVars::UpdatePopups()
{
    const bool row = SelectedRow() >= 0;
    for (QAction* action : {Modify1, Delete2, ChangeName2})
        action->setEnabled(row);
    ChangeType3->setEnabled(row);
    ClearFolder2->setEnabled(FList->rowCount() > 0);
    QTreeWidgetItem* node = TView->currentItem();
    NewFolder1->setEnabled(node != nullptr);
    Delete1->setEnabled(node && node != RootNode());
    ChangeName1->setEnabled(node && node != RootNode());
}

void TFrPkgVars::AdjustComponents()
{
    const int h = BtOk->sizeHint().height();
    const int a = h / 5;
    const int b = h / 2;
    const int margin = 4;
    const int width = PanelButtons->width() - 2 * margin;
    int top = PanelButtons->height() - h - a;
    BtOk->setGeometry(margin, top, width, h);
    const std::pair<QPushButton*, int> stack[] = {
        {BtFind, b}, {BtClearAll, b}, {BtClearFolder, a}, {BtSaveTo, b}, {BtLoadFrom, a}, {BtSave, b}, {BtLoad, a},
    };
    for (const auto& [button, gap] : stack) {
        top -= gap + h;
        button->setGeometry(margin, top, width, h);
    }
}

bool TFrPkgVars::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == PanelButtons && event->type() == QEvent::Resize)
        AdjustComponents();
    return TQzDialog::eventFilter(watched, event);
}

bool TFrPkgVars::FormKeyPress(QKeyEvent* event)
{
    if (QKeySequence(event->keyCombination()) == QKeySequence(QStringLiteral("Ctrl+F"))) {
        Find1Click();
        return true;
    }
    // Escape while a name is edited in place cancels the edit, not the form.
    // (The editor is the focused child of a view.)
    const QWidget* focus = QApplication::focusWidget();
    if (event->key() == Qt::Key_Escape && focus && focus != TView && focus != LView &&
        (TView->isAncestorOf(focus) || LView->isAncestorOf(focus)))
        return false;
    return TQzDialog::FormKeyPress(event);
}

void RegisterQzvtpkgvars()
{
    QzSetEditorDialog(TQzEditorDialog::PkgVars, [](TQzEditorDialogRequest& request) {
        auto* package = dynamic_cast<TQzPkgVars*>(request.Package);
        if (!package)
            return 0;
        TFrPkgVars form(QApplication::activeWindow());
        form.SetPackage(package);
        return form.Execute() == mrOk ? 1 : 0;
    });
}
