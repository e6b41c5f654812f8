#pragma once
// The memory label, message and text editors open the same way from their
// property: on the active window, for a reference of their own kind only,
// and the property is changed when the editor closes with Ok.

#include "design/reg/QzEditorDialogs.h"

#include <QApplication>

template <class Form, class Ref>
void QzInstallMemoryEditor(TQzEditorDialog kind)
{
    QzSetEditorDialog(kind, [](TQzEditorDialogRequest& request) {
        auto* ref = dynamic_cast<Ref*>(request.Target);
        if (!ref)
            return 0;
        Form form(QApplication::activeWindow());
        form.SetMemory(ref);
        return form.Execute() == mrOk ? 1 : 0;
    });
}
