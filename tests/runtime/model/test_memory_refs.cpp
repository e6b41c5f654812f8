// Memory references and the package registry: a reference finds its text
// through the package of that name as the package stands now, -1 and -2
// mean what they say, and the registry knows which package a name means.

#include "runtime/model/Qzmain.h"

#include "rtl/ComponentStream.h"

#include <gtest/gtest.h>

namespace {

class TModelRefControl : public TComponent {
    QZ_CLASS(TModelRefControl, TComponent)

public:
    explicit TModelRefControl(TComponent* owner) : TComponent(owner) {}
    TQzMemoryLabel FLabel{"System", 3, true};
    TQzMemoryText FNote;

private:
    static void DeclareProperties(TClassBuilder<TModelRefControl>& b)
    {
        b.Property("Label", [](TModelRefControl& c) { return &c.FLabel; });
        b.Property("Note", [](TModelRefControl& c) { return &c.FNote; });
    }
};

// A strings package "Main" with item 5 in each list.
struct TMainStrings {
    TMainStrings()
    {
        Pkg.SetPkgName("Main");
        Pkg.Labels()->Add(5, "Save", "Saves the file");
        Pkg.Labels()->Add(6, "Open");
        Pkg.Messages()->Add(5, "Saved.");
        Pkg.Texts()->Add(5, "Line 1\nLine 2");
    }
    TQzPkgStrings Pkg{nullptr};
};

TEST(MemoryLabel, ResolvesByIdWithNoneAndDefault)
{
    TMainStrings main;
    const struct {
        const char* Case;
        AnsiString DefaultPkg;
        Integer DefaultId;
        bool HasDefault;
        AnsiString PkgName;
        Integer Id;
        bool Defined;
        const char* Text;
        const char* Hint;
        const char* Info;
    } rows[] = {
        {"item", "", -1, false, "Main", 5, true, "Save", "Saves the file", "(5, Main) Save - Saves the file"},
        {"item, no hint", "", -1, false, "main", 6, true, "Open", "", "(6, main) Open"},
        {"none", "", -1, false, "Main", -1, false, "", "", "(None)"},
        {"other negative", "", -1, false, "Main", -7, false, "", "", "(None)"},
        {"default", "Main", 6, true, "Other", -2, true, "Open", "", "(Default)"},
        {"default without one", "", -1, false, "Main", -2, false, "", "", "(Default)"},
        {"missing item", "", -1, false, "Main", 99, true, "", "", "(99, Main) "},
        {"missing package", "", -1, false, "Nowhere", 5, true, "", "", "(5, Nowhere) "},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.Case);
        TQzMemoryLabel ref(r.DefaultPkg, r.DefaultId, r.HasDefault);
        ref.PkgId(r.PkgName, r.Id);
        EXPECT_EQ(ref.Defined(), r.Defined);
        EXPECT_EQ(ref.Text(), r.Text);
        EXPECT_EQ(ref.Hint(), r.Hint);
        EXPECT_EQ(ref.Info(), r.Info);
    }
}

TEST(MemoryReferences, MessagesAndTextsResolveInTheirOwnLists)
{
    TMainStrings main;
    TQzMemoryMessage message;
    message.PkgId("Main", 5);
    TQzMemoryText text;
    text.PkgId("Main", 5);
    EXPECT_EQ(message.Text(), "Saved.");
    EXPECT_EQ(message.Info(), "(5, Main) Saved.");
    EXPECT_EQ(text.Text(), "Line 1\nLine 2");
    text.SetId(6);
    EXPECT_EQ(text.Text(), "");
    EXPECT_EQ(QzReadPkgLabelText("MAIN", 6), "Open");
    EXPECT_EQ(QzReadPkgLabelText("Main", 5000), "");
}

TEST(MemoryReferences, FollowThePackageAsItChangesAndGoes)
{
    TQzMemoryLabel ref;
    ref.PkgId("Main", 5);
    {
        TMainStrings main;
        EXPECT_EQ(ref.Text(), "Save");
        main.Pkg.Labels()->FindId(5)->SetText("Save all");
        EXPECT_EQ(ref.Text(), "Save all");
        main.Pkg.SetPkgName("Renamed");
        EXPECT_EQ(ref.Text(), "");
        main.Pkg.SetPkgName("Main");
        EXPECT_EQ(ref.Text(), "Save all");
    }
    EXPECT_EQ(ref.Text(), "");
}

TEST(MemoryReferences, AssignCopiesTheReferenceButNotTheDefaults)
{
    TQzMemoryLabel a("Main", 1, true);
    a.PkgId("User", 8);
    TQzMemoryLabel b;
    int changes = 0;
    b.OnChange = [&] { ++changes; };
    b.Assign(&a);
    EXPECT_EQ(b.PkgName(), "User");
    EXPECT_EQ(b.Id(), 8);
    EXPECT_FALSE(b.HasDefault());
    EXPECT_EQ(changes, 1);
    b.Assign(&a);
    EXPECT_EQ(changes, 1);
    TQzMemoryMessage m;
    EXPECT_THROW(m.Assign(&a), EConvertError);
}

TEST(MemoryReferences, AreWrittenAsPkgNameThenIdAndOnlyWhenSet)
{
    RegisterQzModelClasses();
    RegisterClass(TModelRefControl::ClassInfo());
    TComponent root(nullptr);
    root.SetName("Form1");
    auto* control = new TModelRefControl(&root);
    control->SetName("Label1");
    control->FNote.PkgId("User", 12);
    TFormTextOptions lf;
    lf.LineBreak = "\n";
    const std::string text = WriteFormText(&root, lf);
    // The label still holds its default (-2): nothing of it is written.
    EXPECT_EQ(text.find("Label.Id"), std::string::npos);
    EXPECT_NE(text.find("    Note.PkgName = 'User'\n    Note.Id = 12\n"), std::string::npos) << text;

    control->FLabel.SetId(-1);
    const std::string none = WriteFormText(&root, lf);
    EXPECT_NE(none.find("Label.Id = -1"), std::string::npos);

    std::unique_ptr<TComponent> read = ReadForm(none, lf);
    auto* back = dynamic_cast<TModelRefControl*>(read->FindComponent("Label1"));
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(back->FLabel.Id(), -1);
    EXPECT_EQ(back->FNote.PkgName(), "User");
    EXPECT_EQ(back->FNote.Id(), 12);
}

TEST(PackageRegistry, TheNewestPackageOfANameIsTheActiveOne)
{
    TQzPkgStrings older(nullptr);
    older.SetPkgName("Main");
    older.Labels()->Add(1, "older");
    TQzPkgStrings newer(nullptr);
    newer.Labels()->Add(1, "newer");
    newer.SetPkgName("MAIN");
    EXPECT_FALSE(older.Active());
    EXPECT_TRUE(newer.Active());
    EXPECT_EQ(QzFindPkgStrings("main"), &newer);
    EXPECT_EQ(QzReadPkgLabelText("Main", 1), "newer");

    older.SetActive(true);
    EXPECT_FALSE(newer.Active());
    EXPECT_EQ(QzFindPkgStrings("Main"), &older);

    TStringList all, actives;
    QzPkgStringsAll(&all);
    QzPkgStringsActives(&actives);
    EXPECT_NE(all.IndexOfObject(&newer), -1);
    EXPECT_NE(all.IndexOfObject(&older), -1);
    EXPECT_EQ(actives.IndexOfObject(&newer), -1);
    EXPECT_EQ(actives[actives.IndexOfObject(&older)], "Main");

    // With no active package of the name, an inactive one still answers.
    older.SetActive(false);
    EXPECT_NE(QzFindPkgStrings("Main"), nullptr);
    EXPECT_EQ(QzFindPkgStrings("Elsewhere"), nullptr);
}

TEST(PackageRegistry, PackagesLeaveWhenFreedAndTemporaryOnesNeverJoin)
{
    auto countOf = [](TQzPkgKind kind) { return QzPkgRegistry(kind).size(); };
    const size_t strings = countOf(pkStrings), images = countOf(pkImages), vars = countOf(pkVars);
    {
        TQzPkgStrings s(nullptr);
        TQzPkgImages i(nullptr);
        TQzPkgVars v(nullptr);
        EXPECT_EQ(countOf(pkStrings), strings + 1);
        EXPECT_EQ(countOf(pkImages), images + 1);
        EXPECT_EQ(countOf(pkVars), vars + 1);
        TQzDetachedPkgs detached;
        TQzPkgStrings hidden(nullptr);
        hidden.SetPkgName("Main");
        EXPECT_EQ(countOf(pkStrings), strings + 1);
        EXPECT_EQ(QzFindPkgStrings("Main"), nullptr);
    }
    EXPECT_EQ(countOf(pkStrings), strings);
    EXPECT_EQ(countOf(pkImages), images);
    EXPECT_EQ(countOf(pkVars), vars);
}

TEST(PackageRegistry, TheApplicationsSystemPackagesComeFirst)
{
    TQzCApplication app(nullptr);
    TQzPkgStrings impostor(nullptr);
    impostor.SetPkgName("system");
    EXPECT_EQ(QzFindPkgStrings("SYSTEM"), app.PkgLanguage()->PkgSystem());
    EXPECT_EQ(QzFindPkgStrings("User"), app.PkgLanguage()->PkgUser());
    EXPECT_EQ(QzFindPkgImages("System"), app.PkgDisplay()->PkgSystem());
    TStringList actives;
    QzPkgStringsActives(&actives);
    EXPECT_NE(actives.IndexOf("User"), -1);
}

TEST(MemoryImage, ResolvesThroughTheImagesPackagesOrItsOwnImage)
{
    TQzPkgImages pkg(nullptr);
    pkg.SetPkgName("Pics");
    TQzPkgImagesImage* image = pkg.Images()->Add(4);
    TQzMemoryImage ref;
    ref.PkgId("pics", 4);
    EXPECT_EQ(ref.Image(), image);
    EXPECT_TRUE(ref.Empty());
    image->SetPicture("BM...", "TBitmap", 2, 2);
    EXPECT_FALSE(ref.Empty());
    EXPECT_EQ(ref.Info(), "(4, pics)");
    TQzMemoryImage bound(image);
    EXPECT_EQ(bound.Image(), image);
    EXPECT_EQ(bound.PkgName(), "Pics");
    EXPECT_EQ(bound.Id(), 4);
    ref.SetId(-2);
    EXPECT_EQ(ref.Image(), nullptr);
    EXPECT_EQ(ref.Info(), "(Default)");
}

TEST(PrivilegeAndSets, ResolveThroughTheApplication)
{
    TQzPrivilege privilege;
    privilege.SetId(4);
    TQzSetColor color(&QzSetColText);
    EXPECT_EQ(privilege.Access(), qaN) << "no application: an unknown privilege opens nothing";
    EXPECT_EQ(color.Color(), QzSetColText.Color);
    {
        TQzCApplication app(nullptr);
        TQzPkgPrivilegesItem* item = app.Privileges()->Add(4);
        item->SetAccess(qaR);
        item->DescriptionId()->PkgId("User", 1);
        app.PkgLanguage()->PkgUser()->Labels()->Add(1, "Customers");
        EXPECT_EQ(privilege.Access(), qaR);
        EXPECT_EQ(privilege.Info(), "Customers");
        item->SetDescription("Edit customers");
        EXPECT_EQ(privilege.Info(), "Edit customers");
        privilege.SetId(-5);
        EXPECT_EQ(privilege.Id(), TQzPrivilege::IdNone);
        EXPECT_EQ(privilege.Access(), qaRW);
        EXPECT_EQ(privilege.Info(), "");

        color.SetName("alert");
        EXPECT_EQ(color.Color(), QzSetColText.Color);
        app.PkgDisplay()->SetsColor()->Add("Alert")->SetColor(0x0000FF);
        EXPECT_EQ(color.Color(), 0x0000FF);
        TQzSetBackGround bg(&QzSetEdBackGround);
        EXPECT_EQ(bg.Values(), QzSetEdBackGround.Values);
        TQzSetBackGround noDefault(&QzSetEdBackGround, false);
        EXPECT_EQ(noDefault.Values(), TQzBackGroundValues{});
    }
    EXPECT_EQ(QzAccessText(qaRW), "R/W");
}

}  // namespace
