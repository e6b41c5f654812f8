// Binary component stream to text, written the way the IDE writes it.

#include "rtl/CodePage.h"
#include "rtl/Filer.h"
#include "rtl/FormText.h"
#include "rtl/Parser.h"

#include <algorithm>
#include "rtl/StreamNesting.h"

namespace {

constexpr size_t LineLength = 64;     // string pieces per line
constexpr size_t BytesPerLine = 32;   // binary data per line

// Delphi's ByteType: whether s[i] is the second byte of a double-byte
// character, found by walking from the start of the string.
bool IsTrailByte(std::string_view s, size_t i, int codePage)
{
    size_t p = 0;
    while (p < i)
        p += IsLeadByte(codePage, Byte(s[p])) ? 2 : 1;
    return p > i;
}

// Names are written bare, so a name the text reader would split, skip or
// refuse cannot be written.

// Whether the text reader reads `text` back whole as one token of `kind`.
bool ReadsBackWhole(std::string_view text, char kind)
{
    try {
        TParser parser(text);
        return parser.Token() == kind && parser.TokenText().data() == text.data() &&
               parser.TokenText().size() == text.size();
    } catch (const EParserError&) {
        return false;
    }
}

// A set element as text writes a character one: '#' and its code, 0 to 255.
bool IsCharacterElement(std::string_view text)
{
    if (text.size() < 2 || text.size() > 4 || text[0] != '#' || (text[1] == '0' && text.size() > 2))
        return false;
    int code = 0;
    for (char c : text.substr(1)) {
        if (c < '0' || c > '9')
            return false;
        code = code * 10 + (c - '0');
    }
    return code <= 255;
}

// The words that end properties in text, in any case: a collection item's
// only "end", a component's also the ones that start its children.
bool EndsProperties(std::string_view name, bool collectionItem)
{
    static constexpr std::string_view words[] = {"end", "object", "inherited", "inline"};
    const auto folded = [](char a, char lower) { return (a | 0x20) == lower; };
    const size_t count = collectionItem ? 1 : std::size(words);
    for (size_t i = 0; i < count; ++i)
        if (name.size() == words[i].size() && std::equal(name.begin(), name.end(), words[i].begin(), folded))
            return true;
    return false;
}

class TBinaryToText {
public:
    TBinaryToText(TReader& reader, std::string& out, const TFormTextOptions& options, TStream* sink = nullptr)
        : R(reader), Out(out), O(options), Sink(sink) {}

    void ConvertObject();

private:
    void Indent() { Out.append(size_t(Level) * 2, ' '); }
    void NewLine()
    {
        Out += O.LineBreak;
        Indent();
    }
    void Nest()
    {
        if (++Depth > MaxStreamNesting)
            R.Error("Values nested too deeply");
    }
    void ConvertProperty(bool collectionItem = false);
    void ConvertValue(bool listItem = false);
    void ConvertBinary();
    void ConvertCollection();
    void ConvertNarrowString(std::string_view s);
    void ConvertWideString(std::u16string_view s);
    void AppendInteger(Int64 v) { Out += std::to_string(v); }
    // Writing to a stream hands the text over in pieces, so a large form
    // never exists twice in memory.
    void FlushToSink()
    {
        if (Sink && Out.size() >= SinkChunk) {
            Sink->WriteString(Out);
            Out.clear();
        }
    }

    template <typename Unit, typename Plain, typename EmitRun, typename AdjustCut>
    void ConvertQuoted(const Unit* s, size_t length, Plain plain, EmitRun emitRun, AdjustCut adjustCut);

    TReader& R;
    std::string& Out;
    const TFormTextOptions& O;
    TStream* Sink;
    static constexpr size_t SinkChunk = 64 * 1024;
    int Level = 0;
    int Depth = 0;
};

void TBinaryToText::ConvertObject()
{
    Nest();
    Indent();
    TComponentHeader h = R.ReadComponentHeader();
    if (!IsTextIdent(h.ClassName, false) || (!h.ObjectName.empty() && !IsTextIdent(h.ObjectName, false)))
        R.Error("Component or class name cannot be written as text");
    Out += (h.Flags & ffInherited) ? "inherited " : (h.Flags & ffInline) ? "inline " : "object ";
    if (!h.ObjectName.empty()) {
        Out += h.ObjectName;
        Out += ": ";
    }
    Out += h.ClassName;
    if (h.Flags & ffChildPos) {
        Out += " [";
        AppendInteger(h.Position);
        Out += ']';
    }
    Out += O.LineBreak;
    ++Level;
    while (!R.EndOfList())
        ConvertProperty();
    R.ReadListEnd();
    while (!R.EndOfList())
        ConvertObject();
    R.ReadListEnd();
    --Level;
    Indent();
    Out += "end";
    Out += O.LineBreak;
    --Depth;
}

void TBinaryToText::ConvertProperty(bool collectionItem)
{
    Indent();
    const AnsiString name = R.ReadStr();
    if (!IsTextIdent(name, true) || EndsProperties(name, collectionItem))
        R.Error("Property name cannot be written as text");
    Out += name;
    Out += " = ";
    ConvertValue();
    Out += O.LineBreak;
    FlushToSink();
}

void TBinaryToText::ConvertValue(bool listItem)
{
    Nest();
    switch (R.NextValue()) {
    case vaList:
        R.ReadValue();
        Out += '(';
        ++Level;
        while (!R.EndOfList()) {
            NewLine();
            ConvertValue(true);
        }
        R.ReadListEnd();
        --Level;
        Out += ')';
        break;
    case vaInt8:
    case vaInt16:
    case vaInt32:
        AppendInteger(R.ReadInteger());
        break;
    case vaInt64:
        AppendInteger(R.ReadInt64());
        break;
    case vaExtended:
    case vaDouble:
        Out += O.Floats == TFloatText::Fixed18 ? FloatToStrFixed(R.ReadFloat(), 16, 18) : FloatToStr(R.ReadFloat());
        break;
    case vaSingle:
        Out += FloatToStr(R.ReadSingle());
        Out += 's';
        break;
    case vaCurrency:
        Out += FloatToStr(Extended(R.ReadCurrency()));
        Out += 'c';
        break;
    case vaDate:
        Out += FloatToStr(R.ReadDate());
        Out += 'd';
        break;
    case vaString:
    case vaLString: {
        std::string s = R.ReadString();
        if (O.HighChars == THighChars::Raw)
            ConvertNarrowString(s);
        else
            ConvertWideString(Utf8ToUtf16(CodePageToUtf8(s, O.CodePage)));
        break;
    }
    case vaWString:
        ConvertWideString(R.ReadWideString());
        break;
    case vaUTF8String:
        ConvertWideString(Utf8ToUtf16(R.ReadUnicodeString()));
        break;
    case vaFalse:
    case vaTrue:
    case vaNil:
    case vaNull:
        Out += R.ReadIdent();
        break;
    case vaIdent: {
        const AnsiString ident = R.ReadIdent();
        if (!IsTextIdent(ident, true))
            R.Error("Identifier cannot be written as text");
        // Text reads Null as the value that would end the list.
        if (listItem && SameText(ident, "Null"))
            R.Error("Null cannot be an item of a list");
        Out += ident;
        break;
    }
    case vaBinary:
        ConvertBinary();
        break;
    case vaSet: {
        R.ReadValue();
        Out += '[';
        for (int i = 0;; ++i) {
            AnsiString element = R.ReadStr();
            if (element.empty())
                break;
            if (!IsTextIdent(element, false) && !ReadsBackWhole(element, toInteger) && !IsCharacterElement(element))
                R.Error("Set element cannot be written as text");
            if (i > 0)
                Out += ", ";
            Out += element;
        }
        Out += ']';
        break;
    }
    case vaCollection:
        ConvertCollection();
        break;
    }
    --Depth;
}

void TBinaryToText::ConvertBinary()
{
    const std::string_view data = R.ReadBinaryBytes();
    static const char hex[] = "0123456789ABCDEF";
    Out += '{';
    ++Level;
    bool multiLine = data.size() >= BytesPerLine;
    for (size_t at = 0; at < data.size(); at += BytesPerLine) {
        if (multiLine)
            NewLine();
        // Written in place: pictures make up most of a large form.
        const size_t n = std::min(BytesPerLine, data.size() - at);
        const size_t start = Out.size();
        Out.resize(start + 2 * n);
        char* digits = Out.data() + start;
        for (size_t i = 0; i < n; ++i) {
            const Byte b = Byte(data[at + i]);
            *digits++ = hex[b >> 4];
            *digits++ = hex[b & 15];
        }
    }
    --Level;
    Out += '}';
}

void TBinaryToText::ConvertCollection()
{
    R.ReadValue();
    Out += '<';
    ++Level;
    while (!R.EndOfList()) {
        NewLine();
        Out += "item";
        TValueType next = R.NextValue();
        if (next == vaInt8 || next == vaInt16 || next == vaInt32) {
            Out += " [";
            AppendInteger(R.ReadInteger());
            Out += ']';
        }
        Out += O.LineBreak;
        R.CheckValue(vaList);
        ++Level;
        while (!R.EndOfList())
            ConvertProperty(true);
        R.ReadListEnd();
        --Level;
        Indent();
        Out += "end";
    }
    R.ReadListEnd();
    --Level;
    Out += '>';
}

// Writes a string as quoted runs of plain characters and #nnn escapes of
// the others, starting a new line (one level deeper) before a string longer
// than a line and after every LineLength characters.
template <typename Unit, typename Plain, typename EmitRun, typename AdjustCut>
void TBinaryToText::ConvertQuoted(const Unit* s, size_t length, Plain plain, EmitRun emitRun, AdjustCut adjustCut)
{
    if (length == 0) {
        Out += "''";
        return;
    }
    ++Level;
    if (length > LineLength)
        NewLine();
    size_t i = 0;
    size_t lineStart = 0;
    do {
        bool lineBreak = false;
        if (plain(s[i])) {
            size_t j = i;
            do
                ++i;
            while (i < length && plain(s[i]) && i - lineStart < LineLength);
            if (i - lineStart >= LineLength) {
                lineBreak = true;
                i = adjustCut(i);
            }
            Out += '\'';
            emitRun(j, i);
            Out += '\'';
        } else {
            Out += '#';
            AppendInteger(Int64(s[i]));
            ++i;
            lineBreak = i - lineStart >= LineLength;
        }
        if (lineBreak && i < length) {
            Out += " +";
            NewLine();
            lineStart = i;
        }
    } while (i < length);
    --Level;
}

void TBinaryToText::ConvertNarrowString(std::string_view s)
{
    bool dbcs = IsDoubleByteCodePage(O.CodePage);
    ConvertQuoted(
        s.data(), s.size(), [](char c) { return Byte(c) >= ' ' && c != '\''; },
        [&](size_t from, size_t to) { Out.append(s.data() + from, to - from); },
        // A double-byte character is never cut in two: its lead byte moves
        // to the next piece.
        [&](size_t i) { return dbcs && i < s.size() && IsTrailByte(s, i, O.CodePage) ? i - 1 : i; });
}

void TBinaryToText::ConvertWideString(std::u16string_view s)
{
    bool utf8 = O.HighChars == THighChars::Utf8;
    ConvertQuoted(
        s.data(), s.size(), [&](char16_t c) { return c >= u' ' && c != u'\'' && (c <= 127 || utf8); },
        [&](size_t from, size_t to) {
            if (utf8) {
                Out += Utf16ToUtf8(s.substr(from, to - from));
                return;
            }
            for (size_t k = from; k < to; ++k)
                Out += char(s[k]);
        },
        [](size_t i) { return i; });
}

} // namespace

std::string FormBinaryToText(std::string_view binary, const TFormTextOptions& options)
{
    TReader reader(binary);
    reader.ReadSignature();
    std::string out;
    // Text is two to two and a half times the binary size; pictures, most of
    // a large form, take two hex digits a byte and line breaks.
    out.reserve(binary.size() * 5 / 2 + 4096);
    TBinaryToText(reader, out, options).ConvertObject();
    return out;
}

void ObjectBinaryToText(TStream& input, TStream& output, const TFormTextOptions& options)
{
    TReader reader(input);
    reader.ReadSignature();
    std::string out;
    out.reserve(128 * 1024);
    TBinaryToText(reader, out, options, &output).ConvertObject();
    reader.Finish();
    output.WriteString(out);
}
