// What a package tells the components linked to it, and what clearing the
// application's packages keeps.

#include "runtime/model/Qzmain.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

struct TRecorder : IQzPkgLink {
    std::vector<int> Events;
    std::vector<void*> Data;
    std::vector<AnsiString> OldNames;
    TQzPkgInfo* UnlinkFrom = nullptr;
    IQzPkgLink* AlsoUnlink = nullptr;

    void PkgNotify(TQzPkgInfo* pkg, int event, void* data) override
    {
        Events.push_back(event);
        Data.push_back(data);
        if (event == peName)
            OldNames.push_back(*static_cast<const AnsiString*>(data));
        if (UnlinkFrom == pkg) {
            pkg->RemoveLink(this);
            if (AlsoUnlink)
                pkg->RemoveLink(AlsoUnlink);
        }
    }
};

TEST(PackageLinks, HearRenamesActivationUpdatesAndTheEnd)
{
    TRecorder rec;
    TObject sender;
    {
        TQzPkgStrings pkg(nullptr);
        pkg.AddLink(&rec);
        pkg.AddLink(&rec);   // once is enough
        EXPECT_EQ(pkg.LinkCount(), 1);
        pkg.SetPkgName("Main");
        pkg.SetActive(false);
        pkg.NotifyUpdate(&sender);
        pkg.NotifyInit(&sender);
        pkg.SetPkgName("Main");   // unchanged: nothing said
        const std::vector<int> expected = {peName, peActive, peUpdate, peInit};
        EXPECT_EQ(rec.Events, expected);
        EXPECT_EQ(rec.OldNames, std::vector<AnsiString>{""});
        EXPECT_EQ(rec.Data[2], &sender);
        rec.Events.clear();
    }
    ASSERT_EQ(rec.Events.size(), 1u);
    EXPECT_EQ(rec.Events[0], peDestroy);
}

TEST(PackageLinks, ALinkMayLeaveOrRemoveAnotherWhileHearing)
{
    TQzPkgVars pkg(nullptr);
    TRecorder first, second;
    first.UnlinkFrom = &pkg;
    first.AlsoUnlink = &second;
    pkg.AddLink(&first);
    pkg.AddLink(&second);
    pkg.Add("X", qvInteger);
    EXPECT_EQ(first.Events.size(), 1u);
    EXPECT_TRUE(second.Events.empty()) << "removed before its turn";
    EXPECT_EQ(pkg.LinkCount(), 0);
}

TEST(PackageLinks, ALinkedPackageThatLosesItsNameTellsTheOtherOne)
{
    TQzPkgImages a(nullptr), b(nullptr);
    a.SetPkgName("Pics");
    TRecorder rec;
    a.AddLink(&rec);
    b.SetPkgName("pics");
    ASSERT_EQ(rec.Events.size(), 1u);
    EXPECT_EQ(rec.Events[0], peActive);
    EXPECT_FALSE(a.Active());
    a.RemoveLink(&rec);
}

TEST(ApplicationPackages, ClearingKeepsTheSuitesOwnData)
{
    TQzCApplication app(nullptr);
    app.SetSystemEdit(true);
    TQzPkgDisplay* display = app.PkgDisplay();
    display->PkgSystem()->Images()->Add(1);
    display->PkgUser()->Images()->Add(2);
    display->SetsColor()->Add("Alert");
    display->SetCWMarginTop(20);
    TQzPkgLanguage* language = app.PkgLanguage();
    language->PkgSystem()->Messages()->Add(26, "Delete?");
    language->PkgUser()->Labels()->Add(1, "mine");
    language->Locale()->SetDecimals(0);
    app.SetSystemEdit(false);

    display->Clear();
    language->Clear();
    EXPECT_EQ(display->PkgSystem()->Images()->Count(), 1);
    EXPECT_EQ(display->PkgUser()->Images()->Count(), 0);
    EXPECT_EQ(display->SetsColor()->Count(), 0);
    EXPECT_EQ(display->Geometry().CWMarginTop, 8);
    EXPECT_EQ(language->PkgSystem()->Messages()->Count(), 1);
    EXPECT_TRUE(language->PkgUser()->IsEmpty());
    EXPECT_EQ(language->Locale()->Decimals(), 2);
    EXPECT_TRUE(display->GetModified());
}

TEST(ApplicationPackages, AreSubcomponentsNamedAfterTheirProperties)
{
    TQzCApplication app(nullptr);
    const struct {
        const char* Property;
        TQzPkgInfo* Pkg;
    } rows[] = {{"PkgDisplay", app.PkgDisplay()}, {"PkgLanguage", app.PkgLanguage()}, {"PkgSetup", app.PkgSetup()},
                {"PkgVars", app.PkgVars()},       {"Privileges", app.Privileges()}};
    for (const auto& r : rows) {
        SCOPED_TRACE(r.Property);
        EXPECT_EQ(GetObjectProp(&app, r.Property), r.Pkg);
        EXPECT_EQ(r.Pkg->Name(), r.Property);
        EXPECT_TRUE(r.Pkg->ComponentStyle().Contains(csSubComponent));
        EXPECT_EQ(r.Pkg->Owner(), &app);
        EXPECT_FALSE(r.Pkg->GetModified());
    }
}

}  // namespace
