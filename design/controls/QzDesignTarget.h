#pragma once
// The component a design window beside the designer works on, followed
// across the designer's changes. Undo and redo read the form again, so the
// component the window was given is freed and a new one of the same name
// takes its place; deleting it on the form frees it for good; closing the
// form takes the designer away. The window asks Component() before every
// use: nullptr means there is nothing to work on now.

#include "designide/ComponentDesignState.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>

class IDesigner;
class QWidget;

class TQzDesignTarget {
public:
    // changed runs (later, from the event loop) once the component was
    // freed and looked for again: Component() is then the new one, or
    // nullptr when it is gone for good.
    explicit TQzDesignTarget(std::function<void()> changed);
    ~TQzDesignTarget();
    TQzDesignTarget(const TQzDesignTarget&) = delete;
    TQzDesignTarget& operator=(const TQzDesignTarget&) = delete;

    void Set(TComponent* component, IDesigner* designer);
    // Looks the component up again when it was freed (the form read
    // again before the look-up that changed runs after); also notes the
    // name, which the user may have changed since.
    TComponent* Component();
    // nullptr once the designer is gone.
    IDesigner* Designer() const;
    // Looks the component up again by its name; true when it is there.
    bool Refind();

private:
    void Watch(TComponent* component);

    std::function<void()> FChanged;
    std::unique_ptr<TComponentFreeWatcher> FWatcher;
    TComponent* FComponent = nullptr;
    AnsiString FName;
    IDesigner* FDesigner = nullptr;
    // Set when the designer is a Qt object (the host's), so that its going
    // is seen; a designer that is not one lives as long as its window.
    QPointer<QObject> FDesignerObject;
    bool FDesignerIsObject = false;
    QObject FContext;  // drops the pending look-up when the target goes
};

// The window a design window belongs to: the host's active window, never
// another design window, so that it closes with the host.
QWidget* QzDesignWindowParent();
