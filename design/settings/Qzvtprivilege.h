#pragma once
// TFrPrivilege: picks the privilege a component asks of its users, or none,
// from the application's privileges package. The list can be searched by Id
// or description, and the package edited from here when the privilege
// wanted does not exist yet.

#include "rtl/System.h"
#include "vcl/QzDialog.h"

#include "ui_TFrPrivilege.h"

class TQzPkgPrivileges;
class TQzPrivilege;

class TFrPrivilege : public TQzDialog, public Ui::TFrPrivilege {
    Q_OBJECT

public:
    explicit TFrPrivilege(QWidget* parent = nullptr);

    using TQzDialog::Execute;
    // Shows the package's privileges with target's selected; on Ok target
    // takes the chosen Id (TQzPrivilege::IdNone for none) and the result is 1.
    int Execute(TQzPrivilege* target, TQzPkgPrivileges* package);

    // The Id of the selected row; IdNone for "(None)" or no row.
    Integer SelectedId() const;
    bool SelectId(Integer id);

private:
    void FillList();
    void BtEditClick();

    TQzPkgPrivileges* FPackage = nullptr;
};

// Installs the picker as the window the TQzPrivilege property editor opens.
void RegisterQzvtprivilege();
