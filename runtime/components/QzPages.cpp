#include "runtime/components/QzPages.h"

#include <algorithm>

// ---- Tab sheets and their tabs ---------------------------------------------------

void TQzTabSheet::DeclareProperties(TClassBuilder<TQzTabSheet>& b)
{
    QzDeclarePrivilege(b);
    QzDeclareSets(b, qsBackGround);
}

TQzTabSheet::TQzTabSheet(TComponent* owner) : TQzWinControl(owner)
{
    SetAlign(alClient);
}

TQzCustomPageControl* TQzTabSheet::PageControl() const
{
    return dynamic_cast<TQzCustomPageControl*>(GetParentComponent());
}

void TQzPageItem::DeclareProperties(TClassBuilder<TQzPageItem>& b)
{
    b.Property("TabSheet", &TQzPageItem::TabSheet, &TQzPageItem::SetTabSheet);
}

void TQzPageItem::SetTabSheet(TQzTabSheet* value)
{
    // The control that publishes the pages hears when the sheet goes.
    auto* control = Collection() ? dynamic_cast<TComponent*>(Collection()->Owner()) : nullptr;
    if (control)
        QzSetReference(control, FTabSheet, value);
    else
        FTabSheet = value;
}

void TQzPageItem::Assign(TPersistent* source)
{
    TQzCollectionItem::Assign(source);
    if (auto* item = dynamic_cast<TQzPageItem*>(source))
        SetTabSheet(item->FTabSheet);
}

const TTypeInfo* TypeInfo_TTabPosition()
{
    static const TTypeInfo* t = DefineEnumType("TTabPosition", {"tpTop", "tpBottom", "tpLeft", "tpRight"});
    return t;
}

// ---- Page controls -----------------------------------------------------------------

void TQzCustomPageControl::DeclareProperties(TClassBuilder<TQzCustomPageControl>& b)
{
    b.Redeclare("TabStop").Default(true);
    b.Property("ActivePage", &TQzCustomPageControl::ActivePage, &TQzCustomPageControl::SetActivePage);
    b.Property("MultiLine", &TQzCustomPageControl::FMultiLine).Default(false);
    QzDeclareOwned<TQzCustomPageControl, TQzCollection>(b, "Pages",
                                                         [](TQzCustomPageControl& c) { return c.Pages(); });
    QzDeclarePrivilege(b);
    QzDeclareSets(b, qsFont | qsColor | qsBackGround);
    b.Property("TabHeight", &TQzCustomPageControl::FTabHeight,
               QzRealigningSetter(&TQzCustomPageControl::FTabHeight))
        .Default(0);
    b.Enum("TabPosition", TypeInfo_TTabPosition(), &TQzCustomPageControl::FTabPosition,
           QzRealigningSetter(&TQzCustomPageControl::FTabPosition), tpTop);
    b.Property("TabWidth", &TQzCustomPageControl::FTabWidth).Default(0);
    DeclareEvent(b, "OnChange");
    DeclareFocusEvents(b);
}

TQzCustomPageControl::TQzCustomPageControl(TComponent* owner)
    : TQzWinControl(owner), FPages(std::make_unique<TQzCollection>(this, TQzPageItem::ClassInfo()))
{
    SetBounds(0, 0, 289, 193);
    SetTabStop(true);
}

TQzCustomPageControl::~TQzCustomPageControl() = default;

int TQzCustomPageControl::IndexOfSheet(const TQzTabSheet* sheet) const
{
    if (!sheet)
        return -1;
    for (int i = 0; i < PageCount(); ++i)
        if (Page(i)->TabSheet() == sheet)
            return i;
    return -1;
}

TQzPageItem* TQzCustomPageControl::AddPage()
{
    TComponent* owner = Owner() ? Owner() : this;
    auto* sheet = new TQzTabSheet(owner);
    sheet->SetName(QzUniqueComponentName(owner, TQzTabSheet::ClassInfo()->ClassName()));
    sheet->SetParent(this);
    return AddPageFor(sheet);
}

TQzPageItem* TQzCustomPageControl::AddPageFor(TQzTabSheet* sheet)
{
    if (const int index = IndexOfSheet(sheet); index >= 0)
        return Page(index);
    auto* item = static_cast<TQzPageItem*>(FPages->Add());
    item->SetTabSheet(sheet);
    SetActivePage(sheet);
    return item;
}

void TQzCustomPageControl::DeletePage(int index)
{
    TQzPageItem* item = Page(index);
    TQzTabSheet* sheet = item->TabSheet();
    if (sheet && sheet == FActivePage) {
        const int next = index + 1 < PageCount() ? index + 1 : index - 1;
        FActivePage = next >= 0 ? Page(next)->TabSheet() : nullptr;
    }
    delete item;
    delete sheet;
}

void TQzCustomPageControl::SetActivePage(TQzTabSheet* value)
{
    // While a form loads, the tabs may name their sheets after this.
    if (value && !ComponentState().Contains(csLoading) && IndexOfSheet(value) < 0)
        throw EInvalidOperation("The active page must be a page of " + Name());
    QzSetReference(this, FActivePage, value);
}

void TQzCustomPageControl::Notification(TComponent* component, TOperation operation)
{
    TQzWinControl::Notification(component, operation);
    if (operation != opRemove)
        return;
    QzClearReference(FActivePage, component);
    for (int i = 0; i < PageCount(); ++i)
        QzClearReference(Page(i)->FTabSheet, component);
}

void TQzCustomPageControl::AdjustClientRect(TRect& rect) const
{
    constexpr Integer Frame = 4;
    const Integer tabs = FTabHeight > 0 ? FTabHeight : 20;
    rect = {rect.Left + Frame, rect.Top + Frame, rect.Right - Frame, rect.Bottom - Frame};
    switch (FTabPosition) {
    case tpTop:
        rect.Top += tabs;
        break;
    case tpBottom:
        rect.Bottom -= tabs;
        break;
    case tpLeft:
        rect.Left += tabs;
        break;
    case tpRight:
        rect.Right -= tabs;
        break;
    }
}

void TQzPageControl::DeclareProperties(TClassBuilder<TQzPageControl>& b)
{
    QzDeclareValue(b);
}

// ---- Outlook bar -------------------------------------------------------------------

void TQzOutLookBarPage::DeclareProperties(TClassBuilder<TQzOutLookBarPage>& b)
{
    QzDeclareLabel(b);
    QzDeclareOwned<TQzOutLookBarPage, TQzMemoryImage>(b, "Image", [](TQzOutLookBarPage& p) { return p.Image(); });
    QzDeclarePrivilege(b);
    QzDeclareSets(b, qsFont | qsColor | qsBackGround);
}

TQzOutLookBarPage::TQzOutLookBarPage(TComponent* owner)
    : TQzWinControl(owner), FImage(std::make_unique<TQzMemoryImage>())
{
    FImage->SetOwner(this);
    SetAlign(alClient);
}

TQzOutLookBarPage::~TQzOutLookBarPage() = default;

TQzOutLookBar* TQzOutLookBarPage::OutLookBar() const
{
    return dynamic_cast<TQzOutLookBar*>(GetParentComponent());
}

void TQzOutLookBar::DeclareProperties(TClassBuilder<TQzOutLookBar>& b)
{
    b.Property("ActivePage", &TQzOutLookBar::ActivePage, &TQzOutLookBar::SetActivePage);
    b.Property("ButtonHeight", &TQzOutLookBar::FButtonHeight, QzRealigningSetter(&TQzOutLookBar::FButtonHeight))
        .Default(24);
    QzDeclarePrivilege(b);
    QzDeclareSets(b, qsFont | qsColor | qsBackGround);
    DeclareEvent(b, "OnChange");
}

TQzOutLookBar::TQzOutLookBar(TComponent* owner) : TQzWinControl(owner)
{
    SetBounds(0, 0, 121, 241);
}

int TQzOutLookBar::PageCount() const
{
    int count = 0;
    for (int i = 0; i < ChildCount(); ++i)
        if (dynamic_cast<TQzOutLookBarPage*>(Child(i)))
            ++count;
    return count;
}

TQzOutLookBarPage* TQzOutLookBar::Pages(int index) const
{
    int seen = 0;
    for (int i = 0; i < ChildCount(); ++i)
        if (auto* page = dynamic_cast<TQzOutLookBarPage*>(Child(i)); page && seen++ == index)
            return page;
    throw EListError("Page index out of bounds (" + IntToStr(index) + ")");
}

int TQzOutLookBar::IndexOfPage(const TQzOutLookBarPage* page) const
{
    for (int i = 0; page && i < PageCount(); ++i)
        if (Pages(i) == page)
            return i;
    return -1;
}

void TQzOutLookBar::SetActivePage(TQzOutLookBarPage* value)
{
    if (value && !ComponentState().Contains(csLoading) && value->OutLookBar() != this)
        throw EInvalidOperation("The active page must be a page of " + Name());
    if (value == FActivePage)
        return;
    QzSetReference(this, FActivePage, value);
    Realign();
}

TRect TQzOutLookBar::ButtonRect(int index) const
{
    const int active = ActivePageIndex();
    const Integer top = index <= active || active < 0 ? index * FButtonHeight
                                                      : ClientHeight() - (PageCount() - index) * FButtonHeight;
    return {0, top, ClientWidth(), top + FButtonHeight};
}

void TQzOutLookBar::AdjustClientRect(TRect& rect) const
{
    const int count = PageCount();
    const int active = ActivePageIndex();
    const int above = active < 0 ? count : active + 1;
    rect.Top += above * FButtonHeight;
    rect.Bottom -= (count - above) * FButtonHeight;
    rect.Bottom = std::max(rect.Bottom, rect.Top);
}

TQzOutLookBarPage* TQzOutLookBar::NewPage()
{
    TComponent* owner = Owner() ? Owner() : this;
    auto* page = new TQzOutLookBarPage(owner);
    page->SetName(QzUniqueComponentName(owner, TQzOutLookBarPage::ClassInfo()->ClassName()));
    page->SetParent(this);
    SetActivePage(page);
    return page;
}

void TQzOutLookBar::StepPage(int delta)
{
    const int count = PageCount();
    if (count == 0)
        return;
    const int index = ActivePageIndex();
    const int next = index < 0 ? (delta > 0 ? 0 : count - 1) : (index + delta + count) % count;
    SetActivePage(Pages(next));
}

void TQzOutLookBar::NextPage()
{
    StepPage(1);
}

void TQzOutLookBar::PreviousPage()
{
    StepPage(-1);
}

void TQzOutLookBar::Notification(TComponent* component, TOperation operation)
{
    TQzWinControl::Notification(component, operation);
    if (operation == opRemove)
        QzClearReference(FActivePage, component);
}

TMetaClass* QzPageHolderClass(const TMetaClass* cls)
{
    if (cls->InheritsFrom(TQzTabSheet::ClassInfo()))
        return TQzCustomPageControl::ClassInfo();
    if (cls->InheritsFrom(TQzOutLookBarPage::ClassInfo()))
        return TQzOutLookBar::ClassInfo();
    return nullptr;
}
