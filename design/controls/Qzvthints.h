#pragma once
// TFrHints: how the application's hints look. The margins around a hint's
// text and whether a hint takes the shape of its background picture are
// the display package's; the preview draws a sample hint with them and with
// the package's hint sets, as the running application will, on a sample
// text typed or taken from a label of the project. Nothing reaches the
// package before OK.

#include "vcl/QzDialog.h"

#include "ui_TFrHints.h"

#include "runtime/model/QzMemory.h"
#include "runtime/model/QzPkgDisplay.h"

class TQzPreviewPane;

class TFrHints : public TQzDialog, public Ui::TFrHints {
    Q_OBJECT

public:
    explicit TFrHints(QWidget* parent = nullptr);

    void SetDisplay(TQzPkgDisplay* display);
    // mrOk when the settings were written to the display package.
    TModalResult Execute() override;

    // The geometry as the controls hold it now.
    TQzDisplayGeometry Geometry() const;

    void accept() override;

private:
    void PaintPreview(QPainter& painter);
    // Takes the sample from a label the user picks: its hint, or its text
    // when it has no hint.
    void BtLabelClick();

    TQzPkgDisplay* FDisplay = nullptr;
    TQzDisplayGeometry FGeometry;
    TQzPreviewPane* FPreview = nullptr;
    TQzMemoryLabel FSampleLabel;
};

void RegisterQzvthints();
