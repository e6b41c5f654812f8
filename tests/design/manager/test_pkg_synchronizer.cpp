// The synchronizer: which items a run adds and deletes (and which it must
// leave alone), a run that fails at one file of several, and the window's
// rule that Ok applies what Apply has not.

#include "design/manager/QzPkgSynchronizerLogic.h"
#include "design/manager/Qzvtpkgsynchronizer.h"

#include "runtime/files/QzPkgFiles.h"
#include "runtime/model/QzPkgDisplay.h"
#include "runtime/model/QzPkgLanguage.h"
#include "runtime/model/QzPkgStrings.h"
#include "runtime/model/QzRegistry.h"

#include "rtl/Streams.h"

#include "support/gui/QzModalDriver.h"
#include "support/gui/QzTestApp.h"
#include "support/gui/QzTestDialogs.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <map>

namespace {

using TLabels = std::map<Integer, AnsiString>;

void Fill(TQzPkgStrings& pkg, const TLabels& labels)
{
    for (const auto& [id, text] : labels)
        pkg.Labels()->Add(id, text, "hint " + text);
}

TLabels LabelsOf(const TQzPkgStrings& pkg)
{
    TLabels labels;
    for (int i = 0; i < pkg.Labels()->Count(); ++i)
        labels[pkg.Labels()->GetItems(i)->Id()] = pkg.Labels()->GetItems(i)->Text();
    return labels;
}

std::unique_ptr<TQzPkgStrings> Strings(const TLabels& labels)
{
    TQzDetachedPkgs detached;
    auto pkg = std::make_unique<TQzPkgStrings>(nullptr);
    Fill(*pkg, labels);
    return pkg;
}

struct TSyncCase {
    const char* Name;
    bool Add;
    bool Delete;
    TLabels Master;
    TLabels Target;
    TLabels Expected;
};

TEST(PkgSynchronizer, AddsMissingDeletesSurplusAndNeverChangesAnItemBothHold)
{
    const TLabels master{{1, "one"}, {2, "two"}, {3, "three"}};
    const TLabels target{{1, "uno"}, {2, "dos"}, {9, "nueve"}};
    const TSyncCase cases[] = {
        {"nothing checked", false, false, master, target, target},
        {"both", true, true, master, target, {{1, "uno"}, {2, "dos"}, {3, "three"}}},
        {"add only", true, false, master, target, {{1, "uno"}, {2, "dos"}, {3, "three"}, {9, "nueve"}}},
        {"delete only", false, true, master, target, {{1, "uno"}, {2, "dos"}}},
        {"delete every item", false, true, {}, {{4, "a"}, {5, "b"}, {6, "c"}, {7, "d"}}, {}},
        {"into an empty target", true, true, master, {}, master},
    };
    for (const TSyncCase& c : cases) {
        SCOPED_TRACE(c.Name);
        auto m = Strings(c.Master);
        auto t = Strings(c.Target);
        m->Messages()->Add(7, "message");
        TQzSyncOptions options;
        options.AddItems = c.Add;
        options.DeleteItems = c.Delete;
        QzSyncPackages(*m, *t, options);
        EXPECT_EQ(LabelsOf(*t), c.Expected);
        EXPECT_EQ(t->Messages()->Count(), c.Add ? 1 : 0);
    }
}

TEST(PkgSynchronizer, AnAddedItemCarriesAllItsDataAndTheOptionsPickTheParts)
{
    auto master = Strings({{5, "five"}});
    master->Labels()->FindId(5)->SetProtected(true);
    auto target = Strings({});
    EXPECT_EQ(QzSyncPackages(*master, *target, {}), (TQzSyncCounts{1, 0}));
    const TQzPkgStringsLabel* added = target->Labels()->FindId(5);
    ASSERT_NE(added, nullptr);
    EXPECT_EQ(added->Hint(), "hint five");
    EXPECT_TRUE(added->Protected());

    // A language package's "User" strings alone; a display package's sets by name, any case.
    TQzDetachedPkgs detached;
    TQzPkgLanguage langMaster(nullptr), langTarget(nullptr);
    langMaster.PkgUser()->Labels()->Add(1, "user");
    {
        TQzPkgInfo::TSystemUpdate unlocked(*langMaster.PkgSystem());
        langMaster.PkgSystem()->Labels()->Add(90001, "system");
    }
    TQzSyncOptions userOnly;
    userOnly.SyncSystem = false;
    QzSyncPackages(langMaster, langTarget, userOnly);
    EXPECT_NE(langTarget.PkgUser()->Labels()->FindId(1), nullptr);
    EXPECT_EQ(langTarget.PkgSystem()->Labels()->FindId(90001), nullptr);

    TQzPkgDisplay dispMaster(nullptr), dispTarget(nullptr);
    dispMaster.SetsColor()->Add("Warm")->SetColor(0xFF);
    dispTarget.SetsColor()->Add("WARM")->SetColor(0x11);
    dispTarget.SetsFont()->Add("Gone");
    QzSyncPackages(dispMaster, dispTarget, {});
    ASSERT_EQ(dispTarget.SetsColor()->Count(), 1);
    EXPECT_EQ(dispTarget.SetsColor()->GetSetColor(0)->Color(), 0x11);
    EXPECT_EQ(dispTarget.SetsFont()->Count(), 0);
}

class PkgSynchronizerFiles : public TQzGuiTest {
protected:
    void SetUp() override
    {
        RegisterQzPkgFileFormats();
        ASSERT_TRUE(FDir.isValid());
        FFolder = FDir.path().toStdString() + "/";
        FEdited = Strings({{1, "one"}, {2, "two"}});
        FEdited->SetPkgName("Main");
    }
    AnsiString Write(const AnsiString& name, const TLabels& labels)
    {
        Strings(labels)->SaveToFile(FFolder + name);
        return FFolder + name;
    }
    TLabels Read(const AnsiString& name)
    {
        auto pkg = Strings({});
        pkg->LoadFromFile(FFolder + name);
        return LabelsOf(*pkg);
    }

    QTemporaryDir FDir;
    AnsiString FFolder;
    std::unique_ptr<TQzPkgStrings> FEdited;
};

TEST_F(PkgSynchronizerFiles, AFailureMidwayLeavesTheFilesBeforeItWrittenAndTheRestAsTheyWere)
{
    Write("a.pst", {{1, "uno"}});
    WriteFileAtomic(FFolder + "b.pst", "not a package file");
    Write("c.pst", {{7, "siete"}});
    const std::string aBefore = ReadFileBytes(FFolder + "a.pst");
    try {
        QzSynchronizeTo(*FEdited, FFolder, {"a.pst", "b.pst", "c.pst"}, {});
        FAIL() << "the damaged file was accepted";
    } catch (const EQzSyncError& e) {
        EXPECT_EQ(e.FileName(), FFolder + "b.pst");
        EXPECT_EQ(e.Written(), std::vector<AnsiString>{FFolder + "c.pst"});
        EXPECT_NE(e.Message().find("b.pst"), AnsiString::npos) << e.Message();
    }
    EXPECT_EQ(Read("c.pst"), (TLabels{{1, "one"}, {2, "two"}}));
    EXPECT_EQ(ReadFileBytes(FFolder + "b.pst"), "not a package file");
    EXPECT_EQ(ReadFileBytes(FFolder + "a.pst"), aBefore);

    // "From" a damaged file changes nothing.
    EXPECT_THROW(QzSynchronizeFrom(*FEdited, FFolder + "b.pst", {}), EQzSyncError);
    EXPECT_EQ(LabelsOf(*FEdited), (TLabels{{1, "one"}, {2, "two"}}));
}

TEST_F(PkgSynchronizerFiles, OkRunsWhatApplyHasNotAndCancelRunsNothing)
{
    struct TCase {
        const char* Button;
        bool Applied;
    } const cases[] = {{"BtOk", true}, {"BtCancel", false}};
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.Button);
        Write("x.pst", {{9, "nueve"}});
        TQzModalDriver driver;
        driver.Click("BtAppendAll")
            .Screenshot(qEnvironmentVariable("QZ_SCREENSHOT_DIR", FDir.path()) + "/synchronizer.png")
            .Click(c.Button);
        TFrPkgSynchronizer form;
        form.SetPathApp(FFolder);
        form.Execute(FEdited.get());
        EXPECT_TRUE(driver.Finished());
        EXPECT_EQ(form.Written(), c.Applied);
        EXPECT_EQ(Read("x.pst"), c.Applied ? LabelsOf(*FEdited) : (TLabels{{9, "nueve"}}));
    }
}

TEST_F(PkgSynchronizerFiles, FromAFileOfTheFolderAndAFailedRunKeepsTheWindowOpen)
{
    Write("x.pst", {{9, "nueve"}, {1, "uno"}});
    TQzTestDialogs dialogs;
    dialogs->AnswerMessage(mbOK);
    TQzModalDriver driver;
    driver.Click("SBFrom")
        .SetText("EdPkgFileName", "missing")
        .Click("BtOk")
        .SetText("EdPkgFileName", "x")
        .Click("BtApply")
        .Click("BtCancel");
    TFrPkgSynchronizer form;
    form.SetPathApp(FFolder);
    EXPECT_EQ(form.Execute(FEdited.get()), mrCancel);
    EXPECT_TRUE(driver.Finished());
    EXPECT_TRUE(form.Written());
    EXPECT_EQ(LabelsOf(*FEdited), (TLabels{{1, "one"}, {9, "nueve"}}));
}

} // namespace
