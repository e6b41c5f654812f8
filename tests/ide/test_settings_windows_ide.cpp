// The pickers qzide opens from the property grid's ellipsis on the demo
// (memory labels, display sets, privileges): every selected control takes
// what was chosen for the first, as one step undo takes back, Cancel leaves
// the form as it was, and a set renamed in the picker is renamed in every
// control of the form that names it, in the same step. The pictures of the
// memory windows in the IDE guide are taken here.

#include "IdeFixture.h"

#include "ide/QzInspector.h"
#include "runtime/model/QzMemory.h"

#include "support/gui/QzModalDriver.h"

#include "rtl/TypInfo.h"

#include <QLineEdit>
#include <QListWidget>
#include <QTreeWidget>
#include <QUndoStack>

namespace {

class IdeSettingsPickers : public TIdeTest {
protected:
    TQzInspectorModel* Model() const { return FWindow->Inspector()->Properties(); }

    // What a control's reference, set or privilege names, as text.
    std::string Value(const char* component, const char* property) const
    {
        TObject* value = GetObjectProp(Find(component), property);
        if (auto* ref = dynamic_cast<TQzMemoryRef*>(value))
            return ref->PkgName() + " " + std::to_string(ref->Id());
        if (auto* set = dynamic_cast<TQzSetRef*>(value))
            return set->Name();
        if (auto* privilege = dynamic_cast<TQzPrivilege*>(value))
            return std::to_string(privilege->Id());
        return "?";
    }

    // Chooses `text` in the window: the Id typed in a memory window, the row
    // showing it in the set list or in the privilege tree (the Id column).
    static void Choose(QWidget* w, const QString& text)
    {
        if (auto* id = w->findChild<QLineEdit*>("EdId")) {
            id->setText(text.section(' ', -1));
            return;
        }
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
        {{"LabelTitle", "LabelName", "LabelCity"}, "Caption", "TFrMemoryLabel", "DEMO 9"},
        {{"LabelName", "LabelCity"}, "SetFont", "TFrSetFont", "Small"},
        {{"EditName", "EditCity", "CheckActive"}, "SetColor", "TFrSetColor", "Warning"},
        {{"ButtonSave", "ButtonCancel"}, "Privilege", "TFrPrivilege", "3"},
    };
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
            Model()->EditRow(Model()->Find(c.Property));
            EXPECT_TRUE(driver.Finished());
            if (!ok) {
                EXPECT_EQ(Main()->Snapshot(), before) << "Cancel";
                EXPECT_FALSE(Main()->IsModified()) << "Cancel";
            }
        }
        for (const char* name : c.Components)
            EXPECT_EQ(Value(name, c.Property), c.Choice) << name;
        EXPECT_EQ(Main()->UndoStack()->index(), steps + 1);
        Main()->UndoStack()->undo();
        EXPECT_EQ(Main()->Snapshot(), before);
    }
}

// Each memory window opens on the reference of the control it edits.
TEST_F(IdeSettingsPickers, MemoryWindowsOpenOnTheDemosReferences)
{
    const struct {
        const char* Component;
        const char* Property;
        const char* Title;
        const char* Id;
        const char* Picture;
    } cases[] = {
        {"LabelTitle", "Caption", "Labels", "8", nullptr},
        {"ButtonSave", "Caption", "Labels", "4", "memory-label.png"},
        {"EditName", "ErrorMessage", "Messages", "1", "memory-message.png"},
        {"MemoNotes", "Text", "Texts", "1", "memory-text.png"},
    };
    const QString shots = qEnvironmentVariable("QZ_SCREENSHOT_DIR");
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Component);
        Select({c.Component});
        TQzModalDriver driver;
        driver.Then("opened", [&c](QWidget* w) {
            EXPECT_EQ(w->windowTitle(), c.Title);
            EXPECT_EQ(TQzModalDriver::Find<QLineEdit>(w, "EdId")->text(), c.Id);
        });
        if (!shots.isEmpty() && c.Picture)
            driver.Screenshot(shots + "/" + c.Picture);
        driver.Click("BtCancel");
        Model()->EditRow(Model()->Find(c.Property));
        EXPECT_TRUE(driver.Finished());
    }
    EXPECT_EQ(Main()->UndoStack()->count(), 0);
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
    Model()->EditRow(Model()->Find("SetColor"));
    EXPECT_TRUE(driver.Finished());
    for (const char* name : {"EditName", "EditCity", "CheckActive"})
        EXPECT_EQ(Value(name, "SetColor"), "Input") << name;
    EXPECT_EQ(Main()->UndoStack()->index(), steps + 1);
    Main()->UndoStack()->undo();
    EXPECT_EQ(Main()->Snapshot(), before);
}

}  // namespace
