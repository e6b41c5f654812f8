#pragma once
// Placing the runtime's and the editors' windows. QzAdjustWindow (moving a
// window back onto a screen) and the one-argument QzCenterWindow come from
// vcl/QzWindowBounds.h, included here so callers need only this header.

#include "vcl/QzWindowBounds.h"

// Centres form on the available area of its screen (onScreen true, as the
// editors call it), or over the window of its parent widget (false; on the
// screen when it has none), keeping it on a screen either way.
void QzCenterWindow(QWidget* form, bool onScreen);
