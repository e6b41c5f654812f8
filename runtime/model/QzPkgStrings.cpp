#include "runtime/model/QzPkgStrings.h"

#include "runtime/model/QzPkgStream.h"

// ---------------------------------------------------------------------------
// Items

void TQzPkgStringsLabel::DeclareProperties(TClassBuilder<TQzPkgStringsLabel>& b)
{
    b.Property("Id", &TQzPkgStringsLabel::Id, &TQzPkgStringsLabel::SetId).NoDefault();
    b.Property("Text", &TQzPkgStringsLabel::Text, &TQzPkgStringsLabel::SetText);
    b.Property("Hint", &TQzPkgStringsLabel::Hint, &TQzPkgStringsLabel::SetHint);
    b.Property("Protected", &TQzPkgStringsLabel::Protected, &TQzPkgStringsLabel::SetProtected).Default(false);
}

void TQzPkgStringsLabel::SetText(const AnsiString& value)
{
    ChangeField(FText, value);
}

void TQzPkgStringsLabel::SetHint(const AnsiString& value)
{
    ChangeField(FHint, value);
}

// Copies the data, not the Id: two items of one list cannot share it.
void TQzPkgStringsLabel::Assign(TPersistent* source)
{
    if (auto* other = dynamic_cast<TQzPkgStringsLabel*>(source)) {
        SetText(other->FText);
        SetHint(other->FHint);
        SetProtected(other->Protected());
        return;
    }
    TQzPkgIdItem::Assign(source);
}

void TQzPkgStringsTextItem::DeclareProperties(TClassBuilder<TQzPkgStringsTextItem>& b)
{
    b.Property("Id", &TQzPkgStringsTextItem::Id, &TQzPkgStringsTextItem::SetId).NoDefault();
    b.Property("Text", &TQzPkgStringsTextItem::Text, &TQzPkgStringsTextItem::SetText);
    b.Property("Protected", &TQzPkgStringsTextItem::Protected, &TQzPkgStringsTextItem::SetProtected).Default(false);
}

void TQzPkgStringsTextItem::SetText(const AnsiString& value)
{
    ChangeField(FText, value);
}

void TQzPkgStringsTextItem::Assign(TPersistent* source)
{
    auto* other = dynamic_cast<TQzPkgStringsTextItem*>(source);
    if (other && other->ClassType() == ClassType()) {
        SetText(other->FText);
        SetProtected(other->Protected());
        return;
    }
    TQzPkgIdItem::Assign(source);
}

// ---------------------------------------------------------------------------
// Collections

TQzPkgStringsLabel* TQzPkgStringsLabels::Add(Integer id, const AnsiString& text, const AnsiString& hint)
{
    CheckChange();
    CheckNewId(id);
    BeginUpdate();
    auto* item = new TQzPkgStringsLabel(this, id);
    item->SetText(text);
    item->SetHint(hint);
    EndUpdate();
    return item;
}

TQzPkgStringsLabel* TQzPkgStringsLabels::FindLabel(const AnsiString& text) const
{
    for (int i = 0; i < Count(); ++i)
        if (GetItems(i)->Text() == text)
            return GetItems(i);
    return nullptr;
}

TQzPkgStringsMessage* TQzPkgStringsMessages::Add(Integer id, const AnsiString& text)
{
    CheckChange();
    CheckNewId(id);
    BeginUpdate();
    auto* item = new TQzPkgStringsMessage(this, id);
    item->SetText(text);
    EndUpdate();
    return item;
}

TQzPkgStringsText* TQzPkgStringsTexts::Add(Integer id, const AnsiString& text)
{
    CheckChange();
    CheckNewId(id);
    BeginUpdate();
    auto* item = new TQzPkgStringsText(this, id);
    item->SetText(text);
    EndUpdate();
    return item;
}

// ---------------------------------------------------------------------------
// The package

void TQzPkgStrings::DeclareProperties(TClassBuilder<TQzPkgStrings>& b)
{
    b.Property("PkgName", &TQzPkgStrings::PkgName, &TQzPkgStrings::SetPkgName);
    b.Property("Active", &TQzPkgStrings::Active, &TQzPkgStrings::SetActive).Default(true);
}

TQzPkgStrings::TQzPkgStrings(TComponent* owner) : TQzPkgInfo(owner)
{
    JoinRegistry(pkStrings);
}

TQzPkgStrings::~TQzPkgStrings()
{
    LeaveRegistry();
}

void TQzPkgStrings::Clear()
{
    CheckChange();
    FLabels.BeginUpdate();
    FLabels.Clear();
    FMessages.Clear();
    FTexts.Clear();
    FLabels.EndUpdate();
}

bool TQzPkgStrings::IsEmpty() const
{
    return FLabels.Count() == 0 && FMessages.Count() == 0 && FTexts.Count() == 0;
}

namespace {

// An item as it travels: labels have a hint, messages and texts do not.
struct TStringValues {
    Integer Id = 0;
    AnsiString Text;
    AnsiString Hint;
    bool Protected = false;
};

template <class Item>
TStringValues ValuesOf(const Item* item)
{
    TStringValues v{item->Id(), item->Text(), {}, item->Protected()};
    if constexpr (std::is_same_v<Item, TQzPkgStringsLabel>)
        v.Hint = item->Hint();
    return v;
}

// ( Id Text [Hint] Protected )* in list order, into the free-standing list
// into when loading.
template <class Items>
void TransferItems(TQzPkgTransfer& t, const Items& live, Items& into)
{
    constexpr bool labels = std::is_same_v<Items, TQzPkgStringsLabels>;
    t.Items(
        live.Count(), [&](int i) { return ValuesOf(live.GetItems(i)); },
        [&](TStringValues& v) {
            t.Value(v.Id);
            t.Value(v.Text);
            if constexpr (labels)
                t.Value(v.Hint);
            t.Value(v.Protected);
        },
        [&](const TStringValues& v) {
            if constexpr (labels)
                into.Add(v.Id, v.Text, v.Hint)->SetProtected(v.Protected);
            else
                into.Add(v.Id, v.Text)->SetProtected(v.Protected);
        });
}

}  // namespace

// Layout (version 1), after the common header:
//   ( Id Text Hint Protected )*   labels, in list order
//   ( Id Text Protected )*        messages
//   ( Id Text Protected )*        texts
void TQzPkgStrings::Transfer(TQzPkgTransfer& t)
{
    const TQzWindowPlacement placement = TransferContentHeader(t, DataVersion);
    TQzPkgStringsLabels labels(nullptr);
    TQzPkgStringsMessages messages(nullptr);
    TQzPkgStringsTexts texts(nullptr);
    TransferItems(t, FLabels, labels);
    TransferItems(t, FMessages, messages);
    TransferItems(t, FTexts, texts);
    if (!t.EndBlock())
        return;
    FLabels.TakeItems(labels);
    FMessages.TakeItems(messages);
    FTexts.TakeItems(texts);
    CommitContents(placement);
}

void TQzPkgStrings::TakeContents(TQzPkgStrings& source)
{
    FLabels.TakeItems(source.FLabels);
    FMessages.TakeItems(source.FMessages);
    FTexts.TakeItems(source.FTexts);
    SetPlacement(source.Placement());
    Change();
}
