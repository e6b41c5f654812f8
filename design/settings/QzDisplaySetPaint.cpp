#include "design/settings/QzDisplaySetPaint.h"

#include "design/controls/QzDisplayPreview.h"
#include "runtime/model/QzPkgImages.h"
#include "runtime/pictures/Qzdrawutil.h"
#include "vcl/QzQtString.h"

#include <QPainter>

namespace {

constexpr int MaxTiles = 400;   // a tiny picture must not stall the list

void DrawPicture(QPainter& painter, const QRect& rect, const TQzPkgDisplaySetBackGround& set)
{
    const TQzMemoryImage* image = set.Image();
    const TQzPkgImagesImage* item = image->Image();
    if (!item || item->Empty())
        return;
    const bool transparent = set.Transparent();
    if (set.Style() == bgImage || item->Width() <= 0 || item->Height() <= 0) {
        QzDrawImage(&painter, rect, image, QzColorNone, QzColorNone, false, isNormal, transparent, true, -1, -1, false);
        return;
    }
    painter.save();
    painter.setClipRect(rect);
    int tiles = 0;
    for (int y = rect.top(); y <= rect.bottom() && tiles < MaxTiles; y += item->Height())
        for (int x = rect.left(); x <= rect.right() && tiles < MaxTiles; x += item->Width(), ++tiles)
            QzDrawImage(&painter, QRect(x, y, item->Width(), item->Height()), image, QzColorNone, QzColorNone, false,
                        isNormal, transparent, true, -1, -1, false);
    painter.restore();
}

}  // namespace

void QzPaintBackGroundSet(QPainter& painter, const QRect& rect, const TQzPkgDisplaySetBackGround& set)
{
    QzPaintBackGround(painter, rect, set.Values());
    if (set.Style() == bgImage || set.Style() == bgImageTile)
        DrawPicture(painter, rect, set);
}

void QzPaintColorSet(QPainter& painter, const QRect& rect, const TQzPkgDisplaySetColor& set)
{
    painter.fillRect(rect, QzColorToQColor(set.Color()));
    painter.save();
    painter.setPen(QColor(0x80, 0x80, 0x80));
    painter.drawRect(rect.adjusted(0, 0, -1, -1));
    painter.restore();
}

void QzPaintFontSet(QPainter& painter, const QRect& rect, const TQzPkgDisplaySetFont& set)
{
    painter.save();
    painter.setClipRect(rect);
    painter.setFont(QzFontOfValues(set.Values()));
    painter.setPen(QzColorToQColor(set.Values().Color));
    const TQzFontValues& values = set.Values();
    const QString sample = QStringLiteral("%1 %2: AaBbYyZz 0123").arg(QzQString(values.Name)).arg(values.Size);
    painter.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter, sample);
    painter.restore();
}

void QzPaintDisplaySet(QPainter& painter, const QRect& rect, const TQzPkgDisplaySet& set)
{
    if (auto* back = dynamic_cast<const TQzPkgDisplaySetBackGround*>(&set))
        QzPaintBackGroundSet(painter, rect, *back);
    else if (auto* color = dynamic_cast<const TQzPkgDisplaySetColor*>(&set))
        QzPaintColorSet(painter, rect, *color);
    else if (auto* font = dynamic_cast<const TQzPkgDisplaySetFont*>(&set))
        QzPaintFontSet(painter, rect, *font);
}
