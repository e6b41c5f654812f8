// The variables editor's work on a package without a window: new names,
// values as text, refused values and the search.

#include "design/settings/QzPkgVarsLogic.h"

#include "rtl/SysUtils.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

// The package the search tests walk. The tree shows it as:
//   root: Alpha "hello", Flag True
//   colors: Background "blue"
//   Setup: Printer "LaserJet", Copies 2
//     Paper: Size "A4"
std::unique_ptr<TQzPkgVars> SamplePackage()
{
    auto pkg = std::make_unique<TQzPkgVars>(nullptr);
    pkg->Add("Alpha", qvString)->SetVString("hello");
    pkg->Add("Setup", qvFolder);
    pkg->Add("Flag", qvBoolean)->SetVBoolean(true);
    pkg->Add("Setup\\Printer", qvString)->SetVString("LaserJet");
    pkg->Add("Setup\\Copies", qvInteger)->SetVInteger(2);
    pkg->Add("Setup\\Paper\\Size", qvString)->SetVString("A4");
    pkg->Add("colors\\Background", qvString)->SetVString("blue");
    return pkg;
}

TEST(PkgVarsLogic, FoldersComeInTreeOrderSortedWithoutRegardToCase)
{
    auto pkg = SamplePackage();
    pkg->Add("setup2", qvFolder);
    pkg->Add("Setup\\Abc", qvFolder);
    std::vector<std::pair<AnsiString, int>> shown;
    for (const TQzVarsFolder& f : QzVarsFolderOrder(*pkg))
        shown.emplace_back(f.Item ? f.Item->Ident() : "(root)", f.Depth);
    const std::vector<std::pair<AnsiString, int>> expected{
        {"(root)", 0}, {"colors", 1}, {"Setup", 1}, {"Abc", 2}, {"Paper", 2}, {"setup2", 1}};
    EXPECT_EQ(shown, expected);
    // Variables in package order, folders left out.
    const auto vars = QzVarsVariables(*pkg, nullptr);
    ASSERT_EQ(vars.size(), 2u);
    EXPECT_EQ(vars[0]->Ident(), "Alpha");
    EXPECT_EQ(vars[1]->Ident(), "Flag");
}

TEST(PkgVarsLogic, NewNamesTakeTheFirstFreeNumber)
{
    auto pkg = SamplePackage();
    EXPECT_EQ(NameVar(*pkg, "Setup"), "New Var #1");
    pkg->Add("Setup\\New Var #1", qvString);
    pkg->Add("Setup\\New Var #3", qvString);
    EXPECT_EQ(NameVar(*pkg, "Setup"), "New Var #2");
    EXPECT_EQ(NameVar(*pkg, ""), "New Var #1") << "another folder has its own numbers";
    pkg->Add("New Folder #1", qvFolder);
    EXPECT_EQ(NameFolder(*pkg, ""), "New Folder #2");
    // Names are compared as the package finds them: without regard to case.
    pkg->Add("Setup\\new var #2", qvString);
    EXPECT_EQ(NameVar(*pkg, "Setup"), "New Var #4");
}

TEST(PkgVarsLogic, ValuesAreShownByTypeAndBadValuesLeaveTheVariableAlone)
{
    auto pkg = std::make_unique<TQzPkgVars>(nullptr);
    struct Case {
        TQzPkgVarsItemType Type;
        const char* Text;
        bool Accepted;
        const char* Shown;  // the list's text afterwards
    };
    const Case cases[] = {
        {qvBoolean, "", false, "\"False\""},          {qvBoolean, "TRUE", true, "\"True\""},
        {qvBoolean, "yes", false, "\"False\""},       {qvBoolean, "fAlSe", true, "\"False\""},
        {qvBoolean, "1", false, "\"False\""},         {qvInteger, "", false, "\"0\""},
        {qvInteger, "-7", true, "\"-7\""},            {qvInteger, "12a", false, "\"0\""},
        {qvInteger, "2147483648", false, "\"0\""},    {qvFloat, "", false, "\"0\""},
        {qvFloat, "2.25", true, "\"2.25\""},          {qvFloat, "1,5", false, "\"0\""},
        {qvFloat, "1e3", false, "\"0\""},             {qvFloat, "-0.1", true, "\"-0.1\""},
        {qvString, "", true, "\"\""},                 {qvString, "any \"text\"", true, "\"any \"text\"\""},
    };
    int n = 0;
    for (const Case& c : cases) {
        TQzPkgVarsItem* item = pkg->Add("v" + IntToStr(++n), c.Type);
        QzVarsSetInitialValue(*item);
        bool accepted = true;
        try {
            QzVarsSetValue(*item, c.Text);
        } catch (const EConvertError& e) {
            accepted = false;
            if (c.Type == qvBoolean) {
                EXPECT_EQ(e.Message(), "Incorrect Format");
            }
        }
        EXPECT_EQ(accepted, c.Accepted) << TypeToString(c.Type) << " \"" << c.Text << "\"";
        EXPECT_EQ(QzVarsValueText(*item), c.Shown) << TypeToString(c.Type) << " \"" << c.Text << "\"";
    }
}

TEST(PkgVarsLogic, FindLooksAtNamesThenValuesFolderByFolder)
{
    auto pkg = SamplePackage();
    const auto folders = QzVarsFolderOrder(*pkg);
    ASSERT_EQ(folders.size(), 4u);  // root, colors, Setup, Paper
    struct Case {
        const char* What;
        TQzVarsPlace From;
        TQzVarsFindOptions Options;
        bool Found;
        int Folder;
        int Row;
    };
    const Case cases[] = {
        {"a Boolean's value, case ignored", {}, {"true"}, true, 0, 1},
        {"a Boolean's value, case kept", {}, {"true", true, true}, false, -1, -1},
        {"a folder's name", {}, {"setup"}, true, 2, -1},
        {"whole word is the whole name", {}, {"Print", true, false, true}, false, -1, -1},
        {"whole name", {}, {"printer", true, false, true}, true, 2, 0},
        {"a part of a value", {}, {"jet"}, true, 2, 0},
        {"after the selected row", {2, 0}, {"e"}, true, 2, 1},          // Copies
        {"after the folder's last row", {2, 1}, {"e"}, true, 3, -1},     // Paper's name
        {"after the selected folder's rows", {1, 0}, {"e"}, true, 2, -1},  // Setup's name
        {"from a folder with no row selected", {2, -1}, {"Copies"}, true, 2, 1},
        {"upwards from a row", {2, 1}, {"e", false}, true, 2, 0},
        {"upwards past the folder's name", {2, 0}, {"e", false}, true, 2, -1},
        {"upwards into the folder before", {2, -1}, {"blue", false}, true, 1, 0},
        {"upwards to the root", {1, -1}, {"hello", false}, true, 0, 0},
        {"upwards begins at the root's last child", {}, {"LaserJet", false}, true, 2, 0},
        {"downwards runs out", {3, 0}, {"hello"}, false, -1, -1},
    };
    for (const Case& c : cases) {
        TQzVarsFinder finder;
        const TQzVarsHit hit = finder.Find(*pkg, folders, c.From, c.Options);
        EXPECT_EQ(hit.Found, c.Found) << c.What;
        EXPECT_EQ(hit.Folder, c.Folder) << c.What;
        EXPECT_EQ(hit.Row, c.Row) << c.What;
        EXPECT_EQ(finder.Restart(), !c.Found) << c.What;
    }
}

TEST(PkgVarsLogic, AFailedSearchMakesTheNextStartAgainAtTheFirstFolder)
{
    auto pkg = SamplePackage();
    const auto folders = QzVarsFolderOrder(*pkg);
    TQzVarsFinder finder;
    const TQzVarsPlace inSetup{2, 0};
    EXPECT_FALSE(finder.Find(*pkg, folders, inSetup, {"Alpha"}).Found);
    const TQzVarsHit again = finder.Find(*pkg, folders, inSetup, {"Alpha"});
    EXPECT_TRUE(again.Found);
    EXPECT_EQ(again.Folder, 0);
    EXPECT_EQ(again.Row, 0);
    // A hit clears the restart: the next search goes on from the place.
    const TQzVarsHit next = finder.Find(*pkg, folders, {0, 0}, {"a"});
    EXPECT_EQ(next.Folder, 0);
    EXPECT_EQ(next.Row, 1);  // Flag's name
}

}  // namespace
