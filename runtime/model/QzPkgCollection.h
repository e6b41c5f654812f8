#pragma once
// The lists inside packages: a collection owns its items, freeing an item
// removes it from its collection, and every change marks the package
// modified and tells its links (once per BeginUpdate/EndUpdate bracket).
//
// Id collections (labels, messages, texts, images, privileges) keep an
// index from Id to item, so lookups stay constant-time however many items a
// package holds. Ids are 0 or more and unique within one collection; the
// negative values are the "(None)" and "(Default)" of memory references.

#include "runtime/model/QzTypes.h"

#include "rtl/Persistent.h"

#include <unordered_map>
#include <vector>

class TQzPkgInfo;
class TQzPkgCollection;
class TQzPkgIdCollection;

class TQzPkgItem : public TPersistent {
    QZ_CLASS(TQzPkgItem, TPersistent)

public:
    // Leaves its collection.
    ~TQzPkgItem() override;

    TQzPkgCollection* Collection() const { return FCollection; }
    int Index() const;   // -1 outside a collection
    TQzPkgInfo* Package() const;
    TPersistent* GetOwner() override;

protected:
    // Joins collection (when not nullptr) at its end.
    explicit TQzPkgItem(TQzPkgCollection* collection);
    // Call before changing the item: raises when its package may not change.
    void CheckChange() const;
    // Call after changing the item.
    void Changed();
    // Sets a field as one change of the item: nothing when it holds the
    // value already, refused when the package may not change.
    template <class V>
    void ChangeField(V& field, const V& value)
    {
        if (field == value)
            return;
        CheckChange();
        field = value;
        Changed();
    }

private:
    friend class TQzPkgCollection;
    TQzPkgCollection* FCollection = nullptr;
};

class TQzPkgCollection : public TPersistent {
    QZ_CLASS(TQzPkgCollection, TPersistent)

public:
    // package may be nullptr: a free-standing list (a package being read).
    explicit TQzPkgCollection(TQzPkgInfo* package) : FPackage(package) {}
    // Frees the items.
    ~TQzPkgCollection() override;

    int Count() const { return static_cast<int>(FItems.size()); }
    TQzPkgItem* Item(int index) const;   // EListError out of range
    // Frees the item at index.
    void Delete(int index);
    void Clear();
    void BeginUpdate() { ++FUpdateCount; }
    void EndUpdate();

    TQzPkgInfo* Package() const { return FPackage; }
    TPersistent* GetOwner() override;
    // Raises EQzPkgError when the package may not change now.
    void CheckChange() const;
    // Frees this collection's items and moves source's items (of the same
    // class) here, without checks: for contents that were read whole into a
    // free-standing list. Tells nobody; the package reports the change.
    void TakeItems(TQzPkgCollection& source);

protected:
    // Hooks for derived lists that index their items.
    virtual void ItemAdded(TQzPkgItem*) {}
    virtual void ItemRemoved(TQzPkgItem*) {}
    virtual void ItemsCleared() {}
    // Marks the package changed, or remembers to at the end of the update.
    void Changed();

private:
    friend class TQzPkgItem;
    friend class TQzPkgIdItem;
    void InsertItem(TQzPkgItem* item);
    void RemoveItem(TQzPkgItem* item);
    void FreeAll();

    TQzPkgInfo* FPackage;
    std::vector<TQzPkgItem*> FItems;
    int FUpdateCount = 0;
    bool FChangedInUpdate = false;
};

class TQzPkgIdItem : public TQzPkgItem {
    QZ_CLASS(TQzPkgIdItem, TQzPkgItem)

public:
    // Leaves its list while it is still an Id item, so the Id index is kept.
    ~TQzPkgIdItem() override;

    Integer Id() const { return FId; }
    // Raises EQzPkgError for a negative Id or one another item of the
    // collection has, and leaves the item as it was.
    virtual void SetId(Integer value);
    // Marks an item the suite itself provides (shown "P" in the editors).
    bool Protected() const { return FProtected; }
    void SetProtected(bool value);

protected:
    // The Id must be free: the collection checks it before making the item.
    TQzPkgIdItem(TQzPkgIdCollection* collection, Integer id);

private:
    friend class TQzPkgIdCollection;
    Integer FId;
    bool FProtected = false;
};

class TQzPkgIdCollection : public TQzPkgCollection {
    QZ_CLASS(TQzPkgIdCollection, TQzPkgCollection)

public:
    // itemName names one item in messages ("label", "message", ...).
    TQzPkgIdCollection(TQzPkgInfo* package, const AnsiString& itemName)
        : TQzPkgCollection(package), FItemName(itemName) {}

    // nullptr when no item has the Id.
    TQzPkgIdItem* FindIdItem(Integer id) const;
    // The smallest Id of 0 or more that no item has, so that new items fit
    // the editors' four-digit Id boxes as long as possible.
    Integer UniqueId() const;
    // Raises EQzPkgError unless id may be given to a new item.
    void CheckNewId(Integer id) const;
    const AnsiString& ItemName() const { return FItemName; }

    // Sets or clears Protected on every item; true when any flag changed.
    bool SetAllProtected(bool value);

protected:
    void ItemAdded(TQzPkgItem* item) override;
    void ItemRemoved(TQzPkgItem* item) override;
    void ItemsCleared() override;

private:
    friend class TQzPkgIdItem;
    void Reindex(TQzPkgIdItem* item, Integer oldId);

    AnsiString FItemName;
    std::unordered_map<Integer, TQzPkgIdItem*> FById;
    mutable Integer FFreeFrom = 0;   // no Id below this is free
};
