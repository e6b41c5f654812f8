#include "cli/ConvertCommand.h"

#include "rtl/FormText.h"
#include "rtl/Parser.h"
#include "rtl/SysUtils.h"

namespace {

const char* const ConvertUsage =
    "Usage: qzpkg convert --to text|binary|resource [options] IN OUT\n"
    "\n"
    "Reads the form IN in any of the three formats and writes it to OUT in the\n"
    "format asked for. OUT is replaced atomically; IN may equal OUT.\n"
    "\n"
    "Options:\n"
    "  --to FORMAT          text, binary (a bare TPF0 stream) or resource\n"
    "  --high-chars MODE    how text shows characters above 127:\n"
    "                         raw     code page bytes as they are (default)\n"
    "                         escape  #nnnn escapes of their Unicode values\n"
    "                         utf8    the text is UTF-8\n"
    "  --code-page N        code page of the form's 8-bit strings (default 1252)\n"
    "  --line-break STYLE   crlf (default) or lf, for text output\n"
    "  --utf8-strings       store strings beyond the code page as UTF-8 (as later\n"
    "                       IDE generations do) instead of UTF-16\n";

struct TConvertArgs {
    TFormFormat To = TFormFormat::Unknown;
    TFormTextOptions Options;
    std::string In, Out;
};

// Returns an empty string when the arguments are good, else the complaint.
std::string ParseArgs(const std::vector<std::string>& args, TConvertArgs& parsed)
{
    std::vector<std::string> files;
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& a = args[i];
        auto value = [&](std::string& v) {
            if (i + 1 >= args.size())
                return false;
            v = args[++i];
            return true;
        };
        std::string v;
        if (a == "--to") {
            if (!value(v))
                return "--to needs a format";
            parsed.To = v == "text" ? TFormFormat::Text : v == "binary" ? TFormFormat::Binary
                      : v == "resource" ? TFormFormat::Resource : TFormFormat::Unknown;
            if (parsed.To == TFormFormat::Unknown)
                return "unknown format '" + v + "' (text, binary or resource)";
        } else if (a == "--high-chars") {
            if (!value(v))
                return "--high-chars needs a mode";
            if (v == "raw")
                parsed.Options.HighChars = THighChars::Raw;
            else if (v == "escape")
                parsed.Options.HighChars = THighChars::Escape;
            else if (v == "utf8")
                parsed.Options.HighChars = THighChars::Utf8;
            else
                return "unknown --high-chars mode '" + v + "' (raw, escape or utf8)";
        } else if (a == "--code-page") {
            if (!value(v) || !TryStrToInt(v, parsed.Options.CodePage) || parsed.Options.CodePage <= 0)
                return "--code-page needs a code page number";
        } else if (a == "--line-break") {
            if (!value(v) || (v != "crlf" && v != "lf"))
                return "--line-break takes crlf or lf";
            parsed.Options.LineBreak = v == "lf" ? "\n" : "\r\n";
        } else if (a == "--utf8-strings") {
            parsed.Options.Utf8Strings = true;
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

} // namespace

int RunConvert(const std::vector<std::string>& args, std::FILE* out, std::FILE* err)
{
    for (const std::string& a : args)
        if (a == "--help" || a == "-h") {
            std::fputs(ConvertUsage, out);
            return 0;
        }
    TConvertArgs parsed;
    std::string complaint = ParseArgs(args, parsed);
    if (!complaint.empty()) {
        std::fprintf(err, "qzpkg convert: %s\n\n%s", complaint.c_str(), ConvertUsage);
        return 1;
    }
    try {
        std::string input = ReadFileBytes(parsed.In);
        std::string output;
        switch (parsed.To) {
        case TFormFormat::Text:
            output = FormToText(input, parsed.Options);
            break;
        case TFormFormat::Binary:
            output = FormToBinary(input, parsed.Options);
            break;
        default:
            output = FormBinaryToResource(FormToBinary(input, parsed.Options));
        }
        WriteFileAtomic(parsed.Out, output);
    } catch (const Exception& e) {
        std::fprintf(err, "qzpkg convert: %s: %s\n", parsed.In.c_str(), e.Message().c_str());
        return 1;
    }
    return 0;
}
