// File-name helpers, the program and install folders, and the picture
// formats offered to image dialogs.

#include "runtime/pictures/QzGraphicFormats.h"
#include "runtime/util/QzPaths.h"

#include "rtl/StringList.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>

namespace {

TEST(Paths, ExtensionsPathBarsAndTheProgramFolder)
{
    const struct {
        const char* In;
        const char* Ext;
        const char* Bar;
    } cases[] = {
        {"pim", ".pim", "pim/"}, {".pim", ".pim", ".pim/"}, {"", "", ""},
        {"/tmp/", "./tmp/", "/tmp/"}, {"C:\\Data\\", ".C:\\Data\\", "C:\\Data\\"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(QzAddPointExt(c.In), c.Ext) << c.In;
        EXPECT_EQ(QzAddPathBar(c.In), c.Bar) << c.In;
    }
    EXPECT_TRUE(FileExists(QzAppPath() + ExtractFileName(program_invocation_name))) << QzAppPath();
}

TEST(Paths, InstallPathFromTheEnvironmentElseBesideTheLibrary)
{
    const char* old = std::getenv("QZ_INSTALL_PATH");
    const AnsiString saved = old ? old : "";
    setenv("QZ_INSTALL_PATH", "/opt/qz/data", 1);
    EXPECT_EQ(QzGetInstallPath(), "/opt/qz/data/");
    setenv("QZ_INSTALL_PATH", "", 1);  // empty counts as unset
    const AnsiString path = QzGetInstallPath();
    const AnsiString suffix = "/share/qzcontrols/";
    ASSERT_GT(path.size(), suffix.size());
    EXPECT_EQ(path.substr(path.size() - suffix.size()), suffix) << path;
    EXPECT_TRUE(path.front() == '/' && path.find("/../") == AnsiString::npos) << "absolute and resolved: " << path;
    old ? setenv("QZ_INSTALL_PATH", saved.c_str(), 1) : unsetenv("QZ_INSTALL_PATH");
}

TEST(GraphicFormats, FormatsDescriptionsAndFilter)
{
    TStringList list;
    list.Add("kept");
    QzFormatGraphics(&list);
    EXPECT_EQ(list[0], "kept") << "the list is appended to";
    for (const char* format : {"bmp", "png", "imqz"})
        EXPECT_GE(list.IndexOf(format), 1) << format;
    for (int i = 2; i < list.Count(); ++i)
        EXPECT_LT(list[i - 1], list[i]) << "sorted, no duplicates";

    const struct {
        const char* Graphic;
        const char* Description;
        const char* Format;
    } cases[] = {
        {"bmp", "Bitmaps", "bmp"},          {".BMP", "Bitmaps", "bmp"},     {"TBitmap", "Bitmaps", "bmp"},
        {"TJPEGImage", "JPEG Image File", "jpg"}, {"TIcon", "Icons", "ico"}, {"imqz", "QzControls Image", "imqz"},
        {"xyz", "XYZ Image", "xyz"},        {"", "", ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(QzFindGraphicDescription(AnsiString(c.Graphic)), c.Description) << c.Graphic;
        EXPECT_EQ(QzGraphicFormatName(c.Graphic), c.Format) << c.Graphic;
    }

    const AnsiString filter = QzGraphicFilter();
    EXPECT_EQ(filter.rfind("All (*.", 0), 0u) << filter;
    EXPECT_NE(filter.find("|Bitmaps (*.bmp)|*.bmp|"), AnsiString::npos) << filter;
    EXPECT_EQ(std::count(filter.begin(), filter.end(), '|') % 2, 1) << "description and mask alternate";
}

} // namespace
