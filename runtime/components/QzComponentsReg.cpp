#include "runtime/components/QzComponentsReg.h"

#include "runtime/components/QzAddCtrls.h"
#include "runtime/components/QzBars.h"
#include "runtime/components/QzDbCtrls.h"
#include "runtime/components/QzEditors.h"
#include "runtime/components/QzForms.h"
#include "runtime/components/QzMenus.h"
#include "runtime/model/QzModelRegister.h"

#include "rtl/ComponentStream.h"

const std::vector<TMetaClass*>& QzComponentClasses()
{
    static const std::vector<TMetaClass*> classes = {
        // The class library's bases.
        TControl::ClassInfo(), TWinControl::ClassInfo(), TGraphicControl::ClassInfo(), TCustomControl::ClassInfo(),
        TNonVisualComponent::ClassInfo(), TGraphicsObject::ClassInfo(), TFont::ClassInfo(), TBrush::ClassInfo(),
        TPen::ClassInfo(), TMenu::ClassInfo(), TMainMenu::ClassInfo(), TPopupMenu::ClassInfo(),
        TScrollingWinControl::ClassInfo(), TCustomForm::ClassInfo(), TForm::ClassInfo(), TCustomFrame::ClassInfo(),
        TFrame::ClassInfo(),
        // The suite's bases and parts.
        TQzGraphicControl::ClassInfo(), TQzWinControl::ClassInfo(), TQzCollection::ClassInfo(),
        TQzCollectionItem::ClassInfo(), TQzEditBtns::ClassInfo(), TQzPen::ClassInfo(),
        // Qz Standard.
        TQzCForm::ClassInfo(), TQzFormDataSource::ClassInfo(), TQzMenuItem::ClassInfo(), TQzMainMenu::ClassInfo(),
        TQzPopupMenu::ClassInfo(), TQzCustomLabel::ClassInfo(), TQzLabel::ClassInfo(), TQzCustomEdit::ClassInfo(),
        TQzEdit::ClassInfo(), TQzComboControl::ClassInfo(), TQzCustomComboBox::ClassInfo(), TQzComboBox::ClassInfo(),
        TQzListControl::ClassInfo(), TQzCustomListBox::ClassInfo(), TQzListBox::ClassInfo(),
        TQzCustomMemo::ClassInfo(), TQzMemo::ClassInfo(), TQzCustomRichEdit::ClassInfo(), TQzRichEdit::ClassInfo(),
        TQzCustomImage::ClassInfo(), TQzImage::ClassInfo(), TQzCustomFocusImage::ClassInfo(),
        TQzFocusImage::ClassInfo(), TQzCustomCheckBox::ClassInfo(), TQzCheckBox::ClassInfo(),
        TQzRadioButton::ClassInfo(), TQzGroupBox::ClassInfo(), TQzCustomRadioGroup::ClassInfo(),
        TQzRadioGroup::ClassInfo(), TQzPanel::ClassInfo(), TQzScrollBox::ClassInfo(), TQzTabSheet::ClassInfo(),
        TQzPageItem::ClassInfo(), TQzCustomPageControl::ClassInfo(), TQzPageControl::ClassInfo(),
        TQzCustomBitBtn::ClassInfo(), TQzBitBtn::ClassInfo(), TQzCustomSpeedButton::ClassInfo(),
        TQzSpeedButton::ClassInfo(), TQzCustomPkgImage::ClassInfo(), TQzPkgImage::ClassInfo(),
        TQzShape::ClassInfo(), TQzUpDown::ClassInfo(),
        // Qz Additional.
        TQzToolBarBase::ClassInfo(), TQzMemoBar::ClassInfo(), TQzRichEditBar::ClassInfo(), TQzImageBar::ClassInfo(),
        TQzStatusBarPanel::ClassInfo(), TQzStatusBar::ClassInfo(), TQzSplitter::ClassInfo(),
        TQzProgressBar::ClassInfo(), TQzTimer::ClassInfo(), TQzThreadTimer::ClassInfo(), TQzImageForm::ClassInfo(),
        TQzMoveForm::ClassInfo(), TQzPanelMenu::ClassInfo(), TQzOutLookBarPage::ClassInfo(),
        TQzOutLookBar::ClassInfo(), TQzLBPrivileges::ClassInfo(), TQzSetsGroup::ClassInfo(), TQzCBuffer::ClassInfo(),
        TQzLookupComboBox::ClassInfo(), TQzLookupListBox::ClassInfo(), TQzFontComboBox::ClassInfo(),
        TQzFontListBox::ClassInfo(), TQzExtScrollBar::ClassInfo(), TQzCFrame::ClassInfo(),
        // Qz Data Controls.
        TQzDbLabel::ClassInfo(), TQzDbEdit::ClassInfo(), TQzDbComboBox::ClassInfo(), TQzDbListBox::ClassInfo(),
        TQzDbMemo::ClassInfo(), TQzDbRichEdit::ClassInfo(), TQzDbImage::ClassInfo(), TQzDbFocusImage::ClassInfo(),
        TQzDbCheckBox::ClassInfo(), TQzDbRadioGroup::ClassInfo(), TQzDbPageControl::ClassInfo(),
        TQzDbNavigator::ClassInfo(), TQzDbBitBtn::ClassInfo(), TQzDbSpeedButton::ClassInfo(),
        TQzDbPkgImage::ClassInfo(),
        // Qz Editors.
        TQzLBSetsColor::ClassInfo(), TQzCBSetsColor::ClassInfo(), TQzLBSetsBackGround::ClassInfo(),
        TQzCBSetsBackGround::ClassInfo(), TQzLBSetsFont::ClassInfo(), TQzCBSetsFont::ClassInfo(),
        TQzLBPkgImages::ClassInfo(), TQzCBPkgImages::ClassInfo(), TQzLBColors::ClassInfo(), TQzCBColors::ClassInfo(),
        TQzCBPrinters::ClassInfo(), TQzPkgImagesDialog::ClassInfo(), TQzPkgImagesAdd::ClassInfo(),
        TQzPkgImagesDesignRgn::ClassInfo(),
    };
    return classes;
}

void RegisterQzComponentClasses()
{
    RegisterComponentStreamClasses();
    RegisterQzModelClasses();
    for (TMetaClass* cls : QzComponentClasses())
        if (GetClass(cls->ClassName()) != cls)
            RegisterClass(cls);
}
