#pragma once
// The menu bar a designed form shows under its caption: the main menu its
// Menu property names, registered or only read from the form file, and the
// captions of that menu's top-level items.

#include "rtl/Component.h"

#include <vector>

// The main menu the form root shows; nullptr when it has none.
TComponent* QzFormMenu(TComponent* root);
// The height of root's menu bar; 0 without a menu.
int QzMenuBarHeight(TComponent* root);
// What the bar shows: the visible top-level items' captions, as typed
// ("&File"), or their labels' texts, or their names.
std::vector<AnsiString> QzMenuBarCaptions(TComponent* menu);
// A caption as drawn: "&&" is an ampersand, a single '&' marks the
// mnemonic and is not drawn.
AnsiString QzStripMnemonic(const AnsiString& caption);
