#pragma once
// What the menus editor does to a menu, without a window. An item is
// addressed by its path of indices from the menu's root item, so that the
// editor never holds an item the designer may have freed (deleted on the
// form, or read again by undo). A path whose last index equals its
// parent's count is the empty slot at the end of that list, where typing
// adds an item.

#include "runtime/components/QzMenus.h"

#include <vector>

class IDesigner;

using TQzMenuPath = std::vector<int>;

// The item at path; nullptr for an empty slot or a path that leads nowhere.
TQzMenuItem* QzMenuItemAt(TQzMenuItem* root, const TQzMenuPath& path);
// The item whose list path's last index counts in (root for a top-level
// path); nullptr when the path leads nowhere.
TQzMenuItem* QzMenuListOf(TQzMenuItem* root, const TQzMenuPath& path);
// Whether path is an item or the empty slot of an existing list.
bool QzMenuPathValid(TQzMenuItem* root, const TQzMenuPath& path);

// A new item of menu's form named as the designer names components (by
// the menu's owner when there is no designer), inserted at path (an item's
// place or the empty slot). nullptr when path is not valid.
TQzMenuItem* QzMenuInsertNew(TComponent* menu, TQzMenuItem* root, const TQzMenuPath& path, IDesigner* designer,
                             const AnsiString& caption = {});
// Frees the item at path with its sub-items; returns the path to select
// then (the next item, else the previous, else the slot).
TQzMenuPath QzMenuDelete(TQzMenuItem* root, const TQzMenuPath& path);
// Moves the item one place towards the start (delta -1) or the end (+1) of
// its list; false (nothing moved) past either end. path follows the item.
bool QzMenuMove(TQzMenuItem* root, TQzMenuPath& path, int delta);
// Moves the item to the place at to (an item's place or an empty slot, in
// any list not inside the item). path follows the item; false when to is
// not a place the item can go.
bool QzMenuMoveTo(TQzMenuItem* root, TQzMenuPath& path, const TQzMenuPath& to);
// Makes the item the last sub-item of the item before it; false for the
// first item of a list.
bool QzMenuIndent(TQzMenuItem* root, TQzMenuPath& path);
// Makes the item the one after its parent item; false at the top level.
bool QzMenuOutdent(TQzMenuItem* root, TQzMenuPath& path);
// The path of item inside root; empty when it is not there.
TQzMenuPath QzMenuPathOf(TQzMenuItem* root, const TQzMenuItem* item);

// What the menu shows for an item: the label's text when the item names
// one, else its caption.
AnsiString QzMenuItemText(const TQzMenuItem* item);
