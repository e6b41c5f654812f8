#include "runtime/components/QzPaletteBitmaps.h"

#include "runtime/components/QzPalette.h"

#include "rtl/SysUtils.h"

#include "runtime/pictures/QzPng.h"

#include <QPainter>
#include <QPolygon>

#include <array>
#include <vector>
#include <cstring>

namespace {

using TGlyph = TQzPaletteGlyph;

// ---- Letters -------------------------------------------------------------------

// A 5x7 capital for each letter, one byte a row, bit 4 the leftmost pixel.
constexpr std::array<std::array<unsigned char, 7>, 26> Font = {{
    {0x0E, 0x11, 0x11, 0x1F, 0x11, 0x11, 0x11}, {0x1E, 0x11, 0x11, 0x1E, 0x11, 0x11, 0x1E},
    {0x0E, 0x11, 0x10, 0x10, 0x10, 0x11, 0x0E}, {0x1C, 0x12, 0x11, 0x11, 0x11, 0x12, 0x1C},
    {0x1F, 0x10, 0x10, 0x1E, 0x10, 0x10, 0x1F}, {0x1F, 0x10, 0x10, 0x1E, 0x10, 0x10, 0x10},
    {0x0E, 0x11, 0x10, 0x17, 0x11, 0x11, 0x0F}, {0x11, 0x11, 0x11, 0x1F, 0x11, 0x11, 0x11},
    {0x0E, 0x04, 0x04, 0x04, 0x04, 0x04, 0x0E}, {0x07, 0x02, 0x02, 0x02, 0x02, 0x12, 0x0C},
    {0x11, 0x12, 0x14, 0x18, 0x14, 0x12, 0x11}, {0x10, 0x10, 0x10, 0x10, 0x10, 0x10, 0x1F},
    {0x11, 0x1B, 0x15, 0x15, 0x11, 0x11, 0x11}, {0x11, 0x11, 0x19, 0x15, 0x13, 0x11, 0x11},
    {0x0E, 0x11, 0x11, 0x11, 0x11, 0x11, 0x0E}, {0x1E, 0x11, 0x11, 0x1E, 0x10, 0x10, 0x10},
    {0x0E, 0x11, 0x11, 0x11, 0x15, 0x12, 0x0D}, {0x1E, 0x11, 0x11, 0x1E, 0x14, 0x12, 0x11},
    {0x0F, 0x10, 0x10, 0x0E, 0x01, 0x01, 0x1E}, {0x1F, 0x04, 0x04, 0x04, 0x04, 0x04, 0x04},
    {0x11, 0x11, 0x11, 0x11, 0x11, 0x11, 0x0E}, {0x11, 0x11, 0x11, 0x11, 0x11, 0x0A, 0x04},
    {0x11, 0x11, 0x11, 0x15, 0x15, 0x15, 0x0A}, {0x11, 0x11, 0x0A, 0x04, 0x0A, 0x11, 0x11},
    {0x11, 0x11, 0x11, 0x0A, 0x04, 0x04, 0x04}, {0x1F, 0x01, 0x02, 0x04, 0x08, 0x10, 0x1F},
}};

void DrawLetters(QImage& image, const char* letters, int top, QRgb color, QRgb shadow)
{
    const int count = int(std::strlen(letters));
    const int width = count * 6 - 1;
    int x = (QzPaletteBitmapSize - width) / 2;
    for (const char* c = letters; *c; ++c, x += 6) {
        const auto& rows = Font[size_t(*c - 'A')];
        for (int row = 0; row < 7; ++row)
            for (int col = 0; col < 5; ++col)
                if (rows[size_t(row)] & (0x10 >> col)) {
                    image.setPixel(x + col + 1, top + row + 1, shadow);
                    image.setPixel(x + col, top + row, color);
                }
    }
}

// ---- Pictures ------------------------------------------------------------------

// A glyph is drawn stroke by stroke in the 18x10 box at (3, 3), in light on
// the page colour; dark marks details on light parts.
enum class TOp {
    Rect,         // outline x y w h
    DashedRect,   // outline x y w h, dashed
    Fill,         // x y w h
    Line,         // x1 y1 x2 y2
    Point,        // x y
    Lines,        // x y count length: lines of text, every other one shorter
    Triangle,     // three points, filled
    Quad,         // four points, filled
    Circle,       // centre x y, radii x y; smoothed outline
    Disc,         // centre x y, radii x y; smoothed and filled
};

enum TInk { Light, Dark };

struct TStroke {
    TOp Op;
    TInk Ink;
    std::array<double, 8> V;
};

struct TGlyphStrokes {
    TGlyph Glyph;
    std::vector<TStroke> Strokes;
};

const std::vector<TGlyphStrokes>& GlyphStrokes()
{
    using O = TOp;
    static const std::vector<TGlyphStrokes> glyphs = {
        {TGlyph::Application, {{O::Rect, Light, {4, 3, 15, 9}}, {O::Fill, Light, {4, 3, 16, 3}},
                               {O::Fill, Light, {10, 8, 4, 3}}}},
        {TGlyph::Form, {{O::Rect, Light, {4, 3, 15, 9}}, {O::Fill, Light, {4, 3, 16, 3}}, {O::Fill, Light, {7, 8, 2, 2}},
                        {O::Fill, Light, {11, 8, 2, 2}}, {O::Fill, Light, {15, 8, 2, 2}}}},
        {TGlyph::Frame, {{O::DashedRect, Light, {4, 3, 15, 9}}}},
        {TGlyph::MenuBar, {{O::Fill, Light, {3, 3, 18, 3}}, {O::Rect, Light, {5, 6, 9, 6}}, {O::Lines, Light, {7, 8, 2, 5}}}},
        {TGlyph::PopupMenu, {{O::Rect, Light, {6, 3, 12, 9}}, {O::Lines, Light, {8, 5, 3, 8}}}},
        {TGlyph::Text, {{O::Lines, Light, {4, 4, 4, 16}}}},
        {TGlyph::Edit, {{O::Rect, Light, {3, 4, 17, 7}}, {O::Line, Light, {6, 6, 6, 9}}}},
        {TGlyph::Combo, {{O::Rect, Light, {3, 4, 17, 7}}, {O::Fill, Light, {15, 5, 5, 6}}, {O::Line, Dark, {16, 7, 18, 7}},
                         {O::Point, Dark, {17, 8}}}},
        {TGlyph::List, {{O::Rect, Light, {4, 3, 15, 9}}, {O::Fill, Light, {5, 4, 14, 2}}, {O::Lines, Light, {6, 7, 3, 11}}}},
        {TGlyph::Memo, {{O::Rect, Light, {3, 3, 17, 9}}, {O::Fill, Light, {17, 4, 3, 8}}, {O::Lines, Light, {5, 5, 3, 10}}}},
        {TGlyph::Image, {{O::Rect, Light, {4, 3, 15, 9}}, {O::Triangle, Light, {5, 11, 10, 6, 14, 11}},
                         {O::Fill, Light, {15, 5, 2, 2}}}},
        {TGlyph::Check, {{O::Rect, Light, {4, 4, 7, 7}}, {O::Line, Light, {6, 7, 7, 9}}, {O::Line, Light, {7, 9, 10, 5}},
                         {O::Line, Light, {14, 8, 20, 8}}}},
        {TGlyph::Radio, {{O::Circle, Light, {8, 8, 4, 4}}, {O::Disc, Light, {8, 8, 1.5, 1.5}},
                         {O::Line, Light, {14, 8, 20, 8}}}},
        {TGlyph::Group, {{O::Line, Light, {4, 4, 5, 4}}, {O::Line, Light, {12, 4, 19, 4}}, {O::Line, Light, {4, 4, 4, 12}},
                         {O::Line, Light, {4, 12, 19, 12}}, {O::Line, Light, {19, 4, 19, 12}},
                         {O::Lines, Light, {6, 3, 1, 5}}}},
        {TGlyph::Panel, {{O::Fill, Light, {4, 3, 16, 10}}, {O::Line, Dark, {5, 11, 18, 11}}, {O::Line, Dark, {18, 4, 18, 11}}}},
        {TGlyph::ScrollBox, {{O::Rect, Light, {4, 3, 15, 9}}, {O::Line, Light, {16, 3, 16, 12}},
                             {O::Fill, Light, {17, 6, 2, 3}}}},
        {TGlyph::Tabs, {{O::Fill, Light, {4, 3, 6, 3}}, {O::Rect, Light, {10, 4, 5, 2}}, {O::Rect, Light, {4, 6, 15, 6}}}},
        {TGlyph::Button, {{O::Fill, Light, {4, 4, 16, 8}}, {O::Line, Dark, {5, 10, 18, 10}}, {O::Line, Dark, {18, 5, 18, 10}},
                          {O::Line, Dark, {8, 7, 14, 7}}}},
        {TGlyph::SpeedButton, {{O::Fill, Light, {8, 3, 9, 9}}, {O::Line, Dark, {9, 10, 15, 10}},
                               {O::Line, Dark, {15, 4, 15, 10}}, {O::Fill, Dark, {11, 6, 2, 2}}}},
        {TGlyph::Shape, {{O::Rect, Light, {4, 5, 7, 6}}, {O::Circle, Light, {15, 7.5, 4, 4}}}},
        {TGlyph::UpDown, {{O::Triangle, Light, {8, 7, 12, 3, 16, 7}}, {O::Triangle, Light, {8, 9, 12, 13, 16, 9}}}},
        {TGlyph::Package, {{O::Rect, Light, {5, 6, 10, 6}}, {O::Quad, Light, {5, 6, 8, 3, 18, 3, 15, 6}},
                           {O::Line, Light, {18, 3, 18, 9}}, {O::Line, Light, {18, 9, 15, 12}}}},
        {TGlyph::ToolBar, {{O::Rect, Light, {3, 4, 17, 7}}, {O::Fill, Light, {5, 6, 3, 4}}, {O::Fill, Light, {10, 6, 3, 4}},
                           {O::Fill, Light, {15, 6, 3, 4}}}},
        {TGlyph::StatusBar, {{O::Rect, Light, {3, 3, 17, 9}}, {O::Fill, Light, {3, 9, 18, 4}},
                             {O::Line, Dark, {10, 10, 10, 12}}, {O::Line, Dark, {16, 10, 16, 12}}}},
        {TGlyph::Splitter, {{O::Rect, Light, {3, 3, 7, 9}}, {O::Rect, Light, {13, 3, 7, 9}}, {O::Fill, Light, {11, 3, 2, 10}}}},
        {TGlyph::Progress, {{O::Rect, Light, {3, 5, 17, 5}}, {O::Fill, Light, {4, 6, 10, 4}}}},
        {TGlyph::Clock, {{O::Circle, Light, {12, 8, 5, 5}}, {O::Line, Light, {12, 8, 12, 5}},
                         {O::Line, Light, {12, 8, 14, 8}}}},
        {TGlyph::Outlook, {{O::Fill, Light, {4, 3, 16, 2}}, {O::Fill, Light, {4, 6, 16, 2}}, {O::Rect, Light, {4, 9, 15, 3}}}},
        {TGlyph::Ruler, {{O::Rect, Light, {3, 6, 17, 5}}, {O::Line, Light, {5, 6, 5, 9}}, {O::Line, Light, {7, 6, 7, 8}},
                         {O::Line, Light, {9, 6, 9, 9}}, {O::Line, Light, {11, 6, 11, 8}}, {O::Line, Light, {13, 6, 13, 9}},
                         {O::Line, Light, {15, 6, 15, 8}}, {O::Line, Light, {17, 6, 17, 9}},
                         {O::Line, Light, {19, 6, 19, 8}}}},
        {TGlyph::Buffer, {{O::Rect, Light, {6, 4, 11, 9}}, {O::Fill, Light, {9, 3, 6, 3}}, {O::Lines, Light, {8, 8, 2, 7}}}},
        {TGlyph::ScrollBar, {{O::Rect, Light, {3, 5, 17, 5}}, {O::Fill, Light, {3, 5, 4, 6}}, {O::Fill, Light, {17, 5, 4, 6}},
                             {O::Fill, Light, {10, 6, 4, 4}}}},
        {TGlyph::Navigator, {{O::Triangle, Light, {8, 4, 4, 8, 8, 12}}, {O::Triangle, Light, {15, 4, 19, 8, 15, 12}},
                             {O::Fill, Light, {10, 6, 3, 5}}}},
    };
    return glyphs;
}

QPolygon Points(const TStroke& s, int count)
{
    QPolygon polygon;
    for (size_t i = 0; i < size_t(count) * 2; i += 2)
        polygon << QPoint(int(s.V[i]), int(s.V[i + 1]));
    return polygon;
}

void DrawStroke(QPainter& p, const TStroke& s, const QColor& color)
{
    const auto v = [&s](size_t i) { return int(s.V[i]); };
    p.setPen(color);
    p.setBrush(Qt::NoBrush);
    switch (s.Op) {
    case TOp::Rect:
        p.drawRect(v(0), v(1), v(2), v(3));
        break;
    case TOp::DashedRect:
        p.setPen(QPen(color, 1, Qt::DashLine));
        p.drawRect(v(0), v(1), v(2), v(3));
        break;
    case TOp::Fill:
        p.fillRect(v(0), v(1), v(2), v(3), color);
        break;
    case TOp::Line:
        p.drawLine(v(0), v(1), v(2), v(3));
        break;
    case TOp::Point:
        p.drawPoint(v(0), v(1));
        break;
    case TOp::Lines:
        for (int i = 0; i < v(2); ++i)
            p.drawLine(v(0), v(1) + 2 * i, v(0) + v(3) - (i % 2) * 3, v(1) + 2 * i);
        break;
    case TOp::Triangle:
    case TOp::Quad:
        p.setBrush(color);
        p.drawPolygon(Points(s, s.Op == TOp::Triangle ? 3 : 4));
        break;
    case TOp::Circle:
    case TOp::Disc:
        if (s.Op == TOp::Disc)
            p.setBrush(color);
        p.setRenderHint(QPainter::Antialiasing, true);
        p.drawEllipse(QPointF(s.V[0], s.V[1]), s.V[2], s.V[3]);
        p.setRenderHint(QPainter::Antialiasing, false);
        break;
    }
}

void DrawGlyph(QPainter& p, TGlyph glyph, const QColor& dark)
{
    const QColor light(255, 255, 255);
    for (const TGlyphStrokes& g : GlyphStrokes())
        if (g.Glyph == glyph)
            for (const TStroke& s : g.Strokes)
                DrawStroke(p, s, s.Ink == Light ? light : dark);
}

}  // namespace

QImage QzPaletteBitmap(const AnsiString& className)
{
    const TQzPaletteEntry* picture = QzFindPaletteEntry(className);
    if (!picture)
        return {};
    const QColor base = QColor::fromRgb(QzPalettePageColor(picture->Page));
    const QColor dark = base.darker(160);
    QImage image(QzPaletteBitmapSize, QzPaletteBitmapSize, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    {
        QPainter p(&image);
        QLinearGradient gradient(0, 0, 0, QzPaletteBitmapSize);
        gradient.setColorAt(0, base.lighter(130));
        gradient.setColorAt(1, base);
        p.setRenderHint(QPainter::Antialiasing, true);
        p.setPen(dark);
        p.setBrush(gradient);
        p.drawRoundedRect(QRectF(0.5, 0.5, QzPaletteBitmapSize - 1, QzPaletteBitmapSize - 1), 3, 3);
        p.setRenderHint(QPainter::Antialiasing, false);
        DrawGlyph(p, picture->Glyph, dark);
    }
    DrawLetters(image, picture->Letters, 15, qRgb(255, 255, 255), dark.rgb());
    return image;
}

QByteArray QzPaletteBitmapPng(const AnsiString& className)
{
    return QzDrawnPicturePng(QzPaletteBitmap(className));
}

std::vector<AnsiString> QzPaletteBitmapNames()
{
    std::vector<AnsiString> names;
    for (const TQzPaletteEntry& entry : QzPaletteClasses())
        names.push_back(UpperCase(entry.ClassName));
    return names;
}
