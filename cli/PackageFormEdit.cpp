#include "cli/PackageFormEdit.h"

#include "design/manager/QzFormTokens.h"

#include <algorithm>

namespace {

bool EndsWith(const AnsiString& text, char c)
{
    const AnsiString t = TrimRight(text);
    return !t.empty() && t.back() == c;
}

// "object", "inherited" or "inline" and the name after it, or an empty
// name when line starts no object.
AnsiString ObjectName(const AnsiString& line)
{
    const AnsiString t = Trim(line);
    for (const char* word : {"object ", "inherited ", "inline "}) {
        const std::size_t n = std::char_traits<char>::length(word);
        if (t.size() > n && SameText(t.substr(0, n), word)) {
            const std::size_t colon = t.find(':');
            return colon == AnsiString::npos ? AnsiString() : Trim(t.substr(n, colon - n));
        }
    }
    return {};
}

bool EndsObject(const AnsiString& line)
{
    return SameText(Trim(line), "end") || !ObjectName(line).empty();
}

// One past the last line of the property that starts at line first: a
// binary block runs to its '}', a list to its ')', a collection to the '>'
// that closes it, a string broken with '+' to its last part.
int PropertyEnd(const TStrings& lines, int first)
{
    const int count = lines.Count();
    const std::string_view value = QzValueText(lines.Get(first));
    int i = first + 1;
    if (value.empty())
        return i;
    switch (value.back()) {
    case '{':
    case '(': {
        const char close = value.back() == '{' ? '}' : ')';
        while (i < count && !EndsWith(lines.Get(i), close))
            ++i;
        return std::min(i + 1, count);
    }
    case '<':
        for (int depth = 1; i < count && depth > 0; ++i) {
            const AnsiString line = lines.Get(i);
            const std::string_view inner = QzValueText(line);
            if (inner == "<")
                ++depth;
            else if (inner != "<>" && EndsWith(line, '>'))
                --depth;
        }
        return i;
    case '+':
        while (i < count && EndsWith(lines.Get(i), '+'))
            ++i;
        return std::min(i + 1, count);
    default:
        return i;
    }
}

// An object's properties, each with all its lines, in text order.
struct TProperty {
    AnsiString Name;
    std::vector<AnsiString> Lines;
};

std::vector<TProperty> Properties(const TStrings& lines, const TQzObjectLines& at)
{
    std::vector<TProperty> found;
    for (int i = at.First; i < at.Last;) {
        const AnsiString line = lines.Get(i);
        const std::size_t eq = line.find('=');
        const int end = std::min(PropertyEnd(lines, i), at.Last);
        TProperty p{eq == AnsiString::npos ? AnsiString() : Trim(line.substr(0, eq)), {}};
        for (; i < end; ++i)
            p.Lines.push_back(lines.Get(i));
        found.push_back(std::move(p));
    }
    return found;
}

bool Listed(const std::vector<AnsiString>& names, const AnsiString& name)
{
    return std::any_of(names.begin(), names.end(), [&](const AnsiString& n) { return SameText(n, name); });
}

std::vector<TProperty>::iterator Named(std::vector<TProperty>& props, const AnsiString& name)
{
    return std::find_if(props.begin(), props.end(), [&](const TProperty& p) { return SameText(p.Name, name); });
}

}  // namespace

TQzObjectLines QzFindObjectLines(const TStrings& lines, const AnsiString& name)
{
    for (int i = 0; i < lines.Count(); ++i) {
        if (!SameText(ObjectName(lines.Get(i)), name))
            continue;
        TQzObjectLines at{i + 1, i + 1};
        while (at.Last < lines.Count() && !EndsObject(lines.Get(at.Last)))
            at.Last = PropertyEnd(lines, at.Last);
        at.Last = std::min(at.Last, lines.Count());
        return at;
    }
    return {};
}

void QzSpliceProperties(TStrings& lines, const TStrings& rewritten, const AnsiString& name,
                        const std::vector<AnsiString>& names, const AnsiString& fileName)
{
    const TQzObjectLines at = QzFindObjectLines(lines, name);
    const TQzObjectLines again = QzFindObjectLines(rewritten, name);
    if (at.First < 0 || again.First < 0)
        throw EParserError(fileName + ": the form has no object " + name);
    std::vector<TProperty> props = Properties(lines, at);
    const std::vector<TProperty> wanted = Properties(rewritten, again);

    for (const AnsiString& n : names)
        if (auto it = Named(props, n); it != props.end() && !std::any_of(wanted.begin(), wanted.end(), [&](const TProperty& p) {
                return SameText(p.Name, n);
            }))
            props.erase(it);
    for (std::size_t k = 0; k < wanted.size(); ++k) {
        if (!Listed(names, wanted[k].Name))
            continue;
        if (auto it = Named(props, wanted[k].Name); it != props.end()) {
            it->Lines = wanted[k].Lines;
            continue;
        }
        // After the nearest property before it that the form has too.
        auto where = props.begin();
        for (std::size_t j = k; j-- > 0;)
            if (auto it = Named(props, wanted[j].Name); it != props.end()) {
                where = it + 1;
                break;
            }
        props.insert(where, wanted[k]);
    }

    for (int i = at.Last - 1; i >= at.First; --i)
        lines.Delete(i);
    int i = at.First;
    for (const TProperty& p : props)
        for (const AnsiString& line : p.Lines)
            lines.Insert(i++, line);
}
