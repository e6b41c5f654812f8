#include "runtime/pictures/QzPicture.h"

#include "runtime/model/QzPkgImages.h"
#include "runtime/pictures/QzImqzFile.h"

#include "rtl/Streams.h"

#include <QBuffer>
#include <QByteArray>
#include <QImageReader>
#include <QImageWriter>

namespace {

AnsiString ReadProblem(const AnsiString& source)
{
    return "Cannot read the picture \"" + source + "\"";
}

[[noreturn]] void FailRead(const AnsiString& source, const AnsiString& problem)
{
    throw EInvalidGraphic(ReadProblem(source) + ": " + problem);
}

[[noreturn]] void FailSave(const AnsiString& fileName, const AnsiString& problem)
{
    throw EInvalidGraphic("Cannot save the picture \"" + fileName + "\": " + problem);
}

AnsiString ImageName(const TQzPkgImagesImage& image)
{
    return "image " + IntToStr(image.Id());
}

// One name per format, whatever its extension: "jpg" and "jpeg" are one.
AnsiString NormalFormat(const AnsiString& format)
{
    const AnsiString lower = LowerCase(format);
    if (lower == "jpg")
        return "jpeg";
    if (lower == "tif")
        return "tiff";
    return lower;
}

AnsiString FormatOfExtension(const AnsiString& ext)
{
    if (const TQzGraphicClass* entry = QzGraphicClassOfExtension(ext))
        return entry->QtFormat;
    return NormalFormat(ext);
}

bool QtCanWrite(const AnsiString& format)
{
    if (format.empty())
        return false;
    const QList<QByteArray> formats = QImageWriter::supportedImageFormats();
    return formats.contains(QByteArray::fromStdString(format));
}

void CheckMaskBlock(const TQzPkgExtensions& blocks, const char* name, QSize pictureSize, const AnsiString& source)
{
    const std::string& bytes = blocks.Get(name);
    if (bytes.empty())
        return;
    const AnsiString what = ReadProblem(source) + ", block " + name;
    const TQzMaskBlock block = QzDecodeMaskBlock(bytes, what);
    if (block.Mask.size() != pictureSize)
        throw EInvalidGraphic(what + ": the mask is " + IntToStr(block.Mask.width()) + "x" +
                              IntToStr(block.Mask.height()) + ", the picture " + IntToStr(pictureSize.width()) +
                              "x" + IntToStr(pictureSize.height()));
}

// The blocks the picture code knows must decode and fit the picture; others
// are kept as they are.
void CheckBlocks(const TQzPkgExtensions& blocks, QSize pictureSize, const AnsiString& source)
{
    CheckMaskBlock(blocks, QzExtInternalMask, pictureSize, source);
    CheckMaskBlock(blocks, QzExtExternalMask, pictureSize, source);
    const std::string& design = blocks.Get(QzExtDesign);
    if (!design.empty())
        QzDecodeImageDesign(design, ReadProblem(source) + ", block " + QzExtDesign);
}

} // namespace

QImage QzDecodePicture(std::string_view bytes, const AnsiString& qtFormat, const AnsiString& source)
{
    if (bytes.empty())
        FailRead(source, "the file is empty");
    if (bytes.size() > QzMaxPictureBytes)
        FailRead(source, "larger than " + IntToStr(Int64(QzMaxPictureBytes >> 20)) + " MB");
    QByteArray data = QByteArray::fromRawData(bytes.data(), qsizetype(bytes.size()));
    QBuffer buffer(&data);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer, QByteArray::fromStdString(qtFormat));
    reader.setDecideFormatFromContent(qtFormat.empty());
    if (!reader.canRead())
        FailRead(source, qtFormat.empty() ? AnsiString("not a picture in a format this program reads")
                                          : "not a valid " + UpperCase(qtFormat) + " picture");
    const auto checkSize = [&](QSize size) {
        if (size.width() > QzMaxPictureSide || size.height() > QzMaxPictureSide)
            FailRead(source, "the picture is " + IntToStr(size.width()) + "x" + IntToStr(size.height()) +
                                 " pixels, more than the " + IntToStr(QzMaxPictureSide) + " allowed each way");
    };
    checkSize(reader.size());
    QImage picture = reader.read();
    if (picture.isNull())
        FailRead(source, reader.errorString().toStdString());
    checkSize(picture.size());
    return picture;
}

TQzPicture::TQzPicture(TQzPkgImagesImage* image) : FImage(image), FConstImage(image)
{
    QZ_ASSERT(image != nullptr, "TQzPicture needs an image");
}

TQzPicture::TQzPicture(const TQzPkgImagesImage* image) : FConstImage(image)
{
    QZ_ASSERT(image != nullptr, "TQzPicture needs an image");
}

TQzPkgImagesImage* TQzPicture::Writable() const
{
    if (FImage == nullptr)
        throw EInvalidOperation("The picture of " + ImageName(*FConstImage) + " is read-only here");
    return FImage;
}

// ---- Files ------------------------------------------------------------------

void TQzPicture::LoadFromFile(const AnsiString& fileName)
{
    std::string bytes;
    try {
        bytes = ReadFileBytes(fileName);
    } catch (const Exception& e) {
        FailRead(fileName, e.Message());
    }
    LoadFromBytes(bytes, fileName);
}

void TQzPicture::LoadFromBytes(std::string_view bytes, const AnsiString& source)
{
    TQzPkgImagesImage* image = Writable();
    if (QzIsImqz(bytes)) {
        const TQzImqzContents contents = QzParseImqz(bytes, source);
        const QImage picture = QzDecodePicture(contents.Picture, QzQtFormatOfGraphicClass(contents.GraphicClass), source);
        if (picture.width() != contents.Width || picture.height() != contents.Height)
            FailRead(source, "the picture does not have the size the file gives");
        TQzPkgExtensions blocks;
        for (const auto& [name, value] : contents.Blocks)
            blocks.Set(name, value);
        CheckBlocks(blocks, picture.size(), source);
        // Everything is checked: from here on nothing can fail half-way.
        image->Clear();
        image->SetPicture(contents.Picture, contents.GraphicClass, contents.Width, contents.Height);
        for (const auto& [name, value] : contents.Blocks)
            image->SetExtension(name, value);
        return;
    }
    const AnsiString format = QzDetectPictureFormat(bytes);
    if (format.empty())
        FailRead(source, bytes.empty() ? AnsiString("the file is empty")
                                       : AnsiString("not a picture in a format this program reads"));
    const QImage picture = QzDecodePicture(bytes, format, source);
    StorePlainPicture(std::string(bytes), QzGraphicClassOfQtFormat(format), picture.size());
}

void TQzPicture::StorePlainPicture(const std::string& bytes, const AnsiString& graphicClass, QSize size)
{
    TQzPkgImagesImage* image = Writable();
    image->SetPicture(bytes, graphicClass, size.width(), size.height());
    for (const char* name : {QzExtInternalMask, QzExtExternalMask})
        if (image->Extensions().Has(name))
            image->SetExtension(name, {});
}

std::string TQzPicture::ImqzBytes() const
{
    const TQzPkgImagesImage& image = *FConstImage;
    if (image.Empty())
        throw EInvalidGraphic("The " + ImageName(image) + " has no picture");
    // Decoded so that the file names the picture's real size (images from
    // old forms may carry none) and never holds bytes it could not load.
    const QImage picture = Decode();
    TQzImqzContents contents;
    contents.GraphicClass = image.GraphicClass().empty() ? QzGraphicClassOfQtFormat(QzDetectPictureFormat(image.PictureData()))
                                                         : image.GraphicClass();
    contents.Width = picture.width();
    contents.Height = picture.height();
    contents.Picture = image.PictureData();
    contents.Blocks = image.Extensions().Blocks();
    return QzBuildImqz(contents);
}

void TQzPicture::SaveToFile(const AnsiString& fileName) const
{
    const TQzPkgImagesImage& image = *FConstImage;
    if (image.Empty())
        FailSave(fileName, "the image has no picture");
    AnsiString ext = ExtractFileExt(fileName);
    if (!ext.empty())
        ext = LowerCase(ext.substr(1));

    std::string bytes;
    try {
        if (ext == "imqz") {
            bytes = ImqzBytes();
        } else {
            const AnsiString own = NormalFormat(QzQtFormatOfGraphicClass(image.GraphicClass()));
            const AnsiString target = FormatOfExtension(ext);
            if (ext.empty() || target == own || !QtCanWrite(target)) {
                bytes = image.PictureData();
            } else {
                const QImage picture = Decode();
                QByteArray encoded;
                QBuffer buffer(&encoded);
                buffer.open(QIODevice::WriteOnly);
                QImageWriter writer(&buffer, QByteArray::fromStdString(target));
                if (!writer.write(picture))
                    FailSave(fileName, writer.errorString().toStdString());
                bytes = encoded.toStdString();
            }
        }
    } catch (const EInvalidGraphic& e) {
        FailSave(fileName, e.Message());
    }
    try {
        WriteFileAtomic(fileName, bytes);
    } catch (const Exception& e) {
        FailSave(fileName, e.Message());
    }
}

// ---- Decoding -----------------------------------------------------------------

QImage TQzPicture::Decode() const
{
    const TQzPkgImagesImage& image = *FConstImage;
    if (image.Empty())
        return {};
    const AnsiString format = QzQtFormatOfGraphicClass(image.GraphicClass());
    if (!format.empty()) {
        try {
            return QzDecodePicture(image.PictureData(), format, ImageName(image));
        } catch (const EInvalidGraphic&) {
            // Forms of the suite's era may name a class that does not match
            // the bytes (a PNG kept under TBitmap): fall back on the bytes.
        }
    }
    return QzDecodePicture(image.PictureData(), {}, ImageName(image));
}

// ---- Masks -------------------------------------------------------------------

void TQzPicture::CreateMask(const char* blockName, TColor color)
{
    const QImage picture = Decode();
    if (picture.isNull())
        throw EInvalidGraphic("The " + ImageName(*FConstImage) + " has no picture to make a mask from");
    Writable()->SetExtension(blockName, QzEncodeMaskBlock({QzMaskFromColor(picture, color), color}));
}

void TQzPicture::SetMask(const char* blockName, const QImage& mask, TColor color)
{
    TQzPkgImagesImage* image = Writable();
    if (!mask.isNull() && mask.size() != QSize(image->Width(), image->Height()))
        throw EInvalidGraphic("A mask of " + IntToStr(mask.width()) + "x" + IntToStr(mask.height()) +
                              " does not fit the " + IntToStr(image->Width()) + "x" + IntToStr(image->Height()) +
                              " picture of " + ImageName(*image));
    const std::string block = QzEncodeMaskBlock({mask, color});
    if (block != image->Extensions().Get(blockName))
        image->SetExtension(blockName, block);
}

TQzMaskBlock TQzPicture::GetMask(const char* blockName) const
{
    const TQzPkgImagesImage& image = *FConstImage;
    const std::string& bytes = image.Extensions().Get(blockName);
    if (bytes.empty())
        return {};
    try {
        TQzMaskBlock block = QzDecodeMaskBlock(bytes, ImageName(image));
        if (block.Mask.size() == QSize(image.Width(), image.Height()))
            return block;
    } catch (const EInvalidGraphic&) {
        // Drawing and the editors' lists treat a damaged mask as none;
        // loading a file refuses it (CheckExtensions).
    }
    return {};
}

void TQzPicture::CreateInternalMask(TColor color)
{
    CreateMask(QzExtInternalMask, color);
}

void TQzPicture::CreateExternalMask(TColor color)
{
    CreateMask(QzExtExternalMask, color);
}

QImage TQzPicture::GetInternalMask() const
{
    return GetMask(QzExtInternalMask).Mask;
}

QImage TQzPicture::GetExternalMask() const
{
    return GetMask(QzExtExternalMask).Mask;
}

TColor TQzPicture::InternalMaskColor() const
{
    return GetMask(QzExtInternalMask).Color;
}

TColor TQzPicture::ExternalMaskColor() const
{
    return GetMask(QzExtExternalMask).Color;
}

void TQzPicture::SetInternalMask(const QImage& mask, TColor color)
{
    SetMask(QzExtInternalMask, mask, color);
}

void TQzPicture::SetExternalMask(const QImage& mask, TColor color)
{
    SetMask(QzExtExternalMask, mask, color);
}

bool TQzPicture::HasMask() const
{
    // Presence is enough for the editors' "<" ">" marks; decoding every
    // mask of a list on each paint would cost more than it tells.
    const TQzPkgExtensions& blocks = FConstImage->Extensions();
    return blocks.Has(QzExtInternalMask) || blocks.Has(QzExtExternalMask);
}

QRegion TQzPicture::CreateInternalRgn() const
{
    return QzMaskRegion(GetInternalMask());
}

QRegion TQzPicture::CreateExternalRgn() const
{
    return QzMaskRegion(GetExternalMask());
}

// ---- Design values -------------------------------------------------------------

TQzImageDesign TQzPicture::GetDesign() const
{
    const std::string& bytes = FConstImage->Extensions().Get(QzExtDesign);
    if (bytes.empty())
        return {};
    try {
        return QzDecodeImageDesign(bytes, ImageName(*FConstImage));
    } catch (const EInvalidGraphic&) {
        return {};
    }
}

void TQzPicture::SetDesign(const TQzImageDesign& design)
{
    const std::string block = QzEncodeImageDesign(design);
    if (block != FConstImage->Extensions().Get(QzExtDesign))
        Writable()->SetExtension(QzExtDesign, block);
}

void TQzPicture::CheckExtensions(const AnsiString& source) const
{
    CheckBlocks(FConstImage->Extensions(), QSize(FConstImage->Width(), FConstImage->Height()), source);
}
