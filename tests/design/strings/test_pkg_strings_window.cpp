// The strings package editor driven as a user drives it: what it lists and
// says, the Id boxes and the search, the commands and when the designer
// hears of a change, the "System" package's extras, and the report.

#include "design/reg/QzEditorDialogs.h"
#include "design/strings/Qzvtpkgstrings.h"

#include "runtime/dialogs/QzStandardWindows.h"
#include "runtime/files/QzPkgFiles.h"
#include "runtime/model/QzApplication.h"
#include "vcl/QzListView.h"

#include "design/QzDesignWindowTest.h"
#include "support/gui/QzScreenshot.h"
#include "support/gui/QzTestApp.h"
#include "support/gui/QzTestDialogs.h"

#include <QAction>
#include <QFile>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProcess>
#include <QStandardPaths>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

class PkgStringsWindow : public TQzGuiTest {
protected:
    void SetUp() override
    {
        RegisterQzStandardWindows();
        RegisterQzPkgFileFormats();
        FPackage = new TQzPkgStrings(&FForm);
        FPackage->SetPkgName("Main");
        FPackage->Labels()->Add(12, "Name", "Your name");
        FPackage->Labels()->Add(3, "City");
        FPackage->Labels()->Add(7, "address");
        FPackage->Messages()->Add(1, "Saved");
    }

    TModalResult Run(TQzModalDriver& driver, TQzPkgStrings* package = nullptr)
    {
        TFrPkgStrings form;
        form.SetPackage(package ? package : FPackage);
        const TModalResult result = form.Execute();
        EXPECT_TRUE(driver.Finished());
        return result;
    }

    static TFrPkgStrings* Form(QWidget* w) { return QzWindowAs<TFrPkgStrings>(w); }

    // The rows of a list as "Id P text".
    static QStringList Rows(QWidget* w, const char* list)
    {
        QStringList rows;
        auto* view = TQzModalDriver::Find<TQzListView>(w, list);
        for (int r = 0; r < view->model()->rowCount(); ++r) {
            QStringList cells;
            for (int c = 0; c < 3; ++c)
                if (!view->isColumnHidden(c))
                    cells << view->model()->index(r, c).data().toString();
            rows << cells.join(' ');
        }
        return rows;
    }

    static Integer SelectedId(QWidget* w)
    {
        const TQzPkgIdItem* item = Form(w)->SelectedItem();
        return item ? item->Id() : -1;
    }

    static QString Status(QWidget* w) { return TQzModalDriver::Find<QStatusBar>(w, "StatusBar1")->currentMessage(); }

    TComponent FForm{nullptr};
    TQzPkgStrings* FPackage = nullptr;   // owned by the form
    TQzMarkedLog FMarks;
};

TEST_F(PkgStringsWindow, ListsSearchesAndCountsEachPage)
{
    TQzModalDriver driver;
    driver
        .Then("opened",
              [](QWidget* w) {
                  EXPECT_EQ(w->windowTitle(), "Package : Main");
                  EXPECT_EQ(Rows(w, "Labels"), QStringList({"7 address", "3 City", "12 Name"})) << "no P column";
                  EXPECT_EQ(Status(w), "3 Labels ");
                  EXPECT_FALSE(TQzModalDriver::Find<QAction>(w, "UpdateSystemStrings")->isVisible());
                  EXPECT_TRUE(TQzModalDriver::Find<QPushButton>(w, "BtTranslator")->isEnabled());
              })
        // Letters, signs and blanks are swallowed; a fifth digit does not fit.
        .Type("EdLabelId", "1a -2")
        .Then("Id 12", [](QWidget* w) {
            EXPECT_EQ(TQzModalDriver::Find<QLineEdit>(w, "EdLabelId")->text(), "12");
            EXPECT_EQ(SelectedId(w), 12);
            EXPECT_EQ(TQzModalDriver::Find<QPlainTextEdit>(w, "EdLabelHint")->toPlainText(), "Your name");
            QTest::keyClicks(TQzModalDriver::Find<QLineEdit>(w, "EdLabelId"), "345");
            EXPECT_EQ(TQzModalDriver::Find<QLineEdit>(w, "EdLabelId")->text(), "1234");
            if (qEnvironmentVariableIsSet("QZ_SCREENSHOT_DIR")) {
                Form(w)->SelectId(12);
                QzSaveScreenshot(w, qEnvironmentVariable("QZ_SCREENSHOT_DIR") + "/strings-editor.png");
            }
        })
        // By text the search lands where the text would sort; by Id on a prefix.
        .Type("EdLabel", "b")
        .Then("at City", [](QWidget* w) { EXPECT_EQ(SelectedId(w), 3); })
        .SetChecked("OrderId", true)
        .Then("by Id", [](QWidget* w) {
            EXPECT_EQ(Rows(w, "Labels"), QStringList({"3 City", "7 address", "12 Name"}));
            EXPECT_EQ(SelectedId(w), 3) << "the selection stays";
        })
        .Type("EdLabel", "AD")
        .Then("at address", [](QWidget* w) { EXPECT_EQ(TQzModalDriver::Find<QLineEdit>(w, "EdLabelId")->text(), "7"); })
        .Then("messages", [](QWidget* w) { Form(w)->SetActivePage(TQzMemoryFamily::Messages); })
        .Then("one message", [](QWidget* w) {
            EXPECT_EQ(Status(w), "1 Message ");
            EXPECT_FALSE(TQzModalDriver::Find<QPushButton>(w, "BtModify")->isEnabled());
        })
        .Type("EdMessage", "xyz")
        .Then("filtered out", [](QWidget* w) { EXPECT_TRUE(Rows(w, "Messages").isEmpty()); })
        .Escape();
    EXPECT_EQ(Run(driver), mrCancel);
    EXPECT_EQ(FMarks.Count(), 0);
}

TEST_F(PkgStringsWindow, AddModifyDeleteAndClearTellTheDesignerOfAPackageInTheForm)
{
    TQzTestDialogs dialogs;
    dialogs->AnswerMessage(mbNo).AnswerMessage(mbYes).AnswerMessage(mbNo).AnswerMessage(mbYes);
    TQzModalDriver driver;
    driver.Click("BtAdd")
        .Then("Add Label", [](QWidget* w) {
            EXPECT_EQ(w->windowTitle(), "Add Label");
            EXPECT_EQ(TQzModalDriver::Find<QLineEdit>(w, "EdId")->text(), "0") << "the first free Id";
        })
        .Type("EdLabel", "Zip")
        .Click("BtOk")
        .Then("added and selected", [](QWidget* w) {
            EXPECT_EQ(Rows(w, "Labels"), QStringList({"7 address", "3 City", "12 Name", "0 Zip"}));
            EXPECT_EQ(SelectedId(w), 0);
            EXPECT_EQ(Status(w), "4 Labels ");
        })
        .Then("Id 7", [](QWidget* w) { Form(w)->SelectId(7); })
        .Click("BtModify")
        .Then("Modify Label", [](QWidget* w) { EXPECT_EQ(w->windowTitle(), "Modify Label"); })
        .Type("EdLabel", "Street")
        .Click("BtOk")
        .Then("sorted anew", [](QWidget* w) {
            EXPECT_EQ(Rows(w, "Labels"), QStringList({"3 City", "12 Name", "7 Street", "0 Zip"}));
            EXPECT_EQ(SelectedId(w), 7);
        })
        .Click("BtDelete")   // No
        .Click("BtDelete")   // Yes
        .Then("the next row is selected", [](QWidget* w) {
            EXPECT_EQ(Rows(w, "Labels"), QStringList({"3 City", "12 Name", "0 Zip"}));
            EXPECT_EQ(SelectedId(w), 0);
        })
        .Click("BtClear")   // No
        .Click("BtClear")   // Yes
        .Then("empty", [](QWidget* w) {
            EXPECT_TRUE(Rows(w, "Labels").isEmpty());
            EXPECT_EQ(Status(w), "0 Labels ");
        })
        .Click("BtOk");
    EXPECT_EQ(Run(driver), mrOk);
    EXPECT_EQ(FMarks.Count(), 4) << "add, modify, delete and clear; the answers No change nothing";
    EXPECT_TRUE(FPackage->IsEmpty());
}

TEST_F(PkgStringsWindow, APackageInItsOwnFileIsNotToldButWrittenOnLoadOrSave)
{
    QTemporaryDir dir;
    FPackage->SaveFileEx(dir.filePath("main.pst").toStdString(), imFile);
    const AnsiString file = dir.filePath("main.pst").toStdString();
    TQzModalDriver driver;
    driver.Click("BtAdd")
        .Type("EdLabel", "Zip")
        .Click("BtOk")
        .Click("BtSave")
        .Then("the file was written before the dialog", [&](QWidget*) {
            TQzPkgStrings onDisk(nullptr);
            onDisk.LoadFromFile(file);
            EXPECT_EQ(onDisk.Labels()->Count(), 4);
        })
        .Click("BtCancel")
        .Click("BtOk");
    EXPECT_EQ(Run(driver), mrOk);
    EXPECT_EQ(FPackage->Labels()->Count(), 4);
    EXPECT_EQ(FMarks.Count(), 0);
}

TEST_F(PkgStringsWindow, TheSystemStringsShowProtectionAndProtectAllMarksOnlyAChange)
{
    TQzCApplication app(&FForm);
    app.SetSystemEdit(true);
    TQzPkgStrings* system = app.PkgLanguage()->PkgSystem();
    system->Clear();
    system->Labels()->Add(1, "Yes")->SetProtected(true);
    system->Labels()->Add(2, "No")->SetProtected(true);
    TQzModalDriver driver;
    driver.Then("P shown", [](QWidget* w) {
              EXPECT_EQ(Rows(w, "Labels"), QStringList({"2 P No", "1 P Yes"}));
              EXPECT_TRUE(Status(w).startsWith("2 Labels (LastUpdateFile:")) << Status(w).toStdString();
              EXPECT_TRUE(TQzModalDriver::Find<QAction>(w, "UpdateSystemStrings")->isVisible());
          })
        .Then("protect all protected", QzTrigger("ProtectAllLabels"))
        .Then("unprotect", QzTrigger("UnprotectAllLabels"))
        .Then("no P", [](QWidget* w) { EXPECT_EQ(Rows(w, "Labels"), QStringList({"2  No", "1  Yes"})); })
        .Click("BtOk");
    EXPECT_EQ(Run(driver, system), mrOk);
    EXPECT_EQ(FMarks.Count(), 1) << "only the change of flags";
}

TEST_F(PkgStringsWindow, TheManagerLooksForThePagesKindInThePackage)
{
    std::vector<std::string> asked;
    TQzEditorDialogScope manager(TQzEditorDialog::Manager, [&](TQzEditorDialogRequest& r) {
        asked.push_back(std::to_string(r.Kind) + " " + r.PkgName + " " + r.Value);
        return 0;
    });
    TQzModalDriver driver;
    driver.Then("Id 12", [](QWidget* w) { Form(w)->SelectId(12); })
        .Click("BtManager")
        .Then("messages", [](QWidget* w) { Form(w)->SetActivePage(TQzMemoryFamily::Messages); })
        .Click("BtManager")
        .Click("BtOk");
    Run(driver);
    const auto kind = [](TQzDlgManager k) { return std::to_string(static_cast<int>(k)); };
    EXPECT_EQ(asked, (std::vector<std::string>{kind(TQzDlgManager::Labels) + " Main 12",
                                               kind(TQzDlgManager::Messages) + " Main "}));
}

TEST_F(PkgStringsWindow, TheReportPrintsTheHeadingAndTheRowsAsListed)
{
    QTemporaryDir dir;
    const QString pdf = dir.filePath("labels.pdf");
    TQzTestDialogs dialogs;
    dialogs->PrintTo(pdf.toStdString()).AnswerPrinterSetup(false);
    dialogs->PrintTo(pdf.toStdString()).AnswerPrinterSetup(true);
    TQzModalDriver driver;
    driver.Click("BtReport").Then("cancelled: nothing", [&](QWidget*) { EXPECT_FALSE(QFile::exists(pdf)); });
    driver.Click("BtReport").Click("BtOk");
    Run(driver);
    ASSERT_TRUE(QFile::exists(pdf));
    if (QStandardPaths::findExecutable("pdftotext").isEmpty())
        GTEST_SKIP() << "pdftotext is not installed";
    QProcess process;
    process.start("pdftotext", {"-layout", pdf, "-"});
    process.waitForFinished(30000);
    const QString text = QString::fromUtf8(process.readAllStandardOutput());
    EXPECT_TRUE(text.contains("**** Labels Report ****")) << text.toStdString();
    const qsizetype city = text.indexOf("3 - City");
    EXPECT_GT(city, 0);
    EXPECT_GT(text.indexOf("12 - Name *Hint = Your name"), city);
}

}  // namespace
