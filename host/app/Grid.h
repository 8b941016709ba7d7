#pragma once
// CGrid: the grid and snap settings of a view. The snap lattice (base point,
// intervals along East and North, angle) and the display grid (intervals, or
// both 0 to follow the snap). Equality has no tolerance. A memento of a grid
// is a grid value itself.
//
// The operations are inline: every module that uses them compiles them and
// exports them (VELD_GRID_API), as the modules built against this host do
// with the host's inline members. The memento bodies stay in the host.
//
// The setters keep the stored values usable: no interval within
// [-1e-12, 1e-12] (it becomes 1.0, the grid's intervals only while the grid
// is on), and no NaN or infinity anywhere (an interval becomes 1.0, a base
// coordinate or the angle 0.0), since the settings are drawn, snapped to and
// written into drawing files.
#include <cmath>

#include "ulo/Memento.h"
#include "veld/StoredRange.h"

#define VELD_GRID_API __attribute__((visibility("default")))

class CGrid : public virtual ulo::IMementable {
public:
    CGrid() = default;
    CGrid(const CGrid& other) = default;
    VELD_GRID_API CGrid& operator=(const CGrid& other) = default;

    /// All eight values exactly equal; the memento part is not compared.
    VELD_GRID_API bool operator==(const CGrid& o) const {
        return gridOn_ == o.gridOn_ && snapOn_ == o.snapOn_ && baseEast_ == o.baseEast_ &&
               baseNorth_ == o.baseNorth_ && snapEast_ == o.snapEast_ &&
               snapNorth_ == o.snapNorth_ && snapAngle_ == o.snapAngle_ &&
               gridEast_ == o.gridEast_ && gridNorth_ == o.gridNorth_;
    }
    VELD_GRID_API bool Equals(const CGrid* o) const { return o && *this == *o; }

    VELD_GRID_API bool IsGridActive() const { return gridOn_; }
    VELD_GRID_API bool IsSnapActive() const { return snapOn_; }
    VELD_GRID_API void GetSnap(double& baseEast, double& baseNorth, double& intervalEast,
                               double& intervalNorth, double& angle) const {
        baseEast = baseEast_;
        baseNorth = baseNorth_;
        intervalEast = snapEast_;
        intervalNorth = snapNorth_;
        angle = snapAngle_;
    }
    VELD_GRID_API void GetGrid(double& intervalEast, double& intervalNorth) const {
        intervalEast = gridEast_;
        intervalNorth = gridNorth_;
    }
    /// Both grid intervals exactly 0: the grid follows the snap (whether or
    /// not it is on).
    VELD_GRID_API bool IsGridBySnap() const { return gridEast_ == 0.0 && gridNorth_ == 0.0; }
    /// Stores all six; an interval within [-1e-12, 1e-12] or not finite
    /// becomes 1.0, a base coordinate or angle that is not finite 0.0.
    VELD_GRID_API void SetSnap(bool on, double baseEast, double baseNorth, double intervalEast,
                               double intervalNorth, double angle) {
        snapOn_ = on;
        baseEast_ = Finite(baseEast);
        baseNorth_ = Finite(baseNorth);
        snapEast_ = Interval(intervalEast);
        snapNorth_ = Interval(intervalNorth);
        snapAngle_ = Finite(angle);
    }
    /// With the grid on, an interval within [-1e-12, 1e-12] becomes 1.0; with
    /// it off the intervals are stored as given (0, 0 still follows the snap).
    /// An interval that is not finite becomes 1.0 either way.
    VELD_GRID_API void SetGrid(bool on, double intervalEast, double intervalNorth) {
        gridOn_ = on;
        gridEast_ = on ? Interval(intervalEast) : Finite(intervalEast, 1.0);
        gridNorth_ = on ? Interval(intervalNorth) : Finite(intervalNorth, 1.0);
    }
    /// The grid follows the snap: both intervals 0 and the grid on.
    VELD_GRID_API void SetGridBySnap() {
        gridEast_ = 0.0;
        gridNorth_ = 0.0;
        gridOn_ = true;
    }

    ulo::IMemento* CreateMemento() const override;
    bool HasChanged(const ulo::IMemento* memento) const override;

protected:
    void OnSetMemento(ulo::IMemento* memento) override;

private:
    static double Finite(double v, double instead = 0.0) {
        return std::isfinite(v) ? veld::Kept(v) : instead;
    }
    static double Interval(double v) {
        constexpr double kTiny = 1e-12;
        return (!std::isfinite(v) || (v >= -kTiny && v <= kTiny)) ? 1.0 : v;
    }

    double baseEast_ = 0.0;
    double baseNorth_ = 0.0;
    double snapEast_ = 1.0;
    double snapNorth_ = 1.0;
    double snapAngle_ = 0.0;
    double gridEast_ = 10.0;
    double gridNorth_ = 10.0;
    bool gridOn_ = false;
    bool snapOn_ = false;
};

/// The memento of a grid: a copy of the grid's values.
class CGridMemento : public ulo::IMemento, public CGrid {
public:
    explicit CGridMemento(const CGrid& grid) : CGrid(grid) {}
    unsigned GetMemSize() const override { return sizeof(*this); }
};
