#include "design/controls/QzMenuView.h"

#include "design/controls/QzMenuShortCuts.h"

#include "vcl/QzQtString.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace {

constexpr int BarPadding = 12;
constexpr int SlotWidth = 48;
constexpr int ColumnMinWidth = 120;
constexpr int ColumnPadding = 24;
constexpr int ShortCutGap = 24;
constexpr int SeparatorHeight = 9;
constexpr int Margin = 4;

}  // namespace

TQzMenuView::TQzMenuView(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setContextMenuPolicy(Qt::CustomContextMenu);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::Base);
}

void TQzMenuView::SetMenu(TQzMenuItem* root, bool bar)
{
    FRoot = root;
    FBar = bar;
    FCurrent = {0};
    Relayout();
}

void TQzMenuView::SetCurrent(const TQzMenuPath& path)
{
    FCurrent = FRoot && QzMenuPathValid(FRoot, path) ? path : TQzMenuPath{FRoot ? FRoot->Count() : 0};
    Relayout();
    emit CurrentChanged();
}

void TQzMenuView::Relayout()
{
    if (FRoot && !QzMenuPathValid(FRoot, FCurrent))
        FCurrent = {FRoot->Count()};
    Layout();
    updateGeometry();
    update();
}

void TQzMenuView::SetLook(const TQzMenuLook& look)
{
    FLook = look;
    setFont(look.Font ? *look.Font : QFont());
    Relayout();
}

QSize TQzMenuView::sizeHint() const
{
    QRect all(0, 0, 320, 200);
    for (const QRect& r : FLists)
        all |= r;
    return all.size() + QSize(Margin, Margin);
}

const TQzMenuCell* TQzMenuView::CellAt(const QPoint& pos) const
{
    // The lists opened last lie on top.
    for (auto it = FCells.rbegin(); it != FCells.rend(); ++it)
        if (it->Rect.contains(pos))
            return &*it;
    return nullptr;
}

const TQzMenuCell* TQzMenuView::CellOf(const TQzMenuPath& path) const
{
    for (const TQzMenuCell& cell : FCells)
        if (cell.Path == path)
            return &cell;
    return nullptr;
}

// ---- Layout ---------------------------------------------------------------------

void TQzMenuView::AddList(TQzMenuItem* list, const TQzMenuPath& prefix, QPoint at, bool horizontal)
{
    const QFontMetrics fm = fontMetrics();
    const int rowHeight = horizontal ? fm.height() + 8 : std::max(fm.height() + 8, FLook.ImageSize + 4);
    int width = ColumnMinWidth;
    if (!horizontal)
        for (int i = 0; i < list->Count(); ++i) {
            const TQzMenuItem* item = list->Items(i);
            const AnsiString shortCut = QzShortCutToText(item->ShortCut());
            const int w = fm.horizontalAdvance(QzQString(QzMenuItemText(item))) +
                          (shortCut.empty() ? 0 : ShortCutGap + fm.horizontalAdvance(QzQString(shortCut)));
            width = std::max(width, w + 2 * ColumnPadding + ImageColumn());
        }
    const QPoint origin = at;
    for (int i = 0; i <= list->Count(); ++i) {
        TQzMenuCell cell;
        cell.Path = prefix;
        cell.Path.push_back(i);
        cell.Slot = i == list->Count();
        const TQzMenuItem* item = cell.Slot ? nullptr : list->Items(i);
        if (horizontal) {
            const int w = cell.Slot ? SlotWidth : fm.horizontalAdvance(QzQString(QzMenuItemText(item))) + 2 * BarPadding;
            cell.Rect = QRect(at, QSize(w, rowHeight));
            at.rx() += w;
        } else {
            const int h = item && item->IsLine() ? SeparatorHeight : rowHeight;
            cell.Rect = QRect(at, QSize(width, h));
            at.ry() += h;
        }
        FCells.push_back(cell);
    }
    const QRect frame = horizontal ? QRect(origin, QPoint(std::max(at.x(), 320) - 1, origin.y() + rowHeight - 1))
                                   : QRect(origin, QPoint(origin.x() + width - 1, at.y() - 1));
    FLists.push_back(frame);
}

void TQzMenuView::Layout()
{
    FCells.clear();
    FLists.clear();
    if (!FRoot)
        return;
    AddList(FRoot, {}, QPoint(Margin, Margin), FBar);
    // The lists along the current item open one beside the other; a bar
    // item's list opens even empty, and so does the list the current place
    // lies in, so that a first sub-item can be typed.
    for (size_t depth = 1; depth <= FCurrent.size(); ++depth) {
        const TQzMenuPath prefix(FCurrent.begin(), FCurrent.begin() + long(depth));
        TQzMenuItem* item = QzMenuItemAt(FRoot, prefix);
        const bool goesInto = depth < FCurrent.size();
        if (!item || item->IsLine() || (item->Count() == 0 && !IsBarPath(prefix) && !goesInto))
            break;
        const TQzMenuCell* cell = CellOf(prefix);
        const QPoint at = IsBarPath(prefix) ? cell->Rect.bottomLeft() + QPoint(0, 1) : cell->Rect.topRight() + QPoint(1, 0);
        AddList(item, prefix, at, false);
    }
}

// ---- Painting -------------------------------------------------------------------

void TQzMenuView::Paint(QPainter& painter, const TQzMenuCell& cell) const
{
    const bool current = cell.Path == FCurrent;
    const QRect r = cell.Rect;
    const bool onBar = IsBarPath(cell.Path);
    if (cell.Slot) {
        QPen pen(palette().color(QPalette::Mid), 1, Qt::DashLine);
        painter.setPen(pen);
        painter.setBrush(current ? QBrush(palette().color(QPalette::Highlight)) : QBrush(Qt::NoBrush));
        painter.drawRect(r.adjusted(2, 2, -3, -3));
        return;
    }
    const TQzMenuItem* item = QzMenuItemAt(FRoot, cell.Path);
    if (current)
        painter.fillRect(r.adjusted(1, 1, -1, -1), palette().color(QPalette::Highlight));
    if (item->IsLine()) {
        const int y = r.center().y();
        painter.setPen(palette().color(QPalette::Mid));
        painter.drawLine(r.left() + 4, y, r.right() - 4, y);
        return;
    }
    QColor text = palette().color(current ? QPalette::HighlightedText : QPalette::WindowText);
    if (!current && FLook.TextColor.isValid())
        text = FLook.TextColor;
    if (!item->Enabled())
        text = palette().color(QPalette::Disabled, QPalette::WindowText);
    painter.setPen(text);
    QFont font = painter.font();
    font.setItalic(!item->Visible());
    painter.setFont(font);
    const int pad = onBar ? BarPadding : ColumnPadding;
    const QRect inner = r.adjusted(pad, 0, -pad, 0);
    if (onBar) {
        painter.drawText(inner, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextShowMnemonic, QzQString(QzMenuItemText(item)));
        return;
    }
    if (const QImage& image = QzMenuItemImage(item, FLook.ImageSize, FImages); !image.isNull())
        painter.drawImage(QPoint(inner.left(), r.top() + (r.height() - image.height()) / 2), image);
    painter.drawText(inner.adjusted(ImageColumn(), 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft | Qt::TextShowMnemonic,
                     QzQString(QzMenuItemText(item)));
    if (item->Checked())
        painter.drawText(r.adjusted(6, 0, 0, 0), Qt::AlignVCenter | Qt::AlignLeft, QStringLiteral("\u2713"));
    const AnsiString shortCut = QzShortCutToText(item->ShortCut());
    if (!shortCut.empty())
        painter.drawText(inner, Qt::AlignVCenter | Qt::AlignRight, QzQString(shortCut));
    if (item->Count() > 0)
        painter.drawText(r.adjusted(0, 0, -6, 0), Qt::AlignVCenter | Qt::AlignRight, QStringLiteral("\u25B8"));
}

void TQzMenuView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    for (size_t i = 0; i < FLists.size(); ++i) {
        const bool bar = FBar && i == 0;
        const QColor back =
            FLook.BackColor.isValid() ? FLook.BackColor : palette().color(bar ? QPalette::Button : QPalette::Window);
        painter.fillRect(FLists[i], back);
        painter.setPen(palette().color(QPalette::Dark));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(FLists[i]);
    }
    for (const TQzMenuCell& cell : FCells)
        Paint(painter, cell);
    if (hasFocus())
        if (const TQzMenuCell* cell = CellOf(FCurrent)) {
            painter.setPen(QPen(palette().color(QPalette::WindowText), 1, Qt::DotLine));
            painter.setBrush(Qt::NoBrush);
            painter.drawRect(cell->Rect.adjusted(0, 0, -1, -1));
        }
}

// ---- Mouse and keys -------------------------------------------------------------

void TQzMenuView::mousePressEvent(QMouseEvent* event)
{
    setFocus();
    FPressed.clear();
    if (const TQzMenuCell* cell = CellAt(event->position().toPoint())) {
        const TQzMenuPath path = cell->Path;
        if (!cell->Slot && event->button() == Qt::LeftButton)
            FPressed = path;
        if (path != FCurrent)
            SetCurrent(path);
    }
}

void TQzMenuView::mouseReleaseEvent(QMouseEvent* event)
{
    const TQzMenuPath from = std::exchange(FPressed, {});
    if (from.empty() || event->button() != Qt::LeftButton)
        return;
    const TQzMenuCell* cell = CellAt(event->position().toPoint());
    if (cell && cell->Path != from)
        emit MoveRequested(from, cell->Path);
}

void TQzMenuView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (CellAt(event->position().toPoint()))
        emit CommandRequested(TQzMenuCommand::EditCaption);
}

bool TQzMenuView::event(QEvent* event)
{
    // Tab indents here instead of leaving the view.
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab) {
            const bool back = key->key() == Qt::Key_Backtab || (key->modifiers() & Qt::ShiftModifier);
            emit CommandRequested(back ? TQzMenuCommand::Outdent : TQzMenuCommand::Indent);
            return true;
        }
    }
    return QWidget::event(event);
}

bool TQzMenuView::Navigate(int key)
{
    if (!FRoot)
        return false;
    TQzMenuPath path = FCurrent;
    const bool onBar = IsBarPath(path);
    const int back = onBar ? Qt::Key_Left : Qt::Key_Up;
    const int forward = onBar ? Qt::Key_Right : Qt::Key_Down;
    const int count = QzMenuListOf(FRoot, path)->Count();
    if (key == back && path.back() > 0) {
        --path.back();
    } else if (key == back && FBar && path.size() == 2) {
        path.pop_back();  // up from a bar item's list to the bar
    } else if (key == forward) {
        if (path.back() >= count)
            return true;
        ++path.back();
    } else if ((onBar && key == Qt::Key_Down) || (!onBar && key == Qt::Key_Right)) {
        TQzMenuItem* item = QzMenuItemAt(FRoot, path);
        if (!item || (item->Count() == 0 && !onBar))
            return true;
        path.push_back(0);
    } else if (!onBar && key == Qt::Key_Left && path.size() > 1) {
        path.pop_back();
    } else {
        return key == back || key == Qt::Key_Left || key == Qt::Key_Right || key == Qt::Key_Up || key == Qt::Key_Down;
    }
    SetCurrent(path);
    return true;
}

void TQzMenuView::keyPressEvent(QKeyEvent* event)
{
    const int key = event->key();
    const Qt::KeyboardModifiers mods = event->modifiers() & ~Qt::KeypadModifier;
    const bool onBar = IsBarPath(FCurrent);
    if (mods == Qt::ControlModifier) {
        const int back = onBar ? Qt::Key_Left : Qt::Key_Up;
        const int forward = onBar ? Qt::Key_Right : Qt::Key_Down;
        if (key == back)
            emit CommandRequested(TQzMenuCommand::MoveBack);
        else if (key == forward)
            emit CommandRequested(TQzMenuCommand::MoveForward);
        else if (key == (onBar ? Qt::Key_Down : Qt::Key_Right))
            emit CommandRequested(TQzMenuCommand::Submenu);
        else
            QWidget::keyPressEvent(event);
        return;
    }
    if (mods == Qt::NoModifier || mods == Qt::ShiftModifier) {
        switch (key) {
        case Qt::Key_Insert: emit CommandRequested(TQzMenuCommand::Insert); return;
        case Qt::Key_Delete: emit CommandRequested(TQzMenuCommand::Delete); return;
        case Qt::Key_Return:
        case Qt::Key_Enter: emit CommandRequested(TQzMenuCommand::EditCaption); return;
        default: break;
        }
        if (mods == Qt::NoModifier && Navigate(key))
            return;
        const QString text = event->text();
        if (!text.isEmpty() && text.at(0).isPrint()) {
            emit TextTyped(text);
            return;
        }
    }
    QWidget::keyPressEvent(event);
}
