#pragma once
// TFrManager: the packages manager. It finds every reference of the
// project's forms (and of the application's sets and privileges) to one
// package item, display set or privilege, lists them as a check list, and
// replaces or clears the checked ones; Scan Counter lists every reference
// of a kind instead and marks those whose item does not exist. The work
// is TQzManagerLogic's; the window asks, shows and reports.
//
// Changes go to the forms open in the designer (forms not open are opened):
// each changed form is marked modified once per run, so a host that keeps
// an undo history makes the run one step of each form's history.

#include "design/manager/QzManagerLogic.h"

#include "vcl/QzDialog.h"

#include "ui_Qzvtmanager.h"

#include <memory>
#include <vector>

class TFrManagerProgress;
class TQzCheckListModel;
class TProjectServices;
class IDesigner;

class TFrManager : public TQzDialog, public Ui::TFrManager {
    Q_OBJECT

public:
    TFrManager(TProjectServices& project, IQzManagerPackages& packages, QWidget* parent = nullptr);
    ~TFrManager() override;

    using TQzDialog::Execute;
    // The entry the package editors and the host call: presets the kind,
    // the package and the value (an Id, a set's name) and runs the window.
    TModalResult Execute(TQzDlgManager kind, const AnsiString& pkgName, const AnsiString& value);

    TQzDlgManager Kind() const { return FKind; }
    TQzManagerRun LastRun() const { return FLastRun; }
    // The rows of the list, in the order found; a scan's rows are counts
    // that exist.
    const std::vector<TQzTokenRec2>& Rows() const { return FRows; }
    TQzCheckListModel* Hits() const { return FHits; }
    TFrManagerProgress* Progress() const { return FProgress; }

    void BtScanClick();
    void BtReplaceClick();
    void BtClearClick();
    void BtCounterClick();
    // The current row's component is selected in its form's designer.
    void clbClick();
    void clbClickCheck();
    // "Found: N Selected: M".
    void UpdateInfo();
    void ClearListBox();

private:
    void SetKind(TQzDlgManager kind);
    void ShowRows(std::vector<TQzTokenRec2> rows, TQzManagerRun run);
    std::vector<const TQzTokenRec1*> CheckedHits() const;
    // What Replace and Clear tell the user afterwards.
    void ReportChanges(int changed);
    void FormChanged(const AnsiString& formFile, TComponent* root);
    IDesigner* FindDesigner(const AnsiString& formFile) const;
    void UpdateButtons();

    TProjectServices& FProject;
    IQzManagerPackages& FPackages;
    TFrManagerProgress* FProgress;
    std::unique_ptr<TQzManagerLogic> FLogic;
    TQzCheckListModel* FHits;
    std::vector<TQzTokenRec2> FRows;
    TQzDlgManager FKind = TQzDlgManager::Labels;
    TQzManagerRun FLastRun = TQzManagerRun::None;
    // Whether new rows start checked (the list's context menu sets it): by
    // default they do, since what is found is usually what is changed.
    bool FCheckAll = true;
};
