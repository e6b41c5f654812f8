#pragma once
// Loading the design package: the plug-in dclQzCtrls_c6 is looked for
// beside the program, in the build tree's design folder and where the
// install rules put it; its interface version is checked against the
// host's, then its Register runs once.

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
// Loads the plug-in fileName: refused, with the reason in Error, when it
// cannot be loaded or was built for another interface version than the
// host's; otherwise its Register runs.
TQzPackageLoad QzLoadDesignPackageFile(const QString& fileName);
// The message refusing the plug-in fileName built for packageVersion by a
// host of hostVersion; empty when the two match.
QString QzPackageVersionError(const QString& fileName, int packageVersion, int hostVersion);
