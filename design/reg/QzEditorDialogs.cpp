#include "design/reg/QzEditorDialogs.h"

#include "vcl/QzDialogs.h"

#include <map>

namespace {

struct TDialogName {
    const char* Class;
    const char* Title;
};

TDialogName NameOf(TQzEditorDialog kind)
{
    switch (kind) {
    case TQzEditorDialog::MemoryLabel: return {"TFrMemoryLabel", "The memory label editor"};
    case TQzEditorDialog::MemoryMessage: return {"TFrMemoryMessage", "The memory message editor"};
    case TQzEditorDialog::MemoryText: return {"TFrMemoryText", "The memory text editor"};
    case TQzEditorDialog::MemoryImage: return {"TFrMemoryImage", "The memory image editor"};
    case TQzEditorDialog::SetFont: return {"TFrSetFont", "The font set editor"};
    case TQzEditorDialog::SetBackGround: return {"TFrSetBackGround", "The background set editor"};
    case TQzEditorDialog::SetColor: return {"TFrSetColor", "The colour set editor"};
    case TQzEditorDialog::Privilege: return {"TFrPrivilege", "The privilege picker"};
    case TQzEditorDialog::Privileges: return {"TFrPrivileges", "The privileges editor"};
    case TQzEditorDialog::Setup: return {"TFrSetup", "The setup dialog"};
    case TQzEditorDialog::Language: return {"TFrLanguage", "The language dialog"};
    case TQzEditorDialog::Display: return {"TFrDisplay", "The display dialog"};
    case TQzEditorDialog::PkgVars: return {"TFrPkgVars", "The variables package editor"};
    case TQzEditorDialog::PkgStrings: return {"TFrPkgStrings", "The strings package editor"};
    case TQzEditorDialog::PkgImages: return {"TFrPkgImages", "The images package editor"};
    case TQzEditorDialog::MultiLine: return {"TFrMultiLine", "The multi-line text editor"};
    case TQzEditorDialog::Mask: return {"TFrMask", "The mask editor"};
    case TQzEditorDialog::RichEdit: return {"TFrRichEdit", "The rich text editor"};
    case TQzEditorDialog::Manager: return {"TFrManager", "The packages manager"};
    case TQzEditorDialog::Collection: return {"TFrCollection", "The collection editor"};
    case TQzEditorDialog::CollPageControl: return {"TFrCollPageControl", "The page collection editor"};
    case TQzEditorDialog::Menus: return {"TFrMenus", "The menus editor"};
    case TQzEditorDialog::PkgActive: return {"TFrPkgActive", "The active packages list"};
    case TQzEditorDialog::About: return {"TFrAbout", "The about window"};
    case TQzEditorDialog::ScrollBars: return {"TFrScrollBars", "The scroll-bars example"};
    case TQzEditorDialog::MemoEditor: return {"TFrMemoE", "The memo editor"};
    case TQzEditorDialog::ImageEditor: return {"TFrImageE", "The image editor"};
    case TQzEditorDialog::RichEditor: return {"TFrRichEditE", "The rich text editor"};
    case TQzEditorDialog::Help: return {"TFrMsgHlp", "The help window"};
    case TQzEditorDialog::PopupMenu: return {"TQzPopupMenu", "The popup menu display"};
    case TQzEditorDialog::Hints: return {"TFrHints", "The hints dialog"};
    case TQzEditorDialog::CommonWnds: return {"TFrCommonWnds", "The common windows dialog"};
    }
    return {"", "This window"};
}

std::map<TQzEditorDialog, TQzEditorDialogOpener>& Openers()
{
    static std::map<TQzEditorDialog, TQzEditorDialogOpener> openers;
    return openers;
}

}  // namespace

TQzEditorDialogOpener QzSetEditorDialog(TQzEditorDialog kind, TQzEditorDialogOpener opener)
{
    auto& openers = Openers();
    TQzEditorDialogOpener previous;
    if (auto it = openers.find(kind); it != openers.end()) {
        previous = std::move(it->second);
        openers.erase(it);
    }
    if (opener)
        openers.emplace(kind, std::move(opener));
    return previous;
}

bool QzHasEditorDialog(TQzEditorDialog kind)
{
    return Openers().count(kind) != 0;
}

int QzRunEditorDialog(TQzEditorDialog kind, TQzEditorDialogRequest& request)
{
    // A copy: the window may install or remove openers while it runs.
    auto it = Openers().find(kind);
    if (it == Openers().end()) {
        QzEditorNotAvailable(kind);
        return 0;
    }
    const TQzEditorDialogOpener opener = it->second;
    return opener(request);
}

const char* QzEditorDialogClass(TQzEditorDialog kind)
{
    return NameOf(kind).Class;
}

AnsiString QzEditorDialogTitle(TQzEditorDialog kind)
{
    return NameOf(kind).Title;
}

AnsiString QzEditorNotAvailableText(TQzEditorDialog kind)
{
    return QzEditorDialogTitle(kind) + " (" + QzEditorDialogClass(kind) + ") is not available yet.";
}

void QzEditorNotAvailable(TQzEditorDialog kind)
{
    QzMessage(QzEditorNotAvailableText(kind), mtInformation, {mbOK}, mbOK);
}
