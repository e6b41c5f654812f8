#include "vcl/QzPrinter.h"

#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPrinter>

std::unique_ptr<QPrinter> QzCreatePdfPrinter(const QString& fileName)
{
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setOutputFileName(fileName);
    // After the name: an empty name would otherwise select the system's
    // printer, and a printer meant for a file must never reach paper.
    printer->setOutputFormat(QPrinter::PdfFormat);
    printer->setPageSize(QPageSize(QPageSize::A4));
    // PDF pages have no unprintable border: give them a printer's margins.
    printer->setPageMargins(QMarginsF(15, 15, 15, 15), QPageLayout::Millimeter);
    return printer;
}

void QzBeginDocument(QPainter& painter, QPrinter& printer, const QString& title)
{
    printer.setDocName(title);
    if (painter.begin(&printer))
        return;
    const QString target = printer.outputFileName().isEmpty()
                               ? QStringLiteral("the printer \"%1\"").arg(printer.printerName())
                               : QStringLiteral("the file \"%1\"").arg(printer.outputFileName());
    throw EPrinter(QStringLiteral("Cannot print \"%1\" to %2").arg(title, target).toStdString());
}
