// A form built of the suite's controls, as the IDE writes one: it loads into
// the real classes with every reference, collection and nested control in
// place, saves back byte for byte, and a change to one reference rewrites
// only that reference's line.

#include "runtime/components/QzAddCtrls.h"
#include "runtime/components/QzComponentsReg.h"
#include "runtime/components/QzForms.h"
#include "runtime/components/QzMenus.h"
#include "runtime/components/QzPages.h"
#include "runtime/components/QzStdCtrls.h"
#include "runtime/components/QzExtCtrls.h"

#include "rtl/ComponentStream.h"
#include "support/TextLines.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

const char* const SuiteForm = R"(object FrMain: TQzCForm
  Left = 192
  Top = 107
  Width = 544
  Height = 375
  Caption = 'Customers'
  Color = clBtnFace
  Menu = MnMain
  BtnCancel = BtCancel
  BtnOk = BtOk
  DataSources = <
    item
      DataSource = 'DsCustomers'
    end>
  Label.PkgName = 'MAIN'
  Label.Id = 1
  PkgVars = 'Settings'
  OnCreate = FormCreate
  PixelsPerInch = 96
  TextHeight = 13
  object PnTop: TQzPanel
    Left = 0
    Top = 0
    Width = 536
    Height = 41
    Align = alTop
    BevelOuter = bvNone
    TabOrder = 0
    object PnInner: TQzPanel
      Left = 8
      Top = 4
      Width = 400
      Height = 33
      Anchors = [akLeft, akTop, akRight]
      Caption.PkgName = 'MAIN'
      Caption.Id = 12
      TabOrder = 0
      object LabName: TQzLabel
        Left = 4
        Top = 8
        Width = 40
        Height = 13
        Caption.PkgName = 'MAIN'
        Caption.Id = 13
        FocusControl = EdName
      end
      object EdName: TQzEdit
        Left = 60
        Top = 4
        Width = 121
        Height = 21
        Buttons.Kinds = [ebCalculator, ebCalendar]
        HintLabel.PkgName = 'MAIN'
        HintLabel.Id = 14
        Mask.DataType = qdtInteger
        Mask.Size = 6
        Privilege.Id = 3
        SetFont.Name = 'Title'
        TabOrder = 0
        Value = 42
        OnChange = EdNameChange
      end
    end
  end
  object PcMain: TQzPageControl
    Left = 0
    Top = 41
    Width = 536
    Height = 280
    ActivePage = TsOne
    Align = alClient
    Pages = <
      item
        Value = 1
        Caption.PkgName = 'MAIN'
        Caption.Id = 20
        TabSheet = TsOne
      end
      item
        Value = 2
        Caption.PkgName = 'MAIN'
        Caption.Id = 21
        Image.PkgName = 'PICS'
        Image.Id = 5
        TabSheet = TsTwo
      end>
    TabOrder = 1
    object TsOne: TQzTabSheet
      Left = 4
      Top = 24
      Width = 528
      Height = 252
      object CbKind: TQzComboBox
        Left = 8
        Top = 8
        Width = 145
        Height = 21
        Items = <
          item
            Value = 'A'
            Caption.PkgName = 'MAIN'
            Caption.Id = 30
          end
          item
            Value = 'B'
            Caption.PkgName = 'MAIN'
            Caption.Id = 31
            Enabled = False
          end>
        TabOrder = 0
        Value = 'A'
      end
    end
    object TsTwo: TQzTabSheet
      Left = 4
      Top = 24
      Width = 528
      Height = 252
      object BtOk: TQzBitBtn
        Left = 360
        Top = 216
        Width = 75
        Height = 25
        Caption.PkgName = 'System'
        Caption.Id = 2
        Glyph.PkgName = 'System'
        Glyph.Id = 48
        TabOrder = 0
        ModalResult = 1
      end
      object BtCancel: TQzBitBtn
        Left = 444
        Top = 216
        Width = 75
        Height = 25
        Caption.PkgName = 'System'
        Caption.Id = 3
        TabOrder = 1
        ModalResult = 2
      end
    end
  end
  object MnMain: TQzMainMenu
    WindowsList = MiWindows
    Left = 8
    Top = 8
    object MiFile: TQzMenuItem
      Caption = '&File'
      Label.PkgName = 'MAIN'
      Label.Id = 40
      object MiOpen: TQzMenuItem
        Caption = '&Open...'
        ShortCut = 16463
        OnClick = MiOpenClick
      end
      object MiLine: TQzMenuItem
        Caption = '-'
      end
    end
    object MiWindows: TQzMenuItem
      Caption = '&Window'
      Privilege.Id = 7
    end
  end
  object TmClock: TQzTimer
    Interval = 500
    OnTimer = TmClockTimer
    Left = 40
    Top = 8
  end
end
)";

TFormTextOptions Lf()
{
    TFormTextOptions options;
    options.LineBreak = "\n";
    return options;
}

class SuiteFormTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        RegisterQzComponentClasses();
        FForm = ReadForm(SuiteForm, Lf());
    }
    template <class T>
    T* Find(const char* name)
    {
        auto* found = dynamic_cast<T*>(FForm->FindComponent(name));
        EXPECT_NE(found, nullptr) << name;
        return found;
    }
    std::unique_ptr<TComponent> FForm;
};

TEST_F(SuiteFormTest, LoadsIntoTheSuitesClassesWithEveryReferenceInPlace)
{
    auto* form = dynamic_cast<TQzCForm*>(FForm.get());
    ASSERT_NE(form, nullptr);
    EXPECT_EQ(form->PkgVars(), "Settings");
    EXPECT_EQ(form->Parts().Label()->Id(), 1);
    EXPECT_EQ(form->BtnOk(), Find<TQzBitBtn>("BtOk"));
    EXPECT_EQ(form->BtnCancel(), Find<TQzBitBtn>("BtCancel"));
    EXPECT_EQ(form->Menu(), Find<TQzMainMenu>("MnMain"));
    ASSERT_EQ(form->DataSources()->Count(), 1);
    EXPECT_EQ(static_cast<TQzFormDataSource*>(form->DataSources()->Items(0))->DataSource(), "DsCustomers");
    EXPECT_EQ(form->ClientWidth(), 536);

    // Nesting follows the objects' nesting in the file.
    EXPECT_EQ(Find<TQzPanel>("PnInner")->Parent(), Find<TQzPanel>("PnTop"));
    EXPECT_EQ(Find<TQzEdit>("EdName")->Parent(), Find<TQzPanel>("PnInner"));
    EXPECT_EQ(Find<TQzLabel>("LabName")->FocusControl(), Find<TQzEdit>("EdName"));

    auto* edit = Find<TQzEdit>("EdName");
    EXPECT_EQ(edit->GetValue(), Variant(42));
    EXPECT_EQ(edit->GetDataType(), qdtInteger);
    EXPECT_EQ(edit->Buttons()->Kinds(), (TQzEditBtnKinds{ebCalculator, ebCalendar}));
    EXPECT_EQ(edit->Parts().Label()->PkgName(), "MAIN");
    EXPECT_EQ(edit->Parts().Privilege()->Id(), 3);
    EXPECT_EQ(edit->Parts().SetFont()->Name(), "Title");
    EXPECT_EQ(edit->EventHandler("OnChange"), "EdNameChange");

    auto* pages = Find<TQzPageControl>("PcMain");
    ASSERT_EQ(pages->PageCount(), 2);
    EXPECT_EQ(pages->Page(0)->TabSheet(), Find<TQzTabSheet>("TsOne"));
    EXPECT_EQ(pages->Page(1)->TabSheet(), Find<TQzTabSheet>("TsTwo"));
    EXPECT_EQ(pages->Page(1)->Image()->Id(), 5);
    EXPECT_EQ(pages->ActivePageIndex(), 0);
    EXPECT_EQ(Find<TQzTabSheet>("TsTwo")->PageControl(), pages);

    auto* combo = Find<TQzComboBox>("CbKind");
    ASSERT_EQ(combo->Items()->Count(), 2);
    EXPECT_EQ(combo->Items()->IndexOfValue(Variant("B")), 1);
    EXPECT_FALSE(combo->Items()->GetItem(1)->Enabled());
}

TEST_F(SuiteFormTest, MenuItemsNestAsTheFormNestsThem)
{
    auto* menu = Find<TQzMainMenu>("MnMain");
    auto* file = Find<TQzMenuItem>("MiFile");
    auto* open = Find<TQzMenuItem>("MiOpen");
    ASSERT_EQ(menu->Items()->Count(), 2);
    EXPECT_EQ(menu->Items()->Items(0), file);
    EXPECT_EQ(file->Count(), 2);
    EXPECT_EQ(open->Parent(), file);
    EXPECT_EQ(file->Parent(), menu->Items());
    EXPECT_EQ(open->GetParentMenu(), menu);
    EXPECT_TRUE(Find<TQzMenuItem>("MiLine")->IsLine());
    EXPECT_EQ(open->ShortCut(), 16463);
    EXPECT_EQ(menu->MenuParts().WindowsList(), Find<TQzMenuItem>("MiWindows"));
    EXPECT_EQ(menu->DesignLeft(), 8);
    EXPECT_EQ(Find<TQzTimer>("TmClock")->DesignLeft(), 40);
}

TEST_F(SuiteFormTest, SavesByteForByteAsTextAndAsBinary)
{
    EXPECT_EQ(WriteFormText(FForm.get(), Lf()), SuiteForm);
    const std::string binary = FormToBinary(SuiteForm, Lf());
    EXPECT_EQ(WriteComponentData(ReadForm(binary, Lf()).get(), Lf()), binary);
}

// Each change to one reference (a control's, a collection entry's, a menu
// item's) rewrites that reference's line and nothing else.
TEST_F(SuiteFormTest, ChangingAReferenceIdRewritesOnlyItsLine)
{
    const struct {
        const char* Name;
        std::function<void(TComponent&)> Change;
        const char* NewLine;
    } cases[] = {
        {"edit hint", [](TComponent& f) { dynamic_cast<TQzEdit*>(f.FindComponent("EdName"))->Parts().Label()->SetId(15); },
         "        HintLabel.Id = 15"},
        {"tab caption",
         [](TComponent& f) { dynamic_cast<TQzPageControl*>(f.FindComponent("PcMain"))->Page(1)->Caption()->SetId(22); },
         "        Caption.Id = 22"},
        {"menu label", [](TComponent& f) { dynamic_cast<TQzMenuItem*>(f.FindComponent("MiFile"))->Label()->SetId(41); },
         "      Label.Id = 41"},
        {"form label", [](TComponent& f) { dynamic_cast<TQzCForm*>(&f)->Parts().Label()->SetId(9); }, "  Label.Id = 9"},
        {"menu item privilege",
         [](TComponent& f) { dynamic_cast<TQzMenuItem*>(f.FindComponent("MiWindows"))->Privilege()->SetId(8); },
         "      Privilege.Id = 8"},
    };
    const std::vector<std::string> before = TextLines(SuiteForm);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Name);
        std::unique_ptr<TComponent> form = ReadForm(SuiteForm, Lf());
        c.Change(*form);
        const std::vector<std::string> after = TextLines(WriteFormText(form.get(), Lf()));
        ASSERT_EQ(after.size(), before.size());
        std::vector<std::string> changed;
        for (size_t i = 0; i < after.size(); ++i)
            if (after[i] != before[i])
                changed.push_back(after[i]);
        EXPECT_EQ(changed, std::vector<std::string>{c.NewLine});
    }
}

// Freeing what a reference points at clears the reference, so the form is
// written without a dangling name.
TEST_F(SuiteFormTest, FreeingAReferencedComponentClearsItsReferences)
{
    delete FForm->FindComponent("BtOk");
    delete FForm->FindComponent("MiWindows");
    delete FForm->FindComponent("TsOne");
    auto* form = static_cast<TQzCForm*>(FForm.get());
    EXPECT_EQ(form->BtnOk(), nullptr);
    EXPECT_EQ(Find<TQzMainMenu>("MnMain")->MenuParts().WindowsList(), nullptr);
    EXPECT_EQ(Find<TQzPageControl>("PcMain")->ActivePage(), nullptr);
    EXPECT_EQ(Find<TQzPageControl>("PcMain")->Page(0)->TabSheet(), nullptr);
    // The combo box on the freed sheet went with it.
    EXPECT_EQ(FForm->FindComponent("CbKind"), nullptr);
    const std::string text = WriteFormText(FForm.get(), Lf());
    for (const char* gone : {"BtnOk", "WindowsList", "ActivePage", "TsOne", "CbKind"})
        EXPECT_EQ(text.find(gone), std::string::npos) << gone;
    EXPECT_NE(text.find("BtnCancel = BtCancel"), std::string::npos);
}

}  // namespace
