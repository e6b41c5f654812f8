#include "runtime/util/QzFields.h"

#include <vector>

namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t'; }
bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsControl(unsigned char c) { return c < 32 || c == 127; }

void CheckSeparator(char separator)
{
    if (IsControl(static_cast<unsigned char>(separator)) || separator == '"' || separator == '#' ||
        IsBlank(separator) || IsDigit(separator))
        throw EConvertError(Format("Invalid field separator #%d", int(static_cast<unsigned char>(separator))));
}

[[noreturn]] void FieldError(const char* what, size_t index)
{
    throw EConvertError(Format("%s at column %d", what, int(index + 1)));
}

void AppendUtf8(AnsiString& out, unsigned long code)
{
    if (code < 0x80) {
        out += char(code);
    } else if (code < 0x800) {
        out += char(0xC0 | (code >> 6));
        out += char(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        out += char(0xE0 | (code >> 12));
        out += char(0x80 | ((code >> 6) & 0x3F));
        out += char(0x80 | (code & 0x3F));
    } else {
        out += char(0xF0 | (code >> 18));
        out += char(0x80 | ((code >> 12) & 0x3F));
        out += char(0x80 | ((code >> 6) & 0x3F));
        out += char(0x80 | (code & 0x3F));
    }
}

bool StartsEncoded(const AnsiString& text, size_t i)
{
    return text[i] == '"' || (text[i] == '#' && i + 1 < text.size() && IsDigit(text[i + 1]));
}

// Reads the segments of an encoded field starting at i; leaves i after them.
AnsiString ReadEncoded(const AnsiString& text, size_t& i)
{
    AnsiString field;
    while (i < text.size()) {
        if (text[i] == '"') {
            const size_t open = i++;
            for (;;) {
                if (i >= text.size())
                    FieldError("Unterminated quoted field", open);
                if (text[i] == '"') {
                    if (i + 1 < text.size() && text[i + 1] == '"') {
                        field += '"';
                        i += 2;
                        continue;
                    }
                    ++i;
                    break;
                }
                field += text[i++];
            }
        } else if (text[i] == '#') {
            const size_t start = i++;
            unsigned long code = 0;
            size_t digits = 0;
            while (i < text.size() && IsDigit(text[i])) {
                code = code * 10 + unsigned(text[i] - '0');
                if (code > 0x10FFFF)
                    FieldError("Character code out of range", start);
                ++i;
                ++digits;
            }
            if (digits == 0)
                FieldError("Missing character code after '#'", start);
            AppendUtf8(field, code);
        } else {
            break;
        }
    }
    return field;
}

bool NeedsEncoding(const AnsiString& field, char separator)
{
    if (field.empty())
        return false;
    if (field.front() == '#' || field.front() == ' ' || field.back() == ' ')
        return true;
    for (char c : field)
        if (c == separator || c == '"' || IsControl(static_cast<unsigned char>(c)))
            return true;
    return false;
}

void AppendEncoded(AnsiString& out, const AnsiString& field)
{
    bool inQuotes = false;
    for (char c : field) {
        const auto u = static_cast<unsigned char>(c);
        if (IsControl(u)) {
            if (inQuotes) {
                out += '"';
                inQuotes = false;
            }
            out += '#';
            out += IntToStr(u);
            continue;
        }
        if (!inQuotes) {
            out += '"';
            inQuotes = true;
        }
        out += c;
        if (c == '"')
            out += '"';
    }
    if (inQuotes)
        out += '"';
}

} // namespace

void QzTextToStrings(const AnsiString& text, TStrings* list, char separator)
{
    CheckSeparator(separator);
    // Split completely before touching the list, so a bad line leaves it as it was.
    std::vector<AnsiString> fields;
    if (!text.empty()) {
        size_t i = 0;
        for (;;) {
            while (i < text.size() && IsBlank(text[i]))
                ++i;
            if (i < text.size() && StartsEncoded(text, i)) {
                fields.push_back(ReadEncoded(text, i));
                while (i < text.size() && IsBlank(text[i]))
                    ++i;
                if (i < text.size() && text[i] != separator)
                    FieldError("Text after a quoted field", i);
            } else {
                const size_t start = i;
                while (i < text.size() && text[i] != separator)
                    ++i;
                size_t end = i;
                while (end > start && IsBlank(text[end - 1]))
                    --end;
                fields.push_back(text.substr(start, end - start));
            }
            if (i >= text.size())
                break;
            ++i;  // the separator: a field follows, even an empty one
        }
    }
    list->BeginUpdate();
    list->Clear();
    for (const AnsiString& field : fields)
        list->Add(field);
    list->EndUpdate();
}

AnsiString QzTextFromStrings(TStrings* list, char separator)
{
    CheckSeparator(separator);
    const int count = list->Count();
    if (count == 1 && list->Get(0).empty())
        return "\"\"";
    AnsiString line;
    for (int i = 0; i < count; ++i) {
        if (i > 0)
            line += separator;
        const AnsiString field = list->Get(i);
        if (NeedsEncoding(field, separator))
            AppendEncoded(line, field);
        else
            line += field;
    }
    return line;
}
