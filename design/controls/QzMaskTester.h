#pragma once
// The mask editor's tester: whether an input would be taken by an edit with
// the mask being designed, and the value the edit would hold. It lets the
// developer try the options before closing the editor.
//
// What the tester understands of each group:
//  - strings: the accepted classes of characters (symbols, letters, digits,
//    spaces); the case; auto-trim; fill-all against the size or the mask
//    text. In the mask text '#' stands for one character the options
//    accept and every other character for itself; an input may be typed
//    with the literals or without them.
//  - numbers: a sign only where negatives are accepted (at the end with
//    sign-right), thousands separators ',' only with thousands, a '.' and
//    at most Decimals fraction digits for decimal types (none for
//    integers), an exponent only with scientific notation, the size as the
//    number of digits, the integer part against size minus decimals with
//    check-range, and every integer digit filled with fill-all.
//  - date and time: the fields the options name, in the order day, month,
//    year, hour, minutes, seconds, AM/PM, separated by anything that is
//    not a letter or a digit; names of days and months in English; a
//    duration as up to that many numbers.

#include "design/controls/QzMaskOptions.h"

#include <vector>

struct TQzMaskUnderTest {
    TQzDataType Type = qdtString;
    Integer Size = 0;
    Integer Decimals = 0;
    AnsiString Text;  // the mask string
};

struct TQzMaskVerdict {
    bool Accepted = false;
    AnsiString Value;   // what the edit holds (case and trimming applied)
    AnsiString Reason;  // why it was refused, for the tester's list
};

TQzMaskVerdict QzMaskCheck(const TQzMaskUnderTest& mask, const AnsiString& input);

// A few inputs worth trying with a mask of that group.
std::vector<AnsiString> QzMaskSampleInputs(TQzDataType type);

// The mask text as a Qt input mask for the tester's line, or empty when the
// mask has no mask text or is no string mask.
AnsiString QzMaskQtInputMask(const TQzMaskUnderTest& mask);
