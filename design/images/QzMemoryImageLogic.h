#pragma once
// What the image add/modify dialog does to its working image, apart from
// the window: masks made from a colour or a file and cleared, the preview
// and the description line, and the name a picture is saved under. Each
// operation either succeeds or raises EInvalidGraphic naming the file (or
// the clipboard) with the image unchanged, so the dialog only reports.

#include "runtime/model/QzTypes.h"

#include <QImage>

class TQzPkgImagesImage;

// Which of an image's two masks an operation works on: the transparency of
// the picture itself, or the outline of the window that wears it.
enum class TQzMaskKind { Internal, External };

// The mask of kind made from the picture's pixels of colour (QzMaskColorAuto:
// the bottom-left pixel's). Raises EInvalidGraphic for an empty image.
void QzImageMaskFromColor(TQzPkgImagesImage& image, TQzMaskKind kind, TColor color);
// The mask of kind read from a picture file of the image's size: its dark
// opaque pixels keep the picture, light or transparent ones cut it away.
void QzImageMaskFromFile(TQzPkgImagesImage& image, TQzMaskKind kind, const AnsiString& fileName);
void QzImageClearMask(TQzPkgImagesImage& image, TQzMaskKind kind);
bool QzImageHasMask(const TQzPkgImagesImage& image, TQzMaskKind kind);

// The picture with what its internal mask cuts away fully transparent, in
// ARGB32; null for an empty image or one that does not decode. What the
// preview shows and what an exported PNG holds.
QImage QzPictureWithMaskAlpha(const TQzPkgImagesImage& image);

// "(Portable Network Graphics) (32x16)", or "(None)" for an empty image.
AnsiString QzImageDescription(const TQzPkgImagesImage& image);

// The save dialog's filter: the picture's own format first, then the
// suite's image files.
AnsiString QzImageSaveFilter(const TQzPkgImagesImage& image);
// The name a picture is written under: a name without extension gets the
// picture's own (filter 1) or ".IMQZ" (any other filter).
AnsiString QzImageSaveName(const AnsiString& fileName, int filterIndex, const TQzPkgImagesImage& image);
