// The windows qzide reaches only from inside another window, walked on the
// demo project: each opens over the one that offers it, and backing out
// with Escape all the way leaves the form as it was. With QZ_SCREENSHOT_DIR
// set, the innermost window is pictured for the IDE guide.

#include "IdeFixture.h"

#include "ide/QzDesignSurface.h"
#include "ide/QzInspector.h"
#include "runtime/model/QzTypes.h"

#include "support/gui/QzModalDriver.h"

#include <QAbstractButton>
#include <QAction>
#include <QColor>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>
#include <QTest>

#include <functional>

namespace {

using TDriver = TQzModalDriver;

// The test links the host only; the package's windows are known to it by
// their class names and their controls' names.
TDriver::TStep IsWindow(const char* className)
{
    return [className](QWidget* w) {
        EXPECT_STREQ(w->metaObject()->className(), className);
        EXPECT_TRUE(w->isVisible());
    };
}

class IdeNestedWindows : public TIdeTest {
protected:
    // Opens the component's first window: the row's "..." or, without a
    // row, a double-click.
    void Open(const char* component, const char* row)
    {
        if (row == nullptr) {
            EXPECT_TRUE(Surface(Main())->EditComponent(Find(component)));
            return;
        }
        Select({component});
        TQzInspectorModel* model = FWindow->Inspector()->Properties();
        const QModelIndex at = model->Find(row);
        ASSERT_TRUE(at.isValid()) << row;
        EXPECT_TRUE(model->EditRow(at));
    }
};

TEST_F(IdeNestedWindows, EachInnerWindowOpensOverItsOwnerAndEscapeLeavesTheFormAsItWas)
{
    struct TCase {
        const char* Picture;
        const char* Component;
        const char* Row;      // nullptr: a double-click
        const char* First;    // the window the entry opens
        std::function<void(TDriver&)> Inside;  // from there to the pictured state
        const char* Last;
        int Depth;            // windows open at the picture
    };
    const auto click = [](const char* button) { return [button](TDriver& d) { d.Click(button); }; };
    const TCase cases[] = {
        {"hints.png", "QzCApplication1", "PkgDisplay", "TFrDisplay", click("BtHints"), "TFrHints", 2},
        {"common-windows.png", "QzCApplication1", "PkgDisplay", "TFrDisplay", click("BtCommonWnds"),
         "TFrCommonWnds", 2},
        {"set-background-add.png", "PanelTop", "SetBackGround", "TFrSetBackGround",
         [this](TDriver& d) {
             FDialogs->Script().AnswerColor(QColor(0x00, 0x00, 0x80)).AnswerColor(QColor(0xA6, 0xCA, 0xF0));
             d.Click("BtNew")
                 .SetText("EdName", "Evening")
                 .SetText("EdDescription", "Navy to light blue")
                 .Then("a gradient", [](QWidget* w) {
                     TDriver::Find<QComboBox>(w, "CBStyle")->setCurrentIndex(int(bgGradientHor));
                     EXPECT_TRUE(TDriver::Find<QAbstractButton>(w, "BtEndGraColor")->isEnabled());
                     EXPECT_FALSE(TDriver::Find<QAbstractButton>(w, "BtImage")->isEnabled());
                 })
                 .Click("BtStartGraColor")
                 .Click("BtEndGraColor");
         },
         "TFrSetsBackGroundAdd", 2},
        {"language.png", "QzCApplication1", "PkgLanguage", "TFrLanguage",
         [](TDriver& d) {
             d.Then("the locale page", [](QWidget* w) {
                 auto* pages = TDriver::Find<QTabWidget>(w, "PCLanguage");
                 pages->setCurrentWidget(TDriver::Find<QWidget>(w, "TabLocale"));
                 EXPECT_TRUE(TDriver::Find<QWidget>(w, "LabCurrency")->isVisible());
             });
         },
         "TFrLanguage", 1},
        {"mask-region-editor.png", "PkgImages", nullptr, "TFrPkgImages",
         [](TDriver& d) {
             d.Type("EdId", "4")
                 .Click("BtModify")
                 .Then("TFrMemoryImageAdd", IsWindow("TFrMemoryImageAdd"))
                 .Then("on image 4", [](QWidget* w) { EXPECT_EQ(TDriver::Find<QLineEdit>(w, "EdId")->text(), "4"); })
                 .Then("Mask Editor...", [](QWidget* w) { TDriver::Find<QAction>(w, "MnMaskEditor")->trigger(); })
                 .Then("titled", [](QWidget* w) { EXPECT_EQ(w->windowTitle(), "Mask Editor"); })
                 .Click("BtFill")
                 .Then("the exclamation mark cut away", [](QWidget* w) {
                     auto* zoom = TDriver::Find<QComboBox>(w, "CBZoom");
                     zoom->setCurrentIndex(zoom->findText("800%"));
                     // Picture pixel (16, 15), in the bar of the warning sign's "!".
                     const QPoint bar(16 * 8 + 4, 15 * 8 + 4);
                     QTest::mouseClick(TDriver::Find<QWidget>(w, "View"), Qt::LeftButton, {}, bar);
                     EXPECT_TRUE(TDriver::Find<QAbstractButton>(w, "BtUndo")->isEnabled());
                     EXPECT_FALSE(TDriver::Find<QLabel>(w, "LaPosition")->text().contains(", 0 cut away"));
                 });
         },
         "TFrDesignRgn", 3},
    };
    // The images editor keeps its placement in its package when it first
    // closes; that is done here, before the form is taken as it was.
    {
        TDriver driver;
        driver.Escape();
        Open("PkgImages", nullptr);
        Main()->Form().ClearModified();
    }
    const std::string before = Main()->Snapshot();
    const QString shots = qEnvironmentVariable("QZ_SCREENSHOT_DIR");
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.Picture);
        TDriver driver;
        driver.Then(c.First, IsWindow(c.First));
        c.Inside(driver);
        driver.Then(c.Last, IsWindow(c.Last));
        if (!shots.isEmpty())
            driver.Screenshot(shots + "/" + c.Picture);
        for (int i = 0; i < c.Depth; ++i)
            driver.Escape();
        Open(c.Component, c.Row);
        EXPECT_TRUE(driver.Finished());
        EXPECT_EQ(Main()->Snapshot(), before);
    }
    EXPECT_FALSE(Main()->IsModified());
}

}  // namespace
