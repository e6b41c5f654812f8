#include "design/controls/QzScrollBarValues.h"

#include <algorithm>

Integer QzScrollBarLastPosition(const TQzScrollBarValues& v)
{
    return v.PageSize > 0 ? v.Max - v.PageSize + 1 : v.Max;
}

TQzScrollBarValues QzNormalScrollBar(TQzScrollBarValues v)
{
    v.Max = std::max(v.Max, v.Min);
    // In 64 bits: the range of the widest bar does not fit an Integer.
    const Int64 range = Int64(v.Max) - v.Min + 1;
    v.PageSize = Integer(std::clamp<Int64>(v.PageSize, 0, range));
    v.SmallChange = std::max(v.SmallChange, 1);
    v.LargeChange = std::max(v.LargeChange, 1);
    v.Position = std::clamp(v.Position, v.Min, QzScrollBarLastPosition(v));
    return v;
}
