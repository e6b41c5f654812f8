#include "runtime/components/QzMenus.h"

#include <array>

const TTypeInfo* TypeInfo_TQzMenuItemKind()
{
    static const TTypeInfo* t = DefineEnumType(
        "TQzMenuItemKind", {"mkNormal", "mkUndo", "mkCut", "mkCopy", "mkPaste", "mkDelete", "mkSelectAll"});
    return t;
}

namespace {

// The root item of a menu component, or nullptr when component is none.
TQzMenuItem* RootItemOf(TComponent* component)
{
    if (auto* menu = dynamic_cast<TQzMainMenu*>(component))
        return menu->Items();
    if (auto* menu = dynamic_cast<TQzPopupMenu*>(component))
        return menu->Items();
    if (auto* menu = dynamic_cast<TQzPanelMenu*>(component))
        return menu->Items();
    return nullptr;
}

}  // namespace

// ---- TQzMenuItem --------------------------------------------------------------

void TQzMenuItem::DeclareProperties(TClassBuilder<TQzMenuItem>& b)
{
    b.Property("AutoCheck", &TQzMenuItem::FAutoCheck).Default(false);
    b.Property("Caption", &TQzMenuItem::Caption, &TQzMenuItem::SetCaption);
    b.Property("Checked", &TQzMenuItem::Checked, &TQzMenuItem::SetChecked).Default(false);
    b.Property("Default", &TQzMenuItem::FDefault).Default(false);
    b.Property("Enabled", &TQzMenuItem::Enabled, &TQzMenuItem::SetEnabled).Default(true);
    b.Property("GroupIndex", &TQzMenuItem::FGroupIndex).Default(0);
    QzDeclareOwned<TQzMenuItem, TQzMemoryImage>(b, "Image", [](TQzMenuItem& i) { return i.Image(); });
    b.Enum("Kind", TypeInfo_TQzMenuItemKind(), &TQzMenuItem::Kind, &TQzMenuItem::SetKind, mkNormal);
    QzDeclareOwned<TQzMenuItem, TQzMemoryLabel>(b, "Label", [](TQzMenuItem& i) { return i.Label(); });
    QzDeclareOwned<TQzMenuItem, TQzPrivilege>(b, "Privilege", [](TQzMenuItem& i) { return i.Privilege(); });
    b.Property("RadioItem", &TQzMenuItem::FRadioItem).Default(false);
    b.Property("ShortCut", TypeInfo_TShortCut(), &TQzMenuItem::ShortCut, &TQzMenuItem::SetShortCut).Default(0);
    b.Property("Visible", &TQzMenuItem::Visible, &TQzMenuItem::SetVisible).Default(true);
    b.Event("OnClick", TypeInfo_TNotifyEvent(), &TQzMenuItem::OnClick, &TQzMenuItem::SetOnClick);
}

TQzMenuItem::TQzMenuItem(TComponent* owner)
    : TComponent(owner),
      FLabel(std::make_unique<TQzMemoryLabel>()),
      FImage(std::make_unique<TQzMemoryImage>()),
      FPrivilege(std::make_unique<TQzPrivilege>())
{
    FLabel->SetOwner(this);
    FImage->SetOwner(this);
}

TQzMenuItem::~TQzMenuItem()
{
    QzFreeChildComponents(this);
}

int TQzMenuItem::Count() const
{
    const TComponent* container = Container();
    int count = 0;
    for (int i = 0; i < container->ChildCount(); ++i)
        if (dynamic_cast<TQzMenuItem*>(container->Child(i)))
            ++count;
    return count;
}

TQzMenuItem* TQzMenuItem::Items(int index) const
{
    const TComponent* container = Container();
    int seen = 0;
    for (int i = 0; i < container->ChildCount(); ++i)
        if (auto* item = dynamic_cast<TQzMenuItem*>(container->Child(i)); item && seen++ == index)
            return item;
    throw EListError("Menu index out of bounds (" + IntToStr(index) + ")");
}

int TQzMenuItem::IndexOf(const TQzMenuItem* item) const
{
    for (int i = 0; i < Count(); ++i)
        if (Items(i) == item)
            return i;
    return -1;
}

void TQzMenuItem::Add(TQzMenuItem* item)
{
    Insert(Count(), item);
}

void TQzMenuItem::Insert(int index, TQzMenuItem* item)
{
    if (!item || item->FRootOf)
        throw EInvalidOperation("Only a menu item can be inserted into a menu");
    if (item->Contains(this))
        throw EInvalidOperation("A menu item cannot be inserted into itself");
    // Moving within the same menu: the index counts the others.
    const int others = Count() - (item->GetParentComponent() == Container() ? 1 : 0);
    if (index < 0 || index > others)
        throw EListError("Menu index out of bounds (" + IntToStr(index) + ")");
    item->SetParentComponent(nullptr);
    // The tree orders every child of the container; find the place of the
    // index-th item among them (the end when it is last).
    TComponent* container = Container();
    const TQzMenuItem* before = index < Count() ? Items(index) : nullptr;
    item->SetParentComponent(container);
    int treeIndex = container->ChildCount() - 1;
    if (before)
        for (int i = 0; i < container->ChildCount(); ++i)
            if (container->Child(i) == before) {
                treeIndex = i;
                break;
            }
    container->SetChildOrder(item, treeIndex);
}

void TQzMenuItem::Remove(TQzMenuItem* item)
{
    if (item && item->GetParentComponent() == Container())
        item->SetParentComponent(nullptr);
}

TQzMenuItem* TQzMenuItem::Parent() const
{
    TComponent* parent = GetParentComponent();
    if (auto* item = dynamic_cast<TQzMenuItem*>(parent))
        return item;
    return RootItemOf(parent);
}

TComponent* TQzMenuItem::GetParentMenu() const
{
    const TQzMenuItem* item = this;
    while (!item->FRootOf) {
        item = item->Parent();
        if (!item)
            return nullptr;
    }
    return item->FRootOf;
}

bool TQzMenuItem::Contains(const TQzMenuItem* item) const
{
    for (; item; item = item->Parent())
        if (item == this)
            return true;
    return false;
}

// ---- The menus ---------------------------------------------------------------

TQzMenuParts::TQzMenuParts(TComponent* menu) : FMenu(menu), FItems(std::make_unique<TQzMenuItem>(nullptr))
{
    FItems->SetRootOf(menu);
}

TQzMenuParts::~TQzMenuParts() = default;

bool TQzMenuParts::ValidAssignWindowsList(const TQzMenuItem* item) const
{
    return item && item != FItems.get() && FItems->Contains(item);
}

void TQzMenuParts::SetWindowsList(TQzMenuItem* value)
{
    // While a form loads, the item may not be in its menu yet.
    if (value && !FMenu->ComponentState().Contains(csLoading) && !ValidAssignWindowsList(value))
        throw EInvalidOperation("The windows list must be an item of the same menu");
    QzSetReference(FMenu, FWindowsList, value);
}

void TQzMenuParts::Notification(TComponent* component, TOperation operation)
{
    if (operation == opRemove)
        QzClearReference(FWindowsList, component);
}

void TQzMainMenu::DeclareProperties(TClassBuilder<TQzMainMenu>& b)
{
    QzDeclareMenuItems(b, true);
    QzDeclareOwned<TQzMainMenu, TQzSetColor>(b, "SetColor", [](TQzMainMenu& m) { return m.FSetColor.get(); });
    QzDeclareOwned<TQzMainMenu, TQzSetFont>(b, "SetFont", [](TQzMainMenu& m) { return m.FSetFont.get(); });
}

void TQzMainMenu::Notification(TComponent* component, TOperation operation)
{
    TMainMenu::Notification(component, operation);
    FParts.Notification(component, operation);
}

void TQzPopupMenu::DeclareProperties(TClassBuilder<TQzPopupMenu>& b)
{
    b.Property("ImageSize", &TQzPopupMenu::FImageSize).Default(16);
    b.Property("ImagesVisible", &TQzPopupMenu::FImagesVisible).Default(false);
    QzDeclareMenuItems(b, false);
    QzDeclareOwned<TQzPopupMenu, TQzSetColor>(b, "SetColor", [](TQzPopupMenu& m) { return m.FSetColor.get(); });
    QzDeclareOwned<TQzPopupMenu, TQzSetFont>(b, "SetFont", [](TQzPopupMenu& m) { return m.FSetFont.get(); });
}

void TQzPopupMenu::Notification(TComponent* component, TOperation operation)
{
    TPopupMenu::Notification(component, operation);
    FParts.Notification(component, operation);
}

namespace {

struct TSystemItem {
    TQzMenuItemKind Kind;
    const char* Caption;
    TShortCut ShortCut;
};

constexpr TShortCut scCtrl = 0x4000;

constexpr std::array<TSystemItem, 6> SystemItems = {{
    {mkUndo, "&Undo", TShortCut(scCtrl | 'Z')},
    {mkCut, "Cu&t", TShortCut(scCtrl | 'X')},
    {mkCopy, "&Copy", TShortCut(scCtrl | 'C')},
    {mkPaste, "&Paste", TShortCut(scCtrl | 'V')},
    {mkDelete, "&Delete", TShortCut(0x2E)},
    {mkSelectAll, "Select &All", TShortCut(scCtrl | 'A')},
}};

bool HasKind(const TQzMenuItem* item, TQzMenuItemKind kind)
{
    for (int i = 0; i < item->Count(); ++i)
        if (item->Items(i)->Kind() == kind || HasKind(item->Items(i), kind))
            return true;
    return false;
}

}  // namespace

int TQzPopupMenu::BuildSystemMenu()
{
    int added = 0;
    for (const TSystemItem& system : SystemItems) {
        if (HasKind(Items(), system.Kind))
            continue;
        auto* item = new TQzMenuItem(Owner());
        item->SetName(QzUniqueComponentName(Owner(), TQzMenuItem::ClassInfo()->ClassName()));
        item->SetCaption(system.Caption);
        item->SetKind(system.Kind);
        item->SetShortCut(system.ShortCut);
        Items()->Add(item);
        ++added;
    }
    return added;
}

void TQzPanelMenu::DeclareProperties(TClassBuilder<TQzPanelMenu>& b)
{
    b.Property("ItemHeight", &TQzPanelMenu::FItemHeight).Default(24);
    QzDeclareMenuItems(b, true);
    QzDeclarePrivilege(b);
    QzDeclareSets(b, qsFont | qsColor | qsBackGround);
}

TQzPanelMenu::TQzPanelMenu(TComponent* owner) : TQzWinControl(owner), FParts(this)
{
    SetBounds(0, 0, 121, 185);
}

void TQzPanelMenu::Notification(TComponent* component, TOperation operation)
{
    TQzWinControl::Notification(component, operation);
    FParts.Notification(component, operation);
}
