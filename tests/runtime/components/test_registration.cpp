// Every class on the palette is registered, can be made by its metaclass,
// and publishes the properties the design package binds editors to, with
// the types those bindings name.

#include "runtime/components/QzAddCtrls.h"
#include "runtime/components/QzBars.h"
#include "runtime/components/QzComponentsReg.h"
#include "runtime/components/QzPalette.h"
#include "runtime/components/QzDbCtrls.h"
#include "runtime/components/QzForms.h"
#include "runtime/components/QzMenus.h"
#include "runtime/model/Qzmain.h"

#include "rtl/ComponentStream.h"
#include "rtl/StringList.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

namespace {

class ComponentRegistration : public ::testing::Test {
protected:
    void SetUp() override { RegisterQzComponentClasses(); }
};

const TTypeInfo* ClassType(TMetaClass* cls)
{
    return cls->TypeInfo();
}

TEST_F(ComponentRegistration, PalettePagesHoldTheirClassesInOrder)
{
    std::map<AnsiString, std::vector<AnsiString>> pages;
    for (const TQzPaletteEntry& e : QzPaletteClasses())
        pages[e.Page].push_back(e.ClassName);
    EXPECT_EQ(pages["Qz Standard"].size(), 24u);
    EXPECT_EQ(pages["Qz Additional"].size(), 24u);
    EXPECT_EQ(pages["Qz Data Controls"].size(), 15u);
    EXPECT_EQ(pages["Qz Editors"].size(), 13u);
    EXPECT_EQ(pages["Qz Standard"].front(), "TQzCApplication");
    EXPECT_EQ(pages["Qz Additional"].back(), "TQzCFrame");
    EXPECT_EQ(pages["Qz Editors"].back(), "TQzPkgImagesDesignRgn");
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

// Made through the registry by name, as a form file makes them, and freed
// again without leaving anything behind (the application object is one per
// process, so each is freed before the next is made).
TEST_F(ComponentRegistration, EveryPaletteClassIsRegisteredAndCreatable)
{
    for (const TQzPaletteEntry& e : QzPaletteClasses()) {
        if (AnsiString(e.ClassName) == "TQzRuler")
            continue;  // the design package's own
        SCOPED_TRACE(e.ClassName);
        TMetaClass* cls = GetClass(e.ClassName);
        ASSERT_NE(cls, nullptr);
        ASSERT_TRUE(cls->CanCreate());
        std::unique_ptr<TComponent> form = std::make_unique<TQzCForm>(nullptr);
        TComponent* component = cls->Create(form.get());
        EXPECT_EQ(component->ClassType(), cls);
        EXPECT_EQ(component->Owner(), form.get());
    }
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

struct TBinding {
    const char* ClassName;
    const char* Property;   // "" for every property of the type
    const TTypeInfo* Type;
};

// The editor bindings, by the class and property they serve.
std::vector<TBinding> Bindings()
{
    const TTypeInfo* integer = TypeInfo_Integer();
    const TTypeInfo* string = TypeInfo_String();
    const TTypeInfo* variant = TypeInfo_Variant();
    const TTypeInfo* collection = ClassType(TQzCollection::ClassInfo());
    const TTypeInfo* menuItem = ClassType(TQzMenuItem::ClassInfo());
    return {
        {"TQzPen", "Width", integer},
        {"TQzCApplication", "PkgDisplay", ClassType(TQzPkgDisplay::ClassInfo())},
        {"TQzCApplication", "PkgLanguage", ClassType(TQzPkgLanguage::ClassInfo())},
        {"TQzCApplication", "PkgSetup", ClassType(TQzPkgSetup::ClassInfo())},
        {"TQzCApplication", "PkgVars", ClassType(TQzPkgVars::ClassInfo())},
        {"TQzCApplication", "Privileges", ClassType(TQzPkgPrivileges::ClassInfo())},
        {"TQzCApplication", "Path", string},
        {"TQzCApplication", "PathPkgVars", string},
        {"TQzCApplication", "PathPrivileges", string},
        {"TQzCForm", "PkgVars", string},
        {"TQzCForm", "BtnOk", ClassType(TControl::ClassInfo())},
        {"TQzCForm", "BtnCancel", ClassType(TControl::ClassInfo())},
        {"TQzCForm", "DataSources", ClassType(TCollection::ClassInfo())},
        {"TQzMainMenu", "Items", menuItem},
        {"TQzMainMenu", "WindowsList", menuItem},
        {"TQzPopupMenu", "Items", menuItem},
        {"TQzPanelMenu", "Items", menuItem},
        {"TQzPanelMenu", "WindowsList", menuItem},
        {"TQzLabel", "Value", variant},
        {"TQzEdit", "Value", variant},
        {"TQzComboBox", "Value", variant},
        {"TQzComboBox", "", collection},
        {"TQzListBox", "Value", variant},
        {"TQzListBox", "", collection},
        {"TQzRichEdit", "Lines", ClassType(TStrings::ClassInfo())},
        {"TQzImage", "GraphicClass", string},
        {"TQzFocusImage", "GraphicClass", string},
        {"TQzRadioGroup", "Value", variant},
        {"TQzRadioGroup", "", collection},
        {"TQzCheckBox", "Value", variant},
        {"TQzRadioButton", "Value", variant},
        {"TQzBitBtn", "ModalResult", TypeInfo_TModalResult()},
        {"TQzSpeedButton", "ModalResult", TypeInfo_TModalResult()},
        {"TQzDbBitBtn", "", collection},
        {"TQzDbSpeedButton", "", collection},
        {"TQzDbPkgImage", "PkgName", string},
        {"TQzPkgImages", "FileName", string},
        {"TQzPkgImages", "InitMode", TypeInfo_TQzRegisterInitMode()},
        {"TQzPkgStrings", "FileName", string},
        {"TQzPkgStrings", "InitMode", TypeInfo_TQzRegisterInitMode()},
        {"TQzPkgVars", "FileName", string},
        {"TQzPkgVars", "InitMode", TypeInfo_TQzRegisterInitMode()},
        {"TQzPageControl", "Value", variant},
        {"TQzPageControl", "", collection},
        {"TQzStatusBarPanel", "Value", variant},
        {"TQzStatusBar", "", collection},
        {"TQzDbLabel", "DataField", string},
        {"TQzDbEdit", "DataField", string},
        {"TQzDbComboBox", "", collection},
        {"TQzDbListBox", "", collection},
        {"TQzDbRadioGroup", "", collection},
        {"TQzDbPageControl", "", collection},
        {"TQzDbImage", "GraphicClass", string},
        {"TQzDbFocusImage", "GraphicClass", string},
        {"TQzDbPageControl", "Value", variant},
        {"TQzImageBar", "Image", ClassType(TComponent::ClassInfo())},
        {"TQzSetsGroup", "", collection},
        {"TQzLBSetsColor", "Value", variant},
        {"TQzCBSetsColor", "Value", variant},
        {"TQzLBSetsBackGround", "Value", variant},
        {"TQzCBSetsBackGround", "Value", variant},
        {"TQzLBSetsFont", "Value", variant},
        {"TQzCBSetsFont", "Value", variant},
        {"TQzLBPkgImages", "Value", variant},
        {"TQzCBPkgImages", "Value", variant},
        {"TQzLBColors", "Value", variant},
        {"TQzCBColors", "Value", variant},
        {"TQzUpDown", "Associate", ClassType(TWinControl::ClassInfo())},
        {"TQzFontComboBox", "Value", variant},
    };
}

// A class-typed binding serves the class and its descendants; any other
// type only a property of exactly that type.
bool Serves(const TTypeInfo* bound, const TTypeInfo* actual)
{
    if (bound->Kind == tkClass)
        return actual->Kind == tkClass && actual->ClassType->InheritsFrom(bound->ClassType);
    return actual == bound;
}

TEST_F(ComponentRegistration, EveryBoundPropertyIsPublishedWithTheBoundType)
{
    for (const TBinding& binding : Bindings()) {
        SCOPED_TRACE(AnsiString(binding.ClassName) + "." + binding.Property);
        TMetaClass* cls = GetClass(binding.ClassName);
        ASSERT_NE(cls, nullptr);
        if (*binding.Property) {
            const TPropInfo* prop = cls->FindProperty(binding.Property);
            ASSERT_NE(prop, nullptr);
            EXPECT_TRUE(Serves(binding.Type, prop->PropType)) << prop->PropType->Name;
        } else {
            int served = 0;
            for (const TPropInfo* prop : cls->Properties())
                served += Serves(binding.Type, prop->PropType);
            EXPECT_GT(served, 0);
        }
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
