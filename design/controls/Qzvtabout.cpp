#include "design/controls/Qzvtabout.h"

#include "design/reg/QzEditorDialogs.h"

#include "runtime/components/QzPaletteBitmaps.h"
#include "vcl/QzQtString.h"

#include <QApplication>
#include <QPixmap>

#ifndef QZ_PACKAGE_VERSION
#error "the build passes the package's version"
#endif

const TQzAboutInfo& QzAboutInfo()
{
    static const TQzAboutInfo info = {
        "QzControls Component Suite",
        QZ_PACKAGE_VERSION,
        "Design package dclQzCtrls_c6, for the runtime package QzCtrls_c6",
        "The design package is licensed to the developer who installed it, for designing the forms and "
        "packages of applications built with the QzControls Component Suite.\n\n"
        "Applications may ship the runtime package QzCtrls_c6 and the package files made with these tools. "
        "The design package, the designer and the command line stay with the developer and are not "
        "shipped with the applications.\n\n"
        "The software is provided as it is, without warranty of any kind.",
    };
    return info;
}

TFrAbout::TFrAbout(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    const TQzAboutInfo& info = QzAboutInfo();
    const QImage logo = QzPaletteBitmap("TQzCApplication");
    if (!logo.isNull())
        ImgLogo->setPixmap(QPixmap::fromImage(logo).scaled(48, 48, Qt::KeepAspectRatio, Qt::FastTransformation));
    QFont font = LabName->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.4);
    LabName->setFont(font);
    LabName->setText(QzQString(info.Name));
    LabVersion->setText(QStringLiteral("Version ") + QzQString(info.Version));
    LabPackages->setText(QzQString(info.Packages));
    LabPlatform->setText(QStringLiteral("Built with Qt %1, running on Qt %2").arg(QT_VERSION_STR, qVersion()));
    MemLicence->setPlainText(QzQString(info.Licence));
    connect(BtOk, &QPushButton::clicked, this, &TFrAbout::accept);
}

void RegisterQzvtabout()
{
    QzSetEditorDialog(TQzEditorDialog::About, [](TQzEditorDialogRequest&) {
        TFrAbout form(QApplication::activeWindow());
        return form.Execute() == mrOk ? 1 : 0;
    });
}
