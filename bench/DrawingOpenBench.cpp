// Opening the sample drawing and large drawings against parsing the same bytes with Qt's JSON
// parser, both in the same run. Each drawing is veld-gen's (BuildLargeDrawing, then written); each
// benchmark opens it and, outside the timed part, parses it, so its line carries:
//   x_parse     open time / parse time (goal: <= 2 for many layers, <= 1.5
//               for many entities)
//   held/file   heap the opened drawing holds, with the file's bytes, per
//               byte of file (goal: <= 4)
// Run: bench_drawing_open [--benchmark_filter=Layers]
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <QElapsedTimer>
#include <QJsonDocument>
#include <map>

#include "app/DrawingFile.h"
#include "app/LargeDrawing.h"
#include "app/SampleDrawing.h"
#include "app/VELD.h"

namespace {

/// The bytes of veld-gen's drawing of that size; 0 and 0: the sample drawing.
const QByteArray& drawingBytes(unsigned layers, unsigned entities) {
    static std::map<std::pair<unsigned, unsigned>, QByteArray> made;
    QByteArray& bytes = made[{layers, entities}];
    if (bytes.isEmpty()) {
        CVELD cad;
        if (layers == 0 && entities == 0)
            BuildSampleDrawing(cad);
        else
            BuildLargeDrawing(cad, {layers, entities, 1, 10000.0});
        bytes = drawingfile::Write(cad);
    }
    return bytes;
}

std::size_t heapInUse() {
    const struct mallinfo2 m = mallinfo2();
    return m.uordblks + m.hblkhd;
}

void Open(benchmark::State& state, unsigned layers, unsigned entities) {
    const QByteArray& bytes = drawingBytes(layers, entities);
    double open = 0, parse = 0;
    std::size_t held = 0;
    for (auto _ : state) {
        QElapsedTimer clock;
        {
            CVELD cad;
            const std::size_t before = heapInUse();
            clock.start();
            QString error;
            if (!drawingfile::Read(cad, bytes, error))
                state.SkipWithError(qPrintable(error));
            const qint64 ns = clock.nsecsElapsed();
            state.SetIterationTime(ns / 1e9);
            open += ns / 1e9;
            held = heapInUse() - before;
        }
        clock.restart();
        benchmark::DoNotOptimize(QJsonDocument::fromJson(bytes));
        parse += clock.nsecsElapsed() / 1e9;
    }
    state.counters["x_parse"] = open / parse;
    state.counters["held/file"] =
        static_cast<double>(held + static_cast<std::size_t>(bytes.size())) / bytes.size();
    state.counters["file_MB"] = bytes.size() / 1e6;
}

void Sample(benchmark::State& state) {
    Open(state, 0, 0);
}
void Layers(benchmark::State& state) {
    Open(state, static_cast<unsigned>(state.range(0)), 128);
}
void Entities(benchmark::State& state) {
    Open(state, 1000, static_cast<unsigned>(state.range(0)));
}

}  // namespace

BENCHMARK(Sample)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Layers)->Arg(1000)->Arg(10000)->Arg(50000)->UseManualTime()->Unit(
    benchmark::kMillisecond);
BENCHMARK(Entities)->Arg(10000)->Arg(100000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(Entities)->Arg(1000000)->Iterations(2)->UseManualTime()->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
