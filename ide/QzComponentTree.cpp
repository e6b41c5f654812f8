#include "ide/QzComponentTree.h"

#include "designide/forms/QzIdeDesigner.h"
#include "ide/QzPalette.h"

#include "vcl/QzQtString.h"

#include "rtl/ComponentStream.h"

#include <QHeaderView>

namespace {
constexpr int ComponentRole = Qt::UserRole + 1;
}

TQzComponentTree::TQzComponentTree(QWidget* parent) : QTreeWidget(parent)
{
    setHeaderHidden(true);
    setColumnCount(1);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setUniformRowHeights(true);
    setIconSize(QSize(16, 16));
    connect(this, &QTreeWidget::itemSelectionChanged, this, &TQzComponentTree::SelectionFromTree);
}

void TQzComponentTree::SetDesigner(TIdeDesigner* designer)
{
    FDesigner = designer;
    Rebuild();
}

QTreeWidgetItem* TQzComponentTree::AddItem(QTreeWidgetItem* parentItem, TComponent* component)
{
    const AnsiString className = StreamedClassName(component);
    auto* item = parentItem ? new QTreeWidgetItem(parentItem) : new QTreeWidgetItem(this);
    item->setText(0, QzQString(component->Name() + ": " + className));
    item->setIcon(0, QzPaletteIcon(className));
    item->setData(0, ComponentRole, QVariant::fromValue(static_cast<void*>(component)));
    return item;
}

void TQzComponentTree::AddChildren(QTreeWidgetItem* parentItem, TComponent* parent)
{
    for (int i = 0; i < parent->ChildCount(); ++i) {
        TComponent* child = parent->Child(i);
        AddChildren(AddItem(parentItem, child), child);
    }
}

void TQzComponentTree::Rebuild()
{
    FSyncing = true;
    clear();
    if (FDesigner) {
        TComponent* root = FDesigner->GetRoot();
        QTreeWidgetItem* rootItem = AddItem(nullptr, root);
        // What the root owns with no place in the tree first, as the form
        // file lists them.
        for (int i = 0; i < root->ComponentCount(); ++i) {
            TComponent* c = root->Components(i);
            if (!c->GetParentComponent())
                AddChildren(AddItem(rootItem, c), c);
        }
        AddChildren(rootItem, root);
        expandAll();
    }
    FSyncing = false;
    SyncSelection();
}

TComponent* TQzComponentTree::ComponentOf(QTreeWidgetItem* item) const
{
    return item ? static_cast<TComponent*>(item->data(0, ComponentRole).value<void*>()) : nullptr;
}

QTreeWidgetItem* TQzComponentTree::ItemOf(TComponent* component) const
{
    for (QTreeWidgetItemIterator it(const_cast<TQzComponentTree*>(this)); *it; ++it)
        if (ComponentOf(*it) == component)
            return *it;
    return nullptr;
}

void TQzComponentTree::SyncSelection()
{
    if (!FDesigner)
        return;
    FSyncing = true;
    clearSelection();
    QTreeWidgetItem* current = nullptr;
    for (TComponent* c : FDesigner->SelectedComponents())
        if (QTreeWidgetItem* item = ItemOf(c)) {
            item->setSelected(true);
            current = current ? current : item;
        }
    if (current)
        scrollToItem(current);
    FSyncing = false;
}

void TQzComponentTree::SelectionFromTree()
{
    if (FSyncing || !FDesigner)
        return;
    TDesignerSelections selections;
    for (QTreeWidgetItem* item : selectedItems())
        if (TComponent* c = ComponentOf(item); c && c != FDesigner->GetRoot())
            selections.push_back(c);
    FDesigner->SetSelections(selections);
}
