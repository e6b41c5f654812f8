#pragma once
// The widgets of the mask editor's work area: the picture at a zoom with its
// cut-away pixels shown as a checkerboard, taking brush strokes and fills
// from the mouse, and the rulers along its edges. The edits themselves are
// TQzRgnDocument's; these only translate the mouse and paint.

#include "design/images/QzDesignRgnLogic.h"

#include <QWidget>

#include <memory>

class TQzRuler;

enum class TQzRgnTool { Draw, Erase, Fill };

class TQzRgnView : public QWidget {
    Q_OBJECT

public:
    explicit TQzRgnView(TQzRgnDocument* document, QWidget* parent = nullptr);

    TQzRgnTool Tool() const { return FTool; }
    void SetTool(TQzRgnTool tool) { FTool = tool; }
    void SetBrushSize(int size) { FBrushSize = size; }
    // A fill takes the area of the seed's picture colour, not its mask value.
    void SetFillByColor(bool byColor) { FFillByColor = byColor; }

    Integer Zoom() const { return FZoom; }
    void SetZoom(Integer percent);
    // The picture pixel under a point of the widget; outside the picture
    // the point is still translated (rulers follow the pointer off it).
    QPoint PicturePoint(QPoint widgetPoint) const;
    // Call after the document changed from elsewhere (undo, a button).
    void Refresh();

signals:
    // The picture pixel under the pointer; (-1, -1) when it left the view.
    void PointerMoved(QPoint picturePoint);
    // An edit was made with the mouse.
    void Edited();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    TQzRgnDocument* FDocument;
    QImage FPreview;
    TQzRgnTool FTool = TQzRgnTool::Draw;
    int FBrushSize = 1;
    bool FFillByColor = true;
    Integer FZoom = 100;
};

// A TQzRuler shown as a widget: it follows a scroll position in screen
// pixels, so it stays aligned with the view at every zoom.
class TQzRulerBar : public QWidget {
    Q_OBJECT

public:
    TQzRulerBar(bool horizontal, QWidget* parent = nullptr);
    ~TQzRulerBar() override;

    TQzRuler& Ruler() { return *FRuler; }
    void SetZoom(Integer percent);
    void SetScroll(int screenPixels);
    void SetMarker(Integer picturePixel);

protected:
    void paintEvent(QPaintEvent* event) override;
    QSize sizeHint() const override;

private:
    std::unique_ptr<TQzRuler> FRuler;
    int FScroll = 0;
};
