#include "vcl/QzWindowBounds.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <algorithm>
#include <limits>

namespace {

// Left/Top are the frame's position and Width/Height the client size, as
// QWidget::move and QWidget::resize take them, so storing and restoring
// round-trips whatever the window manager's frame is.
QPoint FrameOffset(const QWidget* window)
{
    return window->geometry().topLeft() - window->pos();
}

QRect NormalBounds(const QWidget* window)
{
    if (window->isMaximized() || window->isMinimized() || window->isFullScreen()) {
        const QRect normal = window->normalGeometry();
        if (normal.isValid())
            return {normal.topLeft() - FrameOffset(window), normal.size()};
    }
    return {window->pos(), window->size()};
}

QList<QRect> AvailableAreas()
{
    QList<QRect> areas;
    for (const QScreen* screen : QGuiApplication::screens())
        areas.append(screen->availableGeometry());
    return areas;
}

QRect FrameOf(const QWidget* window)
{
    // A window not yet shown has no frame: its frame is its geometry.
    return window->frameGeometry();
}

void SetFrame(QWidget* window, const QRect& frame)
{
    const QSize margins = FrameOf(window).size() - window->size();
    window->resize(frame.size() - margins);
    window->move(frame.topLeft());
}

// Gives a window that has not been laid out yet its preferred size, so that
// centring uses the size it will show with.
void EnsureSized(QWidget* window)
{
    if (!window->testAttribute(Qt::WA_Resized) && !window->isVisible())
        window->adjustSize();
}

long long Overlap(const QRect& a, const QRect& b)
{
    const QRect common = a.intersected(b);
    return common.isEmpty() ? 0 : static_cast<long long>(common.width()) * common.height();
}

long long CentreDistance(const QRect& a, const QRect& b)
{
    const QPoint d = a.center() - b.center();
    return static_cast<long long>(d.x()) * d.x() + static_cast<long long>(d.y()) * d.y();
}

int FitAxis(int pos, int size, int areaPos, int areaSize)
{
    if (pos + size > areaPos + areaSize)
        pos = areaPos + areaSize - size;
    return std::max(pos, areaPos);
}

}  // namespace

void QzSaveResizeInfoDesigner(QWidget* form, TQzResizeInfoDesigner& info)
{
    const QRect bounds = NormalBounds(form);
    info.Left = bounds.left();
    info.Top = bounds.top();
    info.Width = bounds.width();
    info.Height = bounds.height();
    info.Maximized = form->isMaximized();
    info.Stored = true;
}

void QzRestoreResizeInfoDesigner(QWidget* form, TQzResizeInfoDesigner& info)
{
    if (!info.Stored)
        return;
    form->resize(info.Width, info.Height);
    form->move(info.Left, info.Top);
    QzAdjustWindow(form);
    if (info.Maximized)
        form->setWindowState(form->windowState() | Qt::WindowMaximized);
}

TQzPlacementTracker::TQzPlacementTracker(QWidget* window, const TQzWindowPlacement& stored)
    : QObject(window), FWindow(window), FStored(stored)
{
    if (stored.IsPlaced()) {
        window->resize(stored.Width, stored.Height);
        window->move(stored.Left, stored.Top);
        QzAdjustWindow(window);
    } else {
        QzCenterWindow(window);
    }
    FNormal = {window->pos(), window->size()};
    // Qt keeps the normal bounds set above and maximizes when showing.
    if (stored.State == wsMaximized)
        window->setWindowState(window->windowState() | Qt::WindowMaximized);
    FState = stored.State == wsMaximized ? wsMaximized : wsNormal;
    window->installEventFilter(this);
}

TQzWindowPlacement TQzPlacementTracker::Current() const
{
    return {FNormal.left(), FNormal.top(), FNormal.width(), FNormal.height(), FState};
}

bool TQzPlacementTracker::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == FWindow) {
        switch (event->type()) {
        case QEvent::Move:
        case QEvent::Resize:
        case QEvent::WindowStateChange:
            Remember();
            break;
        default:
            break;
        }
    }
    return QObject::eventFilter(watched, event);
}

void TQzPlacementTracker::Remember()
{
    const Qt::WindowStates state = FWindow->windowState();
    if (state & Qt::WindowMaximized)
        FState = wsMaximized;
    else if (state & Qt::WindowMinimized)
        FState = wsMinimized;
    else
        FState = wsNormal;
    // Moves and sizes while maximized or minimized are not the user's bounds.
    if (FState == wsNormal && !FWindow->isFullScreen())
        FNormal = {FWindow->pos(), FWindow->size()};
}

void QzCenterWindow(QWidget* window)
{
    EnsureSized(window);
    const QScreen* screen = window->screen();
    if (screen == nullptr)
        screen = QGuiApplication::primaryScreen();
    if (screen == nullptr)
        return;
    QRect frame = FrameOf(window);
    frame.moveCenter(screen->availableGeometry().center());
    SetFrame(window, QzFitRectOnScreens(frame, {screen->availableGeometry()}));
}

void QzAdjustWindow(QWidget* window)
{
    const QRect frame = FrameOf(window);
    const QRect fitted = QzFitRectOnScreens(frame, AvailableAreas());
    if (fitted != frame)
        SetFrame(window, fitted);
}

QRect QzFitRectOnScreens(const QRect& rect, const QList<QRect>& areas)
{
    if (areas.isEmpty())
        return rect;
    const QRect* best = &areas.front();
    long long bestOverlap = -1;
    long long bestDistance = std::numeric_limits<long long>::max();
    for (const QRect& area : areas) {
        const long long overlap = Overlap(rect, area);
        const long long distance = CentreDistance(rect, area);
        if (overlap > bestOverlap || (overlap == 0 && bestOverlap == 0 && distance < bestDistance)) {
            best = &area;
            bestOverlap = overlap;
            bestDistance = distance;
        }
    }
    const QSize size = rect.size().boundedTo(best->size());
    return {FitAxis(rect.left(), size.width(), best->left(), best->width()),
            FitAxis(rect.top(), size.height(), best->top(), best->height()), size.width(), size.height()};
}
