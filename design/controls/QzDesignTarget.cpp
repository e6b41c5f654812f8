#include "design/controls/QzDesignTarget.h"

#include "designide/DesignIntf.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>

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
    if (object && object != FDesignerObject) {
        // The form closed: the window goes with it, not at its next use.
        QObject::connect(object, &QObject::destroyed, &FContext, [this] {
            FComponent = nullptr;
            if (FChanged)
                FChanged();
        });
    }
    FDesignerObject = object;
}

QWidget* QzDesignWindowParent()
{
    QWidget* window = QApplication::activeWindow();
    // Beside another design window, the host's window owns this one too.
    while (window && window->windowType() == Qt::Tool)
        window = window->parentWidget() ? window->parentWidget()->window() : nullptr;
    return window;
}

IDesigner* TQzDesignTarget::Designer() const
{
    return FDesignerIsObject && !FDesignerObject ? nullptr : FDesigner;
}

TComponent* TQzDesignTarget::Component()
{
    if (!FComponent)
        Refind();
    if (FComponent)
        FName = FComponent->Name();
    return FComponent;
}

bool TQzDesignTarget::Refind()
{
    IDesigner* designer = Designer();
    TComponent* found = designer && !FName.empty() ? designer->GetComponent(FName) : nullptr;
    Watch(found);
    return found != nullptr;
}
