#pragma once
// Masks and regions of package images, and the mask editor's design values.
//
// An image may carry two independent 1-bit masks of its picture's size, each
// usually made from a transparent colour and then touched up in the mask
// editor:
//  - the internal mask is the picture's own transparency: where it is clear,
//    drawing the image leaves the background showing;
//  - the external mask is the outline of a window or control that wears the
//    picture as its skin: its region (CreateExternalRgn) becomes the window's
//    shape, so clicks outside it fall through.
// A mask is a QImage of Format_Mono whose pixel index 1 (colour1, black)
// marks a pixel that belongs to the picture or window and index 0 (colour0,
// white) one that is cut away, as QBitmap and QRegion(QBitmap) have it.
//
// Each mask lives in an extension block of the image; the design values in
// another; the package's designer settings in a block of the package.
// docs/file-formats.md describes the blocks.

#include "runtime/model/QzTypes.h"
#include "runtime/pictures/Qzdrawutil.h"

#include <QImage>
#include <QRegion>

#include <array>
#include <string>
#include <string_view>

class TQzPkgImages;

inline constexpr const char* QzExtInternalMask = "InternalMask";
inline constexpr const char* QzExtExternalMask = "ExternalMask";
inline constexpr const char* QzExtDesign = "Design";
inline constexpr const char* QzExtDesignerSettings = "DesignerSettings";

// "Take the transparent colour from the picture": its bottom-left pixel, as
// transparent bitmaps of the suite's era chose it. The colour "none" of the
// drawing code, which means the same there.
inline constexpr TColor QzMaskColorAuto = QzColorNone;

// The mask of picture in which every pixel of colour (0x00BBGGRR; system
// colours are taken from the palette; QzMaskColorAuto: the bottom-left
// pixel) and every fully transparent pixel is cut away. A null picture gives
// a null mask.
QImage QzMaskFromColor(const QImage& picture, TColor color);

// Pixels of a mask that are cut away (index 0).
Int64 QzMaskClearCount(const QImage& mask);

// The region of a mask's set pixels: each scan line's runs become
// rectangles, and lines with the same runs merge into one band, so a plain
// shape costs a handful of rectangles rather than one per line.
QRegion QzMaskRegion(const QImage& mask);

// A mask block: the mask and the colour it was made from (QzMaskColorAuto
// after hand editing). The bits are compressed; an empty mask encodes to "".
struct TQzMaskBlock {
    QImage Mask;
    TColor Color = QzMaskColorAuto;
};
std::string QzEncodeMaskBlock(const TQzMaskBlock& block);
// Raises EInvalidGraphic "<what>: <problem>" for a damaged block.
TQzMaskBlock QzDecodeMaskBlock(std::string_view bytes, const AnsiString& what);

// Per image: three switches and eight values of the mask editor (the
// positions of its resizing bars and how they apply). Their meaning belongs
// to the mask editor; the picture code only keeps them. All zero is the
// default and is stored as no block at all.
struct TQzImageDesign {
    std::array<bool, 3> Flags{};
    std::array<Integer, 8> Values{};
    bool operator==(const TQzImageDesign&) const = default;
};
std::string QzEncodeImageDesign(const TQzImageDesign& design);
TQzImageDesign QzDecodeImageDesign(std::string_view bytes, const AnsiString& what);

// Per package: the mask editor's own settings (five values and three
// switches), shared by every image of the package.
struct TQzImagesDesignerSettings {
    std::array<Integer, 5> Values{};
    std::array<bool, 3> Flags{};
    bool operator==(const TQzImagesDesignerSettings&) const = default;
};
std::string QzEncodeDesignerSettings(const TQzImagesDesignerSettings& settings);
TQzImagesDesignerSettings QzDecodeDesignerSettings(std::string_view bytes, const AnsiString& what);

// The package's settings (defaults when it has none or the block is
// damaged), and setting them (defaults remove the block).
TQzImagesDesignerSettings QzGetDesignerSettings(const TQzPkgImages& package);
void QzSetDesignerSettings(TQzPkgImages& package, const TQzImagesDesignerSettings& settings);
