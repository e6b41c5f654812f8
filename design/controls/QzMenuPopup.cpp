#include "design/controls/QzMenuPopup.h"

#include "design/controls/QzMenuEditing.h"
#include "design/controls/QzMenuLook.h"
#include "design/controls/QzMenuShortCuts.h"

#include "vcl/QzQtString.h"

#include <QCursor>
#include <QIcon>
#include <QMenu>

void QzFillPopupMenu(QMenu* menu, TQzMenuItem* items, int imageSize)
{
    // Each icon copies its picture at once: the cache only draws it.
    TQzThumbnailCache images;
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
            QzFillPopupMenu(sub, item, imageSize);
            continue;
        }
        QAction* action = menu->addAction(text);
        if (const QImage& image = QzMenuItemImage(item, imageSize, images); !image.isNull())
            action->setIcon(QIcon(QPixmap::fromImage(image)));
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
    menu.setObjectName(QStringLiteral("TQzPopupMenu"));
    const TQzMenuLook look = QzMenuLookOf(popup);
    QzApplyMenuLook(&menu, look);
    QzFillPopupMenu(&menu, popup->Items(), look.ImageSize);
    menu.exec(QCursor::pos());
}
