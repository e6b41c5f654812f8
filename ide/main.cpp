// qzide [PROJECT] [--screenshot FILE]: the form designer of the suite.

#include "designide/forms/QzIdeDesigner.h"
#include "ide/QzMainWindow.h"
#include "ide/QzPackageLoader.h"
#include "ide/QzPalette.h"

#include "runtime/components/QzComponentsReg.h"
#include "runtime/dialogs/QzStandardWindows.h"
#include "runtime/files/QzPkgFiles.h"
#include "runtime/system/QzSystemData.h"
#include "vcl/QzDialogs.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QTimer>

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("qzide"));
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("The QzControls form designer."));
    parser.addHelpOption();
    parser.addPositionalArgument(QStringLiteral("project"), QStringLiteral("A project file (.bpr) or folder to open."));
    QCommandLineOption screenshot(QStringLiteral("screenshot"), QStringLiteral("Save a picture of the window and quit."),
                                  QStringLiteral("file"));
    screenshot.setFlags(QCommandLineOption::HiddenFromHelp);
    QCommandLineOption selectOption(QStringLiteral("select"), QStringLiteral("Select a component by name."),
                                    QStringLiteral("name"));
    selectOption.setFlags(QCommandLineOption::HiddenFromHelp);
    QCommandLineOption formOption(QStringLiteral("form"), QStringLiteral("Show the form with this index."),
                                  QStringLiteral("index"));
    formOption.setFlags(QCommandLineOption::HiddenFromHelp);
    parser.addOption(screenshot);
    parser.addOption(selectOption);
    parser.addOption(formOption);
    parser.process(app);

    // The runtime's classes, its package file formats and the built-in
    // "System" data, before any form or package file is read.
    RegisterQzComponentClasses();
    RegisterQzPkgFileFormats();
    RegisterQzSystemData();
    RegisterQzStandardWindows();
    const TQzPackageLoad package = QzLoadDesignPackage(QApplication::applicationDirPath());

    TQzMainWindow window;
    window.Palette()->Refresh();
    window.show();
    if (!package.Loaded && parser.isSet(screenshot))
        window.ShowStatus(package.Error);
    else if (!package.Loaded)
        QzMessage(package.Error.toStdString() + "\nThe designer runs with the classes the runtime registers.", mtWarning,
                  {mbOK}, mbOK, &window);
    else
        window.ShowStatus(QStringLiteral("Loaded %1").arg(package.FileName));
    if (!parser.positionalArguments().isEmpty())
        window.OpenProject(parser.positionalArguments().front());
    if (parser.isSet(formOption))
        window.ShowForm(parser.value(formOption).toInt());
    if (parser.isSet(selectOption))
        if (TIdeDesigner* d = window.CurrentDesigner())
            if (TComponent* c = d->GetComponent(parser.value(selectOption).toStdString()))
                d->SelectComponent(c);
    if (parser.isSet(screenshot)) {
        const QString file = parser.value(screenshot);
        QTimer::singleShot(500, &window, [&window, file] {
            window.grab().save(file);
            QApplication::quit();
        });
    }
    return app.exec();
}
