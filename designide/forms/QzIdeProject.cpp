#include "designide/forms/QzIdeProject.h"

#include "designide/QzPortDsgn.h"

#include "rtl/StringList.h"
#include "rtl/SysUtils.h"

TIdeProject::TIdeProject(const AnsiString& path, QObject* parent) : QObject(parent), FServices(path)
{
    FServices.SetDesigners(this);
    for (int i = 0; i < FServices.ModuleCount(); ++i)
        if (FServices.Module(i).HasForm())
            FForms.push_back(FServices.Module(i).FormFileName());
}

TIdeProject::~TIdeProject()
{
    if (GetProjectServices() == &FServices)
        SetProjectServices(FPreviousServices);
    FServices.SetDesigners(nullptr);
}

void TIdeProject::Install()
{
    if (GetProjectServices() == &FServices)
        return;
    FPreviousServices = GetProjectServices();
    SetProjectServices(&FServices);
}

AnsiString TIdeProject::FormTitle(int index) const { return ExtractFileName(FormName(index)); }

int TIdeProject::IndexOfForm(const AnsiString& formFile) const
{
    const AnsiString wanted = ChangeFileExt(formFile, "");
    for (int i = 0; i < FormCount(); ++i)
        if (SameText(ChangeFileExt(FForms[i], ""), wanted) || SameText(ChangeFileExt(FormFileOnDisk(i), ""), wanted))
            return i;
    return -1;
}

AnsiString TIdeProject::FormFileOnDisk(int index) const
{
    const AnsiString found = FServices.FindFormFile(FormName(index));
    return found.empty() ? FormName(index) : found;
}

TIdeDesigner* TIdeProject::Designer(int index) const
{
    auto it = FDesigners.find(index);
    return it == FDesigners.end() ? nullptr : it->second.get();
}

TIdeDesigner* TIdeProject::Open(int index)
{
    if (TIdeDesigner* open = Designer(index))
        return open;
    const AnsiString file = FormFileOnDisk(index);
    if (!FileExists(file))
        throw EFOpenError(file + ": the form file does not exist");
    auto designer = TIdeDesigner::Load(file);
    TIdeDesigner* result = designer.get();
    FDesigners[index] = std::move(designer);
    emit DesignerOpened(index);
    return result;
}

void TIdeProject::Close(int index)
{
    auto it = FDesigners.find(index);
    if (it == FDesigners.end())
        return;
    FRetired.push_back(std::move(it->second));
    FDesigners.erase(it);
}

std::vector<TIdeDesigner*> TIdeProject::OpenDesigners() const
{
    std::vector<TIdeDesigner*> result;
    for (const auto& [index, designer] : FDesigners)
        result.push_back(designer.get());
    return result;
}

int TIdeProject::SaveAll()
{
    int saved = 0;
    for (const auto& [index, designer] : FDesigners)
        if (designer->IsModified()) {
            designer->Save();
            ++saved;
        }
    return saved;
}

IDesigner* TIdeProject::FindDesigner(const AnsiString& formFile)
{
    const int index = IndexOfForm(formFile);
    return index < 0 ? nullptr : Designer(index);
}

IDesigner* TIdeProject::OpenDesigner(const AnsiString& formFile)
{
    const int index = IndexOfForm(formFile);
    if (index < 0)
        return nullptr;
    try {
        return Open(index);
    } catch (const Exception&) {
        return nullptr;
    }
}

void TIdeProject::FormFileWritten(const AnsiString& formFile)
{
    const int index = IndexOfForm(formFile);
    if (index < 0 || !Designer(index))
        return;
    // The file is newer than the open form: read it again.
    Close(index);
    try {
        Open(index);
        emit DesignerReloaded(index);
    } catch (const Exception&) {
    }
}
