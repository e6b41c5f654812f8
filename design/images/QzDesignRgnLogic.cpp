#include "design/images/QzDesignRgnLogic.h"

#include "runtime/pictures/QzPicture.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr uint Keep = 1;
constexpr uint Cut = 0;

QImage FullMask(QSize size)
{
    QImage mask(size, QImage::Format_Mono);
    mask.setColorTable({qRgb(255, 255, 255), qRgb(0, 0, 0)});
    mask.fill(Keep);
    return mask;
}

QImage StartMask(const QImage& mask, QSize size)
{
    if (mask.isNull() || mask.size() != size)
        return FullMask(size);
    QImage mono = mask.format() == QImage::Format_Mono ? mask : mask.convertToFormat(QImage::Format_Mono);
    mono.detach();
    return mono;
}

bool Inside(const QImage& image, QPoint p)
{
    return p.x() >= 0 && p.y() >= 0 && p.x() < image.width() && p.y() < image.height();
}

}  // namespace

TQzRgnDocument::TQzRgnDocument(const QImage& picture, const QImage& internalMask, const QImage& externalMask)
    : FPicture(picture.convertToFormat(QImage::Format_ARGB32))
{
    FMasks = {StartMask(internalMask, FPicture.size()), StartMask(externalMask, FPicture.size())};
    FOriginal = FMasks;
}

TQzRgnDocument TQzRgnDocument::FromPicture(const TQzPicture& picture)
{
    const QImage decoded = picture.Decode();
    if (decoded.isNull())
        throw EInvalidGraphic("The image is empty: there is no picture to edit the mask of");
    return TQzRgnDocument(decoded, picture.GetInternalMask(), picture.GetExternalMask());
}

void TQzRgnDocument::Commit(const QImage& before)
{
    if (before == Current())
        return;
    FUndo.push_back({FKind, before});
    if (static_cast<int>(FUndo.size()) > MaxUndo)
        FUndo.erase(FUndo.begin());
    FRedo.clear();
}

void TQzRgnDocument::Dab(QPoint centre, bool cut, int size)
{
    QImage& mask = Current();
    const int first = -(size - 1) / 2;
    const double middle = (size - 1) / 2.0;
    const double radius2 = size * size / 4.0;
    for (int j = 0; j < size; ++j)
        for (int i = 0; i < size; ++i) {
            const double dx = i - middle, dy = j - middle;
            const QPoint p = centre + QPoint(first + i, first + j);
            if (dx * dx + dy * dy <= radius2 && Inside(mask, p))
                mask.setPixel(p, cut ? Cut : Keep);
        }
}

void TQzRgnDocument::BeginStroke(bool cut, int size)
{
    if (FStroke.Active)
        EndStroke();
    FStroke = {true, cut, std::clamp(size, 1, MaxBrush), false, {}, Current().copy()};
}

void TQzRgnDocument::StrokeTo(QPoint point)
{
    if (!FStroke.Active)
        return;
    // Bresenham between the last point and this one, so a fast mouse still
    // leaves an unbroken line.
    QPoint from = FStroke.HasLast ? FStroke.Last : point;
    const int dx = std::abs(point.x() - from.x()), dy = -std::abs(point.y() - from.y());
    const int sx = from.x() < point.x() ? 1 : -1, sy = from.y() < point.y() ? 1 : -1;
    int error = dx + dy;
    for (;;) {
        Dab(from, FStroke.Cut, FStroke.Size);
        if (from == point)
            break;
        const int e2 = 2 * error;
        if (e2 >= dy) {
            error += dy;
            from.rx() += sx;
        }
        if (e2 <= dx) {
            error += dx;
            from.ry() += sy;
        }
    }
    FStroke.Last = point;
    FStroke.HasLast = true;
}

void TQzRgnDocument::EndStroke()
{
    if (!FStroke.Active)
        return;
    FStroke.Active = false;
    Commit(FStroke.Before);
    FStroke.Before = QImage();
}

void TQzRgnDocument::Fill(QPoint seed, bool cut, bool byColor)
{
    QImage& mask = Current();
    if (!Inside(mask, seed))
        return;
    const QImage before = mask.copy();
    const int width = mask.width(), height = mask.height();
    const QRgb seedColor = FPicture.pixel(seed);
    const uint seedValue = uint(before.pixelIndex(seed));
    auto matches = [&](int x, int y) {
        return byColor ? reinterpret_cast<const QRgb*>(FPicture.constScanLine(y))[x] == seedColor
                       : uint(before.pixelIndex(x, y)) == seedValue;
    };
    std::vector<unsigned char> seen(size_t(width) * size_t(height), 0);
    std::vector<QPoint> stack{seed};
    // Scan-line fill: each popped point grows into its whole run, and only
    // the rows above and below are pushed, once per run that starts there.
    while (!stack.empty()) {
        const QPoint p = stack.back();
        stack.pop_back();
        const int y = p.y();
        if (seen[size_t(y) * width + p.x()])
            continue;
        int left = p.x(), right = p.x();
        while (left > 0 && !seen[size_t(y) * width + left - 1] && matches(left - 1, y))
            --left;
        while (right + 1 < width && !seen[size_t(y) * width + right + 1] && matches(right + 1, y))
            ++right;
        for (int x = left; x <= right; ++x) {
            seen[size_t(y) * width + x] = 1;
            mask.setPixel(x, y, cut ? Cut : Keep);
        }
        for (int ny : {y - 1, y + 1}) {
            if (ny < 0 || ny >= height)
                continue;
            bool inRun = false;
            for (int x = left; x <= right; ++x) {
                const bool open = !seen[size_t(ny) * width + x] && matches(x, ny);
                if (open && !inRun)
                    stack.emplace_back(x, ny);
                inRun = open;
            }
        }
    }
    Commit(before);
}

void TQzRgnDocument::Invert()
{
    const QImage before = Current().copy();
    Current().invertPixels();
    Commit(before);
}

void TQzRgnDocument::SetAll(bool cut)
{
    const QImage before = Current().copy();
    Current().fill(cut ? Cut : Keep);
    Commit(before);
}

void TQzRgnDocument::Swap(std::vector<TStep>& from, std::vector<TStep>& to)
{
    if (from.empty())
        return;
    TStep step = std::move(from.back());
    from.pop_back();
    QImage& mask = FMasks[Index(step.Kind)];
    to.push_back({step.Kind, mask});
    mask = std::move(step.Before);
    // The user sees the mask the step changed.
    FKind = step.Kind;
}

void TQzRgnDocument::Undo()
{
    EndStroke();
    Swap(FUndo, FRedo);
}

void TQzRgnDocument::Redo()
{
    Swap(FRedo, FUndo);
}

bool TQzRgnDocument::Modified(TQzMaskKind kind) const
{
    return FMasks[Index(kind)] != FOriginal[Index(kind)];
}

QImage TQzRgnDocument::StoredMask(TQzMaskKind kind) const
{
    const QImage& mask = Mask(kind);
    return QzMaskClearCount(mask) == 0 ? QImage() : mask;
}

bool TQzRgnDocument::Store(TQzPicture& picture) const
{
    bool stored = false;
    if (Modified(TQzMaskKind::Internal)) {
        picture.SetInternalMask(StoredMask(TQzMaskKind::Internal));
        stored = true;
    }
    if (Modified(TQzMaskKind::External)) {
        picture.SetExternalMask(StoredMask(TQzMaskKind::External));
        stored = true;
    }
    return stored;
}

QImage TQzRgnDocument::Preview() const
{
    QImage preview = FPicture.copy();
    const QImage& mask = Mask(FKind);
    for (int y = 0; y < preview.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(preview.scanLine(y));
        for (int x = 0; x < preview.width(); ++x)
            if (mask.pixelIndex(x, y) == int(Cut))
                line[x] = 0;
    }
    return preview;
}
