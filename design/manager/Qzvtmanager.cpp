#include "design/manager/Qzvtmanager.h"

#include "design/manager/Qzvtmanagerpkgs.h"
#include "design/manager/Qzvtmanagerprogress.h"
#include "design/manager/Qzvtmanagerrepl.h"

#include "designide/ProjectServices.h"
#include "runtime/util/QzDesigner.h"
#include "vcl/QzDialogs.h"
#include "vcl/QzIdEdit.h"
#include "vcl/QzListModel.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"
#include "vcl/QzWindowBounds.h"

#include <QAction>

namespace {

// The manager keeps its size and place in the designer between openings.
TQzResizeInfoDesigner ManagerBounds;

constexpr int TextColumn = 1;

}  // namespace

TFrManager::TFrManager(TProjectServices& project, IQzManagerPackages& packages, QWidget* parent)
    : TQzDialog(parent), FProject(project), FPackages(packages)
{
    setupUi(this);
    RememberBounds(&ManagerBounds);
    FProgress = new TFrManagerProgress(this);
    FLogic = std::make_unique<TQzManagerLogic>(project, packages, FProgress);
    FLogic->OpenFormsWhileScanning = true;
    FLogic->OnFormChanged = [this](const AnsiString& file, TComponent* root) { FormChanged(file, root); };

    TQzRowProvider rows;
    rows.RowCount = [this] { return static_cast<int>(FRows.size()); };
    rows.Text = [this](int row, int) { return QzQString(FRows[static_cast<std::size_t>(row)].Text); };
    rows.TextColor = [this](int row, int) {
        return FRows[static_cast<std::size_t>(row)].Exists ? QColor() : QColor(Qt::red);
    };
    QList<TQzListColumn> columns;
    columns.append(TQzListColumn{{}, TQzColumnKind::Check, {}, 22, Qt::AlignCenter, false});
    columns.append(TQzListColumn{{}, TQzColumnKind::Text, {}, 0, Qt::AlignLeft | Qt::AlignVCenter, false});
    FHits = new TQzCheckListModel(columns, rows, this);
    clb->SetSortable(false);
    clb->SetSearchColumn(TextColumn);
    clb->SetListModel(FHits);
    clb->setContextMenuPolicy(Qt::ActionsContextMenu);
    const auto command = [this](const QString& caption, auto run) {
        auto* action = new QAction(caption, clb);
        connect(action, &QAction::triggered, this, run);
        clb->addAction(action);
    };
    command(tr("Check &All"), [this] { FHits->CheckAll(); });
    command(tr("&Uncheck All"), [this] { FHits->CheckNone(); });
    command(tr("&Invert Checks"), [this] { FHits->InvertChecks(); });
    auto* separator = new QAction(clb);
    separator->setSeparator(true);
    clb->addAction(separator);
    auto* checkFound = new QAction(tr("Check &Found Rows"), clb);
    checkFound->setObjectName(QStringLiteral("MnCheckFound"));
    checkFound->setCheckable(true);
    checkFound->setChecked(FCheckAll);
    connect(checkFound, &QAction::toggled, this, [this](bool on) { FCheckAll = on; });
    clb->addAction(checkFound);

    connect(FHits, &TQzCheckListModel::ChecksChanged, this, [this] { clbClickCheck(); });
    connect(clb, &TQzListView::CurrentRowChanged, this, [this] { clbClick(); });
    connect(BtScan, &QPushButton::clicked, this, [this] { BtScanClick(); });
    connect(BtReplace, &QPushButton::clicked, this, [this] { BtReplaceClick(); });
    connect(BtClear, &QPushButton::clicked, this, [this] { BtClearClick(); });
    connect(BtCounter, &QPushButton::clicked, this, [this] { BtCounterClick(); });
    QzSetModalResult(BtOk, mrOk);
    // Enter in the search boxes scans.
    connect(EdId, &QLineEdit::returnPressed, this, [this] { BtScanClick(); });
    UpdateInfo();
}

TFrManager::~TFrManager()
{
    // The progress window is a child; the logic reports to it until here.
    FLogic.reset();
    ClearListBox();
}

TModalResult TFrManager::Execute(TQzDlgManager kind, const AnsiString& pkgName, const AnsiString& value)
{
    SetKind(kind);
    // Without a package the first active one is offered.
    if (QzDlgManagerUsesPackage(kind) && !pkgName.empty())
        EdPkg->setCurrentText(QzQString(pkgName));
    EdId->setText(QzQString(value));
    return ShowModal();
}

void TFrManager::SetKind(TQzDlgManager kind)
{
    FKind = kind;
    setWindowTitle(QStringLiteral("Packages Manager (%1)").arg(QString::fromLatin1(QzDlgManagerName(kind))));
    const bool set = QzDlgManagerIsSet(kind);
    LabId->setText(set ? tr("Name:") : tr("Id:"));
    if (!set)
        QzMakeIdEdit(EdId);
    EdPkg->clear();
    for (const AnsiString& name : FPackages.PackageNames(kind))
        EdPkg->addItem(QzQString(name));
    const bool usesPackage = QzDlgManagerUsesPackage(kind);
    LabPkg->setEnabled(usesPackage);
    EdPkg->setEnabled(usesPackage);
    ClearListBox();
}

void TFrManager::BtScanClick()
{
    const AnsiString pkgName = QzDlgManagerUsesPackage(FKind) ? QzAnsiString(EdPkg->currentText().trimmed()) : "";
    const AnsiString value = QzAnsiString(EdId->text().trimmed());
    if (const AnsiString problem = QzCheckSearchInput(FKind, pkgName, value); !problem.empty()) {
        QzMessage(problem, mtWarning, {mbOK}, mbOK, this);
        return;
    }
    ClearListBox();
    sb->showMessage(tr("Scanning"));
    std::vector<TQzTokenRec2> rows;
    QzRunReportingErrors(this, [&] {
        for (TQzTokenRec1& hit : FLogic->Scan(FKind, pkgName, value)) {
            TQzTokenRec2 row;
            static_cast<TQzTokenRec1&>(row) = std::move(hit);
            rows.push_back(std::move(row));
        }
    });
    ShowRows(std::move(rows), TQzManagerRun::Scan);
}

void TFrManager::BtCounterClick()
{
    std::vector<AnsiString> packages;
    if (QzDlgManagerUsesPackage(FKind)) {
        TFrManagerPkgs choose(this);
        if (choose.Execute(FLogic->CountPackages(FKind)) != mrOk)
            return;
        packages = choose.Selected();
    }
    ClearListBox();
    sb->showMessage(tr("Counting"));
    std::vector<TQzTokenRec2> rows;
    QzRunReportingErrors(this, [&] { rows = FLogic->Count(FKind, packages); });
    ShowRows(std::move(rows), TQzManagerRun::Count);
}

void TFrManager::BtReplaceClick()
{
    const std::vector<const TQzTokenRec1*> hits = CheckedHits();
    if (hits.empty())
        return;
    TFrManagerRepl repl(FKind, FPackages.PackageNames(FKind), this);
    if (repl.Execute(QzAnsiString(EdPkg->currentText().trimmed()), QzAnsiString(EdId->text().trimmed())) != mrOk)
        return;
    int changed = 0;
    QzRunReportingErrors(this, [&] { changed = FLogic->Replace(hits, repl.PkgName(), repl.Value()); });
    ReportChanges(changed);
}

void TFrManager::BtClearClick()
{
    const std::vector<const TQzTokenRec1*> hits = CheckedHits();
    if (hits.empty())
        return;
    if (QzMessage("Do you wish to clear the definition of these elements?", mtConfirmation, mbYesNo, mbNo, this) !=
        mrYes)
        return;
    int changed = 0;
    QzRunReportingErrors(this, [&] { changed = FLogic->Clear(hits); });
    ReportChanges(changed);
}

void TFrManager::ReportChanges(int changed)
{
    for (const AnsiString& failure : FLogic->Failures())
        QzMessage(failure, mtError, {mbOK}, mbOK, this);
    QzMessage(QzLinesText(changed), mtInformation, {mbOK}, mbOK, this);
    // The rows describe the forms as they were.
    ClearListBox();
    UpdateInfo();
}

void TFrManager::FormChanged(const AnsiString& formFile, TComponent* root)
{
    if (IDesigner* designer = FindDesigner(formFile))
        designer->Modified();
    // The host records the run's changes to the form as one step.
    QzDesignerModified(root);
}

IDesigner* TFrManager::FindDesigner(const AnsiString& formFile) const
{
    auto* folder = dynamic_cast<TFolderProject*>(&FProject);
    if (!folder)
        return nullptr;
    const AnsiString onDisk = folder->FindFormFile(formFile);
    return folder->Designers().FindDesigner(onDisk.empty() ? formFile : onDisk);
}

void TFrManager::clbClick()
{
    const int row = clb->CurrentSourceRow();
    if (row < 0 || row >= static_cast<int>(FRows.size()))
        return;
    const TQzTokenRec2& hit = FRows[static_cast<std::size_t>(row)];
    if (hit.Source != TQzHitSource::Form || hit.ObjectName.empty())
        return;
    IDesigner* designer = FindDesigner(hit.FileName);
    if (TComponent* component = designer ? designer->GetComponent(hit.ObjectName) : nullptr)
        designer->SetSelections({component});
}

void TFrManager::clbClickCheck()
{
    UpdateButtons();
    UpdateInfo();
}

void TFrManager::UpdateInfo()
{
    sb->showMessage(QStringLiteral("Found: %1 Selected: %2").arg(FRows.size()).arg(FHits->CheckedCount()));
}

void TFrManager::UpdateButtons()
{
    const bool checked = FHits->CheckedCount() > 0;
    BtReplace->setEnabled(checked);
    BtClear->setEnabled(checked);
}

void TFrManager::ClearListBox()
{
    FRows.clear();
    FLastRun = TQzManagerRun::None;
    if (FHits) {
        FHits->Reload();
        UpdateButtons();
    }
}

void TFrManager::ShowRows(std::vector<TQzTokenRec2> rows, TQzManagerRun run)
{
    FRows = std::move(rows);
    FLastRun = run;
    FHits->Reload();
    if (FCheckAll)
        FHits->CheckAll();
    UpdateButtons();
    UpdateInfo();
}

std::vector<const TQzTokenRec1*> TFrManager::CheckedHits() const
{
    std::vector<const TQzTokenRec1*> hits;
    for (int row : FHits->CheckedRows())
        hits.push_back(&FRows[static_cast<std::size_t>(row)]);
    return hits;
}
