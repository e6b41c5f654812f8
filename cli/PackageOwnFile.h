#pragma once
// A package a form keeps in a file of its own ("FILE" mode) is read from
// beside the form: the runtime looks for it from the application's folder,
// which a form on disk is not run from, so the form's folder stands in.

#include "runtime/model/QzPkgInfo.h"

// Reads pkg's own file from folder when pkg has one and it is there; a
// relative name without an extension takes the package's default one.
void QzLoadOwnPkgFile(TQzPkgInfo& pkg, const AnsiString& folder);
