#pragma once
// The component palette as the runtime package knows it: its pages, and on
// each the classes it offers with what their buttons show. Registration,
// the palette's pictures and the class listing all read this one table.

#include "rtl/System.h"

#include <cstdint>
#include <vector>

// What the small picture above a button's letters shows.
enum class TQzPaletteGlyph {
    Application, Form, Frame, MenuBar, PopupMenu, Text, Edit, Combo, List, Memo, Image, Check, Radio, Group,
    Panel, ScrollBox, Tabs, Button, SpeedButton, Shape, UpDown, Package, ToolBar, StatusBar, Splitter, Progress,
    Clock, Outlook, Ruler, Buffer, ScrollBar, Navigator,
};

// One palette button: its page, the class it creates (by name), and its
// picture: a glyph and two or three capitals, which differ within a page.
struct TQzPaletteEntry {
    const char* Page;
    const char* ClassName;
    TQzPaletteGlyph Glyph;
    const char* Letters;
};

// The four pages in order and each page's classes in palette order;
// TQzRuler is the design package's class and is named only.
const std::vector<TQzPaletteEntry>& QzPaletteClasses();
// The pages' names, in palette order.
std::vector<AnsiString> QzPalettePages();
// The entry of a palette class (any case), or nullptr.
const TQzPaletteEntry* QzFindPaletteEntry(const AnsiString& className);
// The page of a palette class ("" when it has no button); any case.
AnsiString QzPalettePage(const AnsiString& className);
// The colour of a page's pictures, as 0xRRGGBB.
std::uint32_t QzPalettePageColor(const AnsiString& page);
