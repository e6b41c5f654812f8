#include "design/images/Qzvtupdatesystemimages.h"

#include "runtime/model/QzApplication.h"
#include "runtime/util/QzPaths.h"
#include "vcl/QzDialogs.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"

#include <QFileInfo>

TFrUpdateSystemImages::TFrUpdateSystemImages(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    connect(BtBrowse, &QToolButton::clicked, this, &TFrUpdateSystemImages::BtBrowseClick);
    connect(BtOk, &QPushButton::clicked, this, &TFrUpdateSystemImages::BtOkClick);
    connect(BtCancel, &QPushButton::clicked, this, &TFrUpdateSystemImages::reject);
}

TModalResult TFrUpdateSystemImages::Execute()
{
    const TQzPkgDisplay* display = FApplication ? FApplication->PkgDisplay() : nullptr;
    AnsiString name = display ? display->LastUpdateFile() : AnsiString();
    if (name.empty())
        name = QzAddPathBar(QzGetInstallPath()) + "Standard.dis";
    Edit1->setText(QzQString(name));
    return ShowModal();
}

void TFrUpdateSystemImages::BtBrowseClick()
{
    TQzFileRequest request;
    request.Title = "Open";
    // The stray quote closing the filter is the suite's own; kept.
    request.Filter = "Display Files (*.dis)|*.dis|All Files (*.*)|*.*'";
    request.DefaultExt = "dis";
    request.FileName = QzAnsiString(Edit1->text());
    request.Parent = this;
    const AnsiString name = QzOpenFile(request);
    if (!name.empty())
        Edit1->setText(QzQString(QzInstallFileEntry(name, QzGetInstallPath())));
}

void TFrUpdateSystemImages::BtOkClick()
{
    const AnsiString name = QzAnsiString(Edit1->text());
    const bool done = QzRunReportingErrors(this, [&] {
        // A bare name is taken as it stands, from the current folder.
        if (name.empty() || !QFileInfo(QzQString(name)).isFile())
            throw Exception("Invalidate FileName");
        if (!FApplication)
            throw Exception("Component TQzCApplication not found");
        FApplication->UpdateSystemPkgDisplay(name, false);
    });
    if (done)
        accept();
}
