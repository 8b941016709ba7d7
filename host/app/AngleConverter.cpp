#include "AngleConverter.h"

#include <cmath>
#include <numbers>

#include "ulo/NumberText.h"

namespace {
constexpr double kTurn = 2.0 * std::numbers::pi;
}

IAngleConverter::IAngleConverter(double maxAngle, double startAngle, bool clockwise)
    : unitsPerRadian_(maxAngle / kTurn),
      start_(startAngle),
      max_(maxAngle),
      direction_(clockwise ? -1.0 : 1.0) {}

CRadiantConverter::CRadiantConverter(double startAngle, bool clockwise)
    : IAngleConverter(kTurn, startAngle, clockwise) {}

double IAngleConverter::RadiansToUnits(double radians) const {
    double turn = std::fmod((radians - start_) * direction_, kTurn);
    if (turn < 0)
        turn += kTurn;
    double units = turn * unitsPerRadian_;
    // A value that rounds to a full turn reads as 0.
    if (max_ - units < 5e-9 * max_)
        units = 0.0;
    return units;
}

ulo::WString IAngleConverter::RadAngleToString(double radians) const {
    if (!std::isfinite(radians))
        return ulo::CStringDaDouble(0.0, 0, 4);
    double units = RadiansToUnits(radians);
    if (ulo::CStringDaDouble(units, 0, 4) == ulo::CStringDaDouble(max_, 0, 4))
        units = 0.0;
    return ulo::CStringDaDouble(units, 0, 4);
}

double IAngleConverter::UnitsToRadians(double units) const {
    return start_ + direction_ * units / unitsPerRadian_;
}
