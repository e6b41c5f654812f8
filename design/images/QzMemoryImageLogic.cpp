#include "design/images/QzMemoryImageLogic.h"

#include "runtime/model/QzPkgImages.h"
#include "runtime/pictures/QzGraphicFormats.h"
#include "runtime/pictures/QzPicture.h"

#include "rtl/Streams.h"

namespace {

void SetMask(TQzPicture& picture, TQzMaskKind kind, const QImage& mask, TColor color = QzMaskColorAuto)
{
    if (kind == TQzMaskKind::Internal)
        picture.SetInternalMask(mask, color);
    else
        picture.SetExternalMask(mask, color);
}

// The picture a mask file holds, refused before anything changes when it is
// no picture or not of the image's size.
QImage ReadMaskPicture(const TQzPkgImagesImage& image, const AnsiString& fileName)
{
    std::string bytes;
    try {
        bytes = ReadFileBytes(fileName);
    } catch (const Exception& e) {
        throw EInvalidGraphic("Cannot read the mask \"" + fileName + "\": " + e.Message());
    }
    const QImage mask = QzDecodePicture(bytes, {}, fileName);
    if (mask.width() != image.Width() || mask.height() != image.Height())
        throw EInvalidGraphic("The mask \"" + fileName + "\" is " + IntToStr(mask.width()) + "x" +
                              IntToStr(mask.height()) + " pixels, the picture " + IntToStr(image.Width()) + "x" +
                              IntToStr(image.Height()));
    return mask;
}

}  // namespace

void QzImageMaskFromColor(TQzPkgImagesImage& image, TQzMaskKind kind, TColor color)
{
    TQzPicture picture(&image);
    if (kind == TQzMaskKind::Internal)
        picture.CreateInternalMask(color);
    else
        picture.CreateExternalMask(color);
}

void QzImageMaskFromFile(TQzPkgImagesImage& image, TQzMaskKind kind, const AnsiString& fileName)
{
    if (image.Empty())
        throw EInvalidGraphic("The image has no picture to put the mask \"" + fileName + "\" on");
    TQzPicture picture(&image);
    SetMask(picture, kind, ReadMaskPicture(image, fileName));
}

void QzImageClearMask(TQzPkgImagesImage& image, TQzMaskKind kind)
{
    TQzPicture picture(&image);
    SetMask(picture, kind, QImage());
}

bool QzImageHasMask(const TQzPkgImagesImage& image, TQzMaskKind kind)
{
    return image.Extensions().Has(kind == TQzMaskKind::Internal ? QzExtInternalMask : QzExtExternalMask);
}

QImage QzPictureWithMaskAlpha(const TQzPkgImagesImage& image)
{
    const TQzPicture picture(&image);
    QImage decoded;
    try {
        decoded = picture.Decode();
    } catch (const EInvalidGraphic&) {
        return {};
    }
    if (decoded.isNull())
        return {};
    QImage out = decoded.convertToFormat(QImage::Format_ARGB32);
    const QImage mask = picture.GetInternalMask();
    if (mask.isNull())
        return out;
    const QImage mono = mask.convertToFormat(QImage::Format_Mono, {qRgb(255, 255, 255), qRgb(0, 0, 0)});
    for (int y = 0; y < out.height(); ++y) {
        const uchar* bits = mono.constScanLine(y);
        auto* line = reinterpret_cast<QRgb*>(out.scanLine(y));
        for (int x = 0; x < out.width(); ++x)
            if ((bits[x >> 3] & (0x80 >> (x & 7))) == 0)
                line[x] = 0;
    }
    return out;
}

AnsiString QzImageDescription(const TQzPkgImagesImage& image)
{
    if (image.Empty())
        return "(None)";
    return "(" + QzFindGraphicDescription(image.GraphicClass()) + ") (" + IntToStr(image.Width()) + "x" +
           IntToStr(image.Height()) + ")";
}

AnsiString QzImageSaveFilter(const TQzPkgImagesImage& image)
{
    // "lala" is part of the filter's text as the suite has always shown it.
    return QzGraphicClassFilter(image.GraphicClass()) + "|QzControls Image Files lala(*.imqz)|*.IMQZ";
}

AnsiString QzImageSaveName(const AnsiString& fileName, int filterIndex, const TQzPkgImagesImage& image)
{
    if (fileName.empty() || !ExtractFileExt(fileName).empty())
        return fileName;
    if (filterIndex <= 1)
        return fileName + "." + QzGraphicExtension(image.GraphicClass());
    return fileName + ".IMQZ";
}
