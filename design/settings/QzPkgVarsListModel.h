#pragma once
// The variables editor's list: the variables of one folder, read from the
// package as they are drawn (nothing copied but the row order), with the
// name editable in place.

#include "runtime/model/QzPkgVars.h"

#include <QAbstractTableModel>
#include <QIcon>

#include <functional>
#include <vector>

class TQzVarsListModel : public QAbstractTableModel {
public:
    explicit TQzVarsListModel(QObject* parent = nullptr);

    // Shows the variables of folder (null: the package's top level).
    void SetFolder(TQzPkgVars* package, TQzPkgVarsItem* folder);
    void Reload();
    void Clear();
    // The row's item, or null; the row of an item, or -1 (FindData).
    TQzPkgVarsItem* Item(int row) const;
    int FindData(const TQzPkgVarsItem* item) const;
    // Refreshes one row's texts after its item changed.
    void RowChanged(int row);

    void SetIcon(const QIcon& icon) { FIcon = icon; }
    // Told when a name was edited in place, after the item took it.
    std::function<void(TQzPkgVarsItem* item)> OnRenamed;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

private:
    TQzPkgVars* FPackage = nullptr;
    TQzPkgVarsItem* FFolder = nullptr;
    std::vector<TQzPkgVarsItem*> FItems;
    QIcon FIcon;
};
