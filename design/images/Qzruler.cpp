#include "design/images/Qzruler.h"

#include "vcl/QzQtString.h"

#include <QFontMetrics>
#include <QPainter>
#include <QRect>

#include <cmath>

namespace {

constexpr double MillimetersPerInch = 25.4;

// A step is mantissa * 10^exponent with mantissa 1, 2 or 5, so labels stay
// round numbers at every zoom.
struct TStep {
    double Value = 1;
    int Mantissa = 1;
};

TStep StepAtLeast(double minimum)
{
    static constexpr int Mantissas[] = {1, 2, 5};
    for (int exponent = -3; exponent <= 9; ++exponent) {
        const double power = std::pow(10.0, exponent);
        for (int mantissa : Mantissas)
            if (mantissa * power >= minimum * (1 - 1e-9))
                return {mantissa * power, mantissa};
    }
    return {std::pow(10.0, 9) * 5, 5};
}

// How many parts a major splits into: tenths, quarters or fifths, so each
// minor is a round value too. Majors are at least MinMajorSpacing (36)
// pixels and below the next step's size, so minors stay 3.6 pixels or more.
int DivisionsOf(int mantissa)
{
    return mantissa == 1 ? 10 : mantissa == 2 ? 4 : 5;
}

AnsiString ValueLabel(double value)
{
    // Steps are at most three decimals fine; trailing zeros say nothing.
    AnsiString text = Format("%.3f", {value});
    while (!text.empty() && text.back() == '0')
        text.pop_back();
    if (!text.empty() && text.back() == '.')
        text.pop_back();
    return text == "-0" ? AnsiString("0") : text;
}

}  // namespace

const TTypeInfo* TypeInfo_TQzRulerOrientation()
{
    static const TTypeInfo* type = DefineEnumType("TQzRulerOrientation", {"roHorizontal", "roVertical"});
    return type;
}

const TTypeInfo* TypeInfo_TQzRulerUnits()
{
    static const TTypeInfo* type = DefineEnumType("TQzRulerUnits", {"ruPixels", "ruMillimeters", "ruInches"});
    return type;
}

TQzRuler::TQzRuler(TComponent* owner) : TGraphicControl(owner)
{
    SetBounds(0, 0, 200, 20);
}

void TQzRuler::DeclareProperties(TClassBuilder<TQzRuler>& b)
{
    b.Enum("Orientation", TypeInfo_TQzRulerOrientation(), &TQzRuler::Orientation, &TQzRuler::SetOrientation,
           roHorizontal);
    b.Enum("Units", TypeInfo_TQzRulerUnits(), &TQzRuler::Units, &TQzRuler::SetUnits, ruPixels);
    b.Property("Zoom", &TQzRuler::Zoom, &TQzRuler::SetZoom).Default(100);
    b.Property("Offset", &TQzRuler::Offset, &TQzRuler::SetOffset).Default(0);
}

void TQzRuler::SetZoom(Integer value)
{
    if (value < MinZoom || value > MaxZoom)
        throw EConvertError(Format("The zoom must be between %d and %d percent (not %d)", {MinZoom, MaxZoom, value}));
    FZoom = value;
}

double TQzRuler::PixelsPerUnit(int pixelsPerInch) const
{
    double picturePixels = 1;
    if (FUnits == ruMillimeters)
        picturePixels = pixelsPerInch / MillimetersPerInch;
    else if (FUnits == ruInches)
        picturePixels = pixelsPerInch;
    return picturePixels * FZoom / 100.0;
}

double TQzRuler::MajorStep(int pixelsPerInch) const
{
    return StepAtLeast(MinMajorSpacing / PixelsPerUnit(pixelsPerInch)).Value;
}

int TQzRuler::Divisions(int pixelsPerInch) const
{
    return DivisionsOf(StepAtLeast(MinMajorSpacing / PixelsPerUnit(pixelsPerInch)).Mantissa);
}

std::vector<TQzRulerTick> TQzRuler::Ticks(int length, int pixelsPerInch) const
{
    std::vector<TQzRulerTick> ticks;
    if (length < 0 || pixelsPerInch <= 0)
        return ticks;
    const double unit = PixelsPerUnit(pixelsPerInch);
    const double major = MajorStep(pixelsPerInch);
    const int divisions = Divisions(pixelsPerInch);
    const double minor = major / divisions;
    const double origin = FOffset * FZoom / 100.0;   // screen pixels scrolled away

    // Walk whole minor steps so rounding never drifts along a long ruler.
    const auto first = static_cast<long long>(std::ceil(origin / (minor * unit) - 1e-9));
    for (long long n = first;; ++n) {
        const double position = n * minor * unit - origin;
        if (position > length + 1e-6)
            break;
        TQzRulerTick tick;
        tick.Position = static_cast<int>(std::lround(position));
        const long long within = ((n % divisions) + divisions) % divisions;
        if (within == 0) {
            tick.Kind = rtMajor;
            tick.Label = ValueLabel(n * minor);
        } else if (divisions % 2 == 0 && within == divisions / 2) {
            tick.Kind = rtMedium;
        }
        ticks.push_back(tick);
    }
    return ticks;
}

int TQzRuler::MarkerPosition(int length) const
{
    if (FMarker < 0)
        return -1;
    const long position = std::lround((FMarker - FOffset) * FZoom / 100.0);
    return position < 0 || position > length ? -1 : static_cast<int>(position);
}

void TQzRuler::Paint(QPainter& painter, const QRect& rect, int pixelsPerInch) const
{
    const bool horizontal = FOrientation == roHorizontal;
    const int length = horizontal ? rect.width() : rect.height();
    const int depth = horizontal ? rect.height() : rect.width();

    painter.save();
    painter.fillRect(rect, QColor(0xF4, 0xF4, 0xEE));
    painter.setPen(QColor(0x40, 0x40, 0x40));
    const QFontMetrics metrics(painter.font());
    // Marks grow from the edge next to the picture: the bottom of a
    // horizontal ruler, the right of a vertical one.
    const auto line = [&](int at, int size) {
        if (horizontal)
            painter.drawLine(rect.left() + at, rect.bottom(), rect.left() + at, rect.bottom() - size);
        else
            painter.drawLine(rect.right(), rect.top() + at, rect.right() - size, rect.top() + at);
    };
    for (const TQzRulerTick& tick : Ticks(length, pixelsPerInch)) {
        const int size = tick.Kind == rtMajor ? depth - 2 : tick.Kind == rtMedium ? depth / 2 : depth / 4;
        line(tick.Position, size);
        if (tick.Kind == rtMajor && !tick.Label.empty()) {
            const QString label = QzQString(tick.Label);
            if (horizontal)
                painter.drawText(rect.left() + tick.Position + 2, rect.top() + metrics.ascent(), label);
            else
                painter.drawText(rect.left() + 1, rect.top() + tick.Position + metrics.ascent() + 1, label);
        }
    }
    const int marker = MarkerPosition(length);
    if (marker >= 0) {
        painter.setPen(QColor(0xC0, 0x20, 0x20));
        line(marker, depth);
    }
    painter.restore();
}
