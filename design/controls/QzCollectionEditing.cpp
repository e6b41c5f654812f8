#include "design/controls/QzCollectionEditing.h"

#include <algorithm>

namespace {

std::vector<int> SortedUnique(std::vector<int> indices, int count)
{
    std::sort(indices.begin(), indices.end());
    indices.erase(std::unique(indices.begin(), indices.end()), indices.end());
    indices.erase(std::remove_if(indices.begin(), indices.end(), [count](int i) { return i < 0 || i >= count; }),
                  indices.end());
    return indices;
}

}  // namespace

bool QzCollectionMove(TCollection* collection, std::vector<int>& indices, int delta)
{
    std::vector<int> chosen = SortedUnique(indices, collection->Count());
    if (chosen.empty() || (delta < 0 && chosen.front() == 0) || (delta > 0 && chosen.back() == collection->Count() - 1))
        return false;
    // The item nearest the end it moves to goes first, so that the others
    // keep their order.
    if (delta > 0)
        std::reverse(chosen.begin(), chosen.end());
    collection->BeginUpdate();
    for (int& index : chosen) {
        collection->Items(index)->SetIndex(index + delta);
        index += delta;
    }
    collection->EndUpdate();
    std::sort(chosen.begin(), chosen.end());
    indices = chosen;
    return true;
}

int QzCollectionDelete(TCollection* collection, std::vector<int> indices, const std::function<void(int index)>& deleteAt)
{
    const std::vector<int> chosen = SortedUnique(std::move(indices), collection->Count());
    if (chosen.empty())
        return collection->Count() > 0 ? 0 : -1;
    collection->BeginUpdate();
    for (auto it = chosen.rbegin(); it != chosen.rend(); ++it) {
        if (deleteAt)
            deleteAt(*it);
        else
            collection->Delete(*it);
    }
    collection->EndUpdate();
    return std::min(chosen.front(), collection->Count() - 1);
}
