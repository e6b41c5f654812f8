#include "design/controls/Qzvtcollpagecontrol.h"

#include "runtime/components/QzPages.h"

#include "designide/DesignIntf.h"

TQzCustomPageControl* TFrCollPageControl::Control()
{
    return dynamic_cast<TQzCustomPageControl*>(Component());
}

void TFrCollPageControl::AddItem(TCollection* collection)
{
    if (TQzCustomPageControl* control = Control())
        control->AddPage();
    else
        TFrCollection::AddItem(collection);
}

void TFrCollPageControl::DeleteItem(TCollection* collection, int index)
{
    if (TQzCustomPageControl* control = Control())
        control->DeletePage(index);
    else
        TFrCollection::DeleteItem(collection, index);
}

AnsiString TFrCollPageControl::ItemLine(TCollection* collection, int index)
{
    const auto* page = dynamic_cast<const TQzPageItem*>(collection->Items(index));
    const AnsiString line = TFrCollection::ItemLine(collection, index);
    return page && page->TabSheet() ? line + " [" + page->TabSheet()->Name() + "]" : line;
}

void TFrCollPageControl::ItemsChosen(const std::vector<int>& indices)
{
    TQzCustomPageControl* control = Control();
    if (!control || indices.size() != 1 || indices.front() >= control->PageCount())
        return;
    TQzTabSheet* sheet = control->Page(indices.front())->TabSheet();
    if (!sheet || sheet == control->ActivePage())
        return;
    // Showing another page is a change of the form, as on its surface.
    control->SetActivePage(sheet);
    if (IDesigner* designer = Designer())
        designer->Modified();
}
