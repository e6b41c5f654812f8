#pragma once
// What the images package editor shows of a TQzPkgImages and does to it,
// without a window: the rows in Id order, the text of a cell, the status
// line, who may change the package, protection, and where the report puts
// each thumbnail on the printed pages.

#include "runtime/model/QzPkgImages.h"

#include <QRect>
#include <QSize>

#include <vector>

// What a cell's last line shows (the grid's radio items).
enum class TQzImagesLine { WidthHeight, Size, Protected };

// n bytes as the editors write a size, one decimal at most:
// "(512 Bytes)", "(1.5 KB)", "(2 MB)".
AnsiString QzImagesSizeText(Int64 bytes);

// The images of the package, ascending by Id (equal Ids keep their order).
std::vector<TQzPkgImagesImage*> QzImagesSorted(const TQzPkgImages& package);

// A cell's text: the Id, the picture's description and the chosen line,
// one per line ("12\n(Portable Network Graphics)\n(32x32)"). A masked
// image's brackets are "<" and ">"; an empty image reads "(None)" and has
// no third line.
struct TQzImageCellText {
    AnsiString Text;
    bool Masked = false;
};
TQzImageCellText QzImagesCellText(const TQzPkgImagesImage& image, TQzImagesLine line);

// The status line: "12 Images (3.5 KB) " and, for the "System" images of a
// display package when their protection is shown, where and when they were
// last refreshed. "Package Unknown" without a package.
AnsiString QzImagesStatusText(const TQzPkgImages* package, bool protectionShown);

// Whether the package of that name may be changed now: anything but
// "System", which only while the application allows system editing.
bool QzImagesValidPkg(const AnsiString& pkgName);

// Whether the package is written to a file of its own (the display
// package's file for its two images packages) rather than kept in the form.
bool QzImagesIsFilePkg(const TQzPkgImages& package);

// The component whose form a change marks modified: the package's owner,
// or the form the display package's application lives on.
TComponent* QzImagesModifiedOwner(const TQzPkgImages& package);

// The row selected after row `deleted` was removed and `rowsLeft` remain:
// the same row, or the new last one; -1 when none is left.
int QzImagesRowAfterDelete(int deleted, int rowsLeft);

// ------------------------------------------------------------------ report

// Cell and gap sizes of the printed thumbnails, from the printer's
// resolution: cells 0.7 inch wide and one inch high, gaps of a sixth.
struct TQzImagesReportMetrics {
    int CellWidth = 0;
    int CellHeight = 0;
    int GapX = 0;
    int GapY = 0;
    int HeaderGap = 0;  // between the page heading and the first row
};
TQzImagesReportMetrics QzImagesReportMetrics(int dpiX, int dpiY);

struct TQzImagesReportCell {
    int Page = 0;  // 0-based
    QRect Rect;    // text and picture together
};

// Where each of `count` cells goes: left to right, wrapping when the next
// cell would pass the page's right edge, a new page (with the heading of
// height `headerHeight` again) when the next row would pass its bottom.
std::vector<TQzImagesReportCell> QzImagesReportLayout(int count, QSize page, int headerHeight,
                                                      const TQzImagesReportMetrics& metrics);
