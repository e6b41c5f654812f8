#pragma once
// The object inspector: the properties (and, on their own tab, the events)
// of the selected components as a two-column tree, driven entirely by the
// property editors the design registry chooses. Attributes decide the row:
// a value list is a combo box (sorted with paSortList), paDialog adds the
// "..." button that calls Edit, paReadOnly rows cannot be typed into,
// paSubProperties rows expand. Several selected components show the
// properties they share. Every change is one step of the form's undo
// history; a value that does not fit is reported and changes nothing.

#include "designide/DesignEditors.h"

#include <QAbstractItemModel>
#include <QStyledItemDelegate>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

class QLineEdit;
class QTabWidget;
class QTreeView;
class TIdeDesigner;

class TQzInspectorModel : public QAbstractItemModel {
    Q_OBJECT

public:
    // Runs a change of the form (as one undo step) and reports its errors.
    using TChangeRunner = std::function<bool(const QString& text, const std::function<void()>& change)>;

    TQzInspectorModel(TTypeKinds kinds, QObject* parent = nullptr);
    ~TQzInspectorModel() override;

    // The selection of designer (nullptr: nothing); rebuilds every row.
    void SetDesigner(TIdeDesigner* designer);
    void Rebuild();
    void SetFilter(const QString& text);
    void SetChangeRunner(TChangeRunner runner) { FRunner = std::move(runner); }

    TPropertyEditor* EditorAt(const QModelIndex& index) const;
    TPropertyAttributes AttributesAt(const QModelIndex& index) const;
    // The row of the property called name under parent (case-insensitive).
    QModelIndex Find(const QString& name, const QModelIndex& parent = {}) const;
    // name.sub.sub: a path of rows from the top.
    QModelIndex FindPath(const QString& path) const;

    // Sets the row's value as typed; false (after a message) when it does
    // not fit.
    bool SetValueText(const QModelIndex& index, const QString& value);
    bool EditRow(const QModelIndex& index);
    bool RevertRow(const QModelIndex& index);
    // The values the row's list offers, sorted when the editor says so.
    QStringList ValuesOf(const QModelIndex& index) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& = {}) const override { return 2; }
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    bool canFetchMore(const QModelIndex& parent) const override;
    void fetchMore(const QModelIndex& parent) override;

private:
    struct TNode;
    TNode* NodeOf(const QModelIndex& index) const;
    bool Run(const QString& text, const std::function<void()>& change);

    TTypeKinds FKinds;
    TIdeDesigner* FDesigner = nullptr;
    QString FFilter;
    std::vector<std::unique_ptr<TNode>> FRoots;
    TChangeRunner FRunner;
};

// The value column's editors: a line, a combo box for value lists, and the
// "..." button for dialogs.
class TQzInspectorDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
};

class TQzInspector : public QWidget {
    Q_OBJECT

public:
    explicit TQzInspector(QWidget* parent = nullptr);

    void SetDesigner(TIdeDesigner* designer);
    // The selection or the form changed shape: rows again.
    void Rebuild();
    // Values changed: shown again without rebuilding.
    void RefreshValues();

    TQzInspectorModel* Properties() const { return FProperties; }
    TQzInspectorModel* Events() const { return FEvents; }
    QTreeView* PropertyView() const { return FPropertyView; }
    QLineEdit* FilterBox() const { return FFilter; }

private:
    QTreeView* MakeView(TQzInspectorModel* model);
    void ShowContextMenu(QTreeView* view, const QPoint& pos);

    TIdeDesigner* FDesigner = nullptr;
    QLineEdit* FFilter;
    QTabWidget* FTabs;
    TQzInspectorModel* FProperties;
    TQzInspectorModel* FEvents;
    QTreeView* FPropertyView;
    QTreeView* FEventView;
};
