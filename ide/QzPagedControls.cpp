#include "ide/QzPagedControls.h"

#include "ide/QzControlLook.h"

#include "vcl/QzQtString.h"

#include "runtime/components/QzPages.h"

#include <QFontMetrics>

bool QzIsPagedControl(TComponent* component)
{
    return dynamic_cast<TQzOutLookBar*>(component) || QzIsPageControl(component);
}

TComponent* QzActivePage(TComponent* paged)
{
    if (paged->ChildCount() == 0)
        return nullptr;
    TComponent* active = QzChildNamed(paged, QzTextValue(paged, "ActivePage"));
    return active ? active : paged->Child(0);
}

bool QzCanSetActivePage(TComponent* paged)
{
    return dynamic_cast<TQzCustomPageControl*>(paged) || dynamic_cast<TQzOutLookBar*>(paged);
}

bool QzSetActivePage(TComponent* paged, TComponent* page)
{
    if (auto* pages = dynamic_cast<TQzCustomPageControl*>(paged)) {
        auto* sheet = dynamic_cast<TQzTabSheet*>(page);
        if (!sheet || pages->IndexOfSheet(sheet) < 0)
            return false;
        pages->SetActivePage(sheet);
        return true;
    }
    if (auto* bar = dynamic_cast<TQzOutLookBar*>(paged)) {
        auto* barPage = dynamic_cast<TQzOutLookBarPage*>(page);
        if (!barPage || barPage->OutLookBar() != bar)
            return false;
        bar->SetActivePage(barPage);
        return true;
    }
    return false;
}

AnsiString QzPageTitle(TComponent* paged, TComponent* page)
{
    if (auto* pages = dynamic_cast<TQzCustomPageControl*>(paged))
        if (const int i = pages->IndexOfSheet(dynamic_cast<TQzTabSheet*>(page)); i >= 0)
            if (TQzMemoryLabel* caption = pages->Page(i)->Caption(); caption->Defined()) {
                const AnsiString text = caption->Text();
                return text.empty() ? caption->Info() : text;
            }
    return QzShownCaption(page);
}

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
        const QString title = QzQString(QzPageTitle(paged, page));
        const int w = metrics.horizontalAdvance(title) + 14;
        const int lowered = page == shown ? 0 : 2;
        buttons.push_back({page, QRect(x, host.top() + lowered, w, QzTabRowHeight - lowered), title});
        x += w;
    }
    return buttons;
}
