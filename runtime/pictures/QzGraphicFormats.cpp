#include "runtime/pictures/QzGraphicFormats.h"

#include "rtl/Persistent.h"

#include <QImageReader>

#include <set>

namespace {

struct TFormatName {
    const char* Format;
    const char* Description;
};

// Descriptions as picture dialogs of the suite's era named them, and plain
// names for the formats that came later.
constexpr TFormatName FormatDescriptions[] = {
    {"bmp", "Bitmaps"},
    {"ico", "Icons"},
    {"cur", "Cursors"},
    {"emf", "Enhanced Metafiles"},
    {"wmf", "Metafiles"},
    {"jpg", "JPEG Image File"},
    {"jpeg", "JPEG Image File"},
    {"png", "Portable Network Graphics"},
    {"gif", "GIF Image"},
    {"tif", "TIFF Image"},
    {"tiff", "TIFF Image"},
    {"svg", "Scalable Vector Graphics"},
    {"svgz", "Scalable Vector Graphics (compressed)"},
    {"webp", "WebP Image"},
    {"pbm", "Portable Bitmap"},
    {"pgm", "Portable Graymap"},
    {"ppm", "Portable Pixmap"},
    {"xbm", "X11 Bitmap"},
    {"xpm", "X11 Pixmap"},
    {"tga", "Targa Image"},
    {"icns", "Apple Icon Image"},
    {"wbmp", "Wireless Bitmap"},
    {"imqz", "QzControls Image"},
};

// Graphic class names that form files of the suite's era record.
constexpr TFormatName ClassFormats[] = {
    {"TBitmap", "bmp"},     {"TIcon", "ico"},         {"TMetafile", "emf"},
    {"TJPEGImage", "jpg"},  {"TPngImage", "png"},     {"TPNGObject", "png"},
    {"TGIFImage", "gif"},   {"TQzImage", "imqz"},
};

std::set<AnsiString> FormatSet()
{
    std::set<AnsiString> formats;
    for (const QByteArray& format : QImageReader::supportedImageFormats())
        formats.insert(LowerCase(format.toStdString()));
    formats.insert(QzImageFormat);
    return formats;
}

} // namespace

AnsiString QzGraphicFormatName(const AnsiString& graphic)
{
    for (const TFormatName& entry : ClassFormats)
        if (SameText(graphic, entry.Format))
            return entry.Description;
    const AnsiString name = !graphic.empty() && graphic.front() == '.' ? graphic.substr(1) : graphic;
    return LowerCase(name);
}

void QzFormatGraphics(TStrings* list)
{
    for (const AnsiString& format : FormatSet())
        list->Add(format);
}

AnsiString QzFindGraphicDescription(const AnsiString& graphic)
{
    const AnsiString format = QzGraphicFormatName(graphic);
    if (format.empty())
        return {};
    for (const TFormatName& entry : FormatDescriptions)
        if (format == entry.Format)
            return entry.Description;
    return UpperCase(format) + " Image";
}

AnsiString QzFindGraphicDescription(const TMetaClass* graphicClass)
{
    return graphicClass ? QzFindGraphicDescription(graphicClass->ClassName()) : AnsiString();
}

AnsiString QzGraphicFilter()
{
    const std::set<AnsiString> formats = FormatSet();
    AnsiString all;
    AnsiString each;
    for (const AnsiString& format : formats) {
        const AnsiString mask = "*." + format;
        all += (all.empty() ? "" : ";") + mask;
        each += "|" + QzFindGraphicDescription(format) + " (" + mask + ")|" + mask;
    }
    return "All (" + all + ")|" + all + each;
}
