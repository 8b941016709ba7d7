// The angle converters: correctly rounded values in degrees (East,
// counterclockwise) and gons (North, clockwise) both ways, the rows at the
// origin and the quarter and full turns reading back as typed. (The text's
// notation in every locale: NumberText.WritesTheCNotationInEveryLocale.)
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
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
const CRadiantConverter kRadians;

std::string Text(const IAngleConverter& c, double radians) {
    return c.RadAngleToString(radians).ToQString().toStdString();
}
}  // namespace

// Quarter and full turns exact, everything else the correctly rounded value
// (origin added after scaling), never -0, not reduced to one turn, and no NaN
// or infinity out: they count as angle 0 of the unit.
TEST(AngleConverter, UnitsToRadiansAreCorrectlyRounded) {
    const struct {
        const IAngleConverter* c;
        double units, radians;
    } rows[] = {
        {&kDegrees, -0.0, 0.0},
        {&kDegrees, 1e-300, 1.7453292519943295e-302},
        {&kDegrees, 30, 0.5235987755982989},  // a plain product gives ...988
        {&kDegrees, 60, 1.0471975511965979},  // a plain product gives ...976
        {&kDegrees, -85, -1.4835298641951802},
        {&kDegrees, 90, kPi / 2},
        {&kDegrees, 360, kTurn},
        {&kDegrees, 450, 7.853981633974483},
        {&kDegrees, 1e300, 1.7453292519943297e+298},
        {&kDegrees, kNaN, 0.0},
        {&kDegrees, -kInf, 0.0},
        {&kGons, 0.0, kPi / 2},  // North
        {&kGons, 0.0001, 1.5707947559985698},
        {&kGons, 94.4444, 0.08726716073141727},
        {&kGons, 100, 0.0},  // East, exactly
        {&kGons, 300, -kPi},
        {&kGons, 400, kPi / 2 - kTurn},
        {&kGons, -100, kPi},
        {&kGons, 1e300, -1.5707963267948968e+298},
        {&kGons, kNaN, kPi / 2},
    };
    for (const auto& r : rows) {
        const double got = r.c->UnitsToRadians(r.units);
        EXPECT_EQ(got, r.radians) << r.c->GetFormat() << ": " << r.units;
        EXPECT_FALSE(std::signbit(got) && got == 0.0) << "-0 from " << r.units;
    }
}

// Text from 0 up to the full turn: whole turns dropped however many, what
// rounds to the full turn reads 0, NaN and infinities read angle 0.
TEST(AngleConverter, RadiansReadInTheUnitFromItsOrigin) {
    const struct {
        const IAngleConverter* c;
        double radians;
        const char* text;
    } rows[] = {
        {&kDegrees, -0.0, "0.0000"},
        {&kDegrees, -kTiny, "0.0000"},
        {&kDegrees, -kPi / 2, "270.0000"},
        {&kDegrees, 3.0, "171.8873"},
        {&kDegrees, std::nextafter(kTurn, 0.0), "0.0000"},
        {&kDegrees, -8.7e-7, "0.0000"},  // 359.99995015 degrees
        {&kDegrees, -8.8e-7, "359.9999"},
        {&kDegrees, 8.7e-7, "0.0000"},
        {&kDegrees, 8.8e-7, "0.0001"},
        {&kDegrees, 3 * kTurn + kPi, "180.0000"},
        {&kDegrees, 1e300, "318.5507"},
        {&kDegrees, -1e300, "41.4493"},
        {&kDegrees, std::numeric_limits<double>::max(), "33.2690"},
        {&kDegrees, kNaN, "0.0000"},
        {&kDegrees, -kInf, "0.0000"},
        {&kGons, kPi, "300.0000"},
        {&kGons, 7.0, "54.3662"},
        {&kGons, -100.0, "66.1977"},
        // Just past North counterclockwise is just below the full turn.
        {&kGons, std::nextafter(kPi / 2, 4.0), "0.0000"},
        {&kGons, kPi / 2 + 1e-5, "399.9994"},
        {&kGons, kPi / 2 - 1e-5, "0.0006"},
        {&kGons, kNaN, "0.0000"},
        {&kRadians, 1.0, "1.0000"},
        {&kRadians, -kTiny, "0.0000"},
    };
    for (const auto& r : rows)
        EXPECT_EQ(Text(*r.c, r.radians), r.text) << r.c->GetFormat() << ": " << r.radians;
}

// What the user types with 4 decimals is shown back as typed, at the origin
// and beside the quarter and full turns, where the rounding once went astray.
TEST(AngleConverter, TypedAnglesReadBackAsTyped) {
    const CDegreeConverter degreesClockwise(kPi / 2, true);
    const std::pair<double, const char*> typed[] = {
        {0.0, "0.0000"},        {0.0001, "0.0001"},     {89.9999, "89.9999"},
        {90.0001, "90.0001"},   {99.9999, "99.9999"},   {100.0001, "100.0001"},
        {269.9999, "269.9999"}, {359.9999, "359.9999"}, {399.9999, "399.9999"}};
    for (const IAngleConverter* c : {static_cast<const IAngleConverter*>(&kDegrees),
                                     static_cast<const IAngleConverter*>(&kGons),
                                     static_cast<const IAngleConverter*>(&degreesClockwise)}) {
        for (const auto& [units, text] : typed) {
            if (units < c->GetMaxAngle()) {
                EXPECT_EQ(Text(*c, c->UnitsToRadians(units)), text) << c->GetFormat();
            }
        }
    }
}
