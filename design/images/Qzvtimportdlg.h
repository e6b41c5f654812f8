#pragma once
// TFrImportDlg: asks for the first Id the imported images take.

#include "rtl/System.h"
#include "vcl/QzDialog.h"

#include "ui_TFrImportDlg.h"

class TFrImportDlg : public TQzDialog, public Ui::TFrImportDlg {
    Q_OBJECT

public:
    explicit TFrImportDlg(QWidget* parent = nullptr);

    // The Id typed; 0 when the box is empty.
    Integer StartId() const;
    void SetStartId(Integer id);
};
