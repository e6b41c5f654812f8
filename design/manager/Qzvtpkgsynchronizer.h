#pragma once
// TFrPkgSynchronizer: makes the item sets of the edited package and package
// files of the application folder agree. "Synchronize to" takes the edited
// package as the master of the files listed under "Packages To
// Synchronize:"; "Synchronize from" takes a file as the master of the
// edited package. The work itself is QzPkgSynchronizerLogic's.
//
// Apply runs and keeps the window open; Ok runs first when there is
// something not yet applied, and stays open when that run fails, so the
// user reads the message beside the settings that caused it.

#include "design/manager/QzPkgSynchronizerLogic.h"

#include "vcl/QzDialog.h"

#include "ui_TFrPkgSynchronizer.h"

class QWidget;

class TFrPkgSynchronizer : public TQzDialog, public Ui::TFrPkgSynchronizer, public IQzSyncProgress {
    Q_OBJECT

public:
    explicit TFrPkgSynchronizer(QWidget* parent = nullptr);

    // The folder whose package files are offered; by default the
    // application's (its Path, else the program's folder).
    void SetPathApp(const AnsiString& folder);
    const AnsiString& PathApp() const { return FPathApp; }

    using TQzDialog::Execute;
    // Runs the window on pkg (strings, images, display or language).
    TModalResult Execute(TQzPkgInfo* pkg);
    // Whether a run of this window wrote anything.
    bool Written() const { return FWritten; }

    // The commands, as the buttons run them.
    void SBFromClick();
    void SBToClick();
    void SBSearchClick();
    void BtAppendClick();
    void BtDeleteClick();
    void BtAppendAllClick();
    void BtDeleteAllClick();
    // Runs the synchronization; false (with the message shown) when it failed.
    bool BtApplyClick();
    void BtOkClick();

    TQzSyncOptions Options() const;

    void SyncBegin(int total) override;
    void SyncStep() override;

private:
    bool IsTo() const { return PageControl->currentWidget() == TS2; }
    void FillFileList();
    void MoveItems(QListWidget* from, QListWidget* to, bool all);
    // Something changed that Apply has not run on yet.
    void SettingsChanged();
    void ChangeState();
    bool Synchronize();
    AnsiString MasterFile() const;

    TQzPkgInfo* FPackage = nullptr;
    AnsiString FPathApp;
    bool FPending = false;
    bool FWritten = false;
    int FPosition = 0;
};

// Opens TFrPkgSynchronizer for pkg's kind (strings, images, display,
// language); returns 1 when it wrote files.
int QzExecutePkgSynchronizer(TQzPkgInfo* pkg, QWidget* parent = nullptr);
