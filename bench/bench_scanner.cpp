// The form-file scanner over a generated project: 200 forms, about 50 MB of
// text, a label reference (two lines) in every block of ten lines. Scanning
// for one label and counting every label are set beside `grep -c "Id = "`
// over the same files, run in the same process, so the figures in
// docs/performance.md ("Form-file scanner") are ratios on one machine.

#include "design/manager/QzFormScanner.h"
#include "design/manager/QzManagerLogic.h"
#include "designide/ProjectServices.h"
#include "runtime/components/QzComponentsReg.h"

#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

namespace fs = std::filesystem;

namespace {

constexpr int FormCount = 200;
constexpr int BlocksPerForm = 1000;

std::string FormText(int form)
{
    std::ostringstream out;
    out << "object Form" << form << ": TQzCForm\n  Left = 250\n  Top = 140\n  Caption = 'Generated form'\n";
    for (int b = 0; b < BlocksPerForm; ++b) {
        out << "  object Label" << b << ": TQzLabel\n"
            << "    Left = " << (8 + b % 40) << "\n"
            << "    Top = " << (16 + b % 300) << "\n"
            << "    Width = 120\n"
            << "    Font.Name = 'MS Sans Serif'\n"
            << "    Hint = 'A hint that a user reads for control " << b << "'\n"
            << "    SetFont.Name = 'Normal'\n"
            << "    Caption.PkgName = 'DEMO'\n"
            << "    Caption.Id = " << (b % 500) << "\n"
            << "  end\n";
    }
    out << "end\n";
    return out.str();
}

struct TBenchProject {
    fs::path Dir;
    std::vector<std::string> Files;
    std::size_t Bytes = 0;

    TBenchProject()
    {
        RegisterQzComponentClasses();
        Dir = fs::temp_directory_path() / ("qz_bench_scanner_" + std::to_string(getpid()));
        fs::create_directories(Dir);
        for (int f = 0; f < FormCount; ++f) {
            const std::string text = FormText(f);
            const fs::path file = Dir / ("Unit" + std::to_string(f) + ".dfm");
            std::ofstream(file, std::ios::binary) << text;
            Files.push_back(file.string());
            Bytes += text.size();
        }
    }
    ~TBenchProject()
    {
        std::error_code ec;
        fs::remove_all(Dir, ec);
    }
};

TBenchProject& Project()
{
    static TBenchProject project;
    return project;
}

// A file into buffer, which keeps its capacity from file to file.
void ReadAll(const std::string& file, std::string& buffer)
{
    const int fd = open(file.c_str(), O_RDONLY);
    struct stat st {};
    fstat(fd, &st);
    buffer.resize(static_cast<std::size_t>(st.st_size));
    std::size_t done = 0;
    while (done < buffer.size()) {
        const ssize_t got = read(fd, buffer.data() + done, buffer.size() - done);
        if (got <= 0)
            break;
        done += static_cast<std::size_t>(got);
    }
    close(fd);
    buffer.resize(done);
}

// The scanner as qzpkg runs it: each file read whole and scanned.
void ScanFiles(benchmark::State& state, bool count)
{
    TBenchProject& project = Project();
    TQzPropertyTypes types;
    std::string buffer;
    std::size_t found = 0;
    for (auto _ : state) {
        TQzFormScanner scanner(TQzDlgManager::Labels, &types);
        if (count)
            scanner.SetCountMode();
        else
            scanner.SetSearch("DEMO", "42");
        std::vector<TQzTokenRec1> hits;
        for (const std::string& file : project.Files) {
            ReadAll(file, buffer);
            scanner.Scanner(buffer, file, hits);
        }
        found = hits.size();
        benchmark::DoNotOptimize(hits.data());
    }
    state.counters["hits"] = static_cast<double>(found);
    state.SetBytesProcessed(static_cast<int64_t>(project.Bytes) * state.iterations());
}

void BM_ScanOneLabel(benchmark::State& state)
{
    ScanFiles(state, false);
}
BENCHMARK(BM_ScanOneLabel)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_CountAllLabels(benchmark::State& state)
{
    ScanFiles(state, true);
}
BENCHMARK(BM_CountAllLabels)->Unit(benchmark::kMillisecond)->UseRealTime();

// The whole manager pass over the project services: forms read into lines
// through TFolderProject, as the window and the command line run it.
void BM_ManagerScanOneLabel(benchmark::State& state)
{
    TBenchProject& project = Project();
    TFolderProject folder(project.Dir.string());
    TQzRuntimePackages packages;
    TQzManagerLogic logic(folder, packages);
    for (auto _ : state) {
        std::vector<TQzTokenRec1> hits = logic.Scan(TQzDlgManager::Labels, "DEMO", "42");
        benchmark::DoNotOptimize(hits.data());
    }
    state.SetBytesProcessed(static_cast<int64_t>(project.Bytes) * state.iterations());
}
BENCHMARK(BM_ManagerScanOneLabel)->Unit(benchmark::kMillisecond)->UseRealTime();

double ChildrenCpuMs()
{
    rusage usage {};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto ms = [](const timeval& t) { return static_cast<double>(t.tv_sec) * 1e3 + static_cast<double>(t.tv_usec) / 1e3; };
    return ms(usage.ru_utime) + ms(usage.ru_stime);
}

// The yardstick: grep counting the Id lines of the same files, as one
// process over all of them.
void BM_GrepCountIdLines(benchmark::State& state)
{
    TBenchProject& project = Project();
    const std::string command = "grep -c \"Id = \" " + (project.Dir / "*.dfm").string() + " > /dev/null";
    const double cpuBefore = ChildrenCpuMs();
    for (auto _ : state)
        if (std::system(command.c_str()) != 0)
            state.SkipWithError("grep failed");
    // The CPU time column is this process's; grep's own is here, per run.
    state.counters["grep_cpu_ms"] = (ChildrenCpuMs() - cpuBefore) / static_cast<double>(state.iterations());
    state.SetBytesProcessed(static_cast<int64_t>(project.Bytes) * state.iterations());
}
BENCHMARK(BM_GrepCountIdLines)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
