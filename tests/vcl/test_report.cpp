// Reports printed to PDF: pages, page numbers, and a printer that fails.

#include "support/gui/QzTestApp.h"
#include "support/gui/QzTestDialogs.h"
#include "vcl/QzPrinter.h"
#include "vcl/QzReport.h"

#include <QFile>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace {

class ReportTest : public TQzGuiTest {
protected:
    QTemporaryDir Dir;
};

int PdfPageCount(const QString& file)
{
    QFile pdf(file);
    if (!pdf.open(QIODevice::ReadOnly))
        return -1;
    static const QRegularExpression page(QStringLiteral("/Type\\s*/Page(?!s)"));
    return static_cast<int>(QString::fromLatin1(pdf.readAll()).count(page));
}

// The text of a PDF as pdftotext reads it; empty when the tool is missing.
QString PdfText(const QString& file)
{
    if (QStandardPaths::findExecutable("pdftotext").isEmpty())
        return {};
    QProcess process;
    process.start("pdftotext", {"-layout", file, "-"});
    process.waitForFinished(30000);
    return QString::fromUtf8(process.readAllStandardOutput());
}

TQzReport LabelsReport(int rows)
{
    TQzReport report;
    report.SetTitle("**** Labels Report ****");
    report.AddColumn("Id", 1, Qt::AlignRight);
    report.AddColumn("Label", 4);
    for (int i = 0; i < rows; ++i)
        report.AddRow({QString::number(i), QStringLiteral("Label number %1").arg(i)});
    return report;
}

TEST_F(ReportTest, RowsFlowOverThreePagesWithTheirNumbers)
{
    const QString file = Dir.filePath("labels.pdf");
    TQzTestDialogs dialogs;
    dialogs->PrintTo(file.toStdString());
    std::unique_ptr<QPrinter> printer = QzDialogs().CreatePrinter();

    TQzReport probe = LabelsReport(0);
    const int perPage = probe.RowsPerPage(*printer);
    ASSERT_GT(perPage, 10);
    const TQzReport report = LabelsReport(2 * perPage + 1);
    EXPECT_EQ(report.PageCount(*printer), 3);
    EXPECT_EQ(report.Print(*printer), 3);
    EXPECT_EQ(PdfPageCount(file), 3);

    const QString text = PdfText(file);
    if (text.isEmpty())
        GTEST_SKIP() << "pdftotext is not installed: the text was not checked";
    EXPECT_EQ(text.count("**** Labels Report ****"), 3);
    EXPECT_TRUE(text.contains("Page 1 of 3"));
    EXPECT_TRUE(text.contains("Page 3 of 3"));
    // The last row alone on the last page, after the headers.
    const QString last = text.section('\f', 2, 2);
    EXPECT_TRUE(last.contains(QStringLiteral("Label number %1").arg(2 * perPage)));
    EXPECT_FALSE(last.contains(QStringLiteral("Label number %1\n").arg(2 * perPage - 1)));
    EXPECT_TRUE(last.contains("Label"));
}

TEST_F(ReportTest, RowsReadOnDemandArePagedWithoutBeingReadAndNoRowsIsOnePage)
{
    const QString file = Dir.filePath("empty.pdf");
    auto printer = QzCreatePdfPrinter(file);
    TQzReport report;
    report.SetTitle("Hits");
    int asked = 0;
    report.SetRows(100000, [&asked](int row) {
        ++asked;
        return QStringList{QString::number(row)};
    });
    const int perPage = report.RowsPerPage(*printer);
    EXPECT_EQ(report.PageCount(*printer), (100000 + perPage - 1) / perPage);
    EXPECT_EQ(asked, 0);

    TQzReport empty;
    empty.SetTitle("**** Texts Report ****");
    EXPECT_EQ(empty.Print(*printer), 1);
    EXPECT_EQ(PdfPageCount(file), 1);
}

TEST_F(ReportTest, APrinterThatCannotStartNamesItsFile)
{
    const QString file = Dir.filePath("missing-folder/report.pdf");
    auto printer = QzCreatePdfPrinter(file);
    const TQzReport report = LabelsReport(5);
    try {
        report.Print(*printer);
        FAIL() << "no error";
    } catch (const EPrinter& e) {
        EXPECT_NE(e.Message().find("report.pdf"), std::string::npos) << e.Message();
        EXPECT_NE(e.Message().find("**** Labels Report ****"), std::string::npos) << e.Message();
    }
    EXPECT_FALSE(QFile::exists(file));
}

}  // namespace
