#pragma once
// Controls of several pages: the page control, whose "Pages" collection
// describes each tab (value, caption, image) and names the tab sheet that
// holds the tab's controls, and the outlook bar, whose pages are stacked
// with a button each.

#include "runtime/components/QzCollection.h"
#include "runtime/components/QzControl.h"

class TQzCustomPageControl;

// The container of one tab's controls.
class TQzTabSheet : public TQzWinControl {
    QZ_CLASS(TQzTabSheet, TQzWinControl)

public:
    explicit TQzTabSheet(TComponent* owner);
    TQzCustomPageControl* PageControl() const;

private:
    static void DeclareProperties(TClassBuilder<TQzTabSheet>& b);
};

// One tab: what the collection item has, and its sheet.
class TQzPageItem : public TQzCollectionItem {
    QZ_CLASS(TQzPageItem, TQzCollectionItem)

public:
    explicit TQzPageItem(TCollection* collection) : TQzCollectionItem(collection) {}
    TQzTabSheet* TabSheet() const { return FTabSheet; }
    void SetTabSheet(TQzTabSheet* value);
    void Assign(TPersistent* source) override;

private:
    friend class TQzCustomPageControl;
    static void DeclareProperties(TClassBuilder<TQzPageItem>& b);

    TQzTabSheet* FTabSheet = nullptr;
};

enum TTabPosition { tpTop, tpBottom, tpLeft, tpRight };
const TTypeInfo* TypeInfo_TTabPosition();

class TQzCustomPageControl : public TQzWinControl {
    QZ_CLASS(TQzCustomPageControl, TQzWinControl)

public:
    explicit TQzCustomPageControl(TComponent* owner);
    ~TQzCustomPageControl() override;

    TQzCollection* Pages() const { return FPages.get(); }
    int PageCount() const { return FPages->Count(); }
    TQzPageItem* Page(int index) const { return static_cast<TQzPageItem*>(FPages->Items(index)); }
    // The tab whose sheet is sheet; -1 when none.
    int IndexOfSheet(const TQzTabSheet* sheet) const;

    // A new tab at the end with a new sheet inside this control, owned by
    // this control's owner and named as a designer names components. The
    // new tab becomes the active one.
    TQzPageItem* AddPage();
    // A tab for a sheet that sits on this control without one (a sheet
    // pasted onto it), made the active one; the sheet's own tab when it
    // has one already.
    TQzPageItem* AddPageFor(TQzTabSheet* sheet);
    // Removes the tab and frees its sheet with everything on it.
    void DeletePage(int index);

    TQzTabSheet* ActivePage() const { return FActivePage; }
    // Only a sheet of one of this control's tabs (or nullptr) will do.
    void SetActivePage(TQzTabSheet* value);
    int ActivePageIndex() const { return IndexOfSheet(FActivePage); }

    void Notification(TComponent* component, TOperation operation) override;
    // The sheets fill the page's frame beside the row of tabs.
    void AdjustClientRect(TRect& rect) const override;

private:
    static void DeclareProperties(TClassBuilder<TQzCustomPageControl>& b);

    std::unique_ptr<TQzCollection> FPages;
    TQzTabSheet* FActivePage = nullptr;
    bool FMultiLine = false;
    Integer FTabHeight = 0;
    TTabPosition FTabPosition = tpTop;
    Integer FTabWidth = 0;
};

class TQzPageControl : public TQzCustomPageControl, public TQzValueHolder {
    QZ_CLASS(TQzPageControl, TQzCustomPageControl)

public:
    explicit TQzPageControl(TComponent* owner) : TQzCustomPageControl(owner) {}

private:
    static void DeclareProperties(TClassBuilder<TQzPageControl>& b);
};

// ---- Outlook bar -------------------------------------------------------------

class TQzOutLookBar;

class TQzOutLookBarPage : public TQzWinControl {
    QZ_CLASS(TQzOutLookBarPage, TQzWinControl)

public:
    explicit TQzOutLookBarPage(TComponent* owner);
    ~TQzOutLookBarPage() override;
    TQzOutLookBar* OutLookBar() const;
    TQzMemoryImage* Image() const { return FImage.get(); }

private:
    static void DeclareProperties(TClassBuilder<TQzOutLookBarPage>& b);

    std::unique_ptr<TQzMemoryImage> FImage;
};

class TQzOutLookBar : public TQzWinControl {
    QZ_CLASS(TQzOutLookBar, TQzWinControl)

public:
    explicit TQzOutLookBar(TComponent* owner);

    // The pages are the bar's children of the page class, in their order.
    int PageCount() const;
    TQzOutLookBarPage* Pages(int index) const;   // EListError out of range
    int IndexOfPage(const TQzOutLookBarPage* page) const;

    TQzOutLookBarPage* ActivePage() const { return FActivePage; }
    // Only a page of this bar (or nullptr) will do.
    void SetActivePage(TQzOutLookBarPage* value);
    int ActivePageIndex() const { return IndexOfPage(FActivePage); }

    // A new page at the end, owned by the bar's owner, named as a designer
    // names components, and made the active one.
    TQzOutLookBarPage* NewPage();
    // Step the active page forward or back, going round at the ends; with
    // no active page they start from the first (the last).
    void NextPage();
    void PreviousPage();

    Integer ButtonHeight() const { return FButtonHeight; }
    // Where page's button lies inside the bar: the buttons of the active
    // page and those before it at the top, the others at the bottom.
    TRect ButtonRect(int index) const;
    // The active page lies between the buttons above and below it (with no
    // active page, below all of them).
    void AdjustClientRect(TRect& rect) const override;

    void Notification(TComponent* component, TOperation operation) override;

private:
    static void DeclareProperties(TClassBuilder<TQzOutLookBar>& b);
    void StepPage(int delta);

    TQzOutLookBarPage* FActivePage = nullptr;
    Integer FButtonHeight = 24;
};

// Pages sit only on their own kind of control: a tab sheet on a page
// control, an outlook-bar page on its bar. The class that a control of
// class cls must sit on; nullptr when it may sit anywhere.
TMetaClass* QzPageHolderClass(const TMetaClass* cls);
