#pragma once
// The runtime's utility functions (unit Qzutil), one header per concern.
// Those that need Qt live with the runtime's Qt parts: the graphic formats
// and drawing utilities in runtime/pictures, window placing in
// runtime/dialogs/QzWindows.h.

#include "runtime/util/QzDesigner.h"
#include "runtime/util/QzFields.h"
#include "runtime/util/QzMessages.h"
#include "runtime/util/QzNumeric.h"
#include "runtime/util/QzPaths.h"
