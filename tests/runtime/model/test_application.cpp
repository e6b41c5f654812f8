// The application object and what hangs on it: one per project, the
// guard on the "System" packages, refreshing them, the package files
// behind LoadFile/SaveFile, and the privileges template.

#include "ModelTestSupport.h"

#include <gtest/gtest.h>

#include <fstream>
#include <functional>

using namespace QzModelTest;

namespace {

TEST(Application, AProjectHoldsOneAndQzCAppFindsIt)
{
    EXPECT_EQ(QzCApp(), nullptr);
    TComponent form(nullptr);
    form.SetName("MainForm");
    auto* app = new TQzCApplication(&form);
    app->SetName("App1");
    EXPECT_EQ(QzCApp(), app);
    try {
        TQzCApplication second(nullptr);
        ADD_FAILURE() << "a second application was made";
    } catch (const EQzPkgError& e) {
        EXPECT_NE(e.Message().find("MainForm.App1"), std::string::npos) << e.Message();
    }
    EXPECT_EQ(QzCApplications().size(), 1u);
    EXPECT_EQ(form.ComponentCount(), 1);
    delete app;
    EXPECT_EQ(QzCApp(), nullptr);
    TQzCApplication again(nullptr);
    EXPECT_EQ(QzCApp(), &again);
}

TEST(Application, ProjectsOfTheirOwnEachHoldOne)
{
    SetQzProjectResolver([](const TComponent* app) -> const void* { return app->Owner(); });
    {
        TComponent project1(nullptr), project2(nullptr);
        auto* a = new TQzCApplication(&project1);
        auto* b = new TQzCApplication(&project2);
        EXPECT_THROW(new TQzCApplication(&project1), EQzPkgError);
        EXPECT_EQ(QzCApp(), a);
        EXPECT_TRUE(a->Active());
        EXPECT_FALSE(b->Active());
        TStringList list;
        QzCApplicationsAll(&list);
        ASSERT_EQ(list.Count(), 2);
        EXPECT_EQ(list.Objects(1), b);

        b->SetActive(true);
        EXPECT_EQ(QzCApp(), b);
        EXPECT_FALSE(a->Active());
        delete b;
        EXPECT_EQ(QzCApp(), a);
        EXPECT_TRUE(a->Active());
    }
    SetQzProjectResolver(nullptr);
    EXPECT_EQ(QzCApp(), nullptr);
}

// Every way of changing a strings package's contents.
const struct {
    const char* Name;
    std::function<void(TQzPkgStrings&)> Change;
} StringsChanges[] = {
    {"add", [](TQzPkgStrings& p) { p.Labels()->Add(9, "new"); }},
    {"text", [](TQzPkgStrings& p) { p.Labels()->FindId(1)->SetText("changed"); }},
    {"hint", [](TQzPkgStrings& p) { p.Labels()->FindId(1)->SetHint("changed"); }},
    {"id", [](TQzPkgStrings& p) { p.Labels()->FindId(1)->SetId(2); }},
    {"protect", [](TQzPkgStrings& p) { p.Messages()->FindId(1)->SetProtected(true); }},
    {"delete", [](TQzPkgStrings& p) { p.Labels()->Delete(0); }},
    {"clear list", [](TQzPkgStrings& p) { p.Texts()->Clear(); }},
    {"clear", [](TQzPkgStrings& p) { p.Clear(); }},
};

TEST(SystemGuard, TheSystemStringsChangeOnlyWhileSystemEditingIsAllowed)
{
    TQzCApplication app(nullptr);
    TQzPkgStrings* system = app.PkgLanguage()->PkgSystem();
    TQzPkgStrings* user = app.PkgLanguage()->PkgUser();
    auto fill = [](TQzPkgStrings& p) {
        TQzPkgInfo::TSystemUpdate allowed(p);
        p.Clear();
        p.Labels()->Add(1, "one");
        p.Messages()->Add(1, "m");
        p.Texts()->Add(1, "t");
    };
    for (const auto& c : StringsChanges) {
        SCOPED_TRACE(c.Name);
        fill(*system);
        fill(*user);
        const std::string before = Contents(*system);
        app.SetSystemEdit(false);
        EXPECT_THROW(c.Change(*system), EQzPkgError);
        EXPECT_EQ(Contents(*system), before);
        EXPECT_NO_THROW(c.Change(*user));
        app.SetSystemEdit(true);
        EXPECT_NO_THROW(c.Change(*system));
        EXPECT_NE(Contents(*system), before);
    }
    app.SetSystemEdit(false);
    TQzPkgImages* images = app.PkgDisplay()->PkgSystem();
    EXPECT_THROW(images->Images()->Add(1), EQzPkgError);
    // Reading contents is not editing: a language file may always load.
    TQzPkgStrings source(nullptr);
    source.Labels()->Add(77, "loaded");
    TWriter w;
    source.xSaveToStream(&w);
    TReader r(w.Buffer());
    system->xLoadFromStream(&r);
    EXPECT_EQ(system->Labels()->FindId(77)->Text(), "loaded");
}

TEST(SystemGuard, WithoutAnApplicationNoPackageNamedSystemChanges)
{
    TQzPkgStrings pkg(nullptr);
    pkg.SetPkgName("sYsTeM");
    EXPECT_THROW(pkg.Labels()->Add(1, "x"), EQzPkgError);
    pkg.SetPkgName("Main");
    EXPECT_NO_THROW(pkg.Labels()->Add(1, "x"));
}

// Another provider may be installed by whoever ran before: it is put aside.
struct TProviderAside {
    TProviderAside() : Saved(QzSystemPackagesProvider()) { SetSystemPackagesProvider({}); }
    ~TProviderAside() { SetSystemPackagesProvider(Saved); }
    TQzSystemPackagesProvider Saved;
};

TEST(SystemPackages, RefreshFromTheBuiltInDataMergesOrReplaces)
{
    TProviderAside aside;
    TQzCApplication app(nullptr);
    EXPECT_FALSE(app.UpdateSystemPkgs(false)) << "nothing installed yet";
    TQzPkgStrings* system = app.PkgLanguage()->PkgSystem();
    {
        TQzPkgInfo::TSystemUpdate allowed(*system);
        system->Labels()->Add(1, "old text");
        system->Labels()->Add(50, "added by the user");
    }
    SetSystemPackagesProvider({[](TQzPkgStrings& s) {
                                   s.Labels()->Add(1, "Yes", "Confirms");
                                   s.Labels()->Add(2, "No");
                                   s.Messages()->Add(26, "Delete the item?");
                               },
                               [](TQzPkgImages& i) { i.Images()->Add(3)->SetPicture("P", "TPngImage", 1, 1); }});
    EXPECT_TRUE(app.UpdateSystemPkgs(false));
    EXPECT_EQ(system->Labels()->FindId(1)->Text(), "Yes");
    EXPECT_EQ(system->Labels()->FindId(1)->Hint(), "Confirms");
    EXPECT_TRUE(system->Labels()->FindId(1)->Protected());
    EXPECT_EQ(system->Labels()->FindId(50)->Text(), "added by the user");
    EXPECT_FALSE(system->Labels()->FindId(50)->Protected());
    EXPECT_EQ(system->Messages()->FindId(26)->Text(), "Delete the item?");
    EXPECT_FALSE(app.PkgDisplay()->PkgSystem()->Images()->FindId(3)->Empty());

    EXPECT_TRUE(app.UpdateSystemPkgs(true));
    EXPECT_EQ(system->Labels()->FindId(50), nullptr);
    EXPECT_EQ(system->Labels()->Count(), 2);
    // The refresh did not open the package for anybody else.
    EXPECT_THROW(system->Labels()->Add(60, "x"), EQzPkgError);
}

TEST(SystemPackages, RefreshFromALanguageFileOrAStringsFile)
{
    TInstalledFormat format;
    TTempDir dir;
    TQzCApplication app(nullptr);
    {
        TQzDetachedPkgs detached;
        TQzPkgLanguage language(nullptr);
        {
            TQzPkgInfo::TSystemUpdate allowed(*language.PkgSystem());
            language.PkgSystem()->Messages()->Add(49, "File %s not found");
        }
        language.SaveToFile(dir.File("base.lan"));
        TQzPkgStrings strings(nullptr);
        strings.Messages()->Add(56, "Continue?");
        strings.SaveToFile(dir.File("base.pst"));
    }
    app.UpdateSystemPkgLanguage(dir.File("base.lan"), false);
    TQzPkgStrings* system = app.PkgLanguage()->PkgSystem();
    EXPECT_EQ(system->Messages()->FindId(49)->Text(), "File %s not found");
    EXPECT_EQ(app.PkgLanguage()->LastUpdateFile(), dir.File("base.lan"));
    EXPECT_GT(app.PkgLanguage()->UpdateDateTime(), 0);
    app.UpdateSystemPkgLanguage(dir.File("base.pst"), false);
    EXPECT_EQ(system->Messages()->Count(), 2);

    const std::string before = Contents(*system);
    std::ofstream(dir.File("bad.lan")) << "garbage";
    try {
        app.UpdateSystemPkgLanguage(dir.File("bad.lan"), true);
        ADD_FAILURE() << "a bad file was taken";
    } catch (const Exception& e) {
        EXPECT_NE(e.Message().find("bad.lan"), std::string::npos) << e.Message();
    }
    EXPECT_EQ(Contents(*system), before);
}

TEST(PackageFiles, NamesAreCompletedFromTheApplicationsFolders)
{
    TQzPkgStrings strings(nullptr);
    TQzPkgVars vars(nullptr);
    EXPECT_EQ(strings.GetFileName(""), "");
    EXPECT_EQ(strings.GetFileName("/abs/labels"), "/abs/labels.pst");
    EXPECT_EQ(strings.GetFileName("/abs/labels.txt"), "/abs/labels.txt");
    EXPECT_EQ(strings.GetFileName("labels"), IncludeTrailingPathDelimiter(GetCurrentDir()) + "labels.pst");
    TQzCApplication app(nullptr);
    app.SetPath("/srv/app");
    app.SetPathPkgVars("/srv/vars");
    EXPECT_EQ(strings.GetFileName("sub\\labels"), "/srv/app/sub/labels.pst");
    EXPECT_EQ(vars.GetFileName("settings"), "/srv/vars/settings.pva");
    vars.SetFileName("other");
    EXPECT_EQ(vars.GetPathFileName(), "/srv/vars/other.pva");
}

TEST(PackageFiles, OwnFileIsWrittenWhenModifiedAndReadWhenChangedOnDisk)
{
    TInstalledFormat format;
    TTempDir dir;
    TQzPkgStrings pkg(nullptr);
    FillStrings(pkg);
    pkg.SetDescription("Main");
    const std::string contents = Contents(pkg);
    pkg.SaveFileEx(dir.File("main"), imFile);
    EXPECT_EQ(pkg.InitMode(), imFile);
    EXPECT_EQ(pkg.FileName(), dir.File("main"));
    EXPECT_TRUE(FileExists(dir.File("main.pst")));
    EXPECT_FALSE(pkg.GetModified());
    EXPECT_FALSE(pkg.FileModified());
    EXPECT_EQ(format.Format->ReadDescription(dir.File("main.pst")), "Main");

    pkg.SaveFile();
    EXPECT_EQ(format.Format->Saves, 1) << "unmodified: nothing to write";
    pkg.Labels()->FindId(0)->SetText("Save as");
    pkg.SaveFile();
    EXPECT_EQ(format.Format->Saves, 2);

    // Another program writes the file: the package notices and reloads.
    {
        TQzDetachedPkgs detached;
        TQzPkgStrings other(nullptr);
        other.Labels()->Add(1, "from elsewhere, a longer file than before");
        other.SaveToFile(dir.File("main.pst"));
    }
    EXPECT_TRUE(pkg.FileModified());
    pkg.LoadFile();
    EXPECT_FALSE(pkg.FileModified());
    EXPECT_FALSE(pkg.GetModified());
    EXPECT_EQ(pkg.Labels()->Count(), 1);

    // Loading a copy keeps the package where it lives and marks it.
    TQzPkgStrings copy(nullptr);
    copy.LoadFromFile(dir.File("main.pst"));
    EXPECT_TRUE(copy.GetModified());
    EXPECT_EQ(copy.InitMode(), imDFM);
    EXPECT_EQ(Contents(copy), Contents(pkg));

    // Back into the form: the form must be saved with the contents now.
    pkg.LoadFileEx(dir.File("main"), imDFM);
    EXPECT_EQ(pkg.InitMode(), imDFM);
    EXPECT_EQ(pkg.FileName(), "");
    EXPECT_TRUE(pkg.GetModified());
    EXPECT_NE(Contents(pkg), contents);
}

TEST(PackageFiles, FailuresNameTheirCauseAndChangeNothing)
{
    TQzPkgStrings pkg(nullptr);
    FillStrings(pkg);
    const std::string contents = Contents(pkg);
    try {
        TInstalledFormat none(false);
        pkg.SaveToFile("/tmp/never.pst");
        ADD_FAILURE() << "saved without a format";
    } catch (const EQzPkgError& e) {
        EXPECT_NE(e.Message().find("TQzPkgStrings"), std::string::npos) << e.Message();
    }
    TInstalledFormat format;
    TTempDir dir;
    std::ofstream(dir.File("wrong.pst")) << "PkgImages\n\n";
    EXPECT_THROW(pkg.LoadFromFile(dir.File("wrong.pst")), EReadError);
    EXPECT_THROW(pkg.LoadFileEx(dir.File("missing"), imFile), Exception);
    EXPECT_EQ(Contents(pkg), contents);
    EXPECT_EQ(pkg.InitMode(), imDFM);
    EXPECT_EQ(pkg.FileName(), "");
}

TEST(PrivilegesTemplate, RoundTripsAndRefusesBadLinesNamingThem)
{
    TTempDir dir;
    TQzPkgPrivileges pkg(nullptr);
    pkg.SetKey("secret");
    TQzPkgPrivilegesItem* item = pkg.Add(3);
    item->SetAccess(qaR);
    item->SetDescription("Tabs\tand\nbreaks \\ kept");
    pkg.Add(8)->DescriptionId()->PkgId("User", 40);
    pkg.Add(9)->SetVisible(false);
    pkg.SaveTemplateToFile(dir.File("t.txt"));

    TQzPkgPrivileges copy(nullptr);
    copy.LoadTemplateFromFile(dir.File("t.txt"));
    ASSERT_EQ(copy.Count(), 3);
    EXPECT_EQ(copy.FindId(3)->Access(), qaR);
    EXPECT_EQ(copy.FindId(3)->Description(), "Tabs\tand\nbreaks \\ kept");
    EXPECT_EQ(copy.FindId(8)->DescriptionId()->PkgName(), "User");
    EXPECT_EQ(copy.FindId(8)->DescriptionId()->Id(), 40);
    EXPECT_FALSE(copy.FindId(9)->Visible());
    EXPECT_EQ(copy.Key(), "") << "the key is not part of a template";

    const struct {
        const char* Case;
        const char* Text;
        const char* Line;
    } bad[] = {
        {"not a template", "hello\n", "line: 1"},
        {"bad id", "QzPrivilegesTemplate 1\n1\tR\t1\t\t-1\tok\nx\tR\t1\t\t-1\t\n", "line: 3"},
        {"bad access", "QzPrivilegesTemplate 1\n1\tW\t1\t\t-1\t\n", "line: 2"},
        {"duplicate", "QzPrivilegesTemplate 1\n1\tN\t1\t\t-1\t\n1\tN\t1\t\t-1\t\n", "line: 3"},
        {"fields", "QzPrivilegesTemplate 1\n1\tN\t1\n", "line: 2"},
        {"escape", "QzPrivilegesTemplate 1\n1\tN\t1\t\t-1\tbad\\q\n", "line: 2"},
    };
    for (const auto& b : bad) {
        SCOPED_TRACE(b.Case);
        std::ofstream(dir.File("bad.txt"), std::ios::trunc) << b.Text;
        try {
            copy.LoadTemplateFromFile(dir.File("bad.txt"));
            ADD_FAILURE() << "loaded";
        } catch (const EQzPkgError& e) {
            EXPECT_NE(e.Message().find("bad.txt"), std::string::npos) << e.Message();
            EXPECT_NE(e.Message().find(b.Line), std::string::npos) << e.Message();
        }
        EXPECT_EQ(copy.Count(), 3);
    }
}

TEST(Application, StandardWindowsAnswerThroughTheirHooks)
{
    TQzCApplication app(nullptr);
    Extended value = 1.5L;
    TDateTime date = 45000;
    EXPECT_FALSE(app.Calculator(2, value));
    EXPECT_FALSE(app.Calendar(date));
    SetQzStandardWindows({[](int decimals, Extended& v) {
                              v = v * 2 + decimals;
                              return true;
                          },
                          [](TDateTime&) { return false; }});
    EXPECT_TRUE(app.Calculator(2, value));
    EXPECT_EQ(value, 5.0L);
    EXPECT_FALSE(app.Calendar(date));
    SetQzStandardWindows({});
}

}  // namespace
