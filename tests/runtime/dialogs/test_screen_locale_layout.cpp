// The screen object's update brackets, the date order read from date
// patterns, and where the common windows and hints put their parts.

#include "runtime/dialogs/QzCommonWndLayout.h"
#include "runtime/dialogs/QzScreen.h"
#include "runtime/dialogs/QzSystemLocale.h"

#include "support/gui/QzTestApp.h"

#include <QWidget>

namespace {

class ScreenObject : public TQzGuiTest {};

TEST_F(ScreenObject, OnlyTheOutermostBracketFreezesAndThawsTheWindows)
{
    QWidget window;
    window.show();
    QzScreen->BeginUpdate();
    QzScreen->BeginUpdate();
    EXPECT_FALSE(window.updatesEnabled());
    QzScreen->EndUpdate();
    EXPECT_TRUE(QzScreen->Updating());
    EXPECT_FALSE(window.updatesEnabled());
    QzScreen->EndUpdate();
    EXPECT_FALSE(QzScreen->Updating());
    EXPECT_TRUE(window.updatesEnabled());
    // One EndUpdate too many must not start the count below zero.
    QzScreen->EndUpdate();
    {
        TQzScreenUpdate update;
        EXPECT_TRUE(QzScreen->Updating());
    }
    EXPECT_FALSE(QzScreen->Updating());
}

TEST_F(ScreenObject, AWindowClosedWhileFrozenIsForgotten)
{
    auto window = std::make_unique<QWidget>();
    window->show();
    QzScreen->BeginUpdate();
    window.reset();
    QzScreen->EndUpdate();
    EXPECT_FALSE(QzScreen->Updating());
}

TEST(SystemLocale, TheDateOrderAndSeparatorComeFromThePattern)
{
    struct TCase {
        const char* Pattern;
        TQzDateFormat Format;
        char Separator;
    };
    const TCase cases[] = {
        {"dd/MM/yyyy", dfDMY, '/'},  {"M/d/yy", dfMDY, '/'},     {"yyyy-MM-dd", dfYMD, '-'},
        {"dd.MM.yy", dfDMY, '.'},    {"mm/dd/yyyy", dfMDY, '/'}, {"yy'年'M'月'd'日'", dfYMD, '/'},
        {"d 'de' MMMM", dfDMY, ' '}, {"", dfDMY, '/'},           {"MM/yyyy", dfDMY, '/'},
    };
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.Pattern);
        EXPECT_EQ(QzDateFormatOfPattern(c.Pattern), c.Format);
        EXPECT_EQ(QzDateSeparatorOfPattern(c.Pattern), c.Separator);
    }
}

TEST(CommonWndLayout, TheWiderOfTextAndButtonsSetsTheWidthAndTheButtonsAreCentred)
{
    TQzDisplayGeometry g;  // margins 8, title 20 + 8, buttons 75 x 25 spaced 6, 8 above
    struct TCase {
        const char* Name;
        QSize Text;
        int Buttons;
        QSize Window;
        int FirstButtonX;
    };
    const TCase cases[] = {
        // 8 + 300 + 8 wide; 8 + 20 + 8 + 40 + 8 + 25 + 8 high
        {"text wider", {300, 40}, 2, {316, 117}, (316 - 156) / 2},
        // three buttons: 3 * 75 + 2 * 6 = 237, with 8 either side
        {"buttons wider", {50, 10}, 3, {253, 87}, 8},
        {"no buttons", {100, 10}, 0, {116, 54}, -1},
    };
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.Name);
        const TQzCommonWndLayout layout = QzLayoutCommonWnd(g, c.Text, c.Buttons);
        EXPECT_EQ(layout.Window, c.Window);
        ASSERT_EQ(int(layout.Buttons.size()), c.Buttons);
        if (c.Buttons > 0) {
            EXPECT_EQ(layout.Buttons.front().x(), c.FirstButtonX);
            EXPECT_EQ(layout.Buttons.back().right() + 1 + c.FirstButtonX, c.Window.width());
            EXPECT_EQ(layout.Buttons.front().bottom() + 1 + g.CWMarginBottom, c.Window.height());
        }
        EXPECT_EQ(layout.Text.top(), g.CWMarginTop + g.CWTitleHeight + g.CWMarginAfterTitle);
    }
}

TEST(CommonWndLayout, WithoutATitleRowTheTextStartsAtTheTopMargin)
{
    TQzDisplayGeometry g;
    g.CWTitleHeight = 0;
    const TQzCommonWndLayout layout = QzLayoutCommonWnd(g, {100, 10}, 1);
    EXPECT_TRUE(layout.Title.isEmpty());
    EXPECT_EQ(layout.Text.top(), g.CWMarginTop);
}

TEST(CommonWndLayout, AHintIsItsTextInsideItsMargins)
{
    TQzDisplayGeometry g;
    g.HiMarginLeft = 1;
    g.HiMarginTop = 2;
    g.HiMarginRight = 3;
    g.HiMarginBottom = 4;
    const TQzHintLayout layout = QzLayoutHint(g, {50, 20});
    EXPECT_EQ(layout.Window, QSize(54, 26));
    EXPECT_EQ(layout.Text, QRect(1, 2, 50, 20));
}

}  // namespace
