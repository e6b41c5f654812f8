// The variables editor driven as a user drives it: renaming in place, new
// variables, values edited and refused, deleting and clearing, the search,
// files, and what is marked modified.

#include "design/settings/Qzvtfinddialog.h"
#include "design/settings/Qzvtpkgvars.h"
#include "runtime/dialogs/QzStandardWindows.h"
#include "runtime/files/QzPkgFiles.h"
#include "design/QzDesignWindowTest.h"
#include "support/gui/QzTestApp.h"
#include "support/gui/QzTestDialogs.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <QTreeView>
#include <QTreeWidget>

#include <memory>

namespace {

class PkgVarsWindow : public TQzGuiTest {
protected:
    void SetUp() override
    {
        RegisterQzStandardWindows();
        RegisterQzPkgFileFormats();
        // The form the package is on: what the editor marks modified.
        FForm = std::make_unique<TComponent>(nullptr);
        FPackage = new TQzPkgVars(FForm.get());
        FPackage->SetPkgName("Settings");
        FPackage->Add("Alpha", qvString)->SetVString("hello");
        FPackage->Add("Flag", qvBoolean)->SetVBoolean(true);
        FPackage->Add("Setup\\Printer", qvString)->SetVString("LaserJet");
        FPackage->Add("Setup\\Copies", qvInteger)->SetVInteger(2);
        FPackage->Add("Setup\\Paper\\Size", qvString)->SetVString("A4");
    }

    TModalResult Run(TQzModalDriver& driver)
    {
        TFrPkgVars form;
        form.SetPackage(FPackage);
        const TModalResult result = form.Execute();
        EXPECT_TRUE(driver.Finished());
        return result;
    }

    static TFrPkgVars* Form(QWidget* w) { return QzWindowAs<TFrPkgVars>(w); }

    // Selects a folder or a variable by its path ("" the root).
    TQzModalDriver::TStep Select(const AnsiString& path) const
    {
        return [this, path](QWidget* w) {
            TQzPkgVarsItem* item = path.empty() ? nullptr : FPackage->Find(path);
            const bool done = item && !item->IsFolder() ? Form(w)->SelectVariable(item) : Form(w)->SelectFolder(item);
            if (!done)
                throw TQzDriverError("cannot select " + path);
        };
    }

    static QStringList Rows(QWidget* w)
    {
        QStringList rows;
        auto* list = TQzModalDriver::Find<QTreeView>(w, "LView");
        for (int r = 0; r < list->model()->rowCount(); ++r)
            rows << list->model()->index(r, 0).data().toString() + "=" + list->model()->index(r, 1).data().toString();
        return rows;
    }

    std::unique_ptr<TComponent> FForm;
    TQzPkgVars* FPackage = nullptr;   // owned by the form
    TQzMarkedLog FMarks;
};

TEST_F(PkgVarsWindow, OpensOnTheRootWithTheFoldersInTheTreeAndTheVariablesInTheList)
{
    TQzModalDriver driver;
    driver
        .Then("shown",
              [](QWidget* w) {
                  EXPECT_EQ(w->windowTitle(), "PkgVars : Settings");
                  auto* tree = TQzModalDriver::Find<QTreeWidget>(w, "TView");
                  ASSERT_EQ(tree->topLevelItemCount(), 1);
                  EXPECT_EQ(tree->topLevelItem(0)->text(0), "Settings");
                  EXPECT_EQ(tree->topLevelItem(0)->child(0)->text(0), "Setup");
                  EXPECT_EQ(Rows(w), QStringList({"Alpha=\"hello\"", "Flag=\"True\""}));
                  EXPECT_EQ(TQzModalDriver::Find<QLabel>(w, "Label6")->text(), "DFM");
                  EXPECT_EQ(TQzModalDriver::Find<QLabel>(w, "Label7")->text(), "(Memory)");
              })
        .Then("Setup", Select("Setup"))
        .Then("its variables", [](QWidget* w) {
            EXPECT_EQ(Rows(w), QStringList({"Printer=\"LaserJet\"", "Copies=\"2\""}));
            EXPECT_FALSE(TQzModalDriver::Find<QAction>(w, "Delete2")->isEnabled()) << "no row selected";
        })
        .Click("BtOk");
    EXPECT_EQ(Run(driver), mrOk);
    EXPECT_EQ(FMarks.Count(), 1) << "only the placement the window took is stored";
}

TEST_F(PkgVarsWindow, NamesAreChangedInPlaceAsTypedEvenWhenTheyRepeatOrAreOdd)
{
    TQzModalDriver driver;
    driver.Then("Setup", Select("Setup"))
        .Then("rename the folder", QzTrigger("ChangeName1"))
        .Then("type", [](QWidget*) {
            QWidget* editor = QApplication::focusWidget();
            ASSERT_TRUE(editor);
            QTest::keyClicks(editor, "Options");
            QTest::keyClick(editor, Qt::Key_Return);
        })
        .Then("re-sorted", [](QWidget* w) {
            QCoreApplication::processEvents();
            auto* tree = TQzModalDriver::Find<QTreeWidget>(w, "TView");
            EXPECT_EQ(tree->currentItem()->text(0), "Options");
        });
    // The first variable's name: repeated, empty, with a backslash.
    for (const char* name : {"Copies", "", "a\\b"})
        driver.Then(QString("rename to ") + name, [name](QWidget* w) {
            auto* list = TQzModalDriver::Find<QTreeView>(w, "LView");
            list->model()->setData(list->model()->index(0, 0), QString::fromLatin1(name));
        });
    driver.Click("BtOk");
    Run(driver);
    TQzPkgVarsItem* folder = FPackage->Find("Options");
    ASSERT_NE(folder, nullptr);
    EXPECT_EQ(folder->Items(0)->Ident(), "a\\b");
    EXPECT_EQ(folder->Items(1)->Ident(), "Copies");
    EXPECT_GE(FMarks.Count(), 4);
}

TEST_F(PkgVarsWindow, NewVariablesTakeTheFirstFreeNumberAndTheirTypesStartingValue)
{
    FPackage->Add("Setup\\New Var #1", qvString);
    FPackage->Add("Setup\\New Var #3", qvString);
    TQzModalDriver driver;
    driver.Then("Setup", Select("Setup"))
        .Then("new integer", QzTrigger("NewInteger1"))
        .Escape()  // ends the name's edit, not the window
        .Then("new boolean", QzTrigger("NewBoolean1"))
        .Escape()
        .Then("rows", [](QWidget* w) {
            EXPECT_EQ(Rows(w).mid(4), QStringList({"New Var #2=\"0\"", "New Var #4=\"False\""}));
        })
        .Then("new folder inside", QzTrigger("NewSubFolder1"))
        .Escape()
        .Click("BtOk");
    EXPECT_EQ(Run(driver), mrOk);
    EXPECT_EQ(FPackage->Find("Setup\\New Var #2")->GetItemType(), qvInteger);
    EXPECT_NE(FPackage->Find("Setup\\New Folder #1"), nullptr);
}

TEST_F(PkgVarsWindow, BadValuesAreRefusedAndCancelLeavesTheValue)
{
    TQzTestDialogs dialogs;
    dialogs->AnswerMessage(mbOK).AnswerMessage(mbOK);
    TQzModalDriver driver;
    driver.Then("Copies", Select("Setup\\Copies"))
        .Then("modify", QzTrigger("Modify1"))
        .Then("the editor", [](QWidget* w) {
            EXPECT_EQ(TQzModalDriver::Find<QLabel>(w, "Label2")->text(), "&Value Information (Integer):");
            EXPECT_EQ(TQzModalDriver::Find<QLineEdit>(w, "EdValue")->text(), "2");
        })
        .SetText("EdValue", "12a")
        .Click("BtOk")
        .SetText("EdValue", "99999999999")
        .Click("BtOk")
        .Then("still open", [](QWidget* w) { EXPECT_TRUE(w->inherits("TFrPkgVarsModify")); })
        .SetText("EdValue", "5")
        .Click("BtCancel")
        .Then("Flag", Select("Flag"))
        .Then("modify", QzTrigger("Modify1"))
        .Then("a list for Booleans", [](QWidget* w) {
            auto* choice = TQzModalDriver::Find<QComboBox>(w, "CBValue");
            EXPECT_TRUE(choice->isVisibleTo(w));
            EXPECT_FALSE(TQzModalDriver::Find<QLineEdit>(w, "EdValue")->isVisibleTo(w));
            choice->setCurrentIndex(choice->findText("False"));
        })
        .Click("BtOk")
        .Then("shown", [](QWidget* w) { EXPECT_EQ(Rows(w).at(1), "Flag=\"False\""); })
        .Click("BtOk");
    const int before = FMarks.Count();
    Run(driver);
    EXPECT_EQ(FPackage->Find("Setup\\Copies")->GetVInteger(), 2);
    EXPECT_FALSE(FPackage->Find("Flag")->GetVBoolean());
    EXPECT_EQ(FMarks.Count() - before, 2) << "the value and the placement";
    ASSERT_EQ(dialogs->Calls().size(), 2u);
    EXPECT_EQ(dialogs->Calls()[0].Message.Type, mtError);
}

TEST_F(PkgVarsWindow, DeletingAndClearingAskFirstAndKeepWhatTheyShould)
{
    FPackage->Add("Setup\\Paper\\Tray", qvInteger);
    TQzTestDialogs dialogs;
    dialogs->AnswerMessage(mbNo)      // delete Copies: declined
        .AnswerMessage(mbYes)         // delete Copies (the last row)
        .AnswerMessage(mbYes)         // delete Printer (the only row)
        .AnswerMessage(mbOK)          // clear Paper's variables
        .AnswerMessage(mbCancel)      // clear all: declined
        .AnswerMessage(mbOK);         // clear all
    TQzModalDriver driver;
    driver.Then("Copies", Select("Setup\\Copies"))
        .Then("declined", QzTrigger("Delete2"))
        .Then("kept", [](QWidget* w) { EXPECT_EQ(Rows(w).size(), 2); })
        .Then("delete", QzTrigger("Delete2"))
        .Then("the row before", [](QWidget* w) { EXPECT_EQ(Form(w)->SelectedVariable()->Ident(), "Printer"); })
        .Then("delete", QzTrigger("Delete2"))
        .Then("nothing selected", [](QWidget* w) {
            EXPECT_TRUE(Rows(w).isEmpty());
            EXPECT_EQ(Form(w)->SelectedVariable(), nullptr);
            EXPECT_FALSE(TQzModalDriver::Find<QPushButton>(w, "BtClearFolder")->isEnabled());
        })
        .Then("Paper", Select("Setup\\Paper"))
        .Click("BtClearFolder")
        .Then("sub-folders stay", [this](QWidget* w) {
            EXPECT_TRUE(Rows(w).isEmpty());
            EXPECT_NE(FPackage->Find("Setup\\Paper"), nullptr);
        })
        .Click("BtClearAll")
        .Then("kept", [this](QWidget*) { EXPECT_NE(FPackage->Find("Alpha"), nullptr); })
        .Click("BtClearAll")
        .Then("only the root", [](QWidget* w) {
            auto* tree = TQzModalDriver::Find<QTreeWidget>(w, "TView");
            EXPECT_EQ(tree->topLevelItem(0)->childCount(), 0);
            EXPECT_TRUE(Rows(w).isEmpty());
        })
        .Click("BtOk");
    Run(driver);
    EXPECT_TRUE(FPackage->IsEmpty());
    EXPECT_EQ(dialogs->Calls()[0].Message.Type, mtConfirmation);
}

TEST_F(PkgVarsWindow, FindSelectsWhatItFoundAndSaysWhenNothingIs)
{
    TQzTestDialogs dialogs;
    dialogs->AnswerMessage(mbOK);
    auto find = [](const char* text, bool whole) {
        return [text, whole](QWidget* w) {
            TFrFindDialog* box = Form(w)->FindDialog();
            ASSERT_TRUE(box && box->isVisible());
            box->EdFind->setText(QString::fromLatin1(text));
            box->CBWholeWord->setChecked(whole);
            QTest::mouseClick(box->BtFindNext, Qt::LeftButton);
        };
    };
    TQzModalDriver driver;
    driver.Key(Qt::Key_F, Qt::ControlModifier)
        .Then("true", find("true", false))
        .Then("Flag", [](QWidget* w) { EXPECT_EQ(Form(w)->SelectedVariable()->Ident(), "Flag"); })
        .Then("Size", find("a4", true))
        .Then("in Paper", [](QWidget* w) {
            EXPECT_EQ(Form(w)->SelectedFolder()->Ident(), "Paper");
            EXPECT_EQ(Form(w)->SelectedVariable()->Ident(), "Size");
        })
        .Then("Alpha after Paper", find("Alpha", false))
        .Then("not found", [&dialogs](QWidget*) { EXPECT_EQ(dialogs->Calls().size(), 1u); })
        .Then("again from the top", find("Alpha", false))
        .Then("Alpha", [](QWidget* w) { EXPECT_EQ(Form(w)->SelectedVariable()->Ident(), "Alpha"); })
        .Click("BtOk");
    Run(driver);
    ASSERT_EQ(dialogs->Calls().size(), 1u);
    EXPECT_EQ(dialogs->Calls()[0].Message.Type, mtInformation);
}

TEST_F(PkgVarsWindow, FilesWrittenAndReadBackAndADamagedFileChangesNothing)
{
    QTemporaryDir dir;
    const AnsiString copy = (dir.path() + "/copy.pva").toStdString();
    const AnsiString damaged = (dir.path() + "/damaged.pva").toStdString();
    {
        QFile file(QString::fromStdString(damaged));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("not a package at all");
    }
    TQzTestDialogs dialogs;
    dialogs->AnswerSave(copy).AnswerOpen({damaged}).AnswerMessage(mbOK).AnswerOpen({copy});
    TQzModalDriver driver;
    driver.Click("BtSaveTo")
        .Then("change", [](QWidget* w) { Form(w)->Package()->Find("Alpha")->SetVString("changed"); })
        .Click("BtLoadFrom")
        .Then("unchanged", [](QWidget* w) {
            EXPECT_EQ(Form(w)->Package()->Find("Alpha")->GetVString(), "changed");
        })
        .Click("BtLoadFrom")
        .Then("read back", [](QWidget* w) { EXPECT_EQ(Rows(w).at(0), "Alpha=\"hello\""); })
        .Click("BtOk");
    Run(driver);
    EXPECT_EQ(FPackage->Find("Setup\\Paper\\Size")->GetVString(), "A4");
    const auto errors = dialogs->CallsOf(TQzDialogKind::Message);
    ASSERT_EQ(errors.size(), 1u);
    EXPECT_NE(errors[0].Message.Text.find("damaged.pva"), AnsiString::npos) << errors[0].Message.Text;
}

TEST_F(PkgVarsWindow, ChangingATypeAsksAndConvertsTheValue)
{
    FPackage->Find("Setup\\Copies")->SetVInteger(42);
    TQzTestDialogs dialogs;
    dialogs->AnswerMessage(mbCancel).AnswerMessage(mbOK).AnswerMessage(mbOK);
    TQzModalDriver driver;
    driver.Then("Copies", Select("Setup\\Copies"))
        .Then("to string, declined", QzTrigger("String3"))
        .Then("to string", QzTrigger("String3"))
        .Then("same row, new text", [](QWidget* w) { EXPECT_EQ(Rows(w).at(1), "Copies=\"42\""); })
        .Then("to its own type: nothing asked", QzTrigger("String3"))
        .Then("Paper", Select("Setup\\Paper"))
        .Then("the folder a variable", [](QWidget* w) {
            TQzModalDriver::Find<QTreeWidget>(w, "TView")->setFocus();
            TQzModalDriver::Find<QAction>(w, "Boolean3")->trigger();
        })
        .Then("shown in its parent's list", [](QWidget* w) {
            EXPECT_EQ(Form(w)->SelectedFolder()->Ident(), "Setup");
            EXPECT_EQ(Form(w)->SelectedVariable()->Ident(), "Paper");
        })
        .Click("BtOk");
    Run(driver);
    EXPECT_EQ(FPackage->Find("Setup\\Copies")->GetItemType(), qvString);
    EXPECT_EQ(FPackage->Find("Setup\\Copies")->GetVString(), "42");
    EXPECT_EQ(FPackage->Find("Setup\\Paper")->GetItemType(), qvBoolean);
    EXPECT_EQ(FPackage->Find("Setup\\Paper\\Size"), nullptr) << "a folder turned variable loses its contents";
}

TEST_F(PkgVarsWindow, APackageInItsOwnFileIsWrittenWhenTheEditorClosesNotMarkedOnTheForm)
{
    QTemporaryDir dir;
    const AnsiString file = (dir.path() + "/settings.pva").toStdString();
    FPackage->SaveFileEx(file, imFile);
    TQzTestDialogs dialogs;
    dialogs->AnswerMessage(mbOK);  // clear all
    TQzModalDriver driver;
    driver.Then("FILE", [](QWidget* w) { EXPECT_EQ(TQzModalDriver::Find<QLabel>(w, "Label6")->text(), "FILE"); })
        .Click("BtClearAll")
        .Click("BtOk");
    Run(driver);
    EXPECT_EQ(FMarks.Count(), 1) << "only the placement";
    TQzPkgVars reread(nullptr);
    reread.LoadFromFile(file);
    EXPECT_TRUE(reread.IsEmpty()) << "the cleared package was written";
}

}  // namespace
