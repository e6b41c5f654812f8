#pragma once
// The values of a scroll bar as the suite's scroll bar keeps them, and the
// rules that keep them consistent: a range of at least one position, a page
// no larger than the range, a position that leaves the page inside it.

#include "rtl/System.h"

struct TQzScrollBarValues {
    Integer Min = 0;
    Integer Max = 100;
    Integer PageSize = 0;
    Integer SmallChange = 1;
    Integer LargeChange = 1;
    Integer Position = 0;
    bool operator==(const TQzScrollBarValues&) const = default;
};

// values made consistent: Max not below Min; PageSize from 0 to the range
// (Max - Min + 1); changes at least 1; Position from Min to the last
// position a page can start at (Max - PageSize + 1, or Max without a page).
TQzScrollBarValues QzNormalScrollBar(TQzScrollBarValues values);
// The last position of normal values.
Integer QzScrollBarLastPosition(const TQzScrollBarValues& values);
