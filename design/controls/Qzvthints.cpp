#include "design/controls/Qzvthints.h"

#include "design/controls/QzDisplayGeometryEdit.h"
#include "design/controls/QzDisplayPreview.h"
#include "design/reg/QzEditorDialogs.h"

#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"

#include <QApplication>
#include <QPainter>

TFrHints::TFrHints(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    FPreview = new TQzPreviewPane(GBPreview);
    FPreview->setMinimumSize(260, 160);
    FPreview->OnPaint = [this](QPainter& painter) { PaintPreview(painter); };
    LayPreview->insertWidget(0, FPreview, 1);
    EdText->setPlainText(QStringLiteral("Saves the form and its packages.\nHold Shift to save a copy."));
    LabSets->setText(QStringLiteral("Hints are painted with the background set \"InfoBackGround\" and the font "
                                    "set \"Hint\" of the display package."));
    for (QSpinBox* edit : {EdMarginLeft, EdMarginTop, EdMarginRight, EdMarginBottom})
        connect(edit, &QSpinBox::valueChanged, FPreview, qOverload<>(&QWidget::update));
    connect(EdText, &QPlainTextEdit::textChanged, FPreview, qOverload<>(&QWidget::update));
    connect(BtLabel, &QPushButton::clicked, this, &TFrHints::BtLabelClick);
    connect(BtOk, &QPushButton::clicked, this, &TFrHints::accept);
    connect(BtCancel, &QPushButton::clicked, this, &TFrHints::reject);
}

void TFrHints::SetDisplay(TQzPkgDisplay* display)
{
    FDisplay = display;
    FGeometry = display ? display->Geometry() : TQzDisplayGeometry();
    EdMarginLeft->setValue(FGeometry.HiMarginLeft);
    EdMarginTop->setValue(FGeometry.HiMarginTop);
    EdMarginRight->setValue(FGeometry.HiMarginRight);
    EdMarginBottom->setValue(FGeometry.HiMarginBottom);
    CBWinRgn->setChecked(FGeometry.HiWinRgn);
}

TModalResult TFrHints::Execute()
{
    if (!FDisplay)
        return mrNone;
    return ShowModal();
}

TQzDisplayGeometry TFrHints::Geometry() const
{
    TQzDisplayGeometry g = FGeometry;
    g.HiMarginLeft = EdMarginLeft->value();
    g.HiMarginTop = EdMarginTop->value();
    g.HiMarginRight = EdMarginRight->value();
    g.HiMarginBottom = EdMarginBottom->value();
    g.HiWinRgn = CBWinRgn->isChecked();
    return g;
}

void TFrHints::accept()
{
    if (FDisplay && !QzRunReportingErrors(this, [this] { QzWriteDisplayGeometry(*FDisplay, Geometry()); }))
        return;
    TQzDialog::accept();
}

void TFrHints::BtLabelClick()
{
    TQzEditorDialogRequest request;
    request.Target = &FSampleLabel;
    if (QzRunEditorDialog(TQzEditorDialog::MemoryLabel, request) != 1)
        return;
    const AnsiString hint = FSampleLabel.Hint();
    EdText->setPlainText(QzQString(hint.empty() ? FSampleLabel.Text() : hint));
}

void TFrHints::PaintPreview(QPainter& painter)
{
    const QRect area = FPreview->rect();
    painter.fillRect(area, palette().base());
    const TQzPreviewLooks looks = QzHintLooks(FDisplay);
    const QString text = EdText->toPlainText();
    const QSize size = QzHintSampleSize(Geometry(), looks, text);
    // The hint sits below and right of where a mouse pointer would be.
    const QPoint pointer(16, 16);
    painter.setPen(palette().text().color());
    painter.drawLine(pointer, pointer + QPoint(0, 12));
    painter.drawLine(pointer, pointer + QPoint(8, 8));
    const QPoint at(std::max(pointer.x() + 8, (area.width() - size.width()) / 2), pointer.y() + 20);
    QzPaintHint(painter, at, Geometry(), looks, text);
}

void RegisterQzvthints()
{
    QzSetEditorDialog(TQzEditorDialog::Hints, [](TQzEditorDialogRequest& request) {
        auto* display = dynamic_cast<TQzPkgDisplay*>(request.Package);
        if (!display)
            return 0;
        TFrHints form(QApplication::activeWindow());
        form.SetDisplay(display);
        if (form.Execute() != mrOk)
            return 0;
        QzDisplayModified(request, *display);
        return 1;
    });
}
