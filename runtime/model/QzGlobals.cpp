#include "runtime/model/QzGlobals.h"

bool QzDesignMode = false;

QWidget* FrApplicationsActive = nullptr;
QWidget* FrPkgStringsActive = nullptr;
QWidget* FrPkgImagesActive = nullptr;
QWidget* FrPkgVarsActive = nullptr;

// System colours: 0xFF000000 + the colour index (highlight 20, window
// text 8, window 5).
const TQzDefaultSetColor QzSet3DMLight{"3DMLight", static_cast<TColor>(0xFF000014)};
const TQzDefaultSetColor QzSetColText{"ColText", static_cast<TColor>(0xFF000008)};
const TQzDefaultSetBackGround QzSetEdBackGround{"EdBackGround", {bgSolid, static_cast<TColor>(0xFF000005)}};
