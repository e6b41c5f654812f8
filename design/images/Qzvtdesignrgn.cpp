#include "design/images/Qzvtdesignrgn.h"

#include "design/images/QzRgnView.h"
#include "design/images/Qzruler.h"
#include "runtime/pictures/QzPicture.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"

#include <QGridLayout>
#include <QScrollArea>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <iterator>

namespace {

constexpr int FitWidth = 640;
constexpr int FitHeight = 480;

TQzMaskKind KindAt(int index)
{
    return index == 1 ? TQzMaskKind::External : TQzMaskKind::Internal;
}

}  // namespace

TFrDesignRgn::TFrDesignRgn(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    for (Integer zoom : Zooms)
        CBZoom->addItem(QString::number(zoom) + QLatin1Char('%'), QVariant::fromValue(zoom));
    connect(BtOk, &QPushButton::clicked, this, &TFrDesignRgn::BtOkClick);
    connect(BtCancel, &QPushButton::clicked, this, [this] { SetModalResult(mrCancel); });
}

TFrDesignRgn::~TFrDesignRgn() = default;

Integer TFrDesignRgn::FittingZoom(QSize size)
{
    Integer best = Zooms[0];
    for (Integer zoom : Zooms)
        if (size.width() * zoom / 100 <= FitWidth && size.height() * zoom / 100 <= FitHeight)
            best = zoom;
    return best;
}

void TFrDesignRgn::CreateView()
{
    auto* grid = new QGridLayout(PanelView);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(0);
    FRulerTop = new TQzRulerBar(true, PanelView);
    FRulerLeft = new TQzRulerBar(false, PanelView);
    FScroll = new QScrollArea(PanelView);
    FScroll->setObjectName("ScrollView");
    FScroll->setBackgroundRole(QPalette::Dark);
    FView = new TQzRgnView(FDocument.get());
    FView->setObjectName("View");
    FScroll->setWidget(FView);
    FScroll->viewport()->installEventFilter(this);
    grid->addWidget(FRulerTop, 0, 1);
    grid->addWidget(FRulerLeft, 1, 0);
    grid->addWidget(FScroll, 1, 1);

    connect(FScroll->horizontalScrollBar(), &QScrollBar::valueChanged, FRulerTop, &TQzRulerBar::SetScroll);
    connect(FScroll->verticalScrollBar(), &QScrollBar::valueChanged, FRulerLeft, &TQzRulerBar::SetScroll);
    connect(FView, &TQzRgnView::PointerMoved, this, &TFrDesignRgn::ShowPosition);
    connect(FView, &TQzRgnView::Edited, this, &TFrDesignRgn::ChangeState);

    const auto tool = [this](TQzRgnTool t) { return [this, t] { FView->SetTool(t); }; };
    connect(BtDraw, &QToolButton::clicked, this, tool(TQzRgnTool::Draw));
    connect(BtErase, &QToolButton::clicked, this, tool(TQzRgnTool::Erase));
    connect(BtFill, &QToolButton::clicked, this, tool(TQzRgnTool::Fill));
    connect(EdBrush, &QSpinBox::valueChanged, FView, &TQzRgnView::SetBrushSize);
    connect(EdByColor, &QCheckBox::toggled, FView, &TQzRgnView::SetFillByColor);
    FView->SetBrushSize(EdBrush->value());
    FView->SetFillByColor(EdByColor->isChecked());

    const auto edit = [this](auto change) {
        return [this, change] {
            change(*FDocument);
            FView->Refresh();
            ChangeState();
        };
    };
    connect(BtUndo, &QToolButton::clicked, this, edit([](TQzRgnDocument& d) { d.Undo(); }));
    connect(BtRedo, &QToolButton::clicked, this, edit([](TQzRgnDocument& d) { d.Redo(); }));
    connect(BtInvert, &QToolButton::clicked, this, edit([](TQzRgnDocument& d) { d.Invert(); }));
    connect(BtKeepAll, &QToolButton::clicked, this, edit([](TQzRgnDocument& d) { d.SetAll(false); }));
    connect(CBMask, &QComboBox::currentIndexChanged, this, [this](int index) {
        FDocument->SetKind(KindAt(index));
        FView->Refresh();
        ChangeState();
    });
    connect(CBZoom, &QComboBox::currentIndexChanged, this,
            [this](int index) { SetZoom(CBZoom->itemData(index).value<Integer>()); });
    connect(CBUnits, &QComboBox::currentIndexChanged, this, [this](int index) {
        for (TQzRulerBar* bar : {FRulerTop, FRulerLeft}) {
            bar->Ruler().SetUnits(static_cast<TQzRulerUnits>(index));
            bar->update();
        }
    });
}

int TFrDesignRgn::Execute(TQzPicture& picture, TQzMaskKind kind)
{
    if (!QzRunReportingErrors(
            this, [&] { FDocument = std::make_unique<TQzRgnDocument>(TQzRgnDocument::FromPicture(picture)); },
            "The mask cannot be edited: "))
        return 0;
    FPicture = &picture;
    FDocument->SetKind(kind);
    CreateView();
    CBMask->setCurrentIndex(kind == TQzMaskKind::External ? 1 : 0);
    const Integer zoom = FittingZoom(FDocument->Size());
    CBZoom->setCurrentIndex(static_cast<int>(std::find(std::begin(Zooms), std::end(Zooms), zoom) - std::begin(Zooms)));
    SetZoom(zoom);
    ChangeState();
    return ShowModal() == mrOk ? 1 : 0;
}

void TFrDesignRgn::SetZoom(Integer percent)
{
    FView->SetZoom(percent);
    FRulerTop->SetZoom(percent);
    FRulerLeft->SetZoom(percent);
    const int index = CBZoom->findData(QVariant::fromValue(percent));
    if (index >= 0 && index != CBZoom->currentIndex())
        CBZoom->setCurrentIndex(index);
}

void TFrDesignRgn::ChangeState()
{
    BtUndo->setEnabled(FDocument->CanUndo());
    BtRedo->setEnabled(FDocument->CanRedo());
    const int kindIndex = FDocument->Kind() == TQzMaskKind::External ? 1 : 0;
    // Undo may switch to the other mask; the list shows the one in view.
    if (CBMask->currentIndex() != kindIndex)
        CBMask->setCurrentIndex(kindIndex);
    ShowPosition(FPointer);
}

void TFrDesignRgn::ShowPosition(QPoint at)
{
    FPointer = at;
    FRulerTop->SetMarker(at.x());
    FRulerLeft->SetMarker(at.y());
    const QSize size = FDocument->Size();
    QString text = QStringLiteral("%1 x %2 pixels, %3 cut away")
                       .arg(size.width())
                       .arg(size.height())
                       .arg(QzMaskClearCount(FDocument->Mask(FDocument->Kind())));
    if (at.x() >= 0 && at.y() >= 0 && at.x() < size.width() && at.y() < size.height())
        text = QStringLiteral("%1, %2   ").arg(at.x()).arg(at.y()) + text;
    LaPosition->setText(text);
}

bool TFrDesignRgn::eventFilter(QObject* watched, QEvent* event)
{
    // Ctrl and the wheel zoom, as in picture editors; the plain wheel scrolls.
    if (FScroll && watched == FScroll->viewport() && event->type() == QEvent::Wheel) {
        auto* wheel = static_cast<QWheelEvent*>(event);
        if (wheel->modifiers() & Qt::ControlModifier) {
            const int step = wheel->angleDelta().y() > 0 ? 1 : wheel->angleDelta().y() < 0 ? -1 : 0;
            const int index = std::clamp(CBZoom->currentIndex() + step, 0, CBZoom->count() - 1);
            CBZoom->setCurrentIndex(index);
            return true;
        }
    }
    return TQzDialog::eventFilter(watched, event);
}

void TFrDesignRgn::BtOkClick()
{
    bool stored = false;
    if (!QzRunReportingErrors(this, [&] { stored = FDocument->Store(*FPicture); }))
        return;
    SetModalResult(stored ? mrOk : mrCancel);
}

int QzExecuteDesignRgn(TQzPicture& picture, QWidget* parent, TQzMaskKind kind)
{
    TFrDesignRgn window(parent);
    return window.Execute(picture, kind);
}
