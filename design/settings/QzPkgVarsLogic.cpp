#include "design/settings/QzPkgVarsLogic.h"

#include "runtime/util/QzNumeric.h"

#include "rtl/SysUtils.h"

#include <algorithm>

namespace {

std::vector<TQzPkgVarsItem*> Children(const TQzPkgVars& package, const TQzPkgVarsItem* folder)
{
    std::vector<TQzPkgVarsItem*> items;
    const int count = folder ? folder->Count() : package.Count();
    items.reserve(static_cast<size_t>(count));
    for (int i = 0; i < count; ++i)
        items.push_back(folder ? folder->Items(i) : package.Items(i));
    return items;
}

void AddFolders(const TQzPkgVars& package, TQzPkgVarsItem* folder, int depth, std::vector<TQzVarsFolder>& out)
{
    out.push_back({folder, depth});
    std::vector<TQzPkgVarsItem*> folders = QzVarsSubFolders(package, folder);
    std::stable_sort(folders.begin(), folders.end(), [](const TQzPkgVarsItem* a, const TQzPkgVarsItem* b) {
        return AnsiCompareText(a->Ident(), b->Ident()) < 0;
    });
    for (TQzPkgVarsItem* sub : folders)
        AddFolders(package, sub, depth + 1, out);
}

class TMatcher {
public:
    explicit TMatcher(const TQzVarsFindOptions& o)
        : FText(o.MatchCase ? o.Text : AnsiUpperCase(o.Text)), FMatchCase(o.MatchCase), FWhole(o.WholeWord)
    {
    }
    bool operator()(const AnsiString& candidate) const
    {
        const AnsiString c = FMatchCase ? candidate : AnsiUpperCase(candidate);
        return FWhole ? c == FText : c.find(FText) != AnsiString::npos;
    }

private:
    AnsiString FText;
    bool FMatchCase;
    bool FWhole;
};

bool VariableMatches(const TMatcher& match, const TQzPkgVarsItem& item)
{
    return match(item.Ident()) || match(QzVarsValueEdit(item));
}

bool NameMatches(const TMatcher& match, const TQzVarsFolder& folder)
{
    return folder.Item != nullptr && match(folder.Item->Ident());
}

}  // namespace

std::vector<TQzVarsFolder> QzVarsFolderOrder(const TQzPkgVars& package)
{
    std::vector<TQzVarsFolder> out;
    AddFolders(package, nullptr, 0, out);
    return out;
}

std::vector<TQzPkgVarsItem*> QzVarsVariables(const TQzPkgVars& package, const TQzPkgVarsItem* folder)
{
    std::vector<TQzPkgVarsItem*> items = Children(package, folder);
    std::erase_if(items, [](const TQzPkgVarsItem* item) { return item->IsFolder(); });
    return items;
}

std::vector<TQzPkgVarsItem*> QzVarsSubFolders(const TQzPkgVars& package, const TQzPkgVarsItem* folder)
{
    std::vector<TQzPkgVarsItem*> items = Children(package, folder);
    std::erase_if(items, [](const TQzPkgVarsItem* item) { return !item->IsFolder(); });
    return items;
}

AnsiString QzVarsJoinPath(const AnsiString& path, const AnsiString& name)
{
    return path.empty() ? name : path + TQzPkgVars::PathSeparator + name;
}

AnsiString NamePath(const TQzPkgVars& package, const AnsiString& path, const AnsiString& base)
{
    for (Integer i = 1;; ++i) {
        const AnsiString name = base + IntToStr(i);
        if (package.Find(QzVarsJoinPath(path, name)) == nullptr)
            return name;
    }
}

AnsiString NameFolder(const TQzPkgVars& package, const AnsiString& path)
{
    return NamePath(package, path, "New Folder #");
}

AnsiString NameVar(const TQzPkgVars& package, const AnsiString& path)
{
    return NamePath(package, path, "New Var #");
}

AnsiString BooleanToStr(bool value)
{
    return value ? "True" : "False";
}

bool StrToBoolean(const AnsiString& text)
{
    return UpperCase(text) == "TRUE";
}

AnsiString TypeToString(TQzPkgVarsItemType type)
{
    switch (type) {
    case qvBoolean: return "(Boolean)";
    case qvInteger: return "(Integer)";
    case qvFloat: return "(Float)";
    case qvString: return "(String)";
    case qvFolder: break;
    }
    return "";
}

AnsiString QzVarsValueEdit(const TQzPkgVarsItem& item)
{
    switch (item.GetItemType()) {
    case qvBoolean: return BooleanToStr(item.GetVBoolean());
    case qvInteger: return IntToStr(item.GetVInteger());
    case qvFloat: return QzCNumericToStr(static_cast<double>(item.GetVFloat()));
    case qvString: return item.GetVString();
    case qvFolder: break;
    }
    return "";
}

AnsiString QzVarsValueText(const TQzPkgVarsItem& item)
{
    return "\"" + QzVarsValueEdit(item) + "\"";
}

void QzVarsCheckValue(TQzPkgVarsItemType type, const AnsiString& text)
{
    switch (type) {
    case qvBoolean:
        if (UpperCase(text) != "TRUE" && UpperCase(text) != "FALSE")
            throw EConvertError("Incorrect Format");
        break;
    case qvInteger: (void)StrToInt(text); break;
    case qvFloat: (void)QzCStrToNumeric(text); break;
    case qvString:
    case qvFolder: break;
    }
}

void QzVarsSetValue(TQzPkgVarsItem& item, const AnsiString& text)
{
    QzVarsCheckValue(item.GetItemType(), text);
    switch (item.GetItemType()) {
    case qvBoolean: item.SetVBoolean(StrToBoolean(text)); break;
    case qvInteger: item.SetVInteger(StrToInt(text)); break;
    case qvFloat: item.SetVFloat(QzCStrToNumeric(text)); break;
    case qvString: item.SetVString(text); break;
    case qvFolder: break;
    }
}

void QzVarsSetInitialValue(TQzPkgVarsItem& item)
{
    switch (item.GetItemType()) {
    case qvBoolean: item.SetVBoolean(false); break;
    case qvInteger: item.SetVInteger(0); break;
    case qvFloat: item.SetVFloat(0.0); break;
    case qvString: item.SetVString(""); break;
    case qvFolder: break;
    }
}

TQzVarsHit TQzVarsFinder::Find(const TQzPkgVars& package, const std::vector<TQzVarsFolder>& folders,
                               TQzVarsPlace from, const TQzVarsFindOptions& options)
{
    const TMatcher match(options);
    const int count = static_cast<int>(folders.size());
    if (!FRestart)
        FRestart = from.Folder < 0 || from.Folder >= count;
    auto hit = [this](int folder, int row) {
        FRestart = false;
        return TQzVarsHit{true, folder, row};
    };
    if (options.Down) {
        int folder = FRestart ? 0 : from.Folder;
        int row = FRestart ? 0 : std::max(from.Row + 1, 0);
        bool tryName = FRestart;
        for (; folder < count; ++folder, row = 0, tryName = true) {
            if (tryName && NameMatches(match, folders[static_cast<size_t>(folder)]))
                return hit(folder, -1);
            const std::vector<TQzPkgVarsItem*> vars = QzVarsVariables(package, folders[static_cast<size_t>(folder)].Item);
            for (int r = row; r < static_cast<int>(vars.size()); ++r)
                if (VariableMatches(match, *vars[static_cast<size_t>(r)]))
                    return hit(folder, r);
        }
    } else {
        // Upwards the search begins at the root's last child, as the tree's
        // own "previous" walk does from there.
        int start = 0;
        for (int i = 1; i < count; ++i)
            if (folders[static_cast<size_t>(i)].Depth == 1)
                start = i;
        int folder = FRestart ? start : from.Folder;
        int row = FRestart ? -1 : from.Row - 1;
        bool lastRow = FRestart || from.Row < 0;
        for (; folder >= 0; --folder, lastRow = true) {
            const TQzVarsFolder& f = folders[static_cast<size_t>(folder)];
            const std::vector<TQzPkgVarsItem*> vars = QzVarsVariables(package, f.Item);
            for (int r = lastRow ? static_cast<int>(vars.size()) - 1 : row; r >= 0; --r)
                if (VariableMatches(match, *vars[static_cast<size_t>(r)]))
                    return hit(folder, r);
            if (NameMatches(match, f))
                return hit(folder, -1);
        }
    }
    FRestart = true;
    return {};
}
