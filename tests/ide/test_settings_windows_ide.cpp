// The display set and privilege pickers as qzide opens them from the
// property grid on the demo: every selected control takes what was chosen
// for the first, as one step undo takes back, Cancel leaves the form as it
// was, and a set renamed in the picker is renamed in every control of the
// form that names it, in the same step.

#include "IdeFixture.h"

#include "ide/QzInspector.h"
#include "runtime/model/QzMemory.h"

#include "support/gui/QzModalDriver.h"

#include "rtl/TypInfo.h"

#include <QListWidget>
#include <QTreeWidget>
#include <QUndoStack>

namespace {

class IdeSettingsPickers : public TIdeTest {
protected:
    // What a control's set or privilege names, as text.
    std::string Value(const char* component, const char* property) const
    {
        TObject* value = GetObjectProp(Find(component), property);
        if (auto* set = dynamic_cast<TQzSetRef*>(value))
            return set->Name();
        if (auto* privilege = dynamic_cast<TQzPrivilege*>(value))
            return std::to_string(privilege->Id());
        return "?";
    }

    // Chooses the row showing `text` in the window's set list or privilege
    // tree (the Id column).
    static void Choose(QWidget* w, const QString& text)
    {
        if (auto* sets = w->findChild<QListWidget*>("LBSets")) {
            const QList<QListWidgetItem*> found = sets->findItems(text, Qt::MatchExactly);
            if (found.isEmpty())
                throw TQzDriverError(("no set " + text).toStdString());
            sets->setCurrentItem(found.first());
            return;
        }
        auto* privileges = TQzModalDriver::Find<QTreeWidget>(w, "Privileges");
        const QList<QTreeWidgetItem*> found = privileges->findItems(text, Qt::MatchExactly, 0);
        if (found.isEmpty())
            throw TQzDriverError(("no privilege " + text).toStdString());
        privileges->setCurrentItem(found.first());
    }
};

TEST_F(IdeSettingsPickers, EverySelectedControlTakesTheChoiceAsOneStep)
{
    const struct {
        std::initializer_list<const char*> Components;
        const char* Property;
        const char* Window;
        const char* Choice;
    } cases[] = {
        {{"LabelName", "LabelCity"}, "SetFont", "TFrSetFont", "Small"},
        {{"EditName", "EditCity", "CheckActive"}, "SetColor", "TFrSetColor", "Warning"},
        {{"ButtonSave", "ButtonCancel"}, "Privilege", "TFrPrivilege", "3"},
    };
    TQzInspectorModel* model = FWindow->Inspector()->Properties();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Property);
        Select(c.Components);
        const std::string before = Main()->Snapshot();
        const int steps = Main()->UndoStack()->index();
        const char* choice = c.Choice;
        const char* window = c.Window;
        for (const bool ok : {false, true}) {
            TQzModalDriver driver;
            driver
                .Then("choose",
                      [choice, window](QWidget* w) {
                          EXPECT_EQ(w->objectName(), window);
                          Choose(w, choice);
                      })
                .Click(ok ? "BtOk" : "BtCancel");
            model->EditRow(model->Find(c.Property));
            EXPECT_TRUE(driver.Finished());
            if (!ok) {
                EXPECT_EQ(Main()->Snapshot(), before) << "Cancel";
            }
        }
        for (const char* name : c.Components)
            EXPECT_EQ(Value(name, c.Property), c.Choice) << name;
        EXPECT_EQ(Main()->UndoStack()->index(), steps + 1);
        Main()->UndoStack()->undo();
        EXPECT_EQ(Main()->Snapshot(), before);
    }
}

TEST_F(IdeSettingsPickers, ASetRenamedInThePickerIsRenamedInEveryControlAsOneStep)
{
    Select({"CheckActive"});
    const std::string before = Main()->Snapshot();
    const int steps = Main()->UndoStack()->index();
    TQzModalDriver driver;
    driver
        .Then("rename Entry, which both edits use",
              [](QWidget* w) {
                  auto* sets = TQzModalDriver::Find<QListWidget>(w, "LBSets");
                  const QList<QListWidgetItem*> found = sets->findItems("Entry", Qt::MatchExactly);
                  ASSERT_EQ(found.size(), 1);
                  sets->setCurrentItem(found.first());
                  found.first()->setText("Input");
              })
        .Click("BtOk");
    TQzInspectorModel* model = FWindow->Inspector()->Properties();
    model->EditRow(model->Find("SetColor"));
    EXPECT_TRUE(driver.Finished());
    for (const char* name : {"EditName", "EditCity", "CheckActive"})
        EXPECT_EQ(Value(name, "SetColor"), "Input") << name;
    EXPECT_EQ(Main()->UndoStack()->index(), steps + 1);
    Main()->UndoStack()->undo();
    EXPECT_EQ(Main()->Snapshot(), before);
}

}  // namespace
