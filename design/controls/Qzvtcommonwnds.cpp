#include "design/controls/Qzvtcommonwnds.h"

#include "design/controls/QzDisplayGeometryEdit.h"
#include "design/reg/QzEditorDialogs.h"

#include "vcl/QzReportErrors.h"

#include <QApplication>
#include <QPainter>

TFrCommonWnds::TFrCommonWnds(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    FPreview = new TQzPreviewPane(GBPreview);
    FPreview->setMinimumSize(360, 200);
    FPreview->OnPaint = [this](QPainter& painter) { PaintPreview(painter); };
    LayPreview->insertWidget(0, FPreview, 1);
    LabSets->setText(QStringLiteral("Painted with the background sets \"FormBackGround\" and \"GradientBlue\" and "
                                    "the font sets \"Standard\" and \"Title\" of the display package."));
    for (const TQzCommonWndSample& sample : Samples())
        LBWindows->addItem(sample.Title);
    LBWindows->setCurrentRow(0);
    connect(LBWindows, &QListWidget::currentRowChanged, FPreview, qOverload<>(&QWidget::update));
    for (const TEdit& e : Edits())
        connect(e.Edit, &QSpinBox::valueChanged, FPreview, qOverload<>(&QWidget::update));
    connect(BtOk, &QPushButton::clicked, this, &TFrCommonWnds::accept);
    connect(BtCancel, &QPushButton::clicked, this, &TFrCommonWnds::reject);
}

const std::vector<TQzCommonWndSample>& TFrCommonWnds::Samples()
{
    static const std::vector<TQzCommonWndSample> samples = {
        {"Information", "The package was saved to its file.", {"OK"}},
        {"Warning", "The file is read-only:\nthe changes cannot be saved.", {"OK"}},
        {"Error", "The file: Main.dfm can contain an error in the line: 12", {"OK"}},
        {"Confirm", "Do you want to delete the selected item?", {"Yes", "No"}},
        {"Message", "Example Message, Example Message, Example Message", {"OK", "Cancel"}},
        {"Save", "The form has changed.\nDo you want to save it?", {"Yes", "No", "Cancel"}},
    };
    return samples;
}

std::vector<TFrCommonWnds::TEdit> TFrCommonWnds::Edits() const
{
    return {
        {EdMarginLeft, &TQzDisplayGeometry::CWMarginLeft},
        {EdMarginTop, &TQzDisplayGeometry::CWMarginTop},
        {EdMarginRight, &TQzDisplayGeometry::CWMarginRight},
        {EdMarginBottom, &TQzDisplayGeometry::CWMarginBottom},
        {EdTitleHeight, &TQzDisplayGeometry::CWTitleHeight},
        {EdMarginAfterTitle, &TQzDisplayGeometry::CWMarginAfterTitle},
        {EdButtonsWidth, &TQzDisplayGeometry::CWButtonsWidth},
        {EdButtonsHeight, &TQzDisplayGeometry::CWButtonsHeight},
        {EdButtonsSpacing, &TQzDisplayGeometry::CWButtonsSpacing},
        {EdButtonsMargin, &TQzDisplayGeometry::CWButtonsMargin},
    };
}

void TFrCommonWnds::SetDisplay(TQzPkgDisplay* display)
{
    FDisplay = display;
    FGeometry = display ? display->Geometry() : TQzDisplayGeometry();
    for (const TEdit& e : Edits())
        e.Edit->setValue(FGeometry.*e.Field);
    CBWinRgn->setChecked(FGeometry.CWWinRgn);
}

TModalResult TFrCommonWnds::Execute()
{
    if (!FDisplay)
        return mrNone;
    return ShowModal();
}

TQzDisplayGeometry TFrCommonWnds::Geometry() const
{
    TQzDisplayGeometry g = FGeometry;
    for (const TEdit& e : Edits())
        g.*e.Field = e.Edit->value();
    g.CWWinRgn = CBWinRgn->isChecked();
    return g;
}

void TFrCommonWnds::accept()
{
    if (FDisplay && !QzRunReportingErrors(this, [this] { QzWriteDisplayGeometry(*FDisplay, Geometry()); }))
        return;
    TQzDialog::accept();
}

void TFrCommonWnds::PaintPreview(QPainter& painter)
{
    const QRect area = FPreview->rect();
    painter.fillRect(area, palette().dark());
    const int row = LBWindows->currentRow();
    if (row < 0 || row >= int(Samples().size()))
        return;
    const TQzCommonWndSample& sample = Samples()[row];
    const TQzPreviewLooks looks = QzCommonWndLooks(FDisplay);
    const TQzDisplayGeometry geometry = Geometry();
    const QSize size = QzCommonWndSampleSize(geometry, looks, sample);
    const QPoint at(std::max(8, (area.width() - size.width()) / 2), std::max(8, (area.height() - size.height()) / 2));
    QzPaintCommonWnd(painter, at, geometry, looks, sample);
}

void RegisterQzvtcommonwnds()
{
    QzSetEditorDialog(TQzEditorDialog::CommonWnds, [](TQzEditorDialogRequest& request) {
        auto* display = dynamic_cast<TQzPkgDisplay*>(request.Package);
        if (!display)
            return 0;
        TFrCommonWnds form(QApplication::activeWindow());
        form.SetDisplay(display);
        if (form.Execute() != mrOk)
            return 0;
        QzDisplayModified(request, *display);
        return 1;
    });
}
