// Register: every call the design package makes when the designer loads it,
// in the order the designer must see them. Hosts list these calls
// (qzpkg registrations), so the order and the repetitions are part of the
// package's behaviour and are kept exactly, duplicates included.

#include "design/reg/Qzreg.h"

#include "design/controls/QzRuntimeWindowsReg.h"
#include "design/controls/Qzvtabout.h"
#include "design/controls/Qzvtcommonwnds.h"
#include "design/controls/Qzvthints.h"
#include "design/controls/Qzvtcollection.h"
#include "design/controls/Qzvtmask.h"
#include "design/controls/Qzvtmenus.h"
#include "design/controls/Qzvtrichedit.h"
#include "design/controls/Qzvtscrollbars.h"
#include "design/images/QzImagesReg.h"
#include "design/images/Qzruler.h"
#include "design/manager/QzManagerReg.h"
#include "design/manager/QzPkgFilesReg.h"
#include "design/reg/QzCtrlsReg.h"
#include "design/settings/Qzvtdisplay.h"
#include "design/settings/Qzvtlanguage.h"
#include "design/settings/Qzvtpkgvars.h"
#include "design/settings/Qzvtprivilege.h"
#include "design/settings/Qzvtprivileges.h"
#include "design/settings/Qzvtsets.h"
#include "design/settings/Qzvtsetup.h"
#include "design/strings/QzStringsReg.h"

#include "designide/DesignIntf.h"
#include "runtime/components/QzAddCtrls.h"
#include "runtime/components/QzBars.h"
#include "runtime/components/QzComponentsReg.h"
#include "runtime/components/QzDbCtrls.h"
#include "runtime/components/QzEditors.h"
#include "runtime/components/QzExtCtrls.h"
#include "runtime/components/QzForms.h"
#include "runtime/components/QzMenus.h"
#include "runtime/components/QzPalette.h"
#include "runtime/components/QzPages.h"
#include "runtime/components/QzStdCtrls.h"
#include "runtime/model/QzApplication.h"
#include "runtime/model/QzMask.h"

#include <initializer_list>
#include <utility>


namespace {

// The palette pages share one buffer of class references, filled page
// after page; each call gets the index of the page's last class.
constexpr int PaletteBufferSize = 24;

// The palette's classes are the runtime's, found by name, except the
// ruler, which is this package's own.
TMetaClass* PaletteClass(const AnsiString& name)
{
    if (SameText(name, ClassOf<TQzRuler>()->ClassName()))
        return ClassOf<TQzRuler>();
    TMetaClass* cls = GetClass(name);
    QZ_ASSERT(cls != nullptr, "palette class not registered");
    return cls;
}

// The pages as the runtime's palette table lists them.
void RegisterPalette()
{
    RegisterQzComponentClasses();
    TMetaClass* buffer[PaletteBufferSize] = {};
    for (const AnsiString& page : QzPalettePages()) {
        int count = 0;
        for (const TQzPaletteEntry& entry : QzPaletteClasses()) {
            if (entry.Page != page)
                continue;
            QZ_ASSERT(count < PaletteBufferSize, "palette page larger than its buffer");
            buffer[count++] = PaletteClass(entry.ClassName);
        }
        RegisterComponents(page, buffer, count - 1);
    }
}

template <class T>
const TTypeInfo* TypeOf()
{
    return ClassOf<T>()->TypeInfo();
}

// The editors of the runtime's own property types, on every component.
void RegisterGlobalEditors()
{
    RegisterPropertyEditor(TypeInfo_TQzMultiLine(), nullptr, "", EditorClass<TQzMultiLinePropertyEditor>());
    RegisterPropertyEditor(TypeOf<TQzMask>(), nullptr, "", EditorClass<TQzMaskPropertyEditor>());
    RegisterPropertyEditor(TypeOf<TQzMemoryImage>(), nullptr, "", EditorClass<TQzMemoryImagePropertyEditor>());
    RegisterPropertyEditor(TypeOf<TQzMemoryLabel>(), nullptr, "", EditorClass<TQzMemoryLabelPropertyEditor>());
    RegisterPropertyEditor(TypeOf<TQzMemoryMessage>(), nullptr, "", EditorClass<TQzMemoryMessagePropertyEditor>());
    RegisterPropertyEditor(TypeOf<TQzMemoryText>(), nullptr, "", EditorClass<TQzMemoryTextPropertyEditor>());
    RegisterPropertyEditor(TypeOf<TQzSetFont>(), nullptr, "", EditorClass<TQzSetFontProperty>());
    RegisterPropertyEditor(TypeOf<TQzSetBackGround>(), nullptr, "", EditorClass<TQzSetBackGroundProperty>());
    RegisterPropertyEditor(TypeOf<TQzSetColor>(), nullptr, "", EditorClass<TQzSetColorProperty>());
    RegisterPropertyEditor(TypeOf<TQzPrivilege>(), nullptr, "", EditorClass<TQzPrivilegeProperty>());
}

void RegisterApplicationAndForm()
{
    RegisterPropertyEditor(TypeInfo_Integer(), ClassOf<TQzPen>(), "Width", EditorClass<TQzWideProperty>());
    RegisterComponentEditor(ClassOf<TQzCApplication>(), EditorClass<TQzCApplicationComponentEditor>());
    RegisterPropertyEditor(TypeOf<TQzPkgDisplay>(), ClassOf<TQzCApplication>(), "PkgDisplay",
                           EditorClass<TQzCApplicationPkgDisplayProperty>());
    RegisterPropertyEditor(TypeOf<TQzPkgLanguage>(), ClassOf<TQzCApplication>(), "PkgLanguage",
                           EditorClass<TQzCApplicationPkgLanguageProperty>());
    RegisterPropertyEditor(TypeOf<TQzPkgSetup>(), ClassOf<TQzCApplication>(), "PkgSetup",
                           EditorClass<TQzCApplicationPkgSetupProperty>());
    RegisterPropertyEditor(TypeOf<TQzPkgVars>(), ClassOf<TQzCApplication>(), "PkgVars",
                           EditorClass<TQzCApplicationPkgVarsProperty>());
    RegisterPropertyEditor(TypeOf<TQzPkgPrivileges>(), ClassOf<TQzCApplication>(), "Privileges",
                           EditorClass<TQzCApplicationPrivilegesProperty>());
    for (const char* path : {"Path", "PathPkgVars", "PathPrivileges"})
        RegisterPropertyEditor(TypeInfo_String(), ClassOf<TQzCApplication>(), path,
                               EditorClass<TQzDirectoryPropertyEditor>());

    RegisterPropertyEditor(TypeInfo_String(), ClassOf<TQzCForm>(), "PkgVars", EditorClass<TQzPkgVarsPkgVarsProperty>());
    RegisterPropertyEditor(TypeOf<TControl>(), ClassOf<TQzCForm>(), "BtnOk", EditorClass<TQzMainBtnPropertyEditor>());
    RegisterPropertyEditor(TypeOf<TControl>(), ClassOf<TQzCForm>(), "BtnCancel",
                           EditorClass<TQzMainBtnPropertyEditor>());
    RegisterPropertyEditor(TypeOf<TCollection>(), ClassOf<TQzCForm>(), "DataSources",
                           EditorClass<TQzCollectionPropertyEditor>());
}

void RegisterMenus()
{
    RegisterNoIcon({ClassOf<TQzMenuItem>()});
    DesignIntf::RegisterClass(ClassOf<TQzMenuItem>());
    RegisterComponentEditor(ClassOf<TQzMainMenu>(), EditorClass<TQzMainMenuComponentEditor>());
    RegisterPropertyEditor(TypeOf<TQzMenuItem>(), ClassOf<TQzMainMenu>(), "Items",
                           EditorClass<TQzMainMenuPropertyEditor>());
    RegisterPropertyEditor(TypeOf<TQzMenuItem>(), ClassOf<TQzMainMenu>(), "WindowsList",
                           EditorClass<TQzMainMenuWindowsListEditor>());
    RegisterComponentEditor(ClassOf<TQzPopupMenu>(), EditorClass<TQzPopupMenuComponentEditor>());
    RegisterPropertyEditor(TypeOf<TQzMenuItem>(), ClassOf<TQzPopupMenu>(), "Items",
                           EditorClass<TQzPopupMenuPropertyEditor>());
    RegisterComponentEditor(ClassOf<TQzPanelMenu>(), EditorClass<TQzPanelMenuComponentEditor>());
    RegisterPropertyEditor(TypeOf<TQzMenuItem>(), ClassOf<TQzPanelMenu>(), "Items",
                           EditorClass<TQzPanelMenuPropertyEditor>());
    RegisterPropertyEditor(TypeOf<TQzMenuItem>(), ClassOf<TQzPanelMenu>(), "WindowsList",
                           EditorClass<TQzPanelMenuWindowsListEditor>());
    // Menu items are offered only where controls are.
    GroupDescendentsWith(ClassOf<TQzMenuItem>(), ClassOf<TControl>());
}

void RegisterStandardControls()
{
    RegisterPropertyEditor(TypeInfo_Variant(), ClassOf<TQzLabel>(), "Value", EditorClass<TQzLabelVariantPropertyEditor>());
    RegisterPropertyEditor(TypeInfo_Variant(), ClassOf<TQzEdit>(), "Value", EditorClass<TQzEditVariantPropertyEditor>());
    GroupDescendentsWith(ClassOf<TQzEditBtns>(), ClassOf<TControl>());
    RegisterPropertyEditor(TypeInfo_Variant(), ClassOf<TQzComboBox>(), "Value",
                           EditorClass<TQzEditVariantPropertyEditor>());
    RegisterPropertyEditor(TypeOf<TQzCollection>(), ClassOf<TQzComboBox>(), "",
                           EditorClass<TQzCollectionPropertyEditor>());
    RegisterPropertyEditor(TypeInfo_Variant(), ClassOf<TQzListBox>(), "Value",
                           EditorClass<TQzListBoxVariantPropertyEditor>());
    RegisterPropertyEditor(TypeOf<TQzCollection>(), ClassOf<TQzListBox>(), "", EditorClass<TQzCollectionPropertyEditor>());
    RegisterPropertyEditor(TypeOf<TStrings>(), ClassOf<TQzRichEdit>(), "Lines", EditorClass<TQzRichEditPropertyEditor>());
    RegisterPropertyEditor(TypeInfo_String(), ClassOf<TQzImage>(), "GraphicClass",
                           EditorClass<TQzImageGraphicClassProperty>());
    RegisterPropertyEditor(TypeInfo_String(), ClassOf<TQzFocusImage>(), "GraphicClass",
                           EditorClass<TQzImageGraphicClassProperty>());
    RegisterPropertyEditor(TypeInfo_Variant(), ClassOf<TQzRadioGroup>(), "Value",
                           EditorClass<TQzRadioGroupVariantPropertyEditor>());
    RegisterPropertyEditor(TypeOf<TQzCollection>(), ClassOf<TQzRadioGroup>(), "",
                           EditorClass<TQzCollectionPropertyEditor>());
    RegisterPropertyEditor(TypeInfo_Variant(), ClassOf<TQzCheckBox>(), "Value",
                           EditorClass<TQzCheckBoxVariantPropertyEditor>());
    RegisterPropertyEditor(TypeInfo_Variant(), ClassOf<TQzRadioButton>(), "Value",
                           EditorClass<TQzRadioButtonVariantPropertyEditor>());
    RegisterPropertyEditor(TypeInfo_TModalResult(), ClassOf<TQzBitBtn>(), "ModalResult",
                           EditorClass<TQzModalResultProperty>());
    RegisterPropertyEditor(TypeInfo_TModalResult(), ClassOf<TQzSpeedButton>(), "ModalResult",
                           EditorClass<TQzModalResultProperty>());
    RegisterPropertyEditor(TypeOf<TQzCollection>(), ClassOf<TQzDbBitBtn>(), "", EditorClass<TQzCollectionPropertyEditor>());
    RegisterPropertyEditor(TypeOf<TQzCollection>(), ClassOf<TQzDbSpeedButton>(), "",
                           EditorClass<TQzCollectionPropertyEditor>());
    RegisterPropertyEditor(TypeInfo_String(), ClassOf<TQzDbPkgImage>(), "PkgName", EditorClass<TQzImagePkgNameProperty>());
}

void RegisterPackages()
{
    RegisterComponentEditor(ClassOf<TQzPkgImages>(), EditorClass<TQzPkgImagesComponentEditor>());
    RegisterPropertyEditor(TypeInfo_String(), ClassOf<TQzPkgImages>(), "FileName",
                           EditorClass<TQzPkgImagesFileNameProperty>());
    RegisterPropertyEditor(TypeInfo_TQzRegisterInitMode(), ClassOf<TQzPkgImages>(), "InitMode",
                           EditorClass<TQzPkgInitModeProperty>());
    RegisterComponentEditor(ClassOf<TQzPkgStrings>(), EditorClass<TQzPkgStringsComponentEditor>());
    RegisterPropertyEditor(TypeInfo_String(), ClassOf<TQzPkgStrings>(), "FileName",
                           EditorClass<TQzPkgStringsFileNameProperty>());
    RegisterPropertyEditor(TypeInfo_TQzRegisterInitMode(), ClassOf<TQzPkgStrings>(), "InitMode",
                           EditorClass<TQzPkgInitModeProperty>());
    RegisterComponentEditor(ClassOf<TQzPkgVars>(), EditorClass<TQzPkgVarsComponentEditor>());
    RegisterPropertyEditor(TypeInfo_String(), ClassOf<TQzPkgVars>(), "FileName", EditorClass<TQzPkgVarsFileNameProperty>());
    RegisterPropertyEditor(TypeInfo_TQzRegisterInitMode(), ClassOf<TQzPkgVars>(), "InitMode",
                           EditorClass<TQzPkgInitModeProperty>());
}

void RegisterPagesAndBars()
{
    // Tab sheets have no palette button; the designer creates them.
    DesignIntf::RegisterClasses({ClassOf<TQzTabSheet>()});
    RegisterComponentEditor(ClassOf<TQzPageControl>(), EditorClass<TQzPageControlComponentEditor>());
    RegisterPropertyEditor(TypeInfo_Variant(), ClassOf<TQzPageControl>(), "Value",
                           EditorClass<TQzPageControlVariantPropertyEditor>());
    RegisterPropertyEditor(TypeOf<TQzCollection>(), ClassOf<TQzPageControl>(), "",
                           EditorClass<TQzCollPageControlPropertyEditor>());
    RegisterPropertyEditor(TypeInfo_Variant(), ClassOf<TQzStatusBarPanel>(), "Value",
                           EditorClass<TQzStatusBarVariantPropertyEditor>());
    RegisterPropertyEditor(TypeOf<TQzCollection>(), ClassOf<TQzStatusBar>(), "", EditorClass<TQzCollectionPropertyEditor>());
}

void RegisterDataControls()
{
    RegisterPropertyEditor(TypeInfo_String(), ClassOf<TQzDbLabel>(), "DataField", EditorClass<TQzDataFieldAggProperty>());
    RegisterPropertyEditor(TypeInfo_String(), ClassOf<TQzDbEdit>(), "DataField", EditorClass<TQzDataFieldAggProperty>());
    for (TMetaClass* cls : {ClassOf<TQzDbComboBox>(), ClassOf<TQzDbListBox>(), ClassOf<TQzDbRadioGroup>(),
                            ClassOf<TQzDbPageControl>()})
        RegisterPropertyEditor(TypeOf<TQzCollection>(), cls, "", EditorClass<TQzCollectionPropertyEditor>());
    RegisterPropertyEditor(TypeInfo_String(), ClassOf<TQzDbImage>(), "GraphicClass",
                           EditorClass<TQzImageGraphicClassProperty>());
    RegisterPropertyEditor(TypeInfo_String(), ClassOf<TQzDbFocusImage>(), "GraphicClass",
                           EditorClass<TQzImageGraphicClassProperty>());
    RegisterPropertyEditor(TypeInfo_Variant(), ClassOf<TQzDbPageControl>(), "Value",
                           EditorClass<TQzPageControlVariantPropertyEditor>());
    // The data-aware page control's collections are bound a second time, as
    // the suite's package always did; both calls are part of the listing.
    RegisterPropertyEditor(TypeOf<TQzCollection>(), ClassOf<TQzDbPageControl>(), "",
                           EditorClass<TQzCollectionPropertyEditor>());
}

void RegisterEditorControls()
{
    RegisterPropertyEditor(TypeOf<TComponent>(), ClassOf<TQzImageBar>(), "Image",
                           EditorClass<TQzImageBarImagePropertyEditor>());
    RegisterPropertyEditor(TypeOf<TQzCollection>(), ClassOf<TQzSetsGroup>(), "", EditorClass<TQzCollectionPropertyEditor>());
    // Lists take the list-box editor, combo boxes the edit editor.
    const std::pair<TMetaClass*, TMetaClass*> setControls[] = {
        {ClassOf<TQzLBSetsColor>(), ClassOf<TQzCBSetsColor>()},
        {ClassOf<TQzLBSetsBackGround>(), ClassOf<TQzCBSetsBackGround>()},
        {ClassOf<TQzLBSetsFont>(), ClassOf<TQzCBSetsFont>()},
        {ClassOf<TQzLBPkgImages>(), ClassOf<TQzCBPkgImages>()},
        {ClassOf<TQzLBColors>(), ClassOf<TQzCBColors>()},
    };
    for (const auto& [list, combo] : setControls) {
        RegisterPropertyEditor(TypeInfo_Variant(), list, "Value", EditorClass<TQzListBoxVariantPropertyEditor>());
        RegisterPropertyEditor(TypeInfo_Variant(), combo, "Value", EditorClass<TQzEditVariantPropertyEditor>());
    }
    RegisterPropertyEditor(TypeOf<TWinControl>(), ClassOf<TQzUpDown>(), "Associate",
                           EditorClass<TQzUpDownAssociatePropertyEditor>());
    DesignIntf::RegisterClasses({ClassOf<TQzOutLookBarPage>()});
    RegisterComponentEditor(ClassOf<TQzOutLookBar>(), EditorClass<TQzOutLookBarComponentEditor>());
    RegisterComponentEditor(ClassOf<TQzOutLookBarPage>(), EditorClass<TQzOutLookBarPageComponentEditor>());
    RegisterPropertyEditor(TypeInfo_Variant(), ClassOf<TQzFontComboBox>(), "Value",
                           EditorClass<TQzEditVariantPropertyEditor>());
}

}  // namespace

void Register()
{
    RegisterPalette();
    RegisterGlobalEditors();
    RegisterApplicationAndForm();
    RegisterMenus();
    RegisterStandardControls();
    RegisterPackages();
    RegisterPagesAndBars();
    RegisterDataControls();
    RegisterEditorControls();
    RegisterManagerWindows();
    // The windows the editors open; installing them registers nothing the
    // designer lists.
    RegisterQzvtmask();
    RegisterQzvtmenus();
    RegisterQzvtcollection();
    RegisterQzvtabout();
    RegisterQzvtscrollbars();
    RegisterQzvthints();
    RegisterQzvtcommonwnds();
    RegisterQzvtruntimewindows();
    RegisterQzvtpkgvars();
    RegisterQzvtsetup();
    RegisterQzvtlanguage();
    RegisterQzvtsets();
    RegisterQzvtdisplay();
    RegisterQzvtprivilege();
    RegisterQzvtprivileges();
    RegisterQzvtrichedit();
    RegisterPkgFilesWindows();
    RegisterStringsWindows();
    RegisterImagesWindows();
}
