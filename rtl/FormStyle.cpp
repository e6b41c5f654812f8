// What a stored form says of the options it was written with, and where its
// 8-bit strings are (for guessing their code page).

#include "rtl/FormText.h"

#include "rtl/Filer.h"
#include "rtl/StreamNesting.h"

#include <cstdint>
#include <cstring>
#include <vector>

namespace {

// What the values of a binary stream tell of the writer.
struct TBinaryFacts {
    bool Utf8Strings = false;
    // A float with a whole value: 15-digit text writes it as an integer,
    // which reads back as one, so only the 18-decimal style keeps it.
    bool WholeFloats = false;
    std::vector<std::string_view>* HighStrings = nullptr;
};

bool HasHighByte(std::string_view bytes)
{
    // Eight bytes a step: this runs over every byte of a large text form.
    size_t i = 0;
    for (; i + 8 <= bytes.size(); i += 8) {
        std::uint64_t word;
        std::memcpy(&word, bytes.data() + i, 8);
        if (word & 0x8080808080808080u)
            return true;
    }
    for (; i < bytes.size(); ++i)
        if (Byte(bytes[i]) >= 0x80)
            return true;
    return false;
}

bool IsWhole(Extended value)
{
    // Beyond 15 digits the short style writes an exponent, not an integer.
    // The range comes first: converting NaN or a huge value is undefined.
    return value < 1e15L && value > -1e15L && value == Extended(Int64(value));
}

void WalkComponent(TReader& r, TBinaryFacts& facts, int depth);

void WalkValue(TReader& r, TBinaryFacts& facts, int depth)
{
    if (depth > MaxStreamNesting)
        r.Error("Values nested too deeply");
    switch (r.NextValue()) {
    case vaList:
        r.ReadValue();
        while (!r.EndOfList())
            WalkValue(r, facts, depth + 1);
        r.ReadListEnd();
        return;
    case vaCollection:
        r.ReadValue();
        while (!r.EndOfList()) {
            TValueType t = r.NextValue();
            if (t == vaInt8 || t == vaInt16 || t == vaInt32)
                r.ReadInteger();
            r.ReadListBegin();
            while (!r.EndOfList()) {
                r.ReadStr();
                WalkValue(r, facts, depth + 1);
            }
            r.ReadListEnd();
        }
        r.ReadListEnd();
        return;
    case vaUTF8String:
        facts.Utf8Strings = true;
        r.SkipValue();
        return;
    case vaExtended:
    case vaDouble:
        if (IsWhole(r.ReadFloat()))
            facts.WholeFloats = true;
        return;
    case vaString:
    case vaLString:
        if (facts.HighStrings) {
            const size_t length = r.ReadString().size();
            const std::string_view bytes = r.Data().substr(r.Position() - length, length);
            if (HasHighByte(bytes))
                facts.HighStrings->push_back(bytes);
            return;
        }
        r.SkipValue();
        return;
    default:
        r.SkipValue();
        return;
    }
}

void WalkComponent(TReader& r, TBinaryFacts& facts, int depth)
{
    if (depth > MaxStreamNesting)
        r.Error("Values nested too deeply");
    r.ReadComponentHeader();
    while (!r.EndOfList()) {
        r.ReadStr();
        WalkValue(r, facts, depth + 1);
    }
    r.ReadListEnd();
    while (!r.EndOfList())
        WalkComponent(r, facts, depth + 1);
    r.ReadListEnd();
}

TBinaryFacts BinaryFacts(std::string_view form, std::vector<std::string_view>* highStrings = nullptr)
{
    std::string_view binary = DetectFormFormat(form) == TFormFormat::Binary ? form : FormResourceBody(form);
    TReader reader(binary);
    reader.ReadSignature();
    TBinaryFacts facts;
    facts.HighStrings = highStrings;
    WalkComponent(reader, facts, 0);
    return facts;
}

// What the text of a form shows of its writer. Strings never span lines, so
// whether a character is inside quotes is decided by its line alone.
struct TTextFacts {
    bool LfBreaks = false;
    bool FixedFloats = false;    // "2.000000000000000000"
    bool ShortFloats = false;    // "0.5", "1.5E-5"
    bool HighEscapes = false;    // #233 outside quotes
    bool RawHighBytes = false;
    bool Utf8 = false;           // raw bytes above 127, every one part of a UTF-8 character
};

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool IsIdentChar(char c)
{
    return IsDigit(c) || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}

// Whether every byte above 127 belongs to a well-formed UTF-8 sequence. Code
// page text almost never is: its accented letters stand alone, where UTF-8
// needs a lead byte and one to three continuation bytes in a row.
bool IsUtf8(std::string_view text)
{
    for (size_t i = 0; i < text.size();) {
        const Byte b = Byte(text[i]);
        const size_t length = b < 0x80 ? 1 : b >= 0xC2 && b < 0xE0 ? 2 : b >= 0xE0 && b < 0xF0 ? 3 : b >= 0xF0 && b < 0xF5 ? 4 : 0;
        if (length == 0 || i + length > text.size())
            return false;
        for (size_t k = 1; k < length; ++k)
            if ((Byte(text[i + k]) & 0xC0) != 0x80)
                return false;
        i += length;
    }
    return true;
}

size_t LineStart(std::string_view text, size_t at)
{
    while (at > 0 && text[at - 1] != '\n')
        --at;
    return at;
}

bool InsideQuotes(std::string_view text, size_t at)
{
    bool inside = false;
    for (size_t i = LineStart(text, at); i < at; ++i)
        inside = inside != (text[i] == '\'');
    return inside;
}

// A float token around the '.' at dot: digits before it that start a token,
// digits after it. Single, currency and date values (suffix s, c, d) are
// written in the short style by every writer and tell nothing.
void NoteFloat(std::string_view text, size_t dot, TTextFacts& facts)
{
    if (dot == 0 || !IsDigit(text[dot - 1]) || dot + 1 >= text.size() || !IsDigit(text[dot + 1]))
        return;
    size_t start = dot;
    while (start > 0 && IsDigit(text[start - 1]))
        --start;
    if (start > 0 && (IsIdentChar(text[start - 1]) || text[start - 1] == '.'))
        return;
    size_t end = dot + 1;
    while (end < text.size() && IsDigit(text[end]))
        ++end;
    const size_t decimals = end - dot - 1;
    if (end < text.size() && IsIdentChar(text[end]) && text[end] != 'E' && text[end] != 'e')
        return;
    if (InsideQuotes(text, dot))
        return;
    (decimals == 18 ? facts.FixedFloats : facts.ShortFloats) = true;
}

void NoteEscape(std::string_view text, size_t hash, TTextFacts& facts)
{
    int code = 0;
    size_t i = hash + 1;
    while (i < text.size() && IsDigit(text[i]) && code < 0x110000)
        code = code * 10 + (text[i++] - '0');
    if (i > hash + 1 && code > 127 && !InsideQuotes(text, hash))
        facts.HighEscapes = true;
}

TTextFacts TextFacts(std::string_view text)
{
    TTextFacts facts;
    const size_t lf = text.find('\n');
    facts.LfBreaks = lf != std::string_view::npos && (lf == 0 || text[lf - 1] != '\r');
    for (size_t at = text.find('.'); at != std::string_view::npos && !(facts.FixedFloats && facts.ShortFloats);
         at = text.find('.', at + 1))
        NoteFloat(text, at, facts);
    for (size_t at = text.find('#'); at != std::string_view::npos && !facts.HighEscapes; at = text.find('#', at + 1))
        NoteEscape(text, at, facts);
    facts.RawHighBytes = HasHighByte(text);
    facts.Utf8 = facts.RawHighBytes && IsUtf8(text);
    return facts;
}

} // namespace

TFormTextOptions DetectFormTextOptions(std::string_view form)
{
    TFormTextOptions options;
    switch (DetectFormFormat(form)) {
    case TFormFormat::Text: {
        const bool bom = form.substr(0, 3) == "\xEF\xBB\xBF";
        const TTextFacts facts = TextFacts(form);
        if (facts.LfBreaks)
            options.LineBreak.assign(1, '\n');
        if (bom || facts.Utf8)
            options.HighChars = THighChars::Utf8;
        // Later IDE generations write floats with 18 decimals, every other
        // character as #nnnn and, in binary, strings beyond ASCII as UTF-8.
        // The older one writes 8-bit characters raw, short floats, and
        // UTF-16 for the few wide properties it has.
        if (facts.FixedFloats)
            options.Floats = TFloatText::Fixed18;
        options.Utf8Strings = bom || facts.FixedFloats ||
                              (facts.HighEscapes && !facts.ShortFloats && !facts.RawHighBytes);
        break;
    }
    case TFormFormat::Binary:
    case TFormFormat::Resource: {
        const TBinaryFacts facts = BinaryFacts(form);
        options.Utf8Strings = facts.Utf8Strings;
        if (facts.Utf8Strings || facts.WholeFloats)
            options.Floats = TFloatText::Fixed18;
        break;
    }
    default:
        break;
    }
    return options;
}

std::vector<std::string_view> FormHighStrings(std::string_view form)
{
    std::vector<std::string_view> strings;
    switch (DetectFormFormat(form)) {
    case TFormFormat::Binary:
    case TFormFormat::Resource:
        BinaryFacts(form, &strings);
        break;
    default:
        // Whole lines: what surrounds a string's characters helps the guess.
        for (size_t start = 0; start < form.size();) {
            size_t end = form.find('\n', start);
            end = end == std::string_view::npos ? form.size() : end + 1;
            const std::string_view line = form.substr(start, end - start);
            if (HasHighByte(line))
                strings.push_back(line);
            start = end;
        }
    }
    return strings;
}
