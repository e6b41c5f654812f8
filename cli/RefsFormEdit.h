#pragma once
// Rewriting references in a form's text: only the value after the '=' of
// the lines a reference is written on changes, so a form keeps every other
// byte, and a binary form (whose text is converted back with the options it
// was read with) every byte outside the changed values.

#include "design/manager/QzFormScanner.h"

#include "rtl/StringList.h"

#include <cstdio>
#include <string_view>
#include <vector>

// A new value for one line of a form's text.
struct TQzLineEdit {
    int Line = -1;         // 0-based
    AnsiString Literal;    // written in place of the value after '='
};

// How a value is written in a form: a string as the old value was written
// (a quoted literal, or a bare name when the old one was bare and the new
// one is a name), with #nnn escapes for quotes and for characters outside
// printable ASCII, as the form writer writes them.
AnsiString QzStringLiteral(const AnsiString& value);
AnsiString QzValueLiteral(std::string_view oldValue, const AnsiString& value);

// The edits that make hit (a form hit) name newPkg and newValue, or, with
// clear, no item (an empty package and Id -1, an empty set name, privilege
// -1). Raises EQzScanError naming the file and line when a line is not the
// one the hit was found on or its value runs on to the next line.
std::vector<TQzLineEdit> QzHitEdits(const TStrings& lines, const TQzTokenRec1& hit, bool clear,
                                    const AnsiString& newPkg, const AnsiString& newValue);

// line with the value after its first '=' replaced by literal.
AnsiString QzReplaceValue(const AnsiString& line, const AnsiString& literal);

// Applies edits to lines.
void QzApplyEdits(TStrings& lines, const std::vector<TQzLineEdit>& edits);

// Puts the binary blocks ("Data = {" to "}") of rewritten, the same form
// written again after its packages changed, in place of lines' blocks that
// differ, leaving every other line as it is. Raises EQzScanError naming
// fileName when the two texts do not hold the same blocks in the same order.
void QzSpliceDataBlocks(TStrings& lines, const TStrings& rewritten, const AnsiString& fileName);

// A unified diff (three lines of context) between two versions of a text
// under the name given to both sides: changed lines where both have the
// same number, one hunk of the rest of the text where they do not.
AnsiString QzUnifiedDiff(const AnsiString& name, const TStrings& before, const TStrings& after);
