#include "runtime/components/ControlAlign.h"

#include <algorithm>

namespace {

// a * b / c rounded to the nearest, halves away from zero, as the Windows
// call the class library uses for centred controls.
Integer MulDiv(Integer a, Integer b, Integer c)
{
    long long num = static_cast<long long>(a) * b;
    long long den = c;
    if (den < 0) {
        num = -num;
        den = -den;
    }
    const long long q = num >= 0 ? (num + den / 2) / den : -((-num + den / 2) / den);
    return static_cast<Integer>(q);
}

bool HasRules(const TAnchorRules& rules)
{
    return rules.ParentWidth != 0 && rules.ParentHeight != 0;
}

// One axis of the rules: the size when anchored to both edges, the near
// edge when anchored to the far one only, the centre when to neither.
Integer TakeAxis(bool nearEdge, bool farEdge, Integer start, Integer size)
{
    if (farEdge)
        return nearEdge ? size : start;
    return nearEdge ? 0 : start + size / 2;
}

// One axis placed again: start and size in, start and size out.
void PlaceAxis(bool nearEdge, bool farEdge, Integer rule, Integer oldParent, Integer newParent, Integer& start,
               Integer& size)
{
    if (farEdge) {
        if (nearEdge)
            size = std::max(0, newParent - (oldParent - rule));
        else
            start = newParent - (oldParent - rule);
    } else if (!nearEdge) {
        start = MulDiv(rule, newParent, oldParent) - size / 2;
    }
}

// Whether a comes before b among controls of this alignment (the class
// library's order: by top or left; from the bottom or right edge inwards).
bool ComesBefore(const TRect& a, const TRect& b, TAlign align)
{
    switch (align) {
    case alTop:
        return a.Top < b.Top;
    case alBottom:
        return a.Bottom >= b.Bottom;
    case alLeft:
        return a.Left < b.Left;
    case alRight:
        return a.Right >= b.Right;
    default:
        return false;
    }
}

// The controls of one alignment in the order they take their share.
std::vector<size_t> AlignOrder(const std::vector<TAlignedControl>& controls, int changed, TAlign align)
{
    std::vector<size_t> order;
    const auto takesPart = [&](size_t i) { return controls[i].Align == align && controls[i].Shares; };
    if (changed >= 0 && size_t(changed) < controls.size() && takesPart(size_t(changed)))
        order.push_back(size_t(changed));
    for (size_t i = 0; i < controls.size(); ++i) {
        if (!takesPart(i) || int(i) == changed)
            continue;
        auto at = order.begin();
        while (at != order.end() && !ComesBefore(controls[i].Bounds, controls[*at].Bounds, align))
            ++at;
        order.insert(at, i);
    }
    return order;
}

// Gives the control its share of rest and takes it out of rest.
TRect TakeShare(const TRect& bounds, TAlign align, TRect& rest)
{
    Integer width = rest.Width();
    if (width < 0 || align == alLeft || align == alRight)
        width = bounds.Width();
    Integer height = rest.Height();
    if (height < 0 || align == alTop || align == alBottom)
        height = bounds.Height();
    Integer left = rest.Left;
    Integer top = rest.Top;
    switch (align) {
    case alTop:
        rest.Top += height;
        break;
    case alBottom:
        rest.Bottom -= height;
        top = rest.Bottom;
        break;
    case alLeft:
        rest.Left += width;
        break;
    case alRight:
        rest.Right -= width;
        left = rest.Right;
        break;
    default:
        break;
    }
    return {left, top, left + width, top + height};
}

}  // namespace

TAnchors QzAnchorsOfAlign(TAlign align)
{
    switch (align) {
    case alTop:
        return {akLeft, akTop, akRight};
    case alBottom:
        return {akLeft, akRight, akBottom};
    case alLeft:
        return {akLeft, akTop, akBottom};
    case alRight:
        return {akRight, akTop, akBottom};
    case alClient:
        return {akLeft, akTop, akRight, akBottom};
    default:
        return {akLeft, akTop};
    }
}

TAnchorRules QzTakeAnchorRules(TAnchors anchors, const TRect& bounds, Integer parentWidth, Integer parentHeight)
{
    if (anchors == TAnchors{akLeft, akTop})
        return {};
    TAnchorRules rules;
    rules.X = TakeAxis(anchors.Contains(akLeft), anchors.Contains(akRight), bounds.Left, bounds.Width());
    rules.Y = TakeAxis(anchors.Contains(akTop), anchors.Contains(akBottom), bounds.Top, bounds.Height());
    rules.ParentWidth = parentWidth;
    rules.ParentHeight = parentHeight;
    return rules;
}

TRect QzAnchoredBounds(TAnchors anchors, const TRect& bounds, const TAnchorRules& rules, Integer parentWidth,
                       Integer parentHeight)
{
    if (!HasRules(rules))
        return bounds;
    Integer left = bounds.Left, width = bounds.Width();
    Integer top = bounds.Top, height = bounds.Height();
    PlaceAxis(anchors.Contains(akLeft), anchors.Contains(akRight), rules.X, rules.ParentWidth, parentWidth, left,
              width);
    PlaceAxis(anchors.Contains(akTop), anchors.Contains(akBottom), rules.Y, rules.ParentHeight, parentHeight, top,
              height);
    return {left, top, left + width, top + height};
}

std::vector<TRect> QzAlignBounds(const std::vector<TAlignedControl>& controls, int changed, const TRect& client,
                                 Integer parentWidth, Integer parentHeight)
{
    std::vector<TRect> result;
    result.reserve(controls.size());
    for (const TAlignedControl& c : controls)
        result.push_back(c.Bounds);
    TRect rest = client;
    for (TAlign align : {alTop, alBottom, alLeft, alRight, alClient})
        for (size_t i : AlignOrder(controls, changed, align))
            result[i] = TakeShare(controls[i].Bounds, align, rest);
    for (size_t i = 0; i < controls.size(); ++i)
        if (controls[i].Align == alNone)
            result[i] = QzAnchoredBounds(controls[i].Anchors, controls[i].Bounds, controls[i].Rules, parentWidth,
                                         parentHeight);
    return result;
}
