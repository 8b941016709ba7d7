#pragma once
// The "Snap" page of the grid and snap dialog: snap on or off, its base
// point, its intervals along East and North and its angle (kept as entered).
#include "CCECADDlgSnapGridCont.h"

namespace veld5 {

class CCECADDlgPageSnap : public CGridSnapPage {
    Q_OBJECT
public:
    explicit CCECADDlgPageSnap(CCECADDlgSnapGridCont* container);

    void SetActive() override;
    bool WriteToGrid() override;

    static constexpr unsigned kIdEnable = 11161;
    static constexpr unsigned kIdIntervalNorth = 11162;
    static constexpr unsigned kIdBaseNorth = 11163;
    static constexpr unsigned kIdIntervalEast = 11165;
    static constexpr unsigned kIdAngle = 11167;
    static constexpr unsigned kIdBaseEast = 11169;

protected:
    BOOL OnInitDialog() override;
    bool OnCommand(unsigned id) override;

private:
    /// The five fields are enabled exactly while "Enable Snap" is checked.
    void EnableFields();

    // What the page last wrote into the grid.
    double angle_ = 0.0;
    double baseEast_ = 0.0;
    double baseNorth_ = 0.0;
    double intervalEast_ = 0.0;
    double intervalNorth_ = 0.0;

    NumberField angleField_{kIdAngle, 4};
    NumberField baseEastField_{kIdBaseEast, 3};
    NumberField baseNorthField_{kIdBaseNorth, 3};
    NumberField intervalEastField_{kIdIntervalEast, 3};
    NumberField intervalNorthField_{kIdIntervalNorth, 3};
};

}  // namespace veld5
