// The rich text editor driven as a user drives it: formats chosen on a
// selection reach the lines as RTF on Ok and nowhere on Cancel; files open
// and save as RTF or plain text; a plain-text rich edit stays plain.

#include "design/controls/Qzvtrichedit.h"
#include "design/reg/QzEditorDialogs.h"
#include "runtime/components/QzStdCtrls.h"
#include "runtime/util/QzRtf.h"

#include "rtl/StringList.h"
#include "rtl/TypInfo.h"

#include "support/gui/QzModalDriver.h"
#include "support/gui/QzTestApp.h"
#include "support/gui/QzTestDialogs.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QToolButton>

namespace {

class RichEditWindow : public TQzGuiTest {
protected:
    static QTextEdit* Editor(QWidget* w) { return TQzModalDriver::Find<QTextEdit>(w, "RichEdit"); }

    // Selects the text from..to of the first paragraph.
    static TQzModalDriver::TStep Select(int from, int to)
    {
        return [from, to](QWidget* w) {
            QTextCursor cursor = Editor(w)->textCursor();
            cursor.setPosition(from);
            cursor.setPosition(to, QTextCursor::KeepAnchor);
            Editor(w)->setTextCursor(cursor);
        };
    }
};

TEST_F(RichEditWindow, FormatsChosenReachTheLinesAsRtfOnOkOnly)
{
    for (bool accept : {false, true}) {
        SCOPED_TRACE(accept ? "Ok" : "Cancel");
        TQzTestDialogs dialogs;
        QFont font("Courier New", 16);
        font.setBold(true);
        dialogs->AnswerColor(QColor(0x00, 0x80, 0x00)).AnswerFont(font).AnswerColor(QColor());
        TStringList lines;
        lines.SetText("Hello world");
        TQzModalDriver driver;
        driver.Then("world", Select(6, 11))
            .Click("BtColor")
            .Click("BtFont")
            .Click("BtColor")  // cancelled: the green stays
            .Click("BtItalic")
            .Click("BtCenter")
            .Click("BtBullets")
            .Then("shown", [](QWidget* w) {
                EXPECT_TRUE(TQzModalDriver::Find<QToolButton>(w, "BtBold")->isChecked());
                EXPECT_TRUE(TQzModalDriver::Find<QToolButton>(w, "BtCenter")->isChecked());
                EXPECT_TRUE(TQzModalDriver::Find<QToolButton>(w, "BtBullets")->isChecked());
            })
            .Click(accept ? "BtOk" : "BtCancel");
        TFrRichEdit form;
        EXPECT_EQ(form.Execute(&lines, false), accept ? 1 : 0);
        if (!accept) {
            EXPECT_EQ(lines.Text(), "Hello world\r\n");
            continue;
        }
        const TQzRtfDocument rtf = QzReadRtf(lines.Text());
        ASSERT_EQ(rtf.Paragraphs.size(), 1u);
        const TQzRtfParagraph& p = rtf.Paragraphs[0];
        EXPECT_EQ(p.Align, TQzRtfAlign::Center);
        EXPECT_TRUE(p.Bullet);
        ASSERT_EQ(p.Runs.size(), 2u);
        EXPECT_EQ(p.Runs[0].Text, "Hello ");
        EXPECT_EQ(p.Runs[0].Format, TQzRtfCharFormat());
        EXPECT_EQ(p.Runs[1].Text, "world");
        EXPECT_EQ(p.Runs[1].Format.FontName, "Courier New");
        EXPECT_EQ(p.Runs[1].Format.PointSize, 16);
        EXPECT_TRUE(p.Runs[1].Format.Bold && p.Runs[1].Format.Italic);
        EXPECT_EQ(p.Runs[1].Format.Color, 0x008000u);
    }
}

TEST_F(RichEditWindow, FilesOpenAndSaveAsRtfOrPlainTextAndABadOneChangesNothing)
{
    QTemporaryDir dir;
    const AnsiString good = dir.filePath("good.rtf").toStdString();
    const AnsiString bad = dir.filePath("bad.rtf").toStdString();
    const AnsiString plain = dir.filePath("out.txt").toStdString();
    const AnsiString saved = dir.filePath("out.rtf").toStdString();
    TStringList file;
    file.SetText("{\\rtf1{\\fonttbl\\f0 Arial;}\\f0\\fs20 one \\b two\\b0\\par\nthree\\par}");
    file.SaveToFile(good);
    file.SetText("{\\rtf1 \\b never closed");
    file.SaveToFile(bad);

    TQzTestDialogs dialogs;
    dialogs->AnswerOpen({good}).AnswerOpen({bad}).AnswerMessage(mbOK).AnswerSave(plain).AnswerSave(saved);
    TStringList lines;
    TQzModalDriver driver;
    driver.Click("BtOpen")
        .Click("BtOpen")
        .Then("kept", [&](QWidget* w) {
            EXPECT_EQ(Editor(w)->toPlainText(), "one two\nthree");
            const AnsiString error = dialogs->CallsOf(TQzDialogKind::Message).at(0).Message.Text;
            EXPECT_NE(error.find(bad), std::string::npos) << error;
            EXPECT_NE(error.find("a group is not closed"), std::string::npos) << error;
        })
        .Click("BtSave")
        .Click("BtSave")
        .Click("BtOk");
    TFrRichEdit form;
    EXPECT_EQ(form.Execute(&lines, false), 1);
    TStringList text;
    text.LoadFromFile(plain);
    EXPECT_EQ(text.Text(), "one two\r\nthree\r\n");
    text.LoadFromFile(saved);
    EXPECT_EQ(QzReadRtf(text.Text()), QzReadRtf(lines.Text())) << "the file holds what the lines hold";
    EXPECT_TRUE(QzReadRtf(lines.Text()).Paragraphs[0].Runs[1].Format.Bold);
}

TEST_F(RichEditWindow, ThePropertyOpensAPlainTextRichEditWithoutFormatting)
{
    RegisterQzvtrichedit();
    TQzRichEdit rich(nullptr);
    SetOrdProp(&rich, "PlainText", 1);
    rich.Lines()->SetText("plain");
    TQzModalDriver driver;
    driver
        .Then("no formats",
              [](QWidget* w) {
                  for (const char* name : {"BtBold", "BtFont", "BtColor", "BtBullets"})
                      EXPECT_FALSE(TQzModalDriver::Find<QToolButton>(w, name)->isEnabled()) << name;
                  Editor(w)->moveCursor(QTextCursor::End);
                  Editor(w)->insertPlainText(" text");
              })
        .Click("BtOk");
    TQzEditorDialogRequest request;
    request.Component = &rich;
    request.Target = rich.Lines();
    EXPECT_EQ(QzRunEditorDialog(TQzEditorDialog::RichEdit, request), 1);
    EXPECT_EQ(rich.Lines()->Text(), "plain text\r\n");

    TQzModalDriver unchanged;
    unchanged.Click("BtOk");
    EXPECT_EQ(QzRunEditorDialog(TQzEditorDialog::RichEdit, request), 0) << "nothing for the designer to record";
}

}  // namespace
