#pragma once
// TFrMemoryImageAdd: adds one image to an images package or modifies one.
// The dialog edits a working copy in a package of its own, so Cancel (or a
// refused Id) leaves the target package exactly as it was; the copy is
// written into the target only on Ok. The picture operations themselves are
// in QzMemoryImageLogic.h and the runtime's TQzPicture.

#include "design/images/QzMemoryImageLogic.h"
#include "vcl/QzDialog.h"

#include "ui_TFrMemoryImageAdd.h"

#include <functional>
#include <memory>

class QAction;
class QMenu;
class TQzPkgImages;
class TQzPkgImagesImage;

class TFrMemoryImageAdd : public TQzDialog, public Ui::TFrMemoryImageAdd {
    Q_OBJECT

public:
    explicit TFrMemoryImageAdd(QWidget* parent = nullptr);
    ~TFrMemoryImageAdd() override;

    // modify=false: adds a new image to pkg, EdId preset to id (the caller
    //   passes UniqueId of the collection);
    // modify=true: edits the image whose Id is id.
    // The caller sets the caption ("Add Image", "Modify Image"). Returns 1
    // when the image was written; a bad or refused Id shows the error and
    // keeps the dialog open. Modify without any change writes nothing and
    // returns 0.
    int Execute(TQzPkgImages* pkg, bool modify, Integer id);

    // The Id the image was written under (valid after a result of 1).
    Integer ResultId() const { return FResultId; }
    // The working copy the commands act on.
    TQzPkgImagesImage* WorkingImage() const { return FWork; }

    // Asks for the colour a mask is made from; false when cancelled. Qt's
    // colour dialog by default; tests put an answer in its place.
    std::function<bool(TColor& color)> ChooseColor;

    // The commands, as the buttons and the mask menu run them.
    void BtLoadClick();
    void BtSaveClick();
    void BtClearClick();
    void BtCopyClick();
    void BtCutClick();
    void BtPasteClick();
    void MaskFromColor(bool ask);   // ask=false: the bottom-left pixel's colour
    void MaskFromFile();
    void MaskClear();
    // The mask editor on the working image, starting on the chosen mask.
    void MaskEditor();
    void SetMaskKind(TQzMaskKind kind);
    TQzMaskKind MaskKind() const { return FMaskKind; }

    void ChangeState();

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    using TQzDialog::Execute;

    void CreateMaskMenu();
    void BtOkClick();
    bool StoreImage();
    void ShowPreview();
    // Runs an edit of the working image: reported when refused, else the
    // preview and state follow and the dialog is dirty.
    void Edit(const std::function<void()>& change);

    TQzPkgImages* FTarget = nullptr;
    bool FModify = false;
    Integer FStartId = -1;
    Integer FResultId = -1;
    bool FDirty = false;
    TQzMaskKind FMaskKind = TQzMaskKind::Internal;
    std::unique_ptr<TQzPkgImages> FLocal;
    TQzPkgImagesImage* FWork = nullptr;

    QMenu* PopupMask;
    QAction* MnMaskInternal;
    QAction* MnMaskExternal;
    QAction* MnMaskEditor;
    QAction* MnMaskAuto;
    QAction* MnMaskColor;
    QAction* MnMaskFile;
    QAction* MnMaskClear;
};
