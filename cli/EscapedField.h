#pragma once
// Field text on a line of tab-separated output: the characters that would
// end the field or the line stand as escapes, so that a reader splitting
// on tabs and lines gets every field back.

#include "rtl/SysUtils.h"

AnsiString QzEscapedField(const AnsiString& text);
