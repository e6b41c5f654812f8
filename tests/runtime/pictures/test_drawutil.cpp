// Drawing the picture a memory image points at: placement, stretching,
// transparency and states, on a small picture whose pixels are known.

#include "PictureTestSupport.h"

#include "runtime/pictures/Qzdrawutil.h"

#include "runtime/model/QzMemory.h"
#include "runtime/model/QzPkgImages.h"
#include "support/gui/QzTestApp.h"

#include <QPainter>

namespace {

const QColor Back(10, 20, 30);
const QColor Red(255, 0, 0);
const QColor Blue(0, 0, 255);

// 4 x 2 pixels: the left column blue (the bottom-left pixel is the key
// colour of a transparent draw), the rest red.
std::string PngBytes()
{
    QImage picture(4, 2, QImage::Format_RGB32);
    picture.fill(Red);
    picture.setPixelColor(0, 0, Blue);
    picture.setPixelColor(0, 1, Blue);
    return QzPictureTest::Encode(picture, "PNG");
}

class DrawImage : public TQzGuiTest {
protected:
    DrawImage() { FImage = FPkg.Images()->Add(1); }

    QImage Draw(bool transparent, bool stretch, bool proportional, TQzImageState state = isNormal)
    {
        QImage canvas(20, 20, QImage::Format_RGB32);
        canvas.fill(Back);
        QPainter painter(&canvas);
        TQzMemoryImage ref(FImage);
        QzDrawImage(&painter, QRect(0, 0, 20, 20), &ref, QzColorNone, QzColorNone, false, state, transparent,
                    stretch, -1, -1, proportional);
        return canvas;
    }

    TQzPkgImages FPkg{nullptr};
    TQzPkgImagesImage* FImage;
};

TEST_F(DrawImage, PlacesThePictureAsAsked)
{
    FImage->SetPicture(PngBytes(), "TPngImage", 4, 2);
    const struct {
        const char* Name;
        bool Stretch;
        bool Proportional;
        QPoint BluePixel;
        QPoint RedPixel;
        QPoint BackPixel;
    } cases[] = {
        {"centred at its size", false, false, {8, 9}, {11, 10}, {7, 9}},
        {"stretched over the rect", true, false, {0, 0}, {19, 19}, {-1, -1}},
        {"stretched keeping proportions", true, true, {0, 5}, {19, 14}, {10, 4}},
    };
    for (const auto& c : cases) {
        const QImage canvas = Draw(false, c.Stretch, c.Proportional);
        EXPECT_EQ(canvas.pixelColor(c.BluePixel), Blue) << c.Name;
        EXPECT_EQ(canvas.pixelColor(c.RedPixel), Red) << c.Name;
        if (c.BackPixel.x() >= 0) {
            EXPECT_EQ(canvas.pixelColor(c.BackPixel), Back) << c.Name;
        }
    }
}

TEST_F(DrawImage, TransparencyStatesAndUndecodableBytes)
{
    FImage->SetPicture(PngBytes(), "TBitmap", 4, 2);  // a class name that does not match the bytes
    EXPECT_EQ(Draw(true, true, false).pixelColor(0, 0), Back) << "the bottom-left colour lets the back show";
    EXPECT_EQ(Draw(true, true, false).pixelColor(19, 19), Red);
    const QColor disabled = Draw(false, true, false, isDisabled).pixelColor(19, 19);
    EXPECT_LT(disabled.hsvSaturation(), 100) << "greyed, not red: " << disabled.name().toStdString();
    EXPECT_GT(Draw(false, true, false, isHot).pixelColor(19, 19).green(), 100) << "lit";
    const QImage down = Draw(false, false, false, isDown);
    EXPECT_TRUE(down.pixelColor(9, 10) == Blue && down.pixelColor(8, 9) == Back) << "pressed: one pixel off";
    FImage->SetPicture("not a picture", "TPngImage", 4, 2);
    EXPECT_EQ(Draw(false, true, false).pixelColor(10, 10), Back);
}

} // namespace
