#pragma once
// The keys page of the setup window without its widgets: what each action
// is called, the shortcut a key press makes, and a shortcut given to an
// action by the rule the running application keeps (no two actions share
// one).

#include "runtime/model/QzPkgSetup.h"

#include <Qt>

// "Append record", "Calculator button", ...
const char* QzSetupActionCaption(TQzSetupAction action);

// The shortcut a key pressed with modifiers makes, stored as the runtime
// stores shortcuts (virtual key in the low byte, shift state above); 0 for
// a key that cannot be a shortcut on its own (a modifier, an unknown key).
TShortCut QzShortCutOfKey(int key, Qt::KeyboardModifiers modifiers);

// Gives action the shortcut in values (0 clears it). A shortcut another
// action has is refused with the runtime's own EQzPkgError, values kept.
void QzAssignShortCut(TQzSetupKeysValues& values, TQzSetupAction action, TShortCut shortCut);

// A sample of how SQL text is written with these conventions, for the
// database page: a date, a time and a number as a WHERE clause holds them.
AnsiString QzDataBaseSample(const TQzSetupDataBaseValues& values);
