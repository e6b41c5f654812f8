#pragma once
// TFrCommonWnds: how the application's common windows look (the message
// boxes of every kind the suite shows). Their margins, title row and button
// row are the display package's; the sample draws the window chosen in the
// list with them and with the package's sets, as the running application
// will. Nothing reaches the package before OK.

#include "vcl/QzDialog.h"

#include "ui_TFrCommonWnds.h"

#include "design/controls/QzDisplayPreview.h"

class TFrCommonWnds : public TQzDialog, public Ui::TFrCommonWnds {
    Q_OBJECT

public:
    explicit TFrCommonWnds(QWidget* parent = nullptr);

    void SetDisplay(TQzPkgDisplay* display);
    // mrOk when the settings were written to the display package.
    TModalResult Execute() override;

    TQzDisplayGeometry Geometry() const;
    // The samples, in the list's order.
    static const std::vector<TQzCommonWndSample>& Samples();

    void accept() override;

private:
    struct TEdit {
        QSpinBox* Edit;
        Integer TQzDisplayGeometry::*Field;
    };
    std::vector<TEdit> Edits() const;
    void PaintPreview(QPainter& painter);

    TQzPkgDisplay* FDisplay = nullptr;
    TQzDisplayGeometry FGeometry;
    TQzPreviewPane* FPreview = nullptr;
};

void RegisterQzvtcommonwnds();
