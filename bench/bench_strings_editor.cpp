// The strings package editor on a package of 100,000 labels: opening it
// (the three lists filled, the window shown and closed), and re-ordering
// the labels by Id and back by text. Beside them, the same labels put into
// a sorted QListWidget, a list that holds a copy of every row, as the
// measure the model/view lists are compared with. Figures are in docs/performance.md
// ("Strings package editor").

#include "design/strings/Qzvtpkgstrings.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QListWidget>
#include <QTimer>

namespace {

QApplication& App()
{
    static int argc = 1;
    static char name[] = "bench_strings_editor";
    static char* argv[] = {name, nullptr};
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication app(argc, argv);
    return app;
}

// Labels whose texts do not come in Id order, as a real package's do not.
TQzPkgStrings& Package100k()
{
    static TQzPkgStrings* pkg = [] {
        auto* p = new TQzPkgStrings(nullptr);
        p->SetPkgName("Main");
        for (int i = 0; i < 100000; ++i)
            p->Labels()->Add(i, "Label " + std::to_string((i * 7919) % 100000), "Hint of " + std::to_string(i));
        return p;
    }();
    return *pkg;
}

void BM_OpenStringsEditor100k(benchmark::State& state)
{
    App();
    TQzPkgStrings& pkg = Package100k();
    for (auto _ : state) {
        TFrPkgStrings form;
        form.SetPackage(&pkg);
        QTimer::singleShot(0, &form, [&form] { form.reject(); });
        form.Execute();
    }
}
BENCHMARK(BM_OpenStringsEditor100k)->Unit(benchmark::kMillisecond);

void BM_OrderByIdAndBack100k(benchmark::State& state)
{
    App();
    TFrPkgStrings form;
    form.SetPackage(&Package100k());
    QTimer::singleShot(0, &form, [&] {
        for (auto _ : state) {
            form.OrderId->setChecked(true);
            form.OrderLabel->setChecked(true);
        }
        form.reject();
    });
    form.Execute();
}
BENCHMARK(BM_OrderByIdAndBack100k)->Unit(benchmark::kMillisecond);

void BM_SortedListWidget100k(benchmark::State& state)
{
    App();
    TQzPkgStrings& pkg = Package100k();
    for (auto _ : state) {
        QListWidget list;
        list.setUniformItemSizes(true);
        list.setSortingEnabled(true);
        QStringList rows;
        rows.reserve(pkg.Labels()->Count());
        for (int i = 0; i < pkg.Labels()->Count(); ++i)
            rows << QString::fromStdString(pkg.Labels()->GetItems(i)->Text());
        list.addItems(rows);
        list.show();
        QApplication::processEvents();
    }
}
BENCHMARK(BM_SortedListWidget100k)->Unit(benchmark::kMillisecond);

}  // namespace
