// The collection editors as a user drives them: the chosen items move
// together and never past an end, they are what the property grid shows,
// every change tells the designer once, and the page editor keeps the
// control's sheets and shown page in step with its tabs.

#include "design/controls/QzCollectionEditing.h"
#include "design/controls/Qzvtcollection.h"
#include "design/controls/Qzvtcollpagecontrol.h"
#include "design/reg/QzCtrlsRegComponentEditors.h"
#include "design/reg/QzEditorDialogs.h"
#include "designide/FormDesigner.h"
#include "runtime/components/QzComponentsReg.h"
#include "runtime/components/QzForms.h"
#include "runtime/components/QzPages.h"
#include "runtime/components/QzStdCtrls.h"

#include "support/gui/QzTestApp.h"

#include <QTest>

namespace {

class CollectionEditor : public TQzGuiTest {
protected:
    CollectionEditor()
    {
        RegisterQzComponentClasses();
        auto root = std::make_unique<TForm>(nullptr);
        root->SetName("Form1");
        Form = std::make_unique<TFormDesigner>(std::move(root));
        RegisterQzvtcollection();
    }

    template <class C>
    C* Create(const char* name)
    {
        auto* component = new C(Form->GetRoot());
        component->SetName(name);
        component->SetParentComponent(Form->GetRoot());
        return component;
    }

    TFrCollection* Open(TCollection* collection, TComponent* component, TQzEditorDialog kind)
    {
        TQzEditorDialogRequest request;
        request.Target = collection;
        request.Component = component;
        request.Designer = Form.get();
        EXPECT_EQ(QzRunEditorDialog(kind, request), 1);
        return QzFindCollectionWindow(collection);
    }

    // The items' IDs in their order: "0 2 1".
    static std::string Order(TCollection* c)
    {
        std::string text;
        for (int i = 0; i < c->Count(); ++i)
            text += (i ? " " : "") + std::to_string(c->Items(i)->ID());
        return text;
    }

    std::unique_ptr<TFormDesigner> Form;
};

TEST_F(CollectionEditor, ChosenItemsMoveTogetherButNeverPastAnEnd)
{
    TCollection c(nullptr, TCollectionItem::ClassInfo());
    for (int i = 0; i < 4; ++i)
        c.Add();
    const struct {
        std::vector<int> Chosen;
        int Delta;
        bool Moved;
        std::vector<int> Then;
        const char* Order;
    } cases[] = {
        {{0, 2}, -1, false, {0, 2}, "0 1 2 3"},
        {{1, 3}, 1, false, {1, 3}, "0 1 2 3"},
        {{0, 1}, 1, true, {1, 2}, "2 0 1 3"},
        {{2, 1}, 1, true, {2, 3}, "2 3 0 1"},
        {{3, 1}, -1, true, {0, 2}, "3 2 1 0"},
        {{}, 1, false, {}, "3 2 1 0"},
    };
    for (const auto& k : cases) {
        std::vector<int> chosen = k.Chosen;
        EXPECT_EQ(QzCollectionMove(&c, chosen, k.Delta), k.Moved) << k.Order;
        if (k.Moved) {
            EXPECT_EQ(chosen, k.Then) << k.Order;
        }
        EXPECT_EQ(Order(&c), k.Order);
    }
    EXPECT_EQ(QzCollectionDelete(&c, {3, 1}), 1) << "the one after the first deleted";
    EXPECT_EQ(Order(&c), "3 1");
    EXPECT_EQ(QzCollectionDelete(&c, {1}), 0) << "the last when none follows";
    EXPECT_EQ(QzCollectionDelete(&c, {0}), -1);
}

TEST_F(CollectionEditor, TheChosenItemsAreTheDesignersSelection)
{
    auto* combo = Create<TQzComboBox>("Combo");
    TCollection* items = dynamic_cast<TCollection*>(GetObjectProp(combo, "Items"));
    ASSERT_TRUE(items);
    TFrCollection* window = Open(items, combo, TQzEditorDialog::Collection);
    ASSERT_TRUE(window);
    Form->ClearModified();
    for (int i = 0; i < 3; ++i)
        QTest::mouseClick(window->BtAdd, Qt::LeftButton);
    EXPECT_EQ(items->Count(), 3);
    EXPECT_EQ(Form->ModifiedCount(), 3);
    EXPECT_EQ(Form->GetSelections(), TDesignerSelections{items->Items(2)}) << "the new item";

    QTest::keyClick(window->ListView, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(Form->GetSelections().size(), 3u);
    EXPECT_FALSE(window->BtMoveUp->isEnabled());
    window->Choose({0});
    QTest::keyClick(window->ListView, Qt::Key_Down, Qt::ControlModifier);
    EXPECT_EQ(Order(items), "1 0 2");
    EXPECT_EQ(Form->GetSelections(), TDesignerSelections{items->Items(1)}) << "the item followed";

    window->Choose({0, 2});
    QTest::keyClick(window->ListView, Qt::Key_Delete);
    EXPECT_EQ(Order(items), "0");
    EXPECT_EQ(Form->GetSelections(), TDesignerSelections{items->Items(0)});
    EXPECT_EQ(Form->ModifiedCount(), 5);
    EXPECT_EQ(Open(items, combo, TQzEditorDialog::Collection), window) << "one window per collection";
    delete window;
}

TEST_F(CollectionEditor, PagesComeWithTheirSheetsAndTheChosenOneIsShown)
{
    auto* control = Create<TQzPageControl>("Pages1");
    TFrCollection* window = Open(control->Pages(), control, TQzEditorDialog::CollPageControl);
    ASSERT_TRUE(dynamic_cast<TFrCollPageControl*>(window));
    EXPECT_EQ(window->windowTitle(), "Editing Pages1.Pages");
    window->BtAddClick();
    window->BtAddClick();
    ASSERT_EQ(control->PageCount(), 2);
    TQzTabSheet* first = control->Page(0)->TabSheet();
    ASSERT_TRUE(first && first->Owner() == Form->GetRoot());
    EXPECT_EQ(control->ActivePageIndex(), 1);

    Form->ClearModified();
    window->Choose({0});
    EXPECT_EQ(control->ActivePage(), first);
    EXPECT_EQ(Form->ModifiedCount(), 1);
    window->Choose({0});
    EXPECT_EQ(Form->ModifiedCount(), 1) << "the page shown already is no change";

    window->BtMoveDownClick();
    EXPECT_EQ(control->Page(1)->TabSheet(), first);
    const AnsiString sheetName = first->Name();
    window->BtDeleteClick();
    EXPECT_EQ(control->PageCount(), 1);
    EXPECT_EQ(Form->GetComponent(sheetName), nullptr) << "the sheet went with its tab";
    delete window;
}

TEST_F(CollectionEditor, TheControlsContextMenuAddsSheetsAndStepsRound)
{
    auto* control = Create<TQzPageControl>("Pages1");
    TQzPageControlComponentEditor editor(control, Form.get());
    ASSERT_EQ(editor.GetVerbCount(), 3);
    EXPECT_EQ(editor.GetVerb(0), "New Page");
    editor.ExecuteVerb(1);
    EXPECT_EQ(Form->ModifiedCount(), 0) << "no page to step to";
    editor.ExecuteVerb(0);
    editor.ExecuteVerb(0);
    ASSERT_EQ(control->PageCount(), 2);
    EXPECT_EQ(Form->GetSelections(), TDesignerSelections{control->Page(1)->TabSheet()}) << "the new sheet";
    const struct {
        int Verb;
        int Shown;
    } steps[] = {{1, 0}, {1, 1}, {2, 0}, {2, 1}};
    for (const auto& step : steps) {
        editor.ExecuteVerb(step.Verb);
        EXPECT_EQ(control->ActivePageIndex(), step.Shown) << step.Verb;
    }
    EXPECT_EQ(Form->ModifiedCount(), 6);
}

}  // namespace
