#include "runtime/util/QzDesigner.h"

#include <map>
#include <utility>

namespace {

TQzDesignerModifiedHook& Hook()
{
    static TQzDesignerModifiedHook hook;
    return hook;
}

std::map<int, TQzFormsListener>& Listeners()
{
    static std::map<int, TQzFormsListener> listeners;
    return listeners;
}

} // namespace

TQzDesignerModifiedHook SetQzDesignerModifiedHook(TQzDesignerModifiedHook hook)
{
    return std::exchange(Hook(), std::move(hook));
}

void QzDesignerModified(TComponent* owner)
{
    if (owner != nullptr && Hook())
        Hook()(owner);
}

int AddQzFormsListener(TQzFormsListener listener)
{
    static int lastId = 0;
    Listeners()[++lastId] = std::move(listener);
    return lastId;
}

void RemoveQzFormsListener(int id) { Listeners().erase(id); }

void QzFormsPerform(int message)
{
    // A listener may remove itself or others while it runs.
    const std::map<int, TQzFormsListener> listeners = Listeners();
    for (const auto& [id, listener] : listeners)
        if (Listeners().count(id) != 0)
            listener(message);
}
