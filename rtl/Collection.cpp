#include "rtl/Collection.h"

#include <algorithm>

namespace {

[[noreturn]] void RaiseIndexError(int index)
{
    throw EListError("List index out of bounds (" + std::to_string(index) + ")");
}

}  // namespace

// ---------------------------------------------------------------------------
// TCollectionItem

// The constructor cannot check the item class yet (the object is only a
// TCollectionItem so far), so it goes straight to InsertItem.
TCollectionItem::TCollectionItem(TCollection* collection)
{
    if (collection)
        collection->InsertItem(this);
}

TCollectionItem::~TCollectionItem()
{
    if (FCollection)
        FCollection->RemoveItem(this);
}

void TCollectionItem::SetCollection(TCollection* value)
{
    if (value == FCollection)
        return;
    if (value && !InheritsFrom(value->ItemClass()))
        throw EListError("Invalid property value: a " + ClassName() + " is not a " + value->ItemClass()->ClassName());
    if (FCollection)
        FCollection->RemoveItem(this);
    if (value)
        value->InsertItem(this);
}

int TCollectionItem::Index() const
{
    if (!FCollection)
        return -1;
    const auto& items = FCollection->FItems;
    return static_cast<int>(std::find(items.begin(), items.end(), this) - items.begin());
}

void TCollectionItem::SetIndex(int value)
{
    const int current = Index();
    if (current < 0 || current == value)
        return;
    auto& items = FCollection->FItems;
    if (value < 0 || value >= static_cast<int>(items.size()))
        RaiseIndexError(value);
    items.erase(items.begin() + current);
    items.insert(items.begin() + value, this);
    Changed(true);
}

AnsiString TCollectionItem::GetDisplayName()
{
    return ClassName();
}

AnsiString TCollectionItem::GetNamePath()
{
    if (!FCollection)
        return ClassName();
    return FCollection->GetNamePath() + "[" + std::to_string(Index()) + "]";
}

TPersistent* TCollectionItem::GetOwner()
{
    return FCollection;
}

void TCollectionItem::Changed(bool allItems)
{
    if (FCollection && FCollection->FUpdateCount == 0)
        FCollection->Update(allItems ? nullptr : this);
}

// ---------------------------------------------------------------------------
// TCollection

TCollection::TCollection(TMetaClass* itemClass) : TCollection(nullptr, itemClass) {}

TCollection::TCollection(TPersistent* owner, TMetaClass* itemClass) : FOwner(owner), FItemClass(itemClass)
{
    if (!itemClass || !itemClass->InheritsFrom(TCollectionItem::ClassInfo()))
        throw EInvalidOperation("A collection's items must descend from TCollectionItem");
}

// Items leave one by one without telling Update: the collection is going.
TCollection::~TCollection()
{
    FUpdateCount = 1;
    while (!FItems.empty())
        delete FItems.back();
}

// The item is made inside an update so that Update sees it complete.
TCollectionItem* TCollection::Add()
{
    BeginUpdate();
    TCollectionItem* item = nullptr;
    try {
        item = FItemClass->CreateItem(this);
    } catch (...) {
        --FUpdateCount;
        throw;
    }
    EndUpdate();
    return item;
}

TCollectionItem* TCollection::Insert(int index)
{
    if (index < 0 || index > Count())
        RaiseIndexError(index);
    BeginUpdate();
    TCollectionItem* item = nullptr;
    try {
        item = Add();
        item->SetIndex(index);
    } catch (...) {
        --FUpdateCount;
        throw;
    }
    EndUpdate();
    return item;
}

void TCollection::Delete(int index)
{
    delete Items(index);
}

void TCollection::Clear()
{
    if (FItems.empty())
        return;
    BeginUpdate();
    while (!FItems.empty())
        delete FItems.back();
    EndUpdate();
}

TCollectionItem* TCollection::Items(int index) const
{
    if (index < 0 || index >= Count())
        RaiseIndexError(index);
    return FItems[static_cast<std::size_t>(index)];
}

TCollectionItem* TCollection::FindItemID(int id) const
{
    const auto it = std::find_if(FItems.begin(), FItems.end(), [id](const TCollectionItem* i) { return i->FID == id; });
    return it == FItems.end() ? nullptr : *it;
}

void TCollection::EndUpdate()
{
    if (FUpdateCount > 0)
        --FUpdateCount;
    Changed();
}

void TCollection::Assign(TPersistent* source)
{
    auto* other = dynamic_cast<TCollection*>(source);
    if (!other) {
        TPersistent::Assign(source);
        return;
    }
    if (other == this)
        return;
    BeginUpdate();
    try {
        Clear();
        for (TCollectionItem* item : other->FItems)
            Add()->Assign(item);
    } catch (...) {
        --FUpdateCount;
        throw;
    }
    EndUpdate();
}

AnsiString TCollection::GetNamePath()
{
    if (!FOwner)
        return ClassName();
    const AnsiString ownerPath = FOwner->GetNamePath();
    const AnsiString prop = PropName();
    if (ownerPath.empty() || prop.empty())
        return ClassName();
    return ownerPath + "." + prop;
}

AnsiString TCollection::PropName()
{
    if (FPropName.empty() && FOwner) {
        for (const TPropInfo* prop : GetPropList(FOwner)) {
            if (prop->PropType->Kind == tkClass && prop->GetProc && GetObjectProp(FOwner, prop) == this) {
                FPropName = prop->Name;
                break;
            }
        }
    }
    return FPropName;
}

void TCollection::Update(TCollectionItem*) {}

void TCollection::Changed()
{
    if (FUpdateCount == 0)
        Update(nullptr);
}

void TCollection::InsertItem(TCollectionItem* item)
{
    FItems.push_back(item);
    item->FCollection = this;
    item->FID = FNextID++;
    Changed();
}

void TCollection::RemoveItem(TCollectionItem* item)
{
    FItems.erase(std::remove(FItems.begin(), FItems.end(), item), FItems.end());
    item->FCollection = nullptr;
    Changed();
}
