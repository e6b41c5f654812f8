#pragma once
// The box of a package message (runtime/util/QzMessages.h), shown through
// the dialog seam of vcl: the suite's button kinds become the box's buttons
// and the button pressed becomes a kind again. RegisterQzStandardWindows
// installs it as the model's message box.

#include "runtime/util/QzMessages.h"

TQzButtonKind QzShowMessageBox(TQzMessageType type, const AnsiString& caption, const AnsiString& text,
                               const std::vector<TQzButtonKind>& kinds, TQzButtonKind defaultKind);
