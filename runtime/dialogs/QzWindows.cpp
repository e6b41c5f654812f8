#include "runtime/dialogs/QzWindows.h"

#include "vcl/QzWindowBounds.h"  // the declarations above must match vcl's

#include <QWidget>

void QzCenterWindow(QWidget* form, bool onScreen)
{
    if (form == nullptr)
        return;
    QWidget* over = form->parentWidget() ? form->parentWidget()->window() : nullptr;
    if (onScreen || over == nullptr || !over->isVisible()) {
        QzCenterWindow(form);
        return;
    }
    QRect frame = form->frameGeometry();
    frame.moveCenter(over->frameGeometry().center());
    form->move(frame.topLeft());
    QzAdjustWindow(form);
}
