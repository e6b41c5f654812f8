#include "rtl/Component.h"

#include <gtest/gtest.h>

#include <memory>

namespace {

using TLog = std::vector<AnsiString>;

// Records its end and what it hears, under its name.
class TProbe : public TComponent {
    QZ_CLASS(TProbe, TComponent)

public:
    TProbe(TComponent* owner, const AnsiString& name, TLog* log) : TComponent(owner), FLog(log) { SetName(name); }
    ~TProbe() override { FLog->push_back(Name() + " freed"); }

    void Notification(TComponent* component, TOperation operation) override
    {
        TComponent::Notification(component, operation);
        if (component != this)
            FLog->push_back(Name() + (operation == opInsert ? " +" : " -") + component->Name());
    }

private:
    TLog* FLog;
};

TEST(Component, OwnerFreesWhatItOwnsLastFirst)
{
    TLog log;
    auto* form = new TProbe(nullptr, "Form", &log);
    auto* panel = new TProbe(form, "Panel", &log);
    new TProbe(panel, "Inner", &log);
    new TProbe(form, "Label", &log);
    log.clear();
    delete form;
    // Each destructor body runs before the owned components go.
    EXPECT_EQ(log, (TLog{"Form freed", "Label freed", "Panel freed", "Inner freed"}));
}

TEST(Component, FreeingOneLeavesItsOwnerAndTellsTheOthers)
{
    TLog log;
    TProbe form(nullptr, "Form", &log);
    auto* a = new TProbe(&form, "A", &log);
    auto* b = new TProbe(&form, "B", &log);
    auto* c = new TProbe(&form, "C", &log);
    auto* d = new TProbe(nullptr, "D", &log);
    log.clear();
    form.InsertComponent(d);
    EXPECT_EQ(log, (TLog{"C +D", "B +D", "A +D", "Form +D"}));
    log.clear();

    delete b;
    EXPECT_EQ(log, (TLog{"B freed", "D -B", "C -B", "A -B", "Form -B"}));
    EXPECT_EQ(form.ComponentCount(), 3);
    EXPECT_EQ(form.Components(1), c);
    EXPECT_EQ(c->ComponentIndex(), 1);
    EXPECT_EQ(a->Owner(), &form);
    try {
        form.Components(3);
        ADD_FAILURE();
    } catch (const EListError& e) {
        EXPECT_EQ(e.Message(), "List index out of bounds (3)");
    }
}

TEST(Component, NamesMustBeIdentifiers)
{
    TComponent c(nullptr);
    for (const char* good : {"Button1", "_x", "a_1", "Z", ""}) {
        EXPECT_NO_THROW(c.SetName(good)) << good;
        EXPECT_EQ(c.Name(), good);
    }
    c.SetName("Kept");
    for (const char* bad : {"1abc", "a b", "a-b", "Ä", "a.b", " "}) {
        try {
            c.SetName(bad);
            ADD_FAILURE() << bad;
        } catch (const EComponentError& e) {
            EXPECT_EQ(e.Message(), AnsiString("'") + bad + "' is not a valid component name.");
        }
    }
    EXPECT_EQ(c.Name(), "Kept");
}

TEST(Component, NamesAreUniqueAmongAnOwnersComponents)
{
    TComponent form(nullptr);
    TComponent other(nullptr);
    auto* first = new TComponent(&form);
    auto* second = new TComponent(&form);
    first->SetName("Button1");
    try {
        second->SetName("BUTTON1");
        ADD_FAILURE();
    } catch (const EComponentError& e) {
        EXPECT_EQ(e.Message(), "A component named BUTTON1 already exists.");
    }
    EXPECT_EQ(second->Name(), "");
    first->SetName("button1");   // its own name in another case
    EXPECT_EQ(first->Name(), "button1");

    auto* elsewhere = new TComponent(&other);
    elsewhere->SetName("Button1");   // another owner: fine
    EXPECT_THROW(form.InsertComponent(elsewhere), EComponentError);
    EXPECT_EQ(elsewhere->Owner(), &other);

    elsewhere->SetName("Button2");
    form.InsertComponent(elsewhere);
    EXPECT_EQ(elsewhere->Owner(), &form);
    EXPECT_EQ(other.ComponentCount(), 0);
    EXPECT_EQ(form.ComponentCount(), 3);

    EXPECT_THROW(SetPropValue(second, "Name", "Button2"), EComponentError);
    SetPropValue(second, "Name", "Edit1");
    EXPECT_EQ(form.FindComponent("EDIT1"), second);
    EXPECT_EQ(form.FindComponent("Edit2"), nullptr);
    EXPECT_EQ(form.FindComponent(""), nullptr);
}

TEST(Component, ComponentIndexReordersWithinTheOwner)
{
    TComponent form(nullptr);
    std::vector<TComponent*> c;
    for (int i = 0; i < 4; ++i)
        c.push_back(new TComponent(&form));
    c[3]->SetComponentIndex(0);
    c[0]->SetComponentIndex(99);
    c[1]->SetComponentIndex(-5);
    const std::vector<TComponent*> expected = {c[1], c[3], c[2], c[0]};
    for (int i = 0; i < 4; ++i)
        EXPECT_EQ(form.Components(i), expected[static_cast<std::size_t>(i)]);
    EXPECT_EQ(TComponent(nullptr).ComponentIndex(), -1);
}

TEST(Component, FreeNotificationsCrossOwners)
{
    TLog log;
    auto form1 = std::make_unique<TProbe>(nullptr, "Form1", &log);
    auto form2 = std::make_unique<TProbe>(nullptr, "Form2", &log);
    auto* menu = new TProbe(form1.get(), "Menu", &log);
    auto* button = new TProbe(form2.get(), "Button", &log);
    auto* edit = new TProbe(form2.get(), "Edit", &log);
    button->FreeNotification(menu);
    edit->FreeNotification(menu);
    edit->RemoveFreeNotification(menu);
    log.clear();

    delete menu;
    EXPECT_EQ(log, (TLog{"Menu freed", "Button -Menu", "Form1 -Menu"}));
    log.clear();
    // Button no longer knows Menu: freeing it must not reach the freed menu.
    delete button;
    EXPECT_EQ(log, (TLog{"Button freed", "Edit -Button", "Form2 -Button"}));
}

TEST(Component, ParentChildTreeIsIndependentOfOwnership)
{
    TComponent form(nullptr);
    auto* timer = new TComponent(&form);
    auto* panel = new TComponent(&form);
    auto* a = new TComponent(&form);
    auto* b = new TComponent(&form);
    auto* c = new TComponent(&form);
    auto* dialog = new TComponent(&form);
    panel->SetParentComponent(&form);
    for (TComponent* child : {a, b, c})
        child->SetParentComponent(panel);
    panel->SetChildOrder(c, 0);
    b->SetParentComponent(panel);   // already there: keeps its place

    const auto children = [](TComponent* parent, TComponent* root) {
        std::vector<TComponent*> list;
        parent->GetChildren([&](TComponent* child) { list.push_back(child); }, root);
        return list;
    };
    EXPECT_EQ(children(panel, &form), (std::vector<TComponent*>{c, a, b}));
    EXPECT_EQ(children(&form, &form), (std::vector<TComponent*>{timer, dialog, panel}));
    EXPECT_EQ(children(timer, &form), std::vector<TComponent*>{});
    EXPECT_TRUE(a->HasParent());
    EXPECT_FALSE(timer->HasParent());

    a->SetParentComponent(&form);
    EXPECT_EQ(panel->ChildCount(), 2);
    EXPECT_EQ(form.Child(1), a);
    EXPECT_THROW(panel->SetParentComponent(panel), EInvalidOperation);
    EXPECT_THROW(form.SetParentComponent(panel), EInvalidOperation);
    EXPECT_THROW(panel->Child(2), EListError);

    delete c;   // a freed child leaves its parent
    EXPECT_EQ(children(panel, &form), (std::vector<TComponent*>{b}));
    delete panel;   // a freed parent lets its children go
    EXPECT_EQ(b->GetParentComponent(), nullptr);
    EXPECT_EQ(b->Owner(), &form);
    EXPECT_EQ(children(&form, &form), (std::vector<TComponent*>{timer, b, dialog, a}));
}

TEST(Component, StateFlagsFollowTheOwnershipTree)
{
    TComponent form(nullptr);
    auto* panel = new TComponent(&form);
    auto* button = new TComponent(panel);
    form.SetDesigning(true);
    EXPECT_TRUE(button->ComponentState().Contains(csDesigning));
    auto* late = new TComponent(panel);
    EXPECT_TRUE(late->ComponentState().Contains(csDesigning));
    panel->SetDesigning(false, false);
    EXPECT_FALSE(panel->ComponentState().Contains(csDesigning));
    EXPECT_TRUE(button->ComponentState().Contains(csDesigning));

    form.SetAncestor(true);
    EXPECT_TRUE(form.ComponentState().Contains(csAncestor));
    EXPECT_TRUE(late->ComponentState().Contains(csAncestor));

    button->Loading();
    button->SetComponentState(csReading, true);
    EXPECT_EQ(button->ComponentState(), (TComponentState{csLoading, csReading, csDesigning, csAncestor}));
    button->Loaded();
    EXPECT_FALSE(button->ComponentState().Contains(csLoading));
}

TEST(Component, OwnedComponentsKnowTheyAreGoing)
{
    struct TWatcher : TComponent {
        TWatcher(TComponent* owner, bool* sawDestroying) : TComponent(owner), FSaw(sawDestroying) {}
        ~TWatcher() override { *FSaw = ComponentState().Contains(csDestroying); }
        bool* FSaw;
    };
    bool saw = false;
    auto* form = new TComponent(nullptr);
    new TWatcher(form, &saw);
    delete form;
    EXPECT_TRUE(saw);
}

TEST(Component, KeepsStreamInfoAndNamePath)
{
    struct TInfo : TStreamInfoBase {
        explicit TInfo(bool* freed) : Freed(freed) {}
        ~TInfo() override { *Freed = true; }
        bool* Freed;
    };
    bool freed = false;
    TComponent form(nullptr);
    auto* button = new TComponent(&form);
    button->SetName("Button1");
    button->SetStreamInfo(std::make_unique<TInfo>(&freed));
    EXPECT_EQ(button->GetNamePath(), "Button1");
    delete button;
    EXPECT_TRUE(freed);
}

}  // namespace
