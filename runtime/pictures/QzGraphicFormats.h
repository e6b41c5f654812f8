#pragma once
// The picture formats images may be loaded from: every format the Qt image
// readers of this installation decode, plus the suite's own ".imqz" image
// files. A format is named by its usual extension in lower case ("png",
// "jpg"), which is also what an image records as its graphic class.

#include "rtl/StringList.h"

class TMetaClass;

// The suite's own image file format.
inline constexpr const char* QzImageFormat = "imqz";

// Appends one line per format (its name, as above), sorted and without
// duplicates; the list is not cleared first.
void QzFormatGraphics(TStrings* list);

// The description of a format for lists and filters: "Bitmaps" for "bmp",
// "JPEG Image File" for "jpg". Accepts a format name with or without its
// point, in any case, or the name of the graphic class a form file records
// ("TBitmap", "TJPEGImage", "TIcon", "TMetafile", "TPngImage", "TGIFImage").
// An unknown format reads "<FORMAT> Image"; an empty name gives "".
AnsiString QzFindGraphicDescription(const AnsiString& graphic);
AnsiString QzFindGraphicDescription(const TMetaClass* graphicClass);

// The format name behind a graphic class name or an extension ("TBitmap"
// and ".BMP" give "bmp"); empty for an empty name.
AnsiString QzGraphicFormatName(const AnsiString& graphic);

// A file-dialog filter over every format, in the "Description|*.ext" form
// of the suite's dialogs, led by an entry with all of them:
// "All (*.bmp;*.gif;...)|*.bmp;*.gif;...|Bitmaps (*.bmp)|*.bmp|...".
AnsiString QzGraphicFilter();
