#include "runtime/components/QzStdCtrls.h"

// ---- Labels ----------------------------------------------------------------

void TQzCustomLabel::DeclareProperties(TClassBuilder<TQzCustomLabel>& b)
{
    b.Enum("Alignment", TypeInfo_TAlignment(), &TQzCustomLabel::FAlignment, &TQzCustomLabel::FAlignment,
           taLeftJustify);
    b.Property("AutoSize", &TQzCustomLabel::FAutoSize).Default(true);
    QzDeclareLabel(b);
    b.Property("FocusControl", &TQzCustomLabel::FocusControl, &TQzCustomLabel::SetFocusControl);
    b.Enum("Layout", TypeInfo_TTextLayout(), &TQzCustomLabel::FLayout, &TQzCustomLabel::FLayout, tlTop);
    QzDeclareMask(b);
    QzDeclareSets(b, qsFont | qsColor);
    b.Property("Text", TypeInfo_TQzMultiLine(), &TControl::Text, &TControl::SetText);
    b.Property("Transparent", &TQzCustomLabel::FTransparent).Default(false);
    b.Property("WordWrap", &TQzCustomLabel::FWordWrap).Default(false);
    DeclareClickEvents(b);
}

TQzCustomLabel::TQzCustomLabel(TComponent* owner) : TQzGraphicControl(owner), FMask(std::make_unique<TQzMask>())
{
    SetBounds(0, 0, 65, 13);
}

TQzCustomLabel::~TQzCustomLabel() = default;

void TQzCustomLabel::SetFocusControl(TWinControl* value)
{
    QzSetReference(this, FFocusControl, value);
}

void TQzCustomLabel::Notification(TComponent* component, TOperation operation)
{
    TQzGraphicControl::Notification(component, operation);
    if (operation == opRemove)
        QzClearReference(FFocusControl, component);
}

void TQzLabel::DeclareProperties(TClassBuilder<TQzLabel>& b)
{
    QzDeclareValue(b, false);
}

// ---- Edits -----------------------------------------------------------------

const TTypeInfo* TypeInfo_TQzEditBtnKind()
{
    static const TTypeInfo* t = DefineEnumType(
        "TQzEditBtnKind", {"ebCalculator", "ebCalendar", "ebCustom1", "ebCustom2", "ebMaint", "ebRelation"});
    return t;
}

const TTypeInfo* TypeInfo_TQzEditBtnKinds()
{
    static const TTypeInfo* t = DefineSetType("TQzEditBtnKinds", TypeInfo_TQzEditBtnKind());
    return t;
}

void TQzEditBtns::DeclareProperties(TClassBuilder<TQzEditBtns>& b)
{
    QzDeclareOwned<TQzEditBtns, TQzMemoryImage>(b, "Custom1Image",
                                                [](TQzEditBtns& e) { return e.FCustom1Image.get(); });
    QzDeclareOwned<TQzEditBtns, TQzMemoryImage>(b, "Custom2Image",
                                                [](TQzEditBtns& e) { return e.FCustom2Image.get(); });
    b.Property("Flat", &TQzEditBtns::FFlat).Default(true);
    b.Set("Kinds", TypeInfo_TQzEditBtnKinds(), &TQzEditBtns::Kinds, &TQzEditBtns::SetKinds, TQzEditBtnKinds{});
    b.Property("Width", &TQzEditBtns::FWidth).Default(18);
}

TQzEditBtns::TQzEditBtns(TComponent* owner)
    : TComponent(owner),
      FCustom1Image(std::make_unique<TQzMemoryImage>()),
      FCustom2Image(std::make_unique<TQzMemoryImage>())
{
}

void TQzCustomEdit::DeclareProperties(TClassBuilder<TQzCustomEdit>& b)
{
    b.Redeclare("TabStop").Default(true);
    // Edit-like controls paint their own window colour.
    b.Redeclare("ParentColor").Default(false);
    b.Property("AutoSelect", &TQzCustomEdit::FAutoSelect).Default(true);
    b.Enum("BorderStyle", TypeInfo_TBorderStyle(), &TQzCustomEdit::FBorderStyle, &TQzCustomEdit::FBorderStyle,
           bsSingle);
    b.Property("Buttons", &TQzCustomEdit::Buttons);
    b.Enum("CharCase", TypeInfo_TEditCharCase(), &TQzCustomEdit::FCharCase, &TQzCustomEdit::FCharCase, ecNormal);
    QzDeclareOwned<TQzCustomEdit, TQzMemoryMessage>(b, "ErrorMessage",
                                                    [](TQzCustomEdit& e) { return e.ErrorMessage(); });
    QzDeclareLabel(b, "HintLabel");
    QzDeclareMask(b);
    b.Property("MaxLength", &TQzCustomEdit::FMaxLength).Default(0);
    QzDeclarePrivilege(b);
    b.Property("ReadOnly", &TQzCustomEdit::FReadOnly).Default(false);
    QzDeclareSets(b, qsFont | qsColor);
    DeclareEvent(b, "OnChange");
    DeclareClickEvents(b);
    DeclareFocusEvents(b);
}

TQzCustomEdit::TQzCustomEdit(TComponent* owner)
    : TQzWinControl(owner),
      FMask(std::make_unique<TQzMask>()),
      FButtons(new TQzEditBtns(this)),
      FErrorMessage(std::make_unique<TQzMemoryMessage>())
{
    FButtons->SetSubComponent(true);
    SetBounds(0, 0, 121, 21);
    SetColor(clWindow);
    SetTabStop(true);
}

TQzCustomEdit::~TQzCustomEdit() = default;

void TQzEdit::DeclareProperties(TClassBuilder<TQzEdit>& b)
{
    QzDeclareValue(b, false);
}

// ---- Combo and list boxes -------------------------------------------------------

const TTypeInfo* TypeInfo_TComboBoxStyle()
{
    static const TTypeInfo* t = DefineEnumType(
        "TComboBoxStyle", {"csDropDown", "csSimple", "csDropDownList", "csOwnerDrawFixed", "csOwnerDrawVariable"});
    return t;
}

void TQzComboControl::DeclareProperties(TClassBuilder<TQzComboControl>& b)
{
    b.Redeclare("TabStop").Default(true);
    // Edit-like controls paint their own window colour.
    b.Redeclare("ParentColor").Default(false);
    b.Property("DropDownCount", &TQzComboControl::FDropDownCount).Default(8);
    QzDeclareLabel(b, "HintLabel");
    QzDeclarePrivilege(b);
    QzDeclareSets(b, qsFont | qsColor);
    b.Enum("Style", TypeInfo_TComboBoxStyle(), &TQzComboControl::FStyle, &TQzComboControl::FStyle, csDropDown);
    DeclareEvent(b, "OnChange");
    DeclareClickEvents(b);
    DeclareFocusEvents(b);
}

TQzComboControl::TQzComboControl(TComponent* owner) : TQzWinControl(owner)
{
    SetBounds(0, 0, 145, 21);
    SetColor(clWindow);
    SetTabStop(true);
}

void TQzCustomComboBox::DeclareProperties(TClassBuilder<TQzCustomComboBox>& b)
{
    QzDeclareOwned<TQzCustomComboBox, TQzCollection>(b, "Items", [](TQzCustomComboBox& c) { return c.Items(); });
    b.Property("Sorted", &TQzCustomComboBox::FSorted).Default(false);
}

TQzCustomComboBox::TQzCustomComboBox(TComponent* owner)
    : TQzComboControl(owner), FItems(std::make_unique<TQzCollection>(this))
{
}

void TQzComboBox::DeclareProperties(TClassBuilder<TQzComboBox>& b)
{
    QzDeclareValue(b);
}

void TQzListControl::DeclareProperties(TClassBuilder<TQzListControl>& b)
{
    b.Redeclare("TabStop").Default(true);
    // Edit-like controls paint their own window colour.
    b.Redeclare("ParentColor").Default(false);
    b.Enum("BorderStyle", TypeInfo_TBorderStyle(), &TQzListControl::FBorderStyle, &TQzListControl::FBorderStyle,
           bsSingle);
    b.Property("Columns", &TQzListControl::FColumns).Default(0);
    QzDeclareLabel(b, "HintLabel");
    b.Property("ItemHeight", &TQzListControl::FItemHeight).Default(16);
    b.Property("MultiSelect", &TQzListControl::FMultiSelect).Default(false);
    QzDeclarePrivilege(b);
    QzDeclareSets(b, qsFont | qsColor);
    DeclareClickEvents(b);
    DeclareFocusEvents(b);
}

TQzListControl::TQzListControl(TComponent* owner) : TQzWinControl(owner)
{
    SetBounds(0, 0, 121, 97);
    SetColor(clWindow);
    SetTabStop(true);
}

void TQzCustomListBox::DeclareProperties(TClassBuilder<TQzCustomListBox>& b)
{
    QzDeclareOwned<TQzCustomListBox, TQzCollection>(b, "Items", [](TQzCustomListBox& c) { return c.Items(); });
    b.Property("Sorted", &TQzCustomListBox::FSorted).Default(false);
}

TQzCustomListBox::TQzCustomListBox(TComponent* owner)
    : TQzListControl(owner), FItems(std::make_unique<TQzCollection>(this))
{
}

void TQzListBox::DeclareProperties(TClassBuilder<TQzListBox>& b)
{
    QzDeclareValue(b);
}

// ---- Memos -------------------------------------------------------------------

void TQzCustomMemo::DeclareProperties(TClassBuilder<TQzCustomMemo>& b)
{
    b.Redeclare("TabStop").Default(true);
    // Edit-like controls paint their own window colour.
    b.Redeclare("ParentColor").Default(false);
    b.Enum("Alignment", TypeInfo_TAlignment(), &TQzCustomMemo::FAlignment, &TQzCustomMemo::FAlignment,
           taLeftJustify);
    b.Enum("BorderStyle", TypeInfo_TBorderStyle(), &TQzCustomMemo::FBorderStyle, &TQzCustomMemo::FBorderStyle,
           bsSingle);
    QzDeclareLabel(b, "HintLabel");
    b.Property("MaxLength", &TQzCustomMemo::FMaxLength).Default(0);
    QzDeclarePrivilege(b);
    b.Property("ReadOnly", &TQzCustomMemo::FReadOnly).Default(false);
    b.Enum("ScrollBars", TypeInfo_TScrollStyle(), &TQzCustomMemo::FScrollBars, &TQzCustomMemo::FScrollBars, ssNone);
    QzDeclareSets(b, qsFont | qsColor);
    b.Property("WantReturns", &TQzCustomMemo::FWantReturns).Default(true);
    b.Property("WantTabs", &TQzCustomMemo::FWantTabs).Default(false);
    b.Property("WordWrap", &TQzCustomMemo::FWordWrap).Default(true);
    DeclareEvent(b, "OnChange");
    DeclareClickEvents(b);
    DeclareFocusEvents(b);
}

TQzCustomMemo::TQzCustomMemo(TComponent* owner) : TQzWinControl(owner)
{
    SetBounds(0, 0, 185, 89);
    SetColor(clWindow);
    SetTabStop(true);
}

void TQzMemo::DeclareProperties(TClassBuilder<TQzMemo>& b)
{
    QzDeclareOwned<TQzMemo, TQzMemoryText>(b, "Text", [](TQzMemo& m) { return m.MemoText(); });
}

TQzMemo::TQzMemo(TComponent* owner) : TQzCustomMemo(owner), FText(std::make_unique<TQzMemoryText>())
{
    FText->SetOwner(this);
}

TQzMemo::~TQzMemo() = default;

void TQzCustomRichEdit::DeclareProperties(TClassBuilder<TQzCustomRichEdit>& b)
{
    b.Property("HideSelection", &TQzCustomRichEdit::FHideSelection).Default(true);
    b.Property("PlainText", &TQzCustomRichEdit::FPlainText).Default(false);
}

void TQzRichEdit::DeclareProperties(TClassBuilder<TQzRichEdit>& b)
{
    b.Property("Lines", &TQzRichEdit::Lines, &TQzRichEdit::SetLines);
}

// ---- Check boxes and radio buttons -----------------------------------------------

const TTypeInfo* TypeInfo_TLeftRight()
{
    static const TTypeInfo* t = DefineEnumType("TLeftRight", {"taLeftJustify", "taRightJustify"});
    return t;
}

void TQzCustomCheckBox::DeclareProperties(TClassBuilder<TQzCustomCheckBox>& b)
{
    b.Redeclare("TabStop").Default(true);
    b.Enum("Alignment", TypeInfo_TLeftRight(), &TQzCustomCheckBox::FAlignment, &TQzCustomCheckBox::FAlignment,
           taRightJustify);
    QzDeclareLabel(b);
    b.Property("Checked", &TQzCustomCheckBox::Checked, &TQzCustomCheckBox::SetChecked).Default(false);
    QzDeclarePrivilege(b);
    QzDeclareSets(b, qsFont | qsColor);
    b.Property("ValueChecked", &TQzCustomCheckBox::FValueChecked);
    b.Property("ValueUnchecked", &TQzCustomCheckBox::FValueUnchecked);
    DeclareClickEvents(b);
    DeclareFocusEvents(b);
}

TQzCustomCheckBox::TQzCustomCheckBox(TComponent* owner) : TQzWinControl(owner)
{
    SetBounds(0, 0, 97, 17);
    SetTabStop(true);
}

void TQzCheckBox::DeclareProperties(TClassBuilder<TQzCheckBox>& b)
{
    QzDeclareValue(b);
}

void TQzRadioButton::DeclareProperties(TClassBuilder<TQzRadioButton>& b)
{
    b.Redeclare("TabStop").Default(true);
    b.Enum("Alignment", TypeInfo_TLeftRight(), &TQzRadioButton::FAlignment, &TQzRadioButton::FAlignment,
           taRightJustify);
    QzDeclareLabel(b);
    b.Property("Checked", &TQzRadioButton::FChecked).Default(false);
    QzDeclarePrivilege(b);
    QzDeclareSets(b, qsFont | qsColor);
    QzDeclareValue(b);
    DeclareClickEvents(b);
    DeclareFocusEvents(b);
}

TQzRadioButton::TQzRadioButton(TComponent* owner) : TQzWinControl(owner)
{
    SetBounds(0, 0, 113, 17);
    SetTabStop(true);
}

// ---- Groups, panels and scroll boxes -------------------------------------------------

void TQzGroupBox::DeclareProperties(TClassBuilder<TQzGroupBox>& b)
{
    QzDeclareLabel(b);
    QzDeclarePrivilege(b);
    QzDeclareSets(b, qsFont | qsColor | qsBackGround);
    DeclareClickEvents(b);
}

TQzGroupBox::TQzGroupBox(TComponent* owner) : TQzWinControl(owner)
{
    SetBounds(0, 0, 185, 105);
}

void TQzCustomRadioGroup::DeclareProperties(TClassBuilder<TQzCustomRadioGroup>& b)
{
    b.Redeclare("TabStop").Default(true);
    QzDeclareLabel(b);
    b.Property("Columns", &TQzCustomRadioGroup::FColumns).Default(1);
    QzDeclareOwned<TQzCustomRadioGroup, TQzCollection>(b, "Items",
                                                        [](TQzCustomRadioGroup& c) { return c.Items(); });
    QzDeclarePrivilege(b);
    QzDeclareSets(b, qsFont | qsColor | qsBackGround);
    DeclareClickEvents(b);
    DeclareFocusEvents(b);
}

TQzCustomRadioGroup::TQzCustomRadioGroup(TComponent* owner)
    : TQzWinControl(owner), FItems(std::make_unique<TQzCollection>(this))
{
    SetBounds(0, 0, 185, 105);
    SetTabStop(true);
}

void TQzRadioGroup::DeclareProperties(TClassBuilder<TQzRadioGroup>& b)
{
    QzDeclareValue(b);
}

void TQzPanel::DeclareProperties(TClassBuilder<TQzPanel>& b)
{
    b.Enum("Alignment", TypeInfo_TAlignment(), &TQzPanel::FAlignment, &TQzPanel::FAlignment, taCenter);
    b.Enum("BevelInner", TypeInfo_TBevelCut(), &TQzPanel::FBevelInner, QzRealigningSetter(&TQzPanel::FBevelInner),
           bvNone);
    b.Enum("BevelOuter", TypeInfo_TBevelCut(), &TQzPanel::FBevelOuter, QzRealigningSetter(&TQzPanel::FBevelOuter),
           bvRaised);
    b.Property("BevelWidth", &TQzPanel::FBevelWidth, QzRealigningSetter(&TQzPanel::FBevelWidth)).Default(1);
    b.Enum("BorderStyle", TypeInfo_TBorderStyle(), &TQzPanel::FBorderStyle, &TQzPanel::FBorderStyle, bsNone);
    b.Property("BorderWidth", &TQzPanel::FBorderWidth, QzRealigningSetter(&TQzPanel::FBorderWidth)).Default(0);
    QzDeclareLabel(b);
    QzDeclarePrivilege(b);
    QzDeclareSets(b, qsFont | qsColor | qsBackGround);
    DeclareClickEvents(b);
}

TQzPanel::TQzPanel(TComponent* owner) : TQzWinControl(owner)
{
    SetBounds(0, 0, 185, 41);
}

void TQzPanel::AdjustClientRect(TRect& rect) const
{
    Integer inset = FBorderWidth;
    if (FBevelOuter != bvNone)
        inset += FBevelWidth;
    if (FBevelInner != bvNone)
        inset += FBevelWidth;
    rect = {rect.Left + inset, rect.Top + inset, rect.Right - inset, rect.Bottom - inset};
}

void TQzScrollBox::DeclareProperties(TClassBuilder<TQzScrollBox>& b)
{
    b.Property("AutoScroll", &TQzScrollBox::FAutoScroll).Default(true);
    b.Enum("BorderStyle", TypeInfo_TBorderStyle(), &TQzScrollBox::FBorderStyle, &TQzScrollBox::FBorderStyle,
           bsSingle);
    QzDeclarePrivilege(b);
    QzDeclareSets(b, qsBackGround);
}

TQzScrollBox::TQzScrollBox(TComponent* owner) : TQzWinControl(owner)
{
    SetBounds(0, 0, 185, 41);
}
