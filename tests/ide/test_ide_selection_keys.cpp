// Choosing components from the keyboard on the designer's surface (arrows,
// Tab, Shift+Tab, Escape) and what Select All takes.

#include "IdeFixture.h"

#include "ide/QzDesignSurface.h"

#include <QTest>
#include <QUndoStack>

namespace {

AnsiString SelectedName(TIdeDesigner* d)
{
    TComponent* c = d->SelectedComponents().front();
    return c == d->GetRoot() ? AnsiString("(form)") : c->Name();
}

}  // namespace

TEST_F(TIdeTest, KeysChooseTheNeighbourTheSiblingOrTheParent)
{
    struct TCase {
        const char* From;   // nullptr: the form
        Qt::Key Key;
        Qt::KeyboardModifiers Modifiers;
        const char* To;
    };
    const TCase cases[] = {
        // The sheet's labels sit left of their edits, in two rows.
        {"LabelName", Qt::Key_Right, {}, "EditName"},
        {"EditName", Qt::Key_Down, {}, "EditCity"},
        {"EditCity", Qt::Key_Left, {}, "LabelCity"},
        {"LabelCity", Qt::Key_Up, {}, "LabelName"},
        {"EditCity", Qt::Key_Down, {}, "CheckActive"},
        {"LabelName", Qt::Key_Left, {}, "LabelName"},   // nothing that way
        {"ButtonSave", Qt::Key_Right, {}, "ButtonCancel"},
        {"ButtonSave", Qt::Key_Up, {}, "Pages"},
        // Creation order, round from the last to the first.
        {"LabelName", Qt::Key_Tab, {}, "EditName"},
        {"CheckActive", Qt::Key_Tab, {}, "LabelRemark"},
        {"LabelRemark", Qt::Key_Tab, {}, "LabelName"},
        {"LabelName", Qt::Key_Tab, Qt::ShiftModifier, "LabelRemark"},
        {"LabelName", Qt::Key_Backtab, Qt::ShiftModifier, "LabelRemark"},
        {"PanelTop", Qt::Key_Tab, Qt::ShiftModifier, "PopupNotes"},
        {nullptr, Qt::Key_Tab, {}, "QzCApplication1"},
        {nullptr, Qt::Key_Tab, Qt::ShiftModifier, "ButtonCancel"},
        // Escape climbs out to the form.
        {"LabelName", Qt::Key_Escape, {}, "SheetCustomer"},
        {"SheetCustomer", Qt::Key_Escape, {}, "Pages"},
        {"Pages", Qt::Key_Escape, {}, "(form)"},
        {nullptr, Qt::Key_Escape, {}, "(form)"},
    };
    TIdeDesigner* d = Main();
    TQzDesignSurface* s = Surface(d);
    const std::string before = d->Snapshot();
    for (const TCase& c : cases) {
        const QString key = QKeySequence(c.Key | c.Modifiers).toString();
        SCOPED_TRACE(std::string(c.From ? c.From : "(form)") + " " + key.toStdString());
        d->SelectComponent(c.From ? Find(c.From) : nullptr);
        QTest::keyClick(s, c.Key, c.Modifiers);
        EXPECT_EQ(SelectedName(d), c.To);
    }
    // Choosing changes nothing in the form.
    EXPECT_EQ(d->Snapshot(), before);
    EXPECT_EQ(d->UndoStack()->count(), 0);
}

TEST_F(TIdeTest, SelectAllTakesTheSiblingsOrTheTopLevel)
{
    const auto names = [this] {
        std::vector<AnsiString> all;
        for (TComponent* c : Main()->SelectedComponents())
            all.push_back(c->Name());
        return all;
    };
    TQzDesignSurface* s = Surface(Main());
    Select({"EditCity"});
    s->SelectAll();
    EXPECT_EQ(names(), (std::vector<AnsiString>{"LabelName", "EditName", "LabelCity", "EditCity", "CheckActive", "LabelRemark"}));
    Select({"MemoNotes"});
    s->SelectAll();
    EXPECT_EQ(names(), (std::vector<AnsiString>{"MemoNotes", "RichLetter"}));
    // The form selected: its controls and the non-visual components.
    Main()->SelectComponent(nullptr);
    s->SelectAll();
    EXPECT_EQ(names(), (std::vector<AnsiString>{"QzCApplication1", "PkgStrings", "PkgImages", "MainMenu1", "PopupNotes",
                                                "PanelTop", "Pages", "ButtonSave", "ButtonCancel"}));
    // A non-visual component lives on the form's top level too.
    Select({"PkgStrings"});
    s->SelectAll();
    EXPECT_EQ(names().size(), 9u);
}
