// The Id lists of the packages: Ids unique per list, free Ids proposed,
// misses answered with nullptr, items owned by their list, and the package
// told of every change.

#include "ModelTestSupport.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

// One Id list of some package, reached the same way for every kind.
struct TIdList {
    const char* Name;
    std::function<TQzPkgIdCollection*(TComponent* owner, TQzPkgInfo*& pkg)> Make;
    std::function<TQzPkgIdItem*(TQzPkgIdCollection*, Integer)> Add;
};

const TIdList IdLists[] = {
    {"labels",
     [](TComponent* o, TQzPkgInfo*& p) { auto* s = new TQzPkgStrings(o); p = s; return s->Labels(); },
     [](TQzPkgIdCollection* c, Integer id) { return static_cast<TQzPkgStringsLabels*>(c)->Add(id, "x"); }},
    {"messages",
     [](TComponent* o, TQzPkgInfo*& p) { auto* s = new TQzPkgStrings(o); p = s; return s->Messages(); },
     [](TQzPkgIdCollection* c, Integer id) { return static_cast<TQzPkgStringsMessages*>(c)->Add(id, "x"); }},
    {"texts",
     [](TComponent* o, TQzPkgInfo*& p) { auto* s = new TQzPkgStrings(o); p = s; return s->Texts(); },
     [](TQzPkgIdCollection* c, Integer id) { return static_cast<TQzPkgStringsTexts*>(c)->Add(id, "x"); }},
    {"images",
     [](TComponent* o, TQzPkgInfo*& p) { auto* s = new TQzPkgImages(o); p = s; return s->Images(); },
     [](TQzPkgIdCollection* c, Integer id) { return static_cast<TQzPkgImagesImages*>(c)->Add(id); }},
    {"privileges",
     [](TComponent* o, TQzPkgInfo*& p) { auto* s = new TQzPkgPrivileges(o); p = s; return s->Items(); },
     [](TQzPkgIdCollection* c, Integer id) { return static_cast<TQzPkgPrivilegesItems*>(c)->Add(id); }},
};

class IdListTest : public ::testing::TestWithParam<TIdList> {
protected:
    void SetUp() override { List = GetParam().Make(&Owner, Pkg); }
    TQzPkgIdItem* Add(Integer id) { return GetParam().Add(List, id); }

    TComponent Owner{nullptr};
    TQzPkgInfo* Pkg = nullptr;
    TQzPkgIdCollection* List = nullptr;
};

TEST_P(IdListTest, IdsAreUniqueAndARefusedIdChangesNothing)
{
    TQzPkgIdItem* a = Add(1);
    TQzPkgIdItem* b = Add(2);
    EXPECT_THROW(Add(1), EQzPkgError);
    EXPECT_THROW(Add(-1), EQzPkgError);
    EXPECT_THROW(b->SetId(1), EQzPkgError);
    EXPECT_THROW(b->SetId(-2), EQzPkgError);
    EXPECT_EQ(List->Count(), 2);
    EXPECT_EQ(b->Id(), 2);
    EXPECT_EQ(List->FindIdItem(1), a);
    EXPECT_EQ(List->FindIdItem(2), b);

    // A new Id moves the item in the index: the old one is free again.
    b->SetId(40);
    EXPECT_EQ(List->FindIdItem(40), b);
    EXPECT_EQ(List->FindIdItem(2), nullptr);
    EXPECT_NO_THROW(Add(2));
}

TEST_P(IdListTest, UniqueIdIsTheSmallestFreeIdAndFindIdMissesWithNull)
{
    EXPECT_EQ(List->UniqueId(), 0);
    for (Integer id : {0, 1, 2, 4})
        Add(id);
    EXPECT_EQ(List->UniqueId(), 3);
    Add(3);
    EXPECT_EQ(List->UniqueId(), 5);
    delete List->FindIdItem(1);
    EXPECT_EQ(List->UniqueId(), 1);
    EXPECT_EQ(List->FindIdItem(List->UniqueId()), nullptr);
    EXPECT_EQ(List->FindIdItem(999), nullptr);
    EXPECT_EQ(List->FindIdItem(-1), nullptr);
}

TEST_P(IdListTest, FreeingAnItemRemovesItFromItsList)
{
    for (Integer id : {10, 11, 12})
        Add(id);
    delete List->FindIdItem(11);
    ASSERT_EQ(List->Count(), 2);
    EXPECT_EQ(List->Item(0), List->FindIdItem(10));
    EXPECT_EQ(List->Item(1), List->FindIdItem(12));
    EXPECT_EQ(List->FindIdItem(11), nullptr);
    List->Delete(0);
    EXPECT_EQ(List->FindIdItem(10), nullptr);
    EXPECT_EQ(List->Item(0)->Index(), 0);
    EXPECT_THROW(List->Item(1), EListError);
    List->Clear();
    EXPECT_EQ(List->Count(), 0);
    EXPECT_EQ(List->FindIdItem(12), nullptr);
    EXPECT_EQ(List->UniqueId(), 0);
}

TEST_P(IdListTest, EveryChangeMarksThePackageOnceAnUpdateEnds)
{
    struct TCounter : IQzPkgLink {
        int Changes = 0;
        void PkgNotify(TQzPkgInfo*, int event, void*) override { Changes += event == peChange; }
    } counter;
    Pkg->AddLink(&counter);
    TQzPkgIdItem* item = Add(5);
    EXPECT_TRUE(Pkg->GetModified());
    EXPECT_EQ(counter.Changes, 1);
    Pkg->SetModified(false);
    item->SetProtected(true);
    item->SetProtected(true);   // no change, nothing said
    EXPECT_EQ(counter.Changes, 2);
    EXPECT_TRUE(Pkg->GetModified());

    List->BeginUpdate();
    Add(6);
    Add(7);
    delete List->FindIdItem(5);
    EXPECT_EQ(counter.Changes, 2);
    List->EndUpdate();
    EXPECT_EQ(counter.Changes, 3);
    Pkg->RemoveLink(&counter);
}

TEST_P(IdListTest, ProtectAllReportsWhetherAnythingChanged)
{
    Add(1)->SetProtected(true);
    Add(2);
    EXPECT_TRUE(List->SetAllProtected(true));
    EXPECT_FALSE(List->SetAllProtected(true));
    EXPECT_TRUE(static_cast<TQzPkgIdItem*>(List->Item(1))->Protected());
    EXPECT_TRUE(List->SetAllProtected(false));
}

INSTANTIATE_TEST_SUITE_P(Model, IdListTest, ::testing::ValuesIn(IdLists),
                         [](const auto& info) { return std::string(info.param.Name); });

TEST(StringsPackage, FindLabelMatchesTheWholeTextAndEachListHasItsOwnIds)
{
    TQzPkgStrings pkg(nullptr);
    pkg.Labels()->Add(4, "Open");
    TQzPkgStringsLabel* file = pkg.Labels()->Add(9, "File");
    pkg.Labels()->Add(10, "File");
    EXPECT_EQ(pkg.Labels()->FindLabel("File"), file);
    EXPECT_EQ(pkg.Labels()->FindLabel("file"), nullptr);
    EXPECT_EQ(pkg.Labels()->FindLabel("Fil"), nullptr);
    EXPECT_EQ(pkg.Labels()->FindLabel(""), nullptr);
    EXPECT_NO_THROW(pkg.Messages()->Add(9, "message"));
    EXPECT_NO_THROW(pkg.Texts()->Add(9, "text"));
    EXPECT_EQ(pkg.Messages()->FindId(9)->Text(), "message");
}

TEST(DisplayPackage, SetsAreFoundByNameWhateverTheCaseAndNamesAreUnique)
{
    TQzPkgDisplay display(nullptr);
    TQzPkgDisplaySetsFont* fonts = display.SetsFont();
    TQzPkgDisplaySetFont* title = fonts->Add("Title");
    fonts->Add("Body");
    EXPECT_EQ(fonts->Find("TITLE"), title);
    EXPECT_EQ(fonts->Find("Caption"), nullptr);
    EXPECT_THROW(fonts->Add("title"), EQzPkgError);
    EXPECT_THROW(fonts->Add(" "), EQzPkgError);
    EXPECT_THROW(title->SetName("BODY"), EQzPkgError);
    EXPECT_EQ(title->Name(), "Title");
    title->SetName("TITLE");   // its own name in another case
    EXPECT_EQ(fonts->Find("title"), title);
    // The three lists are separate name spaces.
    EXPECT_NO_THROW(display.SetsColor()->Add("Title"));
    delete title;
    EXPECT_EQ(fonts->Count(), 1);
    EXPECT_EQ(fonts->Find("Title"), nullptr);
}

// A set copied onto another keeps its own (unique) name and takes the
// description, its label and the values; a set of another kind is refused.
TEST(DisplayPackage, SetsCopyTheirKindsValuesButNotTheirName)
{
    TQzPkgDisplay display(nullptr);
    TQzPkgDisplaySetBackGround* paper = display.SetsBackGround()->Add("Paper");
    paper->SetStyle(bgGradientVer);
    paper->Image()->PkgId("User", 2);
    TQzPkgDisplaySetColor* alert = display.SetsColor()->Add("Alert");
    alert->SetColor(0x0000FF);
    TQzPkgDisplaySetFont* title = display.SetsFont()->Add("Title");
    title->SetSize(14);
    const struct {
        TQzPkgDisplaySet* Source;
        TQzPkgDisplaySet* Target;
        std::function<bool()> Copied;
    } cases[] = {
        {paper, display.SetsBackGround()->Add("Copy"),
         [&] {
             auto* c = display.SetsBackGround()->Find("Copy");
             return c->Values() == paper->Values() && c->Image()->Id() == 2;
         }},
        {alert, display.SetsColor()->Add("Copy"), [&] { return display.SetsColor()->Find("Copy")->Color() == 0x0000FF; }},
        {title, display.SetsFont()->Add("Copy"), [&] { return display.SetsFont()->Find("Copy")->Values().Size == 14; }},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Source->Name());
        c.Source->SetDescription("shared");
        c.Source->DescriptionId()->PkgId("System", 40);
        c.Target->Assign(c.Source);
        EXPECT_EQ(c.Target->Name(), "Copy");
        EXPECT_EQ(c.Target->Description(), "shared");
        EXPECT_EQ(c.Target->DescriptionId()->Id(), 40);
        EXPECT_TRUE(c.Copied());
        for (const auto& other : cases) {
            if (other.Source != c.Source) {
                EXPECT_THROW(c.Target->Assign(other.Source), EConvertError);
            }
        }
    }
}

TEST(DisplayPackage, GeometryRefusesNegativeMeasuresAndUserColorsAreCopied)
{
    TQzPkgDisplay display(nullptr);
    display.SetCWButtonsWidth(90);
    EXPECT_THROW(display.SetHiMarginTop(-1), EQzPkgError);
    EXPECT_EQ(display.Geometry().CWButtonsWidth, 90);
    EXPECT_EQ(display.Geometry().HiMarginTop, 4);
    TStringList colors;
    colors.Add("Sky=$00FFCC99");
    display.SetUserColors(&colors);
    colors.Clear();
    EXPECT_EQ(display.UserColors().Count(), 1);
    EXPECT_EQ(display.UserColors()[0], "Sky=$00FFCC99");
}

TEST(SetupPackage, OneShortcutTriggersOneActionAndAnEngineBringsItsConventions)
{
    TQzPkgSetup setup(nullptr);
    TQzPkgSetupKeys* keys = setup.Keys();
    const TShortCut refresh = keys->ShortCut(saRefresh);
    EXPECT_THROW(keys->SetPostRecord(refresh), EQzPkgError);
    keys->SetRefresh(0);
    keys->SetPostRecord(refresh);
    TQzSetupAction action;
    ASSERT_TRUE(keys->FindAction(refresh, action));
    EXPECT_EQ(action, saPostRecord);
    EXPECT_FALSE(keys->FindAction(0, action));

    TQzPkgSetupDataBase* db = setup.DataBase();
    db->SetDataBaseEngine(deInterBase);
    EXPECT_EQ(db->GetDateFormat(), dfMDY);
    EXPECT_EQ(db->GetDateSeparator(), '/');
    db->SetDateSeparator('.');
    db->SetDataBaseEngine(deOracle);
    EXPECT_EQ(db->GetDateFormat(), dfDMY);
    EXPECT_EQ(db->GetDateSeparator(), '-');
    EXPECT_THROW(db->SetTimeSeparator('\t'), EQzPkgError);
    setup.Clear();
    EXPECT_TRUE(setup.IsEmpty());
}

TEST(LanguageLocale, RangesAreCheckedAndDefaultsRestored)
{
    TQzPkgLanguage language(nullptr);
    TQzPkgLanguageLocale* locale = language.Locale();
    locale->SetDecimals(4);
    locale->SetNumericDecimalSeparator(',');
    locale->SetNumericTrousandSeparator('.');
    EXPECT_THROW(locale->SetDecimals(16), EQzPkgError);
    EXPECT_THROW(locale->SetDateCentury(1950), EQzPkgError);
    EXPECT_THROW(locale->SetDateYearFix(100), EQzPkgError);
    EXPECT_EQ(locale->Decimals(), 4);
    language.SetModified(false);
    locale->RestoreDefaults();
    EXPECT_TRUE(language.GetModified());
    EXPECT_EQ(locale->Decimals(), 2);
    EXPECT_EQ(locale->NumericDecimalSeparator(), '.');
    EXPECT_TRUE(language.IsEmpty());
}

}  // namespace
