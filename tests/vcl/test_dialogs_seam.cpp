// The dialog seam: scripted answers and what they record, the mistakes that
// fail a test instead of blocking it, filters, and Qt's message box.

#include "support/gui/QzModalDriver.h"
#include "support/gui/QzTestApp.h"
#include "support/gui/QzTestDialogs.h"
#include "vcl/QzFileFilter.h"
#include "vcl/QzPrinter.h"
#include "vcl/QzQtDialogs.h"
#include "vcl/QzReport.h"

#include <QAbstractItemView>
#include <QFileDialog>
#include <QLabel>
#include <QPrinter>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest-spi.h>

#include <functional>

namespace {

class SeamTest : public TQzGuiTest {};

TQzFileRequest FileRequest(const AnsiString& title, const AnsiString& filter = "Text Files (*.txt)|*.txt")
{
    TQzFileRequest request;
    request.Title = title;
    request.Filter = filter;
    request.DefaultExt = "txt";
    return request;
}

TEST_F(SeamTest, ScriptedAnswersComeInOrderAndEveryQuestionIsRecorded)
{
    TQzTestDialogs dialogs;
    dialogs->AnswerMessage(mbYes).AnswerSave("/tmp/labels.txt").AnswerOpen({}).AnswerFolder("/tmp").AnswerPrinterSetup(
        false);

    EXPECT_EQ(QzMessage("Delete the label?", mtConfirmation, mbYesNo, mbNo), mrYes);
    EXPECT_EQ(QzSaveFile(FileRequest("Export Labels")), "/tmp/labels.txt");
    EXPECT_EQ(QzOpenFile(FileRequest("Import Labels")), "");
    EXPECT_EQ(QzDialogs().SelectFolder("Project folder", "/home", nullptr), "/tmp");
    QPrinter printer;
    EXPECT_FALSE(QzDialogs().PrinterSetup(printer, nullptr));

    const std::vector<TQzDialogCall>& calls = dialogs->Calls();
    ASSERT_EQ(calls.size(), 5u);
    EXPECT_EQ(calls[0].Kind, TQzDialogKind::Message);
    EXPECT_EQ(calls[0].Message.Text, "Delete the label?");
    EXPECT_EQ(calls[0].Message.Type, mtConfirmation);
    EXPECT_EQ(calls[0].Message.Buttons, mbYesNo);
    EXPECT_EQ(calls[0].Message.DefaultButton, mbNo);
    EXPECT_EQ(calls[1].Kind, TQzDialogKind::SaveFile);
    EXPECT_EQ(calls[1].File.Title, "Export Labels");
    EXPECT_EQ(calls[1].File.Filter, "Text Files (*.txt)|*.txt");
    EXPECT_EQ(calls[2].Kind, TQzDialogKind::OpenFiles);
    EXPECT_EQ(calls[3].File.InitialDir, "/home");
    EXPECT_EQ(dialogs->CallsOf(TQzDialogKind::PrinterSetup).size(), 1u);
    for (const TQzDialogCall& call : calls)
        EXPECT_TRUE(call.Scripted);
}

TEST_F(SeamTest, EnterAnswersWithTheDefaultButton)
{
    struct TCase {
        TMsgDlgButtons Buttons;
        TMsgDlgBtn Default;
        TModalResult Expected;
    } cases[] = {
        {mbYesNo, mbNo, mrNo},
        {mbYesNo, mbYes, mrYes},
        {mbYesNo, mbOK, mrYes},  // not offered: the first button
        {mbOKCancel, mbCancel, mrCancel},
        {mbAbortRetryIgnore, mbIgnore, mrIgnore},
    };
    for (const TCase& c : cases) {
        TQzTestDialogs dialogs;
        dialogs->AnswerMessageDefault();
        EXPECT_EQ(QzMessage("?", mtConfirmation, c.Buttons, c.Default), c.Expected) << c.Expected;
    }
}

struct TMistake {
    const char* Name;
    std::function<void(TQzScriptedDialogs&)> Script;
    std::function<void()> Code;
    const char* Failure;
};

TEST_F(SeamTest, MistakesInTheScriptFailTheTestAndNeverBlock)
{
    const TMistake mistakes[] = {
        {"nothing scripted", [](TQzScriptedDialogs&) {},
         [] { EXPECT_EQ(QzMessage("Clear all?", mtConfirmation, mbYesNoCancel), mrCancel); },
         "unexpected message box \"Clear all?\" (Confirm; Yes, No, Cancel): nothing was scripted"},
        {"another kind of question", [](TQzScriptedDialogs& s) { s.AnswerSave("/tmp/a.txt"); },
         [] {
             EXPECT_EQ(QzMessage("Sure?", mtConfirmation, mbYesNo), mrNo);  // as Escape would
             EXPECT_EQ(QzSaveFile(FileRequest("Save")), "/tmp/a.txt");     // the answer is kept for it
         },
         "the script expects a save dialog answered \"/tmp/a.txt\""},
        {"a button the box does not have", [](TQzScriptedDialogs& s) { s.AnswerMessage(mbYes); },
         [] { EXPECT_EQ(QzMessage("Print?", mtInformation, mbOKCancel), mrCancel); },
         "the script answers Yes to message box \"Print?\""},
        {"several files to a single-file dialog", [](TQzScriptedDialogs& s) { s.AnswerOpen({"/a", "/b"}); },
         [] { EXPECT_EQ(QzOpenFile(FileRequest("Import")), ""); }, "which allows one file only"},
        {"a printer nobody scripted", [](TQzScriptedDialogs&) {},
         [] {
             TQzReport report;
             report.SetTitle("Labels");
             std::unique_ptr<QPrinter> printer = QzDialogs().CreatePrinter();
             EXPECT_THROW(report.Print(*printer), EPrinter);
         },
         "unexpected printer"},
        {"an answer never asked for", [](TQzScriptedDialogs& s) { s.AnswerFolder("/tmp"); }, [] {},
         "scripted but never asked: folder dialog answered \"/tmp\""},
    };
    for (const TMistake& m : mistakes) {
        SCOPED_TRACE(m.Name);
        EXPECT_NONFATAL_FAILURE(
            {
                TQzTestDialogs dialogs;
                m.Script(dialogs.Script());
                m.Code();
            },
            m.Failure);
    }
}

// Without a failure handler an unscripted question is kept for the caller.
TEST_F(SeamTest, ScopesRestoreTheDialogsTheyReplacedAndFailuresCanBeKept)
{
    IQzDialogs* qt = &QzDialogs();
    TQzScriptedDialogs outer;
    TQzScriptedDialogs inner;
    inner.SetFailureHandler(nullptr);
    {
        TQzDialogsScope a(outer);
        {
            TQzDialogsScope b(inner);
            EXPECT_EQ(&QzDialogs(), &inner);
            EXPECT_EQ(QzMessage("Oops", mtError), mrOk);
        }
        EXPECT_EQ(&QzDialogs(), &outer);
    }
    EXPECT_EQ(&QzDialogs(), qt);
    ASSERT_EQ(inner.Failures().size(), 1u);
    EXPECT_FALSE(inner.Calls().front().Scripted);
}

TEST(FileFilter, SuiteFiltersBecomeQtNameFilters)
{
    struct TCase {
        AnsiString Filter;
        QStringList Expected;
    } cases[] = {
        {"Text Files (*.txt)|*.txt|All Files (*.*)|*.*", {"Text Files (*.txt)", "All Files (*)"}},
        {"Pictures|*.bmp;*.png", {"Pictures (*.bmp *.png)"}},
        {"Package Images (*.qzi)|*.qzi", {"Package Images (*.qzi)"}},
        {"Old texts (*.txt)|*.txt;*.text", {"Old texts (*.txt *.text)"}},
        {"|*.lan", {"*.lan (*.lan)"}},
        {"Text|*.txt|Dangling", {"Text (*.txt)"}},
        {"", {}},
    };
    for (const TCase& c : cases)
        EXPECT_EQ(QzConvertFilter(c.Filter), c.Expected) << c.Filter;

    EXPECT_EQ(QzFilterMasks("A|*.a|B|*.b;*.c", 2), (QStringList{"*.b", "*.c"}));
    EXPECT_TRUE(QzFilterMasks("A|*.a", 2).isEmpty());
}

TEST(FileFilter, DefaultExtensionIsAddedOnlyToNamesWithoutOne)
{
    struct TCase {
        AnsiString Name, Ext, Expected;
    } cases[] = {
        {"labels", "txt", "labels.txt"},
        {"labels", ".txt", "labels.txt"},
        {"labels.csv", "txt", "labels.csv"},
        {"labels", "", "labels"},
        {"", "txt", ""},
        {"/work/v1.2/labels", "txt", "/work/v1.2/labels.txt"},
    };
    for (const TCase& c : cases)
        EXPECT_EQ(QzApplyDefaultExt(c.Name, c.Ext), c.Expected) << c.Name << " + " << c.Ext;
}

struct TBoxCase {
    const char* Name;
    TMsgDlgButtons Buttons;
    TMsgDlgBtn Default;
    std::function<void(TQzModalDriver&)> Press;
    TModalResult Expected;
};

TEST_F(SeamTest, QtMessageBoxReturnsTheButtonPressed)
{
    const TBoxCase cases[] = {
        {"No clicked", mbYesNoCancel, mbYes, [](TQzModalDriver& d) { d.Click("No"); }, mrNo},
        {"Enter on the default", mbYesNo, mbNo, [](TQzModalDriver& d) { d.Enter(); }, mrNo},
        {"Escape is Cancel", mbYesNoCancel, mbYes, [](TQzModalDriver& d) { d.Escape(); }, mrCancel},
        {"Escape without Cancel is No", mbYesNo, mbYes, [](TQzModalDriver& d) { d.Escape(); }, mrNo},
        {"Escape on a single button", {mbOK}, mbOK, [](TQzModalDriver& d) { d.Escape(); }, mrOk},
        {"Retry clicked", mbAbortRetryIgnore, mbAbort, [](TQzModalDriver& d) { d.Click("Retry"); }, mrRetry},
    };
    for (const TBoxCase& c : cases) {
        SCOPED_TRACE(c.Name);
        TQzModalDriver driver;
        driver.Then("check the box", [](QWidget* box) {
            EXPECT_EQ(box->windowTitle(), "Confirm");
            EXPECT_NE(box->findChild<QLabel*>("qt_msgbox_label"), nullptr);
        });
        c.Press(driver);
        EXPECT_EQ(QzMessage("Replace the file?", mtConfirmation, c.Buttons, c.Default), c.Expected);
    }
}

TEST_F(SeamTest, QtPictureDialogShowsThePictureAndReturnsIt)
{
    QTemporaryDir dir;
    const QString file = dir.filePath("red.png");
    QImage red(40, 20, QImage::Format_RGB32);
    red.fill(Qt::red);
    ASSERT_TRUE(red.save(file));

    TQzModalDriver driver;
    driver.Then("select the picture", [&](QWidget* window) {
        auto* dialog = qobject_cast<QFileDialog*>(window);
        ASSERT_NE(dialog, nullptr);
        auto* preview = TQzModalDriver::Find<QLabel>(window, "PicturePreview");
        dialog->selectFile(file);
        // As a click would: the file becomes the list's current one once the
        // folder is read.
        auto* list = TQzModalDriver::Find<QAbstractItemView>(window, "listView");
        ASSERT_TRUE(QTest::qWaitFor([&] { return list->selectionModel()->hasSelection(); }, 5000));
        list->setCurrentIndex(list->selectionModel()->selectedIndexes().front());
        EXPECT_TRUE(QTest::qWaitFor([&] { return !preview->pixmap().isNull(); }, 5000));
        static_cast<QDialog*>(dialog)->accept();
    });
    TQzFileRequest request;
    request.Title = "Load Picture";
    request.InitialDir = dir.path().toStdString();
    const std::vector<AnsiString> chosen = TQzQtDialogs().OpenPictures(request);
    EXPECT_EQ(chosen, std::vector<AnsiString>{file.toStdString()});
}

}  // namespace
