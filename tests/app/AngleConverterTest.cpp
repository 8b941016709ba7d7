// The angle converters: exact tables in degrees (East, counterclockwise) and
// gons (North, clockwise) both ways, every typed 4-decimal angle read back
// as typed, and the text in the "C" notation whatever the locale.
#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <locale>
#include <memory>
#include <numbers>
#include <string>

#include "app/AngleConverter.h"

namespace {
constexpr double kPi = std::numbers::pi;
constexpr double kTurn = 2 * kPi;
constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kTiny = std::numeric_limits<double>::denorm_min();

const CDegreeConverter kDegrees;             // the degree system of the dialog
const CGradsConverter kGons(kPi / 2, true);  // the gon system of the dialog

std::string Text(const IAngleConverter& c, double radians) {
    return c.RadAngleToString(radians).ToQString().toStdString();
}

struct ToRadians {
    double units;
    double radians;  // the correctly rounded value, origin added after scaling
};

struct ToText {
    double radians;
    const char* text;
};

void ExpectRadians(const IAngleConverter& c, const ToRadians& row) {
    const double got = c.UnitsToRadians(row.units);
    EXPECT_EQ(got, row.radians) << "units " << row.units;
    EXPECT_FALSE(std::signbit(got) && got == 0.0) << "-0 from units " << row.units;
}
}  // namespace

TEST(AngleConverter, DegreesToRadiansAreCorrectlyRounded) {
    const ToRadians rows[] = {
        {0.0, 0.0},
        {-0.0, 0.0},
        {1e-300, 1.7453292519943295e-302},
        {-1e-300, -1.7453292519943295e-302},
        {30, 0.5235987755982989},  // a plain product gives ...988
        {45, kPi / 4},
        {60, 1.0471975511965979},  // a plain product gives ...976
        {84.99, 1.4833553312699805},
        {85, 1.4835298641951802},
        {-85, -1.4835298641951802},
        {90, kPi / 2},
        {-90, -kPi / 2},
        {180, kPi},
        {270, 4.71238898038469},
        {359.9999, 6.283183561850335},
        {360, kTurn},
        // Beyond a full turn the angle is kept as typed.
        {450, 7.853981633974483},
        {720, 2 * kTurn},
        {1e6, 17453.292519943298},
        {1e300, 1.7453292519943297e+298},
        // No NaN or infinity comes out: they count as angle 0 of the unit.
        {kNaN, 0.0},
        {kInf, 0.0},
        {-kInf, 0.0},
    };
    for (const ToRadians& r : rows)
        ExpectRadians(kDegrees, r);
}

TEST(AngleConverter, GonsFromNorthClockwiseToRadiansAreCorrectlyRounded) {
    const ToRadians rows[] = {
        {0.0, kPi / 2},  // North
        {-0.0, kPi / 2},
        {1e-300, kPi / 2},
        {0.0001, 1.5707947559985698},
        {50, kPi / 4},
        {94.4444, 0.08726716073141727},
        {100, 0.0},  // East, exactly
        {200, -kPi / 2},
        {300, -kPi},
        {399.9999, -4.712387409588364},
        {400, kPi / 2 - kTurn},
        {500, -kTurn},
        {-100, kPi},
        {1e300, -1.5707963267948968e+298},
        {kNaN, kPi / 2},
        {-kInf, kPi / 2},
    };
    for (const ToRadians& r : rows)
        ExpectRadians(kGons, r);
}

TEST(AngleConverter, RadiansReadInDegreesFromZeroUpToTheFullTurn) {
    const ToText rows[] = {
        {0.0, "0.0000"},
        {-0.0, "0.0000"},
        {kTiny, "0.0000"},
        {-kTiny, "0.0000"},
        {1e-300, "0.0000"},
        {-1e-300, "0.0000"},
        {kPi / 2, "90.0000"},
        {kPi, "180.0000"},
        {-kPi / 2, "270.0000"},
        {0.5235987755982989, "30.0000"},
        {1.4835298641951802, "85.0000"},
        {3.0, "171.8873"},
        // The full turn and everything that rounds to it read 0.
        {kTurn, "0.0000"},
        {-kTurn, "0.0000"},
        {std::nextafter(kTurn, 0.0), "0.0000"},
        {std::nextafter(kTurn, 7.0), "0.0000"},
        {-8.7e-7, "0.0000"},  // 359.99995015 degrees
        {-8.8e-7, "359.9999"},
        {-1e-6, "359.9999"},
        {8.7e-7, "0.0000"},
        {8.8e-7, "0.0001"},
        // Whole turns are dropped, however many.
        {kTurn + kPi / 2, "90.0000"},
        {3 * kTurn + kPi, "180.0000"},
        {1e300, "318.5507"},
        {-1e300, "41.4493"},
        {std::numeric_limits<double>::max(), "33.2690"},
        {kNaN, "0.0000"},
        {kInf, "0.0000"},
        {-kInf, "0.0000"},
    };
    for (const ToText& r : rows)
        EXPECT_EQ(Text(kDegrees, r.radians), r.text) << r.radians;
}

TEST(AngleConverter, RadiansReadInGonsFromNorthClockwise) {
    const ToText rows[] = {
        {kPi / 2, "0.0000"},
        {0.0, "100.0000"},
        {-0.0, "100.0000"},
        {1e-300, "100.0000"},
        {-kTiny, "100.0000"},
        {kPi / 4, "50.0000"},
        {kPi, "300.0000"},
        {-kPi / 2, "200.0000"},
        {4.71238898038469, "200.0000"},
        {7.0, "54.3662"},
        {-100.0, "66.1977"},
        // Just past North counterclockwise is just below the full turn.
        {std::nextafter(kPi / 2, 4.0), "0.0000"},
        {std::nextafter(kPi / 2, 0.0), "0.0000"},
        {kPi / 2 + 1e-7, "0.0000"},
        {kPi / 2 + 1e-5, "399.9994"},
        {kPi / 2 - 1e-7, "0.0000"},
        {kPi / 2 - 1e-5, "0.0006"},
        {kPi / 2 + kTurn, "0.0000"},
        {kNaN, "0.0000"},
    };
    for (const ToText& r : rows)
        EXPECT_EQ(Text(kGons, r.radians), r.text) << r.radians;
}

// Whatever the user types with 4 decimals in [0, maximum) is shown back as
// typed: around the origin, the quarter turns and the full turn, and across
// the whole range.
TEST(AngleConverter, EveryTypedAngleReadsBackAsTyped) {
    const CDegreeConverter degreesClockwise(kPi / 2, true);
    const CGradsConverter gonsFromEast;
    const IAngleConverter* systems[] = {&kDegrees, &kGons, &degreesClockwise, &gonsFromEast};
    for (const IAngleConverter* c : systems) {
        const long steps = std::lround(c->GetMaxAngle() * 10000);
        auto check = [&](long step) {
            const long s = ((step % steps) + steps) % steps;
            const double units = s / 10000.0;
            const std::string typed = std::to_string(s / 10000) + "." +
                                      std::string(4 - std::to_string(s % 10000).size(), '0') +
                                      std::to_string(s % 10000);
            ASSERT_EQ(Text(*c, c->UnitsToRadians(units)), typed) << c->GetFormat();
        };
        for (long quarter = 0; quarter < 4; ++quarter)
            for (long d = -2000; d <= 2000; ++d)
                check(quarter * steps / 4 + d);
        for (long s = 0; s < steps; s += 997)
            check(s);
    }
}

TEST(AngleConverter, TextIsInTheCNotationWhateverTheLocale) {
    const std::string before = std::setlocale(LC_ALL, nullptr);
    if (!std::setlocale(LC_ALL, "it_IT.UTF-8"))
        GTEST_SKIP() << "no Italian locale";
    const std::locale global = std::locale::global(std::locale(""));
    EXPECT_EQ(Text(kDegrees, kPi / 3), "60.0000");
    EXPECT_EQ(Text(kGons, 0.0), "100.0000");
    EXPECT_EQ(Text(kDegrees, 1.0), "57.2958");
    std::locale::global(global);
    std::setlocale(LC_ALL, before.c_str());
}

TEST(AngleConverter, FormatsAndSystemsOfEachConverter) {
    const CRadiantConverter radians;
    EXPECT_EQ(kDegrees.GetFormat(), 0u);
    EXPECT_EQ(kGons.GetFormat(), 2u);
    EXPECT_EQ(radians.GetFormat(), 3u);
    EXPECT_EQ(kDegrees.GetMaxAngle(), 360.0);
    EXPECT_EQ(kGons.GetMaxAngle(), 400.0);
    EXPECT_EQ(radians.GetMaxAngle(), kTurn);
    EXPECT_TRUE(kGons.IsClockWise());
    EXPECT_FALSE(kDegrees.IsClockWise());
    EXPECT_EQ(Text(radians, 1.0), "1.0000");
    EXPECT_EQ(Text(radians, -kTiny), "0.0000");
    EXPECT_EQ(radians.UnitsToRadians(1.25), 1.25);
    // Copies convert alike.
    CGradsConverter copy;
    copy = kGons;
    EXPECT_EQ(copy.UnitsToRadians(100), 0.0);
    EXPECT_TRUE(copy.IsClockWise());
    EXPECT_EQ(copy.GetStartAngle(), kPi / 2);
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
        EXPECT_NEAR(c->RadiansToUnits(radians), r.units, 1e-12) << r.format << " " << r.units;
        // Angle 0 of the unit lies on the start direction; a positive angle
        // turns the given way.
        EXPECT_EQ(c->UnitsToRadians(0.0), r.start);
        const double quarter = c->GetMaxAngle() / 4;
        EXPECT_NEAR(c->UnitsToRadians(quarter) - r.start, r.clockwise ? -kPi / 2 : kPi / 2, 1e-15);
        EXPECT_EQ(c->IsClockWise(), r.clockwise);
        EXPECT_EQ(c->GetStartAngle(), r.start);
    }
}
