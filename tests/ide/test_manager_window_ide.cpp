// The packages manager as qzide runs it: chosen from the Tools menu, over
// the open project, each form it changes taking the run as one step of its
// undo history.

#include "IdeFixture.h"

#include "designide/forms/QzIdeProject.h"
#include "runtime/model/QzMemory.h"

#include "support/gui/QzModalDriver.h"

#include "rtl/TypInfo.h"

#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QUndoStack>

namespace {

class IdeManager : public TIdeTest {
protected:
    // The Tools menu's entry, as the menu shows it when opened.
    QAction* Command(const QString& group, const QString& caption) const
    {
        for (QAction* top : FWindow->menuBar()->actions()) {
            if (top->text() != "&Tools" || !top->menu())
                continue;
            emit top->menu()->aboutToShow();
            for (QAction* sub : top->menu()->actions())
                if (sub->text() == group && sub->menu())
                    for (QAction* entry : sub->menu()->actions())
                        if (entry->text() == caption)
                            return entry;
        }
        return nullptr;
    }

    TIdeDesigner* DesignerOf(const QString& title) const
    {
        TIdeProject* project = FWindow->Project();
        for (int i = 0; i < project->FormCount(); ++i)
            if (QString::fromStdString(project->FormTitle(i)).compare(title, Qt::CaseInsensitive) == 0)
                return project->Designer(i);
        return nullptr;
    }

    static std::string Caption(TIdeDesigner* designer, const char* name)
    {
        TComponent* component = designer ? designer->GetComponent(name) : nullptr;
        auto* ref = component ? dynamic_cast<TQzMemoryRef*>(GetObjectProp(component, "Caption")) : nullptr;
        return ref ? ref->PkgName() + " " + std::to_string(ref->Id()) : "none";
    }
};

TEST_F(IdeManager, ReplaceFromTheToolsMenuIsOneUndoStepOfEachFormItChanged)
{
    QAction* labels = Command("Packages &Manager", "Labels");
    ASSERT_NE(labels, nullptr);
    ASSERT_EQ(DesignerOf("Options.dfm"), nullptr);
    const int mainSteps = Main()->UndoStack()->count();
    FDialogs->Script().AnswerMessage(mbOK);

    TQzModalDriver driver;
    driver
        .Then("the package",
              [](QWidget* w) {
                  TQzModalDriver::Find<QComboBox>(w, "EdPkg")->setCurrentText("DEMO");
                  // Events let through during the scan would let the next
                  // step run on the progress window.
                  TQzModalDriver::Find<QDialog>(w, "TFrManagerProgress")->setProperty("PumpInterval", 1 << 30);
              })
        .SetText("EdId", "5")
        .Click("BtScan")
        .Then("found in both forms",
              [](QWidget* w) {
                  EXPECT_EQ(w->windowTitle(), "Packages Manager (Labels)");
                  const QString status = TQzModalDriver::Find<QStatusBar>(w, "sb")->currentMessage();
                  EXPECT_TRUE(status.startsWith("Found: ")) << status.toStdString();
                  EXPECT_FALSE(status.startsWith("Found: 0")) << status.toStdString();
              })
        .Screenshot(qEnvironmentVariable("QZ_SCREENSHOT_DIR", FDir.path()) + "/manager.png")
        .Click("BtReplace")
        .SetText("EdId", "9")
        .Click("BtOk")
        .Click("BtOk");
    labels->trigger();
    EXPECT_TRUE(driver.Finished());

    EXPECT_EQ(Caption(Main(), "ButtonCancel"), "DEMO 9");
    EXPECT_EQ(Main()->UndoStack()->count(), mainSteps + 1);
    EXPECT_TRUE(Main()->IsModified());
    // A form that was not open is opened in the designer and changed there.
    TIdeDesigner* options = DesignerOf("Options.dfm");
    ASSERT_NE(options, nullptr);
    EXPECT_EQ(Caption(options, "ButtonCancel"), "DEMO 9");
    EXPECT_EQ(options->UndoStack()->count(), 1);
    EXPECT_TRUE(options->IsModified());

    Main()->UndoStack()->undo();
    options->UndoStack()->undo();
    EXPECT_EQ(Caption(Main(), "ButtonCancel"), "DEMO 5");
    EXPECT_EQ(Caption(options, "ButtonCancel"), "DEMO 5");
    EXPECT_FALSE(options->IsModified());
}

}  // namespace
