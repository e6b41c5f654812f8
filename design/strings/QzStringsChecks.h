#pragma once
// What a translated text is checked for against the text it translates.
// The translators show the problems per row; `qzpkg strings check` prints
// the rows that have any.

#include "rtl/System.h"

enum TQzStringProblem : unsigned {
    spNone = 0,
    spPlaceholders = 1,   // the %s, %d, ... placeholders differ in number or kind
    spBlanks = 2,         // leading or trailing blanks differ
    spAccelerator = 4,    // an & accelerator on one side only
    spSameText = 8,       // the translation is the text itself
};

// The problems of translation against source (a set of TQzStringProblem).
unsigned QzCheckTranslation(const AnsiString& source, const AnsiString& translation);
// "placeholders differ, & accelerator missing"; empty for spNone.
AnsiString QzStringProblemsText(unsigned problems);
