#pragma once
// TFrScrollBars: the sample of the suite's scroll bars. A grid scrolls under
// a horizontal and a vertical bar; the settings change either bar's range,
// page and steps, kept consistent as the bar itself keeps them.

#include "vcl/QzDialog.h"

#include "ui_TFrScrollBars.h"

#include "design/controls/QzScrollBarValues.h"

class TQzPreviewPane;

class TFrScrollBars : public TQzDialog, public Ui::TFrScrollBars {
    Q_OBJECT

public:
    explicit TFrScrollBars(QWidget* parent = nullptr);

    using TQzDialog::Execute;
    // Shows the sample titled caption until it is closed.
    void Execute(const AnsiString& caption);

    TQzScrollBarValues Values(Qt::Orientation kind) const;
    void SetValues(Qt::Orientation kind, const TQzScrollBarValues& values);

private:
    QScrollBar* Bar(Qt::Orientation kind) const;
    Qt::Orientation EditedKind() const;
    void ShowSettings();
    void SettingsChanged();
    void PositionChanged();
    void PaintSample(QPainter& painter);

    TQzScrollBarValues FHorizontal;
    TQzScrollBarValues FVertical;
    TQzPreviewPane* FSample = nullptr;
    bool FShowing = false;
};

void RegisterQzvtscrollbars();
