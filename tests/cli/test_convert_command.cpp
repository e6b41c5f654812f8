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

TEST_F(ConvertCommand, OptionsChooseHowTextIsWritten)
{
    Write("a.dfm", Form);
    Qzpkg({"convert", "--to", "binary", PathOf("a.dfm"), PathOf("b.dfm")});
    EXPECT_EQ(Qzpkg({"convert", "--to", "text", "--high-chars", "utf8", "--line-break", "lf", PathOf("b.dfm"), PathOf("u.dfm")}).Code, 0);
    EXPECT_EQ(ReadFileBytes(PathOf("u.dfm")), "object Form1: TForm1\n  Caption = 'caf\xC3\xA9'\n  Tag = 5\nend\n");
    EXPECT_EQ(Qzpkg({"convert", "--to", "text", "--high-chars", "escape", PathOf("b.dfm"), PathOf("e.dfm")}).Code, 0);
    EXPECT_NE(ReadFileBytes(PathOf("e.dfm")).find("'caf'#233"), std::string::npos);
}

TEST_F(ConvertCommand, BadInputFailsWithTheFileAndLineAndWritesNothing)
{
    Write("bad.dfm", "object Form1: TForm1\r\n  Left = [1\r\nend\r\n");
    Write("out.dfm", "previous");
    TQzpkgRun r = Qzpkg({"convert", "--to", "binary", PathOf("bad.dfm"), PathOf("out.dfm")});
    EXPECT_EQ(r.Code, 1);
    EXPECT_NE(r.Err.find(PathOf("bad.dfm") + ": line 3: ',' expected"), std::string::npos) << r.Err;
    EXPECT_EQ(ReadFileBytes(PathOf("out.dfm")), "previous");

    Write("cut.dfm", FormTextToBinary(Form).substr(0, 20));
    r = Qzpkg({"convert", "--to", "text", PathOf("cut.dfm"), PathOf("out.dfm")});
    EXPECT_EQ(r.Code, 1);
    EXPECT_NE(r.Err.find("at offset"), std::string::npos) << r.Err;

    r = Qzpkg({"convert", "--to", "text", PathOf("missing.dfm"), PathOf("out.dfm")});
    EXPECT_EQ(r.Code, 1);
    EXPECT_NE(r.Err.find("missing.dfm"), std::string::npos) << r.Err;
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
        {{"frobnicate"}, 1, "unknown command 'frobnicate'"},
        {{}, 1, "Usage: qzpkg"},
    };
    for (const Case& c : cases) {
        TQzpkgRun r = Qzpkg(c.args);
        EXPECT_EQ(r.Code, c.code);
        EXPECT_NE((r.Out + r.Err).find(c.says), std::string::npos) << r.Out << r.Err;
    }
}
