#pragma once
// A suite menu shown as the platform's popup menu, for trying it out: the
// items with their captions (a label's text when they name one),
// shortcuts, check marks, separators and submenus; hidden items left out.

#include "runtime/components/QzMenus.h"

class QMenu;

void QzFillPopupMenu(QMenu* menu, TQzMenuItem* items);
// Shows popup where the mouse is and returns when it closes.
void QzShowPopupMenu(TQzPopupMenu* popup);
