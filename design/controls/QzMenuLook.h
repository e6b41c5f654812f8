#pragma once
// How a suite menu looks where the designer shows it: in the font and
// colour of the sets it names in the application's display package, and,
// for a popup menu that shows them, with its items' images. The menus
// editor draws its menu with this and the popup sample shows with it, so
// both look as the menu will.

#include "runtime/components/QzMenus.h"
#include "runtime/pictures/QzPictureDraw.h"

#include <QColor>
#include <QFont>
#include <QImage>

#include <optional>

class QWidget;

struct TQzMenuLook {
    // Unset (no set named, or none of that name): the platform's.
    std::optional<QFont> Font;
    QColor TextColor;  // invalid: the platform's
    QColor BackColor;  // invalid: the platform's
    int ImageSize = 0; // 0: the items show no images
};

// The look of a TQzMainMenu or TQzPopupMenu; the platform's for anything else.
TQzMenuLook QzMenuLookOf(const TComponent* menu);

// The item's image in a square of size pixels, transparency applied and
// kept in cache until its picture changes; a null image when the item
// names none or its picture is empty. Valid until the cache's next call.
const QImage& QzMenuItemImage(const TQzMenuItem* item, int size, TQzThumbnailCache& cache);

// Gives widget the look's font and colours (window, base, text).
void QzApplyMenuLook(QWidget* widget, const TQzMenuLook& look);
