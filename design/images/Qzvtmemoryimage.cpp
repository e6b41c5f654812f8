#include "design/images/Qzvtmemoryimage.h"

#include "design/images/Qzvtimportimages.h"
#include "design/manager/QzManagerKinds.h"
#include "design/reg/QzEditorDialogs.h"
#include "runtime/model/QzApplication.h"
#include "runtime/model/QzMemory.h"
#include "runtime/model/QzPkgDisplay.h"
#include "runtime/model/QzRegistry.h"
#include "runtime/util/QzDesigner.h"
#include "vcl/QzIdEdit.h"
#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"
#include "vcl/QzWindowBounds.h"

#include <QApplication>
#include <QLineEdit>

namespace {

// The chooser opens where the user last left it, for as long as the program runs.
TQzResizeInfoDesigner ChooserBounds;

bool SystemEditing()
{
    const TQzCApplication* app = QzCApp();
    return app && app->SystemEdit();
}

}  // namespace

TFrMemoryImage::TFrMemoryImage(QWidget* parent) : TQzDialog(parent)
{
    setupUi(this);
    RememberBounds(&ChooserBounds);
    QzMakeIdEdit(EdId);
    CreatePkgMenu(
        this, Images, [this] { MnImportClick(); }, [this](bool protect) { MnProtectAllImagesClick(protect); });
    connect(EdPkg, &QComboBox::currentTextChanged, this, &TFrMemoryImage::PkgChange);
    connect(EdId, &QLineEdit::textEdited, this, &TFrMemoryImage::IdChange);
    connect(Images->selectionModel(), &QItemSelectionModel::currentChanged, this, &TFrMemoryImage::ImagesClick);
    connect(Images, &QAbstractItemView::doubleClicked, this, [this] {
        if (Images->SelectedRow() >= 0)
            accept();
    });
    connect(BtAdd, &QPushButton::clicked, this, &TFrMemoryImage::BtAddClick);
    connect(BtModify, &QPushButton::clicked, this, &TFrMemoryImage::BtModifyClick);
    connect(BtDelete, &QPushButton::clicked, this, &TFrMemoryImage::BtDeleteClick);
    connect(BtManager, &QPushButton::clicked, this, &TFrMemoryImage::BtManagerClick);
    connect(BtNull, &QPushButton::clicked, this, &TFrMemoryImage::BtNullClick);
    connect(BtDefault, &QPushButton::clicked, this, &TFrMemoryImage::BtDefaultClick);
    connect(BtOk, &QPushButton::clicked, this, &TFrMemoryImage::accept);
    connect(BtCancel, &QPushButton::clicked, this, &TFrMemoryImage::reject);
}

TFrMemoryImage::~TFrMemoryImage() = default;

TModalResult TFrMemoryImage::Execute()
{
    if (!FMemoryImage)
        return mrNone;
    FClosingSpecial = false;
    TStringList names;
    QzPkgImagesActives(&names);
    names.Sort();
    {
        const QSignalBlocker block(EdPkg);
        EdPkg->clear();
        for (int i = 0; i < names.Count(); ++i)
            EdPkg->addItem(QzQString(names.Get(i)));
    }
    // A reference that follows its default opens on the default's image.
    const bool followsDefault = FMemoryImage->HasDefault() && FMemoryImage->Id() == TQzMemoryRef::IdDefault;
    AnsiString pkgName = followsDefault ? FMemoryImage->DefaultPkgName() : FMemoryImage->PkgName();
    const Integer id = followsDefault ? FMemoryImage->DefaultId() : FMemoryImage->Id();
    if (pkgName.empty())
        pkgName = "User";
    QzSetIdEditValue(EdId, id);
    {
        const QSignalBlocker block(EdPkg);
        EdPkg->setEditText(QzQString(pkgName));
    }
    PkgChange();
    if (names.IndexOf(pkgName) < 0)
        EdPkg->setFocus();
    else
        EdId->setFocus();
    return ShowModal();
}

// ------------------------------------------------------------------- grid

void TFrMemoryImage::PkgChange()
{
    SaveShownFile();
    FPackage = QzFindPkgImages(QzAnsiString(EdPkg->currentText()));
    if (FPackage && FPackage->InitMode() == imFile && FPackage->FileModified())
        QzRunReportingErrors(this, [&] { FPackage->LoadFile(); });
    Images->GridDelegate()->Cache().Clear();
    LoadImages();
    if (MnProtected->isChecked() && !(FPackage && FPackage->IsSystem()))
        MnWH->setChecked(true);
    UpdateInfo();
}

void TFrMemoryImage::LoadImages()
{
    Images->GridModel()->Reload(FPackage);
    IdChange();
}

void TFrMemoryImage::IdChange()
{
    Images->SelectId(QzIdEditValue(EdId));
    ChangeState();
}

void TFrMemoryImage::ImagesClick()
{
    if (const TQzPkgImagesImage* image = Images->SelectedImage())
        QzSetIdEditValue(EdId, image->Id());
    ChangeState();
}

void TFrMemoryImage::AfterChange(Integer selectId)
{
    Images->GridDelegate()->Cache().Clear();
    QzSetIdEditValue(EdId, selectId);
    LoadImages();
    UpdateInfo();
}

// ------------------------------------------------------------------ state

void TFrMemoryImage::ChangeState()
{
    const bool valid = FPackage && QzImagesValidPkg(FPackage->PkgName());
    const bool selected = valid && Images->SelectedRow() >= 0;
    BtAdd->setEnabled(valid);
    BtModify->setEnabled(selected);
    BtDelete->setEnabled(selected);
    Images->setFocusPolicy(valid ? Qt::StrongFocus : Qt::NoFocus);
    ShowPkgCommands(FPackage);
}

void TFrMemoryImage::UpdateInfo()
{
    StatusBar1->showMessage(QzQString(QzImagesStatusText(FPackage, MnProtected->isVisible())));
}

void TFrMemoryImage::Modified()
{
    // A package kept in its own file is written when the window closes;
    // one kept in the form marks its form, and the application's.
    if (!FPackage || FPackage->InitMode() != imDFM)
        return;
    QzDesignerModified(FPackage->Owner());
    if (const TQzCApplication* app = QzCApp())
        QzDesignerModified(app->Owner());
}

void TFrMemoryImage::SaveShownFile()
{
    if (!FPackage)
        return;
    QzRunReportingErrors(this, [&] {
        FPackage->SaveFile();
        if (auto* display = dynamic_cast<TQzPkgDisplay*>(FPackage->Owner()))
            display->SaveFile();
    });
}

// --------------------------------------------------------------- commands

void TFrMemoryImage::BtAddClick()
{
    if (!BtAdd->isEnabled())
        return;
    if (const std::optional<Integer> id = QzAddOrModifyImage(this, FPackage, nullptr)) {
        AfterChange(*id);
        Modified();
    }
}

void TFrMemoryImage::BtModifyClick()
{
    const TQzPkgImagesImage* image = Images->SelectedImage();
    if (!BtModify->isEnabled() || !image)
        return;
    if (const std::optional<Integer> id = QzAddOrModifyImage(this, FPackage, image)) {
        AfterChange(*id);
        Modified();
    }
}

void TFrMemoryImage::BtDeleteClick()
{
    const int row = Images->SelectedRow();
    if (!BtDelete->isEnabled() || row < 0)
        return;
    if (!QzConfirmImageDelete())
        return;
    const TQzPkgImagesImage* next = Images->DeleteRow(row);
    AfterChange(next ? next->Id() : -1);
    Modified();
}

void TFrMemoryImage::BtManagerClick()
{
    TQzEditorDialogRequest request;
    request.Kind = int(TQzDlgManager::Images);
    request.PkgName = QzAnsiString(EdPkg->currentText());
    request.Value = QzAnsiString(EdId->text());
    QzRunEditorDialog(TQzEditorDialog::Manager, request);
    // The manager may have cleaned images of this package.
    AfterChange(QzIdEditValue(EdId));
}

void TFrMemoryImage::MnImportClick()
{
    if (!FPackage || !MnImport->isEnabled())
        return;
    SaveShownFile();
    TFrImportImages dialog(this);
    dialog.SetTarget(FPackage);
    if (dialog.Execute() != mrOk)
        return;
    AfterChange(QzIdEditValue(EdId));
    Modified();
}

void TFrMemoryImage::MnProtectAllImagesClick(bool protect)
{
    if (!FPackage || !SystemEditing())
        return;
    if (!FPackage->Images()->SetAllProtected(protect))
        return;
    AfterChange(QzIdEditValue(EdId));
    Modified();
}

void TFrMemoryImage::CloseWith(Integer id)
{
    FClosingSpecial = true;
    FClosingId = id;
    accept();
}

void TFrMemoryImage::BtNullClick()
{
    CloseWith(TQzMemoryRef::IdNone);
}

void TFrMemoryImage::BtDefaultClick()
{
    CloseWith(TQzMemoryRef::IdDefault);
}

// ------------------------------------------------------------------ close

void TFrMemoryImage::done(int result)
{
    SaveShownFile();
    if (result == mrOk && FMemoryImage) {
        const AnsiString pkgName = QzAnsiString(EdPkg->currentText());
        Integer id = FClosingSpecial ? FClosingId : QzIdEditValue(EdId);
        // The reference's own default is kept as "the default", so that it
        // follows the default wherever that goes.
        if (id >= 0 && FMemoryImage->HasDefault() && id == FMemoryImage->DefaultId() &&
            SameText(pkgName, FMemoryImage->DefaultPkgName()))
            id = TQzMemoryRef::IdDefault;
        FMemoryImage->PkgId(pkgName, id);
    }
    FClosingSpecial = false;
    TQzDialog::done(result);
}

void RegisterQzvtmemoryimage()
{
    QzSetEditorDialog(TQzEditorDialog::MemoryImage, [](TQzEditorDialogRequest& request) {
        auto* memoryImage = dynamic_cast<TQzMemoryImage*>(request.Target);
        if (!memoryImage)
            return 0;
        TFrMemoryImage form(QApplication::activeWindow());
        form.SetMemoryImage(memoryImage);
        return form.Execute() == mrOk ? 1 : 0;
    });
}
