#pragma once
// PNG bytes of an image, for pictures the program draws and pictures taken
// from outside.

#include <QByteArray>
#include <QImage>

// Pictures the program draws are stored at 96 dots per inch whatever the
// screen, so that the same drawing gives the same bytes with or without a
// display; a picture from outside keeps its own resolution. Empty when the
// image cannot be encoded.
QByteArray QzDrawnPicturePng(QImage image);
QByteArray QzPicturePng(const QImage& image);
