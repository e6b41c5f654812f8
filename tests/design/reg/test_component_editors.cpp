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

// Records every window the editors open, by kind, and answers 1.
class TWindowLog {
public:
    explicit TWindowLog(std::initializer_list<TQzEditorDialog> kinds)
    {
        for (TQzEditorDialog kind : kinds)
            FScopes.push_back(std::make_unique<TQzEditorDialogScope>(kind, [this, kind](TQzEditorDialogRequest& r) {
                Opened.push_back({kind, r});
                // What the window was shown, while it is still there.
                Shown.push_back(r.Component ? r.Component->ClassType()->ClassName() : AnsiString());
                return 1;
            }));
    }
    std::vector<std::pair<TQzEditorDialog, TQzEditorDialogRequest>> Opened;
    std::vector<AnsiString> Shown;

private:
    std::vector<std::unique_ptr<TQzEditorDialogScope>> FScopes;
};

class ComponentEditors : public ::testing::Test {
protected:
    void SetUp() override
    {
        RegisterQzComponentClasses();
        auto root = std::make_unique<TForm>(nullptr);
        root->SetName("Form1");
        Form = std::make_unique<TFormDesigner>(std::move(root));
    }

    template <class C>
    C* Create(const char* name, TComponent* parent = nullptr)
    {
        auto* component = new C(Form->GetRoot());
        component->SetName(name);
        if (parent)
            component->SetParentComponent(parent);
        return component;
    }

    template <class E>
    std::unique_ptr<E> EditorOf(TComponent* component)
    {
        return std::make_unique<E>(component, Form.get());
    }

    std::unique_ptr<TFormDesigner> Form;
};

TEST_F(ComponentEditors, TheApplicationsDoubleClickOpensItsSetup)
{
    auto* app = Create<TQzCApplication>("App");
    TWindowLog log({TQzEditorDialog::Setup});
    EditorOf<TQzCApplicationComponentEditor>(app)->Edit();
    ASSERT_EQ(log.Opened.size(), 1u);
    EXPECT_EQ(log.Opened[0].second.Component, app);
}

TEST_F(ComponentEditors, TheApplicationsVerbsOpenTheirWindowsWithTheirCaptions)
{
    auto* app = Create<TQzCApplication>("App");
    TWindowLog log({TQzEditorDialog::About, TQzEditorDialog::PkgActive, TQzEditorDialog::MemoEditor,
                    TQzEditorDialog::ImageEditor, TQzEditorDialog::RichEditor, TQzEditorDialog::ScrollBars,
                    TQzEditorDialog::Help, TQzEditorDialog::PopupMenu});
    auto editor = EditorOf<TQzCApplicationComponentEditor>(app);
    for (int verb : {0, 2, 6, 7, 8, 9, 10, 11})
        editor->ExecuteVerb(verb);

    const struct {
        TQzEditorDialog Kind;
        const char* Caption;
    } expected[] = {
        {TQzEditorDialog::About, ""},
        {TQzEditorDialog::PkgActive, ""},
        {TQzEditorDialog::Help, ""},
        {TQzEditorDialog::MemoEditor, "Memo Editor Example"},
        {TQzEditorDialog::ImageEditor, "Image Editor Example"},
        {TQzEditorDialog::RichEditor, "Rich Editor Example"},
        {TQzEditorDialog::ScrollBars, "ScrollBars Example"},
        {TQzEditorDialog::PopupMenu, ""},
    };
    ASSERT_EQ(log.Opened.size(), std::size(expected));
    for (std::size_t i = 0; i < std::size(expected); ++i) {
        EXPECT_EQ(log.Opened[i].first, expected[i].Kind) << i;
        EXPECT_EQ(log.Opened[i].second.Caption, expected[i].Caption) << i;
    }
    EXPECT_EQ(log.Opened[1].second.Component, app) << "the applications list starts at this one";
    const TQzEditorDialogRequest& help = log.Opened[2].second;
    EXPECT_EQ(help.PkgName, "System");
    EXPECT_EQ(help.TopicId, 4);
    EXPECT_EQ(help.Text, TQzCApplicationComponentEditor::ExampleHelpText());
    EXPECT_EQ(log.Shown[7], "TQzPopupMenu");
}

TEST_F(ComponentEditors, TheExampleTextsRepeatTheirPhrase)
{
    const AnsiString messageLine = "Example Message, Example Message, Example Message";
    EXPECT_EQ(TQzCApplicationComponentEditor::ExampleMessageText(),
              messageLine + "\r\n" + messageLine + "\r\n" + messageLine);
    const AnsiString help = TQzCApplicationComponentEditor::ExampleHelpText();
    EXPECT_EQ(std::count(help.begin(), help.end(), '\n'), 4);
    EXPECT_EQ(help.substr(0, help.find('\r')),
              "Help Example, Help Example, Help Example, Help Example, Help Example, Help Example, Help Example");
}

TEST_F(ComponentEditors, TheMessageExampleAsksForConfirmationWithOkAndCancel)
{
    auto* app = Create<TQzCApplication>("App");
    TQzTestDialogs dialogs;
    dialogs->AnswerMessage(mbCancel);
    EditorOf<TQzCApplicationComponentEditor>(app)->ExecuteVerb(5);
    ASSERT_EQ(dialogs->Calls().size(), 1u);
    const TQzMessageRequest& box = dialogs->Calls()[0].Message;
    EXPECT_EQ(box.Type, mtConfirmation);
    EXPECT_EQ(box.Buttons, (TMsgDlgButtons{mbOK, mbCancel}));
    EXPECT_EQ(box.Text, TQzCApplicationComponentEditor::ExampleMessageText());
}

TEST_F(ComponentEditors, TheCalculatorStartsAtZeroAndTheCalendarAtNow)
{
    auto* app = Create<TQzCApplication>("App");
    int calculatorDecimals = -1;
    Extended calculatorValue = -1;
    TDateTime calendarDate = 0;
    SetQzStandardWindows({[&](int decimals, Extended& value) {
                              calculatorDecimals = decimals;
                              calculatorValue = value;
                              return true;
                          },
                          [&](TDateTime& date) {
                              calendarDate = date;
                              return true;
                          }});
    auto editor = EditorOf<TQzCApplicationComponentEditor>(app);
    const TDateTime before = Now();
    editor->ExecuteVerb(3);
    editor->ExecuteVerb(4);
    SetQzStandardWindows({});
    EXPECT_EQ(calculatorDecimals, 0);
    EXPECT_EQ(calculatorValue, 0);
    EXPECT_GE(calendarDate, before);
    EXPECT_LE(calendarDate, Now());
}

TEST_F(ComponentEditors, UpdatingTheSystemPackagesRefreshesThemAndMarksTheForm)
{
    auto* app = Create<TQzCApplication>("App");
    const TQzSystemPackagesProvider previous = QzSystemPackagesProvider();
    SetSystemPackagesProvider({[](TQzPkgStrings& target) { target.Labels()->Add(7001, "Built in"); }, {}});
    Form->ClearModified();
    EditorOf<TQzCApplicationComponentEditor>(app)->ExecuteVerb(1);
    SetSystemPackagesProvider(previous);

    ASSERT_NE(app->PkgLanguage()->PkgSystem()->Labels()->FindId(7001), nullptr);
    EXPECT_TRUE(Form->IsModified());
}

TEST_F(ComponentEditors, UpdatingWithoutBuiltInPackagesSaysSo)
{
    auto* app = Create<TQzCApplication>("App");
    const TQzSystemPackagesProvider previous = QzSystemPackagesProvider();
    SetSystemPackagesProvider({});
    TQzTestDialogs dialogs;
    dialogs->AnswerMessage(mbOK);
    Form->ClearModified();
    EditorOf<TQzCApplicationComponentEditor>(app)->ExecuteVerb(1);
    SetSystemPackagesProvider(previous);
    EXPECT_EQ(dialogs->Calls().size(), 1u);
    EXPECT_FALSE(Form->IsModified());
}

TEST_F(ComponentEditors, TheExamplePopupMenuHasThirteenItemsWithSystemImages)
{
    const std::unique_ptr<TQzPopupMenu> menu = TQzCApplicationComponentEditor::BuildExamplePopupMenu();
    EXPECT_EQ(menu->Owner(), nullptr);
    EXPECT_EQ(GetOrdProp(menu.get(), "ImagesVisible"), 1);
    EXPECT_EQ(GetOrdProp(menu.get(), "ImageSize"), 16);
    const Integer images[] = {48, 49, 50, 51, 51, 52, 52, 53, 54, 54, 55, 56, 57};
    ASSERT_EQ(menu->Items()->Count(), 13);
    for (int i = 0; i < 13; ++i) {
        const TQzMenuItem* item = menu->Items()->Items(i);
        EXPECT_EQ(item->IsLine(), i == 4 || i == 6 || i == 9) << i;
        EXPECT_EQ(item->Caption(), item->IsLine() ? "-" : "Item Example") << i;
        EXPECT_EQ(item->Image()->PkgName(), "System") << i;
        EXPECT_EQ(item->Image()->Id(), images[i]) << i;
    }
}

TEST_F(ComponentEditors, PackageEditorsNeedTheApplicationAndOpenOnTheirPackage)
{
    auto* strings = Create<TQzPkgStrings>("Strings");
    TWindowLog log({TQzEditorDialog::PkgStrings, TQzEditorDialog::PkgActive});
    auto editor = EditorOf<TQzPkgStringsComponentEditor>(strings);
    EXPECT_THROW(editor->Edit(), EQzPkgError);
    EXPECT_THROW(editor->ExecuteVerb(0), EQzPkgError);
    EXPECT_TRUE(log.Opened.empty());

    Create<TQzCApplication>("App");
    editor->Edit();
    editor->ExecuteVerb(0);
    ASSERT_EQ(log.Opened.size(), 2u);
    EXPECT_EQ(log.Opened[0].first, TQzEditorDialog::PkgStrings);
    EXPECT_EQ(log.Opened[1].first, TQzEditorDialog::PkgActive);
    EXPECT_EQ(log.Opened[0].second.Package, strings);
    EXPECT_EQ(log.Opened[1].second.Package, strings);
}

TEST_F(ComponentEditors, OutLookBarVerbsAddAndStepPages)
{
    auto* bar = Create<TQzOutLookBar>("Bar", Form->GetRoot());
    auto editor = EditorOf<TQzOutLookBarComponentEditor>(bar);
    Form->ClearModified();
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
    editor->ExecuteVerb(2);
    EXPECT_EQ(bar->ActivePageIndex(), 2);

    // A page's editor acts on its bar; its double-click shows the page.
    auto pageEditor = EditorOf<TQzOutLookBarPageComponentEditor>(bar->Pages(1));
    pageEditor->ExecuteVerb(2);
    EXPECT_EQ(bar->ActivePageIndex(), 1);
    pageEditor->ExecuteVerb(0);
    EXPECT_EQ(bar->PageCount(), 4);
    EditorOf<TQzOutLookBarPageComponentEditor>(bar->Pages(0))->Edit();
    EXPECT_EQ(bar->ActivePageIndex(), 0);
}

TEST_F(ComponentEditors, MenusOpenTheMenusEditorAndBuildTheSystemMenuOnce)
{
    auto* popup = Create<TQzPopupMenu>("Popup");
    auto* main = Create<TQzMainMenu>("Main");
    auto* panel = Create<TQzPanelMenu>("Panel", Form->GetRoot());
    TWindowLog log({TQzEditorDialog::Menus});
    EditorOf<TQzPopupMenuComponentEditor>(popup)->Edit();
    EditorOf<TQzPopupMenuComponentEditor>(popup)->ExecuteVerb(0);
    EditorOf<TQzMainMenuComponentEditor>(main)->Edit();
    EditorOf<TQzPanelMenuComponentEditor>(panel)->Edit();
    ASSERT_EQ(log.Opened.size(), 4u);
    EXPECT_EQ(log.Opened[0].second.Component, popup);
    EXPECT_EQ(log.Opened[2].second.Component, main);
    EXPECT_EQ(log.Opened[3].second.Component, panel);
    EXPECT_EQ(log.Opened[3].second.Designer, Form.get());

    Form->ClearModified();
    EditorOf<TQzPopupMenuComponentEditor>(popup)->ExecuteVerb(1);
    const int built = popup->Items()->Count();
    EXPECT_GT(built, 0);
    EXPECT_TRUE(Form->IsModified());
    Form->ClearModified();
    EditorOf<TQzPopupMenuComponentEditor>(popup)->ExecuteVerb(1);
    EXPECT_EQ(popup->Items()->Count(), built) << "a second build adds nothing";
    EXPECT_FALSE(Form->IsModified());
}

TEST_F(ComponentEditors, APageControlOpensItsPagesInThePageCollectionEditor)
{
    auto* pages = Create<TQzPageControl>("Pages", Form->GetRoot());
    TWindowLog log({TQzEditorDialog::CollPageControl});
    EditorOf<TQzPageControlComponentEditor>(pages)->Edit();
    ASSERT_EQ(log.Opened.size(), 1u);
    EXPECT_EQ(log.Opened[0].second.Target, pages->Pages());
    EXPECT_EQ(log.Opened[0].second.Component, pages);
}

}  // namespace
