#pragma once
// The context menu every images window opens over its grid. It starts with
// the same view options everywhere: transparency, stretching and the
// cell's last line (width/height, size, or protection where a package's
// protection is shown). Each window adds its own commands below them.

#include <QString>

class QAction;
class QMenu;
class QWidget;
class TQzImagesGrid;

// A menu command named as the windows' tests and translations find it;
// last in the menu, or in before `before`.
QAction* QzImagesMenuAction(QMenu* menu, const char* name, const QString& text, bool checkable = false,
                            QAction* before = nullptr);

// The view options' menu ("PopupMenu1") as members of the window that
// shows it, named as the window's tests and translations find them;
// windows inherit them so each reads as its own.
struct TQzImagesViewActions {
    QMenu* PopupMenu1 = nullptr;
    QAction* MnTransparent = nullptr;
    QAction* MnStretch = nullptr;
    QAction* MnWH = nullptr;
    QAction* MnSize = nullptr;
    // Null when the window does not offer it.
    QAction* MnProtected = nullptr;

    // Creates the menu (owned by owner), keeps the grid's options in step
    // with it and opens it over the grid.
    void CreateViewMenu(QWidget* owner, TQzImagesGrid* grid, bool withProtected);
};
