// The labels translator on 100,000 labels a side (half the Ids on both
// sides, a quarter on each alone): opening the window (rows built, shown
// and closed), and narrowing the rows to those failing a check, which reads
// both texts of every row. Beside them the strings editor opening on the
// same edited package, the window the translator is opened from. Figures
// are in docs/performance.md ("Strings translators").

#include "design/strings/Qzvtpkgstrings.h"
#include "design/strings/Qzvtpkgstringstranslator.h"

#include <benchmark/benchmark.h>

#include "runtime/files/QzPkgFiles.h"

#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>

namespace {

QApplication& App()
{
    static int argc = 1;
    static char name[] = "bench_strings_translator";
    static char* argv[] = {name, nullptr};
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication app(argc, argv);
    return app;
}

constexpr int Rows = 100000;

// On a form, whose file names the translation.
TQzPkgStrings& Edited()
{
    static TComponent form(nullptr);
    static TQzPkgStrings* pkg = [] {
        auto* p = new TQzPkgStrings(&form);
        p->SetPkgName("Main");
        for (int i = 0; i < Rows; ++i)
            p->Labels()->Add(i, "&Label %s " + std::to_string(i), "Hint " + std::to_string(i));
        return p;
    }();
    return *pkg;
}

// Ids from Rows / 2 on: half shared with the edited package, half its own.
TQzPkgStrings& Translation()
{
    static TQzPkgStrings* pkg = [] {
        auto* p = new TQzPkgStrings(nullptr);
        for (int i = Rows / 2; i < Rows + Rows / 2; ++i)
            p->Labels()->Add(i, (i % 3 ? "&Etiqueta %s " : "Etiqueta ") + std::to_string(i), "Pista");
        return p;
    }();
    return *pkg;
}

// The translation as the window finds it: a strings file beside the form.
AnsiString FormFile()
{
    static QTemporaryDir dir;
    static const AnsiString form = [] {
        RegisterQzPkgFileFormats();
        Translation().SaveToFile(dir.path().toStdString() + "/Bench.pst");
        return dir.path().toStdString() + "/Bench.dfm";
    }();
    return form;
}

void BM_OpenLabelsTranslator100k(benchmark::State& state)
{
    App();
    const AnsiString form = FormFile();
    for (auto _ : state) {
        TFrPkgStringsLabelsTranslator window;
        window.SetPackage(&Edited());
        window.SetFormFileOf([&form](const TComponent*) { return form; });
        QTimer::singleShot(0, &window, [&window] { window.reject(); });
        window.Execute();
        if (window.RowIds().size() != Rows + Rows / 2)
            state.SkipWithError("the translation was not read");
    }
}
BENCHMARK(BM_OpenLabelsTranslator100k)->Unit(benchmark::kMillisecond);

void BM_FilterFailingRows100k(benchmark::State& state)
{
    const std::vector<Integer> ids = QzTranslatorIds(Edited().Labels(), Translation().Labels());
    for (auto _ : state) {
        auto kept = QzTranslatorFilterIds(ids, TQzTranslatorFilter::FailsChecks, TQzTranslatorKind::Labels, &Edited(),
                                          &Translation());
        benchmark::DoNotOptimize(kept);
    }
}
BENCHMARK(BM_FilterFailingRows100k)->Unit(benchmark::kMillisecond);

void BM_OpenStringsEditor100k(benchmark::State& state)
{
    App();
    for (auto _ : state) {
        TFrPkgStrings form;
        form.SetPackage(&Edited());
        QTimer::singleShot(0, &form, [&form] { form.reject(); });
        form.Execute();
    }
}
BENCHMARK(BM_OpenStringsEditor100k)->Unit(benchmark::kMillisecond);

}  // namespace
