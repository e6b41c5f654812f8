#include "design/images/QzImagesViewMenu.h"

#include "design/images/QzImagesGrid.h"

#include <QAction>
#include <QActionGroup>
#include <QMenu>

QAction* QzImagesMenuAction(QMenu* menu, const char* name, const QString& text, bool checkable, QAction* before)
{
    auto* action = new QAction(text, menu);
    menu->insertAction(before, action);
    action->setObjectName(QString::fromLatin1(name));
    action->setCheckable(checkable);
    return action;
}

namespace {

void ApplyViewOptions(const TQzImagesViewActions& view, TQzImagesGrid* grid)
{
    TQzImagesGridOptions& options = grid->GridDelegate()->Options();
    options.Transparent = view.MnTransparent->isChecked();
    options.Stretch = view.MnStretch->isChecked();
    options.Line = view.MnSize->isChecked()                         ? TQzImagesLine::Size
                   : view.MnProtected && view.MnProtected->isChecked() ? TQzImagesLine::Protected
                                                                     : TQzImagesLine::WidthHeight;
    grid->viewport()->update();
}

}  // namespace

void TQzImagesViewActions::CreateViewMenu(QWidget* owner, TQzImagesGrid* grid, bool withProtected)
{
    PopupMenu1 = new QMenu(owner);
    PopupMenu1->setObjectName("PopupMenu1");
    MnTransparent = QzImagesMenuAction(PopupMenu1, "MnTransparent", "Transparent", true);
    MnStretch = QzImagesMenuAction(PopupMenu1, "MnStretch", "Stretch", true);
    PopupMenu1->addSeparator()->setObjectName("N1");
    MnWH = QzImagesMenuAction(PopupMenu1, "MnWH", "Show Width/Height", true);
    MnSize = QzImagesMenuAction(PopupMenu1, "MnSize", "Show Size (KB)", true);
    if (withProtected)
        MnProtected = QzImagesMenuAction(PopupMenu1, "MnProtected", "Show Protected", true);
    // The last line shows one thing at a time.
    auto* lines = new QActionGroup(PopupMenu1);
    for (QAction* action : {MnWH, MnSize, MnProtected})
        if (action)
            lines->addAction(action);
    MnWH->setChecked(true);

    for (QAction* action : {MnTransparent, MnStretch, MnWH, MnSize, MnProtected})
        if (action)
            QObject::connect(action, &QAction::toggled, grid, [this, grid] { ApplyViewOptions(*this, grid); });
    QObject::connect(grid, &QWidget::customContextMenuRequested, PopupMenu1,
                     [menu = PopupMenu1, grid](const QPoint& at) { menu->popup(grid->viewport()->mapToGlobal(at)); });
}
