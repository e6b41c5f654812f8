#include "runtime/model/QzPkgCollection.h"

#include "runtime/model/QzPkgInfo.h"

#include <algorithm>

// ---------------------------------------------------------------------------
// TQzPkgItem

TQzPkgItem::TQzPkgItem(TQzPkgCollection* collection)
{
    if (collection)
        collection->InsertItem(this);
}

TQzPkgItem::~TQzPkgItem()
{
    if (FCollection)
        FCollection->RemoveItem(this);
}

int TQzPkgItem::Index() const
{
    if (!FCollection)
        return -1;
    const auto& items = FCollection->FItems;
    return static_cast<int>(std::find(items.begin(), items.end(), this) - items.begin());
}

TQzPkgInfo* TQzPkgItem::Package() const
{
    return FCollection ? FCollection->Package() : nullptr;
}

TPersistent* TQzPkgItem::GetOwner()
{
    return FCollection;
}

void TQzPkgItem::CheckChange() const
{
    if (FCollection)
        FCollection->CheckChange();
}

void TQzPkgItem::Changed()
{
    if (FCollection)
        FCollection->Changed();
}

// ---------------------------------------------------------------------------
// TQzPkgCollection

TQzPkgCollection::~TQzPkgCollection()
{
    FreeAll();
}

// Without telling anybody: the list is going, or is about to be refilled.
void TQzPkgCollection::FreeAll()
{
    std::vector<TQzPkgItem*> items;
    items.swap(FItems);
    ItemsCleared();
    for (TQzPkgItem* item : items) {
        item->FCollection = nullptr;
        delete item;
    }
}

TQzPkgItem* TQzPkgCollection::Item(int index) const
{
    if (index < 0 || index >= Count())
        throw EListError("List index out of bounds (" + std::to_string(index) + ")");
    return FItems[static_cast<size_t>(index)];
}

void TQzPkgCollection::Delete(int index)
{
    TQzPkgItem* item = Item(index);
    CheckChange();
    delete item;
}

void TQzPkgCollection::Clear()
{
    if (FItems.empty())
        return;
    CheckChange();
    FreeAll();
    Changed();
}

void TQzPkgCollection::EndUpdate()
{
    if (FUpdateCount > 0 && --FUpdateCount == 0 && FChangedInUpdate) {
        FChangedInUpdate = false;
        Changed();
    }
}

TPersistent* TQzPkgCollection::GetOwner()
{
    return FPackage;
}

void TQzPkgCollection::CheckChange() const
{
    if (FPackage)
        FPackage->CheckChange();
}

void TQzPkgCollection::Changed()
{
    if (FUpdateCount > 0) {
        FChangedInUpdate = true;
        return;
    }
    if (FPackage)
        FPackage->Change();
}

void TQzPkgCollection::TakeItems(TQzPkgCollection& source)
{
    FreeAll();
    std::vector<TQzPkgItem*> moved;
    moved.swap(source.FItems);
    source.ItemsCleared();
    FItems.reserve(moved.size());
    for (TQzPkgItem* item : moved) {
        FItems.push_back(item);
        item->FCollection = this;
        ItemAdded(item);
    }
}

void TQzPkgCollection::InsertItem(TQzPkgItem* item)
{
    FItems.push_back(item);
    item->FCollection = this;
    ItemAdded(item);
    Changed();
}

// Items are mostly freed from the end (clearing, deleting the last row), so
// the search starts there.
void TQzPkgCollection::RemoveItem(TQzPkgItem* item)
{
    auto it = std::find(FItems.rbegin(), FItems.rend(), item);
    if (it != FItems.rend())
        FItems.erase(std::next(it).base());
    item->FCollection = nullptr;
    ItemRemoved(item);
    Changed();
}

// ---------------------------------------------------------------------------
// TQzPkgIdItem

TQzPkgIdItem::TQzPkgIdItem(TQzPkgIdCollection* collection, Integer id) : TQzPkgItem(nullptr), FId(id)
{
    // Joined here rather than in the base, so the index sees the Id.
    if (collection)
        static_cast<TQzPkgCollection*>(collection)->InsertItem(this);
}

TQzPkgIdItem::~TQzPkgIdItem()
{
    if (TQzPkgCollection* collection = Collection())
        collection->RemoveItem(this);
}

void TQzPkgIdItem::SetId(Integer value)
{
    if (value == FId)
        return;
    CheckChange();
    auto* ids = dynamic_cast<TQzPkgIdCollection*>(Collection());
    if (ids)
        ids->CheckNewId(value);
    else if (value < 0)
        throw EQzPkgError("Invalid Id " + IntToStr(value) + ": Ids are 0 or more");
    const Integer old = FId;
    FId = value;
    if (ids)
        ids->Reindex(this, old);
    Changed();
}

void TQzPkgIdItem::SetProtected(bool value)
{
    ChangeField(FProtected, value);
}

// ---------------------------------------------------------------------------
// TQzPkgIdCollection

TQzPkgIdItem* TQzPkgIdCollection::FindIdItem(Integer id) const
{
    auto it = FById.find(id);
    return it == FById.end() ? nullptr : it->second;
}

Integer TQzPkgIdCollection::UniqueId() const
{
    while (FById.count(FFreeFrom))
        ++FFreeFrom;
    return FFreeFrom;
}

void TQzPkgIdCollection::CheckNewId(Integer id) const
{
    if (id < 0)
        throw EQzPkgError("Invalid " + FItemName + " Id " + IntToStr(id) + ": Ids are 0 or more");
    if (FById.count(id))
        throw EQzPkgError("Duplicate " + FItemName + " Id " + IntToStr(id) + ": another " + FItemName +
                          " already has it");
}

bool TQzPkgIdCollection::SetAllProtected(bool value)
{
    bool changed = false;
    BeginUpdate();
    try {
        for (int i = 0; i < Count(); ++i) {
            auto* item = static_cast<TQzPkgIdItem*>(Item(i));
            if (item->Protected() != value) {
                item->SetProtected(value);
                changed = true;
            }
        }
    } catch (...) {
        EndUpdate();
        throw;
    }
    EndUpdate();
    return changed;
}

void TQzPkgIdCollection::ItemAdded(TQzPkgItem* item)
{
    auto* idItem = static_cast<TQzPkgIdItem*>(item);
    FById[idItem->FId] = idItem;
}

void TQzPkgIdCollection::ItemRemoved(TQzPkgItem* item)
{
    auto* idItem = static_cast<TQzPkgIdItem*>(item);
    auto it = FById.find(idItem->FId);
    if (it != FById.end() && it->second == idItem)
        FById.erase(it);
    FFreeFrom = std::min(FFreeFrom, idItem->FId);
}

void TQzPkgIdCollection::ItemsCleared()
{
    FById.clear();
    FFreeFrom = 0;
}

void TQzPkgIdCollection::Reindex(TQzPkgIdItem* item, Integer oldId)
{
    FById.erase(oldId);
    FById[item->FId] = item;
    FFreeFrom = std::min(FFreeFrom, oldId);
}
