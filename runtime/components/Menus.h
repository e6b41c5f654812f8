#pragma once
// The menu components' bases as the class library has them: a main menu a
// form shows in its menu bar and a popup menu a control opens on a right
// click. Their items are the suite's (runtime/components/QzMenus.h); these
// carry what the two kinds of menu publish themselves.

#include "runtime/components/Controls.h"

class TMenu : public TNonVisualComponent {
    QZ_CLASS(TMenu, TNonVisualComponent)

public:
    explicit TMenu(TComponent* owner) : TNonVisualComponent(owner) {}
    ~TMenu() override;
};

class TMainMenu : public TMenu {
    QZ_CLASS(TMainMenu, TMenu)

public:
    explicit TMainMenu(TComponent* owner) : TMenu(owner) {}

private:
    static void DeclareProperties(TClassBuilder<TMainMenu>& b);

    // Merge the menu of an MDI child or an in-place server into this one.
    bool FAutoMerge = false;
};

enum TPopupAlignment { paLeft, paRight, paCenter };
const TTypeInfo* TypeInfo_TPopupAlignment();

class TPopupMenu : public TMenu {
    QZ_CLASS(TPopupMenu, TMenu)

public:
    explicit TPopupMenu(TComponent* owner) : TMenu(owner) {}

private:
    static void DeclareProperties(TClassBuilder<TPopupMenu>& b);

    TPopupAlignment FAlignment = paLeft;
    // Opens by itself on a right click of its control.
    bool FAutoPopup = true;
};
