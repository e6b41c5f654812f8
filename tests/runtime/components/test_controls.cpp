// What the control classes do when the designer edits them: tab order,
// parent font and colour, frames of forms, menus, pages, button groups and
// attached controls.

#include "runtime/components/QzAddCtrls.h"
#include "runtime/components/QzComponentsReg.h"
#include "runtime/components/QzExtCtrls.h"
#include "runtime/components/QzForms.h"
#include "runtime/components/QzMenus.h"
#include "runtime/components/QzPages.h"
#include "runtime/components/QzStdCtrls.h"

#include "rtl/ComponentStream.h"

#include <gtest/gtest.h>

namespace {

class Controls : public ::testing::Test {
protected:
    void SetUp() override
    {
        RegisterQzComponentClasses();
        FForm.SetName("Form1");
    }
    template <class T>
    T* Add(const char* name, TWinControl* parent)
    {
        auto* c = new T(&FForm);
        c->SetName(name);
        c->SetParentComponent(parent);
        return c;
    }
    TQzCForm FForm{nullptr};
};

std::vector<Integer> TabOrders(const std::vector<TQzEdit*>& edits)
{
    std::vector<Integer> orders;
    for (TQzEdit* e : edits)
        orders.push_back(e->TabOrder());
    return orders;
}

TEST_F(Controls, TabOrderIsRenumberedAsTheDesignerMovesControls)
{
    auto* panel = Add<TQzPanel>("P", &FForm);
    std::vector<TQzEdit*> e = {Add<TQzEdit>("E0", panel), Add<TQzEdit>("E1", panel), Add<TQzEdit>("E2", panel)};
    EXPECT_EQ(TabOrders(e), (std::vector<Integer>{0, 1, 2}));
    e[2]->SetTabOrder(0);
    EXPECT_EQ(TabOrders(e), (std::vector<Integer>{1, 2, 0}));
    e[0]->SetTabOrder(99);   // beyond the end: last
    EXPECT_EQ(TabOrders(e), (std::vector<Integer>{2, 1, 0}));
    e[1]->SetParent(&FForm);   // leaves: the others close the gap
    EXPECT_EQ(e[0]->TabOrder(), 1);
    EXPECT_EQ(e[2]->TabOrder(), 0);
    EXPECT_EQ(e[1]->TabOrder(), 1);   // after the panel on the form
    EXPECT_EQ(panel->TabList(), (std::vector<TWinControl*>{panel, e[1]}));
}

TEST_F(Controls, ChildrenFollowTheParentsFontAndColourUntilGivenTheirOwn)
{
    auto* panel = Add<TQzPanel>("P", &FForm);
    auto* label = Add<TQzLabel>("L", panel);
    auto* edit = Add<TQzEdit>("E", panel);
    panel->Font()->SetName("Tahoma");
    panel->SetColor(clInfoBk);
    EXPECT_EQ(label->Font()->Name(), "Tahoma");
    EXPECT_EQ(label->Color(), clInfoBk);
    EXPECT_TRUE(label->ParentFont());
    EXPECT_EQ(edit->Color(), clWindow) << "edit-like controls keep their own window colour";

    label->Font()->SetStyle(TFontStyles{fsBold});
    label->SetColor(clRed);
    EXPECT_FALSE(label->ParentFont());
    EXPECT_FALSE(label->ParentColor());
    panel->Font()->SetName("Arial");
    EXPECT_EQ(label->Font()->Name(), "Tahoma");

    label->SetParentFont(true);
    EXPECT_EQ(label->Font()->Name(), "Arial");
    EXPECT_FALSE(label->Font()->Style().Contains(fsBold));

    // A control that follows its parent does not write what it follows.
    const std::string text = WriteFormText(&FForm);
    const std::string labelPart = text.substr(text.find("object L:"), text.find("object E:") - text.find("object L:"));
    EXPECT_EQ(labelPart.find("Font."), std::string::npos);
    EXPECT_NE(labelPart.find("Color = clRed"), std::string::npos);
    EXPECT_NE(labelPart.find("ParentColor = False"), std::string::npos);
    EXPECT_EQ(text.substr(text.find("object E:")).find("Color"), std::string::npos);
}

TEST_F(Controls, TheClientAreaIsTheFormLessItsFrame)
{
    const struct {
        TFormBorderStyle Style;
        Integer Width;
        Integer Height;
    } frames[] = {{bsNone, 0, 0}, {bsSizeable, 8, 27}, {bsDialog, 6, 25}, {bsToolWindow, 6, 21}, {bsSizeToolWin, 8, 23}};
    for (const auto& f : frames) {
        TForm form(nullptr);
        form.SetBorderStyle(f.Style);
        form.SetClientWidth(400);
        form.SetClientHeight(300);
        EXPECT_EQ(form.Width(), 400 + f.Width) << f.Style;
        EXPECT_EQ(form.Height(), 300 + f.Height) << f.Style;
    }
    // Scrolling forms store their size, the others their client size.
    TForm form(nullptr);
    form.SetName("F");
    EXPECT_NE(WriteFormText(&form).find("Width = "), std::string::npos);
    form.SetAutoScroll(false);
    const std::string text = WriteFormText(&form);
    EXPECT_EQ(text.find("  Width = "), std::string::npos);
    EXPECT_NE(text.find("ClientWidth = 312"), std::string::npos);
}

// ---- Menus -----------------------------------------------------------------------

TEST_F(Controls, MenuItemsInsertMoveAndRefuseCycles)
{
    auto* menu = new TQzPopupMenu(&FForm);
    auto* a = new TQzMenuItem(&FForm);
    auto* b = new TQzMenuItem(&FForm);
    auto* c = new TQzMenuItem(&FForm);
    menu->Items()->Add(a);
    menu->Items()->Add(b);
    menu->Items()->Insert(0, c);
    EXPECT_EQ(menu->Items()->IndexOf(c), 0);
    EXPECT_EQ(menu->Items()->IndexOf(b), 2);
    menu->Items()->Insert(2, c);   // moved: counted among the others
    EXPECT_EQ(menu->Items()->Items(2), c);
    EXPECT_EQ(menu->Items()->Count(), 3);

    a->Add(b);
    EXPECT_EQ(b->Parent(), a);
    EXPECT_EQ(menu->Items()->Count(), 2);
    EXPECT_THROW(b->Add(a), EInvalidOperation);
    EXPECT_THROW(a->Insert(5, c), EListError);
    EXPECT_EQ(c->Parent(), menu->Items());   // a refused insert leaves the item in place
    EXPECT_THROW(a->Add(menu->Items()), EInvalidOperation);

    a->Remove(b);
    EXPECT_EQ(b->Parent(), nullptr);
    EXPECT_EQ(b->GetParentMenu(), nullptr);
    delete a;
    EXPECT_EQ(menu->Items()->Count(), 1);
}

TEST_F(Controls, SystemMenuAddsEachEditCommandOnce)
{
    auto* menu = new TQzPopupMenu(&FForm);
    auto* copy = new TQzMenuItem(&FForm);
    copy->SetKind(mkCopy);
    auto* sub = new TQzMenuItem(&FForm);
    sub->SetKind(mkUndo);
    menu->Items()->Add(copy);
    copy->Add(sub);   // found below the top level too
    EXPECT_EQ(menu->BuildSystemMenu(), 4);
    EXPECT_EQ(menu->BuildSystemMenu(), 0);
    EXPECT_EQ(menu->Items()->Count(), 5);
    auto* selectAll = menu->Items()->Items(4);
    EXPECT_EQ(selectAll->Kind(), mkSelectAll);
    EXPECT_EQ(selectAll->Caption(), "Select &All");
    EXPECT_EQ(selectAll->Owner(), &FForm);
    EXPECT_FALSE(selectAll->Name().empty());
}

TEST_F(Controls, TheWindowsListMustBeAnItemOfTheSameMenu)
{
    auto* main = new TQzMainMenu(&FForm);
    auto* other = new TQzMainMenu(&FForm);
    auto* mine = new TQzMenuItem(&FForm);
    auto* theirs = new TQzMenuItem(&FForm);
    main->Items()->Add(mine);
    other->Items()->Add(theirs);
    EXPECT_TRUE(main->MenuParts().ValidAssignWindowsList(mine));
    EXPECT_FALSE(main->MenuParts().ValidAssignWindowsList(theirs));
    EXPECT_FALSE(main->MenuParts().ValidAssignWindowsList(main->Items()));
    EXPECT_THROW(SetObjectProp(main, "WindowsList", theirs), EInvalidOperation);
    SetObjectProp(main, "WindowsList", mine);
    EXPECT_EQ(main->MenuParts().WindowsList(), mine);
}

// ---- Pages ----------------------------------------------------------------------

TEST_F(Controls, PagesAreAddedWithTheirSheetsAndDeletedWithThem)
{
    auto* pages = Add<TQzPageControl>("Pc", &FForm);
    TQzPageItem* first = pages->AddPage();
    TQzPageItem* second = pages->AddPage();
    EXPECT_EQ(first->TabSheet()->Name(), "QzTabSheet1");
    EXPECT_EQ(second->TabSheet()->Name(), "QzTabSheet2");
    EXPECT_EQ(second->TabSheet()->Parent(), pages);
    EXPECT_EQ(pages->ActivePageIndex(), 1);
    Add<TQzEdit>("OnSecond", second->TabSheet());

    TQzTabSheet* stray = Add<TQzTabSheet>("Stray", &FForm);
    EXPECT_THROW(pages->SetActivePage(stray), EInvalidOperation);

    pages->DeletePage(1);
    EXPECT_EQ(pages->PageCount(), 1);
    EXPECT_EQ(pages->ActivePage(), first->TabSheet());
    EXPECT_EQ(FForm.FindComponent("QzTabSheet2"), nullptr);
    EXPECT_EQ(FForm.FindComponent("OnSecond"), nullptr);
    pages->DeletePage(0);
    EXPECT_EQ(pages->ActivePage(), nullptr);
}

TEST_F(Controls, OutlookBarStepsThroughItsPagesGoingRound)
{
    auto* bar = Add<TQzOutLookBar>("Ob", &FForm);
    bar->NextPage();   // nothing to step through
    EXPECT_EQ(bar->ActivePage(), nullptr);
    TQzOutLookBarPage* p1 = bar->NewPage();
    TQzOutLookBarPage* p2 = bar->NewPage();
    TQzOutLookBarPage* p3 = bar->NewPage();
    EXPECT_EQ(bar->ActivePage(), p3);
    const struct {
        bool Forward;
        TQzOutLookBarPage* Expected;
    } steps[] = {{true, p1}, {true, p2}, {false, p1}, {false, p3}};
    for (const auto& s : steps) {
        s.Forward ? bar->NextPage() : bar->PreviousPage();
        EXPECT_EQ(bar->ActivePage(), s.Expected);
    }
    delete p3;
    EXPECT_EQ(bar->ActivePage(), nullptr);
    bar->PreviousPage();
    EXPECT_EQ(bar->ActivePage(), p2);
    EXPECT_EQ(p1->OutLookBar(), bar);
}

// ---- Buttons and attached controls ---------------------------------------------------

TEST_F(Controls, GroupedSpeedButtonsAreDownOneAtATime)
{
    auto* panel = Add<TQzPanel>("P", &FForm);
    auto* a = Add<TQzSpeedButton>("A", panel);
    auto* b = Add<TQzSpeedButton>("B", panel);
    auto* loose = Add<TQzSpeedButton>("C", panel);
    a->SetGroupIndex(1);
    b->SetGroupIndex(1);
    a->SetDown(true);
    b->SetDown(true);
    EXPECT_FALSE(a->Down());
    EXPECT_TRUE(b->Down());
    b->SetDown(false);   // the last one down stays down
    EXPECT_TRUE(b->Down());
    SetOrdProp(b, "AllowAllUp", 1);
    b->SetDown(false);
    EXPECT_FALSE(b->Down());
    loose->SetDown(true);   // not a toggle without a group
    EXPECT_FALSE(loose->Down());
}

TEST_F(Controls, AnUpDownAttachesToTheRightOfItsAssociate)
{
    auto* edit = Add<TQzEdit>("E", &FForm);
    edit->SetBounds(10, 20, 100, 21);
    auto* updown = Add<TQzUpDown>("U", &FForm);
    updown->SetAssociate(edit);
    EXPECT_EQ(updown->Left(), 110);
    EXPECT_EQ(updown->Top(), 20);
    EXPECT_EQ(updown->Height(), 21);
    EXPECT_THROW(updown->SetAssociate(updown), EInvalidOperation);
    delete edit;
    EXPECT_EQ(updown->Associate(), nullptr);
}

}  // namespace
