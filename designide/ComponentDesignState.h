#pragma once
// What the design side keeps for a component between uses (the menus
// editor kept open for a menu, say) lives here rather than in the
// component, so the runtime holds no design state. An entry goes as soon as
// its component is freed, so a component freed and another one made at the
// same address never find each other's state.

#include "rtl/Component.h"

#include <cstddef>
#include <functional>
#include <map>
#include <memory>

// Tells its owner when a watched component is freed.
class TComponentFreeWatcher final : public TComponent {
public:
    explicit TComponentFreeWatcher(std::function<void(TComponent*)> onFree);
    void Watch(TComponent* component) { FreeNotification(component); }
    void Unwatch(TComponent* component) { RemoveFreeNotification(component); }
    void Notification(TComponent* component, TOperation operation) override;

private:
    std::function<void(TComponent*)> FOnFree;
};

template <class T>
class TComponentDesignState {
public:
    TComponentDesignState()
        : FWatcher(std::make_unique<TComponentFreeWatcher>([this](TComponent* c) { FEntries.erase(c); }))
    {
    }
    // The watcher calls back into this object.
    TComponentDesignState(const TComponentDesignState&) = delete;
    TComponentDesignState& operator=(const TComponentDesignState&) = delete;

    // nullptr when nothing is kept for component.
    T* Find(TComponent* component)
    {
        const auto at = FEntries.find(component);
        return at == FEntries.end() ? nullptr : &at->second;
    }
    // The state kept for component, made (default) on first use.
    T& operator[](TComponent* component)
    {
        const auto [at, added] = FEntries.try_emplace(component);
        if (added)
            FWatcher->Watch(component);
        return at->second;
    }
    void Remove(TComponent* component)
    {
        if (FEntries.erase(component) != 0)
            FWatcher->Unwatch(component);
    }
    std::size_t Count() const { return FEntries.size(); }

private:
    std::map<TComponent*, T> FEntries;
    // Last, so it goes first and stops watching before the entries go.
    std::unique_ptr<TComponentFreeWatcher> FWatcher;
};
