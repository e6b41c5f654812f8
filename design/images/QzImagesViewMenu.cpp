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

void ApplyViewOptions(const TQzImagesViewMenu& view, TQzImagesGrid* grid)
{
    TQzImagesGridOptions& options = grid->GridDelegate()->Options();
    options.Transparent = view.Transparent->isChecked();
    options.Stretch = view.Stretch->isChecked();
    options.Line = view.Size->isChecked()                       ? TQzImagesLine::Size
                   : view.Protected && view.Protected->isChecked() ? TQzImagesLine::Protected
                                                                   : TQzImagesLine::WidthHeight;
    grid->viewport()->update();
}

}  // namespace

TQzImagesViewMenu QzCreateImagesViewMenu(QWidget* owner, TQzImagesGrid* grid, bool withProtected)
{
    TQzImagesViewMenu view;
    view.Menu = new QMenu(owner);
    view.Menu->setObjectName("PopupMenu1");
    view.Transparent = QzImagesMenuAction(view.Menu, "MnTransparent", "Transparent", true);
    view.Stretch = QzImagesMenuAction(view.Menu, "MnStretch", "Stretch", true);
    view.Menu->addSeparator()->setObjectName("N1");
    view.WH = QzImagesMenuAction(view.Menu, "MnWH", "Show Width/Height", true);
    view.Size = QzImagesMenuAction(view.Menu, "MnSize", "Show Size (KB)", true);
    if (withProtected)
        view.Protected = QzImagesMenuAction(view.Menu, "MnProtected", "Show Protected", true);
    // The last line shows one thing at a time.
    auto* lines = new QActionGroup(view.Menu);
    for (QAction* action : {view.WH, view.Size, view.Protected})
        if (action)
            lines->addAction(action);
    view.WH->setChecked(true);

    for (QAction* action : {view.Transparent, view.Stretch, view.WH, view.Size, view.Protected})
        if (action)
            QObject::connect(action, &QAction::toggled, grid, [view, grid] { ApplyViewOptions(view, grid); });
    QObject::connect(grid, &QWidget::customContextMenuRequested, view.Menu,
                     [menu = view.Menu, grid](const QPoint& at) { menu->popup(grid->viewport()->mapToGlobal(at)); });
    return view;
}

void TQzImagesViewActions::CreateViewMenu(QWidget* owner, TQzImagesGrid* grid, bool withProtected)
{
    const TQzImagesViewMenu view = QzCreateImagesViewMenu(owner, grid, withProtected);
    PopupMenu1 = view.Menu;
    MnTransparent = view.Transparent;
    MnStretch = view.Stretch;
    MnWH = view.WH;
    MnSize = view.Size;
    MnProtected = view.Protected;
}
