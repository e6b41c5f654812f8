#pragma once
// TFrPrivileges: the privileges package editor. Privileges are added,
// renumbered, renamed and deleted in place; Ids stay unique, a taken Id is
// refused with the privilege that holds it. Where Used asks the packages
// manager which components ask for the selected privilege. The package's
// key is typed in its own box and reaches the package on Ok. Cancel gives
// the package back as it was when the editor opened.

#include "design/settings/QzPrivilegesLogic.h"
#include "vcl/QzDialog.h"

#include "ui_TFrPrivileges.h"

#include <memory>

class TFrPrivileges : public TQzDialog, public Ui::TFrPrivileges {
    Q_OBJECT

public:
    explicit TFrPrivileges(QWidget* parent = nullptr);
    ~TFrPrivileges() override;

    using TQzDialog::Execute;
    // Runs the editor on package; 1 when the user pressed Ok. An accepted
    // change marks the owning form modified, or is written to the
    // package's own file when it has one.
    int Execute(TQzPkgPrivileges* package);

    TQzPkgPrivilegesItem* Selected() const;
    bool Select(const TQzPkgPrivilegesItem* item);

    // The commands, as the buttons run them.
    void BtAddClick();
    void BtDeleteClick();
    void BtWhereUsedClick();
    void BtLoadClick();
    void BtSaveClick();
    void BtDescriptionIdClick();

protected:
    bool FormKeyPress(QKeyEvent* event) override;

private:
    void FillList();
    void ShowItem();
    void UpdateInfo();
    void EdIdEditingFinished();
    // Runs change on the selected privilege and shows the result.
    void ChangeSelected(const std::function<void(TQzPkgPrivilegesItem&)>& change);
    void Modified();

    TQzPkgPrivileges* FPackage = nullptr;
    std::unique_ptr<TQzPrivilegesSnapshot> FSnapshot;
    bool FShowing = false;
};

// Installs the editor as the window the application's Privileges property
// and the privileges component open.
void RegisterQzvtprivileges();
