#pragma once
// The suite's own image file ".imqz": one package image with everything it
// carries (graphic class, size, picture bytes and every extension block:
// masks, design values, blocks of later versions), so that saving an image
// and loading it back, or copying it through the clipboard, loses nothing.
// docs/file-formats.md gives the byte layout.

#include "rtl/System.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

inline constexpr char QzImqzSignature[8] = {'Q', 'Z', 'I', 'M', 'Q', 'Z', '\x1A', '\n'};
inline constexpr unsigned QzImqzVersion = 1;
inline constexpr size_t QzImqzMaxBlocks = 256;
inline constexpr size_t QzImqzMaxClassName = 64;

struct TQzImqzContents {
    AnsiString GraphicClass;
    Integer Width = 0;
    Integer Height = 0;
    std::string Picture;
    // In the image's order; names are unique and values never empty.
    std::vector<std::pair<AnsiString, std::string>> Blocks;
};

bool QzIsImqz(std::string_view bytes);

// The whole file. Raises EInvalidGraphic when the contents break a limit
// (they come from an image, so only a damaged model could).
std::string QzBuildImqz(const TQzImqzContents& contents);

// Checks every byte (layout, limits, CRC-32) before returning anything.
// source names the file (or "the clipboard") in the messages of the
// EInvalidGraphic raised for a damaged, foreign or newer file.
TQzImqzContents QzParseImqz(std::string_view bytes, const AnsiString& source);

// CRC-32 as zlib and PNG compute it.
Cardinal QzImqzCrc32(std::string_view bytes);
