// The built-in "System" strings, their provider, and the install data the
// build generates from them.

#include "runtime/system/QzSystemData.h"
#include "runtime/system/QzSystemImages.h"
#include "runtime/system/QzSystemStrings.h"

#include "runtime/files/QzPkgFiles.h"
#include "runtime/model/QzApplication.h"
#include "runtime/model/QzRegistry.h"
#include "runtime/util/QzPaths.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>

namespace fs = std::filesystem;

namespace {

template <class TCollection>
void ExpectHolds(const TCollection& items, std::span<const TQzSystemString> table)
{
    ASSERT_EQ(items.Count(), int(table.size()));
    for (const TQzSystemString& s : table) {
        const auto* item = items.FindId(s.Id);
        ASSERT_NE(item, nullptr) << s.Id;
        EXPECT_TRUE(item->Text() == s.Text && item->Protected()) << s.Id;
    }
}

// Every built-in picture is there, decodable, 16 pixels square, protected.
void ExpectSystemImages(const TQzPkgImages& pkg)
{
    ASSERT_EQ(pkg.Images()->Count(), int(QzSystemImages().size()));
    for (const TQzSystemImage& s : QzSystemImages()) {
        const TQzPkgImagesImage* image = pkg.Images()->FindId(s.Id);
        ASSERT_NE(image, nullptr) << s.Id;
        EXPECT_FALSE(image->Empty()) << s.Id;
        EXPECT_EQ(image->Width(), 16) << s.Id;
        EXPECT_EQ(image->Height(), 16) << s.Id;
        EXPECT_EQ(image->GraphicClass(), "TPngImage") << s.Id;
        EXPECT_TRUE(image->Protected()) << s.Id;
    }
}

void ExpectSystemStrings(const TQzPkgStrings& pkg)
{
    ExpectHolds(*pkg.Labels(), QzSystemLabels());
    ExpectHolds(*pkg.Messages(), QzSystemMessages());
    ExpectHolds(*pkg.Texts(), QzSystemTexts());
}

TEST(SystemStrings, EveryMessageTheEditorsAskForHasATextThatFormatsSafely)
{
    for (Integer id : {2, 25, 26, 34, 35, 36, 49, 50, 51, 56, 58, 59, 60})
        EXPECT_NE(QzSystemMessageText(id), nullptr) << id;
    for (auto table : {QzSystemMessages(), QzSystemLabels(), QzSystemTexts()})
        for (size_t i = 1; i < table.size(); ++i)
            EXPECT_LT(table[i - 1].Id, table[i].Id) << "lookups need ascending Ids";
    // Only the messages about a file take an argument; the others must show
    // as they are whatever a caller passes.
    for (const TQzSystemString& s : QzSystemMessages()) {
        const bool takesFile = s.Id == smFileNotFound || s.Id == smOverwriteFile;
        EXPECT_EQ(AnsiString(s.Text).find('%') != AnsiString::npos, takesFile) << s.Id;
        EXPECT_NE(Format(s.Text, "a.pst").find(takesFile ? "'a.pst'" : s.Text), AnsiString::npos) << s.Id;
    }
}

class SystemData : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        RegisterQzPkgFileFormats();
        RegisterQzSystemData();
    }
    void TearDown() override { fs::remove_all(FDir); }
    fs::path FDir = fs::temp_directory_path() / ("qz_system_data_" + std::to_string(getpid()));
};

TEST_F(SystemData, BuiltInDataAndInstallFilesRefreshTheSystemStringsAndPictures)
{
    {
        TQzCApplication app(nullptr);
        ASSERT_FALSE(app.SystemEdit()) << "the refresh must not need system editing";
        ASSERT_TRUE(app.UpdateSystemPkgs(true));
        ExpectSystemStrings(*app.PkgLanguage()->PkgSystem());
        ExpectSystemImages(*app.PkgDisplay()->PkgSystem());
    }
    QzWriteInstallData((FDir / "share").string());
    const AnsiString language = (FDir / "share" / QzBaseLanguageFileName).string();
    EXPECT_EQ(QzReadPkgLanguageDescription(language), "QzControls base language: English");
    TQzCApplication app(nullptr);
    app.UpdateSystemPkgLanguage(language, true);
    ExpectSystemStrings(*app.PkgLanguage()->PkgSystem());

    TQzDetachedPkgs detached;
    TQzPkgDisplay sets(nullptr);
    sets.LoadFromFile((FDir / "share" / QzStandardDisplayFileName).string());
    ExpectSystemImages(*sets.PkgSystem());
    ASSERT_NE(sets.SetsBackGround()->Find("EdBackGround"), nullptr);
    EXPECT_EQ(sets.SetsBackGround()->Find("EdBackGround")->SolidColor(), TColor(0xFF000005)) << "window colour";
    ASSERT_NE(sets.SetsFont()->Find("Title"), nullptr);
    EXPECT_TRUE(sets.SetsFont()->Find("Title")->Values().Bold);
    // Filling again keeps a set the package already has, and adds nothing.
    sets.SetsColor()->Find("ColText")->SetColor(0x123456);
    const int count = sets.SetsColor()->Count();
    QzFillStandardDisplay(sets);
    EXPECT_EQ(sets.SetsColor()->Find("coltext")->Color(), 0x123456);
    EXPECT_EQ(sets.SetsColor()->Count(), count);
}

TEST_F(SystemData, BuildInstalledTheCurrentData)
{
    const AnsiString installed = QzGetInstallPath();
    if (!FileExists(installed + QzBaseLanguageFileName))
        GTEST_SKIP() << "no generated install data in " << installed;
    QzWriteInstallData(FDir.string());
    for (const char* name : {QzBaseLanguageFileName, QzStandardDisplayFileName})
        EXPECT_EQ(ReadFileBytes(installed + name), ReadFileBytes((FDir / name).string())) << name << " is stale";
}

} // namespace
