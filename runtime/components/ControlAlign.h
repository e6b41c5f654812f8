#pragma once
// How a windowed control places the controls inside it, as the class
// library does at design time. The aligned controls share out the client
// rectangle: alTop ones from the top down, alBottom ones from the bottom up,
// then alLeft, alRight, and alClient takes what remains; each keeps the size
// its alignment leaves free. Controls that are not aligned keep the
// distances their anchors name when the client size changes: to the right
// (bottom) edge, to both edges by stretching, or with neither their centre
// in proportion. alCustom controls stay where they are.
//
// Plain arithmetic over bounds: TWinControl gathers its controls, asks
// here, and sets what comes back.

#include "runtime/components/Controls.h"

#include <vector>

// One control as the placing sees it.
struct TAlignedControl {
    TAlign Align = alNone;
    TAnchors Anchors{akLeft, akTop};
    TRect Bounds;
    TAnchorRules Rules;
    // Takes a share of the client rectangle: visible, or designed.
    bool Shares = true;
};

// The anchors a control takes when it is given an alignment: the edges the
// alignment holds it to. A form stores Anchors only where they differ.
TAnchors QzAnchorsOfAlign(TAlign align);

// The distances to remember for anchors, from bounds inside a parent
// client of the given size; no rules for the default [akLeft, akTop].
TAnchorRules QzTakeAnchorRules(TAnchors anchors, const TRect& bounds, Integer parentWidth, Integer parentHeight);

// Where rules taken earlier put a control of these bounds in a parent
// client of the given size (the bounds themselves without rules).
TRect QzAnchoredBounds(TAnchors anchors, const TRect& bounds, const TAnchorRules& rules, Integer parentWidth,
                       Integer parentHeight);

// The bounds of every control, in the order given. client is the
// rectangle the aligned controls share; parentWidth and parentHeight the
// client size the anchors measure against. changed (an index, or -1) goes
// first among the controls of its alignment, so it wins a tie.
std::vector<TRect> QzAlignBounds(const std::vector<TAlignedControl>& controls, int changed, const TRect& client,
                                 Integer parentWidth, Integer parentHeight);
