#include "vcl/QzListDelegate.h"

#include "vcl/QzListModel.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

namespace {

TQzColumnKind KindOf(const QModelIndex& index)
{
    if (const auto* model = qobject_cast<const TQzListModel*>(index.model()))
        if (index.column() < model->Columns().size())
            return model->Columns()[index.column()].Kind;
    return TQzColumnKind::Text;
}

QString SingleLine(QString text)
{
    // Multi-line texts show on one row, as a list box draws them.
    for (QChar& c : text)
        if (c == '\n' || c == '\r' || c == '\t')
            c = ' ';
    return text;
}

const QAbstractItemView* ViewOf(const QStyleOptionViewItem& option)
{
    return qobject_cast<const QAbstractItemView*>(option.widget);
}

QStyle* StyleOf(const QStyleOptionViewItem& option)
{
    return option.widget != nullptr ? option.widget->style() : QApplication::style();
}

// The colours of a cell: a selected row keeps the active selection colours
// when the list loses the focus, as owner-drawn list boxes do.
void SetCellColours(QStyleOptionViewItem& cell, const QModelIndex& index)
{
    const bool selected = cell.state.testFlag(QStyle::State_Selected);
    QColor background = cell.palette.color(QPalette::Active, selected ? QPalette::Highlight : QPalette::Base);
    QColor text = cell.palette.color(QPalette::Active, selected ? QPalette::HighlightedText : QPalette::Text);
    if (!selected) {
        const QVariant foreground = index.data(Qt::ForegroundRole);
        if (foreground.canConvert<QColor>() && foreground.value<QColor>().isValid())
            text = foreground.value<QColor>();
    }
    cell.palette.setColor(QPalette::Base, background);
    cell.palette.setColor(QPalette::Text, text);
    cell.palette.setColor(QPalette::WindowText, text);
}

}  // namespace

TQzListDelegate::TQzListDelegate(QObject* parent) : QStyledItemDelegate(parent) {}

void TQzListDelegate::SetPainter(int column, TCellPainter painter)
{
    FPainters[column] = std::move(painter);
}

void TQzListDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem cell(option);
    SetCellColours(cell, index);
    painter->save();
    painter->setClipRect(option.rect);
    painter->fillRect(option.rect, cell.palette.color(QPalette::Base));
    switch (KindOf(index)) {
    case TQzColumnKind::Text:
        PaintText(painter, cell, index);
        break;
    case TQzColumnKind::Check:
        PaintCheck(painter, cell, index);
        break;
    case TQzColumnKind::Image:
        PaintImage(painter, cell, index);
        break;
    case TQzColumnKind::Custom:
        if (auto it = FPainters.find(index.column()); it != FPainters.end() && it->second)
            it->second(painter, cell, index);
        else
            PaintText(painter, cell, index);
        break;
    }
    PaintFocus(painter, cell, index);
    painter->restore();
}

void TQzListDelegate::PaintText(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QVariant alignment = index.data(Qt::TextAlignmentRole);
    const int flags = (alignment.isValid() ? alignment.toInt() : int(Qt::AlignLeft | Qt::AlignVCenter)) |
                      Qt::TextSingleLine;
    painter->setFont(option.font);
    painter->setPen(option.palette.color(QPalette::Text));
    painter->drawText(option.rect.adjusted(TextMargin, 0, -TextMargin, 0), flags,
                      SingleLine(index.data(Qt::DisplayRole).toString()));
}

void TQzListDelegate::PaintCheck(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const bool checked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    QStyle* style = StyleOf(option);
    const int side = style->pixelMetric(QStyle::PM_IndicatorWidth, &option, option.widget);
    QRect box(0, 0, side, side);
    box.moveCenter(option.rect.center());
    if (index.flags().testFlag(Qt::ItemIsUserCheckable)) {
        QStyleOptionViewItem indicator(option);
        indicator.rect = box;
        indicator.state = QStyle::State_Enabled | (checked ? QStyle::State_On : QStyle::State_Off);
        style->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &indicator, painter, option.widget);
        return;
    }
    if (!checked)
        return;
    // A read-only mark: a tick in the text colour, without a box.
    const QRectF r = QRectF(box).adjusted(side * 0.15, side * 0.2, -side * 0.15, -side * 0.2);
    QPainterPath tick;
    tick.moveTo(r.left(), r.center().y());
    tick.lineTo(r.left() + r.width() * 0.4, r.bottom());
    tick.lineTo(r.right(), r.top());
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(QPen(option.palette.color(QPalette::Text), std::max(1.5, side / 8.0)));
    painter->drawPath(tick);
}

void TQzListDelegate::PaintImage(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const QImage image = index.data(Qt::DecorationRole).value<QImage>();
    if (image.isNull())
        return;
    const QRect area = option.rect.adjusted(2, 2, -2, -2);
    QSize size = image.size();
    if (FStretchImages || size.width() > area.width() || size.height() > area.height())
        size.scale(area.size(), Qt::KeepAspectRatio);
    QRect target(QPoint(0, 0), size);
    target.moveCenter(area.center());
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawImage(target, image);
}

void TQzListDelegate::PaintFocus(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    // One dotted frame round the whole current row, not round each cell.
    const QAbstractItemView* view = ViewOf(option);
    if (view == nullptr || !view->hasFocus() || view->currentIndex().row() != index.row())
        return;
    const QRect r = option.rect.adjusted(0, 0, -1, -1);
    QPen pen(option.palette.color(QPalette::Text), 1, Qt::DotLine);
    pen.setCosmetic(true);
    painter->setRenderHint(QPainter::Antialiasing, false);
    painter->setPen(pen);
    painter->drawLine(r.topLeft(), r.topRight());
    painter->drawLine(r.bottomLeft(), r.bottomRight());
    if (index.column() == 0)
        painter->drawLine(r.topLeft(), r.bottomLeft());
    if (index.column() == index.model()->columnCount() - 1)
        painter->drawLine(r.topRight(), r.bottomRight());
}

QSize TQzListDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    if (FCellSize.isValid())
        return FCellSize;
    const int height = option.fontMetrics.height() + 2;
    switch (KindOf(index)) {
    case TQzColumnKind::Check:
        return {StyleOf(option)->pixelMetric(QStyle::PM_IndicatorWidth, &option, option.widget) + 2 * TextMargin,
                height};
    case TQzColumnKind::Image:
        return {height, height};
    case TQzColumnKind::Text:
    case TQzColumnKind::Custom:
        break;
    }
    return {option.fontMetrics.horizontalAdvance(index.data(Qt::DisplayRole).toString()) + 2 * TextMargin, height};
}

QWidget* TQzListDelegate::createEditor(QWidget* /*parent*/, const QStyleOptionViewItem& /*option*/,
                                       const QModelIndex& /*index*/) const
{
    return nullptr;  // the lists are edited through their dialogs, never in place
}

bool TQzListDelegate::editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                                  const QModelIndex& index)
{
    if (!index.flags().testFlag(Qt::ItemIsUserCheckable))
        return false;
    switch (event->type()) {
    case QEvent::MouseButtonRelease: {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() != Qt::LeftButton || !option.rect.contains(mouse->position().toPoint()))
            return false;
        const bool checked = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
        return model->setData(index, checked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
    }
    case QEvent::MouseButtonDblClick:
        return true;  // the second click of a double click toggles on its own release
    default:
        return false;
    }
}
