#include "ide/QzPageButtons.h"

#include "vcl/QzQtString.h"

#include "designide/forms/QzMenuBar.h"

#include "runtime/components/QzPages.h"

#include <QFontMetrics>

std::vector<TQzPageButton> QzPageButtons(TComponent* paged, const QRect& host, TComponent* shown,
                                         const QFontMetrics& metrics)
{
    std::vector<TQzPageButton> buttons;
    if (auto* bar = dynamic_cast<TQzOutLookBar*>(paged)) {
        for (int i = 0; i < bar->PageCount(); ++i) {
            const TRect r = bar->ButtonRect(i);
            buttons.push_back({bar->Pages(i), QRect(host.left() + r.Left, host.top() + r.Top, r.Width(), r.Height()),
                               QzQString(QzPageTitle(paged, bar->Pages(i)))});
        }
        return buttons;
    }
    int x = host.left() + 2;
    for (int i = 0; i < paged->ChildCount(); ++i) {
        TComponent* page = paged->Child(i);
        const AnsiString caption = QzPageTitle(paged, page);
        // The tab is as wide as the caption drawn: a mnemonic's '&' takes no room.
        const int w = metrics.horizontalAdvance(QzQString(QzStripMnemonic(caption))) + 14;
        const QString title = QzQString(caption);
        const int lowered = page == shown ? 0 : 2;
        buttons.push_back({page, QRect(x, host.top() + lowered, w, QzTabRowHeight - lowered), title});
        x += w;
    }
    return buttons;
}
