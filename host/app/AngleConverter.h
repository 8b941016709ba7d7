#pragma once
// Angle systems: radians (from East, counterclockwise) to and from the user's
// unit, origin direction and sense of rotation.
//
// A full turn of the unit (360 degrees, 400 gons, 2 pi radians) is the double
// nearest to 2 pi, so quarter and half turns convert exactly both ways
// (100 gons from North clockwise is exactly 0 radians, 90 degrees exactly
// the double nearest to pi/2). Every other value is the correctly rounded
// result of the scaling, with the origin added after it.
#include "ulo/WString.h"

class IAngleConverter {
public:
    virtual ~IAngleConverter() = default;
    double GetStartAngle() const { return start_; }
    double GetMaxAngle() const { return max_; }
    bool IsClockWise() const { return direction_ == -1.0; }
    /// Format code of the system: 0 degrees, 2 gons, 3 radians.
    virtual unsigned GetFormat() const = 0;

    /// Text of an angle given in radians, in the unit: from 0 up to (not
    /// including) the maximum, 4 decimals, "C" notation whatever the locale.
    /// Whole turns are dropped either way, and an angle whose text would read
    /// as the full turn reads "0.0000". NaN and infinities read as angle 0 of
    /// the unit.
    ulo::WString RadAngleToString(double radians) const;
    /// Radians of an angle given in the unit, not reduced to one turn (-85
    /// degrees stays -85 degrees, 450 stays 450). A non-finite value counts as
    /// angle 0 of the unit, so the result is always finite.
    double UnitsToRadians(double units) const;
    /// The angle in the unit, reduced to [0, maximum); never -0.
    double RadiansToUnits(double radians) const;

protected:
    IAngleConverter(double maxAngle, double startAngle, bool clockwise);

private:
    double unitsPerRadian_;  // the nearest double to maximum / (2 pi)
    double start_;
    double max_;
    double direction_;
};

class CDegreeConverter : public IAngleConverter {
public:
    explicit CDegreeConverter(double startAngle = 0.0, bool clockwise = false)
        : IAngleConverter(360.0, startAngle, clockwise) {}
    unsigned GetFormat() const override { return 0; }
};

class CGradsConverter : public IAngleConverter {
public:
    explicit CGradsConverter(double startAngle = 0.0, bool clockwise = false)
        : IAngleConverter(400.0, startAngle, clockwise) {}
    unsigned GetFormat() const override { return 2; }
};

class CRadiantConverter : public IAngleConverter {
public:
    explicit CRadiantConverter(double startAngle = 0.0, bool clockwise = false);
    unsigned GetFormat() const override { return 3; }
};
