// The layers dialog's list (CVELDLayerList) with 1 000, 10 000 and 50 000
// layers against bare Qt views of the same rows, in the same run:
//   Open    a 400 x 300 list is made, filled (SetLayers), sorted by name as
//           the dialog does when it fills, shown and painted once, destroyed;
//   Sort    on a shown list: by colour ascending, then descending, each
//           followed by the repaint it causes;
//   Scroll  on a shown list: a jump to the last row and its repaint.
// "Bare" is a QTableView over a QSortFilterProxyModel over a minimal
// QAbstractTableModel returning the same six texts per row as prebuilt
// QStrings (its open builds nothing): opened, sorted through the proxy (by
// name when opened, by the colour's name for Sort) and scrolled the same way.
// "Plain" is the same view straight over the strings, never sorted: the
// least any view of these rows can cost (Open and Scroll only). A paint is a
// show or change followed by processing the events once; the paints each
// case costs are counted and printed first. Times are the process's CPU
// time, which other work on a shared machine disturbs less than the clock.
//
// Run (a Release build configured with -DVELD_BUILD_BENCH=ON):
//   QT_QPA_PLATFORM=offscreen bin/bench_layer_list
// The summary after Google Benchmark's table gives each case in ms, the list
// as a multiple of the bare and of the plain view, the time per row, and the
// growth exponent from the size before (the time ratio as a power of the
// size ratio: 1.0 is linear, n log n gives about 1.05 to 1.10 here).
// Goal: the list at most 2 times the bare view in every case and size, and
// growth no worse than n log n.
#include <benchmark/benchmark.h>

#include <QAbstractTableModel>
#include <QApplication>
#include <QHeaderView>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "app/VELD.h"
#include "tables/CVELDLayerList.h"
#include "veld/Colors.h"
#include "veld/Data.h"
#include "veld/ObjectFactory.h"
#include "veld/Tables.h"

namespace {

constexpr int kWidth = 400, kHeight = 300;
constexpr int kColumnWidths[CVELDLayerList::kColumnCount] = {150, 25, 25, 25, 60, 98};

/// A drawing of @p n layers in a shuffled table order: names of a few
/// families with numbers, in mixed letter case; colours over the palette;
/// about a tenth off, frozen or locked; three line types.
struct Drawing {
    explicit Drawing(int n) {
        veld::CData* data = cad.GetData();
        veld::CLtype* ltypes[3] = {data->GetLtypeTable().GetLtypeContinuous(), AddLtype(L"DASHED"),
                                   AddLtype(L"center")};
        static const wchar_t* const families[] = {L"Walls_", L"roads-", L"PIPE", L"Survey ",
                                                  L"fence",  L"TREES$", L"kerb", L"Text"};
        std::mt19937 random(42);
        std::vector<int> numbers(n);
        for (int i = 0; i < n; ++i)
            numbers[i] = i;
        std::shuffle(numbers.begin(), numbers.end(), random);
        layers.reserve(n);
        for (int i = 0; i < n; ++i) {
            const int k = numbers[i];
            const std::wstring name = families[k % 8] + std::to_wstring(k / 8);
            const unsigned flags = (random() % 10 == 0 ? veld::CLayer::kFlagOff : 0) |
                                   (random() % 10 == 0 ? veld::CLayer::kFlagFrozen : 0) |
                                   (random() % 10 == 0 ? veld::CLayer::kFlagLocked : 0);
            veld::CLayer* layer = data->GetObjectFactory()->CreateLayer(
                name, ltypes[random() % 3], static_cast<unsigned short>(1 + random() % 255),
                veld::kLineWidthDefault, flags, 0);
            data->GetLayerTable().Add(layer);
            layer->SubReference();
            layers.push_back(layer);
        }
        // What the bare model shows: the list's words, made once.
        for (const veld::CLayer* l : layers)
            texts.push_back({l->GetName().ToQString(),
                             l->IsOff() ? QStringLiteral("off") : QStringLiteral("on"),
                             l->IsFrozen() ? QStringLiteral("frozen") : QStringLiteral("thawed"),
                             l->IsLocked() ? QStringLiteral("locked") : QStringLiteral("unlocked"),
                             veld::CColors::GetInstance()[l->GetColor()].ToQString(),
                             l->GetLtype()->GetName().ToQString()});
    }
    veld::CLtype* AddLtype(const wchar_t* name) {
        veld::CLtypeComplexDashSeq seq;
        seq.AddDashDouble(1.0);
        seq.AddDashDouble(-0.5);
        veld::CLtype* t = cad.GetData()->GetObjectFactory()->CreateLtype(name, L"", seq, 0, 0);
        cad.GetData()->GetLtypeTable().Add(t);
        t->SubReference();
        return t;
    }
    CVELD cad;
    std::vector<veld::CLayer*> layers;
    std::vector<std::array<QString, 6>> texts;
};

Drawing& drawing(int n) {
    static std::map<int, std::unique_ptr<Drawing>> built;
    auto& d = built[n];
    if (!d)
        d = std::make_unique<Drawing>(n);
    return *d;
}

class BareModel : public QAbstractTableModel {
public:
    explicit BareModel(const std::vector<std::array<QString, 6>>& rows) : rows_(rows) {}
    int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(rows_.size());
    }
    int columnCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : 6; }
    QVariant data(const QModelIndex& index, int role) const override {
        if (role != Qt::DisplayRole || !index.isValid())
            return {};
        return rows_[index.row()][index.column()];
    }

private:
    const std::vector<std::array<QString, 6>>& rows_;
};

/// The three views, driven alike.
enum class Kind { List, Bare, Plain };
const char* const kKindNames[] = {"List", "Bare", "Plain"};

struct Subject {
    virtual ~Subject() = default;
    virtual QTableView* View() = 0;
    virtual void SortByColour(bool ascending) = 0;
};

struct ListSubject : Subject {
    explicit ListSubject(Drawing& d) : list(&d.cad) {
        list.resize(kWidth, kHeight);
        for (int c = 0; c < CVELDLayerList::kColumnCount; ++c)
            list.SetColumn(c, QStringLiteral("C%1").arg(c), kColumnWidths[c]);
        list.SetCurLayerMark(d.layers[d.layers.size() / 2]);
        list.SetLayers(d.layers);
        list.SortRows(CVELDLayerList::kColName, 1);
    }
    QTableView* View() override { return &list; }
    void SortByColour(bool ascending) override {
        list.SortRows(CVELDLayerList::kColColor, ascending ? 1 : -1);
    }
    CVELDLayerList list;
};

struct BareSubject : Subject {
    BareSubject(Drawing& d, bool sorted) : model(d.texts) {
        view.resize(kWidth, kHeight);
        view.setSelectionBehavior(QAbstractItemView::SelectRows);
        view.setSelectionMode(QAbstractItemView::SingleSelection);
        view.verticalHeader()->hide();
        view.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
        view.verticalHeader()->setDefaultSectionSize(CVELDLayerList::DefaultRowHeight(view.font()));
        if (sorted) {
            proxy.setSourceModel(&model);
            view.setModel(&proxy);
            proxy.sort(0, Qt::AscendingOrder);
        } else {
            view.setModel(&model);
        }
        for (int c = 0; c < CVELDLayerList::kColumnCount; ++c)
            view.setColumnWidth(c, kColumnWidths[c]);
    }
    QTableView* View() override { return &view; }
    void SortByColour(bool ascending) override {
        proxy.sort(4, ascending ? Qt::AscendingOrder : Qt::DescendingOrder);
    }
    QTableView view;  // gone last: it lets go of the models that go first
    BareModel model;
    QSortFilterProxyModel proxy;
};

std::unique_ptr<Subject> make(Kind kind, Drawing& d) {
    if (kind == Kind::List)
        return std::make_unique<ListSubject>(d);
    return std::make_unique<BareSubject>(d, kind == Kind::Bare);
}

/// Lets the window system and the view do what a change asked for: the
/// expose of a new window, the view's posted layout, the repaint.
void settle() {
    QApplication::processEvents();
}

void showAndPaint(Subject& s) {
    s.View()->show();
    settle();
}

double cpuSeconds() {
    timespec t{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return static_cast<double>(t.tv_sec) + static_cast<double>(t.tv_nsec) * 1e-9;
}

void Open(benchmark::State& state, Kind kind) {
    Drawing& d = drawing(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        const double start = cpuSeconds();
        {
            auto s = make(kind, d);
            showAndPaint(*s);
        }
        state.SetIterationTime(cpuSeconds() - start);
    }
}

void Sort(benchmark::State& state, Kind kind) {
    Drawing& d = drawing(static_cast<int>(state.range(0)));
    auto s = make(kind, d);
    showAndPaint(*s);
    for (auto _ : state) {
        const double start = cpuSeconds();
        s->SortByColour(true);
        settle();
        s->SortByColour(false);
        settle();
        state.SetIterationTime(cpuSeconds() - start);
    }
}

void Scroll(benchmark::State& state, Kind kind) {
    Drawing& d = drawing(static_cast<int>(state.range(0)));
    auto s = make(kind, d);
    showAndPaint(*s);
    for (auto _ : state) {
        s->View()->scrollToTop();
        settle();
        const double start = cpuSeconds();
        s->View()->scrollToBottom();
        settle();
        state.SetIterationTime(cpuSeconds() - start);
    }
}

/// Counts the paints of a view's rows.
class PaintCounter : public QObject {
public:
    int paints = 0;
    bool eventFilter(QObject*, QEvent* e) override {
        paints += e->type() == QEvent::Paint;
        return false;
    }
};

/// The paints each case costs, as a check that the views do the same work.
void printPaints() {
    Drawing& d = drawing(1000);
    std::printf("paints per case (list / bare / plain):");
    const char* names[] = {"open", "sort x2", "scroll"};
    for (int c = 0; c < 3; ++c) {
        std::printf("  %s", names[c]);
        for (const Kind kind : {Kind::List, Kind::Bare, Kind::Plain}) {
            if (c == 1 && kind == Kind::Plain)
                continue;
            auto s = make(kind, d);
            PaintCounter counter;
            s->View()->viewport()->installEventFilter(&counter);
            showAndPaint(*s);
            if (c > 0)
                counter.paints = 0;
            if (c == 1) {
                s->SortByColour(true);
                settle();
                s->SortByColour(false);
                settle();
            } else if (c == 2) {
                s->View()->scrollToBottom();
                settle();
            }
            std::printf("%s%d", kind == Kind::List ? " " : " / ", counter.paints);
        }
    }
    std::printf("\n");
}

/// The console table, then each case of the list against the bare view.
class Summary : public benchmark::ConsoleReporter {
public:
    Summary() : ConsoleReporter(OO_Tabular) {}
    void ReportRuns(const std::vector<Run>& runs) override {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& r : runs)
            if (!r.error_occurred && r.run_type == Run::RT_Iteration)
                ms_[r.benchmark_name()] = r.GetAdjustedRealTime();  // in ms
    }
    void Print() const {
        std::printf("\n%-7s %6s %9s %9s %6s %9s %6s %11s %7s %7s\n", "case", "layers", "list ms",
                    "bare ms", "x bare", "plain ms", "x plain", "list us/row", "growth", "bare gr");
        for (const char* kind : {"Open", "Sort", "Scroll"}) {
            double before[2] = {}, sizeBefore = 0;
            for (const int n : {1000, 10000, 50000}) {
                const double list = Find(kind, Kind::List, n), bare = Find(kind, Kind::Bare, n),
                             plain = Find(kind, Kind::Plain, n);
                if (list < 0 || bare < 0)
                    continue;
                char growth[2][16] = {"", ""}, plainMs[16] = "", xPlain[16] = "";
                if (sizeBefore > 0)
                    for (int i = 0; i < 2; ++i)
                        std::snprintf(
                            growth[i], sizeof growth[i], "%.2f",
                            std::log((i ? bare : list) / before[i]) / std::log(n / sizeBefore));
                if (plain > 0) {
                    std::snprintf(plainMs, sizeof plainMs, "%.3f", plain);
                    std::snprintf(xPlain, sizeof xPlain, "%.2f", list / plain);
                }
                std::printf("%-7s %6d %9.3f %9.3f %6.2f %9s %6s %11.3f %7s %7s\n", kind, n, list,
                            bare, list / bare, plainMs, xPlain, list * 1e3 / n, growth[0],
                            growth[1]);
                before[0] = list;
                before[1] = bare;
                sizeBefore = n;
            }
        }
    }

private:
    double Find(const char* kind, Kind subject, int n) const {
        const auto it = ms_.find(std::string(kind) + "/" + kKindNames[static_cast<int>(subject)] +
                                 "/" + std::to_string(n) + "/manual_time");
        return it == ms_.end() ? -1 : it->second;
    }
    std::map<std::string, double> ms_;
};

void Register(const char* name, void (*run)(benchmark::State&, Kind), bool plain) {
    for (const Kind kind : {Kind::List, Kind::Bare, Kind::Plain}) {
        if (kind == Kind::Plain && !plain)
            continue;
        benchmark::RegisterBenchmark(
            (std::string(name) + "/" + kKindNames[static_cast<int>(kind)]).c_str(),
            [run, kind](benchmark::State& s) { run(s, kind); })
            ->Arg(1000)
            ->Arg(10000)
            ->Arg(50000)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    // Fonts, styles and icons are loaded by the first views, not timed.
    printPaints();
    Register("Open", Open, true);
    Register("Sort", Sort, false);
    Register("Scroll", Scroll, true);
    Summary summary;
    benchmark::RunSpecifiedBenchmarks(&summary);
    summary.Print();
    benchmark::Shutdown();
    return 0;
}
