// qzpkg info and dump on package files written by the runtime: what each
// kind shows, how awkward texts come out, and how bad files are refused.

#ifdef QZ_CLI_DESIGN

#include "QzpkgRun.h"
#include "runtime/files/QzPkgFiles.h"
#include "runtime/model/QzApplication.h"
#include "runtime/model/QzRegistry.h"

#include "rtl/Streams.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

class PackageFileCommands : public ::testing::Test {
protected:
    void SetUp() override
    {
        RegisterQzPkgFileFormats();
        Dir = fs::temp_directory_path() / ("qzpkg-files-" + std::to_string(::getpid()));
        fs::create_directories(Dir);
    }
    void TearDown() override { fs::remove_all(Dir); }
    std::string PathOf(const std::string& name) const { return (Dir / name).string(); }

    // Written by the runtime's own saver, as the editors write them.
    std::string Save(TQzPkgInfo& pkg, const std::string& name)
    {
        const std::string path = PathOf(name);
        pkg.SaveToFile(path);
        return path;
    }

    std::string StringsFile()
    {
        TQzDetachedPkgs detached;
        TQzPkgStrings pkg(nullptr);
        pkg.SetDescription("Main texts");
        pkg.Labels()->Add(1, "Save", "Saves the file");
        pkg.Labels()->Add(2, "Tab\there");
        pkg.Messages()->Add(5, "Line one\r\nLine two");
        pkg.Texts()->Add(9, "Back\\slash");
        return Save(pkg, "main.pst");
    }

    fs::path Dir;
};

TEST_F(PackageFileCommands, EveryKindIsRecognisedAndDumpedWithAwkwardTextsEscaped)
{
    TQzDetachedPkgs detached;
    TQzPkgVars vars(nullptr);
    vars.SetDescription("Settings");
    vars.Add("Setup\\Printer\\Copies", qvInteger)->SetVInteger(2);
    vars.Add("Title", qvString)->SetVString("Hello");
    TQzPkgPrivileges privileges(nullptr);
    privileges.Add(4)->SetDescription("Managers");
    auto* reader = privileges.Add(5);
    reader->SetAccess(qaR);
    reader->SetVisible(false);
    TQzPkgImages images(nullptr);
    images.Images()->Add(3);
    TQzPkgDisplay display(nullptr);
    display.SetsColor()->Add("Alert")->SetColor(255);
    display.SetsFont()->Add("Title");
    TQzPkgLanguage language(nullptr);
    language.PkgUser()->Labels()->Add(1, "Hola");
    TQzPkgSetup setup(nullptr);

    const struct {
        std::string File;
        const char* Kind;
        const char* Info;          // after the kind
        std::vector<std::string> Lines;   // dump lines that must be there, in this order
    } cases[] = {
        {StringsFile(), "Strings", "Description: Main texts\nLabels: 2\nMessages: 1\nTexts: 1\n",
         {"label\t1\tSave\tSaves the file\n", "label\t2\tTab\\there\t\n", "message\t5\tLine one\\r\\nLine two\n",
          "text\t9\tBack\\\\slash\n"}},
        {Save(vars, "a.pva"), "Vars", "Description: Settings\nVariables: 2\nFolders: 2\n",
         {"folder\tSetup", "folder\tSetup\\\\Printer", "variable\tSetup\\\\Printer\\\\Copies\tqvInteger\t2",
          "variable\tTitle\tqvString\tHello"}},
        {Save(privileges, "a.pac"), "Access", "Description: \nPrivileges: 2\n",
         {"privilege\t4\tR/W\tTrue\tManagers", "privilege\t5\tR\tFalse\t"}},
        {Save(images, "a.pim"), "Images", "Description: \nImages: 1\n", {"image\t3\t\t0\t0\t0"}},
        {Save(display, "a.dis"), "Display",
         "Description: \nBackground sets: 0\nColour sets: 1\nFont sets: 1\nSystem images: 0\nUser images: 0\n",
         {"color\tAlert\t", "font\tTitle\t", "package\tSystem", "package\tUser", "setting\tCWButtonsHeight\t25"}},
        {Save(language, "a.lan"), "Language",
         "Description: \nSystem labels: 0\nSystem messages: 0\nSystem texts: 0\nUser labels: 1\nUser messages: 0\nUser texts: 0\n",
         {"package\tSystem", "package\tUser", "label\t1\tHola\t", "setting\tLocale.DateFormat\tdfDMY"}},
        {Save(setup, "a.pse"), "Setup", "Description: \n", {"setting\tKeys.ActionEnter\tTrue", "setting\tDataBase.DataBaseEngine\tdeGeneric"}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Kind);
        const TQzpkgRun info = Qzpkg({"pkg", "info", c.File});
        ASSERT_EQ(info.Code, 0) << info.Err;
        EXPECT_EQ(info.Out, "File: " + c.File + "\nKind: " + c.Kind + "\n" + c.Info);
        const TQzpkgRun dump = Qzpkg({"pkg", "dump", c.File});
        ASSERT_EQ(dump.Code, 0) << dump.Err;
        std::size_t from = 0;
        for (const std::string& line : c.Lines) {
            const std::size_t at = dump.Out.find(line, from);
            EXPECT_NE(at, std::string::npos) << "missing or out of order: " << line << "\n" << dump.Out;
            if (at != std::string::npos)
                from = at + line.size();
        }
    }
}

TEST_F(PackageFileCommands, BadFilesAreRefusedNamingTheFile)
{
    const std::string good = StringsFile();
    std::string bytes = ReadFileBytes(good);
    WriteFileAtomic(PathOf("flipped.pst"), bytes.substr(0, bytes.size() - 1) + char(bytes.back() ^ 0x5A));
    WriteFileAtomic(PathOf("cut.pst"), bytes.substr(0, bytes.size() / 2));
    WriteFileAtomic(PathOf("plain.txt"), "just some text\n");

    const struct {
        std::string File;
        const char* Problem;
    } cases[] = {
        {PathOf("missing.pst"), "does not exist"},
        {PathOf("flipped.pst"), "damaged"},
        {PathOf("cut.pst"), "truncated"},
        {PathOf("plain.txt"), "not a package file"},
    };
    for (const auto& c : cases) {
        for (const char* command : {"info", "dump"}) {
            const TQzpkgRun run = Qzpkg({"pkg", command, c.File});
            EXPECT_EQ(run.Code, 1) << command << " " << c.File;
            EXPECT_EQ(run.Out, "");
            EXPECT_NE(run.Err.find(c.File), std::string::npos) << run.Err;
            EXPECT_NE(run.Err.find(c.Problem), std::string::npos) << run.Err;
        }
    }
}

TEST_F(PackageFileCommands, TheCommandsTakeExactlyOneFileAndTheirOldNamesStillRun)
{
    const std::string file = StringsFile();
    for (const std::string command : {"info", "dump"}) {
        EXPECT_EQ(Qzpkg({"pkg", command}).Code, 1);
        EXPECT_EQ(Qzpkg({"pkg", command, "a", "b"}).Code, 1);
        EXPECT_NE(Qzpkg({"pkg", command, "--help"}).Out.find("Usage: qzpkg pkg " + command + " FILE"), std::string::npos);
        EXPECT_EQ(Qzpkg({command, file}).Out, Qzpkg({"pkg", command, file}).Out);
        EXPECT_EQ(Qzpkg({"--help"}).Out.find("  " + command + " FILE"), std::string::npos) << "listed";
    }
    EXPECT_EQ(Qzpkg({"pkg", "nonsense"}).Code, 1);
}

}  // namespace

#endif
