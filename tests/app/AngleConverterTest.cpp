#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <numbers>

#include "app/AngleConverter.h"

namespace {
constexpr double kPi = std::numbers::pi;
}

TEST(AngleConverter, TextAndRadiansInEachSystem) {
    const CDegreeConverter degrees;
    const CGradsConverter gons(kPi / 2, true);
    const CRadiantConverter radians;
    struct {
        const IAngleConverter* c;
        double radians;
        const wchar_t* text;
        double units;
    } const rows[] = {
        {&degrees, 0.0, L"0.0000", 0.0},          {&degrees, kPi / 2, L"90.0000", 90.0},
        {&degrees, -kPi / 2, L"270.0000", 270.0}, {&degrees, 2 * kPi, L"0.0000", 360.0},
        {&gons, kPi / 2, L"0.0000", 0.0},  // North
        {&gons, 0.0, L"100.0000", 100.0},  // East, a quarter turn clockwise
        {&gons, kPi, L"300.0000", 300.0},  // West
        {&radians, 1.0, L"1.0000", 1.0},
    };
    for (const auto& r : rows) {
        EXPECT_EQ(r.c->RadAngleToString(r.radians).ToQString().toStdString(),
                  ulo::WString(r.text).ToQString().toStdString())
            << r.c->GetFormat() << " " << r.radians;
        const double back = r.c->UnitsToRadians(r.units);
        EXPECT_NEAR(std::remainder(back - r.radians, 2 * kPi), 0.0, 1e-12) << r.units;
    }
    EXPECT_EQ(degrees.GetFormat(), 0u);
    EXPECT_EQ(gons.GetFormat(), 2u);
    EXPECT_EQ(radians.GetFormat(), 3u);
    EXPECT_EQ(gons.GetMaxAngle(), 400.0);
    EXPECT_TRUE(gons.IsClockWise());
    EXPECT_FALSE(degrees.IsClockWise());
}

TEST(AngleConverter, TypedAnglesAreNotReducedToOneTurn) {
    const CDegreeConverter degrees;
    EXPECT_NEAR(degrees.UnitsToRadians(350), 350 * kPi / 180, 1e-12);
    EXPECT_NEAR(degrees.UnitsToRadians(-85), -85 * kPi / 180, 1e-12);
}

TEST(AngleConverter, RoundTripsWithStartAngleAndDirection) {
    struct Row {
        unsigned format;
        double start;
        bool clockwise;
        double units;  // an angle in the unit, below its maximum
    };
    const Row rows[] = {
        {0, 0.0, false, 37.5},     {0, kPi / 2, true, 37.5},     {0, -1.0, true, 359.25},
        {2, 0.0, false, 123.4567}, {2, kPi / 2, true, 123.4567}, {2, kPi, false, 399.5},
        {3, 0.0, false, 1.25},     {3, kPi / 2, true, 6.0},      {3, 0.3, false, 0.0},
    };
    for (const Row& r : rows) {
        std::unique_ptr<IAngleConverter> c;
        switch (r.format) {
            case 0:
                c = std::make_unique<CDegreeConverter>(r.start, r.clockwise);
                break;
            case 2:
                c = std::make_unique<CGradsConverter>(r.start, r.clockwise);
                break;
            default:
                c = std::make_unique<CRadiantConverter>(r.start, r.clockwise);
                break;
        }
        const double radians = c->UnitsToRadians(r.units);
        EXPECT_NEAR(c->RadiansToUnits(radians), r.units, 1e-9) << r.format << " " << r.units;
        const double shown = c->RadAngleToString(radians).ToQString().toDouble();
        EXPECT_NEAR(shown, r.units, 0.5e-4) << r.format << " " << r.units;
        // Angle 0 of the unit lies on the start direction; a positive angle
        // turns the given way.
        EXPECT_NEAR(c->UnitsToRadians(0.0), r.start, 1e-15);
        const double quarter = c->GetMaxAngle() / 4;
        EXPECT_NEAR(c->UnitsToRadians(quarter) - r.start, r.clockwise ? -kPi / 2 : kPi / 2, 1e-12);
        EXPECT_EQ(c->IsClockWise(), r.clockwise);
        EXPECT_EQ(c->GetStartAngle(), r.start);
    }
}
