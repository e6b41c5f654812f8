#include "runtime/model/QzApplication.h"

#include "runtime/model/QzRegistry.h"

#include <algorithm>

namespace {

std::vector<TQzCApplication*>& Applications()
{
    static std::vector<TQzCApplication*> list;
    return list;
}

TQzProjectResolver& ProjectResolver()
{
    static TQzProjectResolver resolver;
    return resolver;
}

TQzSystemPackagesProvider& Provider()
{
    static TQzSystemPackagesProvider provider;
    return provider;
}

TQzStandardWindows& StandardWindows()
{
    static TQzStandardWindows windows;
    return windows;
}

AnsiString Describe(const TComponent* app)
{
    AnsiString name = app->Name().empty() ? AnsiString("(unnamed)") : app->Name();
    if (app->Owner() && !app->Owner()->Name().empty())
        name = app->Owner()->Name() + "." + name;
    return name;
}

// Copies the items of one list into another under their Ids, protected.
template <class TList, class TCopy>
void MergeList(TList& target, const TList& source, bool replace, TCopy copy)
{
    target.BeginUpdate();
    try {
        if (replace)
            target.Clear();
        for (int i = 0; i < source.Count(); ++i) {
            auto* from = source.GetItems(i);
            auto* to = target.FindId(from->Id());
            if (!to)
                to = target.Add(from->Id());
            copy(*to, *from);
            to->SetProtected(true);
        }
    } catch (...) {
        target.EndUpdate();
        throw;
    }
    target.EndUpdate();
}

}  // namespace

TQzCApplication* QzCApp()
{
    const auto& apps = Applications();
    for (TQzCApplication* app : apps)
        if (app->Active())
            return app;
    return apps.empty() ? nullptr : apps.front();
}

const std::vector<TQzCApplication*>& QzCApplications()
{
    return Applications();
}

void SetQzProjectResolver(TQzProjectResolver resolver)
{
    ProjectResolver() = std::move(resolver);
}

void SetSystemPackagesProvider(TQzSystemPackagesProvider provider)
{
    Provider() = std::move(provider);
}

const TQzSystemPackagesProvider& QzSystemPackagesProvider()
{
    return Provider();
}

void SetQzStandardWindows(TQzStandardWindows windows)
{
    StandardWindows() = std::move(windows);
}

void QzMergeSystemStrings(TQzPkgStrings& target, const TQzPkgStrings& source, bool replace)
{
    TQzPkgInfo::TSystemUpdate allowed(target);
    MergeList(*target.Labels(), *source.Labels(), replace, [](TQzPkgStringsLabel& to, const TQzPkgStringsLabel& from) {
        to.SetText(from.Text());
        to.SetHint(from.Hint());
    });
    MergeList(*target.Messages(), *source.Messages(), replace,
              [](TQzPkgStringsMessage& to, const TQzPkgStringsMessage& from) { to.SetText(from.Text()); });
    MergeList(*target.Texts(), *source.Texts(), replace,
              [](TQzPkgStringsText& to, const TQzPkgStringsText& from) { to.SetText(from.Text()); });
}

void QzMergeSystemImages(TQzPkgImages& target, const TQzPkgImages& source, bool replace)
{
    TQzPkgInfo::TSystemUpdate allowed(target);
    MergeList(*target.Images(), *source.Images(), replace, [](TQzPkgImagesImage& to, const TQzPkgImagesImage& from) {
        to.Assign(const_cast<TQzPkgImagesImage*>(&from));
    });
}

// ---------------------------------------------------------------------------

void TQzCApplication::DeclareProperties(TClassBuilder<TQzCApplication>& b)
{
    b.Property("PkgDisplay", &TQzCApplication::PkgDisplay);
    b.Property("PkgLanguage", &TQzCApplication::PkgLanguage);
    b.Property("PkgSetup", &TQzCApplication::PkgSetup);
    b.Property("PkgVars", &TQzCApplication::PkgVars);
    b.Property("Privileges", &TQzCApplication::Privileges);
    b.Property("Path", &TQzCApplication::Path, &TQzCApplication::SetPath);
    b.Property("PathPkgVars", &TQzCApplication::PathPkgVars, &TQzCApplication::SetPathPkgVars);
    b.Property("PathPrivileges", &TQzCApplication::PathPrivileges, &TQzCApplication::SetPathPrivileges);
    b.Property("SystemEdit", &TQzCApplication::SystemEdit, &TQzCApplication::SetSystemEdit).Default(false);
}

TQzCApplication::TQzCApplication(TComponent* owner) : TComponent(owner)
{
    FProject = ProjectResolver() ? ProjectResolver()(this) : nullptr;
    for (TQzCApplication* other : Applications())
        if (other->FProject == FProject)
            throw EQzPkgError("A project holds one TQzCApplication only, and it has " + Describe(other) +
                              " already");
    FPkgDisplay = NewPackage<TQzPkgDisplay>("PkgDisplay");
    FPkgLanguage = NewPackage<TQzPkgLanguage>("PkgLanguage");
    FPkgSetup = NewPackage<TQzPkgSetup>("PkgSetup");
    FPkgVars = NewPackage<TQzPkgVars>("PkgVars");
    FPrivileges = NewPackage<TQzPkgPrivileges>("Privileges");
    auto& apps = Applications();
    FActive = std::none_of(apps.begin(), apps.end(), [](TQzCApplication* a) { return a->FActive; });
    apps.push_back(this);
}

template <class T>
T* TQzCApplication::NewPackage(const char* name)
{
    auto* pkg = new T(this);
    pkg->SetName(name);
    pkg->SetSubComponent(true);
    pkg->SetModified(false);
    return pkg;
}

// Out of the list first: while the packages go, QzCApp() must not return
// an application that is half destroyed.
TQzCApplication::~TQzCApplication()
{
    auto& apps = Applications();
    apps.erase(std::remove(apps.begin(), apps.end(), this), apps.end());
    if (FActive && !apps.empty())
        apps.front()->FActive = true;
    DestroyComponents();
}

void TQzCApplication::SetActive(bool value)
{
    if (value == FActive)
        return;
    if (value)
        for (TQzCApplication* other : Applications())
            other->FActive = false;
    FActive = value;
}

bool TQzCApplication::UpdateSystemPkgs(bool replace)
{
    const TQzSystemPackagesProvider& provider = Provider();
    if (!provider.Strings && !provider.Images)
        return false;
    TQzDetachedPkgs detached;
    if (provider.Strings) {
        TQzPkgStrings builtIn(nullptr);
        provider.Strings(builtIn);
        QzMergeSystemStrings(*FPkgLanguage->PkgSystem(), builtIn, replace);
    }
    if (provider.Images) {
        TQzPkgImages builtIn(nullptr);
        provider.Images(builtIn);
        QzMergeSystemImages(*FPkgDisplay->PkgSystem(), builtIn, replace);
    }
    return true;
}

// A display file carries its "System" images inside; a plain images
// package file is taken as those images.
void TQzCApplication::UpdateSystemPkgDisplay(const AnsiString& fileName, bool replace)
{
    TQzDetachedPkgs detached;
    TQzPkgDisplay display(nullptr);
    TQzPkgImages images(nullptr);
    const TQzPkgImages* source = display.PkgSystem();
    try {
        display.LoadFromFile(fileName);
    } catch (const Exception& first) {
        try {
            images.LoadFromFile(fileName);
        } catch (const Exception&) {
            throw EQzPkgError(first.Message());
        }
        source = &images;
    }
    QzMergeSystemImages(*FPkgDisplay->PkgSystem(), *source, replace);
    FPkgDisplay->SetLastUpdateFile(fileName);
    FPkgDisplay->SetUpdateDateTime(Now());
}

// A language file carries its "System" strings inside; a plain strings
// package file is taken as those strings.
void TQzCApplication::UpdateSystemPkgLanguage(const AnsiString& fileName, bool replace)
{
    TQzDetachedPkgs detached;
    TQzPkgLanguage language(nullptr);
    TQzPkgStrings strings(nullptr);
    const TQzPkgStrings* source = language.PkgSystem();
    try {
        language.LoadFromFile(fileName);
    } catch (const Exception& first) {
        try {
            strings.LoadFromFile(fileName);
        } catch (const Exception&) {
            throw EQzPkgError(first.Message());
        }
        source = &strings;
    }
    QzMergeSystemStrings(*FPkgLanguage->PkgSystem(), *source, replace);
    FPkgLanguage->SetLastUpdateFile(fileName);
    FPkgLanguage->SetUpdateDateTime(Now());
}

bool TQzCApplication::Calculator(int decimals, Extended& value)
{
    const auto& windows = StandardWindows();
    return windows.Calculator ? windows.Calculator(decimals, value) : false;
}

bool TQzCApplication::Calendar(TDateTime& value)
{
    const auto& windows = StandardWindows();
    return windows.Calendar ? windows.Calendar(value) : false;
}

// The packages were read in place; those kept in files of their own are
// read from them now.
void TQzCApplication::Loaded()
{
    TComponent::Loaded();
    for (TQzPkgInfo* pkg : {static_cast<TQzPkgInfo*>(FPkgDisplay), static_cast<TQzPkgInfo*>(FPkgLanguage),
                            static_cast<TQzPkgInfo*>(FPkgSetup), static_cast<TQzPkgInfo*>(FPkgVars),
                            static_cast<TQzPkgInfo*>(FPrivileges)})
        if (pkg)
            pkg->Loaded();
}

void TQzCApplication::Notification(TComponent* component, TOperation operation)
{
    TComponent::Notification(component, operation);
    if (operation != opRemove)
        return;
    if (component == FPkgDisplay)
        FPkgDisplay = nullptr;
    else if (component == FPkgLanguage)
        FPkgLanguage = nullptr;
    else if (component == FPkgSetup)
        FPkgSetup = nullptr;
    else if (component == FPkgVars)
        FPkgVars = nullptr;
    else if (component == FPrivileges)
        FPrivileges = nullptr;
}

void TQzCApplication::GetChildren(const TGetChildProc& proc, TComponent* root)
{
    if (root != this) {
        TComponent::GetChildren(proc, root);
        return;
    }
    for (int i = 0; i < ComponentCount(); ++i) {
        TComponent* c = Components(i);
        if (!c->ComponentStyle().Contains(csSubComponent) && !c->HasParent())
            proc(c);
    }
    for (int i = 0; i < ChildCount(); ++i)
        proc(Child(i));
}
