// qzpkg images export and import of 1,000 pictures: a package written as
// PNG files with a manifest (masks applied as alpha), and the folder read
// back into a package, by manifest and by file names. Beside them, the
// package file itself written and read, which is what the exchange is
// compared with in docs/performance.md ("Images exchange").

#include "design/images/QzImagesExchange.h"
#include "runtime/files/QzPkgFiles.h"
#include "runtime/model/QzRegistry.h"
#include "runtime/pictures/QzPicture.h"
#include "runtime/pictures/QzPng.h"

#include <QImage>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <random>

namespace {

constexpr int PictureCount = 1000;
constexpr int Side = 64;

std::unique_ptr<TQzPkgImages> NewPackage()
{
    TQzDetachedPkgs detached;
    return std::make_unique<TQzPkgImages>(nullptr);
}

// 64 x 64 pictures, each different, with a block of magenta that their
// masks cut away, as icons with a transparent colour have.
const TQzPkgImages& Source()
{
    static const std::unique_ptr<TQzPkgImages> package = [] {
        auto pkg = NewPackage();
        std::mt19937 random(7);
        for (int i = 0; i < PictureCount; ++i) {
            QImage picture(Side, Side, QImage::Format_RGB32);
            for (int y = 0; y < Side; ++y)
                for (int x = 0; x < Side; ++x)
                    picture.setPixel(x, y, qRgb((x * 4 + i) & 0xFF, (y * 4) & 0xFF, int(random() % 32)));
            for (int y = 20; y < 44; ++y)
                for (int x = 20; x < 44; ++x)
                    picture.setPixel(x, y, qRgb(255, 0, 255));
            TQzPicture image(pkg->Images()->Add(i));
            image.LoadFromBytes(QzPicturePng(picture).toStdString(), "bench.png");
            image.CreateInternalMask(0x00FF00FF);
        }
        return pkg;
    }();
    return *package;
}

void BM_ExportImages(benchmark::State& state)
{
    const TQzPkgImages& source = Source();
    QTemporaryDir dir;
    Int64 bytes = 0;
    for (auto _ : state) {
        bytes = 0;
        for (const TQzImagesManifestRow& row : QzExportImages(source, dir.path().toStdString()).Rows)
            bytes += row.Bytes;
    }
    state.SetItemsProcessed(state.iterations() * PictureCount);
    state.counters["png_bytes_each"] = double(bytes) / PictureCount;
}
BENCHMARK(BM_ExportImages)->Unit(benchmark::kMillisecond);

void BM_ImportImages(benchmark::State& state)
{
    QTemporaryDir dir;
    QzExportImages(Source(), dir.path().toStdString());
    if (state.range(0) == 0)  // by file names alone
        std::filesystem::remove(dir.filePath(QzImagesManifestName).toStdString());
    for (auto _ : state) {
        auto target = NewPackage();
        benchmark::DoNotOptimize(QzImportImages(*target, dir.path().toStdString()));
    }
    state.SetItemsProcessed(state.iterations() * PictureCount);
}
BENCHMARK(BM_ImportImages)->Arg(1)->Arg(0)->ArgName("manifest")->Unit(benchmark::kMillisecond);

// The package file of the same images, for comparison.
void BM_PackageFileRoundTrip(benchmark::State& state)
{
    RegisterQzPkgFileFormats();
    QTemporaryDir dir;
    const std::string file = dir.filePath("bench.pim").toStdString();
    auto source = NewPackage();
    source->Images()->BeginUpdate();
    for (int i = 0; i < Source().Images()->Count(); ++i)
        source->Images()->Add(i)->Assign(Source().Images()->GetItems(i));
    source->Images()->EndUpdate();
    for (auto _ : state) {
        TQzPkgFileCodec(QzPkgKindImages).SaveToFile(*source, file);
        auto target = NewPackage();
        TQzPkgFileCodec(QzPkgKindImages).LoadFromFile(*target, file);
        benchmark::DoNotOptimize(target->Images()->Count());
    }
    state.SetItemsProcessed(state.iterations() * PictureCount);
}
BENCHMARK(BM_PackageFileRoundTrip)->Unit(benchmark::kMillisecond);

}  // namespace
