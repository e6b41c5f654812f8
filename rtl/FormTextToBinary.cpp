// Text form to binary component stream.

#include "rtl/CodePage.h"
#include "rtl/Filer.h"
#include "rtl/FormText.h"
#include "rtl/Parser.h"
#include "rtl/StreamNesting.h"

#include <cmath>
#include <limits>
#include <vector>

namespace {

void AppendUtf16(std::u16string& out, char32_t code)
{
    if (code >= 0x10000) {
        code -= 0x10000;
        out.push_back(char16_t(0xD800 + (code >> 10)));
        out.push_back(char16_t(0xDC00 + (code & 0x3FF)));
    } else {
        out.push_back(char16_t(code));
    }
}

class TTextToBinary {
public:
    TTextToBinary(TParser& parser, TWriter& writer, const TFormTextOptions& options)
        : P(parser), W(writer), O(options) {}

    void ConvertObject();

private:
    void Nest()
    {
        if (++Depth > MaxStreamNesting)
            P.Error("Values nested too deeply");
    }
    // Names are short strings: at most 255 bytes.
    void CheckName(std::string_view name, const char* what, size_t limit = 255) const
    {
        CheckName(name, what, P.TokenLine(), limit);
    }
    void CheckName(std::string_view name, const char* what, int line, size_t limit = 255) const
    {
        if (name.size() > limit)
            P.ErrorAt(std::string(what) + " too long", line);
    }
    // The float token, which must fit the value type it is written as.
    Extended TokenFloatWithin(Extended limit) const
    {
        const Extended value = P.TokenFloat();
        if (value > limit || value < -limit)
            P.Error("Floating point value out of range " + std::string(P.TokenText()));
        return value;
    }
    // The text holds the currency's stored integer (value * 10000) to 15
    // digits, so the integer's own extremes are written rounded just past
    // its range: those read back as the extremes.
    Currency TokenCurrency() const
    {
        constexpr Currency lowest = std::numeric_limits<Currency>::min();
        constexpr Currency highest = std::numeric_limits<Currency>::max();
        const Extended value = TokenFloatWithin(9.22337203685478E18L);
        if (value <= Extended(lowest))
            return lowest;
        if (value >= Extended(highest))
            return highest;
        return Currency(std::llround(value));
    }
    void ConvertHeader(Byte flags);
    void ConvertProperty();
    void ConvertValue();
    void ConvertString();
    void ConvertSet();
    void ConvertCollection();
    std::u16string DecodeUtf16(const std::vector<std::string_view>& pieces) const;

    TParser& P;
    TWriter& W;
    const TFormTextOptions& O;
    int Depth = 0;
};

void TTextToBinary::ConvertObject()
{
    Nest();
    Byte flags = 0;
    if (P.TokenSymbolIs("inherited"))
        flags = ffInherited;
    else if (P.TokenSymbolIs("inline"))
        flags = ffInline;
    else
        P.CheckTokenSymbol("object");
    P.NextToken();
    ConvertHeader(flags);
    while (!P.TokenSymbolIs("end") && !P.TokenSymbolIs("object") && !P.TokenSymbolIs("inherited") &&
           !P.TokenSymbolIs("inline")) {
        if (P.Token() == toEOF)
            P.Error("'end' expected");
        ConvertProperty();
    }
    W.WriteListEnd();
    while (!P.TokenSymbolIs("end")) {
        if (P.Token() == toEOF)
            P.Error("'end' expected");
        ConvertObject();
    }
    W.WriteListEnd();
    P.NextToken();
    --Depth;
}

void TTextToBinary::ConvertHeader(Byte flags)
{
    P.CheckToken(toSymbol);
    const int line = P.TokenLine();
    std::string className(P.TokenText());
    std::string objectName;
    if (P.NextToken() == ':') {
        P.NextToken();
        P.CheckToken(toSymbol);
        objectName = std::move(className);
        className = P.TokenText();
        P.NextToken();
    }
    CheckName(objectName, "Component name", line);
    // A header without flags starts with the class name's length, and a
    // length of 240 or more would read as the flags' prefix byte.
    CheckName(className, "Class name", line, 0xEF);
    Integer position = -1;
    if (P.Token() == '[') {
        P.NextToken();
        P.CheckToken(toInteger);
        position = Integer(P.TokenInt());
        P.NextToken();
        P.CheckToken(']');
        P.NextToken();
        flags |= ffChildPos;
    }
    W.WritePrefix(flags, position);
    W.WriteStr(className);
    W.WriteStr(objectName);
}

void TTextToBinary::ConvertProperty()
{
    P.CheckToken(toSymbol);
    std::string name(P.TokenText());
    P.NextToken();
    while (P.Token() == '.') {
        P.NextToken();
        P.CheckToken(toSymbol);
        name += '.';
        name += P.TokenText();
        P.NextToken();
    }
    CheckName(name, "Property name");
    W.WriteStr(name);
    P.CheckToken('=');
    P.NextToken();
    ConvertValue();
}

void TTextToBinary::ConvertValue()
{
    Nest();
    switch (P.Token()) {
    case toString:
        ConvertString();
        --Depth;
        return;  // the string has read its own following token
    case toSymbol: {
        // Dotted parts count: the whole reference is one name in the stream.
        const std::string_view ident = P.TokenComponentIdent();
        CheckName(ident, "Identifier");
        W.WriteIdent(ident);
        break;
    }
    case toInteger:
        W.WriteInteger(P.TokenInt());
        break;
    case toFloat:
        switch (P.FloatType()) {
        case 's':
            W.WriteSingle(float(TokenFloatWithin(std::numeric_limits<float>::max())));
            break;
        case 'c':
            W.WriteCurrency(TokenCurrency());
            break;
        case 'd':
            W.WriteDate(double(TokenFloatWithin(std::numeric_limits<double>::max())));
            break;
        default:
            W.WriteFloat(P.TokenFloat());
        }
        break;
    case '[':
        ConvertSet();
        break;
    case '(':
        P.NextToken();
        W.WriteListBegin();
        while (P.Token() != ')') {
            if (P.Token() == toEOF)
                P.Error("')' expected");
            // Null is written as the byte that ends a list, so the list
            // would end there when read back.
            if (P.TokenSymbolIs("Null"))
                P.Error("Null cannot be an item of a list");
            ConvertValue();
        }
        W.WriteListEnd();
        break;
    case '{':
        W.WriteBinaryWith([this](std::string& buffer) { P.HexToBinary(buffer); });
        break;
    case '<':
        ConvertCollection();
        break;
    default:
        P.Error("Invalid property value");
    }
    P.NextToken();
    --Depth;
}

// Decodes string tokens to UTF-16: quoted runs through the text's encoding,
// escapes as character codes.
std::u16string TTextToBinary::DecodeUtf16(const std::vector<std::string_view>& pieces) const
{
    std::u16string out;
    for (std::string_view piece : pieces)
        TParser::ForEachStringPiece(piece,
        [&](std::string_view raw) {
            bool ascii = true;
            for (char c : raw)
                ascii = ascii && Byte(c) < 0x80;
            if (ascii) {
                out.append(raw.begin(), raw.end());
                return;
            }
            std::string utf8 = O.HighChars == THighChars::Utf8 ? std::string(raw) : CodePageToUtf8(raw, O.CodePage);
            out += Utf8ToUtf16(utf8);
        },
        [&](char32_t code) { AppendUtf16(out, code); });
    return out;
}

// A string literal may be several pieces joined by '+'. It becomes an 8-bit
// string unless it holds characters the 8-bit form cannot: escapes above
// 127 (the IDE writes those only for wide strings), or, in UTF-8 text,
// characters outside the code page.
void TTextToBinary::ConvertString()
{
    std::string bytes = P.TokenBytes();
    bool wide = P.HasHighEscape();
    bool rawHigh = P.HasRawHighBytes();
    std::vector<std::string_view> pieces{P.TokenText()};
    while (P.NextToken() == '+') {
        P.NextToken();
        P.CheckToken(toString);
        bytes += P.TokenBytes();
        wide = wide || P.HasHighEscape();
        rawHigh = rawHigh || P.HasRawHighBytes();
        pieces.push_back(P.TokenText());
    }
    if (!wide && rawHigh && O.HighChars == THighChars::Utf8) {
        std::string encoded;
        if (Utf8ToCodePage(bytes, O.CodePage, encoded))
            bytes = std::move(encoded);
        else
            wide = true;
    }
    if (!wide) {
        W.WriteString(bytes);
        return;
    }
    std::u16string text = DecodeUtf16(pieces);
    if (O.Utf8Strings)
        W.WriteUTF8String(Utf16ToUtf8(text));
    else
        W.WriteWideString(text);
}

void TTextToBinary::ConvertSet()
{
    P.NextToken();
    W.WriteValue(vaSet);
    if (P.Token() != ']') {
        for (;;) {
            switch (P.Token()) {
            case toInteger:
                CheckName(P.TokenText(), "Set element");
                W.WriteStr(P.TokenText());
                break;
            case toString:
                W.WriteStr("#" + std::to_string(Byte(P.TokenBytes().empty() ? 0 : P.TokenBytes()[0])));
                break;
            default:
                P.CheckToken(toSymbol);
                CheckName(P.TokenText(), "Set element");
                W.WriteStr(P.TokenText());
            }
            if (P.NextToken() == ']')
                break;
            P.CheckToken(',');
            P.NextToken();
        }
    }
    W.WriteStr("");
}

void TTextToBinary::ConvertCollection()
{
    P.NextToken();
    W.WriteValue(vaCollection);
    while (P.Token() != '>') {
        P.CheckTokenSymbol("item");
        P.NextToken();
        if (P.Token() == '[') {
            P.NextToken();
            P.CheckToken(toInteger);
            W.WriteInteger(P.TokenInt());
            P.NextToken();
            P.CheckToken(']');
            P.NextToken();
        }
        W.WriteListBegin();
        while (!P.TokenSymbolIs("end")) {
            if (P.Token() == toEOF)
                P.Error("'end' expected");
            ConvertProperty();
        }
        W.WriteListEnd();
        P.NextToken();
    }
    W.WriteListEnd();
}

std::string_view SkipByteOrderMark(std::string_view text, TFormTextOptions& options)
{
    if (text.substr(0, 3) == "\xEF\xBB\xBF") {
        options.HighChars = THighChars::Utf8;
        text.remove_prefix(3);
    }
    return text;
}

} // namespace

std::string FormTextToBinary(std::string_view text, const TFormTextOptions& options)
{
    TFormTextOptions effective = options;
    text = SkipByteOrderMark(text, effective);
    TParser parser(text);
    TWriter writer;
    writer.Buffer().reserve(text.size());
    writer.WriteSignature();
    TTextToBinary(parser, writer, effective).ConvertObject();
    return std::move(writer.Buffer());
}

void ObjectTextToBinary(TStream& input, TStream& output, const TFormTextOptions& options)
{
    std::string text = input.ReadRemaining();
    output.WriteString(FormTextToBinary(text, options));
}
