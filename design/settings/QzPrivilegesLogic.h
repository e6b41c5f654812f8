#pragma once
// What the privilege windows do to a privileges package, without a window:
// the list as it is shown and searched, adding, renumbering, renaming and
// deleting privileges with the package's Id rule, and the copy that lets
// the editor give everything back on Cancel.

#include "runtime/model/QzPkgPrivileges.h"

#include <vector>

// The privileges whose Id or description contains search (ignoring case;
// an empty search matches every one), in the order of their Ids.
std::vector<TQzPkgPrivilegesItem*> QzPrivilegesMatching(const TQzPkgPrivileges& package, const AnsiString& search);

// A new privilege with the first free Id and a description naming it.
TQzPkgPrivilegesItem* QzAddPrivilege(TQzPkgPrivileges& package);

// Gives item the Id typed as text. An empty box, a negative Id or one another
// privilege already has is refused with an EQzPkgError whose message says
// which privilege holds it; the item keeps its Id then.
void QzRenumberPrivilege(TQzPkgPrivileges& package, TQzPkgPrivilegesItem& item, const AnsiString& text);

// The description a privilege is listed with: its own text, else its label's,
// else "(no description)".
AnsiString QzPrivilegeCaption(const TQzPkgPrivilegesItem& item);

// Everything of a package a Cancel must give back: its contents, its file
// settings and its modified flag.
class TQzPrivilegesSnapshot {
public:
    explicit TQzPrivilegesSnapshot(TQzPkgPrivileges& package);
    TQzPrivilegesSnapshot(const TQzPrivilegesSnapshot&) = delete;
    TQzPrivilegesSnapshot& operator=(const TQzPrivilegesSnapshot&) = delete;

    // True when the package no longer holds what was taken.
    bool Changed() const;
    void Restore();

private:
    TQzPkgPrivileges& FPackage;
    // Written out to compare; writing does not change it.
    mutable TQzPkgPrivileges FCopy{nullptr};
    AnsiString FFileName;
    TQzRegisterInitMode FInitMode;
    bool FModified;
};
