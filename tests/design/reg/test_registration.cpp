// Register as the designer sees it: every call in order with its arguments,
// and the bindings taking effect on the real component classes.

#include "design/images/Qzruler.h"
#include "design/reg/QzCtrlsReg.h"
#include "design/reg/Qzreg.h"

#include "runtime/components/QzBars.h"
#include "runtime/components/QzComponentsReg.h"
#include "runtime/components/QzDbCtrls.h"
#include "runtime/components/QzExtCtrls.h"
#include "runtime/components/QzMenus.h"
#include "runtime/components/QzPages.h"
#include "runtime/components/QzStdCtrls.h"

#include <gtest/gtest.h>

#include <map>

namespace {

class Registration : public ::testing::Test {
protected:
    void SetUp() override
    {
        RegisterQzComponentClasses();
        ClearRegistrations();
        Register();
    }
    void TearDown() override { ClearRegistrations(); }
};

// The calls, in order: the four palette pages, the ten editors of the
// runtime's own property types, then the bindings of single properties
// and the component editors.
const std::vector<AnsiString> ExpectedCalls = {
    "RegisterComponents\tQz Standard\tTQzCApplication,TQzCForm,TQzMainMenu,TQzPopupMenu,TQzLabel,TQzEdit,"
    "TQzComboBox,TQzListBox,TQzMemo,TQzRichEdit,TQzImage,TQzFocusImage,TQzCheckBox,TQzRadioButton,TQzGroupBox,"
    "TQzRadioGroup,TQzPanel,TQzScrollBox,TQzPageControl,TQzBitBtn,TQzSpeedButton,TQzPkgImage,TQzShape,TQzUpDown\t23",
    "RegisterComponents\tQz Additional\tTQzPkgImages,TQzPkgStrings,TQzPkgVars,TQzMemoBar,TQzRichEditBar,"
    "TQzImageBar,TQzStatusBar,TQzSplitter,TQzProgressBar,TQzTimer,TQzThreadTimer,TQzImageForm,TQzMoveForm,"
    "TQzPanelMenu,TQzOutLookBar,TQzPkgPrivileges,TQzLBPrivileges,TQzSetsGroup,TQzRuler,TQzCBuffer,"
    "TQzFontComboBox,TQzFontListBox,TQzExtScrollBar,TQzCFrame\t23",
    "RegisterComponents\tQz Data Controls\tTQzDbLabel,TQzDbEdit,TQzDbComboBox,TQzDbListBox,TQzDbMemo,"
    "TQzDbRichEdit,TQzDbImage,TQzDbFocusImage,TQzDbCheckBox,TQzDbRadioGroup,TQzDbPageControl,TQzDbNavigator,"
    "TQzDbBitBtn,TQzDbSpeedButton,TQzDbPkgImage\t14",
    "RegisterComponents\tQz Editors\tTQzLBSetsColor,TQzCBSetsColor,TQzLBSetsBackGround,TQzCBSetsBackGround,"
    "TQzLBSetsFont,TQzCBSetsFont,TQzLBPkgImages,TQzCBPkgImages,TQzLBColors,TQzCBColors,TQzCBPrinters,"
    "TQzPkgImagesAdd,TQzPkgImagesDesignRgn\t12",
    "RegisterPropertyEditor\tTQzMultiLine\tnil\t\tTQzMultiLinePropertyEditor",
    "RegisterPropertyEditor\tTQzMask\tnil\t\tTQzMaskPropertyEditor",
    "RegisterPropertyEditor\tTQzMemoryImage\tnil\t\tTQzMemoryImagePropertyEditor",
    "RegisterPropertyEditor\tTQzMemoryLabel\tnil\t\tTQzMemoryLabelPropertyEditor",
    "RegisterPropertyEditor\tTQzMemoryMessage\tnil\t\tTQzMemoryMessagePropertyEditor",
    "RegisterPropertyEditor\tTQzMemoryText\tnil\t\tTQzMemoryTextPropertyEditor",
    "RegisterPropertyEditor\tTQzSetFont\tnil\t\tTQzSetFontProperty",
    "RegisterPropertyEditor\tTQzSetBackGround\tnil\t\tTQzSetBackGroundProperty",
    "RegisterPropertyEditor\tTQzSetColor\tnil\t\tTQzSetColorProperty",
    "RegisterPropertyEditor\tTQzPrivilege\tnil\t\tTQzPrivilegeProperty",
    "RegisterPropertyEditor\tInteger\tTQzPen\tWidth\tTQzWideProperty",   // 1
    "RegisterComponentEditor\tTQzCApplication\tTQzCApplicationComponentEditor",
    "RegisterPropertyEditor\tTQzPkgDisplay\tTQzCApplication\tPkgDisplay\tTQzCApplicationPkgDisplayProperty",
    "RegisterPropertyEditor\tTQzPkgLanguage\tTQzCApplication\tPkgLanguage\tTQzCApplicationPkgLanguageProperty",
    "RegisterPropertyEditor\tTQzPkgSetup\tTQzCApplication\tPkgSetup\tTQzCApplicationPkgSetupProperty",
    "RegisterPropertyEditor\tTQzPkgVars\tTQzCApplication\tPkgVars\tTQzCApplicationPkgVarsProperty",
    "RegisterPropertyEditor\tTQzPkgPrivileges\tTQzCApplication\tPrivileges\tTQzCApplicationPrivilegesProperty",
    "RegisterPropertyEditor\tString\tTQzCApplication\tPath\tTQzDirectoryPropertyEditor",
    "RegisterPropertyEditor\tString\tTQzCApplication\tPathPkgVars\tTQzDirectoryPropertyEditor",
    "RegisterPropertyEditor\tString\tTQzCApplication\tPathPrivileges\tTQzDirectoryPropertyEditor",   // 10
    "RegisterPropertyEditor\tString\tTQzCForm\tPkgVars\tTQzPkgVarsPkgVarsProperty",
    "RegisterPropertyEditor\tTControl\tTQzCForm\tBtnOk\tTQzMainBtnPropertyEditor",
    "RegisterPropertyEditor\tTControl\tTQzCForm\tBtnCancel\tTQzMainBtnPropertyEditor",
    "RegisterPropertyEditor\tTCollection\tTQzCForm\tDataSources\tTQzCollectionPropertyEditor",
    "RegisterNoIcon\tTQzMenuItem",
    "RegisterClass\tTQzMenuItem",
    "RegisterComponentEditor\tTQzMainMenu\tTQzMainMenuComponentEditor",
    "RegisterPropertyEditor\tTQzMenuItem\tTQzMainMenu\tItems\tTQzMainMenuPropertyEditor",
    "RegisterPropertyEditor\tTQzMenuItem\tTQzMainMenu\tWindowsList\tTQzMainMenuWindowsListEditor",
    "RegisterComponentEditor\tTQzPopupMenu\tTQzPopupMenuComponentEditor",   // 20
    "RegisterPropertyEditor\tTQzMenuItem\tTQzPopupMenu\tItems\tTQzPopupMenuPropertyEditor",
    "RegisterComponentEditor\tTQzPanelMenu\tTQzPanelMenuComponentEditor",
    "RegisterPropertyEditor\tTQzMenuItem\tTQzPanelMenu\tItems\tTQzPanelMenuPropertyEditor",
    "RegisterPropertyEditor\tTQzMenuItem\tTQzPanelMenu\tWindowsList\tTQzPanelMenuWindowsListEditor",
    "GroupDescendentsWith\tTQzMenuItem\tTControl",
    "RegisterPropertyEditor\tVariant\tTQzLabel\tValue\tTQzLabelVariantPropertyEditor",
    "RegisterPropertyEditor\tVariant\tTQzEdit\tValue\tTQzEditVariantPropertyEditor",
    "GroupDescendentsWith\tTQzEditBtns\tTControl",
    "RegisterPropertyEditor\tVariant\tTQzComboBox\tValue\tTQzEditVariantPropertyEditor",
    "RegisterPropertyEditor\tTQzCollection\tTQzComboBox\t\tTQzCollectionPropertyEditor",   // 30
    "RegisterPropertyEditor\tVariant\tTQzListBox\tValue\tTQzListBoxVariantPropertyEditor",
    "RegisterPropertyEditor\tTQzCollection\tTQzListBox\t\tTQzCollectionPropertyEditor",
    "RegisterPropertyEditor\tTStrings\tTQzRichEdit\tLines\tTQzRichEditPropertyEditor",
    "RegisterPropertyEditor\tString\tTQzImage\tGraphicClass\tTQzImageGraphicClassProperty",
    "RegisterPropertyEditor\tString\tTQzFocusImage\tGraphicClass\tTQzImageGraphicClassProperty",
    "RegisterPropertyEditor\tVariant\tTQzRadioGroup\tValue\tTQzRadioGroupVariantPropertyEditor",
    "RegisterPropertyEditor\tTQzCollection\tTQzRadioGroup\t\tTQzCollectionPropertyEditor",
    "RegisterPropertyEditor\tVariant\tTQzCheckBox\tValue\tTQzCheckBoxVariantPropertyEditor",
    "RegisterPropertyEditor\tVariant\tTQzRadioButton\tValue\tTQzRadioButtonVariantPropertyEditor",
    "RegisterPropertyEditor\tTModalResult\tTQzBitBtn\tModalResult\tTQzModalResultProperty",   // 40
    "RegisterPropertyEditor\tTModalResult\tTQzSpeedButton\tModalResult\tTQzModalResultProperty",
    "RegisterPropertyEditor\tTQzCollection\tTQzDbBitBtn\t\tTQzCollectionPropertyEditor",
    "RegisterPropertyEditor\tTQzCollection\tTQzDbSpeedButton\t\tTQzCollectionPropertyEditor",
    "RegisterPropertyEditor\tString\tTQzDbPkgImage\tPkgName\tTQzImagePkgNameProperty",
    "RegisterComponentEditor\tTQzPkgImages\tTQzPkgImagesComponentEditor",
    "RegisterPropertyEditor\tString\tTQzPkgImages\tFileName\tTQzPkgImagesFileNameProperty",
    "RegisterPropertyEditor\tTQzRegisterInitMode\tTQzPkgImages\tInitMode\tTQzPkgInitModeProperty",
    "RegisterComponentEditor\tTQzPkgStrings\tTQzPkgStringsComponentEditor",
    "RegisterPropertyEditor\tString\tTQzPkgStrings\tFileName\tTQzPkgStringsFileNameProperty",
    "RegisterPropertyEditor\tTQzRegisterInitMode\tTQzPkgStrings\tInitMode\tTQzPkgInitModeProperty",   // 50
    "RegisterComponentEditor\tTQzPkgVars\tTQzPkgVarsComponentEditor",
    "RegisterPropertyEditor\tString\tTQzPkgVars\tFileName\tTQzPkgVarsFileNameProperty",
    "RegisterPropertyEditor\tTQzRegisterInitMode\tTQzPkgVars\tInitMode\tTQzPkgInitModeProperty",
    "RegisterClasses\tTQzTabSheet",
    "RegisterComponentEditor\tTQzPageControl\tTQzPageControlComponentEditor",
    "RegisterPropertyEditor\tVariant\tTQzPageControl\tValue\tTQzPageControlVariantPropertyEditor",
    "RegisterPropertyEditor\tTQzCollection\tTQzPageControl\t\tTQzCollPageControlPropertyEditor",
    "RegisterPropertyEditor\tVariant\tTQzStatusBarPanel\tValue\tTQzStatusBarVariantPropertyEditor",
    "RegisterPropertyEditor\tTQzCollection\tTQzStatusBar\t\tTQzCollectionPropertyEditor",
    "RegisterPropertyEditor\tString\tTQzDbLabel\tDataField\tTQzDataFieldAggProperty",   // 60
    "RegisterPropertyEditor\tString\tTQzDbEdit\tDataField\tTQzDataFieldAggProperty",
    "RegisterPropertyEditor\tTQzCollection\tTQzDbComboBox\t\tTQzCollectionPropertyEditor",
    "RegisterPropertyEditor\tTQzCollection\tTQzDbListBox\t\tTQzCollectionPropertyEditor",
    "RegisterPropertyEditor\tTQzCollection\tTQzDbRadioGroup\t\tTQzCollectionPropertyEditor",
    "RegisterPropertyEditor\tTQzCollection\tTQzDbPageControl\t\tTQzCollectionPropertyEditor",
    "RegisterPropertyEditor\tString\tTQzDbImage\tGraphicClass\tTQzImageGraphicClassProperty",
    "RegisterPropertyEditor\tString\tTQzDbFocusImage\tGraphicClass\tTQzImageGraphicClassProperty",
    "RegisterPropertyEditor\tVariant\tTQzDbPageControl\tValue\tTQzPageControlVariantPropertyEditor",
    "RegisterPropertyEditor\tTQzCollection\tTQzDbPageControl\t\tTQzCollectionPropertyEditor",
    "RegisterPropertyEditor\tTComponent\tTQzImageBar\tImage\tTQzImageBarImagePropertyEditor",   // 70
    "RegisterPropertyEditor\tTQzCollection\tTQzSetsGroup\t\tTQzCollectionPropertyEditor",
    "RegisterPropertyEditor\tVariant\tTQzLBSetsColor\tValue\tTQzListBoxVariantPropertyEditor",
    "RegisterPropertyEditor\tVariant\tTQzCBSetsColor\tValue\tTQzEditVariantPropertyEditor",
    "RegisterPropertyEditor\tVariant\tTQzLBSetsBackGround\tValue\tTQzListBoxVariantPropertyEditor",
    "RegisterPropertyEditor\tVariant\tTQzCBSetsBackGround\tValue\tTQzEditVariantPropertyEditor",
    "RegisterPropertyEditor\tVariant\tTQzLBSetsFont\tValue\tTQzListBoxVariantPropertyEditor",
    "RegisterPropertyEditor\tVariant\tTQzCBSetsFont\tValue\tTQzEditVariantPropertyEditor",
    "RegisterPropertyEditor\tVariant\tTQzLBPkgImages\tValue\tTQzListBoxVariantPropertyEditor",
    "RegisterPropertyEditor\tVariant\tTQzCBPkgImages\tValue\tTQzEditVariantPropertyEditor",
    "RegisterPropertyEditor\tVariant\tTQzLBColors\tValue\tTQzListBoxVariantPropertyEditor",   // 80
    "RegisterPropertyEditor\tVariant\tTQzCBColors\tValue\tTQzEditVariantPropertyEditor",
    "RegisterPropertyEditor\tTWinControl\tTQzUpDown\tAssociate\tTQzUpDownAssociatePropertyEditor",
    "RegisterClasses\tTQzOutLookBarPage",
    "RegisterComponentEditor\tTQzOutLookBar\tTQzOutLookBarComponentEditor",
    "RegisterComponentEditor\tTQzOutLookBarPage\tTQzOutLookBarPageComponentEditor",
    "RegisterPropertyEditor\tVariant\tTQzFontComboBox\tValue\tTQzEditVariantPropertyEditor",   // 86
};

TEST_F(Registration, RegisterMakesEveryCallInOrder)
{
    const std::vector<AnsiString> calls = DesignRegistry().Listing();
    ASSERT_EQ(ExpectedCalls.size(), 4u + 10u + 86u);
    for (std::size_t i = 0; i < std::min(calls.size(), ExpectedCalls.size()); ++i)
        EXPECT_EQ(calls[i], ExpectedCalls[i]) << "call " << i + 1;
    EXPECT_EQ(calls.size(), ExpectedCalls.size());
}

// Each binding of a named property must reach that property on the real
// class: a type or name that does not match would silently bind nothing.
TEST_F(Registration, EveryNamedBindingServesItsProperty)
{
    int checked = 0;
    for (const TPropertyEditorBinding& binding : DesignRegistry().PropertyEditors()) {
        if (!binding.ComponentClass || binding.PropertyName.empty())
            continue;
        SCOPED_TRACE(binding.ComponentClass->ClassName() + "." + binding.PropertyName);
        const TPropInfo* prop = GetPropInfo(binding.ComponentClass, binding.PropertyName);
        ASSERT_NE(prop, nullptr);
        EXPECT_EQ(prop->PropType, binding.PropertyType);
        EXPECT_EQ(GetEditorClass(binding.ComponentClass, prop).ClassName, binding.EditorClass.ClassName);
        ++checked;
    }
    EXPECT_EQ(checked, 57);
}

// Bindings of a type rather than a property: the runtime's own types on
// every palette class, and the collections of the classes bound for them.
TEST_F(Registration, TypeBindingsServeEveryPropertyOfTheirType)
{
    std::map<std::pair<const TMetaClass*, const TTypeInfo*>, AnsiString> byType;
    for (const TPropertyEditorBinding& binding : DesignRegistry().PropertyEditors())
        if (binding.PropertyName.empty())
            byType[{binding.ComponentClass, binding.PropertyType}] = binding.EditorClass.ClassName;
    std::map<AnsiString, int> served;
    for (const TPalettePage& page : DesignRegistry().Pages())
        for (TMetaClass* cls : page.Classes)
            for (const TPropInfo* prop : cls->Properties()) {
                auto bound = byType.find({cls, prop->PropType});
                if (bound == byType.end())
                    bound = byType.find({nullptr, prop->PropType});
                if (bound == byType.end())
                    continue;
                EXPECT_EQ(GetEditorClass(cls, prop).ClassName, bound->second) << cls->ClassName() << "." << prop->Name;
                ++served[bound->second];
            }
    for (const char* editor : {"TQzMemoryLabelPropertyEditor", "TQzMemoryImagePropertyEditor", "TQzMaskPropertyEditor",
                               "TQzSetFontProperty", "TQzPrivilegeProperty", "TQzCollectionPropertyEditor",
                               "TQzCollPageControlPropertyEditor"})
        EXPECT_GT(served[editor], 0) << editor << " serves no palette class";
    // The data-aware page control keeps the plain collection editor.
    EXPECT_EQ(GetEditorClass(ClassOf<TQzDbPageControl>(), GetPropInfo(ClassOf<TQzDbPageControl>(), "Pages")).ClassName,
              "TQzCollectionPropertyEditor");
}

}  // namespace
