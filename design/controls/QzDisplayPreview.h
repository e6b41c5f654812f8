#pragma once
// Samples of the runtime's hints and common windows as the display package
// makes them look: the geometry given (the one being edited), the sets of
// the package by their names. The hints and common-windows dialogs paint
// their previews with these.

#include "runtime/model/QzPkgDisplay.h"

#include <QFont>
#include <QString>
#include <QWidget>

#include <functional>
#include <vector>

class QPainter;

// The sets a sample is drawn with, looked up in a display package (nullptr,
// or a set missing: the suite's standard look).
struct TQzPreviewLooks {
    TQzBackGroundValues Back;
    TQzFontValues Font;
    TQzBackGroundValues TitleBack;
    TQzFontValues TitleFont;
};
TQzPreviewLooks QzHintLooks(const TQzPkgDisplay* display);
TQzPreviewLooks QzCommonWndLooks(const TQzPkgDisplay* display);

QFont QzFontOfValues(const TQzFontValues& values);
// Fills rect as a background set paints: solid, or a gradient from the
// start to the end colour; a picture style shows its solid colour here.
void QzPaintBackGround(QPainter& painter, const QRect& rect, const TQzBackGroundValues& values);

// A sample common window: title, text (lines split at '\n') and buttons.
struct TQzCommonWndSample {
    QString Title;
    QString Text;
    std::vector<QString> Buttons;
};
QSize QzCommonWndSampleSize(const TQzDisplayGeometry& geometry, const TQzPreviewLooks& looks,
                            const TQzCommonWndSample& sample);
void QzPaintCommonWnd(QPainter& painter, QPoint at, const TQzDisplayGeometry& geometry, const TQzPreviewLooks& looks,
                      const TQzCommonWndSample& sample);

QSize QzHintSampleSize(const TQzDisplayGeometry& geometry, const TQzPreviewLooks& looks, const QString& text);
void QzPaintHint(QPainter& painter, QPoint at, const TQzDisplayGeometry& geometry, const TQzPreviewLooks& looks,
                 const QString& text);

// A plain widget that paints through a function: the dialogs' preview panes.
class TQzPreviewPane : public QWidget {
public:
    explicit TQzPreviewPane(QWidget* parent = nullptr) : QWidget(parent) {}
    std::function<void(QPainter& painter)> OnPaint;

protected:
    void paintEvent(QPaintEvent* event) override;
};
