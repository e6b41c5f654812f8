#pragma once
// TQzCApplication: the one application object of a project. It carries the
// project-wide packages (display, language, setup, variables, privileges)
// as published properties, the folders package files are found in, and
// the permission to change the suite's own "System" packages.

#include "runtime/model/QzPkgDisplay.h"
#include "runtime/model/QzPkgLanguage.h"
#include "runtime/model/QzPkgPrivileges.h"
#include "runtime/model/QzPkgSetup.h"
#include "runtime/model/QzPkgVars.h"

#include <functional>
#include <vector>

class TQzCApplication : public TComponent {
    QZ_CLASS(TQzCApplication, TComponent)

public:
    // Raises EQzPkgError when the project already has an application.
    explicit TQzCApplication(TComponent* owner);
    ~TQzCApplication() override;

    TQzPkgDisplay* PkgDisplay() const { return FPkgDisplay; }
    TQzPkgLanguage* PkgLanguage() const { return FPkgLanguage; }
    TQzPkgSetup* PkgSetup() const { return FPkgSetup; }
    TQzPkgVars* PkgVars() const { return FPkgVars; }
    TQzPkgPrivileges* Privileges() const { return FPrivileges; }

    // Where package files are looked for; the variables and privileges
    // files may have folders of their own.
    const AnsiString& Path() const { return FPath; }
    void SetPath(const AnsiString& value) { FPath = value; }
    const AnsiString& PathPkgVars() const { return FPathPkgVars; }
    void SetPathPkgVars(const AnsiString& value) { FPathPkgVars = value; }
    const AnsiString& PathPrivileges() const { return FPathPrivileges; }
    void SetPathPrivileges(const AnsiString& value) { FPathPrivileges = value; }

    // While set, the "System" strings and images may be changed.
    bool SystemEdit() const { return FSystemEdit; }
    void SetSystemEdit(bool value) { FSystemEdit = value; }

    // The active application is the one QzCApp() returns; making one active
    // makes the others inactive.
    bool Active() const { return FActive; }
    void SetActive(bool value);

    // Refreshes the "System" strings and images from the built-in data
    // (SetSystemPackagesProvider). With replace the packages become exactly
    // the built-in data; without, the built-in items are written over the
    // items of the same Id and the others stay. The refreshed items are
    // protected. False when no built-in data is installed.
    bool UpdateSystemPkgs(bool replace);
    // The same from a display file (its "System" images) or a language file
    // (its "System" strings), read through the installed package file
    // format; records the file and the time in the display or language
    // package. Raises (naming the file) and changes nothing when the file
    // cannot be read.
    void UpdateSystemPkgDisplay(const AnsiString& fileName, bool replace);
    void UpdateSystemPkgLanguage(const AnsiString& fileName, bool replace);

    // The runtime's calculator and calendar windows, through the hooks the
    // windows install (SetQzStandardWindows). Without them they show
    // nothing and return false; with them, true when the user accepted.
    bool Calculator(int decimals, Extended& value);
    bool Calendar(TDateTime& value);

    void Loaded() override;
    void Notification(TComponent* component, TOperation operation) override;
    // The packages are written in place as properties, not as children.
    void GetChildren(const TGetChildProc& proc, TComponent* root) override;

private:
    static void DeclareProperties(TClassBuilder<TQzCApplication>& b);
    template <class T>
    T* NewPackage(const char* name);

    TQzPkgDisplay* FPkgDisplay = nullptr;
    TQzPkgLanguage* FPkgLanguage = nullptr;
    TQzPkgSetup* FPkgSetup = nullptr;
    TQzPkgVars* FPkgVars = nullptr;
    TQzPkgPrivileges* FPrivileges = nullptr;
    AnsiString FPath;
    AnsiString FPathPkgVars;
    AnsiString FPathPrivileges;
    bool FSystemEdit = false;
    bool FActive = false;
    const void* FProject = nullptr;
};

// The active application, or nullptr when none exists.
TQzCApplication* QzCApp();
// Every application alive, in creation order.
const std::vector<TQzCApplication*>& QzCApplications();

// Which project an application belongs to: a project holds one application
// at most. The designer host, which can hold several projects, installs a
// resolver; without one the whole process is one project.
using TQzProjectResolver = std::function<const void*(const TComponent* application)>;
void SetQzProjectResolver(TQzProjectResolver resolver);

// The built-in "System" data, installed by the runtime's system unit: each
// fills an empty package.
struct TQzSystemPackagesProvider {
    std::function<void(TQzPkgStrings& target)> Strings;
    std::function<void(TQzPkgImages& target)> Images;
};
void SetSystemPackagesProvider(TQzSystemPackagesProvider provider);
const TQzSystemPackagesProvider& QzSystemPackagesProvider();

// The runtime's calculator and calendar windows, installed by the windows'
// unit.
struct TQzStandardWindows {
    std::function<bool(int decimals, Extended& value)> Calculator;
    std::function<bool(TDateTime& value)> Calendar;
};
void SetQzStandardWindows(TQzStandardWindows windows);

// Writes source's items into target under their Ids, protected: with
// replace target ends holding exactly source's items. Used to refresh the
// "System" packages; bypasses the system-editing guard.
void QzMergeSystemStrings(TQzPkgStrings& target, const TQzPkgStrings& source, bool replace);
void QzMergeSystemImages(TQzPkgImages& target, const TQzPkgImages& source, bool replace);
