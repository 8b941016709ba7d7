#include "AngleConverter.h"

#include <cmath>
#include <numbers>

#include "ulo/NumberText.h"

namespace {

// 2 pi as the sum of two doubles: the nearest double and what it misses.
constexpr double kTurn = 2.0 * std::numbers::pi;
constexpr double kTurnLow = 2.4492935982947064e-16;

/// A factor carried in two doubles (hi + lo), about 32 significant digits.
struct Factor {
    double hi;
    double lo;
};

/// 2 pi / max.
Factor RadiansPerUnit(double max) {
    const double hi = kTurn / max;
    return {hi, (std::fma(-hi, max, kTurn) + kTurnLow) / max};
}

/// max / 2 pi, given its nearest double @p hi.
Factor UnitsPerRadian(double max, double hi) {
    return {hi, (std::fma(-hi, kTurn, max) - hi * kTurnLow) / kTurn};
}

/// x times the factor, rounded once: the product's rounding error is
/// recovered exactly with fma and added back with the low part.
double Times(double x, Factor f) {
    const double p = x * f.hi;
    const double err = std::fma(x, f.hi, -p);
    return p + (err + x * f.lo);
}

}  // namespace

IAngleConverter::IAngleConverter(double maxAngle, double startAngle, bool clockwise)
    : unitsPerRadian_(maxAngle / kTurn),
      start_(startAngle),
      max_(maxAngle),
      direction_(clockwise ? -1.0 : 1.0) {}

CRadiantConverter::CRadiantConverter(double startAngle, bool clockwise)
    : IAngleConverter(kTurn, startAngle, clockwise) {}

double IAngleConverter::RadiansToUnits(double radians) const {
    const double offset = (radians - start_) * direction_;
    if (!std::isfinite(offset))
        return 0.0;
    // fmod is exact: whole turns go before scaling, so no angle overflows.
    const double turn = std::fmod(offset, kTurn);
    double units = Times(turn, UnitsPerRadian(max_, unitsPerRadian_));
    if (units < 0.0)
        units += max_;
    // A hair below 0 plus a full turn can round up to the full turn itself.
    if (units >= max_)
        units = 0.0;
    return units + 0.0;  // -0 becomes 0
}

ulo::WString IAngleConverter::RadAngleToString(double radians) const {
    const ulo::WString text = ulo::CStringDaDouble(RadiansToUnits(radians), 0, 4);
    // 359.99996 degrees rounds to the text of the full turn: that angle is 0.
    if (text == ulo::CStringDaDouble(max_, 0, 4))
        return ulo::CStringDaDouble(0.0, 0, 4);
    return text;
}

double IAngleConverter::UnitsToRadians(double units) const {
    if (!std::isfinite(units))
        return start_;
    const double radians = start_ + direction_ * Times(units, RadiansPerUnit(max_));
    return std::isfinite(radians) ? radians + 0.0 : start_;
}
