// The memory label, message and text editors as qzide opens them from the
// object inspector's ellipsis on the demo project: every selected control
// takes the reference chosen, as one step undo takes back, and Cancel
// leaves the form as it was. The pictures of the three windows in the IDE
// guide are taken here.

#include "IdeFixture.h"

#include "ide/QzInspector.h"
#include "runtime/model/QzMemory.h"

#include "support/gui/QzModalDriver.h"

#include "rtl/TypInfo.h"

#include <QLineEdit>
#include <QUndoStack>

namespace {

class IdeMemoryEditors : public TIdeTest {
protected:
    TQzInspectorModel* Model() const { return FWindow->Inspector()->Properties(); }

    std::string Ref(const char* component, const char* property) const
    {
        auto* ref = dynamic_cast<TQzMemoryRef*>(GetObjectProp(Find(component), property));
        return ref ? ref->PkgName() + " " + std::to_string(ref->Id()) : "none";
    }

    bool Edit(const char* property)
    {
        const QModelIndex row = Model()->Find(property);
        EXPECT_TRUE(row.isValid()) << property;
        return Model()->EditRow(row);
    }
};

TEST_F(IdeMemoryEditors, EveryLabelSelectedTakesTheChoiceAsOneUndoStep)
{
    Select({"LabelTitle", "LabelName", "LabelCity"});
    const std::string before = Main()->Snapshot();

    TQzModalDriver cancel;
    cancel.SetText("EdId", "9").Click("BtCancel");
    Edit("Caption");
    EXPECT_TRUE(cancel.Finished());
    EXPECT_EQ(Main()->Snapshot(), before);
    EXPECT_EQ(Main()->UndoStack()->count(), 0);
    EXPECT_FALSE(Main()->IsModified());

    TQzModalDriver driver;
    driver
        .Then("opened on the first label",
              [](QWidget* w) {
                  EXPECT_EQ(w->windowTitle(), "Labels");
                  EXPECT_EQ(TQzModalDriver::Find<QLineEdit>(w, "EdId")->text(), "8");
              })
        .SetText("EdId", "9")
        .Click("BtOk");
    Edit("Caption");
    EXPECT_TRUE(driver.Finished());
    for (const char* name : {"LabelTitle", "LabelName", "LabelCity"})
        EXPECT_EQ(Ref(name, "Caption"), "DEMO 9") << name;
    EXPECT_EQ(Main()->UndoStack()->count(), 1);
    Main()->UndoStack()->undo();
    EXPECT_EQ(Main()->Snapshot(), before);
}

TEST_F(IdeMemoryEditors, MessagesAndTextsOpenOnTheDemosReferences)
{
    const struct {
        const char* Component;
        const char* Property;
        const char* Title;
        const char* Id;
        const char* Picture;
    } cases[] = {
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
        if (!shots.isEmpty())
            driver.Screenshot(shots + "/" + c.Picture);
        driver.Click("BtCancel");
        Edit(c.Property);
        EXPECT_TRUE(driver.Finished());
    }
    EXPECT_EQ(Main()->UndoStack()->count(), 0);
}

}  // namespace
