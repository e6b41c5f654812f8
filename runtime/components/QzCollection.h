#pragma once
// The suite's collection: the entries a list-like control offers (combo and
// list boxes, radio groups, status bar panels, the pages of a page control).
// Each entry has a value, a caption and hint from a strings package, an
// image from an images package, and may be hidden or disabled.

#include "runtime/components/QzControl.h"

#include "rtl/Collection.h"

class TQzCollectionItem : public TCollectionItem, public IQzValueControl {
    QZ_CLASS(TQzCollectionItem, TCollectionItem)

public:
    explicit TQzCollectionItem(TCollection* collection);
    ~TQzCollectionItem() override;

    const Variant& Value() const { return FValue; }
    TQzMemoryLabel* Caption() const { return FCaption.get(); }
    TQzMemoryImage* Image() const { return FImage.get(); }
    bool Enabled() const { return FEnabled; }
    void SetEnabled(bool value) { FEnabled = value; }
    bool Visible() const { return FVisible; }
    void SetVisible(bool value) { FVisible = value; }

    // The caption's text, when it names a label.
    AnsiString Description() const;
    // "Value - Description", or the one of the two there is.
    AnsiString GetDisplayName() override;

    Variant GetValue() const override { return FValue; }
    void SetValue(const Variant& value) override { FValue = value; }
    // The owning control's, when it has a data type; else string.
    TQzDataType GetDataType() const override;

    void Assign(TPersistent* source) override;

private:
    static void DeclareProperties(TClassBuilder<TQzCollectionItem>& b);

    Variant FValue;
    std::unique_ptr<TQzMemoryLabel> FCaption;
    std::unique_ptr<TQzMemoryImage> FImage;
    bool FEnabled = true;
    bool FVisible = true;
};

class TQzCollection : public TCollection {
    QZ_CLASS(TQzCollection, TCollection)

public:
    explicit TQzCollection(TPersistent* owner, TMetaClass* itemClass = TQzCollectionItem::ClassInfo());

    TQzCollectionItem* Add() { return static_cast<TQzCollectionItem*>(TCollection::Add()); }
    TQzCollectionItem* GetItem(int index) const { return static_cast<TQzCollectionItem*>(Items(index)); }
    // The first entry whose value equals value; -1 when none does.
    int IndexOfValue(const Variant& value) const;
    // What the inspector shows between parentheses: "3 Items", "1 Item",
    // "Empty".
    AnsiString Info() const;
};
