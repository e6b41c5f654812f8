// The images package editor opening a package of 5,000 pictures (and of
// 500, to compare) and
// showing its first screen (the grid filled, the visible cells decoded and
// painted), on the offscreen platform. Figures are in docs/performance.md
// ("Images editor").

#include "design/images/Qzvtpkgimages.h"
#include "runtime/model/QzPkgImages.h"
#include "runtime/pictures/QzPicture.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QBuffer>
#include <QImage>
#include <QPixmap>

#include <map>
#include <memory>
#include <random>

namespace {


QApplication& App()
{
    static int argc = 1;
    static char name[] = "bench_images_editor";
    static char* argv[] = {name, nullptr};
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication app(argc, argv);
    return app;
}

// Different 48 x 48 PNGs, as an application's icon set.
std::unique_ptr<TQzPkgImages> MakePackage(int count)
{
    auto p = std::make_unique<TQzPkgImages>(nullptr);
    p->SetPkgName("Icons");
    std::mt19937 random(7);
    for (int i = 0; i < count; ++i) {
        QImage picture(48, 48, QImage::Format_RGB32);
        for (int y = 0; y < 48; ++y)
            for (int x = 0; x < 48; ++x)
                picture.setPixel(x, y, qRgb((x * 5 + i) & 0xFF, (y * 5) & 0xFF, int(random() % 64)));
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        picture.save(&buffer, "PNG");
        TQzPicture(p->Images()->Add(i)).LoadFromBytes(bytes.toStdString(), "bench.png");
    }
    return p;
}

TQzPkgImages& Package(int count)
{
    static std::map<int, std::unique_ptr<TQzPkgImages>> packages;
    std::unique_ptr<TQzPkgImages>& package = packages[count];
    if (!package)
        package = MakePackage(count);
    return *package;
}

// The first screen should cost the same whatever the package holds.
void BM_OpenImagesEditor(benchmark::State& state)
{
    App();
    TQzPkgImages& package = Package(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        TFrPkgImages form;
        form.SetPackage(&package);
        form.resize(500, 386);
        form.Prepare();
        form.show();
        // Painting the window draws the first screen of thumbnails.
        const QPixmap shot = form.grab();
        benchmark::DoNotOptimize(shot.cacheKey());
        form.hide();
    }
}
BENCHMARK(BM_OpenImagesEditor)->Arg(500)->Arg(5000)->Unit(benchmark::kMillisecond);

}  // namespace
