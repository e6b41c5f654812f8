// The setup and language windows driven as a user drives them: shortcuts
// pressed and refused, database conventions, the locale with its sample,
// the strings editor reached, and nothing reaching the form on Cancel.

#include "design/reg/QzEditorDialogs.h"
#include "design/settings/Qzvtlanguage.h"
#include "design/settings/Qzvtsetup.h"
#include "runtime/model/QzApplication.h"

#include "design/QzDesignWindowTest.h"
#include "support/gui/QzTestApp.h"
#include "support/gui/QzTestDialogs.h"

#include <memory>

namespace {

using TDriver = TQzModalDriver;

class SettingsWindows : public TQzGuiTest {
protected:
    static void SetUpTestSuite()
    {
        TQzGuiTest::SetUpTestSuite();
        RegisterQzvtsetup();
        RegisterQzvtlanguage();
    }
    void SetUp() override
    {
        FForm = std::make_unique<TComponent>(nullptr);
        App = new TQzCApplication(FForm.get());
    }

    int Run(TQzEditorDialog kind)
    {
        TQzEditorDialogRequest request;
        request.Component = App;
        return QzRunEditorDialog(kind, request);
    }
    template <class TForm>
    static TForm* Form(QWidget* w) { return QzWindowAs<TForm>(w); }

    std::unique_ptr<TComponent> FForm;
    TQzCApplication* App = nullptr;
    TQzMarkedLog FMarks;
    std::vector<TComponent*>& Marked = FMarks.Marked;
};

TEST_F(SettingsWindows, SetupTakesPressedShortCutsRefusesOnesInUseAndKeepsThemOnCancel)
{
    const TShortCut ctrlF9 = 0x4000 | 0x78;
    const TShortCut firstRecord = App->PkgSetup()->Keys()->ShortCut(saFirstRecord);
    for (bool ok : {true, false}) {
        SCOPED_TRACE(ok ? "Ok" : "Cancel");
        Marked.clear();
        TQzTestDialogs dialogs;
        dialogs->AnswerMessage(mbOK);
        TDriver driver;
        driver.Then("first record chosen", [](QWidget* w) {
            Form<TFrSetup>(w)->SelectAction(saFirstRecord);
            Form<TFrSetup>(w)->EdShortCut->setFocus();
        });
        driver.Key(Qt::Key_PageDown, Qt::ControlModifier);   // the next record's
        driver.Then("refused", [firstRecord](QWidget* w) {
            EXPECT_EQ(Form<TFrSetup>(w)->Keys().ShortCuts[saFirstRecord], firstRecord);
            EXPECT_EQ(Form<TFrSetup>(w)->EdShortCut->text(), "Ctrl+Home");
        });
        driver.Key(Qt::Key_F9, Qt::ControlModifier);
        driver.Then("taken", [](QWidget* w) {
            EXPECT_EQ(Form<TFrSetup>(w)->LVKeys->topLevelItem(saFirstRecord)->text(1), "Ctrl+F9");
        });
        driver.SetChecked("CBInsertMode", false);
        driver.Click(ok ? "BtOk" : "BtCancel");
        EXPECT_EQ(Run(TQzEditorDialog::Setup), ok ? 1 : 0);
        EXPECT_TRUE(driver.Finished());

        const TQzPkgSetupKeys* keys = App->PkgSetup()->Keys();
        EXPECT_EQ(keys->ShortCut(saFirstRecord), ok ? ctrlF9 : firstRecord);
        EXPECT_EQ(keys->InsertMode(), !ok);
        EXPECT_EQ(Marked, ok ? std::vector<TComponent*>{FForm.get()} : std::vector<TComponent*>{});
        ASSERT_EQ(dialogs->CallsOf(TQzDialogKind::Message).size(), 1u);
        EXPECT_NE(dialogs->Calls()[0].Message.Text.find("NextRecord"), AnsiString::npos);
        App->PkgSetup()->Clear();
    }
}

TEST_F(SettingsWindows, SetupDataBaseFollowsTheEngineAndRefusesAnEmptySeparator)
{
    TQzTestDialogs dialogs;
    dialogs->AnswerMessage(mbOK);
    TDriver driver;
    driver.Then("MySQL chosen", [](QWidget* w) {
        TFrSetup* form = Form<TFrSetup>(w);
        form->PCSetup->setCurrentWidget(form->TabDataBase);
        form->CBEngine->setCurrentIndex(deMySQL);
        EXPECT_TRUE(form->CBQuotedNumber->isChecked());
        EXPECT_EQ(form->LabDbSample->text(),
                  "WHERE Day = '2026-11-25' AND At = '14:05:00' AND Price = '1234.50'");
    });
    driver.SetText("EdDbDateSeparator", "").Click("BtOk");
    driver.Then("still open", [](QWidget* w) { Form<TFrSetup>(w); });
    driver.SetText("EdDbDateSeparator", "/").Click("BtOk");
    EXPECT_EQ(Run(TQzEditorDialog::Setup), 1);
    EXPECT_TRUE(driver.Finished());
    const TQzPkgSetupDataBase* db = App->PkgSetup()->DataBase();
    EXPECT_EQ(db->DataBaseEngine(), deMySQL);
    EXPECT_EQ(db->GetDateSeparator(), '/');
    EXPECT_TRUE(db->GetQuotedNumber());
    EXPECT_EQ(Marked.size(), 1u);
}

TEST_F(SettingsWindows, LanguageShowsItsLocaleLiveAndKeepsStringsEditsForOk)
{
    for (bool ok : {true, false}) {
        SCOPED_TRACE(ok ? "Ok" : "Cancel");
        Marked.clear();
        TQzPkgLanguage* language = App->PkgLanguage();
        // The strings editor gets the window's copy, never the form's strings.
        TQzEditorDialogScope strings(TQzEditorDialog::PkgStrings, [language](TQzEditorDialogRequest& r) {
            auto* pkg = dynamic_cast<TQzPkgStrings*>(r.Package);
            EXPECT_TRUE(pkg && pkg != language->PkgUser() && pkg->PkgName() == language->PkgUser()->PkgName());
            if (pkg)
                pkg->Labels()->Add(7, "Customer");
            return 1;
        });
        TDriver driver;
        driver.Click("BtUser");
        driver.Then("the count follows", [](QWidget* w) {
            EXPECT_EQ(Form<TFrLanguage>(w)->LabUserCount->text(), "1 label, 0 messages, 0 texts");
            Form<TFrLanguage>(w)->PCLanguage->setCurrentWidget(Form<TFrLanguage>(w)->TabLocale);
        });
        driver.SetText("EdCurrencyString", "EUR").SetText("EdThousandSeparator", ".");
        driver.SetText("EdDecimalSeparator", ",");
        driver.Then("the sample follows", [](QWidget* w) {
            TFrLanguage* form = Form<TFrLanguage>(w);
            form->CBCurrencyFormat->setCurrentIndex(cfAfterSpace);
            form->CBDateFormat->setCurrentIndex(dfYMD);
            EXPECT_EQ(form->LabCurrency->text(), "1.234.567,89 EUR");
            EXPECT_EQ(form->LabDate->text(), "2026/12/31");
        });
        driver.Click(ok ? "BtOk" : "BtCancel");
        EXPECT_EQ(Run(TQzEditorDialog::Language), ok ? 1 : 0);
        EXPECT_TRUE(driver.Finished());

        EXPECT_EQ(language->Locale()->NumericCurrencyString(), ok ? "EUR" : "$");
        EXPECT_EQ(language->Locale()->DateFormat(), ok ? dfYMD : dfDMY);
        EXPECT_EQ(language->PkgUser()->Labels()->Count(), ok ? 1 : 0);
        EXPECT_EQ(Marked.size(), ok ? 1u : 0u);
        language->Clear();
    }
}

TEST_F(SettingsWindows, OkWithoutAChangeAddsNoUndoStep)
{
    for (TQzEditorDialog kind : {TQzEditorDialog::Setup, TQzEditorDialog::Language}) {
        TDriver driver;
        driver.Click("BtOk");
        EXPECT_EQ(Run(kind), 1);
        EXPECT_TRUE(driver.Finished());
    }
    EXPECT_TRUE(Marked.empty());
}

}  // namespace
