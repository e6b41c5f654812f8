#include "vcl/QzReport.h"

#include "vcl/QzPrinter.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPrinter>

#include <algorithm>
#include <cmath>

struct TQzReport::TLayout {
    QFont Body;
    QFont Bold;
    double Width = 0;
    double LineHeight = 0;
    double HeaderTop = 0;  // column headers, below the title and a blank line
    double BodyTop = 0;
    double FooterTop = 0;
    int RowsPerPage = 0;
    QList<QRectF> Columns;  // x and width of each column (y and height unused)
};

TQzReport::TQzReport()
{
    FFont.setPointSize(10);
}

void TQzReport::AddColumn(const QString& title, double weight, Qt::Alignment alignment)
{
    FColumns.append({title, weight > 0 ? weight : 1, alignment});
}

void TQzReport::AddRow(const QStringList& cells)
{
    FCells = nullptr;
    FAdded.append(cells);
    FRowCount = static_cast<int>(FAdded.size());
}

void TQzReport::SetRows(int count, TRowCells cells)
{
    FAdded.clear();
    FCells = std::move(cells);
    FRowCount = std::max(0, count);
}

QStringList TQzReport::Cells(int row) const
{
    return FCells ? FCells(row) : FAdded[row];
}

QString TQzReport::PageFooter(int page, int pageCount)
{
    return QStringLiteral("Page %1 of %2").arg(page).arg(pageCount);
}

TQzReport::TLayout TQzReport::Layout(QPrinter& printer) const
{
    TLayout layout;
    layout.Body = QFont(FFont, &printer);
    layout.Bold = layout.Body;
    layout.Bold.setBold(true);
    const QFontMetricsF metrics(layout.Body, &printer);
    layout.LineHeight = std::ceil(metrics.lineSpacing());
    layout.Width = printer.width();
    const double height = printer.height();

    // Title, a blank line, then the column headers and a rule under them.
    layout.HeaderTop = 2 * layout.LineHeight;
    layout.BodyTop = layout.HeaderTop + (FColumns.isEmpty() ? 0 : 1.5 * layout.LineHeight);
    layout.FooterTop = height - layout.LineHeight;
    const double bodyHeight = layout.FooterTop - layout.LineHeight / 2 - layout.BodyTop;
    layout.RowsPerPage = bodyHeight > 0 ? static_cast<int>(bodyHeight / layout.LineHeight) : 0;
    if (layout.RowsPerPage < 1)
        throw EPrinter("The page is too small to print \"" + FTitle.toStdString() + "\"");

    const double gap = metrics.horizontalAdvance(QStringLiteral("  "));
    double weights = 0;
    for (const TQzReportColumn& column : FColumns)
        weights += column.Weight;
    const double usable = layout.Width - gap * std::max<qsizetype>(0, FColumns.size() - 1);
    double x = 0;
    for (const TQzReportColumn& column : FColumns) {
        const double width = usable * column.Weight / weights;
        layout.Columns.append(QRectF(x, 0, width, 0));
        x += width + gap;
    }
    if (layout.Columns.isEmpty())
        layout.Columns.append(QRectF(0, 0, layout.Width, 0));
    return layout;
}

int TQzReport::RowsPerPage(QPrinter& printer) const
{
    return Layout(printer).RowsPerPage;
}

int TQzReport::PageCount(QPrinter& printer) const
{
    const int perPage = RowsPerPage(printer);
    return std::max(1, (FRowCount + perPage - 1) / perPage);
}

void TQzReport::PrintPage(QPainter& painter, const TLayout& layout, int page, int pageCount) const
{
    const double line = layout.LineHeight;
    painter.setPen(Qt::black);
    painter.setFont(layout.Bold);
    painter.drawText(QRectF(0, 0, layout.Width, line), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, FTitle);
    if (!FColumns.isEmpty()) {
        for (qsizetype c = 0; c < FColumns.size(); ++c) {
            const QRectF cell(layout.Columns[c].x(), layout.HeaderTop, layout.Columns[c].width(), line);
            painter.drawText(cell, FColumns[c].Alignment | Qt::AlignVCenter | Qt::TextSingleLine, FColumns[c].Title);
        }
        const double rule = layout.HeaderTop + line * 1.2;
        painter.drawLine(QPointF(0, rule), QPointF(layout.Width, rule));
    }

    painter.setFont(layout.Body);
    const int first = (page - 1) * layout.RowsPerPage;
    const int last = std::min(FRowCount, first + layout.RowsPerPage);
    for (int row = first; row < last; ++row) {
        const QStringList cells = Cells(row);
        const double y = layout.BodyTop + (row - first) * line;
        for (qsizetype c = 0; c < layout.Columns.size() && c < cells.size(); ++c) {
            const QRectF cell(layout.Columns[c].x(), y, layout.Columns[c].width(), line);
            const Qt::Alignment alignment = c < FColumns.size() ? FColumns[c].Alignment : Qt::AlignLeft;
            // Texts longer than their column are cut at its edge.
            painter.save();
            painter.setClipRect(cell);
            painter.drawText(cell, alignment | Qt::AlignVCenter | Qt::TextSingleLine, cells[c]);
            painter.restore();
        }
    }

    painter.drawText(QRectF(0, layout.FooterTop, layout.Width, line), Qt::AlignHCenter | Qt::AlignVCenter,
                     PageFooter(page, pageCount));
}

int TQzReport::Print(QPrinter& printer) const
{
    const TLayout layout = Layout(printer);
    const int pages = std::max(1, (FRowCount + layout.RowsPerPage - 1) / layout.RowsPerPage);
    QPainter painter;
    QzBeginDocument(painter, printer, FTitle);
    for (int page = 1; page <= pages; ++page) {
        if (page > 1 && !printer.newPage()) {
            painter.end();
            throw EPrinter("The printer stopped at page " + std::to_string(page) + " of \"" + FTitle.toStdString() + "\"");
        }
        PrintPage(painter, layout, page, pages);
    }
    if (!painter.end())
        throw EPrinter("The printer could not finish \"" + FTitle.toStdString() + "\"");
    return pages;
}
