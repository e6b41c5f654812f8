// The clipboard (the offscreen platform's, in-process), drawing with masks
// and alpha, and the thumbnail cache of the image grids.

#include "PictureTestSupport.h"

#include "runtime/model/QzGlobals.h"
#include "runtime/model/QzMemory.h"
#include "runtime/pictures/QzPicture.h"
#include "runtime/pictures/QzPictureDraw.h"
#include "support/gui/QzTestApp.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QPainter>

#include <cstdlib>
#include <functional>

using namespace QzPictureTest;

namespace {

const QColor Back(10, 20, 30);

class PictureGui : public TQzGuiTest {
protected:
    PictureGui()
    {
        FImage = FPkg.Images()->Add(1);
        FOther = FPkg.Images()->Add(2);
        TQzPicture(FImage).LoadFromBytes(Encode(KnownPicture(), "PNG"), "known.png");
        QGuiApplication::clipboard()->clear();
    }

    // The image drawn into a 9 x 7 canvas filled with Back.
    QImage Draw(const TQzDrawOptions& options, const TQzPkgImagesImage* image = nullptr) const
    {
        QImage canvas(9, 7, QImage::Format_RGB32);
        canvas.fill(Back);
        QPainter painter(&canvas);
        TQzMemoryImage ref(const_cast<TQzPkgImagesImage*>(image ? image : FImage));
        QzDrawImage(&painter, QRect(0, 0, 9, 7), &ref, options);
        return canvas;
    }

    TQzPkgImages FPkg{nullptr};
    TQzPkgImagesImage* FImage;
    TQzPkgImagesImage* FOther;
};

TEST_F(PictureGui, ClipboardRoundTripKeepsMasksAndServesOtherPrograms)
{
    TQzPicture(FImage).CreateInternalMask(RedTColor);
    EXPECT_FALSE(TQzPicture::ClipBoardHasImage());
    TQzPicture(FImage).SaveToClipBoard();
    EXPECT_TRUE(TQzPicture::ClipBoardHasImage());
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    ASSERT_TRUE(data->hasFormat(CF_QZIMAGE));
    EXPECT_EQ(qvariant_cast<QImage>(data->imageData()).size(), QSize(7, 5));

    TQzPicture(FOther).LoadFromClipBoard();
    EXPECT_EQ(Snapshot(*FOther), Snapshot(*FImage));
}

TEST_F(PictureGui, ClipboardWithoutAPictureChangesNothing)
{
    TQzPicture(FOther).LoadFromBytes(Encode(QImage(2, 2, QImage::Format_RGB32), "BMP"), "two.bmp");
    TQzPicture(FOther).CreateExternalMask(QzMaskColorAuto);
    const TSnapshot before = Snapshot(*FOther);

    QGuiApplication::clipboard()->setText("not a picture");
    EXPECT_FALSE(TQzPicture::ClipBoardHasImage());
    EXPECT_THROW(TQzPicture(FOther).LoadFromClipBoard(), EInvalidGraphic);

    auto* damaged = new QMimeData;
    damaged->setData(CF_QZIMAGE, "QZIMQZ\x1A\nbroken");
    QGuiApplication::clipboard()->setMimeData(damaged);
    EXPECT_THROW(TQzPicture(FOther).LoadFromClipBoard(), EInvalidGraphic);
    EXPECT_EQ(Snapshot(*FOther), before);

    // Another program's picture: PNG, its pixels, no masks.
    QImage copied = KnownPicture();
    copied.setPixelColor(6, 0, QColor(1, 2, 3));
    QGuiApplication::clipboard()->setImage(copied);
    TQzPicture(FOther).LoadFromClipBoard();
    EXPECT_EQ(FOther->GraphicClass(), "TPngImage");
    EXPECT_FALSE(TQzPicture(FOther).HasMask());
    const QImage back = TQzPicture(FOther).Decode();
    EXPECT_EQ(back.size(), QSize(7, 5));
    EXPECT_EQ(back.pixelColor(6, 0), QColor(1, 2, 3));
}

TEST_F(PictureGui, DrawingHonoursTheMaskThenAlphaThenTheKeyColour)
{
    // Centred: the 7 x 5 picture sits at (1, 1) in the 9 x 7 canvas; the
    // red block at (3..5, 2..3), the blue corner at (1, 5).
    TQzDrawOptions plain;
    TQzDrawOptions transparent;
    transparent.Transparent = true;
    TQzDrawOptions keyed = transparent;
    keyed.TransparentColor = RedTColor;

    EXPECT_EQ(Draw(plain).pixelColor(3, 2), QColor(Qt::red));
    EXPECT_EQ(Draw(plain).pixelColor(0, 0), Back);
    EXPECT_EQ(Draw(transparent).pixelColor(1, 5), Back) << "no mask: the bottom-left colour";
    EXPECT_EQ(Draw(transparent).pixelColor(3, 2), QColor(Qt::red));
    EXPECT_EQ(Draw(keyed).pixelColor(3, 2), Back);

    TQzPicture(FImage).CreateInternalMask(RedTColor);
    const QImage masked = Draw(transparent);
    EXPECT_EQ(masked.pixelColor(3, 2), Back) << "the mask wins over the key colour";
    EXPECT_EQ(masked.pixelColor(1, 5), QColor(Qt::blue));
    EXPECT_EQ(Draw(plain).pixelColor(3, 2), QColor(Qt::red)) << "not transparent: the mask is not used";

    // A picture with alpha keeps it and ignores the key colour.
    QImage alpha(7, 5, QImage::Format_ARGB32);
    alpha.fill(QColor(0, 255, 0, 255));
    alpha.setPixelColor(2, 2, QColor(0, 0, 0, 0));
    TQzPicture(FOther).LoadFromBytes(Encode(alpha, "PNG"), "alpha.png");
    const QImage drawn = Draw(transparent, FOther);
    EXPECT_EQ(drawn.pixelColor(3, 3), Back);
    EXPECT_EQ(drawn.pixelColor(1, 5), QColor(Qt::green));

    TQzDrawOptions stretched;
    stretched.Stretch = true;
    stretched.Disabled = true;
    const QImage grey = Draw(stretched);
    EXPECT_NE(grey.pixelColor(0, 0), Back) << "stretched over the whole rect";
    const QColor wasRed = grey.pixelColor(4, 2);
    EXPECT_LT(std::abs(wasRed.red() - wasRed.green()), 20) << "disabled: grey";
}

TEST_F(PictureGui, ThumbnailsAreDrawnOncePerPictureCellAndOptions)
{
    TQzThumbnailCache cache;
    const QSize cell(16, 16);
    const TQzDrawOptions options;
    const QImage first = cache.Thumbnail(FImage, cell, options);
    EXPECT_EQ(first.size(), cell);
    EXPECT_EQ(first.pixelColor(0, 0).alpha(), 0) << "outside the picture: transparent";
    cache.Thumbnail(FImage, cell, options);
    EXPECT_EQ(cache.Renders(), 1);

    TQzDrawOptions transparent;
    transparent.Transparent = true;
    const struct {
        const char* Change;
        std::function<void()> Apply;
        QSize Cell;
        TQzDrawOptions Options;
    } cases[] = {
        {"another cell size", [] {}, QSize(20, 16), options},
        {"other options", [] {}, QSize(20, 16), transparent},
        {"a new mask", [&] { TQzPicture(FImage).CreateInternalMask(RedTColor); }, QSize(20, 16), transparent},
        {"a new picture of the same size in bytes",
         [&] {
             QImage changed = KnownPicture();
             changed.setPixelColor(6, 0, Qt::black);
             TQzPicture(FImage).LoadFromBytes(Encode(changed, "PNG"), "changed.png");
         },
         QSize(20, 16), transparent},
    };
    Int64 renders = cache.Renders();
    for (const auto& c : cases) {
        c.Apply();
        cache.Thumbnail(FImage, c.Cell, c.Options);
        EXPECT_EQ(cache.Renders(), ++renders) << c.Change;
        cache.Thumbnail(FImage, c.Cell, c.Options);
        EXPECT_EQ(cache.Renders(), renders) << c.Change << " (again)";
    }
    TQzPkgImagesImage* empty = FPkg.Images()->Add(3);
    EXPECT_TRUE(cache.Thumbnail(empty, cell, options).isNull());
    EXPECT_TRUE(cache.Thumbnail(nullptr, cell, options).isNull());
}

} // namespace
