#include "ide/QzPackageLoader.h"

#include "vcl/QzQtString.h"

#include "designide/QzPackageInterface.h"

#include "rtl/SysUtils.h"

#include <QDir>
#include <QFileInfo>
#include <QLibrary>

namespace {
const char* const PackageFile = "dclQzCtrls_c6.so";

TQzPackageLoad Refused(const QString& fileName, const QString& error)
{
    return {false, fileName, error};
}
}  // namespace

QStringList QzDesignPackageCandidates(const QString& programDir)
{
    const QDir dir(programDir);
    return {dir.filePath(PackageFile), dir.filePath(QStringLiteral("../design/") + PackageFile),
            dir.filePath(QStringLiteral(QZ_PLUGIN_FROM_BIN "/") + PackageFile)};
}

QString QzPackageVersionError(const QString& fileName, int packageVersion, int hostVersion)
{
    if (packageVersion == hostVersion)
        return {};
    return QStringLiteral("The design package %1 was built for version %2 of the designer interfaces; "
                          "this designer has version %3. Rebuild the package against this designer.")
        .arg(fileName)
        .arg(packageVersion)
        .arg(hostVersion);
}

TQzPackageLoad QzLoadDesignPackageFile(const QString& fileName)
{
    // The library stays loaded for the life of the program: its classes
    // and editors are in the registry from now on.
    QLibrary library(fileName);
    // Every symbol now: a package built against other libraries fails here
    // with a message instead of when its Register runs.
    library.setLoadHints(QLibrary::ResolveAllSymbolsHint);
    if (!library.load())
        return Refused(fileName, QStringLiteral("The design package %1 could not be loaded: %2")
                                     .arg(fileName, library.errorString()));
    // Its version before any of its code runs: a package whose symbols all
    // resolve may still read the host's records with another layout.
    const auto* version = reinterpret_cast<const int*>(library.resolve(QzPackageVersionSymbol));
    if (!version)
        return Refused(fileName, QStringLiteral("The design package %1 does not say which version of the "
                                                "designer interfaces it was built for (no %2).")
                                     .arg(fileName, QzPackageVersionSymbol));
    if (QString error = QzPackageVersionError(fileName, *version, QzDesignInterfaceVersion); !error.isEmpty())
        return Refused(fileName, error);
    auto entry = reinterpret_cast<void (*)()>(library.resolve(QzPackageRegisterSymbol));
    if (!entry)
        return Refused(fileName,
                       QStringLiteral("The design package %1 has no entry %2.").arg(fileName, QzPackageRegisterSymbol));
    try {
        entry();
    } catch (const Exception& e) {
        return Refused(fileName, QStringLiteral("The design package %1 failed to register: %2")
                                     .arg(fileName, QzQString(e.Message())));
    }
    return {true, fileName, {}};
}

TQzPackageLoad QzLoadDesignPackage(const QString& programDir)
{
    static TQzPackageLoad done;
    if (done.Loaded)
        return done;
    for (const QString& candidate : QzDesignPackageCandidates(programDir)) {
        if (!QFileInfo::exists(candidate))
            continue;
        const TQzPackageLoad result = QzLoadDesignPackageFile(QFileInfo(candidate).canonicalFilePath());
        if (result.Loaded)
            done = result;
        return result;
    }
    return Refused({}, QStringLiteral("The design package %1 was not found beside the program.").arg(PackageFile));
}
