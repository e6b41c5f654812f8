// The strings package editor as qzide opens it from a double-click on the
// demo's strings package: the package shown is the form's, and a label
// added marks the form modified.

#include "IdeFixture.h"

#include "ide/QzDesignSurface.h"
#include "runtime/model/QzPkgStrings.h"

#include "support/gui/QzModalDriver.h"

#include <QStatusBar>

namespace {

class IdeStringsEditor : public TIdeTest {};

TEST_F(IdeStringsEditor, ADoubleClickOpensTheFormsPackageAndAnAddMarksTheForm)
{
    auto* pkg = dynamic_cast<TQzPkgStrings*>(Find("PkgStrings"));
    ASSERT_TRUE(pkg);
    const int labels = pkg->Labels()->Count();
    TQzModalDriver driver;
    driver
        .Then("opened",
              [labels](QWidget* w) {
                  EXPECT_EQ(w->windowTitle(), "Package : DEMO");
                  EXPECT_STREQ(w->metaObject()->className(), "TFrPkgStrings");
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
