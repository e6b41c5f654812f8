#pragma once
// Printers for reports: the PDF printer that tests and "print to file" use,
// and the error raised when a printer cannot start a document.

#include "rtl/SysUtils.h"

#include <QString>

#include <memory>

class QPainter;
class QPrinter;

QZ_DECLARE_EXCEPTION(EPrinter, Exception);

// A printer writing a PDF to `fileName` (A4, high resolution). With an empty
// name it prints nowhere: starting a document on it fails.
std::unique_ptr<QPrinter> QzCreatePdfPrinter(const QString& fileName);

// Starts a document on `printer` titled `title`; raises EPrinter naming the
// printer (or its output file) when it cannot.
void QzBeginDocument(QPainter& painter, QPrinter& printer, const QString& title);
