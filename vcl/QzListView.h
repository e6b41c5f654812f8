#pragma once
// The view of the editors' lists: whole rows selected, fixed row height (so
// that 100,000 rows cost nothing to lay out), no grid, columns sized from
// the model's column list, sorting by a header click, incremental search
// by the first letters typed, and Space toggling a check list's rows.

#include <QElapsedTimer>
#include <QTableView>

class TQzListModel;
class TQzListDelegate;

class TQzListView : public QTableView {
    Q_OBJECT

public:
    explicit TQzListView(QWidget* parent = nullptr);

    // Shows `model` (not owned) with this view's delegate, sizing the columns.
    void SetListModel(TQzListModel* model);
    TQzListModel* ListModel() const { return FModel; }
    TQzListDelegate* Delegate() const { return FDelegate; }

    // Row height in pixels; by default one line of the font plus 2.
    void SetRowHeight(int height);
    // Whether a header click sorts (on by default; a third click on the same
    // header returns to the provider's order).
    void SetSortable(bool sortable);

    // The provider's row of the current row; -1 when none.
    int CurrentSourceRow() const;
    // Makes the provider's row current, selected and visible; -1 clears.
    void SelectSourceRow(int sourceRow);

    // The column that typing searches (by its first letters); -1 turns the
    // search off. By default the first text column.
    void SetSearchColumn(int column) { FSearchColumn = column; }
    int SearchColumn() const { return FSearchColumn; }

    void keyboardSearch(const QString& search) override;

signals:
    // The current row moved to another provider row (-1: none).
    void CurrentRowChanged(int sourceRow);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void SizeColumns();
    void ToggleCurrentCheck();

    TQzListModel* FModel = nullptr;
    TQzListDelegate* FDelegate;
    int FSearchColumn = -1;
    QString FSearchText;
    QElapsedTimer FSearchClock;
};
