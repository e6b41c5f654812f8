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

// A window in place of a dialog: records what it was given, does what the
// test asks to the target, and answers.
struct TFakeDialog {
    int Result = 1;
    std::function<void(TQzEditorDialogRequest&)> Act;
    std::vector<TQzEditorDialogRequest> Requests;

    TQzEditorDialogOpener Opener()
    {
        return [this](TQzEditorDialogRequest& request) {
            Requests.push_back(request);
            if (Act)
                Act(request);
            return Result;
        };
    }
};

class ReferenceEditors : public ::testing::Test {
protected:
    void SetUp() override
    {
        TComponent* root = Form->GetRoot();
        App = new TQzCApplication(root);
        App->SetName("App");
        auto* strings = new TQzPkgStrings(root);
        strings->SetName("Strings");
        strings->SetPkgName("MAIN");
        strings->Labels()->Add(12, "Save", "Saves the file");
        strings->Labels()->Add(13, "Open");
        strings->Messages()->Add(3, "Really?");
        strings->Texts()->Add(5, "Once upon a time");
        App->Privileges()->Add(4)->SetDescription("Managers");
        App->Privileges()->Add(5)->SetAccess(qaR);
    }

    TRgHolder* Holder(const char* name) { return dynamic_cast<TRgHolder*>(Form->GetComponent(name)); }

    template <class E>
    std::unique_ptr<E> On(const AnsiString& prop, std::vector<const char*> names = {"H1"})
    {
        std::vector<TPersistent*> objects;
        for (const char* n : names)
            objects.push_back(Form->GetComponent(n));
        return EditorOn<E>(Form.get(), objects, prop);
    }

    std::unique_ptr<TFormDesigner> Form = MakeHolderForm();
    TQzCApplication* App = nullptr;
};

TEST_F(ReferenceEditors, MemoryReferencesShowIdPackageAndText)
{
    const struct {
        Integer Id;
        const char* Label;
        const char* Message;
        const char* Text;
        const char* Image;
    } cases[] = {
        {12, "(12, MAIN) Save - Saves the file", "(12, MAIN) ", "(12, MAIN) ", "(12, MAIN)"},
        {13, "(13, MAIN) Open", "(13, MAIN) ", "(13, MAIN) ", "(13, MAIN)"},
        {3, "(3, MAIN) ", "(3, MAIN) Really?", "(3, MAIN) ", "(3, MAIN)"},
        {5, "(5, MAIN) ", "(5, MAIN) ", "(5, MAIN) Once upon a time", "(5, MAIN)"},
        {0, "(0, MAIN) ", "(0, MAIN) ", "(0, MAIN) ", "(0, MAIN)"},
        {-2, "(Default)", "(Default)", "(Default)", "(Default)"},
        {-1, "(None)", "(None)", "(None)", "(None)"},
        {-7, "(None)", "(None)", "(None)", "(None)"},
    };
    TRgHolder* h = Holder("H1");
    auto label = On<TQzMemoryLabelPropertyEditor>("Caption");
    auto message = On<TQzMemoryMessagePropertyEditor>("Message");
    auto text = On<TQzMemoryTextPropertyEditor>("Text");
    auto image = On<TQzMemoryImagePropertyEditor>("Image");
    for (const auto& c : cases) {
        h->FCaption.PkgId("MAIN", c.Id);
        h->FMessage.PkgId("MAIN", c.Id);
        h->FText.PkgId("MAIN", c.Id);
        h->FImage.PkgId("MAIN", c.Id);
        SCOPED_TRACE(c.Id);
        EXPECT_EQ(label->GetValue(), c.Label);
        EXPECT_EQ(message->GetValue(), c.Message);
        EXPECT_EQ(text->GetValue(), c.Text);
        EXPECT_EQ(image->GetValue(), c.Image);
    }
}

TEST_F(ReferenceEditors, AnObjectOfAnotherKindShowsNothing)
{
    EXPECT_EQ(On<TQzMemoryLabelPropertyEditor>("Message")->GetValue(), "");
    EXPECT_EQ(On<TQzMemoryImagePropertyEditor>("Caption")->GetValue(), "");
    EXPECT_EQ(On<TQzSetFontProperty>("SetColor")->GetValue(), "");
    EXPECT_EQ(On<TQzPrivilegeProperty>("Caption")->GetValue(), "");
}

TEST_F(ReferenceEditors, AnAcceptedDialogGivesEverySelectedControlTheFirstOnesReference)
{
    TFakeDialog dialog;
    dialog.Act = [](TQzEditorDialogRequest& request) { dynamic_cast<TQzMemoryLabel*>(request.Target)->PkgId("MAIN", 12); };
    TQzEditorDialogScope scope(TQzEditorDialog::MemoryLabel, dialog.Opener());
    Holder("H3")->FCaption.PkgId("OTHER", 1);
    Form->ClearModified();

    On<TQzMemoryLabelPropertyEditor>("Caption", {"H1", "H2", "H3"})->Edit();

    ASSERT_EQ(dialog.Requests.size(), 1u);
    EXPECT_EQ(dialog.Requests[0].Target, &Holder("H1")->FCaption) << "the live object, not a copy";
    for (const char* name : {"H1", "H2", "H3"}) {
        EXPECT_EQ(Holder(name)->FCaption.PkgName(), "MAIN") << name;
        EXPECT_EQ(Holder(name)->FCaption.Id(), 12) << name;
    }
    EXPECT_TRUE(Form->IsModified());
}

TEST_F(ReferenceEditors, ACancelledDialogLeavesTheOtherControlsAndTheFormAlone)
{
    TFakeDialog dialog;
    dialog.Result = 2;
    TQzEditorDialogScope scope(TQzEditorDialog::MemoryImage, dialog.Opener());
    Holder("H2")->FImage.PkgId("PICS", 8);
    Form->ClearModified();

    On<TQzMemoryImagePropertyEditor>("Image", {"H1", "H2"})->Edit();

    EXPECT_EQ(dialog.Requests.size(), 1u);
    EXPECT_EQ(Holder("H2")->FImage.PkgName(), "PICS");
    EXPECT_EQ(Holder("H2")->FImage.Id(), 8);
    EXPECT_FALSE(Form->IsModified());
}

TEST_F(ReferenceEditors, WithoutAnApplicationNoDialogOpens)
{
    delete App;
    App = nullptr;
    TFakeDialog dialog;
    const TQzEditorDialog kinds[] = {TQzEditorDialog::MemoryMessage, TQzEditorDialog::SetFont, TQzEditorDialog::Privilege};
    std::vector<std::unique_ptr<TQzEditorDialogScope>> scopes;
    for (TQzEditorDialog kind : kinds)
        scopes.push_back(std::make_unique<TQzEditorDialogScope>(kind, dialog.Opener()));

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
    EXPECT_TRUE(dialog.Requests.empty());
}

TEST_F(ReferenceEditors, AMissingDialogIsReportedAndChangesNothing)
{
    ASSERT_FALSE(QzHasEditorDialog(TQzEditorDialog::MemoryText));
    Holder("H1")->FText.PkgId("MAIN", 5);
    Form->ClearModified();
    TQzTestDialogs dialogs;
    dialogs->AnswerMessage(mbOK);

    On<TQzMemoryTextPropertyEditor>("Text", {"H1", "H2"})->Edit();

    ASSERT_EQ(dialogs->Calls().size(), 1u);
    EXPECT_EQ(dialogs->Calls()[0].Message.Text, "The memory text editor (TFrMemoryText) is not available yet.");
    EXPECT_EQ(dialogs->Calls()[0].Message.Type, mtInformation);
    EXPECT_EQ(Holder("H2")->FText.Id(), TQzMemoryRef::IdNone);
    EXPECT_FALSE(Form->IsModified());
}

// ---------------------------------------------------------------------------
// Display sets

TEST_F(ReferenceEditors, ASetNameIsTypedWithOrWithoutItsDescription)
{
    const struct {
        const char* Typed;
        const char* Name;
    } cases[] = {{"Bold - Titles", "Bold"}, {"Plain", "Plain"}, {"Two words - x - y", "Two words"}, {"Dash-less", "Dash"},
                 {"- nothing", ""}, {"", ""}};
    auto editor = On<TQzSetFontProperty>("SetFont", {"H1", "H2"});
    for (const auto& c : cases) {
        Form->ClearModified();
        editor->SetValue(c.Typed);
        EXPECT_EQ(Holder("H1")->FSetFont.Name(), c.Name) << c.Typed;
        EXPECT_EQ(Holder("H2")->FSetFont.Name(), c.Name) << c.Typed;
        EXPECT_EQ(editor->GetValue(), c.Name);
        EXPECT_TRUE(Form->IsModified());
    }
}

TEST_F(ReferenceEditors, SetsAreEqualWhenTheirNamesMatchInAnyCase)
{
    Holder("H1")->FSetColor.SetName("Alert");
    Holder("H2")->FSetColor.SetName("ALERT");
    Holder("H3")->FSetColor.SetName("Calm");
    EXPECT_TRUE(On<TQzSetColorProperty>("SetColor", {"H1", "H2"})->AllEqual());
    EXPECT_FALSE(On<TQzSetColorProperty>("SetColor", {"H1", "H2", "H3"})->AllEqual());
    EXPECT_TRUE(On<TQzSetColorProperty>("SetColor", {"H3"})->AllEqual());
    EXPECT_EQ(On<TQzSetBackGroundProperty>("SetBackGround")->GetValue(), "");
}

TEST_F(ReferenceEditors, AnAcceptedSetDialogCopiesTheSetToEverySelection)
{
    TFakeDialog dialog;
    dialog.Act = [](TQzEditorDialogRequest& request) { dynamic_cast<TQzSetRef*>(request.Target)->SetName("Wide"); };
    TQzEditorDialogScope scope(TQzEditorDialog::SetBackGround, dialog.Opener());
    On<TQzSetBackGroundProperty>("SetBackGround", {"H1", "H3"})->Edit();
    EXPECT_EQ(Holder("H3")->FSetBackGround.Name(), "Wide");
    EXPECT_EQ(Holder("H2")->FSetBackGround.Name(), "") << "not selected";
}

// ---------------------------------------------------------------------------
// Privileges

TEST_F(ReferenceEditors, PrivilegesShowIdAccessAndDescription)
{
    const struct {
        Integer Id;
        const char* Shown;
    } cases[] = {{4, "(4, R/W) - Managers"}, {5, "(5, R)"}, {9, "(9, N)"}, {-1, "(None)"}};
    auto editor = On<TQzPrivilegeProperty>("Privilege");
    for (const auto& c : cases) {
        Holder("H1")->FPrivilege.SetId(c.Id);
        EXPECT_EQ(editor->GetValue(), c.Shown);
    }
}

TEST_F(ReferenceEditors, PrivilegesAreEqualByIdAndThePickedIdGoesToAll)
{
    Holder("H1")->FPrivilege.SetId(4);
    Holder("H2")->FPrivilege.SetId(4);
    Holder("H3")->FPrivilege.SetId(5);
    EXPECT_TRUE(On<TQzPrivilegeProperty>("Privilege", {"H1", "H2"})->AllEqual());
    EXPECT_FALSE(On<TQzPrivilegeProperty>("Privilege", {"H1", "H3"})->AllEqual());

    TFakeDialog dialog;
    dialog.Act = [](TQzEditorDialogRequest& request) { dynamic_cast<TQzPrivilege*>(request.Target)->SetId(5); };
    TQzEditorDialogScope scope(TQzEditorDialog::Privilege, dialog.Opener());
    On<TQzPrivilegeProperty>("Privilege", {"H1", "H2"})->Edit();
    ASSERT_EQ(dialog.Requests.size(), 1u);
    EXPECT_EQ(dialog.Requests[0].Package, App->Privileges());
    EXPECT_EQ(Holder("H2")->FPrivilege.Id(), 5);
}

// ---------------------------------------------------------------------------
// Packages

TEST_F(ReferenceEditors, PackagesShowTheirDescriptionAndStorage)
{
    App->PkgVars()->SetDescription("Settings");
    App->PkgVars()->SetInitMode(imFile);
    const auto shown = [&]<class E>(const char* prop) {
        return EditorOn<E>(Form.get(), {App}, prop)->GetValue();
    };
    EXPECT_EQ(shown.operator()<TQzCApplicationPkgVarsProperty>("PkgVars"), "Settings (FILE)");
    EXPECT_EQ(shown.operator()<TQzCApplicationPkgSetupProperty>("PkgSetup"), "(DFM)");
    EXPECT_EQ(shown.operator()<TQzCApplicationPrivilegesProperty>("Privileges"), "(TQzPkgPrivileges)");

    auto* strings = dynamic_cast<TQzPkgStrings*>(Form->GetComponent("Strings"));
    auto fileName = EditorOn<TQzPkgStringsFileNameProperty>(Form.get(), {strings}, "FileName");
    EXPECT_EQ(fileName->GetValue(), "(DFM)");
    strings->SetDescription("Main texts");
    strings->SetInitMode(imFile);
    EXPECT_EQ(fileName->GetValue(), "Main texts (FILE)");
}

TEST_F(ReferenceEditors, PackageEditorsOpenTheirWindowOnWhatItEdits)
{
    TFakeDialog vars, setup, strings;
    TQzEditorDialogScope varsScope(TQzEditorDialog::PkgVars, vars.Opener());
    TQzEditorDialogScope setupScope(TQzEditorDialog::Setup, setup.Opener());
    TQzEditorDialogScope stringsScope(TQzEditorDialog::PkgStrings, strings.Opener());

    EditorOn<TQzCApplicationPkgVarsProperty>(Form.get(), {App}, "PkgVars")->Edit();
    EditorOn<TQzCApplicationPkgSetupProperty>(Form.get(), {App}, "PkgSetup")->Edit();
    TComponent* pkg = Form->GetComponent("Strings");
    EditorOn<TQzPkgStringsFileNameProperty>(Form.get(), {pkg}, "FileName")->Edit();

    ASSERT_EQ(vars.Requests.size(), 1u);
    EXPECT_EQ(vars.Requests[0].Package, App->PkgVars());
    ASSERT_EQ(setup.Requests.size(), 1u);
    EXPECT_EQ(setup.Requests[0].Component, App);
    ASSERT_EQ(strings.Requests.size(), 1u);
    EXPECT_EQ(strings.Requests[0].Package, pkg);
}

}  // namespace
