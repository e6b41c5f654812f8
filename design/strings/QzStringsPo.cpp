// gettext PO: one entry per item, the context as msgctxt, the source text
// as msgid, the package's text as msgstr, the hint as translator comments
// ("# "), protection as the flag "qz-protected". A hint line is escaped as
// a PO string is (without its quotes), so backslashes and carriage returns
// come back as they were.

#include "design/strings/QzStringsExchange.h"

#include <ctime>

namespace {

const char* const ProtectedFlag = "qz-protected";

AnsiString Escape(const AnsiString& text, bool quotes)
{
    AnsiString out;
    out.reserve(text.size());
    for (char c : text) {
        switch (c) {
        case '\\': out += "\\\\"; break;
        case '"': out += quotes ? "\\\"" : "\""; break;
        case '\n': out += "\\n"; break;
        case '\r': out += "\\r"; break;
        case '\t': out += "\\t"; break;
        default:
            if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) {
                char octal[8];
                std::snprintf(octal, sizeof octal, "\\%03o", static_cast<unsigned char>(c));
                out += octal;
            } else {
                out += c;
            }
        }
    }
    return out;
}

// keyword "text", split after each line break when the text has several
// lines, as gettext's tools write it.
void WriteString(std::string& out, const char* keyword, const AnsiString& text)
{
    out += keyword;
    const std::size_t firstBreak = text.find('\n');
    if (firstBreak == AnsiString::npos || firstBreak + 1 == text.size()) {
        out += " \"" + Escape(text, true) + "\"\n";
        return;
    }
    out += " \"\"\n";
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        end = end == AnsiString::npos ? text.size() : end + 1;
        out += "\"" + Escape(text.substr(start, end - start), true) + "\"\n";
        start = end;
    }
}

AnsiString RevisionDate()
{
    const std::time_t t = std::time(nullptr);
    std::tm tm{};
    gmtime_r(&t, &tm);
    char buffer[32];
    std::strftime(buffer, sizeof buffer, "%Y-%m-%d %H:%M+0000", &tm);
    return buffer;
}

// ---- reading ----------------------------------------------------------------

class TPoReader {
public:
    TPoReader(const std::string& bytes, const AnsiString& fileName) : FBytes(bytes), FFile(fileName) {}

    std::vector<TQzStringsEntry> Read()
    {
        std::size_t pos = FBytes.compare(0, 3, "\xEF\xBB\xBF") == 0 ? 3 : 0;
        while (pos <= FBytes.size()) {
            std::size_t end = FBytes.find('\n', pos);
            if (end == std::string::npos)
                end = FBytes.size();
            std::string line = FBytes.substr(pos, end - pos);
            if (!line.empty() && line.back() == '\r')
                line.pop_back();
            ++FLine;
            Line(line);
            pos = end + 1;
        }
        Finish();
        return std::move(FEntries);
    }

private:
    enum class TField { None, Context, Id, Str };

    [[noreturn]] void Fail(const AnsiString& why) const { QzExchangeFail(FFile, FLine, why); }

    void Begin()
    {
        if (!FOpen) {
            FOpen = true;
            FEntry = {};
            FEntry.Line = FLine;
            FHasContext = FHasId = FHasStr = false;
            FComments.clear();
        }
    }

    void Line(const std::string& line)
    {
        const std::size_t first = line.find_first_not_of(" \t");
        if (first == std::string::npos) {
            Finish();
            return;
        }
        if (line[0] == '#') {
            if (FHasStr)
                Finish();
            if (line.compare(0, 2, "#~") == 0)
                return;   // an obsolete entry
            Begin();
            if (line == "#" || line.compare(0, 2, "# ") == 0)
                FComments.push_back(line.size() > 2 ? line.substr(2) : std::string());
            else if (line.compare(0, 2, "#,") == 0)
                Flags(line.substr(2));
            return;
        }
        const std::string rest = line.substr(first);
        if (rest[0] == '"') {
            if (FField == TField::None)
                Fail("a string that continues nothing");
            *FieldText() += Unquote(rest);
            return;
        }
        const std::size_t space = rest.find_first_of(" \t");
        const std::string keyword = rest.substr(0, space);
        const std::size_t valueAt = space == std::string::npos ? space : rest.find_first_not_of(" \t", space);
        const std::string value = valueAt == std::string::npos ? std::string() : rest.substr(valueAt);
        if (keyword == "msgctxt") {
            if (FHasStr)
                Finish();
            Begin();
            if (FHasContext || FHasId)
                Fail("msgctxt out of place");
            FHasContext = true;
            FField = TField::Context;
        } else if (keyword == "msgid") {
            if (FHasStr)
                Finish();
            Begin();
            if (FHasId)
                Fail("a second msgid in one entry");
            FHasId = true;
            FField = TField::Id;
        } else if (keyword == "msgstr") {
            if (!FHasId || FHasStr)
                Fail("msgstr without its msgid");
            FHasStr = true;
            FField = TField::Str;
        } else if (keyword == "msgid_plural" || keyword.compare(0, 7, "msgstr[") == 0) {
            Fail("plural forms have no place in a strings package");
        } else {
            Fail("\"" + keyword + "\" is not a PO keyword");
        }
        *FieldText() = Unquote(value);
    }

    AnsiString* FieldText()
    {
        switch (FField) {
        case TField::Context: return &FContext;
        case TField::Id: return &FEntry.Source;
        case TField::Str: return &FEntry.Text;
        case TField::None: break;
        }
        return nullptr;
    }

    void Flags(const std::string& list)
    {
        std::size_t start = 0;
        while (start <= list.size()) {
            std::size_t comma = list.find(',', start);
            if (comma == std::string::npos)
                comma = list.size();
            if (Trim(list.substr(start, comma - start)) == ProtectedFlag)
                FEntry.Protected = true;
            start = comma + 1;
        }
    }

    AnsiString Unquote(const std::string& text) const
    {
        const std::size_t end = text.find_last_not_of(" \t");
        if (text.empty() || text[0] != '"' || end == 0 || end == std::string::npos || text[end] != '"')
            Fail("a quoted string was expected");
        return Unescape(text.substr(1, end - 1), false);
    }

    // A string's body; inside quotes a quote must be escaped, in a comment not.
    AnsiString Unescape(const std::string& text, bool rawQuotes) const
    {
        AnsiString out;
        const std::size_t end = text.size();
        for (std::size_t i = 0; i < end; ++i) {
            char c = text[i];
            if (c == '"' && !rawQuotes)
                Fail("a quote inside a string must be written \\\"");
            if (c != '\\') {
                out += c;
                continue;
            }
            if (++i >= end)
                Fail("a string ends with a lone backslash");
            c = text[i];
            switch (c) {
            case 'n': out += '\n'; break;
            case 'r': out += '\r'; break;
            case 't': out += '\t'; break;
            case 'a': out += '\a'; break;
            case 'b': out += '\b'; break;
            case 'f': out += '\f'; break;
            case 'v': out += '\v'; break;
            case '\\': case '"': case '\'': case '?': out += c; break;
            default:
                if (c >= '0' && c <= '7') {
                    int value = 0;
                    for (int n = 0; n < 3 && i < end && text[i] >= '0' && text[i] <= '7'; ++n, ++i)
                        value = value * 8 + (text[i] - '0');
                    --i;
                    out += static_cast<char>(value);
                } else {
                    Fail(AnsiString("unknown escape \\") + c);
                }
            }
        }
        return out;
    }

    void Finish()
    {
        FField = TField::None;
        if (!FOpen)
            return;
        FOpen = false;
        if (!FHasId && !FHasContext)
            return;   // comments alone
        const int line = FLine;
        FLine = FEntry.Line;
        if (!FHasStr)
            Fail("the entry has no msgstr");
        if (!FHasContext) {
            if (FEntry.Source.empty())
                return;   // the header
            Fail("the entry has no msgctxt naming its label, message or text");
        }
        if (!QzParseStringsContext(FContext, FEntry.Kind, FEntry.Id))
            Fail("\"" + FContext + "\" names no label, message or text (\"label:12\")");
        // Only labels have hints; a translator's note on another entry is
        // the translator's own.
        if (FEntry.Kind == TQzStringsKind::Label)
            for (std::size_t i = 0; i < FComments.size(); ++i)
                FEntry.Hint += (i ? "\n" : "") + Unescape(FComments[i], true);
        FLine = line;
        FEntries.push_back(FEntry);
    }

    const std::string& FBytes;
    AnsiString FFile;
    int FLine = 0;
    bool FOpen = false;
    bool FHasContext = false, FHasId = false, FHasStr = false;
    TField FField = TField::None;
    TQzStringsEntry FEntry;
    AnsiString FContext;
    std::vector<std::string> FComments;
    std::vector<TQzStringsEntry> FEntries;
};

} // namespace

std::string QzWritePo(const std::vector<TQzStringsEntry>& entries, const AnsiString& name)
{
    std::string out;
    out += "# Strings package " + name + "\n";
    out += "msgid \"\"\nmsgstr \"\"\n";
    out += "\"Project-Id-Version: " + Escape(name, true) + "\\n\"\n";
    out += "\"PO-Revision-Date: " + RevisionDate() + "\\n\"\n";
    out += "\"Last-Translator: \\n\"\n\"Language-Team: \\n\"\n\"Language: \\n\"\n";
    out += "\"MIME-Version: 1.0\\n\"\n\"Content-Type: text/plain; charset=UTF-8\\n\"\n";
    out += "\"Content-Transfer-Encoding: 8bit\\n\"\n\"X-Generator: qzpkg\\n\"\n";
    for (const TQzStringsEntry& e : entries) {
        out += "\n";
        if (!e.Hint.empty()) {
            std::size_t start = 0;
            while (true) {
                const std::size_t end = e.Hint.find('\n', start);
                out += "# " + Escape(e.Hint.substr(start, end == AnsiString::npos ? AnsiString::npos : end - start), false) + "\n";
                if (end == AnsiString::npos)
                    break;
                start = end + 1;
            }
        }
        if (e.Protected)
            out += std::string("#, ") + ProtectedFlag + "\n";
        WriteString(out, "msgctxt", QzStringsContext(e.Kind, e.Id));
        WriteString(out, "msgid", e.Source);
        WriteString(out, "msgstr", e.Text);
    }
    return out;
}

std::vector<TQzStringsEntry> QzReadPo(const std::string& bytes, const AnsiString& fileName)
{
    return TPoReader(bytes, fileName).Read();
}
