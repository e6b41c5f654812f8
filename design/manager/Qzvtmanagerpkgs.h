#pragma once
// TFrManagerPkgs: the packages whose references Scan Counter counts, all
// checked at first; the user leaves out the ones not wanted.

#include "vcl/QzDialog.h"

#include "rtl/System.h"

#include "ui_Qzvtmanagerpkgs.h"

#include <vector>

class TFrManagerPkgs : public TQzDialog, public Ui::TFrManagerPkgs {
    Q_OBJECT

public:
    explicit TFrManagerPkgs(QWidget* parent = nullptr);

    using TQzDialog::Execute;
    // Lists packages, every one checked; mrOk when the user accepted.
    TModalResult Execute(const std::vector<AnsiString>& packages);

    // The checked packages, in the list's order.
    std::vector<AnsiString> Selected() const;
};
