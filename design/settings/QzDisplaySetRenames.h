#pragma once
// Display sets renamed while a set window is open, and the controls of the
// project's forms made to follow them when the window is accepted. A
// control names its set by name alone, so a rename that stopped at the
// display package would leave every control that used the set pointing at
// a set that no longer exists.

#include "design/settings/QzDisplaySets.h"

#include <vector>

class TProjectServices;

struct TQzSetRename {
    AnsiString From;  // the name the set had when the window opened
    AnsiString To;    // the name it has now
};

// The renames of one list of sets, in the order the user makes them. Names
// compare without regard to case, as the runtime finds sets.
class TQzDisplaySetRenames {
public:
    void Renamed(const AnsiString& from, const AnsiString& to);
    // A set that was renamed and then deleted has nothing left to follow.
    void Deleted(const AnsiString& name);
    void Clear() { FRenames.clear(); }

    // From each set's first name to its last; a set that got its first name
    // back is left out.
    std::vector<TQzSetRename> Renames() const;

private:
    std::vector<TQzSetRename> FRenames;
};

struct TQzSetRenamesFollowed {
    int Changed = 0;                   // references that now name the new name
    std::vector<AnsiString> Failures;  // "Unable to modified <form>"
};

// Every control of the project's forms whose set of kind names a rename's
// From (any case) is made to name its To. The renames apply at once: two
// sets that swapped names swap in the controls too. Forms change on their
// designer (opened when needed, as the packages manager does), and each form
// changed is marked modified once. Raises EQzScanError, before anything
// changed, when a form cannot be read.
TQzSetRenamesFollowed QzFollowDisplaySetRenames(TProjectServices& project, TQzDisplaySetKind kind,
                                                const std::vector<TQzSetRename>& renames);
