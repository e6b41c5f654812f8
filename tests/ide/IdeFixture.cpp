#include "IdeFixture.h"

#include "ide/QzDesignSurface.h"
#include "designide/forms/QzIdeProject.h"
#include "ide/QzPackageLoader.h"
#include "ide/QzPalette.h"

#include "runtime/components/QzComponentsReg.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>

QString DemoFolder()
{
    // This file is tests/ide/IdeFixture.cpp in the source tree.
    return QFileInfo(QStringLiteral(__FILE__)).absoluteDir().filePath(QStringLiteral("../../examples/demo"));
}

void EnsureIdeRegistered()
{
    static bool done = false;
    if (done)
        return;
    done = true;
    RegisterQzComponentClasses();
    const TQzPackageLoad load = QzLoadDesignPackage(QCoreApplication::applicationDirPath() + "/../ide");
    if (!load.Loaded)
        ADD_FAILURE() << load.Error.toStdString();
}

std::string ReadBytes(const QString& file)
{
    QFile f(file);
    if (!f.open(QIODevice::ReadOnly))
        return {};
    return f.readAll().toStdString();
}

void WriteBytes(const QString& file, const std::string& bytes)
{
    QFile f(file);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(bytes.data(), static_cast<qint64>(bytes.size()));
}

void TIdeTest::SetUp()
{
    EnsureIdeRegistered();
    ASSERT_TRUE(FDir.isValid());
    for (const QString& name : QDir(DemoFolder()).entryList(QDir::Files))
        ASSERT_TRUE(QFile::copy(QDir(DemoFolder()).filePath(name), FDir.filePath(name)));
    FDialogs = std::make_unique<TQzTestDialogs>();
    FWindow = std::make_unique<TQzMainWindow>();
    FWindow->Palette()->Refresh();
    ASSERT_TRUE(FWindow->OpenProject(Path("DemoApp.bpr")));
    ASSERT_NE(Main(), nullptr);
}

void TIdeTest::TearDown()
{
    // Nothing may ask to be saved at the end unless the test scripted it.
    for (TIdeDesigner* d : FWindow->Project()->OpenDesigners())
        d->Form().ClearModified();
    FWindow.reset();
    FDialogs.reset();
}

TIdeDesigner* TIdeTest::Main() const { return FWindow->Project()->Designer(0); }

TQzDesignSurface* TIdeTest::Surface(TIdeDesigner* designer) const { return FWindow->SurfaceOf(designer); }

TComponent* TIdeTest::Find(const char* name) const
{
    TComponent* c = Main()->GetComponent(name);
    EXPECT_NE(c, nullptr) << name;
    return c;
}

void TIdeTest::Select(std::initializer_list<const char*> names) const
{
    TDesignerSelections selections;
    for (const char* name : names)
        selections.push_back(Find(name));
    Main()->SetSelections(selections);
}
