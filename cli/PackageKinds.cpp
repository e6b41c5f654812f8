#include "cli/PackageKinds.h"

#include "runtime/files/QzPkgFiles.h"
#include "runtime/model/QzApplication.h"
#include "runtime/model/QzRegistry.h"

namespace {

template <class T>
TQzPkgFileKind Kind(const char* name)
{
    return {name, [] { return std::unique_ptr<TQzPkgInfo>(new T(nullptr)); },
            [](const TQzPkgInfo* pkg) { return dynamic_cast<const T*>(pkg) != nullptr; }};
}

}  // namespace

AnsiString TQzPkgFileKind::Ext() const
{
    // The package class knows its extension; a package made only to ask
    // must take no name over.
    TQzDetachedPkgs detached;
    return Create()->DefaultExt();
}

const std::vector<TQzPkgFileKind>& QzPkgFileKinds()
{
    static const std::vector<TQzPkgFileKind> kinds = {
        Kind<TQzPkgStrings>(QzPkgKindStrings),   Kind<TQzPkgImages>(QzPkgKindImages),
        Kind<TQzPkgVars>(QzPkgKindVars),         Kind<TQzPkgPrivileges>(QzPkgKindAccess),
        Kind<TQzPkgDisplay>(QzPkgKindDisplay),   Kind<TQzPkgLanguage>(QzPkgKindLanguage),
        Kind<TQzPkgSetup>(QzPkgKindSetup),
    };
    return kinds;
}

const TQzPkgFileKind* QzPkgFileKindOf(const AnsiString& fileName)
{
    const AnsiString ext = ExtractFileExt(fileName);
    for (const TQzPkgFileKind& kind : QzPkgFileKinds())
        if (!ext.empty() && SameText(ext.substr(1), kind.Ext()))
            return &kind;
    return nullptr;
}
