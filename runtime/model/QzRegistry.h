#pragma once
// Every package alive in the process, by kind, and the application objects.
// Packages join on creation and leave on destruction; the lists feed the
// package-name drop-downs and resolve memory references by name.
//
// Lookups by name ignore case. Among packages of one kind and name at most
// one is active: the one that last took the name (created, renamed, loaded
// or made active). The application's "System" and "User" strings and images
// packages are registered like any other, and the application's own are
// preferred when a name is looked up.

#include "runtime/model/QzPkgInfo.h"

#include "rtl/StringList.h"

#include <vector>

class TQzPkgStrings;
class TQzPkgImages;
class TQzPkgVars;
class TQzCApplication;

// The packages of one kind, in creation order.
const std::vector<TQzPkgInfo*>& QzPkgRegistry(TQzPkgKind kind);
// Called by the packages themselves (TQzPkgInfo::JoinRegistry/LeaveRegistry).
void QzRegistryAdd(TQzPkgInfo* pkg, TQzPkgKind kind);
void QzRegistryRemove(TQzPkgInfo* pkg, TQzPkgKind kind);

// While one exists, packages created join no registry: temporary copies (a
// file read before it replaces a package's contents, a language file read
// to refresh the "System" strings) stay invisible and take no name over.
class TQzDetachedPkgs {
public:
    TQzDetachedPkgs();
    ~TQzDetachedPkgs();
    TQzDetachedPkgs(const TQzDetachedPkgs&) = delete;
    TQzDetachedPkgs& operator=(const TQzDetachedPkgs&) = delete;
    static bool Detaching();
};

// Append one line per package (its PkgName, with the package as the
// line's object) to list, in creation order.
void QzPkgStringsAll(TStrings* list);
void QzPkgStringsActives(TStrings* list);
void QzPkgImagesAll(TStrings* list);
void QzPkgImagesActives(TStrings* list);
void QzPkgVarsAll(TStrings* list);
void QzPkgVarsActives(TStrings* list);
// One line per application (its Name, with the application as object).
void QzCApplicationsAll(TStrings* list);

// The active package of that name, else an inactive one of that name, else
// nullptr. The application's language (strings) or display (images)
// package of that name comes first.
TQzPkgStrings* QzFindPkgStrings(const AnsiString& pkgName);
TQzPkgImages* QzFindPkgImages(const AnsiString& pkgName);
TQzPkgVars* QzFindPkgVars(const AnsiString& pkgName);

// The text of label id of the named strings package; empty when either is
// missing.
AnsiString QzReadPkgLabelText(const AnsiString& pkgName, Integer id);
