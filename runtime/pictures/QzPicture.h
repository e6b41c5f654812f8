#pragma once
// The picture operations of a package image: loading and saving its file,
// the clipboard, decoding, masks and regions, and the mask editor's design
// values. The model keeps an image as bytes plus extension blocks
// (runtime/model/QzPkgImages.h); TQzPicture is the view of one image that
// knows what those bytes and blocks mean. It holds only the pointer, so it
// is made where it is needed:
//
//     TQzPicture(image).LoadFromFile("logo.png");
//     if (TQzPicture(image).HasMask()) ...
//
// Every operation that fails raises EInvalidGraphic naming the file (or the
// clipboard) and leaves the image as it was.

#include "runtime/pictures/QzPictureFormats.h"
#include "runtime/pictures/QzPictureMasks.h"

#include <QImage>
#include <QRegion>

class TQzPkgImagesImage;

class TQzPicture {
public:
    // image must outlive the view.
    explicit TQzPicture(TQzPkgImagesImage* image);
    explicit TQzPicture(const TQzPkgImagesImage* image);

    // ---- Files
    // A picture file of any format Qt reads, recognised by its bytes (the
    // extension does not matter), or an ".imqz" file. A plain picture
    // replaces the picture and drops the masks, which described the old one;
    // the design values stay. An ".imqz" file replaces everything the image
    // carries except its Id and protection.
    void LoadFromFile(const AnsiString& fileName);
    // The same from bytes; source names them in messages.
    void LoadFromBytes(std::string_view bytes, const AnsiString& source);
    // Under ".imqz" the whole image; under the extension of the picture's
    // own format (or none, or one no encoder knows) its bytes unchanged;
    // under the extension of another format Qt can write, the picture
    // converted to it (masks are not part of such a file). Atomic.
    void SaveToFile(const AnsiString& fileName) const;
    // The ".imqz" bytes of the image.
    std::string ImqzBytes() const;

    // ---- Clipboard (needs a QGuiApplication)
    // The image under CF_QZIMAGE as ".imqz" bytes, and its picture as an
    // ordinary image for other programs.
    void SaveToClipBoard() const;
    // CF_QZIMAGE when present, else an ordinary picture (stored as PNG,
    // "TPngImage", masks dropped as by LoadFromFile). Raises EInvalidGraphic
    // when the clipboard holds neither.
    void LoadFromClipBoard();
    // Whether LoadFromClipBoard would find something.
    static bool ClipBoardHasImage();

    // ---- Decoding
    // The picture; a null image when the image is empty. Raises
    // EInvalidGraphic when its bytes do not decode.
    QImage Decode() const;

    // ---- Masks and regions (see QzPictureMasks.h)
    void CreateInternalMask(TColor color);
    void CreateExternalMask(TColor color);
    // Null when the image has none (or its block is damaged or no longer
    // fits the picture).
    QImage GetInternalMask() const;
    QImage GetExternalMask() const;
    // The colour a mask was made from; QzMaskColorAuto when none or edited.
    TColor InternalMaskColor() const;
    TColor ExternalMaskColor() const;
    // After hand editing; a null mask removes it. Raises EInvalidGraphic for
    // a mask of another size than the picture.
    void SetInternalMask(const QImage& mask, TColor color = QzMaskColorAuto);
    void SetExternalMask(const QImage& mask, TColor color = QzMaskColorAuto);
    bool HasMask() const;
    // Empty regions when there is no mask.
    QRegion CreateInternalRgn() const;
    QRegion CreateExternalRgn() const;

    // ---- Design values of the mask editor
    TQzImageDesign GetDesign() const;
    void SetDesign(const TQzImageDesign& design);

    // Raises EInvalidGraphic when a block the picture code knows is damaged
    // or a mask does not fit the picture.
    void CheckExtensions(const AnsiString& source) const;

private:
    TQzPkgImagesImage* Writable() const;
    void SetMask(const char* blockName, const QImage& mask, TColor color);
    void CreateMask(const char* blockName, TColor color);
    TQzMaskBlock GetMask(const char* blockName) const;
    // Stores a decoded plain picture, dropping the masks.
    void StorePlainPicture(const std::string& bytes, const AnsiString& graphicClass, QSize size);

    TQzPkgImagesImage* FImage = nullptr;
    const TQzPkgImagesImage* FConstImage = nullptr;
};

// Decodes picture bytes of a known Qt format (empty: recognised from the
// bytes), refusing pictures beyond QzMaxPictureSide before they are decoded.
// Raises EInvalidGraphic "Cannot read the picture "<source>": ...".
QImage QzDecodePicture(std::string_view bytes, const AnsiString& qtFormat, const AnsiString& source);
