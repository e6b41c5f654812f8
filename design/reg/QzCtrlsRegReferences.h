#pragma once
// Property editors of the references a control holds into the
// application's packages: memory labels, messages, texts and images,
// display sets and privileges. Their dialogs work on the first selected
// control's object in place; on acceptance every other selected control
// gets the same reference.

#include "design/reg/QzEditorDialogs.h"
#include "designide/DesignEditors.h"

class TQzCApplication;

// The project's application object; raises EQzPkgError "Component
// TQzCApplication not found" when no form has one, before any dialog opens.
TQzCApplication* QzRequireApplication();

// What the memory reference editors share: the dialog of their kind, the
// copy to all selected components and the designer's notice.
class TQzMemoryRefPropertyEditor : public TClassProperty {
public:
    using TClassProperty::TClassProperty;
    TPropertyAttributes GetAttributes() override;
    void Edit() override;

protected:
    virtual TQzEditorDialog DialogKind() const = 0;
};

// "(12, MAIN) Save - Saves the file"; "(Default)" for Id -2, "(None)" for
// any other negative Id, empty when the property holds no label.
class TQzMemoryLabelPropertyEditor : public TQzMemoryRefPropertyEditor {
public:
    using TQzMemoryRefPropertyEditor::TQzMemoryRefPropertyEditor;
    AnsiString GetValue() override;

protected:
    TQzEditorDialog DialogKind() const override { return TQzEditorDialog::MemoryLabel; }
};

// "(3, MAIN) Text", as labels without the hint.
class TQzMemoryMessagePropertyEditor : public TQzMemoryRefPropertyEditor {
public:
    using TQzMemoryRefPropertyEditor::TQzMemoryRefPropertyEditor;
    AnsiString GetValue() override;

protected:
    TQzEditorDialog DialogKind() const override { return TQzEditorDialog::MemoryMessage; }
};

class TQzMemoryTextPropertyEditor : public TQzMemoryRefPropertyEditor {
public:
    using TQzMemoryRefPropertyEditor::TQzMemoryRefPropertyEditor;
    AnsiString GetValue() override;

protected:
    TQzEditorDialog DialogKind() const override { return TQzEditorDialog::MemoryText; }
};

// "(12, MAIN)": an image has no text to show.
class TQzMemoryImagePropertyEditor : public TQzMemoryRefPropertyEditor {
public:
    using TQzMemoryRefPropertyEditor::TQzMemoryRefPropertyEditor;
    AnsiString GetValue() override;

protected:
    TQzEditorDialog DialogKind() const override { return TQzEditorDialog::MemoryImage; }
};

// A display set shows and takes its Name. A value such as "Bold - Titles"
// (a name with its description) keeps the name alone.
class TQzSetPropertyEditor : public TPropertyEditor {
public:
    using TPropertyEditor::TPropertyEditor;
    TPropertyAttributes GetAttributes() override;
    AnsiString GetValue() override;
    void SetValue(const AnsiString& value) override;
    // Names compared without regard to case.
    bool AllEqual() override;
    void Edit() override;

protected:
    virtual TQzEditorDialog DialogKind() const = 0;
    // The set's class; objects of another class show no name.
    virtual TMetaClass* SetClass() const = 0;
};

class TQzSetFontProperty : public TQzSetPropertyEditor {
public:
    using TQzSetPropertyEditor::TQzSetPropertyEditor;

protected:
    TQzEditorDialog DialogKind() const override { return TQzEditorDialog::SetFont; }
    TMetaClass* SetClass() const override;
};

class TQzSetBackGroundProperty : public TQzSetPropertyEditor {
public:
    using TQzSetPropertyEditor::TQzSetPropertyEditor;

protected:
    TQzEditorDialog DialogKind() const override { return TQzEditorDialog::SetBackGround; }
    TMetaClass* SetClass() const override;
};

class TQzSetColorProperty : public TQzSetPropertyEditor {
public:
    using TQzSetPropertyEditor::TQzSetPropertyEditor;

protected:
    TQzEditorDialog DialogKind() const override { return TQzEditorDialog::SetColor; }
    TMetaClass* SetClass() const override;
};

// The name a display-set text stands for: the part before its first "-",
// without the blank that separates it from the description.
AnsiString QzSetNameOfText(const AnsiString& text);

// "(4, R/W) - Managers" (the description when the privilege has one),
// "(None)" for a negative Id. Several privileges are equal when their Ids are.
class TQzPrivilegeProperty : public TPropertyEditor {
public:
    using TPropertyEditor::TPropertyEditor;
    TPropertyAttributes GetAttributes() override;
    AnsiString GetValue() override;
    bool AllEqual() override;
    void Edit() override;
};
