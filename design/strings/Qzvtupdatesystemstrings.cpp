#include "design/strings/Qzvtupdatesystemstrings.h"

#include "design/strings/QzPkgStringsLogic.h"
#include "runtime/model/QzApplication.h"
#include "runtime/util/QzPaths.h"
#include "vcl/QzDialogs.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"

TFrUpdateSystemStrings::TFrUpdateSystemStrings(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    connect(BtBrowse, &QToolButton::clicked, this, &TFrUpdateSystemStrings::BtBrowseClick);
    connect(BtOk, &QPushButton::clicked, this, &TFrUpdateSystemStrings::BtOkClick);
    connect(BtCancel, &QPushButton::clicked, this, &TFrUpdateSystemStrings::reject);
}

TModalResult TFrUpdateSystemStrings::Execute()
{
    const TQzPkgLanguage* language = FApplication ? FApplication->PkgLanguage() : nullptr;
    AnsiString name = language ? language->LastUpdateFile() : AnsiString();
    if (name.empty())
        name = QzBaseLanguageFileName;
    Edit1->setText(QzQString(name));
    return ShowModal();
}

void TFrUpdateSystemStrings::BtBrowseClick()
{
    TQzFileRequest request;
    request.Title = "Open";
    request.Filter = "Language Files (*.lan)|*.lan|All Files (*.*)|*.*";
    request.DefaultExt = "lan";
    request.InitialDir = QzGetInstallPath();
    request.Parent = this;
    const AnsiString name = QzOpenFile(request);
    if (!name.empty())
        Edit1->setText(QzQString(QzInstallFileEntry(name, QzGetInstallPath())));
}

void TFrUpdateSystemStrings::BtOkClick()
{
    const bool done = QzRunReportingErrors(this, [&] {
        const AnsiString file = QzSystemStringsFile(QzAnsiString(Edit1->text()), QzGetInstallPath());
        if (!FApplication)
            throw Exception("Component TQzCApplication not found");
        FApplication->UpdateSystemPkgLanguage(file, false);
    });
    if (done)
        accept();
}
