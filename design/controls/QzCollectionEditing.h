#pragma once
// What the collection editors do to a collection, without a window: moving
// and deleting the chosen items together.
// Items are chosen by index, so that the editor holds no item the designer
// may have freed.

#include "rtl/Collection.h"

#include <functional>
#include <vector>

// Moves the chosen items (indices) one place towards the start (delta -1)
// or the end (+1), keeping their order; false, with nothing moved, when one
// of them is at that end already. indices follow the items.
bool QzCollectionMove(TCollection* collection, std::vector<int>& indices, int delta);
// Deletes the chosen items, by deleteAt when given (a page frees its
// sheet too); returns the index to choose then: the item after the first
// deleted, else the last, else -1.
int QzCollectionDelete(TCollection* collection, std::vector<int> indices,
                       const std::function<void(int index)>& deleteAt = {});
