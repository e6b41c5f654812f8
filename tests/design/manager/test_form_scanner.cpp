// The scanner's rules on small forms: which lines are references of each
// kind, where they are (component, property path, lines), what the row
// says, and how failures and cancelling are reported.

#include "design/manager/QzFormScanner.h"
#include "design/manager/QzManagerProgress.h"
#include "runtime/components/QzComponentsReg.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

// Line numbers are 0-based, as the hits give them. The components of an
// unknown class, and a property a known class lacks, are read without
// errors or hits.
const char* const MixedForm = R"(object Form1: TQzCForm
  Caption = 'Main'
  object Label1: TQzLabel
    Caption.PkgName = 'DEMO'
    Caption.Id = 5
    SetFont.Name = 'Big'
    SetColor.Name = Blue
  end
  object Panel1: TQzPanel
    SetBackGround.Name = 'Blue'
    Privilege.Id = 3
    Caption.PkgName = DEMO
    Caption.Id = 7
    object ListBox1: TQzListBox
      HintLabel.PkgName = 'demo'
      HintLabel.Id = 5
      Items = <
        item
          Caption.PkgName = 'DEMO'
          Caption.Id = 5
        end
        item
          Caption.PkgName = 'OTHER'
          Caption.Id = 5
          Image.PkgName = 'DEMO'
          Image.Id = 5
        end>
    end
  end
  object Grid1: TStringGrid
    Caption.PkgName = 'DEMO'
    Caption.Id = 5
    SetBackGround.Name = 'Blue'
    Columns = <
      item
        Title.Caption.PkgName = 'DEMO'
        Title.Caption.Id = 5
      end>
  end
  object Label9: TQzLabel
    Nowhere.PkgName = 'DEMO'
    Nowhere.Id = 5
  end
end
)";

std::vector<TQzTokenRec1> Scan(TQzDlgManager kind, const char* pkg, const char* value, std::string_view text)
{
    TQzFormScanner scanner(kind);
    scanner.SetSearch(pkg, value);
    std::vector<TQzTokenRec1> hits;
    scanner.Scanner(text, "forms/Unit1.dfm", hits);
    return hits;
}

// "line ObjectName PropPath = Value" per hit.
std::vector<std::string> Where(const std::vector<TQzTokenRec1>& hits)
{
    std::vector<std::string> out;
    for (const TQzTokenRec1& h : hits)
        out.push_back(std::to_string(h.Line) + " " + h.ObjectName + " " + h.PropPath + " = " + h.Value);
    return out;
}

class FormScanner : public ::testing::Test {
protected:
    void SetUp() override { RegisterQzComponentClasses(); }
};

struct TRuleCase {
    const char* What;
    TQzDlgManager Kind;
    const char* Pkg;
    const char* Value;
    std::vector<std::string> Expected;
};

TEST_F(FormScanner, EachKindFindsItsReferencesAndNoOthers)
{
    const TRuleCase cases[] = {
        {"labels in controls, items, any package case", TQzDlgManager::Labels, "DEMO", "5",
         {"4 Label1 Caption = 5", "15 ListBox1 HintLabel = 5", "19 ListBox1 Items[0].Caption = 5"}},
        {"a bare package name", TQzDlgManager::Labels, "demo", "7", {"12 Panel1 Caption = 7"}},
        {"images by their own class", TQzDlgManager::Images, "DEMO", "5", {"25 ListBox1 Items[1].Image = 5"}},
        {"another package", TQzDlgManager::Labels, "OTHER", "5", {"23 ListBox1 Items[1].Caption = 5"}},
        {"a class with no such reference", TQzDlgManager::Messages, "DEMO", "5", {}},
        {"a quoted set name", TQzDlgManager::SetsBackGround, "", "blue", {"9 Panel1 SetBackGround = Blue"}},
        {"a bare set name", TQzDlgManager::SetsColor, "", "BLUE", {"6 Label1 SetColor = Blue"}},
        {"a set of another kind is not one", TQzDlgManager::SetsColor, "", "Big", {}},
        {"fonts", TQzDlgManager::SetsFont, "", "big", {"5 Label1 SetFont = Big"}},
        {"privileges by Id", TQzDlgManager::Privileges, "", "3", {"10 Panel1 Privilege = 3"}},
        {"an Id of another item", TQzDlgManager::Labels, "DEMO", "6", {}},
    };
    for (const TRuleCase& c : cases)
        EXPECT_EQ(Where(Scan(c.Kind, c.Pkg, c.Value, MixedForm)), c.Expected) << c.What;
}

TEST_F(FormScanner, APackageLineCountsOnlyWhenItsIdFollowsDirectly)
{
    const TRuleCase cases[] = {
        {"another line between", TQzDlgManager::Labels, "DEMO", "5", {}},
        {"Id spelt in another case", TQzDlgManager::Labels, "DEMO", "6", {}},
        {"PkgName in any case", TQzDlgManager::Labels, "DEMO", "7", {"10 Label2 Caption = 7"}},
        {"an Id without its package", TQzDlgManager::Labels, "DEMO", "8", {}},
        {"the Id of another reference", TQzDlgManager::Images, "DEMO", "9", {}},
        {"a nested persistent property", TQzDlgManager::Images, "DEMO", "10",
         {"17 Edit1 Buttons.Custom2Image = 10"}},
    };
    const char* const form = R"(object Form1: TQzCForm
  object Label1: TQzLabel
    Caption.PkgName = 'DEMO'
    Left = 8
    Caption.Id = 5
    Caption.PkgName = 'DEMO'
    Caption.ID = 6
  end
  object Label2: TQzLabel
    Caption.pkgname = 'DEMO'
    Caption.Id = 7
    Caption.Id = 8
  end
  object Edit1: TQzEdit
    Buttons.Custom1Image.PkgName = 'DEMO'
    Buttons.Custom2Image.Id = 9
    Buttons.Custom2Image.PkgName = 'DEMO'
    Buttons.Custom2Image.Id = 10
  end
end
)";
    for (const TRuleCase& c : cases)
        EXPECT_EQ(Where(Scan(c.Kind, c.Pkg, c.Value, form)), c.Expected) << c.What;
}

TEST_F(FormScanner, TheFormsOwnReferencesAreNeverHits)
{
    const char* const form = R"(object Frame1: TQzPanel
  SetBackGround.Name = 'Blue'
  Caption.PkgName = 'DEMO'
  Caption.Id = 5
  object Panel1: TQzPanel
    SetBackGround.Name = 'Blue'
    Caption.PkgName = 'DEMO'
    Caption.Id = 5
  end
end
)";
    EXPECT_EQ(Where(Scan(TQzDlgManager::SetsBackGround, "", "Blue", form)),
              (std::vector<std::string>{"5 Panel1 SetBackGround = Blue"}));
    EXPECT_EQ(Where(Scan(TQzDlgManager::Labels, "DEMO", "5", form)),
              (std::vector<std::string>{"7 Panel1 Caption = 5"}));
}

TEST_F(FormScanner, ItemsAreNumberedByTheirIndexLineOrByTheirPlace)
{
    const char* const form = R"(object Form1: TQzCForm
  object Radio1: TQzRadioGroup
    Items = <
      item
        Caption.PkgName = 'DEMO'
        Caption.Id = 5
      end
      item
        Index = 3
        Caption.PkgName = 'DEMO'
        Caption.Id = 5
      end
      item
        Caption.PkgName = 'DEMO'
        Caption.Id = 5
      end>
    Caption.PkgName = 'DEMO'
    Caption.Id = 5
    object Combo1: TQzComboBox
      Items = <>
      HintLabel.PkgName = 'DEMO'
      HintLabel.Id = 5
    end
  end
end
)";
    EXPECT_EQ(Where(Scan(TQzDlgManager::Labels, "DEMO", "5", form)),
              (std::vector<std::string>{"5 Radio1 Items[0].Caption = 5", "10 Radio1 Items[3].Caption = 5",
                                        "14 Radio1 Items[4].Caption = 5", "17 Radio1 Caption = 5",
                                        "21 Combo1 HintLabel = 5"}));
}

TEST_F(FormScanner, AHitCarriesWhatReplaceNeeds)
{
    const std::vector<TQzTokenRec1> hits = Scan(TQzDlgManager::Labels, "demo", "5", MixedForm);
    ASSERT_EQ(hits.size(), 3u);
    const TQzTokenRec1& item = hits[2];
    EXPECT_EQ(item.Kind, TQzDlgManager::Labels);
    EXPECT_EQ(item.Source, TQzHitSource::Form);
    EXPECT_EQ(item.FileName, "forms/Unit1.dfm");
    EXPECT_EQ(item.ObjectName, "ListBox1");
    EXPECT_EQ(item.ObjectClass, "TQzListBox");
    EXPECT_EQ(item.PropPath, "Items[0].Caption");
    EXPECT_EQ(item.PkgName, "DEMO");
    EXPECT_EQ(item.PkgLine, 18);
    EXPECT_EQ(item.Line, 19);
    EXPECT_EQ(item.Id, 5);
    EXPECT_EQ(item.Text, "(Unit1.dfm) (ListBox1: TQzListBox - Items[0]) 5");
    EXPECT_EQ(hits[0].Text, "(Unit1.dfm) (Label1: TQzLabel) 5");
    EXPECT_EQ(hits[1].PkgName, "demo");

    const std::vector<TQzTokenRec1> sets = Scan(TQzDlgManager::SetsBackGround, "", "BLUE", MixedForm);
    ASSERT_EQ(sets.size(), 1u);
    EXPECT_EQ(sets[0].Id, -1);
    EXPECT_EQ(sets[0].PkgLine, -1);
    EXPECT_EQ(sets[0].Text, "(Unit1.dfm) (Panel1: TQzPanel) Blue");
}

TEST_F(FormScanner, CountingTakesEveryReferenceOfTheKind)
{
    TQzFormScanner scanner(TQzDlgManager::Labels);
    scanner.SetCountMode();
    std::vector<TQzTokenRec1> hits;
    scanner.Scanner(MixedForm, "Unit1.dfm", hits);
    std::vector<std::string> texts;
    for (const TQzTokenRec1& h : hits)
        texts.push_back(h.Text);
    EXPECT_EQ(texts, (std::vector<std::string>{
                         "(Unit1.dfm) (Label1: TQzLabel) (5, DEMO)", "(Unit1.dfm) (Panel1: TQzPanel) (7, DEMO)",
                         "(Unit1.dfm) (ListBox1: TQzListBox) (5, demo)",
                         "(Unit1.dfm) (ListBox1: TQzListBox - Items[0]) (5, DEMO)",
                         "(Unit1.dfm) (ListBox1: TQzListBox - Items[1]) (5, OTHER)"}));

    TQzFormScanner sets(TQzDlgManager::SetsBackGround);
    sets.SetCountMode();
    hits.clear();
    sets.Scanner(MixedForm, "Unit1.dfm", hits);
    EXPECT_EQ(Where(hits), (std::vector<std::string>{"9 Panel1 SetBackGround = Blue"}));
}

TEST_F(FormScanner, LinesAndTextGiveTheSameHits)
{
    std::string crlf;
    for (const char* p = MixedForm; *p; ++p) {
        if (*p == '\n')
            crlf += '\r';
        crlf += *p;
    }
    TStringList lines;
    lines.SetText(MixedForm);
    TQzFormScanner scanner(TQzDlgManager::Labels);
    scanner.SetSearch("DEMO", "5");
    std::vector<TQzTokenRec1> fromLines, fromText;
    scanner.Scanner(lines, "Unit1.dfm", fromLines);
    scanner.Scanner(crlf, "Unit1.dfm", fromText);
    EXPECT_EQ(Where(fromLines), Where(fromText));
    EXPECT_EQ(fromLines.size(), 3u);
}

TEST_F(FormScanner, PathsAreResolvedOncePerClassAndProperty)
{
    std::string form = "object Form1: TQzCForm\n  object Radio1: TQzRadioGroup\n    Items = <\n";
    for (int i = 0; i < 40; ++i)
        form += "      item\n        Caption.PkgName = 'DEMO'\n        Caption.Id = 5\n      end\n";
    form += "      end>\n  end\nend\n";
    TQzPropertyTypes types;
    TQzFormScanner scanner(TQzDlgManager::Labels, &types);
    scanner.SetSearch("DEMO", "5");
    std::vector<TQzTokenRec1> hits;
    scanner.Scanner(form, "Unit1.dfm", hits);
    EXPECT_EQ(hits.size(), 40u);
    EXPECT_EQ(hits.back().PropPath, "Items[39].Caption");
    EXPECT_EQ(types.CacheSize(), 1u);
}

TEST_F(FormScanner, PropertyTypesFollowObjectsAndCollections)
{
    TQzPropertyTypes types;
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"TQzPanel", "SetBackGround", "TQzSetBackGround"},
        {"TQzPanel", "Caption", "TQzMemoryLabel"},
        {"tqzlistbox", "items[7].image", "TQzMemoryImage"},
        {"TQzListBox", "Items", "TQzCollection"},
        {"TQzListBox", "", "TQzListBox"},
        {"TQzPanel", "Left", nullptr},
        {"TQzPanel", "Nowhere", nullptr},
        {"TQzPanel", "Caption[0]", nullptr},
        {"TNotRegistered", "Caption", nullptr},
    };
    for (const auto& [cls, path, expected] : cases) {
        const TMetaClass* found = types.Resolve(cls, path);
        EXPECT_EQ(found ? found->ClassName() : AnsiString("(none)"), expected ? expected : "(none)")
            << cls << " . " << path;
    }
    EXPECT_THROW(types.Resolve("TQzListBox", "Items[x].Caption"), EPropertyError);
    EXPECT_THROW(types.Resolve("TQzListBox", "Items..Caption"), EPropertyError);
}

TEST_F(FormScanner, ALineThatMakesNoSenseNamesTheFileAndLine)
{
    const std::tuple<TQzDlgManager, const char*, const char*> cases[] = {
        {TQzDlgManager::Labels, "Caption.PkgName = 'DEMO'\n    Caption.Id = 5", "4"},
        {TQzDlgManager::SetsBackGround, "SetBackGround.Name = 'Blue'", "3"},
        {TQzDlgManager::Labels, "Items[x].Caption.PkgName = 'DEMO'\n    Items[x].Caption.Id = 5", "4"},
    };
    for (const auto& [kind, lines, line] : cases) {
        const bool classless = std::string(lines).find("[x]") == std::string::npos;
        const std::string form = std::string("object Form1: TQzCForm\n  object Label1:") + (classless ? "" : " TQzListBox") +
                                 "\n    " + lines + "\n  end\nend\n";
        try {
            Scan(kind, "DEMO", kind == TQzDlgManager::Labels ? "5" : "Blue", form);
            ADD_FAILURE() << "no error: " << form;
        } catch (const EQzScanError& e) {
            EXPECT_EQ(e.Message(), std::string("The file: forms/Unit1.dfm can contain an error in the line: ") + line);
        }
    }
}

// Fails or cancels at a given line.
class TScriptedProgress : public TQzNoProgress {
public:
    int Steps = 0;
    int CancelAt = -1;
    int ThrowAt = -1;
    void IncProgressBar(int count) override
    {
        Steps += count;
        if (Steps == ThrowAt)
            throw std::runtime_error("boom");
    }
    bool CheckCancel() override { return Steps == CancelAt; }
};

TEST_F(FormScanner, AnUnexpectedFailureNamesFileLineAndProcedure)
{
    TScriptedProgress progress;
    progress.ThrowAt = 2;
    TQzFormScanner scanner(TQzDlgManager::Labels);
    scanner.SetSearch("DEMO", "5");
    scanner.SetProgress(&progress);
    std::vector<TQzTokenRec1> hits;
    try {
        scanner.Scanner(MixedForm, "Unit1.dfm", hits);
        FAIL() << "no error";
    } catch (const EQzScanError& e) {
        EXPECT_EQ(e.Message(), "Internal Error: File: Unit1.dfm Line: 2 Procedure: Scanner");
    }
}

TEST_F(FormScanner, ACancelStopsAfterTheCurrentLine)
{
    TScriptedProgress progress;
    progress.CancelAt = 5;   // after line 4, the first hit
    TQzFormScanner scanner(TQzDlgManager::Labels);
    scanner.SetSearch("DEMO", "5");
    scanner.SetProgress(&progress);
    std::vector<TQzTokenRec1> hits;
    scanner.Scanner(MixedForm, "Unit1.dfm", hits);
    EXPECT_TRUE(scanner.Cancelled());
    EXPECT_EQ(Where(hits), (std::vector<std::string>{"4 Label1 Caption = 5"}));
    EXPECT_EQ(progress.Steps, 5);
}

}  // namespace
