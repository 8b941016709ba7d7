// The line type list: pattern samples checked pixel by pixel, samples of
// extreme patterns that must end, the rows of the model and the painted list.
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QTest>
#include <algorithm>
#include <climits>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "linetypes/CVELDLtypeList.h"
#include "linetypes/CVELDLtypeListDelegate.h"
#include "linetypes/CVELDLtypeListModel.h"
#include "linetypes/LtypePreview.h"
#include "linetypes/LtypePreview_p.h"
#include "support/ScopedMultiplier.h"
#include "ulo/PalmDevice.h"
#include "veld/Data.h"

namespace {

/// One element of a test pattern: a number, or a text element.
struct El {
    double value = 0.0;
    bool text = false;
};
const El kText{0.0, true};

ulo::RefPtr<veld::CLtype> MakeLtype(const std::vector<El>& pattern, const wchar_t* name = L"T",
                                    const wchar_t* desc = L"") {
    veld::CLtypeComplexDashSeq seq;
    for (const El& e : pattern) {
        if (e.text)
            seq.AddDashText(veld::TEXT_3D(L"GAS", nullptr, 1.0, 0.0, 1.0, 0.0, {}, 0, 0));
        else
            seq.AddDashDouble(e.value);
    }
    return ulo::RefPtr<veld::CLtype>::Adopt(new veld::CLtype(name, desc, seq, 0));
}

std::vector<El> Repeat(const std::vector<El>& period, int times) {
    std::vector<El> out;
    for (int i = 0; i < times; ++i)
        out.insert(out.end(), period.begin(), period.end());
    return out;
}

const QRgb kPaper = qRgb(255, 255, 255);

/// Pixels [from, to) drawn, as the preview row should show them.
struct Span {
    int from, to;
};

/// The row of @p image at @p y from x = 0 to @p width: '#' ink, '.' paper.
std::string InkRow(const QImage& image, int y, int width) {
    std::string row;
    for (int x = 0; x < width; ++x)
        row += image.pixel(x, y) == kPaper ? '.' : '#';
    return row;
}

std::string ExpectedRow(int width, const std::vector<Span>& runs, const std::vector<int>& dots) {
    std::string row(width, '.');
    for (const Span& r : runs)
        for (int x = r.from; x < r.to; ++x)
            row[x] = '#';
    for (int x : dots)
        row[x] = '#';
    return row;
}

/// Ink anywhere but on row @p y.
int InkOffRow(const QImage& image, int y) {
    int ink = 0;
    for (int yy = 0; yy < image.height(); ++yy)
        for (int x = 0; yy != y && x < image.width(); ++x)
            ink += image.pixel(x, yy) != kPaper;
    return ink;
}

QImage RenderPreview(const veld::CLtype* ltype, int left, int right, int top, int bottom,
                     int repeats = 2) {
    QImage image(right + 4, bottom + 2, QImage::Format_RGB32);
    image.fill(kPaper);
    QPainter p(&image);
    DrawLtypePreview(nullptr, &p, ltype, left, right, top, bottom, repeats, true);
    return image;
}

/// A paint device that paints nothing and counts what it is asked to draw.
class CountingEngine : public QPaintEngine {
public:
    CountingEngine() : QPaintEngine(QPaintEngine::AllFeatures) {}
    bool begin(QPaintDevice*) override { return true; }
    bool end() override { return true; }
    void updateState(const QPaintEngineState&) override {}
    void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override { ++calls; }
    void drawLines(const QLine*, int n) override { calls += n; }
    void drawLines(const QLineF*, int n) override { calls += n; }
    void drawRects(const QRect*, int n) override { calls += n; }
    void drawRects(const QRectF*, int n) override { calls += n; }
    void drawPoints(const QPoint*, int n) override { calls += n; }
    void drawPoints(const QPointF*, int n) override { calls += n; }
    void drawPath(const QPainterPath&) override { ++calls; }
    void drawPolygon(const QPoint*, int, PolygonDrawMode) override { ++calls; }
    void drawPolygon(const QPointF*, int, PolygonDrawMode) override { ++calls; }
    void drawTextItem(const QPointF&, const QTextItem&) override { ++calls; }
    Type type() const override { return QPaintEngine::User; }
    long long calls = 0;
};

class CountingDevice : public QPaintDevice {
public:
    QPaintEngine* paintEngine() const override { return &engine; }
    mutable CountingEngine engine;

protected:
    int metric(PaintDeviceMetric m) const override {
        switch (m) {
            case PdmWidth:
            case PdmHeight:
                return INT_MAX / 2;
            case PdmDpiX:
            case PdmDpiY:
            case PdmPhysicalDpiX:
            case PdmPhysicalDpiY:
                return 96;
            case PdmDepth:
                return 32;
            case PdmDevicePixelRatio:
                return 1;
            case PdmDevicePixelRatioScaled:
                return static_cast<int>(QPaintDevice::devicePixelRatioFScale());
            default:
                return 1;
        }
    }
};

}  // namespace

// ------------------------------------------------------------ pattern samples

TEST(LtypePreview, DashesGapsAndDotsFallWhereTheArithmeticPutsThem) {
    const struct {
        const char* what;
        std::vector<El> pattern;
        int multiplier, left, right, top, bottom;
        std::vector<Span> runs;
        std::vector<int> dots;
    } cases[] = {
        // W = 200: length 4 is halved, 200 / (2 x 4) / 2 = 12.5 pixels a unit.
        {"length 4, halved",
         {{2}, {-2}},
         1,
         0,
         204,
         0,
         10,
         {{2, 27}, {52, 77}, {102, 127}, {152, 177}},
         {}},
        // Length 20: 200 / (2 x 20) = 5 pixels a unit; the dot is one pixel.
        {"length 20", {{10}, {-5}, {0}, {-5}}, 1, 0, 204, 0, 10, {{2, 52}, {102, 152}}, {77, 177}},
        {"length 10 is not halved", {{5}, {-5}}, 1, 0, 204, 0, 10, {{2, 52}, {102, 152}}, {}},
        // 200 / (2 x 9.99) / 2 = 5.005: 25 and 24 pixels; the last dash stops at the end.
        {"just below 10 is halved",
         {{5}, {-4.99}},
         1,
         0,
         204,
         0,
         10,
         {{2, 27}, {51, 76}, {100, 125}, {149, 174}, {198, 202}},
         {}},
        {"a zero-length element is one pixel",
         {{0}, {-5}},
         1,
         0,
         204,
         0,
         10,
         {},
         {2, 52, 102, 152}},
        {"no elements: solid", {}, 1, 0, 204, 0, 10, {{2, 202}}, {}},
        {"elements under a pixel on average: solid",
         Repeat({{1}, {-1}}, 60),
         1,
         0,
         204,
         0,
         10,
         {{2, 202}},
         {}},
        {"one pixel per element is shown",
         Repeat({{1}, {-1}}, 50),
         1,
         0,
         204,
         0,
         10,
         [] {
             std::vector<Span> r;
             for (int x = 2; x < 202; x += 2)
                 r.push_back({x, x + 1});
             return r;
         }(),
         {}},
        {"a text element takes no room",
         {{2}, {-1}, kText, {-1}},
         1,
         0,
         204,
         0,
         10,
         {{2, 27}, {51, 76}, {100, 125}, {149, 174}, {198, 202}},
         {}},
        {"the same without the text element",
         {{2}, {-1}, {-1}},
         1,
         0,
         204,
         0,
         10,
         {{2, 27}, {51, 76}, {100, 125}, {149, 174}, {198, 202}},
         {}},
        {"gaps only: nothing", {{-1}, {-1}}, 1, 0, 204, 0, 10, {}, {}},
        {"a cell 4 pixels wide: nothing", {}, 1, 0, 4, 0, 10, {}, {}},
        {"a cell 5 pixels wide: one pixel", {}, 1, 0, 5, 0, 10, {{2, 3}}, {}},
        {"a cell 5 pixels wide with dashes: one pixel", {{2}, {-2}}, 1, 0, 5, 0, 10, {{2, 3}}, {}},
        {"a cell away from the origin",
         {{2}, {-2}},
         1,
         30,
         234,
         20,
         31,
         {{32, 57}, {82, 107}, {132, 157}, {182, 207}},
         {}},
        {"margins of 4 at multiplier 2",
         {{2}, {-2}},
         2,
         0,
         208,
         0,
         10,
         {{4, 29}, {54, 79}, {104, 129}, {154, 179}},
         {}},
        {"a cell 8 pixels wide at multiplier 2: nothing", {}, 2, 0, 8, 0, 10, {}, {}},
        {"a cell 9 pixels wide at multiplier 2: one pixel", {}, 2, 0, 9, 0, 10, {{4, 5}}, {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const veldtest::ScopedMultiplier m(c.multiplier);
        const auto ltype = MakeLtype(c.pattern);
        const QImage image = RenderPreview(ltype.get(), c.left, c.right, c.top, c.bottom);
        const int y = (c.top + c.bottom) / 2;
        EXPECT_EQ(InkRow(image, y, image.width()), ExpectedRow(image.width(), c.runs, c.dots));
        EXPECT_EQ(InkOffRow(image, y), 0);
    }
}

TEST(LtypePreview, ThePenIsTheRoutinesOwnOnlyWhenItSelectsIt) {
    const QColor callers(255, 0, 0);
    const QColor windowText = QGuiApplication::palette().color(QPalette::Text);
    // The caller's antialiasing would blur a 1-pixel line: the routine's own
    // pen comes without it, the caller's pen with whatever the caller set.
    const struct {
        bool selectPen, antialiasing;
        QColor dash;
    } cases[] = {{true, true, windowText}, {false, false, callers}};
    // Length 20 as above: dash over [2, 52), dot at 77.
    const auto ltype = MakeLtype({{10}, {-5}, {0}, {-5}});
    for (const auto& c : cases) {
        SCOPED_TRACE(c.selectPen);
        QImage image(210, 12, QImage::Format_RGB32);
        image.fill(kPaper);
        QPainter p(&image);
        QPen pen(callers, 1);
        pen.setCosmetic(true);
        p.setPen(pen);
        p.setRenderHint(QPainter::Antialiasing, c.antialiasing);
        DrawLtypePreview(nullptr, &p, ltype.get(), 0, 204, 0, 10, 2, c.selectPen);
        EXPECT_EQ(p.pen().color(), callers);
        EXPECT_EQ(p.testRenderHint(QPainter::Antialiasing), c.antialiasing);
        p.end();
        EXPECT_EQ(QColor(image.pixel(20, 5)), c.dash);
        EXPECT_EQ(QColor(image.pixel(77, 5)), windowText);  // a dot is always window text
    }
}

TEST(LtypePreview, ExtremePatternsEndInFewSteps) {
    const struct {
        const char* what;
        std::vector<El> pattern;
        int repeats, left, right;
        std::optional<int> ink;  ///< ink pixels on the row, where a picture fits
        long long calls;
    } cases[] = {
        {"only dots", {{0}, {0}}, 2, 0, 204, 200, 1},
        {"a single dot", {{0}}, 2, 0, 204, 200, 1},
        {"a single dash", {{5}}, 2, 0, 204, 200, 1},
        {"a single gap", {{-5}}, 2, 0, 204, 0, 0},
        {"gaps only", {{-1}, {-1}}, 2, 0, 204, 0, 0},
        {"a text element alone", {kText}, 2, 0, 204, 200, 1},
        // 1e-300 x 2.5e301 comes out just below 25: dashes and gaps of 24.
        {"tiny values", {{1e-300}, {-1e-300}}, 2, 0, 204, 104, 5},
        {"subnormal values", {{1e-310}, {-1e-310}}, 2, 0, 204, 200, 1},
        {"huge values", {{1e300}, {-1e300}}, 2, 0, 204, 100, 2},
        {"a length beyond the doubles", {{1e308}, {-1e308}}, 2, 0, 204, 200, 1},
        {"huge and tiny together", {{1e300}, {-1e-300}, {0}, {-1e300}}, 2, 0, 204, 102, 4},
        // The average reaches a pixel only by rounding: 0.2 x 4.99999 is 0.99999.
        {"elements each just short of a pixel", {{0.2}, {-0.2}, {0.2}}, 2, 0, 16, 12, 1},
        {"dots piled on one pixel", {{0}, {0}, {0}, {0}, {1}, {-1}}, 2, 0, 204, 100, 8},
        {"no repetitions", {{1}, {-1}}, 0, 0, 204, 200, 1},
        {"negative repetitions", {{1}, {-1}}, -2, 0, 204, 200, 1},
        {"ten thousand elements", Repeat({{1}, {-1}}, 5000), 2, 0, 204, 200, 1},
        // 536870911 pixels a dash: four periods and 3 pixels fill the width.
        {"a cell across the whole int range", {{1}, {-1}}, 2, INT_MIN, INT_MAX, std::nullopt, 5},
    };
    const veldtest::ScopedMultiplier m(1);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const auto ltype = MakeLtype(c.pattern);
        // The walk must end by itself: the visitor would stop it at the cap.
        constexpr long long kStepCap = 1'000'000;
        long long steps = 0;
        const bool ended = veld5::WalkLtypePreview(
            *ltype, c.left + 2LL, c.right - 2LL, c.repeats,
            [&steps](const veld5::PreviewStep&) { return ++steps < kStepCap; });
        EXPECT_TRUE(ended) << steps << " steps";
        if (!ended)
            continue;  // painting it would never return
        CountingDevice device;
        {
            QPainter p(&device);
            DrawLtypePreview(nullptr, &p, ltype.get(), c.left, c.right, 0, 10, c.repeats, true);
        }
        EXPECT_EQ(device.engine.calls, c.calls);
        if (!c.ink)
            continue;
        const QImage image = RenderPreview(ltype.get(), c.left, c.right, 0, 10, c.repeats);
        const std::string row = InkRow(image, 5, image.width());
        EXPECT_EQ(std::count(row.begin(), row.end(), '#'), *c.ink) << row;
    }
}

// ------------------------------------------------------------------ the rows

namespace {

/// A drawing with ByBlock, ByLayer and Continuous and @p extra line types.
class Drawing {
public:
    explicit Drawing(int extra = 0) {
        for (int i = 0; i < extra; ++i)
            Add(QStringLiteral("LT%1").arg(i).toStdWString(),
                QStringLiteral("Pattern %1").arg(i).toStdWString());
    }
    veld::CLtype* Add(const std::wstring& name, const std::wstring& desc) {
        veld::CLtypeComplexDashSeq seq;
        seq.AddDashDouble(1.0);
        seq.AddDashDouble(-1.0);
        veld::CLtype* t = data.GetObjectFactory()->CreateLtype(name, desc, seq, 0, 0);
        data.GetLtypeTable().Add(t);
        t->SubReference();
        return t;
    }
    std::vector<veld::CLtype*> All() {
        std::vector<veld::CLtype*> out;
        veld::CData::CLtypeIterator it(&data, true, true);
        while (veld::CLtype* t = it.GetNext())
            out.push_back(t);
        return out;
    }
    veld::CLtype* Named(const wchar_t* name) { return data.GetLtypeTable().Find(name); }
    veld::CData data;
};

QString Text(const CVELDLtypeListModel& model, int row, int column, int role = Qt::DisplayRole) {
    return model.data(model.index(row, column), role).toString();
}

}  // namespace

TEST(LtypeListModel, EachRowShowsItsLineTypeInThreeColumns) {
    Drawing d;
    veld::CLtype* dashed = d.Add(L"DASHED", L"Dashed __ __");
    CVELDLtypeListModel model;
    model.SetHeading(CVELDLtypeListModel::kColName, QStringLiteral("Line type"));
    model.SetHeading(CVELDLtypeListModel::kColAppearance, QStringLiteral("Appearance"));
    model.SetHeading(CVELDLtypeListModel::kColDescription, QStringLiteral("Description"));
    const std::vector<veld::CLtype*> rows = d.All();
    model.SetLtypes(rows);
    ASSERT_EQ(model.rowCount(), 4);
    EXPECT_EQ(model.columnCount(), 3);
    EXPECT_EQ(model.headerData(1, Qt::Horizontal).toString(), QStringLiteral("Appearance"));

    const struct {
        const wchar_t* ltype;
        const char* name;
        const char* description;  ///< shown in column 2
    } cases[] = {
        {L"ByBlock", "ByBlock", ""},
        {L"ByLayer", "ByLayer", ""},
        {L"Continuous", "Continuous", "Solid line"},
        {L"DASHED", "DASHED", "Dashed __ __"},
    };
    d.Named(L"Continuous")->SetDesc(L"Solid line");
    d.Named(L"ByLayer")->SetDesc(L"Layer's own");
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        veld::CLtype* ltype = d.Named(c.ltype);
        const int row = model.RowOf(ltype);
        ASSERT_GE(row, 0);
        EXPECT_EQ(model.LtypeAt(row), ltype);
        EXPECT_EQ(Text(model, row, 0), QString::fromUtf8(c.name));
        EXPECT_TRUE(model.data(model.index(row, 1)).isNull());  // the delegate draws it
        EXPECT_EQ(Text(model, row, 2), QString::fromUtf8(c.description));
        for (int column = 0; column < 3; ++column)
            EXPECT_EQ(model.data(model.index(row, column), CVELDLtypeListModel::kLtypeRole)
                          .value<quintptr>(),
                      reinterpret_cast<quintptr>(ltype));
        EXPECT_EQ(model.flags(model.index(row, 0)), Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    }
    EXPECT_EQ(model.RowOf(dashed), 3);
}

TEST(LtypeListModel, ChangesToTheRowsReachTheViews) {
    Drawing d(3);  // ByBlock ByLayer Continuous LT0 LT1 LT2
    CVELDLtypeListModel model;
    model.SetLtypes(d.All());
    std::vector<std::string> log;
    QObject::connect(
        &model, &QAbstractItemModel::rowsInserted, [&](const QModelIndex&, int first, int last) {
            log.push_back("inserted " + std::to_string(first) + "-" + std::to_string(last));
        });
    QObject::connect(
        &model, &QAbstractItemModel::rowsRemoved, [&](const QModelIndex&, int first, int last) {
            log.push_back("removed " + std::to_string(first) + "-" + std::to_string(last));
        });
    QObject::connect(
        &model, &QAbstractItemModel::dataChanged, [&](const QModelIndex& a, const QModelIndex& b) {
            log.push_back("changed " + std::to_string(a.row()) + "," + std::to_string(a.column()) +
                          "-" + std::to_string(b.row()) + "," + std::to_string(b.column()));
        });
    veld::CLtype* lt1 = d.Named(L"LT1");
    veld::CLtype* lt2 = d.Named(L"LT2");
    const struct {
        const char* what;
        std::function<void()> change;
        std::vector<std::string> signals;
        std::function<void()> check;
    } cases[] = {
        {"a line type added",
         [&] { model.AppendLtype(d.Add(L"NEW", L"New one")); },
         {"inserted 6-6"},
         [&] { EXPECT_EQ(Text(model, 6, 0), QStringLiteral("NEW")); }},
        {"a line type listed already keeps its row",
         [&] { EXPECT_EQ(model.AppendLtype(lt1), 4); },
         {},
         [] {}},
        {"a line type renamed",
         [&] {
             lt1->SetName(L"RENAMED");
             model.LtypeChanged(lt1);
         },
         {"changed 4,0-4,2"},
         [&] { EXPECT_EQ(Text(model, 4, 0), QStringLiteral("RENAMED")); }},
        {"a description changed",
         [&] {
             lt2->SetDesc(L"Other");
             model.LtypeChanged(lt2);
         },
         {"changed 5,0-5,2"},
         [&] { EXPECT_EQ(Text(model, 5, 2), QStringLiteral("Other")); }},
        {"the current mark set",
         [&] { model.SetCurLtypeMark(lt2); },
         {"changed 5,0-5,2"},
         [&] {
             EXPECT_EQ(model.data(model.index(5, 1), Qt::BackgroundRole).value<QColor>(),
                       QColor(0, 150, 250));
             EXPECT_TRUE(
                 model.data(model.index(5, 2), CVELDLtypeListModel::kCurrentMarkRole).toBool());
             EXPECT_FALSE(model.data(model.index(4, 0), Qt::BackgroundRole).isValid());
         }},
        {"the current mark moved",
         [&] { model.SetCurLtypeMark(lt1); },
         {"changed 5,0-5,2", "changed 4,0-4,2"},
         [&] { EXPECT_FALSE(model.data(model.index(5, 0), Qt::BackgroundRole).isValid()); }},
        {"the same mark again", [&] { model.SetCurLtypeMark(lt1); }, {}, [] {}},
        {"a line type removed",
         [&] { EXPECT_TRUE(model.RemoveLtype(lt1)); },
         {"removed 4-4"},
         [&] {
             EXPECT_EQ(model.RowOf(lt1), -1);
             EXPECT_EQ(model.RowOf(lt2), 4);
             EXPECT_EQ(Text(model, 4, 0), QStringLiteral("LT2"));
         }},
        {"a line type not listed", [&] { EXPECT_FALSE(model.RemoveLtype(lt1)); }, {}, [] {}},
        {"a change to a line type not listed", [&] { model.LtypeChanged(lt1); }, {}, [] {}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        log.clear();
        c.change();
        EXPECT_EQ(log, c.signals);
        c.check();
    }
}

TEST(LtypeListModel, RowsOfTenThousandLineTypesAreFoundAfterEveryChange) {
    Drawing d(10000);
    std::vector<veld::CLtype*> all = d.All();
    CVELDLtypeListModel model;
    std::vector<veld::CLtype*> withRepeats = all;
    withRepeats.push_back(all[7]);  // listed once
    withRepeats.push_back(nullptr);
    model.SetLtypes(withRepeats);
    ASSERT_EQ(model.rowCount(), static_cast<int>(all.size()));

    const auto everyRowFound = [&] {
        for (int row = 0; row < model.rowCount(); ++row)
            if (model.RowOf(model.LtypeAt(row)) != row)
                return false;
        return true;
    };
    EXPECT_TRUE(everyRowFound());
    // Removals at the start, in the middle and at the end shift the rows after them.
    for (veld::CLtype* gone : {all[0], all[5000], all.back()}) {
        ASSERT_TRUE(model.RemoveLtype(gone));
        EXPECT_EQ(model.RowOf(gone), -1);
    }
    EXPECT_EQ(model.rowCount(), static_cast<int>(all.size()) - 3);
    EXPECT_EQ(model.RowOf(all[1]), 0);
    EXPECT_EQ(model.RowOf(all[5001]), 4999);
    EXPECT_TRUE(everyRowFound());
    const int appended = model.AppendLtype(all[0]);
    EXPECT_EQ(appended, model.rowCount() - 1);
    EXPECT_TRUE(everyRowFound());
    EXPECT_EQ(model.RowOf(nullptr), -1);
    EXPECT_EQ(model.LtypeAt(-1), nullptr);
    EXPECT_EQ(model.LtypeAt(model.rowCount()), nullptr);
    model.Clear();
    EXPECT_EQ(model.RowOf(all[1]), -1);
}

TEST(LtypeListModel, ARowKeepsItsLineTypeAliveUntilTheRowGoes) {
    Drawing d;
    veld::CLtype* temp = d.Add(L"TEMP", L"");
    temp->AddReference();  // the test's own, to watch the count
    CVELDLtypeListModel model;
    const struct {
        const char* what;
        std::function<void()> step;
        unsigned references;  ///< the table's, the test's and the model's
    } steps[] = {
        {"listed", [&] { model.AppendLtype(temp); }, 3},
        {"marked as current too", [&] { model.SetCurLtypeMark(temp); }, 4},
        {"out of the drawing's table", [&] { d.data.GetLtypeTable().Remove(temp); }, 3},
        {"still readable", [&] { EXPECT_EQ(Text(model, 0, 0), QStringLiteral("TEMP")); }, 3},
        {"rows cleared", [&] { model.Clear(); }, 2},
        {"mark cleared", [&] { model.SetCurLtypeMark(nullptr); }, 1},
    };
    for (const auto& s : steps) {
        SCOPED_TRACE(s.what);
        s.step();
        EXPECT_EQ(temp->GetReferenceCount(), s.references);
    }
    temp->SubReference();
}

// -------------------------------------------------------------- the painted list

namespace {

/// A list of the drawing's line types in a window, columns of equal width.
class ShownList {
public:
    explicit ShownList(Drawing& d, int columnWidth = 120) : list(nullptr) {
        list.resize(3 * columnWidth + 40, 200);
        list.SetColumn(0, QStringLiteral("Line type"), columnWidth);
        list.SetColumn(1, QStringLiteral("Appearance"), columnWidth);
        list.SetColumn(2, QStringLiteral("Description"), columnWidth);
        list.SetLtypes(d.All());
        list.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&list));
    }
    /// The viewport as painted.
    QImage Picture() {
        return list.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
    QRect Cell(int row, int column) {
        return list.visualRect(list.GetListModel()->index(row, column));
    }
    CVELDLtypeList list;
};

QRgb Background(const CVELDLtypeList& list) {
    return list.palette().color(QPalette::Base).rgb();
}

/// Pixels of @p area in @p image that are not @p background.
int Ink(const QImage& image, const QRect& area, QRgb background) {
    int ink = 0;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            ink += image.pixel(x, y) != background;
    return ink;
}

}  // namespace

TEST(LtypeList, RowsPaintEachColumnInsideItsCell) {
    const std::wstring longName(200, L'W');
    const std::wstring longDesc = L"Very long description " + std::wstring(300, L'x');
    for (int multiplier : {1, 2}) {
        SCOPED_TRACE(multiplier);
        const veldtest::ScopedMultiplier m(multiplier);
        const int margin = 2 * multiplier;
        Drawing d;
        veld::CLtype* dashed = d.Add(L"DASHED", L"Dashed");
        d.Add(longName, longDesc);
        ShownList shown(d);
        shown.list.SetCurLtypeMark(dashed);
        QApplication::processEvents();
        const QImage picture = shown.Picture();
        const QRgb paper = Background(shown.list);
        const QRgb blue = qRgb(0, 150, 250);

        for (int row = 0; row < shown.list.GetItemCount(); ++row) {
            SCOPED_TRACE(row);
            veld::CLtype* ltype = shown.list.GetItemLtype(row);
            const QRgb background = ltype == dashed ? blue : paper;
            const QRect name = shown.Cell(row, 0), look = shown.Cell(row, 1),
                        desc = shown.Cell(row, 2);
            // No column's ink reaches the margins on either side of a boundary.
            for (const QRect& cell : {name, look, desc}) {
                EXPECT_EQ(Ink(picture, cell.adjusted(0, 0, margin - cell.width(), 0), background),
                          0);
                EXPECT_EQ(Ink(picture, cell.adjusted(cell.width() - margin, 0, 0, 0), background),
                          0);
            }
            // The appearance is the sample as DrawLtypePreview draws it for that cell.
            QImage alone(look.size(), QImage::Format_RGB32);
            alone.fill(background);
            {
                QPainter p(&alone);
                DrawLtypePreview(nullptr, &p, ltype, 0, look.width(), 0, look.height(), 2, true);
            }
            EXPECT_EQ(picture.copy(look), alone);
            EXPECT_GT(Ink(picture, name, background), 0);
            const bool described = !ltype->IsByBlock() && !ltype->IsByLayer();
            EXPECT_EQ(Ink(picture, desc, background) > 0, described);
        }
    }
}

TEST(LtypeList, SelectionReportsLeavingBeforeArriving) {
    Drawing d(3);
    ShownList shown(d);
    std::vector<std::string> log;
    QObject::connect(&shown.list, &CVELDLtypeList::ltypeSelected, [&](veld::CLtype* t) {
        log.push_back("+" + QString::fromStdWString(t->GetName().str()).toStdString());
    });
    QObject::connect(&shown.list, &CVELDLtypeList::ltypeDeselected, [&](veld::CLtype* t) {
        log.push_back("-" + QString::fromStdWString(t->GetName().str()).toStdString());
    });
    const auto tap = [&](int row, int column) {
        QTest::mouseClick(shown.list.viewport(), Qt::LeftButton, {},
                          shown.Cell(row, column).center());
    };
    const struct {
        const char* what;
        std::function<void()> act;
        std::vector<std::string> signals;
        const wchar_t* selected;  ///< null: none
    } steps[] = {
        {"preset", [&] { shown.list.SelectLtype(d.Named(L"LT1")); }, {"+LT1"}, L"LT1"},
        {"tap on another row's sample", [&] { tap(3, 1); }, {"-LT1", "+LT0"}, L"LT0"},
        {"tap on the same row's description", [&] { tap(3, 2); }, {}, L"LT0"},
        {"tap on ByLayer's name", [&] { tap(1, 0); }, {"-LT0", "+ByLayer"}, L"ByLayer"},
        {"the selected row deleted",
         [&] { EXPECT_TRUE(shown.list.DeleteItem(d.Named(L"ByLayer"))); },
         {"-ByLayer"},
         nullptr},
        {"preset again", [&] { shown.list.SelectLtype(d.Named(L"LT2")); }, {"+LT2"}, L"LT2"},
        {"an unlisted line type clears",
         [&] { shown.list.SelectLtype(d.Named(L"ByLayer")); },
         {"-LT2"},
         nullptr},
    };
    for (const auto& s : steps) {
        SCOPED_TRACE(s.what);
        log.clear();
        s.act();
        EXPECT_EQ(log, s.signals);
        EXPECT_EQ(shown.list.GetSelectedLtype(), s.selected ? d.Named(s.selected) : nullptr);
    }
}

TEST(LtypeList, ColumnsAndRowsTakeTheSizesTheOwnerGives) {
    Drawing d(2);
    ShownList shown(d);
    const struct { int column, width; } cases[] = {{0, 3}, {1, 0}, {2, 517}};
    for (const auto& c : cases) {
        shown.list.SetColumn(c.column, QStringLiteral("H%1").arg(c.column), c.width);
        EXPECT_EQ(shown.list.GetColumnWidth(c.column), c.width);
        EXPECT_EQ(shown.list.GetListModel()->headerData(c.column, Qt::Horizontal).toString(),
                  QStringLiteral("H%1").arg(c.column));
    }
    const QFontMetrics fm(shown.list.font());
    EXPECT_EQ(shown.list.GetRowHeight(), fm.height() + fm.leading() + 1);
    shown.list.SetRowHeight(31);
    EXPECT_EQ(shown.Cell(1, 0).height(), 31);
    EXPECT_EQ(shown.Cell(1, 0).top(), 31);

    // A text box starts 2 base pixels in, is 4 wider than the text, and stops at the cell.
    const struct {
        int multiplier, cellWidth, textWidth;
        QRect box;
    } boxes[] = {
        {1, 100, 50, QRect(2, 0, 54, 10)},
        {1, 100, 97, QRect(2, 0, 98, 10)},
        {2, 100, 50, QRect(4, 0, 58, 10)},
        {2, 100, 99, QRect(4, 0, 96, 10)},
        {1, 6, 10, QRect()},
        {1, 7, 10, QRect(2, 0, 5, 10)},
    };
    for (const auto& b : boxes)
        EXPECT_EQ(CVELDLtypeListDelegate::TextBox(QRect(0, 0, b.cellWidth, 10), b.textWidth,
                                                  b.multiplier),
                  b.box)
            << b.multiplier << " " << b.cellWidth << " " << b.textWidth;
}
