#include "vcl/QzListModel.h"

#include <algorithm>
#include <numeric>

namespace {

template <typename Less>
std::vector<int> StableOrder(int count, Qt::SortOrder order, Less less)
{
    std::vector<int> rows(static_cast<std::size_t>(count));
    std::iota(rows.begin(), rows.end(), 0);
    // Descending keeps equal rows in the provider's order too.
    if (order == Qt::AscendingOrder)
        std::stable_sort(rows.begin(), rows.end(), less);
    else
        std::stable_sort(rows.begin(), rows.end(), [&less](int a, int b) { return less(b, a); });
    return rows;
}

}  // namespace

TQzListModel::TQzListModel(QList<TQzListColumn> columns, TQzRowProvider provider, QObject* parent)
    : QAbstractTableModel(parent), FColumns(std::move(columns)), FProvider(std::move(provider))
{
    FRowCount = FProvider.RowCount ? std::max(0, FProvider.RowCount()) : 0;
}

void TQzListModel::Reload()
{
    beginResetModel();
    FRowCount = FProvider.RowCount ? std::max(0, FProvider.RowCount()) : 0;
    FInverse.clear();
    FOrder = FSortColumn >= 0 ? SortedOrder(FSortColumn, FSortOrder) : std::vector<int>();
    endResetModel();
}

void TQzListModel::RowChanged(int sourceRow)
{
    const int row = ViewRow(sourceRow);
    if (row >= 0)
        emit dataChanged(index(row, 0), index(row, columnCount() - 1));
}

int TQzListModel::SourceRow(int viewRow) const
{
    if (viewRow < 0 || viewRow >= FRowCount)
        return -1;
    return FOrder.empty() ? viewRow : FOrder[static_cast<std::size_t>(viewRow)];
}

const std::vector<int>& TQzListModel::Inverse() const
{
    if (FInverse.size() != FOrder.size()) {
        FInverse.assign(FOrder.size(), -1);
        for (std::size_t view = 0; view < FOrder.size(); ++view)
            FInverse[static_cast<std::size_t>(FOrder[view])] = static_cast<int>(view);
    }
    return FInverse;
}

int TQzListModel::ViewRow(int sourceRow) const
{
    if (sourceRow < 0 || sourceRow >= FRowCount)
        return -1;
    return FOrder.empty() ? sourceRow : Inverse()[static_cast<std::size_t>(sourceRow)];
}

int TQzListModel::FindPrefix(int column, const QString& prefix, int startRow) const
{
    if (column < 0 || column >= columnCount() || FRowCount == 0)
        return -1;
    const int start = std::clamp(startRow, 0, FRowCount - 1);
    for (int i = 0; i < FRowCount; ++i) {
        const int row = (start + i) % FRowCount;
        if (CellText(SourceRow(row), column).startsWith(prefix, Qt::CaseInsensitive))
            return row;
    }
    return -1;
}

QString TQzListModel::CellText(int sourceRow, int column) const
{
    return FProvider.Text ? FProvider.Text(sourceRow, column) : QString();
}

bool TQzListModel::IsCheckedCell(int sourceRow, int column) const
{
    return FProvider.Checked && FProvider.Checked(sourceRow, column);
}

int TQzListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : FRowCount;
}

int TQzListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(FColumns.size());
}

QVariant TQzListModel::data(const QModelIndex& index, int role) const
{
    const int source = SourceRow(index.row());
    if (!index.isValid() || source < 0 || index.column() >= columnCount())
        return {};
    const int column = index.column();
    const TQzListColumn& info = FColumns[column];
    switch (role) {
    case Qt::DisplayRole:
        return CellText(source, column);
    case Qt::ToolTipRole:
        return info.Kind == TQzColumnKind::Text ? CellText(source, column) : QVariant();
    case Qt::CheckStateRole:
        if (info.Kind == TQzColumnKind::Check)
            return IsCheckedCell(source, column) ? Qt::Checked : Qt::Unchecked;
        return {};
    case Qt::DecorationRole:
        if ((info.Kind == TQzColumnKind::Image || info.Kind == TQzColumnKind::Custom) && FProvider.Image)
            return FProvider.Image(source, column);
        return {};
    case Qt::ForegroundRole:
        if (FProvider.TextColor) {
            const QColor color = FProvider.TextColor(source, column);
            if (color.isValid())
                return color;
        }
        return {};
    case Qt::TextAlignmentRole:
        return QVariant::fromValue(info.Alignment);
    case SourceRowRole:
        return source;
    default:
        return {};
    }
}

QVariant TQzListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0 && section < columnCount())
        return FColumns[section].Title;
    return QAbstractTableModel::headerData(section, orientation, role);
}

Qt::ItemFlags TQzListModel::flags(const QModelIndex& index) const
{
    return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren : Qt::NoItemFlags;
}

std::vector<int> TQzListModel::SortedOrder(int column, Qt::SortOrder order) const
{
    if (FProvider.Compare)
        return StableOrder(FRowCount, order,
                           [this, column](int a, int b) { return FProvider.Compare(a, b, column) < 0; });
    // Each key is read once: a provider may build its texts on every call.
    const TQzListColumn& info = FColumns[column];
    if (info.Kind == TQzColumnKind::Check) {
        std::vector<char> keys(static_cast<std::size_t>(FRowCount));
        for (int r = 0; r < FRowCount; ++r)
            keys[static_cast<std::size_t>(r)] = IsCheckedCell(r, column) ? 1 : 0;
        return StableOrder(FRowCount, order, [&keys](int a, int b) { return keys[a] < keys[b]; });
    }
    if (info.Numeric) {
        std::vector<qlonglong> keys(static_cast<std::size_t>(FRowCount));
        for (int r = 0; r < FRowCount; ++r)
            keys[static_cast<std::size_t>(r)] = CellText(r, column).trimmed().toLongLong();
        return StableOrder(FRowCount, order, [&keys](int a, int b) { return keys[a] < keys[b]; });
    }
    std::vector<QString> keys(static_cast<std::size_t>(FRowCount));
    for (int r = 0; r < FRowCount; ++r)
        keys[static_cast<std::size_t>(r)] = CellText(r, column);
    return StableOrder(FRowCount, order, [&keys](int a, int b) {
        return QString::compare(keys[a], keys[b], Qt::CaseInsensitive) < 0;
    });
}

void TQzListModel::sort(int column, Qt::SortOrder order)
{
    if (column >= columnCount())
        return;
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    // Remember which provider row each persistent index (selection, current
    // row) stands on, so that they follow their rows.
    const QModelIndexList before = persistentIndexList();
    std::vector<int> sources;
    sources.reserve(static_cast<std::size_t>(before.size()));
    for (const QModelIndex& index : before)
        sources.push_back(SourceRow(index.row()));

    FSortColumn = column < 0 ? -1 : column;
    FSortOrder = order;
    SetOrder(FSortColumn >= 0 ? SortedOrder(FSortColumn, order) : std::vector<int>());

    QModelIndexList after;
    after.reserve(before.size());
    for (qsizetype i = 0; i < before.size(); ++i)
        after.append(index(ViewRow(sources[static_cast<std::size_t>(i)]), before[i].column()));
    changePersistentIndexList(before, after);
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void TQzListModel::SetOrder(std::vector<int> order)
{
    FOrder = std::move(order);
    FInverse.clear();
}

TQzCheckListModel::TQzCheckListModel(QList<TQzListColumn> columns, TQzRowProvider provider, QObject* parent)
    : TQzListModel(std::move(columns), std::move(provider), parent)
{
    for (qsizetype c = 0; c < Columns().size(); ++c)
        if (Columns()[c].Kind == TQzColumnKind::Check) {
            FCheckColumn = static_cast<int>(c);
            break;
        }
    FChecks.assign(static_cast<std::size_t>(RowTotal()), 0);
}

void TQzCheckListModel::Reload()
{
    // Sized before the base reloads: it may sort by the check column.
    FChecks.assign(static_cast<std::size_t>(std::max(0, Provider().RowCount ? Provider().RowCount() : 0)), 0);
    TQzListModel::Reload();
    emit ChecksChanged();
}

bool TQzCheckListModel::IsChecked(int sourceRow) const
{
    return sourceRow >= 0 && sourceRow < static_cast<int>(FChecks.size()) && FChecks[static_cast<std::size_t>(sourceRow)];
}

void TQzCheckListModel::SetChecked(int sourceRow, bool checked)
{
    if (sourceRow < 0 || sourceRow >= static_cast<int>(FChecks.size()) || IsChecked(sourceRow) == checked)
        return;
    FChecks[static_cast<std::size_t>(sourceRow)] = checked ? 1 : 0;
    const int row = ViewRow(sourceRow);
    if (FCheckColumn >= 0)
        emit dataChanged(index(row, FCheckColumn), index(row, FCheckColumn), {Qt::CheckStateRole});
    emit ChecksChanged();
}

void TQzCheckListModel::SetAll(bool checked)
{
    std::fill(FChecks.begin(), FChecks.end(), checked ? 1 : 0);
    AllChanged();
}

void TQzCheckListModel::InvertChecks()
{
    for (char& check : FChecks)
        check = check ? 0 : 1;
    AllChanged();
}

void TQzCheckListModel::AllChanged()
{
    if (FCheckColumn >= 0 && rowCount() > 0)
        emit dataChanged(index(0, FCheckColumn), index(rowCount() - 1, FCheckColumn), {Qt::CheckStateRole});
    emit ChecksChanged();
}

int TQzCheckListModel::CheckedCount() const
{
    return static_cast<int>(std::count(FChecks.begin(), FChecks.end(), 1));
}

std::vector<int> TQzCheckListModel::CheckedRows() const
{
    std::vector<int> rows;
    for (std::size_t r = 0; r < FChecks.size(); ++r)
        if (FChecks[r])
            rows.push_back(static_cast<int>(r));
    return rows;
}

bool TQzCheckListModel::IsCheckedCell(int sourceRow, int column) const
{
    return column == FCheckColumn ? IsChecked(sourceRow) : TQzListModel::IsCheckedCell(sourceRow, column);
}

bool TQzCheckListModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!index.isValid() || role != Qt::CheckStateRole || index.column() != FCheckColumn)
        return false;
    SetChecked(SourceRow(index.row()), value.toInt() == Qt::Checked);
    return true;
}

Qt::ItemFlags TQzCheckListModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags result = TQzListModel::flags(index);
    if (index.isValid() && index.column() == FCheckColumn)
        result |= Qt::ItemIsUserCheckable;
    return result;
}
