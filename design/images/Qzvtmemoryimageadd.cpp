#include "design/images/Qzvtmemoryimageadd.h"

#include "design/images/Qzvtdesignrgn.h"
#include "runtime/dialogs/QzImageE.h"
#include "runtime/model/QzPkgImages.h"
#include "runtime/model/QzRegistry.h"
#include "runtime/pictures/QzGraphicFormats.h"
#include "runtime/pictures/QzPicture.h"
#include "vcl/QzDialogs.h"
#include "vcl/QzIdEdit.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"
#include "vcl/QzWindowBounds.h"

#include <QActionGroup>
#include <QColorDialog>
#include <QEvent>
#include <QMenu>
#include <QPainter>
#include <QPixmap>

namespace {

// The dialog opens where the user last left it, for as long as the program runs.
TQzResizeInfoDesigner AddDialogBounds;

// Transparent pixels are shown over grey squares, as picture editors do.
void PaintCheckerboard(QPainter& painter, const QRect& area)
{
    constexpr int square = 8;
    painter.fillRect(area, QColor(0xFF, 0xFF, 0xFF));
    for (int y = area.top(); y < area.bottom(); y += square)
        for (int x = area.left() + ((y - area.top()) / square % 2) * square; x < area.right(); x += 2 * square)
            painter.fillRect(QRect(x, y, square, square).intersected(area), QColor(0xCC, 0xCC, 0xCC));
}

TColor ToColor(const QColor& color)
{
    return TColor(color.red() | (color.green() << 8) | (color.blue() << 16));
}

}  // namespace

TFrMemoryImageAdd::TFrMemoryImageAdd(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    RememberBounds(&AddDialogBounds);
    QzMakeIdEdit(EdId);
    ChooseColor = [this](TColor& color) {
        const QColor chosen = QColorDialog::getColor(Qt::white, this, QStringLiteral("Mask Colour"));
        if (!chosen.isValid())
            return false;
        color = ToColor(chosen);
        return true;
    };
    {
        // The working copy's package is the dialog's alone: it must take no
        // name over from the project's packages.
        TQzDetachedPkgs detached;
        FLocal = std::make_unique<TQzPkgImages>(nullptr);
    }
    FWork = FLocal->Images()->Add(0);
    CreateMaskMenu();

    connect(BtLoad, &QToolButton::clicked, this, &TFrMemoryImageAdd::BtLoadClick);
    connect(BtSave, &QToolButton::clicked, this, &TFrMemoryImageAdd::BtSaveClick);
    connect(BtClear, &QToolButton::clicked, this, &TFrMemoryImageAdd::BtClearClick);
    connect(BtCopy, &QToolButton::clicked, this, &TFrMemoryImageAdd::BtCopyClick);
    connect(BtCut, &QToolButton::clicked, this, &TFrMemoryImageAdd::BtCutClick);
    connect(BtPaste, &QToolButton::clicked, this, &TFrMemoryImageAdd::BtPasteClick);
    connect(BtOk, &QPushButton::clicked, this, &TFrMemoryImageAdd::BtOkClick);
    connect(BtCancel, &QPushButton::clicked, this, &TFrMemoryImageAdd::reject);
    connect(EdId, &QLineEdit::textEdited, this, [this] { FDirty = true; });
    connect(EdProtected, &QCheckBox::clicked, this, [this] { FDirty = true; });
}

TFrMemoryImageAdd::~TFrMemoryImageAdd() = default;

void TFrMemoryImageAdd::CreateMaskMenu()
{
    PopupMask = new QMenu(this);
    PopupMask->setObjectName("PopupMask");
    const auto action = [this](const char* name, const char* text) {
        QAction* a = PopupMask->addAction(QString::fromLatin1(text));
        a->setObjectName(QString::fromLatin1(name));
        return a;
    };
    MnMaskInternal = action("MnMaskInternal", "&Transparency Mask");
    MnMaskExternal = action("MnMaskExternal", "&Window Shape Mask");
    auto* kinds = new QActionGroup(PopupMask);
    for (QAction* a : {MnMaskInternal, MnMaskExternal}) {
        a->setCheckable(true);
        kinds->addAction(a);
    }
    MnMaskInternal->setChecked(true);
    PopupMask->addSeparator();
    MnMaskEditor = action("MnMaskEditor", "Mask &Editor...");
    MnMaskAuto = action("MnMaskAuto", "From the &Bottom-Left Pixel");
    MnMaskColor = action("MnMaskColor", "From a &Colour...");
    MnMaskFile = action("MnMaskFile", "From a &File...");
    MnMaskClear = action("MnMaskClear", "C&lear Mask");
    BtMask->setMenu(PopupMask);

    connect(MnMaskInternal, &QAction::triggered, this, [this] { SetMaskKind(TQzMaskKind::Internal); });
    connect(MnMaskExternal, &QAction::triggered, this, [this] { SetMaskKind(TQzMaskKind::External); });
    connect(MnMaskEditor, &QAction::triggered, this, &TFrMemoryImageAdd::MaskEditor);
    connect(MnMaskAuto, &QAction::triggered, this, [this] { MaskFromColor(false); });
    connect(MnMaskColor, &QAction::triggered, this, [this] { MaskFromColor(true); });
    connect(MnMaskFile, &QAction::triggered, this, &TFrMemoryImageAdd::MaskFromFile);
    connect(MnMaskClear, &QAction::triggered, this, &TFrMemoryImageAdd::MaskClear);
}

int TFrMemoryImageAdd::Execute(TQzPkgImages* pkg, bool modify, Integer id)
{
    FTarget = pkg;
    FModify = modify;
    FStartId = id;
    FResultId = -1;
    if (!pkg)
        return 0;
    QzSetIdEditValue(EdId, id);
    FWork->Clear();
    FWork->SetProtected(false);
    const bool system = SameText(pkg->PkgName(), "System");
    EdProtected->setVisible(system);
    if (!system)
        EdProtected->setChecked(false);
    TQzPkgImagesImage* stored = modify ? pkg->Images()->FindId(id) : nullptr;
    if (modify && !stored)
        return 0;
    if (stored)
        FWork->Assign(stored);
    if (system)
        EdProtected->setChecked(stored && stored->Protected());
    FDirty = !modify;
    ShowPreview();
    ChangeState();
    return ShowModal() == mrOk && FResultId >= 0 ? 1 : 0;
}

void TFrMemoryImageAdd::BtOkClick()
{
    if (FModify && !FDirty) {
        accept();
        return;
    }
    if (StoreImage())
        accept();
}

bool TFrMemoryImageAdd::StoreImage()
{
    const Integer id = QzIdEditValue(EdId);
    if (id < 0) {
        QzMessage("Type the Id of the image.", mtError, {mbOK}, mbOK, this);
        EdId->setFocus();
        return false;
    }
    // Every check the package makes comes before anything of it changes.
    const bool stored = QzRunReportingErrors(this, [&] {
        TQzPkgImagesImage* image = nullptr;
        if (FModify) {
            image = FTarget->Images()->FindId(FStartId);
            if (!image)
                throw EQzPkgError("The image " + IntToStr(FStartId) + " is no longer in the package");
            if (id != FStartId)
                image->SetId(id);
        } else {
            image = FTarget->Images()->Add(id);
        }
        image->Assign(FWork);
        image->SetProtected(EdProtected->isChecked());
    });
    if (!stored) {
        EdId->setFocus();
        return false;
    }
    FResultId = id;
    return true;
}

// ---------------------------------------------------------------- commands

void TFrMemoryImageAdd::Edit(const std::function<void()>& change)
{
    if (!QzRunReportingErrors(this, change))
        return;
    FDirty = true;
    ShowPreview();
    ChangeState();
}

void TFrMemoryImageAdd::BtLoadClick()
{
    const AnsiString file = QzAskPictureToLoad(this);
    if (file.empty())
        return;
    Edit([&] { TQzPicture(FWork).LoadFromFile(file); });
}

void TFrMemoryImageAdd::BtSaveClick()
{
    if (FWork->Empty())
        return;
    TQzFileRequest request;
    request.Title = "Save Picture";
    request.Filter = QzImageSaveFilter(*FWork);
    request.DefaultExt = QzGraphicExtension(FWork->GraphicClass());
    request.Parent = this;
    const AnsiString name = QzImageSaveName(QzDialogs().SavePicture(request), request.FilterIndex, *FWork);
    if (!name.empty())
        QzRunReportingErrors(this, [&] { TQzPicture(FWork).SaveToFile(name); });
}

void TFrMemoryImageAdd::BtClearClick()
{
    Edit([&] { FWork->Clear(); });
}

void TFrMemoryImageAdd::BtCopyClick()
{
    if (!FWork->Empty())
        QzRunReportingErrors(this, [&] { TQzPicture(FWork).SaveToClipBoard(); });
    ChangeState();
}

void TFrMemoryImageAdd::BtCutClick()
{
    if (FWork->Empty())
        return;
    Edit([&] {
        TQzPicture(FWork).SaveToClipBoard();
        FWork->Clear();
    });
}

void TFrMemoryImageAdd::BtPasteClick()
{
    Edit([&] { TQzPicture(FWork).LoadFromClipBoard(); });
}

void TFrMemoryImageAdd::SetMaskKind(TQzMaskKind kind)
{
    FMaskKind = kind;
    (kind == TQzMaskKind::Internal ? MnMaskInternal : MnMaskExternal)->setChecked(true);
}

void TFrMemoryImageAdd::MaskFromColor(bool ask)
{
    TColor color = QzMaskColorAuto;
    if (ask && !(ChooseColor && ChooseColor(color)))
        return;
    Edit([&] { QzImageMaskFromColor(*FWork, FMaskKind, color); });
}

void TFrMemoryImageAdd::MaskFromFile()
{
    TQzFileRequest request;
    request.Title = "Load Mask";
    request.Filter = QzGraphicFilter();
    request.Parent = this;
    const std::vector<AnsiString> files = QzDialogs().OpenPictures(request);
    if (!files.empty())
        Edit([&] { QzImageMaskFromFile(*FWork, FMaskKind, files.front()); });
}

void TFrMemoryImageAdd::MaskEditor()
{
    TQzPicture picture(FWork);
    if (QzExecuteDesignRgn(picture, this, FMaskKind) != 1)
        return;
    FDirty = true;
    ShowPreview();
    ChangeState();
}

void TFrMemoryImageAdd::MaskClear()
{
    if (QzImageHasMask(*FWork, FMaskKind))
        Edit([&] { QzImageClearMask(*FWork, FMaskKind); });
}

// ------------------------------------------------------------------ state

void TFrMemoryImageAdd::ChangeState()
{
    Label1->setText(QzQString(QzImageDescription(*FWork)));
    const bool picture = !FWork->Empty();
    for (QWidget* button : {static_cast<QWidget*>(BtSave), static_cast<QWidget*>(BtClear),
                            static_cast<QWidget*>(BtMask), static_cast<QWidget*>(BtCopy), static_cast<QWidget*>(BtCut)})
        button->setEnabled(picture);
    LaMask->setChecked(TQzPicture(FWork).HasMask());
    BtPaste->setEnabled(TQzPicture::ClipBoardHasImage());
    MnMaskClear->setEnabled(QzImageHasMask(*FWork, FMaskKind));
}

void TFrMemoryImageAdd::ShowPreview()
{
    const QImage picture = QzPictureWithMaskAlpha(*FWork);
    if (picture.isNull()) {
        Image->clear();
        return;
    }
    const QSize area = Image->contentsRect().size();
    if (area.isEmpty())
        return;
    QPixmap preview(area);
    preview.fill(Qt::transparent);
    QPainter painter(&preview);
    const QSize size = picture.size().scaled(area, Qt::KeepAspectRatio);
    const QRect target(QPoint((area.width() - size.width()) / 2, (area.height() - size.height()) / 2), size);
    PaintCheckerboard(painter, target);
    painter.drawImage(target, picture);
    painter.end();
    Image->setPixmap(preview);
}

void TFrMemoryImageAdd::changeEvent(QEvent* event)
{
    // The clipboard may have changed while another window was active.
    if (event->type() == QEvent::ActivationChange && isActiveWindow())
        ChangeState();
    TQzDialog::changeEvent(event);
}

void TFrMemoryImageAdd::resizeEvent(QResizeEvent* event)
{
    TQzDialog::resizeEvent(event);
    ShowPreview();
}
