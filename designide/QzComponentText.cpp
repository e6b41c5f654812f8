#include "designide/QzComponentText.h"

#include "rtl/Filer.h"
#include "rtl/FormText.h"
#include "rtl/Parser.h"
#include "rtl/StreamNesting.h"

#include <algorithm>
#include <map>

namespace {

struct TSpan {
    size_t Begin = 0;
    size_t End = 0;
    bool Contains(const TSpan& other) const { return Begin <= other.Begin && other.End <= End; }
};

// Where each component lies in the form's stream. The writer walks
// GetChildren from the root; so does this, in step with it.
void Locate(TReader& r, TComponent* component, TComponent* root, std::map<TComponent*, TSpan>& spans)
{
    const size_t begin = r.Position();
    const TComponentHeader header = r.ReadComponentHeader();
    if (!SameText(header.ObjectName, component->Name()))
        r.Error("The form's stream does not match its components", begin);
    while (!r.EndOfList())
        r.SkipProperty();
    r.ReadListEnd();
    component->GetChildren([&](TComponent* child) { Locate(r, child, root, spans); }, root);
    r.ReadListEnd();
    spans[component] = {begin, r.Position()};
}

// Finds where each top-level object of form text ends by following the
// grammar of the text form without converting anything; the converter then
// reads each block and says what is wrong inside it.
class TBlockScanner {
public:
    struct TBlock {
        size_t Begin;
        size_t End;
        int Line;
    };

    explicit TBlockScanner(std::string_view text) : FText(text), P(text) {}

    std::vector<TBlock> Blocks()
    {
        std::vector<TBlock> blocks;
        while (P.Token() != toEOF) {
            TBlock block{Offset(P.TokenText()), 0, P.TokenLine()};
            Object();
            block.End = FObjectEnd;
            blocks.push_back(block);
        }
        return blocks;
    }

private:
    size_t Offset(std::string_view token) const { return size_t(token.data() - FText.data()); }
    bool AtObject() const
    {
        return P.TokenSymbolIs("object") || P.TokenSymbolIs("inherited") || P.TokenSymbolIs("inline");
    }
    void Nest()
    {
        if (++FDepth > MaxStreamNesting)
            P.Error("Values nested too deeply");
    }
    void NotAtEnd(const char* expected) const
    {
        if (P.Token() == toEOF)
            P.Error(std::string(expected) + " expected");
    }

    void Object()
    {
        Nest();
        if (!AtObject())
            P.CheckTokenSymbol("object");
        P.NextToken();
        P.CheckToken(toSymbol);
        if (P.NextToken() == ':') {
            P.NextToken();
            P.CheckToken(toSymbol);
            P.NextToken();
        }
        if (P.Token() == '[') {
            P.NextToken();
            P.CheckToken(toInteger);
            P.NextToken();
            P.CheckToken(']');
            P.NextToken();
        }
        while (!P.TokenSymbolIs("end") && !AtObject()) {
            NotAtEnd("'end'");
            Property();
        }
        while (!P.TokenSymbolIs("end")) {
            NotAtEnd("'end'");
            Object();
        }
        FObjectEnd = Offset(P.TokenText()) + P.TokenText().size();
        P.NextToken();
        --FDepth;
    }

    void Property()
    {
        P.CheckToken(toSymbol);
        while (P.NextToken() == '.') {
            P.NextToken();
            P.CheckToken(toSymbol);
        }
        P.CheckToken('=');
        P.NextToken();
        Value();
    }

    void Value()
    {
        Nest();
        switch (P.Token()) {
        case toString:
            while (P.NextToken() == '+') {
                P.NextToken();
                P.CheckToken(toString);
            }
            --FDepth;
            return;
        case toSymbol:
            P.TokenComponentIdent();
            break;
        case toInteger:
        case toFloat:
            break;
        case '[':
            while (P.NextToken() != ']')
                NotAtEnd("']'");
            break;
        case '(':
            P.NextToken();
            while (P.Token() != ')') {
                NotAtEnd("')'");
                Value();
            }
            break;
        case '{':
            P.HexToBinary();
            break;
        case '<':
            P.NextToken();
            while (P.Token() != '>') {
                P.CheckTokenSymbol("item");
                if (P.NextToken() == '[') {
                    P.NextToken();
                    P.CheckToken(toInteger);
                    P.NextToken();
                    P.CheckToken(']');
                    P.NextToken();
                }
                while (!P.TokenSymbolIs("end")) {
                    NotAtEnd("'end'");
                    Property();
                }
                P.NextToken();
            }
            break;
        default:
            P.Error("Invalid property value");
        }
        P.NextToken();
        --FDepth;
    }

    std::string_view FText;
    TParser P;
    size_t FObjectEnd = 0;
    int FDepth = 0;
};

// Text from an editor may start with UTF-8's byte order mark; true when
// it did, and text then starts after it.
bool SkipByteOrderMark(std::string_view& text)
{
    if (text.substr(0, 3) != "\xEF\xBB\xBF")
        return false;
    text.remove_prefix(3);
    return true;
}

}  // namespace

std::string QzComponentsToText(TComponent* root, std::string_view formBinary,
                               const std::vector<TComponent*>& components, const TFormTextOptions& options)
{
    std::map<TComponent*, TSpan> spans;
    TReader reader(formBinary);
    reader.ReadSignature();
    Locate(reader, root, root, spans);

    std::vector<TSpan> chosen;
    for (TComponent* c : components)
        if (c != root && spans.count(c))
            chosen.push_back(spans[c]);
    std::sort(chosen.begin(), chosen.end(), [](const TSpan& a, const TSpan& b) { return a.Begin < b.Begin; });
    chosen.erase(std::unique(chosen.begin(), chosen.end(),
                             [](const TSpan& a, const TSpan& b) { return a.Begin == b.Begin; }),
                 chosen.end());

    std::string text;
    const TSpan* outer = nullptr;
    for (const TSpan& span : chosen) {
        // Sorted by start, so a component inside an earlier one follows it.
        if (outer && outer->Contains(span))
            continue;
        outer = &span;
        std::string binary(FilerSignature, sizeof FilerSignature);
        binary += formBinary.substr(span.Begin, span.End - span.Begin);
        text += FormBinaryToText(binary, options);
    }
    return text;
}

std::vector<TQzStreamNode> QzComponentsFromText(std::string_view text, const TFormTextOptions& options)
{
    TFormTextOptions effective = options;
    if (SkipByteOrderMark(text))
        effective.HighChars = THighChars::Utf8;
    std::vector<TQzStreamNode> nodes;
    for (const auto& block : TBlockScanner(text).Blocks()) {
        // Blank lines in front keep the converter's line numbers those of
        // the whole text.
        std::string source(size_t(block.Line - 1), '\n');
        source += text.substr(block.Begin, block.End - block.Begin);
        nodes.push_back(QzReadStreamTree(FormTextToBinary(source, effective)));
    }
    return nodes;
}

bool QzStartsAsComponentText(std::string_view text)
{
    SkipByteOrderMark(text);
    try {
        TParser parser(text);
        return parser.TokenSymbolIs("object") || parser.TokenSymbolIs("inherited") || parser.TokenSymbolIs("inline");
    } catch (const Exception&) {
        return false;
    }
}

TFormTextOptions QzClipboardTextOptions(TFormTextOptions formOptions)
{
    formOptions.HighChars = THighChars::Utf8;
#ifndef _WIN32
    formOptions.LineBreak = AnsiString(1, '\n');
#endif
    return formOptions;
}
