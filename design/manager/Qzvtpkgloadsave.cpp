#include "design/manager/Qzvtpkgloadsave.h"

#include "runtime/util/QzPaths.h"
#include "vcl/QzDialogs.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"

#include <QApplication>

namespace {

constexpr int ModeDFM = 0;
constexpr int ModeFile = 1;

}  // namespace

TFrPkgLoadSave::TFrPkgLoadSave(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    QzSetModalResult(BtCancel, mrCancel);
    connect(BtOk, &QPushButton::clicked, this, &TFrPkgLoadSave::accept);
    connect(BtSearch, &QPushButton::clicked, this, &TFrPkgLoadSave::BtSearchClick);
    connect(FileList, &QListWidget::currentItemChanged, this, &TFrPkgLoadSave::FileListChange);
    connect(FileList, &QListWidget::itemDoubleClicked, this, &TFrPkgLoadSave::accept);
}

TModalResult TFrPkgLoadSave::Execute()
{
    if (!FPackage)
        return mrNone;
    setWindowTitle(QzQString(QzPkgLoadSaveTitle(*FPackage, FDirection)));
    FFolder = QzPkgListFolder(*FPackage);
    LbAppPath->setText(QzQString(FFolder));
    FillFileList();

    const bool inFile = FPackage->InitMode() == imFile;
    EdInitMode->setCurrentIndex(inFile ? ModeFile : ModeDFM);
    if (inFile) {
        EdFileName->setText(QzQString(FPackage->FileName()));
        EdDescription->setText(QzQString(FPackage->Description()));
    }

    const TQzPkgKeyRow keyRow = QzPkgLoadSaveKeyRow(*FPackage, FDirection);
    LbKey->setVisible(keyRow != TQzPkgKeyRow::Hidden);
    EdKey->setVisible(keyRow != TQzPkgKeyRow::Hidden);
    if (keyRow == TQzPkgKeyRow::LastUpdateFile) {
        LbKey->setText("LastUpdateFile:");
        PaintAsButtonFace(EdKey);
    }
    if (keyRow != TQzPkgKeyRow::Hidden)
        EdKey->setText(QzQString(QzPkgKeyValue(*FPackage)));
    if (keyRow == TQzPkgKeyRow::Key)
        EdKey->setFocus();

    if (!FShowInitMode) {
        // The rows below move up and the window shrinks by what they freed.
        const int freed = std::max(EdInitMode->sizeHint().height(), LbInitMode->sizeHint().height()) +
                          std::max(MainLayout->verticalSpacing(), 0);
        LbInitMode->hide();
        EdInitMode->hide();
        resize(width(), height() - freed);
    }
    if (FDirection == TQzLoadSave::Load) {
        // It only shows what the chosen file holds.
        EdDescription->setReadOnly(true);
        EdDescription->setFocusPolicy(Qt::ClickFocus);
        PaintAsButtonFace(EdDescription);
    }
    return ShowModal();
}

void TFrPkgLoadSave::PaintAsButtonFace(QWidget* edit)
{
    QPalette palette = edit->palette();
    palette.setColor(QPalette::Base, palette.color(QPalette::Button));
    edit->setPalette(palette);
}

void TFrPkgLoadSave::FillFileList()
{
    const QSignalBlocker block(FileList);
    FileList->clear();
    for (const AnsiString& name : QzPkgListFiles(*FPackage, FFolder))
        FileList->addItem(QzQString(name));
}

TQzRegisterInitMode TFrPkgLoadSave::ChosenMode() const
{
    return EdInitMode->currentIndex() == ModeFile ? imFile : imDFM;
}

void TFrPkgLoadSave::FileListChange()
{
    if (const QListWidgetItem* item = FileList->currentItem())
        ShowFile(QzPkgShortFileName(*FPackage, FFolder + QzAnsiString(item->text())));
}

void TFrPkgLoadSave::ShowFile(const AnsiString& fileName)
{
    EdFileName->setText(QzQString(fileName));
    AnsiString description;
    try {
        description = QzReadPkgDescription(*FPackage, fileName);
    } catch (const Exception&) {
        // Nothing to show; Ok says what is wrong with the file.
    }
    EdDescription->setText(QzQString(description));
}

void TFrPkgLoadSave::BtSearchClick()
{
    TQzFileRequest request;
    request.Title = "Open";
    request.Filter = QzPkgSearchFilter(*FPackage);
    request.DefaultExt = "dis";
    request.InitialDir = FFolder;
    request.FileMustExist = true;
    request.Parent = this;
    const AnsiString chosen = QzOpenFile(request);
    if (chosen.empty())
        return;
    const AnsiString name = QzPkgShortFileName(*FPackage, chosen);
    const QList<QListWidgetItem*> listed = FileList->findItems(QzQString(ExtractFileName(chosen)), Qt::MatchExactly);
    {
        const QSignalBlocker block(FileList);
        FileList->setCurrentItem(name != chosen && !listed.isEmpty() ? listed.first() : nullptr);
    }
    ShowFile(name);
}

bool TFrPkgLoadSave::FormCloseQuery()
{
    const AnsiString fileName = Trim(QzAnsiString(EdFileName->text()));
    const TQzLoadSaveCheck check = QzPkgLoadSaveCheck(*FPackage, FDirection, ChosenMode(), fileName);
    switch (check.Action) {
    case TQzLoadSaveCheck::Missing:
    case TQzLoadSaveCheck::NoName:
        QzMessage(check.Message, mtWarning, {mbOK}, mbOK, this);
        EdFileName->setFocus();
        return false;
    case TQzLoadSaveCheck::Confirm:
        if (QzMessage(check.Message, mtConfirmation, mbYesNo, mbYes, this) != mrYes)
            return false;
        break;
    case TQzLoadSaveCheck::Run:
        break;
    }
    TQzLoadSaveValues values;
    values.Mode = ChosenMode();
    values.FileName = fileName;
    values.Description = QzAnsiString(EdDescription->text());
    values.KeyValue = QzAnsiString(EdKey->text());
    return QzRunReportingErrors(this, [&] { QzPkgLoadSaveRun(*FPackage, FDirection, values); });
}

void TFrPkgLoadSave::accept()
{
    if (FormCloseQuery())
        TQzDialog::accept();
}

bool QzExecutePkgLoadSave(TQzPkgInfo* pkg, TQzLoadSave direction, QWidget* parent, bool showInitMode)
{
    if (!pkg)
        return false;
    TFrPkgLoadSave form(parent ? parent : QApplication::activeWindow());
    form.SetPackage(pkg);
    form.SetDirection(direction);
    form.SetShowInitMode(showInitMode);
    return form.Execute() == mrOk;
}

TQzFileRequest QzPkgFileRequest(const TQzPkgInfo& pkg, const AnsiString& kindCaption, const AnsiString& title,
                                QWidget* parent)
{
    const AnsiString mask = "*" + QzAddPointExt(pkg.DefaultExt());
    TQzFileRequest request;
    request.Title = title;
    request.Filter = kindCaption + " (" + mask + ")|" + mask + "|All files (*.*)|*.*";
    request.DefaultExt = pkg.DefaultExt();
    request.Parent = parent;
    return request;
}
