// Cut, copy and paste of components: the text the clipboard gets, pasting
// within a form and into another one (names, references, containers,
// offsets), text from elsewhere, text that is no components, classes that
// are not registered, and the menus that offer it all.

#include "IdeFixture.h"

#include "ide/QzControlLook.h"
#include "ide/QzDesignSurface.h"
#include "ide/QzFormClipboard.h"

#include "runtime/components/QzPages.h"

#include "rtl/ComponentStream.h"
#include "rtl/TypInfo.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QTest>
#include <QUndoStack>
#include <map>

namespace {

// A component's block as the form file has it, found by its indentation,
// moved to the left margin and with line feeds alone.
std::string FileBlock(const std::string& file, const std::string& name)
{
    std::string text;
    for (char c : file)
        if (c != '\r')
            text += c;
    const size_t start = text.find("object " + name + ":");
    const size_t lineStart = text.rfind('\n', start) + 1;
    const std::string indent(start - lineStart, ' ');
    const size_t end = text.find("\n" + indent + "end\n", start) + indent.size() + 5;
    std::string block;
    for (size_t at = lineStart; at < end;) {
        const size_t next = text.find('\n', at) + 1;
        block += text.substr(at + indent.size(), next - at - indent.size());
        at = next;
    }
    return block;
}

std::string ClipboardText() { return QGuiApplication::clipboard()->text().toStdString(); }

TComponent* Ref(TComponent* c, const char* property) { return dynamic_cast<TComponent*>(GetObjectProp(c, property)); }

}  // namespace

class TIdeClipboardTest : public TIdeTest {
protected:
    std::vector<AnsiString> Pasted(TIdeDesigner* d, const std::string& text)
    {
        std::vector<AnsiString> names;
        for (TComponent* c : QzPasteText(*d, text))
            names.push_back(c->Name());
        return names;
    }
    std::vector<AnsiString> SelectedNames(TIdeDesigner* d) const
    {
        std::vector<AnsiString> names;
        for (TComponent* c : d->SelectedComponents())
            names.push_back(c->Name());
        return names;
    }
};

TEST_F(TIdeClipboardTest, CopyPutsTheFormTextOfTheSelectionOnTheClipboard)
{
    const std::string file = ReadBytes(Path("Main.dfm"));
    const std::string before = Main()->Snapshot();
    // The label goes once, inside its panel; order is the form's.
    Select({"ButtonSave", "LabelTitle", "PanelTop"});
    ASSERT_TRUE(QzCopySelection(*Main()));
    const std::string expected = FileBlock(file, "PanelTop") + FileBlock(file, "ButtonSave");
    EXPECT_EQ(ClipboardText(), expected);
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    ASSERT_TRUE(data->hasFormat(QzComponentsMimeType));
    EXPECT_EQ(data->data(QzComponentsMimeType).toStdString(), expected);
    EXPECT_EQ(Main()->Snapshot(), before);
    EXPECT_EQ(Main()->UndoStack()->count(), 0);

    // The form itself is not copied; the clipboard keeps what it had.
    Main()->SelectComponent(nullptr);
    EXPECT_FALSE(QzCopySelection(*Main()));
    EXPECT_EQ(ClipboardText(), expected);
}

TEST_F(TIdeClipboardTest, PasteBesideTheOriginalRenamesRetargetsAndOffsets)
{
    TIdeDesigner* d = Main();
    const std::string original = d->Snapshot();
    Select({"Pages"});
    ASSERT_TRUE(QzCopySelection(*d));
    EXPECT_EQ(Pasted(d, ClipboardText()), std::vector<AnsiString>{"Pages1"});
    EXPECT_EQ(SelectedNames(d), std::vector<AnsiString>{"Pages1"});

    TComponent* pages = d->GetComponent("Pages1");
    TComponent* sheet = d->GetComponent("SheetCustomer1");
    ASSERT_TRUE(pages && sheet && d->GetComponent("SheetNotes1") && d->GetComponent("MemoNotes1"));
    EXPECT_EQ(pages->GetParentComponent(), d->GetRoot());
    EXPECT_EQ(d->GetComponent("EditCity1")->GetParentComponent(), sheet);
    EXPECT_EQ(Ref(pages, "ActivePage"), sheet);
    EXPECT_EQ(Ref(d->GetComponent("Pages"), "ActivePage"), d->GetComponent("SheetCustomer"));
    // References inside collection items follow too.
    const std::string text = d->Form().FormText();
    EXPECT_NE(text.find("TabSheet = SheetNotes1\r\n"), std::string::npos);
    EXPECT_EQ(QzControlBounds(pages), QzControlBounds(d->GetComponent("Pages")).translated(8, 8));

    // Pasting again lands on the original and on the first copy: it moves on.
    EXPECT_EQ(Pasted(d, ClipboardText()), std::vector<AnsiString>{"Pages2"});
    EXPECT_EQ(QzControlBounds(d->GetComponent("Pages2")).topLeft(), QPoint(24, 64));

    ASSERT_EQ(d->UndoStack()->count(), 2);
    EXPECT_EQ(d->UndoStack()->text(1), "Paste Pages2");
    d->UndoStack()->undo();
    d->UndoStack()->undo();
    EXPECT_EQ(d->Snapshot(), original);
}

TEST_F(TIdeClipboardTest, PastedAlignedControlsTakeTheirPlaceInLine)
{
    TIdeDesigner* d = Main();
    Select({"PanelTop"});
    ASSERT_TRUE(QzCopySelection(*d));
    d->SelectComponent(nullptr);   // onto the form, not into the panel
    ASSERT_EQ(Pasted(d, ClipboardText()), std::vector<AnsiString>{"PanelTop1"});
    // Below the first top bar, across the whole client width.
    EXPECT_EQ(QzControlBounds(d->GetComponent("PanelTop")), QRect(0, 0, 512, 41));
    EXPECT_EQ(QzControlBounds(d->GetComponent("PanelTop1")), QRect(0, 41, 512, 41));
    // Unaligned neighbours stay where they were.
    EXPECT_EQ(QzControlBounds(d->GetComponent("Pages")).topLeft(), QPoint(8, 48));
    // Undo takes the bar away as one step, redo brings it back in line.
    d->UndoStack()->undo();
    EXPECT_EQ(d->GetComponent("PanelTop1"), nullptr);
    d->UndoStack()->redo();
    EXPECT_EQ(QzControlBounds(d->GetComponent("PanelTop1")), QRect(0, 41, 512, 41));
}

TEST_F(TIdeClipboardTest, SheetsArePastedOntoAPageControlWithATabOfTheirOwn)
{
    TIdeDesigner* d = Main();
    const std::string original = d->Snapshot();
    Select({"SheetNotes"});
    ASSERT_TRUE(QzCopySelection(*d));
    const std::string copied = ClipboardText();

    // Nowhere else: the form stays as it was.
    for (const char* selected : {"ButtonSave", "PanelTop"}) {
        d->SelectComponent(d->GetComponent(selected));
        FDialogs->Script().AnswerMessage(mbOK);
        EXPECT_TRUE(Pasted(d, copied).empty());
        ASSERT_FALSE(FDialogs->Script().Calls().empty());
        EXPECT_EQ(FDialogs->Script().Calls().back().Message.Text,
                  "A TQzTabSheet can be pasted only onto a TQzCustomPageControl: select one, or one of its pages, first.");
        EXPECT_EQ(d->Snapshot(), original);
    }

    // The page control itself, or anything on one of its pages.
    for (const char* selected : {"Pages", "EditName"}) {
        SCOPED_TRACE(selected);
        d->SelectComponent(d->GetComponent(selected));
        ASSERT_EQ(Pasted(d, copied), std::vector<AnsiString>{"SheetNotes1"});
        auto* pages = static_cast<TQzCustomPageControl*>(d->GetComponent("Pages"));
        auto* sheet = static_cast<TQzTabSheet*>(d->GetComponent("SheetNotes1"));
        ASSERT_EQ(sheet->PageControl(), pages);
        ASSERT_EQ(pages->PageCount(), 3);
        EXPECT_EQ(pages->IndexOfSheet(sheet), 2);
        EXPECT_EQ(pages->ActivePage(), sheet);
        EXPECT_EQ(QzControlBounds(sheet), QRect(4, 24, 480, 232));   // the frame beside the tabs
        EXPECT_EQ(d->GetComponent("MemoNotes1")->GetParentComponent(), sheet);
        d->UndoStack()->undo();
        EXPECT_EQ(d->Snapshot(), original);
    }
}

TEST_F(TIdeClipboardTest, PasteGoesIntoTheSelectedContainer)
{
    TIdeDesigner* d = Main();
    Select({"ButtonSave", "PkgImages"});
    ASSERT_TRUE(QzCopySelection(*d));
    const std::string copied = ClipboardText();
    struct TCase {
        const char* Selected;   // nullptr: the form
        const char* Parent;     // of the pasted button; nullptr: the form
    };
    for (const TCase& c : {TCase{"PanelTop", "PanelTop"}, TCase{"SheetNotes", "SheetNotes"},
                           TCase{"EditName", "SheetCustomer"}, TCase{"PkgStrings", nullptr}, TCase{nullptr, nullptr}}) {
        SCOPED_TRACE(c.Selected ? c.Selected : "form");
        d->SelectComponent(c.Selected ? d->GetComponent(c.Selected) : nullptr);
        const std::vector<AnsiString> names = Pasted(d, copied);
        ASSERT_EQ(names, (std::vector<AnsiString>{"PkgImages1", "ButtonSave1"}));
        TComponent* button = d->GetComponent("ButtonSave1");
        EXPECT_EQ(button->GetParentComponent(), c.Parent ? d->GetComponent(c.Parent) : d->GetRoot());
        // Away from the original it keeps its place; on the form it moves.
        EXPECT_EQ(QzControlBounds(button).topLeft(), c.Parent ? QPoint(336, 324) : QPoint(344, 332));
        // Non-visual components belong to the form wherever the paste goes.
        EXPECT_EQ(d->GetComponent("PkgImages1")->GetParentComponent(), d->GetRoot());
        d->UndoStack()->undo();
    }
}

TEST_F(TIdeClipboardTest, PasteIntoAnotherFormKeepsFreeNamesAndDropsDanglingReferences)
{
    SetObjectProp(Find("LabelName"), GetPropInfo(Find("LabelName"), "FocusControl"), Find("EditName"));
    Select({"LabelName", "EditName"});
    ASSERT_TRUE(QzCopySelection(*Main()));
    const std::string both = ClipboardText();
    Select({"LabelCity"});
    SetObjectProp(Find("LabelCity"), GetPropInfo(Find("LabelCity"), "FocusControl"), Find("EditCity"));
    ASSERT_TRUE(QzCopySelection(*Main()));
    const std::string labelOnly = ClipboardText();

    TIdeDesigner* options = FWindow->ShowForm(2);
    ASSERT_NE(options, nullptr);
    EXPECT_EQ(Pasted(options, both), (std::vector<AnsiString>{"LabelName", "EditName"}));
    EXPECT_EQ(Ref(options->GetComponent("LabelName"), "FocusControl"), options->GetComponent("EditName"));
    EXPECT_EQ(Pasted(options, both), (std::vector<AnsiString>{"LabelName1", "EditName1"}));
    EXPECT_EQ(Ref(options->GetComponent("LabelName1"), "FocusControl"), options->GetComponent("EditName1"));
    EXPECT_EQ(QzControlBounds(options->GetComponent("EditName1")).topLeft(), QPoint(104, 24));

    // The label's control is not in this form: the reference goes.
    EXPECT_EQ(Pasted(options, labelOnly), std::vector<AnsiString>{"LabelCity"});
    EXPECT_EQ(Ref(options->GetComponent("LabelCity"), "FocusControl"), nullptr);
    EXPECT_EQ(options->Form().FormText().find("EditCity"), std::string::npos);

    EXPECT_EQ(options->UndoStack()->count(), 3);
    EXPECT_EQ(Main()->UndoStack()->count(), 0);
    options->UndoStack()->setIndex(0);
    EXPECT_EQ(options->Form().FormText(), ReadBytes(Path("Options.dfm")));
}

TEST_F(TIdeClipboardTest, PlainTextFromElsewhereAndUnregisteredClasses)
{
    TIdeDesigner* d = Main();
    // As typed in an editor: its own indentation and case, two blocks.
    QGuiApplication::clipboard()->setText("\nOBJECT Note: TQzEdit Left = 10 Top = 200\n"
                                          "      Value = 'Pasted ' + 'here'\n End\n"
                                          "object Gadget1: TGadget\n  Left = 20\n  Top = 30\n"
                                          "  Width = 50\n  Height = 20\n  Flavour = <\n    item\n"
                                          "      Kind = Note\n    end>\n  end\n");
    EXPECT_EQ(QzPasteClipboard(*d).size(), 2u);
    EXPECT_EQ(SelectedNames(d), (std::vector<AnsiString>{"Note", "Gadget1"}));
    EXPECT_EQ(VarToStr(GetPropValue(d->GetComponent("Note"), "Value")), "Pasted here");
    EXPECT_EQ(d->UndoStack()->count(), 1);

    // The unknown class is kept as the form file would keep it, and moves
    // off its first copy like any other.
    TComponent* gadget = d->GetComponent("Gadget1");
    EXPECT_EQ(StreamedClassName(gadget), "TGadget");
    EXPECT_TRUE(QzIsControl(gadget));
    EXPECT_NE(d->Form().FormText().find("        Kind = Note\r\n"), std::string::npos);
    Select({"Gadget1"});
    ASSERT_TRUE(QzCopySelection(*d));
    EXPECT_EQ(Pasted(d, ClipboardText()), std::vector<AnsiString>{"Gadget2"});
    EXPECT_EQ(QzControlBounds(d->GetComponent("Gadget2")), QRect(28, 38, 50, 20));
}

// Whatever cannot be pasted is said so and the form stays as it was.
TEST_F(TIdeClipboardTest, TextThatIsNoComponentsChangesNothing)
{
    struct TCase {
        const char* Text;
        const char* Message;
    };
    const TCase cases[] = {
        {"", "holds no components"},
        {"Dear diary, today I copied a button.", "holds no components"},
        {"  \n\n  ", "holds no components"},
        {"object Label9: TQzLabel\n  Left = 8\n", "line 3: 'end' expected"},
        {"object Label9: TQzLabel\n  Left = =\nend\n", "line 2: Invalid property value"},
        {"object Label9: TQzLabel\nend\nand more words\n", "line 3: 'object' expected"},
        {"object Label9: TQzLabel\n  Data = {0F0}\nend\n", "line 2: Invalid binary value"},
        // The reader refuses a second application in the project.
        {"object App2: TQzCApplication\nend\n", "one TQzCApplication only"},
    };
    TIdeDesigner* d = Main();
    // A change made before stays a change: the form still asks to be saved.
    d->Change("Move", [&] {
        QzSetControlBounds(Find("EditCity"), QRect(90, 48, 240, 21));
        d->Modified();
    });
    const std::string before = d->Snapshot();
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.Text);
        FDialogs->Script().AnswerMessage(mbOK);
        QGuiApplication::clipboard()->setText(c.Text);
        EXPECT_TRUE(QzPasteClipboard(*d).empty());
        ASSERT_FALSE(FDialogs->Script().Calls().empty());
        EXPECT_EQ(FDialogs->Script().Calls().back().Message.Type, mtError);
        EXPECT_NE(FDialogs->Script().Calls().back().Message.Text.find(c.Message), AnsiString::npos)
            << FDialogs->Script().Calls().back().Message.Text;
        EXPECT_EQ(d->Snapshot(), before);
        EXPECT_EQ(d->UndoStack()->count(), 1);
        EXPECT_TRUE(d->IsModified());
    }
}

TEST_F(TIdeClipboardTest, CutIsOneStepAndPastesBackInPlace)
{
    TIdeDesigner* d = Main();
    const std::string original = d->Snapshot();
    Select({"ButtonCancel"});
    ASSERT_TRUE(QzCutSelection(*d));
    EXPECT_EQ(d->GetComponent("ButtonCancel"), nullptr);
    EXPECT_EQ(ClipboardText(), FileBlock(ReadBytes(Path("Main.dfm")), "ButtonCancel"));
    ASSERT_EQ(d->UndoStack()->count(), 1);
    EXPECT_EQ(d->UndoStack()->text(0), "Cut ButtonCancel");
    // The name is free again and nothing lies on its place.
    EXPECT_EQ(Pasted(d, ClipboardText()), std::vector<AnsiString>{"ButtonCancel"});
    EXPECT_EQ(QzControlBounds(d->GetComponent("ButtonCancel")), QRect(421, 324, 75, 25));
    d->UndoStack()->undo();
    d->UndoStack()->undo();
    EXPECT_EQ(d->Snapshot(), original);
}

TEST_F(TIdeClipboardTest, KeysEditMenuAndContextMenuOfferTheClipboard)
{
    QMenu* edit = nullptr;
    for (QAction* a : FWindow->menuBar()->actions())
        if (a->text() == "&Edit")
            edit = a->menu();
    ASSERT_NE(edit, nullptr);
    std::map<QString, QAction*> actions;
    for (QAction* a : edit->actions())
        actions[a->text().remove('&')] = a;
    for (const char* name : {"Cut", "Copy", "Paste", "Delete", "Select All"})
        ASSERT_TRUE(actions.count(name)) << name;
    Main()->SelectComponent(nullptr);
    EXPECT_FALSE(actions["Copy"]->isEnabled());
    EXPECT_TRUE(actions["Paste"]->isEnabled());

    // The keys pressed on the designer reach the window's commands.
    FWindow->show();
    FWindow->activateWindow();
    QCoreApplication::processEvents();
    TQzDesignSurface* s = Surface(Main());
    s->setFocus();
    Select({"CheckActive"});
    EXPECT_TRUE(actions["Cut"]->isEnabled());
    QTest::keyClick(s, Qt::Key_C, Qt::ControlModifier);
    QTest::keyClick(s, Qt::Key_V, Qt::ControlModifier);
    ASSERT_NE(Main()->GetComponent("CheckActive1"), nullptr);
    EXPECT_EQ(Main()->GetComponent("CheckActive1")->GetParentComponent(), Find("SheetCustomer"));
    QTest::keyClick(s, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Main()->SelectedComponents().size(), 7u);

    // The surface's menu over a control: its verbs, then the same commands.
    QMenu menu;
    Surface(Main())->FillContextMenu(menu, Find("EditCity"));
    QStringList texts;
    for (QAction* a : menu.actions())
        if (!a->isSeparator())
            texts << a->text().remove('&');
    const QStringList commands{"Cut", "Copy", "Paste", "Delete", "Select All"};
    EXPECT_EQ(texts.mid(texts.size() - commands.size()), commands) << texts.join(", ").toStdString();
    EXPECT_FALSE(Surface(Main())->ExecuteVerb(Find("EditCity"), 99)) << "no such verb";
    Select({"EditCity"});
    for (QAction* a : menu.actions())
        if (a->text().remove('&') == "Cut")
            a->trigger();
    EXPECT_EQ(Main()->GetComponent("EditCity"), nullptr);
}
