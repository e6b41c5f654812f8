#pragma once
// Placing the runtime's and the editors' windows.
//
// QzAdjustWindow and the one-argument QzCenterWindow belong to vcl
// (vcl/QzWindowBounds.cpp); they are declared here again, rather than by
// including vcl/QzWindowBounds.h, because that header and the model's
// QzTypes.h both define a TQzWindowPlacement, and a unit using this header
// usually needs the model too.

class QWidget;

// Centres the window on the available area of its screen.
void QzCenterWindow(QWidget* window);
// Moves the window back onto the available area of the screen it overlaps
// most, shrinking it when it is larger than that area.
void QzAdjustWindow(QWidget* window);

// Centres form on the available area of its screen (onScreen true, as the
// editors call it), or over the window of its parent widget (false; on the
// screen when it has none), keeping it on a screen either way.
void QzCenterWindow(QWidget* form, bool onScreen);
