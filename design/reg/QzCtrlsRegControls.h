#pragma once
// Property editors of the controls' own property types: multi-line texts,
// masks, rich text lines, collections, menus and the component references
// that only some components of the form may fill.

#include "design/reg/QzEditorDialogs.h"
#include "designide/DesignEditors.h"

// A string that may span lines, edited in the multi-line dialog captioned
// "Property: <name>".
class TQzMultiLinePropertyEditor : public TStringProperty {
public:
    using TStringProperty::TStringProperty;
    TPropertyAttributes GetAttributes() override;
    void Edit() override;
};

// An edit's mask: its text shown and typed directly (into every selected
// control's mask), its options below, the mask editor behind "...".
class TQzMaskPropertyEditor : public TClassProperty {
public:
    using TClassProperty::TClassProperty;
    TPropertyAttributes GetAttributes() override;
    AnsiString GetValue() override;
    void SetValue(const AnsiString& value) override;
    bool AllEqual() override;
    void Edit() override;
};

// A rich edit's lines, edited with their formatting in the rich text editor.
class TQzRichEditPropertyEditor : public TClassProperty {
public:
    using TClassProperty::TClassProperty;
    TPropertyAttributes GetAttributes() override;
    void Edit() override;
};

// A collection of the suite's controls: "(" its summary ")", and the
// collection editor captioned "Editing <collection name>".
class TQzCollectionPropertyEditor : public TClassProperty {
public:
    using TClassProperty::TClassProperty;
    TPropertyAttributes GetAttributes() override;
    AnsiString GetValue() override;
    void Edit() override;

protected:
    virtual TQzEditorDialog DialogKind() const { return TQzEditorDialog::Collection; }
};

// A page control's pages open in the page collection editor instead.
class TQzCollPageControlPropertyEditor : public TQzCollectionPropertyEditor {
public:
    using TQzCollectionPropertyEditor::TQzCollectionPropertyEditor;

protected:
    TQzEditorDialog DialogKind() const override { return TQzEditorDialog::CollPageControl; }
};

// A menu's Items: "(Menu)", edited in the menus editor.
class TQzMenuPropertyEditor : public TClassProperty {
public:
    using TClassProperty::TClassProperty;
    TPropertyAttributes GetAttributes() override;
    AnsiString GetValue() override;
    void Edit() override;
};

class TQzMainMenuPropertyEditor : public TQzMenuPropertyEditor {
public:
    using TQzMenuPropertyEditor::TQzMenuPropertyEditor;
};

class TQzPopupMenuPropertyEditor : public TQzMenuPropertyEditor {
public:
    using TQzMenuPropertyEditor::TQzMenuPropertyEditor;
};

class TQzPanelMenuPropertyEditor : public TQzMenuPropertyEditor {
public:
    using TQzMenuPropertyEditor::TQzMenuPropertyEditor;
};

// A component reference whose value list holds only the form's components
// that Accepts lets through (by class, and by what the edited component
// says of them); a typed name must be one the list would offer.
class TQzFilteredComponentProperty : public TComponentProperty {
public:
    using TComponentProperty::TComponentProperty;
    void GetValues(const TGetStrProc& proc) override;
    void SetValue(const AnsiString& value) override;

protected:
    virtual bool Accepts(TComponent* candidate) const = 0;
};

// A menu's WindowsList: the form's menu items the menu accepts as the list
// of open windows.
class TQzWindowsListEditor : public TQzFilteredComponentProperty {
public:
    using TQzFilteredComponentProperty::TQzFilteredComponentProperty;
    TPropertyAttributes GetAttributes() override;

protected:
    bool Accepts(TComponent* candidate) const override;
};

class TQzMainMenuWindowsListEditor : public TQzWindowsListEditor {
public:
    using TQzWindowsListEditor::TQzWindowsListEditor;
};

class TQzPanelMenuWindowsListEditor : public TQzWindowsListEditor {
public:
    using TQzWindowsListEditor::TQzWindowsListEditor;
};

// A form's BtnOk and BtnCancel: the form's buttons, the controls that
// close a form with a modal result.
class TQzMainBtnPropertyEditor : public TQzFilteredComponentProperty {
public:
    using TQzFilteredComponentProperty::TQzFilteredComponentProperty;

protected:
    bool Accepts(TComponent* candidate) const override;
};

// An image bar's Image: the form's image controls.
class TQzImageBarImagePropertyEditor : public TQzFilteredComponentProperty {
public:
    using TQzFilteredComponentProperty::TQzFilteredComponentProperty;

protected:
    bool Accepts(TComponent* candidate) const override;
};

// An up-down's Associate: the form's windowed controls an up-down can
// step, never the up-down itself or another up-down.
class TQzUpDownAssociatePropertyEditor : public TQzFilteredComponentProperty {
public:
    using TQzFilteredComponentProperty::TQzFilteredComponentProperty;

protected:
    bool Accepts(TComponent* candidate) const override;
};
