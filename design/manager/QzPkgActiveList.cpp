#include "design/manager/QzPkgActiveList.h"

#include "runtime/model/QzApplication.h"
#include "runtime/model/QzPkgImages.h"
#include "runtime/model/QzPkgStrings.h"
#include "runtime/model/QzPkgVars.h"
#include "runtime/model/QzRegistry.h"

#include <algorithm>

namespace {

void AllOfKind(TQzActiveKind kind, TStrings* list)
{
    switch (kind) {
    case akStrings: QzPkgStringsAll(list); break;
    case akImages: QzPkgImagesAll(list); break;
    case akVars: QzPkgVarsAll(list); break;
    case akApplications: QzCApplicationsAll(list); break;
    case akNone: break;
    }
}

// The lists carry their objects untyped: back to what the runtime put in.
TComponent* ObjectOf(TQzActiveKind kind, void* object)
{
    if (kind == akApplications)
        return static_cast<TQzCApplication*>(object);
    return static_cast<TQzPkgInfo*>(object);
}

bool IsActive(const TComponent* object)
{
    if (const auto* pkg = dynamic_cast<const TQzPkgInfo*>(object))
        return pkg->Active();
    if (const auto* app = dynamic_cast<const TQzCApplication*>(object))
        return app->Active();
    return false;
}

}  // namespace

TQzActiveKind QzActiveKindOf(const TComponent* component)
{
    if (dynamic_cast<const TQzPkgStrings*>(component))
        return akStrings;
    if (dynamic_cast<const TQzPkgImages*>(component))
        return akImages;
    if (dynamic_cast<const TQzPkgVars*>(component))
        return akVars;
    if (dynamic_cast<const TQzCApplication*>(component))
        return akApplications;
    return akNone;
}

AnsiString QzActiveCaption(TQzActiveKind kind)
{
    switch (kind) {
    case akStrings: return "View PkgStrings";
    case akImages: return "View PkgImages";
    case akVars: return "View PkgVars";
    case akApplications: return "View Applications";
    case akNone: break;
    }
    return {};
}

std::vector<TQzActiveEntry> QzActiveEntries(TQzActiveKind kind)
{
    TStringList all;
    AllOfKind(kind, &all);
    std::vector<TQzActiveEntry> entries;
    entries.reserve(static_cast<size_t>(all.Count()));
    for (int i = 0; i < all.Count(); ++i) {
        TQzActiveEntry entry;
        entry.Name = all.Strings(i);
        entry.Text = entry.Name + Format("%0.5d", {i});
        entry.Object = ObjectOf(kind, all.Objects(i));
        if (entry.Object) {
            entry.OwnerName = entry.Object->Owner() ? entry.Object->Owner()->Name() : AnsiString("nil");
            entry.ComponentName = entry.Object->Name();
            entry.Active = IsActive(entry.Object);
        }
        entries.push_back(std::move(entry));
    }
    if (kind != akApplications)
        std::stable_sort(entries.begin(), entries.end(), [](const TQzActiveEntry& a, const TQzActiveEntry& b) {
            return AnsiCompareText(a.Text, b.Text) < 0;
        });
    return entries;
}

bool QzActivateEntry(TQzActiveKind kind, TComponent* object)
{
    TStringList all;
    AllOfKind(kind, &all);
    bool listed = false;
    for (int i = 0; i < all.Count() && !listed; ++i)
        listed = object && ObjectOf(kind, all.Objects(i)) == object;
    if (!listed)
        return false;
    if (auto* pkg = dynamic_cast<TQzPkgInfo*>(object))
        pkg->SetActive(true);
    else if (auto* app = dynamic_cast<TQzCApplication*>(object))
        app->SetActive(true);
    return true;
}
