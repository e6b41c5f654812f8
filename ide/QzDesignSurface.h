#pragma once
// The form designer's surface: the form with its caption bar and client
// area, each control drawn at its bounds within its parent, non-visual
// components as their palette pictures with their names below. The mouse
// selects (Shift adds, a rubber band takes every control it touches),
// moves and sizes by the grab handles. The arrow keys choose the nearest
// sibling that way, Tab and Shift+Tab the next and previous one, Escape the
// parent; Ctrl+arrows move by one pixel, Shift+arrows size by one, Del
// deletes. A class chosen on the palette is placed where the form is
// clicked. A click on a page control's tab or an outlook bar's button shows
// its page. Every change is one undo step of the form's designer.

#include "ide/QzPageButtons.h"

#include "rtl/Component.h"

#include <QPoint>
#include <QRect>
#include <QWidget>
#include <functional>
#include <map>
#include <optional>
#include <string>

class QMenu;
class TIdeDesigner;
class TMetaClass;

class TQzDesignSurface : public QWidget {
    Q_OBJECT

public:
    explicit TQzDesignSurface(TIdeDesigner* designer, QWidget* parent = nullptr);

    TIdeDesigner* Designer() const { return FDesigner; }
    // Where the class to place comes from, and how to say it was placed.
    std::function<TMetaClass*()> PendingClass;
    std::function<void()> ClassPlaced;

    // The form's client area's top-left corner on the surface.
    QPoint ClientOrigin() const;
    // A component's rectangle on the surface (controls and icons); empty
    // for components not shown.
    QRect SurfaceRect(TComponent* component) const;
    // The component drawn at pos, innermost first; the root when none.
    TComponent* ComponentAt(const QPoint& pos) const;

    // Adds a component of cls at pos (surface coordinates) inside the
    // container there; nullptr when it cannot.
    TComponent* PlaceComponent(TMetaClass* cls, const QPoint& pos);
    // Moves (or sizes) the selected controls by delta, as one step.
    void NudgeSelection(int dx, int dy, bool size);

    // The component editor's verbs for component, and running them.
    QStringList Verbs(TComponent* component) const;
    bool ExecuteVerb(TComponent* component, int index);
    // The double-click: the component editor's Edit.
    bool EditComponent(TComponent* component);
    // The right-click's menu over at: its verbs, then the clipboard's
    // commands, Delete and Select All.
    void FillContextMenu(QMenu& menu, TComponent* at);
    // The siblings of the selection, or the form's top level.
    void SelectAll();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    enum class TDrag { None, Move, Size, Band };

    int Border() const;
    int CaptionHeight() const;
    void PaintMenuBar(QPainter& p, const QRect& bar);
    QRect FormRect() const;
    // The offset on the surface of the client area of container.
    QPoint ContainerOrigin(TComponent* container) const;
    bool IsShown(TComponent* component) const;
    TComponent* ContainerAt(const QPoint& pos) const;
    TComponent* ActiveSheet(TComponent* paged) const;
    void ShowPage(TComponent* paged, TComponent* page);
    void RevealSelection();
    std::optional<TQzPageButton> PageButtonAt(const QPoint& pos) const;
    void PaintPageButtons(QPainter& p, TComponent* paged);
    void PaintChildren(QPainter& p, TComponent* parent);
    void PaintIcons(QPainter& p);
    void PaintHandles(QPainter& p);
    // The handle under pos of the one selected control: 0..7, or -1.
    int HandleAt(const QPoint& pos) const;
    std::vector<QRect> Handles(const QRect& r) const;
    bool Run(const QString& text, const std::function<void()>& change);
    void SelectOnly(TComponent* component);
    void Toggle(TComponent* component);
    void ApplyDrag(const QPoint& pos);

    TIdeDesigner* FDesigner;
    TDrag FDrag = TDrag::None;
    int FHandle = -1;
    QPoint FPressPos;
    QPoint FBandEnd;
    std::string FBefore;
    std::map<TComponent*, QRect> FStartBounds;   // control bounds, or icon position in x/y
    // Pages shown of controls whose ActivePage the designer cannot set, by
    // the names of control and page, so they outlive a form read again.
    std::map<AnsiString, AnsiString> FShownPages;
};
