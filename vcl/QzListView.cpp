#include "vcl/QzListView.h"

#include "vcl/QzListDelegate.h"
#include "vcl/QzListModel.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>

TQzListView::TQzListView(QWidget* parent) : QTableView(parent), FDelegate(new TQzListDelegate(this))
{
    setItemDelegate(FDelegate);
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setMinimumSectionSize(1);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSortIndicatorClearable(true);
    SetRowHeight(fontMetrics().height() + 2);
    SetSortable(true);
}

void TQzListView::SetListModel(TQzListModel* model)
{
    FModel = model;
    // setModel makes a new selection model and leaves the old one to us.
    QItemSelectionModel* previous = selectionModel();
    setModel(model);
    if (previous != nullptr && previous != selectionModel())
        previous->deleteLater();
    if (model == nullptr)
        return;
    if (FSearchColumn < 0 || FSearchColumn >= model->columnCount()) {
        FSearchColumn = -1;
        for (qsizetype c = 0; c < model->Columns().size(); ++c)
            if (model->Columns()[c].Kind == TQzColumnKind::Text) {
                FSearchColumn = static_cast<int>(c);
                break;
            }
    }
    bool titled = false;
    for (const TQzListColumn& column : model->Columns())
        titled = titled || !column.Title.isEmpty();
    horizontalHeader()->setVisible(titled);
    SizeColumns();
    connect(selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex& current) { emit CurrentRowChanged(FModel->SourceRow(current.row())); });
}

void TQzListView::SizeColumns()
{
    QHeaderView* header = horizontalHeader();
    header->setStretchLastSection(false);
    for (qsizetype c = 0; c < FModel->Columns().size(); ++c) {
        const TQzListColumn& column = FModel->Columns()[c];
        const int section = static_cast<int>(c);
        if (!column.WidthText.isEmpty()) {
            header->setSectionResizeMode(section, QHeaderView::Interactive);
            setColumnWidth(section, fontMetrics().horizontalAdvance(column.WidthText) + 2 * TQzListDelegate::TextMargin);
        } else if (column.Width > 0) {
            header->setSectionResizeMode(section, QHeaderView::Interactive);
            setColumnWidth(section, column.Width);
        } else {
            header->setSectionResizeMode(section, QHeaderView::Stretch);
        }
    }
}

void TQzListView::SetRowHeight(int height)
{
    verticalHeader()->setDefaultSectionSize(height);
}

void TQzListView::SetSortable(bool sortable)
{
    // No sort at start: the provider's order stands until a header is clicked.
    horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    setSortingEnabled(sortable);
}

int TQzListView::CurrentSourceRow() const
{
    return FModel != nullptr && currentIndex().isValid() ? FModel->SourceRow(currentIndex().row()) : -1;
}

void TQzListView::SelectSourceRow(int sourceRow)
{
    if (FModel == nullptr)
        return;
    const int row = FModel->ViewRow(sourceRow);
    if (row < 0) {
        selectionModel()->clearSelection();
        setCurrentIndex(QModelIndex());
        return;
    }
    const QModelIndex index = FModel->index(row, 0);
    selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(index);
}

void TQzListView::keyboardSearch(const QString& search)
{
    if (FModel == nullptr || FSearchColumn < 0 || search.isEmpty())
        return;
    if (!FSearchClock.isValid() || FSearchClock.elapsed() > QApplication::keyboardInputInterval())
        FSearchText.clear();
    FSearchClock.start();
    // Typing the same letter again moves on to the next row that starts with
    // it; more letters refine the search from the current row.
    const bool repeated = FSearchText.size() == 1 && search.compare(FSearchText, Qt::CaseInsensitive) == 0;
    if (!repeated)
        FSearchText += search;
    const int current = currentIndex().isValid() ? currentIndex().row() : -1;
    const int start = current < 0 ? 0 : (FSearchText.size() == 1 ? current + 1 : current);
    const int found = FModel->FindPrefix(FSearchColumn, FSearchText, start % std::max(1, FModel->rowCount()));
    if (found >= 0)
        SelectSourceRow(FModel->SourceRow(found));
}

void TQzListView::ToggleCurrentCheck()
{
    const auto* checks = qobject_cast<TQzCheckListModel*>(FModel);
    if (checks == nullptr || checks->CheckColumn() < 0 || !currentIndex().isValid())
        return;
    const QModelIndex cell = FModel->index(currentIndex().row(), checks->CheckColumn());
    const bool checked = cell.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    FModel->setData(cell, checked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

void TQzListView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier &&
        qobject_cast<TQzCheckListModel*>(FModel) != nullptr) {
        ToggleCurrentCheck();
        event->accept();
        return;
    }
    QTableView::keyPressEvent(event);
}
