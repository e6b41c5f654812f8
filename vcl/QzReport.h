#pragma once
// A printed list: a title, column headers and rows laid out across pages,
// each page carrying the title again and "Page n of m" at its foot. The
// strings and hits reports print through it.

#include <QFont>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>

class QPainter;
class QPrinter;

struct TQzReportColumn {
    QString Title;
    double Weight = 1;  // share of the page width
    Qt::Alignment Alignment = Qt::AlignLeft;
};

class TQzReport {
public:
    using TRowCells = std::function<QStringList(int row)>;

    TQzReport();

    void SetTitle(const QString& title) { FTitle = title; }
    const QString& Title() const { return FTitle; }
    // The font of the rows (10 points by default); the title and the headers
    // use its bold form.
    void SetFont(const QFont& font) { FFont = font; }

    // Without columns each row is one line across the page and there is no
    // header line.
    void AddColumn(const QString& title, double weight = 1, Qt::Alignment alignment = Qt::AlignLeft);
    void AddRow(const QStringList& cells);
    // Rows read on demand while printing, for long lists; replaces added rows.
    void SetRows(int count, TRowCells cells);
    int RowCount() const { return FRowCount; }

    // How many rows fit on one page, and how many pages the report takes on
    // `printer` (at least one, even without rows). Raise EPrinter when the
    // page cannot hold a single row.
    int RowsPerPage(QPrinter& printer) const;
    int PageCount(QPrinter& printer) const;

    // Prints every page; returns the number printed. Raises EPrinter when
    // the printer cannot start or continue the document.
    int Print(QPrinter& printer) const;

    // The foot of a page: "Page 2 of 5".
    static QString PageFooter(int page, int pageCount);

private:
    struct TLayout;
    TLayout Layout(QPrinter& printer) const;
    void PrintPage(QPainter& painter, const TLayout& layout, int page, int pageCount) const;
    QStringList Cells(int row) const;

    QString FTitle;
    QFont FFont;
    QList<TQzReportColumn> FColumns;
    QList<QStringList> FAdded;
    TRowCells FCells;
    int FRowCount = 0;
};
