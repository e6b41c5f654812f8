// Images packages of 1,000 pictures: saving and loading the package file,
// taking pictures in (decode and check), and drawing the editors' thumbnails
// cold and from the cache. Figures go to docs/performance.md ("Images").

#include "runtime/files/QzPkgFiles.h"
#include "runtime/model/QzPkgImages.h"
#include "runtime/pictures/QzPicture.h"
#include "runtime/pictures/QzPictureDraw.h"

#include <QBuffer>
#include <QDir>
#include <QImage>

#include <benchmark/benchmark.h>

#include <memory>
#include <random>
#include <vector>

namespace {

constexpr int PictureCount = 1000;
constexpr int Side = 64;

// 64 x 64 PNGs, each different: a gradient with noise, so they compress
// like icons and small photos rather than like flat colour.
const std::vector<std::string>& Pictures()
{
    static const std::vector<std::string> pictures = [] {
        std::vector<std::string> out;
        std::mt19937 random(42);
        for (int i = 0; i < PictureCount; ++i) {
            QImage picture(Side, Side, QImage::Format_RGB32);
            for (int y = 0; y < Side; ++y)
                for (int x = 0; x < Side; ++x)
                    picture.setPixel(x, y,
                                     qRgb((x * 4 + i) & 0xFF, (y * 4) & 0xFF, int(random() % 32) + (i % 7) * 30));
            for (int y = 20; y < 44; ++y)  // a block of the transparent colour
                for (int x = 20; x < 44; ++x)
                    picture.setPixel(x, y, qRgb(255, 0, 255));
            QByteArray bytes;
            QBuffer buffer(&bytes);
            buffer.open(QIODevice::WriteOnly);
            picture.save(&buffer, "PNG");
            out.push_back(bytes.toStdString());
        }
        return out;
    }();
    return pictures;
}

void Fill(TQzPkgImages& package, bool withMasks)
{
    const std::vector<std::string>& pictures = Pictures();
    for (int i = 0; i < PictureCount; ++i) {
        TQzPkgImagesImage* image = package.Images()->Add(i);
        TQzPicture picture(image);
        picture.LoadFromBytes(pictures[size_t(i)], "bench.png");
        if (withMasks)
            picture.CreateInternalMask(0x00FF00FF);
    }
}

AnsiString PackageFile()
{
    return QDir::temp().filePath("qz_bench_images.pim").toStdString();
}

void BM_SaveImagesPackage(benchmark::State& state)
{
    TQzPkgImages package(nullptr);
    Fill(package, true);
    TQzPkgFileCodec codec(QzPkgKindImages);
    Int64 bytes = 0;
    for (auto _ : state) {
        codec.SaveToFile(package, PackageFile());
        bytes = Int64(codec.BuildFile(package).size());
    }
    state.counters["file_KB"] = double(bytes) / 1024.0;
    state.SetItemsProcessed(state.iterations() * PictureCount);
}
BENCHMARK(BM_SaveImagesPackage)->Unit(benchmark::kMillisecond);

void BM_LoadImagesPackage(benchmark::State& state)
{
    {
        TQzPkgImages source(nullptr);
        Fill(source, true);
        TQzPkgFileCodec(QzPkgKindImages).SaveToFile(source, PackageFile());
    }
    TQzPkgImages package(nullptr);
    TQzPkgFileCodec codec(QzPkgKindImages);
    for (auto _ : state) {
        codec.LoadFromFile(package, PackageFile());
        benchmark::DoNotOptimize(package.Images()->Count());
    }
    state.SetItemsProcessed(state.iterations() * PictureCount);
}
BENCHMARK(BM_LoadImagesPackage)->Unit(benchmark::kMillisecond);

// What adding 1,000 pictures from files costs beyond reading them: format
// detection, decoding (which checks them) and storing.
void BM_TakePicturesIn(benchmark::State& state)
{
    const std::vector<std::string>& pictures = Pictures();
    for (auto _ : state) {
        TQzPkgImages package(nullptr);
        for (int i = 0; i < PictureCount; ++i)
            TQzPicture(package.Images()->Add(i)).LoadFromBytes(pictures[size_t(i)], "bench.png");
    }
    state.SetItemsProcessed(state.iterations() * PictureCount);
}
BENCHMARK(BM_TakePicturesIn)->Unit(benchmark::kMillisecond);

void BM_MasksFromColour(benchmark::State& state)
{
    TQzPkgImages package(nullptr);
    Fill(package, false);
    for (auto _ : state)
        for (int i = 0; i < PictureCount; ++i)
            TQzPicture(package.Images()->GetItems(i)).CreateInternalMask(0x00FF00FF);
    state.SetItemsProcessed(state.iterations() * PictureCount);
}
BENCHMARK(BM_MasksFromColour)->Unit(benchmark::kMillisecond);

// Thumbnails of a whole package into 62 x 62 cells, transparent through the
// masks and stretched, as the grids draw them: first with an empty cache,
// then the repaint that finds every one cached.
void Thumbnails(benchmark::State& state, bool warm)
{
    TQzPkgImages package(nullptr);
    Fill(package, true);
    TQzDrawOptions options;
    options.Transparent = true;
    options.Stretch = true;
    const QSize cell(62, 62);
    TQzThumbnailCache cache;
    for (auto _ : state) {
        if (!warm)
            cache.Clear();
        for (int i = 0; i < PictureCount; ++i)
            benchmark::DoNotOptimize(cache.Thumbnail(package.Images()->GetItems(i), cell, options).width());
    }
    state.SetItemsProcessed(state.iterations() * PictureCount);
}

void BM_ThumbnailsCold(benchmark::State& state)
{
    Thumbnails(state, false);
}
BENCHMARK(BM_ThumbnailsCold)->Unit(benchmark::kMillisecond);

void BM_ThumbnailsCached(benchmark::State& state)
{
    Thumbnails(state, true);
}
BENCHMARK(BM_ThumbnailsCached)->Unit(benchmark::kMillisecond);

} // namespace
