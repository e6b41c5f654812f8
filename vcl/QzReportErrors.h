#pragma once
// A change asked for from a window either happens or is refused with the
// reason shown to the user: one way for every window to run it.

#include "rtl/SysUtils.h"

#include <functional>

class QWidget;

// Runs change; an Exception it raises is shown in an error box over parent
// (through the dialog seam, so tests answer it) and reported as false.
// what, when given, comes before the reason ("The components cannot be
// copied: ").
bool QzRunReportingErrors(QWidget* parent, const std::function<void()>& change, const AnsiString& what = {});
