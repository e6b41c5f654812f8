// The RTF rich edits keep their lines in: what other programs write is read
// sensibly, what the editor writes comes back the same, through the text
// and through the editor's document, and what is not RTF says where.

#include "design/controls/QzRichTextDocument.h"
#include "runtime/util/QzRtf.h"

#include "support/gui/QzTestApp.h"

#include <QTextBlock>
#include <QTextDocument>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace {

TQzRtfCharFormat Plain()
{
    return {};
}

TQzRtfCharFormat With(void (*change)(TQzRtfCharFormat&))
{
    TQzRtfCharFormat f;
    change(f);
    return f;
}

// Every feature the editor can give a document.
TQzRtfDocument Sample()
{
    TQzRtfDocument d;
    TQzRtfParagraph title;
    title.Align = TQzRtfAlign::Center;
    title.Runs = {{"Report {draft} \\ 1", With([](TQzRtfCharFormat& f) {
                       f.FontName = "Courier New";
                       f.PointSize = 14;
                       f.Bold = true;
                   })}};
    TQzRtfParagraph body;
    body.Align = TQzRtfAlign::Justify;
    body.Runs = {{"Prices in \xE2\x82\xAC, caf\xC3\xA9, \xE6\x97\xA5\xE6\x9C\xAC \xF0\x9F\x98\x80\t", Plain()},
                 {"red", With([](TQzRtfCharFormat& f) { f.Color = 0xFF0000; })},
                 {" under\xE2\x80\xA8line", With([](TQzRtfCharFormat& f) {
                      f.Underline = true;
                      f.Italic = true;
                      f.PointSize = 10.5;
                  })}};
    TQzRtfParagraph first{TQzRtfAlign::Left, true, {{"first", Plain()}}};
    TQzRtfParagraph second{TQzRtfAlign::Right, true, {{"second", With([](TQzRtfCharFormat& f) { f.FontName = "Arial"; })}}};
    d.Paragraphs = {title, body, TQzRtfParagraph(), first, second, TQzRtfParagraph()};
    return d;
}

TEST(RichText, WhatTheEditorWritesReadsBackTheSame)
{
    const TQzRtfDocument sample = Sample();
    const AnsiString rtf = QzWriteRtf(sample);
    EXPECT_EQ(QzReadRtf(rtf), sample) << rtf;
    EXPECT_EQ(rtf.find_first_of("\x80\xFF"), std::string::npos) << "RTF is 7-bit text";
    TQzRtfDocument one;
    one.Paragraphs.emplace_back();
    EXPECT_EQ(QzReadRtf(QzWriteRtf(one)), one) << "an empty text stays one empty paragraph";
}

class RichTextDocument : public TQzGuiTest {};

TEST_F(RichTextDocument, TheEditorsDocumentHoldsEverythingTheTextDoes)
{
    const TQzRtfDocument sample = Sample();
    QTextDocument document;
    QzRtfToDocument(sample, document);
    EXPECT_EQ(QzRtfFromDocument(document), sample);
    EXPECT_EQ(document.blockCount(), 6);
    EXPECT_EQ(document.findBlockByNumber(4).textList(), document.findBlockByNumber(3).textList())
        << "neighbouring bullets are one list";

    // Lines written before they were kept in RTF still open.
    QTextDocument old;
    QzRtfCodec().Read("<p><b>bold</b> text</p>", old);
    EXPECT_EQ(old.toPlainText(), "bold text");
    QzRtfCodec().Read("{\\rtf1 broken", old);
    EXPECT_EQ(old.toPlainText(), "{\\rtf1 broken") << "unreadable RTF shows as the text it is";
}

TEST(RichText, OtherProgramsRtfIsReadForItsTextAndFormats)
{
    struct Case {
        const char* Name;
        const char* Rtf;
        const char* Text;
    };
    const Case cases[] = {
        {"word pad",
         "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl{\\f0\\fswiss\\fcharset0 Arial;}"
         "{\\f1\\fnil\\fcharset2 Symbol;}}\r\n{\\*\\generator Riched20 10.0.19041}\\viewkind4\\uc1 \r\n"
         "\\pard\\sa200\\sl276\\slmult1\\f0\\fs22\\lang9 Hello \\b bold\\b0\\par\r\n"
         "\\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}\\fi-360\\li720 one\\par\r\n"
         "{\\pntext\\f1\\'B7\\tab}two\\par\r\n\\pard\\qc end\\par\r\n}",
         "Hello bold\none\ntwo\nend"},
        {"word with unicode, fields and information",
         "{\\rtf1\\ansi\\deff0{\\info{\\title Secret}{\\author Me}}{\\*\\xmlnstbl{\\xmlns1 http://x}}"
         "\\uc1\\pard caf\\'e9 \\u8364\\'80 \\u-10179?\\u-8704? "
         "{\\field{\\*\\fldinst HYPERLINK \"http://x\"}{\\fldrslt link}}\\ldblquote q\\rdblquote\\par}",
         "caf\xC3\xA9 \xE2\x82\xAC \xF0\x9F\x98\x80 link\xE2\x80\x9Cq\xE2\x80\x9D"},
        {"unknown words, pictures and a skip count of two",
         "{\\rtf1\\mynewword12 a{\\*\\mydest hidden}{\\pict\\pngblip 89504e47}\\uc2\\u233 xxb\\line c\\tab d}",
         "a\xC3\xA9" "b\xE2\x80\xA8" "c\td"},
        {"escapes and a final paragraph without its mark",
         "{\\rtf1 \\{x\\} \\\\ y\\~z\\par last}", "{x} \\ y\xC2\xA0z\nlast"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Name);
        EXPECT_EQ(QzReadRtf(c.Rtf).PlainText(), c.Text);
    }

    const TQzRtfDocument pad = QzReadRtf(cases[0].Rtf);
    ASSERT_EQ(pad.Paragraphs.size(), 4u);
    EXPECT_EQ(pad.Paragraphs[0].Runs[1].Format.Bold, true);
    EXPECT_EQ(pad.Paragraphs[0].Runs[0].Format.PointSize, 11);
    EXPECT_EQ(pad.Paragraphs[0].Runs[0].Format.FontName, "") << "the default font is left to the reader";
    EXPECT_TRUE(pad.Paragraphs[1].Bullet && pad.Paragraphs[2].Bullet);
    EXPECT_FALSE(pad.Paragraphs[3].Bullet);
    EXPECT_EQ(pad.Paragraphs[3].Align, TQzRtfAlign::Center);

    const TQzRtfDocument colours =
        QzReadRtf("{\\rtf1{\\fonttbl\\f0 Arial;\\f3 Times New Roman;}{\\colortbl;\\red0\\green128\\blue255;}"
                  "\\f3\\cf1\\ul green\\ulnone\\cf0 plain}");
    ASSERT_EQ(colours.Paragraphs[0].Runs.size(), 2u);
    EXPECT_EQ(colours.Paragraphs[0].Runs[0].Format.FontName, "Times New Roman");
    EXPECT_EQ(colours.Paragraphs[0].Runs[0].Format.Color, 0x0080FFu);
    EXPECT_TRUE(colours.Paragraphs[0].Runs[0].Format.Underline);
    EXPECT_EQ(colours.Paragraphs[0].Runs[1].Format.Color, std::nullopt);
}

TEST(RichText, WhatIsNotRtfIsRefusedWithItsLine)
{
    struct Case {
        const char* Text;
        const char* Message;
    };
    const Case cases[] = {
        {"", "line 1: it does not start with {\\rtf"},
        {"plain text", "line 1: it does not start with {\\rtf"},
        {"{\\rtf1\n{\\b open\n", "line 3: a group is not closed"},
        {"{\\rtf1 a}\n", nullptr},
        {"{\\rtf1\n\\'4", "line 2: a \\' is not followed by two hexadecimal digits"},
        {"{\\rtf1 \\'zz}", "line 1: \\'zz is not a character in hexadecimal"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.Text);
        EXPECT_EQ(QzIsRtf(c.Text), AnsiString(c.Text).rfind("{\\rtf", 0) == 0);
        if (!c.Message) {
            EXPECT_NO_THROW(QzReadRtf(c.Text));
            continue;
        }
        try {
            QzReadRtf(c.Text);
            ADD_FAILURE() << "read";
        } catch (const EQzRtfError& e) {
            EXPECT_NE(e.Message().find(c.Message), std::string::npos) << e.Message();
        }
    }
}

// Inputs the fuzz target once failed on, kept beside its seeds: what is
// read writes RTF that reads and writes again to the same text.
TEST(RichText, FuzzSeedsAndFindingsWriteAStableText)
{
    int files = 0;
    for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::path(QZ_SOURCE_DIR) / "fuzz/seeds/rtf")) {
        SCOPED_TRACE(entry.path().filename().string());
        std::ifstream in(entry.path(), std::ios::binary);
        const AnsiString text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
        const AnsiString once = QzWriteRtf(QzReadRtf(text));
        EXPECT_EQ(QzWriteRtf(QzReadRtf(once)), once);
        ++files;
    }
    EXPECT_GE(files, 2);
}

}  // namespace
