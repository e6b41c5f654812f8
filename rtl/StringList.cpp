#include "rtl/StringList.h"

#include "rtl/Filer.h"

#include "rtl/Streams.h"

#include <algorithm>
#include <numeric>

namespace {

constexpr std::string_view Utf8Bom = "\xEF\xBB\xBF";

bool IsBlank(char c)
{
    return static_cast<unsigned char>(c) <= ' ';
}

// Runs body between BeginUpdate and EndUpdate, ending the update even
// when body throws.
template <class TBody>
void Batched(TStrings& strings, TBody body)
{
    strings.BeginUpdate();
    try {
        body();
    } catch (...) {
        strings.EndUpdate();
        throw;
    }
    strings.EndUpdate();
}

// Reads a quoted item starting at text[i] (the opening quote) and leaves i
// after the closing quote; an unterminated item runs to the end.
AnsiString ExtractQuoted(const AnsiString& text, std::size_t& i, char quote)
{
    AnsiString out;
    ++i;
    while (i < text.size()) {
        if (text[i] == quote) {
            if (i + 1 < text.size() && text[i + 1] == quote) {
                out += quote;
                i += 2;
                continue;
            }
            ++i;
            break;
        }
        out += text[i++];
    }
    return out;
}

AnsiString JoinDelimited(const TStrings& strings, char delimiter, char quote, bool strict)
{
    const int n = strings.Count();
    if (n == 1 && strings.Get(0).empty())
        return AnsiString(2, quote);
    AnsiString out;
    for (int i = 0; i < n; ++i) {
        AnsiString s = strings.Get(i);
        bool quoted = std::any_of(s.begin(), s.end(), [&](char c) {
            return c == quote || c == delimiter || (!strict && IsBlank(c));
        });
        if (i > 0)
            out += delimiter;
        out += quoted ? AnsiQuotedStr(s, quote) : s;
    }
    return out;
}

void SplitDelimited(TStrings& strings, const AnsiString& text, char delimiter, char quote, bool strict)
{
    strings.Clear();
    const std::size_t n = text.size();
    auto skipBlanks = [&](std::size_t& i) {
        while (!strict && i < n && IsBlank(text[i]))
            ++i;
    };
    std::size_t i = 0;
    skipBlanks(i);
    while (i < n) {
        if (text[i] == quote) {
            strings.Add(ExtractQuoted(text, i, quote));
        } else {
            std::size_t start = i;
            while (i < n && text[i] != delimiter && (strict || !IsBlank(text[i])))
                ++i;
            strings.Add(text.substr(start, i - start));
        }
        skipBlanks(i);
        if (i < n && text[i] == delimiter) {
            // A delimiter at the very end still ends an (empty) item.
            if (i + 1 == n)
                strings.Add(AnsiString());
            ++i;
            skipBlanks(i);
        }
    }
}

} // namespace

// ---- TStrings -------------------------------------------------------------

void TStrings::RaiseIndexError(int index)
{
    throw EStringListError("List index out of bounds (" + std::to_string(index) + ")");
}

void TStrings::CheckIndex(int index, int limit)
{
    if (index < 0 || index >= limit)
        RaiseIndexError(index);
}

void TStrings::Put(int index, const AnsiString& s)
{
    Batched(*this, [&] {
        void* object = GetObject(index);
        Delete(index);
        InsertObject(index, s, object);
    });
}

void* TStrings::GetObject(int) const
{
    return nullptr;
}

void TStrings::PutObject(int, void*) {}

int TStrings::CompareStrings(const AnsiString& s1, const AnsiString& s2) const
{
    return AnsiCompareText(s1, s2);
}

int TStrings::Add(const AnsiString& s)
{
    int index = Count();
    Insert(index, s);
    return index;
}

int TStrings::AddObject(const AnsiString& s, void* object)
{
    int index = Add(s);
    PutObject(index, object);
    return index;
}

void TStrings::InsertObject(int index, const AnsiString& s, void* object)
{
    Insert(index, s);
    PutObject(index, object);
}

void TStrings::Exchange(int index1, int index2)
{
    Batched(*this, [&] {
        AnsiString s = Get(index1);
        void* object = GetObject(index1);
        Put(index1, Get(index2));
        PutObject(index1, GetObject(index2));
        Put(index2, s);
        PutObject(index2, object);
    });
}

void TStrings::Move(int curIndex, int newIndex)
{
    if (curIndex == newIndex)
        return;
    CheckIndex(newIndex, Count());
    Batched(*this, [&] {
        AnsiString s = Get(curIndex);
        void* object = GetObject(curIndex);
        Delete(curIndex);
        InsertObject(newIndex, s, object);
    });
}

void TStrings::AddStrings(const TStrings& strings)
{
    Batched(*this, [&] {
        // Count first: strings may be this list.
        const int n = strings.Count();
        for (int i = 0; i < n; ++i)
            AddObject(strings.Get(i), strings.GetObject(i));
    });
}

void TStrings::CopySettingsFrom(const TStrings& source)
{
    FLineBreak = source.FLineBreak;
    FTrailingLineBreak = source.FTrailingLineBreak;
    FDelimiter = source.FDelimiter;
    FQuoteChar = source.FQuoteChar;
    FNameValueSeparator = source.FNameValueSeparator;
    FStrictDelimiter = source.FStrictDelimiter;
}

void TStrings::Assign(TPersistent* source)
{
    if (auto* strings = dynamic_cast<TStrings*>(source))
        Assign(*strings);
    else
        TPersistent::Assign(source);
}

void TStrings::DefineProperties(TFiler& filer)
{
    filer.DefineProperty(
        "Strings",
        [this](TReader& reader) {
            BeginUpdate();
            Clear();
            reader.ReadListBegin();
            while (!reader.EndOfList())
                Add(reader.ReadUnicodeString());
            reader.ReadListEnd();
            EndUpdate();
        },
        [this](TWriter& writer) {
            writer.WriteListBegin();
            for (int i = 0; i < Count(); ++i)
                writer.WriteUnicodeString(Get(i));
            writer.WriteListEnd();
        },
        Count() > 0);
}

void TStrings::Assign(const TStrings& source)
{
    if (&source == this)
        return;
    Batched(*this, [&] {
        Clear();
        CopySettingsFrom(source);
        AddStrings(source);
    });
}

bool TStrings::Equals(const TStrings& strings) const
{
    const int n = Count();
    if (n != strings.Count())
        return false;
    for (int i = 0; i < n; ++i) {
        if (Get(i) != strings.Get(i))
            return false;
    }
    return true;
}

int TStrings::IndexOf(const AnsiString& s) const
{
    const int n = Count();
    for (int i = 0; i < n; ++i) {
        if (CompareStrings(Get(i), s) == 0)
            return i;
    }
    return -1;
}

int TStrings::IndexOfObject(const void* object) const
{
    const int n = Count();
    for (int i = 0; i < n; ++i) {
        if (GetObject(i) == object)
            return i;
    }
    return -1;
}

int TStrings::IndexOfName(const AnsiString& name) const
{
    const int n = Count();
    for (int i = 0; i < n; ++i) {
        AnsiString s = Get(i);
        std::size_t sep = s.find(FNameValueSeparator);
        if (sep != AnsiString::npos && CompareStrings(s.substr(0, sep), name) == 0)
            return i;
    }
    return -1;
}

AnsiString TStrings::Names(int index) const
{
    AnsiString s = Get(index);
    std::size_t sep = s.find(FNameValueSeparator);
    return sep == AnsiString::npos ? AnsiString() : s.substr(0, sep);
}

AnsiString TStrings::ValueFromIndex(int index) const
{
    AnsiString s = Get(index);
    std::size_t sep = s.find(FNameValueSeparator);
    return sep == AnsiString::npos ? AnsiString() : s.substr(sep + 1);
}

AnsiString TStrings::Values(const AnsiString& name) const
{
    int index = IndexOfName(name);
    return index < 0 ? AnsiString() : ValueFromIndex(index);
}

void TStrings::SetValue(const AnsiString& name, const AnsiString& value)
{
    int index = IndexOfName(name);
    if (value.empty()) {
        if (index >= 0)
            Delete(index);
        return;
    }
    AnsiString line = name + FNameValueSeparator + value;
    if (index < 0)
        Add(line);
    else
        Put(index, line);
}

AnsiString TStrings::Text() const
{
    AnsiString out;
    const int n = Count();
    for (int i = 0; i < n; ++i) {
        out += Get(i);
        if (FTrailingLineBreak || i + 1 < n)
            out += FLineBreak;
    }
    return out;
}

void TStrings::SetText(const AnsiString& text)
{
    Batched(*this, [&] {
        Clear();
        std::size_t i = 0;
        if (FLineBreak != sLineBreak && !FLineBreak.empty()) {
            while (i < text.size()) {
                std::size_t at = text.find(FLineBreak, i);
                if (at == AnsiString::npos) {
                    Add(text.substr(i));
                    break;
                }
                Add(text.substr(i, at - i));
                i = at + FLineBreak.size();
            }
            return;
        }
        while (i < text.size()) {
            std::size_t end = text.find_first_of("\r\n", i);
            if (end == AnsiString::npos)
                end = text.size();
            Add(text.substr(i, end - i));
            i = end;
            if (i < text.size() && text[i] == '\r')
                ++i;
            if (i < text.size() && text[i] == '\n')
                ++i;
        }
    });
}

AnsiString TStrings::DelimitedText() const
{
    return JoinDelimited(*this, FDelimiter, FQuoteChar, FStrictDelimiter);
}

void TStrings::SetDelimitedText(const AnsiString& text)
{
    Batched(*this, [&] { SplitDelimited(*this, text, FDelimiter, FQuoteChar, FStrictDelimiter); });
}

AnsiString TStrings::CommaText() const
{
    return JoinDelimited(*this, ',', '"', false);
}

void TStrings::SetCommaText(const AnsiString& text)
{
    Batched(*this, [&] { SplitDelimited(*this, text, ',', '"', false); });
}

void TStrings::LoadFromStream(TStream& stream)
{
    std::string bytes = stream.ReadRemaining();
    if (std::string_view(bytes).starts_with(Utf8Bom))
        bytes.erase(0, Utf8Bom.size());
    SetText(bytes);
}

void TStrings::SaveToStream(TStream& stream) const
{
    stream.WriteString(Text());
}

void TStrings::LoadFromFile(const AnsiString& fileName)
{
    TMemoryStream stream(ReadFileBytes(fileName));
    LoadFromStream(stream);
}

void TStrings::SaveToFile(const AnsiString& fileName) const
{
    WriteFileAtomic(fileName, Text());
}

void TStrings::BeginUpdate()
{
    if (FUpdateCount == 0)
        SetUpdateState(true);
    ++FUpdateCount;
}

void TStrings::EndUpdate()
{
    if (FUpdateCount <= 0)
        return;
    if (--FUpdateCount == 0)
        SetUpdateState(false);
}

void TStrings::SetUpdateState(bool) {}

// ---- TStringList ----------------------------------------------------------

TStringList::TStringList(const TStringList& other) : TStrings()
{
    Assign(other);
}

TStringList& TStringList::operator=(const TStringList& other)
{
    Assign(other);
    return *this;
}

void TStringList::Changing()
{
    if (UpdateCount() == 0 && OnChanging)
        OnChanging(*this);
}

void TStringList::Changed()
{
    if (UpdateCount() == 0 && OnChange)
        OnChange(*this);
}

void TStringList::SetUpdateState(bool updating)
{
    if (updating)
        Changing();
    else
        Changed();
}

void TStringList::CheckNotSorted() const
{
    if (FSorted)
        throw EStringListError("Operation not allowed on sorted list");
}

AnsiString TStringList::Get(int index) const
{
    return StringRef(index);
}

const AnsiString& TStringList::StringRef(int index) const
{
    CheckIndex(index, Count());
    return FItems[std::size_t(index)].FString;
}

void TStringList::Put(int index, const AnsiString& s)
{
    CheckNotSorted();
    CheckIndex(index, Count());
    Changing();
    FItems[std::size_t(index)].FString = s;
    Changed();
}

void* TStringList::GetObject(int index) const
{
    CheckIndex(index, Count());
    return FItems[std::size_t(index)].FObject;
}

void TStringList::PutObject(int index, void* object)
{
    CheckIndex(index, Count());
    Changing();
    FItems[std::size_t(index)].FObject = object;
    Changed();
}

int TStringList::Add(const AnsiString& s)
{
    return AddObject(s, nullptr);
}

int TStringList::AddObject(const AnsiString& s, void* object)
{
    int index = Count();
    if (FSorted && Find(s, index)) {
        if (FDuplicates == dupIgnore)
            return index;
        if (FDuplicates == dupError)
            throw EStringListError("String list does not allow duplicates");
    }
    InsertItem(index, s, object);
    return index;
}

void TStringList::Insert(int index, const AnsiString& s)
{
    CheckNotSorted();
    CheckIndex(index, Count() + 1);
    InsertItem(index, s, nullptr);
}

void TStringList::InsertItem(int index, const AnsiString& s, void* object)
{
    Changing();
    FItems.insert(FItems.begin() + index, TItem{s, object});
    Changed();
}

void TStringList::Delete(int index)
{
    CheckIndex(index, Count());
    Changing();
    FItems.erase(FItems.begin() + index);
    Changed();
}

void TStringList::Clear()
{
    if (FItems.empty())
        return;
    Changing();
    FItems.clear();
    Changed();
}

void TStringList::Exchange(int index1, int index2)
{
    CheckIndex(index1, Count());
    CheckIndex(index2, Count());
    Changing();
    std::swap(FItems[std::size_t(index1)], FItems[std::size_t(index2)]);
    Changed();
}

void TStringList::Move(int curIndex, int newIndex)
{
    if (curIndex == newIndex)
        return;
    CheckIndex(curIndex, Count());
    CheckIndex(newIndex, Count());
    CheckNotSorted();
    Changing();
    auto first = FItems.begin();
    if (curIndex < newIndex)
        std::rotate(first + curIndex, first + curIndex + 1, first + newIndex + 1);
    else
        std::rotate(first + newIndex, first + curIndex, first + curIndex + 1);
    Changed();
}

void TStringList::Assign(const TStrings& source)
{
    const auto* list = dynamic_cast<const TStringList*>(&source);
    if (!list) {
        TStrings::Assign(source);
        return;
    }
    if (list == this)
        return;
    // Straight copy: re-adding into a sorted list could reorder lines that
    // compare equal.
    Changing();
    CopySettingsFrom(*list);
    FSorted = list->FSorted;
    FDuplicates = list->FDuplicates;
    FCaseSensitive = list->FCaseSensitive;
    FItems = list->FItems;
    Changed();
}

int TStringList::CompareStrings(const AnsiString& s1, const AnsiString& s2) const
{
    return FCaseSensitive ? AnsiCompareStr(s1, s2) : AnsiCompareText(s1, s2);
}

bool TStringList::Find(const AnsiString& s, int& index) const
{
    auto it = std::lower_bound(FItems.begin(), FItems.end(), s,
                               [this](const TItem& item, const AnsiString& key) {
                                   return CompareStrings(item.FString, key) < 0;
                               });
    index = int(it - FItems.begin());
    return it != FItems.end() && CompareStrings(it->FString, s) == 0;
}

int TStringList::IndexOf(const AnsiString& s) const
{
    if (!FSorted)
        return TStrings::IndexOf(s);
    int index = 0;
    return Find(s, index) ? index : -1;
}

void TStringList::Sort()
{
    CustomSort([](const TStringList& list, int a, int b) {
        return list.CompareStrings(list.FItems[std::size_t(a)].FString, list.FItems[std::size_t(b)].FString);
    });
}

void TStringList::CustomSort(const TStringListSortCompare& compare)
{
    // A sorted list is in order already.
    if (FSorted || FItems.size() < 2)
        return;
    std::vector<int> order(FItems.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&](int a, int b) { return compare(*this, a, b) < 0; });
    Changing();
    std::vector<TItem> sorted;
    sorted.reserve(FItems.size());
    for (int i : order)
        sorted.push_back(std::move(FItems[std::size_t(i)]));
    FItems = std::move(sorted);
    Changed();
}

void TStringList::SetSorted(bool value)
{
    if (value == FSorted)
        return;
    if (value)
        Sort();
    FSorted = value;
}

void TStringList::SetCaseSensitive(bool value)
{
    if (value == FCaseSensitive)
        return;
    FCaseSensitive = value;
    if (FSorted) {
        FSorted = false;
        Sort();
        FSorted = true;
    }
}
