// The dialog base: how Execute reports the way a dialog was closed, the
// form's preview of keys, and remembered bounds.

#include "SampleDialog.h"

#include "support/gui/QzModalDriver.h"
#include "support/gui/QzTestApp.h"
#include "vcl/QzWindowBounds.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTest>

#include <functional>

namespace {

class DialogTest : public TQzGuiTest {};

QRect ScreenArea()
{
    return QGuiApplication::primaryScreen()->availableGeometry();
}

struct TCloseCase {
    const char* Name;
    std::function<void(TQzModalDriver&)> Script;
    TModalResult Expected;
};

TEST_F(DialogTest, ExecuteReturnsTheModalResultOfHowTheDialogClosed)
{
    const TCloseCase cases[] = {
        {"Ok button", [](TQzModalDriver& d) { d.Click("BtOk"); }, mrOk},
        {"button found by its caption", [](TQzModalDriver& d) { d.Click("Retry"); }, mrRetry},
        {"Cancel button", [](TQzModalDriver& d) { d.Click("BtCancel"); }, mrCancel},
        {"Escape in an edit", [](TQzModalDriver& d) { d.Type("EdName", "ab").Escape(); }, mrCancel},
        {"Escape in a control that takes every key", [](TQzModalDriver& d) { d.Type("EdGreedy", "x").Escape(); },
         mrCancel},
        {"Enter presses the default button", [](TQzModalDriver& d) { d.Type("EdName", "ab").Enter(); }, mrOk},
        {"closing the window", [](TQzModalDriver& d) { d.Then("close", [](QWidget* w) { w->close(); }); }, mrCancel},
        {"a result set by code",
         [](TQzModalDriver& d) {
             d.Then("set mrYes", [](QWidget* w) { static_cast<TQzDialog*>(w)->SetModalResult(mrYes); });
         },
         mrYes},
    };
    for (const TCloseCase& c : cases) {
        SCOPED_TRACE(c.Name);
        TSampleDialog dialog;
        TQzModalDriver driver;
        c.Script(driver);
        EXPECT_EQ(dialog.Execute(), c.Expected);
        EXPECT_EQ(dialog.ModalResult(), c.Expected);
        EXPECT_FALSE(dialog.isVisible());
    }
}

TEST_F(DialogTest, ASecondExecuteStartsWithoutTheFirstResult)
{
    TSampleDialog dialog;
    TQzModalDriver driver;
    driver.Click("BtRetry").Then("check the result was reset", [](QWidget* w) {
        EXPECT_EQ(static_cast<TQzDialog*>(w)->ModalResult(), mrNone);
        static_cast<TQzDialog*>(w)->SetModalResult(mrNo);
    });
    EXPECT_EQ(dialog.Execute(), mrRetry);
    EXPECT_EQ(dialog.Execute(), mrNo);
}

TEST_F(DialogTest, TheFormSeesEachKeyOnceBeforeItsControls)
{
    TSampleDialog dialog;
    dialog.SwallowDigits = true;
    TQzModalDriver driver;
    // F5 means nothing to an edit: it travels up to the form, which must not
    // count it a second time on the way.
    driver.Type("EdName", "a1b2").Key(Qt::Key_F5).Click("BtOk");
    ASSERT_EQ(dialog.Execute(), mrOk);
    EXPECT_EQ(dialog.EdName->text(), "ab");
    EXPECT_EQ(dialog.Previewed, (std::vector<int>{Qt::Key_A, Qt::Key_1, Qt::Key_B, Qt::Key_2, Qt::Key_F5}));
}

TEST_F(DialogTest, WithoutKeyPreviewAControlCanKeepEscape)
{
    TSampleDialog dialog;
    dialog.SetKeyPreview(false);
    TQzModalDriver driver;
    driver.Type("EdGreedy", "x").Escape().Then("still open", [](QWidget* w) { EXPECT_TRUE(w->isVisible()); });
    driver.Click("BtOk");
    EXPECT_EQ(dialog.Execute(), mrOk);
    EXPECT_TRUE(dialog.Previewed.empty());
}

TEST_F(DialogTest, RememberedBoundsComeBackAtTheNextOpening)
{
    TQzResizeInfoDesigner info;
    {
        TSampleDialog first;
        first.RememberBounds(&info);
        TQzModalDriver driver;
        driver.Then("move and size", [](QWidget* w) {
            w->resize(310, 190);
            w->move(40, 30);
        });
        driver.Click("BtOk");
        first.Execute();
    }
    ASSERT_TRUE(info.Stored);
    EXPECT_EQ(QRect(info.Left, info.Top, info.Width, info.Height), QRect(40, 30, 310, 190));
    EXPECT_FALSE(info.Maximized);

    TSampleDialog second;
    second.RememberBounds(&info);
    TQzModalDriver driver;
    driver.Then("check the bounds", [](QWidget* w) {
        EXPECT_EQ(w->pos(), QPoint(40, 30));
        EXPECT_EQ(w->size(), QSize(310, 190));
    });
    driver.Escape();
    second.Execute();
}

TEST_F(DialogTest, RestoringKeepsTheFormOnScreenAndMaximizes)
{
    TQzResizeInfoDesigner info{5000, -400, 300, 200, true, true};
    TSampleDialog dialog;
    QzRestoreResizeInfoDesigner(&dialog, info);
    EXPECT_TRUE(ScreenArea().contains(QRect(dialog.pos(), dialog.size())));
    EXPECT_TRUE(dialog.windowState().testFlag(Qt::WindowMaximized));

    TQzResizeInfoDesigner never;
    TSampleDialog untouched;
    untouched.resize(123, 77);
    QzRestoreResizeInfoDesigner(&untouched, never);
    EXPECT_EQ(untouched.size(), QSize(123, 77));
}

TEST(WindowBounds, FitRectOnScreens)
{
    const QRect left(0, 0, 800, 600);
    const QRect right(800, 0, 1024, 768);
    struct TCase {
        const char* Name;
        QRect Rect;
        QList<QRect> Areas;
        QRect Expected;
    } cases[] = {
        {"inside stays", {10, 10, 100, 50}, {left}, {10, 10, 100, 50}},
        {"past the right edge", {750, 10, 100, 50}, {left}, {700, 10, 100, 50}},
        {"past the bottom", {10, 590, 100, 50}, {left}, {10, 550, 100, 50}},
        {"left of the screen", {-300, 10, 100, 50}, {left}, {0, 10, 100, 50}},
        {"above the screen", {10, -60, 100, 50}, {left}, {10, 0, 100, 50}},
        {"larger than the screen", {-10, -10, 900, 700}, {left}, {0, 0, 800, 600}},
        {"onto the screen it overlaps most", {780, 100, 200, 100}, {left, right}, {800, 100, 200, 100}},
        {"pulled into the screen it overlaps most", {1700, 100, 200, 100}, {left, right}, {1624, 100, 200, 100}},
        {"off every screen: the nearest", {3000, 100, 200, 100}, {left, right}, {1624, 100, 200, 100}},
        {"no screens: unchanged", {3000, 100, 200, 100}, {}, {3000, 100, 200, 100}},
    };
    for (const TCase& c : cases)
        EXPECT_EQ(QzFitRectOnScreens(c.Rect, c.Areas), c.Expected) << c.Name;
}

class PlacementTest : public TQzGuiTest {};

TEST_F(PlacementTest, NeverPlacedWindowsOpenCentred)
{
    QWidget window;
    window.resize(300, 200);
    TQzPlacementTracker tracker(&window, TQzWindowPlacement{});
    window.show();
    // Centred before showing, when the frame it gets is not known yet.
    const QPoint offset = window.frameGeometry().center() - ScreenArea().center();
    EXPECT_LE(offset.manhattanLength(), 10);
    EXPECT_EQ(tracker.Current().State, wsNormal);
    EXPECT_TRUE(tracker.Current().IsPlaced());
}

TEST_F(PlacementTest, StoredBoundsAreUsedKeptOnScreenAndChangesAreNoticed)
{
    const TQzWindowPlacement stored{20, 30, 320, 240, wsNormal};
    QWidget window;
    TQzPlacementTracker tracker(&window, stored);
    window.show();
    EXPECT_EQ(window.pos(), QPoint(20, 30));
    EXPECT_EQ(window.size(), QSize(320, 240));
    EXPECT_FALSE(tracker.Changed());

    window.move(60, 70);
    EXPECT_TRUE(tracker.Changed());
    EXPECT_EQ(tracker.Current(), (TQzWindowPlacement{60, 70, 320, 240, wsNormal}));

    // Off screen they are brought back, and that placement is the one to store.
    QWidget lost;
    TQzPlacementTracker brought(&lost, TQzWindowPlacement{4000, 3000, 320, 240, wsNormal});
    EXPECT_TRUE(ScreenArea().contains(QRect(lost.pos(), lost.size())));
    EXPECT_TRUE(brought.Changed());
}

TEST_F(PlacementTest, AMaximizedWindowKeepsItsNormalBounds)
{
    const TQzWindowPlacement stored{20, 30, 320, 240, wsMaximized};
    QWidget window;
    TQzPlacementTracker tracker(&window, stored);
    window.show();
    ASSERT_TRUE(QTest::qWaitFor([&] { return window.isMaximized(); }, 2000));
    EXPECT_EQ(tracker.Current(), stored);
    EXPECT_FALSE(tracker.Changed());

    window.showNormal();
    window.move(50, 60);
    EXPECT_EQ(tracker.Current(), (TQzWindowPlacement{50, 60, 320, 240, wsNormal}));
}

}  // namespace
