#include "ide/QzControlLook.h"

#include "vcl/QzQtString.h"

#include "rtl/ComponentStream.h"
#include "rtl/SysUtils.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>

namespace {

void DrawFrame(QPainter& p, const QRect& r, bool raised)
{
    const QPalette pal = QApplication::palette();
    const QColor light = pal.color(QPalette::Light), dark = pal.color(QPalette::Dark);
    p.setPen(raised ? light : dark);
    p.drawLine(r.topLeft(), r.topRight());
    p.drawLine(r.topLeft(), r.bottomLeft());
    p.setPen(raised ? dark : light);
    p.drawLine(r.bottomLeft(), r.bottomRight());
    p.drawLine(r.topRight(), r.bottomRight());
}

// Captions mark their mnemonic with '&' ("&&" is an ampersand): underlined
// as the platform draws them.
constexpr int CaptionFlags = Qt::TextShowMnemonic;

}  // namespace

void QzPaintControl(QPainter& p, TComponent* component, const QRect& r)
{
    const AnsiString className = StreamedClassName(component);
    const QPalette pal = QApplication::palette();
    QString caption = QzQString(QzTextValue(component, "Caption"));
    QString text = QzQString(QzTextValue(component, "Text"));
    if (text.isEmpty())
        text = QzQString(QzTextValue(component, "Value"));
    // The suite's controls name a label for their caption and keep literal
    // text beside it; either may be what shows.
    if (caption.isEmpty())
        caption = text;
    p.save();
    // Within what the parent clips to: a control never shows outside its
    // parent's client area.
    p.setClipRect(r.adjusted(0, 0, 1, 1), p.hasClipping() ? Qt::IntersectClip : Qt::ReplaceClip);
    const QRect inner = r.adjusted(1, 1, -1, -1);
    switch (QzLookOf(className)) {
    case TQzLook::Label:
        p.setPen(pal.color(QPalette::WindowText));
        p.drawText(r, Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap | CaptionFlags,
                   caption.isEmpty() ? QzQString(component->Name()) : caption);
        break;
    case TQzLook::Edit:
    case TQzLook::ComboBox:
    case TQzLook::Memo:
    case TQzLook::ListBox: {
        p.fillRect(r, pal.color(QPalette::Base));
        DrawFrame(p, r, false);
        p.setPen(pal.color(QPalette::Text));
        const QString shown = text.isEmpty() ? (caption.isEmpty() ? QzQString(component->Name()) : caption) : text;
        const QRect textRect = inner.adjusted(3, 1, -3, -1);
        const TQzLook look = QzLookOf(className);
        if (look == TQzLook::ComboBox) {
            const QRect button(r.right() - 17, r.top() + 2, 16, r.height() - 4);
            p.fillRect(button, pal.color(QPalette::Button));
            DrawFrame(p, button, true);
            p.setPen(pal.color(QPalette::Text));
            p.drawText(button, Qt::AlignCenter, QStringLiteral("\u25BE"));
            p.drawText(textRect.adjusted(0, 0, -18, 0), Qt::AlignLeft | Qt::AlignVCenter, shown);
        } else if (look == TQzLook::Edit) {
            p.drawText(textRect, Qt::AlignLeft | Qt::AlignVCenter, shown);
        } else {
            p.drawText(textRect, Qt::AlignLeft | Qt::AlignTop, shown);
        }
        break;
    }
    case TQzLook::Button:
        p.fillRect(r, pal.color(QPalette::Button));
        DrawFrame(p, r, true);
        DrawFrame(p, inner, true);
        p.setPen(pal.color(QPalette::ButtonText));
        p.drawText(r, Qt::AlignCenter | CaptionFlags, caption.isEmpty() ? QzQString(component->Name()) : caption);
        break;
    case TQzLook::CheckBox:
    case TQzLook::RadioButton: {
        const QRect box(r.left() + 1, r.top() + (r.height() - 13) / 2, 13, 13);
        p.setPen(pal.color(QPalette::Dark));
        p.setBrush(pal.color(QPalette::Base));
        if (QzLookOf(className) == TQzLook::RadioButton)
            p.drawEllipse(box);
        else
            p.drawRect(box);
        const bool checked = SameText(QzTextValue(component, "Checked"), "True");
        p.setPen(pal.color(QPalette::WindowText));
        if (checked)
            p.drawText(box, Qt::AlignCenter, QStringLiteral("\u2713"));
        p.drawText(r.adjusted(18, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter | CaptionFlags,
                   caption.isEmpty() ? QzQString(component->Name()) : caption);
        break;
    }
    case TQzLook::Panel:
        DrawFrame(p, r, true);
        p.setPen(pal.color(QPalette::WindowText));
        p.drawText(r, Qt::AlignCenter | CaptionFlags, caption);
        break;
    case TQzLook::GroupBox: {
        const QRect frame = r.adjusted(0, 6, 0, 0);
        p.setPen(pal.color(QPalette::Dark));
        p.setBrush(Qt::NoBrush);
        p.drawRect(frame.adjusted(0, 0, -1, -1));
        const QString shown = caption.isEmpty() ? QzQString(component->Name()) : caption;
        const int w = p.fontMetrics().boundingRect(QRect(), CaptionFlags, shown).width() + 6;
        const QRect title(r.left() + 8, r.top() - 1, w, p.fontMetrics().height());
        p.fillRect(title, pal.color(QPalette::Window));
        p.setPen(pal.color(QPalette::WindowText));
        p.drawText(title, Qt::AlignCenter | CaptionFlags, shown);
        break;
    }
    case TQzLook::Image: {
        p.setPen(QPen(pal.color(QPalette::Dark), 1, Qt::DashLine));
        p.drawRect(r.adjusted(0, 0, -1, -1));
        QString picture = QzQString(QzTextValue(component, "Picture"));
        p.drawText(r, Qt::AlignCenter, picture.isEmpty() ? QzQString(component->Name()) : picture);
        break;
    }
    case TQzLook::PageControl:
    case TQzLook::TabSheet:
        p.fillRect(r, pal.color(QPalette::Window));
        DrawFrame(p, r, true);
        break;
    case TQzLook::Box:
        p.setPen(QPen(pal.color(QPalette::Dark), 1, Qt::DotLine));
        p.drawRect(r.adjusted(0, 0, -1, -1));
        p.setPen(pal.color(QPalette::WindowText));
        p.drawText(r.adjusted(2, 2, -2, -2), Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap,
                   QzQString(component->Name() + ": " + className));
        break;
    }
    p.restore();
}
