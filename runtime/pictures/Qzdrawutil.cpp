#include "runtime/pictures/Qzdrawutil.h"

#include "runtime/model/QzMemory.h"
#include "runtime/model/QzPkgImages.h"
#include "runtime/pictures/QzPictureDraw.h"

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
    // The picture code decodes by content and cuts away the image's own mask
    // before keying on a colour.
    TQzDrawOptions options;
    options.Transparent = transparent;
    options.TransparentColor = transparentColor;
    options.Disabled = grayed || state == isDisabled;
    QImage picture = QzPreparedPicture(*image, options);
    if (picture.isNull())
        return;
    if (state == isHot && !options.Disabled)
        picture = Lightened(picture);
    QRect target = Target(rect, picture.size(), stretch, width, height, proportional);
    if (state == isDown)
        target.translate(1, 1);
    canvas->save();
    canvas->setClipRect(rect, Qt::IntersectClip);
    canvas->setRenderHint(QPainter::SmoothPixmapTransform, target.size() != picture.size());
    canvas->drawImage(target, picture);
    canvas->restore();
}
