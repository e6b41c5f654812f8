#pragma once
// The long lists of the editors (labels, messages, texts, images, hits,
// variables) as Qt models over a row provider: the model asks for the cells
// it shows and holds no copy of the rows, so a list of 100,000 rows opens
// at once. Sorting keeps a permutation of the provider's rows.

#include <QAbstractTableModel>
#include <QColor>
#include <QImage>
#include <QList>
#include <QString>

#include <functional>
#include <vector>

enum class TQzColumnKind {
    Text,    // the provider's text, clipped to the column
    Check,   // a check mark from Checked (check boxes in a check list)
    Image,   // a thumbnail from Image
    Custom,  // painted by the delegate's painter for the column, from the
             // cell's text and image
};

struct TQzListColumn {
    QString Title;  // header caption; no header when every title is empty
    TQzColumnKind Kind = TQzColumnKind::Text;
    // The column is as wide as this text plus a margin (the suite sizes its
    // Id columns by "9999" and "99"). When empty, Width in pixels is used,
    // and 0 lets the column take the remaining width.
    QString WidthText;
    int Width = 0;
    Qt::Alignment Alignment = Qt::AlignLeft | Qt::AlignVCenter;
    bool Numeric = false;  // sorts by the integer value of its text
};

// Where the rows come from; rows are the provider's indexes, 0-based. Only
// RowCount and Text are needed; the rest serve the column kinds that use
// them.
struct TQzRowProvider {
    std::function<int()> RowCount;
    std::function<QString(int row, int column)> Text;
    std::function<bool(int row, int column)> Checked;
    std::function<QImage(int row, int column)> Image;
    std::function<QColor(int row, int column)> TextColor;  // invalid: the palette's
    // Sort order of two rows in a column (<0, 0, >0); by default texts are
    // compared without regard to case, numbers as numbers, checks as bools.
    std::function<int(int rowA, int rowB, int column)> Compare;
};

class TQzListModel : public QAbstractTableModel {
    Q_OBJECT

public:
    // The provider's row of an index (data of every cell).
    static constexpr int SourceRowRole = Qt::UserRole + 1;

    TQzListModel(QList<TQzListColumn> columns, TQzRowProvider provider, QObject* parent = nullptr);

    const QList<TQzListColumn>& Columns() const { return FColumns; }
    const TQzRowProvider& Provider() const { return FProvider; }

    // The provider's rows changed: reads the row count again and sorts anew.
    // The model keeps the count between two calls, so call it after every
    // change of the rows.
    virtual void Reload();
    // The cells of one provider row changed (texts, checks, images).
    void RowChanged(int sourceRow);

    // Between the rows shown and the provider's rows; -1 when out of range.
    int SourceRow(int viewRow) const;
    int ViewRow(int sourceRow) const;

    int SortColumn() const { return FSortColumn; }
    Qt::SortOrder SortOrder() const { return FSortOrder; }

    // The first view row from `startRow` on (wrapping round) whose text in
    // `column` begins with `prefix`, compared without regard to case; -1
    // when none does.
    int FindPrefix(int column, const QString& prefix, int startRow = 0) const;

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    // column -1 returns to the provider's order.
    void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

protected:
    // Whether the check cell of a provider row is checked.
    virtual bool IsCheckedCell(int sourceRow, int column) const;
    int RowTotal() const { return FRowCount; }

private:
    QString CellText(int sourceRow, int column) const;
    std::vector<int> SortedOrder(int column, Qt::SortOrder order) const;
    void SetOrder(std::vector<int> order);
    const std::vector<int>& Inverse() const;

    QList<TQzListColumn> FColumns;
    TQzRowProvider FProvider;
    int FRowCount = 0;
    int FSortColumn = -1;
    Qt::SortOrder FSortOrder = Qt::AscendingOrder;
    std::vector<int> FOrder;            // view row -> source row; empty: unsorted
    mutable std::vector<int> FInverse;  // source row -> view row, built on demand
};

// A list whose rows carry check boxes the user toggles (the manager's hits):
// the first Check column holds the model's own checks, kept per provider row.
class TQzCheckListModel : public TQzListModel {
    Q_OBJECT

public:
    TQzCheckListModel(QList<TQzListColumn> columns, TQzRowProvider provider, QObject* parent = nullptr);

    // Reloads the rows; every row starts unchecked.
    void Reload() override;

    bool IsChecked(int sourceRow) const;
    void SetChecked(int sourceRow, bool checked);
    void CheckAll() { SetAll(true); }
    void CheckNone() { SetAll(false); }
    void InvertChecks();
    int CheckedCount() const;
    std::vector<int> CheckedRows() const;  // provider rows, ascending
    int CheckColumn() const { return FCheckColumn; }

    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

signals:
    void ChecksChanged();

protected:
    bool IsCheckedCell(int sourceRow, int column) const override;

private:
    void SetAll(bool checked);
    void AllChanged();

    int FCheckColumn = -1;
    std::vector<char> FChecks;  // per provider row
};
