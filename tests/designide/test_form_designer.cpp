// The windowless designer: new components, forms that fail to load, and
// saving in the form's own format.

#include "TestComponents.h"
#include "rtl/Parser.h"

#include <gtest/gtest.h>


namespace {

TEST(FormDesigner, NewComponentsGetTheFirstFreeNameAndMarkTheFormModified)
{
    auto designer = MakeTestDesigner();
    EXPECT_EQ(designer->UniqueName("TDtButton"), "DtButton1");
    TComponent* first = designer->CreateComponent(ClassOf<TDtButton>(), designer->GetComponent("Label1"));
    TComponent* second = designer->CreateComponent(ClassOf<TDtButton>(), nullptr);
    EXPECT_EQ(first->Name(), "DtButton1");
    EXPECT_EQ(second->Name(), "DtButton2");
    EXPECT_EQ(first->Owner(), designer->GetRoot());
    EXPECT_EQ(first->GetParentComponent(), designer->GetComponent("Label1"));
    EXPECT_TRUE(first->ComponentState().Contains(csDesigning));
    EXPECT_EQ(designer->ModifiedCount(), 2);

    designer->SetSelections({first, first, nullptr, second});
    EXPECT_EQ(designer->GetSelections(), (TDesignerSelections{first, second}));
}

TEST(FormDesigner, AFormThatFailsToLoadNamesItsFileAndLine)
{
    RegisterDtClasses();
    try {
        TFormDesigner::LoadFromBytes("object Form1: TDtForm\n  Caption = 'open\nend\n", "Broken.dfm");
        FAIL() << "loaded";
    } catch (const ETextParseError& e) {
        EXPECT_EQ(e.Message().rfind("Broken.dfm: line 2", 0), 0u) << e.Message();
        EXPECT_EQ(e.Line(), 2);
    }
    EXPECT_THROW(TFormDesigner::LoadFromBytes("hello", "Plain.dfm"), EFilerError);
    try {
        TFormDesigner::LoadFromFile("/nonexistent/Missing.dfm");
        FAIL() << "loaded";
    } catch (const Exception& e) {
        EXPECT_NE(e.Message().find("/nonexistent/Missing.dfm"), AnsiString::npos) << e.Message();
    }
}

TEST(FormDesigner, SavingKeepsTheFormsFormatAndHandlersAreKnown)
{
    RegisterDtClasses();
    const std::string text = "object Form1: TDtForm\r\n  object Button1: TDtButton\r\n    OnClick = Button1Click\r\n"
                             "  end\r\nend\r\n";
    TTempFolder folder;
    const std::string file = folder / "Unit1.dfm";
    struct TCase {
        std::string Bytes;
        TFormFormat Format;
    };
    for (const TCase& c : {TCase{text, TFormFormat::Text}, TCase{FormTextToBinary(text), TFormFormat::Binary},
                           TCase{FormTextToResource(text), TFormFormat::Resource}}) {
        WriteFileAtomic(file, c.Bytes);
        auto designer = TFormDesigner::LoadFromFile(file);
        EXPECT_TRUE(designer->MethodExists("button1click"));
        EXPECT_EQ(designer->OriginalFormat(), c.Format == TFormFormat::Text ? sofText : sofBinary);
        SetStrProp(designer->GetComponent("Button1"), "Caption", "Go");
        designer->Modified();
        designer->Save();
        EXPECT_FALSE(designer->IsModified());
        const std::string saved = ReadFileBytes(file);
        EXPECT_EQ(DetectFormFormat(saved), c.Format);
        EXPECT_NE(FormToText(saved).find("Caption = 'Go'"), std::string::npos);
        EXPECT_EQ(ReadFileBytes(FormBackupName(file)), c.Bytes);
    }
}

}  // namespace
