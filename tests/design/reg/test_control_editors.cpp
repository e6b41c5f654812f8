// The editors of the controls' own property types on real controls of a
// form: multi-line texts, masks, collections, menus, page values, and the
// component references whose lists only some of the form's components join.

#include "RegTestComponents.h"
#include "design/reg/QzCtrlsRegControls.h"
#include "design/reg/QzCtrlsRegVariants.h"

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

class ControlEditors : public ::testing::Test {
protected:
    ControlEditors()
    {
        RegisterQzComponentClasses();
        auto root = std::make_unique<TQzCForm>(nullptr);
        root->SetName("QzCForm1");
        Root = root.get();
        Form = std::make_unique<TFormDesigner>(std::move(root));
    }

    template <class C>
    C* Create()
    {
        return dynamic_cast<C*>(Form->CreateComponent(ClassOf<C>(), Root));
    }

    template <class E>
    std::unique_ptr<E> On(std::vector<TPersistent*> objects, const AnsiString& prop)
    {
        return EditorOn<E>(Form.get(), objects, prop);
    }

    TQzCForm* Root;
    std::unique_ptr<TFormDesigner> Form;
};

TEST_F(ControlEditors, TextsAndMasksAreEditedInTheirDialogsAndWrittenToAll)
{
    RegisterRgClasses();
    TRgHolder a(nullptr), b(nullptr);
    a.FLines = "first\r\nsecond";
    auto lines = On<TQzMultiLinePropertyEditor>({&a, &b}, "Lines");
    {
        TFakeDialog cancelled(TQzEditorDialog::MultiLine, 2, [](TQzEditorDialogRequest& r) { r.Text = "lost"; });
        lines->Edit();
        EXPECT_EQ(cancelled.Requests.at(0).Caption, "Property: Lines");
        EXPECT_EQ(cancelled.Requests.at(0).Text, "first\r\nsecond");
        EXPECT_EQ(a.FLines, "first\r\nsecond");
    }
    TFakeDialog accepted(TQzEditorDialog::MultiLine, 1, [](TQzEditorDialogRequest& r) { r.Text = "one\r\ntwo"; });
    lines->Edit();
    EXPECT_EQ(b.FLines, "one\r\ntwo");

    auto* e1 = Create<TQzEdit>();
    auto* e2 = Create<TQzEdit>();
    auto mask = [](TQzEdit* e) { return dynamic_cast<TQzMask*>(GetObjectProp(e, "Mask")); };
    auto editor = On<TQzMaskPropertyEditor>({e1, e2}, "Mask");
    editor->SetValue("N;##0.00;_");
    EXPECT_EQ(mask(e2)->Text(), "N;##0.00;_");
    EXPECT_TRUE(editor->AllEqual());
    TFakeDialog window(TQzEditorDialog::Mask, 1, [](TQzEditorDialogRequest& r) {
        dynamic_cast<TQzMask*>(r.Target)->SetDataType(qdtFloat);
    });
    editor->Edit();
    EXPECT_EQ(mask(e2)->DataType(), qdtFloat) << "the whole mask is copied, not only its text";
}

TEST_F(ControlEditors, CollectionsAndMenusShowTheirSummaryAndOpenTheirEditor)
{
    auto* combo = Create<TQzComboBox>();
    auto items = On<TQzCollectionPropertyEditor>({combo}, "Items");
    const std::pair<int, const char*> counts[] = {{0, "(Empty)"}, {1, "(1 Item)"}, {3, "(3 Items)"}};
    for (const auto& [count, shown] : counts) {
        while (combo->Items()->Count() < count)
            combo->Items()->Add();
        EXPECT_EQ(items->GetValue(), shown);
    }
    TFakeDialog collection(TQzEditorDialog::Collection, 1);
    items->Edit();
    EXPECT_EQ(collection.Requests.at(0).Caption, "Editing QzComboBox1.Items");
    EXPECT_EQ(collection.Requests.at(0).Target, combo->Items());

    auto* menu = Create<TQzMainMenu>();
    auto menuItems = On<TQzMainMenuPropertyEditor>({menu}, "Items");
    EXPECT_EQ(menuItems->GetValue(), "(Menu)");
    TFakeDialog menus(TQzEditorDialog::Menus, 1);
    menuItems->Edit();
    EXPECT_EQ(menus.Requests.at(0).Component, menu);
}

TEST_F(ControlEditors, ComponentListsOfferOnlyTheComponentsThatFit)
{
    auto* menu = Create<TQzMainMenu>();
    auto* other = Create<TQzMainMenu>();
    const auto item = [&](const char* name, TQzMenuItem* parent) {
        auto* i = new TQzMenuItem(Root);
        i->SetName(name);
        parent->Add(i);
        return i;
    };
    item("Open1", item("File1", menu->Items()));
    item("Elsewhere1", other->Items());
    auto* image = Create<TQzImage>();
    Create<TQzFocusImage>();
    Create<TQzLabel>();
    auto* edit = Create<TQzEdit>();
    auto* upDown = Create<TQzUpDown>();
    Create<TQzUpDown>();
    Create<TQzBitBtn>();
    Create<TQzSpeedButton>();
    auto* bar = Create<TQzImageBar>();

    const struct {
        std::unique_ptr<TPropertyEditor> Editor;
        std::vector<AnsiString> Values;
    } cases[] = {
        {On<TQzMainMenuWindowsListEditor>({menu}, "WindowsList"), {"File1", "Open1"}},
        {On<TQzImageBarImagePropertyEditor>({bar}, "Image"), {"QzImage1", "QzFocusImage1"}},
        {On<TQzUpDownAssociatePropertyEditor>({upDown}, "Associate"), {"QzFocusImage1", "QzEdit1", "QzBitBtn1", "QzImageBar1"}},
        {On<TQzMainBtnPropertyEditor>({Root}, "BtnOk"), {"QzBitBtn1", "QzSpeedButton1"}},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ValuesOf(*c.Editor), c.Values) << c.Editor->GetName();

    On<TQzUpDownAssociatePropertyEditor>({upDown}, "Associate")->SetValue("QzEdit1");
    On<TQzImageBarImagePropertyEditor>({bar}, "Image")->SetValue("QzImage1");
    On<TQzMainMenuWindowsListEditor>({menu}, "WindowsList")->SetValue("Open1");
    EXPECT_EQ(upDown->Associate(), edit);
    EXPECT_EQ(bar->Image(), image);
    EXPECT_EQ(menu->MenuParts().WindowsList()->Name(), "Open1");
}

TEST_F(ControlEditors, PageAndPanelValuesFollowTheirOwnDataType)
{
    auto* pages = Create<TQzPageControl>();
    pages->SetDataType(qdtInteger);
    for (int value : {10, 20, 30})
        pages->AddPage()->SetValue(Variant(value));
    auto* strings = new TQzPkgStrings(Root);
    strings->SetPkgName("TABS");
    strings->Labels()->Add(2, "Orders");
    pages->Page(1)->Caption()->PkgId("TABS", 2);   // a tab's description is its caption's text

    auto editor = On<TQzPageControlVariantPropertyEditor>({pages}, "Value");
    EXPECT_EQ(ValuesOf(*editor), (std::vector<AnsiString>{"10", "20 - Orders", "30"}));
    // A picked entry keeps what stands before " - "; a leading "-" is a sign.
    const std::pair<const char*, const char*> picks[] = {{"20 - Orders", "20"}, {"-2 - Archive", "-2"}, {"5-Old", "5"}};
    for (const auto& [picked, stored] : picks) {
        editor->SetValue(picked);
        EXPECT_EQ(editor->GetValue(), stored) << picked;
    }

    auto* panel = static_cast<TQzStatusBarPanel*>(Create<TQzStatusBar>()->Panels()->Add());
    auto panelEditor = On<TQzStatusBarVariantPropertyEditor>({panel}, "Value");
    panelEditor->SetValue("007");
    EXPECT_EQ(panel->GetValue().VarType(), varString);
    panel->SetDataType(qdtInteger);
    panelEditor->SetValue("007");
    EXPECT_EQ(panelEditor->GetValue(), "7");
}

}  // namespace
