#include "runtime/pictures/QzPictureDraw.h"

#include "runtime/model/QzMemory.h"
#include "runtime/model/QzPkgImages.h"
#include "runtime/pictures/QzPicture.h"
#include "runtime/pictures/Qzdrawutil.h"

#include <QPainter>

#include <functional>
#include <string_view>

namespace {

void ApplyMask(QImage& picture, const QImage& mask)
{
    for (int y = 0; y < picture.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        const uchar* bits = mask.constScanLine(y);
        for (int x = 0; x < picture.width(); ++x)
            if ((bits[x >> 3] & (0x80 >> (x & 7))) == 0)
                line[x] = 0;
    }
}

void KeyOut(QImage& picture, TColor color)
{
    // The mask code already knows how to pick the key colour.
    ApplyMask(picture, QzMaskFromColor(picture, color));
}

void Disable(QImage& picture)
{
    for (int y = 0; y < picture.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < picture.width(); ++x) {
            const int grey = qGray(line[x]);
            line[x] = qRgba(grey, grey, grey, qAlpha(line[x]) / 2);
        }
    }
}

QRect Placement(const QRect& rect, QSize size, const TQzDrawOptions& options)
{
    if (options.Stretch && !options.Proportional)
        return rect;
    if (options.Stretch)
        size.scale(rect.size(), Qt::KeepAspectRatio);
    QRect target(QPoint(0, 0), size);
    target.moveCenter(rect.center());
    return target;
}

size_t ContentHash(const TQzPkgImagesImage& image)
{
    const std::hash<std::string_view> hash;
    const size_t picture = hash(image.PictureData());
    const size_t mask = hash(image.Extensions().Get(QzExtInternalMask));
    return picture ^ (mask + 0x9E3779B97F4A7C15ull + (picture << 6) + (picture >> 2));
}

} // namespace

QImage QzPreparedPicture(const TQzPkgImagesImage& image, const TQzDrawOptions& options)
{
    QImage picture;
    try {
        picture = TQzPicture(&image).Decode();
    } catch (const EInvalidGraphic&) {
        return {};  // a list keeps painting the other images
    }
    if (picture.isNull())
        return {};
    const bool hasAlpha = picture.hasAlphaChannel();
    picture = picture.convertToFormat(QImage::Format_ARGB32);
    if (options.Transparent) {
        const QImage mask = TQzPicture(&image).GetInternalMask();
        if (!mask.isNull())
            ApplyMask(picture, mask);
        else if (!hasAlpha)
            KeyOut(picture, options.TransparentColor);
    }
    if (options.Disabled)
        Disable(picture);
    return picture;
}

void QzDrawImage(QPainter* canvas, const QRect& rect, const TQzPkgImagesImage* image, const TQzDrawOptions& options)
{
    if (canvas == nullptr)
        return;
    if (options.BackColor != QzMaskColorAuto)
        canvas->fillRect(rect, QzColorToQColor(options.BackColor));
    if (image == nullptr)
        return;
    const QImage picture = QzPreparedPicture(*image, options);
    if (picture.isNull())
        return;
    canvas->save();
    canvas->setClipRect(rect, Qt::IntersectClip);
    canvas->setRenderHint(QPainter::SmoothPixmapTransform, options.Stretch);
    canvas->drawImage(Placement(rect, picture.size(), options), picture);
    canvas->restore();
}

void QzDrawImage(QPainter* canvas, const QRect& rect, const TQzMemoryImage* memoryImage,
                 const TQzDrawOptions& options)
{
    QzDrawImage(canvas, rect, memoryImage ? memoryImage->Image() : nullptr, options);
}

const QImage& TQzThumbnailCache::Thumbnail(const TQzPkgImagesImage* image, QSize cellSize,
                                           const TQzDrawOptions& options)
{
    if (image == nullptr || image->Empty() || cellSize.isEmpty())
        return FNone;
    const size_t dataSize = image->PictureData().size();
    const size_t hash = ContentHash(*image);
    auto found = FEntries.find(image);
    if (found != FEntries.end()) {
        const TEntry& entry = found->second;
        if (entry.DataSize == dataSize && entry.Hash == hash && entry.Cell == cellSize && entry.Options == options)
            return entry.Thumbnail;
    } else if (FEntries.size() >= FCapacity) {
        // Grids show a few hundred cells: when a cache this large is full
        // its entries are mostly for images long gone.
        FEntries.clear();
    }

    QImage thumbnail(cellSize, QImage::Format_ARGB32_Premultiplied);
    thumbnail.fill(Qt::transparent);
    {
        QPainter painter(&thumbnail);
        QzDrawImage(&painter, QRect(QPoint(0, 0), cellSize), image, options);
    }
    ++FRenders;
    TEntry& entry = FEntries[image];
    entry = TEntry{dataSize, hash, cellSize, options, std::move(thumbnail)};
    return entry.Thumbnail;
}
