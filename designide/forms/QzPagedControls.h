#pragma once
// Controls that show one of their pages at a time: page controls, behind a
// row of tabs, and outlook bars, between a stack of buttons. The designer
// shows the page the control names and lets the user show another.

#include "rtl/Component.h"

// A page control (QzIsPageControl) or an outlook bar.
bool QzIsPagedControl(TComponent* component);

// The page the control itself names (ActivePage); its first page when it
// names none.
TComponent* QzActivePage(TComponent* paged);

// Whether the designer can set the control's ActivePage: the suite's page
// controls and outlook bars; a class it does not know keeps what was read.
bool QzCanSetActivePage(TComponent* paged);
// Makes page the control's active page; false when it cannot.
bool QzSetActivePage(TComponent* paged, TComponent* page);

// What a page's tab or button says: the caption of its page item (a
// strings package label), its own caption, or its name.
AnsiString QzPageTitle(TComponent* paged, TComponent* page);
