// qzpkg pkg convert between a form's packages and package files, in both
// directions for every kind: the form keeps every byte but the moved
// package's own lines, and bad input stops the run with nothing written.

#ifdef QZ_CLI_DESIGN

#include "QzpkgRun.h"

#include "runtime/files/QzPkgFiles.h"
#include "runtime/model/QzApplication.h"
#include "runtime/model/QzRegistry.h"
#include "rtl/FormText.h"
#include "rtl/Streams.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <map>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

// Two strings packages (one kept in its own file), an empty images package,
// the application's packages, and a control referring to a package.
const char* const FormText =
    "object Form1: TQzCForm\r\n  Left = 10\r\n  Caption = 'Packages  kept   here'\r\n"
    "  object App: TQzCApplication\r\n    Left = 8\r\n    Top = 8\r\n  end\r\n"
    "  object Texts: TQzPkgStrings\r\n    Left = 40\r\n    Top = 8\r\n    PkgName = 'TEXTS'\r\n  end\r\n"
    "  object Pictures: TQzPkgImages\r\n    Left = 72\r\n    Top = 8\r\n    PkgName = 'PICS'\r\n  end\r\n"
    "  object Moved: TQzPkgStrings\r\n    Left = 104\r\n    Top = 8\r\n    FileName = 'moved.pst'\r\n"
    "    InitMode = imFile\r\n    PkgName = 'MOVED'\r\n  end\r\n"
    "  object Title: TQzLabel\r\n    Left = 8\r\n    Top = 40\r\n    Caption.PkgName = 'TEXTS'\r\n"
    "    Caption.Id = 1\r\n  end\r\n"
    "end\r\n";

struct TKindCase {
    const char* Ext;
    const char* Component;   // as --component names it
    const char* DataLine;    // the line the items go in, trimmed
    std::function<std::unique_ptr<TQzPkgInfo>(int seed)> Make;
};

template <class T>
std::function<std::unique_ptr<TQzPkgInfo>(int)> Filled(std::function<void(T&, int)> fill)
{
    return [fill](int seed) {
        auto pkg = std::make_unique<T>(nullptr);
        fill(*pkg, seed);
        return std::unique_ptr<TQzPkgInfo>(std::move(pkg));
    };
}

const TKindCase Kinds[] = {
    {"pst", "Texts", "Data = {", Filled<TQzPkgStrings>([](auto& p, int s) { p.Labels()->Add(s, "Label", "Hint"); })},
    {"pim", "Pictures", "Data = {", Filled<TQzPkgImages>([](auto& p, int s) {
         p.Images()->Add(s)->SetPicture(std::string(40, char(s)), "TPngImage", 4, 4);
     })},
    {"pva", "App.PkgVars", "PkgVars.Data = {",
     Filled<TQzPkgVars>([](auto& p, int s) { p.Add("Setup\\Copies", qvInteger)->SetVInteger(s); })},
    {"pac", "App.Privileges", "Privileges.Data = {", Filled<TQzPkgPrivileges>([](auto& p, int s) { p.Add(s)->SetAccess(qaR); })},
    {"dis", "App.PkgDisplay", "PkgDisplay.Data = {",
     Filled<TQzPkgDisplay>([](auto& p, int s) { p.SetsColor()->Add("Alert" + IntToStr(s)); })},
    {"lan", "App.PkgLanguage", "PkgLanguage.Data = {",
     Filled<TQzPkgLanguage>([](auto& p, int s) { p.PkgUser()->Labels()->Add(s, "Hola", ""); })},
    {"pse", "App.PkgSetup", "PkgSetup.Data = {",
     Filled<TQzPkgSetup>([](auto& p, int s) { p.Keys()->SetRefresh(TShortCut(0xC040 + s)); })},
};

class PackageConvert : public ::testing::Test {
protected:
    void SetUp() override
    {
        RegisterQzPkgFileFormats();
        Dir = fs::temp_directory_path() / ("qzpkg-pkg-convert-" + std::to_string(::getpid()));
        fs::create_directories(Dir);
    }
    void TearDown() override { fs::remove_all(Dir); }
    std::string PathOf(const std::string& name) const { return (Dir / name).string(); }

    std::string Write(const std::string& name, const std::string& bytes)
    {
        WriteFileAtomic(PathOf(name), bytes);
        return PathOf(name);
    }
    std::string Save(const TKindCase& kind, int seed, const std::string& name)
    {
        TQzDetachedPkgs detached;
        kind.Make(seed)->SaveToFile(PathOf(name));
        return PathOf(name);
    }
    // Every file of the folder and its bytes.
    std::map<std::string, std::string> Snapshot() const
    {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::directory_iterator(Dir))
            files[entry.path().filename().string()] = ReadFileBytes(entry.path().string());
        return files;
    }

    fs::path Dir;
};

std::string ContentsOf(const std::string& file, const char* ext)
{
    const std::string bytes = ReadFileBytes(file);
    for (const char* kind : {QzPkgKindStrings, QzPkgKindImages, QzPkgKindVars, QzPkgKindAccess, QzPkgKindDisplay,
                             QzPkgKindLanguage, QzPkgKindSetup})
        try {
            return std::string(QzPkgFileContents(file, bytes, kind));
        } catch (const EQzPkgFileError&) {
        }
    ADD_FAILURE() << "not a package file: " << file << " (" << ext << ")";
    return {};
}

TEST_F(PackageConvert, EveryKindGoesIntoTheFormAndOutAgainKeepingTheRestOfTheForm)
{
    for (const TKindCase& kind : Kinds) {
        SCOPED_TRACE(kind.Ext);
        const std::string form = Write("Main.dfm", FormText);
        fs::remove(PathOf("Main.~dfm"));
        const std::string a = Save(kind, 1, std::string("a.") + kind.Ext);
        const TQzpkgRun in = Qzpkg({"pkg", "convert", a, form, "--component", kind.Component});
        ASSERT_EQ(in.Code, 0) << in.Err;
        const std::string filled = ReadFileBytes(form);
        EXPECT_EQ(ReadFileBytes(PathOf("Main.~dfm")), FormText);

        // The items are lines added in one place; every other line stays.
        TStringList before, after;
        before.SetText(FormText);
        after.SetText(filled);
        int at = 0;
        while (at < before.Count() && before.Get(at) == after.Get(at))
            ++at;
        const int added = after.Count() - before.Count();
        ASSERT_GT(added, 0);
        EXPECT_EQ(Trim(after.Get(at)), kind.DataLine);
        for (int i = at; i < before.Count(); ++i)
            ASSERT_EQ(after.Get(i + added), before.Get(i)) << "line " << i + 1;

        // Out of the form come the same contents.
        const std::string b = PathOf(std::string("b.") + kind.Ext);
        ASSERT_EQ(Qzpkg({"pkg", "convert", form, b, "--component", kind.Component}).Code, 0);
        EXPECT_EQ(ContentsOf(b, kind.Ext), ContentsOf(a, kind.Ext));

        // The same items again write nothing; other items and back give the
        // form byte for byte.
        fs::remove(PathOf("Main.~dfm"));
        EXPECT_EQ(Qzpkg({"pkg", "convert", a, form, "--component", kind.Component}).Code, 0);
        EXPECT_FALSE(fs::exists(PathOf("Main.~dfm")));
        const std::string c = Save(kind, 2, std::string("c.") + kind.Ext);
        ASSERT_EQ(Qzpkg({"pkg", "convert", c, form, "--component", kind.Component}).Code, 0);
        EXPECT_NE(ReadFileBytes(form), filled);
        ASSERT_EQ(Qzpkg({"pkg", "convert", a, form, "--component", kind.Component}).Code, 0);
        EXPECT_EQ(ReadFileBytes(form), filled);
    }
}

TEST_F(PackageConvert, ABinaryFormStaysBinaryAndAPackageFromItsFileMovesIntoTheForm)
{
    Write("text.dfm", FormText);
    const std::string form = PathOf("Main.dfm");
    ASSERT_EQ(Qzpkg({"convert", "--to", "binary", PathOf("text.dfm"), form}).Code, 0);
    const std::string a = Save(Kinds[0], 5, "a.pst");
    const TQzpkgRun in = Qzpkg({"pkg", "convert", a, form, "--component", "Moved"});
    ASSERT_EQ(in.Code, 0) << in.Err;
    EXPECT_EQ(DetectFormFormat(ReadFileBytes(form)), TFormFormat::Binary);

    ASSERT_EQ(Qzpkg({"convert", "--to", "text", form, PathOf("back.dfm")}).Code, 0);
    const std::string text = ReadFileBytes(PathOf("back.dfm"));
    const std::size_t moved = text.find("object Moved");
    EXPECT_EQ(text.find("InitMode"), std::string::npos) << text;
    EXPECT_EQ(text.find("moved.pst"), std::string::npos) << text;
    EXPECT_LT(moved, text.find("Data = {", moved));
    EXPECT_LT(text.find("Data = {", moved), text.find("object Title", moved));

    ASSERT_EQ(Qzpkg({"pkg", "convert", form, PathOf("b.pst"), "--component", "moved"}).Code, 0);
    EXPECT_EQ(ContentsOf(PathOf("b.pst"), "pst"), ContentsOf(a, "pst"));
}

TEST_F(PackageConvert, BadInputIsOneLineNamingTheFileAndWritesNothing)
{
    const std::string form = Write("Main.dfm", FormText);
    const std::string good = Save(Kinds[0], 1, "good.pst");
    const std::string bytes = ReadFileBytes(good);
    Write("cut.pst", bytes.substr(0, bytes.size() - 3));
    Write("flipped.pst", bytes.substr(0, 30) + char(bytes[30] ^ 4) + bytes.substr(31));
    Write("plain.pst", "object Form1: TForm\r\nend\r\n");
    fs::copy_file(Save(Kinds[1], 1, "images.pim"), PathOf("images.pst"));
    Write("broken.dfm", "object Form1: TQzCForm\r\n  Left = 'open\r\nend\r\n");
    ASSERT_EQ(Qzpkg({"convert", "--to", "binary", form, PathOf("binary.dfm")}).Code, 0);
    Write("cutbinary.dfm", ReadFileBytes(PathOf("binary.dfm")).substr(0, 100));

    const struct {
        std::vector<std::string> Args;
        std::string Names, Says;
    } cases[] = {
        {{PathOf("cut.pst"), form, "--component", "Texts"}, "cut.pst", "truncated"},
        {{PathOf("flipped.pst"), form, "--component", "Texts"}, "flipped.pst", "damaged"},
        {{PathOf("plain.pst"), form, "--component", "Texts"}, "plain.pst", "not a package file"},
        {{PathOf("images.pst"), form, "--component", "Texts"}, "images.pst", "kind Images, not Strings"},
        {{PathOf("missing.pst"), form, "--component", "Texts"}, "missing.pst", "does not exist"},
        {{good, PathOf("broken.dfm")}, "broken.dfm", "line 2"},
        {{good, PathOf("missing.dfm")}, "missing.dfm", ""},
        {{PathOf("cutbinary.dfm"), PathOf("out.pst")}, "cutbinary.dfm", "end of stream"},
        {{form, PathOf("out.pst")}, "Main.dfm", "several packages of kind Strings (Texts, Moved)"},
        {{form, PathOf("out.pst"), "--component", "Nope"}, "Main.dfm", "named Nope"},
        {{form, PathOf("out.pst"), "--component", "Moved"}, "Main.dfm", "kept in its own file moved.pst"},
        {{form, PathOf("out.pst"), "--component"}, "", "--component needs a name"},
        {{good, PathOf("out.pst")}, "", "both are package files"},
        {{form, PathOf("broken.dfm")}, "", "neither is a package file"},
    };
    const auto before = Snapshot();
    for (const auto& c : cases) {
        std::vector<std::string> args{"pkg", "convert"};
        args.insert(args.end(), c.Args.begin(), c.Args.end());
        const TQzpkgRun run = Qzpkg(args);
        SCOPED_TRACE(run.Err);
        EXPECT_EQ(run.Code, 1);
        EXPECT_EQ(run.Out, "");
        EXPECT_EQ(run.Err.find('\n'), run.Err.size() - 1) << "one line";
        EXPECT_NE(run.Err.find(c.Names), std::string::npos);
        EXPECT_NE(run.Err.find(c.Says), std::string::npos);
        EXPECT_TRUE(Snapshot() == before) << "something was written";
    }
}

}  // namespace

#endif
