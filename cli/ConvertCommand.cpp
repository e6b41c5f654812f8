#include "cli/ConvertCommand.h"

#include "cli/CommandUsage.h"
#include "rtl/CodePageGuess.h"
#include "rtl/FormText.h"
#include "rtl/Parser.h"
#include "rtl/Streams.h"
#include "rtl/SysUtils.h"

#include <optional>
#include <sys/stat.h>

namespace {

const char* const ConvertUsage =
    "Usage: qzpkg convert --to text|binary|resource [options] IN OUT\n"
    "\n"
    "Reads the form IN in any of the three formats and writes it to OUT in the\n"
    "format asked for. OUT is replaced atomically; IN may equal OUT.\n"
    "\n"
    "What the input shows of how it was written is kept, so a form converted\n"
    "to the other format and back comes back the same: a text form's line\n"
    "breaks, float style and UTF-8 (read as such), and whether it comes from a\n"
    "later IDE generation (18-decimal floats, #nnnn escapes and no raw 8-bit\n"
    "characters), whose binary strings beyond ASCII are UTF-8; a binary form's\n"
    "UTF-8 strings and floats that only 18 decimals bring back as floats. A\n"
    "binary form holds no line breaks: text from it has CRLF unless told. The\n"
    "options below choose instead.\n"
    "\n"
    "Options:\n"
    "  --to FORMAT           text, binary (a bare TPF0 stream) or resource\n"
    "  --high-chars MODE     how text shows characters above 127:\n"
    "                          raw     code page bytes as they are (default;\n"
    "                                  utf8 when the text input is UTF-8)\n"
    "                          escape  #nnnn escapes of their Unicode values\n"
    "                          utf8    the text is UTF-8\n"
    "  --code-page N|auto    code page of the form's 8-bit strings (default\n"
    "                        1252); auto guesses it from the bytes among 1252,\n"
    "                        1250, 1251, 1253, 936, 950, 932 and 949 and says\n"
    "                        which on standard error\n"
    "  --line-break STYLE    crlf or lf, for text output (default: the input's,\n"
    "                        crlf from binary)\n"
    "  --floats STYLE        short (up to 15 digits: 0.5) or fixed (18 decimals:\n"
    "                        0.500000000000000000), for text output\n"
    "  --wide-strings KIND   utf16 or utf8: how binary output stores strings\n"
    "                        that do not fit in 8 bits\n"
    "  --utf8-strings        the same as --wide-strings utf8\n";

struct TConvertArgs {
    TFormFormat To = TFormFormat::Unknown;
    bool GuessCodePage = false;
    // What the user chose; the rest comes from the input.
    std::optional<THighChars> HighChars;
    std::optional<int> CodePage;
    std::optional<AnsiString> LineBreak;
    std::optional<TFloatText> Floats;
    std::optional<bool> Utf8Strings;
    std::string In, Out;
};

// One option's value among its names; false when it is none of them.
template <typename T>
bool Choose(const std::string& value, std::initializer_list<std::pair<const char*, T>> names, std::optional<T>& into)
{
    for (const auto& [name, v] : names)
        if (value == name) {
            into = v;
            return true;
        }
    return false;
}

// Returns an empty string when the arguments are good, else the complaint.
std::string ParseArgs(const std::vector<std::string>& args, TConvertArgs& parsed)
{
    std::vector<std::string> files;
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        std::string v;
        const bool hasValue = i + 1 < args.size();
        if (a == "--to" || a == "--high-chars" || a == "--code-page" || a == "--line-break" || a == "--floats" ||
            a == "--wide-strings") {
            if (!hasValue)
                return a + " needs a value";
            v = args[++i];
        }
        if (a == "--to") {
            parsed.To = v == "text" ? TFormFormat::Text : v == "binary" ? TFormFormat::Binary
                      : v == "resource" ? TFormFormat::Resource : TFormFormat::Unknown;
            if (parsed.To == TFormFormat::Unknown)
                return "unknown format '" + v + "' (text, binary or resource)";
        } else if (a == "--high-chars") {
            if (!Choose(v, {{"raw", THighChars::Raw}, {"escape", THighChars::Escape}, {"utf8", THighChars::Utf8}},
                        parsed.HighChars))
                return "unknown --high-chars mode '" + v + "' (raw, escape or utf8)";
        } else if (a == "--code-page") {
            int codePage = 0;
            if (v == "auto")
                parsed.GuessCodePage = true;
            else if (TryStrToInt(v, codePage) && codePage > 0)
                parsed.CodePage = codePage;
            else
                return "--code-page needs a code page number or auto";
        } else if (a == "--line-break") {
            if (!Choose<AnsiString>(v, {{"crlf", "\r\n"}, {"lf", "\n"}}, parsed.LineBreak))
                return "--line-break takes crlf or lf";
        } else if (a == "--floats") {
            if (!Choose(v, {{"short", TFloatText::General}, {"fixed", TFloatText::Fixed18}}, parsed.Floats))
                return "--floats takes short or fixed";
        } else if (a == "--wide-strings") {
            if (!Choose(v, {{"utf16", false}, {"utf8", true}}, parsed.Utf8Strings))
                return "--wide-strings takes utf16 or utf8";
        } else if (a == "--utf8-strings") {
            parsed.Utf8Strings = true;
        } else if (a.size() > 1 && a[0] == '-') {
            return "unknown option '" + a + "'";
        } else {
            files.push_back(a);
        }
    }
    if (parsed.To == TFormFormat::Unknown)
        return "--to is required";
    if (files.size() != 2)
        return "expected IN and OUT files";
    parsed.In = files[0];
    parsed.Out = files[1];
    return {};
}

// The input's own options, then the user's choices over them.
TFormTextOptions OptionsFor(std::string_view input, const TConvertArgs& parsed, std::FILE* err)
{
    TFormTextOptions options = DetectFormTextOptions(input);
    if (parsed.GuessCodePage) {
        const TCodePageGuess guess = GuessCodePage(FormHighStrings(input));
        options.CodePage = guess.CodePage;
        if (guess.Bytes == 0)
            std::fprintf(err, "qzpkg convert: %s: no characters above 127; code page %d\n", parsed.In.c_str(),
                         guess.CodePage);
        else
            std::fprintf(err, "qzpkg convert: %s: code page %d, guessed from %zu bytes above 127\n",
                         parsed.In.c_str(), guess.CodePage, guess.Bytes);
    }
    options.HighChars = parsed.HighChars.value_or(options.HighChars);
    options.CodePage = parsed.CodePage.value_or(options.CodePage);
    options.LineBreak = parsed.LineBreak.value_or(options.LineBreak);
    options.Floats = parsed.Floats.value_or(options.Floats);
    options.Utf8Strings = parsed.Utf8Strings.value_or(options.Utf8Strings);
    return options;
}

// Converting a file over itself leaves no other copy of the form, so only
// then does the write wait for the disk; otherwise the input is still there
// to convert again, and scripts converting many files do not wait per file.
bool SameFile(const std::string& a, const std::string& b)
{
    struct stat sa {}, sb {};
    return ::stat(a.c_str(), &sa) == 0 && ::stat(b.c_str(), &sb) == 0 && sa.st_dev == sb.st_dev &&
           sa.st_ino == sb.st_ino;
}

} // namespace

int RunConvert(const std::vector<std::string>& args, std::FILE* out, std::FILE* err)
{
    if (QzWroteUsage(args, ConvertUsage, out))
        return 0;
    TConvertArgs parsed;
    std::string complaint = ParseArgs(args, parsed);
    if (!complaint.empty()) {
        std::fprintf(err, "qzpkg convert: %s\n\n%s", complaint.c_str(), ConvertUsage);
        return 1;
    }
    try {
        const bool inPlace = SameFile(parsed.In, parsed.Out);
        const TMappedFile file(parsed.In);
        const std::string_view input = file.Bytes();
        const TFormTextOptions options = OptionsFor(input, parsed, err);
        std::string output;
        switch (parsed.To) {
        case TFormFormat::Text:
            output = FormToText(input, options);
            break;
        case TFormFormat::Binary:
            output = FormToBinary(input, options);
            break;
        default:
            output = FormBinaryToResource(FormToBinary(input, options));
        }
        WriteFileAtomic(parsed.Out, output, {}, inPlace);
    } catch (const Exception& e) {
        std::fprintf(err, "qzpkg convert: %s: %s\n", parsed.In.c_str(), e.Message().c_str());
        return 1;
    }
    return 0;
}
