#pragma once
// The editors of the controls' "Value" property: a Variant shown and typed
// as text according to the control's data type.

#include "designide/DesignEditors.h"
#include "runtime/model/QzTypes.h"

// The text a null or empty value shows, and that stores a null value
// (typed in any case).
inline constexpr const char* QzNullText = "{NULL}";

// Value to text by data type: numbers in the suite's fixed notation,
// dates as the class library writes them, anything else as its text.
AnsiString VariantToString(const Variant& value, TQzDataType dataType);
// Text to value: "{NULL}" gives Null; the numeric kinds are read as a
// floating value, dates as a date-time, the rest is kept as text. Text that
// does not fit the type raises EConvertError.
Variant StringToVariant(const AnsiString& text, TQzDataType dataType);

// The data type of the control (or collection item) being edited: as it
// tells it, else its published "DataType", else its mask's, else text.
TQzDataType QzComponentDataType(TPersistent* instance);

class TQzVariantPropertyEditor : public TPropertyEditor {
public:
    using TPropertyEditor::TPropertyEditor;
    TPropertyAttributes GetAttributes() override;
    AnsiString GetValue() override;
    void SetValue(const AnsiString& value) override;
    bool AllEqual() override;

protected:
    TQzDataType DataType() const { return QzComponentDataType(GetComponent(0)); }
};

// One per family of controls, so a host or a later version can tell them
// apart; they read and write alike.
class TQzEditVariantPropertyEditor : public TQzVariantPropertyEditor {
public:
    using TQzVariantPropertyEditor::TQzVariantPropertyEditor;
};

class TQzLabelVariantPropertyEditor : public TQzVariantPropertyEditor {
public:
    using TQzVariantPropertyEditor::TQzVariantPropertyEditor;
};

class TQzListBoxVariantPropertyEditor : public TQzVariantPropertyEditor {
public:
    using TQzVariantPropertyEditor::TQzVariantPropertyEditor;
};

class TQzRadioGroupVariantPropertyEditor : public TQzVariantPropertyEditor {
public:
    using TQzVariantPropertyEditor::TQzVariantPropertyEditor;
};

class TQzCheckBoxVariantPropertyEditor : public TQzVariantPropertyEditor {
public:
    using TQzVariantPropertyEditor::TQzVariantPropertyEditor;
};

class TQzRadioButtonVariantPropertyEditor : public TQzVariantPropertyEditor {
public:
    using TQzVariantPropertyEditor::TQzVariantPropertyEditor;
};

class TQzStatusBarVariantPropertyEditor : public TQzVariantPropertyEditor {
public:
    using TQzVariantPropertyEditor::TQzVariantPropertyEditor;
};

// A page control's Value picks a tab: the list offers each tab's value,
// followed by " - " and its description when it has one.
class TQzPageControlVariantPropertyEditor : public TQzVariantPropertyEditor {
public:
    using TQzVariantPropertyEditor::TQzVariantPropertyEditor;
    TPropertyAttributes GetAttributes() override;
    void GetValues(const TGetStrProc& proc) override;
    // A picked entry keeps only what stands before its first "-".
    void SetValue(const AnsiString& value) override;
};
