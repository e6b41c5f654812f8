// Reading the file lists of C++Builder project files. Both kinds are XML,
// but only tags and attributes matter here, so a small scanner does.

#include "designide/ProjectFile.h"

#include "rtl/Parser.h"
#include "rtl/Streams.h"

#include <array>
#include <functional>
#include <utility>

namespace {

struct TXmlTag {
    AnsiString Name;
    bool Closing = false;       // </Name>
    bool SelfClosing = false;   // <Name ... />
    std::vector<std::pair<AnsiString, AnsiString>> Attributes;
    int Line = 0;

    AnsiString Attribute(const AnsiString& name) const
    {
        for (const auto& [key, value] : Attributes)
            if (SameText(key, name))
                return value;
        return {};
    }
};

AnsiString DecodeEntities(std::string_view text)
{
    static const std::array<std::pair<std::string_view, char>, 5> named = {
        {{"&quot;", '"'}, {"&amp;", '&'}, {"&lt;", '<'}, {"&gt;", '>'}, {"&apos;", '\''}}};
    AnsiString out;
    out.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '&') {
            out += text[i];
            continue;
        }
        bool done = false;
        for (const auto& [entity, ch] : named) {
            if (text.substr(i, entity.size()) == entity) {
                out += ch;
                i += entity.size() - 1;
                done = true;
                break;
            }
        }
        const std::size_t semicolon = text.find(';', i);
        if (!done && i + 2 < text.size() && text[i + 1] == '#' && semicolon != std::string_view::npos) {
            std::string_view digits = text.substr(i + 2, semicolon - i - 2);
            const bool hex = !digits.empty() && (digits[0] == 'x' || digits[0] == 'X');
            Int64 code = 0;
            if (TryStrToInt64((hex ? "$" : "") + AnsiString(hex ? digits.substr(1) : digits), code) && code > 0 &&
                code < 128) {
                out += static_cast<char>(code);
                i = semicolon;
                done = true;
            }
        }
        if (!done)
            out += '&';
    }
    return out;
}

class TXmlScanner {
public:
    TXmlScanner(std::string_view text, const AnsiString& source) : FText(text), FSource(source) {}

    // Calls onTag for every element tag with the text since the previous tag.
    void Run(const std::function<void(const TXmlTag&, std::string_view)>& onTag)
    {
        std::size_t textStart = 0;
        while (FPos < FText.size()) {
            const std::size_t open = FText.find('<', FPos);
            if (open == std::string_view::npos)
                break;
            Advance(open);
            const std::string_view before = FText.substr(textStart, open - textStart);
            if (StartsWith("<!--"))
                Skip("-->", "unterminated comment");
            else if (StartsWith("<?"))
                Skip("?>", "unterminated declaration");
            else if (StartsWith("<!"))
                Skip(">", "unterminated declaration");
            else
                onTag(ReadTag(), before);
            textStart = FPos;
        }
    }

private:
    bool StartsWith(std::string_view s) const { return FText.substr(FPos, s.size()) == s; }

    void Advance(std::size_t to)
    {
        for (; FPos < to && FPos < FText.size(); ++FPos)
            if (FText[FPos] == '\n')
                ++FLine;
    }

    [[noreturn]] void Fail(const AnsiString& what, int line) const
    {
        ETextParseError error(what, line);
        error.SetMessage(FSource + ": " + error.Message());
        throw error;
    }

    void Skip(std::string_view end, const char* what)
    {
        const int line = FLine;
        const std::size_t at = FText.find(end, FPos);
        if (at == std::string_view::npos)
            Fail(what, line);
        Advance(at + end.size());
    }

    static bool IsNameChar(char c)
    {
        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_' || c == '-' ||
               c == '.' || c == ':';
    }

    void SkipBlanks()
    {
        while (FPos < FText.size() && static_cast<unsigned char>(FText[FPos]) <= ' ')
            Advance(FPos + 1);
    }

    AnsiString ReadName()
    {
        const std::size_t start = FPos;
        while (FPos < FText.size() && IsNameChar(FText[FPos]))
            ++FPos;
        return AnsiString(FText.substr(start, FPos - start));
    }

    TXmlTag ReadTag()
    {
        TXmlTag tag;
        tag.Line = FLine;
        ++FPos;   // '<'
        if (FPos < FText.size() && FText[FPos] == '/') {
            tag.Closing = true;
            ++FPos;
        }
        tag.Name = ReadName();
        if (tag.Name.empty())
            Fail("a tag without a name", tag.Line);
        for (;;) {
            SkipBlanks();
            if (FPos >= FText.size())
                Fail("unterminated tag <" + tag.Name + ">", tag.Line);
            const char c = FText[FPos];
            if (c == '>') {
                ++FPos;
                return tag;
            }
            if (c == '/' && FPos + 1 < FText.size() && FText[FPos + 1] == '>') {
                tag.SelfClosing = true;
                FPos += 2;
                return tag;
            }
            const AnsiString name = ReadName();
            if (name.empty())
                Fail(Format("unexpected character '%s' in tag <%s>", AnsiString(1, c), tag.Name), FLine);
            SkipBlanks();
            AnsiString value;
            if (FPos < FText.size() && FText[FPos] == '=') {
                ++FPos;
                SkipBlanks();
                value = ReadQuoted(tag);
            }
            tag.Attributes.emplace_back(name, value);
        }
    }

    AnsiString ReadQuoted(const TXmlTag& tag)
    {
        const int line = FLine;
        if (FPos >= FText.size() || (FText[FPos] != '"' && FText[FPos] != '\''))
            Fail("an attribute value without quotes in tag <" + tag.Name + ">", line);
        const char quote = FText[FPos];
        const std::size_t end = FText.find(quote, FPos + 1);
        if (end == std::string_view::npos)
            Fail("unterminated attribute value in tag <" + tag.Name + ">", line);
        const std::string_view raw = FText.substr(FPos + 1, end - FPos - 1);
        Advance(end + 1);
        return DecodeEntities(raw);
    }

    std::string_view FText;
    AnsiString FSource;
    std::size_t FPos = 0;
    int FLine = 1;
};

AnsiString ProjectPath(const AnsiString& written)
{
    AnsiString path = Trim(written);
    for (char& c : path)
        if (c == '\\')
            c = '/';
    return path;
}

// The MSBuild items that are files of the project (not its form resources
// or build settings).
bool IsModuleItem(const AnsiString& tagName)
{
    static const std::array<const char*, 7> items = {"CppCompile", "CCompile",  "DelphiCompile", "PasCompile",
                                                     "ResourceCompile", "ResFiles", "LibFiles"};
    for (const char* item : items)
        if (SameText(tagName, item))
            return true;
    return false;
}

}  // namespace

std::vector<TProjectFileEntry> ParseProjectFile(std::string_view text, const AnsiString& source)
{
    std::vector<TProjectFileEntry> entries;
    int openItem = -1;   // index of the MSBuild item whose children are being read
    TXmlScanner(text, source).Run([&](const TXmlTag& tag, std::string_view before) {
        if (tag.Closing) {
            if (openItem >= 0 && SameText(tag.Name, "Form"))
                entries[static_cast<std::size_t>(openItem)].FormName = Trim(DecodeEntities(before));
            else if (openItem >= 0 && IsModuleItem(tag.Name))
                openItem = -1;
            return;
        }
        if (SameText(tag.Name, "FILE") && !tag.Attribute("FILENAME").empty()) {
            entries.push_back({ProjectPath(tag.Attribute("FILENAME")), Trim(tag.Attribute("FORMNAME")),
                               Trim(tag.Attribute("UNITNAME")), tag.Line});
        } else if (IsModuleItem(tag.Name) && !tag.Attribute("Include").empty()) {
            entries.push_back({ProjectPath(tag.Attribute("Include")), {}, {}, tag.Line});
            openItem = tag.SelfClosing ? -1 : static_cast<int>(entries.size()) - 1;
        }
    });
    return entries;
}

std::vector<TProjectFileEntry> ReadProjectFile(const AnsiString& fileName)
{
    return ParseProjectFile(ReadFileBytes(fileName), fileName);
}

bool IsProjectFileName(const AnsiString& fileName)
{
    const AnsiString ext = ExtractFileExt(fileName);
    return SameText(ext, ".bpr") || SameText(ext, ".bpk") || SameText(ext, ".cbproj");
}
