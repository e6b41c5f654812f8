#pragma once
// Where the parts of the runtime's common windows (message and input boxes)
// and of its hints go, from the display package's geometry. The windows
// and the samples the design tools show both lay out through these, so the
// samples look as the running application will.

#include "runtime/model/QzPkgDisplay.h"

#include <QRect>

#include <vector>

struct TQzCommonWndLayout {
    QSize Window;
    QRect Title;                // empty when the geometry has no title row
    QRect Text;                 // the message (and the input line under it)
    std::vector<QRect> Buttons; // left to right, centred under the text
};

// A common window holding text of textSize and buttonCount buttons. The
// window is as wide as the wider of the text and the button row, each with
// its margins; the title row (TitleHeight, then MarginAfterTitle) comes
// first and the button row last, ButtonsMargin under the text.
TQzCommonWndLayout QzLayoutCommonWnd(const TQzDisplayGeometry& geometry, QSize textSize, int buttonCount);

struct TQzHintLayout {
    QSize Window;
    QRect Text;
};

// A hint around text of textSize, inside the Hi margins.
TQzHintLayout QzLayoutHint(const TQzDisplayGeometry& geometry, QSize textSize);
