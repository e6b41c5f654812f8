// The menus and collection editors beside qzide's designer on the demo
// project: each change they make is one step of the form's undo history,
// undo leaves them open on the form as it was read again, and the chosen
// page is what the property grid shows. The strings package editor opened
// by a double-click shows the form's package and marks the form.

#include "IdeFixture.h"

#include "ide/QzDesignSurface.h"
#include "ide/QzInspector.h"
#include "runtime/components/QzMenus.h"
#include "runtime/components/QzPages.h"
#include "runtime/model/QzPkgStrings.h"

#include "support/gui/QzModalDriver.h"

#include "support/gui/QzScreenshot.h"

#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QStatusBar>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QUndoStack>

namespace {

class IdeDesignWindows : public TIdeTest {
protected:
    static QWidget* Window(const char* className)
    {
        for (QWidget* w : QApplication::topLevelWidgets())
            if (w->objectName() == className && w->isVisible())
                return w;
        return nullptr;
    }
    static void Settle()
    {
        for (int i = 0; i < 3; ++i)
            QApplication::processEvents();
    }
    int Steps() const { return Main()->UndoStack()->count(); }
    // The picture of the guide, when the run takes them.
    static void Picture(QWidget* window, const char* name)
    {
        const QString shots = qEnvironmentVariable("QZ_SCREENSHOT_DIR");
        if (!shots.isEmpty())
            QzSaveScreenshot(window, shots + "/" + name);
    }
};

TEST_F(IdeDesignWindows, AMenuTypedInTheDesignerIsOneUndoStepAndUndoKeepsTheWindow)
{
    ASSERT_TRUE(Surface(Main())->EditComponent(Find("MainMenu1")));
    QWidget* window = Window("TFrMenus");
    ASSERT_TRUE(window);
    // Where the user types, as on a desktop: the step is named after it.
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    auto* view = window->findChild<QWidget*>("MenuView");
    const auto items = [this] { return dynamic_cast<TQzMainMenu*>(Find("MainMenu1"))->Items()->Count(); };
    const int before = items();
    const int steps = Steps();
    for (int i = 0; i < before; ++i)
        QTest::keyClick(view, Qt::Key_Right);
    QTest::keyClicks(view, "W");
    QTest::keyClick(window->findChild<QLineEdit*>("EdCaption"), Qt::Key_Return);
    EXPECT_EQ(items(), before + 1);
    EXPECT_EQ(Steps(), steps + 1);
    EXPECT_EQ(Main()->UndoStack()->undoText(), "Change in " + window->windowTitle()) << "named after its window";

    Main()->UndoStack()->undo();
    Settle();
    EXPECT_EQ(items(), before);
    EXPECT_EQ(Window("TFrMenus"), window) << "still open, on the menu read again";
    QTest::keyClicks(view, "X");
    QTest::keyClick(window->findChild<QLineEdit*>("EdCaption"), Qt::Key_Return);
    EXPECT_EQ(items(), before + 1) << "edits the new menu";

    QTest::keyClick(view, Qt::Key_Home);
    for (int i = 0; i <= before; ++i)
        QTest::keyClick(view, Qt::Key_Left);
    QTest::keyClick(view, Qt::Key_Down);
    Picture(window, "menus-editor.png");
}

TEST_F(IdeDesignWindows, APopupMenuIsTriedInItsOwnLook)
{
    ASSERT_TRUE(Surface(Main())->EditComponent(Find("PopupNotes")));
    QWidget* window = Window("TFrMenus");
    ASSERT_TRUE(window);
    Picture(window, "menus-editor-popup.png");
    // The demo's notes menu shows its images in the font set "Small".
    QStringList shown;
    QTimer::singleShot(0, [&] {
        QWidget* popup = QApplication::activePopupWidget();
        ASSERT_TRUE(popup);
        for (QAction* action : popup->actions())
            shown << action->text() + (action->icon().isNull() ? "" : "+image");
        shown << popup->font().family();
        Picture(popup, "popup-menu.png");
        popup->close();
    });
    const std::string before = Main()->Snapshot();
    QTest::mouseClick(window->findChild<QToolButton*>("BtTry"), Qt::LeftButton);
    EXPECT_EQ(shown.join(' ').toStdString(), "Cu&t+image &Copy+image &Paste+image Arial");
    EXPECT_EQ(Main()->Snapshot(), before) << "trying changes nothing";
    window->close();
}

TEST_F(IdeDesignWindows, AChosenPageIsWhatThePropertyGridShows)
{
    ASSERT_TRUE(Surface(Main())->EditComponent(Find("Pages")));
    QWidget* window = Window("TFrCollPageControl");
    ASSERT_TRUE(window);
    auto* pages = dynamic_cast<TQzPageControl*>(Find("Pages"));
    const int before = pages->PageCount();
    const int steps = Steps();
    QTest::mouseClick(window->findChild<QToolButton*>("BtAdd"), Qt::LeftButton);
    EXPECT_EQ(pages->PageCount(), before + 1);
    EXPECT_EQ(Steps(), steps + 1);
    EXPECT_TRUE(FWindow->Inspector()->Properties()->Find("TabSheet").isValid()) << "the page item's properties";
    Picture(window, "collection-editor.png");

    Main()->UndoStack()->undo();
    Settle();
    EXPECT_EQ(dynamic_cast<TQzPageControl*>(Find("Pages"))->PageCount(), before);
    EXPECT_EQ(window->findChild<QListWidget*>("ListView")->count(), before) << "the list follows";
}

TEST_F(IdeDesignWindows, AStringsPackagesDoubleClickOpensItAndAnAddMarksTheForm)
{
    auto* pkg = dynamic_cast<TQzPkgStrings*>(Find("PkgStrings"));
    ASSERT_TRUE(pkg);
    const int labels = pkg->Labels()->Count();
    TQzModalDriver driver;
    driver
        .Then("opened",
              [labels](QWidget* w) {
                  EXPECT_EQ(w->windowTitle(), "Package : DEMO");
                  EXPECT_TRUE(TQzModalDriver::Find<QStatusBar>(w, "StatusBar1")
                                  ->currentMessage()
                                  .startsWith(QString::number(labels) + " Labels"));
              })
        .Click("BtAdd")
        .Type("EdLabel", "Phone")
        .Click("BtOk")
        .Click("BtOk");
    EXPECT_TRUE(Surface(Main())->EditComponent(pkg));
    EXPECT_TRUE(driver.Finished());
    EXPECT_EQ(pkg->Labels()->Count(), labels + 1);
    EXPECT_TRUE(Main()->IsModified());
}

}  // namespace
