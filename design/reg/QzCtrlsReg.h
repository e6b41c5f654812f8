#pragma once
// Unit QzCtrlsReg: every property and component editor of the design
// package, one header per family.

#include "design/reg/QzCtrlsRegComponentEditors.h"
#include "design/reg/QzCtrlsRegControls.h"
#include "design/reg/QzCtrlsRegPackages.h"
#include "design/reg/QzCtrlsRegReferences.h"
#include "design/reg/QzCtrlsRegValues.h"
#include "design/reg/QzCtrlsRegVariants.h"
#include "design/reg/QzEditorDialogs.h"
