#include "design/controls/QzDesignTarget.h"

#include "designide/DesignIntf.h"

#include <QTimer>

TQzDesignTarget::TQzDesignTarget(std::function<void()> changed)
    : FChanged(std::move(changed)), FWatcher(std::make_unique<TComponentFreeWatcher>([this](TComponent* freed) {
          if (freed != FComponent)
              return;
          FComponent = nullptr;
          // The form is read again after the old one is freed: look for the
          // new component once the designer has done so.
          QTimer::singleShot(0, &FContext, [this] {
              Refind();
              if (FChanged)
                  FChanged();
          });
      }))
{
}

TQzDesignTarget::~TQzDesignTarget()
{
    if (FComponent)
        FWatcher->Unwatch(FComponent);
}

void TQzDesignTarget::Watch(TComponent* component)
{
    if (FComponent)
        FWatcher->Unwatch(FComponent);
    FComponent = component;
    if (FComponent)
        FWatcher->Watch(FComponent);
}

void TQzDesignTarget::Set(TComponent* component, IDesigner* designer)
{
    Watch(component);
    FName = component ? component->Name() : AnsiString();
    FDesigner = designer;
    auto* object = dynamic_cast<QObject*>(designer);
    FDesignerIsObject = object != nullptr;
    FDesignerObject = object;
}

IDesigner* TQzDesignTarget::Designer() const
{
    return FDesignerIsObject && !FDesignerObject ? nullptr : FDesigner;
}

bool TQzDesignTarget::Refind()
{
    IDesigner* designer = Designer();
    TComponent* found = designer && !FName.empty() ? designer->GetComponent(FName) : nullptr;
    Watch(found);
    return found != nullptr;
}
