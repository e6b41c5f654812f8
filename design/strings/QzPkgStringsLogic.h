#pragma once
// What the strings package editor does without a window, beyond the lists
// it shares with the memory editors: the status bar, the lines of the
// printed report, the text files of labels, messages and texts, and the
// choice of the file the "System" strings are refreshed from.

#include "design/strings/QzMemoryEditorLogic.h"

#include "rtl/StringList.h"

#include <vector>

// "1 Label", "0 Labels", "2 Messages", ...
AnsiString QzStringsCountText(int count, TQzMemoryFamily family);
// The status bar of a page: its count, and for the "System" strings of a
// language package where and when they were last refreshed.
AnsiString QzStringsStatusText(const TQzPkgStrings& pkg, TQzMemoryFamily family);

// The report: its heading ("**** Labels Report ****") and the rows, each
// "Id - text", a label's hint added as " *Hint = hint" when it is not blank.
// A row whose text has several lines is printed on as many.
AnsiString QzStringsReportTitle(TQzMemoryFamily family);
std::vector<AnsiString> QzStringsReportLines(const TQzPkgIdItem* item);

// The text file of a page: one item per line, fields joined with ','
// (Id, text and, for labels, hint; empty fields left out), sorted by Id.
void QzStringsExportText(const TQzPkgStrings& pkg, TQzMemoryFamily family, TStrings& lines);
void QzStringsExportFile(const TQzPkgStrings& pkg, TQzMemoryFamily family, const AnsiString& fileName);
// Replaces the page's items with the file's. Blank lines are skipped. A line
// that cannot be read (a field list that does not split, an Id that is not a
// number or that the collection refuses) raises EConvertError naming the
// file and the line; the items read before it stay.
void QzStringsImportText(TQzPkgStrings& pkg, TQzMemoryFamily family, const TStrings& lines,
                         const AnsiString& fileName);
void QzStringsImportFile(TQzPkgStrings& pkg, TQzMemoryFamily family, const AnsiString& fileName);

// The file an entry names (a name alone is looked for in the installation
// folder); raises Exception "Invalidate FileName" when it is empty or names
// no file.
AnsiString QzSystemStringsFile(const AnsiString& entry, const AnsiString& installPath);
