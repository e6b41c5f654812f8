#pragma once
// The graphic classes a package image may hold, and how a picture's class
// is told from its bytes. An image records the class that reads its bytes
// under the name form files of the suite's era use ("TPngImage"); formats
// that came later keep their Qt format name ("webp", "tiff"), which the
// drawing and format helpers of runtime/util understand as well.

#include "rtl/SysUtils.h"

#include <string>
#include <string_view>
#include <vector>

// A picture that cannot be read, decoded or written. The message names the
// file (or "the clipboard") and says what is wrong.
QZ_DECLARE_EXCEPTION(EInvalidGraphic, Exception);

// Pictures larger than this in either direction are refused before they are
// decoded: a damaged or hostile header must not make us allocate gigabytes.
inline constexpr int QzMaxPictureSide = 16384;
// Bytes of one picture or one ".imqz" file.
inline constexpr size_t QzMaxPictureBytes = size_t(256) << 20;

struct TQzGraphicClass {
    const char* ClassName;   // "TPngImage"
    const char* QtFormat;    // "png": what QImageReader/QImageWriter call it
    const char* Extension;   // "png": the extension a saved file gets
    // Other extensions that name the same format ("jpeg", "jpe").
    const char* OtherExtensions;
    bool QtWritable;         // Qt can encode it (there is no GIF encoder)
};

// The classes of the suite's era, in the order the picture dialogs list
// them: TBitmap, TIcon, TJPEGImage, TPngImage, TGIFImage.
const std::vector<TQzGraphicClass>& QzGraphicClasses();

// The entry of a class name ("TPngImage", any case), or nullptr.
const TQzGraphicClass* QzFindGraphicClass(const AnsiString& className);
// The entry for an extension, with or without its point, any case; nullptr
// for an extension of no class above.
const TQzGraphicClass* QzGraphicClassOfExtension(const AnsiString& extension);
// The graphic class a picture is stored under, from the Qt format that
// decodes it: a class name above, or the Qt format itself.
AnsiString QzGraphicClassOfQtFormat(const AnsiString& qtFormat);
// The Qt format of a stored graphic class ("TJPEGImage" gives "jpeg"); for a
// class that is a Qt format name already, that name.
AnsiString QzQtFormatOfGraphicClass(const AnsiString& className);
// The extension (without point) a picture of that class is saved under.
AnsiString QzGraphicExtension(const AnsiString& className);
// A file-dialog filter entry for one class: "Portable Network Graphics
// (*.png)|*.png".
AnsiString QzGraphicClassFilter(const AnsiString& className);

// The Qt format of a picture from its bytes alone (its signature, else what
// Qt's readers recognise); empty when no reader knows it.
AnsiString QzDetectPictureFormat(std::string_view bytes);
