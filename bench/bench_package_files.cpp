// Package files: saving and loading a strings package of 100,000 labels and
// an images package of 1,000 pictures, and reading a description from the
// header alone. Figures are in docs/performance.md ("Package files").

#include "runtime/files/QzPkgFiles.h"
#include "runtime/model/QzPkgImages.h"
#include "runtime/model/QzPkgStrings.h"
#include "runtime/model/QzRegistry.h"

#include <benchmark/benchmark.h>

#include <unistd.h>

#include <filesystem>
#include <memory>

namespace fs = std::filesystem;

namespace {

fs::path BenchFile(const char* name)
{
    const fs::path dir = fs::temp_directory_path() / ("qz_bench_files_" + std::to_string(getpid()));
    fs::create_directories(dir);
    return dir / name;
}

std::unique_ptr<TQzPkgStrings> MakeStrings(int labels)
{
    auto pkg = std::make_unique<TQzPkgStrings>(nullptr);
    pkg->SetDescription("Benchmark labels");
    pkg->Labels()->BeginUpdate();
    for (int id = 0; id < labels; ++id)
        pkg->Labels()->Add(id, "Label text number " + IntToStr(id), id % 4 == 0 ? "A hint for it" : "");
    pkg->Labels()->EndUpdate();
    return pkg;
}

std::unique_ptr<TQzPkgImages> MakeImages(int images, int bytesEach)
{
    auto pkg = std::make_unique<TQzPkgImages>(nullptr);
    pkg->Images()->BeginUpdate();
    std::string picture(size_t(bytesEach), '\0');
    for (int id = 0; id < images; ++id) {
        for (size_t i = 0; i < picture.size(); ++i)
            picture[i] = char((i * 131 + size_t(id) * 7) & 0xFF);
        pkg->Images()->Add(id)->SetPicture(picture, "TPngImage", 32, 32);
    }
    pkg->Images()->EndUpdate();
    return pkg;
}

void SetUp()
{
    static bool done = false;
    if (!done) {
        RegisterQzPkgFileFormats();
        done = true;
    }
}

void BM_SaveStrings100k(benchmark::State& state)
{
    SetUp();
    TQzDetachedPkgs detached;
    auto pkg = MakeStrings(100000);
    const fs::path file = BenchFile("labels.pst");
    for (auto _ : state)
        pkg->SaveToFile(file.string());
    state.counters["bytes"] = double(fs::file_size(file));
}
BENCHMARK(BM_SaveStrings100k)->Unit(benchmark::kMillisecond);

// The same without the disk: building the file's bytes in memory.
void BM_BuildStrings100k(benchmark::State& state)
{
    SetUp();
    TQzDetachedPkgs detached;
    auto pkg = MakeStrings(100000);
    TQzPkgFileCodec codec(QzPkgKindStrings);
    for (auto _ : state)
        benchmark::DoNotOptimize(codec.BuildFile(*pkg));
}
BENCHMARK(BM_BuildStrings100k)->Unit(benchmark::kMillisecond);

void BM_LoadStrings100k(benchmark::State& state)
{
    SetUp();
    TQzDetachedPkgs detached;
    const fs::path file = BenchFile("labels.pst");
    MakeStrings(100000)->SaveToFile(file.string());
    TQzPkgStrings pkg(nullptr);
    for (auto _ : state)
        pkg.LoadFromFile(file.string());
    if (pkg.Labels()->Count() != 100000)
        state.SkipWithError("labels missing after loading");
}
BENCHMARK(BM_LoadStrings100k)->Unit(benchmark::kMillisecond);

// The envelope's share of a load: reading the file and checking its
// header, length and checksums, without building any label.
void BM_VerifyStrings100k(benchmark::State& state)
{
    SetUp();
    TQzDetachedPkgs detached;
    const fs::path file = BenchFile("labels.pst");
    MakeStrings(100000)->SaveToFile(file.string());
    for (auto _ : state) {
        const std::string bytes = ReadFileBytes(file.string());
        benchmark::DoNotOptimize(QzPkgFileContents(file.string(), bytes, QzPkgKindStrings));
    }
}
BENCHMARK(BM_VerifyStrings100k)->Unit(benchmark::kMillisecond);

void BM_DescriptionStrings100k(benchmark::State& state)
{
    SetUp();
    TQzDetachedPkgs detached;
    const fs::path file = BenchFile("labels.pst");
    MakeStrings(100000)->SaveToFile(file.string());
    for (auto _ : state)
        benchmark::DoNotOptimize(QzReadPkgStringsDescription(file.string()));
}
BENCHMARK(BM_DescriptionStrings100k)->Unit(benchmark::kMicrosecond);

// 1,000 pictures of 4 KiB each: 4 MB of picture data.
void BM_SaveImages1000(benchmark::State& state)
{
    SetUp();
    TQzDetachedPkgs detached;
    auto pkg = MakeImages(1000, 4096);
    const fs::path file = BenchFile("pictures.pim");
    for (auto _ : state)
        pkg->SaveToFile(file.string());
    state.counters["bytes"] = double(fs::file_size(file));
}
BENCHMARK(BM_SaveImages1000)->Unit(benchmark::kMillisecond);

void BM_LoadImages1000(benchmark::State& state)
{
    SetUp();
    TQzDetachedPkgs detached;
    const fs::path file = BenchFile("pictures.pim");
    MakeImages(1000, 4096)->SaveToFile(file.string());
    TQzPkgImages pkg(nullptr);
    for (auto _ : state)
        pkg.LoadFromFile(file.string());
    if (pkg.Images()->Count() != 1000)
        state.SkipWithError("images missing after loading");
}
BENCHMARK(BM_LoadImages1000)->Unit(benchmark::kMillisecond);

} // namespace
