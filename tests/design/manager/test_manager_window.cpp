// The packages manager's window, opened through the editor-dialog seam as
// the package editors open it and driven as a user drives it, over a
// project folder whose forms the headless designers hold.

#include "design/manager/QzManagerReg.h"
#include "design/manager/Qzvtmanager.h"
#include "design/manager/Qzvtmanagerprogress.h"
#include "design/reg/QzEditorDialogs.h"

#include "designide/DesignMenuCommands.h"
#include "designide/QzPortDsgn.h"
#include "runtime/components/QzComponentsReg.h"
#include "runtime/model/QzMemory.h"
#include "runtime/model/QzPkgStrings.h"
#include "vcl/QzListModel.h"
#include "vcl/QzListView.h"

#include "design/QzDesignWindowTest.h"
#include "support/gui/QzTestApp.h"
#include "support/gui/QzTestDialogs.h"

#include "rtl/TypInfo.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>

#include <gtest/gtest.h>

#include <memory>

namespace {

// A form of labels, each caption naming a package and an Id.
std::string FormOf(const std::string& name, std::initializer_list<std::tuple<const char*, const char*, int>> labels)
{
    std::string text = "object " + name + ": TQzCForm\n  Caption = '" + name + "'\n";
    for (const auto& [label, pkg, id] : labels)
        text += std::string("  object ") + label + ": TQzLabel\n    Caption.PkgName = '" + pkg +
                "'\n    Caption.Id = " + std::to_string(id) + "\n  end\n";
    return text + "end\n";
}

TFrManager* Manager(QWidget* window) { return QzWindowAs<TFrManager>(window); }

// The passes of these forms are short; letting events through during one
// would let the driver's next step run on the progress window.
void QuietPasses(TQzModalDriver& driver)
{
    driver.Then("passes let no events through", [](QWidget* w) {
        TQzModalDriver::Find<TFrManagerProgress>(w, "TFrManagerProgress")->SetPumpInterval(1 << 30);
    });
}

QString Status(QWidget* window) { return TQzModalDriver::Find<QStatusBar>(window, "sb")->currentMessage(); }

class ManagerWindow : public TQzGuiTest {
protected:
    void SetUp() override
    {
        RegisterQzComponentClasses();
        RegisterManagerWindows();
        ASSERT_TRUE(FDir.isValid());
        Fresh();
    }

    // The project as written, with no form open.
    void Fresh()
    {
        Scope.reset();
        Project.reset();
        // Package names compare without regard to case.
        Write("Alpha.dfm", FormOf("Alpha", {{"Label1", "DEMO", 5}, {"Label2", "DEMO", 5}, {"Label3", "DEMO", 6}}));
        Write("Beta.dfm", FormOf("Beta", {{"Label4", "demo", 5}, {"Label5", "OTHER", 5}}));
        Project = std::make_unique<TFolderProject>(Path("").toStdString());
        Scope = std::make_unique<TProjectServicesScope>(Project.get());
    }

    void Write(const QString& name, const std::string& text)
    {
        QFile file(Path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.data(), static_cast<qint64>(text.size()));
    }
    QString Path(const QString& name) const { return FDir.filePath(name); }
    QByteArray Bytes(const QString& name) const
    {
        QFile file(Path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    int Run(TQzDlgManager kind, const AnsiString& pkgName, const AnsiString& value)
    {
        TQzEditorDialogRequest request;
        request.Kind = static_cast<int>(kind);
        request.PkgName = pkgName;
        request.Value = value;
        return QzRunEditorDialog(TQzEditorDialog::Manager, request);
    }

    TFormDesigner* Designer(const char* form) const
    {
        return Project->HeadlessDesigners().Find(Project->FindFormFile(form));
    }
    // "DEMO 5": the package and Id the label's caption names now, on the
    // form open in its designer, else as the file has it.
    std::string Caption(const char* form, const char* label)
    {
        TFormDesigner* designer = Designer(form);
        TComponent* root = designer ? designer->GetRoot() : Project->DesignForm(form);
        TComponent* component = root ? root->FindComponent(label) : nullptr;
        if (!component)
            return "no " + std::string(label);
        auto* ref = dynamic_cast<TQzMemoryRef*>(GetObjectProp(component, "Caption"));
        return ref ? ref->PkgName() + " " + std::to_string(ref->Id()) : "no caption";
    }

    // Steps that scan and leave the row of `uncheck` unchecked with Space,
    // as a user does.
    static void ScanAndUncheck(TQzModalDriver& driver, const char* uncheck)
    {
        QuietPasses(driver);
        driver.Click("BtScan").Then("uncheck a row", [uncheck](QWidget* w) {
            TFrManager* manager = Manager(w);
            for (int row = 0; row < static_cast<int>(manager->Rows().size()); ++row)
                if (uncheck && manager->Rows()[static_cast<std::size_t>(row)].ObjectName == uncheck) {
                    manager->clb->SelectSourceRow(row);
                    QTest::keyClick(manager->clb, Qt::Key_Space);
                }
        });
    }

    QTemporaryDir FDir;
    std::unique_ptr<TFolderProject> Project;
    std::unique_ptr<TProjectServicesScope> Scope;
    TQzTestDialogs Dialogs;
};

TEST_F(ManagerWindow, ScanListsTheReferencesOfEveryFormAndCountsTheChecks)
{
    TQzModalDriver driver;
    ScanAndUncheck(driver, "Label2");
    driver
        .Then("look at the rows",
              [](QWidget* w) {
                  TFrManager* manager = Manager(w);
                  // Package names compare without regard to case; the
                  // other package and the other Id are not hits.
                  ASSERT_EQ(manager->Rows().size(), 3u);
                  EXPECT_EQ(manager->Rows()[0].ObjectName, "Label1");
                  EXPECT_EQ(manager->Rows()[1].ObjectName, "Label2");
                  EXPECT_EQ(manager->Rows()[2].ObjectName, "Label4");
                  EXPECT_EQ(manager->Hits()->data(manager->Hits()->index(0, 1)).toString().toStdString(),
                            manager->Rows()[0].Text);
                  EXPECT_EQ(Status(w), "Found: 3 Selected: 2");
                  EXPECT_EQ(manager->LastRun(), TQzManagerRun::Scan);
              })
        .Click("BtOk");
    EXPECT_EQ(Run(TQzDlgManager::Labels, "DEMO", "5"), 1);
    // Scanning opens the forms in the designer and changes nothing.
    ASSERT_NE(Designer("Alpha.dfm"), nullptr);
    ASSERT_NE(Designer("Beta.dfm"), nullptr);
    EXPECT_FALSE(Designer("Alpha.dfm")->IsModified());
    EXPECT_FALSE(Designer("Beta.dfm")->IsModified());
}

TEST_F(ManagerWindow, WithFoundRowsLeftUncheckedOnlyTheRowsCheckedLaterCanBeChanged)
{
    TQzModalDriver driver;
    QuietPasses(driver);
    driver
        .Then("leave new rows unchecked",
              [](QWidget* w) { TQzModalDriver::Find<QAction>(w, "MnCheckFound")->setChecked(false); })
        .Click("BtScan")
        .Then("nothing checked, nothing to change",
              [](QWidget* w) {
                  EXPECT_EQ(Status(w), "Found: 3 Selected: 0");
                  EXPECT_FALSE(TQzModalDriver::Find<QWidget>(w, "BtReplace")->isEnabled());
                  EXPECT_FALSE(TQzModalDriver::Find<QWidget>(w, "BtClear")->isEnabled());
                  TFrManager* manager = Manager(w);
                  manager->clb->SelectSourceRow(2);
                  QTest::keyClick(manager->clb, Qt::Key_Space);
                  EXPECT_EQ(Status(w), "Found: 3 Selected: 1");
                  EXPECT_TRUE(TQzModalDriver::Find<QWidget>(w, "BtReplace")->isEnabled());
                  EXPECT_TRUE(TQzModalDriver::Find<QWidget>(w, "BtClear")->isEnabled());
              })
        .Click("BtOk");
    Run(TQzDlgManager::Labels, "DEMO", "5");
}

TEST_F(ManagerWindow, ReplaceChangesTheCheckedReferencesOnlyAndMarksTheirForms)
{
    const QByteArray alphaFile = Bytes("Alpha.dfm");
    Dialogs->AnswerMessage(mbOK);
    TQzModalDriver driver;
    ScanAndUncheck(driver, "Label2");
    driver.Click("BtReplace")
        .Then("the replace window starts from the search",
              [](QWidget* w) {
                  EXPECT_EQ(w->windowTitle(), "Replace");
                  EXPECT_EQ(TQzModalDriver::Find<QComboBox>(w, "EdPkg")->currentText(), "DEMO");
                  EXPECT_EQ(TQzModalDriver::Find<QLineEdit>(w, "EdId")->text(), "5");
              })
        .Type("EdId", "9")
        .Click("BtOk")
        .Then("the rows described the forms as they were",
              [](QWidget* w) {
                  EXPECT_TRUE(Manager(w)->Rows().empty());
                  EXPECT_EQ(Status(w), "Found: 0 Selected: 0");
              })
        .Click("BtOk");
    EXPECT_EQ(Run(TQzDlgManager::Labels, "DEMO", "5"), 1);

    EXPECT_EQ(Caption("Alpha.dfm", "Label1"), "DEMO 9");
    EXPECT_EQ(Caption("Alpha.dfm", "Label2"), "DEMO 5");
    EXPECT_EQ(Caption("Alpha.dfm", "Label3"), "DEMO 6");
    EXPECT_EQ(Caption("Beta.dfm", "Label4"), "DEMO 9");
    EXPECT_EQ(Caption("Beta.dfm", "Label5"), "OTHER 5");
    EXPECT_TRUE(Designer("Alpha.dfm")->IsModified());
    EXPECT_TRUE(Designer("Beta.dfm")->IsModified());
    // The designer saves; the manager never writes the file itself.
    EXPECT_EQ(Bytes("Alpha.dfm"), alphaFile);
    ASSERT_EQ(Dialogs->Calls().size(), 1u);
    EXPECT_EQ(Dialogs->Calls()[0].Message.Text, "2 lines");
}

TEST_F(ManagerWindow, ReplaceWindowRefusesAnIdThatIsNoNumberAndCancelChangesNothing)
{
    Dialogs->AnswerMessage(mbOK);
    TQzModalDriver driver;
    ScanAndUncheck(driver, nullptr);
    driver.Click("BtReplace")
        .SetText("EdId", "")
        .Click("BtOk")
        .Then("still open", [](QWidget* w) { EXPECT_EQ(w->windowTitle(), "Replace"); })
        .Click("BtCancel")
        .Then("the rows stay",
              [](QWidget* w) {
                  EXPECT_EQ(Manager(w)->Rows().size(), 3u);
                  EXPECT_EQ(Status(w), "Found: 3 Selected: 3");
              })
        .Click("BtOk");
    Run(TQzDlgManager::Labels, "DEMO", "5");
    EXPECT_EQ(Dialogs->Calls().at(0).Message.Text, "Enter the Id as a number.");
    EXPECT_EQ(Caption("Alpha.dfm", "Label1"), "DEMO 5");
    EXPECT_FALSE(Designer("Alpha.dfm")->IsModified());
    EXPECT_FALSE(Designer("Beta.dfm")->IsModified());
}

TEST_F(ManagerWindow, ClearAsksFirstAndOnlyYesClears)
{
    const struct {
        TMsgDlgBtn Answer;
        const char* Label1;
        std::size_t RowsAfter;
        bool Modified;
    } cases[] = {
        {mbNo, "DEMO 5", 3, false},
        {mbYes, " -1", 0, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Answer == mbYes ? "Yes" : "No");
        Fresh();
        TQzTestDialogs dialogs;
        dialogs->AnswerMessage(c.Answer);
        if (c.Answer == mbYes)
            dialogs->AnswerMessage(mbOK);
        TQzModalDriver driver;
        ScanAndUncheck(driver, nullptr);
        driver.Click("BtClear")
            .Then("after the question", [&c](QWidget* w) { EXPECT_EQ(Manager(w)->Rows().size(), c.RowsAfter); })
            .Click("BtOk");
        Run(TQzDlgManager::Labels, "DEMO", "5");
        ASSERT_GE(dialogs->Calls().size(), 1u);
        EXPECT_EQ(dialogs->Calls()[0].Message.Text, "Do you wish to clear the definition of these elements?");
        EXPECT_EQ(dialogs->Calls()[0].Message.Type, mtConfirmation);
        EXPECT_EQ(Caption("Alpha.dfm", "Label1"), c.Label1);
        EXPECT_EQ(Caption("Alpha.dfm", "Label3"), "DEMO 6");
        EXPECT_EQ(Designer("Alpha.dfm")->IsModified(), c.Modified);
        if (c.Answer == mbYes) {
            EXPECT_EQ(dialogs->Calls().at(1).Message.Text, "3 lines");
        }
    }
}

TEST_F(ManagerWindow, WhatEachKindShows)
{
    const struct {
        TQzDlgManager Kind;
        const char* Title;
        const char* IdLabel;
        bool Package;
    } cases[] = {
        {TQzDlgManager::SetsColor, "Packages Manager (SetsColor)", "Name:", false},
        {TQzDlgManager::Images, "Packages Manager (Images)", "Id:", true},
        {TQzDlgManager::Privileges, "Packages Manager (Privileges)", "Id:", false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Title);
        TQzModalDriver driver;
        driver
            .Then("look",
                  [&c](QWidget* w) {
                      EXPECT_EQ(w->windowTitle(), c.Title);
                      EXPECT_EQ(TQzModalDriver::Find<QLabel>(w, "LabId")->text(), c.IdLabel);
                      EXPECT_EQ(TQzModalDriver::Find<QComboBox>(w, "EdPkg")->isEnabled(), c.Package);
                      EXPECT_EQ(TQzModalDriver::Find<QLineEdit>(w, "EdId")->text(), "7");
                      EXPECT_EQ(Status(w), "Found: 0 Selected: 0");
                      EXPECT_FALSE(TQzModalDriver::Find<QWidget>(w, "BtReplace")->isEnabled());
                      EXPECT_FALSE(TQzModalDriver::Find<QWidget>(w, "BtClear")->isEnabled());
                  })
            .Escape();
        Run(c.Kind, "DEMO", "7");
    }
}

TEST_F(ManagerWindow, WrongInputIsRefusedBeforeAnyScan)
{
    const struct {
        TQzDlgManager Kind;
        const char* Package;
        const char* Value;
        const char* Message;
    } cases[] = {
        {TQzDlgManager::Labels, "", "5", "Enter the package name."},
        {TQzDlgManager::Images, "DEMO", "", "Enter the Id as a number."},
        {TQzDlgManager::SetsFont, "", "", "Enter the set's name."},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Message);
        TQzTestDialogs dialogs;
        dialogs->AnswerMessage(mbOK);
        TQzModalDriver driver;
        driver.Click("BtScan").Click("BtOk");
        Run(c.Kind, c.Package, c.Value);
        ASSERT_EQ(dialogs->Calls().size(), 1u);
        EXPECT_EQ(dialogs->Calls()[0].Message.Text, c.Message);
        // Nothing was read: no form was opened.
        EXPECT_EQ(Designer("Alpha.dfm"), nullptr);
    }
}

TEST_F(ManagerWindow, ScanCounterCountsTheChosenPackagesAndMarksMissingItems)
{
    TQzPkgStrings demo(nullptr);
    demo.SetPkgName("DEMO");
    demo.Labels()->Add(5, "Five");
    TQzModalDriver driver;
    QuietPasses(driver);
    driver.Click("BtCounter")
        .Then("the packages offered, all checked",
              [](QWidget* w) {
                  EXPECT_EQ(w->windowTitle(), "Packages Select");
                  auto* list = TQzModalDriver::Find<QListWidget>(w, "LBPkgs");
                  ASSERT_EQ(list->count(), 1);
                  EXPECT_EQ(list->item(0)->text(), "DEMO");
                  EXPECT_EQ(list->item(0)->checkState(), Qt::Checked);
              })
        .Click("BtOk")
        .Then("every label of DEMO, the missing one marked",
              [](QWidget* w) {
                  TFrManager* manager = Manager(w);
                  EXPECT_EQ(manager->LastRun(), TQzManagerRun::Count);
                  ASSERT_EQ(manager->Rows().size(), 4u);
                  int missing = 0;
                  for (const TQzTokenRec2& row : manager->Rows())
                      if (!row.Exists) {
                          ++missing;
                          EXPECT_EQ(row.Value, "6");
                          EXPECT_NE(row.Text.find("( Nonexistent )"), std::string::npos) << row.Text;
                      }
                  EXPECT_EQ(missing, 1);
                  EXPECT_EQ(Status(w), "Found: 4 Selected: 4");
              })
        .Click("BtOk");
    Run(TQzDlgManager::Labels, "DEMO", "");
}

TEST_F(ManagerWindow, KeepsItsSizeAndPlaceBetweenOpenings)
{
    QRect placed;
    TQzModalDriver first;
    first
        .Then("move and size",
              [&placed](QWidget* w) {
                  w->resize(640, 420);
                  w->move(20, 30);
                  placed = w->geometry();
              })
        .Click("BtOk");
    Run(TQzDlgManager::Labels, "DEMO", "5");
    TQzModalDriver second;
    second.Then("where it was", [&placed](QWidget* w) { EXPECT_EQ(w->geometry(), placed); }).Click("BtOk");
    Run(TQzDlgManager::Texts, "DEMO", "5");
}

TEST_F(ManagerWindow, TheHostListsOneCommandPerKindThatOpensTheManager)
{
    std::vector<const TDesignMenuCommand*> commands;
    for (const TDesignMenuCommand& command : DesignMenuCommands())
        if (command.Group == QzManagerCommandGroup)
            commands.push_back(&command);
    ASSERT_EQ(commands.size(), static_cast<std::size_t>(QzDlgManagerCount));
    EXPECT_EQ(commands[4]->Caption, "Labels");
    TQzModalDriver driver;
    driver.Then("the kind chosen", [](QWidget* w) { EXPECT_EQ(w->windowTitle(), "Packages Manager (Labels)"); })
        .Click("BtOk");
    commands[4]->Execute();
}

TEST_F(ManagerWindow, WithoutAProjectTheManagerSaysSoAndDoesNotOpen)
{
    Scope.reset();
    TProjectServicesScope none(nullptr);
    TQzTestDialogs dialogs;
    dialogs->AnswerMessage(mbOK);
    EXPECT_EQ(Run(TQzDlgManager::Labels, "DEMO", "5"), 0);
    ASSERT_EQ(dialogs->Calls().size(), 1u);
    EXPECT_NE(dialogs->Calls()[0].Message.Text.find("open a project"), std::string::npos);
}

// The pass runs on the main thread; Cancel (or Escape) must still get
// through while it runs, and the pass sees it at its next check.
TEST_F(ManagerWindow, CancelReachesARunningPass)
{
    for (bool escape : {false, true}) {
        SCOPED_TRACE(escape ? "Escape" : "Cancel");
        TFrManagerProgress progress;
        progress.SetPumpInterval(0);
        TQzModalDriver driver;
        if (escape)
            driver.Escape();
        else
            driver.Click("BtCancel");
        progress.SetWindowProgress(true, "Scanning", 1000000);
        EXPECT_TRUE(progress.isVisible());
        EXPECT_EQ(progress.windowTitle(), "Scanning");
        QElapsedTimer clock;
        clock.start();
        int steps = 0;
        while (!progress.CheckCancel() && clock.elapsed() < 5000) {
            progress.IncProgressBar();
            ++steps;
            QThread::msleep(1);
        }
        // The driver may press at the very first check: what counts is that
        // the pass stopped on it, not how far it got.
        EXPECT_TRUE(progress.Cancelled());
        EXPECT_LT(clock.elapsed(), 5000) << steps << " steps";
        // Still shown until the pass ends, then gone.
        EXPECT_TRUE(progress.isVisible());
        progress.SetWindowProgress(false, "", 0);
        EXPECT_FALSE(progress.isVisible());
    }
}

}  // namespace
