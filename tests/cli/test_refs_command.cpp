// qzpkg refs on the test project (tests/data/refs-project): two text and two
// binary forms, strings and images packages kept in a form and in a package
// file, display sets and privileges on the application object, and some
// references to items that do not exist. Each test works on its own copy.

#ifdef QZ_CLI_DESIGN

#include "QzpkgRun.h"

#include "designide/ProjectServices.h"
#include "runtime/files/QzPkgFiles.h"
#include "runtime/model/QzPkgStrings.h"
#include "runtime/model/QzRegistry.h"
#include "rtl/FormText.h"
#include "rtl/Streams.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>
#include <sstream>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

std::vector<std::string> Split(const std::string& text, char separator)
{
    std::vector<std::string> parts;
    std::string part;
    std::istringstream in(text);
    while (std::getline(in, part, separator))
        parts.push_back(part);
    return parts;
}

// The first five columns of each row: file, line, property, package, value.
std::vector<std::string> Places(const std::string& out)
{
    std::vector<std::string> places;
    for (const std::string& row : Split(out, '\n')) {
        const std::vector<std::string> columns = Split(row, '\t');
        std::string place;
        for (std::size_t i = 0; i < 5 && i < columns.size(); ++i)
            place += (i ? " " : "") + columns[i];
        places.push_back(place);
    }
    return places;
}

// A form's text as the project reads it, whatever its format.
std::string TextOf(const std::string& bytes)
{
    const TFormStorage storage = TFormStorage::Of(bytes);
    return storage.Format == TFormFormat::Text ? bytes : FormToText(bytes, storage.Options);
}

// original with each (old, new) replaced once, in order.
std::string Edited(std::string text, const std::vector<std::pair<std::string, std::string>>& edits)
{
    std::size_t from = 0;
    for (const auto& [old, now] : edits) {
        const std::size_t at = text.find(old, from);
        EXPECT_NE(at, std::string::npos) << old;
        if (at == std::string::npos)
            return text;
        text.replace(at, old.size(), now);
        from = at + now.size();
    }
    return text;
}

class RefsCommand : public ::testing::Test {
protected:
    void SetUp() override
    {
        Dir = fs::temp_directory_path() / ("qzpkg-refs-" + std::to_string(::getpid()) + "-" +
                                           ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(Dir);
        fs::create_directories(Dir);
        for (const auto& entry : fs::directory_iterator(fs::path(QZ_SOURCE_DIR) / "tests/data/refs-project"))
            fs::copy_file(entry.path(), Dir / entry.path().filename());
        for (const char* form : {"Main.dfm", "Customers.dfm", "Settings.dfm", "Report.dfm"})
            Original[form] = Bytes(form);
    }
    void TearDown() override { fs::remove_all(Dir); }

    std::string Project() const { return (Dir / "RefsApp.bpr").string(); }
    std::string Bytes(const std::string& name) const { return ReadFileBytes((Dir / name).string()); }
    TQzpkgRun Refs(std::vector<std::string> args) const
    {
        args.insert(args.begin(), {"refs"});
        args.insert(args.begin() + 2, Project());
        return Qzpkg(args);
    }
    void ExpectUnchanged() const
    {
        for (const auto& [name, bytes] : Original) {
            EXPECT_EQ(Bytes(name), bytes) << name;
            EXPECT_FALSE(fs::exists(Dir / fs::path(name).replace_extension(".~dfm"))) << name;
        }
    }

    fs::path Dir;
    std::map<std::string, std::string> Original;
};

// ---- scan -------------------------------------------------------------------------

struct TScanCase {
    std::vector<std::string> Args;
    std::vector<std::string> Places;
};

TEST_F(RefsCommand, ScanFindsEachReferenceOnceInTextAndBinaryFormsAndInTheApplicationsSets)
{
    const std::vector<TScanCase> cases = {
        // The form's own label (Customers) and the component of another
        // library (Report's frxReport1) never count.
        {{"--kind", "labels", "--package", "APP", "--value", "1"},
         {"Main.dfm 93 PanelTop.Caption APP 1", "Main.dfm 102 LabelTitle.Caption APP 1"}},
        {{"--kind", "Labels", "--package", "extra", "--value", "2"}, {"Main.dfm 159 StatusBar.Panels[1].Caption EXTRA 2"}},
        {{"--kind", "labels", "--package", "APP", "--value", "22"}, {"Main.dfm - Privileges[1].DescriptionId APP 22"}},
        {{"--kind", "images", "--package", "ICONS", "--value", "3"},
         {"Main.dfm 155 StatusBar.Panels[0].Image ICONS 3", "Report.dfm 36 ImageChart.Picture ICONS 3"}},
        {{"--kind", "images", "--package", "ICONS", "--value", "1"},
         {"Main.dfm 111 ImageLogo.Picture ICONS 1", "Main.dfm - SetsBackGround[Blue].Image ICONS 1"}},
        {{"--kind", "messages", "--package", "APP", "--value", "2"}, {"Customers.dfm 26 EditCity.ErrorMessage APP 2"}},
        {{"--kind", "texts", "--package", "app", "--value", "9"}, {"Settings.dfm 44 MemoHelp.Text APP 9"}},
        {{"--kind", "setsbackground", "--value", "blue"}, {"Main.dfm 95 PanelTop.SetBackGround - Blue"}},
        {{"--kind", "setscolor", "--value", "Calm"}, {}},
        {{"--kind", "setsfont", "--value", "Title"},
         {"Main.dfm 103 LabelTitle.SetFont - Title", "Settings.dfm 24 LabelSave.SetFont - Title"}},
        {{"--kind", "privileges", "--value", "2"},
         {"Main.dfm 82 MenuSave.Privilege - 2", "Settings.dfm 15 PanelOptions.Privilege - 2"}},
        {{"--kind", "labels", "--package", "APP", "--value", "77"}, {}},
    };
    for (const TScanCase& c : cases) {
        std::vector<std::string> args = {"scan"};
        args.insert(args.end(), c.Args.begin(), c.Args.end());
        const TQzpkgRun run = Refs(args);
        SCOPED_TRACE(c.Args[1] + " " + c.Args.back());
        EXPECT_EQ(run.Code, 0) << run.Err;
        EXPECT_EQ(Places(run.Out), c.Places);
    }
    // A row ends with the text the manager shows.
    EXPECT_EQ(Refs({"scan", "--kind", "texts", "--package", "APP", "--value", "9"}).Out,
              "Settings.dfm\t44\tMemoHelp.Text\tAPP\t9\t(Settings.dfm) (MemoHelp: TQzMemo) 9\n");
    ExpectUnchanged();
}

TEST_F(RefsCommand, AFolderOfFormsIsAProjectToo)
{
    fs::remove(Dir / "RefsApp.bpr");
    const TQzpkgRun run = Qzpkg({"refs", "scan", Dir.string(), "--kind", "privileges", "--value", "1"});
    EXPECT_EQ(run.Code, 0) << run.Err;
    EXPECT_EQ(Places(run.Out),
              (std::vector<std::string>{"Main.dfm 94 PanelTop.Privilege - 1", "Report.dfm 39 ImageChart.Privilege - 1"}));
}

// ---- count ------------------------------------------------------------------------

struct TCountCase {
    std::vector<std::string> Args;
    int Code;
    std::string Out;
};

// A summary's lines without their last field, the places of the uses.
std::string WithoutPlaces(const std::string& out)
{
    std::string kept;
    size_t start = 0;
    for (size_t end; (end = out.find('\n', start)) != std::string::npos; start = end + 1) {
        const std::string line = out.substr(start, end - start);
        kept += line.substr(0, line.rfind('\t')) + "\n";
    }
    return kept;
}

TEST_F(RefsCommand, CountSummaryListsEveryItemWithItsUsesAndTheMissingOnes)
{
    const std::vector<TCountCase> cases = {
        {{"--kind", "labels"}, 3,
         "APP\t1\t2\texists\nAPP\t2\t3\texists\nAPP\t3\t1\texists\nAPP\t4\t2\texists\nAPP\t5\t1\texists\n"
         "APP\t6\t1\texists\nAPP\t7\t1\texists\nAPP\t8\t2\texists\nAPP\t20\t1\texists\nAPP\t21\t1\texists\n"
         "APP\t22\t1\texists\nAPP\t99\t1\tmissing\n"
         "EXTRA\t1\t2\texists\nEXTRA\t2\t1\texists\nEXTRA\t3\t1\tmissing\nEXTRA\t4\t0\texists\n"},
        {{"--kind", "labels", "--package", "EXTRA"}, 3,
         "EXTRA\t1\t2\texists\nEXTRA\t2\t1\texists\nEXTRA\t3\t1\tmissing\nEXTRA\t4\t0\texists\n"},
        {{"--kind", "messages"}, 3,
         "APP\t1\t1\texists\nAPP\t2\t1\texists\nAPP\t3\t0\texists\nAPP\t5\t1\tmissing\nEXTRA\t1\t0\texists\n"},
        {{"--kind", "texts"}, 3, "APP\t1\t1\texists\nAPP\t2\t1\texists\nAPP\t9\t1\tmissing\n"},
        {{"--kind", "images"}, 3,
         "ICONS\t1\t2\texists\nICONS\t2\t1\texists\nICONS\t3\t2\texists\nICONS\t4\t0\texists\n"
         "ICONS\t7\t1\tmissing\nICONS\t9\t1\tmissing\n"},
        {{"--kind", "setsbackground"}, 3, "-\tBlue\t1\texists\n-\tMarble\t1\tmissing\n-\tPaper\t1\texists\n"},
        {{"--kind", "setscolor"}, 0, "-\tCalm\t0\texists\n-\tWarning\t2\texists\n"},
        {{"--kind", "setsfont"}, 0, "-\tSmall\t1\texists\n-\tTitle\t2\texists\n"},
        {{"--kind", "privileges"}, 3, "-\t1\t2\texists\n-\t2\t2\texists\n-\t3\t1\tmissing\n"},
    };
    for (const TCountCase& c : cases) {
        std::vector<std::string> args = {"count"};
        args.insert(args.end(), c.Args.begin(), c.Args.end());
        args.push_back("--summary");
        const TQzpkgRun run = Refs(args);
        SCOPED_TRACE(c.Args[1]);
        EXPECT_EQ(run.Code, c.Code) << run.Err;
        EXPECT_EQ(WithoutPlaces(run.Out), c.Out);
    }
    // Where each image is used: form lines, and the display sets that hold it.
    EXPECT_EQ(Refs({"count", "--kind", "images", "--summary"}).Out,
              "ICONS\t1\t2\texists\tMain.dfm:111 Main.dfm:SetsBackGround[Blue]\n"
              "ICONS\t2\t1\texists\tMain.dfm:76\nICONS\t3\t2\texists\tMain.dfm:155 Report.dfm:36\n"
              "ICONS\t4\t0\texists\t-\nICONS\t7\t1\tmissing\tSettings.dfm:53\n"
              "ICONS\t9\t1\tmissing\tMain.dfm:SetsBackGround[Paper]\n");
    // Without --summary, a row for each reference, saying whether it dangles.
    const TQzpkgRun run = Refs({"count", "--kind", "labels", "--package", "EXTRA"});
    EXPECT_EQ(run.Code, 3);
    EXPECT_EQ(run.Out, "Main.dfm\t159\tStatusBar.Panels[1].Caption\tEXTRA\t2\texists\n"
                       "Customers.dfm\t38\tPanelStatus.Caption\tEXTRA\t1\texists\n"
                       "Report.dfm\t19\tLabelReport.Caption\tEXTRA\t1\texists\n"
                       "Report.dfm\t28\tLabelPrinted.Caption\tEXTRA\t3\tmissing\n");
}

TEST_F(RefsCommand, APackageTheProjectNoLongerHasIsMissingNotIgnored)
{
    std::string main = Bytes("Main.dfm");
    main.replace(main.find("'EXTRA'"), 7, "'GONE'");
    WriteFileAtomic((Dir / "Main.dfm").string(), main, {});
    const TQzpkgRun run = Refs({"count", "--kind", "labels", "--summary"});
    EXPECT_EQ(run.Code, 3);
    EXPECT_NE(run.Out.find("GONE\t2\t1\tmissing\tMain.dfm:"), std::string::npos) << run.Out;
}

TEST_F(RefsCommand, APackageKeptInAFileOfItsOwnIsReadFromTheFormsFolder)
{
    RegisterQzPkgFileFormats();
    fs::create_directories(Dir / "sub");
    {
        TQzDetachedPkgs detached;
        TQzPkgStrings pkg(nullptr);
        pkg.Labels()->Add(5, "Kept apart");
        pkg.SaveToFile((Dir / "sub" / "apart.pst").string());
    }
    WriteFileAtomic((Dir / "Customers.dfm").string(),
                    Edited(Bytes("Customers.dfm"), {{"  object LabelCity", "  object PkgApart: TQzPkgStrings\r\n"
                                                                           "    PkgName = 'APART'\r\n"
                                                                           "    InitMode = imFile\r\n"
                                                                           "    FileName = 'sub\\apart'\r\n"
                                                                           "  end\r\n"
                                                                           "  object LabelCity"},
                                                    {"Caption.PkgName = 'APP'\r\n    Caption.Id = 3",
                                                     "Caption.PkgName = 'apart'\r\n    Caption.Id = 5"}}),
                    {});
    const TQzpkgRun run = Refs({"count", "--kind", "labels", "--package", "Apart", "--summary"});
    EXPECT_EQ(run.Code, 0) << run.Err;
    EXPECT_EQ(run.Out, "APART\t5\t1\texists\tCustomers.dfm:21\n");
}

// ---- replace and clean ----------------------------------------------------------------

// The bytes a binary form has after its text changed as edits say: the
// form's own format and options, so everything else is as it was.
std::string EditedBinary(const std::string& bytes, const std::vector<std::pair<std::string, std::string>>& edits)
{
    const TFormStorage storage = TFormStorage::Of(bytes);
    return storage.Encode(Edited(TextOf(bytes), edits));
}

TEST_F(RefsCommand, ReplaceChangesOnlyTheValuesOfTheReferencesInTextAndBinaryForms)
{
    const TQzpkgRun run = Refs({"replace", "--kind", "labels", "--package", "APP", "--value", "2", "--to-package",
                                "EXTRA", "--to-value", "4"});
    EXPECT_EQ(run.Code, 0) << run.Err;
    EXPECT_EQ(Places(run.Out), (std::vector<std::string>{"Main.dfm 120 LabelName.Caption APP 2",
                                                         "Main.dfm 131 EditName.HintLabel APP 2",
                                                         "Settings.dfm 35 EditPath.HintLabel APP 2"}));
    const auto twice = std::vector<std::pair<std::string, std::string>>{
        {"Caption.PkgName = 'APP'\r\n    Caption.Id = 2", "Caption.PkgName = 'EXTRA'\r\n    Caption.Id = 4"},
        {"HintLabel.PkgName = 'APP'\r\n    HintLabel.Id = 2", "HintLabel.PkgName = 'EXTRA'\r\n    HintLabel.Id = 4"}};
    EXPECT_EQ(Bytes("Main.dfm"), Edited(Original["Main.dfm"], twice));
    EXPECT_EQ(Bytes("Settings.dfm"),
              EditedBinary(Original["Settings.dfm"], {{"HintLabel.PkgName = 'APP'", "HintLabel.PkgName = 'EXTRA'"},
                                                      {"HintLabel.Id = 2", "HintLabel.Id = 4"}}));
    // The binary stream differs only inside the two values.
    const std::string& before = Original["Settings.dfm"];
    const std::string after = Bytes("Settings.dfm");
    const std::size_t at = before.find("HintLabel.PkgName");
    ASSERT_NE(at, std::string::npos);
    EXPECT_EQ(after.substr(0, at), before.substr(0, at));
    const std::size_t tail = before.find("MemoHelp");
    EXPECT_EQ(after.substr(after.size() - (before.size() - tail)), before.substr(tail));

    EXPECT_EQ(Bytes("Main.~dfm"), Original["Main.dfm"]);
    EXPECT_EQ(Bytes("Settings.~dfm"), Original["Settings.dfm"]);
    EXPECT_EQ(Bytes("Customers.dfm"), Original["Customers.dfm"]);
    EXPECT_EQ(Bytes("Report.dfm"), Original["Report.dfm"]);
    EXPECT_EQ(Refs({"scan", "--kind", "labels", "--package", "APP", "--value", "2"}).Out, "");
}

TEST_F(RefsCommand, CleanEmptiesPackagesSetsAndPrivilegesAndKeepsEachFormsFormat)
{
    struct TCase {
        std::vector<std::string> Args;
        std::string Form;
        std::vector<std::pair<std::string, std::string>> Edits;
    };
    const std::vector<TCase> cases = {
        {{"--kind", "images", "--package", "ICONS", "--value", "3"}, "Report.dfm",
         {{"Picture.PkgName = 'ICONS'", "Picture.PkgName = ''"}, {"Picture.Id = 3", "Picture.Id = -1"}}},
        {{"--kind", "setsbackground", "--value", "Paper"}, "Settings.dfm",
         {{"SetBackGround.Name = 'Paper'", "SetBackGround.Name = ''"}}},
        {{"--kind", "privileges", "--value", "3"}, "Customers.dfm", {{"Privilege.Id = 3", "Privilege.Id = -1"}}},
    };
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.Form);
        std::vector<std::string> args = {"clean"};
        args.insert(args.end(), c.Args.begin(), c.Args.end());
        const std::string before = Bytes(c.Form);
        const TQzpkgRun run = Refs(args);
        EXPECT_EQ(run.Code, 0) << run.Err;
        const bool binary = TFormStorage::Of(before).Format != TFormFormat::Text;
        EXPECT_EQ(Bytes(c.Form), binary ? EditedBinary(before, c.Edits) : Edited(before, c.Edits));
        EXPECT_EQ(TFormStorage::Of(Bytes(c.Form)).Format, TFormStorage::Of(before).Format);
    }
}

TEST_F(RefsCommand, ReferencesOfTheApplicationsSetsChangeInsideTheirPackageOnly)
{
    const TQzpkgRun run = Refs({"replace", "--kind", "images", "--package", "ICONS", "--value", "1", "--to-package",
                                "ICONS", "--to-value", "4"});
    EXPECT_EQ(run.Code, 0) << run.Err;
    EXPECT_EQ(Places(run.Out), (std::vector<std::string>{"Main.dfm 111 ImageLogo.Picture ICONS 1",
                                                         "Main.dfm - SetsBackGround[Blue].Image ICONS 1"}));
    EXPECT_EQ(Places(Refs({"scan", "--kind", "images", "--package", "ICONS", "--value", "4"}).Out),
              (std::vector<std::string>{"Main.dfm 111 ImageLogo.Picture ICONS 4",
                                        "Main.dfm - SetsBackGround[Blue].Image ICONS 4"}));
    // Between the picture's Id and the display package's block, and after
    // it, every line is as it was.
    const std::string before = Original["Main.dfm"];
    const std::string after = Bytes("Main.dfm");
    const std::size_t blockStart = before.find("    PkgDisplay.Data = {");
    const std::size_t blockEnd = before.find("}", blockStart);
    EXPECT_EQ(after.substr(0, blockStart), before.substr(0, blockStart));
    const std::string rest = before.substr(blockEnd);
    EXPECT_EQ(after.substr(after.size() - rest.size()),
              Edited(rest, {{"Picture.Id = 1", "Picture.Id = 4"}}));
    EXPECT_NE(after.substr(blockStart, after.size() - rest.size() - blockStart), before.substr(blockStart, blockEnd - blockStart));
}

TEST_F(RefsCommand, ReplaceWritesNamesAsTheFormWroteThemQuotingWhatNeedsIt)
{
    // Forms of the older style name sets bare; the binary Report.dfm holds a string.
    WriteFileAtomic((Dir / "Customers.dfm").string(), Edited(Bytes("Customers.dfm"), {{"'Warning'", "Warning"}}), {});
    const struct {
        std::string To;
        std::string Written;
    } cases[] = {
        {"Alert", "SetColor.Name = Alert\r\n"},
        {"Don't panic", "SetColor.Name = 'Don'#39't panic'\r\n"},
        {"Caf\xC3\xA9", "SetColor.Name = 'Caf'#233\r\n"},
    };
    std::string from = "Warning";
    for (const auto& c : cases) {
        SCOPED_TRACE(c.To);
        const TQzpkgRun run = Refs({"replace", "--kind", "setscolor", "--value", from, "--to-value", c.To});
        EXPECT_EQ(run.Code, 0) << run.Err;
        EXPECT_NE(Bytes("Customers.dfm").find(c.Written), std::string::npos) << Bytes("Customers.dfm");
        EXPECT_EQ(Places(Refs({"scan", "--kind", "setscolor", "--value", c.To}).Out),
                  (std::vector<std::string>{"Customers.dfm 17 LabelCity.SetColor - " + c.To,
                                            "Report.dfm 20 LabelReport.SetColor - " + c.To}));
        from = c.To;
    }
}

TEST_F(RefsCommand, DryRunPrintsAUnifiedDiffAndNeitherItNorReplacingAnItemByItselfWrites)
{
    const TQzpkgRun same = Refs({"replace", "--kind", "images", "--package", "ICONS", "--value", "3", "--to-package",
                                 "ICONS", "--to-value", "3"});
    EXPECT_EQ(same.Code, 0) << same.Err;
    const TQzpkgRun run = Refs({"replace", "--kind", "privileges", "--value", "2", "--to-value", "1", "--dry-run"});
    EXPECT_EQ(run.Code, 0) << run.Err;
    EXPECT_EQ(run.Out, "--- a/Main.dfm\n+++ b/Main.dfm\n@@ -79,7 +79,7 @@\n"
                       "       object MenuSave: TQzMenuItem\n"
                       "         Label.PkgName = 'APP'\n"
                       "         Label.Id = 8\n"
                       "-        Privilege.Id = 2\n"
                       "+        Privilege.Id = 1\n"
                       "       end\n"
                       "     end\n"
                       "   end\n"
                       "--- a/Settings.dfm\n+++ b/Settings.dfm\n@@ -12,7 +12,7 @@\n"
                       "     TabOrder = 0\n"
                       "     Caption.PkgName = 'APP'\n"
                       "     Caption.Id = 6\n"
                       "-    Privilege.Id = 2\n"
                       "+    Privilege.Id = 1\n"
                       "     SetBackGround.Name = 'Paper'\n"
                       "     object LabelSave: TQzLabel\n"
                       "       Left = 12\n");
    ExpectUnchanged();
}

// ---- bad input ------------------------------------------------------------------------

TEST_F(RefsCommand, BadInputExitsWithOneLineNamingTheProblemAndWritesNothing)
{
    const struct {
        std::vector<std::string> Args;
        std::string Says;
    } cases[] = {
        {{"refs", "scan", "PROJECT", "--kind", "buttons", "--value", "1"}, "unknown kind 'buttons'"},
        {{"refs", "scan", "PROJECT", "--kind", "labels", "--package", "APP"}, "--value is missing"},
        {{"refs", "scan", "PROJECT", "--kind", "labels", "--package", "APP", "--value", "two"}, "Id"},
        {{"refs", "replace", "PROJECT", "--kind", "labels", "--package", "APP", "--value", "2", "--to-value", "3"},
         "--to-package is missing"},
        {{"refs", "count", "PROJECT", "--kind", "labels", "--dry-run"}, "--dry-run"},
        {{"refs", "scan", "/no/such/project.bpr", "--kind", "setsfont", "--value", "Title"}, "/no/such/project.bpr"},
    };
    for (const auto& c : cases) {
        std::vector<std::string> args = c.Args;
        std::replace(args.begin(), args.end(), std::string("PROJECT"), Project());
        const TQzpkgRun run = Qzpkg(args);
        EXPECT_EQ(run.Code, 1) << c.Says;
        EXPECT_NE(run.Err.find(c.Says), std::string::npos) << run.Err;
        EXPECT_EQ(run.Err.rfind("qzpkg refs: ", 0), 0u) << run.Err;
        EXPECT_EQ(std::count(run.Err.begin(), run.Err.end(), '\n'), 1) << run.Err;
    }
    ExpectUnchanged();
}

TEST_F(RefsCommand, AFormThatCannotBeReadStopsTheRunBeforeAnyFormIsWritten)
{
    // A damaged binary form after a text form that would change.
    std::string settings = Bytes("Settings.dfm");
    settings.resize(settings.size() / 2);
    WriteFileAtomic((Dir / "Settings.dfm").string(), settings, {});
    Original["Settings.dfm"] = settings;
    const TQzpkgRun run = Refs({"clean", "--kind", "labels", "--package", "APP", "--value", "8"});
    EXPECT_EQ(run.Code, 1);
    EXPECT_NE(run.Err.find("Settings.dfm"), std::string::npos) << run.Err;
    EXPECT_EQ(std::count(run.Err.begin(), run.Err.end(), '\n'), 1) << run.Err;
    ExpectUnchanged();
}

}  // namespace

#endif
