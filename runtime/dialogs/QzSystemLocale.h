#pragma once
// The system's date format: the order of day, month and year and the
// separator the system's short dates use, which the locale settings start
// from and which the date masks follow when the application sets none.

#include "runtime/model/QzTypes.h"

// The order in which a date pattern ("dd/MM/yyyy", "M/d/yy", "yyyy-MM-dd")
// writes day, month and year: by the first letter of each (d, M or m, y;
// quoted text skipped). A pattern that leaves the order open (no year, or
// nothing at all) gives day before month, dfDMY.
TQzDateFormat QzDateFormatOfPattern(const AnsiString& pattern);
// The first character between two fields of the pattern ('/' when none).
char QzDateSeparatorOfPattern(const AnsiString& pattern);

// The same for the system's short date pattern.
TQzDateFormat QzSystemDateFormat();
char QzSystemDateSeparator();
