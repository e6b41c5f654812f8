#pragma once
// What the design windows' tests share: the designer's "modified" calls
// recorded for one test, the active window taken as the form a step
// expects, and an action triggered as a step.

#include "runtime/util/QzDesigner.h"

#include "support/gui/QzModalDriver.h"

#include <QAction>

#include <vector>

// For its lifetime, each owner the designer is told was modified, in order.
class TQzMarkedLog {
public:
    TQzMarkedLog() : FPrevious(SetQzDesignerModifiedHook([this](TComponent* c) { Marked.push_back(c); })) {}
    ~TQzMarkedLog() { SetQzDesignerModifiedHook(std::move(FPrevious)); }
    TQzMarkedLog(const TQzMarkedLog&) = delete;
    TQzMarkedLog& operator=(const TQzMarkedLog&) = delete;

    int Count() const { return static_cast<int>(Marked.size()); }

    std::vector<TComponent*> Marked;

private:
    TQzDesignerModifiedHook FPrevious;
};

// The active window as the form a step expects; fails the step otherwise.
template <class TForm>
TForm* QzWindowAs(QWidget* w)
{
    auto* form = qobject_cast<TForm*>(w);
    if (!form)
        throw TQzDriverError(std::string("the active window is not a ") + TForm::staticMetaObject.className());
    return form;
}

inline TQzModalDriver::TStep QzTrigger(const char* action)
{
    return [action](QWidget* w) { TQzModalDriver::Find<QAction>(w, action)->trigger(); };
}
