// The host keeps the user's work: a project that fails to open leaves the
// one open as it was, saving what did not change gives the file back, the
// modified marker follows undo, the status bar follows the selection, both
// redo keys redo, and the runtime's design hooks are installed.

#include "IdeFixture.h"

#include "ide/QzDesignSurface.h"
#include "ide/QzFormClipboard.h"
#include "designide/forms/QzIdeProject.h"
#include "ide/QzInspector.h"

#include "designide/QzPortDsgn.h"

#include "runtime/components/Controls.h"
#include "runtime/model/QzGlobals.h"
#include "runtime/util/QzDesigner.h"

#include "rtl/FormText.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QMenuBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QTabWidget>
#include <QTest>
#include <QUndoStack>

#include <map>
#include <set>

namespace {

QAction* MenuAction(QMainWindow& window, const QString& text)
{
    for (QAction* action : window.findChildren<QAction*>())
        if (action->text() == text)
            return action;
    ADD_FAILURE() << "no action " << text.toStdString();
    return nullptr;
}

}  // namespace

class TIdeKeepsWorkTest : public TIdeTest {
protected:
    // Changes a property of a component of the main form through the inspector.
    void SetProperty(const char* component, const char* property, const QString& value)
    {
        Select({component});
        TQzInspectorModel* model = FWindow->Inspector()->Properties();
        ASSERT_TRUE(model->setData(model->Find(property).siblingAtColumn(1), value));
    }
    bool MainTabMarked() const { return FWindow->FormTabs()->tabText(0).endsWith('*'); }
    QString Status() const { return FWindow->statusBar()->currentMessage(); }
};

// Open Project, from a project file, a folder or a form file: when the new
// one cannot be read, or the user keeps the old one, nothing changes.
TEST_F(TIdeKeepsWorkTest, AProjectIsReplacedOnlyWhenTheNewOneLoads)
{
    QTemporaryDir other;
    WriteBytes(other.filePath("Bad.bpr"), "<PROJECT>\n  <FILELIST>\n    <FILE FILENAME=\"Unit1.cpp\n");
    QDir(other.path()).mkdir("forms");
    WriteBytes(other.filePath("forms/Lone.dfm"), "object Lone: TQzCForm\r\n  Caption = 'Lone'\r\nend\r\n");
    WriteBytes(other.filePath("forms/Two.dfm"), "object Two: TQzCForm\r\nend\r\n");
    struct TCase {
        const char* Name;
        const char* Menu;
        QString Path;
        TMsgDlgBtn SaveAnswer;     // to "Save changes to Main.dfm?"
        int Forms;                  // of the new project; 0: the old one stays
        const char* Message;        // what the error names
    };
    const std::vector<TCase> cases = {
        {"missing", "&Open Project...", other.filePath("Nowhere.bpr"), mbNo, 0, "Nowhere.bpr"},
        {"bad project file", "&Open Project...", other.filePath("Bad.bpr"), mbNo, 0, "Bad.bpr: line 3"},
        {"user keeps the old", "Open &Folder...", other.filePath("forms"), mbCancel, 0, nullptr},
        {"form file", "&Open Project...", other.filePath("forms/Lone.dfm"), mbNo, 1, nullptr},
        {"folder of forms", "Open &Folder...", other.filePath("forms"), mbNo, 2, nullptr},
    };
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.Name);
        ASSERT_TRUE(FWindow->OpenProject(Path("DemoApp.bpr")));
        SetProperty("ButtonSave", "Left", "200");
        TIdeProject* before = FWindow->Project();
        TIdeDesigner* main = Main();
        if (QString(c.Menu) == "Open &Folder...")
            FDialogs->Script().AnswerFolder(c.Path.toStdString());
        else
            FDialogs->Script().AnswerOpen({c.Path.toStdString()});
        if (c.Message)
            FDialogs->Script().AnswerMessage(mbOK);
        else
            FDialogs->Script().AnswerMessage(c.SaveAnswer);
        MenuAction(*FWindow, c.Menu)->trigger();
        EXPECT_TRUE(FDialogs->Script().Pending().empty());
        EXPECT_TRUE(FDialogs->Script().Failures().empty());
        if (c.Message) {
            const AnsiString text = FDialogs->Script().Calls().back().Message.Text;
            EXPECT_NE(text.find(c.Message), AnsiString::npos) << text;
        }
        if (c.Forms == 0) {
            EXPECT_EQ(FWindow->Project(), before);
            EXPECT_EQ(Main(), main);
            EXPECT_TRUE(main->IsModified());
            EXPECT_EQ(FWindow->FormTabs()->count(), 1);
            EXPECT_EQ(GetProjectServices(), &before->Services());
        } else {
            ASSERT_NE(FWindow->Project(), nullptr);
            EXPECT_EQ(FWindow->Project()->FormCount(), c.Forms);
            EXPECT_EQ(GetProjectServices(), &FWindow->Project()->Services());
        }
        for (TIdeDesigner* d : FWindow->Project()->OpenDesigners())
            d->Form().ClearModified();
    }
}

// Every form of the demo, opened and saved without a change, is the file
// it was, text or compiled resource.
TEST_F(TIdeKeepsWorkTest, FormsSavedUnchangedAreTheFilesTheyWere)
{
    for (int i = 0; i < FWindow->Project()->FormCount(); ++i) {
        const QString file = QString::fromStdString(FWindow->Project()->FormName(i));
        const std::string before = ReadBytes(file);
        TIdeDesigner* d = FWindow->ShowForm(i);
        ASSERT_NE(d, nullptr) << file.toStdString();
        ASSERT_TRUE(FWindow->SaveCurrent());
        EXPECT_TRUE(ReadBytes(file) == before) << file.toStdString();
    }
}

// The modified marker says whether the form differs from its file: undoing
// back to the state read or saved clears it, redoing away sets it again.
TEST_F(TIdeKeepsWorkTest, UndoBackToTheSavedStateIsNotAChange)
{
    QUndoStack* undo = Main()->UndoStack();
    SetProperty("ButtonSave", "Left", "200");
    SetProperty("ButtonSave", "Top", "20");
    struct TStep {
        const char* Name;
        std::function<void()> Run;
        bool Modified;
    };
    const std::vector<TStep> steps = {
        {"undo one", [&] { undo->undo(); }, true},
        {"undo to the file", [&] { undo->undo(); }, false},
        {"redo", [&] { undo->redo(); }, true},
        {"save", [&] { ASSERT_TRUE(FWindow->SaveCurrent()); }, false},
        {"undo past the save", [&] { undo->undo(); }, true},
        {"redo to the save", [&] { undo->redo(); }, false},
        {"redo beyond", [&] { undo->redo(); }, true},
    };
    for (const TStep& step : steps) {
        step.Run();
        EXPECT_EQ(Main()->IsModified(), step.Modified) << step.Name;
        EXPECT_EQ(MainTabMarked(), step.Modified) << step.Name;
    }
}

// Ctrl+Y redoes, as the IDE's users expect, and so does Ctrl+Shift+Z.
TEST_F(TIdeKeepsWorkTest, BothRedoKeysRedo)
{
    FWindow->show();
    QApplication::setActiveWindow(FWindow.get());
    ASSERT_TRUE(QTest::qWaitForWindowActive(FWindow.get()));
    QUndoStack* undo = Main()->UndoStack();
    SetProperty("ButtonSave", "Left", "200");
    for (const QKeyCombination key : {Qt::CTRL | Qt::Key_Y, Qt::CTRL | Qt::SHIFT | Qt::Key_Z}) {
        QTest::keyClick(FWindow->FormTabs()->currentWidget(), Qt::Key_Z, Qt::ControlModifier);
        ASSERT_EQ(undo->index(), 0);
        QTest::keyClick(FWindow->FormTabs()->currentWidget(), key.key(), key.keyboardModifiers());
        EXPECT_EQ(undo->index(), 1) << QKeySequence(key).toString().toStdString();
    }
}

// The status bar tells the selected component's bounds as they are, and
// nothing of a component that is gone.
TEST_F(TIdeKeepsWorkTest, StatusBarFollowsTheSelection)
{
    Select({"ButtonSave"});
    EXPECT_TRUE(Status().startsWith("ButtonSave: TQzBitBtn")) << Status().toStdString();
    SetProperty("ButtonSave", "Left", "211");
    EXPECT_TRUE(Status().contains("(211, ")) << Status().toStdString();
    Main()->DeleteComponents(Main()->SelectedComponents());
    EXPECT_FALSE(Status().contains("ButtonSave")) << Status().toStdString();
    EXPECT_FALSE(Status().contains("(211, ")) << Status().toStdString();
    Main()->UndoStack()->undo();
    Select({"ButtonSave"});
    Main()->UndoStack()->redo();
    EXPECT_FALSE(Status().contains("ButtonSave")) << Status().toStdString();
}

// Pasted copies come last in their new parent's tab sequence, in the order
// pasted; the originals keep their places.
TEST_F(TIdeKeepsWorkTest, PastedCopiesComeLastInTheTabOrder)
{
    const auto order = [&](const char* name) { return dynamic_cast<TWinControl*>(Find(name))->TabOrder(); };
    const auto sheet = dynamic_cast<TWinControl*>(Find("SheetCustomer"));
    std::map<AnsiString, Integer> before;
    for (TWinControl* c : sheet->TabList())
        before[c->Name()] = c->TabOrder();
    ASSERT_GE(before.size(), 2u);
    Select({"EditName", "EditCity"});
    const std::string text = QzCopyText(*Main(), Main()->SelectedComponents());
    Select({"CheckActive"});   // pasted beside it, on the sheet
    const std::vector<TComponent*> pasted = QzPasteText(*Main(), text);
    ASSERT_EQ(pasted.size(), 2u);
    Integer last = -1;
    for (const auto& [name, tabOrder] : before)
        last = std::max(last, tabOrder);
    const Integer first = dynamic_cast<TWinControl*>(pasted[0])->TabOrder();
    EXPECT_GT(first, last);
    EXPECT_EQ(dynamic_cast<TWinControl*>(pasted[1])->TabOrder(), first + 1);
    for (const auto& [name, tabOrder] : before)
        EXPECT_EQ(order(name.c_str()), tabOrder) << name;
}

// While the host runs, the runtime is in design mode, and the runtime's
// broadcast tells open package windows when a form changed.
TEST_F(TIdeKeepsWorkTest, TheRuntimesDesignHooksAreInstalled)
{
    EXPECT_TRUE(QzDesignMode);
    std::vector<int> messages;
    const int listener = AddQzFormsListener([&](int message) { messages.push_back(message); });
    SetProperty("PkgStrings", "PkgName", "OTHER");
    RemoveQzFormsListener(listener);
    ASSERT_FALSE(messages.empty());
    EXPECT_EQ(messages.front(), QzMasterMessage);

    // A window that goes gives the runtime back as it found it.
    {
        TQzMainWindow second;
        EXPECT_TRUE(QzDesignMode);
    }
    EXPECT_TRUE(QzDesignMode);
    FWindow.reset();
    EXPECT_FALSE(QzDesignMode);
    FWindow = std::make_unique<TQzMainWindow>();
    ASSERT_TRUE(FWindow->OpenProject(Path("DemoApp.bpr")));
}

// A package editor changes its package in place and tells the designer
// through the runtime's hook: that marks the form, and the change is a step
// of its own, so no undo takes it back unseen and undoing it returns to the
// saved form.
TEST_F(TIdeKeepsWorkTest, APackageEditorsChangeIsAStepOfItsOwn)
{
    SetProperty("PkgStrings", "PkgName", "SAVED");
    QUndoStack* undo = Main()->UndoStack();
    ASSERT_EQ(undo->count(), 1);
    Main()->Save();

    auto* strings = Find("PkgStrings");
    SetStrProp(strings, "PkgName", "EDITED");
    QzDesignerModified(strings->Owner());
    EXPECT_TRUE(Main()->IsModified());
    EXPECT_TRUE(MainTabMarked());
    ASSERT_EQ(undo->count(), 2);
    EXPECT_EQ(undo->undoText(), "Package Change");

    undo->undo();
    EXPECT_EQ(GetStrProp(Find("PkgStrings"), "PkgName"), "SAVED");
    EXPECT_FALSE(Main()->IsModified());
    undo->redo();
    EXPECT_EQ(GetStrProp(Find("PkgStrings"), "PkgName"), "EDITED");
    EXPECT_TRUE(Main()->IsModified());
}

// A form of foreign classes larger than any window: a panel whose edit
// reaches past its right side, and labels whose captions mark mnemonics.
class TIdeLargeFormTest : public TIdeTest {
protected:
    void SetUp() override
    {
        TIdeTest::SetUp();
        WriteBytes(FOther.filePath("Big.dfm"),
                   "object Big: TForm\r\n  ClientWidth = 3000\r\n  ClientHeight = 2000\r\n"
                   "  object Panel1: TPanel\r\n    Left = 8\r\n    Top = 8\r\n    Width = 100\r\n    Height = 60\r\n"
                   "    object Edit1: TEdit\r\n      Left = 60\r\n      Top = 20\r\n      Width = 200\r\n      Height = 21\r\n"
                   "    end\r\n  end\r\n"
                   "  object Label1: TLabel\r\n    Left = 8\r\n    Top = 100\r\n    Width = 80\r\n    Height = 16\r\n"
                   "    Caption = '&Save'\r\n  end\r\n"
                   "  object Label2: TLabel\r\n    Left = 8\r\n    Top = 132\r\n    Width = 80\r\n    Height = 16\r\n"
                   "    Caption = 'Save'\r\n  end\r\nend\r\n");
        ASSERT_TRUE(FWindow->OpenProject(FOther.path()));
        ASSERT_NE(Big(), nullptr);
    }
    TIdeDesigner* Big() const { return FWindow->Project()->Designer(0); }
    QImage Painted() const { return Surface(Big())->grab().toImage(); }
    QRect Rect(const char* name) const { return Surface(Big())->SurfaceRect(Big()->GetComponent(name)); }

    QTemporaryDir FOther;
};

TEST_F(TIdeLargeFormTest, AFormLargerThanTheWindowScrollsIntoView)
{
    FWindow->resize(900, 600);
    FWindow->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(FWindow.get()));
    auto* scroll = qobject_cast<QScrollArea*>(FWindow->FormTabs()->currentWidget());
    ASSERT_NE(scroll, nullptr);
    EXPECT_GE(Surface(Big())->width(), 3000);
    EXPECT_GE(Surface(Big())->height(), 2000);
    scroll->ensureVisible(Surface(Big())->width() - 1, Surface(Big())->height() - 1);
    EXPECT_GT(scroll->horizontalScrollBar()->value(), 2000);
    EXPECT_GT(scroll->verticalScrollBar()->value(), 1000);
}

TEST_F(TIdeLargeFormTest, ChildrenAreDrawnOnlyInsideTheirParent)
{
    const QImage image = Painted();
    const QRect panel = Rect("Panel1");
    const QRect edit = Rect("Edit1");
    ASSERT_GT(edit.right(), panel.right() + 20);
    const QColor white = QApplication::palette().color(QPalette::Base);
    // Inside the panel the edit's white shows; past the panel's side, the form.
    EXPECT_EQ(image.pixelColor(panel.right() - 4, edit.center().y()), white);
    for (int x = panel.right() + 2; x < edit.right(); x += 7)
        EXPECT_NE(image.pixelColor(x, edit.center().y()), white) << x;
}

TEST_F(TIdeLargeFormTest, AnAmpersandUnderlinesTheNextCharacter)
{
    const QImage image = Painted();
    const QRect marked = Rect("Label1");
    const QRect plain = Rect("Label2");
    // The two captions differ only by the line under the S: a few pixel rows.
    std::set<int> rows;
    for (int y = 0; y < marked.height(); ++y)
        for (int x = 0; x < marked.width(); ++x)
            if (image.pixel(marked.left() + x, marked.top() + y) != image.pixel(plain.left() + x, plain.top() + y))
                rows.insert(y);
    ASSERT_FALSE(rows.empty()) << "no underline";
    EXPECT_LE(*rows.rbegin() - *rows.begin(), 2);
    EXPECT_GT(*rows.begin(), marked.height() / 2);
}
