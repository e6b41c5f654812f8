// The editors of the controls' own property types on real controls of a
// form: multi-line texts, masks, collections, menus, page values, and the
// component references whose lists only some of the form's components join.

#include "RegTestComponents.h"
#include "design/reg/QzCtrlsRegControls.h"
#include "design/reg/QzCtrlsRegVariants.h"

#include "runtime/components/Forms.h"
#include "runtime/components/QzBars.h"
#include "runtime/components/QzComponentsReg.h"
#include "runtime/components/QzExtCtrls.h"
#include "runtime/components/QzForms.h"
#include "runtime/components/QzMenus.h"
#include "runtime/components/QzPages.h"
#include "runtime/components/QzStdCtrls.h"
#include "runtime/model/QzPkgStrings.h"

#include <gtest/gtest.h>

namespace {

// A window in place of a dialog: records the request, lets the test act on
// it, answers Result.
struct TFakeWindow {
    TFakeWindow(TQzEditorDialog kind, int result, std::function<void(TQzEditorDialogRequest&)> act = {})
        : Scope(kind, [this, result, act](TQzEditorDialogRequest& r) {
              Requests.push_back(r);
              if (act)
                  act(r);
              return result;
          })
    {
    }
    std::vector<TQzEditorDialogRequest> Requests;
    TQzEditorDialogScope Scope;
};

class ControlEditors : public ::testing::Test {
protected:
    void SetUp() override
    {
        RegisterQzComponentClasses();
        RegisterRgClasses();
        auto root = std::make_unique<TForm>(nullptr);
        root->SetName("Form1");
        Form = std::make_unique<TFormDesigner>(std::move(root));
    }

    template <class C>
    C* Create(const char* name, TComponent* parent = nullptr)
    {
        auto* component = new C(Form->GetRoot());
        component->SetName(name);
        component->SetParentComponent(parent ? parent : Form->GetRoot());
        return component;
    }

    template <class E>
    std::unique_ptr<E> On(std::vector<TPersistent*> objects, const AnsiString& prop)
    {
        return EditorOn<E>(Form.get(), objects, prop);
    }

    std::unique_ptr<TFormDesigner> Form;
};

TEST_F(ControlEditors, AMultiLineTextIsEditedUnderThePropertysNameAndWrittenToAll)
{
    auto* a = Create<TRgHolder>("A");
    auto* b = Create<TRgHolder>("B");
    a->FLines = "first\r\nsecond";
    auto editor = On<TQzMultiLinePropertyEditor>({a, b}, "Lines");
    {
        TFakeWindow cancelled(TQzEditorDialog::MultiLine, 2, [](TQzEditorDialogRequest& r) { r.Text = "lost"; });
        editor->Edit();
        ASSERT_EQ(cancelled.Requests.size(), 1u);
        EXPECT_EQ(cancelled.Requests[0].Caption, "Property: Lines");
        EXPECT_EQ(cancelled.Requests[0].Text, "first\r\nsecond");
        EXPECT_EQ(a->FLines, "first\r\nsecond");
    }
    TFakeWindow accepted(TQzEditorDialog::MultiLine, 1, [](TQzEditorDialogRequest& r) { r.Text = "one\r\ntwo\r\nthree"; });
    editor->Edit();
    EXPECT_EQ(a->FLines, "one\r\ntwo\r\nthree");
    EXPECT_EQ(b->FLines, "one\r\ntwo\r\nthree");
}

TEST_F(ControlEditors, AMaskShowsAndTakesItsTextAndTheEditorCopiesTheWholeMask)
{
    auto* e1 = Create<TQzEdit>("Edit1");
    auto* e2 = Create<TQzEdit>("Edit2");
    auto editor = On<TQzMaskPropertyEditor>({e1, e2}, "Mask");
    auto mask = [](TQzEdit* e) { return dynamic_cast<TQzMask*>(GetObjectProp(e, "Mask")); };

    editor->SetValue("N;##0.00;_");
    EXPECT_EQ(mask(e2)->Text(), "N;##0.00;_");
    EXPECT_EQ(editor->GetValue(), "N;##0.00;_");
    EXPECT_TRUE(editor->AllEqual());
    mask(e2)->SetText("other");
    EXPECT_FALSE(editor->AllEqual());

    TFakeWindow window(TQzEditorDialog::Mask, 1, [](TQzEditorDialogRequest& r) {
        auto* target = dynamic_cast<TQzMask*>(r.Target);
        target->SetDataType(qdtFloat);
        target->SetText("F;#0.0");
    });
    editor->Edit();
    ASSERT_EQ(window.Requests.size(), 1u);
    EXPECT_EQ(window.Requests[0].Component, e1);
    EXPECT_EQ(mask(e2)->Text(), "F;#0.0");
    EXPECT_EQ(mask(e2)->DataType(), qdtFloat);
}

TEST_F(ControlEditors, CollectionsShowTheirSummaryAndOpenUnderTheirName)
{
    auto* combo = Create<TQzComboBox>("Combo");
    auto editor = On<TQzCollectionPropertyEditor>({combo}, "Items");
    EXPECT_EQ(editor->GetValue(), "(Empty)");
    combo->Items()->Add();
    EXPECT_EQ(editor->GetValue(), "(1 Item)");
    combo->Items()->Add();
    combo->Items()->Add();
    EXPECT_EQ(editor->GetValue(), "(3 Items)");

    TFakeWindow window(TQzEditorDialog::Collection, 1);
    editor->Edit();
    ASSERT_EQ(window.Requests.size(), 1u);
    EXPECT_EQ(window.Requests[0].Caption, "Editing Combo.Items");
    EXPECT_EQ(window.Requests[0].Target, combo->Items());

    TFakeWindow pages(TQzEditorDialog::CollPageControl, 1);
    auto* pageControl = Create<TQzPageControl>("Pages");
    On<TQzCollPageControlPropertyEditor>({pageControl}, "Pages")->Edit();
    EXPECT_EQ(pages.Requests.size(), 1u);
}

TEST_F(ControlEditors, MenusShowMenuAndOpenTheMenusEditorOnTheirComponent)
{
    auto* menu = Create<TQzMainMenu>("MainMenu1");
    auto editor = On<TQzMainMenuPropertyEditor>({menu}, "Items");
    EXPECT_EQ(editor->GetValue(), "(Menu)");
    TFakeWindow window(TQzEditorDialog::Menus, 1);
    editor->Edit();
    ASSERT_EQ(window.Requests.size(), 1u);
    EXPECT_EQ(window.Requests[0].Component, menu);
    EXPECT_EQ(window.Requests[0].Designer, Form.get());
}

TEST_F(ControlEditors, TheWindowsListOffersOnlyTheMenusOwnItems)
{
    auto* menu = Create<TQzMainMenu>("MainMenu1");
    auto* other = Create<TQzMainMenu>("MainMenu2");
    const auto item = [&](const char* name, TQzMenuItem* parent) {
        auto* i = new TQzMenuItem(Form->GetRoot());
        i->SetName(name);
        parent->Add(i);
        return i;
    };
    TQzMenuItem* file = item("File1", menu->Items());
    item("Open1", file);
    item("Window1", menu->Items());
    item("Elsewhere1", other->Items());

    auto editor = On<TQzMainMenuWindowsListEditor>({menu}, "WindowsList");
    EXPECT_EQ(ValuesOf(*editor), (std::vector<AnsiString>{"File1", "Open1", "Window1"}));
    editor->SetValue("Window1");
    EXPECT_EQ(menu->MenuParts().WindowsList()->Name(), "Window1");
    EXPECT_EQ(editor->GetValue(), "Window1");
}

TEST_F(ControlEditors, ComponentListsOfferOnlyTheComponentsThatFit)
{
    auto* image = Create<TQzImage>("Image1");
    Create<TQzFocusImage>("FocusImage1");
    Create<TQzPkgImage>("PkgImage1");
    Create<TQzLabel>("Label1");
    auto* edit = Create<TQzEdit>("Edit1");
    Create<TQzPanel>("Panel1");
    auto* upDown = Create<TQzUpDown>("UpDown1");
    Create<TQzUpDown>("UpDown2");
    Create<TQzBitBtn>("BitBtn1");
    Create<TQzSpeedButton>("SpeedButton1");
    auto* bar = Create<TQzImageBar>("ImageBar1");

    EXPECT_EQ(ValuesOf(*On<TQzImageBarImagePropertyEditor>({bar}, "Image")),
              (std::vector<AnsiString>{"Image1", "FocusImage1", "PkgImage1"}));
    const auto associates = ValuesOf(*On<TQzUpDownAssociatePropertyEditor>({upDown}, "Associate"));
    EXPECT_NE(std::find(associates.begin(), associates.end(), "Edit1"), associates.end());
    EXPECT_NE(std::find(associates.begin(), associates.end(), "Panel1"), associates.end());
    for (const char* excluded : {"UpDown1", "UpDown2", "Label1", "Image1"})
        EXPECT_EQ(std::find(associates.begin(), associates.end(), excluded), associates.end()) << excluded;


    auto associate = On<TQzUpDownAssociatePropertyEditor>({upDown}, "Associate");
    associate->SetValue("Edit1");
    EXPECT_EQ(upDown->Associate(), edit);
    auto imageEditor = On<TQzImageBarImagePropertyEditor>({bar}, "Image");
    imageEditor->SetValue("Image1");
    EXPECT_EQ(bar->Image(), image);
}

TEST_F(ControlEditors, AFormsMainButtonsAreChosenAmongItsButtons)
{
    auto root = std::make_unique<TQzCForm>(nullptr);
    root->SetName("QzCForm1");
    TQzCForm* form = root.get();
    TFormDesigner designer(std::move(root));
    for (TMetaClass* cls : {ClassOf<TQzBitBtn>(), ClassOf<TQzEdit>(), ClassOf<TQzSpeedButton>(), ClassOf<TQzLabel>()})
        designer.CreateComponent(cls, form);
    auto editor = EditorOn<TQzMainBtnPropertyEditor>(&designer, {form}, "BtnOk");
    EXPECT_EQ(ValuesOf(*editor), (std::vector<AnsiString>{"QzBitBtn1", "QzSpeedButton1"}));
    editor->SetValue("QzSpeedButton1");
    EXPECT_EQ(form->BtnOk(), designer.GetComponent("QzSpeedButton1"));
}

TEST_F(ControlEditors, APageControlsValueListShowsEachTabsValueAndDescription)
{
    auto* pages = Create<TQzPageControl>("Pages");
    pages->SetDataType(qdtInteger);
    for (int value : {10, 20, 30})
        pages->AddPage()->SetValue(Variant(value));
    // A tab's description is its caption's label text.
    auto* strings = new TQzPkgStrings(Form->GetRoot());
    strings->SetPkgName("TABS");
    strings->Labels()->Add(2, "Orders");
    pages->Page(1)->Caption()->PkgId("TABS", 2);

    auto editor = On<TQzPageControlVariantPropertyEditor>({pages}, "Value");
    EXPECT_EQ(ValuesOf(*editor), (std::vector<AnsiString>{"10", "20 - Orders", "30"}));
    editor->SetValue("20 - Orders");
    EXPECT_EQ(pages->GetValue(), Variant(20));
    EXPECT_EQ(editor->GetValue(), "20");
}

TEST_F(ControlEditors, AStatusBarPanelsValueFollowsItsOwnDataType)
{
    auto* bar = Create<TQzStatusBar>("Status");
    auto* panel = static_cast<TQzStatusBarPanel*>(bar->Panels()->Add());
    auto editor = On<TQzStatusBarVariantPropertyEditor>({panel}, "Value");
    editor->SetValue("007");
    EXPECT_EQ(panel->GetValue().VarType(), varString);
    panel->SetDataType(qdtInteger);
    editor->SetValue("007");
    EXPECT_EQ(panel->GetValue().VarType(), varDouble);
    EXPECT_EQ(editor->GetValue(), "7");
}

}  // namespace
