#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "app/Grid.h"

TEST(Grid, EqualityHasNoTolerance) {
    CGrid a, b;
    EXPECT_TRUE(a == b);
    b.SetGrid(false, 10.0 + 1e-15 * 10, 10.0);
    EXPECT_FALSE(a == b);
    EXPECT_FALSE(a.Equals(&b));
    EXPECT_FALSE(a.Equals(nullptr));
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
        double be, bn, ie, in, angle;
        g.SetSnap(true, 1, 2, r.in, r.in, 30);
        g.GetSnap(be, bn, ie, in, angle);
        EXPECT_EQ(ie, r.snapOut) << r.in;
        EXPECT_EQ(in, r.snapOut) << r.in;
        g.SetGrid(true, r.in, r.in);
        g.GetGrid(ie, in);
        EXPECT_EQ(ie, r.gridOnOut) << r.in;
        g.SetGrid(false, r.in, r.in);
        g.GetGrid(ie, in);
        EXPECT_EQ(in, r.gridOffOut) << r.in;
    }
    CGrid g;
    g.SetSnap(true, 0, 0, std::numeric_limits<double>::quiet_NaN(), 1, 0);
    double be, bn, ie, in, angle;
    g.GetSnap(be, bn, ie, in, angle);
    EXPECT_TRUE(std::isnan(ie));  // stored as given
}

TEST(Grid, GridFollowingTheSnap) {
    CGrid g;
    g.SetGrid(false, 0, 0);
    EXPECT_TRUE(g.IsGridBySnap());
    EXPECT_FALSE(g.IsGridActive());
    g.SetGrid(true, 0, 0);
    EXPECT_FALSE(g.IsGridBySnap());
    g.SetGridBySnap();
    EXPECT_TRUE(g.IsGridBySnap());
    EXPECT_TRUE(g.IsGridActive());
}

TEST(Grid, MementoIsAGridCopyAndRestoresEverything) {
    CGrid g;
    g.SetSnap(true, 100, 200, 5, 6, 45);
    g.SetGrid(true, 7, 8);
    ulo::IMemento* m = g.CreateMemento();
    EXPECT_FALSE(g.HasChanged(m));
    EXPECT_TRUE(g.Equals(dynamic_cast<CGrid*>(m)));
    g.SetSnap(false, 0, 0, 1, 1, 0);
    g.SetGridBySnap();
    EXPECT_TRUE(g.HasChanged(m));
    g.SetMemento(m);
    EXPECT_FALSE(g.HasChanged(m));
    EXPECT_TRUE(g.IsSnapActive());
    double ie, in;
    g.GetGrid(ie, in);
    EXPECT_EQ(ie, 7.0);
    m->SubReference();
}
