#include "design/manager/QzFormScanner.h"

#include "design/manager/QzManagerProgress.h"

#include <cstring>

namespace {

inline bool IsBlank(char c)
{
    const auto u = static_cast<unsigned char>(c);
    return u >= 1 && u <= 32;
}

inline bool IsLetter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

inline bool IsWordChar(char c)
{
    return IsLetter(c) || (c >= '0' && c <= '9');
}

inline char FoldAscii(char c)
{
    return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 'a' + 'A') : c;
}

bool SameAscii(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (FoldAscii(a[i]) != FoldAscii(b[i]))
            return false;
    return true;
}

// The words that open a component in form text.
bool IsObjectWord(std::string_view word)
{
    return SameAscii(word, "object") || SameAscii(word, "inherited") || SameAscii(word, "inline");
}

bool EndsWithGreater(std::string_view line)
{
    std::size_t e = line.size();
    while (e > 0 && static_cast<unsigned char>(line[e - 1]) <= 32)
        --e;
    return e > 0 && line[e - 1] == '>';
}

// The item part of a property path: "Items[2]" of "Items[2].Caption".
std::string_view ItemPart(std::string_view propPath)
{
    const std::size_t close = propPath.rfind(']');
    return close == std::string_view::npos ? std::string_view() : propPath.substr(0, close + 1);
}

}  // namespace

AnsiString QzLineString(const TQzTokenRec1& hit, bool withPackage)
{
    switch (hit.Source) {
    case TQzHitSource::Form: {
        AnsiString text = "(" + ExtractFileName(hit.FileName) + ") (" + hit.ObjectName + ": " + hit.ObjectClass;
        const std::string_view item = ItemPart(hit.PropPath);
        if (!item.empty())
            text += " - " + AnsiString(item);
        text += ") ";
        if (withPackage && QzDlgManagerUsesPackage(hit.Kind))
            text += "(" + hit.Value + ", " + hit.PkgName + ")";
        else
            text += hit.Value;
        return text;
    }
    case TQzHitSource::Privilege:
        return AnsiString("(") + QzDlgManagerName(TQzDlgManager::Privileges) + ") Id: " + hit.ItemName;
    case TQzHitSource::SetBackGround:
        return AnsiString("(") + QzDlgManagerName(TQzDlgManager::SetsBackGround) + ") Name: '" + hit.ItemName + "'";
    case TQzHitSource::SetColor:
        return AnsiString("(") + QzDlgManagerName(TQzDlgManager::SetsColor) + ") Name: '" + hit.ItemName + "'";
    case TQzHitSource::SetFont:
        return AnsiString("(") + QzDlgManagerName(TQzDlgManager::SetsFont) + ") Name: '" + hit.ItemName + "'";
    }
    return {};
}

TQzFormScanner::TQzFormScanner(TQzDlgManager kind, TQzPropertyTypes* types)
    : FKind(kind),
      FTypes(types ? types : &FOwnTypes),
      FKindClass(QzDlgManagerInfo(kind).ClassName),
      FKeyName(kind == TQzDlgManager::Privileges ? "Id" : "Name")
{
}

void TQzFormScanner::SetSearch(const AnsiString& pkgName, const AnsiString& value)
{
    FCountMode = false;
    FSearchPkg = pkgName;
    FSearchValue = value;
}

void TQzFormScanner::SetCountMode()
{
    FCountMode = true;
    FSearchPkg.clear();
    FSearchValue.clear();
}

void TQzFormScanner::BeginFile(const AnsiString& fileName)
{
    FFileName = fileName;
    FFormName.clear();
    FObjectPath.clear();
    FObjectName.clear();
    FObjectClass.clear();
    FCollections.clear();
    FPkgNameSeen = false;
    FSeenPkg.clear();
    FSeenPath.clear();
    FSeenPkgLine = -1;
    FCancelled = false;
    FProcName = "Scanner";
    FLine = -1;
}

template <class NextLine>
void TQzFormScanner::Run(const AnsiString& fileName, std::vector<TQzTokenRec1>& hits, NextLine&& next)
{
    BeginFile(fileName);
    std::string_view line;
    try {
        while (next(line)) {
            if (auto hit = LineScanner(line))
                hits.push_back(std::move(*hit));
            FProcName = "Scanner";
            if (FProgress) {
                FProgress->IncProgressBar(1);
                if (FProgress->CheckCancel()) {
                    FCancelled = true;
                    break;
                }
            }
        }
    } catch (const EQzScanError&) {
        throw;
    } catch (const std::exception& e) {
        RaiseInternal(e);
    }
}

void TQzFormScanner::Scanner(const TStrings& lines, const AnsiString& fileName, std::vector<TQzTokenRec1>& hits)
{
    const auto* list = dynamic_cast<const TStringList*>(&lines);
    const int count = lines.Count();
    int index = 0;
    AnsiString copy;
    Run(fileName, hits, [&](std::string_view& line) {
        if (index >= count)
            return false;
        if (list) {
            line = list->StringRef(index++);
        } else {
            copy = lines.Get(index++);
            line = copy;
        }
        return true;
    });
}

void TQzFormScanner::Scanner(std::string_view text, const AnsiString& fileName, std::vector<TQzTokenRec1>& hits)
{
    std::size_t pos = 0;
    Run(fileName, hits, [&](std::string_view& line) {
        if (pos >= text.size())
            return false;
        const void* lf = std::memchr(text.data() + pos, '\n', text.size() - pos);
        const std::size_t end = lf ? static_cast<std::size_t>(static_cast<const char*>(lf) - text.data()) : text.size();
        line = text.substr(pos, end - pos);
        if (!line.empty() && line.back() == '\r')
            line.remove_suffix(1);
        pos = end + 1;
        return true;
    });
}

// Most lines of a form set properties no reference lives in (Left, Font.Name,
// hex data): those are recognised from their first characters and never
// tokenized. Anything out of the ordinary goes to the tokenizer.
bool TQzFormScanner::QuickSkip(std::string_view line, bool pkgPending) const
{
    const char* p = line.data();
    const std::size_t n = line.size();
    std::size_t i = 0;
    while (i < n && IsBlank(p[i]))
        ++i;
    if (i == n)
        return true;
    if (!IsLetter(p[i]))
        return std::memchr(p + i, '=', n - i) == nullptr && std::memchr(p + i, ':', n - i) == nullptr &&
               !EndsWithGreater(line) && p[i] != '.';

    std::size_t segStart = i;
    while (i < n && IsWordChar(p[i]))
        ++i;
    std::size_t segEnd = i;
    const std::string_view first = line.substr(segStart, segEnd - segStart);
    if (IsObjectWord(first) || (!FCollections.empty() && SameAscii(first, "item")))
        return false;
    for (;;) {
        while (i < n && (p[i] == '.' || p[i] == ' '))
            ++i;
        if (i == n)
            return !EndsWithGreater(line);
        if (p[i] == '=')
            break;
        if (!IsWordChar(p[i]))
            return false;
        segStart = i;
        while (i < n && IsWordChar(p[i]))
            ++i;
        segEnd = i;
    }
    const std::string_view key = line.substr(segStart, segEnd - segStart);
    ++i;
    while (i < n && IsBlank(p[i]))
        ++i;
    if (i < n && p[i] == '<')
        return false;
    if (!FCollections.empty() && SameAscii(key, "Index"))
        return false;
    if (QzDlgManagerUsesPackage(FKind))
        return !SameAscii(key, "PkgName") && !(pkgPending && key == "Id");
    return !SameAscii(key, FKeyName);
}

std::optional<TQzTokenRec1> TQzFormScanner::LineScanner(std::string_view line)
{
    ++FLine;
    FProcName = "LineScanner";
    // The package line counts for the very next line only.
    const bool pkgPending = FPkgNameSeen;
    FPkgNameSeen = false;
    if (FLine > 0 && QuickSkip(line, pkgPending))
        return std::nullopt;

    FProcName = "GetListTokens";
    GetListTokens(FTokens, line);
    FProcName = "LineScanner";
    if (FLine == 0)
        FFormName = AnsiString(GetToken(FTokens, 1)) + AnsiString(GetToken(FTokens, 2)) + AnsiString(GetToken(FTokens, 3));
    if (ScannerObject(FTokens))
        return std::nullopt;
    const int equal = ScannerTokensEqual(FTokens);
    if (ScannerCollection(FTokens, equal))
        return std::nullopt;
    if (equal < 1 || FTokens[static_cast<std::size_t>(equal)] != "=")
        return std::nullopt;
    if (QzDlgManagerUsesPackage(FKind))
        return PackageRule(line, equal, pkgPending);
    return NameRule(line, equal);
}

bool TQzFormScanner::ScannerObject(const TQzTokens& tokens)
{
    if (tokens.empty() || !IsObjectWord(tokens[0]))
        return false;
    FProcName = "GetObject";
    FCollections.clear();
    if (GetToken(tokens, 2) == ":") {
        FObjectName = AnsiString(GetToken(tokens, 1));
        FObjectClass = AnsiString(GetToken(tokens, 3));
    } else {
        // A component without a name: "object TQzLabel".
        FObjectName.clear();
        FObjectClass = AnsiString(GetToken(tokens, 1));
    }
    FObjectPath = FObjectName + ":" + FObjectClass;
    FProcName = "LineScanner";
    return true;
}

bool TQzFormScanner::ScannerCollection(const TQzTokens& tokens, int equalIndex)
{
    if (!FCollections.empty()) {
        if (!tokens.empty() && SameAscii(tokens.back(), "end>")) {
            FCollections.pop_back();
            return true;
        }
        if (tokens.size() == 1 && SameAscii(tokens[0], "item")) {
            ++FCollections.back().Index;
            return true;
        }
        if (equalIndex == 1 && tokens[1] == "=" && SameAscii(tokens[0], "Index")) {
            FCollections.back().Index = StrToIntDef(AnsiString(GetToken(tokens, 2)), FCollections.back().Index);
            return true;
        }
    }
    if (equalIndex >= 1 && tokens[static_cast<std::size_t>(equalIndex)] == "=" && GetToken(tokens, equalIndex + 1) == "<") {
        TCollectionLevel level;
        for (int i = 0; i < equalIndex; ++i)
            level.Name += (i ? "." : "") + AnsiString(tokens[static_cast<std::size_t>(i)]);
        FCollections.push_back(std::move(level));
        return true;
    }
    return false;
}

std::optional<TQzTokenRec1> TQzFormScanner::NameRule(std::string_view line, int equalIndex)
{
    if (!SameAscii(FTokens[static_cast<std::size_t>(equalIndex - 1)], FKeyName))
        return std::nullopt;
    const std::string_view value = QzValueText(line);
    if (FCountMode ? value.empty() : !QzSameValue(value, FSearchValue))
        return std::nullopt;
    if (!ValidTokenSel(FTokens, equalIndex))
        return std::nullopt;
    return MakeHit(value, equalIndex);
}

std::optional<TQzTokenRec1> TQzFormScanner::PackageRule(std::string_view line, int equalIndex, bool pkgPending)
{
    const std::string_view key = FTokens[static_cast<std::size_t>(equalIndex - 1)];
    if (SameAscii(key, "PkgName")) {
        const std::string_view value = QzValueText(line);
        if (FCountMode ? QzDecodeValue(value).empty() : !QzSameValue(value, FSearchPkg))
            return std::nullopt;
        if (!ValidTokenSel(FTokens, equalIndex))
            return std::nullopt;
        FPkgNameSeen = true;
        FSeenPkg = QzDecodeValue(value);
        FSeenPath = FLastPath;
        FSeenPkgLine = FLine;
        return std::nullopt;
    }
    // The Id of the same reference, on the line right after its package.
    if (!pkgPending || key != "Id")
        return std::nullopt;
    const std::string_view value = QzValueText(line);
    if (FCountMode ? value.empty() : !QzSameValue(value, FSearchValue))
        return std::nullopt;
    if (!ValidTokenSel(FTokens, equalIndex) || FLastPath != FSeenPath)
        return std::nullopt;
    TQzTokenRec1 hit = MakeHit(value, equalIndex);
    hit.PkgName = FSeenPkg;
    hit.PkgLine = FSeenPkgLine;
    hit.Text = QzLineString(hit, FCountMode);
    return hit;
}

AnsiString TQzFormScanner::CollectionPath() const
{
    AnsiString path;
    for (const TCollectionLevel& level : FCollections) {
        if (!path.empty())
            path += '.';
        path += level.Name + "[" + IntToStr(level.Index < 0 ? 0 : level.Index) + "]";
    }
    return path;
}

AnsiString TQzFormScanner::GetStrChange(const TQzTokens& tokens, int equalIndex) const
{
    AnsiString path = FObjectPath;
    const AnsiString collections = CollectionPath();
    if (!collections.empty())
        path += "." + collections;
    for (int i = 0; i + 1 < equalIndex; ++i)
        path += "." + AnsiString(tokens[static_cast<std::size_t>(i)]);
    return path;
}

bool TQzFormScanner::ValidTokenSel(const TQzTokens& tokens, int equalIndex)
{
    // References on the form itself are the form's own, not its components'.
    if (FObjectPath.empty() || FObjectPath == FFormName)
        return false;
    FLastPath = GetStrChange(tokens, equalIndex);
    const TMetaClass* cls = GetTypeProperty(FLastPath);
    return cls && SameText(cls->ClassName(), FKindClass);
}

const TMetaClass* TQzFormScanner::GetTypeProperty(const AnsiString& path)
{
    const char* caller = FProcName;
    FProcName = "GetTypeProperty";
    const std::size_t colon = path.find(':');
    if (colon == AnsiString::npos)
        RaiseFileError();
    const std::size_t dot = path.find('.', colon);
    const std::string_view view(path);
    const std::string_view className = view.substr(colon + 1, dot == AnsiString::npos ? AnsiString::npos : dot - colon - 1);
    const std::string_view rest = dot == AnsiString::npos ? std::string_view() : view.substr(dot + 1);
    if (className.empty())
        RaiseFileError();
    const TMetaClass* cls = nullptr;
    try {
        cls = FTypes->Resolve(className, rest);
    } catch (const EPropertyError&) {
        RaiseFileError();
    }
    FProcName = caller;
    return cls;
}

TQzTokenRec1 TQzFormScanner::MakeHit(std::string_view value, int equalIndex) const
{
    TQzTokenRec1 hit;
    hit.Kind = FKind;
    hit.Source = TQzHitSource::Form;
    hit.FileName = FFileName;
    hit.Line = FLine;
    hit.Value = QzDecodeValue(value);
    hit.ObjectName = FObjectName;
    hit.ObjectClass = FObjectClass;
    hit.PropPath = CollectionPath();
    for (int i = 0; i + 1 < equalIndex; ++i) {
        if (!hit.PropPath.empty())
            hit.PropPath += '.';
        hit.PropPath += AnsiString(FTokens[static_cast<std::size_t>(i)]);
    }
    if (!QzDlgManagerIsSet(FKind))
        hit.Id = StrToIntDef(hit.Value, -1);
    hit.Text = QzLineString(hit);
    return hit;
}

void TQzFormScanner::RaiseInternal(const std::exception& cause) const
{
    (void)cause;
    throw EQzScanError(Format(QzInternalErrorFormat, FFileName, IntToStr(FLine + 1), AnsiString(FProcName)));
}

void TQzFormScanner::RaiseFileError() const
{
    throw EQzScanError(Format(QzFileErrorFormat, FFileName, IntToStr(FLine + 1)));
}
