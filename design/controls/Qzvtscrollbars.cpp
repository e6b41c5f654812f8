#include "design/controls/Qzvtscrollbars.h"

#include "design/controls/QzDisplayPreview.h"
#include "design/reg/QzEditorDialogs.h"

#include "vcl/QzQtString.h"

#include <QApplication>
#include <QPainter>

#include <array>

namespace {

constexpr int CellSize = 40;

std::array<QSpinBox*, 6> SettingEdits(const Ui::TFrScrollBars& ui)
{
    return {ui.EdMin, ui.EdMax, ui.EdPageSize, ui.EdSmallChange, ui.EdLargeChange, ui.EdPosition};
}

}  // namespace

TFrScrollBars::TFrScrollBars(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    FSample = new TQzPreviewPane(GBSample);
    FSample->setMinimumSize(240, 200);
    FSample->OnPaint = [this](QPainter& painter) { PaintSample(painter); };
    LaySample->addWidget(FSample, 0, 0);
    FHorizontal = {0, 30, 5, 1, 5, 0};
    FVertical = {0, 50, 5, 1, 5, 0};
    SetValues(Qt::Horizontal, FHorizontal);
    SetValues(Qt::Vertical, FVertical);
    for (QSpinBox* edit : SettingEdits(*this))
        connect(edit, &QSpinBox::editingFinished, this, &TFrScrollBars::SettingsChanged);
    connect(RBHorizontal, &QRadioButton::toggled, this, &TFrScrollBars::ShowSettings);
    connect(SBHorizontal, &QScrollBar::valueChanged, this, &TFrScrollBars::PositionChanged);
    connect(SBVertical, &QScrollBar::valueChanged, this, &TFrScrollBars::PositionChanged);
    connect(BtClose, &QPushButton::clicked, this, &TFrScrollBars::accept);
    ShowSettings();
    PositionChanged();
}

void TFrScrollBars::Execute(const AnsiString& caption)
{
    if (!caption.empty())
        setWindowTitle(QzQString(caption));
    Execute();
}

QScrollBar* TFrScrollBars::Bar(Qt::Orientation kind) const
{
    return kind == Qt::Horizontal ? SBHorizontal : SBVertical;
}

Qt::Orientation TFrScrollBars::EditedKind() const
{
    return RBHorizontal->isChecked() ? Qt::Horizontal : Qt::Vertical;
}

TQzScrollBarValues TFrScrollBars::Values(Qt::Orientation kind) const
{
    TQzScrollBarValues v = kind == Qt::Horizontal ? FHorizontal : FVertical;
    v.Position = Bar(kind)->value();
    return v;
}

void TFrScrollBars::SetValues(Qt::Orientation kind, const TQzScrollBarValues& values)
{
    const TQzScrollBarValues v = QzNormalScrollBar(values);
    (kind == Qt::Horizontal ? FHorizontal : FVertical) = v;
    QScrollBar* bar = Bar(kind);
    // The slider's length shows the page; without one, the large change.
    bar->setRange(v.Min, QzScrollBarLastPosition(v));
    bar->setSingleStep(v.SmallChange);
    bar->setPageStep(v.PageSize > 0 ? v.PageSize : v.LargeChange);
    bar->setValue(v.Position);
    if (kind == EditedKind())
        ShowSettings();
}

void TFrScrollBars::ShowSettings()
{
    const TQzScrollBarValues v = Values(EditedKind());
    FShowing = true;
    EdMin->setValue(v.Min);
    EdMax->setValue(v.Max);
    EdPageSize->setValue(v.PageSize);
    EdSmallChange->setValue(v.SmallChange);
    EdLargeChange->setValue(v.LargeChange);
    EdPosition->setValue(v.Position);
    FShowing = false;
}

void TFrScrollBars::SettingsChanged()
{
    if (FShowing)
        return;
    TQzScrollBarValues v;
    v.Min = EdMin->value();
    v.Max = EdMax->value();
    v.PageSize = EdPageSize->value();
    v.SmallChange = EdSmallChange->value();
    v.LargeChange = EdLargeChange->value();
    v.Position = EdPosition->value();
    SetValues(EditedKind(), v);
    FSample->update();
}

void TFrScrollBars::PositionChanged()
{
    LabPosition->setText(QStringLiteral("Position: %1, %2").arg(SBHorizontal->value()).arg(SBVertical->value()));
    if (!FShowing) {
        FShowing = true;
        EdPosition->setValue(Bar(EditedKind())->value());
        FShowing = false;
    }
    FSample->update();
}

void TFrScrollBars::PaintSample(QPainter& painter)
{
    const QRect area = FSample->rect();
    painter.fillRect(area, palette().base());
    // One cell per position: the grid moves by a cell a step.
    const int left = SBHorizontal->value();
    const int top = SBVertical->value();
    painter.setPen(palette().mid().color());
    for (int row = 0; row * CellSize < area.height(); ++row)
        for (int col = 0; col * CellSize < area.width(); ++col) {
            const QRect cell(col * CellSize, row * CellSize, CellSize, CellSize);
            painter.drawRect(cell.adjusted(0, 0, -1, -1));
            painter.drawText(cell, Qt::AlignCenter, QStringLiteral("%1,%2").arg(left + col).arg(top + row));
        }
}

void RegisterQzvtscrollbars()
{
    QzSetEditorDialog(TQzEditorDialog::ScrollBars, [](TQzEditorDialogRequest& request) {
        TFrScrollBars form(QApplication::activeWindow());
        form.Execute(request.Caption);
        return 1;
    });
}
