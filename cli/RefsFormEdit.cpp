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
    const std::string_view old = std::string_view(lines.Get(index)).substr(at, size);
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

AnsiString QzUnifiedDiff(const AnsiString& name, const TStrings& before, const TStrings& after)
{
    constexpr int Context = 3;
    const int count = std::min(before.Count(), after.Count());
    std::vector<int> changed;
    for (int i = 0; i < count; ++i)
        if (before.Get(i) != after.Get(i))
            changed.push_back(i);
    if (changed.empty())
        return {};

    AnsiString out = "--- a/" + name + "\n+++ b/" + name + "\n";
    for (std::size_t first = 0; first < changed.size();) {
        // A hunk takes every change whose context touches the previous one's.
        std::size_t last = first;
        while (last + 1 < changed.size() && changed[last + 1] - changed[last] <= 2 * Context + 1)
            ++last;
        const int from = std::max(0, changed[first] - Context);
        const int to = std::min(count - 1, changed[last] + Context);
        const AnsiString range = IntToStr(from + 1) + "," + IntToStr(to - from + 1);
        out += "@@ -" + range + " +" + range + " @@\n";
        for (int i = from; i <= to; ++i) {
            if (before.Get(i) == after.Get(i)) {
                out += " " + before.Get(i) + "\n";
                continue;
            }
            // Consecutive changed lines show all their old lines, then all their new ones.
            int end = i;
            while (end + 1 <= to && before.Get(end + 1) != after.Get(end + 1))
                ++end;
            for (int k = i; k <= end; ++k)
                out += "-" + before.Get(k) + "\n";
            for (int k = i; k <= end; ++k)
                out += "+" + after.Get(k) + "\n";
            i = end;
        }
        first = last + 1;
    }
    return out;
}
