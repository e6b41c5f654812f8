// The calculator and calendar windows driven as a user would: what OK,
// Cancel and Escape give back, the keyboard, and the application object
// reaching them once they are registered.

#include "runtime/dialogs/QzCalculator.h"
#include "runtime/dialogs/QzCalendar.h"
#include "runtime/dialogs/QzStandardWindows.h"
#include "runtime/model/QzApplication.h"

#include "rtl/SysUtils.h"
#include "support/gui/QzModalDriver.h"
#include "support/gui/QzTestApp.h"
#include "support/gui/QzTestDialogs.h"

#include <QImage>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <cmath>
#include <cstring>
#include <functional>
#include <limits>
#include <memory>

namespace {

class StandardWindows : public TQzGuiTest {
protected:
    // Pictures go to QZ_SCREENSHOT_DIR when it is set (docs/screenshots
    // is made that way), else to a folder of the test's own.
    QString ScreenshotFile(const QString& name)
    {
        const QString dir = qEnvironmentVariable("QZ_SCREENSHOT_DIR", FTemp.path());
        return dir + '/' + name;
    }

private:
    QTemporaryDir FTemp;
};

QString DisplayOf(QWidget* window)
{
    return TQzModalDriver::Find<QLabel>(window, "LbDisplay")->text();
}

struct TCalculatorCase {
    const char* Name;
    std::function<void(TQzModalDriver&)> Script;
    bool Accepted;
    Extended Value;
};

TEST_F(StandardWindows, TheCalculatorGivesBackTheDisplayOnlyOnOk)
{
    using TDriver = TQzModalDriver;
    const TCalculatorCase cases[] = {
        {"OK at once", [](TDriver& d) { d.Click("BtOk"); }, true, 12.5L},
        {"Cancel", [](TDriver& d) { d.Type("BtOk", "*2=").Click("BtCancel"); }, false, 12.5L},
        {"Escape", [](TDriver& d) { d.Type("BtOk", "*2=").Escape(); }, false, 12.5L},
        {"OK completes a waiting operation", [](TDriver& d) { d.Type("BtOk", "*2").Click("BtOk"); }, true, 25},
        {"Enter completes, then accepts", [](TDriver& d) {
             d.Type("BtOk", "/3").Enter();
             d.Then("shown", [](QWidget* w) { EXPECT_EQ(DisplayOf(w), "4.16666666666666667"); }).Enter();
         }, true, 4.17L},
        {"a comma types the point", [](TDriver& d) { d.Type("BtOk", "7,255").Enter(); }, true, 7.26L},
        {"Backspace and Delete", [](TDriver& d) {
             d.Type("BtOk", "123").Key(Qt::Key_Backspace).Type("BtOk", "+9").Key(Qt::Key_Delete);
             d.Type("BtOk", "5").Enter().Enter();
         }, true, 17},
        {"the keypad", [](TDriver& d) {
             d.Key(Qt::Key_8, Qt::KeypadModifier).Key(Qt::Key_Asterisk, Qt::KeypadModifier);
             d.Key(Qt::Key_3, Qt::KeypadModifier).Key(Qt::Key_Enter, Qt::KeypadModifier).Enter();
         }, true, 24},
        {"the buttons", [](TDriver& d) {
             d.Click("BtClear").Click("BtDigit8").Click("BtDigit1").Click("BtSqrt").Click("BtMemoryStore");
             d.Click("BtAdd").Click("BtMemoryRecall").Click("BtEquals").Click("BtOk");
         }, true, 18},
        {"an error keeps the window open until cleared", [](TDriver& d) {
             d.Type("BtOk", "/0").Click("BtOk").Then("error shown", [](QWidget* w) {
                 EXPECT_EQ(DisplayOf(w), "Error");
                 EXPECT_FALSE(TDriver::Find<QPushButton>(w, "BtOk")->isEnabled());
             });
             d.Enter().Key(Qt::Key_Delete).Type("BtOk", "3").Enter();
         }, true, 3},
    };
    for (const TCalculatorCase& c : cases) {
        SCOPED_TRACE(c.Name);
        TFrQzCalculator window;
        TQzModalDriver driver;
        c.Script(driver);
        Extended value = 12.5L;
        EXPECT_EQ(window.Execute(2, value), c.Accepted);
        EXPECT_EQ(value, c.Value);
    }
}

TEST_F(StandardWindows, TheCalculatorShowsTheCallersValueAndRefusesNoNumber)
{
    TFrQzCalculator window;
    TQzModalDriver driver;
    auto width = std::make_shared<int>(0);
    driver.Then("starting value", [width](QWidget* w) {
        EXPECT_EQ(w->windowTitle(), "Calculator");
        EXPECT_EQ(DisplayOf(w), "-1234.5");
        *width = w->width();
    });
    driver.Click("BtMemoryStore").Type("BtOk", "/7=").Then("a long number fits", [width](QWidget* w) {
        EXPECT_EQ(DisplayOf(w), "-176.357142857142857");
        EXPECT_EQ(w->width(), *width);
    });
    driver.Type("BtOk", "*3.14159").Then("pending and memory", [](QWidget* w) {
        EXPECT_EQ(TQzModalDriver::Find<QLabel>(w, "LbExpression")->text(), "-176.357142857142857 \u00d7");
        EXPECT_EQ(TQzModalDriver::Find<QLabel>(w, "LbMemory")->text(), "M");
    });
    driver.Screenshot(ScreenshotFile("calculator.png")).Escape();
    Extended value = -1234.5L;
    EXPECT_FALSE(window.Execute(-1, value));
    EXPECT_FALSE(QImage(ScreenshotFile("calculator.png")).isNull());

    TQzTestDialogs dialogs;
    dialogs->AnswerMessage(mbOK);
    value = std::numeric_limits<Extended>::quiet_NaN();
    EXPECT_FALSE(window.Execute(2, value));
    EXPECT_TRUE(std::isnan(value));
    ASSERT_EQ(dialogs->Calls().size(), 1u);
    EXPECT_NE(dialogs->Calls()[0].Message.Text.find("not a finite number"), std::string::npos);
}

QDate SelectedDate(QWidget* window)
{
    return TQzModalDriver::Find<QCalendarWidget>(window, "CalDate")->selectedDate();
}

// A day in the month shown, a week below the one selected.
void DoubleClickAWeekLater(QWidget* window)
{
    auto* view = TQzModalDriver::Find<QTableView>(window, "qt_calendar_calendarview");
    const QModelIndex current = view->currentIndex();
    const QModelIndex below = current.sibling(current.row() + 1, current.column());
    const QPoint at = view->visualRect(below).center();
    // QTest's double-click on a widget is the second press alone.
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, at);
}

struct TCalendarCase {
    const char* Name;
    std::function<void(TQzModalDriver&)> Script;
    bool Accepted;
    TDateTime Day;  // the day given back, its time of day kept
};

TEST_F(StandardWindows, TheCalendarChangesTheDayAndKeepsTheTime)
{
    const TDateTime given = EncodeDate(2024, 3, 5) + EncodeTime(18, 30, 15, 250);
    const TDateTime time = given - std::trunc(given);
    using TDriver = TQzModalDriver;
    const TCalendarCase cases[] = {
        {"OK at once", [](TDriver& d) { d.Click("BtOk"); }, true, EncodeDate(2024, 3, 5)},
        {"a day later", [](TDriver& d) { d.Key(Qt::Key_Right).Click("BtOk"); }, true, EncodeDate(2024, 3, 6)},
        {"Enter in the month", [](TDriver& d) { d.Key(Qt::Key_Up).Enter(); }, true, EncodeDate(2024, 2, 27)},
        {"double-click", [](TDriver& d) { d.Then("click", DoubleClickAWeekLater); }, true, EncodeDate(2024, 3, 12)},
        {"Today", [](TDriver& d) { d.Click("BtToday").Click("BtOk"); }, true, Date()},
        {"Cancel", [](TDriver& d) { d.Key(Qt::Key_Right).Click("BtCancel"); }, false, 0},
        {"Escape", [](TDriver& d) { d.Key(Qt::Key_Right).Escape(); }, false, 0},
    };
    for (const TCalendarCase& c : cases) {
        SCOPED_TRACE(c.Name);
        TFrQzCalendar window;
        TQzModalDriver driver;
        driver.Then("starts on the day given", [](QWidget* w) { EXPECT_EQ(SelectedDate(w), QDate(2024, 3, 5)); });
        c.Script(driver);
        TDateTime value = given;
        EXPECT_EQ(window.Execute(value), c.Accepted);
        if (c.Accepted)
            EXPECT_NEAR(value, c.Day + time, 1e-9);
        else
            EXPECT_EQ(value, given);
    }
}

TEST_F(StandardWindows, TheCalendarKeepsTheValueToTheBitAndRefusesNoDate)
{
    TFrQzCalendar window;
    TQzModalDriver driver;
    driver.Then("caption", [](QWidget* w) { EXPECT_EQ(w->windowTitle(), "Calendar"); });
    driver.Screenshot(ScreenshotFile("calendar.png")).Click("BtOk");
    TDateTime value = 45356.1;
    EXPECT_TRUE(window.Execute(value));
    EXPECT_EQ(value, 45356.1);
    EXPECT_FALSE(QImage(ScreenshotFile("calendar.png")).isNull());

    for (TDateTime bad : {std::numeric_limits<double>::quiet_NaN(), EncodeDate(9999, 12, 31) + 1.5, -693594.5}) {
        TQzTestDialogs dialogs;
        dialogs->AnswerMessage(mbOK);
        TDateTime before = bad;
        EXPECT_FALSE(window.Execute(before));
        EXPECT_TRUE(std::memcmp(&before, &bad, sizeof bad) == 0);
        ASSERT_EQ(dialogs->Calls().size(), 1u);
        EXPECT_NE(dialogs->Calls()[0].Message.Text.find("between the years 1 and 9999"), std::string::npos);
    }
}

TEST(CalendarDate, TheTimeOfDayCountsForwardOnBothSidesOfDayZero)
{
    struct TCase {
        TDateTime Value;
        TQzCalendarDay To;
        TDateTime Expected;
    };
    const TCase cases[] = {
        {45356.75, {2024, 3, 6}, 45357.75},
        {-1.25, {1899, 12, 30}, 0.25},
        {0.25, {1899, 12, 29}, -1.25},
        {-0.5, {1899, 12, 28}, -2.5},
        {EncodeDate(1, 1, 1) - 0.5, {9999, 12, 31}, EncodeDate(9999, 12, 31) + 0.5},
    };
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.Value);
        TQzCalendarDay from;
        ASSERT_TRUE(QzCalendarDayOf(c.Value, from));
        EXPECT_EQ(QzMoveToDay(c.Value, c.To), c.Expected);
        TQzCalendarDay back;
        ASSERT_TRUE(QzCalendarDayOf(c.Expected, back));
        EXPECT_EQ(back, c.To);
    }
}

TEST_F(StandardWindows, TheApplicationOpensThemOnceRegistered)
{
    RegisterQzStandardWindows();
    TQzCApplication app(nullptr);
    TQzModalDriver driver;
    driver.Then("calculator", [](QWidget* w) { EXPECT_EQ(w->windowTitle(), "Calculator"); });
    driver.Type("BtOk", "+1").Enter().Enter();
    driver.Then("calendar", [](QWidget* w) { EXPECT_EQ(w->windowTitle(), "Calendar"); });
    driver.Key(Qt::Key_Left).Enter();
    Extended value = 1.25L;
    TDateTime date = 2.5;
    EXPECT_TRUE(app.Calculator(1, value));
    EXPECT_TRUE(app.Calendar(date));
    SetQzStandardWindows({});
    EXPECT_EQ(value, 2.3L);
    EXPECT_EQ(date, 1.5);
}

}  // namespace
