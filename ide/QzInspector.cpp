#include "ide/QzInspector.h"

#include "designide/forms/QzIdeDesigner.h"

#include "vcl/QzQtString.h"
#include "vcl/QzReportErrors.h"

#include "rtl/SysUtils.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QTabWidget>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>
#include <algorithm>

struct TQzInspectorModel::TNode {
    std::unique_ptr<TPropertyEditor> Editor;
    TPropertyAttributes Attributes;
    TNode* Parent = nullptr;
    int Row = 0;
    bool Fetched = false;
    std::vector<std::unique_ptr<TNode>> Children;
};

namespace {


// The names of a set's elements and of a class's properties read best in
// their declared order; top-level rows are sorted by name as the IDE does.
void SortByName(std::vector<std::unique_ptr<TPropertyEditor>>& editors)
{
    std::stable_sort(editors.begin(), editors.end(), [](const auto& a, const auto& b) {
        return AnsiCompareText(a->GetName(), b->GetName()) < 0;
    });
}

// The row editor behind a dialog property: the value and the "..." button.
class TDialogEditor : public QWidget {
public:
    TDialogEditor(QWidget* parent, bool readOnly, std::function<void()> edit) : QWidget(parent)
    {
        auto* layout = new QHBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        Line = new QLineEdit(this);
        Line->setReadOnly(readOnly);
        Line->setFrame(false);
        auto* button = new QToolButton(this);
        button->setText(QStringLiteral("..."));
        button->setObjectName(QStringLiteral("ellipsis"));
        button->setFixedWidth(22);
        layout->addWidget(Line);
        layout->addWidget(button);
        setFocusProxy(Line);
        QObject::connect(button, &QToolButton::clicked, this, std::move(edit));
    }
    QLineEdit* Line;
};

}  // namespace

TQzInspectorModel::TQzInspectorModel(TTypeKinds kinds, QObject* parent) : QAbstractItemModel(parent), FKinds(kinds) {}

TQzInspectorModel::~TQzInspectorModel() = default;

void TQzInspectorModel::SetDesigner(TIdeDesigner* designer)
{
    FDesigner = designer;
    Rebuild();
}

void TQzInspectorModel::SetFilter(const QString& text)
{
    FFilter = text.trimmed();
    Rebuild();
}

void TQzInspectorModel::Rebuild()
{
    beginResetModel();
    FRoots.clear();
    if (FDesigner) {
        // Not only components: a collection editor selects the items it
        // lists.
        TDesignerSelections selection = FDesigner->GetSelections();
        if (selection.empty())
            selection.push_back(FDesigner->GetRoot());
        std::vector<std::unique_ptr<TPropertyEditor>> editors;
        GetComponentProperties(
            selection, FDesigner,
            [&](std::unique_ptr<TPropertyEditor> editor) {
                if (FFilter.isEmpty() || QzQString(editor->GetName()).contains(FFilter, Qt::CaseInsensitive))
                    editors.push_back(std::move(editor));
            },
            FKinds);
        SortByName(editors);
        for (auto& editor : editors) {
            auto node = std::make_unique<TNode>();
            node->Attributes = editor->GetAttributes();
            node->Editor = std::move(editor);
            node->Row = static_cast<int>(FRoots.size());
            FRoots.push_back(std::move(node));
        }
    }
    endResetModel();
}

TQzInspectorModel::TNode* TQzInspectorModel::NodeOf(const QModelIndex& index) const
{
    return index.isValid() ? static_cast<TNode*>(index.internalPointer()) : nullptr;
}

TPropertyEditor* TQzInspectorModel::EditorAt(const QModelIndex& index) const
{
    TNode* node = NodeOf(index);
    return node ? node->Editor.get() : nullptr;
}

TPropertyAttributes TQzInspectorModel::AttributesAt(const QModelIndex& index) const
{
    TNode* node = NodeOf(index);
    return node ? node->Attributes : TPropertyAttributes{};
}

QModelIndex TQzInspectorModel::Find(const QString& name, const QModelIndex& parent) const
{
    if (canFetchMore(parent))
        const_cast<TQzInspectorModel*>(this)->fetchMore(parent);
    for (int row = 0; row < rowCount(parent); ++row) {
        const QModelIndex i = index(row, 0, parent);
        if (QzQString(EditorAt(i)->GetName()).compare(name, Qt::CaseInsensitive) == 0)
            return i;
    }
    return {};
}

QModelIndex TQzInspectorModel::FindPath(const QString& path) const
{
    QModelIndex at;
    for (const QString& part : path.split('.')) {
        at = Find(part, at);
        if (!at.isValid())
            return {};
    }
    return at;
}

bool TQzInspectorModel::Run(const QString& text, const std::function<void()>& change)
{
    if (FRunner)
        return FRunner(text, change);
    change();
    return true;
}

bool TQzInspectorModel::SetValueText(const QModelIndex& index, const QString& value)
{
    TPropertyEditor* editor = EditorAt(index);
    if (!editor || (AttributesAt(index).Contains(paReadOnly) && !AttributesAt(index).Contains(paValueList)))
        return false;
    if (editor->AllEqual() && QzQString(editor->GetValue()) == value)
        return true;
    const QString name = QzQString(editor->GetName());
    return Run(QStringLiteral("Change %1").arg(name), [editor, value] { editor->SetValue(QzAnsiString(value)); });
}

bool TQzInspectorModel::EditRow(const QModelIndex& index)
{
    TPropertyEditor* editor = EditorAt(index);
    if (!editor || !AttributesAt(index).Contains(paDialog))
        return false;
    return Run(QStringLiteral("Edit %1").arg(QzQString(editor->GetName())), [editor] { editor->Edit(); });
}

bool TQzInspectorModel::RevertRow(const QModelIndex& index)
{
    TPropertyEditor* editor = EditorAt(index);
    if (!editor || !AttributesAt(index).Contains(paRevertable))
        return false;
    return Run(QStringLiteral("Revert %1").arg(QzQString(editor->GetName())), [editor] { editor->Revert(); });
}

QStringList TQzInspectorModel::ValuesOf(const QModelIndex& index) const
{
    QStringList values;
    TPropertyEditor* editor = EditorAt(index);
    if (!editor || !AttributesAt(index).Contains(paValueList))
        return values;
    editor->GetValues([&](const AnsiString& v) { values << QzQString(v); });
    if (AttributesAt(index).Contains(paSortList))
        values.sort(Qt::CaseInsensitive);
    return values;
}

QModelIndex TQzInspectorModel::index(int row, int column, const QModelIndex& parent) const
{
    if (column < 0 || column > 1 || row < 0)
        return {};
    if (!parent.isValid())
        return row < static_cast<int>(FRoots.size()) ? createIndex(row, column, FRoots[row].get()) : QModelIndex();
    TNode* p = NodeOf(parent);
    return row < static_cast<int>(p->Children.size()) ? createIndex(row, column, p->Children[row].get()) : QModelIndex();
}

QModelIndex TQzInspectorModel::parent(const QModelIndex& child) const
{
    TNode* node = NodeOf(child);
    if (!node || !node->Parent)
        return {};
    return createIndex(node->Parent->Row, 0, node->Parent);
}

int TQzInspectorModel::rowCount(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return static_cast<int>(FRoots.size());
    if (parent.column() != 0)
        return 0;
    return static_cast<int>(NodeOf(parent)->Children.size());
}

bool TQzInspectorModel::hasChildren(const QModelIndex& parent) const
{
    if (!parent.isValid())
        return !FRoots.empty();
    if (parent.column() != 0)
        return false;
    TNode* node = NodeOf(parent);
    return node->Fetched ? !node->Children.empty() : node->Attributes.Contains(paSubProperties);
}

bool TQzInspectorModel::canFetchMore(const QModelIndex& parent) const
{
    TNode* node = NodeOf(parent);
    return node && parent.column() == 0 && !node->Fetched && node->Attributes.Contains(paSubProperties);
}

void TQzInspectorModel::fetchMore(const QModelIndex& parent)
{
    TNode* node = NodeOf(parent);
    if (!canFetchMore(parent))
        return;
    node->Fetched = true;
    std::vector<std::unique_ptr<TPropertyEditor>> editors;
    node->Editor->GetProperties([&](std::unique_ptr<TPropertyEditor> editor) {
        if (editor && !editor->GetAttributes().Contains(paNotNestable))
            editors.push_back(std::move(editor));
    });
    if (editors.empty())
        return;
    beginInsertRows(parent, 0, static_cast<int>(editors.size()) - 1);
    for (auto& editor : editors) {
        auto child = std::make_unique<TNode>();
        child->Attributes = editor->GetAttributes();
        child->Editor = std::move(editor);
        child->Parent = node;
        child->Row = static_cast<int>(node->Children.size());
        node->Children.push_back(std::move(child));
    }
    endInsertRows();
}

QVariant TQzInspectorModel::data(const QModelIndex& index, int role) const
{
    TNode* node = NodeOf(index);
    if (!node)
        return {};
    if (role == Qt::DisplayRole || role == Qt::EditRole) {
        try {
            return index.column() == 0 ? QzQString(node->Editor->GetName()) : QzQString(node->Editor->GetVisualValue());
        } catch (const Exception& e) {
            return QStringLiteral("(%1)").arg(QzQString(e.Message()));
        }
    }
    if (role == Qt::ForegroundRole && index.column() == 1 && node->Attributes.Contains(paReadOnly) &&
        !node->Attributes.Contains(paValueList) && !node->Attributes.Contains(paDialog))
        return QColor(Qt::darkGray);
    if (role == Qt::ToolTipRole && index.column() == 0)
        return QzQString(node->Editor->GetPropType() ? node->Editor->GetPropType()->Name : AnsiString());
    return {};
}

bool TQzInspectorModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (role != Qt::EditRole || index.column() != 1)
        return false;
    return SetValueText(index, value.toString());
}

Qt::ItemFlags TQzInspectorModel::flags(const QModelIndex& index) const
{
    if (!index.isValid())
        return {};
    Qt::ItemFlags f = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    const TPropertyAttributes a = AttributesAt(index);
    if (index.column() == 1 && (!a.Contains(paReadOnly) || a.Contains(paValueList) || a.Contains(paDialog)))
        f |= Qt::ItemIsEditable;
    return f;
}

QVariant TQzInspectorModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    return section == 0 ? tr("Property") : tr("Value");
}

// ---------------------------------------------------------------------------

QWidget* TQzInspectorDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                            const QModelIndex& index) const
{
    auto* model = qobject_cast<const TQzInspectorModel*>(index.model());
    if (!model)
        return QStyledItemDelegate::createEditor(parent, option, index);
    const TPropertyAttributes a = model->AttributesAt(index);
    if (a.Contains(paDialog)) {
        auto* m = const_cast<TQzInspectorModel*>(model);
        const QPersistentModelIndex at(index);
        return new TDialogEditor(parent, a.Contains(paReadOnly), [m, at] {
            if (at.isValid())
                m->EditRow(at);
        });
    }
    if (a.Contains(paValueList)) {
        auto* combo = new QComboBox(parent);
        combo->setEditable(!a.Contains(paReadOnly) || a.Contains(paValueEditable));
        combo->setInsertPolicy(QComboBox::NoInsert);
        combo->addItems(model->ValuesOf(index));
        // A choice from the list takes effect at once, as in the IDE.
        connect(combo, &QComboBox::activated, combo, [this, combo] {
            emit const_cast<TQzInspectorDelegate*>(this)->commitData(combo);
        });
        return combo;
    }
    auto* line = new QLineEdit(parent);
    line->setFrame(false);
    return line;
}

void TQzInspectorDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    const QString value = index.data(Qt::EditRole).toString();
    if (auto* combo = qobject_cast<QComboBox*>(editor)) {
        const int at = combo->findText(value, Qt::MatchFixedString);
        if (at >= 0)
            combo->setCurrentIndex(at);
        else if (combo->isEditable())
            combo->setEditText(value);
        return;
    }
    if (auto* dialog = dynamic_cast<TDialogEditor*>(editor)) {
        dialog->Line->setText(value);
        return;
    }
    if (auto* line = qobject_cast<QLineEdit*>(editor))
        line->setText(value);
}

void TQzInspectorDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    QString value;
    if (auto* combo = qobject_cast<QComboBox*>(editor))
        value = combo->currentText();
    else if (auto* dialog = dynamic_cast<TDialogEditor*>(editor)) {
        if (dialog->Line->isReadOnly())
            return;
        value = dialog->Line->text();
    } else if (auto* line = qobject_cast<QLineEdit*>(editor))
        value = line->text();
    else
        return;
    model->setData(index, value, Qt::EditRole);
}

// ---------------------------------------------------------------------------

TQzInspector::TQzInspector(QWidget* parent)
    : QWidget(parent),
      FFilter(new QLineEdit(this)),
      FTabs(new QTabWidget(this)),
      FProperties(new TQzInspectorModel(tkProperties() - TTypeKinds{tkMethod}, this)),
      FEvents(new TQzInspectorModel(TTypeKinds{tkMethod}, this))
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    FFilter->setPlaceholderText(tr("Filter properties"));
    FFilter->setClearButtonEnabled(true);
    layout->addWidget(FFilter);
    layout->addWidget(FTabs);
    FPropertyView = MakeView(FProperties);
    FEventView = MakeView(FEvents);
    FTabs->addTab(FPropertyView, tr("Properties"));
    FTabs->addTab(FEventView, tr("Events"));
    connect(FFilter, &QLineEdit::textChanged, this, [this](const QString& text) {
        FProperties->SetFilter(text);
        FEvents->SetFilter(text);
    });
    const auto runner = [this](const QString& text, const std::function<void()>& change) {
        return FDesigner && QzRunReportingErrors(this, [&] { FDesigner->Change(text, change); });
    };
    FProperties->SetChangeRunner(runner);
    FEvents->SetChangeRunner(runner);
}

QTreeView* TQzInspector::MakeView(TQzInspectorModel* model)
{
    auto* view = new QTreeView(this);
    view->setModel(model);
    view->setItemDelegate(new TQzInspectorDelegate(view));
    view->setUniformRowHeights(true);
    view->setAlternatingRowColors(true);
    view->setEditTriggers(QAbstractItemView::AllEditTriggers);
    view->setContextMenuPolicy(Qt::CustomContextMenu);
    view->header()->setSectionResizeMode(0, QHeaderView::Interactive);
    view->header()->resizeSection(0, 130);
    view->header()->setStretchLastSection(true);
    connect(view, &QTreeView::customContextMenuRequested, this,
            [this, view](const QPoint& pos) { ShowContextMenu(view, pos); });
    return view;
}

void TQzInspector::ShowContextMenu(QTreeView* view, const QPoint& pos)
{
    auto* model = static_cast<TQzInspectorModel*>(view->model());
    const QModelIndex at = view->indexAt(pos);
    if (!at.isValid())
        return;
    QMenu menu(this);
    QAction* revert = menu.addAction(tr("Revert to default"));
    revert->setEnabled(model->AttributesAt(at).Contains(paRevertable));
    QAction* edit = menu.addAction(tr("Edit..."));
    edit->setEnabled(model->AttributesAt(at).Contains(paDialog));
    QAction* chosen = menu.exec(view->viewport()->mapToGlobal(pos));
    if (chosen == revert)
        model->RevertRow(at);
    else if (chosen == edit)
        model->EditRow(at);
}

void TQzInspector::SetDesigner(TIdeDesigner* designer)
{
    FDesigner = designer;
    FProperties->SetDesigner(designer);
    FEvents->SetDesigner(designer);
}

void TQzInspector::Rebuild()
{
    FProperties->Rebuild();
    FEvents->Rebuild();
}

void TQzInspector::RefreshValues()
{
    FPropertyView->viewport()->update();
    FEventView->viewport()->update();
}
