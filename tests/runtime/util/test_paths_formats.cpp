// File-name helpers, the program and install folders, and the picture
// formats offered to image dialogs.

#include "runtime/util/QzGraphicFormats.h"
#include "runtime/util/QzPaths.h"

#include "rtl/StringList.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>

namespace {

TEST(Paths, ExtensionsAndPathBars)
{
    const struct {
        const char* In;
        const char* Ext;
        const char* Bar;
    } cases[] = {
        {"pim", ".pim", "pim/"},
        {".pim", ".pim", ".pim/"},
        {"", "", ""},
        {"/tmp", "./tmp", "/tmp/"},
        {"/tmp/", "./tmp/", "/tmp/"},
        {"C:\\Data\\", ".C:\\Data\\", "C:\\Data\\"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(QzAddPointExt(c.In), c.Ext) << c.In;
        EXPECT_EQ(QzAddPathBar(c.In), c.Bar) << c.In;
    }
}

TEST(Paths, AppPathIsTheFolderOfThisProgram)
{
    const AnsiString path = QzAppPath();
    ASSERT_FALSE(path.empty());
    EXPECT_EQ(path.back(), '/');
    EXPECT_TRUE(FileExists(path + ExtractFileName(program_invocation_name))) << path;
}

class InstallPath : public ::testing::Test {
protected:
    void SetUp() override
    {
        if (const char* old = std::getenv("QZ_INSTALL_PATH"))
            FOld = old, FHadOld = true;
    }
    void TearDown() override
    {
        if (FHadOld)
            setenv("QZ_INSTALL_PATH", FOld.c_str(), 1);
        else
            unsetenv("QZ_INSTALL_PATH");
    }

private:
    AnsiString FOld;
    bool FHadOld = false;
};

TEST_F(InstallPath, EnvironmentNamesTheDataFolder)
{
    setenv("QZ_INSTALL_PATH", "/opt/qz/data", 1);
    EXPECT_EQ(QzGetInstallPath(), "/opt/qz/data/");
    setenv("QZ_INSTALL_PATH", "", 1);  // empty counts as unset
    EXPECT_NE(QzGetInstallPath(), "/");
}

TEST_F(InstallPath, WithoutEnvironmentTheShareFolderBesideTheLibrary)
{
    unsetenv("QZ_INSTALL_PATH");
    const AnsiString path = QzGetInstallPath();
    ASSERT_FALSE(path.empty());
    EXPECT_EQ(path.front(), '/');
    const AnsiString suffix = "/share/qzcontrols/";
    ASSERT_GE(path.size(), suffix.size());
    EXPECT_EQ(path.substr(path.size() - suffix.size()), suffix) << path;
    EXPECT_EQ(path.find("/../"), AnsiString::npos) << "the folder is given resolved: " << path;
}

TEST(GraphicFormats, ListsQtFormatsAndTheSuitesOwnSortedOnce)
{
    TStringList list;
    list.Add("kept");
    QzFormatGraphics(&list);
    EXPECT_EQ(list[0], "kept") << "the list is appended to";
    for (const char* format : {"bmp", "png", "imqz"})
        EXPECT_GE(list.IndexOf(format), 1) << format;
    for (int i = 2; i < list.Count(); ++i)
        EXPECT_LT(list[i - 1], list[i]) << "sorted, no duplicates";
}

TEST(GraphicFormats, DescriptionsByFormatExtensionOrClass)
{
    const struct {
        const char* Graphic;
        const char* Description;
        const char* Format;
    } cases[] = {
        {"bmp", "Bitmaps", "bmp"},
        {".BMP", "Bitmaps", "bmp"},
        {"TBitmap", "Bitmaps", "bmp"},
        {"jpeg", "JPEG Image File", "jpeg"},
        {"TJPEGImage", "JPEG Image File", "jpg"},
        {"TIcon", "Icons", "ico"},
        {"imqz", "QzControls Image", "imqz"},
        {"xyz", "XYZ Image", "xyz"},
        {"", "", ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(QzFindGraphicDescription(AnsiString(c.Graphic)), c.Description) << c.Graphic;
        EXPECT_EQ(QzGraphicFormatName(c.Graphic), c.Format) << c.Graphic;
    }
    EXPECT_EQ(QzFindGraphicDescription(static_cast<const TMetaClass*>(nullptr)), "");
}

TEST(GraphicFormats, FilterOffersAllFormatsFirstThenEach)
{
    const AnsiString filter = QzGraphicFilter();
    EXPECT_EQ(filter.rfind("All (", 0), 0u) << filter;
    EXPECT_NE(filter.find("|Bitmaps (*.bmp)|*.bmp"), AnsiString::npos) << filter;
    EXPECT_NE(filter.find("|QzControls Image (*.imqz)|*.imqz"), AnsiString::npos) << filter;
    // Description and mask alternate: an even number of '|' separated parts.
    TStringList parts;
    parts.SetDelimiter('|');
    parts.SetStrictDelimiter(true);
    parts.SetDelimitedText(filter);
    EXPECT_EQ(parts.Count() % 2, 0) << filter;
}

} // namespace
