#include "design/settings/QzDisplaySetRenames.h"

#include "design/manager/QzManagerLogic.h"
#include "designide/ProjectServices.h"

#include <algorithm>

namespace {

TQzDlgManager ManagerKind(TQzDisplaySetKind kind)
{
    switch (kind) {
    case TQzDisplaySetKind::BackGround: return TQzDlgManager::SetsBackGround;
    case TQzDisplaySetKind::Color: return TQzDlgManager::SetsColor;
    case TQzDisplaySetKind::Font: break;
    }
    return TQzDlgManager::SetsFont;
}

IDesigner* FindDesigner(TProjectServices& project, const AnsiString& formFile)
{
    auto* folder = dynamic_cast<TFolderProject*>(&project);
    if (!folder)
        return nullptr;
    const AnsiString onDisk = folder->FindFormFile(formFile);
    return folder->Designers().FindDesigner(onDisk.empty() ? formFile : onDisk);
}

}  // namespace

void TQzDisplaySetRenames::Renamed(const AnsiString& from, const AnsiString& to)
{
    // A set renamed again keeps the name it started from: the controls
    // still name that one.
    for (TQzSetRename& rename : FRenames)
        if (SameText(rename.To, from)) {
            rename.To = to;
            return;
        }
    FRenames.push_back({from, to});
}

void TQzDisplaySetRenames::Deleted(const AnsiString& name)
{
    std::erase_if(FRenames, [&](const TQzSetRename& rename) { return SameText(rename.To, name); });
}

std::vector<TQzSetRename> TQzDisplaySetRenames::Renames() const
{
    std::vector<TQzSetRename> renames;
    for (const TQzSetRename& rename : FRenames)
        if (rename.From != rename.To)
            renames.push_back(rename);
    return renames;
}

TQzSetRenamesFollowed QzFollowDisplaySetRenames(TProjectServices& project, TQzDisplaySetKind kind,
                                                const std::vector<TQzSetRename>& renames)
{
    TQzSetRenamesFollowed result;
    if (renames.empty())
        return result;
    TQzRuntimePackages packages;
    TQzManagerLogic logic(project, packages);
    std::vector<AnsiString> changedForms;
    logic.OnFormChanged = [&](const AnsiString& formFile, TComponent*) {
        if (std::find(changedForms.begin(), changedForms.end(), formFile) == changedForms.end())
            changedForms.push_back(formFile);
    };

    // One pass collects every reference of the kind before anything
    // changes, so each rename takes the controls that named its old name
    // when the window was accepted, not those another rename just gave it.
    const std::vector<TQzTokenRec2> found = logic.Count(ManagerKind(kind), {});
    for (const TQzSetRename& rename : renames) {
        std::vector<const TQzTokenRec1*> hits;
        for (const TQzTokenRec2& hit : found)
            if (hit.Source == TQzHitSource::Form && SameText(Trim(hit.Value), rename.From))
                hits.push_back(&hit);
        if (hits.empty())
            continue;
        result.Changed += logic.Replace(hits, {}, rename.To);
        for (const AnsiString& failure : logic.Failures())
            if (std::find(result.Failures.begin(), result.Failures.end(), failure) == result.Failures.end())
                result.Failures.push_back(failure);
    }
    // One step per form in the designer's history, whatever the number of
    // renames that reached it.
    for (const AnsiString& formFile : changedForms)
        if (IDesigner* designer = FindDesigner(project, formFile))
            designer->Modified();
    return result;
}
