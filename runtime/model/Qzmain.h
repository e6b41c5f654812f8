#pragma once
// The runtime package's model (unit Qzmain): the application object, the
// packages with their lists and items, the memory references, the package
// registry and the globals. One header per concern; include this one to
// have them all.

#include "runtime/model/QzTypes.h"
#include "runtime/model/QzPkgCollection.h"
#include "runtime/model/QzPkgInfo.h"
#include "runtime/model/QzPkgStrings.h"
#include "runtime/model/QzPkgImages.h"
#include "runtime/model/QzPkgVars.h"
#include "runtime/model/QzPkgPrivileges.h"
#include "runtime/model/QzPkgDisplay.h"
#include "runtime/model/QzPkgLanguage.h"
#include "runtime/model/QzPkgSetup.h"
#include "runtime/model/QzMemory.h"
#include "runtime/model/QzMask.h"
#include "runtime/model/QzApplication.h"
#include "runtime/model/QzRegistry.h"
#include "runtime/model/QzGlobals.h"
#include "runtime/model/QzModelRegister.h"
