#include "support/gui/QzTestApp.h"

#include <QApplication>

QApplication& QzTestApplication()
{
    static int argc = 1;
    static char name[] = "qz-tests";
    static char* argv[] = {name, nullptr};
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Never destroyed: QtTest keeps static input devices that must not
    // outlive the application, and static destruction order cannot say so.
    static QApplication* application = new QApplication(argc, argv);
    return *application;
}
