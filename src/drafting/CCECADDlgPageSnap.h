#pragma once
// The "Snap" page of the grid and snap dialog: snap on or off, its base
// point, its intervals along East and North and its angle (kept as entered).
#include "CCECADDlgSnapGridCont.h"

namespace veld5 {

class CCECADDlgPageSnap : public CGridSnapPage {
    Q_OBJECT
public:
    explicit CCECADDlgPageSnap(CCECADDlgSnapGridCont* container);

    bool WriteToGrid() override;

protected:
    void OnSetActive() override;
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

    NumberField angleField_{ctl::SnapPage::kAngle, 4};
    NumberField baseEastField_{ctl::SnapPage::kBaseEast, 3};
    NumberField baseNorthField_{ctl::SnapPage::kBaseNorth, 3};
    NumberField intervalEastField_{ctl::SnapPage::kIntervalEast, 3};
    NumberField intervalNorthField_{ctl::SnapPage::kIntervalNorth, 3};
};

}  // namespace veld5
