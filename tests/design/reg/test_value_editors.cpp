// The property editors that need no dialog: what they show, offer and
// accept, and that they leave the form alone when they refuse a value.

#include "RegTestComponents.h"
#include "design/reg/QzCtrlsRegValues.h"
#include "design/reg/QzCtrlsRegVariants.h"
#include "support/gui/QzTestDialogs.h"

#include "runtime/model/QzPkgImages.h"
#include "runtime/model/QzPkgVars.h"

#include <gtest/gtest.h>

namespace {

class ValueEditors : public ::testing::Test {
protected:
    TRgHolder* Holder(const char* name) { return dynamic_cast<TRgHolder*>(Form->GetComponent(name)); }

    template <class E>
    std::unique_ptr<E> On(const AnsiString& prop, std::vector<const char*> names = {"H1"})
    {
        std::vector<TPersistent*> objects;
        for (const char* n : names)
            objects.push_back(Holder(n));
        return EditorOn<E>(Form.get(), objects, prop);
    }

    std::unique_ptr<TFormDesigner> Form = MakeHolderForm();
};

TEST_F(ValueEditors, ModalResultsShowTheirNamesAndOtherValuesTheirNumbers)
{
    const struct {
        Integer Stored;
        const char* Shown;
    } cases[] = {{0, "mrNone"}, {1, "mrOk"}, {2, "mrCancel"}, {12, "mrRollBack"}, {15, "mrClose"}, {16, "16"}, {-1, "-1"}};
    auto editor = On<TQzModalResultProperty>("ModalResult");
    for (const auto& c : cases) {
        Holder("H1")->FModalResult = c.Stored;
        EXPECT_EQ(editor->GetValue(), c.Shown);
    }
    const std::vector<AnsiString> names = {"mrNone",  "mrOk",       "mrCancel", "mrAbort",    "mrRetry", "mrIgnore",
                                           "mrYes",   "mrNo",       "mrAll",    "mrNoToAll",  "mrYesToAll",
                                           "mrCommit", "mrRollBack", "mrHelp",  "mrDetail",   "mrClose"};
    EXPECT_EQ(ValuesOf(*editor), names);
}

TEST_F(ValueEditors, ModalResultsAreTypedByNameInAnyCaseOrByNumber)
{
    const struct {
        const char* Typed;
        Integer Stored;
    } cases[] = {{"mrOK", 1}, {"MROK", 1}, {"mrok", 1}, {"MrClose", 15}, {"", 0}, {"7", 7}, {"42", 42}, {"$10", 16}};
    auto editor = On<TQzModalResultProperty>("ModalResult", {"H1", "H2"});
    for (const auto& c : cases) {
        Holder("H1")->FModalResult = Holder("H2")->FModalResult = 99;
        editor->SetValue(c.Typed);
        EXPECT_EQ(Holder("H1")->FModalResult, c.Stored) << c.Typed;
        EXPECT_EQ(Holder("H2")->FModalResult, c.Stored) << c.Typed;
    }
}

TEST_F(ValueEditors, ARefusedModalResultChangesNothing)
{
    auto editor = On<TQzModalResultProperty>("ModalResult");
    Holder("H1")->FModalResult = 3;
    Form->ClearModified();
    EXPECT_THROW(editor->SetValue("mrMaybe"), EConvertError);
    EXPECT_EQ(Holder("H1")->FModalResult, 3);
    EXPECT_FALSE(Form->IsModified());
}

TEST_F(ValueEditors, PenWidthsOfferOneToTwentyAndAcceptAnyNumber)
{
    auto editor = On<TQzWideProperty>("Width");
    const auto values = ValuesOf(*editor);
    ASSERT_EQ(values.size(), 20u);
    EXPECT_EQ(values.front(), "1");
    EXPECT_EQ(values.back(), "20");
    editor->SetValue("35");
    EXPECT_EQ(Holder("H1")->FWidth, 35);
    EXPECT_EQ(editor->GetValue(), "35");
}

TEST_F(ValueEditors, StorageModeShowsDfmOrFileAndIgnoresTyping)
{
    auto editor = On<TQzPkgInitModeProperty>("InitMode");
    EXPECT_EQ(editor->GetValue(), "DFM");
    EXPECT_EQ(ValuesOf(*editor), (std::vector<AnsiString>{"DFM", "FILE"}));
    Holder("H1")->FInitMode = imFile;
    EXPECT_EQ(editor->GetValue(), "FILE");

    Form->ClearModified();
    editor->SetValue("DFM");
    EXPECT_EQ(Holder("H1")->FInitMode, imFile);
    EXPECT_FALSE(Form->IsModified());
}

TEST_F(ValueEditors, AFolderChosenInTheDialogIsStoredAndACancelChangesNothing)
{
    Holder("H1")->FPath = "/data/start";
    auto editor = On<TQzDirectoryPropertyEditor>("Path", {"H1", "H2"});
    {
        TQzTestDialogs dialogs;
        dialogs->AnswerFolder("");
        Form->ClearModified();
        editor->Edit();
        EXPECT_EQ(Holder("H1")->FPath, "/data/start");
        EXPECT_FALSE(Form->IsModified());
        ASSERT_EQ(dialogs->Calls().size(), 1u);
        EXPECT_EQ(dialogs->Calls()[0].File.Title, "Select an Alternative Path for Packages Search:");
        EXPECT_EQ(dialogs->Calls()[0].File.InitialDir, "/data/start");
    }
    {
        TQzTestDialogs dialogs;
        dialogs->AnswerFolder("/data/packages");
        editor->Edit();
    }
    EXPECT_EQ(Holder("H1")->FPath, "/data/packages");
    EXPECT_EQ(Holder("H2")->FPath, "/data/packages");
    EXPECT_TRUE(Form->IsModified());
}

TEST_F(ValueEditors, PackageNameListsOfferTheActivePackagesOfTheirKind)
{
    TComponent owner(nullptr);
    const auto images = [&](const char* name, bool active) {
        auto* pkg = new TQzPkgImages(&owner);
        pkg->SetPkgName(name);
        pkg->SetActive(active);
    };
    const auto vars = [&](const char* name, bool active) {
        auto* pkg = new TQzPkgVars(&owner);
        pkg->SetPkgName(name);
        pkg->SetActive(active);
    };
    images("Icons", true);
    images("Old", false);
    images("Photos", true);
    vars("Settings", true);
    vars("Retired", false);

    const auto imageNames = ValuesOf(*On<TQzImagePkgNameProperty>("PkgName"));
    const auto varNames = ValuesOf(*On<TQzPkgVarsPkgVarsProperty>("PkgName"));
    const auto has = [](const std::vector<AnsiString>& list, const char* name) {
        return std::find(list.begin(), list.end(), name) != list.end();
    };
    EXPECT_TRUE(has(imageNames, "Icons") && has(imageNames, "Photos"));
    EXPECT_FALSE(has(imageNames, "Old") || has(imageNames, "Settings"));
    EXPECT_TRUE(has(varNames, "Settings"));
    EXPECT_FALSE(has(varNames, "Retired") || has(varNames, "Icons"));
}

TEST_F(ValueEditors, GraphicClassOffersThePictureFormatsWithTheSuitesOwn)
{
    const auto formats = ValuesOf(*On<TQzImageGraphicClassProperty>("GraphicClass"));
    EXPECT_NE(std::find(formats.begin(), formats.end(), "png"), formats.end());
    EXPECT_NE(std::find(formats.begin(), formats.end(), "imqz"), formats.end());
}

const char* const DataForm = R"(object Form1: TForm
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
    TableName = 'customer.db'
    object Table1NAME: TStringField
      FieldName = 'NAME'
      Size = 30
    end
    object Table1ID: TIntegerField
      FieldName = 'ID'
    end
    object Table1Again: TStringField
      FieldName = 'name'
    end
  end
end
)";

TEST_F(ValueEditors, DataFieldsComeFromTheDataSetBehindTheDataSource)
{
    RegisterRgClasses();
    auto form = TFormDesigner::LoadFromBytes(DataForm, "data.dfm");
    const auto fieldsOf = [&](const char* component) {
        auto editor = EditorOn<TQzDataFieldAggProperty>(form.get(), {form->GetComponent(component)}, "DataField");
        return ValuesOf(*editor);
    };
    EXPECT_EQ(fieldsOf("Edit1"), (std::vector<AnsiString>{"NAME", "ID"}));
    EXPECT_TRUE(fieldsOf("Lost").empty());
}

// ---------------------------------------------------------------------------
// Variants

TEST(VariantText, ValuesReadAndWriteByDataType)
{
    const struct {
        Variant Value;
        TQzDataType Type;
        const char* Text;
    } cases[] = {
        {Variant(), qdtInteger, "{NULL}"},
        {Null(), qdtString, "{NULL}"},
        {Variant(42), qdtInteger, "42"},
        {Variant(2.5), qdtInteger, "3"},
        {Variant(2.5), qdtFloat, "2.5"},
        {Variant(1234.05), qdtCurrency, "1234.05"},
        {Variant("text"), qdtString, "text"},
        {Variant(7), qdtString, "7"},
        {VarFromDateTime(EncodeDate(2024, 2, 29)), qdtDateTime, "2024-02-29"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(VariantToString(c.Value, c.Type), c.Text) << c.Text;
}

TEST(VariantText, TextIsReadBackByDataType)
{
    EXPECT_TRUE(StringToVariant("{null}", qdtInteger).IsNull());
    EXPECT_TRUE(StringToVariant("{NULL}", qdtString).IsNull());
    const Variant number = StringToVariant("12.75", qdtCurrency);
    EXPECT_EQ(number.VarType(), varDouble);
    EXPECT_DOUBLE_EQ(number.AsFloat(), 12.75);
    EXPECT_EQ(StringToVariant("-3", qdtInteger).VarType(), varDouble);
    EXPECT_EQ(StringToVariant("12.75", qdtString).VarType(), varString);
    const Variant date = StringToVariant("2024-02-29 10:30", qdtDateTime);
    EXPECT_EQ(date.VarType(), varDate);
    EXPECT_EQ(VariantToString(date, qdtDateTime), "2024-02-29 10:30:00");
    EXPECT_THROW(StringToVariant("12,5", qdtFloat), EConvertError);
    EXPECT_THROW(StringToVariant("tomorrow", qdtDateTime), EConvertError);
}

TEST_F(ValueEditors, ValueEditorsFollowTheControlsDataType)
{
    auto editor = On<TQzEditVariantPropertyEditor>("Value", {"H1", "H2"});
    Holder("H1")->FDataType = Holder("H2")->FDataType = qdtFloat;
    editor->SetValue("0.1");
    EXPECT_EQ(Holder("H2")->FValue.VarType(), varDouble);
    EXPECT_EQ(editor->GetValue(), "0.1");
    EXPECT_TRUE(editor->AllEqual());

    Holder("H2")->FValue = Variant(0.2);
    EXPECT_FALSE(editor->AllEqual());

    editor->SetValue("{Null}");
    EXPECT_TRUE(Holder("H1")->FValue.IsNull());
    EXPECT_EQ(editor->GetValue(), "{NULL}");

    // A control without a DataType keeps the text as typed.
    TRgPlain plain(nullptr);
    auto plainEditor = EditorOn<TQzListBoxVariantPropertyEditor>(nullptr, {&plain}, "Value");
    plainEditor->SetValue("0.10");
    EXPECT_EQ(plain.FValue.VarType(), varString);
    EXPECT_EQ(plainEditor->GetValue(), "0.10");
}

TEST_F(ValueEditors, AMaskedControlsValueFollowsItsMasksDataType)
{
    TRgMasked masked(nullptr);
    masked.FMask.SetDataType(qdtInteger);
    auto editor = EditorOn<TQzLabelVariantPropertyEditor>(nullptr, {&masked}, "Value");
    editor->SetValue("12");
    EXPECT_EQ(masked.FValue.VarType(), varDouble);
    masked.FMask.SetDataType(qdtString);
    editor->SetValue("12");
    EXPECT_EQ(masked.FValue.VarType(), varString);
}

TEST_F(ValueEditors, APageControlEntryKeepsOnlyTheValueBeforeItsDescription)
{
    const struct {
        const char* Picked;
        const char* Stored;
    } cases[] = {{"3 - Customers", "3"}, {"7", "7"}, {"-2", "-2"}, {"-2 - Archive", "-2"}, {"5-Old", "5"}};
    auto editor = On<TQzPageControlVariantPropertyEditor>("Value");
    Holder("H1")->FDataType = qdtInteger;
    for (const auto& c : cases) {
        editor->SetValue(c.Picked);
        EXPECT_EQ(editor->GetValue(), c.Stored) << c.Picked;
    }
}

}  // namespace
