#include "runtime/dialogs/QzCommonWndLayout.h"

#include <algorithm>

TQzCommonWndLayout QzLayoutCommonWnd(const TQzDisplayGeometry& g, QSize textSize, int buttonCount)
{
    TQzCommonWndLayout layout;
    const int buttons = std::max(buttonCount, 0);
    const int rowWidth = buttons > 0 ? buttons * g.CWButtonsWidth + (buttons - 1) * g.CWButtonsSpacing : 0;
    const int inner = std::max(textSize.width(), 0);
    const int width = std::max(g.CWMarginLeft + inner + g.CWMarginRight,
                               buttons > 0 ? rowWidth + 2 * g.CWButtonsMargin : 0);
    const int innerWidth = width - g.CWMarginLeft - g.CWMarginRight;

    int y = g.CWMarginTop;
    if (g.CWTitleHeight > 0) {
        layout.Title = QRect(g.CWMarginLeft, y, innerWidth, g.CWTitleHeight);
        y += g.CWTitleHeight + g.CWMarginAfterTitle;
    }
    layout.Text = QRect(g.CWMarginLeft, y, innerWidth, std::max(textSize.height(), 0));
    y += layout.Text.height();
    if (buttons > 0) {
        y += g.CWButtonsMargin;
        int x = (width - rowWidth) / 2;
        for (int i = 0; i < buttons; ++i) {
            layout.Buttons.emplace_back(x, y, g.CWButtonsWidth, g.CWButtonsHeight);
            x += g.CWButtonsWidth + g.CWButtonsSpacing;
        }
        y += g.CWButtonsHeight;
    }
    layout.Window = QSize(width, y + g.CWMarginBottom);
    return layout;
}

TQzHintLayout QzLayoutHint(const TQzDisplayGeometry& g, QSize textSize)
{
    const QSize text(std::max(textSize.width(), 0), std::max(textSize.height(), 0));
    return {QSize(g.HiMarginLeft + text.width() + g.HiMarginRight, g.HiMarginTop + text.height() + g.HiMarginBottom),
            QRect(QPoint(g.HiMarginLeft, g.HiMarginTop), text)};
}
