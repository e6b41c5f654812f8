#pragma once
// One line of fields, split at and joined with a separator character: the
// text import and export of labels, messages and texts (',') and the option
// lists of masks (';').
//
// The two functions are exact inverses: QzTextToStrings(QzTextFromStrings(l))
// gives back l for any fields, whatever bytes they hold. The rule:
//
//  - No fields is the empty text; one empty field is written "".
//  - A field is written as it stands ("bare") unless it holds the separator,
//    a quote '"', a control character (below 32, or 127), begins with '#',
//    or begins or ends with a blank. Such a field is written "encoded": a
//    run of segments with nothing between them, each either "text" (a quote
//    inside doubled: "say ""hi""") or #n, the character with the decimal
//    code n, so that a line break never breaks the line:
//        "first line"#13#10"second line"
//  - Reading, blanks (space, tab) around a field are dropped; a field whose
//    first character is '"', or '#' followed by a digit, is encoded and must
//    end at the next separator or at the end of the line; anything else is
//    bare and runs to the next separator. A '#' that is not followed by a
//    digit starts a bare field, so hand-written "#abc" reads as it looks.
//  - #n accepts any Unicode code point (written out as UTF-8); the writer
//    uses it only for control characters.
//
// The separator may be any printable character except '"', '#', a blank or
// a digit.

#include "rtl/StringList.h"

// Splits text into fields. The list is cleared first. An unterminated quote,
// text after a closing quote, or a bad #n raises EConvertError naming the
// column (1-based) where the fault is.
void QzTextToStrings(const AnsiString& text, TStrings* list, char separator);

// Joins the lines of list into one line of fields.
AnsiString QzTextFromStrings(TStrings* list, char separator);
