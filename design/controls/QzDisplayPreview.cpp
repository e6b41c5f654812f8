#include "design/controls/QzDisplayPreview.h"

#include "runtime/dialogs/QzCommonWndLayout.h"
#include "runtime/pictures/Qzdrawutil.h"

#include "vcl/QzQtString.h"

#include <QFontMetrics>
#include <QLinearGradient>
#include <QPainter>

namespace {

constexpr TColor ColBtnFace = TColor(0xFF00000Fu);
constexpr TColor ColInfoBk = TColor(0xFF000018u);
constexpr TColor ColInfoText = TColor(0xFF000017u);
constexpr TColor ColWindowText = TColor(0xFF000008u);

TQzBackGroundValues BackOf(const TQzPkgDisplay* display, const char* name, TQzBackGroundValues fallback)
{
    if (display)
        if (const TQzPkgDisplaySetBackGround* set = display->SetsBackGround()->Find(name))
            return set->Values();
    return fallback;
}

TQzFontValues FontOf(const TQzPkgDisplay* display, const char* name, TQzFontValues fallback)
{
    if (display)
        if (const TQzPkgDisplaySetFont* set = display->SetsFont()->Find(name))
            return set->Values();
    return fallback;
}

TQzBackGroundValues Solid(TColor color)
{
    TQzBackGroundValues values;
    values.SolidColor = color;
    return values;
}

TQzFontValues Font(Integer size, TColor color, bool bold)
{
    TQzFontValues values;
    values.Size = size;
    values.Color = color;
    values.Bold = bold;
    return values;
}

QSize TextSize(const QFont& font, const QString& text)
{
    return QFontMetrics(font).boundingRect(QRect(0, 0, 10000, 10000), Qt::AlignLeft | Qt::AlignTop, text).size();
}

void DrawFrame(QPainter& painter, const QRect& rect)
{
    painter.setPen(QColor(0x80, 0x80, 0x80));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect.adjusted(0, 0, -1, -1));
}

}  // namespace

TQzPreviewLooks QzHintLooks(const TQzPkgDisplay* display)
{
    TQzPreviewLooks looks;
    looks.Back = BackOf(display, "InfoBackGround", Solid(ColInfoBk));
    looks.Font = FontOf(display, "Hint", Font(8, ColInfoText, false));
    looks.TitleBack = looks.Back;
    looks.TitleFont = looks.Font;
    return looks;
}

TQzPreviewLooks QzCommonWndLooks(const TQzPkgDisplay* display)
{
    TQzBackGroundValues title;
    title.Style = bgGradientVer;
    title.StartGraColor = 0xFFFFFF;
    title.EndGraColor = 0xF0CAA6;
    TQzPreviewLooks looks;
    looks.Back = BackOf(display, "FormBackGround", Solid(ColBtnFace));
    looks.Font = FontOf(display, "Standard", Font(8, ColWindowText, false));
    looks.TitleBack = BackOf(display, "GradientBlue", title);
    looks.TitleFont = FontOf(display, "Title", Font(10, ColWindowText, true));
    return looks;
}

QFont QzFontOfValues(const TQzFontValues& values)
{
    QFont font(QzQString(values.Name));
    if (values.Size > 0)
        font.setPointSize(values.Size);
    font.setBold(values.Bold);
    font.setItalic(values.Italic);
    font.setUnderline(values.Underline);
    font.setStrikeOut(values.StrikeOut);
    return font;
}

void QzPaintBackGround(QPainter& painter, const QRect& rect, const TQzBackGroundValues& values)
{
    if (values.Style == bgGradientHor || values.Style == bgGradientVer) {
        QLinearGradient gradient(rect.topLeft(), values.Style == bgGradientHor ? rect.topRight() : rect.bottomLeft());
        gradient.setColorAt(0, QzColorToQColor(values.StartGraColor));
        gradient.setColorAt(1, QzColorToQColor(values.EndGraColor));
        painter.fillRect(rect, gradient);
    } else {
        painter.fillRect(rect, QzColorToQColor(values.SolidColor));
    }
}

QSize QzCommonWndSampleSize(const TQzDisplayGeometry& geometry, const TQzPreviewLooks& looks,
                            const TQzCommonWndSample& sample)
{
    const QSize text = TextSize(QzFontOfValues(looks.Font), sample.Text);
    return QzLayoutCommonWnd(geometry, text, int(sample.Buttons.size())).Window;
}

void QzPaintCommonWnd(QPainter& painter, QPoint at, const TQzDisplayGeometry& geometry, const TQzPreviewLooks& looks,
                      const TQzCommonWndSample& sample)
{
    const QFont font = QzFontOfValues(looks.Font);
    const TQzCommonWndLayout layout =
        QzLayoutCommonWnd(geometry, TextSize(font, sample.Text), int(sample.Buttons.size()));
    painter.save();
    painter.translate(at);
    const QRect window(QPoint(0, 0), layout.Window);
    QzPaintBackGround(painter, window, looks.Back);
    if (!layout.Title.isEmpty()) {
        QzPaintBackGround(painter, layout.Title, looks.TitleBack);
        painter.setFont(QzFontOfValues(looks.TitleFont));
        painter.setPen(QzColorToQColor(looks.TitleFont.Color));
        painter.drawText(layout.Title.adjusted(4, 0, -4, 0), Qt::AlignLeft | Qt::AlignVCenter, sample.Title);
    }
    painter.setFont(font);
    painter.setPen(QzColorToQColor(looks.Font.Color));
    painter.drawText(layout.Text, Qt::AlignLeft | Qt::AlignTop, sample.Text);
    for (std::size_t i = 0; i < layout.Buttons.size(); ++i) {
        const QRect button = layout.Buttons[i];
        painter.fillRect(button, QColor(0xF0, 0xF0, 0xF0));
        DrawFrame(painter, button);
        painter.setPen(QzColorToQColor(looks.Font.Color));
        painter.drawText(button, Qt::AlignCenter, sample.Buttons[i]);
    }
    DrawFrame(painter, window);
    painter.restore();
}

QSize QzHintSampleSize(const TQzDisplayGeometry& geometry, const TQzPreviewLooks& looks, const QString& text)
{
    return QzLayoutHint(geometry, TextSize(QzFontOfValues(looks.Font), text)).Window;
}

void QzPaintHint(QPainter& painter, QPoint at, const TQzDisplayGeometry& geometry, const TQzPreviewLooks& looks,
                 const QString& text)
{
    const QFont font = QzFontOfValues(looks.Font);
    const TQzHintLayout layout = QzLayoutHint(geometry, TextSize(font, text));
    painter.save();
    painter.translate(at);
    const QRect window(QPoint(0, 0), layout.Window);
    QzPaintBackGround(painter, window, looks.Back);
    painter.setFont(font);
    painter.setPen(QzColorToQColor(looks.Font.Color));
    painter.drawText(layout.Text, Qt::AlignLeft | Qt::AlignTop, text);
    DrawFrame(painter, window);
    painter.restore();
}

void TQzPreviewPane::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (OnPaint)
        OnPaint(painter);
}
