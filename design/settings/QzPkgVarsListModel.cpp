#include "design/settings/QzPkgVarsListModel.h"

#include "design/settings/QzPkgVarsLogic.h"
#include "vcl/QzQtString.h"

TQzVarsListModel::TQzVarsListModel(QObject* parent) : QAbstractTableModel(parent) {}

void TQzVarsListModel::SetFolder(TQzPkgVars* package, TQzPkgVarsItem* folder)
{
    FPackage = package;
    FFolder = folder;
    Reload();
}

void TQzVarsListModel::Reload()
{
    beginResetModel();
    FItems = FPackage ? QzVarsVariables(*FPackage, FFolder) : std::vector<TQzPkgVarsItem*>{};
    endResetModel();
}

void TQzVarsListModel::Clear()
{
    beginResetModel();
    FPackage = nullptr;
    FFolder = nullptr;
    FItems.clear();
    endResetModel();
}

TQzPkgVarsItem* TQzVarsListModel::Item(int row) const
{
    return row >= 0 && row < static_cast<int>(FItems.size()) ? FItems[static_cast<size_t>(row)] : nullptr;
}

int TQzVarsListModel::FindData(const TQzPkgVarsItem* item) const
{
    for (size_t i = 0; i < FItems.size(); ++i)
        if (FItems[i] == item)
            return static_cast<int>(i);
    return -1;
}

void TQzVarsListModel::RowChanged(int row)
{
    emit dataChanged(index(row, 0), index(row, 1));
}

int TQzVarsListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(FItems.size());
}

int TQzVarsListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : 2;
}

QVariant TQzVarsListModel::data(const QModelIndex& index, int role) const
{
    const TQzPkgVarsItem* item = Item(index.row());
    if (!item)
        return {};
    if (role == Qt::DisplayRole || role == Qt::EditRole)
        return QzQString(index.column() == 0 ? item->Ident() : QzVarsValueText(*item));
    if (role == Qt::DecorationRole && index.column() == 0)
        return FIcon;
    return {};
}

QVariant TQzVarsListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return section == 0 ? QStringLiteral("Variable") : QStringLiteral("Value");
    return {};
}

Qt::ItemFlags TQzVarsListModel::flags(const QModelIndex& index) const
{
    Qt::ItemFlags f = QAbstractTableModel::flags(index);
    if (index.column() == 0)
        f |= Qt::ItemIsEditable;
    return f;
}

bool TQzVarsListModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    TQzPkgVarsItem* item = Item(index.row());
    if (!item || index.column() != 0 || role != Qt::EditRole)
        return false;
    // Taken as typed: the package allows any name, even a repeated one.
    item->SetIdent(QzAnsiString(value.toString()));
    emit dataChanged(index, index);
    if (OnRenamed)
        OnRenamed(item);
    return true;
}
