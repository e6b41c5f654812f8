#pragma once
// The menu as it will look, for the menus editor: a main menu's bar with
// the lists opened along the current item, or a popup menu's list, each
// list ending in an empty slot where a new item is typed. The view keeps
// only the path of the current item; the editor does the changes it asks
// for.

#include "design/controls/QzMenuEditing.h"
#include "design/controls/QzMenuLook.h"

#include <QRect>
#include <QWidget>

#include <vector>

enum class TQzMenuCommand { Insert, Delete, MoveBack, MoveForward, Indent, Outdent, Submenu, EditCaption };

struct TQzMenuCell {
    TQzMenuPath Path;
    QRect Rect;
    bool Slot = false;  // the empty place at the end of a list
};

class TQzMenuView : public QWidget {
    Q_OBJECT

public:
    explicit TQzMenuView(QWidget* parent = nullptr);

    // bar: the top level is a menu bar (main menus); otherwise a list.
    void SetMenu(TQzMenuItem* root, bool bar);
    TQzMenuItem* Root() const { return FRoot; }
    const TQzMenuPath& Current() const { return FCurrent; }
    // Goes to path (the first slot when it leads nowhere) and repaints.
    void SetCurrent(const TQzMenuPath& path);
    // The cells as they are drawn, lists in the order they open.
    const std::vector<TQzMenuCell>& Cells() const { return FCells; }
    const TQzMenuCell* CellAt(const QPoint& pos) const;
    const TQzMenuCell* CellOf(const TQzMenuPath& path) const;
    // The menu changed under the view: lays it out again.
    void Relayout();
    // Draws in the menu's font, colours and images from now on.
    void SetLook(const TQzMenuLook& look);

    QSize sizeHint() const override;

signals:
    void CurrentChanged();
    void CommandRequested(TQzMenuCommand command);
    // A printable key on the current place: the start of a caption.
    void TextTyped(const QString& text);
    // An item dragged with the mouse to another place.
    void MoveRequested(const TQzMenuPath& from, const TQzMenuPath& to);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    void Layout();
    void AddList(TQzMenuItem* list, const TQzMenuPath& prefix, QPoint at, bool horizontal);
    bool Navigate(int key);
    bool IsBarPath(const TQzMenuPath& path) const { return FBar && path.size() == 1; }
    void Paint(QPainter& painter, const TQzMenuCell& cell) const;
    // The width of the images' column in a list (none on a bar).
    int ImageColumn() const { return FLook.ImageSize > 0 ? FLook.ImageSize + 6 : 0; }

    TQzMenuItem* FRoot = nullptr;
    bool FBar = false;
    TQzMenuLook FLook;
    // Painting runs on every move of the current item: pictures are
    // decoded once, and again only when they change.
    mutable TQzThumbnailCache FImages;
    TQzMenuPath FCurrent{0};
    std::vector<TQzMenuCell> FCells;
    std::vector<QRect> FLists;  // the frame of each list drawn
    TQzMenuPath FPressed;
};
