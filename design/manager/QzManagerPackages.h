#pragma once
// Where the packages manager finds the packages that references name: the
// strings and images packages by name, the display package with its sets,
// and the privileges. The default is the running application (the
// registered packages and QzCApp()); the command line supplies the
// packages of a project it read from disk.

#include "design/manager/QzManagerKinds.h"

#include "rtl/System.h"

#include <vector>

class TQzPkgStrings;
class TQzPkgImages;
class TQzPkgDisplay;
class TQzPkgPrivileges;

class IQzManagerPackages {
public:
    virtual ~IQzManagerPackages() = default;
    // The package names a reference of kind may name, sorted without
    // regard to case and without repeats: the active strings packages for
    // labels, texts and messages, the active images packages for images;
    // none for the set kinds and privileges.
    virtual std::vector<AnsiString> PackageNames(TQzDlgManager kind) const = 0;
    // The package of that name (any case), or nullptr.
    virtual TQzPkgStrings* FindStrings(const AnsiString& pkgName) const = 0;
    virtual TQzPkgImages* FindImages(const AnsiString& pkgName) const = 0;
    // The application's display package and privileges, or nullptr.
    virtual TQzPkgDisplay* Display() const = 0;
    virtual TQzPkgPrivileges* Privileges() const = 0;
};

// The running application's packages.
class TQzRuntimePackages final : public IQzManagerPackages {
public:
    std::vector<AnsiString> PackageNames(TQzDlgManager kind) const override;
    TQzPkgStrings* FindStrings(const AnsiString& pkgName) const override;
    TQzPkgImages* FindImages(const AnsiString& pkgName) const override;
    TQzPkgDisplay* Display() const override;
    TQzPkgPrivileges* Privileges() const override;
};

// Whether the item a reference of kind names exists: a label, text or
// message of the strings package pkgName, an image of the images package,
// a set of the display package by name (pkgName unused), a privilege by Id.
// An Id that is not a number, or a missing package, is an item that does
// not exist.
bool QzItemExists(const IQzManagerPackages& packages, TQzDlgManager kind, const AnsiString& pkgName,
                  const AnsiString& value);
