// The palette pictures: one for every palette class, the right size, found
// by the class name in any case, and no two alike.

#include "runtime/components/QzPalette.h"
#include "runtime/components/QzPaletteBitmaps.h"

#include "rtl/SysUtils.h"

#include <QBuffer>

#include <gtest/gtest.h>

namespace {

TEST(PaletteBitmaps, EveryPaletteClassHasItsPictureUnderItsNameInCapitals)
{
    const std::vector<AnsiString> names = QzPaletteBitmapNames();
    ASSERT_EQ(names.size(), QzPaletteClasses().size());
    for (size_t i = 0; i < names.size(); ++i) {
        EXPECT_EQ(names[i], UpperCase(QzPaletteClasses()[i].ClassName));
        const QImage image = QzPaletteBitmap(names[i]);
        ASSERT_FALSE(image.isNull()) << names[i];
        EXPECT_EQ(image.size(), QSize(QzPaletteBitmapSize, QzPaletteBitmapSize)) << names[i];
    }
    EXPECT_EQ(QzPaletteBitmap("TQZLABEL"), QzPaletteBitmap("TQzLabel"));
}

TEST(PaletteBitmaps, ClassesWithoutAButtonHaveNone)
{
    for (const char* name : {"TQzMenuItem", "TQzTabSheet", "TForm", "", "TQzLabelX"}) {
        EXPECT_TRUE(QzPaletteBitmap(name).isNull()) << name;
        EXPECT_TRUE(QzPaletteBitmapPng(name).isEmpty()) << name;
    }
}

// A palette of look-alike buttons would be no palette: every picture
// differs from every other, the plain and the data-aware twins included.
TEST(PaletteBitmaps, NoTwoPicturesAreAlike)
{
    const std::vector<AnsiString> names = QzPaletteBitmapNames();
    std::vector<QImage> images;
    for (const AnsiString& name : names)
        images.push_back(QzPaletteBitmap(name));
    for (size_t i = 0; i < images.size(); ++i)
        for (size_t j = i + 1; j < images.size(); ++j)
            EXPECT_NE(images[i], images[j]) << names[i] << " looks like " << names[j];
}

TEST(PaletteBitmaps, PngBytesDecodeToThePicture)
{
    const QByteArray png = QzPaletteBitmapPng("TQzDbNavigator");
    ASSERT_TRUE(png.startsWith("\x89PNG"));
    QImage decoded;
    ASSERT_TRUE(decoded.loadFromData(png, "PNG"));
    EXPECT_EQ(decoded.convertToFormat(QImage::Format_ARGB32), QzPaletteBitmap("TQzDbNavigator"));
}

}  // namespace
