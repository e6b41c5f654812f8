// Form conversion and loading on the corpus's largest forms: throughput in
// bytes per second and the peak memory the conversion holds, as a multiple
// of the input's size.

#include "rtl/CodePageGuess.h"
#include "rtl/ComponentStream.h"
#include "rtl/FormText.h"

#include <benchmark/benchmark.h>

#include <atomic>
#include <cstdlib>
#include <malloc.h>
#include <new>

namespace {

// Live and peak heap bytes, counted by the global allocation functions below.
std::atomic<size_t> LiveBytes{0};
std::atomic<size_t> PeakBytes{0};

void CountAllocation(void* p)
{
    if (!p)
        return;
    size_t now = LiveBytes += malloc_usable_size(p);
    size_t peak = PeakBytes.load();
    while (now > peak && !PeakBytes.compare_exchange_weak(peak, now)) {
    }
}

std::string Corpus(const char* path)
{
    return ReadFileBytes(std::string(QZ_CORPUS_DIR) + "/dfm/" + path);
}

// The largest text forms and the largest compiled ones.
const char* const LargeText = "HeidiSQL__HeidiSQL/source/main.dfm";
const char* const MediumText = "Embarcadero__Dev-Cpp@629720d/source/datamod.dfm";
const char* const LargeResource =
    "project-jedi__jvcl/tests/archive/jvcl/Globus/Demos/Globus Lib - Visual Components Demo/glDemo.dfm";

// Runs one conversion per iteration and reports bytes per second and the
// peak extra memory of one conversion relative to its input.
template <typename Convert>
void RunConversion(benchmark::State& state, const std::string& input, Convert convert)
{
    size_t peakRatioBase = LiveBytes.load();
    PeakBytes = peakRatioBase;
    for (auto _ : state) {
        std::string out = convert(input);
        benchmark::DoNotOptimize(out.data());
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(input.size()));
    state.counters["peak_memory_x_input"] = double(PeakBytes.load() - peakRatioBase) / double(input.size());
}

void BM_TextToBinary(benchmark::State& state, const char* path)
{
    std::string text = Corpus(path);
    TFormTextOptions options = DetectFormTextOptions(text);
    RunConversion(state, text, [&](const std::string& in) { return FormTextToBinary(in, options); });
}

void BM_BinaryToText(benchmark::State& state, const char* path)
{
    std::string original = Corpus(path);
    TFormTextOptions options = DetectFormTextOptions(original);
    std::string binary = FormToBinary(original, options);
    RunConversion(state, binary, [&](const std::string& in) { return FormBinaryToText(in, options); });
}

// A stream that only counts what it is given: the conversion's own memory
// without the output's.
class TCountingStream : public TStream {
public:
    Int64 Read(void*, Int64) override { return 0; }
    Int64 Write(const void*, Int64 count) override { return FSize += count, count; }
    Int64 Seek(Int64, TSeekOrigin) override { return FSize; }

private:
    Int64 FSize = 0;
};

void BM_BinaryToTextStream(benchmark::State& state, const char* path)
{
    std::string original = Corpus(path);
    TFormTextOptions options = DetectFormTextOptions(original);
    std::string binary = FormToBinary(original, options);
    RunConversion(state, binary, [&](const std::string& in) {
        TReadOnlyMemoryStream input(in);
        TCountingStream output;
        ObjectBinaryToText(input, output, options);
        return std::string();
    });
}

void BM_LoadForm(benchmark::State& state, const char* path)
{
    RegisterComponentStreamClasses();
    std::string binary = FormToBinary(Corpus(path));
    for (auto _ : state) {
        std::unique_ptr<TComponent> form = ReadForm(binary);
        benchmark::DoNotOptimize(form.get());
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(binary.size()));
}

void BM_SaveForm(benchmark::State& state, const char* path)
{
    RegisterComponentStreamClasses();
    std::string binary = FormToBinary(Corpus(path));
    std::unique_ptr<TComponent> form = ReadForm(binary);
    for (auto _ : state) {
        std::string out = WriteComponentData(form.get());
        benchmark::DoNotOptimize(out.data());
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(binary.size()));
}

// What qzpkg convert reads of its input before converting it: the writer's
// options, and with --code-page auto the code page.
void BM_DetectOptions(benchmark::State& state, const char* path, bool binary)
{
    const std::string original = Corpus(path);
    const std::string input = binary ? FormToBinary(original, DetectFormTextOptions(original)) : original;
    for (auto _ : state)
        benchmark::DoNotOptimize(DetectFormTextOptions(input));
    state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(input.size()));
}

void BM_GuessCodePage(benchmark::State& state, const char* path)
{
    const std::string form = Corpus(path);
    for (auto _ : state)
        benchmark::DoNotOptimize(GuessCodePage(FormHighStrings(form)));
    state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(form.size()));
}

} // namespace

void* operator new(size_t size)
{
    void* p = std::malloc(size ? size : 1);
    if (!p)
        throw std::bad_alloc();
    CountAllocation(p);
    return p;
}

// The replacement pair allocates with malloc, so free is the right release;
// GCC cannot see that through the replaced operators.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wmismatched-new-delete"
void operator delete(void* p) noexcept
{
    if (p)
        LiveBytes -= malloc_usable_size(p);
    std::free(p);
}
#pragma GCC diagnostic pop

void operator delete(void* p, size_t) noexcept
{
    operator delete(p);
}

BENCHMARK_CAPTURE(BM_TextToBinary, main_dfm_1_6MB, LargeText)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_TextToBinary, datamod_dfm_694KB, MediumText)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_BinaryToText, main_dfm_1_6MB, LargeText)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_BinaryToText, glDemo_resource_793KB, LargeResource)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_BinaryToTextStream, main_dfm_1_6MB, LargeText)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_LoadForm, main_dfm_1_6MB, LargeText)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_SaveForm, main_dfm_1_6MB, LargeText)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_DetectOptions, text_main_dfm_1_6MB, LargeText, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_DetectOptions, binary_main_dfm_645KB, LargeText, true)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_GuessCodePage, chinese_form_10KB, "cnpack__cnvcl/Example/VCL/MultiLang/Unit1.dfm")
    ->Unit(benchmark::kMillisecond);
