#pragma once
// The entries of the active-packages window, apart from the window: which
// list a component belongs to, the entries of that list in the order shown,
// and making one of them the active one.

#include "rtl/Component.h"

#include <vector>

// The lists, in the order of the runtime's windows (FrPkgStringsActive, ...).
enum TQzActiveKind { akNone = -1, akStrings = 0, akImages = 1, akVars = 2, akApplications = 3 };

// The list a package or an application is shown in; akNone for others.
TQzActiveKind QzActiveKindOf(const TComponent* component);
// "View PkgStrings", "View PkgImages", "View PkgVars", "View Applications".
AnsiString QzActiveCaption(TQzActiveKind kind);

struct TQzActiveEntry {
    // The name with its position among all the kind's entries, five digits
    // from 0: equal names stay distinct and keep their order when sorted.
    AnsiString Text;
    AnsiString Name;
    AnsiString OwnerName;       // "nil" when the object has no owner
    AnsiString ComponentName;
    bool Active = false;
    TComponent* Object = nullptr;
};

// Every entry of the kind: sorted by Text, except applications, which keep
// the runtime's order.
std::vector<TQzActiveEntry> QzActiveEntries(TQzActiveKind kind);

// Makes object the active one of its kind; false when it is no longer
// among the kind's entries (it was freed since the list was filled).
bool QzActivateEntry(TQzActiveKind kind, TComponent* object);
