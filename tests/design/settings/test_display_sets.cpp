// The display sets: names proposed and copies of a list, the set dialogs
// driven as a user drives them (choosing, adding, renaming, deleting, OK
// and Cancel), the background set dialog, the display dialog reaching its
// package's other windows, and a rename reaching the project's controls.

#include "design/reg/QzEditorDialogs.h"
#include "design/settings/QzDisplaySets.h"
#include "design/settings/QzDisplaySetsPanel.h"
#include "design/settings/Qzvtdisplay.h"
#include "design/settings/Qzvtsets.h"
#include "designide/QzPortDsgn.h"
#include "runtime/components/QzComponentsReg.h"
#include "runtime/model/QzApplication.h"

#include "rtl/TypInfo.h"

#include "design/QzDesignWindowTest.h"
#include "support/gui/QzTestApp.h"
#include "support/gui/QzTestDialogs.h"

#include <QApplication>
#include <QColor>
#include <QComboBox>
#include <QFile>
#include <QFont>
#include <QLineEdit>
#include <QListWidget>
#include <QTemporaryDir>

#include <memory>

namespace {

using TDriver = TQzModalDriver;

TEST(DisplaySetsLogic, NamesCopiesAndPlatformValues)
{
    TQzPkgDisplaySetsColor colors(nullptr);
    EXPECT_EQ(QzNewDisplaySetName(colors), "Color1");
    colors.Add("color1");
    colors.Add("Color3")->SetColor(0x123456);
    EXPECT_EQ(QzNewDisplaySetName(colors), "Color2") << "names are compared without regard to case";

    TQzPkgDisplaySetsColor copy(nullptr);
    copy.Add("Old");
    QzCopyDisplaySets(colors, copy);
    ASSERT_EQ(copy.Count(), 2);
    EXPECT_EQ(copy.GetSetColor(1)->Name(), "Color3");
    EXPECT_EQ(copy.GetSetColor(1)->Color(), 0x123456);
    EXPECT_EQ(copy.Find("Old"), nullptr);

    // Colours are stored blue-green-red.
    EXPECT_EQ(QzColorOfQColor(QColor(0x12, 0x34, 0x56)), 0x563412);
    QFont font(QStringLiteral("Courier"), 14);
    font.setBold(true);
    font.setStrikeOut(true);
    const TQzFontValues values = QzFontValuesOf(font, 0xFF);
    EXPECT_EQ(values.Name, "Courier");
    EXPECT_EQ(values.Size, 14);
    EXPECT_TRUE(values.Bold && values.StrikeOut && !values.Italic && !values.Underline);
    EXPECT_EQ(values.Color, 0xFF);
}

class DisplaySetWindows : public TQzGuiTest {
protected:
    static void SetUpTestSuite()
    {
        TQzGuiTest::SetUpTestSuite();
        RegisterQzvtsets();
        RegisterQzvtdisplay();
    }

    void SetUp() override
    {
        FForm = std::make_unique<TComponent>(nullptr);
        App = new TQzCApplication(FForm.get());
        Display = App->PkgDisplay();
        Fill();
    }

    void Fill()
    {
        Display->Clear();
        Display->SetsColor()->Add("Blue")->SetColor(0xFF0000);
        Display->SetsColor()->Add("Warning")->SetColor(0x0000FF);
        TQzPkgDisplaySetBackGround* sky = Display->SetsBackGround()->Add("Sky");
        sky->SetStyle(bgGradientVer);
        sky->SetEndGraColor(0xF0CAA6);
        sky->SetDescription("White to light blue");
        TQzPkgDisplaySetFont* title = Display->SetsFont()->Add("Title");
        title->SetBold(true);
        title->SetSize(14);
        title->SetColor(0x800000);
        Display->SetsFont()->Add("Body");
        Display->SetModified(false);
    }

    static TQzDisplaySetsPanel* Panel(QWidget* w, const QString& name = {})
    {
        auto* panel = name.isEmpty() ? w->findChild<TQzDisplaySetsPanel*>() : TDriver::Find<TQzDisplaySetsPanel>(w, name);
        if (!panel)
            throw TQzDriverError("no sets panel");
        return panel;
    }
    static TDriver::TStep Select(const char* name)
    {
        return [name](QWidget* w) { Panel(w)->SelectName(name); };
    }
    // Types over the name being edited in place and confirms it.
    static void TypeName(TDriver& driver, const QString& name)
    {
        driver.Then("type the name", [name](QWidget*) {
            auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
            if (!editor)
                throw TQzDriverError("no name being edited");
            editor->setText(name);
        });
        driver.Enter();
    }

    int RunKind(TQzEditorDialog kind, TQzSetRef& target)
    {
        TQzEditorDialogRequest request;
        request.Target = &target;
        return QzRunEditorDialog(kind, request);
    }

    std::unique_ptr<TComponent> FForm;
    TQzCApplication* App = nullptr;
    TQzPkgDisplay* Display = nullptr;
    TQzMarkedLog FMarks;
    std::vector<TComponent*>& Marked = FMarks.Marked;
};

TEST_F(DisplaySetWindows, NewSetsAndTheChoiceReachThePackageOnlyOnOk)
{
    for (const bool ok : {true, false}) {
        SCOPED_TRACE(ok ? "OK" : "Cancel");
        Fill();
        TQzSetColor target;
        target.SetName("Blue");
        TQzTestDialogs dialogs;
        dialogs->AnswerColor(QColor(0x11, 0x22, 0x33));
        TDriver driver;
        driver.Then("the property's set chosen", [](QWidget* w) {
            EXPECT_STREQ(w->metaObject()->className(), "TFrSetColor");
            EXPECT_EQ(Panel(w)->Current()->Name(), "Blue");
        });
        driver.Click("BtNew");
        TypeName(driver, "Dark");
        driver.Then("the new set chosen", [](QWidget* w) { EXPECT_EQ(Panel(w)->Current()->Name(), "Dark"); });
        driver.Click(ok ? "BtOk" : "BtCancel");
        EXPECT_EQ(RunKind(TQzEditorDialog::SetColor, target), ok ? 1 : 0);
        EXPECT_TRUE(driver.Finished());
        EXPECT_EQ(target.Name(), ok ? "Dark" : "Blue");
        EXPECT_EQ(Display->SetsColor()->Count(), ok ? 3 : 2);
        if (ok) {
            EXPECT_EQ(Display->SetsColor()->Find("Dark")->Color(), 0x332211);
        }
        // The editor marks the form it edits; the application is elsewhere.
        EXPECT_EQ(Marked.size(), ok ? 1u : 0u);
        Marked.clear();
    }
}

TEST_F(DisplaySetWindows, NamesInUseAreRefusedAndDeletingAsksFirst)
{
    TQzSetFont target;
    target.SetName("Missing");
    TQzTestDialogs dialogs;
    dialogs->AnswerMessage(mbOK).AnswerMessage(mbNo).AnswerMessage(mbYes);
    TDriver driver;
    driver.Then("an unknown name is kept", [](QWidget* w) { EXPECT_TRUE(Panel(w)->IsDefaultRow()); });
    driver.Then("rename Body", [](QWidget* w) {
        TQzDisplaySetsPanel* panel = Panel(w);
        panel->SelectName("Body");
        EXPECT_FALSE(panel->Rename("TITLE"));
        EXPECT_EQ(panel->Current()->Name(), "Body");
        EXPECT_TRUE(panel->Rename("Text"));
        EXPECT_EQ(panel->Current()->Name(), "Text");
        EXPECT_EQ(panel->LBSets->currentItem()->text(), "Text");
    });
    driver.Then("delete Title", Select("Title")).Click("BtDelete");
    driver.Then("kept on No", [](QWidget* w) { EXPECT_EQ(Panel(w)->Current()->Name(), "Title"); });
    driver.Then("Delete on the list", [](QWidget* w) { Panel(w)->LBSets->setFocus(); }).Key(Qt::Key_Delete);
    driver.Then("gone on Yes", [](QWidget* w) { EXPECT_EQ(Panel(w)->Sets()->FindSet("Title"), nullptr); });
    driver.Click("BtCancel");
    EXPECT_EQ(RunKind(TQzEditorDialog::SetFont, target), 0);
    EXPECT_TRUE(driver.Finished());
    EXPECT_EQ(dialogs->CallsOf(TQzDialogKind::Message).size(), 3u);
    ASSERT_EQ(Display->SetsFont()->Count(), 2);
    EXPECT_NE(Display->SetsFont()->Find("Body"), nullptr) << "Cancel keeps the package's sets";
    EXPECT_EQ(target.Name(), "Missing");
    EXPECT_TRUE(Marked.empty());
}

TEST_F(DisplaySetWindows, TheBackgroundDialogChecksTheNameAndWritesItsValues)
{
    TQzSetBackGround target;
    TQzTestDialogs dialogs;
    dialogs->AnswerMessage(mbOK).AnswerColor(QColor(0, 0, 0x80));
    TDriver driver;
    driver.Click("BtNew");
    driver.Then("a name in use", [](QWidget* w) {
        EXPECT_STREQ(w->metaObject()->className(), "TFrSetsBackGroundAdd");
        EXPECT_EQ(TDriver::Find<QLineEdit>(w, "EdName")->text(), "BackGround1");
        TDriver::Find<QLineEdit>(w, "EdName")->setText("sky");
    });
    driver.Click("BtOk");
    driver.Then("still open: a free name and a gradient", [](QWidget* w) {
        EXPECT_STREQ(w->metaObject()->className(), "TFrSetsBackGroundAdd");
        TDriver::Find<QLineEdit>(w, "EdName")->setText("Sea");
        TDriver::Find<QComboBox>(w, "CBStyle")->setCurrentIndex(int(bgGradientHor));
    });
    driver.Click("BtStartGraColor");
    driver.Click("BtOk");
    driver.Then("the new set chosen", [](QWidget* w) { EXPECT_EQ(Panel(w)->Current()->Name(), "Sea"); });
    driver.Click("BtOk");
    EXPECT_EQ(RunKind(TQzEditorDialog::SetBackGround, target), 1);
    EXPECT_TRUE(driver.Finished());
    EXPECT_EQ(target.Name(), "Sea");
    const TQzPkgDisplaySetBackGround* sea = Display->SetsBackGround()->Find("Sea");
    ASSERT_NE(sea, nullptr);
    EXPECT_EQ(sea->Style(), bgGradientHor);
    EXPECT_EQ(sea->StartGraColor(), 0x800000);
    EXPECT_EQ(Display->SetsBackGround()->Find("Sky")->Description(), "White to light blue");
}

TEST_F(DisplaySetWindows, TheDisplayDialogEditsThePackageChangeByChange)
{
    std::vector<std::pair<TQzEditorDialog, TComponent*>> opened;
    auto record = [&opened](TQzEditorDialog kind) {
        return [&opened, kind](TQzEditorDialogRequest& r) {
            opened.emplace_back(kind, r.Package);
            return 1;
        };
    };
    TQzEditorDialogScope images(TQzEditorDialog::PkgImages, record(TQzEditorDialog::PkgImages));
    TQzEditorDialogScope hints(TQzEditorDialog::Hints, record(TQzEditorDialog::Hints));
    TQzTestDialogs dialogs;
    dialogs->AnswerMessage(mbYes);
    TDriver driver;
    driver.Then("the three lists", [](QWidget* w) {
        EXPECT_EQ(Panel(w, "Panel0")->LBSets->count(), 1);
        EXPECT_EQ(Panel(w, "Panel1")->LBSets->count(), 2);
        EXPECT_EQ(Panel(w, "Panel2")->LBSets->count(), 2);
    });
    driver.Click("BtSystemImages").Click("BtUserImages").Click("BtHints");
    driver.Then("delete Warning", [](QWidget* w) { Panel(w, "Panel1")->SelectName("Warning"); });
    driver.Then("", [](QWidget* w) { Panel(w, "Panel1")->BtDelete->click(); });
    driver.Click("BtOk");
    TQzEditorDialogRequest request;
    request.Component = App;
    EXPECT_EQ(QzRunEditorDialog(TQzEditorDialog::Display, request), 1);
    EXPECT_TRUE(driver.Finished());
    const std::vector<std::pair<TQzEditorDialog, TComponent*>> expected = {
        {TQzEditorDialog::PkgImages, Display->PkgSystem()},
        {TQzEditorDialog::PkgImages, Display->PkgUser()},
        {TQzEditorDialog::Hints, Display},
    };
    EXPECT_EQ(opened, expected);
    EXPECT_EQ(Display->SetsColor()->Find("Warning"), nullptr);
    EXPECT_EQ(Marked.size(), 1u) << "one mark for the one change";
}

TEST_F(DisplaySetWindows, ARenameReachesTheProjectsControlsWhenTheWindowIsAccepted)
{
    RegisterQzComponentClasses();
    QTemporaryDir dir;
    const std::string form = dir.filePath("Form1.dfm").toStdString();
    const std::tuple<TQzEditorDialog, const char*, const char*> cases[] = {
        {TQzEditorDialog::SetColor, "BtOk", "Alert"},
        {TQzEditorDialog::SetColor, "BtCancel", "warning"},
        {TQzEditorDialog::Display, "BtOk", "Alert"},
    };
    for (const auto& [window, close, expected] : cases) {
        SCOPED_TRACE(std::to_string(int(window)) + " " + close);
        Fill();
        QFile file(QString::fromStdString(form));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("object F: TQzCForm\n  object L1: TQzLabel\n    SetColor.Name = 'warning'\n  end\nend\n");
        file.close();
        TFolderProject project(dir.path().toStdString());
        TProjectServicesScope scope(&project);
        TDriver driver;
        driver.Then("rename Warning", [](QWidget* w) {
            TQzDisplaySetsPanel* panel = w->findChild<TQzDisplaySetsPanel*>("Panel1");
            panel = panel ? panel : Panel(w);
            panel->SelectName("Warning");
            EXPECT_TRUE(panel->Rename("Alert"));
        });
        driver.Click(close);
        TQzSetColor target;
        TQzEditorDialogRequest request;
        request.Target = &target;
        request.Component = App;
        QzRunEditorDialog(window, request);
        TComponent* label = project.DesignForm(form)->FindComponent("L1");
        EXPECT_EQ(dynamic_cast<TQzSetRef*>(GetObjectProp(label, "SetColor"))->Name(), expected);
    }
}

}  // namespace
