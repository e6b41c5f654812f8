// The built-in "System" strings, their provider, and the install data the
// build generates from them.

#include "runtime/system/QzSystemData.h"
#include "runtime/system/QzSystemStrings.h"

#include "runtime/files/QzPkgFiles.h"
#include "runtime/model/QzApplication.h"
#include "runtime/model/QzRegistry.h"
#include "runtime/util/QzPaths.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <cstring>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

// What every item of a collection says, for comparing with a table.
template <class TCollection>
void ExpectHolds(const TCollection& items, std::span<const TQzSystemString> table, const char* what)
{
    ASSERT_EQ(items.Count(), int(table.size())) << what;
    for (const TQzSystemString& s : table) {
        const auto* item = items.FindId(s.Id);
        ASSERT_NE(item, nullptr) << what << " " << s.Id;
        EXPECT_EQ(item->Text(), s.Text) << what << " " << s.Id;
        EXPECT_TRUE(item->Protected()) << what << " " << s.Id;
    }
}

void ExpectSystemStrings(const TQzPkgStrings& pkg)
{
    ExpectHolds(*pkg.Labels(), QzSystemLabels(), "label");
    ExpectHolds(*pkg.Messages(), QzSystemMessages(), "message");
    ExpectHolds(*pkg.Texts(), QzSystemTexts(), "text");
    for (const TQzSystemString& s : QzSystemLabels())
        EXPECT_EQ(pkg.Labels()->FindId(s.Id)->Hint(), s.Hint);
}

TEST(SystemStrings, EveryMessageTheEditorsAskForHasAnEnglishText)
{
    const Integer used[] = {smTextNotFound, smDeleteImage,  smDeleteItem,   smDeleteFolder,  smDeleteVariable,
                            smChangeType,   smFileNotFound, smClearImages,  smOverwriteFile, smEraseMemory,
                            smClearStrings, smClearVariables, smClearFolder};
    for (Integer id : used) {
        const char* text = QzSystemMessageText(id);
        ASSERT_NE(text, nullptr) << id;
        EXPECT_GT(std::strlen(text), 10u) << id;
    }
    // Only the messages about a file take an argument; the others must
    // show as they are whatever a caller passes.
    for (const TQzSystemString& s : QzSystemMessages()) {
        const AnsiString text = s.Text;
        const bool takesFile = s.Id == smFileNotFound || s.Id == smOverwriteFile;
        EXPECT_EQ(text.find('%') != AnsiString::npos, takesFile) << s.Id;
        if (takesFile) {
            EXPECT_NE(Format(text, "a.pst").find("'a.pst'"), AnsiString::npos) << s.Id;
        }
    }
    EXPECT_EQ(QzSystemMessageText(1), nullptr);
    EXPECT_NE(QzSystemLabelText(slCaptionConfirmation), nullptr);
    EXPECT_NE(QzSystemTextText(stMaskHelp), nullptr);
}

TEST(SystemStrings, TablesAreOrderedForLookup)
{
    for (auto table : {QzSystemMessages(), QzSystemLabels(), QzSystemTexts()})
        for (size_t i = 1; i < table.size(); ++i)
            EXPECT_LT(table[i - 1].Id, table[i].Id);
}

class SystemData : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        RegisterQzPkgFileFormats();
        RegisterQzSystemData();
    }
    void SetUp() override
    {
        FDir = fs::temp_directory_path() / ("qz_system_data_" + std::to_string(getpid()));
        fs::remove_all(FDir);
    }
    void TearDown() override { fs::remove_all(FDir); }

    fs::path FDir;
};

TEST_F(SystemData, ApplicationRefreshesItsSystemStringsFromTheBuiltInData)
{
    TQzCApplication app(nullptr);
    TQzPkgStrings* system = app.PkgLanguage()->PkgSystem();
    ASSERT_FALSE(app.SystemEdit()) << "the refresh must not need system editing";
    ASSERT_TRUE(app.UpdateSystemPkgs(true));
    ExpectSystemStrings(*system);
}

TEST_F(SystemData, InstallDataHoldsTheSystemStringsAndTheStandardSets)
{
    QzWriteInstallData((FDir / "share").string());
    const AnsiString language = (FDir / "share" / QzBaseLanguageFileName).string();
    const AnsiString display = (FDir / "share" / QzStandardDisplayFileName).string();
    EXPECT_EQ(QzReadPkgLanguageDescription(language), "QzControls base language: English");
    EXPECT_EQ(QzReadPkgDisplayDescription(display), "QzControls standard display sets");

    {
        TQzCApplication app(nullptr);
        app.UpdateSystemPkgLanguage(language, true);
        ExpectSystemStrings(*app.PkgLanguage()->PkgSystem());
    }

    TQzDetachedPkgs detached;
    TQzPkgDisplay sets(nullptr);
    sets.LoadFromFile(display);
    const TQzPkgDisplaySetBackGround* edit = sets.SetsBackGround()->Find("EdBackGround");
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(edit->Style(), bgSolid);
    EXPECT_EQ(edit->SolidColor(), TColor(0xFF000005)) << "the system window colour";
    ASSERT_NE(sets.SetsColor()->Find("ColText"), nullptr);
    EXPECT_EQ(sets.SetsColor()->Find("ColText")->Color(), TColor(0xFF000008));
    ASSERT_NE(sets.SetsFont()->Find("Title"), nullptr);
    EXPECT_TRUE(sets.SetsFont()->Find("Title")->Values().Bold);
    EXPECT_GE(sets.SetsBackGround()->Count() + sets.SetsColor()->Count() + sets.SetsFont()->Count(), 20);
}

TEST_F(SystemData, StandardSetsLeaveSetsOfTheSameNameAlone)
{
    TQzDetachedPkgs detached;
    TQzPkgDisplay display(nullptr);
    display.SetsColor()->Add("coltext")->SetColor(0x123456);
    QzFillStandardDisplay(display);
    EXPECT_EQ(display.SetsColor()->Find("ColText")->Color(), 0x123456);
    const int count = display.SetsColor()->Count();
    QzFillStandardDisplay(display);
    EXPECT_EQ(display.SetsColor()->Count(), count) << "filling twice adds nothing";
}

TEST_F(SystemData, BuildInstalledTheCurrentData)
{
    const AnsiString installed = QzGetInstallPath();
    if (!FileExists(installed + QzBaseLanguageFileName))
        GTEST_SKIP() << "no generated install data in " << installed;
    QzWriteInstallData(FDir.string());
    for (const char* name : {QzBaseLanguageFileName, QzStandardDisplayFileName})
        EXPECT_EQ(ReadFileBytes(installed + name), ReadFileBytes((FDir / name).string()))
            << name << " in " << installed << " is not what the sources give now";
}

TEST_F(SystemData, GeneratorReportsBadUse)
{
    char program[] = "qz_install_data";
    char* none[] = {program};
    EXPECT_EQ(QzInstallDataMain(1, none), 2);

    fs::create_directories(FDir);
    const std::string blocker = (FDir / "file").string();
    WriteFileAtomic(blocker, "not a folder");
    std::string target = blocker + "/share";
    char* blocked[] = {program, target.data()};
    testing::internal::CaptureStderr();
    EXPECT_EQ(QzInstallDataMain(2, blocked), 1);
    EXPECT_FALSE(testing::internal::GetCapturedStderr().empty());
}

} // namespace
