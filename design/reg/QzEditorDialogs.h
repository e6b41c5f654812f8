#pragma once
// The windows the property and component editors open, by kind. An editor
// fills a request and runs the kind's opener; the unit that implements a
// window installs its opener (QzSetEditorDialog) from its registration
// function. A kind nobody installed yet tells the user plainly that the
// window is not available and counts as cancelled, so the editor changes
// nothing.
//
// The seam also lets tests put a scripted window in place and check what
// the editors do with its answer.

#include "designide/DesignIntf.h"

#include <functional>

enum class TQzEditorDialog {
    // property editors (modal, return 1 when accepted)
    MemoryLabel,      // TFrMemoryLabel: Target is the TQzMemoryLabel
    MemoryMessage,    // TFrMemoryMessage: Target is the TQzMemoryMessage
    MemoryText,       // TFrMemoryText: Target is the TQzMemoryText
    MemoryImage,      // TFrMemoryImage: Target is the TQzMemoryImage
    SetFont,          // TFrSetFont: Target is the TQzSetFont
    SetBackGround,    // TFrSetBackGround
    SetColor,         // TFrSetColor
    Privilege,        // TFrPrivilege: Target the TQzPrivilege, Package the privileges package
    Privileges,       // TFrPrivileges: Package the privileges package
    Setup,            // TFrSetup: Component the application
    Language,         // TFrLanguage: Component the application
    Display,          // TFrDisplay: Component the application
    PkgVars,          // TFrPkgVars: Package the variables package
    PkgStrings,       // TFrPkgStrings: Package the strings package
    PkgImages,        // TFrPkgImages: Package the images package
    MultiLine,        // TFrMultiLine: Caption, Text in and out
    Mask,             // TFrMask: Target the TQzMask
    RichEdit,         // TFrRichEdit: Component the rich edit, Target its lines
    Manager,          // TFrManager: Kind, PkgName and Value preset the search
    // design windows that stay open beside the designer
    Collection,       // TFrCollection: Target the collection, Caption
    CollPageControl,  // TFrCollPageControl: Target the pages, Component the control
    Menus,            // TFrMenus: Component the menu component
    PkgActive,        // TFrPkgActive: Package the package, or Component the application
    // the application's sample windows
    About,            // TFrAbout
    ScrollBars,       // TFrScrollBars: Caption
    MemoEditor,       // TFrMemoE: Caption
    ImageEditor,      // TFrImageE: Caption
    RichEditor,       // TFrRichEditE: Caption
    Help,             // TFrMsgHlp: PkgName, TopicId, Text
    PopupMenu,        // a popup menu shown where the mouse is: Component the TQzPopupMenu
    // the display package's settings, opened from the display dialog
    Hints,            // TFrHints: Package the display package
    CommonWnds,       // TFrCommonWnds: Package the display package
};

struct TQzEditorDialogRequest {
    TPersistent* Target = nullptr;     // the object edited in place
    TComponent* Component = nullptr;   // the component the object belongs to
    TComponent* Package = nullptr;     // the package the window works on
    IDesigner* Designer = nullptr;
    AnsiString Caption;
    AnsiString Text;                   // MultiLine: the text, replaced on acceptance
    AnsiString PkgName;                // Help: the strings package of the topic; Manager: the package
    Integer TopicId = -1;              // Help: the topic's text Id
    int Kind = 0;                      // Manager: the kind of reference, in TQzDlgManager's order
    AnsiString Value;                  // Manager: the Id or name looked for
};

// Returns the window's result: 1 when the user accepted.
using TQzEditorDialogOpener = std::function<int(TQzEditorDialogRequest& request)>;

// Installs opener for kind (an empty one removes it); returns the previous.
TQzEditorDialogOpener QzSetEditorDialog(TQzEditorDialog kind, TQzEditorDialogOpener opener);
bool QzHasEditorDialog(TQzEditorDialog kind);
// Runs the kind's window, or tells the user it is not available yet and
// returns 0.
int QzRunEditorDialog(TQzEditorDialog kind, TQzEditorDialogRequest& request);

// The window's class ("TFrMemoryLabel") and what the user calls it
// ("The memory label editor").
const char* QzEditorDialogClass(TQzEditorDialog kind);
AnsiString QzEditorDialogTitle(TQzEditorDialog kind);

// "<title> (<class>) is not available yet.", shown as information.
AnsiString QzEditorNotAvailableText(TQzEditorDialog kind);
void QzEditorNotAvailable(TQzEditorDialog kind);

// Installs an opener for the lifetime of a scope (tests, a host's preview).
class TQzEditorDialogScope {
public:
    TQzEditorDialogScope(TQzEditorDialog kind, TQzEditorDialogOpener opener)
        : FKind(kind), FPrevious(QzSetEditorDialog(kind, std::move(opener)))
    {
    }
    ~TQzEditorDialogScope() { QzSetEditorDialog(FKind, std::move(FPrevious)); }
    TQzEditorDialogScope(const TQzEditorDialogScope&) = delete;
    TQzEditorDialogScope& operator=(const TQzEditorDialogScope&) = delete;

private:
    TQzEditorDialog FKind;
    TQzEditorDialogOpener FPrevious;
};
