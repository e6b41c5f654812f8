// Strings exchanged as PO, XLIFF and CSV: what goes out comes back, what
// does not read names its line and changes nothing, and the checks a
// translation is held to.

#include "design/strings/QzStringsChecks.h"
#include "design/strings/QzStringsExchange.h"

#include "runtime/model/QzPkgStrings.h"
#include "runtime/model/QzRegistry.h"

#include "rtl/Streams.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <cstdlib>

namespace {

const TQzExchangeFormat Formats[] = {TQzExchangeFormat::Po, TQzExchangeFormat::Xliff, TQzExchangeFormat::Csv};
const char* const FormatNames[] = {"po", "xliff", "csv"};

std::unique_ptr<TQzPkgStrings> Awkward()
{
    TQzDetachedPkgs detached;
    auto pkg = std::make_unique<TQzPkgStrings>(nullptr);
    pkg->SetPkgName("Main");
    pkg->Labels()->Add(1, "&Save", "Saves the file");
    pkg->Labels()->Add(2, "", "only a hint");
    pkg->Labels()->Add(3, "  padded, with \"quotes\"  ", "hint\nover \"two\" lines\\");
    pkg->Labels()->Add(4, "Größe %d – 日本", "");
    pkg->Labels()->FindId(4)->SetProtected(true);
    pkg->Labels()->Add(40000, "tab\there#, not a flag", "# looks like a comment\r\n");
    pkg->Messages()->Add(7, "Line one\r\nLine two\n");
    pkg->Messages()->Add(8, "");
    pkg->Texts()->Add(9, "\nstarts with a break, ends with a CR\r");
    pkg->Texts()->FindId(9)->SetProtected(true);
    return pkg;
}

TEST(StringsExchange, EveryFormatGivesBackWhatItWasGiven)
{
    auto pkg = Awkward();
    TQzDetachedPkgs detached;
    TQzPkgStrings reference(nullptr);
    reference.Labels()->Add(1, "&Guardar", "Guarda el archivo");
    reference.Messages()->Add(7, "Línea \"uno\"\n");
    const auto entries = QzStringsEntries(*pkg, &reference);
    EXPECT_EQ(entries[0].Source, "&Guardar");
    EXPECT_EQ(entries[1].Source, "");   // no reference text: its own
    for (int f = 0; f < 3; ++f) {
        SCOPED_TRACE(FormatNames[f]);
        const std::string bytes = QzWriteStrings(entries, Formats[f], "Main");
        EXPECT_EQ(QzReadStrings(bytes, Formats[f], "in"), entries);

        TQzPkgStrings back(nullptr);
        back.Labels()->Add(77, "dropped: import replaces");
        QzApplyStringsEntries(back, QzReadStrings(bytes, Formats[f], "in"), "in");
        EXPECT_EQ(QzStringsEntries(back, nullptr), QzStringsEntries(*pkg, nullptr));

        EXPECT_TRUE(QzReadStrings(QzWriteStrings({}, Formats[f], "Empty"), Formats[f], "in").empty());
    }
}

TEST(StringsExchange, AToolsSuggestionsInXliffAreNotTheTranslation)
{
    const char* xliff = "<xliff version='1.2'><file><body><trans-unit id='label:1'><source>Save</source>"
                        "<target>Guardar</target>"
                        "<alt-trans><source>Save</source><target>Salvar</target><note>tm</note></alt-trans>"
                        "<note>hint</note><note>reviewer</note></trans-unit></body></file></xliff>";
    const auto entries = QzReadStrings(xliff, TQzExchangeFormat::Xliff, "in");
    ASSERT_EQ(entries.size(), 1u);
    EXPECT_EQ(entries[0].Text, "Guardar");
    EXPECT_EQ(entries[0].Hint, "hint");
}

TEST(StringsExchange, GettextAcceptsThePoFile)
{
    if (std::system("msgfmt --version >/dev/null 2>&1") != 0)
        GTEST_SKIP() << "msgfmt is not installed";
    QTemporaryDir dir;
    const AnsiString file = dir.path().toStdString() + "/main.po";
    WriteFileAtomic(file, QzWriteStrings(QzStringsEntries(*Awkward(), nullptr), TQzExchangeFormat::Po, "Main"));
    EXPECT_EQ(std::system(("msgfmt --check -o /dev/null '" + file + "' 2>/dev/null").c_str()), 0);
}

struct TBadFile {
    TQzExchangeFormat Format;
    const char* Bytes;
    int Line;
    const char* Why;
};

TEST(StringsExchange, AFileThatDoesNotReadNamesItsLineAndChangesNothing)
{
    const TBadFile cases[] = {
        {TQzExchangeFormat::Po, "msgctxt \"label:1\"\nmsgid \"a\"\nmsgstr \"b\n", 3, "quoted string"},
        {TQzExchangeFormat::Po, "\nmsgctxt \"label:x\"\nmsgid \"a\"\nmsgstr \"b\"\n", 2, "names no label"},
        {TQzExchangeFormat::Po, "msgid \"a\"\nmsgstr \"b\"\n", 1, "no msgctxt"},
        {TQzExchangeFormat::Po, "msgctxt \"text:1\"\nmsgid \"a\"\nmsgstr \"\\q\"\n", 3, "unknown escape"},
        {TQzExchangeFormat::Po, "msgctxt \"text:1\"\nmsgid \"a\"\n\n", 1, "no msgstr"},
        {TQzExchangeFormat::Po, "msgctxt \"text:1\"\nmsgid \"a\"\nmsgstr   \n", 3, "quoted string"},
        {TQzExchangeFormat::Xliff, "<xliff>\n<file><body>\n<trans-unit id=\"label:1\">\n<source>a</target>", 4, ""},
        {TQzExchangeFormat::Xliff, "<html/>", 1, "not an XLIFF"},
        {TQzExchangeFormat::Xliff, "<xliff><file><body>\n\n<trans-unit id=\"img:1\"/>", 3, "names no label"},
        {TQzExchangeFormat::Csv, "context,source,text\nlabel:1,a,b\nlabel:2,a\n", 3, "2 fields"},
        {TQzExchangeFormat::Csv, "context,source,text\nlabel:1,\"a\nb,c\n", 2, "never closed"},
        {TQzExchangeFormat::Csv, "context,source,text\n\"label:1\"x,a,b\n", 2, "after the closing quote"},
        {TQzExchangeFormat::Csv, "source,text\n", 1, "no column \"context\""},
        {TQzExchangeFormat::Csv, "context,source,text,hint\r\nmessage:1,a,b,\"c\r\nd\"\r\n", 2, "only labels"},
    };
    for (const TBadFile& c : cases) {
        SCOPED_TRACE(c.Bytes);
        try {
            QzReadStrings(c.Bytes, c.Format, "bad.file");
            ADD_FAILURE() << "accepted";
        } catch (const EQzExchangeError& e) {
            EXPECT_EQ(e.Message().rfind("bad.file:" + IntToStr(c.Line) + ": ", 0), 0u) << e.Message();
            EXPECT_NE(e.Message().find(c.Why), AnsiString::npos) << e.Message();
        }
    }

    // Entries that read but cannot all be items leave the package whole.
    auto pkg = Awkward();
    const auto before = QzStringsEntries(*pkg, nullptr);
    const char* twice = "context,source,text\nlabel:1,a,b\nmessage:1,a,b\nlabel:1,a,c\n";
    EXPECT_THROW(QzApplyStringsEntries(*pkg, QzReadStrings(twice, TQzExchangeFormat::Csv, "t.csv"), "t.csv"),
                 EQzExchangeError);
    EXPECT_EQ(QzStringsEntries(*pkg, nullptr), before);
}

TEST(StringsChecks, EachProblemIsFoundAndOnlyWhereItIs)
{
    struct TCase {
        const char* Source;
        const char* Translation;
        unsigned Problems;
    } const cases[] = {
        {"%d files in %s", "%s: %d ficheros", spNone},
        {"%d files", "%s ficheros", spPlaceholders},
        {"%d of %d", "%d", spPlaceholders},
        {"100%% done, %0.5d", "100%% hecho, %0.5d", spNone},
        {"%1:s and %0:s", "%0:s y %1:s", spNone},
        {"Name: ", "Nombre:", spBlanks},
        {" Name", "Nombre", spBlanks},
        {"Line\n", "Línea\n", spNone},
        {"&Save", "Guardar", spAccelerator},
        {"Fish && Chips", "Pescado && patatas", spNone},
        {"Save", "&Guardar", spAccelerator},
        {"OK", "OK", spSameText},
        {"", "", spNone},
        {" %s", "%d", spPlaceholders | spBlanks},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Source);
        EXPECT_EQ(QzCheckTranslation(c.Source, c.Translation), c.Problems);
    }
    EXPECT_EQ(QzStringProblemsText(spAccelerator | spSameText),
              "& accelerator missing on one side, same text in both languages");
}

} // namespace
