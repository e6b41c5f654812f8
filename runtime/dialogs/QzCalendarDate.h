#pragma once
// The calendar's view of a TDateTime: the day it falls on, and the same
// moment of the day moved to another date.

#include "rtl/System.h"

struct TQzCalendarDay {
    Word Year = 0;
    Word Month = 0;
    Word Day = 0;
    bool operator==(const TQzCalendarDay&) const = default;
};

// The day `value` falls on; false for a value that is not a finite number
// or lies outside the years 1 to 9999, which no date can be written in.
bool QzCalendarDayOf(TDateTime value, TQzCalendarDay& day);

// `day` with the time of day of `value` (a valid day of the years 1 to 9999
// expected). The day `value` already falls on gives `value` unchanged, to
// the last bit.
TDateTime QzMoveToDay(TDateTime value, const TQzCalendarDay& day);
