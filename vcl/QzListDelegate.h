#pragma once
// Paints the cells of the editors' lists as the suite's owner-drawn list
// boxes look: the whole row in the selection colour when selected, text
// clipped to its column, check marks, thumbnails, and a dotted focus frame
// round the current row.

#include <QSize>
#include <QStyledItemDelegate>

#include <functional>
#include <map>

class TQzListDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    // Paints a Custom cell's content over the background already filled.
    // option.palette carries the text colour to use (selected or not).
    using TCellPainter = std::function<void(QPainter* painter, const QStyleOptionViewItem& option,
                                            const QModelIndex& index)>;

    explicit TQzListDelegate(QObject* parent = nullptr);

    void SetPainter(int column, TCellPainter painter);
    // Every cell this size (grids of thumbnails); by default a row is one
    // line of text high and a column as wide as its content.
    void SetCellSize(QSize size) { FCellSize = size; }
    QSize CellSize() const { return FCellSize; }
    // Thumbnails smaller than their cell grow to fill it (they only shrink
    // otherwise).
    void SetStretchImages(bool stretch) { FStretchImages = stretch; }

    // The margin left and right of a text inside its column.
    static constexpr int TextMargin = 2;

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;

protected:
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

private:
    void PaintText(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void PaintCheck(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void PaintImage(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void PaintFocus(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;

    std::map<int, TCellPainter> FPainters;
    QSize FCellSize;
    bool FStretchImages = false;
};
