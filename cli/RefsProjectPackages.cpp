#include "cli/RefsProjectPackages.h"

#include "cli/PackageOwnFile.h"
#include "designide/ProjectServices.h"
#include "runtime/files/QzPkgFiles.h"
#include "runtime/model/QzApplication.h"
#include "runtime/model/QzPkgImages.h"
#include "runtime/model/QzPkgStrings.h"
#include "runtime/model/QzRegistry.h"

#include <algorithm>
#include <filesystem>
#include <functional>

namespace {

// The package files a folder may hold, by extension, and the package each
// reads into.
struct TFileKind {
    const char* Ext;
    const char* Kind;
    std::function<std::unique_ptr<TQzPkgInfo>()> Create;
};

const std::vector<TFileKind>& FileKinds()
{
    static const std::vector<TFileKind> kinds = {
        {".pst", QzPkgKindStrings, [] { return std::make_unique<TQzPkgStrings>(nullptr); }},
        {".pim", QzPkgKindImages, [] { return std::make_unique<TQzPkgImages>(nullptr); }},
        {".dis", QzPkgKindDisplay, [] { return std::make_unique<TQzPkgDisplay>(nullptr); }},
        {".pac", QzPkgKindAccess, [] { return std::make_unique<TQzPkgPrivileges>(nullptr); }},
    };
    return kinds;
}

// Whether a form's text holds a package or the application object. Only
// those forms are loaded: loading is far slower than reading, and a form
// written for another component library, or with names where our runtime
// writes strings, may hold references but not load.
bool HoldsPackages(const TStrings& lines)
{
    for (int i = 0; i < lines.Count(); ++i) {
        const AnsiString line = lines.Get(i);
        const std::size_t colon = line.find(':');
        if (colon == AnsiString::npos)
            continue;
        const AnsiString head = TrimLeft(line.substr(0, colon));
        if (head.rfind("object ", 0) != 0 && head.rfind("inherited ", 0) != 0 && head.rfind("inline ", 0) != 0)
            continue;
        const AnsiString cls = Trim(line.substr(colon + 1));
        if (cls.rfind("TQzPkg", 0) == 0 || cls.rfind("TQzCApplication", 0) == 0)
            return true;
    }
    return false;
}

}  // namespace

TQzProjectPackages::TQzProjectPackages(TFolderProject& project)
{
    RegisterQzPkgFileFormats();
    // Packages read here are the project's, not this process's: they take
    // no name over from packages the process has open.
    TQzDetachedPkgs detached;
    for (int i = 0; i < project.ModuleCount(); ++i) {
        const TProjectModule& module = project.Module(i);
        TStringList lines;
        TStreamOriginalFormat format = sofUnknown;
        if (module.FormFile.empty())
            continue;
        try {
            if (project.ReadFormText(module.FormFile, lines, format) && HoldsPackages(lines))
                TakeForm(module.FormFile, lines.Text());
        } catch (Exception& e) {
            if (e.Message().find(module.FormFile) == AnsiString::npos)
                e.SetMessage(module.FormFile + ": " + e.Message());
            throw;
        }
    }
    TakeFolderFiles(project.Folder());
}

TQzProjectPackages::~TQzProjectPackages()
{
    // The forms own packages the files' lookups point at; drop the lookups first.
    FFound.clear();
}

void TQzProjectPackages::TakeForm(const AnsiString& fileName, const std::string& text)
{
    std::unique_ptr<TFormDesigner> form = TFormDesigner::LoadFromBytes(text, fileName);
    TComponent* root = form->GetRoot();
    for (int i = 0; i < root->ComponentCount(); ++i) {
        TComponent* component = root->Components(i);
        if (auto* pkg = dynamic_cast<TQzPkgInfo*>(component)) {
            QzLoadOwnPkgFile(*pkg, ExtractFileDir(fileName));
            Add(pkg, fileName);
        } else if (auto* app = dynamic_cast<TQzCApplication*>(component)) {
            if (!FDisplay && app->PkgDisplay()) {
                FDisplay = app->PkgDisplay();
                Add(FDisplay, fileName);
                Add(FDisplay->PkgUser(), fileName);
                Add(FDisplay->PkgSystem(), fileName);
            }
            if (!FPrivileges && app->Privileges()) {
                FPrivileges = app->Privileges();
                Add(FPrivileges, fileName);
            }
            if (TQzPkgLanguage* language = app->PkgLanguage()) {
                Add(language->PkgUser(), fileName);
                Add(language->PkgSystem(), fileName);
            }
        }
    }
    FForms.emplace_back(fileName, std::move(form));
}

void TQzProjectPackages::TakeFolderFiles(const AnsiString& folder)
{
    namespace fs = std::filesystem;
    std::vector<AnsiString> names;
    std::error_code ec;
    for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec))
        if (it->is_regular_file(ec))
            names.push_back(it->path().filename().string());
    std::sort(names.begin(), names.end());
    for (const AnsiString& name : names) {
        const auto kind = std::find_if(FileKinds().begin(), FileKinds().end(),
                                       [&](const TFileKind& k) { return SameText(ExtractFileExt(name), k.Ext); });
        if (kind == FileKinds().end())
            continue;
        const AnsiString file = IncludeTrailingPathDelimiter(folder) + name;
        std::unique_ptr<TQzPkgInfo> pkg = kind->Create();
        TQzPkgFileCodec(kind->Kind).LoadFromFile(*pkg, file);
        // A file carries no package name: the application names the package
        // that reads it, after the file by convention.
        pkg->SetPkgName(ChangeFileExt(name, ""));
        if (auto* display = dynamic_cast<TQzPkgDisplay*>(pkg.get()); display && !FDisplay)
            FDisplay = display;
        if (auto* privileges = dynamic_cast<TQzPkgPrivileges*>(pkg.get()); privileges && !FPrivileges)
            FPrivileges = privileges;
        Add(pkg.get(), file);
        FFiles.push_back(std::move(pkg));
    }
}

void TQzProjectPackages::Add(TQzPkgInfo* pkg, const AnsiString& source)
{
    if (pkg)
        FFound.push_back({pkg, source});
}

template <class T>
T* TQzProjectPackages::Find(const AnsiString& pkgName) const
{
    for (const TFound& found : FFound)
        if (auto* pkg = dynamic_cast<T*>(found.Package); pkg && SameText(pkg->PkgName(), pkgName))
            return pkg;
    return nullptr;
}

std::vector<AnsiString> TQzProjectPackages::PackageNames(TQzDlgManager kind) const
{
    // Classes are told apart by the language, not by their metaclasses:
    // this code may run in a module with copies of its own of those.
    const auto ofKind = [kind](const TQzPkgInfo* pkg) {
        if (kind == TQzDlgManager::Images)
            return dynamic_cast<const TQzPkgImages*>(pkg) != nullptr;
        return QzDlgManagerUsesPackage(kind) && dynamic_cast<const TQzPkgStrings*>(pkg) != nullptr;
    };
    std::vector<AnsiString> names;
    for (const TFound& found : FFound) {
        const AnsiString& name = found.Package->PkgName();
        if (ofKind(found.Package) && !name.empty() &&
            std::none_of(names.begin(), names.end(), [&](const AnsiString& n) { return SameText(n, name); }))
            names.push_back(name);
    }
    std::sort(names.begin(), names.end(), [](const AnsiString& a, const AnsiString& b) { return CompareText(a, b) < 0; });
    return names;
}

TQzPkgStrings* TQzProjectPackages::FindStrings(const AnsiString& pkgName) const
{
    return Find<TQzPkgStrings>(pkgName);
}

TQzPkgImages* TQzProjectPackages::FindImages(const AnsiString& pkgName) const
{
    return Find<TQzPkgImages>(pkgName);
}

AnsiString TQzProjectPackages::SourceOf(const TQzPkgInfo* pkg) const
{
    for (const TFound& found : FFound)
        if (found.Package == pkg)
            return found.Source;
    return {};
}

TFormDesigner* TQzProjectPackages::FormOf(const TQzPkgInfo* pkg) const
{
    const AnsiString source = SourceOf(pkg);
    for (const auto& [file, form] : FForms)
        if (file == source)
            return form.get();
    return nullptr;
}
