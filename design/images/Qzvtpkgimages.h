#pragma once
// TFrPkgImages: the images package editor. A grid of thumbnails in Id
// order, an Id box that finds an image, and the commands that add, modify,
// delete, import, protect and print the package's images. The editor owns
// no data: every command changes the package, rebuilds the grid, refreshes
// the status bar (UpdateInfo) and marks the change (Modified) unless the
// package lives in its own file, which is written when the editor closes.
//
// The same editor shows the two images packages of a display package; the
// display editor opens it embedded, and decides itself what is modified.

#include "design/images/QzImagesGrid.h"
#include "design/images/QzImagesPkgCommands.h"
#include "vcl/QzDialog.h"
#include "vcl/QzDialogs.h"

#include "ui_TFrPkgImages.h"

class QPrinter;

class TFrPkgImages : public TQzDialog, public Ui::TFrPkgImages, public TQzImagesPkgMenu {
    Q_OBJECT

public:
    explicit TFrPkgImages(QWidget* parent = nullptr);
    ~TFrPkgImages() override;

    // The package edited (null: every command does nothing).
    void SetPackage(TQzPkgImages* package) { FPackage = package; }
    TQzPkgImages* Package() const { return FPackage; }
    // Opened from the display editor: no package file commands, and no
    // marking of the form.
    void SetEmbedded(bool value) { FEmbedded = value; }
    bool Embedded() const { return FEmbedded; }

    // Runs the editor; writes the package's file (and the placement) when
    // it is closed.
    TModalResult Execute() override;
    // What Execute does before showing the window: the captions and
    // commands the package allows, its file read again when it changed on
    // disk, the grid filled. For previews and benchmarks that show the
    // window themselves.
    void Prepare();

    // Removes the row of image and frees the image, selecting as Delete
    // does; nothing when no row holds it (the packages manager cleans
    // images this way while the editor is open).
    void DeleteItem(TObject* image);

    // The commands, as the buttons and the menu run them.
    void BtAddClick();
    void BtModifyClick();
    void BtDeleteClick();
    void BtClearClick();
    void BtLoadClick();
    void BtSaveClick();
    void BtLoadFromClick();
    void BtSaveToClick();
    void BtReportClick();
    // The report written to a PDF file the user names, without a printer.
    void MnReportPdfClick();
    void BtManagerClick();
    void BtSynchronizerClick();
    void MnImportClick();
    void MnUpdateSystemImagesClick();
    void MnProtectAllImagesClick(bool protect);
    void MnWhereUsedClick();

    // Prints the thumbnails on printer (already set up).
    void PrintReport(QPrinter& printer);

    QAction* MnUpdateSystemImages;
    QAction* N4;
    QAction* MnWhereUsed;
    QAction* MnReportPdf;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void CreateMenus();
    void UpdateInfo();
    void UpdateFile();
    void LoadImages();
    void PkgChange();
    void IdChange();
    void ChangeState();
    void Modified();
    bool IsFilePkg() const;
    void AdjustComponents();
    void ImagesClick(int row);
    void RemoveRow(int row);
    void AfterChange();  // grid, state and status after the package changed
    bool IsSystemShown() const;

    TQzPkgImages* FPackage = nullptr;
    bool FEmbedded = false;
};

// Installs the images editor as the window the images package's editors
// open.
void RegisterQzvtpkgimages();
