// qzpkg convert as a user runs it: files in, files out, exit codes and
// messages.

#include "QzpkgRun.h"
#include "rtl/FormText.h"
#include "rtl/Streams.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

class ConvertCommand : public ::testing::Test {
protected:
    void SetUp() override
    {
        Dir = fs::temp_directory_path() / ("qzpkg-convert-" + std::to_string(::getpid()));
        fs::create_directories(Dir);
    }
    void TearDown() override { fs::remove_all(Dir); }
    std::string PathOf(const std::string& name) { return (Dir / name).string(); }
    void Write(const std::string& name, const std::string& bytes) { WriteFileAtomic(PathOf(name), bytes); }

    fs::path Dir;
};

const char* const Form = "object Form1: TForm1\r\n  Caption = 'caf\xE9'\r\n  Tag = 5\r\nend\r\n";

} // namespace

TEST_F(ConvertCommand, ConvertsThroughEveryFormatAndBack)
{
    Write("a.dfm", Form);
    EXPECT_EQ(Qzpkg({"convert", "--to", "binary", PathOf("a.dfm"), PathOf("b.dfm")}).Code, 0);
    EXPECT_EQ(DetectFormFormat(ReadFileBytes(PathOf("b.dfm"))), TFormFormat::Binary);
    EXPECT_EQ(Qzpkg({"convert", "--to", "resource", PathOf("b.dfm"), PathOf("c.dfm")}).Code, 0);
    EXPECT_EQ(DetectFormFormat(ReadFileBytes(PathOf("c.dfm"))), TFormFormat::Resource);
    EXPECT_EQ(Qzpkg({"convert", "--to", "text", PathOf("c.dfm"), PathOf("d.dfm")}).Code, 0);
    EXPECT_EQ(ReadFileBytes(PathOf("d.dfm")), Form);
}

// A form converted to the other format and back with no options comes back
// the same, and the binary in between holds the string kinds its writer
// would have written.
TEST_F(ConvertCommand, KeepsWhatTheInputShowsOfItsWriter)
{
    TFormTextOptions utf8Strings;
    utf8Strings.Utf8Strings = true;
    TFormTextOptions laterGeneration = utf8Strings;
    laterGeneration.Floats = TFloatText::Fixed18;
    struct Case {
        const char* name;
        std::string text;
        TFormTextOptions writtenWith;  // the binary's string kinds and the text's style
    } cases[] = {
        {"8-bit characters raw, a wide string escaped, short floats: UTF-16 in binary",
         "object F: TF\r\n  Caption = 'caf\xE9'\r\n  Hint = 'x'#1234\r\n  Scale = 0.5\r\nend\r\n", {}},
        {"every character above 127 escaped: UTF-8 in binary",
         "object F: TF\r\n  Caption = 'caf'#233\r\nend\r\n", utf8Strings},
        {"18-decimal floats: UTF-8 in binary, and the floats stay as they are",
         "object F: TF\r\n  Margin = 2.000000000000000000\r\n  Scale = 0.500000000000000000\r\n"
         "  Caption = 'x'#1234\r\nend\r\n",
         laterGeneration},
        {"a whole float: only 18 decimals bring it back as a float",
         "object F: TF\r\n  Margin = 2.000000000000000000\r\nend\r\n", laterGeneration},
        {"an escape inside quotes is text, not a character",
         "object F: TF\r\n  Caption = 'Item #200'\r\n  Hint = 'x'#1234\r\n  Scale = 0.5\r\nend\r\n", {}},
        {"single and date values tell nothing of the style",
         "object F: TF\r\n  A = 1.5s\r\n  B = 45000.5d\r\n  Hint = 'x'#1234\r\nend\r\n", utf8Strings},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const std::string binary = FormTextToBinary(c.text, c.writtenWith);
        Write("t.dfm", c.text);
        ASSERT_EQ(Qzpkg({"convert", "--to", "binary", PathOf("t.dfm"), PathOf("t.bin")}).Code, 0);
        EXPECT_EQ(ReadFileBytes(PathOf("t.bin")), binary);
        ASSERT_EQ(Qzpkg({"convert", "--to", "text", PathOf("t.bin"), PathOf("t2.dfm")}).Code, 0);
        EXPECT_EQ(ReadFileBytes(PathOf("t2.dfm")), c.text);

        Write("b.bin", binary);
        ASSERT_EQ(Qzpkg({"convert", "--to", "text", PathOf("b.bin"), PathOf("b.dfm")}).Code, 0);
        ASSERT_EQ(Qzpkg({"convert", "--to", "binary", PathOf("b.dfm"), PathOf("b.dfm")}).Code, 0);
        EXPECT_EQ(ReadFileBytes(PathOf("b.dfm")), binary);
    }
}

// Text whose bytes above 127 are UTF-8 characters is read as UTF-8; code
// page text, whose accented letters stand alone, is not.
TEST_F(ConvertCommand, ReadsUtf8TextAsUtf8)
{
    TFormTextOptions utf8Text;
    utf8Text.HighChars = THighChars::Utf8;
    struct Case {
        std::string text;
        TFormTextOptions readAs;
    } cases[] = {
        {"object F: TF\r\n  Caption = 'caf\xC3\xA9 \xD0\x96'\r\nend\r\n", utf8Text},
        {"object F: TF\r\n  Caption = 'caf\xE9 \xC3'\r\nend\r\n", {}},
        {"object F: TF\r\n  Caption = '\xC3\xA9\xE9'\r\nend\r\n", {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        Write("t.dfm", c.text);
        ASSERT_EQ(Qzpkg({"convert", "--to", "binary", PathOf("t.dfm"), PathOf("t.bin")}).Code, 0);
        EXPECT_EQ(ReadFileBytes(PathOf("t.bin")), FormTextToBinary(c.text, c.readAs));
    }
}

// The options choose over what the input shows.
TEST_F(ConvertCommand, OptionsOverrideWhatTheInputShows)
{
    const std::string later = "object F: TF\r\n  Margin = 2.000000000000000000\r\n  Caption = 'caf'#233\r\nend\r\n";
    const std::string older = "object F: TF\r\n  Hint = 'x'#1234\r\nend\r\n";
    TFormTextOptions utf16;
    TFormTextOptions utf8;
    utf8.Utf8Strings = true;
    struct Case {
        std::string input;
        std::vector<std::string> options;
        std::string expected;
    } cases[] = {
        {later, {"--to", "binary", "--wide-strings", "utf16"}, FormTextToBinary(later, utf16)},
        {older, {"--to", "binary", "--wide-strings", "utf8"}, FormTextToBinary(older, utf8)},
        {older, {"--to", "binary", "--utf8-strings"}, FormTextToBinary(older, utf8)},
        {FormTextToBinary(later, utf8), {"--to", "text", "--floats", "short"},
         "object F: TF\r\n  Margin = 2\r\n  Caption = 'caf'#233\r\nend\r\n"},
        {FormTextToBinary(older, utf16), {"--to", "text", "--floats", "fixed", "--line-break", "lf"},
         "object F: TF\n  Hint = 'x'#1234\nend\n"},
        {FormTextToBinary("object F: TF\r\n  Scale = 0.5\r\nend\r\n"), {"--to", "text", "--floats", "fixed"},
         "object F: TF\r\n  Scale = 0.500000000000000000\r\nend\r\n"},
        {FormTextToBinary(older, utf16), {"--to", "text", "--high-chars", "utf8"},
         "object F: TF\r\n  Hint = 'x\xD3\x92'\r\nend\r\n"},
        {FormTextToBinary(Form), {"--to", "text", "--high-chars", "escape"},
         "object Form1: TForm1\r\n  Caption = 'caf'#233\r\n  Tag = 5\r\nend\r\n"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.options[1] + " " + c.options[2]);
        Write("in.dfm", c.input);
        std::vector<std::string> args = {"convert"};
        args.insert(args.end(), c.options.begin(), c.options.end());
        args.push_back(PathOf("in.dfm"));
        args.push_back(PathOf("out.dfm"));
        const TQzpkgRun r = Qzpkg(args);
        ASSERT_EQ(r.Code, 0) << r.Err;
        EXPECT_EQ(ReadFileBytes(PathOf("out.dfm")), c.expected);
    }
}

// --code-page auto: the guess decodes the strings and is named on standard
// error, with the bytes it rests on.
TEST_F(ConvertCommand, GuessesTheCodePageAndSaysWhich)
{
    struct Case {
        std::string caption;  // in the code page
        const char* says;
        const char* utf8;  // the caption as UTF-8 text shows it
    } cases[] = {
        {"\xCF\xF0\xE8\xE2\xE5\xF2 \xEC\xE8\xF0", "code page 1251, guessed from 9 bytes above 127",
         "\xD0\x9F\xD1\x80\xD0\xB8\xD0\xB2\xD0\xB5\xD1\x82 \xD0\xBC\xD0\xB8\xD1\x80"},
        {"\xB1\xA3\xB4\xE6\xCE\xC4\xBC\xFE", "code page 936, guessed from 8 bytes above 127",
         "\xE4\xBF\x9D\xE5\xAD\x98\xE6\x96\x87\xE4\xBB\xB6"},
        {"plain", "no characters above 127; code page 1252", "plain"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.says);
        Write("in.dfm", "object F: TF\r\n  Caption = '" + c.caption + "'\r\nend\r\n");
        const TQzpkgRun r = Qzpkg({"convert", "--to", "binary", "--code-page", "auto", PathOf("in.dfm"), PathOf("b.dfm")});
        ASSERT_EQ(r.Code, 0) << r.Err;
        EXPECT_NE(r.Err.find(c.says), std::string::npos) << r.Err;
        const TQzpkgRun back = Qzpkg({"convert", "--to", "text", "--code-page", "auto", "--high-chars", "utf8",
                                      PathOf("b.dfm"), PathOf("u.dfm")});
        ASSERT_EQ(back.Code, 0) << back.Err;
        EXPECT_EQ(ReadFileBytes(PathOf("u.dfm")), "object F: TF\r\n  Caption = '" + std::string(c.utf8) + "'\r\nend\r\n");
    }
}

TEST_F(ConvertCommand, BadInputFailsWithTheFileAndLineAndWritesNothing)
{
    Write("bad.dfm", "object Form1: TForm1\r\n  Left = [1\r\nend\r\n");
    Write("cut.dfm", FormTextToBinary(Form).substr(0, 20));
    Write("out.dfm", "previous");
    const std::pair<std::string, std::string> cases[] = {
        {PathOf("bad.dfm"), PathOf("bad.dfm") + ": line 3: ',' expected"},
        {PathOf("cut.dfm"), "at offset"},
        {PathOf("missing.dfm"), "missing.dfm"},
        {Dir.string(), "Cannot read file " + Dir.string()},
    };
    for (const auto& [in, says] : cases) {
        const TQzpkgRun r = Qzpkg({"convert", "--to", in == PathOf("bad.dfm") ? "binary" : "text", in, PathOf("out.dfm")});
        EXPECT_EQ(r.Code, 1) << in;
        EXPECT_NE(r.Err.find(says), std::string::npos) << r.Err;
        EXPECT_EQ(ReadFileBytes(PathOf("out.dfm")), "previous") << in;
    }
}

TEST_F(ConvertCommand, UsageErrorsAndHelp)
{
    struct Case {
        std::vector<std::string> args;
        int code;
        const char* says;
    };
    const Case cases[] = {
        {{"convert", "--help"}, 0, "Usage: qzpkg convert"},
        {{"--help"}, 0, "Commands:"},
        {{"convert", "a", "b"}, 1, "--to is required"},
        {{"convert", "--to", "pdf", "a", "b"}, 1, "unknown format 'pdf'"},
        {{"convert", "--to", "text", "a"}, 1, "expected IN and OUT"},
        {{"convert", "--to", "text", "--code-page", "x", "a", "b"}, 1, "--code-page needs"},
        {{"convert", "--to", "text", "--floats", "long", "a", "b"}, 1, "--floats takes short or fixed"},
        {{"convert", "--to", "text", "--wide-strings", "ucs2", "a", "b"}, 1, "--wide-strings takes utf16 or utf8"},
        {{"convert", "--to", "text", "--line-break", "cr", "a", "b"}, 1, "--line-break takes crlf or lf"},
        {{"convert", "a", "b", "--to"}, 1, "--to needs a value"},
        {{"frobnicate"}, 1, "unknown command 'frobnicate'"},
        {{}, 1, "Usage: qzpkg"},
    };
    for (const Case& c : cases) {
        TQzpkgRun r = Qzpkg(c.args);
        EXPECT_EQ(r.Code, c.code);
        EXPECT_NE((r.Out + r.Err).find(c.says), std::string::npos) << r.Out << r.Err;
    }
}
