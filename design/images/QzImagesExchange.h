#pragma once
// An images package to and from a folder of ordinary picture files, for the
// tools outside the suite that users keep their pictures in:
//
//   export: one PNG per image, named by its Id ("12.png"), whatever it was
//           stored as, with what its internal mask cuts away made fully
//           transparent; and manifest.csv, one row per image:
//               Id,File,Width,Height,Bytes,Protected
//           (Bytes: of the PNG written; an image without a picture has an
//           empty File and no PNG);
//   import: the manifest gives the Ids (and protection) of the files it
//           names; without one, each picture file of the folder whose name
//           is a number (before its extension) goes under that Id and any
//           other under the next free Id. A file that is not a picture, or
//           a damaged one, is reported with its name and skipped; the rest
//           is imported. An image whose Id the package has already is
//           replaced.
//
// Both work without a window (QImage needs no display).

#include "runtime/model/QzPkgImages.h"

#include <vector>

inline constexpr const char* QzImagesManifestName = "manifest.csv";

struct TQzImagesManifestRow {
    Integer Id = 0;
    AnsiString File;   // relative to the folder; empty: no picture
    Integer Width = 0;
    Integer Height = 0;
    Int64 Bytes = 0;
    bool Protected = false;
    bool operator==(const TQzImagesManifestRow&) const = default;
};

// The manifest's text and back. A row that cannot be read is left out and
// told in problems with source and its line ("manifest.csv line 3: ...").
AnsiString QzImagesManifestText(const std::vector<TQzImagesManifestRow>& rows);
std::vector<TQzImagesManifestRow> QzParseImagesManifest(const std::string& text, const AnsiString& source,
                                                        std::vector<AnsiString>& problems);

struct TQzImagesExchangeReport {
    std::vector<TQzImagesManifestRow> Rows;   // what was written or imported
    std::vector<AnsiString> Problems;         // one line each: the file and why
};

// Writes into folder (made when missing). Files are written whole or not
// at all; an image whose picture does not decode is reported and left out.
// Raises EInOutError when the folder or the manifest cannot be written.
TQzImagesExchangeReport QzExportImages(const TQzPkgImages& package, const AnsiString& folder);

// Adds the folder's pictures to package. Raises EInOutError when the folder
// cannot be read; nothing is added then.
TQzImagesExchangeReport QzImportImages(TQzPkgImages& package, const AnsiString& folder);
