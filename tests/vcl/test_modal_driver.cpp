// The modal driver itself: it drives a dialog to its end, follows nested
// windows, and turns a broken script into a failure rather than a hang.

#include "SampleDialog.h"

#include "support/gui/QzModalDriver.h"
#include "support/gui/QzScreenshot.h"
#include "support/gui/QzTestApp.h"
#include "vcl/QzDialogs.h"

#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest-spi.h>

#include <functional>

namespace {

class ModalDriverTest : public TQzGuiTest {};

TEST_F(ModalDriverTest, DrivesADialogThroughANestedModalWindowAndBack)
{
    TSampleDialog dialog;
    TModalResult asked = mrNone;
    QObject::connect(dialog.BtRetry, &QPushButton::clicked, &dialog, [&] {
        asked = QzMessage("Really?", mtConfirmation, mbYesNo, mbNo, &dialog);
    });
    QzSetModalResult(dialog.BtRetry, mrNone);  // the button only asks
    TQzModalDriver driver;
    driver.Click("BtRetry").Click("Yes").SetText("EdName", "after").Click("BtOk");
    EXPECT_EQ(dialog.Execute(), mrOk);
    EXPECT_EQ(asked, mrYes);
    EXPECT_EQ(dialog.EdName->text(), "after");
    EXPECT_TRUE(driver.Finished());
}

// Each mistake fails the test and the dialog ends as Escape would end it.
TEST_F(ModalDriverTest, ABrokenScriptFailsInsteadOfHanging)
{
    const struct {
        const char* Failure;
        int TimeoutMs;
        std::function<void(TQzModalDriver&, TSampleDialog&)> Script;
        bool Execute;   // false: no window ever opens
    } cases[] = {
        {"cannot set the text of EdMissing: no control \"EdMissing\"", 10000,
         [](TQzModalDriver& d, TSampleDialog&) { d.SetText("EdMissing", "x").Click("BtOk"); }, true},
        {"button \"BtOk\" is disabled", 10000,
         [](TQzModalDriver& d, TSampleDialog& dialog) {
             dialog.BtOk->setEnabled(false);
             d.Click("BtOk");
         },
         true},
        {"\"Sample\" was still open after the last step", 200,
         [](TQzModalDriver& d, TSampleDialog&) { d.SetText("EdName", "x"); }, true},
        {"1 step(s) never ran, first: click BtOk", 10000, [](TQzModalDriver& d, TSampleDialog&) { d.Click("BtOk"); },
         false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Failure);
        TSampleDialog dialog;
        TModalResult result = mrCancel;
        EXPECT_NONFATAL_FAILURE(
            {
                TQzModalDriver driver(c.TimeoutMs);
                c.Script(driver, dialog);
                if (c.Execute)
                    result = dialog.Execute();
            },
            c.Failure);
        EXPECT_EQ(result, mrCancel);
    }
}

TEST_F(ModalDriverTest, ScreenshotsAreWrittenAsPng)
{
    QTemporaryDir dir;
    const QString file = dir.filePath("sample.png");
    TSampleDialog dialog;
    TQzModalDriver driver;
    driver.Screenshot(file).Escape();
    dialog.Execute();
    const QImage picture(file);
    ASSERT_FALSE(picture.isNull());
    EXPECT_EQ(picture.size(), dialog.size() * dialog.devicePixelRatio());
}

}  // namespace
