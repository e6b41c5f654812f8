#pragma once
// Choosing components of a form from the keyboard, and what Select All
// takes. Components are siblings when they sit on the same parent; the
// form's top level holds its own controls and the non-visual components.

#include "rtl/Component.h"

#include <vector>

// What component sits on: its parent, else the form's root.
TComponent* QzDesignParent(TComponent* root, TComponent* component);
// The components of root's form on parent, in creation order.
std::vector<TComponent*> QzComponentsOn(TComponent* root, TComponent* parent);
// Select All: the siblings of the selected component (itself among them),
// or the form's top level when the form itself is selected.
std::vector<TComponent*> QzSelectAllOf(TComponent* root, TComponent* selected);

// The arrow keys: the sibling nearest to component in the direction
// (dx, dy), one of them -1 or 1; nullptr when none lies that way.
TComponent* QzNearestSibling(TComponent* root, TComponent* component, int dx, int dy);
// Tab and Shift+Tab: the next or previous sibling in creation order, from
// the last round to the first. From the form, its first (or last)
// top-level component; nullptr when there is none.
TComponent* QzNextSibling(TComponent* root, TComponent* component, bool forward);
