// One frame of the drawing view for drawings of 10k, 100k and 1M entities
// (BuildLargeDrawing: a plot of 10000 x 10000 units), painted into a QImage of
// a phone-sized window: at full extents and zoomed in on 100 x 100 units in
// the middle. The baseline, in the same run, is a bare fill of the same image.
// Beside them, what the first frame after a change adds: building the index
// again, and the extents a zoom to extents asks for.
// Run: QT_QPA_PLATFORM=offscreen bench_frame; the summary after the table gives
// each in milliseconds of CPU time (the machine may be shared), as a multiple
// of the fill and of the 16.7 ms a frame may take at 60 frames a second.
#include <benchmark/benchmark.h>

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "app/Grid.h"
#include "app/LargeDrawing.h"
#include "app/VELD.h"
#include "app/view/DrawingRenderer.h"

namespace {

constexpr int kWidth = 480, kHeight = 800;
constexpr double kBudgetMs = 1000.0 / 60;

/// A large drawing with its index, built once per size.
struct Drawing {
    CVELD cad;
    drawingrender::CDrawingIndex index;
};

Drawing& drawing(unsigned entities) {
    static std::map<unsigned, std::unique_ptr<Drawing>> built;
    auto& d = built[entities];
    if (!d) {
        d = std::make_unique<Drawing>();
        LargeDrawingSize size;
        size.entities = entities;
        BuildLargeDrawing(d->cad, size);
        d->index.Sync(*d->cad.GetData());
    }
    return *d;
}

QImage& window() {
    static QImage image(kWidth, kHeight, QImage::Format_ARGB32_Premultiplied);
    return image;
}

void Fill(benchmark::State& state) {
    for (auto _ : state) {
        QPainter p(&window());
        p.fillRect(window().rect(), Qt::black);
    }
}

void frame(benchmark::State& state, bool zoomed) {
    Drawing& d = drawing(static_cast<unsigned>(state.range(0)));
    const CGrid grid;
    ViewTransform view{{}, 1.0, QSizeF(kWidth, kHeight)};
    if (zoomed) {
        view.centre = {5000, 5000};
        view.zoom = kWidth / 100.0;
    } else {
        const QRectF box = drawingrender::Extents(d.cad, d.index);
        view.centre = box.center();
        view.zoom = 0.92 * std::min(kWidth / box.width(), kHeight / box.height());
    }
    for (auto _ : state) {
        QPainter p(&window());
        drawingrender::Paint(p, d.cad, grid, view, d.index);
    }
}

void FullExtents(benchmark::State& state) {
    frame(state, false);
}
void ZoomedIn(benchmark::State& state) {
    frame(state, true);
}

void IndexBuild(benchmark::State& state) {
    Drawing& d = drawing(static_cast<unsigned>(state.range(0)));
    for (auto _ : state) {
        d.index.Invalidate();
        d.index.Sync(*d.cad.GetData());
    }
}

void Extents(benchmark::State& state) {
    Drawing& d = drawing(static_cast<unsigned>(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(drawingrender::Extents(d.cad, d.index));
}

/// The console table (without colours, for logs), then each run against the
/// fill and the budget, in the order they ran.
class Summary : public benchmark::ConsoleReporter {
public:
    Summary() : ConsoleReporter(OO_Tabular) {}
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& r : runs)
            if (!r.error_occurred && r.run_type == Run::RT_Iteration)
                ms_.emplace_back(r.benchmark_name(), r.GetAdjustedCPUTime());  // all in ms
    }
    void Print() const {
        const auto fill = std::find_if(ms_.begin(), ms_.end(),
                                       [](const auto& run) { return run.first == "Fill"; });
        if (fill == ms_.end())
            return;
        std::printf("\n%-28s %10s %12s %12s\n", "CPU time", "ms", "x fill", "x 16.7 ms");
        for (const auto& [name, ms] : ms_)
            std::printf("%-28s %10.3f %12.1f %12.3f\n", name.c_str(), ms, ms / fill->second,
                        ms / kBudgetMs);
    }

private:
    std::vector<std::pair<std::string, double>> ms_;
};

}  // namespace

BENCHMARK(Fill)->Unit(benchmark::kMillisecond);
BENCHMARK(FullExtents)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(ZoomedIn)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(IndexBuild)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(Extents)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    Summary summary;
    benchmark::RunSpecifiedBenchmarks(&summary);
    summary.Print();
    benchmark::Shutdown();
    return 0;
}
