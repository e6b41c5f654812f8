// The menus editor: shortcuts by name, the rules that keep a menu's tree
// whole (nothing moves past an end or into itself), and the window as a
// user drives it: typing adds items, keys move and indent them, every
// change tells the designer once and leaves the item selected.

#include "design/controls/QzMenuEditing.h"
#include "design/controls/QzMenuLook.h"
#include "design/controls/QzMenuPopup.h"
#include "design/controls/QzMenuShortCuts.h"
#include "design/controls/Qzvtmenus.h"
#include "design/reg/QzEditorDialogs.h"
#include "designide/FormDesigner.h"
#include "runtime/components/QzComponentsReg.h"
#include "runtime/components/QzForms.h"
#include "runtime/model/QzApplication.h"

#include "support/gui/QzTestApp.h"
#include "support/gui/QzTestDialogs.h"

#include <QBuffer>
#include <QMenu>
#include <QTest>

namespace {

TEST(MenuShortCuts, NamesReadBackAndBadNamesAreRefused)
{
    for (const AnsiString& name : QzShortCutNames()) {
        TShortCut value = 1;
        ASSERT_TRUE(QzTextToShortCut(name, value)) << name;
        EXPECT_EQ(name == "(None)" ? AnsiString() : name, QzShortCutToText(value));
    }
    const struct {
        const char* Typed;
        const char* Shown;  // nullptr: refused
    } cases[] = {
        {"ctrl+shift+s", "Shift+Ctrl+S"}, {" Alt+F4 ", "Alt+F4"}, {"del", "Del"}, {"", ""},
        {"Ctrl+", nullptr},               {"Hyper+A", nullptr},   {"F13", nullptr}, {"Ctrl+AB", nullptr},
    };
    for (const auto& c : cases) {
        TShortCut value = 0;
        EXPECT_EQ(QzTextToShortCut(c.Typed, value), c.Shown != nullptr) << c.Typed;
        if (c.Shown) {
            EXPECT_EQ(QzShortCutToText(value), c.Shown) << c.Typed;
        }
    }
}

class MenusEditor : public TQzGuiTest {
protected:
    MenusEditor()
    {
        RegisterQzComponentClasses();
        auto root = std::make_unique<TForm>(nullptr);
        root->SetName("Form1");
        Form = std::make_unique<TFormDesigner>(std::move(root));
        Menu = new TQzMainMenu(Form->GetRoot());
        Menu->SetName("MainMenu1");
        for (const char* caption : {"&File", "&Edit", "&Help"})
            QzMenuInsertNew(Menu, Root(), {Root()->Count()}, Form.get(), caption);
    }

    TQzMenuItem* Root() const { return Menu->Items(); }
    // The captions of list, sub-items in brackets: "File[Open,Save],Edit".
    static std::string Tree(TQzMenuItem* list)
    {
        std::string text;
        for (int i = 0; i < list->Count(); ++i) {
            TQzMenuItem* item = list->Items(i);
            text += (i ? "," : "") + item->Caption();
            if (item->Count())
                text += "[" + Tree(item) + "]";
        }
        return text;
    }

    std::unique_ptr<TFormDesigner> Form;
    TQzMainMenu* Menu;
};

TEST_F(MenusEditor, TheTreeStaysWholeWhateverIsAsked)
{
    const struct {
        const char* What;
        std::function<bool(TQzMenuPath&)> Do;
        TQzMenuPath From;
        bool Done;
        TQzMenuPath Then;
        const char* Tree;
    } cases[] = {
        {"first up", [&](TQzMenuPath& p) { return QzMenuMove(Root(), p, -1); }, {0}, false, {0}, "&File,&Edit,&Help"},
        {"last past the end", [&](TQzMenuPath& p) { return QzMenuMove(Root(), p, 1); }, {2}, false, {2}, "&File,&Edit,&Help"},
        {"slot moved", [&](TQzMenuPath& p) { return QzMenuMove(Root(), p, -1); }, {3}, false, {3}, "&File,&Edit,&Help"},
        {"first indented", [&](TQzMenuPath& p) { return QzMenuIndent(Root(), p); }, {0}, false, {0}, "&File,&Edit,&Help"},
        {"top outdented", [&](TQzMenuPath& p) { return QzMenuOutdent(Root(), p); }, {1}, false, {1}, "&File,&Edit,&Help"},
        {"indent", [&](TQzMenuPath& p) { return QzMenuIndent(Root(), p); }, {1}, true, {0, 0}, "&File[&Edit],&Help"},
        {"dragged into itself", [&](TQzMenuPath& p) { return QzMenuMoveTo(Root(), p, {0, 0, 0}); }, {0}, false, {0},
         "&File[&Edit],&Help"},
        {"dragged to the end", [&](TQzMenuPath& p) { return QzMenuMoveTo(Root(), p, {2}); }, {0, 0}, true, {2},
         "&File,&Help,&Edit"},
        {"dragged down its own list", [&](TQzMenuPath& p) { return QzMenuMoveTo(Root(), p, {2}); }, {0}, true, {1},
         "&Help,&File,&Edit"},
        {"moved on", [&](TQzMenuPath& p) { return QzMenuMove(Root(), p, 1); }, {1}, true, {2}, "&Help,&Edit,&File"},
        {"indent under the one before", [&](TQzMenuPath& p) { return QzMenuIndent(Root(), p); }, {2}, true, {1, 0},
         "&Help,&Edit[&File]"},
        {"outdent after its parent", [&](TQzMenuPath& p) { return QzMenuOutdent(Root(), p); }, {1, 0}, true, {2},
         "&Help,&Edit,&File"},
    };
    for (const auto& c : cases) {
        TQzMenuPath path = c.From;
        EXPECT_EQ(c.Do(path), c.Done) << c.What;
        EXPECT_EQ(path, c.Then) << c.What;
        EXPECT_EQ(Tree(Root()), c.Tree) << c.What;
    }
    // Deleting leaves the next item current, the previous at the end.
    EXPECT_EQ(QzMenuDelete(Root(), {2}), (TQzMenuPath{1}));
    EXPECT_EQ(QzMenuDelete(Root(), {0}), (TQzMenuPath{0}));
    EXPECT_EQ(Tree(Root()), "&Edit");
}

TEST_F(MenusEditor, TheUserBuildsAMenuFromTheKeyboard)
{
    TQzTestDialogs dialogs;
    TFrMenus window;
    window.Execute(Menu, Form.get());
    TQzMenuView* view = window.View();
    const auto type = [&](const QString& text) {
        QTest::keyClicks(view, text.left(1));
        QTest::keyClicks(window.EdCaption, text.mid(1));
        QTest::keyClick(window.EdCaption, Qt::Key_Return);
    };
    // The bar shows the three items side by side, then the empty slot.
    ASSERT_GE(view->Cells().size(), 4u);
    EXPECT_EQ(view->Cells()[1].Rect.top(), view->Cells()[0].Rect.top());
    EXPECT_GT(view->Cells()[1].Rect.left(), view->Cells()[0].Rect.left());

    // Down opens File's list; typing there adds its items one after another.
    view->SetCurrent({0});
    QTest::keyClick(view, Qt::Key_Down);
    EXPECT_EQ(view->Current(), (TQzMenuPath{0, 0}));
    Form->ClearModified();
    type("&Open");
    type("&Save");
    EXPECT_EQ(Tree(Root()), "&File[&Open,&Save],&Edit,&Help");
    EXPECT_EQ(Form->ModifiedCount(), 2) << "one change each";
    EXPECT_EQ(view->Current(), (TQzMenuPath{0, 2})) << "Enter goes on to the slot";

    // The item is what the property grid shows.
    view->SetCurrent({0, 1});
    ASSERT_EQ(Form->GetSelections().size(), 1u);
    EXPECT_EQ(Form->GetSelections()[0], window.Current());

    QTest::keyClick(view, Qt::Key_Up, Qt::ControlModifier);
    QTest::keyClick(view, Qt::Key_Down);
    QTest::keyClick(view, Qt::Key_Tab);
    EXPECT_EQ(Tree(Root()), "&File[&Save[&Open]],&Edit,&Help");
    QTest::keyClick(view, Qt::Key_Backtab, Qt::ShiftModifier);
    QTest::keyClick(view, Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(Tree(Root()), "&File[&Save,&Open],&Edit,&Help") << "nothing moves past the end";

    // A shortcut by name; a bad name is refused with the item unchanged.
    EXPECT_TRUE(window.SetShortCut("Ctrl+O"));
    EXPECT_EQ(window.Current()->ShortCut(), TShortCut(QzScCtrl | 'O'));
    dialogs->AnswerMessage(mbOK);
    EXPECT_FALSE(window.SetShortCut("Ctrl+Hyper"));
    EXPECT_EQ(window.Current()->ShortCut(), TShortCut(QzScCtrl | 'O'));
    EXPECT_EQ(window.CBShortCut->currentText(), "Ctrl+O");

    const int modified = Form->ModifiedCount();
    QTest::keyClick(view, Qt::Key_Delete);
    EXPECT_EQ(Tree(Root()), "&File[&Save],&Edit,&Help");
    EXPECT_EQ(Form->ModifiedCount(), modified + 1);
    EXPECT_EQ(Form->GetSelections()[0], window.Current()) << "never the deleted item";

    // Help dragged onto File's place on the bar.
    view->SetCurrent({0});
    const QPoint from = view->CellOf({2})->Rect.center();
    const QPoint to = view->CellOf({0})->Rect.center();
    QTest::mousePress(view, Qt::LeftButton, {}, from);
    QTest::mouseRelease(view, Qt::LeftButton, {}, to);
    EXPECT_EQ(Tree(Root()), "&Help,&File[&Save],&Edit");
    EXPECT_EQ(view->Current(), (TQzMenuPath{0}));
}

TEST_F(MenusEditor, ALabelGivesTheCaptionAndOnlyAcceptedChoicesCount)
{
    TFrMenus window;
    window.Execute(Menu, Form.get());
    window.View()->SetCurrent({1});
    int answer = 0;
    TQzEditorDialogScope labels(TQzEditorDialog::MemoryLabel, [&](TQzEditorDialogRequest& r) {
        EXPECT_EQ(r.Target, window.Current()->Label());
        return answer;
    });
    Form->ClearModified();
    window.EditLabel();
    EXPECT_EQ(Form->ModifiedCount(), 0) << "cancelled";
    answer = 1;
    window.EditLabel();
    EXPECT_EQ(Form->ModifiedCount(), 1);
}

TEST_F(MenusEditor, OneWindowPerMenuAndThePopupAsItWillShow)
{
    RegisterQzvtmenus();
    TQzEditorDialogRequest request;
    request.Component = Menu;
    request.Designer = Form.get();
    ASSERT_EQ(QzRunEditorDialog(TQzEditorDialog::Menus, request), 1);
    TFrMenus* window = QzFindMenusWindow(Menu);
    ASSERT_TRUE(window);
    QzRunEditorDialog(TQzEditorDialog::Menus, request);
    EXPECT_EQ(QzFindMenusWindow(Menu), window) << "shown again, not a second one";
    delete window;

    TQzPopupMenu popup(Form->GetRoot());
    EXPECT_EQ(popup.BuildSystemMenu(), 6);
    popup.Items()->Items(1)->SetVisible(false);
    QzMenuInsertNew(&popup, popup.Items(), {4}, Form.get(), "-");
    QMenu shown;
    QzFillPopupMenu(&shown, popup.Items());
    QStringList texts;
    for (QAction* a : shown.actions())
        texts << (a->isSeparator() ? QStringLiteral("-") : a->text() + "|" + a->shortcut().toString());
    EXPECT_EQ(texts.join(' ').toStdString(), "&Undo|Ctrl+Z &Copy|Ctrl+C &Paste|Ctrl+V - &Delete|Del Select &All|Ctrl+A");

    // In its look: only sets the display package holds count, and images
    // show when the menu says so.
    auto* app = new TQzCApplication(Form->GetRoot());
    TQzPkgDisplaySetFont* big = app->PkgDisplay()->SetsFont()->Add("Big");
    big->SetSize(14);
    big->SetColor(0x0000FF);
    app->PkgDisplay()->SetsColor()->Add("Paper")->SetColor(0xE0FFFF);
    popup.SetFont()->SetName("Missing");
    EXPECT_FALSE(QzMenuLookOf(&popup).Font);
    EXPECT_EQ(QzMenuLookOf(&popup).ImageSize, 0);
    popup.SetFont()->SetName("Big");
    popup.SetColor()->SetName("Paper");
    SetOrdProp(&popup, "ImagesVisible", 1);
    QImage square(8, 8, QImage::Format_RGB32);
    square.fill(Qt::darkGreen);
    QByteArray png;
    QBuffer buffer(&png);
    square.save(&buffer, "PNG");
    app->SetSystemEdit(true);
    app->PkgDisplay()->PkgSystem()->Images()->Add(48)->SetPicture(png.toStdString(), "png", 8, 8);
    popup.Items()->Items(0)->Image()->PkgId("System", 48);
    const TQzMenuLook look = QzMenuLookOf(&popup);
    ASSERT_TRUE(look.Font);
    EXPECT_EQ(look.Font->pointSize(), 14);
    EXPECT_EQ(look.TextColor, QColor(255, 0, 0));
    EXPECT_EQ(look.BackColor, QColor(255, 255, 224));
    EXPECT_EQ(look.ImageSize, 16);
    QMenu withImages;
    QzFillPopupMenu(&withImages, popup.Items(), look.ImageSize);
    EXPECT_EQ(withImages.actions()[0]->icon().pixmap(16, 16).size(), QSize(16, 16));
    EXPECT_TRUE(withImages.actions()[1]->icon().isNull()) << "an item without an image";
}

}  // namespace
