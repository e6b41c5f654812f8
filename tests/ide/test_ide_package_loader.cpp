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

TEST(PackageLoader, RefusesPackagesOfAnotherInterfaceVersionAndMissingFiles)
{
    const QString host = QString::number(QzDesignInterfaceVersion);
    const QString other = QString::number(QzDesignInterfaceVersion + 1);
    struct Case {
        QString file;
        QStringList mentions;
    } cases[] = {
        {TestPackage("OtherVersion"), {"version " + other, "version " + host}},
        {TestPackage("NoVersion"), {QzPackageVersionSymbol}},
        {TestPackage("Missing"), {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.file.toStdString());
        const TQzPackageLoad load = QzLoadDesignPackageFile(c.file);
        EXPECT_FALSE(load.Loaded);
        EXPECT_TRUE(load.Error.contains(c.file)) << load.Error.toStdString();
        for (const QString& m : c.mentions)
            EXPECT_TRUE(load.Error.contains(m)) << load.Error.toStdString();
        if (!c.mentions.isEmpty()) {
            EXPECT_EQ(RegisterCallsOf(c.file), 0);
        }
    }
}
