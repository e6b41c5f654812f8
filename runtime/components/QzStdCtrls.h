#pragma once
// The suite's standard text and list controls: labels, edits with their
// buttons, combo and list boxes, memos and rich edits, check boxes, radio
// buttons and groups, group boxes, panels and scroll boxes. Each family has
// a TQzCustom... base that the data-aware variants share; the plain control
// adds its "Value".

#include "runtime/components/QzCollection.h"
#include "runtime/components/QzControl.h"

#include "rtl/StringList.h"

// ---- Labels ----------------------------------------------------------------

class TQzCustomLabel : public TQzGraphicControl {
    QZ_CLASS(TQzCustomLabel, TQzGraphicControl)

public:
    explicit TQzCustomLabel(TComponent* owner);
    ~TQzCustomLabel() override;

    TQzMask* Mask() const { return FMask.get(); }
    // Text() is literal text, shown while the caption names no label.
    TWinControl* FocusControl() const { return FFocusControl; }
    void SetFocusControl(TWinControl* value);
    void Notification(TComponent* component, TOperation operation) override;

private:
    static void DeclareProperties(TClassBuilder<TQzCustomLabel>& b);

    std::unique_ptr<TQzMask> FMask;
    TAlignment FAlignment = taLeftJustify;
    bool FAutoSize = true;
    TTextLayout FLayout = tlTop;
    bool FTransparent = false;
    bool FWordWrap = false;
    TWinControl* FFocusControl = nullptr;
};

class TQzLabel : public TQzCustomLabel, public TQzValueHolder {
    QZ_CLASS(TQzLabel, TQzCustomLabel)

public:
    explicit TQzLabel(TComponent* owner) : TQzCustomLabel(owner) {}
    TQzDataType GetDataType() const override { return Mask()->DataType(); }

private:
    static void DeclareProperties(TClassBuilder<TQzLabel>& b);
};

// ---- Edits -----------------------------------------------------------------

// The buttons an edit may show at its right: the standard windows the
// setup's keys open, plus two of the application's own.
enum TQzEditBtnKind { ebCalculator, ebCalendar, ebCustom1, ebCustom2, ebMaint, ebRelation };
using TQzEditBtnKinds = TEnumSet<TQzEditBtnKind>;
const TTypeInfo* TypeInfo_TQzEditBtnKind();
const TTypeInfo* TypeInfo_TQzEditBtnKinds();

// Part of an edit, published as its "Buttons" and written in place
// ("Buttons.Kinds = [ebCalendar]").
class TQzEditBtns : public TComponent {
    QZ_CLASS(TQzEditBtns, TComponent)

public:
    explicit TQzEditBtns(TComponent* owner);

    TQzEditBtnKinds Kinds() const { return FKinds; }
    void SetKinds(TQzEditBtnKinds value) { FKinds = value; }

private:
    static void DeclareProperties(TClassBuilder<TQzEditBtns>& b);

    TQzEditBtnKinds FKinds;
    bool FFlat = true;
    Integer FWidth = 18;
    std::unique_ptr<TQzMemoryImage> FCustom1Image;
    std::unique_ptr<TQzMemoryImage> FCustom2Image;
};

class TQzCustomEdit : public TQzWinControl {
    QZ_CLASS(TQzCustomEdit, TQzWinControl)

public:
    explicit TQzCustomEdit(TComponent* owner);
    ~TQzCustomEdit() override;

    TQzMask* Mask() const { return FMask.get(); }
    TQzEditBtns* Buttons() const { return FButtons; }
    // Shown when the text does not fit the mask.
    TQzMemoryMessage* ErrorMessage() const { return FErrorMessage.get(); }

private:
    static void DeclareProperties(TClassBuilder<TQzCustomEdit>& b);

    std::unique_ptr<TQzMask> FMask;
    TQzEditBtns* FButtons;   // owned as a component
    std::unique_ptr<TQzMemoryMessage> FErrorMessage;
    bool FAutoSelect = true;
    TBorderStyle FBorderStyle = bsSingle;
    TEditCharCase FCharCase = ecNormal;
    Integer FMaxLength = 0;
    bool FReadOnly = false;
};

class TQzEdit : public TQzCustomEdit, public TQzValueHolder {
    QZ_CLASS(TQzEdit, TQzCustomEdit)

public:
    explicit TQzEdit(TComponent* owner) : TQzCustomEdit(owner) {}
    TQzDataType GetDataType() const override { return Mask()->DataType(); }

private:
    static void DeclareProperties(TClassBuilder<TQzEdit>& b);
};

// ---- Combo and list boxes ----------------------------------------------------

enum TComboBoxStyle { csDropDown, csSimple, csDropDownList, csOwnerDrawFixed, csOwnerDrawVariable };
const TTypeInfo* TypeInfo_TComboBoxStyle();

// What the combo-box-like controls share, whatever fills their list.
class TQzComboControl : public TQzWinControl {
    QZ_CLASS(TQzComboControl, TQzWinControl)

public:
    explicit TQzComboControl(TComponent* owner);

private:
    static void DeclareProperties(TClassBuilder<TQzComboControl>& b);

    Integer FDropDownCount = 8;
    TComboBoxStyle FStyle = csDropDown;
};

class TQzCustomComboBox : public TQzComboControl {
    QZ_CLASS(TQzCustomComboBox, TQzComboControl)

public:
    explicit TQzCustomComboBox(TComponent* owner);
    TQzCollection* Items() const { return FItems.get(); }

private:
    static void DeclareProperties(TClassBuilder<TQzCustomComboBox>& b);

    std::unique_ptr<TQzCollection> FItems;
    bool FSorted = false;
};

class TQzComboBox : public TQzCustomComboBox, public TQzValueHolder {
    QZ_CLASS(TQzComboBox, TQzCustomComboBox)

public:
    explicit TQzComboBox(TComponent* owner) : TQzCustomComboBox(owner) {}

private:
    static void DeclareProperties(TClassBuilder<TQzComboBox>& b);
};

// What the list-box-like controls share.
class TQzListControl : public TQzWinControl {
    QZ_CLASS(TQzListControl, TQzWinControl)

public:
    explicit TQzListControl(TComponent* owner);

private:
    static void DeclareProperties(TClassBuilder<TQzListControl>& b);

    TBorderStyle FBorderStyle = bsSingle;
    Integer FColumns = 0;
    Integer FItemHeight = 16;
    bool FMultiSelect = false;
};

class TQzCustomListBox : public TQzListControl {
    QZ_CLASS(TQzCustomListBox, TQzListControl)

public:
    explicit TQzCustomListBox(TComponent* owner);
    TQzCollection* Items() const { return FItems.get(); }

private:
    static void DeclareProperties(TClassBuilder<TQzCustomListBox>& b);

    std::unique_ptr<TQzCollection> FItems;
    bool FSorted = false;
};

class TQzListBox : public TQzCustomListBox, public TQzValueHolder {
    QZ_CLASS(TQzListBox, TQzCustomListBox)

public:
    explicit TQzListBox(TComponent* owner) : TQzCustomListBox(owner) {}

private:
    static void DeclareProperties(TClassBuilder<TQzListBox>& b);
};

// ---- Memos -------------------------------------------------------------------

class TQzCustomMemo : public TQzWinControl {
    QZ_CLASS(TQzCustomMemo, TQzWinControl)

public:
    explicit TQzCustomMemo(TComponent* owner);

private:
    static void DeclareProperties(TClassBuilder<TQzCustomMemo>& b);

    TAlignment FAlignment = taLeftJustify;
    TBorderStyle FBorderStyle = bsSingle;
    Integer FMaxLength = 0;
    bool FReadOnly = false;
    TScrollStyle FScrollBars = ssNone;
    bool FWantReturns = true;
    bool FWantTabs = false;
    bool FWordWrap = true;
};

class TQzMemo : public TQzCustomMemo {
    QZ_CLASS(TQzMemo, TQzCustomMemo)

public:
    explicit TQzMemo(TComponent* owner);
    ~TQzMemo() override;
    // The text the memo starts with, from a strings package.
    TQzMemoryText* MemoText() const { return FText.get(); }

private:
    static void DeclareProperties(TClassBuilder<TQzMemo>& b);

    std::unique_ptr<TQzMemoryText> FText;
};

class TQzCustomRichEdit : public TQzCustomMemo {
    QZ_CLASS(TQzCustomRichEdit, TQzCustomMemo)

public:
    explicit TQzCustomRichEdit(TComponent* owner) : TQzCustomMemo(owner) {}

private:
    static void DeclareProperties(TClassBuilder<TQzCustomRichEdit>& b);

    bool FHideSelection = true;
    bool FPlainText = false;
};

class TQzRichEdit : public TQzCustomRichEdit {
    QZ_CLASS(TQzRichEdit, TQzCustomRichEdit)

public:
    explicit TQzRichEdit(TComponent* owner) : TQzCustomRichEdit(owner) {}
    // The rich text, one paragraph a line, as the rich text editor edits it.
    TStrings* Lines() { return &FLines; }
    void SetLines(TStrings* value) { FLines.Assign(value); }

private:
    static void DeclareProperties(TClassBuilder<TQzRichEdit>& b);

    TStringList FLines;
};

// ---- Check boxes and radio buttons -----------------------------------------------

// The two sides a check box's caption may stand on.
const TTypeInfo* TypeInfo_TLeftRight();

class TQzCustomCheckBox : public TQzWinControl {
    QZ_CLASS(TQzCustomCheckBox, TQzWinControl)

public:
    explicit TQzCustomCheckBox(TComponent* owner);

    bool Checked() const { return FChecked; }
    void SetChecked(bool value) { FChecked = value; }
    // The values that stand for checked and unchecked.
    const Variant& ValueChecked() const { return FValueChecked; }
    const Variant& ValueUnchecked() const { return FValueUnchecked; }

private:
    static void DeclareProperties(TClassBuilder<TQzCustomCheckBox>& b);

    TAlignment FAlignment = taRightJustify;
    bool FChecked = false;
    Variant FValueChecked;
    Variant FValueUnchecked;
};

class TQzCheckBox : public TQzCustomCheckBox, public TQzValueHolder {
    QZ_CLASS(TQzCheckBox, TQzCustomCheckBox)

public:
    explicit TQzCheckBox(TComponent* owner) : TQzCustomCheckBox(owner) {}

private:
    static void DeclareProperties(TClassBuilder<TQzCheckBox>& b);
};

class TQzRadioButton : public TQzWinControl, public TQzValueHolder {
    QZ_CLASS(TQzRadioButton, TQzWinControl)

public:
    explicit TQzRadioButton(TComponent* owner);

private:
    static void DeclareProperties(TClassBuilder<TQzRadioButton>& b);

    TAlignment FAlignment = taRightJustify;
    bool FChecked = false;
};

// ---- Groups, panels and scroll boxes -------------------------------------------------

class TQzGroupBox : public TQzWinControl {
    QZ_CLASS(TQzGroupBox, TQzWinControl)

public:
    explicit TQzGroupBox(TComponent* owner);

private:
    static void DeclareProperties(TClassBuilder<TQzGroupBox>& b);
};

class TQzCustomRadioGroup : public TQzWinControl {
    QZ_CLASS(TQzCustomRadioGroup, TQzWinControl)

public:
    explicit TQzCustomRadioGroup(TComponent* owner);
    TQzCollection* Items() const { return FItems.get(); }

private:
    static void DeclareProperties(TClassBuilder<TQzCustomRadioGroup>& b);

    std::unique_ptr<TQzCollection> FItems;
    Integer FColumns = 1;
};

class TQzRadioGroup : public TQzCustomRadioGroup, public TQzValueHolder {
    QZ_CLASS(TQzRadioGroup, TQzCustomRadioGroup)

public:
    explicit TQzRadioGroup(TComponent* owner) : TQzCustomRadioGroup(owner) {}

private:
    static void DeclareProperties(TClassBuilder<TQzRadioGroup>& b);
};

class TQzPanel : public TQzWinControl {
    QZ_CLASS(TQzPanel, TQzWinControl)

public:
    explicit TQzPanel(TComponent* owner);
    // The border and the bevels are kept free of aligned controls.
    void AdjustClientRect(TRect& rect) const override;

private:
    static void DeclareProperties(TClassBuilder<TQzPanel>& b);

    TAlignment FAlignment = taCenter;
    TBevelCut FBevelInner = bvNone;
    TBevelCut FBevelOuter = bvRaised;
    Integer FBevelWidth = 1;
    TBorderStyle FBorderStyle = bsNone;
    Integer FBorderWidth = 0;
};

class TQzScrollBox : public TQzWinControl {
    QZ_CLASS(TQzScrollBox, TQzWinControl)

public:
    explicit TQzScrollBox(TComponent* owner);

private:
    static void DeclareProperties(TClassBuilder<TQzScrollBox>& b);

    bool FAutoScroll = true;
    TBorderStyle FBorderStyle = bsSingle;
};
