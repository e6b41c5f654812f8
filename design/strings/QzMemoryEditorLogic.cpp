#include "design/strings/QzMemoryEditorLogic.h"

#include "runtime/model/QzApplication.h"
#include "runtime/model/QzPkgCollectionUpdate.h"
#include "runtime/model/QzPkgLanguage.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<TQzMemoryFamilyInfo, 3> Families{{
    {TQzMemoryFamily::Labels, "Labels", "Label", "Search Label", "Add Label", "Modify Label", TQzDlgManager::Labels,
     false},
    {TQzMemoryFamily::Messages, "Messages", "Message", "Search Message", "Add Message", "Modify Message",
     TQzDlgManager::Messages, true},
    {TQzMemoryFamily::Texts, "Texts", "Text", "Search Text", "Add Text", "Modify Text", TQzDlgManager::Texts, true},
}};

// The case folding AnsiCompareText compares by, done once per row so that
// sorting 100,000 labels folds each text once instead of at every compare.
// Plain ASCII, most texts, is folded in place without the Unicode tables.
AnsiString Folded(const AnsiString& s)
{
    AnsiString out(s);
    for (char& c : out) {
        const auto u = static_cast<unsigned char>(c);
        if (u >= 0x80)
            return AnsiLowerCase(AnsiUpperCase(s));
        if (u >= 'A' && u <= 'Z')
            c = static_cast<char>(u + ('a' - 'A'));
    }
    return out;
}

void SetItemText(TQzPkgIdItem& item, const AnsiString& text)
{
    if (auto* label = dynamic_cast<TQzPkgStringsLabel*>(&item))
        label->SetText(text);
    else
        static_cast<TQzPkgStringsTextItem&>(item).SetText(text);
}

}  // namespace

const TQzMemoryFamilyInfo& QzMemoryFamilyInfo(TQzMemoryFamily family)
{
    return Families[static_cast<size_t>(family)];
}

TQzPkgIdCollection* QzMemoryItems(TQzPkgStrings& pkg, TQzMemoryFamily family)
{
    switch (family) {
    case TQzMemoryFamily::Labels: return pkg.Labels();
    case TQzMemoryFamily::Messages: return pkg.Messages();
    case TQzMemoryFamily::Texts: return pkg.Texts();
    }
    return nullptr;
}

const AnsiString& QzMemoryItemText(const TQzPkgIdItem& item)
{
    if (const auto* label = dynamic_cast<const TQzPkgStringsLabel*>(&item))
        return label->Text();
    return static_cast<const TQzPkgStringsTextItem&>(item).Text();
}

AnsiString QzMemoryItemHint(const TQzPkgIdItem& item)
{
    const auto* label = dynamic_cast<const TQzPkgStringsLabel*>(&item);
    return label ? label->Hint() : AnsiString();
}

// ---------------------------------------------------------------------------

TQzMemoryChoice QzMemoryStartOf(const TQzMemoryRef& ref)
{
    TQzMemoryChoice choice{ref.PkgName(), ref.Id()};
    if (ref.HasDefault() && ref.Id() == TQzMemoryRef::IdDefault)
        choice = {ref.DefaultPkgName(), ref.DefaultId()};
    if (Trim(choice.PkgName).empty())
        choice.PkgName = QzMemoryFallbackPkgName;
    return choice;
}

Integer QzMemoryIdOfText(const AnsiString& text)
{
    return Trim(text).empty() ? TQzMemoryRef::IdNone : StrToInt(Trim(text));
}

Integer QzMemoryStoredId(const TQzMemoryRef& ref, const TQzMemoryChoice& choice)
{
    if (choice.Id >= 0 && SameText(choice.PkgName, ref.DefaultPkgName()) && choice.Id == ref.DefaultId())
        return TQzMemoryRef::IdDefault;
    return choice.Id;
}

void QzMemoryApply(TQzMemoryRef& ref, const TQzMemoryChoice& choice)
{
    ref.PkgId(choice.PkgName, QzMemoryStoredId(ref, choice));
}

void QzMemorySaveFiles(TQzPkgStrings& pkg)
{
    pkg.SaveFile();
    if (auto* language = dynamic_cast<TQzPkgLanguage*>(pkg.Owner()))
        language->SaveFile();
}

TComponent* QzMemoryDesignOwner(TQzPkgStrings& pkg)
{
    TComponent* owner = pkg.Owner();
    while (owner && (dynamic_cast<TQzPkgInfo*>(owner) || dynamic_cast<TQzCApplication*>(owner)))
        owner = owner->Owner();
    return owner ? owner : pkg.Owner();
}

// ---------------------------------------------------------------------------

TQzPkgIdItem* QzMemoryWriteItem(TQzPkgStrings& pkg, TQzMemoryFamily family, bool modify, Integer oldId,
                                const TQzMemoryItemFields& fields)
{
    TQzPkgIdCollection* items = QzMemoryItems(pkg, family);
    pkg.CheckChange();
    const Integer id = StrToInt(Trim(fields.IdText));
    TQzPkgCollectionUpdate update(*items);
    TQzPkgIdItem* item = nullptr;
    if (modify) {
        item = items->FindIdItem(oldId);
        if (!item)
            throw EQzPkgError("The " + items->ItemName() + " " + IntToStr(oldId) + " is no longer in the package " +
                              pkg.PkgName());
        item->SetId(id);
        SetItemText(*item, fields.Text);
        if (auto* label = dynamic_cast<TQzPkgStringsLabel*>(item))
            label->SetHint(fields.Hint);
    } else {
        switch (family) {
        case TQzMemoryFamily::Labels: item = pkg.Labels()->Add(id, fields.Text, fields.Hint); break;
        case TQzMemoryFamily::Messages: item = pkg.Messages()->Add(id, fields.Text); break;
        case TQzMemoryFamily::Texts: item = pkg.Texts()->Add(id, fields.Text); break;
        }
    }
    item->SetProtected(fields.Protected);
    return item;
}

TQzMemoryItemFields QzMemoryFieldsOf(const TQzPkgIdItem& item)
{
    return {IntToStr(item.Id()), QzMemoryItemText(item), QzMemoryItemHint(item), item.Protected()};
}

// ---------------------------------------------------------------------------

void TQzMemoryRows::Load(TQzPkgIdCollection* items, TQzMemoryOrder order, const AnsiString& filter)
{
    Clear();
    FOrder = order;
    if (!items)
        return;
    const AnsiString wanted = Folded(Trim(filter));
    FRows.reserve(static_cast<size_t>(items->Count()));
    for (int i = 0; i < items->Count(); ++i) {
        auto* item = static_cast<TQzPkgIdItem*>(items->Item(i));
        if (!wanted.empty() && Folded(QzMemoryItemText(*item)).find(wanted) == AnsiString::npos)
            continue;
        FRows.push_back(item);
    }
    if (order == TQzMemoryOrder::ById) {
        std::sort(FRows.begin(), FRows.end(), [](const TQzPkgIdItem* a, const TQzPkgIdItem* b) {
            return a->Id() < b->Id();
        });
        return;
    }
    // Each key sorted beside its item: compares touch only the two rows
    // compared, not a table of keys elsewhere in memory.
    struct TKeyed {
        AnsiString Key;
        TQzPkgIdItem* Item;
    };
    std::vector<TKeyed> keyed;
    keyed.reserve(FRows.size());
    for (TQzPkgIdItem* item : FRows)
        keyed.push_back({Folded(QzMemoryItemText(*item)), item});
    // Equal texts stay in Id order, so the list does not shuffle between loads.
    std::sort(keyed.begin(), keyed.end(), [](const TKeyed& a, const TKeyed& b) {
        if (const int c = a.Key.compare(b.Key); c != 0)
            return c < 0;
        return a.Item->Id() < b.Item->Id();
    });
    FKeys.reserve(keyed.size());
    for (size_t i = 0; i < keyed.size(); ++i) {
        FRows[i] = keyed[i].Item;
        FKeys.push_back(std::move(keyed[i].Key));
    }
}

void TQzMemoryRows::Clear()
{
    FRows.clear();
    FKeys.clear();
}

TQzPkgIdItem* TQzMemoryRows::Item(int row) const
{
    return row >= 0 && row < Count() ? FRows[static_cast<size_t>(row)] : nullptr;
}

int TQzMemoryRows::RowOfId(Integer id) const
{
    for (size_t i = 0; i < FRows.size(); ++i)
        if (FRows[i]->Id() == id)
            return static_cast<int>(i);
    return -1;
}

int TQzMemoryRows::FindText(const AnsiString& search) const
{
    const AnsiString key = Folded(search);
    if (FOrder == TQzMemoryOrder::ByText) {
        const auto at = std::lower_bound(FKeys.begin(), FKeys.end(), key);
        return at == FKeys.end() ? -1 : static_cast<int>(at - FKeys.begin());
    }
    for (size_t i = 0; i < FRows.size(); ++i)
        if (Folded(QzMemoryItemText(*FRows[i])).compare(0, key.size(), key) == 0)
            return static_cast<int>(i);
    return -1;
}
