// The memory label, message and text editors and their Add dialogs driven as
// a user drives them: where they open, what Ok, N&ull, De&fault and Cancel
// leave in the reference, items added, refused and deleted on the spot, and
// the package's own file written when the editor closes.

#include "design/reg/QzEditorDialogs.h"
#include "design/strings/QzStringsReg.h"
#include "design/strings/Qzvtmemorylabel.h"
#include "design/strings/Qzvtmemorylabeladd.h"
#include "design/strings/Qzvtmemorymessage.h"
#include "design/strings/Qzvtmemorymessageadd.h"
#include "design/strings/Qzvtmemorytext.h"
#include "runtime/dialogs/QzStandardWindows.h"
#include "runtime/files/QzPkgFiles.h"
#include "runtime/model/QzApplication.h"
#include "runtime/model/QzPkgLanguage.h"

#include "design/QzDesignWindowTest.h"
#include "support/gui/QzTestApp.h"
#include "support/gui/QzTestDialogs.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>

#include <memory>

namespace {

class MemoryWindows : public TQzGuiTest {
protected:
    void SetUp() override
    {
        RegisterQzStandardWindows();
        RegisterQzPkgFileFormats();
        RegisterStringsWindows();
        FForm = std::make_unique<TComponent>(nullptr);
        FApp = new TQzCApplication(FForm.get());
        FPkg = new TQzPkgStrings(FForm.get());
        FPkg->SetPkgName("MAIN");
        FPkg->Labels()->Add(1, "Save", "Saves the file");
        FPkg->Labels()->Add(2, "Open");
        FPkg->Messages()->Add(3, "Really?");
        FPkg->Texts()->Add(4, "Line one\r\nLine two");
    }

    template <class Editor>
    TModalResult Run(TQzMemoryRef& ref, TQzModalDriver& driver)
    {
        Editor form;
        form.SetMemory(&ref);
        const TModalResult result = form.Execute();
        EXPECT_TRUE(driver.Finished());
        return result;
    }

    static TQzModalDriver::TStep Expect(const char* what, std::function<void(QWidget*)> check)
    {
        return [what, check](QWidget* w) {
            SCOPED_TRACE(what);
            check(w);
        };
    }
    static QString Text(QWidget* w, const char* name) { return TQzModalDriver::Find<QLineEdit>(w, name)->text(); }

    std::unique_ptr<TComponent> FForm;
    TQzCApplication* FApp = nullptr;
    TQzPkgStrings* FPkg = nullptr;   // owned by the form
    TQzMarkedLog FMarks;
    std::vector<TComponent*>& FModified = FMarks.Marked;
    TQzTestDialogs FDialogs;
};

TEST_F(MemoryWindows, NullAndDefaultStoreTheirIdsWhateverPackageIsChosen)
{
    const struct {
        const char* Button;
        const char* Pkg;
        Integer Stored;
    } cases[] = {{"BtNull", "MAIN", -1}, {"BtNull", "User", -1}, {"BtDefault", "MAIN", -2}, {"BtDefault", "Other", -2}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.Button) + " " + c.Pkg);
        TQzMemoryLabel ref("MAIN", 2, true);
        ref.PkgId("MAIN", 1);
        TQzModalDriver driver;
        driver.Then("package", [&](QWidget* w) { TQzModalDriver::Find<QComboBox>(w, "EdPkg")->setEditText(c.Pkg); })
            .Click(c.Button);
        EXPECT_EQ(Run<TFrMemoryLabel>(ref, driver), mrOk);
        EXPECT_EQ(ref.Id(), c.Stored);
        EXPECT_EQ(ref.PkgName(), c.Pkg);
    }
}

TEST_F(MemoryWindows, EachPropertyOpensItsOwnEditorOnlyForItsOwnKindOfReference)
{
    TQzMemoryLabel label;
    TQzMemoryMessage message;
    TQzMemoryText text;
    const struct {
        TQzEditorDialog Kind;
        TQzMemoryRef* Own;
        TQzMemoryRef* Other;
        const char* Form;
    } cases[] = {{TQzEditorDialog::MemoryLabel, &label, &text, "TFrMemoryLabel"},
                 {TQzEditorDialog::MemoryMessage, &message, &label, "TFrMemoryMessage"},
                 {TQzEditorDialog::MemoryText, &text, &message, "TFrMemoryText"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Form);
        TQzEditorDialogRequest request;
        request.Target = c.Other;
        EXPECT_EQ(QzRunEditorDialog(c.Kind, request), 0) << "no window for another kind";
        for (const bool ok : {true, false}) {
            request.Target = c.Own;
            TQzModalDriver driver;
            driver.Then("its window", [&c](QWidget* w) { EXPECT_STREQ(w->metaObject()->className(), c.Form); })
                .Click(ok ? "BtOk" : "BtCancel");
            EXPECT_EQ(QzRunEditorDialog(c.Kind, request), ok ? 1 : 0);
            EXPECT_TRUE(driver.Finished());
        }
    }
}

TEST_F(MemoryWindows, OpensOnTheReferenceAndStoresTheChoiceOnlyOnOk)
{
    // No package named: "User" is chosen and, being listed, the Id box has the focus.
    TQzMemoryMessage none;
    TQzModalDriver driver;
    driver
        .Then("opened on User",
              Expect("User", [](QWidget* w) {
                  EXPECT_EQ(w->windowTitle(), "Messages");
                  EXPECT_EQ(TQzModalDriver::Find<QComboBox>(w, "EdPkg")->currentText(), "User");
                  EXPECT_EQ(w->focusWidget(), TQzModalDriver::Find<QLineEdit>(w, "EdId"));
              }))
        .Click("BtOk");
    EXPECT_EQ(Run<TFrMemoryMessage>(none, driver), mrOk);
    EXPECT_EQ(none.PkgName(), "User");
    EXPECT_EQ(none.Id(), -1);

    // A package no list holds asks for a package first; nothing can be added to it.
    TQzMemoryLabel lost;
    lost.PkgId("Nowhere", 3);
    TQzModalDriver nowhere;
    nowhere.Then("package first", Expect("Nowhere", [](QWidget* w) {
                     EXPECT_EQ(w->focusWidget(), TQzModalDriver::Find<QComboBox>(w, "EdPkg"));
                     EXPECT_FALSE(TQzModalDriver::Find<QPushButton>(w, "BtAdd")->isEnabled());
                 }))
        .Click("BtCancel");
    EXPECT_EQ(Run<TFrMemoryLabel>(lost, nowhere), mrCancel);

    // The default package and Id chosen by hand are stored as the default.
    TQzMemoryLabel ref("MAIN", 2, true);
    ref.PkgId("MAIN", 1);
    TQzModalDriver byHand;
    byHand
        .Then("opened on the reference",
              Expect("start", [](QWidget* w) {
                  EXPECT_EQ(Text(w, "EdId"), "1");
                  EXPECT_EQ(TQzModalDriver::Find<QPlainTextEdit>(w, "EdHint")->toPlainText(), "Saves the file");
              }))
        .SetText("EdId", "2")
        .Click("BtOk");
    EXPECT_EQ(Run<TFrMemoryLabel>(ref, byHand), mrOk);
    EXPECT_EQ(ref.Id(), -2);

    // Cancel leaves the reference and the form alone.
    TQzMemoryText text;
    text.PkgId("MAIN", 4);
    TQzModalDriver cancel;
    cancel.Then("whole text shown", Expect("text", [](QWidget* w) {
                    EXPECT_EQ(TQzModalDriver::Find<QPlainTextEdit>(w, "EdTexto")->toPlainText(), "Line one\nLine two");
                }))
        .Then("package", [](QWidget* w) { TQzModalDriver::Find<QComboBox>(w, "EdPkg")->setEditText("User"); })
        .Click("BtCancel");
    EXPECT_EQ(Run<TFrMemoryText>(text, cancel), mrCancel);
    EXPECT_EQ(text.PkgName(), "MAIN");
    EXPECT_EQ(text.Id(), 4);
    EXPECT_TRUE(FModified.empty());
}

TEST_F(MemoryWindows, SearchMovesToTheLabelAndWritesItsId)
{
    TQzMemoryLabel ref;
    ref.PkgId("MAIN", -1);
    TQzModalDriver driver;
    driver.Type("EdLabel", "sa")
        .Then("Save found", Expect("search", [](QWidget* w) { EXPECT_EQ(Text(w, "EdId"), "1"); }))
        .Click("BtOk");
    EXPECT_EQ(Run<TFrMemoryLabel>(ref, driver), mrOk);
    EXPECT_EQ(ref.Id(), 1);
}

TEST_F(MemoryWindows, ItemsAddedAndDeletedOnTheChosenPackageMarkItsForm)
{
    TQzMemoryLabel ref;
    ref.PkgId("MAIN", 1);
    TQzModalDriver driver;
    driver.Click("BtAdd")
        .Then("the Add dialog", Expect("add", [](QWidget* w) {
                  EXPECT_EQ(w->windowTitle(), "Add Label");
                  EXPECT_EQ(Text(w, "EdId"), "0");
                  EXPECT_FALSE(TQzModalDriver::Find<QCheckBox>(w, "EdProtected")->isVisible());
              }))
        .SetText("EdLabel", "Close")
        .Click("BtOk")
        .Then("the new label chosen", Expect("added", [](QWidget* w) { EXPECT_EQ(Text(w, "EdId"), "0"); }))
        .Then("answer", [this](QWidget*) { FDialogs->AnswerMessage(mbYes); })
        .SetText("EdId", "2")
        .Click("BtDelete")
        .Click("BtOk");
    EXPECT_EQ(Run<TFrMemoryLabel>(ref, driver), mrOk);
    ASSERT_NE(FPkg->Labels()->FindId(0), nullptr);
    EXPECT_EQ(FPkg->Labels()->FindId(0)->Text(), "Close");
    EXPECT_EQ(FPkg->Labels()->FindId(2), nullptr);
    EXPECT_EQ(FModified, (std::vector<TComponent*>{FForm.get(), FForm.get()}));
    // The row left after the delete is the one now at that place (Save).
    EXPECT_EQ(ref.Id(), 1);
}

TEST_F(MemoryWindows, AddDialogKeepsItselfOpenOnARefusedIdAndShowsProtectedForSystemOnly)
{
    TFrMemoryLabelAdd add;
    add.setWindowTitle("Add Label");
    FDialogs->AnswerMessage(mbOK);
    TQzModalDriver driver;
    driver.SetText("EdId", "2")
        .SetText("EdLabel", "Twice")
        .Click("BtOk")
        .Then("still open", Expect("refused", [this](QWidget* w) {
                  EXPECT_EQ(w->windowTitle(), "Add Label");
                  EXPECT_EQ(FPkg->Labels()->Count(), 2);
                  EXPECT_EQ(FPkg->Labels()->FindId(2)->Text(), "Open");
              }))
        .SetText("EdId", "7")
        .Click("SBEdit")
        .Then("the memo", [](QWidget* w) {
            EXPECT_EQ(w->windowTitle(), "Label MultiLine");
            auto* memo = TQzModalDriver::Find<QPlainTextEdit>(w, "Memo");
            EXPECT_EQ(memo->toPlainText(), "Twice");
            memo->setPlainText("Two\nlines");
        })
        .Click("BtOk")
        .Click("BtOk");
    EXPECT_EQ(add.Execute(FPkg, false, 0), 1);
    EXPECT_EQ(FPkg->Labels()->FindId(7)->Text(), "Two\r\nlines");
    EXPECT_EQ(FDialogs->Calls().size(), 1u);
    FPkg->Messages()->Add(7, "Taken");

    // Modify starts from the item and may move it to a free Id only.
    TFrMemoryMessageAdd modify;
    FDialogs->AnswerMessage(mbOK);
    TQzModalDriver moving;
    moving
        .Then("filled from the item", Expect("modify", [](QWidget* w) {
                  EXPECT_EQ(Text(w, "EdId"), "3");
                  EXPECT_EQ(TQzModalDriver::Find<QPlainTextEdit>(w, "EdMessage")->toPlainText(), "Really?");
              }))
        .SetText("EdId", "7")
        .Click("BtOk")
        .Then("text", [](QWidget* w) { TQzModalDriver::Find<QPlainTextEdit>(w, "EdMessage")->setPlainText("Sure?"); })
        .SetText("EdId", "8")
        .Click("BtOk");
    EXPECT_EQ(modify.Execute(FPkg, true, 3), 1);
    EXPECT_EQ(FPkg->Messages()->FindId(3), nullptr);
    EXPECT_EQ(FPkg->Messages()->FindId(8)->Text(), "Sure?");

    for (const char* name : {"System", "system", "MAIN"}) {
        SCOPED_TRACE(name);
        TQzPkgStrings pkg(nullptr);
        pkg.SetPkgName(name);
        const bool shown = SameText(name, "System");
        TFrMemoryLabelAdd dialog;
        TQzModalDriver check;
        check.Then("Protected", Expect(name, [shown](QWidget* w) {
                         EXPECT_EQ(TQzModalDriver::Find<QCheckBox>(w, "EdProtected")->isVisible(), shown);
                     }))
            .Click("BtCancel");
        EXPECT_EQ(dialog.Execute(&pkg, false, 0), 0);
    }
}

TEST_F(MemoryWindows, APackageInItsOwnFileIsWrittenWhenTheEditorCloses)
{
    QTemporaryDir dir;
    const AnsiString file = dir.filePath("main.pst").toStdString();
    FPkg->SetInitMode(imFile);
    FPkg->SetFileName(file);
    TQzMemoryLabel ref;
    ref.PkgId("MAIN", 1);
    TQzModalDriver driver;
    driver.Click("BtAdd").SetText("EdLabel", "Print").Click("BtOk").Click("BtCancel");
    EXPECT_EQ(Run<TFrMemoryLabel>(ref, driver), mrCancel);
    // Written, and the form not told: the package is not in it.
    TQzPkgStrings copy(nullptr);
    copy.LoadFromFile(file);
    EXPECT_EQ(copy.Labels()->FindId(0)->Text(), "Print");
    EXPECT_TRUE(FModified.empty());
}

TEST_F(MemoryWindows, ProtectingTheSystemPackageMarksTheFormOnlyWhenAFlagChanges)
{
    FApp->SetSystemEdit(true);
    TQzPkgStrings* system = FApp->PkgLanguage()->PkgSystem();
    system->Messages()->Add(26, "Delete?")->SetProtected(true);
    system->Messages()->Add(27, "Clear?");
    TQzMemoryMessage ref;
    ref.PkgId("System", 26);
    TQzModalDriver driver;
    driver.Then("unprotect", QzTrigger("MnUnprotectAll"))
        .Then("protect", QzTrigger("MnProtectAll"))
        .Then("protect again", QzTrigger("MnProtectAll"))
        .Then("a P column for System", Expect("P", [](QWidget* w) {
                  const QAbstractItemModel* rows = TQzModalDriver::Find<QTableView>(w, "Messages")->model();
                  ASSERT_EQ(rows->columnCount(), 3);
                  EXPECT_EQ(rows->index(0, 1).data().toString(), "P");
              }))
        .Click("BtCancel");
    EXPECT_EQ(Run<TFrMemoryMessage>(ref, driver), mrCancel);
    EXPECT_EQ(FModified.size(), 2u);
    for (int i = 0; i < system->Messages()->Count(); ++i)
        EXPECT_TRUE(system->Messages()->GetItems(i)->Protected());
}

TEST_F(MemoryWindows, ManagerOpensOnTheChosenPackageAndId)
{
    std::vector<TQzEditorDialogRequest> seen;
    TQzEditorDialogScope manager(TQzEditorDialog::Manager, [&](TQzEditorDialogRequest& r) {
        seen.push_back(r);
        return 1;
    });
    TQzMemoryText ref;
    ref.PkgId("MAIN", 4);
    TQzModalDriver driver;
    driver.Click("BtManager").Click("BtCancel");
    EXPECT_EQ(Run<TFrMemoryText>(ref, driver), mrCancel);
    ASSERT_EQ(seen.size(), 1u);
    EXPECT_EQ(seen[0].Kind, static_cast<int>(TQzDlgManager::Texts));
    EXPECT_EQ(seen[0].PkgName, "MAIN");
    EXPECT_EQ(seen[0].Value, "4");
}

}  // namespace
