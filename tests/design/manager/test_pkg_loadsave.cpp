// The package load and save dialog driven as a user drives it, for every
// kind of package: files written and read back, the questions asked before
// anything is replaced, and the files it refuses.

#include "design/manager/Qzvtpkgloadsave.h"
#include "runtime/dialogs/QzStandardWindows.h"
#include "runtime/files/QzPkgFiles.h"
#include "runtime/model/QzApplication.h"
#include "runtime/model/QzPkgImages.h"
#include "runtime/model/QzPkgStrings.h"

#include "rtl/Streams.h"

#include "support/gui/QzModalDriver.h"
#include "support/gui/QzScreenshot.h"
#include "support/gui/QzTestApp.h"
#include "support/gui/QzTestDialogs.h"

#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QTemporaryDir>
#include <QTest>

#include <functional>
#include <memory>

namespace {

using TMakePkg = std::function<TQzPkgInfo*(TQzCApplication& app)>;

struct TKindCase {
    const char* Kind;
    const char* Ext;
    TMakePkg Make;
};

const TKindCase KindCases[] = {
    {"PkgStrings", "pst", [](TQzCApplication&) -> TQzPkgInfo* { return new TQzPkgStrings(nullptr); }},
    {"PkgImages", "pim", [](TQzCApplication&) -> TQzPkgInfo* { return new TQzPkgImages(nullptr); }},
    {"PkgVars", "pva", [](TQzCApplication& app) -> TQzPkgInfo* { return app.PkgVars(); }},
    {"Display", "dis", [](TQzCApplication& app) -> TQzPkgInfo* { return app.PkgDisplay(); }},
    {"Language", "lan", [](TQzCApplication& app) -> TQzPkgInfo* { return app.PkgLanguage(); }},
    {"Setup", "pse", [](TQzCApplication& app) -> TQzPkgInfo* { return app.PkgSetup(); }},
    {"Access", "pac", [](TQzCApplication& app) -> TQzPkgInfo* { return app.Privileges(); }},
};

class PkgLoadSave : public TQzGuiTest {
protected:
    void SetUp() override
    {
        RegisterQzStandardWindows();
        RegisterQzPkgFileFormats();
        ASSERT_TRUE(FDir.isValid());
        FApp = std::make_unique<TQzCApplication>(nullptr);
        FApp->SetPath(Folder());
    }

    AnsiString Folder() const { return FDir.path().toStdString() + "/"; }
    AnsiString Path(const AnsiString& name) const { return Folder() + name; }

    // The package a case works on; standalone ones are freed with the test.
    TQzPkgInfo* Make(const TKindCase& c)
    {
        TQzPkgInfo* pkg = c.Make(*FApp);
        if (!pkg->Owner())
            FOwned.emplace_back(pkg);
        return pkg;
    }

    static TQzModalDriver::TStep Pick(const QString& name)
    {
        return [name](QWidget* w) {
            auto* list = TQzModalDriver::Find<QListWidget>(w, "FileList");
            const QList<QListWidgetItem*> found = list->findItems(name, Qt::MatchExactly);
            if (found.isEmpty())
                throw TQzDriverError(("not listed: " + name).toStdString());
            list->setCurrentItem(found.first());
        };
    }

    static QString Text(QWidget* w, const char* edit) { return TQzModalDriver::Find<QLineEdit>(w, edit)->text(); }

    QTemporaryDir FDir;
    std::unique_ptr<TQzCApplication> FApp;
    std::vector<std::unique_ptr<TQzPkgInfo>> FOwned;
};

TEST_F(PkgLoadSave, EveryKindIsSavedToANewFileOverwrittenOnYesAndLoadedBack)
{
    for (const TKindCase& c : KindCases) {
        SCOPED_TRACE(c.Kind);
        TQzPkgInfo* pkg = Make(c);
        const AnsiString name = AnsiString("first.") + c.Ext;
        pkg->SetDescription("kept in memory");

        TQzTestDialogs dialogs;
        dialogs->AnswerMessage(mbYes).AnswerMessage(mbYes);
        TQzModalDriver driver;
        driver
            .Then("a new file",
                  [&](QWidget* w) {
                      EXPECT_EQ(w->windowTitle(), QString("Save ") + c.Kind);
                      EXPECT_EQ(TQzModalDriver::Find<QComboBox>(w, "EdInitMode")->currentText(), "DFM");
                      TQzModalDriver::Find<QComboBox>(w, "EdInitMode")->setCurrentIndex(1);
                  })
            .SetText("EdFileName", QString::fromStdString(name))
            .SetText("EdDescription", "first description")
            .Click("BtOk");
        ASSERT_TRUE(QzExecutePkgLoadSave(pkg, TQzLoadSave::Save));
        EXPECT_EQ(pkg->InitMode(), imFile);
        EXPECT_EQ(pkg->FileName(), name);
        EXPECT_TRUE(dialogs->Calls().empty()) << "nothing asked for a new file";

        // Over the existing file: asked, with the file named.
        driver.Then("shown as it lives",
                    [&](QWidget* w) {
                        EXPECT_EQ(Text(w, "EdFileName").toStdString(), name);
                        EXPECT_EQ(Text(w, "EdDescription"), "first description");
                    })
            .SetText("EdDescription", "second description")
            .Click("BtOk");
        ASSERT_TRUE(QzExecutePkgLoadSave(pkg, TQzLoadSave::Save));
        ASSERT_EQ(dialogs->Calls().size(), 1u);
        EXPECT_NE(dialogs->Calls()[0].Message.Text.find(Path(name)), AnsiString::npos);

        // Read back over other contents, chosen from the list by a double
        // click; the description shown is the file's.
        pkg->SetDescription("changed since");
        driver.Then("listed with its description",
                    [&](QWidget* w) {
                        EXPECT_EQ(w->windowTitle(), QString("Load ") + c.Kind);
                        Pick(QString::fromStdString(name))(w);
                        EXPECT_EQ(Text(w, "EdDescription"), "second description");
                        EXPECT_TRUE(TQzModalDriver::Find<QLineEdit>(w, "EdDescription")->isReadOnly());
                        if (qEnvironmentVariableIsSet("QZ_SCREENSHOT_DIR") && c.Kind == KindCases[0].Kind)
                            QzSaveScreenshot(w, qEnvironmentVariable("QZ_SCREENSHOT_DIR") + "/pkg-loadsave.png");
                    })
            .Then("double click", [&](QWidget* w) {
                auto* list = TQzModalDriver::Find<QListWidget>(w, "FileList");
                const QRect at = list->visualItemRect(list->currentItem());
                // QTest's double click is the second press alone.
                QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at.center());
                QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at.center());
            });
        ASSERT_TRUE(QzExecutePkgLoadSave(pkg, TQzLoadSave::Load));
        EXPECT_EQ(pkg->Description(), "second description");
        EXPECT_EQ(dialogs->Calls().size(), 2u) << "the load asked before replacing the contents";
    }
}

TEST_F(PkgLoadSave, RefusedFilesAndAnswersKeepTheDialogOpenAndThePackageAsItWas)
{
    auto* pkg = static_cast<TQzPkgStrings*>(Make(KindCases[0]));
    pkg->Labels()->Add(1, "in memory");
    pkg->SaveToFile(Path("good.pst"));
    pkg->Labels()->FindId(1)->SetText("changed");
    {
        QFile::copy(QString::fromStdString(Path("good.pst")), QString::fromStdString(Path("cut.pst")));
        QFile cut(QString::fromStdString(Path("cut.pst")));
        ASSERT_TRUE(cut.resize(cut.size() - 3));
        TQzPkgVars vars(nullptr);
        vars.SaveToFile(Path("vars.pst"));
    }
    struct {
        const char* Why;
        TQzLoadSave Direction;
        const char* File;
        TMsgDlgType Shown;
        TMsgDlgBtn Answer;
        bool Named;   // the last box names the file
    } const cases[] = {
        {"missing", TQzLoadSave::Load, "absent.pst", mtWarning, mbOK, true},
        {"load declined", TQzLoadSave::Load, "good.pst", mtConfirmation, mbNo, false},
        {"damaged", TQzLoadSave::Load, "cut.pst", mtConfirmation, mbYes, true},
        {"another kind", TQzLoadSave::Load, "vars.pst", mtConfirmation, mbYes, true},
        {"overwrite declined", TQzLoadSave::Save, "good.pst", mtConfirmation, mbNo, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Why);
        const std::string before = ReadFileBytes(Path("good.pst"));
        TQzTestDialogs dialogs;
        dialogs->AnswerMessage(c.Answer);
        if (c.Answer == mbYes)
            dialogs->AnswerMessage(mbOK);   // the error that follows
        TQzModalDriver driver;
        driver.Then("FILE", [](QWidget* w) { TQzModalDriver::Find<QComboBox>(w, "EdInitMode")->setCurrentIndex(1); })
            .SetText("EdFileName", c.File)
            .Click("BtOk")
            .Then("still open", [](QWidget* w) { EXPECT_TRUE(w->isVisible()); })
            .Click("BtCancel");
        EXPECT_FALSE(QzExecutePkgLoadSave(pkg, c.Direction));
        EXPECT_EQ(pkg->Labels()->FindId(1)->Text(), "changed");
        EXPECT_EQ(pkg->InitMode(), imDFM);
        const auto calls = dialogs->Calls();
        ASSERT_FALSE(calls.empty());
        EXPECT_EQ(calls[0].Message.Type, c.Shown);
        if (c.Named) {
            EXPECT_NE(calls.back().Message.Text.find(c.File), AnsiString::npos) << calls.back().Message.Text;
        }
        EXPECT_EQ(ReadFileBytes(Path("good.pst")), before);
    }
}

TEST_F(PkgLoadSave, TheKeyRowShowsOnlyWhenSavingPrivilegesDisplayOrLanguage)
{
    FApp->Privileges()->SetKey("secret");
    FApp->PkgDisplay()->SetLastUpdateFile("Standard.dis");
    struct {
        int Kind;
        TQzLoadSave Direction;
        const char* Label;   // nullptr: hidden
        const char* Value;
    } const cases[] = {
        {6, TQzLoadSave::Save, "&Key:", "secret"},
        {6, TQzLoadSave::Load, nullptr, ""},
        {3, TQzLoadSave::Save, "LastUpdateFile:", "Standard.dis"},
        {4, TQzLoadSave::Load, nullptr, ""},
        {0, TQzLoadSave::Save, nullptr, ""},
        {2, TQzLoadSave::Save, nullptr, ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(testing::Message() << KindCases[c.Kind].Kind << (c.Direction == TQzLoadSave::Save ? " save" : " load"));
        TQzPkgInfo* pkg = Make(KindCases[c.Kind]);
        TQzModalDriver driver;
        driver
            .Then("key row",
                  [&](QWidget* w) {
                      auto* key = TQzModalDriver::Find<QLineEdit>(w, "EdKey");
                      EXPECT_EQ(key->isVisible(), c.Label != nullptr);
                      if (!c.Label)
                          return;
                      EXPECT_EQ(TQzModalDriver::Find<QLabel>(w, "LbKey")->text(), c.Label);
                      EXPECT_EQ(key->text(), c.Value);
                      key->setText("typed");
                  })
            .Click("BtCancel");
        EXPECT_FALSE(QzExecutePkgLoadSave(pkg, c.Direction));
    }
    // Kept on Ok, with the privileges' key typed where the focus starts.
    TQzModalDriver driver;
    driver.Then("focus", [](QWidget* w) { EXPECT_EQ(w->focusWidget(), TQzModalDriver::Find<QLineEdit>(w, "EdKey")); })
        .SetText("EdKey", "new key")
        .Click("BtOk");
    EXPECT_TRUE(QzExecutePkgLoadSave(FApp->Privileges(), TQzLoadSave::Save));
    EXPECT_EQ(FApp->Privileges()->Key(), "new key");
    EXPECT_EQ(FApp->Privileges()->InitMode(), imDFM) << "kept in the form: nothing written";
}

TEST_F(PkgLoadSave, HidingTheStorageRowShrinksTheWindow)
{
    TQzPkgInfo* pkg = Make(KindCases[0]);
    int heights[2] = {};   // hidden, shown
    for (bool show : {true, false}) {
        TQzModalDriver driver;
        driver
            .Then("height",
                  [&](QWidget* w) {
                      heights[show] = w->height();
                      EXPECT_EQ(TQzModalDriver::Find<QComboBox>(w, "EdInitMode")->isVisible(), show);
                  })
            .Click("BtCancel");
        QzExecutePkgLoadSave(pkg, TQzLoadSave::Save, nullptr, show);
    }
    EXPECT_LT(heights[0], heights[1]);
}

}  // namespace
