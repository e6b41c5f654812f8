#pragma once
// TFrOpenFiles: picks one file of a kind (a mask such as "*.lan") in a
// folder, where the name may also be typed: a translation that does not
// exist yet is a file to be written, so a new name is accepted too.

#include "rtl/SysUtils.h"
#include "vcl/QzDialog.h"

#include "ui_TFrOpenFiles.h"

class TFrOpenFiles : public TQzDialog, public Ui::TFrOpenFiles {
    Q_OBJECT

public:
    explicit TFrOpenFiles(QWidget* parent = nullptr);

    // Shows the files of folder that match mask; returns mrOk when a file
    // was chosen, its full name then in FileName().
    using TQzDialog::Execute;
    TModalResult Execute(const AnsiString& folder, const AnsiString& mask);
    const AnsiString& FileName() const { return FFileName; }

    // Lists folder's files again (the folder edit changed or was chosen).
    void FillList();

protected:
    void accept() override;

private:
    void SBFolderClick();
    void FileListChange();

    AnsiString FMask;
    AnsiString FFileName;
};
