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

namespace {

class ModalDriverTest : public TQzGuiTest {};

TEST_F(ModalDriverTest, DrivesADialogWithAnEditAndOk)
{
    TSampleDialog dialog;
    TQzModalDriver driver;
    driver.SetText("EdName", "Labels").Click("BtOk");
    EXPECT_EQ(dialog.Execute(), mrOk);
    EXPECT_EQ(dialog.EdName->text(), "Labels");
    EXPECT_TRUE(driver.Finished());
}

TEST_F(ModalDriverTest, FollowsANestedModalWindowAndComesBack)
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
}

TEST_F(ModalDriverTest, AMissingControlFailsAndClosesTheWindow)
{
    TSampleDialog dialog;
    TModalResult result = mrNone;
    EXPECT_NONFATAL_FAILURE(
        {
            TQzModalDriver driver;
            driver.SetText("EdMissing", "x").Click("BtOk");
            result = dialog.Execute();
        },
        "cannot set the text of EdMissing: no control \"EdMissing\"");
    EXPECT_EQ(result, mrCancel);
}

TEST_F(ModalDriverTest, ADisabledButtonCannotBeClicked)
{
    TSampleDialog dialog;
    dialog.BtOk->setEnabled(false);
    EXPECT_NONFATAL_FAILURE(
        {
            TQzModalDriver driver;
            driver.Click("BtOk");
            dialog.Execute();
        },
        "button \"BtOk\" is disabled");
}

TEST_F(ModalDriverTest, AWindowLeftOpenTimesOut)
{
    TSampleDialog dialog;
    TModalResult result = mrNone;
    EXPECT_NONFATAL_FAILURE(
        {
            TQzModalDriver driver(200);
            driver.SetText("EdName", "x");
            result = dialog.Execute();
        },
        "\"Sample\" was still open after the last step");
    EXPECT_EQ(result, mrCancel);
}

TEST_F(ModalDriverTest, StepsThatNeverRanAreReported)
{
    EXPECT_NONFATAL_FAILURE(
        {
            TQzModalDriver driver;
            driver.Click("BtOk");
        },
        "1 step(s) never ran, first: click BtOk");
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
