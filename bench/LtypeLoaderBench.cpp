// Loading and saving a ~10 MB line type library against reading and writing
// the same bytes without parsing. Run: bench_ltype_loader; the ratios are the
// "Load"/"ReadLines" and "Save"/"WriteBytes" times; "bytes_held/file" is the
// memory the loaded collection takes per byte of file.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <QDir>
#include <QFile>
#include <cstdio>
#include <string>

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

std::size_t fileSize() {
    return static_cast<std::size_t>(QFile(QString::fromStdString(libraryPath())).size());
}

void ReadLines(benchmark::State& state) {
    const std::string& path = libraryPath();
    for (auto _ : state) {
        std::FILE* f = std::fopen(path.c_str(), "rb");
        std::wstring line;
        std::size_t lines = 0;
        for (int c; (c = std::fgetc(f)) != EOF;) {
            line += static_cast<wchar_t>(static_cast<unsigned char>(c));
            if (c == '\n' || line.size() >= 4095) {
                benchmark::DoNotOptimize(line.data());
                line.clear();
                ++lines;
            }
        }
        std::fclose(f);
        benchmark::DoNotOptimize(lines);
    }
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * fileSize()));
}

void Load(benchmark::State& state) {
    veld::CData data;
    veld::CLtypeLoader loader(&data.GetStyleTable(),
                              const_cast<veld::CObjectFactory*>(data.GetObjectFactory()));
    const std::wstring path(libraryPath().begin(), libraryPath().end());
    for (auto _ : state)
        benchmark::DoNotOptimize(loader.Load(path.c_str()));
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * fileSize()));
    // Memory the loaded collection holds, per byte of file.
    loader.Load(L"/nonexistent");
    const std::size_t before = mallinfo2().uordblks;
    loader.Load(path.c_str());
    const std::size_t after = mallinfo2().uordblks;
    state.counters["bytes_held/file"] = double(after - before) / double(fileSize());
    state.counters["line_types"] = loader.GetNoLtypes();
}

void WriteBytes(benchmark::State& state) {
    QFile in(QString::fromStdString(libraryPath()));
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
    veld::CData data;
    veld::CLtypeLoader loader(&data.GetStyleTable(),
                              const_cast<veld::CObjectFactory*>(data.GetObjectFactory()));
    const std::wstring path(libraryPath().begin(), libraryPath().end());
    loader.Load(path.c_str());
    const std::wstring out = QDir::tempPath().toStdWString() + L"/veld-bench-saved.lin";
    for (auto _ : state)
        loader.Save(out.c_str());
    state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * fileSize()));
}

}  // namespace

BENCHMARK(ReadLines)->Unit(benchmark::kMillisecond);
BENCHMARK(Load)->Unit(benchmark::kMillisecond);
BENCHMARK(WriteBytes)->Unit(benchmark::kMillisecond);
BENCHMARK(Save)->Unit(benchmark::kMillisecond);
BENCHMARK_MAIN();
