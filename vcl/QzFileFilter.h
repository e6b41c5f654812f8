#pragma once
// File-dialog filters as the suite writes them ("Text files (*.txt)|*.txt|
// All files (*.*)|*.*": description and masks alternating, masks separated
// by ';') turned into Qt's name filters ("Text files (*.txt)", "All files
// (*)").

#include "rtl/System.h"

#include <QString>
#include <QStringList>

// One Qt name filter per description/mask pair. The masks come from the mask
// part, whatever the description's own parentheses say; "*.*" and "*" both
// mean every file. A trailing description without masks is dropped.
QStringList QzConvertFilter(const AnsiString& filter);

// The masks of the pair at `index` (1-based), e.g. {"*.txt"}; empty when the
// index is out of range.
QStringList QzFilterMasks(const AnsiString& filter, int index);

// `fileName` with `defaultExt` appended when it has no extension; the
// extension may be given with or without its leading point.
AnsiString QzApplyDefaultExt(const AnsiString& fileName, const AnsiString& defaultExt);
