#pragma once
// Property editors of the packages themselves: the application's package
// properties and the package components' FileName. Each shows the
// package's description and where it is kept, and opens the package's
// own editor.

#include "design/reg/QzEditorDialogs.h"
#include "designide/DesignEditors.h"

class TQzPkgInfo;

// "<description> (FILE)" or "(DFM)" alone when there is no description.
AnsiString QzPkgStorageText(const TQzPkgInfo* pkg);

// The application's PkgSetup, PkgLanguage, PkgDisplay and PkgVars.
class TQzCApplicationPkgProperty : public TClassProperty {
public:
    using TClassProperty::TClassProperty;
    TPropertyAttributes GetAttributes() override;
    AnsiString GetValue() override;
    void Edit() override;

protected:
    virtual TQzEditorDialog DialogKind() const = 0;
    // Whether the dialog gets the package object itself rather than the
    // application it belongs to.
    virtual bool PassesPackage() const { return false; }
};

class TQzCApplicationPkgSetupProperty : public TQzCApplicationPkgProperty {
public:
    using TQzCApplicationPkgProperty::TQzCApplicationPkgProperty;

protected:
    TQzEditorDialog DialogKind() const override { return TQzEditorDialog::Setup; }
};

class TQzCApplicationPkgLanguageProperty : public TQzCApplicationPkgProperty {
public:
    using TQzCApplicationPkgProperty::TQzCApplicationPkgProperty;

protected:
    TQzEditorDialog DialogKind() const override { return TQzEditorDialog::Language; }
};

class TQzCApplicationPkgDisplayProperty : public TQzCApplicationPkgProperty {
public:
    using TQzCApplicationPkgProperty::TQzCApplicationPkgProperty;

protected:
    TQzEditorDialog DialogKind() const override { return TQzEditorDialog::Display; }
};

class TQzCApplicationPkgVarsProperty : public TQzCApplicationPkgProperty {
public:
    using TQzCApplicationPkgProperty::TQzCApplicationPkgProperty;

protected:
    TQzEditorDialog DialogKind() const override { return TQzEditorDialog::PkgVars; }
    bool PassesPackage() const override { return true; }
};

// The application's Privileges: "(TQzPkgPrivileges)", and the privileges
// editor.
class TQzCApplicationPrivilegesProperty : public TClassProperty {
public:
    using TClassProperty::TClassProperty;
    TPropertyAttributes GetAttributes() override;
    AnsiString GetValue() override;
    void Edit() override;
};

// A package component's FileName: the package's storage, and its editor.
class TQzPkgFileNameProperty : public TStringProperty {
public:
    using TStringProperty::TStringProperty;
    TPropertyAttributes GetAttributes() override;
    AnsiString GetValue() override;
    void Edit() override;

protected:
    virtual TQzEditorDialog DialogKind() const = 0;
};

class TQzPkgImagesFileNameProperty : public TQzPkgFileNameProperty {
public:
    using TQzPkgFileNameProperty::TQzPkgFileNameProperty;

protected:
    TQzEditorDialog DialogKind() const override { return TQzEditorDialog::PkgImages; }
};

class TQzPkgStringsFileNameProperty : public TQzPkgFileNameProperty {
public:
    using TQzPkgFileNameProperty::TQzPkgFileNameProperty;

protected:
    TQzEditorDialog DialogKind() const override { return TQzEditorDialog::PkgStrings; }
};

class TQzPkgVarsFileNameProperty : public TQzPkgFileNameProperty {
public:
    using TQzPkgFileNameProperty::TQzPkgFileNameProperty;

protected:
    TQzEditorDialog DialogKind() const override { return TQzEditorDialog::PkgVars; }
};
