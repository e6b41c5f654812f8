#pragma once
// The component editors: the verbs the form designer adds to a component's
// context menu and what a double-click on it does.

#include "design/reg/QzEditorDialogs.h"
#include "designide/DesignEditors.h"

#include <memory>

class TQzPopupMenu;

// The application object: its setup on a double-click; the about window,
// the system packages' refresh, the applications list and the runtime's
// standard windows as verbs.
class TQzCApplicationComponentEditor : public TComponentEditor {
public:
    using TComponentEditor::TComponentEditor;
    void Edit() override;
    void ExecuteVerb(int index) override;
    AnsiString GetVerb(int index) override;
    int GetVerbCount() override;

    // The texts of the message and help examples (verbs 5 and 6).
    static AnsiString ExampleMessageText();
    static AnsiString ExampleHelpText();
    // The sample popup menu of verb 11, with no owner: thirteen items, each
    // with its "System" image.
    static std::unique_ptr<TQzPopupMenu> BuildExamplePopupMenu();
};

// What the three package component editors share: the active-packages
// list as their one verb, the package's own editor on a double-click.
class TQzPkgComponentEditor : public TComponentEditor {
public:
    using TComponentEditor::TComponentEditor;
    void Edit() override;
    void ExecuteVerb(int index) override;
    AnsiString GetVerb(int index) override;
    int GetVerbCount() override;

protected:
    virtual TQzEditorDialog DialogKind() const = 0;
};

class TQzPkgImagesComponentEditor : public TQzPkgComponentEditor {
public:
    using TQzPkgComponentEditor::TQzPkgComponentEditor;

protected:
    TQzEditorDialog DialogKind() const override { return TQzEditorDialog::PkgImages; }
};

class TQzPkgStringsComponentEditor : public TQzPkgComponentEditor {
public:
    using TQzPkgComponentEditor::TQzPkgComponentEditor;

protected:
    TQzEditorDialog DialogKind() const override { return TQzEditorDialog::PkgStrings; }
};

class TQzPkgVarsComponentEditor : public TQzPkgComponentEditor {
public:
    using TQzPkgComponentEditor::TQzPkgComponentEditor;

protected:
    TQzEditorDialog DialogKind() const override { return TQzEditorDialog::PkgVars; }
};

// The outlook bar: add a page, step to the next or the previous one. A
// double-click adds a page, as the first verb.
class TQzOutLookBarComponentEditor : public TComponentEditor {
public:
    using TComponentEditor::TComponentEditor;
    void ExecuteVerb(int index) override;
    AnsiString GetVerb(int index) override;
    int GetVerbCount() override;

protected:
    // The bar the verbs act on.
    virtual TComponent* Bar() const { return Component(); }
};

// The same verbs on a page, acting on the page's bar; a double-click makes
// the page the bar's active one.
class TQzOutLookBarPageComponentEditor : public TQzOutLookBarComponentEditor {
public:
    using TQzOutLookBarComponentEditor::TQzOutLookBarComponentEditor;
    void Edit() override;

protected:
    TComponent* Bar() const override;
};

// The menus open in the menus editor on a double-click.
class TQzMainMenuComponentEditor : public TComponentEditor {
public:
    using TComponentEditor::TComponentEditor;
    void Edit() override;
};

class TQzPanelMenuComponentEditor : public TComponentEditor {
public:
    using TComponentEditor::TComponentEditor;
    void Edit() override;
};

// A popup menu also offers the menus editor as a verb, and "Build
// SystemMenu", which adds the standard system-menu items it lacks.
class TQzPopupMenuComponentEditor : public TComponentEditor {
public:
    using TComponentEditor::TComponentEditor;
    void Edit() override;
    void ExecuteVerb(int index) override;
    AnsiString GetVerb(int index) override;
    int GetVerbCount() override;
};

// A page control's pages open in the page collection editor.
class TQzPageControlComponentEditor : public TComponentEditor {
public:
    using TComponentEditor::TComponentEditor;
    void Edit() override;
    // "New Page" adds a tab with its sheet and selects the sheet; "Next
    // Page" and "Previous Page" show the neighbouring tab.
    void ExecuteVerb(int index) override;
    AnsiString GetVerb(int index) override;
    int GetVerbCount() override;
};
