#include "Grid.h"

namespace {
constexpr double kTiny = 1e-12;
double nonZeroInterval(double v) {
    return (v >= -kTiny && v <= kTiny) ? 1.0 : v;
}
}  // namespace

bool CGrid::operator==(const CGrid& o) const {
    return gridOn_ == o.gridOn_ && snapOn_ == o.snapOn_ && baseEast_ == o.baseEast_ &&
           baseNorth_ == o.baseNorth_ && snapEast_ == o.snapEast_ && snapNorth_ == o.snapNorth_ &&
           snapAngle_ == o.snapAngle_ && gridEast_ == o.gridEast_ && gridNorth_ == o.gridNorth_;
}

void CGrid::GetSnap(double& baseEast, double& baseNorth, double& intervalEast,
                    double& intervalNorth, double& angle) const {
    baseEast = baseEast_;
    baseNorth = baseNorth_;
    intervalEast = snapEast_;
    intervalNorth = snapNorth_;
    angle = snapAngle_;
}

void CGrid::GetGrid(double& intervalEast, double& intervalNorth) const {
    intervalEast = gridEast_;
    intervalNorth = gridNorth_;
}

void CGrid::SetSnap(bool on, double baseEast, double baseNorth, double intervalEast,
                    double intervalNorth, double angle) {
    snapOn_ = on;
    baseEast_ = baseEast;
    baseNorth_ = baseNorth;
    snapEast_ = nonZeroInterval(intervalEast);
    snapNorth_ = nonZeroInterval(intervalNorth);
    snapAngle_ = angle;
}

void CGrid::SetGrid(bool on, double intervalEast, double intervalNorth) {
    gridOn_ = on;
    gridEast_ = on ? nonZeroInterval(intervalEast) : intervalEast;
    gridNorth_ = on ? nonZeroInterval(intervalNorth) : intervalNorth;
}

void CGrid::SetGridBySnap() {
    gridEast_ = 0.0;
    gridNorth_ = 0.0;
    gridOn_ = true;
}

ulo::IMemento* CGrid::CreateMemento() const {
    return new CGridMemento(*this);
}

bool CGrid::HasChanged(const ulo::IMemento* memento) const {
    const auto* m = dynamic_cast<const CGridMemento*>(memento);
    return !m || !(*this == *m);
}

void CGrid::OnSetMemento(ulo::IMemento* memento) {
    if (const auto* m = dynamic_cast<const CGridMemento*>(memento))
        CGrid::operator=(*m);
}
