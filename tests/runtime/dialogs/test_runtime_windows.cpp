// The runtime's memo, image, rich text and help windows driven as a user
// would: what OK, Cancel and Escape leave in the object they edit, the files
// they read, and a picture or text the object refuses.

#include "runtime/dialogs/QzImageE.h"
#include "runtime/dialogs/QzMemoE.h"
#include "runtime/dialogs/QzMsgHlp.h"
#include "runtime/dialogs/QzRichEditE.h"
#include "runtime/components/QzExtCtrls.h"
#include "runtime/model/QzPkgImages.h"
#include "runtime/model/QzPkgStrings.h"
#include "runtime/pictures/QzPicture.h"

#include "rtl/StringList.h"
#include "support/gui/QzModalDriver.h"
#include "support/gui/QzTestApp.h"
#include "support/gui/QzTestDialogs.h"

#include <QImage>
#include <QPlainTextEdit>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTextEdit>

#include <functional>

namespace {

using TDriver = TQzModalDriver;

class RuntimeWindows : public TQzGuiTest {
protected:
    AnsiString TempFile(const char* name) const { return FTemp.filePath(name).toStdString(); }
    AnsiString WritePicture(const char* name, QSize size, QColor color) const
    {
        QImage image(size, QImage::Format_RGB32);
        image.fill(color);
        const AnsiString file = TempFile(name);
        image.save(QString::fromStdString(file), "PNG");
        return file;
    }

private:
    QTemporaryDir FTemp;
};

QPlainTextEdit* MemoOf(QWidget* w) { return TDriver::Find<QPlainTextEdit>(w, "Memo"); }

TEST_F(RuntimeWindows, TheMemoWindowReplacesTheLinesOnlyOnOk)
{
    {
        TStringList text;
        text.SetText("from the file\nsecond");
        text.SaveToFile(TempFile("in.txt"));
    }
    struct TCase {
        const char* Name;
        std::function<void(TDriver&, TQzTestDialogs&)> Script;
        bool Accepted;
        AnsiString Lines;
    };
    const TCase cases[] = {
        {"typed, OK", [](TDriver& d, TQzTestDialogs&) {
             d.Then("type", [](QWidget* w) { MemoOf(w)->setPlainText("one\ntwo"); }).Click("BtOk");
         }, true, "one\r\ntwo\r\n"},
        {"typed, Cancel", [](TDriver& d, TQzTestDialogs&) {
             d.Then("type", [](QWidget* w) { MemoOf(w)->setPlainText("lost"); }).Click("BtCancel");
         }, false, "old\r\n"},
        {"typed, Escape", [](TDriver& d, TQzTestDialogs&) {
             d.Then("type", [](QWidget* w) { MemoOf(w)->setPlainText("lost"); }).Escape();
         }, false, "old\r\n"},
        {"opened from a file", [this](TDriver& d, TQzTestDialogs& dialogs) {
             dialogs->AnswerOpen({TempFile("in.txt")});
             d.Click("BtOpen").Click("BtOk");
         }, true, "from the file\r\nsecond\r\n"},
        {"an open cancelled keeps the text", [](TDriver& d, TQzTestDialogs& dialogs) {
             dialogs->AnswerOpen({});
             d.Click("BtOpen").Click("BtOk");
         }, true, "old\r\n"},
        {"saved to a file, Cancel", [this](TDriver& d, TQzTestDialogs& dialogs) {
             dialogs->AnswerSave(TempFile("out.txt"));
             d.Then("type", [](QWidget* w) { MemoOf(w)->setPlainText("kept\nin a file"); }).Click("BtSave");
             d.Click("BtCancel");
         }, false, "old\r\n"},
    };
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.Name);
        TQzTestDialogs dialogs;
        TStringList lines;
        lines.Add("old");
        TFrMemoE window;
        TDriver driver;
        c.Script(driver, dialogs);
        EXPECT_EQ(window.Execute("Notes", &lines), c.Accepted);
        EXPECT_EQ(lines.Text(), c.Lines);
        EXPECT_EQ(window.windowTitle(), "Notes");
    }
    TStringList saved;
    saved.LoadFromFile(TempFile("out.txt"));
    EXPECT_EQ(saved.Text(), "kept\r\nin a file\r\n");
}

TEST_F(RuntimeWindows, TheImageWindowChangesThePictureOnlyOnOk)
{
    const AnsiString red = WritePicture("red.png", {8, 6}, Qt::red);
    const AnsiString blue = WritePicture("blue.png", {240, 160}, QColor(0x30, 0x60, 0xC0));
    struct TCase {
        const char* Name;
        std::function<void(TDriver&, TQzTestDialogs&)> Script;
        bool Accepted;
        int Width;  // 0: no picture
    };
    const TCase cases[] = {
        {"loaded, OK", [&](TDriver& d, TQzTestDialogs& s) {
             s->AnswerOpenPictures({blue});
             d.Click("BtLoad").Click("BtOk");
         }, true, 240},
        {"loaded, Cancel", [&](TDriver& d, TQzTestDialogs& s) { s->AnswerOpenPictures({blue}); d.Click("BtLoad").Click("BtCancel"); },
         false, 8},
        {"cleared, OK", [](TDriver& d, TQzTestDialogs&) { d.Click("BtClear").Click("BtOk"); }, true, 0},
        {"a file that is no picture is refused", [this](TDriver& d, TQzTestDialogs& s) {
             TStringList text;
             text.Add("not a picture");
             text.SaveToFile(TempFile("bad.png"));
             s->AnswerOpenPictures({TempFile("bad.png")}).AnswerMessage(mbOK);
             d.Click("BtLoad").Click("BtOk");
         }, true, 8},
    };
    for (const TCase& c : cases) {
        SCOPED_TRACE(c.Name);
        TQzTestDialogs dialogs;
        TQzPkgImages package(nullptr);
        TQzPkgImagesImage* image = package.Images()->Add(3);
        TQzPicture(image).LoadFromFile(red);
        TFrImageE window;
        TDriver driver;
        c.Script(driver, dialogs);
        EXPECT_EQ(window.Execute("Photo", image), c.Accepted);
        EXPECT_EQ(image->Empty() ? 0 : image->Width(), c.Width);
    }
}

TEST_F(RuntimeWindows, TheImageWindowRefusesAControlWithoutAPackageImage)
{
    TQzTestDialogs dialogs;
    dialogs->AnswerMessage(mbOK);
    TQzImage control(nullptr);
    control.SetName("Logo");
    TFrImageE window;
    EXPECT_FALSE(window.Execute("Logo", &control));
    ASSERT_EQ(dialogs->Calls().size(), 1u);
    EXPECT_NE(dialogs->Calls()[0].Message.Text.find("Logo shows no image"), AnsiString::npos);
}

TEST_F(RuntimeWindows, RichTextKeepsItsFormattingThroughTheLines)
{
    TStringList lines;
    lines.Add("Plain start");
    TFrRichEditE window;
    TDriver driver;
    driver.Then("select", [](QWidget* w) { TDriver::Find<QTextEdit>(w, "RichEdit")->selectAll(); })
        .Click("BtBold")
        .Click("BtCenter")
        .Click("BtOk");
    ASSERT_TRUE(window.Execute("Rich", &lines));

    TFrRichEditE again;
    again.SetText(lines.Text());
    QTextCursor cursor(again.RichEdit->document());
    cursor.movePosition(QTextCursor::NextCharacter);
    EXPECT_EQ(again.RichEdit->toPlainText(), "Plain start");
    EXPECT_GE(cursor.charFormat().fontWeight(), QFont::Bold);
    EXPECT_TRUE(cursor.blockFormat().alignment() & Qt::AlignHCenter);
}

TEST_F(RuntimeWindows, RichTextKeptPlainIsEditedWithoutFormatting)
{
    TStringList lines;
    lines.Add("<b>not markup</b>");
    TFrRichEditE window;
    TDriver driver;
    driver.Then("plain", [](QWidget* w) {
              EXPECT_FALSE(TDriver::Find<QWidget>(w, "BtBold")->isEnabled());
              EXPECT_EQ(TDriver::Find<QTextEdit>(w, "RichEdit")->toPlainText(), "<b>not markup</b>");
          })
        .Click("BtOk");
    ASSERT_TRUE(window.Execute("Plain", &lines, true));
    EXPECT_EQ(lines.Text(), "<b>not markup</b>\r\n");
}

TEST_F(RuntimeWindows, RichTextFilesArePlainOnlyWhenNamedTxt)
{
    struct TCase {
        const char* File;
        bool KeepsBold;
    };
    for (const TCase& c : {TCase{"rich.html", true}, TCase{"plain.txt", false}}) {
        SCOPED_TRACE(c.File);
        TQzTestDialogs dialogs;
        dialogs->AnswerSave(TempFile(c.File)).AnswerOpen({TempFile(c.File)});
        TStringList lines;
        lines.Add("<b>Bold</b> text");
        TFrRichEditE window;
        TDriver driver;
        driver.Click("BtSave")
            .Then("clear", [](QWidget* w) { TDriver::Find<QTextEdit>(w, "RichEdit")->clear(); })
            .Click("BtOpen")
            .Click("BtOk");
        ASSERT_TRUE(window.Execute("Rich", &lines));
        EXPECT_EQ(window.RichEdit->toPlainText(), "Bold text");
        QTextCursor cursor(window.RichEdit->document());
        cursor.movePosition(QTextCursor::NextCharacter);
        EXPECT_EQ(cursor.charFormat().fontWeight() >= QFont::Bold, c.KeepsBold);
    }
}

TEST_F(RuntimeWindows, AHelpPageIsTheTextOfItsPackageSplitIntoTitleAndBody)
{
    TQzPkgStrings package(nullptr);
    package.SetPkgName("HelpPages");
    package.Texts()->Add(7, "Saving\r\n\r\nSave writes the form.\r\nSave As asks for a name.");
    package.Texts()->Add(8, "Only a title");
    struct TCase {
        const char* Package;
        Integer Id;
        bool Found;
        AnsiString Title;
        AnsiString Body;
    };
    const TCase cases[] = {
        {"HelpPages", 7, true, "Saving", "Save writes the form.\nSave As asks for a name."},
        {"helppages", 8, true, "Only a title", ""},
        {"HelpPages", 9, false, "There is no help page 9 in the strings package \"HelpPages\".", ""},
        {"Nowhere", 7, false, "There is no help page 7 in the strings package \"Nowhere\".", ""},
        {"System", 1, true, "Edit masks", ""},  // built in; its body is long
    };
    for (const TCase& c : cases) {
        SCOPED_TRACE(AnsiString(c.Package) + " " + IntToStr(c.Id));
        const TQzHelpTopic topic = QzHelpTopic(c.Package, c.Id);
        EXPECT_EQ(topic.Found, c.Found);
        EXPECT_EQ(topic.Title, c.Title);
        if (c.Id != 1)
            EXPECT_EQ(topic.Body, c.Body);
        else
            EXPECT_EQ(topic.Body.substr(0, 6), "A mask");
    }
}

TEST_F(RuntimeWindows, TheHelpWindowShowsTheMessageOverItsPage)
{
    TFrMsgHlp window;
    TDriver driver;
    driver.Then("shown", [](QWidget* w) {
              EXPECT_TRUE(TDriver::Find<QWidget>(w, "PnMessage")->isVisible());
              EXPECT_EQ(TDriver::Find<QLabel>(w, "LabTopic")->text(), "Edit masks");
              EXPECT_TRUE(TDriver::Find<QTextBrowser>(w, "MemHelp")->isVisible());
          })
        .Click("BtOk");
    EXPECT_EQ(window.Execute("System", 1, "The mask 'xyz' has an unknown option.", "Mask"), 1);
    EXPECT_EQ(window.windowTitle(), "Mask");
}

}  // namespace
