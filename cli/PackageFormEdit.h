#pragma once
// Putting a package's new contents into a form's text: only the lines of
// the few properties that hold them change (the binary "Data" block, the
// storage mode and file name), taken from the same form written again, so
// every other byte of the form stays as it was.

#include "rtl/StringList.h"

#include <vector>

// The lines of an object's own properties in a form's text: from the line
// after its "object Name: Class" line up to (not including) its first
// child object or its "end". First is -1 when the text has no such object.
struct TQzObjectLines {
    int First = -1;
    int Last = -1;   // one past the last property line
};
TQzObjectLines QzFindObjectLines(const TStrings& lines, const AnsiString& name);

// Makes the properties named in names (written as in the text: "Data",
// "PkgDisplay.InitMode"; matched without regard to case) of object name in
// lines what they are in rewritten: replaced, removed where rewritten has
// none, added after the property that precedes them in rewritten (or at
// the end of the object's properties). Raises EParserError naming fileName
// when either text lacks the object.
void QzSpliceProperties(TStrings& lines, const TStrings& rewritten, const AnsiString& name,
                        const std::vector<AnsiString>& names, const AnsiString& fileName);
