#pragma once
// TFrUpdateSystemImages: refreshes the application's "System" images from
// a display file (the installation's Standard.dis by default).

#include "vcl/QzDialog.h"

#include "ui_TFrUpdateSystemImages.h"

class TQzCApplication;

class TFrUpdateSystemImages : public TQzDialog, public Ui::TFrUpdateSystemImages {
    Q_OBJECT

public:
    explicit TFrUpdateSystemImages(QWidget* parent = nullptr);

    void SetApplication(TQzCApplication* application) { FApplication = application; }
    // mrOk once the images were refreshed.
    TModalResult Execute() override;

    void BtBrowseClick();
    void BtOkClick();

private:
    TQzCApplication* FApplication = nullptr;
};
