#pragma once
// Drawing package images with their masks, and the thumbnail cache of the
// editors' image grids.
//
// runtime/util's QzDrawImage (Qzdrawutil.h) keys transparency on a colour;
// the overloads here honour an image's internal mask first, so a picture
// whose transparency was touched up in the mask editor shows as edited.

#include "runtime/model/QzTypes.h"
#include "runtime/pictures/QzPictureMasks.h"

#include <QImage>
#include <QRect>

#include <cstddef>
#include <unordered_map>

class QPainter;
class TQzMemoryImage;
class TQzPkgImagesImage;

struct TQzDrawOptions {
    // Filled first; QzMaskColorAuto: nothing is filled.
    TColor BackColor = QzMaskColorAuto;
    // Cut away what the internal mask clears; without a mask a picture with
    // an alpha channel keeps it, any other loses the pixels of
    // TransparentColor (QzMaskColorAuto: the colour of its bottom-left pixel).
    bool Transparent = false;
    TColor TransparentColor = QzMaskColorAuto;
    // Fill the rectangle (keeping the proportions with Proportional);
    // otherwise the picture keeps its size, centred and clipped.
    bool Stretch = false;
    bool Proportional = false;
    // Shades of grey at half strength, as a disabled control shows it.
    bool Disabled = false;
    bool operator==(const TQzDrawOptions&) const = default;
};

// The picture of image as drawing shows it (transparency and disabled look
// applied, not yet placed); null when empty or undecodable.
QImage QzPreparedPicture(const TQzPkgImagesImage& image, const TQzDrawOptions& options);

// Draws image into rect. Nothing is drawn (beyond the back colour) for a
// null or empty image or one whose picture does not decode.
void QzDrawImage(QPainter* canvas, const QRect& rect, const TQzPkgImagesImage* image,
                 const TQzDrawOptions& options);
// The image a memory reference leads to.
void QzDrawImage(QPainter* canvas, const QRect& rect, const TQzMemoryImage* memoryImage,
                 const TQzDrawOptions& options);

// Thumbnails for grids of images: each image is decoded and drawn into its
// cell once, and again only when its picture, its internal mask, the cell
// size or the options change (an image is known by its address and checked
// by the size and a hash of its bytes, so an edited picture, or a new image
// at a freed one's address, is never shown stale).
class TQzThumbnailCache {
public:
    explicit TQzThumbnailCache(size_t capacity = 4096) : FCapacity(capacity) {}

    // A transparent ARGB32 picture of exactly cellSize with the image drawn
    // into it; null for a null or empty image. Valid until the next call.
    const QImage& Thumbnail(const TQzPkgImagesImage* image, QSize cellSize, const TQzDrawOptions& options);
    // Forget one image (when it is freed) or all.
    void Invalidate(const TQzPkgImagesImage* image) { FEntries.erase(image); }
    void Clear() { FEntries.clear(); }
    size_t Count() const { return FEntries.size(); }
    // Thumbnails drawn since construction: what the cache saved is the
    // number of calls minus this.
    Int64 Renders() const { return FRenders; }

private:
    struct TEntry {
        size_t DataSize = 0;
        size_t Hash = 0;
        QSize Cell;
        TQzDrawOptions Options;
        QImage Thumbnail;
    };

    size_t FCapacity;
    Int64 FRenders = 0;
    std::unordered_map<const TQzPkgImagesImage*, TEntry> FEntries;
    QImage FNone;
};
