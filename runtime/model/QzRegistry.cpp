#include "runtime/model/QzRegistry.h"

#include "runtime/model/QzApplication.h"
#include "runtime/model/QzPkgDisplay.h"
#include "runtime/model/QzPkgImages.h"
#include "runtime/model/QzPkgLanguage.h"
#include "runtime/model/QzPkgStrings.h"
#include "runtime/model/QzPkgVars.h"

#include <algorithm>
#include <array>

namespace {

std::array<std::vector<TQzPkgInfo*>, 3>& Lists()
{
    static std::array<std::vector<TQzPkgInfo*>, 3> lists;
    return lists;
}

int DetachedDepth = 0;

void AddNames(TQzPkgKind kind, TStrings* list, bool activesOnly)
{
    if (!list)
        return;
    for (TQzPkgInfo* pkg : QzPkgRegistry(kind))
        if (!activesOnly || pkg->Active())
            list->AddObject(pkg->PkgName(), pkg);
}

TQzPkgInfo* FindByName(TQzPkgKind kind, const AnsiString& name)
{
    TQzPkgInfo* inactive = nullptr;
    for (TQzPkgInfo* pkg : QzPkgRegistry(kind)) {
        if (!SameText(pkg->PkgName(), name))
            continue;
        if (pkg->Active())
            return pkg;
        if (!inactive)
            inactive = pkg;
    }
    return inactive;
}

// The application's own package of that name, if it has one.
template <class T>
T* OwnOfApplication(T* systemPkg, T* userPkg, const AnsiString& name)
{
    if (systemPkg && SameText(systemPkg->PkgName(), name))
        return systemPkg;
    if (userPkg && SameText(userPkg->PkgName(), name))
        return userPkg;
    return nullptr;
}

}  // namespace

const std::vector<TQzPkgInfo*>& QzPkgRegistry(TQzPkgKind kind)
{
    static const std::vector<TQzPkgInfo*> none;
    if (kind < pkStrings || kind > pkVars)
        return none;
    return Lists()[static_cast<size_t>(kind)];
}

void QzRegistryAdd(TQzPkgInfo* pkg, TQzPkgKind kind)
{
    if (kind < pkStrings || kind > pkVars || DetachedDepth > 0)
        return;
    auto& list = Lists()[static_cast<size_t>(kind)];
    if (std::find(list.begin(), list.end(), pkg) == list.end())
        list.push_back(pkg);
}

void QzRegistryRemove(TQzPkgInfo* pkg, TQzPkgKind kind)
{
    if (kind < pkStrings || kind > pkVars)
        return;
    auto& list = Lists()[static_cast<size_t>(kind)];
    list.erase(std::remove(list.begin(), list.end(), pkg), list.end());
}

TQzDetachedPkgs::TQzDetachedPkgs()
{
    ++DetachedDepth;
}

TQzDetachedPkgs::~TQzDetachedPkgs()
{
    --DetachedDepth;
}

bool TQzDetachedPkgs::Detaching()
{
    return DetachedDepth > 0;
}

void QzPkgStringsAll(TStrings* list)
{
    AddNames(pkStrings, list, false);
}

void QzPkgStringsActives(TStrings* list)
{
    AddNames(pkStrings, list, true);
}

void QzPkgImagesAll(TStrings* list)
{
    AddNames(pkImages, list, false);
}

void QzPkgImagesActives(TStrings* list)
{
    AddNames(pkImages, list, true);
}

void QzPkgVarsAll(TStrings* list)
{
    AddNames(pkVars, list, false);
}

void QzPkgVarsActives(TStrings* list)
{
    AddNames(pkVars, list, true);
}

void QzCApplicationsAll(TStrings* list)
{
    if (!list)
        return;
    for (TQzCApplication* app : QzCApplications())
        list->AddObject(app->Name(), app);
}

TQzPkgStrings* QzFindPkgStrings(const AnsiString& pkgName)
{
    if (TQzCApplication* app = QzCApp()) {
        TQzPkgLanguage* language = app->PkgLanguage();
        if (auto* own = OwnOfApplication(language->PkgSystem(), language->PkgUser(), pkgName))
            return own;
    }
    return static_cast<TQzPkgStrings*>(FindByName(pkStrings, pkgName));
}

TQzPkgImages* QzFindPkgImages(const AnsiString& pkgName)
{
    if (TQzCApplication* app = QzCApp()) {
        TQzPkgDisplay* display = app->PkgDisplay();
        if (auto* own = OwnOfApplication(display->PkgSystem(), display->PkgUser(), pkgName))
            return own;
    }
    return static_cast<TQzPkgImages*>(FindByName(pkImages, pkgName));
}

TQzPkgVars* QzFindPkgVars(const AnsiString& pkgName)
{
    return static_cast<TQzPkgVars*>(FindByName(pkVars, pkgName));
}

AnsiString QzReadPkgLabelText(const AnsiString& pkgName, Integer id)
{
    TQzPkgStrings* pkg = QzFindPkgStrings(pkgName);
    if (!pkg)
        return {};
    const TQzPkgStringsLabel* label = pkg->Labels()->FindId(id);
    return label ? label->Text() : AnsiString();
}
