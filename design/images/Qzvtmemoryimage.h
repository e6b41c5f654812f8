#pragma once
// TFrMemoryImage: chooses the image a TQzMemoryImage refers to, a package
// and an Id from the thumbnails of the active images packages, or no image
// (Null) or the reference's default (Default). It is the images editor
// made a chooser: images can be added, modified and deleted in the package
// shown. The choice is written into the memory image when the window
// closes with Ok; the image the reference has as its default is stored as
// "Default", so the reference keeps following its default.

#include "design/images/QzImagesGrid.h"
#include "design/images/QzImagesPkgCommands.h"
#include "vcl/QzDialog.h"

#include "ui_TFrMemoryImage.h"

class TQzMemoryImage;
class TQzPkgImages;

class TFrMemoryImage : public TQzDialog, public Ui::TFrMemoryImage, public TQzImagesPkgMenu {
    Q_OBJECT

public:
    explicit TFrMemoryImage(QWidget* parent = nullptr);
    ~TFrMemoryImage() override;

    void SetMemoryImage(TQzMemoryImage* memoryImage) { FMemoryImage = memoryImage; }
    TModalResult Execute() override;

    // The package shown (null when the name chosen has none).
    TQzPkgImages* Package() const { return FPackage; }

    // The commands, as the buttons and the menu run them.
    void BtAddClick();
    void BtModifyClick();
    void BtDeleteClick();
    void BtManagerClick();
    void BtNullClick();
    void BtDefaultClick();
    void MnImportClick();
    void MnProtectAllImagesClick(bool protect);

    void done(int result) override;

private:
    void PkgChange();
    void LoadImages();
    void IdChange();
    void ImagesClick();
    void ChangeState();
    void UpdateInfo();
    void Modified();
    void SaveShownFile();
    // The grid, the selection of the Id and the status after a change.
    void AfterChange(Integer selectId);
    void CloseWith(Integer id);

    TQzMemoryImage* FMemoryImage = nullptr;
    TQzPkgImages* FPackage = nullptr;
    // Null and Default close with an Id the Id box cannot hold.
    Integer FClosingId = 0;
    bool FClosingSpecial = false;
};

// Installs the chooser as the window the memory image property opens.
void RegisterQzvtmemoryimage();
