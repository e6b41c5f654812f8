#pragma once
// Package messages: a message box whose text is a message of a strings
// package, by Id. The editors ask for their confirmations and notices this
// way, from the package "System", so that a translated language file
// translates them too.
//
// The box itself is shown through a hook that the runtime's windows fill
// (RegisterQzStandardWindows, over the dialog seam of vcl, so a test
// answers it from a script); the model knows no window.

#include "rtl/MessageType.h"
#include "rtl/SysUtils.h"

#include <initializer_list>
#include <vector>

// The message types keep the suite's values: 2 informs, 3 asks for
// confirmation.
using TQzMessageType = TMsgDlgType;

// The buttons a package message offers, with the values the suite's button
// kinds have (the editors pass 1 and 2, or 4 and 5, as a pair, and 1 alone
// for a notice). Help has no button in a message box and is left out;
// Close is shown as Cancel and answered as Close.
enum TQzButtonKind : int {
    bkCustom = 0, bkOK = 1, bkCancel = 2, bkHelp = 3, bkYes = 4, bkNo = 5,
    bkClose = 6, bkAbort = 7, bkRetry = 8, bkIgnore = 9, bkAll = 10,
};

// The text of message msgId: the named package's message when it has one
// with a text, else the built-in "System" message of that Id, else a line
// that names the missing message (so a box never comes up empty).
AnsiString QzPkgMessageText(const AnsiString& pkgName, Integer msgId);

// Shows the message and returns the kind of the button pressed (bkCustom
// when the box was closed in a way none of the offered kinds stands for).
// buttons[0..lastButton] are offered; with none, OK. defaultButton is the
// one Enter presses (the first offered when it is not among them).
TQzButtonKind QzMsgPkg(TQzMessageType type, const AnsiString& pkgName, Integer msgId,
                       const TQzButtonKind* buttons, int lastButton, TQzButtonKind defaultButton);
TQzButtonKind QzMsgPkg(TQzMessageType type, const AnsiString& pkgName, Integer msgId,
                       std::initializer_list<TQzButtonKind> buttons, TQzButtonKind defaultButton);

// As QzMsgPkg, the text formatted with args (Format). A translated text
// whose directives do not fit the arguments is shown with the arguments
// appended instead of failing.
TQzButtonKind QzMsgPkgArgs(TQzMessageType type, const AnsiString& pkgName, Integer msgId,
                           std::initializer_list<TVarRec> args, const TQzButtonKind* buttons, int lastButton,
                           TQzButtonKind defaultButton);
TQzButtonKind QzMsgPkgArgs(TQzMessageType type, const AnsiString& pkgName, Integer msgId,
                           std::initializer_list<TVarRec> args, std::initializer_list<TQzButtonKind> buttons,
                           TQzButtonKind defaultButton);

// Shows a box of type with caption (empty: the box names its type itself)
// and text, offering the kinds given (those without a button left out; with
// none, OK) and defaultKind on Enter; returns the kind pressed.
using TQzMessageBoxHook = TQzButtonKind (*)(TQzMessageType type, const AnsiString& caption, const AnsiString& text,
                                            const std::vector<TQzButtonKind>& kinds, TQzButtonKind defaultKind);
// Without a hook no box can be shown and every message answers bkCustom,
// so nothing is ever taken as confirmed.
void SetQzMessageBoxHook(TQzMessageBoxHook hook);
