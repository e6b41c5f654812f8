#include "runtime/model/QzPkgVars.h"

#include "runtime/model/QzApplication.h"
#include "runtime/model/QzPkgStream.h"
#include "rtl/ScopedValue.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

std::vector<AnsiString> SplitPath(const AnsiString& path)
{
    std::vector<AnsiString> parts;
    size_t start = 0;
    for (;;) {
        const size_t sep = path.find(TQzPkgVars::PathSeparator, start);
        parts.push_back(path.substr(start, sep == std::string::npos ? std::string::npos : sep - start));
        if (sep == std::string::npos)
            break;
        start = sep + 1;
    }
    return parts;
}

TQzPkgVarsItem* FindIn(const std::vector<TQzPkgVarsItem*>& items, const AnsiString& ident)
{
    for (TQzPkgVarsItem* item : items)
        if (SameText(item->Ident(), ident))
            return item;
    return nullptr;
}

Integer RoundToInteger(Extended value)
{
    if (std::isnan(value))
        return 0;
    const Extended rounded = std::round(value);
    if (rounded >= static_cast<Extended>(std::numeric_limits<Integer>::max()))
        return std::numeric_limits<Integer>::max();
    if (rounded <= static_cast<Extended>(std::numeric_limits<Integer>::min()))
        return std::numeric_limits<Integer>::min();
    return static_cast<Integer>(rounded);
}

// Text that reads as a number, as variables store them ('.' decimal).
bool TextToNumber(const AnsiString& text, Extended& value)
{
    return TryStrToFloat(Trim(text), value);
}

}  // namespace

// A variable's value with the conversions between its kinds.
struct TQzVarValue {
    TQzPkgVarsItemType Type;
    bool B;
    Integer I;
    Extended F;
    AnsiString S;

    bool AsBoolean() const
    {
        switch (Type) {
        case qvBoolean:
            return B;
        case qvInteger:
            return I != 0;
        case qvFloat:
            return F != 0;
        case qvString: {
            Extended number = 0;
            if (TextToNumber(S, number))
                return number != 0;
            return SameText(Trim(S), "True");
        }
        case qvFolder:
            break;
        }
        return false;
    }
    Integer AsInteger() const
    {
        switch (Type) {
        case qvBoolean:
            return B ? 1 : 0;
        case qvInteger:
            return I;
        case qvFloat:
            return RoundToInteger(F);
        case qvString: {
            Extended number = 0;
            return TextToNumber(S, number) ? RoundToInteger(number) : 0;
        }
        case qvFolder:
            break;
        }
        return 0;
    }
    Extended AsFloat() const
    {
        switch (Type) {
        case qvBoolean:
            return B ? 1 : 0;
        case qvInteger:
            return I;
        case qvFloat:
            return F;
        case qvString: {
            Extended number = 0;
            return TextToNumber(S, number) ? number : 0;
        }
        case qvFolder:
            break;
        }
        return 0;
    }
    static TQzVarValue Of(const TQzPkgVarsItem& item)
    {
        return {item.FItemType, item.FBoolean, item.FInteger, item.FFloat, item.FString};
    }
    AnsiString AsString() const
    {
        switch (Type) {
        case qvBoolean:
            return B ? "True" : "False";
        case qvInteger:
            return IntToStr(I);
        case qvFloat:
            return FloatToStr(F);
        case qvString:
            return S;
        case qvFolder:
            break;
        }
        return {};
    }
};

// ---------------------------------------------------------------------------
// TQzPkgVarsItem

void TQzPkgVarsItem::DeclareProperties(TClassBuilder<TQzPkgVarsItem>& b)
{
    b.Property("Ident", &TQzPkgVarsItem::Ident, &TQzPkgVarsItem::SetIdent);
    b.Enum("ItemType", TypeInfo_TQzPkgVarsItemType(), &TQzPkgVarsItem::GetItemType, &TQzPkgVarsItem::SetItemType,
           qvBoolean);
}

// Not yet in the tree: the caller puts the item where it belongs.
TQzPkgVarsItem::TQzPkgVarsItem(TQzPkgVars* package, TQzPkgVarsItem* parent, const AnsiString& ident,
                               TQzPkgVarsItemType type)
    : FPackage(package), FParent(parent), FIdent(ident), FItemType(type)
{
}

TQzPkgVarsItem::~TQzPkgVarsItem()
{
    const bool quiet = FPackage->FClearing;
    if (!quiet) {
        auto& siblings = Siblings();
        siblings.erase(std::remove(siblings.begin(), siblings.end(), this), siblings.end());
    }
    FreeChildren();
    if (!quiet)
        FPackage->Change();
}

void TQzPkgVarsItem::FreeChildren()
{
    std::vector<TQzPkgVarsItem*> children;
    children.swap(FChildren);
    // One change is reported for the whole subtree.
    TScopedValue<bool> quiet(FPackage->FClearing, true);
    for (TQzPkgVarsItem* child : children)
        delete child;
}

std::vector<TQzPkgVarsItem*>& TQzPkgVarsItem::Siblings() const
{
    return FParent ? FParent->FChildren : FPackage->FItems;
}

void TQzPkgVarsItem::CheckChange() const
{
    FPackage->CheckChange();
}

void TQzPkgVarsItem::Changed()
{
    FPackage->Change();
}

void TQzPkgVarsItem::SetIdent(const AnsiString& value)
{
    if (value == FIdent)
        return;
    CheckChange();
    FIdent = value;
    Changed();
}

AnsiString TQzPkgVarsItem::Path() const
{
    AnsiString path = FIdent;
    for (const TQzPkgVarsItem* p = FParent; p; p = p->FParent)
        path = p->FIdent + TQzPkgVars::PathSeparator + path;
    return path;
}

TQzPkgVarsItem* TQzPkgVarsItem::Items(int index) const
{
    if (index < 0 || index >= Count())
        throw EListError("List index out of bounds (" + std::to_string(index) + ")");
    return FChildren[static_cast<size_t>(index)];
}

TQzPkgVarsItem* TQzPkgVarsItem::GetNextSibling() const
{
    const auto& siblings = Siblings();
    auto it = std::find(siblings.begin(), siblings.end(), this);
    if (it == siblings.end() || ++it == siblings.end())
        return nullptr;
    return *it;
}

TQzPkgVarsItem* TQzPkgVarsItem::FindChild(const AnsiString& ident) const
{
    return FindIn(FChildren, ident);
}

bool TQzPkgVarsItem::GetVBoolean() const
{
    return TQzVarValue::Of(*this).AsBoolean();
}

Integer TQzPkgVarsItem::GetVInteger() const
{
    return TQzVarValue::Of(*this).AsInteger();
}

Extended TQzPkgVarsItem::GetVFloat() const
{
    return TQzVarValue::Of(*this).AsFloat();
}

AnsiString TQzPkgVarsItem::GetVString() const
{
    return TQzVarValue::Of(*this).AsString();
}

// Every setter stores the value in the item's own type, converted.
void TQzPkgVarsItem::SetValue(const TQzVarValue& value)
{
    if (FItemType == qvFolder)
        throw EQzPkgError("\"" + Path() + "\" is a folder and holds no value");
    CheckChange();
    bool changed = false;
    switch (FItemType) {
    case qvBoolean:
        changed = FBoolean != value.AsBoolean();
        FBoolean = value.AsBoolean();
        break;
    case qvInteger:
        changed = FInteger != value.AsInteger();
        FInteger = value.AsInteger();
        break;
    case qvFloat:
        changed = FFloat != value.AsFloat();
        FFloat = value.AsFloat();
        break;
    case qvString:
        changed = FString != value.AsString();
        FString = value.AsString();
        break;
    case qvFolder:
        break;
    }
    if (changed)
        Changed();
}

void TQzPkgVarsItem::SetVBoolean(bool value)
{
    SetValue({qvBoolean, value, 0, 0, {}});
}

void TQzPkgVarsItem::SetVInteger(Integer value)
{
    SetValue({qvInteger, false, value, 0, {}});
}

void TQzPkgVarsItem::SetVFloat(Extended value)
{
    SetValue({qvFloat, false, 0, value, {}});
}

void TQzPkgVarsItem::SetVString(const AnsiString& value)
{
    SetValue({qvString, false, 0, 0, value});
}

void TQzPkgVarsItem::SetItemType(TQzPkgVarsItemType value)
{
    if (value == FItemType)
        return;
    if (value < qvBoolean || value > qvFolder)
        throw EQzPkgError("Invalid variable type " + IntToStr(value));
    CheckChange();
    // Read the value as the new type before the old one is forgotten.
    const bool b = GetVBoolean();
    const Integer i = GetVInteger();
    const Extended f = GetVFloat();
    const AnsiString s = GetVString();
    FreeChildren();
    FItemType = value;
    FBoolean = value == qvBoolean && b;
    FInteger = value == qvInteger ? i : 0;
    FFloat = value == qvFloat ? f : 0;
    FString = value == qvString ? s : AnsiString();
    Changed();
}

// ---------------------------------------------------------------------------
// TQzPkgVars

void TQzPkgVars::DeclareProperties(TClassBuilder<TQzPkgVars>& b)
{
    b.Property("PkgName", &TQzPkgVars::PkgName, &TQzPkgVars::SetPkgName);
    b.Property("Active", &TQzPkgVars::Active, &TQzPkgVars::SetActive).Default(true);
}

TQzPkgVars::TQzPkgVars(TComponent* owner) : TQzPkgInfo(owner)
{
    JoinRegistry(pkVars);
}

TQzPkgVars::~TQzPkgVars()
{
    LeaveRegistry();
    FreeItems(FItems);
}

void TQzPkgVars::FreeItems(std::vector<TQzPkgVarsItem*>& items)
{
    std::vector<TQzPkgVarsItem*> doomed;
    doomed.swap(items);
    // One change is reported for the whole subtree.
    TScopedValue<bool> quiet(FClearing, true);
    for (TQzPkgVarsItem* item : doomed)
        delete item;
}

TQzPkgVarsItem* TQzPkgVars::Items(int index) const
{
    if (index < 0 || index >= Count())
        throw EListError("List index out of bounds (" + std::to_string(index) + ")");
    return FItems[static_cast<size_t>(index)];
}

TQzPkgVarsItem* TQzPkgVars::Find(const AnsiString& path) const
{
    const std::vector<TQzPkgVarsItem*>* level = &FItems;
    TQzPkgVarsItem* found = nullptr;
    for (const AnsiString& ident : SplitPath(path)) {
        if (!level)
            return nullptr;   // a step below a variable
        found = FindIn(*level, ident);
        if (!found)
            return nullptr;
        level = found->IsFolder() ? &found->FChildren : nullptr;
    }
    return found;
}

TQzPkgVarsItem* TQzPkgVars::Add(const AnsiString& path, TQzPkgVarsItemType type)
{
    if (type < qvBoolean || type > qvFolder)
        throw EQzPkgError("Invalid variable type " + IntToStr(type));
    CheckChange();
    const std::vector<AnsiString> parts = SplitPath(path);
    if (parts.back().empty())
        throw EQzPkgError("Invalid variable path \"" + path + "\": the name is empty");
    if (static_cast<int>(parts.size()) > MaxDepth)
        throw EQzPkgError("Invalid variable path \"" + path + "\": folders nest too deeply");
    // Check the whole way first, so a refused path adds no folder.
    TQzPkgVarsItem* parent = nullptr;
    size_t existing = 0;
    for (; existing + 1 < parts.size(); ++existing) {
        TQzPkgVarsItem* step = FindIn(parent ? parent->FChildren : FItems, parts[existing]);
        if (!step)
            break;
        if (!step->IsFolder())
            throw EQzPkgError("Invalid variable path \"" + path + "\": \"" + step->Path() + "\" is not a folder");
        parent = step;
    }
    if (existing + 1 == parts.size() && FindIn(parent ? parent->FChildren : FItems, parts.back()))
        throw EQzPkgError("The variable package already has \"" + path + "\"");
    for (size_t i = existing; i + 1 < parts.size(); ++i) {
        if (parts[i].empty())
            throw EQzPkgError("Invalid variable path \"" + path + "\": a folder name is empty");
    }
    for (size_t i = existing; i < parts.size(); ++i) {
        const bool last = i + 1 == parts.size();
        auto* item = new TQzPkgVarsItem(this, parent, parts[i], last ? type : qvFolder);
        item->Siblings().push_back(item);
        parent = item;
    }
    Change();
    return parent;
}

void TQzPkgVars::Clear()
{
    if (FItems.empty())
        return;
    CheckChange();
    FreeItems(FItems);
    Change();
}

AnsiString TQzPkgVars::BasePath() const
{
    if (TQzCApplication* app = QzCApp(); app && !app->PathPkgVars().empty())
        return app->PathPkgVars();
    return TQzPkgInfo::BasePath();
}

// Layout (version 1), after the common header, a list of items:
//   ( Ident Type Value )   Value by type: Boolean, Integer, Float, String;
//                          a folder's value is the list of its items.
// Saving walks items; loading appends what it reads to them.
void TQzPkgVars::TransferItems(TQzPkgTransfer& t, TQzPkgVarsItem* parent, std::vector<TQzPkgVarsItem*>& items,
                               int depth)
{
    if (t.Loading() && depth > MaxDepth)
        t.Reader().Error("Variable folders nested too deeply");
    t.List([&] {
        const size_t saved = items.size();
        for (size_t i = 0; t.Loading() ? !t.Reader().EndOfList() : i < saved; ++i) {
            AnsiString ident = t.Loading() ? AnsiString() : items[i]->FIdent;
            TQzPkgVarsItemType type = t.Loading() ? qvBoolean : items[i]->FItemType;
            t.Value(ident);
            t.Enum(type, qvFolder);
            if (t.Loading())
                items.push_back(new TQzPkgVarsItem(this, parent, ident, type));
            TQzPkgVarsItem& item = *items[i];
            switch (type) {
            case qvBoolean:
                t.Value(item.FBoolean);
                break;
            case qvInteger:
                t.Value(item.FInteger);
                break;
            case qvFloat:
                t.Value(item.FFloat);
                break;
            case qvString:
                t.Value(item.FString);
                break;
            case qvFolder:
                TransferItems(t, &item, item.FChildren, depth + 1);
                break;
            }
        }
    });
}

void TQzPkgVars::Transfer(TQzPkgTransfer& t)
{
    const TQzWindowPlacement placement = TransferContentHeader(t, DataVersion);
    if (!t.Loading()) {
        TransferItems(t, nullptr, FItems, 1);
        return;
    }
    std::vector<TQzPkgVarsItem*> items;
    try {
        TransferItems(t, nullptr, items, 1);
        t.EndBlock();
    } catch (...) {
        FreeItems(items);
        throw;
    }
    FreeItems(FItems);
    FItems = std::move(items);
    CommitContents(placement);
}
