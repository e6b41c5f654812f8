// CSV as spreadsheets read it (RFC 4180): a heading row naming the columns
// "context", "source", "text", "hint" and "protected", then one row per
// item. A field holding a comma, a quote, a line break or blanks at either
// end is quoted, its quotes doubled. "protected" is "yes" or empty.

#include "design/strings/QzStringsExchange.h"

#include <array>

namespace {

const std::array<const char*, 5> Columns = {"context", "source", "text", "hint", "protected"};

AnsiString Field(const AnsiString& text)
{
    const bool quote = text.find_first_of(",\"\r\n") != AnsiString::npos ||
                       (!text.empty() && (text.front() == ' ' || text.back() == ' ' || text.front() == '\t' ||
                                          text.back() == '\t'));
    if (!quote)
        return text;
    AnsiString out = "\"";
    for (char c : text)
        out += c == '"' ? AnsiString("\"\"") : AnsiString(1, c);
    return out + "\"";
}

struct TRecord {
    int Line = 0;
    std::vector<AnsiString> Fields;
};

class TCsvReader {
public:
    TCsvReader(const std::string& bytes, const AnsiString& fileName) : FBytes(bytes), FFile(fileName)
    {
        if (FBytes.compare(0, 3, "\xEF\xBB\xBF") == 0)
            FPos = 3;
    }

    // The next record; false at the end of the bytes.
    bool Next(TRecord& record)
    {
        while (FPos < FBytes.size() && (FBytes[FPos] == '\n' || FBytes[FPos] == '\r'))
            Advance();
        if (FPos >= FBytes.size())
            return false;
        record = {FLine, {}};
        while (true) {
            record.Fields.push_back(ReadField());
            if (FPos >= FBytes.size())
                return true;
            const char c = FBytes[FPos];
            if (c == ',') {
                ++FPos;
                continue;
            }
            // A line break ends the record.
            Advance();
            if (c == '\r' && FPos < FBytes.size() && FBytes[FPos] == '\n')
                Advance();
            return true;
        }
    }

    [[noreturn]] void Fail(int line, const AnsiString& why) const { QzExchangeFail(FFile, line, why); }

private:
    void Advance()
    {
        if (FBytes[FPos] == '\n')
            ++FLine;
        ++FPos;
    }

    AnsiString ReadField()
    {
        AnsiString field;
        if (FPos < FBytes.size() && FBytes[FPos] == '"') {
            const int started = FLine;
            ++FPos;
            while (true) {
                if (FPos >= FBytes.size())
                    Fail(started, "a quoted field is never closed");
                const char c = FBytes[FPos];
                if (c == '"') {
                    if (FPos + 1 < FBytes.size() && FBytes[FPos + 1] == '"') {
                        field += '"';
                        FPos += 2;
                        continue;
                    }
                    ++FPos;
                    break;
                }
                field += c;
                Advance();
            }
            if (FPos < FBytes.size() && FBytes[FPos] != ',' && FBytes[FPos] != '\n' && FBytes[FPos] != '\r')
                Fail(FLine, "text after the closing quote of a field");
            return field;
        }
        while (FPos < FBytes.size() && FBytes[FPos] != ',' && FBytes[FPos] != '\n' && FBytes[FPos] != '\r') {
            if (FBytes[FPos] == '"')
                Fail(FLine, "a quote inside a field that does not begin with one");
            field += FBytes[FPos++];
        }
        return field;
    }

    const std::string& FBytes;
    AnsiString FFile;
    std::size_t FPos = 0;
    int FLine = 1;
};

} // namespace

std::string QzWriteCsv(const std::vector<TQzStringsEntry>& entries)
{
    std::string out = "context,source,text,hint,protected\r\n";
    for (const TQzStringsEntry& e : entries)
        out += QzStringsContext(e.Kind, e.Id) + "," + Field(e.Source) + "," + Field(e.Text) + "," + Field(e.Hint) +
               "," + (e.Protected ? "yes" : "") + "\r\n";
    return out;
}

std::vector<TQzStringsEntry> QzReadCsv(const std::string& bytes, const AnsiString& fileName)
{
    TCsvReader reader(bytes, fileName);
    TRecord record;
    if (!reader.Next(record))
        reader.Fail(1, "the heading row (context,source,text,hint,protected) is missing");
    std::array<int, Columns.size()> at{};
    for (std::size_t c = 0; c < Columns.size(); ++c) {
        at[c] = -1;
        for (std::size_t f = 0; f < record.Fields.size(); ++f)
            if (SameText(Trim(record.Fields[f]), Columns[c]))
                at[c] = static_cast<int>(f);
        if (at[c] < 0 && c != 3 && c != 4)
            reader.Fail(record.Line, AnsiString("the heading row has no column \"") + Columns[c] + "\"");
    }
    const std::size_t width = record.Fields.size();
    std::vector<TQzStringsEntry> entries;
    while (reader.Next(record)) {
        if (record.Fields.size() != width)
            reader.Fail(record.Line, "the row has " + IntToStr(static_cast<int>(record.Fields.size())) +
                                         " fields, the heading " + IntToStr(static_cast<int>(width)));
        const auto field = [&](std::size_t c) { return at[c] < 0 ? AnsiString() : record.Fields[at[c]]; };
        TQzStringsEntry entry;
        entry.Line = record.Line;
        if (!QzParseStringsContext(field(0), entry.Kind, entry.Id))
            reader.Fail(record.Line, "\"" + field(0) + "\" names no label, message or text (\"label:12\")");
        entry.Source = field(1);
        entry.Text = field(2);
        entry.Hint = field(3);
        const AnsiString flag = Trim(field(4));
        if (!flag.empty() && !SameText(flag, "yes") && !SameText(flag, "no"))
            reader.Fail(record.Line, "\"protected\" is \"yes\" or empty, not \"" + flag + "\"");
        entry.Protected = SameText(flag, "yes");
        if (entry.Kind != TQzStringsKind::Label && !entry.Hint.empty())
            reader.Fail(record.Line, "only labels have hints");
        entries.push_back(std::move(entry));
    }
    return entries;
}
