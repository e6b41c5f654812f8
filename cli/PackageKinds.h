#pragma once
// The kinds of package file qzpkg reads and writes, each with the package
// class that holds it.

#include "runtime/model/QzPkgInfo.h"

#include <memory>
#include <vector>

struct TQzPkgFileKind {
    const char* Name;   // as the file's header names it ("Strings")
    std::unique_ptr<TQzPkgInfo> (*Create)();
    bool (*Holds)(const TQzPkgInfo* pkg);   // whether pkg is of this kind
    // The extension of the kind's files, without its point ("pst").
    AnsiString Ext() const;
};

const std::vector<TQzPkgFileKind>& QzPkgFileKinds();
// The kind whose files carry fileName's extension (any case), or nullptr.
const TQzPkgFileKind* QzPkgFileKindOf(const AnsiString& fileName);
