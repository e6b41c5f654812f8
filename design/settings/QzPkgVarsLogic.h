#pragma once
// What the variables package editor does to a TQzPkgVars, without a window:
// the folders in the order the tree shows them, the variables of a folder,
// new names, values as text and back, and the search.

#include "runtime/model/QzPkgVars.h"

#include <vector>

// A folder as the tree shows it: Item is null for the package itself (the
// root, which has no name of its own).
struct TQzVarsFolder {
    TQzPkgVarsItem* Item = nullptr;
    int Depth = 0;
};

// The root, then every folder depth first, siblings sorted by name without
// regard to case (the tree is sorted by text).
std::vector<TQzVarsFolder> QzVarsFolderOrder(const TQzPkgVars& package);
// The variables (not the folders) directly in folder (null: the top level),
// in package order.
std::vector<TQzPkgVarsItem*> QzVarsVariables(const TQzPkgVars& package, const TQzPkgVarsItem* folder);
// The folders directly in folder, in package order.
std::vector<TQzPkgVarsItem*> QzVarsSubFolders(const TQzPkgVars& package, const TQzPkgVarsItem* folder);

// "path\name", or name alone for the top level.
AnsiString QzVarsJoinPath(const AnsiString& path, const AnsiString& name);
// base followed by 1, 2, ...: the first whose path in folder `path` is free.
AnsiString NamePath(const TQzPkgVars& package, const AnsiString& path, const AnsiString& base);
AnsiString NameFolder(const TQzPkgVars& package, const AnsiString& path);
AnsiString NameVar(const TQzPkgVars& package, const AnsiString& path);

AnsiString BooleanToStr(bool value);
// True exactly when the text's upper case is "TRUE".
bool StrToBoolean(const AnsiString& text);
// "(Boolean)", "(Integer)", "(Float)", "(String)"; empty for a folder.
AnsiString TypeToString(TQzPkgVarsItemType type);

// A variable's value as it is edited and searched: "True"/"False", decimal,
// the suite's number notation, or the text.
AnsiString QzVarsValueEdit(const TQzPkgVarsItem& item);
// The same in double quotes, for the list's "Value" column.
AnsiString QzVarsValueText(const TQzPkgVarsItem& item);
// Raises when text is no value of that type: "Incorrect Format" for a
// Boolean other than true or false (any case), the conversion's own
// EConvertError for numbers. Strings are never refused.
void QzVarsCheckValue(TQzPkgVarsItemType type, const AnsiString& text);
// Checks text, then stores it; a refused text leaves the item as it was.
void QzVarsSetValue(TQzPkgVarsItem& item, const AnsiString& text);
// The value a new variable of that type starts with.
void QzVarsSetInitialValue(TQzPkgVarsItem& item);

// ------------------------------------------------------------------ search

struct TQzVarsFindOptions {
    AnsiString Text;
    bool Down = true;
    bool MatchCase = false;
    bool WholeWord = false;   // the whole name or value, not a word in it
};

// A place in the tree and the list: an index into QzVarsFolderOrder and a
// row among that folder's variables (-1: none selected).
struct TQzVarsPlace {
    int Folder = -1;
    int Row = -1;
};

struct TQzVarsHit {
    bool Found = false;
    int Folder = -1;
    int Row = -1;  // -1: the folder's own name matched
};

// Searches from a place, as the editor's find command does: names first,
// then values; after a search that found nothing the next begins again at
// an end of the tree.
class TQzVarsFinder {
public:
    TQzVarsHit Find(const TQzPkgVars& package, const std::vector<TQzVarsFolder>& folders, TQzVarsPlace from,
                    const TQzVarsFindOptions& options);
    bool Restart() const { return FRestart; }

private:
    bool FRestart = false;
};
