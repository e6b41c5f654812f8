// The strings editor's work without a window: counts in the status bar,
// report lines, the text files of labels, messages and texts, and the file
// the "System" strings are refreshed from.

#include "design/strings/QzPkgStringsLogic.h"
#include "runtime/model/QzPkgLanguage.h"
#include "runtime/util/QzPaths.h"

#include "rtl/SysUtils.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace {

using F = TQzMemoryFamily;

AnsiString Path(const QTemporaryDir& dir, const char* name)
{
    return dir.filePath(name).toStdString();
}

TStringList Lines(std::initializer_list<const char*> lines)
{
    TStringList list;
    for (const char* line : lines)
        list.Add(line);
    return list;
}

TEST(PkgStringsLogic, StatusBarCountsInTheSingularForOneOnly)
{
    const struct {
        int Count;
        F Family;
        const char* Want;
    } cases[] = {
        {0, F::Labels, "0 Labels"}, {1, F::Labels, "1 Label"},    {2, F::Labels, "2 Labels"},
        {1, F::Messages, "1 Message"}, {0, F::Texts, "0 Texts"}, {1, F::Texts, "1 Text"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(QzStringsCountText(c.Count, c.Family), c.Want);

    // Only the "System" strings of a language package tell where they came from.
    TQzPkgLanguage language(nullptr);
    language.SetLastUpdateFile("Base.lan");
    TQzPkgStrings user(nullptr);
    user.SetPkgName("System");   // named so, but of no language package
    EXPECT_EQ(QzStringsStatusText(user, F::Labels), "0 Labels ");
    EXPECT_EQ(QzStringsStatusText(*language.PkgUser(), F::Labels).find("LastUpdateFile"), AnsiString::npos);
    const AnsiString system = QzStringsStatusText(*language.PkgSystem(), F::Texts);
    EXPECT_EQ(system.rfind("0 Texts (LastUpdateFile:Base.lan) (UpdateDateTime:", 0), 0u) << system;
}

TEST(PkgStringsLogic, ReportLinesCarryTheHintOnlyWhenItIsNotBlank)
{
    TQzPkgStrings pkg(nullptr);
    EXPECT_EQ(QzStringsReportTitle(F::Messages), "**** Messages Report ****");
    using L = std::vector<AnsiString>;
    EXPECT_EQ(QzStringsReportLines(pkg.Labels()->Add(7, "Name", "Your name")), L{"7 - Name *Hint = Your name"});
    EXPECT_EQ(QzStringsReportLines(pkg.Labels()->Add(8, "City", "   ")), L{"8 - City"});
    EXPECT_EQ(QzStringsReportLines(pkg.Texts()->Add(9, "two\r\nlines")), (L{"9 - two", "lines"}));
    EXPECT_EQ(QzStringsReportLines(pkg.Labels()->Add(10, "A", "first\nsecond")), (L{"10 - A *Hint = first", "second"}));
}

TEST(PkgStringsLogic, ExportSortsByIdLeavesEmptyFieldsOutAndImportReadsItBack)
{
    QTemporaryDir dir;
    TQzPkgStrings pkg(nullptr);
    pkg.Labels()->Add(20, "Last, first", "a \"quoted\" hint");
    pkg.Labels()->Add(3, "", "only a hint");
    pkg.Labels()->Add(10, "no hint");
    pkg.Texts()->Add(1, "line one\r\nline two");
    TStringList lines;
    QzStringsExportText(pkg, F::Labels, lines);
    ASSERT_EQ(lines.Count(), 3);
    EXPECT_EQ(lines[0], "3,only a hint");
    EXPECT_EQ(lines[1], "10,no hint");

    const AnsiString labels = Path(dir, "labels.txt");
    const AnsiString texts = Path(dir, "texts.txt");
    QzStringsExportFile(pkg, F::Labels, labels);
    QzStringsExportFile(pkg, F::Texts, texts);
    TQzPkgStrings back(nullptr);
    back.Labels()->Add(99, "replaced");
    QzStringsImportFile(back, F::Labels, labels);
    QzStringsImportFile(back, F::Texts, texts);
    ASSERT_EQ(back.Labels()->Count(), 3);
    EXPECT_EQ(back.Labels()->FindId(99), nullptr) << "import replaces";
    EXPECT_EQ(back.Labels()->FindId(20)->Text(), "Last, first");
    EXPECT_EQ(back.Labels()->FindId(20)->Hint(), "a \"quoted\" hint");
    // A hint without text moves up to be the text.
    EXPECT_EQ(back.Labels()->FindId(3)->Text(), "only a hint");
    EXPECT_EQ(back.Labels()->FindId(3)->Hint(), "");
    EXPECT_EQ(back.Texts()->FindId(1)->Text(), "line one\r\nline two");

    // An empty collection writes an empty file, which empties on import.
    const AnsiString empty = Path(dir, "empty.txt");
    QzStringsExportFile(pkg, F::Messages, empty);
    EXPECT_EQ(QFile(QString::fromStdString(empty)).size(), 0);
    QzStringsImportFile(back, F::Texts, empty);
    EXPECT_EQ(back.Texts()->Count(), 0);
}

TEST(PkgStringsLogic, ABadLineStopsTheImportNamingItAndKeepsTheLinesBefore)
{
    const struct {
        const char* Bad;
        const char* Why;
    } cases[] = {{"x,two", "not a number"}, {"1,again", "a used Id"}, {"-4,minus", "a negative Id"},
                 {"5,\"open", "an open quote"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.Why);
        TQzPkgStrings pkg(nullptr);
        pkg.Messages()->Add(50, "old");
        try {
            QzStringsImportText(pkg, F::Messages, Lines({"1,one", "", c.Bad, "3,three"}), "m.txt");
            ADD_FAILURE() << "no error";
        } catch (const EConvertError& e) {
            EXPECT_EQ(e.Message().rfind("The file: m.txt can contain an error in the line: 3 (", 0), 0u) << e.Message();
        }
        ASSERT_EQ(pkg.Messages()->Count(), 1);
        EXPECT_EQ(pkg.Messages()->FindId(1)->Text(), "one");
    }
}

TEST(PkgStringsLogic, TheSystemStringsFileIsNamedAloneInTheInstallationFolder)
{
    QTemporaryDir install;
    QTemporaryDir other;
    for (const QTemporaryDir* d : {&install, &other})
        QFile(d->filePath("Base.lan")).open(QIODevice::WriteOnly);
    const AnsiString installPath = install.path().toStdString();
    EXPECT_EQ(QzInstallFileEntry(Path(install, "Base.lan"), installPath), "Base.lan");
    EXPECT_EQ(QzInstallFileEntry(Path(other, "Base.lan"), installPath), Path(other, "Base.lan"));
    EXPECT_EQ(QzSystemStringsFile("Base.lan", installPath), Path(install, "Base.lan"));
    EXPECT_EQ(QzSystemStringsFile(Path(other, "Base.lan"), installPath), Path(other, "Base.lan"));
    for (const AnsiString& bad : {AnsiString(), AnsiString("  "), AnsiString("Missing.lan"), Path(other, "x.lan")})
        EXPECT_THROW(QzSystemStringsFile(bad, installPath), Exception) << bad;
}

}  // namespace
