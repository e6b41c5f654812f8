#include "runtime/util/Qzdrawutil.h"

#include "runtime/model/QzMemory.h"
#include "runtime/model/QzPkgImages.h"
#include "runtime/util/QzGraphicFormats.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>

namespace {

constexpr Cardinal SystemColorFlag = 0xFF000000u;

QPalette::ColorRole SystemRole(int index, QPalette::ColorGroup& group)
{
    group = QPalette::Active;
    switch (index) {
    case 5: return QPalette::Base;             // window
    case 8: return QPalette::Text;             // window text
    case 13: return QPalette::Highlight;
    case 14: return QPalette::HighlightedText;
    case 15: return QPalette::Button;          // button face
    case 16: return QPalette::Mid;             // button shadow
    case 17: group = QPalette::Disabled; return QPalette::Text;  // grey text
    case 18: return QPalette::ButtonText;
    case 20: return QPalette::Light;           // button highlight
    case 21: return QPalette::Shadow;          // 3D dark shadow
    case 22: return QPalette::Midlight;        // 3D light
    case 23: return QPalette::ToolTipText;
    case 24: return QPalette::ToolTipBase;
    default: return QPalette::Window;
    }
}

QImage Transparented(const QImage& picture, TColor transparentColor)
{
    if (picture.hasAlphaChannel() || picture.isNull())
        return picture;
    const QColor key = transparentColor == QzColorNone ? picture.pixelColor(0, picture.height() - 1)
                                                       : QzColorToQColor(transparentColor);
    QImage out = picture.convertToFormat(QImage::Format_ARGB32);
    const QRgb keyRgb = key.rgb() & 0xFFFFFFu;
    for (int y = 0; y < out.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(out.scanLine(y));
        for (int x = 0; x < out.width(); ++x)
            if ((line[x] & 0xFFFFFFu) == keyRgb)
                line[x] = 0;
    }
    return out;
}

QImage Grayed(const QImage& picture)
{
    QImage out = picture.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < out.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(out.scanLine(y));
        for (int x = 0; x < out.width(); ++x) {
            const int g = qGray(line[x]);
            line[x] = qRgba(g, g, g, qAlpha(line[x]));
        }
    }
    return out;
}

QImage Lightened(const QImage& picture)
{
    QImage out = picture.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < out.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(out.scanLine(y));
        for (int x = 0; x < out.width(); ++x) {
            const QRgb p = line[x];
            line[x] = qRgba((qRed(p) + 255) / 2, (qGreen(p) + 255) / 2, (qBlue(p) + 255) / 2, qAlpha(p));
        }
    }
    return out;
}

QRect Target(const QRect& rect, QSize size, bool stretch, int width, int height, bool proportional)
{
    if (stretch) {
        if (!proportional)
            return rect;
        size.scale(rect.size(), Qt::KeepAspectRatio);
    } else {
        if (width >= 0)
            size.setWidth(width);
        if (height >= 0)
            size.setHeight(height);
    }
    QRect target(QPoint(0, 0), size);
    target.moveCenter(rect.center());
    return target;
}

} // namespace

QColor QzColorToQColor(TColor color)
{
    const auto bits = Cardinal(color);
    if ((bits & SystemColorFlag) == SystemColorFlag) {
        QPalette::ColorGroup group;
        const QPalette::ColorRole role = SystemRole(int(bits & 0xFFu), group);
        return QGuiApplication::palette().color(group, role);
    }
    return QColor(int(bits & 0xFFu), int((bits >> 8) & 0xFFu), int((bits >> 16) & 0xFFu));
}

QImage QzDecodeImage(const TQzPkgImagesImage& image)
{
    if (image.Empty())
        return {};
    const QByteArray bytes = QByteArray::fromRawData(image.PictureData().data(), qsizetype(image.PictureData().size()));
    const AnsiString format = UpperCase(QzGraphicFormatName(image.GraphicClass()));
    QImage picture = QImage::fromData(bytes, format.empty() ? nullptr : format.c_str());
    if (picture.isNull() && !format.empty())
        picture = QImage::fromData(bytes);  // the class may not match the bytes
    return picture;
}

void QzDrawImage(QPainter* canvas, const QRect& rect, const TQzMemoryImage* memoryImage, TColor backColor,
                 TColor transparentColor, bool grayed, TQzImageState state, bool transparent, bool stretch,
                 int width, int height, bool proportional)
{
    if (canvas == nullptr)
        return;
    if (backColor != QzColorNone)
        canvas->fillRect(rect, QzColorToQColor(backColor));
    const TQzPkgImagesImage* image = memoryImage ? memoryImage->Image() : nullptr;
    if (image == nullptr)
        return;
    QImage picture = QzDecodeImage(*image);
    if (picture.isNull())
        return;
    if (transparent)
        picture = Transparented(picture, transparentColor);
    if (grayed || state == isDisabled)
        picture = Grayed(picture);
    else if (state == isHot)
        picture = Lightened(picture);
    QRect target = Target(rect, picture.size(), stretch, width, height, proportional);
    if (state == isDown)
        target.translate(1, 1);
    canvas->save();
    canvas->setClipRect(rect, Qt::IntersectClip);
    canvas->drawImage(target, picture);
    canvas->restore();
}
