#pragma once
// The component palette's pictures: one 24x24 picture per palette class,
// drawn here so they need no files. Each carries its page's colour, a small
// picture of what the class is, and a two- or three-letter abbreviation.
// They are known by the class name in capitals ("TQZLABEL"), as the
// palette's resources are named.

#include "rtl/System.h"

#include <QByteArray>
#include <QImage>

#include <vector>

inline constexpr int QzPaletteBitmapSize = 24;

// The picture of className (in any case, "TQzLabel" or "TQZLABEL"); a null
// image for a class without a palette button. Drawing needs no
// QGuiApplication.
QImage QzPaletteBitmap(const AnsiString& className);
// The same as PNG bytes; empty for a class without one.
QByteArray QzPaletteBitmapPng(const AnsiString& className);
// The names of every picture, in capitals and in palette order.
std::vector<AnsiString> QzPaletteBitmapNames();
