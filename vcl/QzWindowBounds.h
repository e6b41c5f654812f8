#pragma once
// Where windows open: bounds remembered between two openings of a dialog,
// the placement a package editor keeps in its package, and the rules that
// keep a window on a screen the user can see.

#include "rtl/System.h"
#include "rtl/WindowPlacement.h"

#include <QList>
#include <QObject>
#include <QPoint>
#include <QRect>
#include <QSize>

class QWidget;

// The bounds of a dialog between two openings, for as long as the program
// runs. Stored is false until the dialog was first closed.
struct TQzResizeInfoDesigner {
    Integer Left = 0;
    Integer Top = 0;
    Integer Width = 0;
    Integer Height = 0;
    bool Maximized = false;
    bool Stored = false;
};

// Copies the form's normal bounds (those it returns to when not maximized)
// and its maximized state into `info`, and marks it stored.
void QzSaveResizeInfoDesigner(QWidget* form, TQzResizeInfoDesigner& info);
// Gives the form the stored bounds, kept on a visible screen, and maximizes
// it when it was. Does nothing while `info` was never stored.
void QzRestoreResizeInfoDesigner(QWidget* form, TQzResizeInfoDesigner& info);


// Follows a window from before it is shown until it is closed: applies a
// stored placement (centred when never placed, else the stored bounds kept
// on screen, maximized on showing when it was stored so), then remembers the
// last normal bounds however the user moves, sizes or maximizes it.
class TQzPlacementTracker : public QObject {
    Q_OBJECT

public:
    TQzPlacementTracker(QWidget* window, const TQzWindowPlacement& stored);

    // The placement to store now: the last normal bounds and the state.
    TQzWindowPlacement Current() const;
    // Whether Current() differs from the placement given at the start, i.e.
    // whether the package must be updated and marked modified.
    bool Changed() const { return !(Current() == FStored); }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Remember();

    QWidget* FWindow;
    TQzWindowPlacement FStored;
    QRect FNormal;  // frame position and client size
    Integer FState = wsNormal;
};

// Centres the window on the available area of its screen (the primary one
// when it is on none).
void QzCenterWindow(QWidget* window);
// Moves the window back onto the available area of the screen it overlaps
// most, shrinking it when it is larger than that area.
void QzAdjustWindow(QWidget* window);

// The geometry behind QzAdjustWindow: `rect` (a frame) moved, and shrunk if
// needed, to lie inside the available area it overlaps most, or inside the
// nearest area when it overlaps none. Returned unchanged when `areas` is
// empty.
QRect QzFitRectOnScreens(const QRect& rect, const QList<QRect>& areas);
