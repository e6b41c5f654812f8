#pragma once
// TFrUpdateSystemStrings: refreshes the application's "System" strings from
// a language file (the installation's base language file by default).

#include "vcl/QzDialog.h"

#include "ui_TFrUpdateSystemStrings.h"

class TQzCApplication;

class TFrUpdateSystemStrings : public TQzDialog, public Ui::TFrUpdateSystemStrings {
    Q_OBJECT

public:
    explicit TFrUpdateSystemStrings(QWidget* parent = nullptr);

    void SetApplication(TQzCApplication* application) { FApplication = application; }
    // mrOk once the strings were refreshed.
    TModalResult Execute() override;

    void BtBrowseClick();
    void BtOkClick();

private:
    TQzCApplication* FApplication = nullptr;
};
