#pragma once
// Globals of the runtime package that the design tools read and set.

#include "runtime/model/QzMemory.h"

class QWidget;

// Set by the designer host while it hosts the runtime.
extern bool QzDesignMode;

// The clipboard format of a package image (picture, masks and settings).
inline constexpr const char* CF_QZIMAGE = "application/x-qzimage";

// The message the runtime broadcasts to its forms when packages change
// (QzFormsPerform); the active-package lists refresh on it.
inline constexpr int QzMasterMessage = 0x0400 + 0x0D31;

// The editor window open for each kind of object, or nullptr: the windows
// set them while they are open, so a second request shows the open one.
extern QWidget* FrApplicationsActive;
extern QWidget* FrPkgStringsActive;
extern QWidget* FrPkgImagesActive;
extern QWidget* FrPkgVarsActive;

// The default display sets the controls fall back on: the light colour of
// 3D edges, the colour of text, the background of edits.
extern const TQzDefaultSetColor QzSet3DMLight;
extern const TQzDefaultSetColor QzSetColText;
extern const TQzDefaultSetBackGround QzSetEdBackGround;
