#include "design/controls/QzMenuLook.h"

#include "design/controls/QzDisplayPreview.h"

#include "runtime/pictures/Qzdrawutil.h"

#include <QApplication>
#include <QPalette>
#include <QWidget>

#include <algorithm>

namespace {

// Only a set that exists changes the look: a menu naming none, or one the
// package lacks, keeps the platform's rather than the suite's defaults.
void TakeSets(TQzMenuLook& look, const TQzSetFont* font, const TQzSetColor* color)
{
    if (const TQzPkgDisplaySetFont* set = font->Found()) {
        look.Font = QzFontOfValues(set->Values());
        look.TextColor = QzColorToQColor(set->Values().Color);
    }
    if (const TQzPkgDisplaySetColor* set = color->Found())
        look.BackColor = QzColorToQColor(set->Color());
}

}  // namespace

TQzMenuLook QzMenuLookOf(const TComponent* menu)
{
    TQzMenuLook look;
    if (const auto* main = dynamic_cast<const TQzMainMenu*>(menu)) {
        TakeSets(look, main->SetFont(), main->SetColor());
    } else if (const auto* popup = dynamic_cast<const TQzPopupMenu*>(menu)) {
        TakeSets(look, popup->SetFont(), popup->SetColor());
        if (popup->ImagesVisible())
            look.ImageSize = std::max(0, int(popup->ImageSize()));
    }
    return look;
}

const QImage& QzMenuItemImage(const TQzMenuItem* item, int size, TQzThumbnailCache& cache)
{
    const TQzMemoryImage* ref = item ? item->Image() : nullptr;
    TQzDrawOptions options;
    options.Transparent = true;
    options.Stretch = true;
    options.Proportional = true;
    return cache.Thumbnail(ref ? ref->Image() : nullptr, QSize(size, size), options);
}

void QzApplyMenuLook(QWidget* widget, const TQzMenuLook& look)
{
    widget->setFont(look.Font ? *look.Font : QApplication::font(widget));
    QPalette palette = QApplication::palette(widget);
    if (look.BackColor.isValid()) {
        palette.setColor(QPalette::Window, look.BackColor);
        palette.setColor(QPalette::Base, look.BackColor);
        palette.setColor(QPalette::Button, look.BackColor);
    }
    if (look.TextColor.isValid()) {
        // Enabled text only: disabled items keep the platform's grey.
        for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
            palette.setColor(QPalette::Active, role, look.TextColor);
            palette.setColor(QPalette::Inactive, role, look.TextColor);
        }
    }
    widget->setPalette(palette);
}
