#pragma once
// Drawing package pictures (unit Qzdrawutil): the image lists of the
// editors and the controls paint the picture a memory image points at. The
// decoding, masks and thumbnails are the picture code's (runtime/pictures);
// this is the suite's call over it.

#include "runtime/model/QzTypes.h"

#include <QColor>

class QPainter;
class QRect;
class TQzMemoryImage;

// How a picture is shown: as it is, greyed for a disabled control, pressed
// (one pixel down and right), or lit under the mouse.
enum TQzImageState { isNormal, isDisabled, isDown, isHot };

// The colour "none": nothing is filled, or the transparent colour is taken
// from the picture itself.
inline constexpr TColor QzColorNone = 0x1FFFFFFF;

// The RGB of a colour as the suite stores it: 0x00BBGGRR, or a system
// colour (0xFF0000nn) taken from the application's palette.
QColor QzColorToQColor(TColor color);

// Draws the picture memoryImage points at into rect:
//  - backColor fills rect first (QzColorNone: nothing is filled);
//  - with transparent, the image's internal mask cuts the picture; without
//    one, a picture without an alpha channel shows the pixels of
//    transparentColor as transparent (QzColorNone: the colour of its
//    bottom-left pixel, as the suite's pictures are drawn);
//  - grayed or state isDisabled draws it as a disabled control shows it
//    (runtime/pictures, QzPreparedPicture); isDown moves it one pixel right
//    and down; isHot lightens it;
//  - stretch fills rect (keeping the proportions when proportional is set);
//    otherwise it is drawn at width x height (-1: its own size) and centred
//    in rect, clipped to it.
// Nothing is drawn for a null or empty reference or a picture that cannot
// be decoded.
void QzDrawImage(QPainter* canvas, const QRect& rect, const TQzMemoryImage* memoryImage, TColor backColor,
                 TColor transparentColor, bool grayed, TQzImageState state, bool transparent, bool stretch,
                 int width, int height, bool proportional);
