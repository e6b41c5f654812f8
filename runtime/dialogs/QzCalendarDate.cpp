#include "runtime/dialogs/QzCalendarDate.h"

#include "rtl/SysUtils.h"

#include <cmath>

namespace {

// A little beyond 0001-01-01 and 9999-12-31, so that DecodeDate only ever
// sees values whose days fit its arithmetic; the years are checked after.
constexpr TDateTime DateLimit = 3000000;

} // namespace

bool QzCalendarDayOf(TDateTime value, TQzCalendarDay& day)
{
    if (!std::isfinite(value) || std::fabs(value) > DateLimit)
        return false;
    TQzCalendarDay result;
    DecodeDate(value, result.Year, result.Month, result.Day);
    if (result.Year < 1 || result.Year > 9999)
        return false;
    day = result;
    return true;
}

TDateTime QzMoveToDay(TDateTime value, const TQzCalendarDay& day)
{
    TQzCalendarDay current;
    if (QzCalendarDayOf(value, current) && current == day)
        return value;
    const TDateTime date = EncodeDate(day.Year, day.Month, day.Day);
    // The time of day counts forward from the day's start on either side
    // of 1899-12-30: -1.25 is 1899-12-29 06:00.
    const TDateTime time = std::isfinite(value) ? std::fabs(value - std::trunc(value)) : 0;
    return date < 0 ? date - time : date + time;
}
