#pragma once
// The tabs of a page control and the buttons of an outlook bar as the
// designer draws them and finds them under the mouse.

#include "designide/forms/QzPagedControls.h"

#include <QRect>
#include <QString>

#include <vector>

class QFontMetrics;

struct TQzPageButton {
    TComponent* Page;
    QRect Rect;
    QString Title;
};

// Height of a page control's row of tabs.
inline constexpr int QzTabRowHeight = 20;

// The tabs or buttons of paged inside host (its rectangle on the surface),
// shown being the page shown: tabs side by side from the left, the shown
// one raised; outlook buttons where the bar puts them.
std::vector<TQzPageButton> QzPageButtons(TComponent* paged, const QRect& host, TComponent* shown,
                                         const QFontMetrics& metrics);
