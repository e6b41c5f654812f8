#include "design/images/QzRgnView.h"

#include "design/images/Qzruler.h"

#include <QMouseEvent>
#include <QPainter>

#include <cmath>

namespace {

constexpr int CheckerSide = 8;

// Where pixels are cut away the checkerboard shows through, as image
// editors show transparency.
void PaintChecker(QPainter& painter, const QRect& rect)
{
    painter.fillRect(rect, QColor(0xFF, 0xFF, 0xFF));
    const QColor dark(0xCC, 0xCC, 0xCC);
    for (int y = rect.top(); y <= rect.bottom(); y += CheckerSide)
        for (int x = rect.left() + ((y - rect.top()) / CheckerSide % 2) * CheckerSide; x <= rect.right();
             x += 2 * CheckerSide)
            painter.fillRect(QRect(x, y, CheckerSide, CheckerSide).intersected(rect), dark);
}

}  // namespace

TQzRgnView::TQzRgnView(TQzRgnDocument* document, QWidget* parent) : QWidget(parent), FDocument(document)
{
    setMouseTracking(true);
    setCursor(Qt::CrossCursor);
    setAttribute(Qt::WA_OpaquePaintEvent);
    Refresh();
}

void TQzRgnView::SetZoom(Integer percent)
{
    FZoom = percent;
    const QSize size = FDocument->Size() * (FZoom / 100.0);
    setFixedSize(size.expandedTo(QSize(1, 1)));
    update();
}

QPoint TQzRgnView::PicturePoint(QPoint widgetPoint) const
{
    return {static_cast<int>(std::floor(widgetPoint.x() * 100.0 / FZoom)),
            static_cast<int>(std::floor(widgetPoint.y() * 100.0 / FZoom))};
}

void TQzRgnView::Refresh()
{
    FPreview = FDocument->Preview();
    update();
}

void TQzRgnView::paintEvent(QPaintEvent* event)
{
    QPainter painter(this);
    PaintChecker(painter, event->rect());
    // No smoothing: at a zoom every picture pixel is a square the user aims at.
    painter.drawImage(rect(), FPreview);
}

void TQzRgnView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton && event->button() != Qt::RightButton)
        return;
    // The right button does the opposite of the tool, so cutting and
    // restoring need no switch of tools.
    const bool cut = (FTool != TQzRgnTool::Erase) == (event->button() == Qt::LeftButton);
    const QPoint at = PicturePoint(event->position().toPoint());
    if (FTool == TQzRgnTool::Fill) {
        FDocument->Fill(at, cut, FFillByColor);
    } else {
        FDocument->BeginStroke(cut, FBrushSize);
        FDocument->StrokeTo(at);
    }
    Refresh();
    emit Edited();
}

void TQzRgnView::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint at = PicturePoint(event->position().toPoint());
    emit PointerMoved(at);
    if (FDocument->InStroke()) {
        FDocument->StrokeTo(at);
        Refresh();
    }
}

void TQzRgnView::mouseReleaseEvent(QMouseEvent*)
{
    if (!FDocument->InStroke())
        return;
    FDocument->EndStroke();
    emit Edited();
}

void TQzRgnView::leaveEvent(QEvent*)
{
    emit PointerMoved({-1, -1});
}

TQzRulerBar::TQzRulerBar(bool horizontal, QWidget* parent)
    : QWidget(parent), FRuler(std::make_unique<TQzRuler>(nullptr))
{
    FRuler->SetOrientation(horizontal ? roHorizontal : roVertical);
    setSizePolicy(horizontal ? QSizePolicy::Expanding : QSizePolicy::Fixed,
                  horizontal ? QSizePolicy::Fixed : QSizePolicy::Expanding);
}

TQzRulerBar::~TQzRulerBar() = default;

void TQzRulerBar::SetZoom(Integer percent)
{
    FRuler->SetZoom(percent);
    update();
}

void TQzRulerBar::SetScroll(int screenPixels)
{
    FScroll = screenPixels;
    update();
}

void TQzRulerBar::SetMarker(Integer picturePixel)
{
    FRuler->SetMarker(picturePixel);
    update();
}

QSize TQzRulerBar::sizeHint() const
{
    const int depth = fontMetrics().height() + 6;
    return FRuler->Orientation() == roHorizontal ? QSize(200, depth) : QSize(depth + 12, 200);
}

void TQzRulerBar::paintEvent(QPaintEvent*)
{
    // The ruler scrolls by whole picture pixels; the rest of the scroll
    // position shifts the painting, so marks stay under their pixels.
    const Integer zoom = FRuler->Zoom();
    const Integer offset = static_cast<Integer>(std::floor(FScroll * 100.0 / zoom));
    const int rest = FScroll - static_cast<int>(std::lround(offset * zoom / 100.0));
    FRuler->SetOffset(offset);
    QPainter painter(this);
    const bool horizontal = FRuler->Orientation() == roHorizontal;
    const QRect area = horizontal ? rect().adjusted(-rest, 0, 0, 0) : rect().adjusted(0, -rest, 0, 0);
    FRuler->Paint(painter, area, logicalDpiX());
}
