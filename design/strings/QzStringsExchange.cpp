#include "design/strings/QzStringsExchange.h"

#include "runtime/model/QzPkgStrings.h"

#include <algorithm>
#include <set>
#include <type_traits>

namespace {

const char* const KindNames[] = {"label", "message", "text"};

template <class List>
void Collect(std::vector<TQzStringsEntry>& entries, TQzStringsKind kind, const List& list, const List* reference)
{
    const std::size_t first = entries.size();
    for (int i = 0; i < list.Count(); ++i) {
        const auto* item = list.GetItems(i);
        TQzStringsEntry entry;
        entry.Kind = kind;
        entry.Id = item->Id();
        entry.Text = item->Text();
        const auto* ref = reference ? reference->FindId(item->Id()) : nullptr;
        entry.Source = ref ? ref->Text() : item->Text();
        if constexpr (std::is_same_v<List, TQzPkgStringsLabels>)
            entry.Hint = item->Hint();
        entry.Protected = item->Protected();
        entries.push_back(std::move(entry));
    }
    std::sort(entries.begin() + static_cast<std::ptrdiff_t>(first), entries.end(),
              [](const TQzStringsEntry& a, const TQzStringsEntry& b) { return a.Id < b.Id; });
}

} // namespace

bool TQzStringsEntry::operator==(const TQzStringsEntry& other) const
{
    // Where an entry was read is no part of what it holds.
    return Kind == other.Kind && Id == other.Id && Source == other.Source && Text == other.Text &&
           Hint == other.Hint && Protected == other.Protected;
}

TQzExchangeFormat QzExchangeFormatByName(const AnsiString& name)
{
    if (SameText(name, "po"))
        return TQzExchangeFormat::Po;
    if (SameText(name, "xliff") || SameText(name, "xlf"))
        return TQzExchangeFormat::Xliff;
    if (SameText(name, "csv"))
        return TQzExchangeFormat::Csv;
    throw EQzExchangeError("Unknown format \"" + name + "\" (po, xliff or csv)");
}

bool QzExchangeFormatOfFile(const AnsiString& fileName, TQzExchangeFormat& format)
{
    AnsiString ext = ExtractFileExt(fileName);
    if (!ext.empty())
        ext.erase(0, 1);
    for (const char* name : {"po", "pot", "xliff", "xlf", "csv"})
        if (SameText(ext, name)) {
            format = SameText(ext, "pot") ? TQzExchangeFormat::Po : QzExchangeFormatByName(ext);
            return true;
        }
    return false;
}

AnsiString QzStringsContext(TQzStringsKind kind, Integer id)
{
    return AnsiString(KindNames[static_cast<int>(kind)]) + ":" + IntToStr(id);
}

bool QzParseStringsContext(const AnsiString& context, TQzStringsKind& kind, Integer& id)
{
    const std::size_t colon = context.find(':');
    if (colon == AnsiString::npos)
        return false;
    const AnsiString name = context.substr(0, colon);
    const AnsiString digits = context.substr(colon + 1);
    if (digits.empty() || digits.size() > 10 || !std::all_of(digits.begin(), digits.end(), [](char c) {
            return c >= '0' && c <= '9';
        }))
        return false;
    const long long value = std::stoll(digits);
    if (value > 2147483647LL)
        return false;
    for (int k = 0; k < 3; ++k)
        if (name == KindNames[k]) {
            kind = static_cast<TQzStringsKind>(k);
            id = static_cast<Integer>(value);
            return true;
        }
    return false;
}

std::vector<TQzStringsEntry> QzStringsEntries(const TQzPkgStrings& pkg, const TQzPkgStrings* reference)
{
    std::vector<TQzStringsEntry> entries;
    Collect(entries, TQzStringsKind::Label, *pkg.Labels(), reference ? reference->Labels() : nullptr);
    Collect(entries, TQzStringsKind::Message, *pkg.Messages(), reference ? reference->Messages() : nullptr);
    Collect(entries, TQzStringsKind::Text, *pkg.Texts(), reference ? reference->Texts() : nullptr);
    return entries;
}

void QzApplyStringsEntries(TQzPkgStrings& pkg, const std::vector<TQzStringsEntry>& entries,
                           const AnsiString& sourceName)
{
    std::set<std::pair<int, Integer>> seen;
    for (const TQzStringsEntry& e : entries)
        if (!seen.insert({static_cast<int>(e.Kind), e.Id}).second)
            QzExchangeFail(sourceName, e.Line, "\"" + QzStringsContext(e.Kind, e.Id) + "\" appears twice");
    // Checked before anything is cleared: after these two checks no Add
    // can fail, so the package is either replaced whole or left alone.
    pkg.CheckChange();
    pkg.Labels()->BeginUpdate();
    pkg.Messages()->BeginUpdate();
    pkg.Texts()->BeginUpdate();
    pkg.Labels()->Clear();
    pkg.Messages()->Clear();
    pkg.Texts()->Clear();
    for (const TQzStringsEntry& e : entries) {
        TQzPkgIdItem* item = nullptr;
        switch (e.Kind) {
        case TQzStringsKind::Label: item = pkg.Labels()->Add(e.Id, e.Text, e.Hint); break;
        case TQzStringsKind::Message: item = pkg.Messages()->Add(e.Id, e.Text); break;
        case TQzStringsKind::Text: item = pkg.Texts()->Add(e.Id, e.Text); break;
        }
        item->SetProtected(e.Protected);
    }
    pkg.Texts()->EndUpdate();
    pkg.Messages()->EndUpdate();
    pkg.Labels()->EndUpdate();
}

std::string QzWriteStrings(const std::vector<TQzStringsEntry>& entries, TQzExchangeFormat format,
                           const AnsiString& name)
{
    switch (format) {
    case TQzExchangeFormat::Po: return QzWritePo(entries, name);
    case TQzExchangeFormat::Xliff: return QzWriteXliff(entries, name);
    case TQzExchangeFormat::Csv: return QzWriteCsv(entries);
    }
    return {};
}

std::vector<TQzStringsEntry> QzReadStrings(const std::string& bytes, TQzExchangeFormat format,
                                           const AnsiString& fileName)
{
    switch (format) {
    case TQzExchangeFormat::Po: return QzReadPo(bytes, fileName);
    case TQzExchangeFormat::Xliff: return QzReadXliff(bytes, fileName);
    case TQzExchangeFormat::Csv: return QzReadCsv(bytes, fileName);
    }
    return {};
}

void QzExchangeFail(const AnsiString& fileName, int line, const AnsiString& why)
{
    throw EQzExchangeError(fileName + ":" + IntToStr(line) + ": " + why);
}
