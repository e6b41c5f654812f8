#include "design/controls/Qzvtmaskexamples.h"

#include "design/controls/QzMaskOptions.h"
#include "vcl/QzWindowBounds.h"

#include <QEvent>

namespace {

TQzResizeInfoDesigner ResizeInfo;

// Between the two buttons and from the panel's right edge.
constexpr int ButtonGap = 5;

}  // namespace

TFrMaskExamples::TFrMaskExamples(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    RememberBounds(&ResizeInfo);
    for (const TQzMaskExample& example : QzMaskExamples())
        LBExamples->addItem(QString::fromLatin1(example.Name));
    LBExamples->setCurrentRow(0);
    connect(LBExamples, &QListWidget::itemDoubleClicked, this, &TFrMaskExamples::accept);
    connect(BtOk, &QPushButton::clicked, this, &TFrMaskExamples::accept);
    connect(BtCancel, &QPushButton::clicked, this, &TFrMaskExamples::reject);
    // The panel has no layout: its buttons keep to its right edge.
    PanelBottom->installEventFilter(this);
    PlaceButtons();
}

int TFrMaskExamples::Execute()
{
    if (ShowModal() != mrOk)
        return -1;
    return LBExamples->currentRow();
}

bool TFrMaskExamples::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == PanelBottom && event->type() == QEvent::Resize)
        PlaceButtons();
    return TQzDialog::eventFilter(watched, event);
}

void TFrMaskExamples::PlaceButtons()
{
    const QSize size = BtOk->sizeHint().expandedTo(BtCancel->sizeHint());
    const int top = (PanelBottom->height() - size.height()) / 2;
    const int cancelLeft = PanelBottom->width() - ButtonGap - size.width();
    BtCancel->setGeometry(cancelLeft, top, size.width(), size.height());
    BtOk->setGeometry(cancelLeft - ButtonGap - size.width(), top, size.width(), size.height());
}
