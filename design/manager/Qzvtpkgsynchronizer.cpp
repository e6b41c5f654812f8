#include "design/manager/Qzvtpkgsynchronizer.h"

#include "runtime/model/QzApplication.h"
#include "runtime/model/QzPkgInfo.h"
#include "runtime/util/QzDesigner.h"
#include "runtime/util/QzPaths.h"

#include "vcl/QzDialogs.h"
#include "vcl/QzQtString.h"
#include "vcl/QzWindowBounds.h"

#include <QDir>

#include <algorithm>

namespace {

// Where the window was last closed, for as long as the package is loaded.
TQzResizeInfoDesigner ResizeInfo;

// The open dialog's filter for files of pkg's kind.
AnsiString FilterOf(const TQzPkgInfo& pkg)
{
    const AnsiString ext = pkg.DefaultExt();
    AnsiString name = "Package " + pkg.KindName().substr(3) + " (*." + ext + ")";
    if (ext == "dis")
        name = "Display Files (*.dis)";
    else if (ext == "lan")
        name = "Language Files (*.lan)";
    return name + "|*." + ext + "|All Files (*.*)|*.*";
}

AnsiString DefaultPathApp()
{
    TQzCApplication* app = QzCApp();
    if (app && !Trim(app->Path()).empty())
        return QzAddPathBar(app->Path());
    return QzAppPath();
}

} // namespace

TFrPkgSynchronizer::TFrPkgSynchronizer(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    RememberBounds(&ResizeInfo);
    SetPathApp(DefaultPathApp());
    connect(SBFrom, &QToolButton::clicked, this, [this] { SBFromClick(); });
    connect(SBTo, &QToolButton::clicked, this, [this] { SBToClick(); });
    connect(SBSearch, &QPushButton::clicked, this, [this] { SBSearchClick(); });
    connect(BtAppend, &QToolButton::clicked, this, [this] { BtAppendClick(); });
    connect(BtDelete, &QToolButton::clicked, this, [this] { BtDeleteClick(); });
    connect(BtAppendAll, &QToolButton::clicked, this, [this] { BtAppendAllClick(); });
    connect(BtDeleteAll, &QToolButton::clicked, this, [this] { BtDeleteAllClick(); });
    connect(FileList, &QListWidget::itemDoubleClicked, this, [this] { BtAppendClick(); });
    connect(ListBox, &QListWidget::itemDoubleClicked, this, [this] { BtDeleteClick(); });
    connect(BtApply, &QPushButton::clicked, this, [this] { BtApplyClick(); });
    connect(BtOk, &QPushButton::clicked, this, [this] { BtOkClick(); });
    QzSetModalResult(BtCancel, mrCancel);
    connect(EdPkgFileName, &QLineEdit::textChanged, this, [this] {
        LabFileMaster->setText(EdPkgFileName->text());
        SettingsChanged();
    });
    for (QCheckBox* box : {CBAddItems, CBDeleteItems, CBSyncSystem, CBSyncUser, CBSyncSets})
        connect(box, &QCheckBox::toggled, this, [this] { SettingsChanged(); });
}

void TFrPkgSynchronizer::SetPathApp(const AnsiString& folder)
{
    FPathApp = QzAddPathBar(folder);
    LabPathApp->setText(QzQString(FPathApp));
    FillFileList();
}

TModalResult TFrPkgSynchronizer::Execute(TQzPkgInfo* pkg)
{
    if (!QzCanSynchronize(pkg))
        throw EQzPkgError("The synchronizer works on strings, images, display and language packages");
    FPackage = pkg;
    FWritten = false;
    const bool language = pkg->DefaultExt() == "lan";
    const bool display = pkg->DefaultExt() == "dis";
    CBSyncSystem->setEnabled(language || display);
    CBSyncUser->setEnabled(language || display);
    CBSyncSets->setEnabled(display);
    const AnsiString name = pkg->PkgName().empty() ? pkg->Name() : pkg->PkgName();
    LabFrom->setText(QzQString("Synchronize from " + name));
    FillFileList();
    ListBox->clear();
    SBToClick();
    FPending = false;
    ChangeState();
    return ShowModal();
}

void TFrPkgSynchronizer::FillFileList()
{
    FileList->clear();
    if (!FPackage)
        return;
    const QStringList names = QDir(QzQString(FPathApp))
                                  .entryList({QzQString("*." + FPackage->DefaultExt())}, QDir::Files, QDir::Name);
    FileList->addItems(names);
}

void TFrPkgSynchronizer::SBFromClick()
{
    SBFrom->setChecked(true);
    PageControl->setCurrentWidget(TS1);
    LabFileMaster->setText(EdPkgFileName->text());
    SettingsChanged();
}

void TFrPkgSynchronizer::SBToClick()
{
    SBTo->setChecked(true);
    PageControl->setCurrentWidget(TS2);
    AnsiString master = FPackage ? FPackage->FileName() : AnsiString();
    if (master.empty() && FPackage)
        master = FPackage->PkgName().empty() ? FPackage->Name() : FPackage->PkgName();
    LabFileMaster->setText(QzQString(master));
    SettingsChanged();
}

void TFrPkgSynchronizer::SBSearchClick()
{
    if (!FPackage)
        return;
    TQzFileRequest request;
    request.Filter = FilterOf(*FPackage);
    request.DefaultExt = FPackage->DefaultExt();
    request.InitialDir = FPathApp;
    request.Parent = this;
    const AnsiString file = QzOpenFile(request);
    if (!file.empty())
        EdPkgFileName->setText(QzQString(file));
}

void TFrPkgSynchronizer::MoveItems(QListWidget* from, QListWidget* to, bool all)
{
    for (int i = 0; i < from->count(); ++i) {
        QListWidgetItem* item = from->item(i);
        if (!all && !item->isSelected())
            continue;
        if (to->findItems(item->text(), Qt::MatchExactly).isEmpty())
            to->addItem(item->text());
    }
}

void TFrPkgSynchronizer::BtAppendClick()
{
    MoveItems(FileList, ListBox, false);
    SettingsChanged();
}

void TFrPkgSynchronizer::BtDeleteClick()
{
    qDeleteAll(ListBox->selectedItems());
    SettingsChanged();
}

void TFrPkgSynchronizer::BtAppendAllClick()
{
    MoveItems(FileList, ListBox, true);
    SettingsChanged();
}

void TFrPkgSynchronizer::BtDeleteAllClick()
{
    ListBox->clear();
    SettingsChanged();
}

TQzSyncOptions TFrPkgSynchronizer::Options() const
{
    TQzSyncOptions options;
    options.AddItems = CBAddItems->isChecked();
    options.DeleteItems = CBDeleteItems->isChecked();
    options.SyncSystem = CBSyncSystem->isChecked();
    options.SyncUser = CBSyncUser->isChecked();
    options.SyncSets = CBSyncSets->isChecked();
    return options;
}

void TFrPkgSynchronizer::SettingsChanged()
{
    FPending = true;
    ChangeState();
}

void TFrPkgSynchronizer::ChangeState()
{
    const bool ready = FPackage && (IsTo() ? ListBox->count() > 0 : !EdPkgFileName->text().trimmed().isEmpty());
    BtApply->setEnabled(FPending && ready);
    BtDelete->setEnabled(ListBox->count() > 0);
    BtDeleteAll->setEnabled(ListBox->count() > 0);
    BtAppend->setEnabled(FileList->count() > 0);
    BtAppendAll->setEnabled(FileList->count() > 0);
}

bool TFrPkgSynchronizer::Synchronize()
{
    ProgressBar->setValue(0);
    try {
        if (IsTo()) {
            std::vector<AnsiString> files;
            for (int i = 0; i < ListBox->count(); ++i)
                files.push_back(QzAnsiString(ListBox->item(i)->text()));
            try {
                QzSynchronizeTo(*FPackage, FPathApp, files, Options(), this);
            } catch (const EQzSyncError& e) {
                FWritten = FWritten || !e.Written().empty();
                throw;
            }
            FWritten = true;
        } else {
            const TQzSyncCounts counts = QzSynchronizeFrom(*FPackage, MasterFile(), Options(), this);
            if (counts.Added || counts.Deleted) {
                FWritten = true;
                QzDesignerModified(FPackage->Owner());
            }
        }
    } catch (const Exception& e) {
        QzMessage(e.Message(), mtError, {mbOK}, mbOK, this);
        return false;
    }
    return true;
}

AnsiString TFrPkgSynchronizer::MasterFile() const
{
    // A name typed without a folder is one of the folder's files, as
    // those listed on the other page are.
    AnsiString name = QzAnsiString(EdPkgFileName->text().trimmed());
    if (ExtractFileExt(name).empty())
        name += "." + FPackage->DefaultExt();
    return name[0] == '/' ? name : FPathApp + name;
}

bool TFrPkgSynchronizer::BtApplyClick()
{
    if (!BtApply->isEnabled())
        return true;
    const bool done = Synchronize();
    // A failed run is not applied: the files before the failing one are
    // written, but the one that failed and those after it are not.
    FPending = !done;
    ChangeState();
    return done;
}

void TFrPkgSynchronizer::BtOkClick()
{
    if (BtApply->isEnabled() && !BtApplyClick())
        return;
    SetModalResult(mrOk);
}

void TFrPkgSynchronizer::SyncBegin(int total)
{
    FPosition = 0;
    ProgressBar->setMaximum(total > 0 ? total : 100);
    ProgressBar->setValue(0);
}

void TFrPkgSynchronizer::SyncStep()
{
    // Repainting the bar for each of a hundred thousand items would cost
    // more than the items themselves: it moves once per hundredth.
    ++FPosition;
    const int max = ProgressBar->maximum();
    if (FPosition == max || FPosition % std::max(1, max / 100) == 0)
        ProgressBar->setValue(FPosition);
}

int QzExecutePkgSynchronizer(TQzPkgInfo* pkg, QWidget* parent)
{
    TFrPkgSynchronizer form(parent);
    form.Execute(pkg);
    return form.Written() ? 1 : 0;
}
