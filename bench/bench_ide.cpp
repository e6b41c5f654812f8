// The designer host: opening a project of 200 forms (the forms are listed,
// the first is read and shown), switching between forms, and filling the
// object inspector for a control with about forty properties, and painting
// the corpus's largest form (619 components of classes we do not know). Figures are
// in docs/performance.md ("Designer host").

#include "ide/QzDesignSurface.h"
#include "designide/forms/QzIdeDesigner.h"
#include "designide/forms/QzIdeProject.h"
#include "ide/QzInspector.h"
#include "ide/QzMainWindow.h"
#include "ide/QzPackageLoader.h"
#include "designide/DesignIntf.h"

#include "runtime/components/QzComponentsReg.h"
#include "vcl/QzScriptedDialogs.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QTemporaryDir>
#include <QUndoStack>

namespace {

QApplication& App()
{
    static int argc = 1;
    static char name[] = "bench_ide";
    static char* argv[] = {name, nullptr};
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    static QApplication* app = [] {
        auto* a = new QApplication(argc, argv);
        RegisterQzComponentClasses();
        QzLoadDesignPackage(QCoreApplication::applicationDirPath() + "/../ide");
        return a;
    }();
    return *app;
}

QString DemoForm(const char* name)
{
    return QFileInfo(QStringLiteral(__FILE__)).absoluteDir().filePath(QStringLiteral("../examples/demo/") + name);
}

// Makes dir a project of one unit: a copy of the form and its source.
void UnitFolder(const QTemporaryDir& dir, const QString& form)
{
    const QString name = QFileInfo(form).completeBaseName();
    QFile::copy(form, dir.filePath(name + ".dfm"));
    QFile cpp(dir.filePath(name + ".cpp"));
    cpp.open(QIODevice::WriteOnly);
    cpp.write("// unit\n");
}

// A folder of 200 units, each with a copy of the demo's options form.
const QTemporaryDir& Project200()
{
    static QTemporaryDir dir;
    static bool made = false;
    if (!made) {
        made = true;
        QFile source(DemoForm("Options.dfm"));
        source.open(QIODevice::ReadOnly);
        const QByteArray form = source.readAll();
        for (int i = 1; i <= 200; ++i) {
            const QString unit = QStringLiteral("Unit%1").arg(i, 3, 10, QLatin1Char('0'));
            QFile cpp(dir.filePath(unit + ".cpp"));
            cpp.open(QIODevice::WriteOnly);
            cpp.write("// unit\n");
            QFile dfm(dir.filePath(unit + ".dfm"));
            dfm.open(QIODevice::WriteOnly);
            QByteArray renamed = form;
            renamed.replace("object OptionsForm:", "object Form" + QByteArray::number(i) + ":");
            dfm.write(renamed);
        }
    }
    return dir;
}

void BM_OpenProject200(benchmark::State& state)
{
    App();
    const QString path = Project200().path();
    TQzScriptedDialogs dialogs;
    TQzDialogsScope scope(dialogs);
    TQzMainWindow window;
    for (auto _ : state) {
        window.OpenProject(path);
        benchmark::DoNotOptimize(window.CurrentDesigner());
    }
    state.counters["forms"] = window.Project()->FormCount();
}
BENCHMARK(BM_OpenProject200)->Unit(benchmark::kMillisecond);

// The first showing of each form reads it; later ones only switch tabs.
void BM_ShowFormFirstTime(benchmark::State& state)
{
    App();
    TQzScriptedDialogs dialogs;
    TQzDialogsScope scope(dialogs);
    TQzMainWindow window;
    window.OpenProject(Project200().path());
    int next = 1;
    for (auto _ : state) {
        if (next == window.Project()->FormCount()) {
            state.PauseTiming();
            window.OpenProject(Project200().path());
            next = 1;
            state.ResumeTiming();
        }
        benchmark::DoNotOptimize(window.ShowForm(next++));
    }
}
BENCHMARK(BM_ShowFormFirstTime)->Unit(benchmark::kMicrosecond);

void BM_SwitchOpenForms(benchmark::State& state)
{
    App();
    TQzScriptedDialogs dialogs;
    TQzDialogsScope scope(dialogs);
    TQzMainWindow window;
    window.OpenProject(Project200().path());
    for (int i = 0; i < 20; ++i)
        window.ShowForm(i);
    int next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(window.ShowForm(next));
        next = (next + 7) % 20;
    }
}
BENCHMARK(BM_SwitchOpenForms)->Unit(benchmark::kMicrosecond);

void BM_FillInspector(benchmark::State& state)
{
    App();
    TQzScriptedDialogs dialogs;
    TQzDialogsScope scope(dialogs);
    TQzMainWindow window;
    window.OpenProject(DemoForm("DemoApp.bpr"));
    TIdeDesigner* designer = window.CurrentDesigner();
    designer->SelectComponent(designer->GetComponent("EditName"));
    TQzInspector* inspector = window.Inspector();
    for (auto _ : state) {
        inspector->Rebuild();
        benchmark::DoNotOptimize(inspector->Properties()->rowCount());
    }
    state.counters["rows"] = inspector->Properties()->rowCount() + inspector->Events()->rowCount();
}
BENCHMARK(BM_FillInspector)->Unit(benchmark::kMicrosecond);

// What a repaint of the whole designer costs on a large form of a foreign
// component library: every control's look, tabs, pages and icons.
void BM_PaintLargeForm(benchmark::State& state)
{
    App();
    QTemporaryDir dir;
    UnitFolder(dir, QStringLiteral(QZ_CORPUS_DIR "/dfm/HeidiSQL__HeidiSQL/source/main.dfm"));
    TQzScriptedDialogs dialogs;
    TQzDialogsScope scope(dialogs);
    TQzMainWindow window;
    window.OpenProject(dir.path());
    TIdeDesigner* designer = window.CurrentDesigner();
    if (!designer) {
        state.SkipWithError("the form could not be opened");
        return;
    }
    TQzDesignSurface* surface = window.SurfaceOf(designer);
    QImage image(surface->size(), QImage::Format_ARGB32_Premultiplied);
    for (auto _ : state) {
        QPainter painter(&image);
        surface->render(&painter);
    }
    state.counters["components"] = designer->GetRoot()->ComponentCount();
}
BENCHMARK(BM_PaintLargeForm)->Unit(benchmark::kMillisecond);

// Undo and redo on a form holding one component of every palette class:
// each reads the form again and rebuilds the surface, the tree and the
// property grid, every component with its palette picture.
void BM_UndoRedoEveryPaletteClass(benchmark::State& state)
{
    App();
    QTemporaryDir dir;
    UnitFolder(dir, DemoForm("Options.dfm"));
    TQzScriptedDialogs dialogs;
    TQzDialogsScope scope(dialogs);
    TQzMainWindow window;
    window.OpenProject(dir.path());
    TIdeDesigner* designer = window.CurrentDesigner();
    designer->Change(QStringLiteral("Add one of each"), [designer] {
        for (const TPalettePage& page : DesignRegistry().Pages())
            for (TMetaClass* cls : page.Classes) {
                try {
                    designer->CreateComponent(cls, designer->GetRoot());
                } catch (const std::exception&) {
                    // the one application of a project, forms
                }
            }
    });
    for (auto _ : state) {
        designer->UndoStack()->undo();
        designer->UndoStack()->redo();
    }
    state.counters["components"] = designer->GetRoot()->ComponentCount();
}
BENCHMARK(BM_UndoRedoEveryPaletteClass)->Unit(benchmark::kMillisecond);

}  // namespace
