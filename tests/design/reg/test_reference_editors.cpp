// The editors of references into the application's packages and of the
// packages themselves: the texts the inspector shows, and what happens to
// the selected controls when the editor's window is accepted, cancelled or
// not there at all.

#include "RegTestComponents.h"
#include "design/reg/QzCtrlsRegPackages.h"
#include "design/reg/QzCtrlsRegReferences.h"
#include "support/gui/QzTestDialogs.h"

#include "runtime/model/QzApplication.h"
#include "runtime/model/QzPkgStrings.h"

#include <gtest/gtest.h>

namespace {

class ReferenceEditors : public THolderFormTest {
protected:
    ReferenceEditors()
    {
        App = new TQzCApplication(Form->GetRoot());
        Strings = new TQzPkgStrings(Form->GetRoot());
        Strings->SetPkgName("MAIN");
        Strings->Labels()->Add(12, "Save", "Saves the file");
        Strings->Labels()->Add(13, "Open");
        Strings->Messages()->Add(3, "Really?");
        Strings->Texts()->Add(5, "Once upon a time");
        App->Privileges()->Add(4)->SetDescription("Managers");
        App->Privileges()->Add(5)->SetAccess(qaR);
    }

    TQzCApplication* App;
    TQzPkgStrings* Strings;
};

TEST_F(ReferenceEditors, ReferencesShowIdPackageAndWhatTheyLeadTo)
{
    const struct {
        Integer Id;
        const char *Label, *Message, *Text, *Image;
    } cases[] = {
        {12, "(12, MAIN) Save - Saves the file", "(12, MAIN) ", "(12, MAIN) ", "(12, MAIN)"},
        {13, "(13, MAIN) Open", "(13, MAIN) ", "(13, MAIN) ", "(13, MAIN)"},
        {3, "(3, MAIN) ", "(3, MAIN) Really?", "(3, MAIN) ", "(3, MAIN)"},
        {5, "(5, MAIN) ", "(5, MAIN) ", "(5, MAIN) Once upon a time", "(5, MAIN)"},
        {-2, "(Default)", "(Default)", "(Default)", "(Default)"},
        {-7, "(None)", "(None)", "(None)", "(None)"},
    };
    TRgHolder* h = H("H1");
    for (const auto& c : cases) {
        for (TQzMemoryRef* ref : std::initializer_list<TQzMemoryRef*>{&h->FCaption, &h->FMessage, &h->FText, &h->FImage})
            ref->PkgId("MAIN", c.Id);
        SCOPED_TRACE(c.Id);
        EXPECT_EQ(On<TQzMemoryLabelPropertyEditor>("Caption")->GetValue(), c.Label);
        EXPECT_EQ(On<TQzMemoryMessagePropertyEditor>("Message")->GetValue(), c.Message);
        EXPECT_EQ(On<TQzMemoryTextPropertyEditor>("Text")->GetValue(), c.Text);
        EXPECT_EQ(On<TQzMemoryImagePropertyEditor>("Image")->GetValue(), c.Image);
    }
    // An object of another kind shows nothing.
    EXPECT_EQ(On<TQzMemoryLabelPropertyEditor>("Message")->GetValue(), "");
    EXPECT_EQ(On<TQzSetFontProperty>("SetColor")->GetValue(), "");
}

TEST_F(ReferenceEditors, OnlyAnAcceptedDialogGivesEverySelectionTheFirstOnesReference)
{
    H("H3")->FCaption.PkgId("OTHER", 1);
    auto editor = On<TQzMemoryLabelPropertyEditor>("Caption", {"H1", "H2", "H3"});
    const auto pick = [](TQzEditorDialogRequest& r) { dynamic_cast<TQzMemoryLabel*>(r.Target)->PkgId("MAIN", 12); };
    {
        TFakeDialog cancelled(TQzEditorDialog::MemoryLabel, 2, pick);
        Form->ClearModified();
        editor->Edit();
        EXPECT_EQ(H("H3")->FCaption.PkgName(), "OTHER");
        EXPECT_FALSE(Form->IsModified());
    }
    TFakeDialog accepted(TQzEditorDialog::MemoryLabel, 1, pick);
    editor->Edit();
    ASSERT_EQ(accepted.Requests.size(), 1u);
    EXPECT_EQ(accepted.Requests[0].Target, &H("H1")->FCaption) << "the live object, not a copy";
    for (const char* name : {"H2", "H3"})
        EXPECT_EQ(H(name)->FCaption.Id(), 12) << name;
    EXPECT_TRUE(Form->IsModified());
}

TEST_F(ReferenceEditors, WithoutAnApplicationOrAWindowNothingChanges)
{
    TQzTestDialogs dialogs;
    dialogs->AnswerMessage(mbOK);
    TQzEditorDialogScope missing(TQzEditorDialog::MemoryText, {});
    On<TQzMemoryTextPropertyEditor>("Text", {"H1", "H2"})->Edit();
    ASSERT_EQ(dialogs->Calls().size(), 1u);
    EXPECT_EQ(dialogs->Calls()[0].Message.Text, "The memory text editor (TFrMemoryText) is not available yet.");
    EXPECT_FALSE(Form->IsModified());

    delete App;
    TFakeDialog set(TQzEditorDialog::SetFont), privilege(TQzEditorDialog::Privilege);
    std::unique_ptr<TPropertyEditor> editors[] = {On<TQzMemoryMessagePropertyEditor>("Message"),
                                                  On<TQzSetFontProperty>("SetFont"),
                                                  On<TQzPrivilegeProperty>("Privilege")};
    for (auto& editor : editors) {
        try {
            editor->Edit();
            ADD_FAILURE() << "no error for " << editor->GetName();
        } catch (const Exception& e) {
            EXPECT_EQ(e.Message(), "Component TQzCApplication not found");
        }
    }
    EXPECT_TRUE(set.Requests.empty() && privilege.Requests.empty());
}

TEST_F(ReferenceEditors, SetsTakeTheirNameWithoutADescriptionAndCompareInAnyCase)
{
    auto editor = On<TQzSetFontProperty>("SetFont", {"H1", "H2"});
    const std::pair<const char*, const char*> cases[] = {
        {"Bold - Titles", "Bold"}, {"Plain", "Plain"}, {"Two words - x - y", "Two words"}, {"- nothing", ""}};
    for (const auto& [typed, name] : cases) {
        editor->SetValue(typed);
        EXPECT_EQ(H("H2")->FSetFont.Name(), name) << typed;
    }
    H("H1")->FSetColor.SetName("Alert");
    H("H2")->FSetColor.SetName("ALERT");
    H("H3")->FSetColor.SetName("Calm");
    EXPECT_TRUE(On<TQzSetColorProperty>("SetColor", {"H1", "H2"})->AllEqual());
    EXPECT_FALSE(On<TQzSetColorProperty>("SetColor", {"H1", "H2", "H3"})->AllEqual());
}

TEST_F(ReferenceEditors, PrivilegesShowTheirAccessAndThePickedIdGoesToAll)
{
    auto editor = On<TQzPrivilegeProperty>("Privilege", {"H1", "H2"});
    const std::pair<Integer, const char*> cases[] = {{4, "(4, R/W) - Managers"}, {5, "(5, R)"}, {9, "(9, N)"}, {-1, "(None)"}};
    for (const auto& [id, shown] : cases) {
        H("H1")->FPrivilege.SetId(id);
        EXPECT_EQ(editor->GetValue(), shown);
    }
    H("H2")->FPrivilege.SetId(4);
    EXPECT_FALSE(editor->AllEqual());
    TFakeDialog picker(TQzEditorDialog::Privilege, 1, [](TQzEditorDialogRequest& r) { dynamic_cast<TQzPrivilege*>(r.Target)->SetId(5); });
    editor->Edit();
    EXPECT_EQ(picker.Requests[0].Package, App->Privileges());
    EXPECT_EQ(H("H2")->FPrivilege.Id(), 5);
    EXPECT_TRUE(editor->AllEqual());
}

TEST_F(ReferenceEditors, PackagesShowTheirStorageAndOpenTheirEditorOnWhatItEdits)
{
    App->PkgVars()->SetDescription("Settings");
    App->PkgVars()->SetInitMode(imFile);
    EXPECT_EQ(EditorOn<TQzCApplicationPkgVarsProperty>(Form.get(), {App}, "PkgVars")->GetValue(), "Settings (FILE)");
    EXPECT_EQ(EditorOn<TQzCApplicationPkgSetupProperty>(Form.get(), {App}, "PkgSetup")->GetValue(), "(DFM)");
    EXPECT_EQ(EditorOn<TQzCApplicationPrivilegesProperty>(Form.get(), {App}, "Privileges")->GetValue(), "(TQzPkgPrivileges)");
    auto fileName = EditorOn<TQzPkgStringsFileNameProperty>(Form.get(), {Strings}, "FileName");
    Strings->SetDescription("Main texts");
    EXPECT_EQ(fileName->GetValue(), "Main texts (DFM)");

    TFakeDialog vars(TQzEditorDialog::PkgVars), setup(TQzEditorDialog::Setup), strings(TQzEditorDialog::PkgStrings);
    EditorOn<TQzCApplicationPkgVarsProperty>(Form.get(), {App}, "PkgVars")->Edit();
    EditorOn<TQzCApplicationPkgSetupProperty>(Form.get(), {App}, "PkgSetup")->Edit();
    fileName->Edit();
    EXPECT_EQ(vars.Requests.at(0).Package, App->PkgVars());
    EXPECT_EQ(setup.Requests.at(0).Component, App);
    EXPECT_EQ(strings.Requests.at(0).Package, Strings);
}

}  // namespace
