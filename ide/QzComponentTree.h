#pragma once
// The component tree of the current form: the root, the components without
// a parent (packages, menus, timers) and the controls nested under the
// controls they sit on, each shown as "Name: Class" with the class it was
// streamed as. Selecting rows selects in the designer and the other way
// round.

#include <QTreeWidget>

class TComponent;
class TIdeDesigner;

class TQzComponentTree : public QTreeWidget {
    Q_OBJECT

public:
    explicit TQzComponentTree(QWidget* parent = nullptr);

    void SetDesigner(TIdeDesigner* designer);
    // The form's components again (after a change of shape).
    void Rebuild();
    // Marks the designer's selection.
    void SyncSelection();
    QTreeWidgetItem* ItemOf(TComponent* component) const;
    TComponent* ComponentOf(QTreeWidgetItem* item) const;

private:
    void AddChildren(QTreeWidgetItem* parentItem, TComponent* parent);
    QTreeWidgetItem* AddItem(QTreeWidgetItem* parentItem, TComponent* component);
    void SelectionFromTree();

    TIdeDesigner* FDesigner = nullptr;
    bool FSyncing = false;
};
