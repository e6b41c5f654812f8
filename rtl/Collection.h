#pragma once
// TCollection and TCollectionItem: an ordered list of items of one class
// that a persistent object publishes as a single property (columns, panels,
// fields). A collection owns its items; freeing an item removes it.

#include "rtl/Persistent.h"

#include <vector>

class TCollection;

class TCollectionItem : public TPersistent {
    QZ_CLASS(TCollectionItem, TPersistent)

public:
    // Adds itself to collection (which may be nullptr).
    explicit TCollectionItem(TCollection* collection);
    ~TCollectionItem() override;

    TCollection* Collection() const { return FCollection; }
    // Moves the item to another collection, whose item class it must be.
    virtual void SetCollection(TCollection* value);
    int Index() const;                   // -1 outside a collection
    virtual void SetIndex(int value);    // moves the item; EListError out of range
    // Unique within its collection, never reused: the order of creation.
    int ID() const { return FID; }
    virtual AnsiString GetDisplayName();
    // "Form1.ListView1.Columns[2]"
    AnsiString GetNamePath() override;
    TPersistent* GetOwner() override;

protected:
    // Tells the collection that this item (or, with allItems, the whole
    // collection) changed, unless an update is in progress.
    void Changed(bool allItems);

private:
    friend class TCollection;

    TCollection* FCollection = nullptr;
    int FID = 0;
};

class TCollection : public TPersistent {
    QZ_CLASS(TCollection, TPersistent)

public:
    // itemClass must descend from TCollectionItem. The owner is the object
    // that publishes the collection; it makes the name path.
    explicit TCollection(TMetaClass* itemClass);
    TCollection(TPersistent* owner, TMetaClass* itemClass);
    ~TCollection() override;

    TCollectionItem* Add();
    TCollectionItem* Insert(int index);
    void Delete(int index);
    void Clear();
    int Count() const { return static_cast<int>(FItems.size()); }
    TCollectionItem* Items(int index) const;   // EListError out of range
    TCollectionItem* FindItemID(int id) const;
    TMetaClass* ItemClass() const { return FItemClass; }

    // Changes inside an update reach Update once, after the outermost
    // EndUpdate.
    void BeginUpdate() { ++FUpdateCount; }
    void EndUpdate();
    int UpdateCount() const { return FUpdateCount; }

    // From another collection: its items, assigned one by one into new
    // items of this collection's own item class.
    void Assign(TPersistent* source) override;

    TPersistent* Owner() const { return FOwner; }
    TPersistent* GetOwner() override { return FOwner; }
    // The owner's name path and the property that publishes the collection:
    // "Form1.ListView1.Columns".
    AnsiString GetNamePath() override;
    // Found among the owner's published properties when not set.
    AnsiString PropName();
    void SetPropName(const AnsiString& value) { FPropName = value; }

protected:
    // item is what changed, nullptr the whole collection.
    virtual void Update(TCollectionItem* item);
    // Calls Update(nullptr) unless an update is in progress.
    void Changed();

private:
    friend class TCollectionItem;

    void InsertItem(TCollectionItem* item);
    void RemoveItem(TCollectionItem* item);

    TPersistent* FOwner = nullptr;
    TMetaClass* FItemClass;
    std::vector<TCollectionItem*> FItems;
    int FNextID = 0;
    int FUpdateCount = 0;
    AnsiString FPropName;
};
