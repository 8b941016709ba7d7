#pragma once
// Angle systems: radians (from East, counterclockwise) to and from the user's
// unit, origin direction and sense of rotation.
#include "ulo/WString.h"

class IAngleConverter {
public:
    virtual ~IAngleConverter() = default;
    double GetStartAngle() const { return start_; }
    double GetMaxAngle() const { return max_; }
    bool IsClockWise() const { return direction_ == -1.0; }
    /// Format code of the system: 0 degrees, 2 gons, 3 radians.
    virtual unsigned GetFormat() const = 0;

    /// Text of an angle given in radians, in the unit (0 up to the maximum,
    /// 4 decimals).
    ulo::WString RadAngleToString(double radians) const;
    /// Radians of an angle given in the unit (not reduced to one turn).
    double UnitsToRadians(double units) const;
    /// The angle in the unit, reduced to [0, maximum).
    double RadiansToUnits(double radians) const;

protected:
    IAngleConverter(double maxAngle, double startAngle, bool clockwise);

private:
    double unitsPerRadian_;  // set from the unit
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
