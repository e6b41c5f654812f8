#pragma once
// The kinds of reference the packages manager looks for, and what each
// kind is: its name as the manager shows it, the class a reference of the
// kind is, and whether it names a package item (package and Id, written as
// two lines) or a set or privilege (one line, by name or Id).

#include "rtl/System.h"

#include <array>
#include <string_view>

// In this order: the manager's callers pass kinds by number.
enum class TQzDlgManager { SetsBackGround, SetsColor, SetsFont, Images, Labels, Texts, Messages, Privileges };

inline constexpr int QzDlgManagerCount = 8;

struct TQzDlgManagerInfo {
    TQzDlgManager Kind;
    const char* Name;        // "SetsBackGround" ... "Privileges"
    const char* ClassName;   // the class a reference of this kind is: "TQzSetBackGround" ...
    bool UsesPackage;        // package and Id; otherwise a set's name or a privilege's Id
};

// The table row of kind.
const TQzDlgManagerInfo& QzDlgManagerInfo(TQzDlgManager kind);
// Every kind, in order.
const std::array<TQzDlgManagerInfo, QzDlgManagerCount>& QzDlgManagerInfos();
inline const char* QzDlgManagerName(TQzDlgManager kind) { return QzDlgManagerInfo(kind).Name; }
inline bool QzDlgManagerUsesPackage(TQzDlgManager kind) { return QzDlgManagerInfo(kind).UsesPackage; }
// The three display-set kinds: their value is a set's name.
bool QzDlgManagerIsSet(TQzDlgManager kind);
// The kind named name ("Labels", "labels"; case-insensitive); false when
// no kind has that name.
bool QzDlgManagerFromName(std::string_view name, TQzDlgManager& kind);
