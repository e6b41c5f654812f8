#pragma once
// TFrImageE: the runtime's image window, which an image's tool bar opens to
// look at the picture at any zoom and to replace it: from a file or the
// clipboard, or by nothing. The window works on a copy; the component's
// picture changes only on OK.

#include "vcl/QzDialog.h"

#include "ui_TFrImageE.h"

#include "rtl/System.h"

#include <memory>

class TComponent;
class TQzPkgImages;
class TQzPkgImagesImage;

class TFrImageE : public TQzDialog, public Ui::TFrImageE {
    Q_OBJECT

public:
    explicit TFrImageE(QWidget* parent = nullptr);
    ~TFrImageE() override;

    using TQzDialog::Execute;
    // Runs the window titled caption on the picture of component (an image,
    // a focus image or a package image control). On OK the picture replaces
    // the component's and the result is true. Without a component the
    // window is a sample whose picture goes nowhere. A component that shows
    // no package image is refused with a message, and nothing opens.
    bool Execute(const AnsiString& caption, TComponent* component);
    // The same on one package image (nullptr: the sample).
    bool Execute(const AnsiString& caption, TQzPkgImagesImage* image);

    // The picture as the window holds it now.
    TQzPkgImagesImage* Edited() const { return FEdited; }
    // Zoom in percent; 0 fits the picture into the view.
    void SetZoom(int percent);

protected:
    // A picture fitted to the view follows the view's size.
    void resizeEvent(QResizeEvent* event) override;

private:
    void BtLoadClick();
    void BtSaveClick();
    void BtCopyClick();
    void BtPasteClick();
    void BtClearClick();
    void ShowPicture();
    void UpdateButtons();

    std::unique_ptr<TQzPkgImages> FScratch;
    TQzPkgImagesImage* FEdited = nullptr;
};

// The package image a control shows, or nullptr.
TQzPkgImagesImage* QzComponentImage(TComponent* component);

// Asks for a picture file to load, in every format the runtime reads;
// empty when the user cancels.
AnsiString QzAskPictureToLoad(QWidget* parent);
