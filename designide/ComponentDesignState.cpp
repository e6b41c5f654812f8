#include "designide/ComponentDesignState.h"

#include <utility>

TComponentFreeWatcher::TComponentFreeWatcher(std::function<void(TComponent*)> onFree)
    : TComponent(nullptr), FOnFree(std::move(onFree))
{
}

void TComponentFreeWatcher::Notification(TComponent* component, TOperation operation)
{
    TComponent::Notification(component, operation);
    if (operation == opRemove && component != this)
        FOnFree(component);
}
