#include "runtime/pictures/QzImqzFile.h"

#include "runtime/pictures/QzPictureBytes.h"

#include <array>
#include <set>

namespace {

std::array<Cardinal, 256> MakeCrcTable()
{
    std::array<Cardinal, 256> table{};
    for (Cardinal n = 0; n < 256; ++n) {
        Cardinal c = n;
        for (int k = 0; k < 8; ++k)
            c = (c & 1u) ? 0xEDB88320u ^ (c >> 1) : c >> 1;
        table[n] = c;
    }
    return table;
}

void CheckSide(const TQzByteReader& r, Integer side, size_t at)
{
    if (side < 1 || side > QzMaxPictureSide)
        r.Fail("picture size " + IntToStr(side) + " out of range 1 to " + IntToStr(QzMaxPictureSide), at);
}

} // namespace

Cardinal QzImqzCrc32(std::string_view bytes)
{
    static const std::array<Cardinal, 256> table = MakeCrcTable();
    Cardinal crc = 0xFFFFFFFFu;
    for (const char ch : bytes)
        crc = table[(crc ^ static_cast<unsigned char>(ch)) & 0xFFu] ^ (crc >> 8);
    return crc ^ 0xFFFFFFFFu;
}

bool QzIsImqz(std::string_view bytes)
{
    return bytes.substr(0, sizeof QzImqzSignature) == std::string_view(QzImqzSignature, sizeof QzImqzSignature);
}

std::string QzBuildImqz(const TQzImqzContents& contents)
{
    const auto refuse = [](const AnsiString& problem) {
        throw EInvalidGraphic("Cannot write the image as an .imqz file: " + problem);
    };
    if (contents.GraphicClass.empty() || contents.GraphicClass.size() > QzImqzMaxClassName)
        refuse("graphic class name \"" + contents.GraphicClass + "\" is empty or too long");
    if (contents.Picture.empty() || contents.Picture.size() > QzMaxPictureBytes)
        refuse("the picture is empty or too large");
    if (contents.Blocks.size() > QzImqzMaxBlocks)
        refuse("too many extension blocks");

    TQzByteWriter w;
    w.Bytes(std::string_view(QzImqzSignature, sizeof QzImqzSignature));
    w.U16(QzImqzVersion);
    w.U16(0);  // flags: none defined yet
    w.ShortText(contents.GraphicClass);
    w.I32(contents.Width);
    w.I32(contents.Height);
    w.U32(static_cast<std::uint32_t>(contents.Picture.size()));
    w.Bytes(contents.Picture);
    w.U32(static_cast<std::uint32_t>(contents.Blocks.size()));
    for (const auto& [name, value] : contents.Blocks) {
        if (name.empty() || name.size() > 255 || value.empty() || value.size() > QzMaxPictureBytes)
            refuse("extension block \"" + name + "\" cannot be stored");
        w.ShortText(name);
        w.U32(static_cast<std::uint32_t>(value.size()));
        w.Bytes(value);
    }
    w.U32(QzImqzCrc32(w.Result()));
    return std::move(w.Result());
}

TQzImqzContents QzParseImqz(std::string_view bytes, const AnsiString& source)
{
    const AnsiString what = "Cannot read the picture \"" + source + "\"";
    TQzByteReader whole(bytes, what);
    if (bytes.size() > QzMaxPictureBytes + 64 * 1024)
        whole.Fail("the file is larger than " + IntToStr(Int64(QzMaxPictureBytes >> 20)) + " MB", 0);
    if (!QzIsImqz(bytes))
        whole.Fail("not an .imqz image file", 0);
    // The CRC first: a damaged file is refused as such, not for whatever
    // its damage happens to look like.
    if (bytes.size() < sizeof QzImqzSignature + 4)
        whole.Fail("unexpected end of data", bytes.size());
    const size_t crcAt = bytes.size() - 4;
    TQzByteReader crcReader(bytes.substr(crcAt), what);
    if (crcReader.U32() != QzImqzCrc32(bytes.substr(0, crcAt)))
        whole.Fail("the file is damaged (checksum mismatch)", crcAt);

    TQzByteReader r(bytes.substr(0, crcAt), what);
    r.Bytes(sizeof QzImqzSignature);
    size_t at = r.Position();
    const unsigned version = r.U16();
    if (version < 1 || version > QzImqzVersion)
        r.Fail("format version " + IntToStr(version) + " is not supported (this program reads version " +
                   IntToStr(QzImqzVersion) + ")",
               at);
    at = r.Position();
    if (r.U16() != 0)
        r.Fail("unknown flags", at);

    TQzImqzContents contents;
    at = r.Position();
    contents.GraphicClass = AnsiString(r.ShortText());
    if (contents.GraphicClass.empty() || contents.GraphicClass.size() > QzImqzMaxClassName)
        r.Fail("invalid graphic class name", at);
    at = r.Position();
    contents.Width = r.I32();
    CheckSide(r, contents.Width, at);
    at = r.Position();
    contents.Height = r.I32();
    CheckSide(r, contents.Height, at);
    at = r.Position();
    const std::uint32_t pictureSize = r.U32();
    if (pictureSize == 0 || pictureSize > QzMaxPictureBytes)
        r.Fail("picture size " + IntToStr(Int64(pictureSize)) + " out of range", at);
    contents.Picture = std::string(r.Bytes(pictureSize));

    at = r.Position();
    const std::uint32_t count = r.U32();
    if (count > QzImqzMaxBlocks)
        r.Fail("too many extension blocks (" + IntToStr(Int64(count)) + ")", at);
    std::set<AnsiString> names;
    for (std::uint32_t i = 0; i < count; ++i) {
        at = r.Position();
        AnsiString name(r.ShortText());
        if (name.empty() || !names.insert(name).second)
            r.Fail("empty or repeated extension block name \"" + name + "\"", at);
        at = r.Position();
        const std::uint32_t size = r.U32();
        if (size == 0 || size > QzMaxPictureBytes)
            r.Fail("extension block size " + IntToStr(Int64(size)) + " out of range", at);
        contents.Blocks.emplace_back(std::move(name), std::string(r.Bytes(size)));
    }
    if (!r.AtEnd())
        r.Fail("unexpected data after the last block");
    return contents;
}
