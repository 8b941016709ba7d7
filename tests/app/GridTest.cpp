// The grid and snap settings of a view: exact equality over all eight values,
// setters that store no unusable interval, NaN or infinity. (Mementos and the
// grid following the snap: CommandsTest.GridCommand and GridDialogTest.)
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

// Each of the eight values alone makes two grids differ, by a hair too.
TEST(Grid, EveryValueTakesPartInEqualityWithoutTolerance) {
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
        {"grid interval East", [](CGrid& g) { g.SetGrid(false, 10 + 1e-14, 10); }},
        {"grid interval North", [](CGrid& g) { g.SetGrid(false, 10, 11); }},
    };
    for (const auto& r : rows) {
        CGrid a, b, c;
        r.change(b);
        r.change(c);
        EXPECT_FALSE(a == b) << r.what;
        EXPECT_FALSE(a.Equals(&b)) << r.what;
        EXPECT_TRUE(c.Equals(&b)) << r.what;
        EXPECT_FALSE(c.Equals(nullptr));
    }
}

// The setters keep what is drawn, snapped to and saved usable: an interval
// within [-1e-12, 1e-12] becomes 1.0 (the grid's only while it is on); NaN
// and infinities never get in (an interval becomes 1.0, a base coordinate or
// the angle 0.0); the values beside them are kept.
TEST(Grid, SettersStoreNoUnusableIntervalNaNOrInfinity) {
    struct {
        double in, snapOut, gridOnOut, gridOffOut;
    } const rows[] = {
        {0.0, 1.0, 1.0, 0.0},       {1e-12, 1.0, 1.0, 1e-12},
        {-1e-12, 1.0, 1.0, -1e-12}, {1.1e-12, 1.1e-12, 1.1e-12, 1.1e-12},
        {-5.0, -5.0, -5.0, -5.0},   {2.5, 2.5, 2.5, 2.5},
        {kNaN, 1.0, 1.0, 1.0},      {kInf, 1.0, 1.0, 1.0},
        {-kInf, 1.0, 1.0, 1.0},
    };
    for (const auto& r : rows) {
        const double base = std::isfinite(r.in) ? r.in : 0.0;
        CGrid g;
        g.SetSnap(true, r.in, 7, r.in, 3, r.in);
        const SnapValues s = Snap(g);
        EXPECT_EQ(s.baseEast, base) << r.in;
        EXPECT_EQ(s.baseNorth, 7.0) << r.in;
        EXPECT_EQ(s.intervalEast, r.snapOut) << r.in;
        EXPECT_EQ(s.intervalNorth, 3.0) << r.in;
        EXPECT_EQ(s.angle, base) << r.in;
        g.SetSnap(true, 7, r.in, 3, r.in, 12);
        EXPECT_EQ(Snap(g).baseNorth, base) << r.in;
        EXPECT_EQ(Snap(g).intervalNorth, r.snapOut) << r.in;
        EXPECT_EQ(Snap(g).angle, 12.0) << r.in;
        for (const bool on : {true, false}) {
            const double out = on ? r.gridOnOut : r.gridOffOut;
            g.SetGrid(on, r.in, 4);
            EXPECT_EQ(GridIntervals(g), std::make_pair(out, 4.0)) << r.in << on;
            g.SetGrid(on, 4, r.in);
            EXPECT_EQ(GridIntervals(g), std::make_pair(4.0, out)) << r.in << on;
            EXPECT_EQ(g.IsGridActive(), on);
        }
        EXPECT_TRUE(g == g) << r.in;  // nothing stored compares unequal to itself
    }
}
