#include "runtime/components/Menus.h"

// The items sit inside the menu in the component tree: they go with it.
TMenu::~TMenu()
{
    QzFreeChildComponents(this);
}

void TMainMenu::DeclareProperties(TClassBuilder<TMainMenu>& b)
{
    b.Property("AutoMerge", &TMainMenu::FAutoMerge).Default(false);
}

const TTypeInfo* TypeInfo_TPopupAlignment()
{
    static const TTypeInfo* t = DefineEnumType("TPopupAlignment", {"paLeft", "paRight", "paCenter"});
    return t;
}

void TPopupMenu::DeclareProperties(TClassBuilder<TPopupMenu>& b)
{
    b.Enum("Alignment", TypeInfo_TPopupAlignment(), &TPopupMenu::FAlignment, &TPopupMenu::FAlignment, paLeft);
    b.Property("AutoPopup", &TPopupMenu::FAutoPopup).Default(true);
}
