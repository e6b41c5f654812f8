#pragma once
// Writing the geometry of the common windows and hints that a dialog edited
// on a copy back into the display package: all of it or none.

#include "runtime/model/QzPkgDisplay.h"

// Writes every measure and flag of geometry into display. A negative
// measure raises EQzPkgError naming it, before anything is written.
void QzWriteDisplayGeometry(TQzPkgDisplay& display, const TQzDisplayGeometry& geometry);

struct TQzEditorDialogRequest;

// Marks the change of display made through request's window: through the
// request's designer when it has one (one undo step), else the form that
// owns the display's application.
void QzDisplayModified(const TQzEditorDialogRequest& request, TQzPkgDisplay& display);
