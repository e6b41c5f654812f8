#include "runtime/util/QzRtf.h"

#include "rtl/CodePage.h"

#include <cctype>
#include <cmath>
#include <map>
#include <string_view>
#include <unordered_map>

namespace {

constexpr char32_t LineSeparator = 0x2028;

// Where the text of a group goes.
enum class TDest { Body, FontTable, ColorTable, Skip };

// What a group saves and its closing brace gives back.
struct TGroup {
    TDest Dest = TDest::Body;
    int Font = -1;       // index in the font table; -1: the default
    int HalfPoints = 0;  // 0: the default size
    bool Bold = false;
    bool Italic = false;
    bool Underline = false;
    int Color = 0;       // index in the colour table; 0: automatic
    int Uc = 1;          // characters that stand in for a \u character
    bool Starred = false;  // \* met: an unknown destination that follows is skipped
};

// Destinations whose text is not the document's. pntext and listtext are
// the bullet a word processor draws: their paragraph is a bulleted one.
const std::unordered_map<std::string_view, bool>& SkippedDestinations()
{
    static const std::unordered_map<std::string_view, bool> names = {
        {"stylesheet", false}, {"info", false}, {"pict", false}, {"header", false}, {"headerl", false},
        {"headerr", false}, {"headerf", false}, {"footer", false}, {"footerl", false}, {"footerr", false},
        {"footerf", false}, {"footnote", false}, {"fldinst", false}, {"object", false}, {"listtable", false},
        {"listoverridetable", false}, {"rsidtbl", false}, {"generator", false}, {"xmlnstbl", false},
        {"pntxtb", false}, {"pntxta", false}, {"filetbl", false}, {"revtbl", false}, {"themedata", false},
        {"colorschememapping", false}, {"latentstyles", false}, {"datastore", false}, {"bkmkstart", false},
        {"bkmkend", false}, {"annotation", false}, {"atnid", false}, {"atnauthor", false}, {"xe", false},
        {"tc", false}, {"txe", false}, {"pntext", true}, {"listtext", true}, {"nonshppict", false},
        {"shppict", false}, {"shp", false}, {"userprops", false}, {"docvar", false}, {"template", false},
    };
    return names;
}

// Underlines other than the plain one: for the subset they are all one.
const std::unordered_map<std::string_view, bool>& UnderlineKinds()
{
    static const std::unordered_map<std::string_view, bool> names = {
        {"uld", true},   {"uldash", true},    {"uldashd", true},    {"uldashdd", true},   {"uldb", true},
        {"ulhwave", true}, {"ulldash", true}, {"ulth", true},       {"ulthd", true},      {"ulthdash", true},
        {"ulthdashd", true}, {"ulthdashdd", true}, {"ulthldash", true}, {"ululdbwave", true}, {"ulw", true},
        {"ulwave", true},
    };
    return names;
}

// Characters named by a control word.
const std::unordered_map<std::string_view, char32_t>& NamedCharacters()
{
    static const std::unordered_map<std::string_view, char32_t> names = {
        {"tab", U'\t'},       {"line", LineSeparator}, {"emdash", 0x2014},    {"endash", 0x2013},
        {"lquote", 0x2018},   {"rquote", 0x2019},      {"ldblquote", 0x201C}, {"rdblquote", 0x201D},
        {"bullet", 0x2022},   {"emspace", 0x2003},     {"enspace", 0x2002},   {"qmspace", 0x2005},
        {"cell", U'\t'},
    };
    return names;
}

class TRtfReader {
public:
    explicit TRtfReader(const AnsiString& text) : FText(text) {}
    TQzRtfDocument Read();

private:
    [[noreturn]] void Fail(const AnsiString& why) const;
    void ControlWord(const std::string& word, bool hasParam, int param);
    void ControlSymbol(char c);
    void OpenGroup();
    void CloseGroup();
    // Text bytes wait here until the next control, so that a character of
    // two bytes (\'hh\'hh) decodes whole.
    void TextByte(char c);
    void Flush();
    void Emit(const AnsiString& utf8);
    void EmitChar(char32_t c);
    void EndParagraph();
    TQzRtfCharFormat Format() const;

    const AnsiString& FText;
    size_t FPos = 0;
    int FLine = 1;
    std::vector<TGroup> FStack;
    TGroup FState;
    int FCodePage = 1252;
    int FDefaultFont = 0;
    int FSkipChars = 0;
    char16_t FHighSurrogate = 0;
    std::string FPending;
    std::map<int, AnsiString> FFonts;
    int FFontEntry = 0;
    AnsiString FFontName;
    std::vector<std::optional<std::uint32_t>> FColors;
    int FRed = -1, FGreen = -1, FBlue = -1;
    TQzRtfParagraph FParagraph;
    TQzRtfDocument FDocument;
};

void TRtfReader::Fail(const AnsiString& why) const
{
    throw EQzRtfError("The rich text is not valid RTF in line " + IntToStr(FLine) + ": " + why + ".");
}

TQzRtfDocument TRtfReader::Read()
{
    size_t start = 0;
    while (start < FText.size() && std::isspace(static_cast<unsigned char>(FText[start])))
        if (FText[start++] == '\n')
            ++FLine;
    if (FText.compare(start, 5, "{\\rtf") != 0)
        Fail("it does not start with {\\rtf");
    FPos = start;
    while (FPos < FText.size()) {
        const char c = FText[FPos++];
        if (c == '{') {
            OpenGroup();
        } else if (c == '}') {
            CloseGroup();
            if (FStack.empty())
                break;
        } else if (c == '\\') {
            if (FPos >= FText.size())
                Fail("it ends in a backslash");
            const char next = FText[FPos];
            if (std::isalpha(static_cast<unsigned char>(next))) {
                std::string word;
                while (FPos < FText.size() && std::isalpha(static_cast<unsigned char>(FText[FPos])) && word.size() < 32)
                    word += FText[FPos++];
                bool negative = false;
                if (FPos < FText.size() && FText[FPos] == '-') {
                    negative = true;
                    ++FPos;
                }
                bool hasParam = false;
                long long param = 0;
                while (FPos < FText.size() && std::isdigit(static_cast<unsigned char>(FText[FPos]))) {
                    hasParam = true;
                    if (param < 100000000)
                        param = param * 10 + (FText[FPos] - '0');
                    ++FPos;
                }
                if (FPos < FText.size() && FText[FPos] == ' ')
                    ++FPos;
                ControlWord(word, hasParam, static_cast<int>(negative ? -param : param));
            } else {
                ++FPos;
                ControlSymbol(next);
            }
        } else if (c == '\n' || c == '\r') {
            if (c == '\n')
                ++FLine;
        } else {
            TextByte(c);
        }
    }
    if (!FStack.empty())
        Fail("a group is not closed");
    Flush();
    if (!FParagraph.Runs.empty() || FDocument.Paragraphs.empty())
        EndParagraph();
    return std::move(FDocument);
}

void TRtfReader::OpenGroup()
{
    Flush();
    FSkipChars = 0;
    FStack.push_back(FState);
    FState.Starred = false;
}

void TRtfReader::CloseGroup()
{
    Flush();
    FSkipChars = 0;
    if (FStack.empty())
        Fail("a group is closed that was never opened");
    // A font or colour entry in a group of its own ends with the group.
    if (FState.Dest == TDest::FontTable && !FFontName.empty())
        FFonts[FFontEntry] = Trim(CodePageToUtf8(FFontName, FCodePage));
    FFontName.clear();
    FState = FStack.back();
    FStack.pop_back();
}

void TRtfReader::TextByte(char c)
{
    if (FSkipChars > 0) {
        --FSkipChars;
        return;
    }
    if (FState.Dest == TDest::FontTable) {
        if (c == ';') {
            FFonts[FFontEntry] = Trim(CodePageToUtf8(FFontName, FCodePage));
            FFontName.clear();
        } else {
            FFontName += c;
        }
        return;
    }
    if (FState.Dest == TDest::ColorTable) {
        if (c == ';') {
            if (FRed < 0 && FGreen < 0 && FBlue < 0)
                FColors.push_back(std::nullopt);
            else
                FColors.push_back((std::uint32_t(std::max(FRed, 0) & 0xFF) << 16) |
                                  (std::uint32_t(std::max(FGreen, 0) & 0xFF) << 8) | std::uint32_t(std::max(FBlue, 0) & 0xFF));
            FRed = FGreen = FBlue = -1;
        }
        return;
    }
    if (FState.Dest == TDest::Body)
        FPending += c;
}

void TRtfReader::Flush()
{
    if (FPending.empty())
        return;
    Emit(CodePageToUtf8(FPending, FCodePage));
    FPending.clear();
}

void TRtfReader::Emit(const AnsiString& utf8)
{
    if (FState.Dest != TDest::Body)
        return;
    // Control characters other than the tab have no meaning in a paragraph.
    AnsiString text;
    for (char c : utf8)
        if (static_cast<unsigned char>(c) >= 32 || c == '\t')
            text += c;
    QzRtfAddText(FParagraph, text, Format());
}

void TRtfReader::EmitChar(char32_t c)
{
    Flush();
    std::string utf8;
    AppendUtf8(utf8, c);
    Emit(utf8);
}

void TRtfReader::EndParagraph()
{
    Flush();
    FDocument.Paragraphs.push_back(std::move(FParagraph));
    const TQzRtfParagraph previous = FDocument.Paragraphs.back();
    // Paragraph properties last until \pard.
    FParagraph = TQzRtfParagraph();
    FParagraph.Align = previous.Align;
    FParagraph.Bullet = previous.Bullet;
}

TQzRtfCharFormat TRtfReader::Format() const
{
    TQzRtfCharFormat f;
    if (FState.Font >= 0 && FState.Font != FDefaultFont) {
        auto it = FFonts.find(FState.Font);
        if (it != FFonts.end())
            f.FontName = it->second;
    }
    f.PointSize = FState.HalfPoints / 2.0;
    f.Bold = FState.Bold;
    f.Italic = FState.Italic;
    f.Underline = FState.Underline;
    if (FState.Color > 0 && FState.Color < int(FColors.size()))
        f.Color = FColors[size_t(FState.Color)];
    return f;
}

void TRtfReader::ControlSymbol(char c)
{
    switch (c) {
    case '\'': {
        if (FPos + 2 > FText.size())
            Fail("a \\' is not followed by two hexadecimal digits");
        const std::string hex = FText.substr(FPos, 2);
        FPos += 2;
        char* end = nullptr;
        const long value = std::strtol(hex.c_str(), &end, 16);
        if (end != hex.c_str() + 2)
            Fail("\\'" + hex + " is not a character in hexadecimal");
        TextByte(static_cast<char>(value));
        return;
    }
    case '*':
        FState.Starred = true;
        return;
    case '~':
        EmitChar(0x00A0);
        return;
    case '_':
        EmitChar(0x2011);
        return;
    case '-':
        return;
    case '\n':  // a backslash before a line break is a paragraph mark
    case '\r':
        if (c == '\n')
            ++FLine;
        if (FState.Dest == TDest::Body)
            EndParagraph();
        return;
    default:
        TextByte(c);  // \\, \{, \} and anything else stand for themselves
    }
}

void TRtfReader::ControlWord(const std::string& word, bool hasParam, int param)
{
    const bool first = FState.Starred;
    FState.Starred = false;
    Flush();
    if (word == "u") {
        // The characters that follow stand in for readers without Unicode.
        char32_t c = static_cast<char16_t>(param);
        FSkipChars = FState.Uc;
        if (c >= 0xD800 && c < 0xDC00) {
            FHighSurrogate = static_cast<char16_t>(c);
            return;
        }
        if (c >= 0xDC00 && c < 0xE000 && FHighSurrogate)
            c = 0x10000 + ((char32_t(FHighSurrogate) - 0xD800) << 10) + (c - 0xDC00);
        FHighSurrogate = 0;
        EmitChar(c);
        return;
    }
    FSkipChars = 0;
    if (FState.Dest == TDest::Skip)
        return;
    if (word == "rtf")
        return;
    if (word == "fonttbl") {
        FState.Dest = TDest::FontTable;
        return;
    }
    if (word == "colortbl") {
        FState.Dest = TDest::ColorTable;
        return;
    }
    const auto& skipped = SkippedDestinations();
    if (auto it = skipped.find(word); it != skipped.end()) {
        if (it->second)
            FParagraph.Bullet = true;
        FState.Dest = TDest::Skip;
        return;
    }
    if (first && word != "pn") {
        // An optional destination this reader does not know.
        FState.Dest = TDest::Skip;
        return;
    }
    if (FState.Dest == TDest::FontTable) {
        if (word == "f") {
            FFontEntry = param;
            FFontName.clear();
        }
        return;
    }
    if (FState.Dest == TDest::ColorTable) {
        if (word == "red")
            FRed = param;
        else if (word == "green")
            FGreen = param;
        else if (word == "blue")
            FBlue = param;
        return;
    }
    // A word processor's old-style bullet description.
    if (word == "pn")
        return;
    if (word == "pnlvlblt") {
        FParagraph.Bullet = true;
        return;
    }
    const bool on = !hasParam || param != 0;
    if (word == "ansicpg")
        FCodePage = param;
    else if (word == "deff")
        FDefaultFont = param;
    else if (word == "uc")
        FState.Uc = std::max(0, param);
    else if (word == "plain") {
        FState.Font = -1;
        FState.HalfPoints = 0;
        FState.Bold = FState.Italic = FState.Underline = false;
        FState.Color = 0;
    } else if (word == "f")
        FState.Font = param;
    else if (word == "fs")
        FState.HalfPoints = std::max(0, param);
    else if (word == "b")
        FState.Bold = on;
    else if (word == "i")
        FState.Italic = on;
    else if (word == "ulnone")
        FState.Underline = false;
    else if (word == "ul" || UnderlineKinds().count(word))
        FState.Underline = on;
    else if (word == "cf")
        FState.Color = param;
    else if (word == "pard") {
        FParagraph.Align = TQzRtfAlign::Left;
        FParagraph.Bullet = false;
    } else if (word == "ql")
        FParagraph.Align = TQzRtfAlign::Left;
    else if (word == "qc")
        FParagraph.Align = TQzRtfAlign::Center;
    else if (word == "qr")
        FParagraph.Align = TQzRtfAlign::Right;
    else if (word == "qj")
        FParagraph.Align = TQzRtfAlign::Justify;
    else if (word == "ls" && param > 0)
        FParagraph.Bullet = true;
    else if (word == "par" || word == "sect" || word == "page" || word == "row")
        EndParagraph();
    else if (auto it = NamedCharacters().find(word); it != NamedCharacters().end())
        EmitChar(it->second);
    // Every other word (page set-up, spacing, languages ...) has no place in
    // the document and is passed over.
}

// ---- writing ---------------------------------------------------------------

AnsiString EscapeText(const AnsiString& text)
{
    AnsiString out;
    const char* p = text.data();
    const char* end = p + text.size();
    while (p < end) {
        const char32_t c = NextUtf8(p, end);
        if (c == '\\' || c == '{' || c == '}') {
            out += '\\';
            out += static_cast<char>(c);
        } else if (c == '\t') {
            out += "\\tab ";
        } else if (c == LineSeparator || c == '\n') {
            out += "\\line ";
        } else if (c >= 32 && c < 127) {
            out += static_cast<char>(c);
        } else if (c >= 127) {
            std::u16string units;
            if (c >= 0x10000) {
                units.push_back(static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10)));
                units.push_back(static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF)));
            } else {
                units.push_back(static_cast<char16_t>(c));
            }
            for (char16_t u : units)
                out += "\\u" + IntToStr(static_cast<int16_t>(u)) + "?";
        }
        // Other control characters have no meaning in a paragraph.
    }
    return out;
}

// A font name in the table: code page bytes, the characters that would end
// the entry or a group left out.
AnsiString FontEntryName(const AnsiString& name)
{
    static const char digits[] = "0123456789abcdef";
    std::string bytes;
    if (!Utf8ToCodePage(name, 1252, bytes))
        bytes = "?";
    AnsiString out;
    for (char ch : bytes) {
        const auto b = static_cast<unsigned char>(ch);
        if (b == ';' || b == '{' || b == '}' || b == '\\' || b < 32)
            continue;
        if (b >= 128)
            out += AnsiString("\\'") + digits[b >> 4] + digits[b & 15];
        else
            out += ch;
    }
    return out;
}

}  // namespace

AnsiString TQzRtfDocument::PlainText() const
{
    AnsiString text;
    for (size_t i = 0; i < Paragraphs.size(); ++i) {
        if (i > 0)
            text += '\n';
        for (const TQzRtfRun& run : Paragraphs[i].Runs)
            text += run.Text;
    }
    return text;
}

void QzRtfAddText(TQzRtfParagraph& paragraph, const AnsiString& text, const TQzRtfCharFormat& format)
{
    if (text.empty())
        return;
    if (!paragraph.Runs.empty() && paragraph.Runs.back().Format == format)
        paragraph.Runs.back().Text += text;
    else
        paragraph.Runs.push_back({text, format});
}

bool QzIsRtf(const AnsiString& text)
{
    const size_t start = text.find_first_not_of(" \t\r\n");
    return start != std::string::npos && text.compare(start, 5, "{\\rtf") == 0;
}

TQzRtfDocument QzReadRtf(const AnsiString& text)
{
    return TRtfReader(text).Read();
}

AnsiString QzWriteRtf(const TQzRtfDocument& document)
{
    // Entry 0 of each table is the default; the runs' fonts and colours
    // follow in the order they are first used.
    std::vector<AnsiString> fonts;
    std::vector<std::uint32_t> colors;
    auto indexOf = [](auto& table, const auto& value) {
        for (size_t i = 0; i < table.size(); ++i)
            if (table[i] == value)
                return int(i) + 1;
        table.push_back(value);
        return int(table.size());
    };
    AnsiString body;
    for (const TQzRtfParagraph& paragraph : document.Paragraphs) {
        body += "\\pard";
        switch (paragraph.Align) {
        case TQzRtfAlign::Left: break;
        case TQzRtfAlign::Center: body += "\\qc"; break;
        case TQzRtfAlign::Right: body += "\\qr"; break;
        case TQzRtfAlign::Justify: body += "\\qj"; break;
        }
        if (paragraph.Bullet)
            body += "{\\pntext\\'95\\tab}{\\*\\pn\\pnlvlblt\\pnindent0{\\pntxtb\\'95}}\\fi-360\\li720";
        body += ' ';
        // Runs are merged again after the writer drops what a paragraph
        // cannot hold, so that reading gives the runs written.
        std::vector<TQzRtfRun> runs;
        for (const TQzRtfRun& run : paragraph.Runs) {
            const AnsiString text = EscapeText(run.Text);
            if (text.empty())
                continue;
            // Fonts are told apart by the name the table holds, so two names
            // that write alike are one font; a name the table cannot hold
            // is the default font.
            TQzRtfCharFormat format = run.Format;
            const AnsiString entry = FontEntryName(format.FontName);
            format.FontName = Trim(entry).empty() ? AnsiString() : entry;
            if (!runs.empty() && runs.back().Format == format)
                runs.back().Text += text;
            else
                runs.push_back({text, format});
        }
        for (const TQzRtfRun& run : runs) {
            const TQzRtfCharFormat& f = run.Format;
            AnsiString props;
            if (!f.FontName.empty())
                props += "\\f" + IntToStr(indexOf(fonts, f.FontName));
            if (f.PointSize > 0)
                props += "\\fs" + IntToStr(static_cast<int>(std::lround(f.PointSize * 2)));
            if (f.Bold)
                props += "\\b";
            if (f.Italic)
                props += "\\i";
            if (f.Underline)
                props += "\\ul";
            if (f.Color)
                props += "\\cf" + IntToStr(indexOf(colors, *f.Color));
            body += "{" + props + (props.empty() ? "" : " ") + run.Text + "}";
        }
        body += "\\par\n";
    }
    AnsiString rtf = "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1\n{\\fonttbl{\\f0\\fnil MS Sans Serif;}";
    for (size_t i = 0; i < fonts.size(); ++i)
        rtf += "{\\f" + IntToStr(int(i) + 1) + "\\fnil " + fonts[i] + ";}";
    rtf += "}\n{\\colortbl ;";
    for (std::uint32_t c : colors)
        rtf += "\\red" + IntToStr(int((c >> 16) & 0xFF)) + "\\green" + IntToStr(int((c >> 8) & 0xFF)) + "\\blue" +
               IntToStr(int(c & 0xFF)) + ";";
    rtf += "}\n" + body + "}\n";
    return rtf;
}
