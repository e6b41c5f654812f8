// The about, scroll-bars, hints and common-windows windows: the display
// dialogs write the package only on OK, and the rules that keep their
// values consistent. That every kind opens its own window is walked in
// qzide on the demo.

#include "design/controls/QzDisplayGeometryEdit.h"
#include "design/controls/QzRuntimeWindowsReg.h"
#include "design/controls/QzScrollBarValues.h"
#include "design/controls/Qzvtabout.h"
#include "design/controls/Qzvtcommonwnds.h"
#include "design/controls/Qzvthints.h"
#include "design/controls/Qzvtscrollbars.h"
#include "design/reg/QzEditorDialogs.h"
#include "runtime/model/QzPkgDisplay.h"
#include "runtime/model/QzPkgStrings.h"

#include "design/QzDesignWindowTest.h"
#include "support/gui/QzTestApp.h"
#include "support/gui/QzTestDialogs.h"

#include <QCheckBox>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QScrollBar>
#include <QSpinBox>

#include <functional>

namespace {

using TDriver = TQzModalDriver;
using K = TQzEditorDialog;

class SmallWindows : public TQzGuiTest {
protected:
    static void SetUpTestSuite()
    {
        TQzGuiTest::SetUpTestSuite();
        RegisterQzvtabout();
        RegisterQzvtscrollbars();
        RegisterQzvthints();
        RegisterQzvtcommonwnds();
        RegisterQzvtruntimewindows();
    }

    TComponent Form{nullptr};
    TQzPkgDisplay Display{&Form};
    TQzMarkedLog FMarks;
    std::vector<TComponent*>& Marked = FMarks.Marked;
};

void SetSpin(QWidget* w, const char* name, int value)
{
    auto* spin = TDriver::Find<QSpinBox>(w, name);
    spin->setValue(value);
    emit spin->editingFinished();
}

TEST_F(SmallWindows, TheDisplayDialogsWriteTheirGeometryOnlyOnOk)
{
    struct TCase {
        const char* Name;
        K Kind;
        const char* Edit;
        const char* Check;
        bool Ok;
        std::function<bool(const TQzDisplayGeometry&)> Written;
    };
    const TCase cases[] = {
        {"hints, OK", K::Hints, "EdMarginLeft", "CBWinRgn", true,
         [](const TQzDisplayGeometry& g) { return g.HiMarginLeft == 11 && g.HiWinRgn && g.CWMarginLeft == 8; }},
        {"hints, Cancel", K::Hints, "EdMarginLeft", "CBWinRgn", false,
         [](const TQzDisplayGeometry& g) { return g == TQzDisplayGeometry(); }},
        {"common windows, OK", K::CommonWnds, "EdButtonsWidth", "CBWinRgn", true,
         [](const TQzDisplayGeometry& g) { return g.CWButtonsWidth == 11 && g.CWWinRgn && !g.HiWinRgn; }},
        {"common windows, Cancel", K::CommonWnds, "EdTitleHeight", "CBWinRgn", false,
         [](const TQzDisplayGeometry& g) { return g == TQzDisplayGeometry(); }},
    };
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.Name);
        Display.Clear();
        QzWriteDisplayGeometry(Display, TQzDisplayGeometry());
        Marked.clear();
        TQzEditorDialogRequest request;
        request.Package = &Display;
        TDriver driver;
        driver.Then("edit", [&c](QWidget* w) { SetSpin(w, c.Edit, 11); }).SetChecked(c.Check, true);
        driver.Click(c.Ok ? "BtOk" : "BtCancel");
        EXPECT_EQ(QzRunEditorDialog(c.Kind, request), c.Ok ? 1 : 0);
        EXPECT_TRUE(c.Written(Display.Geometry()));
        EXPECT_EQ(Marked, c.Ok ? std::vector<TComponent*>{&Form} : std::vector<TComponent*>{});
    }
}

TEST_F(SmallWindows, TheHintSampleCanBeALabelsHintOrElseItsText)
{
    TQzPkgStrings tips(nullptr);
    tips.SetPkgName("Tips");
    tips.Labels()->Add(5, "Save", "Saves the form");
    tips.Labels()->Add(6, "Close", "");
    struct TCase {
        Integer Id;
        int Answer;
        QString Sample;
    };
    const TCase cases[] = {{5, 1, "Saves the form"}, {6, 1, "Close"}, {5, 0, "typed"}};
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.Id);
        TQzEditorDialogScope picker(K::MemoryLabel, [&c](TQzEditorDialogRequest& r) {
            static_cast<TQzMemoryLabel*>(r.Target)->PkgId("Tips", c.Id);
            return c.Answer;
        });
        TFrHints window;
        window.SetDisplay(&Display);
        TDriver driver;
        driver.Then("type", [](QWidget* w) { TDriver::Find<QPlainTextEdit>(w, "EdText")->setPlainText("typed"); })
            .Click("BtLabel")
            .Then("sample", [&c](QWidget* w) {
                EXPECT_EQ(TDriver::Find<QPlainTextEdit>(w, "EdText")->toPlainText(), c.Sample);
            })
            .Click("BtCancel");
        EXPECT_EQ(window.Execute(), mrCancel);
    }
}

TEST_F(SmallWindows, AGeometryWithANegativeMeasureIsRefusedWhole)
{
    TQzDisplayGeometry g;
    g.CWMarginLeft = 20;
    g.HiMarginTop = -1;
    try {
        QzWriteDisplayGeometry(Display, g);
        FAIL() << "a negative measure was written";
    } catch (const EQzPkgError& e) {
        EXPECT_NE(e.Message().find("HiMarginTop"), AnsiString::npos);
    }
    EXPECT_EQ(Display.Geometry(), TQzDisplayGeometry());
}

TEST(ScrollBarValues, ValuesAreKeptConsistentAsTheBarKeepsThem)
{
    struct TCase {
        const char* Name;
        TQzScrollBarValues In;
        TQzScrollBarValues Out;
    };
    const TCase cases[] = {
        {"already consistent", {0, 100, 10, 1, 5, 50}, {0, 100, 10, 1, 5, 50}},
        {"the position leaves the page inside", {0, 100, 10, 1, 5, 95}, {0, 100, 10, 1, 5, 91}},
        {"without a page it reaches Max", {0, 100, 0, 1, 5, 100}, {0, 100, 0, 1, 5, 100}},
        {"Max below Min", {10, 5, 0, 1, 1, 0}, {10, 10, 0, 1, 1, 10}},
        {"a page larger than the range", {0, 9, 50, 1, 1, 3}, {0, 9, 10, 1, 1, 0}},
        {"no negative page or steps", {-5, 5, -3, 0, -2, -9}, {-5, 5, 0, 1, 1, -5}},
        {"the widest range", {-2147483647 - 1, 2147483647, 2147483647, 1, 1, 0},
         {-2147483647 - 1, 2147483647, 2147483647, 1, 1, 0}},
    };
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.Name);
        EXPECT_EQ(QzNormalScrollBar(c.In), c.Out);
    }
}

TEST_F(SmallWindows, TheScrollBarsFollowTheirSettings)
{
    TFrScrollBars window;
    window.SetValues(Qt::Vertical, {0, 50, 0, 1, 5, 40});
    TDriver driver;
    driver.SetChecked("RBVertical", true)
        .Then("a smaller range", [](QWidget* w) { SetSpin(w, "EdMax", 20); })
        .Then("the bar follows", [](QWidget* w) {
            auto* bar = TDriver::Find<QScrollBar>(w, "SBVertical");
            EXPECT_EQ(bar->maximum(), 20);
            EXPECT_EQ(bar->value(), 20);
            EXPECT_EQ(TDriver::Find<QSpinBox>(w, "EdPosition")->value(), 20);
            EXPECT_EQ(TDriver::Find<QLabel>(w, "LabPosition")->text(), "Position: 0, 20");
        })
        .Click("BtClose");
    window.Execute("ScrollBars Example");
    EXPECT_EQ(window.windowTitle(), "ScrollBars Example");
    EXPECT_EQ(window.Values(Qt::Vertical).Position, 20);
}

}  // namespace
