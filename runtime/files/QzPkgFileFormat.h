#pragma once
// The envelope every package file shares: a signature, a short header that
// names the kind of package and the format version and carries the
// description, then the contents. The header carries the contents' length
// and CRC-32 and a CRC-32 of its own, so that a truncated or altered file is
// refused before anything is loaded, and a description is read from the
// header alone. docs/file-formats.md gives the byte layout.

#include "rtl/Filer.h"

// A package file that cannot be read or written. The message names the file
// and says what is wrong with it.
class EQzPkgFileError : public EFilerError {
public:
    EQzPkgFileError(const AnsiString& fileName, const AnsiString& problem, bool writing = false);
    const AnsiString& FileName() const { return FFileName; }
    const AnsiString& Problem() const { return FProblem; }

private:
    AnsiString FFileName;
    AnsiString FProblem;
};

// The eight bytes every package file begins with. The 0x1A and the line
// break catch a file that went through a text-mode copy.
inline constexpr char QzPkgFileSignature[8] = {'Q', 'Z', 'P', 'K', 'G', '\x1A', '\r', '\n'};
inline constexpr Integer QzPkgFileVersion = 1;

// Limits against damaged or hostile files: a count or length beyond them is
// refused before anything is allocated for it.
inline constexpr size_t QzPkgMaxKindLength = 32;
inline constexpr size_t QzPkgMaxDescriptionLength = 64 * 1024;
inline constexpr Int64 QzPkgMaxContentsSize = Int64(1) << 31;  // 2 GiB
// Room for the signature and the largest header.
inline constexpr size_t QzPkgMaxHeaderSize = 8 + 64 + QzPkgMaxDescriptionLength + 64;

struct TQzPkgFileHeader {
    AnsiString Kind;         // "Strings", "Images", ...
    Integer Version = 0;
    AnsiString Description;  // UTF-8
    Int64 ContentsSize = 0;
    Cardinal ContentsCrc = 0;   // the header's own CRC is checked, not kept
};

Cardinal QzCrc32(std::string_view bytes, Cardinal crc = 0);

// The whole file: signature, header and contents.
std::string QzBuildPkgFile(const AnsiString& kind, const AnsiString& description, std::string_view contents);

// Reads the header from the first bytes of a file (all of it, or at least
// QzPkgMaxHeaderSize bytes). fileName is for the messages only. Raises
// EQzPkgFileError for a foreign file, a file of another kind than
// expectedKind, a newer version, or a damaged header.
TQzPkgFileHeader QzParsePkgFileHeader(const AnsiString& fileName, std::string_view bytes,
                                      const AnsiString& expectedKind);

// Checks the whole file and returns where its contents lie in bytes:
// header as above, then the contents' length and CRC.
std::string_view QzPkgFileContents(const AnsiString& fileName, std::string_view bytes,
                                   const AnsiString& expectedKind, TQzPkgFileHeader* header = nullptr);

// Reads only as many bytes as the header can take, so a description is
// shown without reading a large file. Missing files raise EQzPkgFileError.
TQzPkgFileHeader QzReadPkgFileHeader(const AnsiString& fileName, const AnsiString& expectedKind);
