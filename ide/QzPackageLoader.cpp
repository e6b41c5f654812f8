#include "ide/QzPackageLoader.h"

#include "rtl/SysUtils.h"

#include <QDir>
#include <QFileInfo>
#include <QLibrary>

namespace {
const char* const PackageFile = "dclQzCtrls_c6.so";
const char* const EntryName = "QzDesignPackageRegister";
}

QStringList QzDesignPackageCandidates(const QString& programDir)
{
    const QDir dir(programDir);
    return {dir.filePath(PackageFile), dir.filePath(QStringLiteral("../design/") + PackageFile),
            dir.filePath(QStringLiteral("../lib/") + PackageFile)};
}

TQzPackageLoad QzLoadDesignPackage(const QString& programDir)
{
    static TQzPackageLoad done;
    if (done.Loaded)
        return done;
    TQzPackageLoad result;
    for (const QString& candidate : QzDesignPackageCandidates(programDir)) {
        if (!QFileInfo::exists(candidate))
            continue;
        result.FileName = QFileInfo(candidate).canonicalFilePath();
        // The library stays loaded for the life of the program: its classes
        // and editors are in the registry from now on.
        QLibrary library(result.FileName);
        // Every symbol now: a package built against other libraries fails here
        // with a message instead of when its Register runs.
        library.setLoadHints(QLibrary::ResolveAllSymbolsHint);
        if (!library.load()) {
            result.Error = QStringLiteral("The design package %1 could not be loaded: %2")
                               .arg(result.FileName, library.errorString());
            return result;
        }
        auto entry = reinterpret_cast<void (*)()>(library.resolve(EntryName));
        if (!entry) {
            result.Error = QStringLiteral("The design package %1 has no entry %2.").arg(result.FileName, EntryName);
            return result;
        }
        try {
            entry();
        } catch (const Exception& e) {
            result.Error = QStringLiteral("The design package %1 failed to register: %2")
                               .arg(result.FileName, QString::fromStdString(e.Message()));
            return result;
        }
        result.Loaded = true;
        done = result;
        return result;
    }
    result.Error = QStringLiteral("The design package %1 was not found beside the program.").arg(PackageFile);
    return result;
}
