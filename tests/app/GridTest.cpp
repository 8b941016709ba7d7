#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

#include "app/Grid.h"

namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

struct SnapValues {
    double baseEast, baseNorth, intervalEast, intervalNorth, angle;
};
SnapValues Snap(const CGrid& g) {
    SnapValues v{};
    g.GetSnap(v.baseEast, v.baseNorth, v.intervalEast, v.intervalNorth, v.angle);
    return v;
}
std::pair<double, double> GridIntervals(const CGrid& g) {
    std::pair<double, double> v;
    g.GetGrid(v.first, v.second);
    return v;
}

}  // namespace

TEST(Grid, EqualityHasNoTolerance) {
    CGrid a, b;
    EXPECT_TRUE(a == b);
    b.SetGrid(false, 10.0 + 1e-15 * 10, 10.0);
    EXPECT_FALSE(a == b);
    EXPECT_FALSE(a.Equals(&b));
    EXPECT_FALSE(a.Equals(nullptr));
}

// Each of the eight values alone makes two grids differ.
TEST(Grid, EveryValueTakesPartInEquality) {
    const struct {
        const char* what;
        std::function<void(CGrid&)> change;
    } rows[] = {
        {"grid on", [](CGrid& g) { g.SetGrid(true, 10, 10); }},
        {"snap on", [](CGrid& g) { g.SetSnap(true, 0, 0, 1, 1, 0); }},
        {"base East", [](CGrid& g) { g.SetSnap(false, 1e-300, 0, 1, 1, 0); }},
        {"base North", [](CGrid& g) { g.SetSnap(false, 0, -2, 1, 1, 0); }},
        {"snap interval East", [](CGrid& g) { g.SetSnap(false, 0, 0, 1 + 1e-15, 1, 0); }},
        {"snap interval North", [](CGrid& g) { g.SetSnap(false, 0, 0, 1, 3, 0); }},
        {"snap angle", [](CGrid& g) { g.SetSnap(false, 0, 0, 1, 1, 45); }},
        {"grid interval East", [](CGrid& g) { g.SetGrid(false, 9, 10); }},
        {"grid interval North", [](CGrid& g) { g.SetGrid(false, 10, 11); }},
    };
    for (const auto& r : rows) {
        CGrid a, b;
        r.change(b);
        EXPECT_FALSE(a == b) << r.what;
        CGrid c = b;
        EXPECT_TRUE(c == b) << r.what;
        CGrid d;
        d = b;
        EXPECT_TRUE(d.Equals(&b)) << r.what;
    }
}

TEST(Grid, SettersKeepIntervalsAwayFromZero) {
    struct {
        double in, snapOut, gridOnOut, gridOffOut;
    } const rows[] = {
        {0.0, 1.0, 1.0, 0.0},       {1e-12, 1.0, 1.0, 1e-12},
        {-1e-12, 1.0, 1.0, -1e-12}, {1.1e-12, 1.1e-12, 1.1e-12, 1.1e-12},
        {-5.0, -5.0, -5.0, -5.0},   {2.5, 2.5, 2.5, 2.5},
    };
    for (const auto& r : rows) {
        CGrid g;
        g.SetSnap(true, 1, 2, r.in, r.in, 30);
        EXPECT_EQ(Snap(g).intervalEast, r.snapOut) << r.in;
        EXPECT_EQ(Snap(g).intervalNorth, r.snapOut) << r.in;
        g.SetGrid(true, r.in, r.in);
        EXPECT_EQ(GridIntervals(g).first, r.gridOnOut) << r.in;
        EXPECT_EQ(GridIntervals(g).second, r.gridOnOut) << r.in;
        g.SetGrid(false, r.in, r.in);
        EXPECT_EQ(GridIntervals(g).first, r.gridOffOut) << r.in;
        EXPECT_EQ(GridIntervals(g).second, r.gridOffOut) << r.in;
    }
}

// NaN and infinities never get in: an interval becomes 1.0, a base
// coordinate or the angle 0.0; the finite values beside them are kept.
TEST(Grid, SettersStoreNoNaNOrInfinity) {
    for (const double bad : {kNaN, kInf, -kInf}) {
        CGrid g;
        g.SetSnap(true, bad, 7, bad, 3, bad);
        const SnapValues s = Snap(g);
        EXPECT_EQ(s.baseEast, 0.0) << bad;
        EXPECT_EQ(s.baseNorth, 7.0) << bad;
        EXPECT_EQ(s.intervalEast, 1.0) << bad;
        EXPECT_EQ(s.intervalNorth, 3.0) << bad;
        EXPECT_EQ(s.angle, 0.0) << bad;
        g.SetSnap(true, 7, bad, 3, bad, 12);
        EXPECT_EQ(Snap(g).baseNorth, 0.0) << bad;
        EXPECT_EQ(Snap(g).intervalNorth, 1.0) << bad;
        EXPECT_EQ(Snap(g).angle, 12.0) << bad;
        for (const bool on : {true, false}) {
            g.SetGrid(on, bad, 4);
            EXPECT_EQ(GridIntervals(g), std::make_pair(1.0, 4.0)) << bad << on;
            g.SetGrid(on, 4, bad);
            EXPECT_EQ(GridIntervals(g), std::make_pair(4.0, 1.0)) << bad << on;
            EXPECT_EQ(g.IsGridActive(), on);
        }
        EXPECT_TRUE(g == g);  // nothing stored compares unequal to itself
    }
}

TEST(Grid, GridFollowingTheSnap) {
    CGrid g;
    g.SetGrid(false, 0, 0);
    EXPECT_TRUE(g.IsGridBySnap());
    EXPECT_FALSE(g.IsGridActive());
    g.SetGrid(true, 0, 0);
    EXPECT_FALSE(g.IsGridBySnap());
    EXPECT_EQ(GridIntervals(g), std::make_pair(1.0, 1.0));
    g.SetGridBySnap();
    EXPECT_TRUE(g.IsGridBySnap());
    EXPECT_TRUE(g.IsGridActive());
    g.SetGrid(true, 0, 5);
    EXPECT_FALSE(g.IsGridBySnap());
}

TEST(Grid, MementoIsAGridCopyAndRestoresEverything) {
    CGrid g;
    g.SetSnap(true, 100, 200, 5, 6, 45);
    g.SetGrid(true, 7, 8);
    const CGrid before = g;
    ulo::IMemento* m = g.CreateMemento();
    EXPECT_FALSE(g.HasChanged(m));
    EXPECT_TRUE(g.Equals(dynamic_cast<CGrid*>(m)));
    g.SetSnap(false, 0, 0, 1, 1, 0);
    g.SetGridBySnap();
    EXPECT_TRUE(g.HasChanged(m));
    EXPECT_FALSE(g.Equals(dynamic_cast<CGrid*>(m)));
    g.SetMemento(m);
    EXPECT_FALSE(g.HasChanged(m));
    EXPECT_TRUE(g == before);
    m->SubReference();
}

// The memento swap that undo and redo use alternates between the two states.
TEST(Grid, MementoSwapAlternates) {
    CGrid g;
    g.SetSnap(true, 1, 2, 3, 4, 5);
    const CGrid old = g;
    auto stored = ulo::RefPtr<ulo::IMemento>::Adopt(g.CreateMemento());
    g.SetGrid(true, 0.5, 0.25);
    const CGrid changed = g;
    for (int i = 0; i < 4; ++i) {
        ulo::SwapMemento(g, stored);
        EXPECT_TRUE(g == (i % 2 == 0 ? old : changed)) << i;
    }
}
