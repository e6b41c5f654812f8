// Every editor class of the package: the name hosts list it by, the
// attributes the object inspector reads, and the verbs the form designer
// shows.

#include "RegTestComponents.h"
#include "design/reg/QzCtrlsReg.h"

#include "runtime/components/QzMenus.h"
#include "runtime/components/QzPages.h"
#include "runtime/model/QzApplication.h"
#include "runtime/model/QzPkgStrings.h"

#include <gtest/gtest.h>

namespace {

struct TPropertyEditorCase {
    TPropertyEditorClass Class;
    const char* Name;
    const char* Property;   // of TRgHolder, of the type the editor serves
    const char* Attributes;
};

const char* const ObjectDialog = "paSubProperties,paDialog,paMultiSelect,paReadOnly";
const char* const PackageDialog = "paDialog,paReadOnly,paRevertable";
const char* const SetDialog = "paDialog,paMultiSelect,paRevertable";
const char* const ComponentList = "paValueList,paMultiSelect,paSortList,paRevertable";

TEST(EditorClasses, PropertyEditorsHaveTheirNamesAndAttributes)
{
    const TPropertyEditorCase cases[] = {
        {EditorClass<TQzModalResultProperty>(), "TQzModalResultProperty", "ModalResult", "paValueList,paMultiSelect,paSortList,paRevertable"},
        {EditorClass<TQzImageGraphicClassProperty>(), "TQzImageGraphicClassProperty", "GraphicClass", "paValueList,paMultiSelect,paSortList,paRevertable"},
        {EditorClass<TQzWideProperty>(), "TQzWideProperty", "Width", "paValueList,paMultiSelect,paRevertable"},
        {EditorClass<TQzImagePkgNameProperty>(), "TQzImagePkgNameProperty", "PkgName", "paValueList,paMultiSelect,paRevertable"},
        {EditorClass<TQzPkgVarsPkgVarsProperty>(), "TQzPkgVarsPkgVarsProperty", "PkgName", "paValueList,paMultiSelect,paSortList"},
        {EditorClass<TQzDBStringProperty>(), "TQzDBStringProperty", "DataField", "paValueList,paMultiSelect,paSortList"},
        {EditorClass<TQzDataFieldAggProperty>(), "TQzDataFieldAggProperty", "DataField", "paValueList,paMultiSelect,paSortList"},
        {EditorClass<TQzPkgInitModeProperty>(), "TQzPkgInitModeProperty", "InitMode", "paValueList,paReadOnly"},
        {EditorClass<TQzCApplicationPkgSetupProperty>(), "TQzCApplicationPkgSetupProperty", "Caption", PackageDialog},
        {EditorClass<TQzCApplicationPkgLanguageProperty>(), "TQzCApplicationPkgLanguageProperty", "Caption", PackageDialog},
        {EditorClass<TQzCApplicationPkgDisplayProperty>(), "TQzCApplicationPkgDisplayProperty", "Caption", PackageDialog},
        {EditorClass<TQzCApplicationPkgVarsProperty>(), "TQzCApplicationPkgVarsProperty", "Caption", PackageDialog},
        {EditorClass<TQzCApplicationPrivilegesProperty>(), "TQzCApplicationPrivilegesProperty", "Caption", PackageDialog},
        {EditorClass<TQzPkgImagesFileNameProperty>(), "TQzPkgImagesFileNameProperty", "PkgName", PackageDialog},
        {EditorClass<TQzPkgStringsFileNameProperty>(), "TQzPkgStringsFileNameProperty", "PkgName", PackageDialog},
        {EditorClass<TQzPkgVarsFileNameProperty>(), "TQzPkgVarsFileNameProperty", "PkgName", PackageDialog},
        {EditorClass<TQzDirectoryPropertyEditor>(), "TQzDirectoryPropertyEditor", "Path", "paDialog,paRevertable"},
        {EditorClass<TQzRichEditPropertyEditor>(), "TQzRichEditPropertyEditor", "Caption", "paDialog,paReadOnly"},
        {EditorClass<TQzMemoryImagePropertyEditor>(), "TQzMemoryImagePropertyEditor", "Image", ObjectDialog},
        {EditorClass<TQzMemoryLabelPropertyEditor>(), "TQzMemoryLabelPropertyEditor", "Caption", ObjectDialog},
        {EditorClass<TQzMemoryMessagePropertyEditor>(), "TQzMemoryMessagePropertyEditor", "Message", ObjectDialog},
        {EditorClass<TQzMemoryTextPropertyEditor>(), "TQzMemoryTextPropertyEditor", "Text", ObjectDialog},
        {EditorClass<TQzCollectionPropertyEditor>(), "TQzCollectionPropertyEditor", "Caption", ObjectDialog},
        {EditorClass<TQzCollPageControlPropertyEditor>(), "TQzCollPageControlPropertyEditor", "Caption", ObjectDialog},
        {EditorClass<TQzMainMenuPropertyEditor>(), "TQzMainMenuPropertyEditor", "Caption", ObjectDialog},
        {EditorClass<TQzPopupMenuPropertyEditor>(), "TQzPopupMenuPropertyEditor", "Caption", ObjectDialog},
        {EditorClass<TQzPanelMenuPropertyEditor>(), "TQzPanelMenuPropertyEditor", "Caption", ObjectDialog},
        {EditorClass<TQzSetFontProperty>(), "TQzSetFontProperty", "SetFont", SetDialog},
        {EditorClass<TQzSetBackGroundProperty>(), "TQzSetBackGroundProperty", "SetBackGround", SetDialog},
        {EditorClass<TQzSetColorProperty>(), "TQzSetColorProperty", "SetColor", SetDialog},
        {EditorClass<TQzPrivilegeProperty>(), "TQzPrivilegeProperty", "Privilege", "paDialog,paMultiSelect,paReadOnly,paRevertable"},
        {EditorClass<TQzMultiLinePropertyEditor>(), "TQzMultiLinePropertyEditor", "Lines", "paDialog,paMultiSelect,paAutoUpdate,paRevertable"},
        {EditorClass<TQzMaskPropertyEditor>(), "TQzMaskPropertyEditor", "Mask", "paSubProperties,paDialog,paMultiSelect"},
        {EditorClass<TQzMainMenuWindowsListEditor>(), "TQzMainMenuWindowsListEditor", "Partner", "paValueList,paSortList,paRevertable"},
        {EditorClass<TQzPanelMenuWindowsListEditor>(), "TQzPanelMenuWindowsListEditor", "Partner", "paValueList,paSortList,paRevertable"},
        {EditorClass<TQzEditVariantPropertyEditor>(), "TQzEditVariantPropertyEditor", "Value", "paRevertable"},
        {EditorClass<TQzLabelVariantPropertyEditor>(), "TQzLabelVariantPropertyEditor", "Value", "paRevertable"},
        {EditorClass<TQzListBoxVariantPropertyEditor>(), "TQzListBoxVariantPropertyEditor", "Value", "paRevertable"},
        {EditorClass<TQzRadioGroupVariantPropertyEditor>(), "TQzRadioGroupVariantPropertyEditor", "Value", "paRevertable"},
        {EditorClass<TQzCheckBoxVariantPropertyEditor>(), "TQzCheckBoxVariantPropertyEditor", "Value", "paRevertable"},
        {EditorClass<TQzRadioButtonVariantPropertyEditor>(), "TQzRadioButtonVariantPropertyEditor", "Value", "paRevertable"},
        {EditorClass<TQzStatusBarVariantPropertyEditor>(), "TQzStatusBarVariantPropertyEditor", "Value", "paRevertable"},
        {EditorClass<TQzPageControlVariantPropertyEditor>(), "TQzPageControlVariantPropertyEditor", "Value", "paValueList,paRevertable"},
        {EditorClass<TQzImageBarImagePropertyEditor>(), "TQzImageBarImagePropertyEditor", "Partner", ComponentList},
        {EditorClass<TQzUpDownAssociatePropertyEditor>(), "TQzUpDownAssociatePropertyEditor", "Partner", ComponentList},
        {EditorClass<TQzMainBtnPropertyEditor>(), "TQzMainBtnPropertyEditor", "Partner", ComponentList},
    };
    RegisterRgClasses();
    TRgHolder holder(nullptr);
    for (const TPropertyEditorCase& c : cases) {
        SCOPED_TRACE(c.Name);
        EXPECT_EQ(c.Class.ClassName, c.Name);
        std::unique_ptr<TPropertyEditor> editor = c.Class.Create(nullptr, 1);
        editor->SetPropEntry(0, &holder, RequirePropInfo(&holder, c.Property));
        editor->Initialize();
        EXPECT_EQ(AttributesText(editor->GetAttributes()), c.Attributes);
    }
}

struct TComponentEditorCase {
    TComponentEditorClass Class;
    const char* Name;
    TMetaClass* Component;
    std::vector<AnsiString> Verbs;
};

TEST(EditorClasses, ComponentEditorsHaveTheirNamesAndVerbs)
{
    const std::vector<AnsiString> outLookBarVerbs = {"New Page", "Next Page", "Previous Page"};
    const TComponentEditorCase cases[] = {
        {EditorClass<TQzCApplicationComponentEditor>(), "TQzCApplicationComponentEditor", ClassOf<TQzCApplication>(),
         {"About QzControls ...", "Update System Packages", "View CA&pplication List", "View Standard Calculator",
          "View Standard Calendar", "View Standard Message", "View Standard Help", "View Standard Memo Editor",
          "View Standard Image Editor", "View Standard Rich Editor", "View Standard ScrollBars",
          "View Standard PopupMenus"}},
        {EditorClass<TQzPkgImagesComponentEditor>(), "TQzPkgImagesComponentEditor", ClassOf<TQzPkgImages>(), {"View &Package List"}},
        {EditorClass<TQzPkgStringsComponentEditor>(), "TQzPkgStringsComponentEditor", ClassOf<TQzPkgStrings>(), {"View &Package List"}},
        {EditorClass<TQzPkgVarsComponentEditor>(), "TQzPkgVarsComponentEditor", ClassOf<TQzPkgVars>(), {"View &Package List"}},
        {EditorClass<TQzOutLookBarComponentEditor>(), "TQzOutLookBarComponentEditor", ClassOf<TQzOutLookBar>(), outLookBarVerbs},
        {EditorClass<TQzOutLookBarPageComponentEditor>(), "TQzOutLookBarPageComponentEditor", ClassOf<TQzOutLookBarPage>(), outLookBarVerbs},
        {EditorClass<TQzPopupMenuComponentEditor>(), "TQzPopupMenuComponentEditor", ClassOf<TQzPopupMenu>(), {"View &PopupMenu", "Build SystemMenu"}},
        {EditorClass<TQzMainMenuComponentEditor>(), "TQzMainMenuComponentEditor", ClassOf<TQzMainMenu>(), {}},
        {EditorClass<TQzPanelMenuComponentEditor>(), "TQzPanelMenuComponentEditor", ClassOf<TQzPanelMenu>(), {}},
        {EditorClass<TQzPageControlComponentEditor>(), "TQzPageControlComponentEditor", ClassOf<TQzPageControl>(), {}},
    };
    for (const TComponentEditorCase& c : cases) {
        SCOPED_TRACE(c.Name);
        EXPECT_EQ(c.Class.ClassName, c.Name);
        TComponent owner(nullptr);
        TComponent* component = c.Component->Create(&owner);
        std::unique_ptr<TComponentEditor> editor = c.Class.Create(component, nullptr);
        EXPECT_EQ(VerbsOf(*editor), c.Verbs);
        EXPECT_EQ(editor->GetVerb(-1), "");
        EXPECT_EQ(editor->GetVerb(static_cast<int>(c.Verbs.size())), "");
    }
}

}  // namespace
