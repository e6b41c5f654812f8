#pragma once
// The packages a project's references point into, read from disk: the
// package components kept in its forms (each form loaded without a window)
// and the package files in the project's folder. The first package of a
// name wins, forms before files, so a form's own package is the one the
// application would find.

#include "design/manager/QzManagerPackages.h"
#include "designide/FormDesigner.h"

#include <memory>
#include <utility>
#include <vector>

class TFolderProject;
class TQzPkgInfo;

class TQzProjectPackages final : public IQzManagerPackages {
public:
    // Raises, naming the file (and the line for a text form), when a form
    // or a package file cannot be read: every form is read here, before
    // anything else runs over the project.
    explicit TQzProjectPackages(TFolderProject& project);
    ~TQzProjectPackages() override;

    std::vector<AnsiString> PackageNames(TQzDlgManager kind) const override;
    TQzPkgStrings* FindStrings(const AnsiString& pkgName) const override;
    TQzPkgImages* FindImages(const AnsiString& pkgName) const override;
    TQzPkgDisplay* Display() const override { return FDisplay; }
    TQzPkgPrivileges* Privileges() const override { return FPrivileges; }

    // The file a package was read from, as the project's forms are named.
    AnsiString SourceOf(const TQzPkgInfo* pkg) const;
    // The form a package was read from as loaded, or nullptr for a package
    // read from a package file.
    TFormDesigner* FormOf(const TQzPkgInfo* pkg) const;

private:
    struct TFound {
        TQzPkgInfo* Package;
        AnsiString Source;
    };
    void TakeForm(const AnsiString& fileName, const std::string& text);
    void TakeFolderFiles(const AnsiString& folder);
    void Add(TQzPkgInfo* pkg, const AnsiString& source);
    template <class T>
    T* Find(const AnsiString& pkgName) const;

    std::vector<std::pair<AnsiString, std::unique_ptr<TFormDesigner>>> FForms;
    std::vector<std::unique_ptr<TQzPkgInfo>> FFiles;
    std::vector<TFound> FFound;
    TQzPkgDisplay* FDisplay = nullptr;
    TQzPkgPrivileges* FPrivileges = nullptr;
};
