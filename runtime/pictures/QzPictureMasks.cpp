#include "runtime/pictures/QzPictureMasks.h"

#include "runtime/model/QzPkgImages.h"
#include "runtime/pictures/QzPictureBytes.h"
#include "runtime/pictures/Qzdrawutil.h"

#include <QByteArray>

#include <cstring>
#include <vector>

namespace {

constexpr unsigned BlockVersion = 1;

int RowBytes(int width)
{
    return (width + 7) / 8;
}

QImage NewMask(int width, int height)
{
    QImage mask(width, height, QImage::Format_Mono);
    mask.setColorTable({qRgb(255, 255, 255), qRgb(0, 0, 0)});
    mask.fill(0);
    return mask;
}

bool MaskBit(const uchar* line, int x)
{
    return (line[x >> 3] & (0x80 >> (x & 7))) != 0;
}

// The runs of set pixels of one mask line, as [begin, end) pairs.
void LineRuns(const uchar* line, int width, std::vector<int>& runs)
{
    runs.clear();
    int x = 0;
    while (x < width) {
        while (x < width && !MaskBit(line, x))
            ++x;
        if (x == width)
            break;
        const int begin = x;
        while (x < width && MaskBit(line, x))
            ++x;
        runs.push_back(begin);
        runs.push_back(x);
    }
}

// A mask as Format_Mono whatever it came as (an edited QBitmap converted to
// an image, a mask of another mono format).
QImage AsMono(const QImage& mask)
{
    if (mask.format() == QImage::Format_Mono)
        return mask;
    QImage mono = NewMask(mask.width(), mask.height());
    const QImage source = mask.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < mask.height(); ++y) {
        const auto* in = reinterpret_cast<const QRgb*>(source.constScanLine(y));
        uchar* out = mono.scanLine(y);
        for (int x = 0; x < mask.width(); ++x)
            if (qAlpha(in[x]) != 0 && qGray(in[x]) < 128)
                out[x >> 3] |= uchar(0x80 >> (x & 7));
    }
    return mono;
}

unsigned FlagBits(const bool* flags, size_t count)
{
    unsigned bits = 0;
    for (size_t i = 0; i < count; ++i)
        bits |= flags[i] ? 1u << i : 0u;
    return bits;
}

void ReadFlagBits(TQzByteReader& r, bool* flags, size_t count)
{
    const size_t at = r.Position();
    const unsigned bits = r.U8();
    if (bits >> count)
        r.Fail("unknown switches", at);
    for (size_t i = 0; i < count; ++i)
        flags[i] = (bits >> i) & 1u;
}

void ReadVersion(TQzByteReader& r)
{
    const unsigned version = r.U8();
    if (version != BlockVersion)
        r.Fail("block version " + IntToStr(version) + " is not supported", 0);
}

void CheckEnd(const TQzByteReader& r)
{
    if (!r.AtEnd())
        r.Fail("unexpected data at the end of the block");
}

// A design block and the designer's settings are stored alike: the version,
// the flags packed in one byte, then the values. An all-default block is
// not stored at all.
template <typename TBlock>
std::string EncodeFlagsAndValues(const TBlock& block)
{
    if (block == TBlock())
        return {};
    TQzByteWriter w;
    w.U8(BlockVersion);
    w.U8(FlagBits(block.Flags.data(), block.Flags.size()));
    for (const Integer value : block.Values)
        w.I32(value);
    return std::move(w.Result());
}

template <typename TBlock>
TBlock DecodeFlagsAndValues(std::string_view bytes, const AnsiString& what)
{
    TBlock block;
    TQzByteReader r(bytes, what);
    ReadVersion(r);
    ReadFlagBits(r, block.Flags.data(), block.Flags.size());
    for (Integer& value : block.Values)
        value = r.I32();
    CheckEnd(r);
    return block;
}

} // namespace

QImage QzMaskFromColor(const QImage& picture, TColor color)
{
    if (picture.isNull())
        return {};
    const QImage argb = picture.convertToFormat(QImage::Format_ARGB32);
    const QRgb key = (color == QzMaskColorAuto ? argb.pixel(0, argb.height() - 1) : QzColorToQColor(color).rgb()) &
                     0xFFFFFFu;
    QImage mask = NewMask(argb.width(), argb.height());
    for (int y = 0; y < argb.height(); ++y) {
        const auto* in = reinterpret_cast<const QRgb*>(argb.constScanLine(y));
        uchar* out = mask.scanLine(y);
        for (int x = 0; x < argb.width(); ++x)
            if (qAlpha(in[x]) != 0 && (in[x] & 0xFFFFFFu) != key)
                out[x >> 3] |= uchar(0x80 >> (x & 7));
    }
    return mask;
}

Int64 QzMaskClearCount(const QImage& mask)
{
    if (mask.isNull())
        return 0;
    const QImage mono = AsMono(mask);
    Int64 clear = 0;
    for (int y = 0; y < mono.height(); ++y) {
        const uchar* line = mono.constScanLine(y);
        for (int x = 0; x < mono.width(); ++x)
            clear += MaskBit(line, x) ? 0 : 1;
    }
    return clear;
}

QRegion QzMaskRegion(const QImage& mask)
{
    if (mask.isNull())
        return {};
    const QImage mono = AsMono(mask);
    std::vector<QRect> rects;
    std::vector<int> band;     // runs of the open band
    std::vector<int> runs;
    int bandTop = 0;
    const auto closeBand = [&](int bottom) {
        for (size_t i = 0; i < band.size(); i += 2)
            rects.emplace_back(QPoint(band[i], bandTop), QPoint(band[i + 1] - 1, bottom - 1));
    };
    for (int y = 0; y < mono.height(); ++y) {
        LineRuns(mono.constScanLine(y), mono.width(), runs);
        if (runs == band)
            continue;
        closeBand(y);
        band = runs;
        bandTop = y;
    }
    closeBand(mono.height());
    QRegion region;
    if (!rects.empty())
        region.setRects(rects.data(), int(rects.size()));
    return region;
}

std::string QzEncodeMaskBlock(const TQzMaskBlock& block)
{
    if (block.Mask.isNull())
        return {};
    const QImage mono = AsMono(block.Mask);
    const int rowBytes = RowBytes(mono.width());
    QByteArray bits;
    bits.reserve(qsizetype(rowBytes) * mono.height());
    for (int y = 0; y < mono.height(); ++y)
        bits.append(reinterpret_cast<const char*>(mono.constScanLine(y)), rowBytes);
    const QByteArray packed = qCompress(bits, 9);

    TQzByteWriter w;
    w.U8(BlockVersion);
    w.U32(std::uint32_t(mono.width()));
    w.U32(std::uint32_t(mono.height()));
    w.I32(block.Color);
    w.U32(std::uint32_t(packed.size()));
    w.Bytes(std::string_view(packed.constData(), size_t(packed.size())));
    return std::move(w.Result());
}

TQzMaskBlock QzDecodeMaskBlock(std::string_view bytes, const AnsiString& what)
{
    TQzByteReader r(bytes, what);
    ReadVersion(r);
    size_t at = r.Position();
    const std::uint32_t width = r.U32();
    const std::uint32_t height = r.U32();
    if (width < 1 || height < 1 || width > std::uint32_t(QzMaxPictureSide) || height > std::uint32_t(QzMaxPictureSide))
        r.Fail("mask size out of range", at);
    TQzMaskBlock block;
    block.Color = r.I32();
    at = r.Position();
    const std::string_view packed = r.Bytes(r.U32());
    CheckEnd(r);
    const int rowBytes = RowBytes(int(width));
    const Int64 expected = Int64(rowBytes) * height;
    // qUncompress believes the length the data announces; check it first so
    // a hostile block cannot make it allocate more than the mask needs.
    TQzByteReader announced(packed, what);
    const std::uint32_t big = announced.U32();
    const std::uint32_t length = (big >> 24) | ((big >> 8) & 0xFF00u) | ((big << 8) & 0xFF0000u) | (big << 24);
    if (Int64(length) != expected)
        r.Fail("mask data of the wrong length", at);
    const QByteArray bits =
        qUncompress(reinterpret_cast<const uchar*>(packed.data()), qsizetype(packed.size()));
    if (Int64(bits.size()) != expected)
        r.Fail("damaged mask data", at);
    block.Mask = NewMask(int(width), int(height));
    for (int y = 0; y < int(height); ++y)
        std::memcpy(block.Mask.scanLine(y), bits.constData() + qsizetype(y) * rowBytes, size_t(rowBytes));
    return block;
}

std::string QzEncodeImageDesign(const TQzImageDesign& design)
{
    return EncodeFlagsAndValues(design);
}

TQzImageDesign QzDecodeImageDesign(std::string_view bytes, const AnsiString& what)
{
    return DecodeFlagsAndValues<TQzImageDesign>(bytes, what);
}

std::string QzEncodeDesignerSettings(const TQzImagesDesignerSettings& settings)
{
    return EncodeFlagsAndValues(settings);
}

TQzImagesDesignerSettings QzDecodeDesignerSettings(std::string_view bytes, const AnsiString& what)
{
    return DecodeFlagsAndValues<TQzImagesDesignerSettings>(bytes, what);
}

TQzImagesDesignerSettings QzGetDesignerSettings(const TQzPkgImages& package)
{
    const std::string& block = package.Extensions().Get(QzExtDesignerSettings);
    if (block.empty())
        return {};
    try {
        return QzDecodeDesignerSettings(block, "Designer settings of package \"" + package.PkgName() + "\"");
    } catch (const EInvalidGraphic&) {
        // A damaged block from a newer program must not stop the editors:
        // they start from the defaults and overwrite it when saved.
        return {};
    }
}

void QzSetDesignerSettings(TQzPkgImages& package, const TQzImagesDesignerSettings& settings)
{
    const std::string block = QzEncodeDesignerSettings(settings);
    if (block != package.Extensions().Get(QzExtDesignerSettings))
        package.SetExtension(QzExtDesignerSettings, block);
}
