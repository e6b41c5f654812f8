// The memory label editor on a strings package file of 100,000 labels:
// the file read into the package, then the editor opened on a reference
// into it (the list ordered by text, its model set, the first screen laid
// out and painted) and closed. The two parts are also timed apart. Figures
// are in docs/performance.md ("Memory label editor").

#include "design/strings/Qzvtmemorylabel.h"
#include "runtime/files/QzPkgFiles.h"
#include "vcl/QzListView.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>

namespace {

QApplication& App()
{
    static int argc = 1;
    static char name[] = "bench_memory_editors";
    static char* argv[] = {name, nullptr};
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication app(argc, argv);
    return app;
}

// A package file of labels whose texts do not come in Id order.
const AnsiString& File100k()
{
    static QTemporaryDir dir;
    static const AnsiString file = [] {
        RegisterQzPkgFileFormats();
        TQzPkgStrings pkg(nullptr);
        pkg.SetPkgName("Bench");
        for (int i = 0; i < 100000; ++i)
            pkg.Labels()->Add(i, "Label " + std::to_string((i * 7919) % 100000), "Hint of " + std::to_string(i));
        const AnsiString name = dir.filePath("bench.pst").toStdString();
        pkg.SaveToFile(name);
        return name;
    }();
    return file;
}

// Opens the editor on ref, lets it paint its first screen, and closes it.
void ShowEditor(TQzMemoryLabel& ref)
{
    TFrMemoryLabel form;
    form.SetMemory(&ref);
    QTimer::singleShot(0, &form, [&form] {
        benchmark::DoNotOptimize(form.Labels->viewport()->grab());
        form.reject();
    });
    form.Execute();
}

void BM_LoadFileAndShowLabels100k(benchmark::State& state)
{
    App();
    const AnsiString& file = File100k();
    for (auto _ : state) {
        TQzPkgStrings pkg(nullptr);
        pkg.SetPkgName("Bench");
        pkg.LoadFromFile(file);
        TQzMemoryLabel ref;
        ref.PkgId("Bench", 50000);
        ShowEditor(ref);
    }
}
BENCHMARK(BM_LoadFileAndShowLabels100k)->Unit(benchmark::kMillisecond);

void BM_LoadFile100k(benchmark::State& state)
{
    const AnsiString& file = File100k();
    for (auto _ : state) {
        TQzPkgStrings pkg(nullptr);
        pkg.LoadFromFile(file);
        benchmark::DoNotOptimize(pkg.Labels()->Count());
    }
}
BENCHMARK(BM_LoadFile100k)->Unit(benchmark::kMillisecond);

void BM_ShowLabels100k(benchmark::State& state)
{
    App();
    TQzPkgStrings pkg(nullptr);
    pkg.SetPkgName("Bench");
    pkg.LoadFromFile(File100k());
    TQzMemoryLabel ref;
    ref.PkgId("Bench", 50000);
    for (auto _ : state)
        ShowEditor(ref);
}
BENCHMARK(BM_ShowLabels100k)->Unit(benchmark::kMillisecond);

}  // namespace
