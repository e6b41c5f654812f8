#pragma once
// TFrImportImages: copies images from another images package file into the
// package being edited. The source is read into a package of the window's
// own, never a live component; the rows chosen take free Ids of the target
// from the first Id the user asks for (TFrImportDlg).
//
// The last source file and the window's bounds are remembered for as long
// as the design package stays loaded, so a second import starts where the
// first left off.

#include "design/images/QzImagesGrid.h"
#include "design/images/QzImagesViewMenu.h"
#include "vcl/QzDialog.h"
#include "vcl/QzDialogs.h"

#include "ui_TFrImportImages.h"

#include <memory>

class TFrImportImages : public TQzDialog, public Ui::TFrImportImages, public TQzImagesViewActions {
    Q_OBJECT

public:
    explicit TFrImportImages(QWidget* parent = nullptr);
    ~TFrImportImages() override;

    void SetTarget(TQzPkgImages* target) { FTarget = target; }
    // mrOk when the window was closed with Ok (and the chosen rows, if any,
    // were imported).
    TModalResult Execute() override;

    TQzPkgImages* Source() const { return PkgImages.get(); }

    void BtLoadClick();
    void BtLoadFromClick();
    void BtOkClick();

    // The file the last import read from (empty when none); a test starts
    // afresh by clearing it.
    static AnsiString LastFileName();
    static void SetLastFileName(const AnsiString& name);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void LoadImages();
    void UpdateInfo();
    void AdjustComponents();
    void SourceLoaded(const AnsiString& fileName);

    std::unique_ptr<TQzPkgImages> PkgImages;
    TQzPkgImages* FTarget = nullptr;
};
