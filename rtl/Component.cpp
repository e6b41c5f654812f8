#include "rtl/Component.h"
#include "rtl/StringList.h"

#include "rtl/Collection.h"

#include <algorithm>

namespace {

bool IsIdentStart(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_';
}

// Component names become member names in the form's source, so they follow
// the identifier rules of the languages the IDE writes.
bool IsValidIdent(const AnsiString& name)
{
    if (name.empty() || !IsIdentStart(name[0]))
        return false;
    return std::all_of(name.begin() + 1, name.end(), [](char c) { return IsIdentStart(c) || (c >= '0' && c <= '9'); });
}

[[noreturn]] void RaiseIndexError(int index)
{
    throw EListError("List index out of bounds (" + std::to_string(index) + ")");
}

void Erase(std::vector<TComponent*>& list, TComponent* item)
{
    list.erase(std::remove(list.begin(), list.end(), item), list.end());
}

void MoveWithin(std::vector<TComponent*>& list, TComponent* item, int order)
{
    const auto it = std::find(list.begin(), list.end(), item);
    if (it == list.end())
        return;
    const int count = static_cast<int>(list.size());
    order = std::clamp(order, 0, count - 1);
    list.erase(it);
    list.insert(list.begin() + order, item);
}

}  // namespace

const TTypeInfo* TypeInfo_TComponentName()
{
    static const TTypeInfo* type = DefineStringType("TComponentName");
    return type;
}

// Name is written in the object's header, never as a property.
void TComponent::DeclareProperties(TClassBuilder<TComponent>& b)
{
    b.Property("Name", TypeInfo_TComponentName(), &TComponent::Name, &TComponent::SetName).Stored(false);
    b.Property("Tag", &TComponent::FTag).Default(0);
}

TComponent::TComponent(TComponent* owner)
{
    if (owner)
        owner->InsertComponent(this);
}

// The derived parts are gone by now, so those who hear of this component's
// end see it as a plain TComponent: compare it, do not cast it.
TComponent::~TComponent()
{
    Destroying();
    while (!FFreeNotifies.empty()) {
        TComponent* other = FFreeNotifies.back();
        FFreeNotifies.pop_back();
        other->RemoveNotification(this);
        other->Notification(this, opRemove);
    }
    DestroyComponents();
    for (TComponent* child : FChildren)
        child->FParent = nullptr;
    FChildren.clear();
    Unparent();
    if (FOwner)
        FOwner->RemoveComponent(this);
}

TComponent* TComponent::Components(int index) const
{
    if (index < 0 || index >= ComponentCount())
        RaiseIndexError(index);
    return FComponents[static_cast<std::size_t>(index)];
}

int TComponent::ComponentIndex() const
{
    if (!FOwner)
        return -1;
    const auto& list = FOwner->FComponents;
    return static_cast<int>(std::find(list.begin(), list.end(), this) - list.begin());
}

void TComponent::SetComponentIndex(int value)
{
    if (FOwner)
        MoveWithin(FOwner->FComponents, this, value);
}

TComponent* TComponent::FindComponent(const AnsiString& name) const
{
    if (name.empty())
        return nullptr;
    const auto it = std::find_if(FComponents.begin(), FComponents.end(),
                                 [&](const TComponent* c) { return SameText(c->FName, name); });
    return it == FComponents.end() ? nullptr : *it;
}

void TComponent::InsertComponent(TComponent* component)
{
    if (component->FOwner == this)
        return;
    ValidateRename(component, AnsiString(), component->FName);
    if (component->FOwner)
        component->FOwner->RemoveComponent(component);
    Insert(component);
    if (FComponentState.Contains(csDesigning))
        component->SetDesigning(true);
    Notification(component, opInsert);
}

void TComponent::RemoveComponent(TComponent* component)
{
    if (component->FOwner != this)
        return;
    Notification(component, opRemove);
    Remove(component);
}

void TComponent::DestroyComponents()
{
    while (!FComponents.empty()) {
        TComponent* component = FComponents.back();
        Remove(component);
        delete component;
    }
}

void TComponent::Destroying()
{
    if (FComponentState.Contains(csDestroying))
        return;
    FComponentState.Include(csDestroying);
    for (TComponent* component : FComponents)
        component->Destroying();
}

void TComponent::Insert(TComponent* component)
{
    FComponents.push_back(component);
    component->FOwner = this;
}

void TComponent::Remove(TComponent* component)
{
    Erase(FComponents, component);
    component->FOwner = nullptr;
}

void TComponent::SetName(const AnsiString& newName)
{
    if (FName == newName)
        return;
    if (!newName.empty() && !IsValidIdent(newName))
        throw EComponentError("'" + newName + "' is not a valid component name.");
    if (FOwner)
        FOwner->ValidateRename(this, FName, newName);
    else
        ValidateRename(nullptr, FName, newName);
    FName = newName;
}

// A designed component's owner checks too, so a name stays unique across
// the nested modules (frames) of a form being designed.
void TComponent::ValidateRename(TComponent* component, const AnsiString& curName, const AnsiString& newName)
{
    if (component && !SameText(curName, newName)) {
        const TComponent* existing = FindComponent(newName);
        if (existing && existing != component)
            throw EComponentError("A component named " + newName + " already exists.");
    }
    if (FComponentState.Contains(csDesigning) && FOwner)
        FOwner->ValidateRename(component, curName, newName);
}

void TComponent::Notification(TComponent* component, TOperation operation)
{
    if (operation == opRemove && component)
        RemoveFreeNotification(component);
    // A notified component may free others, so the index is re-checked.
    int i = ComponentCount() - 1;
    while (i >= 0) {
        FComponents[static_cast<std::size_t>(i)]->Notification(component, operation);
        i = std::min(i - 1, ComponentCount() - 1);
    }
}

void TComponent::FreeNotification(TComponent* component)
{
    if (!component || component == this)
        return;
    if (FOwner && component->FOwner == FOwner)
        return;
    if (std::find(FFreeNotifies.begin(), FFreeNotifies.end(), component) != FFreeNotifies.end())
        return;
    FFreeNotifies.push_back(component);
    component->FreeNotification(this);
}

void TComponent::RemoveFreeNotification(TComponent* component)
{
    RemoveNotification(component);
    component->RemoveNotification(this);
}

void TComponent::RemoveNotification(TComponent* component)
{
    Erase(FFreeNotifies, component);
}

void TComponent::SetComponentState(TComponentStateFlag flag, bool on)
{
    if (on)
        FComponentState.Include(flag);
    else
        FComponentState.Exclude(flag);
}

void TComponent::SetDesigning(bool value, bool setChildren)
{
    SetComponentState(csDesigning, value);
    if (setChildren)
        for (TComponent* component : FComponents)
            component->SetDesigning(value, true);
}

void TComponent::SetAncestor(bool value)
{
    SetComponentState(csAncestor, value);
    for (TComponent* component : FComponents)
        component->SetAncestor(value);
}

void TComponent::SetSubComponent(bool value)
{
    if (value)
        FComponentStyle.Include(csSubComponent);
    else
        FComponentStyle.Exclude(csSubComponent);
}

void TComponent::Loaded()
{
    SetComponentState(csLoading, false);
}

void TComponent::SetParentComponent(TComponent* parent)
{
    if (parent == FParent)
        return;
    for (const TComponent* p = parent; p; p = p->FParent)
        if (p == this)
            throw EInvalidOperation("A component cannot be placed inside itself");
    Unparent();
    if (parent) {
        parent->FChildren.push_back(this);
        FParent = parent;
    }
}

void TComponent::Unparent()
{
    if (FParent) {
        Erase(FParent->FChildren, this);
        FParent = nullptr;
    }
}

void TComponent::GetChildren(const TGetChildProc& proc, TComponent* root)
{
    if (root == this) {
        const std::vector<TComponent*> owned = FComponents;
        for (TComponent* component : owned)
            if (!component->HasParent())
                proc(component);
    }
    const std::vector<TComponent*> children = FChildren;
    for (TComponent* child : children)
        proc(child);
}

void TComponent::SetChildOrder(TComponent* child, int order)
{
    MoveWithin(FChildren, child, order);
}

TComponent* TComponent::Child(int index) const
{
    if (index < 0 || index >= ChildCount())
        RaiseIndexError(index);
    return FChildren[static_cast<std::size_t>(index)];
}

void RegisterRtlClasses()
{
    RegisterClasses({TPersistent::ClassInfo(), TComponent::ClassInfo(), TCollection::ClassInfo(),
                     TCollectionItem::ClassInfo(), TStrings::ClassInfo(), TStringList::ClassInfo()});
}
