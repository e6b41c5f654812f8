#pragma once
// Loading the design package: the plug-in dclQzCtrls_c6 is looked for
// beside the program, then in the build tree's design folder, and its
// entry QzDesignPackageRegister is called once.

#include <QString>
#include <QStringList>

struct TQzPackageLoad {
    bool Loaded = false;
    QString FileName;   // the plug-in that was loaded (or tried last)
    QString Error;      // why it was not, for the user
};

// Where the plug-in may be, in the order they are tried.
QStringList QzDesignPackageCandidates(const QString& programDir);
// Loads the first candidate that exists and calls its Register; loading
// twice does nothing the second time.
TQzPackageLoad QzLoadDesignPackage(const QString& programDir);
