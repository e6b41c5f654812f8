// The editors' lists: models over a row provider, sorting, search, check
// lists, and what the delegate paints.

#include "support/gui/QzTestApp.h"
#include "vcl/QzListDelegate.h"
#include "vcl/QzListModel.h"
#include "vcl/QzListView.h"

#include <QHeaderView>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>

#include <memory>

namespace {

constexpr int BigCount = 100000;

// Ids 0..99999 in a scrambled order (7919 is prime to 100000), names in
// three spellings so that case-insensitive ties show.
int IdOf(int row)
{
    return static_cast<int>((static_cast<long long>(row) * 7919) % BigCount);
}

QString NameOf(int row)
{
    static const char* const names[] = {"beta", "Alpha", "alpha"};
    return names[row % 3];
}

QList<TQzListColumn> BigColumns()
{
    TQzListColumn id{"Id"};
    id.Numeric = true;
    id.WidthText = "999999";
    return {id, TQzListColumn{"Name"}};
}

TQzRowProvider BigProvider(const int* count)
{
    TQzRowProvider p;
    p.RowCount = [count] { return *count; };
    p.Text = [](int row, int column) { return column == 0 ? QString::number(IdOf(row)) : NameOf(row); };
    return p;
}

class ListModelTest : public TQzGuiTest {
protected:
    int Count = BigCount;
    TQzListModel Model{BigColumns(), BigProvider(&Count)};

    int IdAt(int viewRow) const { return Model.index(viewRow, 0).data().toInt(); }
};

TEST_F(ListModelTest, AHundredThousandRowsAreReadOnDemand)
{
    EXPECT_EQ(Model.rowCount(), BigCount);
    EXPECT_EQ(Model.index(1, 0).data().toInt(), 7919);
    EXPECT_EQ(Model.index(BigCount - 1, 1).data().toString(), NameOf(BigCount - 1));
    EXPECT_EQ(Model.index(5, 1).data(TQzListModel::SourceRowRole).toInt(), 5);
    EXPECT_FALSE(Model.index(BigCount, 0).data().isValid());
}

TEST_F(ListModelTest, SortingByEachColumnAndBack)
{
    Model.sort(0, Qt::AscendingOrder);
    for (int row : {0, 1, 500, BigCount - 1})
        EXPECT_EQ(IdAt(row), row);
    Model.sort(0, Qt::DescendingOrder);
    EXPECT_EQ(IdAt(0), BigCount - 1);
    EXPECT_EQ(IdAt(BigCount - 1), 0);

    // Names compare without regard to case; equal names keep the provider's
    // order, in both directions.
    Model.sort(1, Qt::AscendingOrder);
    EXPECT_EQ(Model.SourceRow(0), 1);
    EXPECT_EQ(Model.SourceRow(1), 2);
    EXPECT_EQ(Model.SourceRow(2), 4);
    EXPECT_EQ(Model.index(2 * BigCount / 3 + 1, 1).data().toString(), "beta");
    Model.sort(1, Qt::DescendingOrder);
    EXPECT_EQ(Model.SourceRow(0), 0);
    EXPECT_EQ(Model.SourceRow(1), 3);

    // View and provider rows map both ways.
    for (int source : {0, 1, 77777, BigCount - 1})
        EXPECT_EQ(Model.SourceRow(Model.ViewRow(source)), source);
    EXPECT_EQ(Model.ViewRow(BigCount), -1);
    EXPECT_EQ(Model.SourceRow(-1), -1);

    Model.sort(-1);
    EXPECT_EQ(Model.SourceRow(7), 7);
    EXPECT_EQ(Model.SortColumn(), -1);
}

TEST(ListModel, NumericColumnsSortAsNumbersOthersAsText)
{
    const QStringList ids{"9", "100", "10"};
    TQzRowProvider p;
    p.RowCount = [] { return 3; };
    p.Text = [&ids](int row, int) { return ids[row]; };
    TQzListColumn numeric{"Id"};
    numeric.Numeric = true;
    TQzListModel model({numeric, TQzListColumn{"Text"}}, p);
    model.sort(0);
    EXPECT_EQ((QStringList{model.index(0, 0).data().toString(), model.index(1, 0).data().toString(),
                           model.index(2, 0).data().toString()}),
              (QStringList{"9", "10", "100"}));
    model.sort(1);
    EXPECT_EQ((QStringList{model.index(0, 1).data().toString(), model.index(1, 1).data().toString(),
                           model.index(2, 1).data().toString()}),
              (QStringList{"10", "100", "9"}));
}

TEST_F(ListModelTest, TheSelectionFollowsItsRowThroughASort)
{
    QItemSelectionModel selection(&Model);
    selection.setCurrentIndex(Model.index(12345, 0), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    Model.sort(0, Qt::AscendingOrder);
    EXPECT_EQ(Model.SourceRow(selection.currentIndex().row()), 12345);
    ASSERT_EQ(selection.selectedRows().size(), 1);
    EXPECT_EQ(Model.SourceRow(selection.selectedRows().front().row()), 12345);
}

TEST_F(ListModelTest, ReloadReadsTheRowsAgainAndKeepsTheOrder)
{
    Model.sort(0, Qt::DescendingOrder);
    Count = 10;
    QSignalSpy reset(&Model, &QAbstractItemModel::modelReset);
    Model.Reload();
    EXPECT_EQ(reset.count(), 1);
    EXPECT_EQ(Model.rowCount(), 10);
    int highest = 0;
    for (int row = 0; row < 10; ++row)
        highest = std::max(highest, IdOf(row));
    EXPECT_EQ(IdAt(0), highest);
}

TEST_F(ListModelTest, FindPrefixWrapsRoundAndIgnoresCase)
{
    EXPECT_EQ(Model.FindPrefix(1, "AL", 0), 1);
    EXPECT_EQ(Model.FindPrefix(1, "b", 1), 3);
    EXPECT_EQ(Model.FindPrefix(1, "beta", BigCount - 1), BigCount - 1 - (BigCount - 1) % 3);
    EXPECT_EQ(Model.FindPrefix(1, "gamma", 0), -1);
    EXPECT_EQ(Model.FindPrefix(5, "a", 0), -1);
}

class ListViewTest : public TQzGuiTest {};

TEST_F(ListViewTest, TypingSearchesTheFirstLetters)
{
    const QStringList names{"Cancel", "Apply", "Abort", "Accept", "Close"};
    TQzRowProvider p;
    p.RowCount = [&names] { return static_cast<int>(names.size()); };
    p.Text = [&names](int row, int) { return names[row]; };
    TQzListModel model({TQzListColumn{}}, p);
    TQzListView view;
    view.SetListModel(&model);
    view.show();

    struct TStep {
        QString Keys;
        int Expected;
    } steps[] = {
        {"a", 1},   // the first A
        {"a", 2},   // the same letter again: the next one
        {"a", 3},
        {"c", 4},   // after the current row, wrapping round
        {"c", 0},
        {"ab", 2},  // two letters typed quickly
    };
    for (const TStep& s : steps) {
        QTest::qWait(QApplication::keyboardInputInterval() + 50);
        QTest::keyClicks(&view, s.Keys);
        EXPECT_EQ(view.CurrentSourceRow(), s.Expected) << s.Keys.toStdString();
    }
}

TEST_F(ListViewTest, AViewOverAHundredThousandRowsScrollsToTheEnd)
{
    int count = BigCount;
    TQzListModel model(BigColumns(), BigProvider(&count));
    TQzListView view;
    view.SetListModel(&model);
    view.resize(300, 200);
    view.show();
    view.SelectSourceRow(BigCount - 1);
    EXPECT_EQ(view.CurrentSourceRow(), BigCount - 1);
    EXPECT_FALSE(view.grab().isNull());
    EXPECT_EQ(view.verticalHeader()->sectionSize(0), view.verticalHeader()->defaultSectionSize());
}

class CheckListTest : public TQzGuiTest {
protected:
    void SetUp() override
    {
        TQzRowProvider p;
        p.RowCount = [this] { return Count; };
        p.Text = [](int row, int column) { return column == 1 ? QStringLiteral("Hit %1").arg(row) : QString(); };
        TQzListColumn check{"", TQzColumnKind::Check};
        check.Width = 24;
        Model = std::make_unique<TQzCheckListModel>(QList<TQzListColumn>{check, TQzListColumn{"Hit"}}, p);
    }

    int Count = 6;
    std::unique_ptr<TQzCheckListModel> Model;
};

TEST_F(CheckListTest, CheckAllNoneAndInvertOnProviderRowsWhateverTheOrder)
{
    QSignalSpy changed(Model.get(), &TQzCheckListModel::ChecksChanged);
    Model->SetChecked(1, true);
    Model->SetChecked(4, true);
    EXPECT_EQ(Model->CheckedRows(), (std::vector<int>{1, 4}));
    Model->InvertChecks();
    EXPECT_EQ(Model->CheckedRows(), (std::vector<int>{0, 2, 3, 5}));
    Model->CheckAll();
    EXPECT_EQ(Model->CheckedCount(), 6);
    Model->CheckNone();
    EXPECT_EQ(Model->CheckedCount(), 0);
    EXPECT_EQ(changed.count(), 5);
    Model->SetChecked(9, true);  // no such row
    EXPECT_EQ(Model->CheckedCount(), 0);

    // Checks belong to provider rows whatever the order.
    Model->SetChecked(0, true);
    Model->sort(1, Qt::DescendingOrder);
    EXPECT_EQ(Model->index(5, 0).data(Qt::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_TRUE(Model->setData(Model->index(0, 0), Qt::Checked, Qt::CheckStateRole));
    EXPECT_EQ(Model->CheckedRows(), (std::vector<int>{0, 5}));
    EXPECT_FALSE(Model->setData(Model->index(0, 1), Qt::Checked, Qt::CheckStateRole));

    Count = 3;
    Model->Reload();
    EXPECT_EQ(Model->CheckedCount(), 0);
    EXPECT_EQ(Model->rowCount(), 3);
}

TEST_F(CheckListTest, SpaceAndClicksToggleTheBoxes)
{
    TQzListView view;
    view.SetListModel(Model.get());
    view.resize(300, 200);
    view.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));

    view.SelectSourceRow(2);
    QTest::keyClick(&view, Qt::Key_Space);
    EXPECT_EQ(Model->CheckedRows(), (std::vector<int>{2}));
    QTest::keyClick(&view, Qt::Key_Space);
    EXPECT_EQ(Model->CheckedCount(), 0);

    const QRect box = view.visualRect(Model->index(3, 0));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, box.center());
    EXPECT_EQ(Model->CheckedRows(), (std::vector<int>{3}));
    const QRect text = view.visualRect(Model->index(4, 1));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, text.center());
    EXPECT_EQ(Model->CheckedRows(), (std::vector<int>{3}));
    EXPECT_EQ(view.CurrentSourceRow(), 4);
}

TEST_F(ListViewTest, TheDelegatePaintsSelectionImagesAndCustomCells)
{
    QImage red(8, 8, QImage::Format_RGB32);
    red.fill(Qt::red);
    TQzRowProvider p;
    p.RowCount = [] { return 3; };
    p.Text = [](int row, int) { return QStringLiteral("Row %1").arg(row); };
    p.Image = [&red](int, int) { return red; };
    TQzListColumn text{"Text"};
    text.Width = 120;
    TQzListColumn image{"Image", TQzColumnKind::Image};
    image.Width = 40;
    TQzListColumn custom{"Custom", TQzColumnKind::Custom};
    custom.Width = 40;
    TQzListModel model({text, image, custom}, p);
    TQzListView view;
    view.SetListModel(&model);
    view.SetRowHeight(24);
    view.Delegate()->SetPainter(2, [](QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex&) {
        painter->fillRect(option.rect.adjusted(4, 4, -4, -4), Qt::blue);
    });
    view.resize(260, 150);
    view.show();
    view.SelectSourceRow(1);
    view.clearFocus();
    const QImage shot = view.viewport()->grab().toImage();

    auto at = [&](int row, int column) {
        const QRect cell = view.visualRect(model.index(row, column));
        return QColor(shot.pixel(cell.right() - 3, cell.center().y()));
    };
    auto centre = [&](int row, int column) {
        return QColor(shot.pixel(view.visualRect(model.index(row, column)).center()));
    };
    const QPalette palette = view.palette();
    EXPECT_EQ(at(1, 0), palette.color(QPalette::Active, QPalette::Highlight));  // kept without the focus
    EXPECT_EQ(at(0, 0), palette.color(QPalette::Active, QPalette::Base));
    EXPECT_EQ(centre(0, 1), QColor(Qt::red));
    EXPECT_EQ(centre(2, 2), QColor(Qt::blue));
}

}  // namespace
