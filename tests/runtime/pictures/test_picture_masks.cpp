// Masks from a transparent colour, the regions built from them, the blocks
// they are stored in, and the mask editor's design values and settings.

#include "PictureTestSupport.h"

#include "runtime/pictures/QzPicture.h"

#include <cstdint>
#include <gtest/gtest.h>

using namespace QzPictureTest;

namespace {

class PictureMasks : public ::testing::Test {
protected:
    PictureMasks()
    {
        FImage = FPkg.Images()->Add(1);
        TQzPicture(FImage).LoadFromBytes(Encode(KnownPicture(), "PNG"), "known.png");
    }

    TQzPkgImages FPkg{nullptr};
    TQzPkgImagesImage* FImage;
};

TEST_F(PictureMasks, MasksAndRegionsOfAKnownPicture)
{
    TQzPicture picture(FImage);
    picture.CreateInternalMask(RedTColor);        // the 3 x 2 red block
    picture.CreateExternalMask(QzMaskColorAuto);  // the blue corner pixel

    const QImage internal = picture.GetInternalMask();
    ASSERT_EQ(internal.size(), QSize(7, 5));
    EXPECT_EQ(QzMaskClearCount(internal), 6);
    EXPECT_EQ(internal.pixelIndex(2, 1), 0);
    EXPECT_EQ(internal.pixelIndex(1, 1), 1);
    EXPECT_EQ(QzMaskClearCount(picture.GetExternalMask()), 1);
    EXPECT_EQ(picture.GetExternalMask().pixelIndex(0, 4), 0);

    // A frame around a hole: three bands (top, the hole's rows, bottom),
    // the middle one with two rectangles.
    const QRegion region = picture.CreateInternalRgn();
    EXPECT_EQ(region.boundingRect(), QRect(0, 0, 7, 5));
    EXPECT_EQ(region.rectCount(), 4);
    EXPECT_FALSE(region.contains(QPoint(3, 2)));
    EXPECT_TRUE(region.contains(QPoint(5, 2)));

    const QRegion outline = picture.CreateExternalRgn();
    EXPECT_FALSE(outline.contains(QPoint(0, 4)));
    EXPECT_TRUE(outline.contains(QPoint(1, 4)));
    EXPECT_EQ(outline.boundingRect(), QRect(0, 0, 7, 5));
}

TEST_F(PictureMasks, RegionsMatchTheMaskPixelForPixel)
{
    // Odd widths cross byte boundaries of the packed bits.
    for (const int width : {1, 7, 8, 9, 33}) {
        QImage picture(width, 6, QImage::Format_ARGB32);
        for (int y = 0; y < 6; ++y)
            for (int x = 0; x < width; ++x)
                picture.setPixel(x, y, (x * 7 + y * 3) % 5 == 0 ? qRgba(0, 0, 255, 255)
                                       : (x + y) % 4 == 0       ? qRgba(0, 255, 0, 0)  // transparent
                                                                : qRgba(0, 255, 0, 255));
        const QImage mask = QzMaskFromColor(picture, 0x00FF0000);  // blue
        const TQzMaskBlock back = QzDecodeMaskBlock(QzEncodeMaskBlock({mask, 0x00FF0000}), "mask");
        EXPECT_EQ(back.Mask, mask) << width;
        EXPECT_EQ(back.Color, 0x00FF0000);
        const QRegion region = QzMaskRegion(mask);
        for (int y = 0; y < 6; ++y)
            for (int x = 0; x < width; ++x) {
                const bool kept = qAlpha(picture.pixel(x, y)) != 0 && qBlue(picture.pixel(x, y)) == 0;
                ASSERT_EQ(region.contains(QPoint(x, y)), kept) << width << " at " << x << "," << y;
                ASSERT_EQ(mask.pixelIndex(x, y), kept ? 1 : 0);
            }
    }
    EXPECT_TRUE(QzMaskRegion(QImage()).isEmpty());
}

TEST_F(PictureMasks, DamagedBlocksAreRefusedWhereTheyMatter)
{
    const std::string good = QzEncodeMaskBlock({QzMaskFromColor(KnownPicture(), RedTColor), RedTColor});
    std::string newer = good;
    newer[0] = 2;
    std::string wrongLength = good;
    wrongLength[1 + 12 + 4 + 3] = char(wrongLength[1 + 12 + 4 + 3] + 1);  // announced length
    std::string garbage = good;
    garbage[garbage.size() - 3] = char(garbage[garbage.size() - 3] ^ 0x55);
    const struct {
        const char* Name;
        std::string Block;
    } cases[] = {
        {"newer version", newer},
        {"wrong announced length", wrongLength},
        {"damaged compressed bits", garbage},
        {"trailing bytes", good + "x"},
        {"cut short", good.substr(0, 10)},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        EXPECT_THROW(QzDecodeMaskBlock(c.Block, "mask"), EInvalidGraphic);
        FImage->SetExtension(QzExtInternalMask, c.Block);
        // Drawing and the lists see no mask; loading such a file refuses it.
        EXPECT_TRUE(TQzPicture(FImage).GetInternalMask().isNull());
        EXPECT_THROW(TQzPicture(FImage).CheckExtensions("x.imqz"), EInvalidGraphic);
    }
    FImage->SetExtension(QzExtDesign, "\x01");
    FImage->SetExtension(QzExtInternalMask, good);
    EXPECT_EQ(TQzPicture(FImage).GetDesign(), TQzImageDesign());
    EXPECT_THROW(TQzPicture(FImage).CheckExtensions("x.imqz"), EInvalidGraphic);
}

TEST_F(PictureMasks, HandEditedMasksMustFitAndMasksAreIndependent)
{
    TQzPicture picture(FImage);
    EXPECT_FALSE(picture.HasMask());
    const QImage wrong = QzMaskFromColor(QImage(6, 5, QImage::Format_RGB32), 0);
    EXPECT_THROW(picture.SetExternalMask(wrong), EInvalidGraphic);
    EXPECT_FALSE(picture.HasMask());

    picture.CreateInternalMask(RedTColor);
    QImage edited = picture.GetInternalMask();
    edited.setPixel(0, 0, 0);
    picture.SetExternalMask(edited);
    EXPECT_EQ(picture.ExternalMaskColor(), QzMaskColorAuto);
    EXPECT_EQ(QzMaskClearCount(picture.GetExternalMask()), 7);
    EXPECT_EQ(QzMaskClearCount(picture.GetInternalMask()), 6);

    picture.SetInternalMask(QImage());
    EXPECT_TRUE(picture.GetInternalMask().isNull());
    EXPECT_TRUE(picture.HasMask());
    EXPECT_TRUE(picture.CreateInternalRgn().isEmpty());

    TQzPkgImagesImage* empty = FPkg.Images()->Add(2);
    EXPECT_THROW(TQzPicture(empty).CreateInternalMask(RedTColor), EInvalidGraphic);
}

TEST_F(PictureMasks, DesignValuesAndDesignerSettingsKeepEveryBit)
{
    TQzImageDesign design;
    design.Flags = {false, true, true};
    design.Values = {INT32_MIN, -1, 0, 1, 255, 256, 65536, INT32_MAX};
    TQzPicture(FImage).SetDesign(design);
    EXPECT_EQ(TQzPicture(FImage).GetDesign(), design);
    TQzPicture(FImage).SetDesign({});
    EXPECT_FALSE(FImage->Extensions().Has(QzExtDesign)) << "defaults are no block";

    TQzImagesDesignerSettings settings;
    settings.Values = {-5, 0, 7, 1000000, INT32_MAX};
    settings.Flags = {true, false, true};
    QzSetDesignerSettings(FPkg, settings);
    EXPECT_EQ(QzGetDesignerSettings(FPkg), settings);
    QzSetDesignerSettings(FPkg, {});
    EXPECT_TRUE(FPkg.Extensions().Empty());

    FPkg.SetExtension(QzExtDesignerSettings, std::string("\x01\x08", 2) + std::string(20, '\0'));
    EXPECT_EQ(QzGetDesignerSettings(FPkg), TQzImagesDesignerSettings()) << "unknown switch: defaults";
}

} // namespace
