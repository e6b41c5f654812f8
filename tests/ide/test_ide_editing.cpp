// Changing forms: the inspector's editors (typed, chosen from a list, set
// elements, several components, revert, filter), the surface's mouse and
// keys, the palette, a double-click; undo and redo of each; saving.

#include "IdeFixture.h"

#include "ide/QzControlLook.h"
#include "ide/QzDesignSurface.h"
#include "designide/forms/QzIdeProject.h"
#include "ide/QzInspector.h"
#include "ide/QzPalette.h"

#include "runtime/components/Controls.h"
#include "runtime/components/Forms.h"
#include "runtime/model/QzGlobals.h"

#include "rtl/ComponentStream.h"
#include "rtl/FormText.h"
#include "rtl/StringList.h"
#include "rtl/TypInfo.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QLineEdit>
#include <QTest>
#include <QToolButton>
#include <QTreeView>
#include <QUndoGroup>
#include <QUndoStack>

namespace {

AnsiString Prop(TComponent* c, const char* name) { return VarToStr(GetPropValue(c, name)); }

// The lines of b that differ from a's, for texts of the same length in lines.
std::vector<std::string> ChangedLines(const std::string& a, const std::string& b)
{
    TStringList la, lb;
    la.SetText(a);
    lb.SetText(b);
    std::vector<std::string> changed;
    EXPECT_EQ(la.Count(), lb.Count());
    for (int i = 0; i < std::min(la.Count(), lb.Count()); ++i)
        if (la.Strings(i) != lb.Strings(i))
            changed.push_back(lb.Strings(i));
    return changed;
}

}  // namespace

class TIdeEditingTest : public TIdeTest {
protected:
    TQzInspectorModel* Model() const { return FWindow->Inspector()->Properties(); }
    QTreeView* View() const { return FWindow->Inspector()->PropertyView(); }

    // Opens the row's editor in the inspector as a click would.
    QWidget* OpenEditor(const QString& path)
    {
        const QModelIndex row = Model()->FindPath(path);
        EXPECT_TRUE(row.isValid()) << path.toStdString();
        const QModelIndex value = row.siblingAtColumn(1);
        View()->setCurrentIndex(value);
        View()->edit(value);
        return View()->indexWidget(value);
    }
};

TEST_F(TIdeEditingTest, ValueTypedInTheInspector)
{
    Select({"LabelName"});
    auto* line = qobject_cast<QLineEdit*>(OpenEditor("Left"));
    ASSERT_NE(line, nullptr);
    line->selectAll();
    QTest::keyClicks(line, "30");
    QTest::keyClick(line, Qt::Key_Return);
    QCoreApplication::processEvents();   // the view commits queued
    EXPECT_EQ(QzControlBounds(Find("LabelName")).left(), 30);
    EXPECT_EQ(Main()->UndoStack()->count(), 1);
    EXPECT_TRUE(Main()->IsModified());
    EXPECT_TRUE(FWindow->FormTabs()->tabText(0).endsWith('*'));

    // Text that is no number is refused with a message; nothing changes.
    FDialogs->Script().AnswerMessage(mbOK);
    EXPECT_FALSE(Model()->SetValueText(Model()->Find("Left").siblingAtColumn(1), "thirty"));
    EXPECT_EQ(QzControlBounds(Find("LabelName")).left(), 30);
    EXPECT_EQ(Main()->UndoStack()->count(), 1);
    ASSERT_EQ(FDialogs->Script().Calls().size(), 1u);
    EXPECT_EQ(FDialogs->Script().Calls()[0].Message.Type, mtError);
}

TEST_F(TIdeEditingTest, ValueChosenFromTheList)
{
    Select({"LabelName"});
    auto* combo = qobject_cast<QComboBox*>(OpenEditor("Alignment"));
    ASSERT_NE(combo, nullptr);
    EXPECT_EQ(combo->count(), 3);
    combo->setCurrentIndex(combo->findText("taCenter"));
    emit combo->activated(combo->currentIndex());
    EXPECT_EQ(Prop(Find("LabelName"), "Alignment"), "taCenter");

    // Revert goes back to the declared default.
    ASSERT_TRUE(Model()->AttributesAt(Model()->Find("Alignment")).Contains(paRevertable));
    EXPECT_TRUE(Model()->RevertRow(Model()->Find("Alignment")));
    EXPECT_EQ(Prop(Find("LabelName"), "Alignment"), "taLeftJustify");
    EXPECT_EQ(Main()->UndoStack()->count(), 2);
}

TEST_F(TIdeEditingTest, SetElementToggled)
{
    Main()->SelectComponent(nullptr);   // the form itself
    const QModelIndex help = Model()->FindPath("BorderIcons.biHelp");
    ASSERT_TRUE(help.isValid());
    EXPECT_EQ(help.siblingAtColumn(1).data().toString(), "False");
    EXPECT_EQ(Model()->ValuesOf(help), (QStringList{"False", "True"}));
    ASSERT_TRUE(Model()->setData(help.siblingAtColumn(1), "True"));
    auto* form = dynamic_cast<TCustomForm*>(Main()->GetRoot());
    ASSERT_NE(form, nullptr);
    EXPECT_TRUE(form->BorderIcons().Contains(biHelp));
    EXPECT_TRUE(form->BorderIcons().Contains(biSystemMenu));
    EXPECT_EQ(Model()->Find("BorderIcons").siblingAtColumn(1).data().toString(),
              "[biSystemMenu,biMinimize,biMaximize,biHelp]");
}

TEST_F(TIdeEditingTest, SeveralComponentsChangedAtOnce)
{
    Select({"LabelName", "LabelCity"});
    const QModelIndex width = Model()->Find("Width");
    ASSERT_TRUE(width.isValid());
    EXPECT_EQ(width.siblingAtColumn(1).data().toString(), "60");
    ASSERT_TRUE(Model()->setData(width.siblingAtColumn(1), "90"));
    EXPECT_EQ(QzControlBounds(Find("LabelName")).width(), 90);
    EXPECT_EQ(QzControlBounds(Find("LabelCity")).width(), 90);
    // One step undoes both.
    EXPECT_EQ(Main()->UndoStack()->count(), 1);
    Main()->UndoStack()->undo();
    EXPECT_EQ(QzControlBounds(Find("LabelName")).width(), 60);
    EXPECT_EQ(QzControlBounds(Find("LabelCity")).width(), 60);
    // The selection survives the form being read again.
    EXPECT_EQ(Main()->SelectedComponents().size(), 2u);
}

TEST_F(TIdeEditingTest, FilterKeepsMatchingRowsAndEventsStayApart)
{
    Select({"ButtonSave"});
    FWindow->Inspector()->FilterBox()->setText("wid");
    QStringList rows;
    for (int r = 0; r < Model()->rowCount(); ++r)
        rows << Model()->index(r, 0).data().toString();
    EXPECT_EQ(rows, QStringList{"Width"});
    FWindow->Inspector()->FilterBox()->clear();
    EXPECT_GT(Model()->rowCount(), 10);
    EXPECT_FALSE(Model()->Find("OnClick").isValid());
    EXPECT_TRUE(FWindow->Inspector()->Events()->Find("OnClick").isValid());
}

// Each way of changing a form is one step that undo takes back exactly and
// redo makes again.
TEST_F(TIdeEditingTest, EveryChangeUndoesAndRedoes)
{
    struct TCase {
        const char* Name;
        std::function<void(TIdeDesigner*, TQzDesignSurface*)> Change;
        std::function<bool(TIdeDesigner*)> Changed;
    };
    const auto bounds = [](TIdeDesigner* d, const char* name) { return QzControlBounds(d->GetComponent(name)); };
    const std::vector<TCase> cases = {
        {"drag moves",
         [](TIdeDesigner* d, TQzDesignSurface* s) {
             const QPoint at = s->SurfaceRect(d->GetComponent("ButtonSave")).center();
             QTest::mousePress(s, Qt::LeftButton, {}, at);
             QTest::mouseMove(s, at + QPoint(-40, -10));
             QTest::mouseRelease(s, Qt::LeftButton, {}, at + QPoint(-40, -10));
         },
         [=](TIdeDesigner* d) { return bounds(d, "ButtonSave").topLeft() == QPoint(296, 314); }},
        {"handle sizes",
         [](TIdeDesigner* d, TQzDesignSurface* s) {
             d->SelectComponent(d->GetComponent("ButtonSave"));
             const QPoint corner = s->SurfaceRect(d->GetComponent("ButtonSave")).bottomRight() + QPoint(1, 1);
             QTest::mousePress(s, Qt::LeftButton, {}, corner);
             QTest::mouseMove(s, corner + QPoint(20, 5));
             QTest::mouseRelease(s, Qt::LeftButton, {}, corner + QPoint(20, 5));
         },
         [=](TIdeDesigner* d) { return bounds(d, "ButtonSave") == QRect(336, 324, 95, 30); }},
        {"Ctrl+arrow moves by one",
         [](TIdeDesigner* d, TQzDesignSurface* s) {
             d->SelectComponent(d->GetComponent("EditCity"));
             QTest::keyClick(s, Qt::Key_Right, Qt::ControlModifier);
         },
         [=](TIdeDesigner* d) { return bounds(d, "EditCity").left() == 97; }},
        {"Shift+arrow sizes by one",
         [](TIdeDesigner* d, TQzDesignSurface* s) {
             d->SelectComponent(d->GetComponent("EditCity"));
             QTest::keyClick(s, Qt::Key_Down, Qt::ShiftModifier);
         },
         [=](TIdeDesigner* d) { return bounds(d, "EditCity").height() == 22; }},
        {"Del deletes with the contents",
         [](TIdeDesigner* d, TQzDesignSurface* s) {
             d->SelectComponent(d->GetComponent("PanelTop"));
             QTest::keyClick(s, Qt::Key_Delete);
         },
         [](TIdeDesigner* d) { return !d->GetComponent("PanelTop") && !d->GetComponent("LabelTitle"); }},
        {"palette adds a named component",
         [this](TIdeDesigner* d, TQzDesignSurface* s) {
             TQzPalette* palette = FWindow->Palette();
             QToolButton* button = palette->ButtonOf(FindClass("TQzLabel"));
             ASSERT_NE(button, nullptr);
             button->click();
             QTest::mouseClick(s, Qt::LeftButton, {}, s->SurfaceRect(d->GetComponent("SheetCustomer")).topLeft() + QPoint(20, 120));
             EXPECT_EQ(palette->SelectedClass(), nullptr);
             EXPECT_EQ(d->SelectedComponents().front(), d->GetComponent("QzLabel1"));
         },
         [](TIdeDesigner* d) {
             TComponent* added = d->GetComponent("QzLabel1");
             return added && added->GetParentComponent() == d->GetComponent("SheetCustomer") &&
                    QzControlBounds(added).topLeft() == QPoint(20, 120);
         }},
        {"double-click gives the main event a handler",
         [](TIdeDesigner* d, TQzDesignSurface* s) {
             QTest::mouseDClick(s, Qt::LeftButton, {}, s->SurfaceRect(d->GetComponent("ButtonCancel")).center());
         },
         [](TIdeDesigner* d) { return Prop(d->GetComponent("ButtonCancel"), "OnClick") == "ButtonCancelClick"; }},
    };
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.Name);
        TIdeDesigner* d = Main();
        TQzDesignSurface* s = Surface(d);
        d->SelectComponent(nullptr);
        const std::string before = d->Snapshot();
        const int steps = d->UndoStack()->index();
        c.Change(d, s);
        ASSERT_TRUE(c.Changed(d));
        const std::string after = d->Snapshot();
        EXPECT_EQ(d->UndoStack()->index(), steps + 1);
        FWindow->UndoGroup()->undo();
        EXPECT_EQ(d->Snapshot(), before);
        EXPECT_FALSE(c.Changed(d));
        FWindow->UndoGroup()->redo();
        EXPECT_EQ(d->Snapshot(), after);
        EXPECT_TRUE(c.Changed(d));
        FWindow->UndoGroup()->undo();
    }
}

TEST_F(TIdeEditingTest, SaveWritesChangedFormsInTheirFormatsWithBackups)
{
    const std::string mainBefore = ReadBytes(Path("Main.dfm"));
    const std::string aboutBefore = ReadBytes(Path("About.dfm"));
    const std::string optionsBefore = ReadBytes(Path("Options.dfm"));

    Select({"LabelCity"});
    ASSERT_TRUE(Model()->setData(Model()->Find("Top").siblingAtColumn(1), "56"));
    TIdeDesigner* about = FWindow->ShowForm(1);
    ASSERT_NE(about, nullptr);
    about->SelectComponent(about->GetComponent("LabelVersion"));
    ASSERT_TRUE(Model()->setData(Model()->Find("Text").siblingAtColumn(1), "Version 1.1"));
    FWindow->ShowForm(2);   // open, unchanged

    EXPECT_EQ(FWindow->SaveAll(), 2);
    // Text stays text: only the changed line differs, line breaks kept.
    const std::string mainAfter = ReadBytes(Path("Main.dfm"));
    EXPECT_EQ(ChangedLines(mainBefore, mainAfter), std::vector<std::string>{"        Top = 56"});
    EXPECT_EQ(ReadBytes(Path("Main.~dfm")), mainBefore);
    // A compiled resource stays one; read as text, one line changed.
    const std::string aboutAfter = ReadBytes(Path("About.dfm"));
    EXPECT_EQ(DetectFormFormat(aboutAfter), TFormFormat::Resource);
    EXPECT_EQ(ChangedLines(FormToText(aboutBefore), FormToText(aboutAfter)),
              std::vector<std::string>{"    Text = 'Version 1.1'"});
    EXPECT_EQ(ReadBytes(Path("About.~dfm")), aboutBefore);
    // The unchanged form is not written.
    EXPECT_EQ(ReadBytes(Path("Options.dfm")), optionsBefore);
    EXPECT_FALSE(QFile::exists(Path("Options.~dfm")));
    EXPECT_FALSE(Main()->IsModified());
    EXPECT_FALSE(FWindow->FormTabs()->tabText(0).endsWith('*'));
}

// Closing a changed form asks: Cancel keeps it open, No forgets the
// changes, Yes saves them.
TEST_F(TIdeEditingTest, ClosingAChangedFormAsks)
{
    struct TCase {
        TMsgDlgBtn Answer;
        bool Closed;
        bool Saved;
    };
    const std::string original = ReadBytes(Path("Options.dfm"));
    for (const TCase& c : {TCase{mbCancel, false, false}, TCase{mbNo, true, false}, TCase{mbYes, true, true}}) {
        SCOPED_TRACE(c.Answer);
        TIdeDesigner* d = FWindow->ShowForm(2);
        ASSERT_NE(d, nullptr);
        d->SelectComponent(d->GetComponent("ButtonOk"));
        if (!d->IsModified()) {
            ASSERT_TRUE(Model()->setData(Model()->Find("Left").siblingAtColumn(1), "200"));
        }
        FDialogs->Script().AnswerMessage(c.Answer);
        EXPECT_EQ(FWindow->CloseForm(2), c.Closed);
        ASSERT_EQ(FDialogs->Script().Calls().back().Message.Type, mtConfirmation);
        EXPECT_NE(FDialogs->Script().Calls().back().Message.Text.find("Options.dfm"), AnsiString::npos);
        EXPECT_EQ(FWindow->Project()->Designer(2) == nullptr, c.Closed);
        EXPECT_EQ(ReadBytes(Path("Options.dfm")) != original, c.Saved);
    }
}
