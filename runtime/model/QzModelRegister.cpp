#include "runtime/model/QzModelRegister.h"

#include "runtime/model/Qzmain.h"

#include "rtl/ComponentStream.h"

void RegisterQzModelClasses()
{
    RegisterComponentStreamClasses();
    RegisterClasses({
        TQzPkgInfo::ClassInfo(),
        TQzPkgItem::ClassInfo(),
        TQzPkgCollection::ClassInfo(),
        TQzPkgIdItem::ClassInfo(),
        TQzPkgIdCollection::ClassInfo(),
        TQzPkgStrings::ClassInfo(),
        TQzPkgStringsLabels::ClassInfo(),
        TQzPkgStringsMessages::ClassInfo(),
        TQzPkgStringsTexts::ClassInfo(),
        TQzPkgStringsLabel::ClassInfo(),
        TQzPkgStringsMessage::ClassInfo(),
        TQzPkgStringsText::ClassInfo(),
        TQzPkgImages::ClassInfo(),
        TQzPkgImagesImages::ClassInfo(),
        TQzPkgImagesImage::ClassInfo(),
        TQzPkgVars::ClassInfo(),
        TQzPkgVarsItem::ClassInfo(),
        TQzPkgPrivileges::ClassInfo(),
        TQzPkgPrivilegesItems::ClassInfo(),
        TQzPkgPrivilegesItem::ClassInfo(),
        TQzPkgDisplay::ClassInfo(),
        TQzPkgDisplaySets::ClassInfo(),
        TQzPkgDisplaySetsBackGround::ClassInfo(),
        TQzPkgDisplaySetsColor::ClassInfo(),
        TQzPkgDisplaySetsFont::ClassInfo(),
        TQzPkgDisplaySet::ClassInfo(),
        TQzPkgDisplaySetBackGround::ClassInfo(),
        TQzPkgDisplaySetColor::ClassInfo(),
        TQzPkgDisplaySetFont::ClassInfo(),
        TQzPkgLanguage::ClassInfo(),
        TQzPkgLanguageLocale::ClassInfo(),
        TQzPkgSetup::ClassInfo(),
        TQzPkgSetupKeys::ClassInfo(),
        TQzPkgSetupDataBase::ClassInfo(),
        TQzCApplication::ClassInfo(),
        TQzMemoryRef::ClassInfo(),
        TQzMemoryLabel::ClassInfo(),
        TQzMemoryMessage::ClassInfo(),
        TQzMemoryText::ClassInfo(),
        TQzMemoryImage::ClassInfo(),
        TQzPrivilege::ClassInfo(),
        TQzSetRef::ClassInfo(),
        TQzSetBackGround::ClassInfo(),
        TQzSetColor::ClassInfo(),
        TQzSetFont::ClassInfo(),
        TQzMask::ClassInfo(),
    });
}
