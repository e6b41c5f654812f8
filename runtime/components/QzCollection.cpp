#include "runtime/components/QzCollection.h"

void TQzCollectionItem::DeclareProperties(TClassBuilder<TQzCollectionItem>& b)
{
    b.Property("Value", &TQzCollectionItem::FValue);
    QzDeclareOwned<TQzCollectionItem, TQzMemoryLabel>(b, "Caption", [](TQzCollectionItem& i) { return i.Caption(); });
    QzDeclareOwned<TQzCollectionItem, TQzMemoryImage>(b, "Image", [](TQzCollectionItem& i) { return i.Image(); });
    b.Property("Enabled", &TQzCollectionItem::FEnabled).Default(true);
    b.Property("Visible", &TQzCollectionItem::FVisible).Default(true);
}

TQzCollectionItem::TQzCollectionItem(TCollection* collection)
    : TCollectionItem(collection),
      FCaption(std::make_unique<TQzMemoryLabel>()),
      FImage(std::make_unique<TQzMemoryImage>())
{
    FCaption->SetOwner(this);
    FImage->SetOwner(this);
}

TQzCollectionItem::~TQzCollectionItem() = default;

AnsiString TQzCollectionItem::Description() const
{
    return FCaption->Text();
}

AnsiString TQzCollectionItem::GetDisplayName()
{
    const AnsiString value = VarToStr(FValue);
    const AnsiString description = Description();
    if (value.empty() && description.empty())
        return TCollectionItem::GetDisplayName();
    if (value.empty() || description.empty())
        return value.empty() ? description : value;
    return value + " - " + description;
}

TQzDataType TQzCollectionItem::GetDataType() const
{
    if (Collection())
        if (auto* owner = dynamic_cast<IQzValueControl*>(Collection()->Owner()))
            return owner->GetDataType();
    return qdtString;
}

void TQzCollectionItem::Assign(TPersistent* source)
{
    auto* item = dynamic_cast<TQzCollectionItem*>(source);
    if (!item) {
        TCollectionItem::Assign(source);
        return;
    }
    FValue = item->FValue;
    FCaption->Assign(item->FCaption.get());
    FImage->Assign(item->FImage.get());
    FEnabled = item->FEnabled;
    FVisible = item->FVisible;
}

TQzCollection::TQzCollection(TPersistent* owner, TMetaClass* itemClass) : TCollection(owner, itemClass) {}

int TQzCollection::IndexOfValue(const Variant& value) const
{
    for (int i = 0; i < Count(); ++i)
        if (GetItem(i)->Value() == value)
            return i;
    return -1;
}

AnsiString TQzCollection::Info() const
{
    if (Count() == 0)
        return "Empty";
    return IntToStr(Count()) + (Count() == 1 ? " Item" : " Items");
}
