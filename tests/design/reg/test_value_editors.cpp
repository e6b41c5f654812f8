// The property editors that need no dialog: what they show, offer and
// accept, and that a refused value leaves the form alone.

#include "RegTestComponents.h"
#include "design/reg/QzCtrlsRegValues.h"
#include "design/reg/QzCtrlsRegVariants.h"
#include "support/gui/QzTestDialogs.h"

#include "runtime/model/QzPkgImages.h"
#include "runtime/model/QzPkgVars.h"

#include <gtest/gtest.h>

namespace {

class ValueEditors : public THolderFormTest {};

TEST_F(ValueEditors, ModalResultsByNameInAnyCaseOtherwiseByNumber)
{
    auto editor = On<TQzModalResultProperty>("ModalResult", {"H1", "H2"});
    const struct {
        const char* Typed;
        Integer Stored;
        const char* Shown;
    } cases[] = {{"mrOK", 1, "mrOk"}, {"MRCLOSE", 15, "mrClose"}, {"", 0, "mrNone"}, {"12", 12, "mrRollBack"},
                 {"16", 16, "16"}, {"-1", -1, "-1"}};
    for (const auto& c : cases) {
        editor->SetValue(c.Typed);
        EXPECT_EQ(H("H2")->FModalResult, c.Stored) << c.Typed;
        EXPECT_EQ(editor->GetValue(), c.Shown) << c.Typed;
    }
    const auto names = ValuesOf(*editor);
    ASSERT_EQ(names.size(), 16u);
    EXPECT_EQ(names[8], "mrAll");

    Form->ClearModified();
    EXPECT_THROW(editor->SetValue("mrMaybe"), EConvertError);
    EXPECT_EQ(H("H1")->FModalResult, -1);
    EXPECT_FALSE(Form->IsModified());
}

TEST_F(ValueEditors, StorageModeShowsDfmOrFileAndCannotBeTyped)
{
    auto editor = On<TQzPkgInitModeProperty>("InitMode");
    EXPECT_EQ(ValuesOf(*editor), (std::vector<AnsiString>{"DFM", "FILE"}));
    H("H1")->FInitMode = imFile;
    EXPECT_EQ(editor->GetValue(), "FILE");
    Form->ClearModified();
    editor->SetValue("DFM");
    EXPECT_EQ(H("H1")->FInitMode, imFile);
    EXPECT_FALSE(Form->IsModified());
}

TEST_F(ValueEditors, AFolderIsStoredOnlyWhenTheDialogIsConfirmed)
{
    H("H1")->FPath = "/data/start";
    auto editor = On<TQzDirectoryPropertyEditor>("Path", {"H1", "H2"});
    TQzTestDialogs dialogs;
    dialogs->AnswerFolder("").AnswerFolder("/data/packages");
    Form->ClearModified();
    editor->Edit();
    EXPECT_EQ(H("H1")->FPath, "/data/start");
    EXPECT_FALSE(Form->IsModified());
    editor->Edit();
    EXPECT_EQ(H("H2")->FPath, "/data/packages");
    EXPECT_TRUE(Form->IsModified());
    EXPECT_EQ(dialogs->Calls()[0].File.Title, "Select an Alternative Path for Packages Search:");
    EXPECT_EQ(dialogs->Calls()[0].File.InitialDir, "/data/start");
}

TEST_F(ValueEditors, PackageNameListsOfferTheActivePackagesOfTheirKind)
{
    TComponent owner(nullptr);
    const auto add = [&](TQzPkgInfo* pkg, const char* name, bool active) {
        pkg->SetPkgName(name);
        pkg->SetActive(active);
    };
    add(new TQzPkgImages(&owner), "Icons", true);
    add(new TQzPkgImages(&owner), "Old", false);
    add(new TQzPkgVars(&owner), "Settings", true);
    add(new TQzPkgVars(&owner), "Retired", false);
    EXPECT_EQ(ValuesOf(*On<TQzImagePkgNameProperty>("PkgName")), (std::vector<AnsiString>{"Icons"}));
    EXPECT_EQ(ValuesOf(*On<TQzPkgVarsPkgVarsProperty>("PkgName")), (std::vector<AnsiString>{"Settings"}));
}

TEST_F(ValueEditors, DataFieldsComeFromTheDataSetBehindTheDataSource)
{
    auto form = TFormDesigner::LoadFromBytes(R"(object Form1: TForm
  object Edit1: TRgHolder
    DataSource = 'DataSource1'
  end
  object Lost: TRgHolder
    DataSource = 'Nowhere'
  end
  object DataSource1: TDataSource
    DataSet = Table1
  end
  object Table1: TTable
    object Table1NAME: TStringField
      FieldName = 'NAME'
    end
    object Table1ID: TIntegerField
      FieldName = 'ID'
    end
    object Table1Again: TStringField
      FieldName = 'name'
    end
  end
end
)", "data.dfm");
    const auto fieldsOf = [&](const char* component) {
        return ValuesOf(*EditorOn<TQzDataFieldAggProperty>(form.get(), {form->GetComponent(component)}, "DataField"));
    };
    EXPECT_EQ(fieldsOf("Edit1"), (std::vector<AnsiString>{"NAME", "ID"}));
    EXPECT_TRUE(fieldsOf("Lost").empty());
}

TEST(VariantText, ValuesReadAndWriteByDataType)
{
    const struct {
        Variant Value;
        TQzDataType Type;
        const char* Text;
        TVarType ReadBack;   // of StringToVariant(Text, Type)
    } cases[] = {
        {Variant(), qdtInteger, "{NULL}", varNull},
        {Null(), qdtString, "{NULL}", varNull},
        {Variant(2.5), qdtInteger, "3", varDouble},
        {Variant(2.5), qdtFloat, "2.5", varDouble},
        {Variant(1234.05), qdtCurrency, "1234.05", varDouble},
        {Variant(7), qdtString, "7", varString},
        {VarFromDateTime(EncodeDate(2024, 2, 29)), qdtDateTime, "2024-02-29", varDate},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(VariantToString(c.Value, c.Type), c.Text) << c.Text;
        EXPECT_EQ(StringToVariant(c.Text, c.Type).VarType(), c.ReadBack) << c.Text;
    }
    EXPECT_TRUE(StringToVariant("{null}", qdtInteger).IsNull());
    EXPECT_THROW(StringToVariant("12,5", qdtFloat), EConvertError);
    EXPECT_THROW(StringToVariant("tomorrow", qdtDateTime), EConvertError);
}

TEST_F(ValueEditors, ValueEditorsFollowTheControlsOrItsMasksDataType)
{
    auto editor = On<TQzEditVariantPropertyEditor>("Value", {"H1", "H2"});
    H("H1")->FDataType = H("H2")->FDataType = qdtFloat;
    editor->SetValue("0.1");
    EXPECT_EQ(H("H2")->FValue.VarType(), varDouble);
    EXPECT_TRUE(editor->AllEqual());
    H("H2")->FValue = Variant(0.2);
    EXPECT_FALSE(editor->AllEqual());

    TRgMasked masked(nullptr);
    auto maskedEditor = EditorOn<TQzLabelVariantPropertyEditor>(nullptr, {&masked}, "Value");
    maskedEditor->SetValue("0.10");
    EXPECT_EQ(masked.FValue.VarType(), varString) << "a text mask keeps the text";
    masked.FMask.SetDataType(qdtInteger);
    maskedEditor->SetValue("12");
    EXPECT_EQ(masked.FValue.VarType(), varDouble);
}

}  // namespace
