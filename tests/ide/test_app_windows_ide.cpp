// The demo application's verbs in qzide: each of the suite's own windows
// opens (none answers that it is not available) and closing it leaves the
// form unmodified.

#include "IdeFixture.h"

#include "ide/QzDesignSurface.h"

#include "support/gui/QzModalDriver.h"

namespace {

class IdeApplicationWindows : public TIdeTest {};

TEST_F(IdeApplicationWindows, EveryWindowVerbOpensItsWindow)
{
    TComponent* app = Find("QzCApplication1");
    ASSERT_TRUE(app);
    // The host sees the package's windows only as widgets of these classes.
    struct TCase {
        int Verb;
        const char* Class;
    };
    const TCase cases[] = {
        {0, "TFrAbout"}, {6, "TFrMsgHlp"}, {7, "TFrMemoE"}, {8, "TFrImageE"}, {9, "TFrRichEditE"}, {10, "TFrScrollBars"},
    };
    for (const TCase& c : cases) {
        const char* expected = c.Class;
        SCOPED_TRACE(expected);
        TQzModalDriver driver;
        driver.Then("its window", [expected](QWidget* w) { EXPECT_STREQ(w->metaObject()->className(), expected); })
            .Escape();
        EXPECT_TRUE(Surface(Main())->ExecuteVerb(app, c.Verb));
        EXPECT_TRUE(driver.Finished());
    }
    EXPECT_FALSE(Main()->IsModified());
}

}  // namespace
