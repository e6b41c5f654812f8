// The host refuses a design package built for another version of its
// interfaces before any of the package's code runs, and says why.

#include "ide/QzPackageLoader.h"

#include "designide/QzPackageInterface.h"

#include <gtest/gtest.h>

#include <QLibrary>

namespace {

QString TestPackage(const char* kind)
{
    return QStringLiteral(QZ_TEST_PLUGIN_DIR "/QzTestPackage%1.so").arg(QLatin1String(kind));
}

int RegisterCallsOf(const QString& fileName)
{
    QLibrary library(fileName);
    const auto* calls = reinterpret_cast<const int*>(library.resolve("QzTestRegisterCalls"));
    return calls ? *calls : -1;
}

}  // namespace

TEST(PackageLoader, RefusesPackagesOfAnotherInterfaceVersion)
{
    const QString host = QString::number(QzDesignInterfaceVersion);
    const QString other = QString::number(QzDesignInterfaceVersion + 1);
    struct Case {
        const char* kind;
        QStringList mentions;
    } cases[] = {
        {"OtherVersion", {"version " + other, "version " + host}},
        {"NoVersion", {QzPackageVersionSymbol}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.kind);
        const QString file = TestPackage(c.kind);
        const TQzPackageLoad load = QzLoadDesignPackageFile(file);
        EXPECT_FALSE(load.Loaded);
        EXPECT_TRUE(load.Error.contains(file)) << load.Error.toStdString();
        for (const QString& m : c.mentions)
            EXPECT_TRUE(load.Error.contains(m)) << load.Error.toStdString();
        EXPECT_EQ(RegisterCallsOf(file), 0);
    }
}

TEST(PackageLoader, AMissingOrDamagedFileIsRefusedWithItsName)
{
    const QString file = QStringLiteral(QZ_TEST_PLUGIN_DIR "/NoSuchPackage.so");
    const TQzPackageLoad load = QzLoadDesignPackageFile(file);
    EXPECT_FALSE(load.Loaded);
    EXPECT_TRUE(load.Error.contains(file)) << load.Error.toStdString();
}
