#pragma once
// Pictures for the picture code's tests: small images whose pixels are
// known, encoded by Qt, and a snapshot of everything an image carries, to
// check that a failed operation left it as it was.

#include "runtime/model/QzPkgImages.h"

#include <QBuffer>
#include <QImage>

#include <string>

namespace QzPictureTest {

inline std::string Encode(const QImage& picture, const char* format)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, format);
    return bytes.toStdString();
}

// 7 x 5, white, with a 3 x 2 block of pure red at (2, 1) and the
// bottom-left pixel blue: red is the transparent colour the tests pick,
// blue the one "from the picture".
inline QImage KnownPicture()
{
    QImage picture(7, 5, QImage::Format_RGB32);
    picture.fill(Qt::white);
    for (int y = 1; y < 3; ++y)
        for (int x = 2; x < 5; ++x)
            picture.setPixelColor(x, y, Qt::red);
    picture.setPixelColor(0, 4, Qt::blue);
    return picture;
}

inline constexpr int RedTColor = 0x000000FF;  // 0x00BBGGRR

struct TSnapshot {
    std::string Data;
    AnsiString GraphicClass;
    Integer Width = 0;
    Integer Height = 0;
    TQzPkgExtensions Extensions;
    bool operator==(const TSnapshot&) const = default;
};

inline TSnapshot Snapshot(const TQzPkgImagesImage& image)
{
    return {image.PictureData(), image.GraphicClass(), image.Width(), image.Height(), image.Extensions()};
}

} // namespace QzPictureTest
