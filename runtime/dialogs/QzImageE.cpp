#include "runtime/dialogs/QzImageE.h"

#include "runtime/components/QzExtCtrls.h"
#include "runtime/model/QzPkgImages.h"
#include "runtime/model/QzRegistry.h"
#include "runtime/pictures/QzGraphicFormats.h"
#include "runtime/pictures/QzPicture.h"

#include "vcl/QzDialogs.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"

#include <QPixmap>

namespace {

// The zoom choices, in percent; 0 fits.
constexpr int Zooms[] = {0, 25, 50, 100, 200, 400};

AnsiString SizeText(Int64 bytes)
{
    return bytes < 1024 ? IntToStr(bytes) + " bytes" : IntToStr((bytes + 512) / 1024) + " KB";
}

}  // namespace

TQzPkgImagesImage* QzComponentImage(TComponent* component)
{
    if (auto* image = dynamic_cast<TQzCustomImage*>(component))
        return image->Picture()->Image();
    if (auto* image = dynamic_cast<TQzCustomFocusImage*>(component))
        return image->Picture()->Image();
    if (auto* image = dynamic_cast<TQzPkgImage*>(component)) {
        TQzPkgImages* package = QzFindPkgImages(image->PkgName());
        return package ? package->Images()->FindId(image->ImageId()) : nullptr;
    }
    return nullptr;
}

TFrImageE::TFrImageE(QWidget* parent) : TQzDialog(parent), FScratch(std::make_unique<TQzPkgImages>(nullptr))
{
    setupUi(this);
    FEdited = FScratch->Images()->Add(0);
    for (int zoom : Zooms)
        CBZoom->addItem(zoom == 0 ? QStringLiteral("Fit") : QStringLiteral("%1%").arg(zoom), zoom);
    CBZoom->setCurrentIndex(0);
    connect(CBZoom, &QComboBox::currentIndexChanged, this, &TFrImageE::ShowPicture);
    connect(BtLoad, &QPushButton::clicked, this, &TFrImageE::BtLoadClick);
    connect(BtSave, &QPushButton::clicked, this, &TFrImageE::BtSaveClick);
    connect(BtCopy, &QPushButton::clicked, this, &TFrImageE::BtCopyClick);
    connect(BtPaste, &QPushButton::clicked, this, &TFrImageE::BtPasteClick);
    connect(BtClear, &QPushButton::clicked, this, &TFrImageE::BtClearClick);
    connect(BtOk, &QPushButton::clicked, this, &TFrImageE::accept);
    connect(BtCancel, &QPushButton::clicked, this, &TFrImageE::reject);
    ShowPicture();
}

TFrImageE::~TFrImageE() = default;

bool TFrImageE::Execute(const AnsiString& caption, TComponent* component)
{
    if (!component)
        return Execute(caption, static_cast<TQzPkgImagesImage*>(nullptr));
    TQzPkgImagesImage* image = QzComponentImage(component);
    if (!image) {
        QzMessage(component->Name() + " shows no image of an images package, so there is no picture to edit.",
                  mtInformation, {mbOK}, mbOK, parentWidget());
        return false;
    }
    return Execute(caption, image);
}

bool TFrImageE::Execute(const AnsiString& caption, TQzPkgImagesImage* image)
{
    if (!caption.empty())
        setWindowTitle(QzQString(caption));
    if (image)
        FEdited->Assign(image);
    ShowPicture();
    for (;;) {
        if (Execute() != mrOk)
            return false;
        // A protected image refuses the change; the window stays open so
        // the picture is not lost.
        if (!image || QzRunReportingErrors(this, [&] { image->Assign(FEdited); }))
            return true;
    }
}

void TFrImageE::SetZoom(int percent)
{
    const int index = CBZoom->findData(percent);
    if (index >= 0)
        CBZoom->setCurrentIndex(index);
}

void TFrImageE::resizeEvent(QResizeEvent* event)
{
    TQzDialog::resizeEvent(event);
    if (CBZoom->currentData().toInt() == 0)
        ShowPicture();
}

void TFrImageE::BtLoadClick()
{
    const AnsiString file = QzAskPictureToLoad(this);
    if (file.empty())
        return;
    QzRunReportingErrors(this, [&] { TQzPicture(FEdited).LoadFromFile(file); });
    ShowPicture();
}

void TFrImageE::BtSaveClick()
{
    TQzFileRequest request;
    request.Title = "Save Picture";
    request.Filter = QzGraphicFilter();
    request.DefaultExt = QzGraphicFormatName(FEdited->GraphicClass());
    request.Parent = this;
    const AnsiString fileName = QzDialogs().SavePicture(request);
    if (!fileName.empty())
        QzRunReportingErrors(this, [&] { TQzPicture(FEdited).SaveToFile(fileName); });
}

void TFrImageE::BtCopyClick()
{
    QzRunReportingErrors(this, [&] { TQzPicture(FEdited).SaveToClipBoard(); });
    UpdateButtons();
}

void TFrImageE::BtPasteClick()
{
    QzRunReportingErrors(this, [&] { TQzPicture(FEdited).LoadFromClipBoard(); });
    ShowPicture();
}

void TFrImageE::BtClearClick()
{
    FEdited->Clear();
    ShowPicture();
}

void TFrImageE::ShowPicture()
{
    QImage picture;
    AnsiString info = "(Empty)";
    if (!FEdited->Empty()) {
        try {
            picture = TQzPicture(FEdited).Decode();
            info = IntToStr(picture.width()) + " x " + IntToStr(picture.height()) + ", " +
                   QzGraphicFormatName(FEdited->GraphicClass()) + ", " + SizeText(FEdited->GetSize());
        } catch (const Exception& e) {
            info = e.Message();
        }
    }
    const int zoom = CBZoom->currentData().toInt();
    QPixmap shown = QPixmap::fromImage(picture);
    if (!shown.isNull()) {
        const QSize view = ScrollImage->viewport()->size() - QSize(4, 4);
        if (zoom == 0 && (shown.width() > view.width() || shown.height() > view.height()))
            shown = shown.scaled(view, Qt::KeepAspectRatio, Qt::SmoothTransformation);
        else if (zoom != 0 && zoom != 100)
            shown = shown.scaled(shown.size() * zoom / 100, Qt::KeepAspectRatio,
                                 zoom < 100 ? Qt::SmoothTransformation : Qt::FastTransformation);
    }
    ImgView->setPixmap(shown);
    ImgView->adjustSize();
    LabInfo->setText(QzQString(info));
    UpdateButtons();
}

void TFrImageE::UpdateButtons()
{
    const bool has = !FEdited->Empty();
    BtSave->setEnabled(has);
    BtCopy->setEnabled(has);
    BtClear->setEnabled(has);
    BtPaste->setEnabled(TQzPicture::ClipBoardHasImage());
}

AnsiString QzAskPictureToLoad(QWidget* parent)
{
    TQzFileRequest request;
    request.Title = "Load Picture";
    request.Filter = QzGraphicFilter();
    request.Parent = parent;
    const std::vector<AnsiString> files = QzDialogs().OpenPictures(request);
    return files.empty() ? AnsiString() : files.front();
}
