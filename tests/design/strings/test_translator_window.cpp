// The translators driven as a user drives them: the rows of both sides,
// what the menus allow on each, Add and Delete writing to the edited
// package and telling the designer, the filters and the right button.

#include "design/strings/Qzvtopenfiles.h"
#include "design/strings/Qzvtpkgstrings.h"
#include "design/strings/Qzvtpkgstringstranslator.h"

#include "runtime/dialogs/QzStandardWindows.h"
#include "runtime/files/QzPkgFiles.h"
#include "vcl/QzListView.h"

#include "design/QzDesignWindowTest.h"
#include "support/gui/QzTestApp.h"
#include "support/gui/QzTestDialogs.h"

#include <QAction>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace {

class TranslatorWindow : public TQzGuiTest {
protected:
    void SetUp() override
    {
        RegisterQzStandardWindows();
        RegisterQzPkgFileFormats();
        FForm.SetName("Form1");
        FPackage = new TQzPkgStrings(&FForm);
        FPackage->SetPkgName("Main");
        FPackage->Labels()->Add(1, "&Open %s", "Opens a file");
        FPackage->Labels()->Add(2, "Close");
        FFormFile = FDir.path().toStdString() + "/Unit1.dfm";
    }

    // The Spanish file beside the form: 1 on both sides, 3 only here.
    void WriteTranslation()
    {
        TQzPkgStrings spanish(nullptr);
        spanish.Labels()->Add(1, "&Abrir %s", "Abre un archivo");
        spanish.Labels()->Add(3, "Guardar");
        spanish.SaveToFile(FDir.path().toStdString() + "/Unit1.pst");
    }

    TModalResult Run(TQzModalDriver& driver, TFrPkgStringsTranslator::TDeleteById deleteById = {})
    {
        TFrPkgStringsLabelsTranslator form;
        form.SetPackage(FPackage);
        form.SetFormFileOf([this](const TComponent*) { return FFormFile; });
        form.SetDeleteById(std::move(deleteById));
        const TModalResult result = form.Execute();
        EXPECT_TRUE(driver.Finished());
        return result;
    }

    static TFrPkgStringsTranslator* Form(QWidget* w) { return QzWindowAs<TFrPkgStringsTranslator>(w); }

    // The rows as "Id|edited|translation".
    static QStringList Rows(QWidget* w)
    {
        QStringList rows;
        auto* list = TQzModalDriver::Find<TQzListView>(w, "Labels");
        for (int r = 0; r < list->model()->rowCount(); ++r) {
            const auto cell = [&](int c) { return list->model()->index(r, c).data().toString(); };
            rows << cell(0) + "|" + cell(2) + "|" + cell(3);
        }
        return rows;
    }

    // The enabled commands of the pop-up menu for the row of id.
    static QString Menu(QWidget* w, Integer id)
    {
        if (!Form(w)->SelectId(id))
            throw TQzDriverError("no row for " + std::to_string(id));
        Form(w)->PopupMenu1Popup();
        QString enabled;
        for (const char* name : {"Add1", "Modify1", "Delete1", "Save1"})
            if (TQzModalDriver::Find<QAction>(w, name)->isEnabled())
                enabled += QString(name).chopped(1) + " ";
        return enabled.trimmed();
    }

    QTemporaryDir FDir;
    TComponent FForm{nullptr};
    TQzPkgStrings* FPackage = nullptr;   // owned by the form
    AnsiString FFormFile;
    TQzMarkedLog FMarks;
    std::vector<TComponent*>& FTold = FMarks.Marked;
};

TEST_F(TranslatorWindow, WithoutATranslationFileOnlyTheEditedIdsAreListed)
{
    TQzModalDriver driver;
    driver
        .Then("shown",
              [this](QWidget* w) {
                  EXPECT_EQ(w->windowTitle(), "Labels Translator");
                  EXPECT_EQ(Rows(w), QStringList({"1|&Open %s|", "2|Close|"}));
                  EXPECT_EQ(TQzModalDriver::Find<QLabel>(w, "LabLoadFile")->text(), "Load File : (Unknown)");
                  EXPECT_EQ(TQzModalDriver::Find<QLabel>(w, "LabCurrentFile")->text().toStdString(),
                            "Current File : " + FDir.path().toStdString() + "/Unit1.pst");
                  EXPECT_EQ(TQzModalDriver::Find<QStatusBar>(w, "SBar")->currentMessage().toStdString(),
                            "( Main : 2 Labels )  ( Unknown - " + FDir.path().toStdString() +
                                "/Unit1.pst : 0 Labels )");
              })
        .Escape();
    EXPECT_EQ(Run(driver), mrCancel);
    EXPECT_TRUE(FTold.empty());
}

TEST_F(TranslatorWindow, EachIdIsOneRowAndTheMenusFollowTheSideThatHasIt)
{
    WriteTranslation();
    TQzModalDriver driver;
    driver
        .Then("rows and menus",
              [](QWidget* w) {
                  EXPECT_EQ(Rows(w), QStringList({"1|&Open %s|&Abrir %s", "2|Close|", "3||Guardar"}));
                  EXPECT_EQ(Menu(w, 1), "Modify Delete Save");
                  EXPECT_EQ(Menu(w, 3), "Add Save") << "an Id of the translation alone";
                  EXPECT_EQ(TQzModalDriver::Find<QPlainTextEdit>(w, "MeHint2")->toPlainText(), "");
                  Form(w)->SelectId(1);
                  EXPECT_EQ(TQzModalDriver::Find<QPlainTextEdit>(w, "MeHint1")->toPlainText(), "Opens a file");
                  EXPECT_EQ(TQzModalDriver::Find<QPlainTextEdit>(w, "MeHint2")->toPlainText(), "Abre un archivo");
                  // Modify on an Id the edited package lacks does nothing.
                  Form(w)->SelectId(3);
                  Form(w)->Modify1Click();
              })
        .Escape();
    Run(driver);
    EXPECT_TRUE(FTold.empty());
}

TEST_F(TranslatorWindow, AddWritesTheEditedPackageAndTellsTheDesigner)
{
    WriteTranslation();
    TQzModalDriver driver;
    driver.Then("Add on 3", [](QWidget* w) { Form(w)->SelectId(3); Form(w)->Add1Click(); })
        .Then("the dialog shows the translation",
              [](QWidget* w) {
                  EXPECT_EQ(w->windowTitle(), "Add Label");
                  EXPECT_TRUE(TQzModalDriver::Find<QLineEdit>(w, "EdId")->isReadOnly());
                  EXPECT_EQ(TQzModalDriver::Find<QLineEdit>(w, "EdId")->text(), "3");
                  EXPECT_EQ(TQzModalDriver::Find<QPlainTextEdit>(w, "EdText1")->toPlainText(), "Guardar");
                  EXPECT_EQ(TQzModalDriver::Find<QPlainTextEdit>(w, "EdText2")->toPlainText(), "");
                  TQzModalDriver::Find<QPlainTextEdit>(w, "EdText2")->setPlainText("Save");
              })
        .SetText("EdHint2", "Saves the file")
        .Click("BtOk")
        .Then("the row has both sides", [](QWidget* w) {
            EXPECT_EQ(Rows(w).last(), "3|Save|Guardar");
            EXPECT_EQ(Menu(w, 3), "Modify Delete Save");
        })
        .Escape();
    Run(driver);
    ASSERT_NE(FPackage->Labels()->FindId(3), nullptr);
    EXPECT_EQ(FPackage->Labels()->FindId(3)->Hint(), "Saves the file");
    EXPECT_EQ(FTold, std::vector<TComponent*>{&FForm});
}

TEST_F(TranslatorWindow, DeleteRunsTheEditorsOwnDeleteAndRebuildsTheRows)
{
    WriteTranslation();
    std::vector<Integer> asked;
    const auto editorDelete = [&](Integer id) {
        asked.push_back(id);
        FPackage->Labels()->Delete(FPackage->Labels()->FindId(id)->Index());
        return true;
    };
    TQzModalDriver driver;
    driver.Then("Delete 1", [](QWidget* w) { Form(w)->SelectId(1); Form(w)->Delete1Click(); })
        .Then("rows", [](QWidget* w) {
            EXPECT_EQ(Rows(w), QStringList({"1||&Abrir %s", "2|Close|", "3||Guardar"}))
                << "the translation keeps its side";
        })
        .Escape();
    Run(driver, editorDelete);
    EXPECT_EQ(asked, std::vector<Integer>{1});
    EXPECT_EQ(FTold.size(), 1u);
}

TEST_F(TranslatorWindow, FiltersMarkersAndTheRightButton)
{
    WriteTranslation();
    FPackage->Labels()->Add(3, "Guardar");   // the same text in both languages
    TQzModalDriver driver;
    driver
        .Then("missing in the translation",
              [](QWidget* w) {
                  auto* filter = TQzModalDriver::Find<QComboBox>(w, "CBFilter");
                  filter->setCurrentIndex(static_cast<int>(TQzTranslatorFilter::MissingInTranslation));
                  EXPECT_EQ(Rows(w), QStringList({"2|Close|"}));
                  filter->setCurrentIndex(static_cast<int>(TQzTranslatorFilter::FailsChecks));
                  EXPECT_EQ(Rows(w), QStringList({"3|Guardar|Guardar"}));
                  auto* list = TQzModalDriver::Find<TQzListView>(w, "Labels");
                  EXPECT_EQ(list->model()->index(0, 1).data().toString(), "!");
                  EXPECT_EQ(list->model()->index(0, 1).data(Qt::ToolTipRole).toString(), "same text in both languages");
                  filter->setCurrentIndex(0);
              })
        .Then("right button below the rows", [](QWidget* w) {
            auto* list = TQzModalDriver::Find<TQzListView>(w, "Labels");
            const QPoint below(10, list->viewport()->height() - 2);
            QTest::mousePress(list->viewport(), Qt::RightButton, {}, below);
            QTest::mouseRelease(list->viewport(), Qt::RightButton, {}, below);
            EXPECT_TRUE(Form(w)->PopupMenu2->isVisible());
            EXPECT_FALSE(Form(w)->PopupMenu1->isVisible());
            Form(w)->PopupMenu2->close();
            const QPoint first = list->visualRect(list->model()->index(1, 2)).center();
            QTest::mousePress(list->viewport(), Qt::RightButton, {}, first);
            QTest::mouseRelease(list->viewport(), Qt::RightButton, {}, first);
            Integer id = -1;
            EXPECT_TRUE(Form(w)->SelectedId(id));
            EXPECT_EQ(id, 2) << "the row under the mouse is selected";
            EXPECT_TRUE(Form(w)->PopupMenu1->isVisible());
            Form(w)->PopupMenu1->close();
        });
    if (qEnvironmentVariableIsSet("QZ_SCREENSHOT_DIR"))
        driver.Then("select", [](QWidget* w) { Form(w)->SelectId(1); })
            .Screenshot(qEnvironmentVariable("QZ_SCREENSHOT_DIR") + "/strings-translator.png");
    driver.Escape();
    Run(driver);
}

TEST_F(TranslatorWindow, TheStringsEditorOpensTheTranslatorOfItsPageAndLendsItsDelete)
{
    TQzTestDialogs dialogs;
    dialogs->AnswerMessage(mbYes);   // the strings editor's own question
    TQzModalDriver driver;
    driver.Click("BtTranslator")
        .Then("the labels translator deletes 2", [](QWidget* w) {
            EXPECT_EQ(w->windowTitle(), "Labels Translator");
            Form(w)->SelectId(2);
            Form(w)->Delete1Click();
            EXPECT_EQ(Rows(w), QStringList({"1|&Open %s|"}));
        })
        .Escape()
        .Then("the editor lists what is left", [](QWidget* w) {
            EXPECT_EQ(qobject_cast<TFrPkgStrings*>(w)->Rows(TQzMemoryFamily::Labels).Count(), 1);
        })
        .Escape();
    TFrPkgStrings editor;
    editor.SetPackage(FPackage);
    editor.Execute();
    EXPECT_TRUE(driver.Finished());
    EXPECT_EQ(FPackage->Labels()->FindId(2), nullptr);
}

TEST_F(TranslatorWindow, TheFilePickerListsTheMaskAndTakesANewName)
{
    for (const char* name : {"b.lan", "a.lan", "notes.txt"}) {
        QFile file(FDir.path() + "/" + name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }
    const AnsiString folder = FDir.path().toStdString();
    struct Case {
        const char* Typed;   // nullptr: the listed file picked
        AnsiString Chosen;
    };
    const Case cases[] = {
        {nullptr, folder + "/a.lan"},
        {"Spanish", folder + "/Spanish.lan"},    // new, the mask's extension added
        {"/elsewhere/French.lan", "/elsewhere/French.lan"},
    };
    for (const Case& c : cases) {
        TQzModalDriver driver;
        driver.Then("listed", [](QWidget* w) {
            auto* list = TQzModalDriver::Find<QListWidget>(w, "FileList");
            ASSERT_EQ(list->count(), 2);
            EXPECT_EQ(list->item(0)->text(), "a.lan");
            list->setCurrentRow(0);
        });
        if (c.Typed)
            driver.SetText("EdFileName", c.Typed);
        driver.Click("BtOk");
        TFrOpenFiles files;
        EXPECT_EQ(files.Execute(folder, "*.lan"), mrOk);
        EXPECT_EQ(files.FileName(), c.Chosen);
        EXPECT_TRUE(driver.Finished());
    }
}

// The messages and texts translators are built as the labels one is, each
// over its own list and memos; only labels carry a hint in the Add dialog.
TEST_F(TranslatorWindow, EachMemberNamesItsListMemosAndDialogs)
{
    struct Case {
        std::unique_ptr<TFrPkgStringsTranslator> Window;
        const char* Caption;
        const char* List;
        const char* Memo1;
        const char* Memo2;
    };
    Case cases[] = {
        {std::make_unique<TFrPkgStringsMessagesTranslator>(), "Messages Translator", "Messages", "MeMsg1", "MeMsg2"},
        {std::make_unique<TFrPkgStringsTextsTranslator>(), "Texts Translator", "Texts", "MeText1", "MeText2"},
    };
    for (Case& c : cases) {
        QWidget* w = c.Window.get();
        EXPECT_EQ(w->windowTitle(), c.Caption);
        for (const char* name : {c.List, c.Memo1, c.Memo2})
            EXPECT_NE(w->findChild<QWidget*>(name), nullptr) << c.Caption << " has no " << name;
    }
    EXPECT_FALSE(TFrPkgStringsLabelsTranslatorAdd().EdHint2->isHidden());
    EXPECT_TRUE(TFrPkgStringsTextsTranslatorAdd().EdHint2->isHidden());
}

}  // namespace
