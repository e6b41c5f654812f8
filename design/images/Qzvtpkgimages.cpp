#include "design/images/Qzvtpkgimages.h"

#include "design/images/QzImagesViewMenu.h"
#include "design/images/Qzvtimportimages.h"
#include "design/images/Qzvtupdatesystemimages.h"
#include "design/manager/QzManagerKinds.h"
#include "design/manager/Qzvtpkgloadsave.h"
#include "design/manager/Qzvtpkgsynchronizer.h"
#include "design/reg/QzEditorDialogs.h"
#include "runtime/model/QzApplication.h"
#include "runtime/util/QzDesigner.h"
#include "runtime/util/QzMessages.h"
#include "vcl/QzIdEdit.h"
#include "vcl/QzPrinter.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"
#include "vcl/QzWindowBounds.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QPainter>
#include <QPrinter>

#include <memory>

namespace {

// The application a package belongs to: up its owners, else the active one.
TQzCApplication* ApplicationOf(const TComponent* component)
{
    for (TComponent* owner = component ? component->Owner() : nullptr; owner; owner = owner->Owner())
        if (auto* app = dynamic_cast<TQzCApplication*>(owner))
            return app;
    return QzCApp();
}

}  // namespace

TFrPkgImages::TFrPkgImages(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    QzMakeIdEdit(EdId);
    CreateMenus();
    connect(EdId, &QLineEdit::textEdited, this, &TFrPkgImages::IdChange);
    // A click makes the cell current before it selects it: the Id follows
    // the current cell, the buttons the selection.
    connect(Images->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) { ImagesClick(current.row()); });
    connect(Images->selectionModel(), &QItemSelectionModel::selectionChanged, this, &TFrPkgImages::ChangeState);
    connect(Images, &QAbstractItemView::doubleClicked, this, [this] {
        if (BtModify->isEnabled())
            BtModifyClick();
    });
    connect(BtAdd, &QPushButton::clicked, this, &TFrPkgImages::BtAddClick);
    connect(BtModify, &QPushButton::clicked, this, &TFrPkgImages::BtModifyClick);
    connect(BtDelete, &QPushButton::clicked, this, &TFrPkgImages::BtDeleteClick);
    connect(BtClear, &QPushButton::clicked, this, &TFrPkgImages::BtClearClick);
    connect(BtLoad, &QPushButton::clicked, this, &TFrPkgImages::BtLoadClick);
    connect(BtSave, &QPushButton::clicked, this, &TFrPkgImages::BtSaveClick);
    connect(BtLoadFrom, &QPushButton::clicked, this, &TFrPkgImages::BtLoadFromClick);
    connect(BtSaveTo, &QPushButton::clicked, this, &TFrPkgImages::BtSaveToClick);
    connect(BtReport, &QPushButton::clicked, this, &TFrPkgImages::BtReportClick);
    connect(BtManager, &QPushButton::clicked, this, &TFrPkgImages::BtManagerClick);
    connect(BtSynchronizer, &QPushButton::clicked, this, &TFrPkgImages::BtSynchronizerClick);
    connect(BtOk, &QPushButton::clicked, this, &TFrPkgImages::accept);
    BtOk->setDefault(true);
    // The buttons' panel has no layout: they are stacked from its bottom.
    Panel1->installEventFilter(this);
}

TFrPkgImages::~TFrPkgImages() = default;

void TFrPkgImages::CreateMenus()
{
    CreatePkgMenu(
        this, Images, [this] { MnImportClick(); }, [this](bool protect) { MnProtectAllImagesClick(protect); });
    MnWhereUsed = QzImagesMenuAction(PopupMenu1, "MnWhereUsed", "Where Is It Used...", false, N3);
    MnReportPdf = QzImagesMenuAction(PopupMenu1, "MnReportPdf", "Save Report As PDF...", false, N3);
    MnUpdateSystemImages =
        QzImagesMenuAction(PopupMenu1, "MnUpdateSystemImages", "Update System Images", false, MnProtectAllImages);
    N4 = PopupMenu1->insertSeparator(MnProtectAllImages);
    N4->setObjectName("N4");

    connect(MnWhereUsed, &QAction::triggered, this, &TFrPkgImages::MnWhereUsedClick);
    connect(MnReportPdf, &QAction::triggered, this, &TFrPkgImages::MnReportPdfClick);
    connect(MnUpdateSystemImages, &QAction::triggered, this, &TFrPkgImages::MnUpdateSystemImagesClick);
}

bool TFrPkgImages::IsSystemShown() const
{
    return FPackage && FPackage->IsSystem();
}

TModalResult TFrPkgImages::Execute()
{
    std::unique_ptr<TQzPlacementTracker> tracker;
    if (FPackage)
        tracker = std::make_unique<TQzPlacementTracker>(this, FPackage->Placement());
    else
        QzCenterWindow(this);
    Prepare();
    const TModalResult result = ShowModal();
    if (tracker && tracker->Changed()) {
        FPackage->SetPlacement(tracker->Current());
        Modified();
    }
    UpdateFile();
    return result;
}

void TFrPkgImages::Prepare()
{
    setWindowTitle(QzQString("Package : " + (FPackage ? FPackage->PkgName() : AnsiString())));
    if (FEmbedded)
        for (QWidget* w : std::initializer_list<QWidget*>{Label5, Label7, Label4, LabMode, BtLoad, BtSave, BtSynchronizer})
            w->hide();
    ShowPkgCommands(FPackage, {MnUpdateSystemImages, N4});
    if (FPackage && IsFilePkg() && FPackage->FileModified())
        QzRunReportingErrors(this, [&] { FPackage->LoadFile(); });
    PkgChange();
    UpdateInfo();
    AdjustComponents();
}

// ------------------------------------------------------------------- grid

void TFrPkgImages::LoadImages()
{
    Images->GridModel()->Reload(FPackage);
    IdChange();
}

void TFrPkgImages::PkgChange()
{
    LoadImages();
    ChangeState();
}

void TFrPkgImages::IdChange()
{
    Images->SelectId(QzIdEditValue(EdId));
    ChangeState();
}

void TFrPkgImages::ImagesClick(int row)
{
    if (const TQzPkgImagesImage* image = Images->GridModel()->Image(row))
        QzSetIdEditValue(EdId, image->Id());
}

void TFrPkgImages::AfterChange()
{
    ChangeState();
    LoadImages();
    UpdateInfo();
}

// ------------------------------------------------------------------ state

void TFrPkgImages::ChangeState()
{
    const TQzPkgInfo* holder = FPackage;
    LabMode->setText(holder && holder->InitMode() == imFile ? "FILE" : "DFM");
    Label7->setText(!holder || holder->FileName().empty() ? QStringLiteral("(Memory)")
                                                           : QzQString(holder->FileName()));
    const bool valid = FPackage && QzImagesValidPkg(FPackage->PkgName());
    const bool selected = valid && Images->SelectedRow() >= 0;
    BtAdd->setEnabled(valid);
    BtClear->setEnabled(valid);
    BtLoadFrom->setEnabled(valid);
    BtModify->setEnabled(selected);
    BtDelete->setEnabled(selected);
    Images->setFocusPolicy(valid ? Qt::StrongFocus : Qt::ClickFocus);
    for (QWidget* w : std::initializer_list<QWidget*>{BtLoad, BtSave, BtSaveTo, BtReport, BtManager, BtSynchronizer})
        w->setEnabled(FPackage != nullptr);
    MnReportPdf->setEnabled(FPackage != nullptr);
    MnWhereUsed->setEnabled(FPackage && Images->SelectedRow() >= 0);
}

void TFrPkgImages::UpdateInfo()
{
    StatusBar1->showMessage(QzQString(QzImagesStatusText(FPackage, IsSystemShown())));
}

bool TFrPkgImages::IsFilePkg() const
{
    return FPackage && QzImagesIsFilePkg(*FPackage);
}

void TFrPkgImages::Modified()
{
    // Embedded, the display editor decides once it is closed.
    if (FPackage && !FEmbedded)
        QzDesignerModified(QzImagesModifiedOwner(*FPackage));
}

void TFrPkgImages::UpdateFile()
{
    if (!FPackage)
        return;
    QzRunReportingErrors(this, [&] { FPackage->SaveFile(); });
    // A display package's images live in its file; embedded, the display
    // editor writes it.
    if (auto* display = dynamic_cast<TQzPkgDisplay*>(FPackage->Owner()); display && !FEmbedded)
        QzRunReportingErrors(this, [&] { display->SaveFile(); });
}

void TFrPkgImages::AdjustComponents()
{
    const int h = BtOk->sizeHint().height();
    const int small = h / 5;
    const int large = h / 3;
    const int margin = 4;
    const int width = Panel1->width() - 2 * margin;
    int top = Panel1->height() - h - small;
    BtOk->setGeometry(margin, top, width, h);
    const std::pair<QPushButton*, int> stack[] = {
        {BtClear, large}, {BtDelete, large}, {BtModify, small}, {BtAdd, small},
        {BtSaveTo, large}, {BtLoadFrom, small}, {BtSave, large}, {BtLoad, small},
        {BtSynchronizer, large}, {BtManager, small}, {BtReport, small},
    };
    for (const auto& [button, gap] : stack) {
        top -= gap + h;
        button->setGeometry(margin, top, width, h);
    }
}

bool TFrPkgImages::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == Panel1 && event->type() == QEvent::Resize)
        AdjustComponents();
    return TQzDialog::eventFilter(watched, event);
}

// --------------------------------------------------------------- commands

void TFrPkgImages::BtAddClick()
{
    if (!FPackage)
        return;
    const std::optional<Integer> id = QzAddOrModifyImage(this, FPackage, nullptr);
    if (!id)
        return;
    QzSetIdEditValue(EdId, *id);
    LoadImages();
    UpdateInfo();
    if (!IsFilePkg())
        Modified();
}

void TFrPkgImages::BtModifyClick()
{
    const TQzPkgImagesImage* image = Images->SelectedImage();
    if (!FPackage || !image)
        return;
    const Integer oldId = image->Id();
    const std::optional<Integer> id = QzAddOrModifyImage(this, FPackage, image);
    if (!id)
        return;
    if (*id != oldId) {
        QzSetIdEditValue(EdId, *id);
        LoadImages();
    }
    Images->viewport()->update();
    UpdateInfo();
    if (!IsFilePkg())
        Modified();
}

void TFrPkgImages::BtDeleteClick()
{
    const int row = Images->SelectedRow();
    if (!FPackage || row < 0)
        return;
    if (!QzConfirmImageDelete())
        return;
    RemoveRow(row);
}

void TFrPkgImages::DeleteItem(TObject* image)
{
    const int row = Images->GridModel()->RowOf(dynamic_cast<TQzPkgImagesImage*>(image));
    if (row >= 0)
        RemoveRow(row);
}

void TFrPkgImages::RemoveRow(int row)
{
    const TQzPkgImagesImage* selected = Images->DeleteRow(row);
    QzSetIdEditValue(EdId, selected ? selected->Id() : -1);
    IdChange();
    UpdateInfo();
    if (!IsFilePkg())
        Modified();
}

void TFrPkgImages::BtClearClick()
{
    if (!FPackage || QzMsgPkg(mtConfirmation, "System", 50, {bkOK, bkCancel}, bkCancel) != bkOK)
        return;
    if (!QzRunReportingErrors(this, [&] { FPackage->Clear(); }))
        return;
    Images->GridDelegate()->Cache().Clear();
    if (!IsFilePkg())
        Modified();
    LoadImages();
    UpdateInfo();
}

void TFrPkgImages::MnProtectAllImagesClick(bool protect)
{
    if (!FPackage)
        return;
    bool changed = false;
    if (!QzRunReportingErrors(this, [&] { changed = FPackage->Images()->SetAllProtected(protect); }) || !changed)
        return;
    AfterChange();
    Modified();
}

// ------------------------------------------------------------------ files

void TFrPkgImages::BtLoadClick()
{
    if (!FPackage)
        return;
    UpdateFile();
    if (!QzExecutePkgLoadSave(FPackage, TQzLoadSave::Load, this))
        return;
    Images->GridDelegate()->Cache().Clear();
    AfterChange();
    Modified();
}

void TFrPkgImages::BtSaveClick()
{
    if (!FPackage)
        return;
    UpdateFile();
    if (!QzExecutePkgLoadSave(FPackage, TQzLoadSave::Save, this))
        return;
    ChangeState();
    Modified();
}

void TFrPkgImages::BtLoadFromClick()
{
    if (!FPackage)
        return;
    const AnsiString name = QzOpenFile(QzPkgFileRequest(*FPackage, "Package Images", "Load From", this));
    if (name.empty())
        return;
    // A file that cannot be read is named in the error; the package keeps
    // what it had.
    if (!QzRunReportingErrors(this, [&] { FPackage->LoadFromFile(name); }))
        return;
    FPackage->Change();
    Images->GridDelegate()->Cache().Clear();
    LoadImages();
    UpdateInfo();
    if (!IsFilePkg())
        Modified();
}

void TFrPkgImages::BtSaveToClick()
{
    if (!FPackage)
        return;
    const AnsiString name = QzSaveFile(QzPkgFileRequest(*FPackage, "Package Images", "Save To", this));
    if (!name.empty())
        QzRunReportingErrors(this, [&] { FPackage->SaveToFile(name); });
}

// ------------------------------------------------------- other windows

void TFrPkgImages::BtManagerClick()
{
    if (!FPackage)
        return;
    TQzEditorDialogRequest request;
    request.Kind = static_cast<int>(TQzDlgManager::Images);
    request.PkgName = FPackage->PkgName();
    request.Value = QzAnsiString(EdId->text());
    QzRunEditorDialog(TQzEditorDialog::Manager, request);
}

// The manager's count of references, for the image selected.
void TFrPkgImages::MnWhereUsedClick()
{
    const TQzPkgImagesImage* image = Images->SelectedImage();
    if (!FPackage || !image)
        return;
    TQzEditorDialogRequest request;
    request.Kind = static_cast<int>(TQzDlgManager::Images);
    request.PkgName = FPackage->PkgName();
    request.Value = IntToStr(image->Id());
    QzRunEditorDialog(TQzEditorDialog::Manager, request);
}

void TFrPkgImages::BtSynchronizerClick()
{
    if (!FPackage)
        return;
    QzExecutePkgSynchronizer(FPackage, this);
    Images->GridDelegate()->Cache().Clear();
    LoadImages();
    UpdateInfo();
    if (!IsFilePkg())
        Modified();
}

void TFrPkgImages::MnImportClick()
{
    if (!FPackage)
        return;
    UpdateFile();
    TFrImportImages dialog(this);
    dialog.SetTarget(FPackage);
    if (dialog.Execute() != mrOk)
        return;
    AfterChange();
    Modified();
}

void TFrPkgImages::MnUpdateSystemImagesClick()
{
    if (!FPackage)
        return;
    TFrUpdateSystemImages dialog(this);
    dialog.SetApplication(ApplicationOf(FPackage));
    if (dialog.Execute() != mrOk)
        return;
    Images->GridDelegate()->Cache().Clear();
    AfterChange();
    Modified();
}

// ----------------------------------------------------------------- report

void TFrPkgImages::BtReportClick()
{
    if (!FPackage)
        return;
    std::unique_ptr<QPrinter> printer = QzDialogs().CreatePrinter();
    if (!printer || !QzDialogs().PrinterSetup(*printer, this))
        return;
    QzRunReportingErrors(this, [&] { PrintReport(*printer); });
}

void TFrPkgImages::MnReportPdfClick()
{
    if (!FPackage)
        return;
    TQzFileRequest request;
    request.Title = "Save Report As PDF";
    request.Filter = "PDF files (*.pdf)|*.pdf|All files (*.*)|*.*";
    request.DefaultExt = "pdf";
    request.FileName = FPackage->PkgName() + ".pdf";
    request.Parent = this;
    const AnsiString name = QzSaveFile(request);
    if (name.empty())
        return;
    QzRunReportingErrors(this, [&] {
        std::unique_ptr<QPrinter> printer = QzCreatePdfPrinter(QzQString(name));
        PrintReport(*printer);
    });
}

void TFrPkgImages::PrintReport(QPrinter& printer)
{
    QPainter painter;
    QzBeginDocument(painter, printer, "Images Report");
    const TQzImagesReportMetrics metrics = QzImagesReportMetrics(printer.logicalDpiX(), printer.logicalDpiY());
    const QFont font = painter.font();
    QFont headingFont = font;
    headingFont.setPointSize(10);
    const QString heading = QStringLiteral("**** Images Report ****");
    const int headerHeight = QFontMetrics(headingFont, &printer).height();
    const auto printHeading = [&] {
        painter.setFont(headingFont);
        painter.drawText(QRect(0, 0, printer.width(), headerHeight), Qt::AlignLeft | Qt::AlignTop, heading);
        painter.setFont(font);
    };
    const int count = Images->GridModel()->rowCount();
    const std::vector<TQzImagesReportCell> cells =
        QzImagesReportLayout(count, QSize(printer.width(), printer.height()), headerHeight, metrics);
    printHeading();
    int page = 0;
    for (int row = 0; row < count; ++row) {
        const TQzImagesReportCell& cell = cells[static_cast<size_t>(row)];
        if (cell.Page != page) {
            if (!printer.newPage())
                throw EPrinter("Cannot start page " + IntToStr(cell.Page + 1) + " of the images report");
            page = cell.Page;
            printHeading();
        }
        const TQzPkgImagesImage* image = Images->GridModel()->Image(row);
        QRect text;
        painter.drawText(cell.Rect, Qt::AlignHCenter | Qt::AlignTop | Qt::TextWordWrap,
                         QzQString(QzImagesCellText(*image, TQzImagesLine::WidthHeight).Text), &text);
        // Stretched over what is left of the cell, as the picture is.
        const QRect area(QPoint(cell.Rect.left(), text.bottom() + 1), cell.Rect.bottomRight());
        const QImage picture = QzPreparedPicture(*image, {});
        if (!picture.isNull() && area.height() > 0)
            painter.drawImage(area, picture);
    }
    painter.end();
}

void RegisterQzvtpkgimages()
{
    QzSetEditorDialog(TQzEditorDialog::PkgImages, [](TQzEditorDialogRequest& request) {
        auto* package = dynamic_cast<TQzPkgImages*>(request.Package);
        if (!package)
            return 0;
        TFrPkgImages form(QApplication::activeWindow());
        form.SetPackage(package);
        // The display editor names itself as the component: it decides what
        // is modified once the editor is closed.
        form.SetEmbedded(dynamic_cast<TQzPkgDisplay*>(request.Component) != nullptr);
        return form.Execute() == mrOk ? 1 : 0;
    });
}
