#include "runtime/files/QzPkgFileFormat.h"

#include "runtime/model/QzTypes.h"

#include <array>
#include <cstring>

namespace {

constexpr size_t SignatureSize = sizeof QzPkgFileSignature;

// Eight tables, so that the checksum takes eight bytes per step ("slicing
// by 8"): a 100,000-label file is checked in a few milliseconds.
using TCrcTables = std::array<std::array<Cardinal, 256>, 8>;

constexpr TCrcTables MakeCrcTables()
{
    TCrcTables t{};
    for (Cardinal n = 0; n < 256; ++n) {
        Cardinal c = n;
        for (int k = 0; k < 8; ++k)
            c = (c & 1) ? 0xEDB88320u ^ (c >> 1) : c >> 1;
        t[0][n] = c;
    }
    for (Cardinal n = 0; n < 256; ++n)
        for (size_t k = 1; k < 8; ++k)
            t[k][n] = (t[k - 1][n] >> 8) ^ t[0][t[k - 1][n] & 0xFFu];
    return t;
}

constexpr TCrcTables CrcTables = MakeCrcTables();

[[noreturn]] void Fail(const AnsiString& fileName, const AnsiString& problem)
{
    throw EQzPkgFileError(fileName, problem);
}

bool PlainKindName(const AnsiString& kind)
{
    if (kind.empty() || kind.size() > QzPkgMaxKindLength)
        return false;
    for (char c : kind)
        if (!((c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')))
            return false;
    return true;
}

// Parses the header and tells where the contents start. The header's own
// checksum is verified before its kind is looked at, so a damaged header is
// reported as damaged rather than as a package of some other kind.
TQzPkgFileHeader ParseHeader(const AnsiString& fileName, std::string_view bytes, const AnsiString& expectedKind,
                             size_t& contentsStart)
{
    if (bytes.size() < SignatureSize) {
        if (!bytes.empty() && std::memcmp(bytes.data(), QzPkgFileSignature, bytes.size()) == 0)
            Fail(fileName, "the file is truncated");
        Fail(fileName, "it is not a package file");
    }
    if (std::memcmp(bytes.data(), QzPkgFileSignature, SignatureSize) != 0)
        Fail(fileName, "it is not a package file");

    TQzPkgFileHeader header;
    TReader reader(bytes.substr(SignatureSize));
    try {
        if (reader.NextValue() != vaString)
            Fail(fileName, "its header is damaged (no package kind)");
        header.Kind = reader.ReadString();
        const Int64 version = reader.ReadInt64();
        if (version > QzPkgFileVersion)
            Fail(fileName, Format("it was written in format version %d, newer than this program reads (%d)",
                                  version, QzPkgFileVersion));
        if (version < 1)
            Fail(fileName, Format("its header is damaged (format version %d)", version));
        header.Version = Integer(version);
        if (reader.NextValue() != vaUTF8String)
            Fail(fileName, "its header is damaged (no description)");
        header.Description = reader.ReadUnicodeString();
        header.ContentsSize = reader.ReadInt64();
        const Int64 contentsCrc = reader.ReadInt64();
        const size_t checked = SignatureSize + reader.Position();
        const Int64 headerCrc = reader.ReadInt64();
        if (headerCrc != Int64(QzCrc32(bytes.substr(0, checked))))
            Fail(fileName, "its header is damaged (checksum mismatch)");
        if (contentsCrc < 0 || contentsCrc > Int64(0xFFFFFFFFu))
            Fail(fileName, "its header is damaged (bad checksum field)");
        header.ContentsCrc = Cardinal(contentsCrc);
    } catch (const EQzPkgFileError&) {
        throw;
    } catch (const Exception& e) {
        // The filer counts offsets from where it started: after the signature.
        Fail(fileName, "its header is damaged or truncated (" + e.Message() + " after the signature)");
    }
    if (!PlainKindName(header.Kind))
        Fail(fileName, "its header is damaged (bad package kind)");
    if (!SameText(header.Kind, expectedKind))
        Fail(fileName, Format("it holds a package of kind %s, not %s", header.Kind, expectedKind));
    if (header.Description.size() > QzPkgMaxDescriptionLength)
        Fail(fileName, "its header is damaged (description too long)");
    if (header.ContentsSize < 0 || header.ContentsSize > QzPkgMaxContentsSize)
        Fail(fileName, Format("its header is damaged (contents size %d)", header.ContentsSize));
    contentsStart = SignatureSize + reader.Position();
    return header;
}

} // namespace

EQzPkgFileError::EQzPkgFileError(const AnsiString& fileName, const AnsiString& problem, bool writing)
    : EFilerError(Format(writing ? "Cannot write the package file '%s': %s" : "Cannot read the package file '%s': %s",
                         fileName, problem)),
      FFileName(fileName),
      FProblem(problem)
{
}

Cardinal QzCrc32(std::string_view bytes, Cardinal crc)
{
    const auto& t = CrcTables;
    crc = ~crc;
    const auto* p = reinterpret_cast<const unsigned char*>(bytes.data());
    size_t n = bytes.size();
    for (; n >= 8; p += 8, n -= 8) {
        const Cardinal lo = crc ^ (Cardinal(p[0]) | Cardinal(p[1]) << 8 | Cardinal(p[2]) << 16 | Cardinal(p[3]) << 24);
        crc = t[7][lo & 0xFFu] ^ t[6][(lo >> 8) & 0xFFu] ^ t[5][(lo >> 16) & 0xFFu] ^ t[4][lo >> 24] ^
              t[3][p[4]] ^ t[2][p[5]] ^ t[1][p[6]] ^ t[0][p[7]];
    }
    for (; n > 0; ++p, --n)
        crc = t[0][(crc ^ *p) & 0xFFu] ^ (crc >> 8);
    return ~crc;
}

std::string QzBuildPkgFile(const AnsiString& kind, const AnsiString& description, std::string_view contents)
{
    QZ_ASSERT(PlainKindName(kind), "package kind name");
    if (description.size() > QzPkgMaxDescriptionLength)
        throw EQzPkgError(Format("The package description is longer than %d bytes", int(QzPkgMaxDescriptionLength)));
    if (Int64(contents.size()) > QzPkgMaxContentsSize)
        throw EQzPkgError("The package is too large for a package file");
    TWriter writer;
    writer.WriteRaw(QzPkgFileSignature, SignatureSize);
    writer.WriteString(kind);
    writer.WriteInteger(QzPkgFileVersion);
    writer.WriteUTF8String(description);
    writer.WriteInteger(Int64(contents.size()));
    writer.WriteInteger(Int64(QzCrc32(contents)));
    writer.WriteInteger(Int64(QzCrc32(writer.Buffer())));
    std::string bytes = std::move(writer.Buffer());
    bytes.append(contents);
    return bytes;
}

TQzPkgFileHeader QzParsePkgFileHeader(const AnsiString& fileName, std::string_view bytes,
                                      const AnsiString& expectedKind)
{
    size_t contentsStart = 0;
    return ParseHeader(fileName, bytes, expectedKind, contentsStart);
}

std::string_view QzPkgFileContents(const AnsiString& fileName, std::string_view bytes,
                                   const AnsiString& expectedKind, TQzPkgFileHeader* header)
{
    size_t start = 0;
    const TQzPkgFileHeader parsed = ParseHeader(fileName, bytes, expectedKind, start);
    const Int64 present = Int64(bytes.size() - start);
    if (present < parsed.ContentsSize)
        Fail(fileName, Format("the file is truncated (%d of %d bytes of contents)", present, parsed.ContentsSize));
    if (present > parsed.ContentsSize)
        Fail(fileName, Format("it has %d unexpected bytes after its contents", present - parsed.ContentsSize));
    const std::string_view contents = bytes.substr(start);
    if (QzCrc32(contents) != parsed.ContentsCrc)
        Fail(fileName, "its contents are damaged (checksum mismatch)");
    if (header)
        *header = parsed;
    return contents;
}

TQzPkgFileHeader QzReadPkgFileHeader(const AnsiString& fileName, const AnsiString& expectedKind)
{
    if (!FileExists(fileName))
        Fail(fileName, "the file does not exist");
    std::string bytes(QzPkgMaxHeaderSize, '\0');
    Int64 count = 0;
    try {
        TFileStream stream(fileName, fmOpenRead);
        count = stream.Read(bytes.data(), Int64(bytes.size()));
    } catch (const Exception& e) {
        Fail(fileName, e.Message());
    }
    bytes.resize(size_t(count));
    return QzParsePkgFileHeader(fileName, bytes, expectedKind);
}
