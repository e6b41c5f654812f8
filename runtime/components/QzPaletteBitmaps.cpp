#include "runtime/components/QzPaletteBitmaps.h"

#include "runtime/components/QzComponentsReg.h"

#include "rtl/SysUtils.h"

#include "runtime/pictures/QzPng.h"

#include <QPainter>
#include <QPolygon>

#include <array>
#include <cstring>

namespace {

// What the small picture above the letters shows.
enum class TGlyph {
    Application, Form, Frame, MenuBar, PopupMenu, Text, Edit, Combo, List, Memo, Image, Check, Radio, Group,
    Panel, ScrollBox, Tabs, Button, SpeedButton, Shape, UpDown, Package, ToolBar, StatusBar, Splitter, Progress,
    Clock, Outlook, Ruler, Buffer, ScrollBar, Navigator,
};

struct TPicture {
    const char* ClassName;
    TGlyph Glyph;
    const char* Letters;
};

// Within a page the letters differ; the pages differ by colour.
constexpr TPicture Pictures[] = {
    {"TQzCApplication", TGlyph::Application, "APP"},
    {"TQzCForm", TGlyph::Form, "FRM"},
    {"TQzMainMenu", TGlyph::MenuBar, "MM"},
    {"TQzPopupMenu", TGlyph::PopupMenu, "PM"},
    {"TQzLabel", TGlyph::Text, "LBL"},
    {"TQzEdit", TGlyph::Edit, "ED"},
    {"TQzComboBox", TGlyph::Combo, "CB"},
    {"TQzListBox", TGlyph::List, "LB"},
    {"TQzMemo", TGlyph::Memo, "MEM"},
    {"TQzRichEdit", TGlyph::Memo, "RE"},
    {"TQzImage", TGlyph::Image, "IMG"},
    {"TQzFocusImage", TGlyph::Image, "FI"},
    {"TQzCheckBox", TGlyph::Check, "CHK"},
    {"TQzRadioButton", TGlyph::Radio, "RB"},
    {"TQzGroupBox", TGlyph::Group, "GB"},
    {"TQzRadioGroup", TGlyph::Radio, "RG"},
    {"TQzPanel", TGlyph::Panel, "PNL"},
    {"TQzScrollBox", TGlyph::ScrollBox, "SB"},
    {"TQzPageControl", TGlyph::Tabs, "PC"},
    {"TQzBitBtn", TGlyph::Button, "BTN"},
    {"TQzSpeedButton", TGlyph::SpeedButton, "SPB"},
    {"TQzPkgImage", TGlyph::Image, "PI"},
    {"TQzShape", TGlyph::Shape, "SHP"},
    {"TQzUpDown", TGlyph::UpDown, "UD"},
    {"TQzPkgImages", TGlyph::Package, "PKI"},
    {"TQzPkgStrings", TGlyph::Package, "PKS"},
    {"TQzPkgVars", TGlyph::Package, "PKV"},
    {"TQzMemoBar", TGlyph::ToolBar, "MB"},
    {"TQzRichEditBar", TGlyph::ToolBar, "REB"},
    {"TQzImageBar", TGlyph::ToolBar, "IB"},
    {"TQzStatusBar", TGlyph::StatusBar, "STB"},
    {"TQzSplitter", TGlyph::Splitter, "SPL"},
    {"TQzProgressBar", TGlyph::Progress, "PRG"},
    {"TQzTimer", TGlyph::Clock, "TMR"},
    {"TQzThreadTimer", TGlyph::Clock, "TT"},
    {"TQzImageForm", TGlyph::Form, "IF"},
    {"TQzMoveForm", TGlyph::Form, "MF"},
    {"TQzPanelMenu", TGlyph::MenuBar, "PMN"},
    {"TQzOutLookBar", TGlyph::Outlook, "OLB"},
    {"TQzPkgPrivileges", TGlyph::Package, "PKP"},
    {"TQzLBPrivileges", TGlyph::List, "LBP"},
    {"TQzSetsGroup", TGlyph::Group, "SG"},
    {"TQzRuler", TGlyph::Ruler, "RUL"},
    {"TQzCBuffer", TGlyph::Buffer, "BUF"},
    {"TQzFontComboBox", TGlyph::Combo, "FCB"},
    {"TQzFontListBox", TGlyph::List, "FLB"},
    {"TQzExtScrollBar", TGlyph::ScrollBar, "ESB"},
    {"TQzCFrame", TGlyph::Frame, "FRA"},
    {"TQzDbLabel", TGlyph::Text, "LBL"},
    {"TQzDbEdit", TGlyph::Edit, "ED"},
    {"TQzDbComboBox", TGlyph::Combo, "CB"},
    {"TQzDbListBox", TGlyph::List, "LB"},
    {"TQzDbMemo", TGlyph::Memo, "MEM"},
    {"TQzDbRichEdit", TGlyph::Memo, "RE"},
    {"TQzDbImage", TGlyph::Image, "IMG"},
    {"TQzDbFocusImage", TGlyph::Image, "FI"},
    {"TQzDbCheckBox", TGlyph::Check, "CHK"},
    {"TQzDbRadioGroup", TGlyph::Radio, "RG"},
    {"TQzDbPageControl", TGlyph::Tabs, "PC"},
    {"TQzDbNavigator", TGlyph::Navigator, "NAV"},
    {"TQzDbBitBtn", TGlyph::Button, "BTN"},
    {"TQzDbSpeedButton", TGlyph::SpeedButton, "SPB"},
    {"TQzDbPkgImage", TGlyph::Image, "PI"},
    {"TQzLBSetsColor", TGlyph::List, "LSC"},
    {"TQzCBSetsColor", TGlyph::Combo, "CSC"},
    {"TQzLBSetsBackGround", TGlyph::List, "LSB"},
    {"TQzCBSetsBackGround", TGlyph::Combo, "CSB"},
    {"TQzLBSetsFont", TGlyph::List, "LSF"},
    {"TQzCBSetsFont", TGlyph::Combo, "CSF"},
    {"TQzLBPkgImages", TGlyph::List, "LPI"},
    {"TQzCBPkgImages", TGlyph::Combo, "CPI"},
    {"TQzLBColors", TGlyph::List, "LCL"},
    {"TQzCBColors", TGlyph::Combo, "CCL"},
    {"TQzCBPrinters", TGlyph::Combo, "PRN"},
    {"TQzPkgImagesAdd", TGlyph::Package, "ADD"},
    {"TQzPkgImagesDesignRgn", TGlyph::Shape, "RGN"},
};

const TPicture* FindPicture(const AnsiString& className)
{
    for (const TPicture& picture : Pictures)
        if (SameText(picture.ClassName, className))
            return &picture;
    return nullptr;
}

QColor PageColor(const AnsiString& page)
{
    if (page == "Qz Standard")
        return QColor(0x2F, 0x5F, 0x9F);
    if (page == "Qz Additional")
        return QColor(0x2E, 0x7D, 0x32);
    if (page == "Qz Data Controls")
        return QColor(0xB3, 0x5A, 0x00);
    return QColor(0x6A, 0x3D, 0x9A);
}

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

// Draws in the 18x10 box at (3, 3) in light on the page colour; dark marks
// details on light parts.
void DrawGlyph(QPainter& p, TGlyph glyph, const QColor& dark)
{
    const QColor light(255, 255, 255);
    p.setPen(light);
    p.setBrush(Qt::NoBrush);
    auto lines = [&p](int x, int y, int count, int length) {
        for (int i = 0; i < count; ++i)
            p.drawLine(x, y + 2 * i, x + length - (i % 2) * 3, y + 2 * i);
    };
    auto triangle = [&p, &light](QPolygon polygon) {
        p.setBrush(light);
        p.drawPolygon(polygon);
        p.setBrush(Qt::NoBrush);
    };
    switch (glyph) {
    case TGlyph::Application:
        p.drawRect(4, 3, 15, 9);
        p.fillRect(4, 3, 16, 3, light);
        p.fillRect(10, 8, 4, 3, light);
        break;
    case TGlyph::Form:
        p.drawRect(4, 3, 15, 9);
        p.fillRect(4, 3, 16, 3, light);
        p.fillRect(7, 8, 2, 2, light);
        p.fillRect(11, 8, 2, 2, light);
        p.fillRect(15, 8, 2, 2, light);
        break;
    case TGlyph::Frame:
        p.setPen(QPen(light, 1, Qt::DashLine));
        p.drawRect(4, 3, 15, 9);
        break;
    case TGlyph::MenuBar:
        p.fillRect(3, 3, 18, 3, light);
        p.drawRect(5, 6, 9, 6);
        lines(7, 8, 2, 5);
        break;
    case TGlyph::PopupMenu:
        p.drawRect(6, 3, 12, 9);
        lines(8, 5, 3, 8);
        break;
    case TGlyph::Text:
        lines(4, 4, 4, 16);
        break;
    case TGlyph::Edit:
        p.drawRect(3, 4, 17, 7);
        p.drawLine(6, 6, 6, 9);
        break;
    case TGlyph::Combo:
        p.drawRect(3, 4, 17, 7);
        p.fillRect(15, 5, 5, 6, light);
        p.setPen(dark);
        p.drawLine(16, 7, 18, 7);
        p.drawPoint(17, 8);
        break;
    case TGlyph::List:
        p.drawRect(4, 3, 15, 9);
        p.fillRect(5, 4, 14, 2, light);
        lines(6, 7, 3, 11);
        break;
    case TGlyph::Memo:
        p.drawRect(3, 3, 17, 9);
        p.fillRect(17, 4, 3, 8, light);
        lines(5, 5, 3, 10);
        break;
    case TGlyph::Image:
        p.drawRect(4, 3, 15, 9);
        triangle(QPolygon({QPoint(5, 11), QPoint(10, 6), QPoint(14, 11)}));
        p.fillRect(15, 5, 2, 2, light);
        break;
    case TGlyph::Check:
        p.drawRect(4, 4, 7, 7);
        p.drawLine(6, 7, 7, 9);
        p.drawLine(7, 9, 10, 5);
        p.drawLine(14, 8, 20, 8);
        break;
    case TGlyph::Radio:
        p.setRenderHint(QPainter::Antialiasing, true);
        p.drawEllipse(QPointF(8, 8), 4, 4);
        p.setBrush(light);
        p.drawEllipse(QPointF(8, 8), 1.5, 1.5);
        p.setRenderHint(QPainter::Antialiasing, false);
        p.drawLine(14, 8, 20, 8);
        break;
    case TGlyph::Group:
        p.drawLine(4, 4, 5, 4);
        p.drawLine(12, 4, 19, 4);
        p.drawLine(4, 4, 4, 12);
        p.drawLine(4, 12, 19, 12);
        p.drawLine(19, 4, 19, 12);
        lines(6, 3, 1, 5);
        break;
    case TGlyph::Panel:
        p.fillRect(4, 3, 16, 10, light);
        p.setPen(dark);
        p.drawLine(5, 11, 18, 11);
        p.drawLine(18, 4, 18, 11);
        break;
    case TGlyph::ScrollBox:
        p.drawRect(4, 3, 15, 9);
        p.drawLine(16, 3, 16, 12);
        p.fillRect(17, 6, 2, 3, light);
        break;
    case TGlyph::Tabs:
        p.fillRect(4, 3, 6, 3, light);
        p.drawRect(10, 4, 5, 2);
        p.drawRect(4, 6, 15, 6);
        break;
    case TGlyph::Button:
        p.fillRect(4, 4, 16, 8, light);
        p.setPen(dark);
        p.drawLine(5, 10, 18, 10);
        p.drawLine(18, 5, 18, 10);
        p.drawLine(8, 7, 14, 7);
        break;
    case TGlyph::SpeedButton:
        p.fillRect(8, 3, 9, 9, light);
        p.setPen(dark);
        p.drawLine(9, 10, 15, 10);
        p.drawLine(15, 4, 15, 10);
        p.fillRect(11, 6, 2, 2, dark);
        break;
    case TGlyph::Shape:
        p.drawRect(4, 5, 7, 6);
        p.setRenderHint(QPainter::Antialiasing, true);
        p.drawEllipse(QPointF(15, 7.5), 4, 4);
        p.setRenderHint(QPainter::Antialiasing, false);
        break;
    case TGlyph::UpDown:
        triangle(QPolygon({QPoint(8, 7), QPoint(12, 3), QPoint(16, 7)}));
        triangle(QPolygon({QPoint(8, 9), QPoint(12, 13), QPoint(16, 9)}));
        break;
    case TGlyph::Package:
        p.drawRect(5, 6, 10, 6);
        triangle(QPolygon({QPoint(5, 6), QPoint(8, 3), QPoint(18, 3), QPoint(15, 6)}));
        p.drawLine(18, 3, 18, 9);
        p.drawLine(18, 9, 15, 12);
        break;
    case TGlyph::ToolBar:
        p.drawRect(3, 4, 17, 7);
        p.fillRect(5, 6, 3, 4, light);
        p.fillRect(10, 6, 3, 4, light);
        p.fillRect(15, 6, 3, 4, light);
        break;
    case TGlyph::StatusBar:
        p.drawRect(3, 3, 17, 9);
        p.fillRect(3, 9, 18, 4, light);
        p.setPen(dark);
        p.drawLine(10, 10, 10, 12);
        p.drawLine(16, 10, 16, 12);
        break;
    case TGlyph::Splitter:
        p.drawRect(3, 3, 7, 9);
        p.drawRect(13, 3, 7, 9);
        p.fillRect(11, 3, 2, 10, light);
        break;
    case TGlyph::Progress:
        p.drawRect(3, 5, 17, 5);
        p.fillRect(4, 6, 10, 4, light);
        break;
    case TGlyph::Clock:
        p.setRenderHint(QPainter::Antialiasing, true);
        p.drawEllipse(QPointF(12, 8), 5, 5);
        p.setRenderHint(QPainter::Antialiasing, false);
        p.drawLine(12, 8, 12, 5);
        p.drawLine(12, 8, 14, 8);
        break;
    case TGlyph::Outlook:
        p.fillRect(4, 3, 16, 2, light);
        p.fillRect(4, 6, 16, 2, light);
        p.drawRect(4, 9, 15, 3);
        break;
    case TGlyph::Ruler:
        p.drawRect(3, 6, 17, 5);
        for (int x = 5; x < 20; x += 2)
            p.drawLine(x, 6, x, x % 4 == 1 ? 9 : 8);
        break;
    case TGlyph::Buffer:
        p.drawRect(6, 4, 11, 9);
        p.fillRect(9, 3, 6, 3, light);
        lines(8, 8, 2, 7);
        break;
    case TGlyph::ScrollBar:
        p.drawRect(3, 5, 17, 5);
        p.fillRect(3, 5, 4, 6, light);
        p.fillRect(17, 5, 4, 6, light);
        p.fillRect(10, 6, 4, 4, light);
        break;
    case TGlyph::Navigator:
        triangle(QPolygon({QPoint(8, 4), QPoint(4, 8), QPoint(8, 12)}));
        triangle(QPolygon({QPoint(15, 4), QPoint(19, 8), QPoint(15, 12)}));
        p.fillRect(10, 6, 3, 5, light);
        break;
    }
}

}  // namespace

QImage QzPaletteBitmap(const AnsiString& className)
{
    const TPicture* picture = FindPicture(className);
    if (!picture)
        return {};
    const QColor base = PageColor(QzPalettePage(picture->ClassName));
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
        if (FindPicture(entry.ClassName))
            names.push_back(UpperCase(entry.ClassName));
    return names;
}
