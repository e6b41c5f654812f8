// The palette's table, the classes the designer makes without a button,
// the reference types the suite's properties are published with, and every
// class surviving a form round trip when freshly made. (That each editor
// binding reaches a published property of its type is checked on the
// design package's own registrations.)

#include "runtime/components/QzAddCtrls.h"
#include "runtime/components/QzBars.h"
#include "runtime/components/QzComponentsReg.h"
#include "runtime/components/QzPalette.h"
#include "runtime/components/QzDbCtrls.h"
#include "runtime/components/QzForms.h"
#include "runtime/components/QzMenus.h"
#include "runtime/model/Qzmain.h"

#include "rtl/ComponentStream.h"

#include <gtest/gtest.h>

#include <set>

namespace {

class ComponentRegistration : public ::testing::Test {
protected:
    void SetUp() override { RegisterQzComponentClasses(); }
};

TEST_F(ComponentRegistration, PalettePagesHoldTheirClassesInOrder)
{
    std::set<AnsiString> unique;
    for (const TQzPaletteEntry& e : QzPaletteClasses())
        EXPECT_TRUE(unique.insert(e.ClassName).second) << e.ClassName << " twice";
    EXPECT_EQ(QzPalettePage("tqzdbmemo"), "Qz Data Controls");
    EXPECT_EQ(QzPalettePage("TQzMenuItem"), "");

    // Each page's buttons stand together, the pages in their palette order:
    // registration walks the pages, the pictures and listings the entries.
    std::vector<AnsiString> order;
    for (const TQzPaletteEntry& e : QzPaletteClasses())
        if (order.empty() || order.back() != e.Page)
            order.push_back(e.Page);
    EXPECT_EQ(order, QzPalettePages());
}

// Streamable classes without a palette button that the designer creates.
TEST_F(ComponentRegistration, ClassesTheDesignerCreatesWithoutAButtonAreRegistered)
{
    for (const char* name : {"TQzMenuItem", "TQzTabSheet", "TQzOutLookBarPage", "TQzEditBtns", "TForm", "TFrame"}) {
        TMetaClass* cls = GetClass(name);
        ASSERT_NE(cls, nullptr) << name;
        EXPECT_TRUE(cls->CanCreate()) << name;
    }
    for (const char* name : {"TQzCollectionItem", "TQzPageItem", "TQzStatusBarPanel", "TQzFormDataSource"}) {
        TMetaClass* cls = GetClass(name);
        ASSERT_NE(cls, nullptr) << name;
        EXPECT_TRUE(cls->CanCreateItem()) << name;
    }
}

// The references a control shows its caption, hint, picture, message and
// text through, its display sets and its privilege, on a sample of each kind.
TEST_F(ComponentRegistration, SuitePropertiesUseTheModelsReferenceTypes)
{
    const struct {
        const char* ClassName;
        const char* Property;
        TMetaClass* Type;
    } expected[] = {
        {"TQzLabel", "Caption", TQzMemoryLabel::ClassInfo()},
        {"TQzEdit", "HintLabel", TQzMemoryLabel::ClassInfo()},
        {"TQzEdit", "ErrorMessage", TQzMemoryMessage::ClassInfo()},
        {"TQzEdit", "Mask", TQzMask::ClassInfo()},
        {"TQzEdit", "Buttons", TQzEditBtns::ClassInfo()},
        {"TQzMemo", "Text", TQzMemoryText::ClassInfo()},
        {"TQzImage", "Picture", TQzMemoryImage::ClassInfo()},
        {"TQzBitBtn", "Glyph", TQzMemoryImage::ClassInfo()},
        {"TQzPanel", "SetBackGround", TQzSetBackGround::ClassInfo()},
        {"TQzPanel", "SetColor", TQzSetColor::ClassInfo()},
        {"TQzPanel", "SetFont", TQzSetFont::ClassInfo()},
        {"TQzBitBtn", "Privilege", TQzPrivilege::ClassInfo()},
        {"TQzMenuItem", "Label", TQzMemoryLabel::ClassInfo()},
        {"TQzMenuItem", "Privilege", TQzPrivilege::ClassInfo()},
        {"TQzCForm", "Label", TQzMemoryLabel::ClassInfo()},
        {"TQzDbNavigator", "DeleteMessage", TQzMemoryMessage::ClassInfo()},
        {"TQzShape", "Pen", TQzPen::ClassInfo()},
        {"TQzPageControl", "ActivePage", TQzTabSheet::ClassInfo()},
    };
    for (const auto& e : expected) {
        const TPropInfo* prop = GetClass(e.ClassName)->FindProperty(e.Property);
        ASSERT_NE(prop, nullptr) << e.ClassName << "." << e.Property;
        EXPECT_EQ(prop->PropType->ClassType, e.Type) << e.ClassName << "." << e.Property;
    }
    EXPECT_EQ(GetClass("TQzLabel")->FindProperty("Text")->PropType, TypeInfo_TQzMultiLine());
}

// A freshly made component of every class, on a form, written and read
// back, gives the same form again: nothing is written that cannot be read,
// and every property's getter works on a new object.
TEST_F(ComponentRegistration, EveryFreshComponentSurvivesAFormRoundTrip)
{
    for (TMetaClass* cls : QzComponentClasses()) {
        if (!cls->CanCreate() || cls->InheritsFrom(TCustomForm::ClassInfo()))
            continue;
        SCOPED_TRACE(cls->ClassName());
        TQzCForm form(nullptr);
        form.SetName("Form1");
        TComponent* component = cls->Create(&form);
        component->SetName("C1");
        component->SetParentComponent(&form);
        for (const TPropInfo* prop : cls->Properties()) {
            if (prop->PropType->Kind != tkClass && prop->PropType->Kind != tkMethod) {
                EXPECT_NO_THROW(GetPropValue(component, prop->Name)) << prop->Name;
            }
        }
        const std::string text = WriteFormText(&form);
        std::unique_ptr<TComponent> again = ReadForm(text);
        EXPECT_EQ(WriteFormText(again.get()), text);
        EXPECT_EQ(again->FindComponent("C1")->ClassType(), cls);
    }
}

}  // namespace
