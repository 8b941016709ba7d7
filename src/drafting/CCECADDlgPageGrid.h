#pragma once
// The "Grid" page of the grid and snap dialog: grid on or off, free with its
// own intervals along East and North, or following the snap.
#include "CCECADDlgSnapGridCont.h"

namespace veld5 {

class CCECADDlgPageGrid : public CGridSnapPage {
    Q_OBJECT
public:
    explicit CCECADDlgPageGrid(CCECADDlgSnapGridCont* container);

    void SetActive() override;
    bool WriteToGrid() override;

    static constexpr unsigned kIdEnable = 11168;
    static constexpr unsigned kIdFree = 11164;
    static constexpr unsigned kIdFromSnap = 11166;
    static constexpr unsigned kIdIntervalNorth = 11170;
    static constexpr unsigned kIdIntervalEast = 11171;

protected:
    BOOL OnInitDialog() override;
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

    NumberField intervalEastField_{kIdIntervalEast, 3};
    NumberField intervalNorthField_{kIdIntervalNorth, 3};
};

}  // namespace veld5
