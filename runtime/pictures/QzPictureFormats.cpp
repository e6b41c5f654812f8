#include "runtime/pictures/QzPictureFormats.h"

#include "runtime/pictures/QzGraphicFormats.h"

#include <QBuffer>
#include <QByteArray>
#include <QImageReader>

namespace {

const std::vector<TQzGraphicClass> Classes = {
    {"TBitmap", "bmp", "bmp", "dib", true},
    {"TIcon", "ico", "ico", "", true},
    {"TJPEGImage", "jpeg", "jpg", "jpeg;jpe;jfif", true},
    {"TPngImage", "png", "png", "", true},
    {"TGIFImage", "gif", "gif", "", false},
};

bool StartsWith(std::string_view bytes, std::string_view prefix)
{
    return bytes.substr(0, prefix.size()) == prefix;
}

// ICO has no magic of its own: reserved 0, type 1, a plausible count.
bool LooksLikeIcon(std::string_view bytes)
{
    if (bytes.size() < 6 + 16)
        return false;
    const auto u8 = [&](size_t i) { return static_cast<unsigned char>(bytes[i]); };
    return u8(0) == 0 && u8(1) == 0 && u8(2) == 1 && u8(3) == 0 && (u8(4) | u8(5)) != 0;
}

bool ExtensionListed(const char* list, const AnsiString& ext)
{
    std::string_view rest(list);
    while (!rest.empty()) {
        const size_t cut = rest.find(';');
        if (SameText(AnsiString(rest.substr(0, cut)), ext))
            return true;
        rest = cut == std::string_view::npos ? std::string_view() : rest.substr(cut + 1);
    }
    return false;
}

} // namespace

const std::vector<TQzGraphicClass>& QzGraphicClasses()
{
    return Classes;
}

const TQzGraphicClass* QzFindGraphicClass(const AnsiString& className)
{
    for (const TQzGraphicClass& entry : Classes)
        if (SameText(className, entry.ClassName))
            return &entry;
    return nullptr;
}

const TQzGraphicClass* QzGraphicClassOfExtension(const AnsiString& extension)
{
    const AnsiString ext = !extension.empty() && extension.front() == '.' ? extension.substr(1) : extension;
    if (ext.empty())
        return nullptr;
    for (const TQzGraphicClass& entry : Classes)
        if (SameText(ext, entry.Extension) || ExtensionListed(entry.OtherExtensions, ext))
            return &entry;
    return nullptr;
}

AnsiString QzGraphicClassOfQtFormat(const AnsiString& qtFormat)
{
    const AnsiString format = LowerCase(qtFormat);
    for (const TQzGraphicClass& entry : Classes)
        if (format == entry.QtFormat || (format == "jpg" && SameText(entry.QtFormat, "jpeg")))
            return entry.ClassName;
    return format;
}

AnsiString QzQtFormatOfGraphicClass(const AnsiString& className)
{
    if (const TQzGraphicClass* entry = QzFindGraphicClass(className))
        return entry->QtFormat;
    // Names such as "TPNGObject" that runtime/util knows as well.
    return QzGraphicFormatName(className);
}

AnsiString QzGraphicExtension(const AnsiString& className)
{
    if (const TQzGraphicClass* entry = QzFindGraphicClass(className))
        return entry->Extension;
    const AnsiString format = QzGraphicFormatName(className);
    return format == "jpeg" ? AnsiString("jpg") : format;
}

AnsiString QzGraphicClassFilter(const AnsiString& className)
{
    const AnsiString mask = "*." + QzGraphicExtension(className);
    return QzFindGraphicDescription(className) + " (" + mask + ")|" + mask;
}

AnsiString QzDetectPictureFormat(std::string_view bytes)
{
    if (StartsWith(bytes, "\x89PNG\r\n\x1A\n"))
        return "png";
    if (StartsWith(bytes, "\xFF\xD8\xFF"))
        return "jpeg";
    if (StartsWith(bytes, "GIF87a") || StartsWith(bytes, "GIF89a"))
        return "gif";
    if (StartsWith(bytes, "BM") && bytes.size() >= 26)
        return "bmp";
    if (LooksLikeIcon(bytes))
        return "ico";
    QByteArray data = QByteArray::fromRawData(bytes.data(), qsizetype(bytes.size()));
    QBuffer buffer(&data);
    buffer.open(QIODevice::ReadOnly);
    return LowerCase(QImageReader::imageFormat(&buffer).toStdString());
}
