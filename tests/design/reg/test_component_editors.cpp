// The component editors at work: what each verb and each double-click
// opens or changes, on real components of a form under a designer.

#include "RegTestComponents.h"
#include "design/reg/QzCtrlsRegComponentEditors.h"
#include "support/gui/QzTestDialogs.h"

#include "runtime/components/Forms.h"
#include "runtime/components/QzComponentsReg.h"
#include "runtime/components/QzMenus.h"
#include "runtime/components/QzPages.h"
#include "runtime/model/QzApplication.h"
#include "runtime/model/QzPkgStrings.h"

#include <gtest/gtest.h>

namespace {

// Records every window the editors open, and what it showed while open.
class TWindowLog {
public:
    explicit TWindowLog(std::initializer_list<TQzEditorDialog> kinds)
    {
        for (TQzEditorDialog kind : kinds)
            FScopes.push_back(std::make_unique<TQzEditorDialogScope>(kind, [this, kind](TQzEditorDialogRequest& r) {
                Kinds.push_back(kind);
                Requests.push_back(r);
                Shown.push_back(r.Component ? r.Component->ClassType()->ClassName() : AnsiString());
                return 1;
            }));
    }
    std::vector<TQzEditorDialog> Kinds;
    std::vector<TQzEditorDialogRequest> Requests;
    std::vector<AnsiString> Shown;

private:
    std::vector<std::unique_ptr<TQzEditorDialogScope>> FScopes;
};

class ComponentEditors : public ::testing::Test {
protected:
    ComponentEditors()
    {
        RegisterQzComponentClasses();
        auto root = std::make_unique<TForm>(nullptr);
        root->SetName("Form1");
        Form = std::make_unique<TFormDesigner>(std::move(root));
    }

    template <class C>
    C* Create(const char* name)
    {
        auto* component = new C(Form->GetRoot());
        component->SetName(name);
        component->SetParentComponent(Form->GetRoot());
        return component;
    }

    template <class E>
    std::unique_ptr<E> EditorOf(TComponent* component)
    {
        return std::make_unique<E>(component, Form.get());
    }

    std::unique_ptr<TFormDesigner> Form;
};

TEST_F(ComponentEditors, TheApplicationsVerbsOpenTheirWindows)
{
    auto* app = Create<TQzCApplication>("App");
    TWindowLog log({TQzEditorDialog::Setup, TQzEditorDialog::About, TQzEditorDialog::PkgActive,
                    TQzEditorDialog::MemoEditor, TQzEditorDialog::ImageEditor, TQzEditorDialog::RichEditor,
                    TQzEditorDialog::ScrollBars, TQzEditorDialog::Help, TQzEditorDialog::PopupMenu});
    auto editor = EditorOf<TQzCApplicationComponentEditor>(app);
    editor->Edit();
    for (int verb : {0, 2, 6, 7, 8, 9, 10, 11})
        editor->ExecuteVerb(verb);

    using K = TQzEditorDialog;
    EXPECT_EQ(log.Kinds, (std::vector<K>{K::Setup, K::About, K::PkgActive, K::Help, K::MemoEditor, K::ImageEditor,
                                         K::RichEditor, K::ScrollBars, K::PopupMenu}));
    EXPECT_EQ(log.Requests[0].Component, app);
    EXPECT_EQ(log.Requests[2].Component, app) << "the applications list starts at this one";
    EXPECT_EQ(log.Requests[3].PkgName, "System");
    EXPECT_EQ(log.Requests[3].TopicId, 4);
    EXPECT_EQ(log.Shown[8], "TQzPopupMenu");
}

TEST_F(ComponentEditors, TheStandardWindowsStartFromZeroNowAndAnExampleMessage)
{
    auto* app = Create<TQzCApplication>("App");
    Extended calculated = -1;
    TDateTime dated = 0;
    SetQzStandardWindows({[&](int, Extended& v) { return calculated = v, true; }, [&](TDateTime& d) { return dated = d, true; }});
    auto editor = EditorOf<TQzCApplicationComponentEditor>(app);
    const TDateTime before = Now();
    editor->ExecuteVerb(3);
    editor->ExecuteVerb(4);
    SetQzStandardWindows({});
    EXPECT_EQ(calculated, 0);
    EXPECT_TRUE(dated >= before && dated <= Now());

    TQzTestDialogs dialogs;
    dialogs->AnswerMessage(mbCancel);
    editor->ExecuteVerb(5);
    const TQzMessageRequest& box = dialogs->Calls().at(0).Message;
    EXPECT_EQ(box.Type, mtConfirmation);
    EXPECT_EQ(box.Buttons, (TMsgDlgButtons{mbOK, mbCancel}));
}

TEST_F(ComponentEditors, UpdatingTheSystemPackagesRefreshesThemAndMarksTheForm)
{
    auto* app = Create<TQzCApplication>("App");
    const TQzSystemPackagesProvider previous = QzSystemPackagesProvider();
    auto editor = EditorOf<TQzCApplicationComponentEditor>(app);
    SetSystemPackagesProvider({[](TQzPkgStrings& target) { target.Labels()->Add(7001, "Built in"); }, {}});
    editor->ExecuteVerb(1);
    SetSystemPackagesProvider(previous);
    EXPECT_NE(app->PkgLanguage()->PkgSystem()->Labels()->FindId(7001), nullptr);
    EXPECT_TRUE(Form->IsModified());
}

TEST_F(ComponentEditors, PackageEditorsNeedTheApplicationAndOpenOnTheirPackage)
{
    auto* strings = Create<TQzPkgStrings>("Strings");
    TWindowLog log({TQzEditorDialog::PkgStrings, TQzEditorDialog::PkgActive});
    auto editor = EditorOf<TQzPkgStringsComponentEditor>(strings);
    EXPECT_THROW(editor->Edit(), EQzPkgError);
    EXPECT_THROW(editor->ExecuteVerb(0), EQzPkgError);
    EXPECT_TRUE(log.Kinds.empty());

    Create<TQzCApplication>("App");
    editor->Edit();
    editor->ExecuteVerb(0);
    EXPECT_EQ(log.Kinds, (std::vector<TQzEditorDialog>{TQzEditorDialog::PkgStrings, TQzEditorDialog::PkgActive}));
    EXPECT_TRUE(log.Requests[0].Package == strings && log.Requests[1].Package == strings);
}

TEST_F(ComponentEditors, OutLookBarVerbsAddAndStepPagesFromTheBarOrAPage)
{
    auto* bar = Create<TQzOutLookBar>("Bar");
    auto editor = EditorOf<TQzOutLookBarComponentEditor>(bar);
    editor->ExecuteVerb(1);
    EXPECT_FALSE(Form->IsModified()) << "nothing to step to";
    editor->Edit();   // a double-click adds a page, as the first verb
    editor->ExecuteVerb(0);
    editor->ExecuteVerb(0);
    ASSERT_EQ(bar->PageCount(), 3);
    EXPECT_EQ(bar->ActivePageIndex(), 2);
    EXPECT_EQ(Form->GetSelections(), (TDesignerSelections{bar->Pages(2)}));
    EXPECT_TRUE(Form->IsModified());
    editor->ExecuteVerb(1);
    EXPECT_EQ(bar->ActivePageIndex(), 0) << "forward past the last goes round";

    auto pageEditor = EditorOf<TQzOutLookBarPageComponentEditor>(bar->Pages(1));
    pageEditor->ExecuteVerb(2);
    EXPECT_EQ(bar->ActivePageIndex(), 2);
    pageEditor->Edit();
    EXPECT_EQ(bar->ActivePageIndex(), 1);
}

TEST_F(ComponentEditors, MenusAndPagesOpenTheirEditorsAndTheSystemMenuIsBuiltOnce)
{
    auto* popup = Create<TQzPopupMenu>("Popup");
    auto* main = Create<TQzMainMenu>("Main");
    auto* pages = Create<TQzPageControl>("Pages");
    TWindowLog log({TQzEditorDialog::Menus, TQzEditorDialog::CollPageControl});
    EditorOf<TQzPopupMenuComponentEditor>(popup)->ExecuteVerb(0);
    EditorOf<TQzMainMenuComponentEditor>(main)->Edit();
    EditorOf<TQzPageControlComponentEditor>(pages)->Edit();
    ASSERT_EQ(log.Requests.size(), 3u);
    EXPECT_TRUE(log.Requests[0].Component == popup && log.Requests[1].Component == main);
    EXPECT_EQ(log.Requests[2].Target, pages->Pages());

    EditorOf<TQzPopupMenuComponentEditor>(popup)->ExecuteVerb(1);
    const int built = popup->Items()->Count();
    EXPECT_GT(built, 0);
    Form->ClearModified();
    EditorOf<TQzPopupMenuComponentEditor>(popup)->ExecuteVerb(1);
    EXPECT_EQ(popup->Items()->Count(), built) << "a second build adds nothing";
    EXPECT_FALSE(Form->IsModified());
}

}  // namespace
