#include "design/controls/QzMenuPopup.h"

#include "design/controls/QzMenuEditing.h"
#include "design/controls/QzMenuShortCuts.h"

#include "vcl/QzQtString.h"

#include <QCursor>
#include <QMenu>

void QzFillPopupMenu(QMenu* menu, TQzMenuItem* items)
{
    for (int i = 0; i < items->Count(); ++i) {
        TQzMenuItem* item = items->Items(i);
        if (!item->Visible())
            continue;
        if (item->IsLine()) {
            menu->addSeparator();
            continue;
        }
        const QString text = QzQString(QzMenuItemText(item));
        if (item->Count() > 0) {
            QMenu* sub = menu->addMenu(text);
            sub->setEnabled(item->Enabled());
            QzFillPopupMenu(sub, item);
            continue;
        }
        QAction* action = menu->addAction(text);
        action->setEnabled(item->Enabled());
        action->setCheckable(item->Checked());
        action->setChecked(item->Checked());
        if (const AnsiString shortCut = QzShortCutToText(item->ShortCut()); !shortCut.empty()) {
            action->setShortcut(QKeySequence(QzQString(shortCut).replace("Del", "Delete").replace("Ins", "Insert")));
            action->setShortcutVisibleInContextMenu(true);
        }
        if (const TQzMemoryLabel* label = item->Label(); label && label->Id() >= 0)
            action->setToolTip(QzQString(label->Hint()));
    }
}

void QzShowPopupMenu(TQzPopupMenu* popup)
{
    QMenu menu;
    QzFillPopupMenu(&menu, popup->Items());
    menu.exec(QCursor::pos());
}
