#pragma once
// The "Grid" page of the grid and snap dialog: grid on or off, free with its
// own intervals along East and North, or following the snap.
#include "CCECADDlgSnapGridCont.h"

namespace veld5 {

class CCECADDlgPageGrid : public CGridSnapPage {
    Q_OBJECT
public:
    explicit CCECADDlgPageGrid(CCECADDlgSnapGridCont* container);

    bool WriteToGrid() override;

protected:
    void OnSetActive() override;
    bool OnCommand(unsigned id) override;

private:
    /// "Grid free" and "From snap" need "Enable Grid", "From snap" also the
    /// snap; the intervals need "Enable Grid" and "Grid free".
    void EnableFields();
    void SelectFree();      // intervals "10.000", enabled
    void SelectFromSnap();  // intervals "0.000", disabled
    void Select(int choice);

    // What the page last wrote into the grid; choice 0 "Grid free", 1 "From snap".
    double intervalEast_ = 0.0;
    double intervalNorth_ = 0.0;
    int choice_ = -1;

    NumberField intervalEastField_{ctl::GridPage::kIntervalEast, 3};
    NumberField intervalNorthField_{ctl::GridPage::kIntervalNorth, 3};
};

}  // namespace veld5
