#pragma once
// TFrManagerRepl: what the packages manager's Replace asks for: the package
// and the value the checked references will name instead. The package is
// offered from the active packages of the kind and may be typed; the set
// kinds have no package.

#include "design/manager/QzManagerKinds.h"

#include "vcl/QzDialog.h"

#include "ui_Qzvtmanagerrepl.h"

#include <vector>

class TFrManagerRepl : public TQzDialog, public Ui::TFrManagerRepl {
    Q_OBJECT

public:
    TFrManagerRepl(TQzDlgManager kind, const std::vector<AnsiString>& packages, QWidget* parent = nullptr);

    using TQzDialog::Execute;
    // Opens on pkgName and value; mrOk when the user accepted a package and
    // value that make a reference of the kind.
    TModalResult Execute(const AnsiString& pkgName, const AnsiString& value);

    AnsiString PkgName() const;
    AnsiString Value() const;

    // Refuses, with the reason, what would make no reference; else closes.
    void BtOkClick();

private:
    TQzDlgManager FKind;
};
