#pragma once
// TFrMaskExamples: the list of ready-made masks the mask editor offers.

#include "vcl/QzDialog.h"

#include "ui_TFrMaskExamples.h"

class TFrMaskExamples : public TQzDialog, public Ui::TFrMaskExamples {
    Q_OBJECT

public:
    explicit TFrMaskExamples(QWidget* parent = nullptr);

    // Unlike other dialogs, answers the index of the chosen example, or -1
    // when cancelled or nothing was chosen.
    int Execute() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void PlaceButtons();
};
