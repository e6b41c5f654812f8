#include "design/images/QzImagesGrid.h"

#include "vcl/QzQtString.h"

#include <QPainter>
#include <QResizeEvent>
#include <QScrollBar>
#include <qdrawutil.h>

#include <algorithm>

// ------------------------------------------------------------------ model

TQzImagesGridModel::TQzImagesGridModel(QObject* parent) : QAbstractListModel(parent) {}

void TQzImagesGridModel::Reload(const TQzPkgImages* package)
{
    beginResetModel();
    FRows = package ? QzImagesSorted(*package) : std::vector<TQzPkgImagesImage*>{};
    endResetModel();
}

TQzPkgImagesImage* TQzImagesGridModel::Image(int row) const
{
    return row >= 0 && row < static_cast<int>(FRows.size()) ? FRows[static_cast<size_t>(row)] : nullptr;
}

int TQzImagesGridModel::RowOf(const TQzPkgImagesImage* image) const
{
    const auto found = std::find(FRows.begin(), FRows.end(), image);
    return image && found != FRows.end() ? static_cast<int>(found - FRows.begin()) : -1;
}

int TQzImagesGridModel::RowOfId(Integer id) const
{
    // The rows are in Id order.
    const auto found = std::lower_bound(FRows.begin(), FRows.end(), id,
                                        [](const TQzPkgImagesImage* image, Integer v) { return image->Id() < v; });
    return found != FRows.end() && (*found)->Id() == id ? static_cast<int>(found - FRows.begin()) : -1;
}

void TQzImagesGridModel::RemoveRow(int row)
{
    if (row < 0 || row >= static_cast<int>(FRows.size()))
        return;
    beginRemoveRows({}, row, row);
    FRows.erase(FRows.begin() + row);
    endRemoveRows();
}

void TQzImagesGridModel::Repaint()
{
    if (!FRows.empty())
        emit dataChanged(index(0), index(static_cast<int>(FRows.size()) - 1));
}

int TQzImagesGridModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(FRows.size());
}

QVariant TQzImagesGridModel::data(const QModelIndex& index, int role) const
{
    const TQzPkgImagesImage* image = Image(index.row());
    if (!image)
        return {};
    // The row's own text is never shown; the tip has the cell's lines whole.
    if (role == Qt::DisplayRole)
        return QStringLiteral("*");
    if (role == Qt::AccessibleTextRole)
        return QString::number(image->Id());
    if (role == Qt::ToolTipRole)
        return QzQString(QzImagesCellText(*image, TQzImagesLine::WidthHeight).Text);
    return {};
}

// --------------------------------------------------------------- delegate

TQzImagesGridDelegate::TQzImagesGridDelegate(QObject* parent) : QStyledItemDelegate(parent) {}

QSize TQzImagesGridDelegate::sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const
{
    return FCellSize;
}

void TQzImagesGridDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const
{
    const auto* model = qobject_cast<const TQzImagesGridModel*>(index.model());
    const TQzPkgImagesImage* image = model ? model->Image(index.row()) : nullptr;
    if (!image)
        return;
    const QRect cell = option.rect;
    const bool selected = option.state & QStyle::State_Selected;
    const QPalette& palette = option.palette;
    painter->save();
    painter->fillRect(cell, selected ? palette.highlight() : palette.base());

    const TQzImageCellText text = QzImagesCellText(*image, FOptions.Line);
    QColor ink = selected ? palette.highlightedText().color() : palette.text().color();
    if (text.Masked && !selected)
        ink = QColor(MaskedColor);
    painter->setPen(ink);
    // A smaller font and one line each (elided rather than wrapped) leave
    // most of the 88 pixels to the picture.
    QFont font = option.font;
    font.setPointSizeF(font.pointSizeF() * 0.85);
    painter->setFont(font);
    const QFontMetrics metrics(font);
    int bottom = cell.top();
    for (const QString& line : QzQString(text.Text).split(QLatin1Char('\n'))) {
        const QRect lineRect(cell.left(), bottom, cell.width(), metrics.height());
        painter->drawText(lineRect, Qt::AlignHCenter | Qt::AlignTop,
                          metrics.elidedText(line, Qt::ElideRight, cell.width() - 2));
        bottom += metrics.height();
    }
    const QRect textRect(cell.left(), cell.top(), cell.width(), bottom - cell.top());

    // The picture sits in a sunken frame below the text.
    QRect area(cell.left() + 1, textRect.bottom() + 1, cell.width() - 2, cell.bottom() - textRect.bottom() - 2);
    if (area.width() > 4 && area.height() > 4) {
        qDrawShadePanel(painter, area, palette, true, 2);
        area.adjust(2, 2, -2, -2);
        if (!image->Empty() && !image->GraphicClass().empty()) {
            painter->fillRect(area, palette.button());
            TQzDrawOptions draw;
            draw.Transparent = FOptions.Transparent;
            draw.Stretch = FOptions.Stretch;
            draw.Proportional = FOptions.Stretch;
            const QImage& thumbnail = FCache.Thumbnail(image, area.size(), draw);
            if (!thumbnail.isNull())
                painter->drawImage(area.topLeft(), thumbnail);
        }
    }
    if (option.state & QStyle::State_HasFocus) {
        painter->setPen(QPen(ink, 1, Qt::DotLine));
        painter->drawRect(cell.adjusted(0, 0, -1, -1));
    }
    painter->restore();
}

// ------------------------------------------------------------------- view

TQzImagesGrid::TQzImagesGrid(QWidget* parent) : QListView(parent)
{
    FModel = new TQzImagesGridModel(this);
    FDelegate = new TQzImagesGridDelegate(this);
    setModel(FModel);
    setItemDelegate(FDelegate);
    setViewMode(QListView::ListMode);
    setFlow(QListView::LeftToRight);
    setWrapping(true);
    setResizeMode(QListView::Adjust);
    setUniformItemSizes(true);
    setMovement(QListView::Static);
    setSpacing(0);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setSelectionBehavior(QAbstractItemView::SelectItems);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    AdjustCells();
}

int TQzImagesGrid::Columns() const
{
    return std::max(1, viewport()->width() / MinColumnWidth);
}

void TQzImagesGrid::AdjustCells()
{
    const QSize cell(viewport()->width() / Columns(), RowHeight);
    if (cell == FDelegate->CellSize())
        return;
    FDelegate->SetCellSize(cell);
    setGridSize(cell);
    verticalScrollBar()->setSingleStep(RowHeight / 4);
    doItemsLayout();
}

void TQzImagesGrid::resizeEvent(QResizeEvent* event)
{
    QListView::resizeEvent(event);
    AdjustCells();
}

int TQzImagesGrid::SelectedRow() const
{
    const QModelIndex current = currentIndex();
    return current.isValid() && selectionModel()->isSelected(current) ? current.row() : -1;
}

TQzPkgImagesImage* TQzImagesGrid::SelectedImage() const
{
    return FModel->Image(SelectedRow());
}

void TQzImagesGrid::SelectRow(int row)
{
    if (row < 0 || row >= FModel->rowCount()) {
        selectionModel()->clearSelection();
        selectionModel()->setCurrentIndex({}, QItemSelectionModel::NoUpdate);
        return;
    }
    const QModelIndex index = FModel->index(row);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    scrollTo(index);
}

void TQzImagesGrid::SelectId(Integer id)
{
    const int row = id < 0 ? -1 : FModel->RowOfId(id);
    {
        const QSignalBlocker block(selectionModel());
        SelectRow(row);
    }
    viewport()->update();
}

TQzPkgImagesImage* TQzImagesGrid::DeleteRow(int row)
{
    TQzPkgImagesImage* image = FModel->Image(row);
    FDelegate->Cache().Invalidate(image);
    {
        const QSignalBlocker block(selectionModel());
        FModel->RemoveRow(row);
    }
    delete image;  // leaves the package
    return FModel->Image(QzImagesRowAfterDelete(row, FModel->rowCount()));
}

std::vector<int> TQzImagesGrid::SelectedRows() const
{
    std::vector<int> rows;
    for (const QModelIndex& index : selectionModel()->selectedIndexes())
        rows.push_back(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
}
