#pragma once
// Menu shortcuts by name, as the menus editor lists and accepts them:
// "Ctrl+S", "Shift+Ctrl+F5", "Del". A shortcut is the virtual key in the
// low byte and the shift state in the high bits, as the runtime stores it.

#include "runtime/model/QzTypes.h"

#include <vector>

inline constexpr TShortCut QzScShift = 0x2000;
inline constexpr TShortCut QzScCtrl = 0x4000;
inline constexpr TShortCut QzScAlt = 0x8000;

// "" for no shortcut; a key without a name gives "#<code>".
AnsiString QzShortCutToText(TShortCut shortCut);
// Modifiers in any order and any case; "" and "(None)" are no shortcut.
// false when text names no key.
bool QzTextToShortCut(const AnsiString& text, TShortCut& shortCut);
// The shortcuts offered in the editor's list, in the order menus usually
// have them.
const std::vector<AnsiString>& QzShortCutNames();
