#pragma once
// The runtime's utility functions (unit Qzutil), one header per concern.

#include "runtime/util/QzDesigner.h"
#include "runtime/util/QzFields.h"
#include "runtime/util/QzGraphicFormats.h"
#include "runtime/util/QzMessages.h"
#include "runtime/util/QzNumeric.h"
#include "runtime/util/QzPaths.h"
#include "runtime/util/QzWindows.h"
