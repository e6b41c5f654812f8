// The packages manager without its window, over a project folder with a
// text and a binary form and the running application's packages: scan,
// count with the existence check, replace and clear on the live components.

#include "design/manager/QzManagerLogic.h"
#include "designide/ProjectServices.h"
#include "runtime/components/QzComponentsReg.h"
#include "runtime/model/QzApplication.h"
#include "runtime/model/QzPkgImages.h"
#include "runtime/model/QzPkgStrings.h"

#include "rtl/Collection.h"
#include "rtl/FormText.h"

#include "design/QzDesignWindowTest.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <algorithm>
#include <fstream>

namespace {

const char* const Unit1 = R"(object Form1: TQzCForm
  object Label1: TQzLabel
    Caption.PkgName = 'DEMO'
    Caption.Id = 5
  end
  object Panel1: TQzPanel
    SetBackGround.Name = 'Blue'
    Privilege.Id = 3
    object ListBox1: TQzListBox
      Items = <
        item
          Caption.PkgName = 'DEMO'
          Caption.Id = 5
        end
        item
          Caption.PkgName = 'DEMO'
          Caption.Id = 99
        end>
    end
  end
  object Panel2: TQzPanel
    SetBackGround.Name = 'Green'
  end
end
)";

const char* const Unit2 = R"(object Form2: TQzCForm
  object Label2: TQzLabel
    Caption.PkgName = 'DEMO'
    Caption.Id = 5
  end
end
)";

// A project folder removed with the test.
class TTempProject {
public:
    void Write(const std::string& name, const std::string& bytes) const
    {
        std::ofstream(*this / name, std::ios::binary) << bytes;
    }
    std::string operator/(const std::string& name) const { return Path() + "/" + name; }
    std::string Path() const { return FDir.path().toStdString(); }

private:
    QTemporaryDir FDir;
};

// Records what a pass shows.
class TRecordingProgress : public IQzManagerProgress {
public:
    std::vector<std::string> Titles;
    std::vector<std::string> Phases;
    int Total = 0;
    int Steps = 0;
    int CancelAt = -1;
    bool Open = false;
    void SetWindowProgress(bool on, const AnsiString& title, int total) override
    {
        Open = on;
        if (on) {
            Titles.push_back(title);
            Total = total;
        }
    }
    void ProgressLabel(const AnsiString& text) override { Phases.push_back(text); }
    void IncProgressBar(int count) override { Steps += count; }
    bool CheckCancel() override { return Steps == CancelAt; }
};

class ManagerLogic : public ::testing::Test {
protected:
    void SetUp() override
    {
        RegisterQzComponentClasses();
        Folder.Write("Unit1.dfm", Unit1);
        Folder.Write("Unit2.dfm", FormTextToBinary(Unit2));
        Project = std::make_unique<TFolderProject>(Folder.Path());

        App = std::make_unique<TQzCApplication>(nullptr);
        App->SetActive(true);
        Demo = std::make_unique<TQzPkgStrings>(nullptr);
        Demo->SetPkgName("DEMO");
        Demo->Labels()->Add(5, "Five");
        Demo->Labels()->Add(7, "Seven");
        Images = std::make_unique<TQzPkgImages>(nullptr);
        Images->SetPkgName("DEMO");
        Images->Images()->Add(2);

        TQzPkgDisplaySetBackGround* blue = App->PkgDisplay()->SetsBackGround()->Add("Blue");
        blue->DescriptionId()->PkgId("DEMO", 5);
        blue->Image()->PkgId("DEMO", 2);
        App->PkgDisplay()->SetsColor()->Add("Red")->DescriptionId()->PkgId("DEMO", 8);
        App->Privileges()->Add(3)->DescriptionId()->PkgId("DEMO", 7);
    }

    TQzManagerLogic Logic(IQzManagerProgress* progress = nullptr)
    {
        return TQzManagerLogic(*Project, Packages, progress);
    }

    // The reference on a form open in its designer: a property of the
    // component, or of one of its items ("Items[1].Caption").
    template <class R>
    R* Ref(const char* form, const char* component, const AnsiString& path)
    {
        TObject* obj = Project->DesignForm(Folder / form)->FindComponent(component);
        AnsiString prop = path;
        const std::size_t open = path.find('[');
        if (open != AnsiString::npos) {
            auto* items = dynamic_cast<TCollection*>(GetObjectProp(obj, path.substr(0, open)));
            obj = items->Items(StrToInt(path.substr(open + 1, path.find(']') - open - 1)));
            prop = path.substr(path.find('.') + 1);
        }
        return dynamic_cast<R*>(GetObjectProp(obj, prop));
    }

    bool FormModified(const char* form)
    {
        const TFormDesigner* designer = Project->HeadlessDesigners().Find(Folder / form);
        return designer && designer->IsModified();
    }

    static std::vector<std::string> Texts(const std::vector<TQzTokenRec1>& hits)
    {
        std::vector<std::string> out;
        for (const TQzTokenRec1& h : hits)
            out.push_back(h.Text);
        return out;
    }

    TTempProject Folder;
    std::unique_ptr<TFolderProject> Project;
    TQzRuntimePackages Packages;
    std::unique_ptr<TQzCApplication> App;
    std::unique_ptr<TQzPkgStrings> Demo;
    std::unique_ptr<TQzPkgImages> Images;
};

TEST_F(ManagerLogic, AScanReadsEveryFormInItsFormatThenTheSetsAndPrivileges)
{
    TRecordingProgress progress;
    TQzManagerLogic logic = Logic(&progress);
    const std::vector<TQzTokenRec1> hits = logic.Scan(TQzDlgManager::Labels, "demo", "5");
    EXPECT_EQ(Texts(hits), (std::vector<std::string>{
                               "(Unit1.dfm) (Label1: TQzLabel) 5", "(Unit1.dfm) (ListBox1: TQzListBox - Items[0]) 5",
                               "(Unit2.dfm) (Label2: TQzLabel) 5", "(SetsBackGround) Id: Blue"}));
    EXPECT_EQ(progress.Titles, std::vector<std::string>{"Scanning"});
    EXPECT_EQ(progress.Phases,
              (std::vector<std::string>{"Unit1.dfm", "Unit2.dfm",
                                        "Labels Check (SetsBackGround, SetsColor, SetsFont, Privileges)"}));
    EXPECT_EQ(progress.Steps, progress.Total);
    EXPECT_FALSE(progress.Open);
    EXPECT_EQ(logic.LastRun(), TQzManagerRun::Scan);
    // A scan reads; it changes nothing.
    EXPECT_FALSE(FormModified("Unit1.dfm"));
}

TEST_F(ManagerLogic, TheChecksFollowTheKind)
{
    const std::tuple<TQzDlgManager, const char*, const char*, std::vector<std::string>> cases[] = {
        {TQzDlgManager::Images, "DEMO", "2", {"(SetsBackGround) Id: Blue"}},
        {TQzDlgManager::Labels, "DEMO", "7", {"(Privileges) Name: '3'"}},
        {TQzDlgManager::Labels, "DEMO", "8", {"(SetsColor) Id: Red"}},
        {TQzDlgManager::Texts, "DEMO", "5", {}},
        {TQzDlgManager::SetsBackGround, "", "green", {"(Unit1.dfm) (Panel2: TQzPanel) Green"}},
        {TQzDlgManager::Privileges, "", "3", {"(Unit1.dfm) (Panel1: TQzPanel) 3"}},
    };
    TQzManagerLogic logic = Logic();
    for (const auto& [kind, pkg, value, expected] : cases)
        EXPECT_EQ(Texts(logic.Scan(kind, pkg, value)), expected) << QzDlgManagerName(kind) << " " << value;
}

TEST_F(ManagerLogic, ACountMarksReferencesToMissingItems)
{
    TRecordingProgress progress;
    TQzManagerLogic logic = Logic(&progress);
    const std::vector<AnsiString> packages = logic.CountPackages(TQzDlgManager::Labels);
    EXPECT_TRUE(std::none_of(packages.begin(), packages.end(), [](const AnsiString& p) { return SameText(p, "System"); }));
    EXPECT_NE(std::find(packages.begin(), packages.end(), "DEMO"), packages.end());

    const std::vector<TQzTokenRec2> rows = logic.Count(TQzDlgManager::Labels, {"demo"});
    std::vector<std::string> texts;
    for (const TQzTokenRec2& r : rows)
        texts.push_back(r.Text + (r.Exists ? "" : " !"));
    EXPECT_EQ(texts, (std::vector<std::string>{
                         "(Unit1.dfm) (Label1: TQzLabel) (5, DEMO)",
                         "(Unit1.dfm) (ListBox1: TQzListBox - Items[0]) (5, DEMO)",
                         "(Unit1.dfm) (ListBox1: TQzListBox - Items[1]) (99, DEMO) ( Nonexistent ) !",
                         "(Unit2.dfm) (Label2: TQzLabel) (5, DEMO)",
                         "(SetsBackGround) Id: Blue (5, DEMO)",
                         "(SetsColor) Id: Red (8, DEMO) ( Nonexistent ) !",
                         "(Privileges) Name: '3' (7, DEMO)"}));
    EXPECT_EQ(progress.Titles, std::vector<std::string>{"Counting"});
    EXPECT_EQ(progress.Phases, (std::vector<std::string>{"Labels Search", "Labels Search",
                                                         "Labels Check (SetsBackGround, SetsColor, SetsFont, Privileges)",
                                                         "Exist Check"}));
    EXPECT_EQ(logic.LastRun(), TQzManagerRun::Count);

    EXPECT_TRUE(logic.Count(TQzDlgManager::Labels, {"User"}).empty());
    const std::vector<TQzTokenRec2> sets = logic.Count(TQzDlgManager::SetsBackGround, {});
    ASSERT_EQ(sets.size(), 2u);
    EXPECT_TRUE(sets[0].Exists);
    EXPECT_FALSE(sets[1].Exists);
    EXPECT_EQ(sets[1].Text, "(Unit1.dfm) (Panel2: TQzPanel) Green ( Nonexistent )");
}

TEST_F(ManagerLogic, ReplaceChangesTheCheckedReferencesAndNothingElse)
{
    TQzManagerLogic logic = Logic();
    const std::vector<TQzTokenRec1> hits = logic.Scan(TQzDlgManager::Labels, "DEMO", "5");
    ASSERT_EQ(hits.size(), 4u);
    EXPECT_EQ(logic.Replace({&hits[0], &hits[3]}, "OTHER", "9"), 2);
    EXPECT_TRUE(logic.Failures().empty());

    const auto* label1 = Ref<TQzMemoryLabel>("Unit1.dfm", "Label1", "Caption");
    EXPECT_EQ(label1->PkgName(), "OTHER");
    EXPECT_EQ(label1->Id(), 9);
    const auto* item0 = Ref<TQzMemoryLabel>("Unit1.dfm", "ListBox1", "Items[0].Caption");
    EXPECT_EQ(item0->PkgName(), "DEMO");
    EXPECT_EQ(item0->Id(), 5);
    const TQzPkgDisplaySetBackGround* blue = App->PkgDisplay()->SetsBackGround()->Find("Blue");
    EXPECT_EQ(blue->DescriptionId()->PkgName(), "OTHER");
    EXPECT_EQ(blue->DescriptionId()->Id(), 9);
    EXPECT_EQ(blue->Image()->Id(), 2);
    EXPECT_TRUE(FormModified("Unit1.dfm"));
    EXPECT_FALSE(FormModified("Unit2.dfm"));
    const auto* label2 = Ref<TQzMemoryLabel>("Unit2.dfm", "Label2", "Caption");
    EXPECT_EQ(label2->Id(), 5);
}

TEST_F(ManagerLogic, ReplaceSetsNamesAndPrivilegeIds)
{
    TQzManagerLogic logic = Logic();
    std::vector<TQzTokenRec1> hits = logic.Scan(TQzDlgManager::SetsBackGround, "", "Blue");
    ASSERT_EQ(hits.size(), 1u);
    EXPECT_EQ(logic.Replace({&hits[0]}, "", "Navy"), 1);
    EXPECT_EQ(Ref<TQzSetBackGround>("Unit1.dfm", "Panel1", "SetBackGround")->Name(), "Navy");

    hits = logic.Scan(TQzDlgManager::Privileges, "", "3");
    ASSERT_EQ(hits.size(), 1u);
    EXPECT_EQ(logic.Replace({&hits[0]}, "", "4"), 1);
    EXPECT_EQ(Ref<TQzPrivilege>("Unit1.dfm", "Panel1", "Privilege")->Id(), 4);

    hits = logic.Scan(TQzDlgManager::Labels, "DEMO", "5");
    EXPECT_THROW(logic.Replace({&hits[0]}, "OTHER", "nine"), Exception);
    EXPECT_EQ(Ref<TQzMemoryLabel>("Unit1.dfm", "Label1", "Caption")->Id(), 5);
}

TEST_F(ManagerLogic, ClearEmptiesFormReferencesAndUnsetsItemReferences)
{
    TRecordingProgress progress;
    TQzManagerLogic logic = Logic(&progress);
    const std::vector<TQzTokenRec2> rows = logic.Count(TQzDlgManager::Labels, {"DEMO"});
    ASSERT_EQ(rows.size(), 7u);
    progress.Titles.clear();
    EXPECT_EQ(logic.Clear({&rows[2], &rows[6]}), 2);
    EXPECT_EQ(progress.Titles, std::vector<std::string>{"Cleaning"});

    const auto* item1 = Ref<TQzMemoryLabel>("Unit1.dfm", "ListBox1", "Items[1].Caption");
    EXPECT_EQ(item1->PkgName(), "");
    EXPECT_EQ(item1->Id(), -1);
    EXPECT_EQ(Ref<TQzMemoryLabel>("Unit1.dfm", "ListBox1", "Items[0].Caption")->Id(), 5);
    EXPECT_EQ(App->Privileges()->FindId(3)->DescriptionId()->Id(), -1);
    EXPECT_EQ(App->Privileges()->FindId(3)->DescriptionId()->PkgName(), "DEMO");

    EXPECT_EQ(logic.Clear({}), 0);
    EXPECT_FALSE(FormModified("Unit2.dfm"));

    // Each package holding sets or privileges is told once per run, so the
    // run is one step of its form's undo history.
    std::vector<const TQzTokenRec1*> items;
    for (const TQzTokenRec2& row : rows)
        if (row.Source != TQzHitSource::Form)
            items.push_back(&row);
    ASSERT_GE(items.size(), 2u);
    TQzMarkedLog marks;
    logic.Clear(items);
    const std::vector<TComponent*> told = marks.Marked;
    std::vector<TComponent*> distinct = told;
    std::sort(distinct.begin(), distinct.end());
    distinct.erase(std::unique(distinct.begin(), distinct.end()), distinct.end());
    EXPECT_FALSE(told.empty());
    EXPECT_EQ(told.size(), distinct.size());
}

TEST_F(ManagerLogic, ACancelStopsThePassAndSkipsTheChecks)
{
    TRecordingProgress progress;
    progress.CancelAt = 4;
    TQzManagerLogic logic = Logic(&progress);
    const std::vector<TQzTokenRec1> hits = logic.Scan(TQzDlgManager::Labels, "DEMO", "5");
    EXPECT_TRUE(logic.Cancelled());
    EXPECT_EQ(Texts(hits), std::vector<std::string>{"(Unit1.dfm) (Label1: TQzLabel) 5"});
    EXPECT_EQ(progress.Phases, std::vector<std::string>{"Unit1.dfm"});
}

TEST(ManagerLogicEmpty, AProjectWithoutFormsGivesNoHitsAndNoError)
{
    TTempProject folder;
    folder.Write("Util.cpp", "// no form\n");
    TFolderProject project(folder.Path());
    TQzRuntimePackages packages;
    TQzManagerLogic logic(project, packages);
    EXPECT_TRUE(logic.Scan(TQzDlgManager::Labels, "DEMO", "5").empty());
    EXPECT_TRUE(logic.Count(TQzDlgManager::SetsFont, {}).empty());
    EXPECT_EQ(logic.Replace({}, "DEMO", "1"), 0);
}

TEST(ManagerLogicInput, SearchInputsAreCheckedByKind)
{
    const std::tuple<TQzDlgManager, const char*, const char*, bool> cases[] = {
        {TQzDlgManager::Labels, "DEMO", "5", true},    {TQzDlgManager::Labels, "", "5", false},
        {TQzDlgManager::Images, "DEMO", "x", false},   {TQzDlgManager::Messages, "DEMO", " 12 ", true},
        {TQzDlgManager::SetsFont, "", "Big", true},    {TQzDlgManager::SetsColor, "", " ", false},
        {TQzDlgManager::Privileges, "", "3", true},    {TQzDlgManager::Privileges, "", "three", false},
    };
    for (const auto& [kind, pkg, value, ok] : cases)
        EXPECT_EQ(QzCheckSearchInput(kind, pkg, value).empty(), ok) << QzDlgManagerName(kind) << " " << value;
    EXPECT_EQ(QzLinesText(1), "1 line");
    EXPECT_EQ(QzLinesText(3), "3 lines");
}

}  // namespace
