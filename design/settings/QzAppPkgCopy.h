#pragma once
// The application's setup and language windows edit a detached copy of
// their package, so that Cancel leaves the form exactly as it was; Ok puts
// the copy back in one change, which the designer records as one step.

#include "design/reg/QzEditorDialogs.h"
#include "runtime/model/QzPkgInfo.h"

class TQzCApplication;

// Contents, description, storage mode and file name of from, into to.
void QzCopyAppPkg(TQzPkgInfo& from, TQzPkgInfo& to);

// Puts the edited copy back into target when it differs. A package kept in
// its own file is written; otherwise the form is marked modified through
// the request's designer (or the application's owner without one).
// Returns whether target changed.
bool QzCommitAppPkg(TQzPkgInfo& edited, TQzPkgInfo& target, TQzCApplication* app,
                    const TQzEditorDialogRequest& request);

// Where the package is kept, for the window's status: its file, or "(DFM)".
AnsiString QzAppPkgStorageText(const TQzPkgInfo& pkg);

// The application the window was asked for: the request's component, else
// the active application.
TQzCApplication* QzRequestApplication(const TQzEditorDialogRequest& request);
