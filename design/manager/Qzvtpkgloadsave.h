#pragma once
// TFrPkgLoadSave: where the user picks the file a package is loaded from or
// saved to, its description and its storage mode (kept in the form, "DFM",
// or in its own file, "FILE"). The package editors open it from their Load
// and Save commands. The decisions are QzPkgLoadSaveRules'; the window
// shows the choices and asks before anything is replaced.

#include "design/manager/QzPkgLoadSaveRules.h"
#include "vcl/QzDialog.h"
#include "vcl/QzDialogs.h"

#include "ui_TFrPkgLoadSave.h"

class TFrPkgLoadSave : public TQzDialog, public Ui::TFrPkgLoadSave {
    Q_OBJECT

public:
    explicit TFrPkgLoadSave(QWidget* parent = nullptr);

    void SetPackage(TQzPkgInfo* package) { FPackage = package; }
    void SetDirection(TQzLoadSave direction) { FDirection = direction; }
    // false hides the storage-mode row (the package's mode is kept).
    void SetShowInitMode(bool show) { FShowInitMode = show; }

    TModalResult Execute() override;

    // The chosen file, as the file list and the search button give it.
    void FileListChange();
    void BtSearchClick();
    // Ok: true when the dialog may close.
    bool FormCloseQuery();

    void accept() override;

private:
    void FillFileList();
    void ShowFile(const AnsiString& fileName);
    void PaintAsButtonFace(QWidget* edit);
    TQzRegisterInitMode ChosenMode() const;

    TQzPkgInfo* FPackage = nullptr;
    TQzLoadSave FDirection = TQzLoadSave::Load;
    bool FShowInitMode = true;
    AnsiString FFolder;
};

// Runs TFrPkgLoadSave on pkg (any package); true when a file was loaded
// into pkg or pkg was written (the user confirmed Ok and it succeeded).
// showInitMode=false hides the storage-mode row.
bool QzExecutePkgLoadSave(TQzPkgInfo* pkg, TQzLoadSave direction, QWidget* parent = nullptr,
                          bool showInitMode = true);

// What the package editors' Load From and Save To ask the file dialog for:
// the package's own kind of file first (kindCaption "Package Images" gives
// "Package Images (*.pim)"), then all files.
TQzFileRequest QzPkgFileRequest(const TQzPkgInfo& pkg, const AnsiString& kindCaption, const AnsiString& title,
                                QWidget* parent);
