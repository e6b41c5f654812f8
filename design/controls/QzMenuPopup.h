#pragma once
// A suite menu shown as the platform's popup menu, for trying it out: the
// items with their captions (a label's text when they name one),
// shortcuts, check marks, separators and submenus; hidden items left out.

#include "runtime/components/QzMenus.h"

class QMenu;

// imageSize > 0: each item shows its image, that many pixels square.
void QzFillPopupMenu(QMenu* menu, TQzMenuItem* items, int imageSize = 0);
// Shows popup where the mouse is, in its look, and returns when it closes.
void QzShowPopupMenu(TQzPopupMenu* popup);
