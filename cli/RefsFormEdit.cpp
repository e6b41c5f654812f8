#include "cli/RefsFormEdit.h"

#include "design/manager/QzFormTokens.h"

#include <algorithm>
#include <cctype>
#include <functional>

namespace {

bool IsPrintableAscii(unsigned char c)
{
    return c >= 32 && c < 127;
}

// The code point of the UTF-8 sequence at text[i], advancing i past it; a
// byte that starts no valid sequence stands for itself.
unsigned DecodeUtf8(const AnsiString& text, std::size_t& i)
{
    const auto byte = [&](std::size_t k) { return static_cast<unsigned char>(text[k]); };
    const unsigned char c = byte(i);
    const int extra = c >= 0xF0 ? 3 : c >= 0xE0 ? 2 : c >= 0xC0 ? 1 : 0;
    if (extra == 0 || i + extra >= text.size()) {
        ++i;
        return c;
    }
    unsigned code = c & (0x3F >> extra);
    for (int k = 1; k <= extra; ++k) {
        if ((byte(i + k) & 0xC0) != 0x80) {
            ++i;
            return c;
        }
        code = (code << 6) | (byte(i + k) & 0x3F);
    }
    i += extra + 1;
    return code;
}

bool IsName(const AnsiString& value)
{
    if (value.empty() || std::isdigit(static_cast<unsigned char>(value[0])))
        return false;
    return std::all_of(value.begin(), value.end(),
                       [](char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; });
}

[[noreturn]] void LineError(const TQzTokenRec1& hit, int line)
{
    throw EQzScanError(Format(QzFileErrorFormat, hit.FileName.c_str(), IntToStr(line + 1).c_str()));
}

// The value part of line: where it starts and how long it is; raises for a
// line that has none or whose value goes on over the next line.
std::pair<std::size_t, std::size_t> ValueSpan(const TStrings& lines, const TQzTokenRec1& hit, int index)
{
    if (index < 0 || index >= lines.Count())
        LineError(hit, index);
    const AnsiString line = lines.Get(index);
    const std::string_view value = QzValueText(line);
    if (value.empty() || value.back() == '+' || value.back() == '(' || value.back() == '{')
        LineError(hit, index);
    return {static_cast<std::size_t>(value.data() - line.data()), value.size()};
}

void AddEdit(std::vector<TQzLineEdit>& edits, const TStrings& lines, const TQzTokenRec1& hit, int index,
             const AnsiString& expected, const std::function<AnsiString(std::string_view)>& literal)
{
    const auto [at, size] = ValueSpan(lines, hit, index);
    // Get returns a copy: the view must look into one that lives on.
    const AnsiString line = lines.Get(index);
    const std::string_view old = std::string_view(line).substr(at, size);
    if (!QzSameValue(old, expected))
        LineError(hit, index);
    edits.push_back({index, literal(old)});
}

}  // namespace

AnsiString QzStringLiteral(const AnsiString& value)
{
    if (value.empty())
        return "''";
    AnsiString out;
    bool quoted = false;
    for (std::size_t i = 0; i < value.size();) {
        const unsigned char c = static_cast<unsigned char>(value[i]);
        // A quote is written as #39, as the form writer writes it.
        if (IsPrintableAscii(c) && c != '\'') {
            if (!quoted)
                out += '\'';
            quoted = true;
            out += static_cast<char>(c);
            ++i;
            continue;
        }
        if (quoted)
            out += '\'';
        quoted = false;
        out += '#' + IntToStr(static_cast<int>(DecodeUtf8(value, i)));
    }
    if (quoted)
        out += '\'';
    return out;
}

AnsiString QzValueLiteral(std::string_view oldValue, const AnsiString& value)
{
    const bool bare = !oldValue.empty() && oldValue[0] != '\'' && oldValue[0] != '#';
    return bare && IsName(value) ? value : QzStringLiteral(value);
}

std::vector<TQzLineEdit> QzHitEdits(const TStrings& lines, const TQzTokenRec1& hit, bool clear,
                                    const AnsiString& newPkg, const AnsiString& newValue)
{
    std::vector<TQzLineEdit> edits;
    const auto asString = [&](const AnsiString& value) {
        return [value](std::string_view old) { return QzValueLiteral(old, value); };
    };
    const auto asNumber = [&](const AnsiString& value) {
        const AnsiString text = clear ? AnsiString("-1") : IntToStr(StrToInt(Trim(value)));
        return [text](std::string_view) { return text; };
    };
    if (QzDlgManagerUsesPackage(hit.Kind)) {
        AddEdit(edits, lines, hit, hit.PkgLine, hit.PkgName, asString(clear ? AnsiString() : newPkg));
        AddEdit(edits, lines, hit, hit.Line, hit.Value, asNumber(newValue));
    } else if (hit.Kind == TQzDlgManager::Privileges) {
        AddEdit(edits, lines, hit, hit.Line, hit.Value, asNumber(newValue));
    } else {
        AddEdit(edits, lines, hit, hit.Line, hit.Value, asString(clear ? AnsiString() : Trim(newValue)));
    }
    return edits;
}

AnsiString QzReplaceValue(const AnsiString& line, const AnsiString& literal)
{
    const std::string_view value = QzValueText(line);
    const std::size_t at = static_cast<std::size_t>(value.data() - line.data());
    return line.substr(0, at) + literal + line.substr(at + value.size());
}

void QzApplyEdits(TStrings& lines, const std::vector<TQzLineEdit>& edits)
{
    for (const TQzLineEdit& edit : edits)
        lines.Put(edit.Line, QzReplaceValue(lines.Get(edit.Line), edit.Literal));
}

void QzSpliceDataBlocks(TStrings& lines, const TStrings& rewritten, const AnsiString& fileName)
{
    struct TBlock {
        int First, Last;   // the "= {" line and the "}" line
        AnsiString Head;   // the text before '{', trimmed
    };
    const auto blocks = [](const TStrings& text) {
        std::vector<TBlock> found;
        for (int i = 0; i < text.Count(); ++i) {
            const AnsiString line = TrimRight(text.Get(i));
            if (line.empty() || line.back() != '{' || line.find('=') == AnsiString::npos)
                continue;
            int last = i + 1;
            while (last < text.Count() && (TrimRight(text.Get(last)).empty() || TrimRight(text.Get(last)).back() != '}'))
                ++last;
            if (last >= text.Count())
                break;
            found.push_back({i, last, Trim(line)});
            i = last;
        }
        return found;
    };
    const std::vector<TBlock> old = blocks(lines);
    const std::vector<TBlock> now = blocks(rewritten);
    const bool same = old.size() == now.size() &&
                      std::equal(old.begin(), old.end(), now.begin(), [](const TBlock& a, const TBlock& b) { return a.Head == b.Head; });
    if (!same)
        throw EQzScanError(fileName + ": the form written again does not hold the same packages");
    // From the last block up, so the lines of the earlier ones stay where they are.
    for (std::size_t k = old.size(); k-- > 0;) {
        const int oldSize = old[k].Last - old[k].First;
        bool differs = oldSize != now[k].Last - now[k].First;
        for (int i = 1; i <= oldSize && !differs; ++i)
            differs = lines.Get(old[k].First + i) != rewritten.Get(now[k].First + i);
        if (!differs)
            continue;
        for (int i = old[k].Last; i > old[k].First; --i)
            lines.Delete(i);
        for (int i = now[k].First + 1; i <= now[k].Last; ++i)
            lines.Insert(old[k].First + i - now[k].First, rewritten.Get(i));
    }
}

namespace {

// A line of a diff: kept (' '), removed ('-') or added ('+').
struct TDiffLine {
    char Op;
    int Before, After;   // 0-based positions in each text (of the next line where absent)
    AnsiString Text;
};

// The lines of two texts, paired where they are equal. A change is found
// by looking for the nearest place both texts run on equal again (two lines
// alike), which is all the rewrites here need: values changed in place and
// binary blocks of another length.
std::vector<TDiffLine> DiffLines(const TStrings& before, const TStrings& after)
{
    const int n = before.Count();
    const int m = after.Count();
    const auto equalFrom = [&](int i, int j) {
        for (int k = 0; k < 2; ++k) {
            if (i + k >= n || j + k >= m)
                return i + k >= n && j + k >= m;
            if (before.Get(i + k) != after.Get(j + k))
                return false;
        }
        return true;
    };
    std::vector<TDiffLine> out;
    int i = 0, j = 0;
    while (i < n || j < m) {
        if (i < n && j < m && before.Get(i) == after.Get(j)) {
            out.push_back({' ', i, j, before.Get(i)});
            ++i, ++j;
            continue;
        }
        int toI = n, toJ = m;
        for (int d = 1; d <= (n - i) + (m - j); ++d) {
            bool found = false;
            for (int k = 0; k <= d && !found; ++k)
                if (i + k <= n && j + d - k <= m && equalFrom(i + k, j + d - k)) {
                    toI = i + k;
                    toJ = j + d - k;
                    found = true;
                }
            if (found)
                break;
        }
        for (; i < toI; ++i)
            out.push_back({'-', i, j, before.Get(i)});
        for (; j < toJ; ++j)
            out.push_back({'+', i, j, after.Get(j)});
    }
    return out;
}

}  // namespace

AnsiString QzUnifiedDiff(const AnsiString& name, const TStrings& before, const TStrings& after)
{
    constexpr int Context = 3;
    const std::vector<TDiffLine> lines = DiffLines(before, after);
    std::vector<std::size_t> changed;
    for (std::size_t k = 0; k < lines.size(); ++k)
        if (lines[k].Op != ' ')
            changed.push_back(k);
    if (changed.empty())
        return {};

    AnsiString out = "--- a/" + name + "\n+++ b/" + name + "\n";
    for (std::size_t first = 0; first < changed.size();) {
        // A hunk takes every change whose context touches the previous one's.
        std::size_t last = first;
        while (last + 1 < changed.size() && changed[last + 1] - changed[last] <= 2 * Context + 1)
            ++last;
        const std::size_t from = changed[first] >= Context ? changed[first] - Context : 0;
        const std::size_t to = std::min(lines.size() - 1, changed[last] + Context);
        int beforeCount = 0, afterCount = 0;
        AnsiString body;
        for (std::size_t k = from; k <= to; ++k) {
            beforeCount += lines[k].Op != '+';
            afterCount += lines[k].Op != '-';
            body += AnsiString(1, lines[k].Op) + lines[k].Text + "\n";
        }
        out += "@@ -" + IntToStr(lines[from].Before + 1) + "," + IntToStr(beforeCount) + " +" +
               IntToStr(lines[from].After + 1) + "," + IntToStr(afterCount) + " @@\n" + body;
        first = last + 1;
    }
    return out;
}
