#pragma once
// CGrid: the grid and snap settings of a view. The snap lattice (base point,
// intervals along East and North, angle) and the display grid (intervals, or
// both 0 to follow the snap). Equality has no tolerance. A memento of a grid
// is a grid value itself.
#include "ulo/Memento.h"

class CGrid : public virtual ulo::IMementable {
public:
    CGrid() = default;
    CGrid(const CGrid& other) = default;
    CGrid& operator=(const CGrid& other) = default;

    bool operator==(const CGrid& o) const;
    bool Equals(const CGrid* o) const { return o && *this == *o; }

    bool IsGridActive() const { return gridOn_; }
    bool IsSnapActive() const { return snapOn_; }
    void GetSnap(double& baseEast, double& baseNorth, double& intervalEast, double& intervalNorth,
                 double& angle) const;
    void GetGrid(double& intervalEast, double& intervalNorth) const;
    bool IsGridBySnap() const { return gridEast_ == 0.0 && gridNorth_ == 0.0; }
    /// Intervals within [-1e-12, 1e-12] are stored as 1.0.
    void SetSnap(bool on, double baseEast, double baseNorth, double intervalEast,
                 double intervalNorth, double angle);
    /// With the grid on, intervals within [-1e-12, 1e-12] are stored as 1.0;
    /// with it off they are stored as given.
    void SetGrid(bool on, double intervalEast, double intervalNorth);
    /// The grid follows the snap: both intervals 0 and the grid on.
    void SetGridBySnap();

    ulo::IMemento* CreateMemento() const override;
    bool HasChanged(const ulo::IMemento* memento) const override;

protected:
    void OnSetMemento(ulo::IMemento* memento) override;

private:
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
