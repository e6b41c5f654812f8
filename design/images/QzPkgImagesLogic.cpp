#include "design/images/QzPkgImagesLogic.h"

#include "runtime/model/QzApplication.h"
#include "runtime/pictures/QzGraphicFormats.h"
#include "runtime/pictures/QzPicture.h"
#include "runtime/util/QzNumeric.h"

#include <algorithm>

AnsiString QzImagesSizeText(Int64 bytes)
{
    const double n = static_cast<double>(bytes);
    if (n / 1024 < 1)
        return "(" + IntToStr(bytes) + " Bytes)";
    if (n / 1048576 < 1)
        return "(" + FloatToStr(QzRoundDec(n / 1024, 1)) + " KB)";
    return "(" + FloatToStr(QzRoundDec(n / 1048576, 1)) + " MB)";
}

std::vector<TQzPkgImagesImage*> QzImagesSorted(const TQzPkgImages& package)
{
    const TQzPkgImagesImages* images = package.Images();
    std::vector<TQzPkgImagesImage*> rows;
    rows.reserve(static_cast<size_t>(images->Count()));
    for (int i = 0; i < images->Count(); ++i)
        rows.push_back(images->GetItems(i));
    std::stable_sort(rows.begin(), rows.end(),
                     [](const TQzPkgImagesImage* a, const TQzPkgImagesImage* b) { return a->Id() < b->Id(); });
    return rows;
}

TQzImageCellText QzImagesCellText(const TQzPkgImagesImage& image, TQzImagesLine line)
{
    TQzImageCellText cell;
    // A damaged mask block reads as no mask: the cell still shows the picture.
    cell.Masked = TQzPicture(&image).HasMask();
    const char* open = cell.Masked ? "<" : "(";
    const char* close = cell.Masked ? ">" : ")";
    cell.Text = IntToStr(image.Id()) + "\n";
    if (image.Empty()) {
        cell.Text += AnsiString(open) + "None" + close;
        return cell;
    }
    const AnsiString description = image.GraphicClass().empty() ? AnsiString(image.ClassName())
                                                                : QzFindGraphicDescription(image.GraphicClass());
    cell.Text += open + description + close + "\n";
    switch (line) {
    case TQzImagesLine::WidthHeight:
        cell.Text += "(" + IntToStr(image.Width()) + "x" + IntToStr(image.Height()) + ")";
        break;
    case TQzImagesLine::Size:
        cell.Text += QzImagesSizeText(image.GetSize());
        break;
    case TQzImagesLine::Protected:
        cell.Text += image.Protected() ? "(Protected)" : "-";
        break;
    }
    return cell;
}

AnsiString QzImagesStatusText(const TQzPkgImages* package, bool protectionShown)
{
    if (!package)
        return "Package Unknown";
    const TQzPkgImagesImages* images = package->Images();
    Int64 total = 0;
    for (int i = 0; i < images->Count(); ++i)
        total += images->GetItems(i)->GetSize();
    const int count = images->Count();
    AnsiString text = IntToStr(count) + (count == 1 ? " Image " : " Images ") + QzImagesSizeText(total) + " ";
    const auto* display = dynamic_cast<const TQzPkgDisplay*>(package->Owner());
    if (protectionShown && display)
        text += "(LastUpdateFile:" + display->LastUpdateFile() + ") (UpdateDateTime:" +
                DateTimeToStr(display->UpdateDateTime()) + ")";
    return text;
}

bool QzImagesValidPkg(const AnsiString& pkgName)
{
    if (TQzCApplication* app = QzCApp(); app && app->SystemEdit())
        return true;
    return !QzIsSystemPkgName(pkgName);
}

bool QzImagesIsFilePkg(const TQzPkgImages& package)
{
    const TQzPkgInfo* holder = &package;
    if (const auto* display = dynamic_cast<const TQzPkgDisplay*>(package.Owner()))
        holder = display;
    return holder->InitMode() == imFile && !holder->FileName().empty();
}

TComponent* QzImagesModifiedOwner(const TQzPkgImages& package)
{
    TComponent* owner = package.Owner();
    // Up from a display package through its application to the form.
    while (owner && (dynamic_cast<TQzPkgInfo*>(owner) || dynamic_cast<TQzCApplication*>(owner)))
        owner = owner->Owner();
    return owner;
}

int QzImagesRowAfterDelete(int deleted, int rowsLeft)
{
    if (rowsLeft <= 0)
        return -1;
    return deleted >= rowsLeft ? rowsLeft - 1 : deleted;
}

TQzImagesReportMetrics QzImagesReportMetrics(int dpiX, int dpiY)
{
    TQzImagesReportMetrics m;
    m.CellWidth = static_cast<int>(dpiX * 0.7);
    m.CellHeight = dpiY;
    m.GapX = dpiX / 6;
    m.GapY = dpiY / 6;
    m.HeaderGap = dpiY / 4;
    return m;
}

std::vector<TQzImagesReportCell> QzImagesReportLayout(int count, QSize page, int headerHeight,
                                                      const TQzImagesReportMetrics& metrics)
{
    std::vector<TQzImagesReportCell> cells;
    cells.reserve(static_cast<size_t>(std::max(count, 0)));
    const int top = headerHeight + metrics.HeaderGap;
    int pageIndex = 0;
    int x = 0;
    int y = top;
    for (int i = 0; i < count; ++i) {
        cells.push_back({pageIndex, QRect(x, y, metrics.CellWidth, metrics.CellHeight)});
        x += metrics.CellWidth + metrics.GapX;
        if (page.width() < x + metrics.CellWidth) {
            x = 0;
            y += metrics.CellHeight + metrics.GapY;
        }
        // A new page only for a cell still to come, so the last page is
        // never blank.
        if (page.height() < y + metrics.CellHeight && i + 1 < count) {
            ++pageIndex;
            x = 0;
            y = top;
        }
    }
    return cells;
}
