#pragma once
// The grid of thumbnails the images windows show: one cell per image of a
// package, in Id order, each with its Id, the picture's description and a
// chosen last line above the picture. Rows are 88 pixels high and as many
// columns as 64 pixels fit in the width; cells are painted from a thumbnail
// cache, so a package of thousands of pictures opens at once and scrolls
// without decoding a picture twice.

#include "design/images/QzPkgImagesLogic.h"
#include "runtime/pictures/QzPictureDraw.h"

#include <QAbstractListModel>
#include <QListView>
#include <QStyledItemDelegate>

#include <vector>

// The images of a package as a list model; holds pointers only, rebuilt by
// Reload after every change of the package.
class TQzImagesGridModel : public QAbstractListModel {
    Q_OBJECT

public:
    explicit TQzImagesGridModel(QObject* parent = nullptr);

    void Reload(const TQzPkgImages* package);
    TQzPkgImagesImage* Image(int row) const;
    // The first row holding that image (or an image of that Id); -1 when none.
    int RowOf(const TQzPkgImagesImage* image) const;
    int RowOfId(Integer id) const;
    // Drops one row without reloading (the image is being freed).
    void RemoveRow(int row);
    // Every cell's text and picture changed (a menu option).
    void Repaint();

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

private:
    std::vector<TQzPkgImagesImage*> FRows;
};

struct TQzImagesGridOptions {
    bool Transparent = false;
    bool Stretch = false;
    TQzImagesLine Line = TQzImagesLine::WidthHeight;
};

class TQzImagesGridDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    explicit TQzImagesGridDelegate(QObject* parent = nullptr);

    TQzImagesGridOptions& Options() { return FOptions; }
    void SetCellSize(QSize size) { FCellSize = size; }
    QSize CellSize() const { return FCellSize; }
    TQzThumbnailCache& Cache() { return FCache; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    // The text colour of a masked image's cell when it is not selected.
    static constexpr QRgb MaskedColor = 0x008080;

private:
    TQzImagesGridOptions FOptions;
    QSize FCellSize{64, 88};
    mutable TQzThumbnailCache FCache;
};

// The view: fixed cells filling the width, wrapping into rows.
class TQzImagesGrid : public QListView {
    Q_OBJECT

public:
    static constexpr int RowHeight = 88;
    static constexpr int MinColumnWidth = 64;

    explicit TQzImagesGrid(QWidget* parent = nullptr);

    TQzImagesGridModel* GridModel() const { return FModel; }
    TQzImagesGridDelegate* GridDelegate() const { return FDelegate; }
    int Columns() const;

    // The image of the current row; null when no row is selected.
    TQzPkgImagesImage* SelectedImage() const;
    int SelectedRow() const;
    // Makes the row current and selected (-1 clears the selection).
    void SelectRow(int row);
    // The selected rows, ascending.
    std::vector<int> SelectedRows() const;
    // Selects the image of that Id, or nothing, without telling the
    // selection's listeners: the windows' Id box drives this.
    void SelectId(Integer id);
    // Frees the image of row and drops its row, the thumbnail and the
    // selection letting go of it first; returns the image to select next
    // (null when none is left).
    TQzPkgImagesImage* DeleteRow(int row);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void AdjustCells();

    TQzImagesGridModel* FModel;
    TQzImagesGridDelegate* FDelegate;
};
