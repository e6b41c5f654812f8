// qzpkg strings on the demo project's main form and on package files: a
// translation goes out and comes back into the form's package alone, a bad
// file changes nothing, and check's rows and exit code.

#ifdef QZ_CLI_DESIGN

#include "QzpkgRun.h"
#include "runtime/files/QzPkgFiles.h"
#include "runtime/model/QzPkgStrings.h"
#include "runtime/model/QzRegistry.h"

#include "rtl/Streams.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

class StringsCommand : public ::testing::Test {
protected:
    void SetUp() override
    {
        RegisterQzPkgFileFormats();
        Dir = fs::temp_directory_path() / ("qzpkg-strings-" + std::to_string(::getpid()));
        fs::create_directories(Dir);
        fs::copy_file(fs::path(QZ_SOURCE_DIR) / "examples/demo/Main.dfm", Dir / "Main.dfm");
        Form = (Dir / "Main.dfm").string();
    }
    void TearDown() override { fs::remove_all(Dir); }
    std::string PathOf(const std::string& name) const { return (Dir / name).string(); }

    std::string Strings(const std::string& name, std::initializer_list<std::pair<Integer, const char*>> labels)
    {
        TQzDetachedPkgs detached;
        TQzPkgStrings pkg(nullptr);
        for (const auto& [id, text] : labels)
            pkg.Labels()->Add(id, text);
        pkg.SaveToFile(PathOf(name));
        return PathOf(name);
    }

    fs::path Dir;
    std::string Form;
};

bool IsHexLine(const std::string& line)
{
    return line.find_first_not_of(" 0123456789ABCDEF}\r") == std::string::npos;
}

TEST_F(StringsCommand, ATranslationComesBackIntoTheFormsPackageAndNothingElseOfTheForm)
{
    const std::string original = ReadFileBytes(Form);
    for (const char* format : {"po", "xliff", "csv"}) {
        SCOPED_TRACE(format);
        const std::string file = PathOf(std::string("main.") + format);
        // A form named relative to the current folder is that form.
        const fs::path home = fs::current_path();
        fs::current_path(Dir.parent_path());
        const int code = Qzpkg({"strings", "export", (Dir.filename() / "Main.dfm").string(), "--format", format, file}).Code;
        fs::current_path(home);
        ASSERT_EQ(code, 0);
        const TQzpkgRun run = Qzpkg({"strings", "import", Form, "--format", format, file});
        ASSERT_EQ(run.Code, 0) << run.Err;
        EXPECT_EQ(ReadFileBytes(Form), original);
    }

    const std::string csv = PathOf("main.csv");
    std::string text = ReadFileBytes(csv);
    text.replace(text.find("Customer,Customer"), 17, "Customer,\"Cliente, \"\"VIP\"\"\"");
    WriteFileAtomic(csv, text);
    ASSERT_EQ(Qzpkg({"strings", "import", Form, csv}).Code, 0);
    EXPECT_EQ(ReadFileBytes(PathOf("Main.~dfm")), original);
    ASSERT_EQ(Qzpkg({"strings", "export", Form, PathOf("again.csv")}).Code, 0);
    EXPECT_NE(ReadFileBytes(PathOf("again.csv")).find("label:1,\"Cliente, \"\"VIP\"\"\",\"Cliente, \"\"VIP\"\"\","), std::string::npos);

    std::istringstream before(original), after(ReadFileBytes(Form));
    for (std::string a, b; std::getline(before, a) && std::getline(after, b);)
        if (a != b) {
            EXPECT_TRUE(IsHexLine(a) && IsHexLine(b)) << a << "\n" << b;
        }
}

TEST_F(StringsCommand, AFileThatDoesNotReadIsReportedWithItsLineAndTheFormStaysAsItWas)
{
    const std::string original = ReadFileBytes(Form);
    WriteFileAtomic(PathOf("bad.po"), "msgctxt \"label:1\"\nmsgid \"Customer\"\nmsgstr Cliente\n");
    const TQzpkgRun run = Qzpkg({"strings", "import", Form, PathOf("bad.po")});
    EXPECT_EQ(run.Code, 1);
    EXPECT_NE(run.Err.find("bad.po:3: a quoted string was expected"), std::string::npos) << run.Err;
    EXPECT_EQ(ReadFileBytes(Form), original);
    EXPECT_FALSE(fs::exists(PathOf("Main.~dfm")));
}

TEST_F(StringsCommand, CheckPrintsTheRowsWithProblemsAndExitsWithThree)
{
    const std::string english = Strings("en.pst", {{1, "&Save"}, {2, "%d files"}, {3, "Name:"}, {4, "Only here"}});
    const std::string good = Strings("es.pst", {{1, "&Guardar"}, {2, "%d ficheros"}, {3, "Nombre:"}});
    const std::string bad = Strings("bad.pst", {{1, "Guardar"}, {2, "%d ficheros"}, {3, "Name:"}, {5, "x"}});
    const TQzpkgRun clean = Qzpkg({"strings", "check", good, "--reference", english});
    EXPECT_EQ(clean.Code, 0) << clean.Err;
    EXPECT_EQ(clean.Out, "");
    const TQzpkgRun run = Qzpkg({"strings", "check", bad, "--reference", english});
    EXPECT_EQ(run.Code, 3) << run.Err;
    EXPECT_EQ(run.Out, "label:1\ttext\t& accelerator missing on one side\t&Save\tGuardar\n"
                       "label:3\ttext\tsame text in both languages\tName:\tName:\n");
}

} // namespace

#endif
