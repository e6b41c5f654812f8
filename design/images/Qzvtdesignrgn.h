#pragma once
// TFrDesignRgn, the mask editor: cuts an image's transparent region or its
// window shape out of the picture by hand, with a brush, fills and undo,
// over a zoomable view between rulers. It edits copies of the masks; the
// image changes only on Ok.

#include "design/images/QzDesignRgnLogic.h"
#include "vcl/QzDialog.h"

#include "ui_TFrDesignRgn.h"

#include <memory>

class QScrollArea;
class TQzPicture;
class TQzRgnView;
class TQzRulerBar;

class TFrDesignRgn : public TQzDialog, public Ui::TFrDesignRgn {
    Q_OBJECT

public:
    explicit TFrDesignRgn(QWidget* parent = nullptr);
    ~TFrDesignRgn() override;

    // Shows the image's masks, starting on kind. Returns 1 when Ok wrote a
    // changed mask into the image; an empty image is reported and gives 0.
    int Execute(TQzPicture& picture, TQzMaskKind kind = TQzMaskKind::Internal);

    // Valid while Execute runs (tests drive them).
    TQzRgnDocument* Document() const { return FDocument.get(); }
    TQzRgnView* View() const { return FView; }
    TQzRulerBar* HorizontalRuler() const { return FRulerTop; }

    static constexpr Integer Zooms[] = {25, 50, 100, 200, 400, 800, 1600, 3200};
    // The largest zoom that shows a picture of size whole in about 640x480.
    static Integer FittingZoom(QSize size);

    void SetZoom(Integer percent);
    void ChangeState();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using TQzDialog::Execute;

    void CreateView();
    void ShowPosition(QPoint picturePoint);
    void BtOkClick();

    TQzPicture* FPicture = nullptr;
    std::unique_ptr<TQzRgnDocument> FDocument;
    TQzRgnView* FView = nullptr;
    QScrollArea* FScroll = nullptr;
    TQzRulerBar* FRulerTop = nullptr;
    TQzRulerBar* FRulerLeft = nullptr;
    QPoint FPointer{-1, -1};
};

// Opens the mask editor on picture; 1 when a mask was changed.
int QzExecuteDesignRgn(TQzPicture& picture, QWidget* parent, TQzMaskKind kind = TQzMaskKind::Internal);
