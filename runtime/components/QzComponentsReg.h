#pragma once
// Registration of every control class of the runtime package, so that forms
// find them by name and the designer can create them.

#include "rtl/TypInfo.h"

#include <vector>

// Registers the control bases, the forms and frames, every component class
// of the suite and the model's classes they refer to. Safe to call more
// than once.
void RegisterQzComponentClasses();

// Every class RegisterQzComponentClasses registers itself (the model's
// classes aside), bases first.
const std::vector<TMetaClass*>& QzComponentClasses();
