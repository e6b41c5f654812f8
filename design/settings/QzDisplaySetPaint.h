#pragma once
// How a display set looks, painted into a rectangle: the set dialogs'
// lists and previews show each set with it.

#include "runtime/model/QzPkgDisplay.h"

class QPainter;
class QRect;

// A background set as controls paint it: its colours, then for the picture
// styles the picture stretched over the rectangle or tiled from its corner.
void QzPaintBackGroundSet(QPainter& painter, const QRect& rect, const TQzPkgDisplaySetBackGround& set);

// A colour set as a swatch with a frame.
void QzPaintColorSet(QPainter& painter, const QRect& rect, const TQzPkgDisplaySetColor& set);

// A font set as a line of sample text in its font and colour, clipped to the
// rectangle.
void QzPaintFontSet(QPainter& painter, const QRect& rect, const TQzPkgDisplaySetFont& set);

// Any of the three.
void QzPaintDisplaySet(QPainter& painter, const QRect& rect, const TQzPkgDisplaySet& set);
