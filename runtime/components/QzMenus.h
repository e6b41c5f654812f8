#pragma once
// The suite's menus: menu items (components, nested in the component tree
// as forms store them), the main and popup menus, and a menu drawn as a
// panel. Each menu publishes its root item as "Items"; the root is never
// written, its sub-items are the menu's children in the form.

#include "runtime/components/Menus.h"
#include "runtime/components/QzControl.h"

// What a menu item does beyond its own handler: the edit commands a
// "system menu" holds. Build SystemMenu adds one item of each.
enum TQzMenuItemKind { mkNormal, mkUndo, mkCut, mkCopy, mkPaste, mkDelete, mkSelectAll };
const TTypeInfo* TypeInfo_TQzMenuItemKind();

class TQzMenuItem : public TComponent {
    QZ_CLASS(TQzMenuItem, TComponent)

public:
    explicit TQzMenuItem(TComponent* owner);
    // The sub-items go with the item.
    ~TQzMenuItem() override;

    // The caption as typed ("-" is a separator line), and the label that
    // replaces it (with its hint) when it names one.
    const AnsiString& Caption() const { return FCaption; }
    void SetCaption(const AnsiString& value) { FCaption = value; }
    bool IsLine() const { return FCaption == "-"; }
    TQzMemoryLabel* Label() const { return FLabel.get(); }
    TQzMemoryImage* Image() const { return FImage.get(); }
    TQzPrivilege* Privilege() const { return FPrivilege.get(); }
    TQzMenuItemKind Kind() const { return FKind; }
    void SetKind(TQzMenuItemKind value) { FKind = value; }
    TShortCut ShortCut() const { return FShortCut; }
    void SetShortCut(TShortCut value) { FShortCut = value; }
    bool Checked() const { return FChecked; }
    void SetChecked(bool value) { FChecked = value; }
    bool Enabled() const { return FEnabled; }
    void SetEnabled(bool value) { FEnabled = value; }
    bool Visible() const { return FVisible; }
    void SetVisible(bool value) { FVisible = value; }
    const AnsiString& OnClick() const { return FOnClick; }
    void SetOnClick(const AnsiString& value) { FOnClick = value; }

    // The sub-items, in order.
    int Count() const;
    TQzMenuItem* Items(int index) const;   // EListError out of range
    int IndexOf(const TQzMenuItem* item) const;
    void Add(TQzMenuItem* item);
    void Insert(int index, TQzMenuItem* item);
    void Remove(TQzMenuItem* item);
    // The item this one is a sub-item of (a menu's root item for a top-level
    // item); nullptr when it is in no menu.
    TQzMenuItem* Parent() const;
    // The menu component (or panel menu) the item belongs to.
    TComponent* GetParentMenu() const;
    // Whether item is this one or lies below it.
    bool Contains(const TQzMenuItem* item) const;

    // The root item of menu: its sub-items are menu's children.
    void SetRootOf(TComponent* menu) { FRootOf = menu; }
    TComponent* RootOf() const { return FRootOf; }

private:
    static void DeclareProperties(TClassBuilder<TQzMenuItem>& b);
    // Where the sub-items sit in the component tree.
    TComponent* Container() const { return FRootOf ? FRootOf : const_cast<TQzMenuItem*>(this); }

    AnsiString FCaption;
    std::unique_ptr<TQzMemoryLabel> FLabel;
    std::unique_ptr<TQzMemoryImage> FImage;
    std::unique_ptr<TQzPrivilege> FPrivilege;
    TQzMenuItemKind FKind = mkNormal;
    TShortCut FShortCut = 0;
    bool FAutoCheck = false;
    bool FChecked = false;
    bool FDefault = false;
    bool FEnabled = true;
    Byte FGroupIndex = 0;
    bool FRadioItem = false;
    bool FVisible = true;
    AnsiString FOnClick;
    TComponent* FRootOf = nullptr;
};

// What the three menus share: the root item and the item that lists the
// open windows. The menus editor the designer keeps open for a menu is the
// design side's to remember (designide/ComponentDesignState.h).
class TQzMenuParts {
public:
    explicit TQzMenuParts(TComponent* menu);
    ~TQzMenuParts();

    TQzMenuItem* Items() const { return FItems.get(); }
    TQzMenuItem* WindowsList() const { return FWindowsList; }
    // Only an item of this menu other than its root will do; anything else
    // raises EInvalidOperation.
    void SetWindowsList(TQzMenuItem* value);
    bool ValidAssignWindowsList(const TQzMenuItem* item) const;
    void Notification(TComponent* component, TOperation operation);

private:
    TComponent* FMenu;
    std::unique_ptr<TQzMenuItem> FItems;
    TQzMenuItem* FWindowsList = nullptr;
};

template <class T>
void QzDeclareMenuItems(TClassBuilder<T>& b, bool withWindowsList)
{
    b.Property("Items", [](T& m) { return m.MenuParts().Items(); });
    if (withWindowsList)
        b.Property(
            "WindowsList", [](T& m) { return m.MenuParts().WindowsList(); },
            [](T& m, TQzMenuItem* v) { m.MenuParts().SetWindowsList(v); });
}

class TQzMainMenu : public TMainMenu {
    QZ_CLASS(TQzMainMenu, TMainMenu)

public:
    explicit TQzMainMenu(TComponent* owner) : TMainMenu(owner), FParts(this) {}
    TQzMenuParts& MenuParts() { return FParts; }
    TQzMenuItem* Items() const { return FParts.Items(); }
    TQzSetFont* SetFont() const { return FSetFont.get(); }
    TQzSetColor* SetColor() const { return FSetColor.get(); }
    void Notification(TComponent* component, TOperation operation) override;

private:
    static void DeclareProperties(TClassBuilder<TQzMainMenu>& b);

    TQzMenuParts FParts;
    std::unique_ptr<TQzSetFont> FSetFont = std::make_unique<TQzSetFont>();
    std::unique_ptr<TQzSetColor> FSetColor = std::make_unique<TQzSetColor>();
};

class TQzPopupMenu : public TPopupMenu {
    QZ_CLASS(TQzPopupMenu, TPopupMenu)

public:
    explicit TQzPopupMenu(TComponent* owner) : TPopupMenu(owner), FParts(this) {}
    TQzMenuParts& MenuParts() { return FParts; }
    TQzMenuItem* Items() const { return FParts.Items(); }
    TQzSetFont* SetFont() const { return FSetFont.get(); }
    TQzSetColor* SetColor() const { return FSetColor.get(); }
    // The items' images show beside their captions, ImageSize pixels square.
    bool ImagesVisible() const { return FImagesVisible; }
    Integer ImageSize() const { return FImageSize; }

    // Adds the edit commands (Undo, Cut, Copy, Paste, Delete, Select All)
    // that the menu does not hold yet, each once, at the end; returns how
    // many it added. New items are owned by the menu's owner and named
    // like a designer names them.
    int BuildSystemMenu();
    void Notification(TComponent* component, TOperation operation) override;

private:
    static void DeclareProperties(TClassBuilder<TQzPopupMenu>& b);

    TQzMenuParts FParts;
    std::unique_ptr<TQzSetFont> FSetFont = std::make_unique<TQzSetFont>();
    std::unique_ptr<TQzSetColor> FSetColor = std::make_unique<TQzSetColor>();
    bool FImagesVisible = false;
    Integer FImageSize = 16;
};

// A menu drawn as a panel of buttons on the form.
class TQzPanelMenu : public TQzWinControl {
    QZ_CLASS(TQzPanelMenu, TQzWinControl)

public:
    explicit TQzPanelMenu(TComponent* owner);
    TQzMenuParts& MenuParts() { return FParts; }
    TQzMenuItem* Items() const { return FParts.Items(); }
    void Notification(TComponent* component, TOperation operation) override;

private:
    static void DeclareProperties(TClassBuilder<TQzPanelMenu>& b);

    TQzMenuParts FParts;
    Integer FItemHeight = 24;
};
