#pragma once
// The display sets as the set dialogs handle them: the three lists of a
// display package by kind, names proposed for new sets, working copies of a
// list, and the platform's colours and fonts turned into set values.

#include "runtime/model/QzPkgDisplay.h"

class QColor;
class QFont;

enum class TQzDisplaySetKind { BackGround, Color, Font };

TQzPkgDisplaySets* QzDisplaySets(TQzPkgDisplay& display, TQzDisplaySetKind kind);
TQzDisplaySetKind QzDisplaySetKindOf(const TQzPkgDisplaySets& sets);

// "BackGround1", "Color2", ...: the kind's word and the first number no set
// of sets uses yet.
AnsiString QzNewDisplaySetName(const TQzPkgDisplaySets& sets);

// Adds a set of the list's own class; raises EQzPkgError for a name that is
// empty or in use.
TQzPkgDisplaySet* QzAddDisplaySet(TQzPkgDisplaySets& sets, const AnsiString& name);

// Makes `to` hold copies of the sets of `from`, in order (names included).
void QzCopyDisplaySets(const TQzPkgDisplaySets& from, TQzPkgDisplaySets& to);

// Index of the set of that name (any case), or -1.
int QzIndexOfDisplaySet(const TQzPkgDisplaySets& sets, const AnsiString& name);

// "Name - Description", or the name alone: the text the set property shows
// and takes back.
AnsiString QzDisplaySetText(const TQzPkgDisplaySet& set);

// The stored form of a colour (0x00BBGGRR) and a font's values in the
// given colour.
TColor QzColorOfQColor(const QColor& color);
TQzFontValues QzFontValuesOf(const QFont& font, TColor color);
