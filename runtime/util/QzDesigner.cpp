#include "runtime/util/QzDesigner.h"

#include <utility>

namespace {

TQzDesignerModifiedHook& Hook()
{
    static TQzDesignerModifiedHook hook;
    return hook;
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
