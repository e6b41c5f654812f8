// A strings package of 100,000 labels exchanged with translators' tools:
// written as PO, XLIFF and CSV and read back into the package. The baseline
// is the strings editor's own text export and import (one line per label,
// fields joined by QzTextFromStrings), which the exchange is compared with
// in docs/performance.md ("Strings exchange").

#include "design/strings/QzStringsExchange.h"
#include "runtime/model/QzPkgStrings.h"
#include "runtime/model/QzRegistry.h"
#include "runtime/util/QzFields.h"

#include "rtl/StringList.h"

#include <benchmark/benchmark.h>

#include <memory>

namespace {

constexpr int LabelCount = 100000;

std::unique_ptr<TQzPkgStrings> NewPackage()
{
    TQzDetachedPkgs detached;
    return std::make_unique<TQzPkgStrings>(nullptr);
}

const TQzPkgStrings& Source()
{
    static const std::unique_ptr<TQzPkgStrings> package = [] {
        auto pkg = NewPackage();
        for (int i = 0; i < LabelCount; ++i)
            pkg->Labels()->Add(i, "Label number " + IntToStr(i) + ", with \"quotes\"",
                               i % 3 ? AnsiString() : "Hint of " + IntToStr(i));
        return pkg;
    }();
    return *package;
}

void Export(benchmark::State& state, TQzExchangeFormat format)
{
    const TQzPkgStrings& source = Source();
    for (auto _ : state)
        benchmark::DoNotOptimize(QzWriteStrings(QzStringsEntries(source, nullptr), format, "Bench"));
}

void Import(benchmark::State& state, TQzExchangeFormat format)
{
    const std::string bytes = QzWriteStrings(QzStringsEntries(Source(), nullptr), format, "Bench");
    auto target = NewPackage();
    for (auto _ : state)
        QzApplyStringsEntries(*target, QzReadStrings(bytes, format, "bench"), "bench");
}

AnsiString TextExport(const TQzPkgStrings& pkg)
{
    TStringList lines, fields;
    for (int i = 0; i < pkg.Labels()->Count(); ++i) {
        const TQzPkgStringsLabel* label = pkg.Labels()->GetItems(i);
        fields.Clear();
        fields.Add(IntToStr(label->Id()));
        if (!label->Text().empty())
            fields.Add(label->Text());
        if (!label->Hint().empty())
            fields.Add(label->Hint());
        lines.Add(QzTextFromStrings(&fields, ','));
    }
    return lines.Text();
}

void BM_ExportText(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(TextExport(Source()));
}

void BM_ImportText(benchmark::State& state)
{
    TStringList lines;
    lines.SetText(TextExport(Source()));
    auto target = NewPackage();
    for (auto _ : state) {
        target->Labels()->BeginUpdate();
        target->Labels()->Clear();
        TStringList fields;
        for (int i = 0; i < lines.Count(); ++i) {
            QzTextToStrings(lines.Get(i), &fields, ',');
            while (fields.Count() < 3)
                fields.Add("");
            target->Labels()->Add(StrToInt(fields.Get(0)), fields.Get(1), fields.Get(2));
        }
        target->Labels()->EndUpdate();
    }
}

void BM_ExportPo(benchmark::State& state) { Export(state, TQzExchangeFormat::Po); }
void BM_ImportPo(benchmark::State& state) { Import(state, TQzExchangeFormat::Po); }
void BM_ExportXliff(benchmark::State& state) { Export(state, TQzExchangeFormat::Xliff); }
void BM_ImportXliff(benchmark::State& state) { Import(state, TQzExchangeFormat::Xliff); }
void BM_ExportCsv(benchmark::State& state) { Export(state, TQzExchangeFormat::Csv); }
void BM_ImportCsv(benchmark::State& state) { Import(state, TQzExchangeFormat::Csv); }

} // namespace

BENCHMARK(BM_ExportText)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ImportText)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ExportPo)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ImportPo)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ExportXliff)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ImportXliff)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ExportCsv)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ImportCsv)->Unit(benchmark::kMillisecond);
