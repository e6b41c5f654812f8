#pragma once
// TComponent: ownership (an owner frees what it owns), names unique among an
// owner's components, free notifications, the component state flags, and a
// parent/child tree that says how components nest in a form stream.

#include "rtl/Persistent.h"

#include <functional>
#include <memory>
#include <vector>

enum TOperation { opInsert, opRemove };

enum TComponentStateFlag {
    csLoading,
    csReading,
    csWriting,
    csDestroying,
    csDesigning,
    csAncestor,
    csUpdating,
    csFixups,
    csInline,
    csDesignInstance,
};
using TComponentState = TEnumSet<TComponentStateFlag>;

enum TComponentStyleFlag { csInheritable, csCheckPropAvail, csSubComponent, csTransient };
using TComponentStyle = TEnumSet<TComponentStyleFlag>;

using TGetChildProc = std::function<void(TComponent*)>;

// Whatever the stream reader needs to remember of a component that it read
// (unknown properties with their raw values and positions); owned here.
class TStreamInfoBase {
public:
    virtual ~TStreamInfoBase() = default;
};

// The string type of the Name property, so an editor can be bound to it.
const TTypeInfo* TypeInfo_TComponentName();

class TComponent : public TPersistent {
    QZ_CLASS(TComponent, TPersistent)

public:
    // Inserts itself into owner's components.
    explicit TComponent(TComponent* owner);
    // Frees the owned components (last first), tells those that asked for a
    // free notification, and leaves its owner and its place in the tree.
    ~TComponent() override;

    // Ownership
    TComponent* Owner() const { return FOwner; }
    int ComponentCount() const { return static_cast<int>(FComponents.size()); }
    TComponent* Components(int index) const;   // EListError out of range
    int ComponentIndex() const;                // -1 without owner
    void SetComponentIndex(int value);         // clamped into the owner's list
    TComponent* FindComponent(const AnsiString& name) const;
    void InsertComponent(TComponent* component);
    void RemoveComponent(TComponent* component);
    // Frees the owned components now; a descendant calls it first in its
    // destructor when what it owns still needs the descendant's parts.
    void DestroyComponents();
    void Destroying();

    // Names: an identifier, unique (case-insensitively) among the owner's
    // components; EComponentError otherwise. An empty name is allowed.
    const AnsiString& Name() const { return FName; }
    virtual void SetName(const AnsiString& newName);
    virtual void ValidateRename(TComponent* component, const AnsiString& curName, const AnsiString& newName);
    Integer Tag() const { return FTag; }
    void SetTag(Integer value) { FTag = value; }

    // Every component the owner owns hears of insertions and removals; an
    // override must call TComponent::Notification.
    virtual void Notification(TComponent* component, TOperation operation);
    // Asks component to tell this one (Notification opRemove) when it is
    // freed, and the other way round. Components with the same owner hear
    // through the owner instead.
    void FreeNotification(TComponent* component);
    void RemoveFreeNotification(TComponent* component);

    TComponentState ComponentState() const { return FComponentState; }
    // Sets or clears one flag; the filer marks what it reads and writes.
    void SetComponentState(TComponentStateFlag flag, bool on);
    // With setChildren, the owned components follow.
    void SetDesigning(bool value, bool setChildren = true);
    void SetAncestor(bool value);
    void SetInline(bool value) { SetComponentState(csInline, value); }
    void SetDesignInstance(bool value) { SetComponentState(csDesignInstance, value); }
    void Loading() { SetComponentState(csLoading, true); }
    // Called when the whole stream has been read; clears csLoading.
    virtual void Loaded();
    void Updating() { SetComponentState(csUpdating, true); }
    void Updated() { SetComponentState(csUpdating, false); }

    // A subcomponent (csSubComponent) is a component published as another
    // component's property; the filer writes its properties in place.
    TComponentStyle ComponentStyle() const { return FComponentStyle; }
    void SetSubComponent(bool value);

    // Where a non-visual component sits on the form at design time, as the
    // IDE keeps it: low 16 bits left, high 16 bits top.
    Integer DesignInfo() const { return FDesignInfo; }
    void SetDesignInfo(Integer value) { FDesignInfo = value; }

    // The parent/child tree, independent of ownership.
    virtual TComponent* GetParentComponent() const { return FParent; }
    // Moves this component to the end of parent's children (nullptr: none).
    virtual void SetParentComponent(TComponent* parent);
    virtual bool HasParent() const { return GetParentComponent() != nullptr; }
    // What the filer writes inside this component: for the root, first the
    // components it owns that have no parent (in their order), then this
    // component's children in their order.
    virtual void GetChildren(const TGetChildProc& proc, TComponent* root);
    // Who owns, and who parents, the components read inside this one.
    virtual TComponent* GetChildOwner() { return nullptr; }
    virtual TComponent* GetChildParent() { return this; }
    virtual void SetChildOrder(TComponent* child, int order);
    int ChildCount() const { return static_cast<int>(FChildren.size()); }
    TComponent* Child(int index) const;   // EListError out of range

    // The reader's bookkeeping for this component, kept until it is freed.
    TStreamInfoBase* StreamInfo() const { return FStreamInfo.get(); }
    void SetStreamInfo(std::unique_ptr<TStreamInfoBase> info) { FStreamInfo = std::move(info); }

    AnsiString GetNamePath() override { return FName; }
    TPersistent* GetOwner() override { return FOwner; }

private:
    static void DeclareProperties(TClassBuilder<TComponent>& b);

    void Insert(TComponent* component);
    void Remove(TComponent* component);
    void RemoveNotification(TComponent* component);
    void Unparent();

    TComponent* FOwner = nullptr;
    AnsiString FName;
    Integer FTag = 0;
    Integer FDesignInfo = 0;
    TComponentState FComponentState;
    TComponentStyle FComponentStyle{csInheritable};
    std::vector<TComponent*> FComponents;
    std::vector<TComponent*> FFreeNotifies;
    TComponent* FParent = nullptr;
    std::vector<TComponent*> FChildren;
    std::unique_ptr<TStreamInfoBase> FStreamInfo;
};

// Registers TPersistent, TComponent, TCollection and TCollectionItem; safe to
// call more than once.
void RegisterRtlClasses();
