#include "design/strings/Qzvtopenfiles.h"

#include "runtime/util/QzPaths.h"
#include "vcl/QzDialogs.h"
#include "vcl/QzQtString.h"

#include <QDir>

TFrOpenFiles::TFrOpenFiles(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    connect(BtOk, &QPushButton::clicked, this, &TFrOpenFiles::accept);
    QzSetModalResult(BtCancel, mrCancel);
    connect(SBFolder, &QToolButton::clicked, this, [this] { SBFolderClick(); });
    connect(EdFolder, &QLineEdit::editingFinished, this, [this] { FillList(); });
    connect(FileList, &QListWidget::currentTextChanged, this, [this] { FileListChange(); });
    connect(FileList, &QListWidget::itemDoubleClicked, this, [this] { accept(); });
}

TModalResult TFrOpenFiles::Execute(const AnsiString& folder, const AnsiString& mask)
{
    FMask = mask;
    FFileName.clear();
    LabMask->setText(QzQString("(" + mask + ")"));
    EdFolder->setText(QzQString(QzAddPathBar(folder)));
    FillList();
    return ShowModal();
}

void TFrOpenFiles::FillList()
{
    FileList->clear();
    const QDir dir(EdFolder->text());
    const QStringList names =
        dir.entryList({QzQString(FMask)}, QDir::Files | QDir::Readable, QDir::Name | QDir::IgnoreCase);
    FileList->addItems(names);
}

void TFrOpenFiles::SBFolderClick()
{
    const AnsiString folder = QzDialogs().SelectFolder("Folder", QzAnsiString(EdFolder->text()), this);
    if (folder.empty())
        return;
    EdFolder->setText(QzQString(QzAddPathBar(folder)));
    FillList();
}

void TFrOpenFiles::FileListChange()
{
    if (FileList->currentItem() != nullptr)
        EdFileName->setText(FileList->currentItem()->text());
}

void TFrOpenFiles::accept()
{
    AnsiString name = Trim(QzAnsiString(EdFileName->text()));
    if (name.empty()) {
        EdFileName->setFocus();
        return;
    }
    // A name typed without its extension gets the one the mask asks for.
    const AnsiString maskExt = ExtractFileExt(FMask);
    if (ExtractFileExt(name).empty() && maskExt != ".*")
        name += maskExt;
    const bool hasFolder = name.find_first_of("/\\") != AnsiString::npos;
    FFileName = hasFolder ? ExpandFileName(name) : QzAddPathBar(QzAnsiString(EdFolder->text())) + name;
    TQzDialog::accept();
}
