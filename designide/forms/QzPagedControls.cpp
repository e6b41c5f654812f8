#include "designide/forms/QzPagedControls.h"

#include "designide/forms/QzControlInfo.h"

#include "runtime/components/QzPages.h"

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
