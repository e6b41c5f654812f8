#pragma once
// TQzRuler: the ruler the mask and region designer puts along the edges of
// a picture, so the user can read positions in pixels, millimetres or
// inches at any zoom. The design package registers it on the palette too.
//
// The marks are computed apart from painting (Ticks) so that the spacing
// rules can be checked without a window.

#include "runtime/components/Controls.h"

#include <vector>

class QPainter;
class QRect;

enum TQzRulerOrientation { roHorizontal, roVertical };
const TTypeInfo* TypeInfo_TQzRulerOrientation();

enum TQzRulerUnits { ruPixels, ruMillimeters, ruInches };
const TTypeInfo* TypeInfo_TQzRulerUnits();

enum TQzRulerTickKind { rtMinor, rtMedium, rtMajor };

struct TQzRulerTick {
    int Position = 0;          // pixels from the ruler's start
    TQzRulerTickKind Kind = rtMinor;
    AnsiString Label;          // majors only: the value in the ruler's units
    bool operator==(const TQzRulerTick&) const = default;
};

class TQzRuler : public TGraphicControl {
    QZ_CLASS(TQzRuler, TGraphicControl)

public:
    // Majors are at least this far apart, so labels never overlap.
    static constexpr int MinMajorSpacing = 36;
    static constexpr Integer MinZoom = 10;
    static constexpr Integer MaxZoom = 3200;

    explicit TQzRuler(TComponent* owner);

    TQzRulerOrientation Orientation() const { return FOrientation; }
    void SetOrientation(TQzRulerOrientation value) { FOrientation = value; }
    TQzRulerUnits Units() const { return FUnits; }
    void SetUnits(TQzRulerUnits value) { FUnits = value; }
    // Percent; 100 shows a picture's pixels one to one. Out of range raises
    // EConvertError and keeps the old zoom.
    Integer Zoom() const { return FZoom; }
    void SetZoom(Integer value);
    // The picture pixel shown at the ruler's start (the view's scroll
    // position), in picture pixels.
    Integer Offset() const { return FOffset; }
    void SetOffset(Integer value) { FOffset = value; }
    // Where the pointer is, in picture pixels; -1 hides the marker.
    Integer Marker() const { return FMarker; }
    void SetMarker(Integer value) { FMarker = value; }
    // How many screen pixels one unit takes at the current zoom.
    double PixelsPerUnit(int pixelsPerInch) const;
    // The value step between two majors and how many parts a major splits into.
    double MajorStep(int pixelsPerInch) const;
    int Divisions(int pixelsPerInch) const;
    // Every mark from 0 to length screen pixels, in order.
    std::vector<TQzRulerTick> Ticks(int length, int pixelsPerInch) const;
    // The marker's screen position, or -1 when it is hidden or off the ruler.
    int MarkerPosition(int length) const;
    // Draws the ruler into rect: ticks from the edge that faces the picture.
    void Paint(QPainter& painter, const QRect& rect, int pixelsPerInch) const;

private:
    static void DeclareProperties(TClassBuilder<TQzRuler>& b);

    TQzRulerOrientation FOrientation = roHorizontal;
    TQzRulerUnits FUnits = ruPixels;
    Integer FZoom = 100;
    Integer FOffset = 0;
    Integer FMarker = -1;
};
