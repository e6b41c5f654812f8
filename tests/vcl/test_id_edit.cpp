// Id boxes: digits only, four at most, however the text arrives.

#include "support/gui/QzTestApp.h"
#include "vcl/QzIdEdit.h"

#include <QApplication>
#include <QClipboard>
#include <QTest>

namespace {

class IdEditTest : public TQzGuiTest {};

struct TEditCase {
    const char* Name;
    QString Start;
    int Cursor;      // where the cursor stands before
    QString Typed;   // typed key by key
    QString Pasted;  // then pasted
    QString Expected;
};

TEST_F(IdEditTest, OnlyDigitsGetInAndNoMoreThanFour)
{
    const TEditCase cases[] = {
        {"letters typed are ignored", "", 0, "1a2b", "", "12"},
        {"signs and spaces are ignored", "", 0, "-3 +4", "", "34"},
        {"a fifth digit cannot be typed", "", 0, "12345", "", "1234"},
        {"a digit typed in a full box is refused", "1234", 2, "9", "", "1234"},
        {"typing in the middle", "14", 1, "23", "", "1234"},
        {"a paste keeps its digits", "", 0, "", "12a4", "124"},
        {"a long paste is cut to fit", "", 0, "", "98765", "9876"},
        {"a paste fills the room left", "12", 1, "", "3456", "1342"},
        {"a paste without digits changes nothing", "42", 2, "", "abc", "42"},
    };
    for (const TEditCase& c : cases) {
        TQzIdEdit edit;
        edit.setText(c.Start);
        edit.setCursorPosition(c.Cursor);
        if (!c.Typed.isEmpty())
            QTest::keyClicks(&edit, c.Typed);
        if (!c.Pasted.isEmpty()) {
            QApplication::clipboard()->setText(c.Pasted);
            edit.paste();
        }
        EXPECT_EQ(edit.text(), c.Expected) << c.Name;
    }
}

TEST_F(IdEditTest, EditingKeysStillWorkAndTheIdIsMinusOneWhenEmpty)
{
    TQzIdEdit edit;
    EXPECT_EQ(edit.Id(), -1);
    QTest::keyClicks(&edit, "1234");
    QTest::keyClick(&edit, Qt::Key_Backspace);
    QTest::keyClick(&edit, Qt::Key_Home);
    QTest::keyClick(&edit, Qt::Key_Delete);
    EXPECT_EQ(edit.text(), "23");
    QTest::keyClick(&edit, Qt::Key_Home);
    QTest::keyClicks(&edit, "00");
    EXPECT_EQ(edit.Id(), 23);
    edit.SetId(-1);
    EXPECT_EQ(edit.text(), "");
    EXPECT_EQ(edit.Id(), -1);
    edit.SetId(9999);
    EXPECT_EQ(edit.text(), "9999");
}

TEST_F(IdEditTest, AnEditFromAFormFileBecomesAnIdBox)
{
    // Form files give the box a length limit of 4: a paste must still lose
    // its letters before the limit counts.
    QLineEdit edit;
    edit.setMaxLength(4);
    QzMakeIdEdit(&edit);
    QApplication::clipboard()->setText("1a2b3c");
    edit.paste();
    EXPECT_EQ(edit.text(), "123");
    EXPECT_EQ(QzIdEditValue(&edit), 123);
}

}  // namespace
