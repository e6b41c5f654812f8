#pragma once
// Registration of every control class of the runtime package, so that forms
// find them by name and the designer can create them, and the palette's
// pages as the runtime package knows them.

#include "rtl/TypInfo.h"

#include <vector>

// Registers the control bases, the forms and frames, every component class
// of the suite and the model's classes they refer to. Safe to call more
// than once.
void RegisterQzComponentClasses();

// Every class RegisterQzComponentClasses registers itself (the model's
// classes aside), bases first.
const std::vector<TMetaClass*>& QzComponentClasses();

// One palette button: its page and the class it creates, by name. The list
// holds the four pages in order and each page's classes in palette order;
// TQzRuler is the design package's class and is named only.
struct TQzPaletteEntry {
    const char* Page;
    const char* ClassName;
};
const std::vector<TQzPaletteEntry>& QzPaletteClasses();
// The page of a palette class ("" when it has no button); any case.
AnsiString QzPalettePage(const AnsiString& className);
