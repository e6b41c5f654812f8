#include "runtime/pictures/QzPng.h"

#include <QBuffer>

namespace {

constexpr int DotsPerMeterAt96Dpi = 3780;

} // namespace

QByteArray QzPicturePng(const QImage& image)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (image.isNull() || !image.save(&buffer, "PNG"))
        return {};
    return bytes;
}

QByteArray QzDrawnPicturePng(QImage image)
{
    image.setDotsPerMeterX(DotsPerMeterAt96Dpi);
    image.setDotsPerMeterY(DotsPerMeterAt96Dpi);
    return QzPicturePng(image);
}
