#include "design/settings/Qzvtsetsbackgroundadd.h"

#include "design/controls/QzDisplayPreview.h"
#include "design/reg/QzEditorDialogs.h"
#include "design/settings/QzDisplaySetPaint.h"
#include "design/settings/QzDisplaySets.h"
#include "runtime/pictures/Qzdrawutil.h"
#include "vcl/QzDialogs.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"

#include <QPainter>
#include <QPixmap>

namespace {

QIcon Swatch(TColor color)
{
    QPixmap pixmap(28, 14);
    pixmap.fill(QzColorToQColor(color));
    QPainter painter(&pixmap);
    painter.setPen(Qt::gray);
    painter.drawRect(pixmap.rect().adjusted(0, 0, -1, -1));
    return QIcon(pixmap);
}

}  // namespace

TFrSetsBackGroundAdd::TFrSetsBackGroundAdd(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    FScratch = FScratchList.Add("Scratch");
    FPreview = new TQzPreviewPane(GBPreview);
    FPreview->setMinimumSize(180, 140);
    FPreview->OnPaint = [this](QPainter& painter) { QzPaintBackGroundSet(painter, FPreview->rect(), *FScratch); };
    LayPreview->addWidget(FPreview, 1);
    for (QPushButton* button : {BtSolidColor, BtStartGraColor, BtEndGraColor})
        button->setIconSize(QSize(28, 14));

    connect(CBStyle, &QComboBox::currentIndexChanged, this, &TFrSetsBackGroundAdd::StyleChanged);
    connect(BtSolidColor, &QPushButton::clicked, this, [this] { ChooseColor(&TQzBackGroundValues::SolidColor); });
    connect(BtStartGraColor, &QPushButton::clicked, this,
            [this] { ChooseColor(&TQzBackGroundValues::StartGraColor); });
    connect(BtEndGraColor, &QPushButton::clicked, this, [this] { ChooseColor(&TQzBackGroundValues::EndGraColor); });
    connect(BtImage, &QPushButton::clicked, this, &TFrSetsBackGroundAdd::ChooseImage);
    connect(CBTransparent, &QCheckBox::toggled, this, [this](bool on) {
        FScratch->SetTransparent(on);
        FPreview->update();
    });
    connect(BtOk, &QPushButton::clicked, this, &TFrSetsBackGroundAdd::accept);
    connect(BtCancel, &QPushButton::clicked, this, &TFrSetsBackGroundAdd::reject);
}

TModalResult TFrSetsBackGroundAdd::Execute(TQzPkgDisplaySetsBackGround* sets, TQzPkgDisplaySetBackGround* set,
                                           const AnsiString& proposedName)
{
    if (!sets)
        return mrNone;
    FSets = sets;
    FSet = set;
    FResult = nullptr;
    if (set) {
        FScratch->Assign(set);
        EdName->setText(QzQString(set->Name()));
        setWindowTitle(QStringLiteral("Modify Background"));
    } else {
        EdName->setText(QzQString(proposedName.empty() ? QzNewDisplaySetName(*sets) : proposedName));
    }
    EdDescription->setText(QzQString(FScratch->Description()));
    ShowValues();
    EdName->selectAll();
    EdName->setFocus();
    return ShowModal();
}

void TFrSetsBackGroundAdd::ShowValues()
{
    const QSignalBlocker block(CBStyle);
    CBStyle->setCurrentIndex(int(FScratch->Style()));
    BtSolidColor->setIcon(Swatch(FScratch->SolidColor()));
    BtStartGraColor->setIcon(Swatch(FScratch->StartGraColor()));
    BtEndGraColor->setIcon(Swatch(FScratch->EndGraColor()));
    const QSignalBlocker blockCheck(CBTransparent);
    CBTransparent->setChecked(FScratch->Transparent());
    LabImageInfo->setText(FScratch->Image()->Defined() ? QzQString(FScratch->Image()->Info()) : QStringLiteral("(None)"));
    // Only what the chosen style paints with can be set.
    const TQzBackGroundStyle style = FScratch->Style();
    const bool gradient = style == bgGradientHor || style == bgGradientVer;
    const bool picture = style == bgImage || style == bgImageTile;
    BtStartGraColor->setEnabled(gradient);
    BtEndGraColor->setEnabled(gradient);
    BtImage->setEnabled(picture);
    CBTransparent->setEnabled(picture);
    FPreview->update();
}

void TFrSetsBackGroundAdd::StyleChanged()
{
    FScratch->SetStyle(TQzBackGroundStyle(CBStyle->currentIndex()));
    ShowValues();
}

void TFrSetsBackGroundAdd::ChooseColor(TColor TQzBackGroundValues::*which)
{
    QColor color = QzColorToQColor(FScratch->Values().*which);
    if (!QzChooseColor(color, this))
        return;
    const TColor value = QzColorOfQColor(color);
    if (which == &TQzBackGroundValues::SolidColor)
        FScratch->SetSolidColor(value);
    else if (which == &TQzBackGroundValues::StartGraColor)
        FScratch->SetStartGraColor(value);
    else
        FScratch->SetEndGraColor(value);
    ShowValues();
}

void TFrSetsBackGroundAdd::ChooseImage()
{
    TQzEditorDialogRequest request;
    request.Target = FScratch->Image();
    if (QzRunEditorDialog(TQzEditorDialog::MemoryImage, request) == 1)
        ShowValues();
}

void TFrSetsBackGroundAdd::Write()
{
    const AnsiString name = QzAnsiString(EdName->text().trimmed());
    FSets->CheckName(name, FSet);
    FScratch->SetDescription(QzAnsiString(EdDescription->text()));
    TQzPkgDisplaySetBackGround* target = FSet ? FSet : FSets->Add(name);
    target->SetName(name);
    target->Assign(FScratch);
    FResult = target;
}

void TFrSetsBackGroundAdd::accept()
{
    if (FSets && !QzRunReportingErrors(this, [this] { Write(); })) {
        EdName->setFocus();
        return;
    }
    TQzDialog::accept();
}
