#include "design/strings/Qzvtpkgstrings.h"

#include "design/manager/Qzvtpkgloadsave.h"
#include "design/manager/Qzvtpkgsynchronizer.h"
#include "design/reg/QzEditorDialogs.h"
#include "design/strings/QzPkgStringsLogic.h"
#include "design/strings/Qzvtmemorylabeladd.h"
#include "design/strings/Qzvtmemorymessageadd.h"
#include "design/strings/Qzvtmemorytextadd.h"
#include "design/strings/Qzvtpkgstringstranslator.h"
#include "design/strings/Qzvtupdatesystemstrings.h"
#include "runtime/model/QzApplication.h"
#include "runtime/util/QzDesigner.h"
#include "runtime/util/QzMessages.h"
#include "vcl/QzDialogs.h"
#include "vcl/QzIdEdit.h"
#include "vcl/QzListModel.h"
#include "vcl/QzListView.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReport.h"
#include "vcl/QzReportErrors.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QPrinter>
#include <QSignalBlocker>

namespace {

constexpr int ColumnId = 0;
constexpr int ColumnProtected = 1;
constexpr int ColumnText = 2;

constexpr TQzMemoryFamily Families[] = {TQzMemoryFamily::Labels, TQzMemoryFamily::Messages, TQzMemoryFamily::Texts};

// The pages and the translators list the three collections in one order.
TQzTranslatorKind TranslatorKindOf(TQzMemoryFamily family)
{
    static_assert(int(TQzMemoryFamily::Messages) == int(TQzTranslatorKind::Messages) &&
                  int(TQzMemoryFamily::Texts) == int(TQzTranslatorKind::Texts));
    return static_cast<TQzTranslatorKind>(family);
}

// The menu words of each page; the messages' "UnProtect" is the suite's own.
struct TPageWords {
    const char* Import;
    const char* Export;
    const char* Protect;
    const char* Unprotect;
};

const TPageWords& WordsOf(TQzMemoryFamily family)
{
    static const TPageWords words[] = {
        {"Import Labels", "Export Labels", "Protect All Labels", "Unprotect All Labels"},
        {"Import Messages", "Export Messages", "Protect All Messages", "UnProtect All Messages"},
        {"Import Texts", "Export Texts", "Protect All Texts", "Unprotect All Texts"},
    };
    return words[static_cast<int>(family)];
}

// A text of several lines shows on its row as one.
QString RowText(const AnsiString& text)
{
    QString row = QzQString(text);
    row.replace(QLatin1String("\r\n"), QLatin1String(" "));
    row.replace(QLatin1Char('\n'), QLatin1Char(' '));
    row.replace(QLatin1Char('\r'), QLatin1Char(' '));
    return row;
}

TQzFileRequest TextFileRequest(const AnsiString& title, QWidget* parent)
{
    TQzFileRequest request;
    request.Title = title;
    request.Filter = "Text Files (*.txt)|*.txt|All Files (*.*)|*.*";
    request.DefaultExt = "txt";
    request.Parent = parent;
    return request;
}

}  // namespace

TFrPkgStrings::TFrPkgStrings(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    FPages[0].List = Labels;
    FPages[0].Search = EdLabel;
    FPages[0].Id = EdLabelId;
    FPages[1].List = Messages;
    FPages[1].Search = EdMessage;
    FPages[1].Id = EdMsgId;
    FPages[2].List = Texts;
    FPages[2].Search = EdText;
    FPages[2].Id = EdTextId;
    for (TQzMemoryFamily family : Families) {
        FPages[Index(family)].Family = family;
        SetUpPage(FPages[Index(family)]);
    }
    // The translator of the active page deletes through this editor, so the
    // question is this editor's; what it added shows here once it closes.
    connect(BtTranslator, &QPushButton::clicked, this, [this] {
        QzExecuteStringsTranslator(FPackage, TranslatorKindOf(ActivePage()), [this](Integer id) { return DeleteById(id); },
                                   this);
        LoadAll();
        UpdateInfo();
    });

    connect(PageC, &QTabWidget::currentChanged, this, &TFrPkgStrings::PageCChange);
    connect(OrderLabel, &QRadioButton::toggled, this, &TFrPkgStrings::OrderClick);
    connect(BtReport, &QPushButton::clicked, this, &TFrPkgStrings::BtReportClick);
    connect(BtAdd, &QPushButton::clicked, this, &TFrPkgStrings::BtAddClick);
    connect(BtModify, &QPushButton::clicked, this, &TFrPkgStrings::BtModifyClick);
    connect(BtDelete, &QPushButton::clicked, this, &TFrPkgStrings::BtDeleteClick);
    connect(BtLoad, &QPushButton::clicked, this, &TFrPkgStrings::BtLoadClick);
    connect(BtSave, &QPushButton::clicked, this, &TFrPkgStrings::BtSaveClick);
    connect(BtLoadFrom, &QPushButton::clicked, this, &TFrPkgStrings::BtLoadFromClick);
    connect(BtSaveTo, &QPushButton::clicked, this, &TFrPkgStrings::BtSaveToClick);
    connect(BtClear, &QPushButton::clicked, this, &TFrPkgStrings::BtClearClick);
    connect(BtSynchronizer, &QPushButton::clicked, this, &TFrPkgStrings::BtSynchronizerClick);
    connect(BtManager, &QPushButton::clicked, this, &TFrPkgStrings::BtManagerClick);
    connect(BtOk, &QPushButton::clicked, this, &TFrPkgStrings::accept);
}

TFrPkgStrings::~TFrPkgStrings() = default;

void TFrPkgStrings::SetUpPage(TPage& page)
{
    QList<TQzListColumn> columns(3);
    // As wide as the largest Id an Id box takes, with room either side.
    columns[ColumnId].WidthText = "999999";
    columns[ColumnProtected].WidthText = "P99";
    TQzRowProvider rows;
    rows.RowCount = [&page] { return page.Rows.Count(); };
    rows.Text = [&page](int row, int column) -> QString {
        const TQzPkgIdItem* item = page.Rows.Item(row);
        if (!item)
            return {};
        switch (column) {
        case ColumnId: return QString::number(item->Id());
        case ColumnProtected: return item->Protected() ? QStringLiteral("P") : QString();
        case ColumnText: return RowText(QzMemoryItemText(*item));
        default: return QString();
        }
    };
    page.Model = new TQzListModel(columns, rows, this);
    page.List->SetListModel(page.Model);
    page.List->SetSortable(false);
    page.List->SetSearchColumn(-1);
    page.List->horizontalHeader()->hide();
    QzMakeIdEdit(page.Id);

    connect(page.List, &TQzListView::CurrentRowChanged, this, [this, &page] { ShowItem(page); });
    connect(page.List, &QAbstractItemView::doubleClicked, this, &TFrPkgStrings::BtModifyClick);
    connect(page.Id, &QLineEdit::textChanged, this, [this, &page] { EdIdChange(page); });
    connect(page.Search, &QLineEdit::textChanged, this, [this, &page] { EdSearchChange(page); });
    CreatePopup(page);
}

void TFrPkgStrings::CreatePopup(TPage& page)
{
    const TPageWords& words = WordsOf(page.Family);
    page.Popup = new QMenu(this);
    page.Popup->setObjectName(page.List->objectName() + "Popup");
    auto add = [&](const char* text, auto slot) {
        QAction* action = page.Popup->addAction(QString::fromLatin1(text));
        action->setObjectName(QString::fromLatin1(text).remove(' '));
        connect(action, &QAction::triggered, this, slot);
        return action;
    };
    add(words.Import, [this] { ImportClick(); });
    add(words.Export, [this] { ExportClick(); });
    page.SystemOnly << page.Popup->addSeparator();
    page.SystemOnly << add("Update System Strings", [this] { UpdateSystemStringsClick(); });
    page.SystemOnly << page.Popup->addSeparator();
    page.SystemOnly << add(words.Protect, [this] { ProtectAllClick(true); });
    page.SystemOnly << add(words.Unprotect, [this] { ProtectAllClick(false); });
    connect(page.List, &QWidget::customContextMenuRequested, this,
            [&page](const QPoint& at) { page.Popup->popup(page.List->viewport()->mapToGlobal(at)); });
}

void TFrPkgStrings::SetPackage(TQzPkgStrings* package)
{
    FPackage = package;
    FIsSystem = package && package->IsSystem();
    for (TPage& page : FPages) {
        page.List->setColumnHidden(ColumnProtected, !FIsSystem);
        for (QAction* action : page.SystemOnly)
            action->setVisible(FIsSystem);
    }
}

TModalResult TFrPkgStrings::Execute()
{
    if (!FPackage)
        return mrNone;
    setWindowTitle(QzQString("Package : " + FPackage->PkgName()));
    LoadAll();
    ChangeState();
    UpdateInfo();
    return ShowModal();
}

// ------------------------------------------------------------------ pages

TQzMemoryFamily TFrPkgStrings::ActivePage() const
{
    const int index = PageC->currentIndex();
    return index >= 0 && index < 3 ? Families[index] : TQzMemoryFamily::Labels;
}

void TFrPkgStrings::SetActivePage(TQzMemoryFamily family)
{
    PageC->setCurrentIndex(Index(family));
}

void TFrPkgStrings::PageCChange()
{
    UpdateInfo();
    ChangeState();
}

void TFrPkgStrings::LoadPage(TPage& page)
{
    if (!FPackage)
        return;
    const bool labels = page.Family == TQzMemoryFamily::Labels;
    const TQzMemoryOrder order = labels && OrderLabel->isChecked() ? TQzMemoryOrder::ByText : TQzMemoryOrder::ById;
    // Labels are found by moving to them; messages and texts by narrowing.
    const AnsiString filter = labels ? AnsiString() : QzAnsiString(page.Search->text());
    page.Rows.Load(QzMemoryItems(*FPackage, page.Family), order, filter);
    page.Model->Reload();
    ShowItem(page);
}

void TFrPkgStrings::LoadAll()
{
    for (TPage& page : FPages)
        LoadPage(page);
}

TQzPkgIdItem* TFrPkgStrings::SelectedItem() const
{
    const TPage& page = Active();
    return page.Rows.Item(page.List->CurrentSourceRow());
}

void TFrPkgStrings::ShowItem(TPage& page)
{
    const TQzPkgIdItem* item = page.Rows.Item(page.List->CurrentSourceRow());
    FShowing = true;
    if (item)
        QzSetIdEditValue(page.Id, item->Id());
    if (page.Family == TQzMemoryFamily::Labels)
        EdLabelHint->setPlainText(item ? QzQString(QzMemoryItemHint(*item)) : QString());
    else if (page.Family == TQzMemoryFamily::Texts)
        EdTexto->setPlainText(item ? QzQString(QzMemoryItemText(*item)).replace("\r\n", "\n") : QString());
    FShowing = false;
    if (&page == &Active())
        ChangeState();
}

void TFrPkgStrings::SelectRow(TPage& page, int row)
{
    if (row >= page.Rows.Count())
        row = page.Rows.Count() - 1;
    page.List->SelectSourceRow(row);
    ShowItem(page);
}

bool TFrPkgStrings::SelectId(Integer id)
{
    TPage& page = Active();
    {
        const QSignalBlocker quiet(page.Id);
        page.Id->setText(QString::number(id));
    }
    EdIdChange(page);
    return page.Rows.RowOfId(id) >= 0;
}

void TFrPkgStrings::EdIdChange(TPage& page)
{
    if (FShowing)
        return;
    const int id = QzIdEditValue(page.Id);
    const int row = id >= 0 ? page.Rows.RowOfId(id) : -1;
    if (row >= 0)
        SelectRow(page, row);
}

void TFrPkgStrings::EdSearchChange(TPage& page)
{
    if (page.Family != TQzMemoryFamily::Labels) {
        LoadPage(page);
        return;
    }
    const int row = page.Rows.FindText(QzAnsiString(page.Search->text()));
    if (row >= 0)
        SelectRow(page, row);
}

void TFrPkgStrings::OrderClick()
{
    TPage& page = FPages[Index(TQzMemoryFamily::Labels)];
    const TQzPkgIdItem* item = page.Rows.Item(page.List->CurrentSourceRow());
    const Integer id = item ? item->Id() : -1;
    LoadPage(page);
    if (id >= 0)
        SelectRow(page, page.Rows.RowOfId(id));
}

// ------------------------------------------------------------- add, modify

std::unique_ptr<TQzMemoryItemAdd> TFrPkgStrings::NewAddDialog(TQzMemoryFamily family)
{
    switch (family) {
    case TQzMemoryFamily::Labels: return std::make_unique<TFrMemoryLabelAdd>(this);
    case TQzMemoryFamily::Messages: return std::make_unique<TFrMemoryMessageAdd>(this);
    case TQzMemoryFamily::Texts: return std::make_unique<TFrMemoryTextAdd>(this);
    }
    return nullptr;
}

void TFrPkgStrings::BtAddClick()
{
    TPage& page = Active();
    std::unique_ptr<TQzMemoryItemAdd> dialog = NewAddDialog(page.Family);
    dialog->setWindowTitle(QzMemoryFamilyInfo(page.Family).AddCaption);
    if (dialog->Execute(FPackage, false, QzMemoryItems(*FPackage, page.Family)->UniqueId()) != 1)
        return;
    const Integer id = dialog->Item()->Id();
    LoadPage(page);
    SelectId(id);
    UpdateInfo();
    ContentsModified();
}

void TFrPkgStrings::BtModifyClick()
{
    TPage& page = Active();
    const TQzPkgIdItem* item = SelectedItem();
    if (!item)
        return;
    std::unique_ptr<TQzMemoryItemAdd> dialog = NewAddDialog(page.Family);
    dialog->setWindowTitle(QzMemoryFamilyInfo(page.Family).ModifyCaption);
    if (dialog->Execute(FPackage, true, item->Id()) != 1)
        return;
    // The text may sort elsewhere now, and the Id may have changed.
    const Integer id = dialog->Item()->Id();
    LoadPage(page);
    SelectId(id);
    page.Search->setFocus();
    ContentsModified();
}

void TFrPkgStrings::BtDeleteClick()
{
    TPage& page = Active();
    TQzPkgIdItem* item = SelectedItem();
    if (!item || QzMsgPkg(mtConfirmation, "System", 26, {bkYes, bkNo}, bkYes) != bkYes)
        return;
    const int row = page.List->CurrentSourceRow();
    if (!QzRunReportingErrors(this, [&] { item->Collection()->Delete(item->Index()); }))
        return;
    LoadPage(page);
    SelectRow(page, row);
    UpdateInfo();
    ContentsModified();
}

bool TFrPkgStrings::DeleteById(Integer id)
{
    if (!SelectId(id))
        return false;
    BtDeleteClick();
    return QzMemoryItems(*FPackage, ActivePage())->FindIdItem(id) == nullptr;
}

// ----------------------------------------------------------------- files

void TFrPkgStrings::BtLoadClick()
{
    UpdateFile();
    if (!QzExecutePkgLoadSave(FPackage, TQzLoadSave::Load, this))
        return;
    ChangeState();
    LoadAll();
    UpdateInfo();
    Modified();
}

void TFrPkgStrings::BtSaveClick()
{
    UpdateFile();
    if (!QzExecutePkgLoadSave(FPackage, TQzLoadSave::Save, this))
        return;
    ChangeState();
    Modified();
}

void TFrPkgStrings::BtLoadFromClick()
{
    const AnsiString name = QzOpenFile(QzPkgFileRequest(*FPackage, "Package Strings", "Load From", this));
    if (name.empty() || !QzRunReportingErrors(this, [&] { FPackage->LoadFromFile(name); }))
        return;
    LoadAll();
    UpdateInfo();
    ContentsModified();
}

void TFrPkgStrings::BtSaveToClick()
{
    const AnsiString name = QzSaveFile(QzPkgFileRequest(*FPackage, "Package Strings", "Save To", this));
    if (!name.empty())
        QzRunReportingErrors(this, [&] { FPackage->SaveToFile(name); });
}

void TFrPkgStrings::BtClearClick()
{
    if (QzMsgPkg(mtConfirmation, "System", 58, {bkYes, bkNo}, bkYes) != bkYes)
        return;
    if (!QzRunReportingErrors(this, [&] { FPackage->Clear(); }))
        return;
    ContentsModified();
    LoadAll();
    UpdateInfo();
}

void TFrPkgStrings::ExportClick()
{
    const TQzMemoryFamily family = ActivePage();
    const AnsiString name = QzSaveFile(TextFileRequest("Export", this));
    if (!name.empty())
        QzRunReportingErrors(this, [&] { QzStringsExportFile(*FPackage, family, name); });
}

void TFrPkgStrings::ImportClick()
{
    const TQzMemoryFamily family = ActivePage();
    const AnsiString name = QzOpenFile(TextFileRequest("Import", this));
    if (name.empty())
        return;
    TStringList lines;
    if (!QzRunReportingErrors(this, [&] { lines.LoadFromFile(name); }))
        return;
    // A file that stops at a bad line has replaced the items all the same:
    // the lines before it are in, so the lists and the designer follow.
    QzRunReportingErrors(this, [&] { QzStringsImportText(*FPackage, family, lines, name); });
    ContentsModified();
    LoadAll();
    UpdateInfo();
}

// ------------------------------------------------------ protect, system

void TFrPkgStrings::ProtectAllClick(bool value)
{
    bool changed = false;
    if (!QzRunReportingErrors(this, [&] { changed = QzMemoryItems(*FPackage, ActivePage())->SetAllProtected(value); }) ||
        !changed)
        return;
    Active().Model->Reload();
    ChangeState();
    UpdateInfo();
    Modified();
}

void TFrPkgStrings::UpdateSystemStringsClick()
{
    TFrUpdateSystemStrings dialog(this);
    dialog.SetApplication(QzCApp());
    if (dialog.Execute() != mrOk)
        return;
    ChangeState();
    LoadAll();
    UpdateInfo();
    Modified();
}

// ----------------------------------------------------------------- others

void TFrPkgStrings::BtReportClick()
{
    const TPage& page = Active();
    std::unique_ptr<QPrinter> printer = QzDialogs().CreatePrinter();
    if (!printer || !QzDialogs().PrinterSetup(*printer, this))
        return;
    TQzReport report;
    report.SetTitle(QzQString(QzStringsReportTitle(page.Family)));
    // A blank line under the heading, then the rows as listed.
    QStringList lines{QStringLiteral(" ")};
    for (int row = 0; row < page.Rows.Count(); ++row)
        for (const AnsiString& line : QzStringsReportLines(page.Rows.Item(row)))
            lines << QzQString(line);
    report.SetRows(static_cast<int>(lines.size()), [&lines](int row) { return QStringList{lines[row]}; });
    QzRunReportingErrors(this, [&] { report.Print(*printer); });
}

void TFrPkgStrings::BtSynchronizerClick()
{
    if (QzExecutePkgSynchronizer(FPackage, this) != 1)
        return;
    // The package may be among the files written.
    LoadAll();
    UpdateInfo();
}

void TFrPkgStrings::BtManagerClick()
{
    TQzEditorDialogRequest request;
    request.Kind = static_cast<int>(QzMemoryFamilyInfo(ActivePage()).ManagerKind);
    request.PkgName = FPackage->PkgName();
    if (const TQzPkgIdItem* item = SelectedItem())
        request.Value = IntToStr(item->Id());
    QzRunEditorDialog(TQzEditorDialog::Manager, request);
    // The manager may have cleaned the package.
    LoadAll();
    UpdateInfo();
}

// ------------------------------------------------------------------ state

void TFrPkgStrings::ChangeState()
{
    if (!FPackage)
        return;
    LabInitModeValue->setText(FPackage->InitMode() == imFile ? "FILE" : "DFM");
    LabFileNameValue->setText(FPackage->FileName().empty() ? QStringLiteral("(Memory)")
                                                           : QzQString(FPackage->FileName()));
    const TPage& page = Active();
    const bool selected = page.Rows.Item(page.List->CurrentSourceRow()) != nullptr;
    BtModify->setEnabled(selected);
    BtDelete->setEnabled(selected);
    BtReport->setEnabled(page.Rows.Count() > 0);
    BtClear->setEnabled(!FPackage->IsEmpty());
}

void TFrPkgStrings::UpdateInfo()
{
    if (FPackage)
        StatusBar1->showMessage(QzQString(QzStringsStatusText(*FPackage, ActivePage())));
}

void TFrPkgStrings::UpdateFile()
{
    QzRunReportingErrors(this, [&] { QzMemorySaveFiles(*FPackage); });
}

void TFrPkgStrings::Modified()
{
    QzDesignerModified(QzMemoryDesignOwner(*FPackage));
}

void TFrPkgStrings::ContentsModified()
{
    ChangeState();
    if (FPackage->InitMode() != imFile)
        Modified();
}

void RegisterQzvtpkgstrings()
{
    QzSetEditorDialog(TQzEditorDialog::PkgStrings, [](TQzEditorDialogRequest& request) {
        auto* package = dynamic_cast<TQzPkgStrings*>(request.Package);
        if (!package)
            return 0;
        TFrPkgStrings form(QApplication::activeWindow());
        form.SetPackage(package);
        return form.Execute() == mrOk ? 1 : 0;
    });
}
