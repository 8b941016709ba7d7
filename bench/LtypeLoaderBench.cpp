// Loading and saving a ~10 MB line type library against reading and writing
// the same bytes without parsing: "ReadLines" reads the file in blocks and
// splits it into lines, "WriteBytes" writes the saved file's bytes in one
// block. Run: bench_ltype_loader; the summary after the table gives
// Load/ReadLines and Save/WriteBytes (real and CPU time) and the memory the
// loaded collection holds per byte of file.
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <cstdio>
#include <cstring>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "linetypes/LtypeLoader.h"
#include "veld/Data.h"

namespace {

const std::string& libraryPath() {
    static const std::string path = [] {
        const std::string p = QDir::tempPath().toStdString() + "/veld-bench.lin";
        std::FILE* f = std::fopen(p.c_str(), "wb");
        std::size_t written = 0;
        for (int i = 0; written < 10u << 20; ++i) {
            char buf[512];
            int n = 0;
            if (i % 10 == 0)
                n = std::snprintf(buf, sizeof buf, ";; group %d of the survey library\r\n", i / 10);
            else if (i % 3 == 0)
                n = std::snprintf(
                    buf, sizeof buf,
                    "*UTIL_%d,Utility line %d ----U----\r\n"
                    "A,0.5,-0.2,[\"U%d\",STANDARD,S=0.1,R=0.0,X=-0.1,Y=-0.05],-0.2\r\n",
                    i, i, i % 100);
            else
                n = std::snprintf(buf, sizeof buf,
                                  "*DASH_%d,Dashed %d __ . __\r\nA,%d.5,-0.25,0,-0.25\r\n", i, i,
                                  i % 7);
            std::fwrite(buf, 1, static_cast<std::size_t>(n), f);
            written += static_cast<std::size_t>(n);
        }
        std::fclose(f);
        return p;
    }();
    return path;
}

std::wstring libraryWPath() {
    return std::wstring(libraryPath().begin(), libraryPath().end());
}

std::size_t fileSize() {
    return static_cast<std::size_t>(QFile(QString::fromStdString(libraryPath())).size());
}

const std::wstring& savedPath() {
    static const std::wstring path = QDir::tempPath().toStdWString() + L"/veld-bench-saved.lin";
    return path;
}

/// Heap in use, the blocks malloc maps on their own included.
std::size_t heapInUse() {
    const struct mallinfo2 m = mallinfo2();
    return m.uordblks + m.hblkhd;
}

struct Loader {
    veld::CData data;
    veld::CLtypeLoader loader{&data.GetStyleTable(),
                              const_cast<veld::CObjectFactory*>(data.GetObjectFactory())};
};

void ReadLines(benchmark::State& state) {
    std::vector<char> block(64 << 10);
    for (auto _ : state) {
        std::FILE* f = std::fopen(libraryPath().c_str(), "rb");
        std::size_t kept = 0, lines = 0;
        for (std::size_t n; (n = std::fread(block.data() + kept, 1, block.size() - kept, f)) > 0;) {
            const char* p = block.data();
            const char* const end = p + kept + n;
            for (const char* nl; (nl = static_cast<const char*>(std::memchr(p, '\n', end - p)));
                 p = nl + 1, ++lines)
                benchmark::DoNotOptimize(std::string_view(p, nl - p));
            kept = static_cast<std::size_t>(end - p);
            std::memmove(block.data(), p, kept);
        }
        std::fclose(f);
        benchmark::DoNotOptimize(lines);
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * fileSize()));
}

void Load(benchmark::State& state) {
    Loader l;
    const std::wstring path = libraryWPath();
    for (auto _ : state)
        benchmark::DoNotOptimize(l.loader.Load(path.c_str()));
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * fileSize()));
    // Memory the loaded collection holds, per byte of file.
    l.loader.Load(L"/nonexistent");
    const std::size_t before = heapInUse();
    l.loader.Load(path.c_str());
    state.counters["bytes_held/file"] = double(heapInUse() - before) / double(fileSize());
    state.counters["line_types"] = l.loader.GetNoLtypes();
}

void WriteBytes(benchmark::State& state) {
    // The bytes Save writes, so that both write as much.
    Loader l;
    l.loader.Load(libraryWPath().c_str());
    l.loader.Save(savedPath().c_str());
    QFile in(QString::fromStdWString(savedPath()));
    in.open(QIODevice::ReadOnly);
    const QByteArray bytes = in.readAll();
    const std::string out = QDir::tempPath().toStdString() + "/veld-bench-copy.lin";
    for (auto _ : state) {
        std::FILE* f = std::fopen(out.c_str(), "wb");
        std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), f);
        std::fclose(f);
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * bytes.size()));
}

void Save(benchmark::State& state) {
    Loader l;
    l.loader.Load(libraryWPath().c_str());
    for (auto _ : state)
        l.loader.Save(savedPath().c_str());
    state.SetBytesProcessed(static_cast<int64_t>(
        state.iterations() * QFile(QString::fromStdWString(savedPath())).size()));
}

/// The console table, then the ratios the goals are set in.
class Summary : public benchmark::ConsoleReporter {
public:
    Summary() : ConsoleReporter(isatty(STDOUT_FILENO) ? OO_Defaults : OO_Tabular) {}
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        // With repetitions, the median (reported after the runs) stands.
        for (const Run& r : runs)
            if (!r.error_occurred &&
                (r.run_type == Run::RT_Iteration || r.aggregate_name == "median")) {
                Result& result = results_[r.run_name.function_name];
                result.real = r.GetAdjustedRealTime();
                result.cpu = r.GetAdjustedCPUTime();
                if (const auto held = r.counters.find("bytes_held/file"); held != r.counters.end())
                    heldPerByte_ = held->second;
            }
    }
    void Print() const {
        std::printf("\n%-22s %8s %8s %8s\n", "", "real", "cpu", "goal");
        Ratio("Load / ReadLines", "Load", "ReadLines", 2);
        Ratio("Save / WriteBytes", "Save", "WriteBytes", 5);
        if (heldPerByte_ > 0)
            std::printf("%-22s %8.2f %8s %8s\n", "bytes held / file byte", heldPerByte_, "",
                        "<= 4");
    }

private:
    struct Result {
        double real = 0;
        double cpu = 0;
    };
    void Ratio(const char* label, const char* run, const char* baseline, int goal) const {
        const auto r = results_.find(run), b = results_.find(baseline);
        if (r != results_.end() && b != results_.end())
            std::printf("%-22s %8.2f %8.2f %6s%d\n", label, r->second.real / b->second.real,
                        r->second.cpu / b->second.cpu, "<= ", goal);
    }
    std::map<std::string, Result> results_;
    double heldPerByte_ = 0;
};

}  // namespace

BENCHMARK(ReadLines)->Unit(benchmark::kMillisecond);
BENCHMARK(Load)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteBytes)->Unit(benchmark::kMillisecond);
BENCHMARK(Save)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    Summary summary;
    benchmark::RunSpecifiedBenchmarks(&summary);
    summary.Print();
    benchmark::Shutdown();
    return 0;
}
