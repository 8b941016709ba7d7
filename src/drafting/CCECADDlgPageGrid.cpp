#include "CCECADDlgPageGrid.h"

#include "ulo/NumberText.h"
#include "ulo/PalmDevice.h"

namespace veld5 {

namespace {
constexpr int kFree = 0;
constexpr int kFromSnap = 1;
}  // namespace

CCECADDlgPageGrid::CCECADDlgPageGrid(CCECADDlgSnapGridCont* container)
    : CGridSnapPage(CPalmDevice::SelectIdDlgStd(11084, 11085, 11086, 11087), container) {}

void CCECADDlgPageGrid::OnSetActive() {
    const CGrid& grid = Grid();
    const bool snapOn = grid.IsSnapActive();
    double east, north;
    grid.GetGrid(east, north);
    ShowNumber(intervalNorthField_, north);
    ShowNumber(intervalEastField_, east);
    CheckDlgButton(ctl::GridPage::kEnable, grid.IsGridActive());
    const bool ownIntervals = east > 0 && north > 0;
    // Only a grid that follows the snap, with the snap on, opens on "From snap".
    Select(!snapOn || ownIntervals ? kFree : kFromSnap);
    EnableFields();
    // A grid on that followed a snap now off gets intervals of its own.
    if (!ownIntervals && !snapOn && grid.IsGridActive())
        SelectFree();
}

void CCECADDlgPageGrid::Select(int choice) {
    choice_ = choice;
    CheckRadioButton(ctl::GridPage::kFree, ctl::GridPage::kFromSnap,
                     choice == kFree ? ctl::GridPage::kFree : ctl::GridPage::kFromSnap);
}

void CCECADDlgPageGrid::SelectFree() {
    Select(kFree);
    const QString text = CStringDaDouble(10.0, 0, 3).ToQString();
    ShowText(intervalNorthField_, text);
    ShowText(intervalEastField_, text);
    EnableDlgItem(ctl::GridPage::kIntervalNorth, true);
    EnableDlgItem(ctl::GridPage::kIntervalEast, true);
}

void CCECADDlgPageGrid::SelectFromSnap() {
    Select(kFromSnap);
    const QString text = CStringDaDouble(0.0, 0, 3).ToQString();
    ShowText(intervalNorthField_, text);
    ShowText(intervalEastField_, text);
    EnableDlgItem(ctl::GridPage::kIntervalNorth, false);
    EnableDlgItem(ctl::GridPage::kIntervalEast, false);
}

void CCECADDlgPageGrid::EnableFields() {
    const bool on = IsDlgButtonChecked(ctl::GridPage::kEnable);
    EnableDlgItem(ctl::GridPage::kFree, on);
    EnableDlgItem(ctl::GridPage::kFromSnap, on && Grid().IsSnapActive());
    EnableDlgItem(ctl::GridPage::kIntervalNorth, on && choice_ == kFree);
    EnableDlgItem(ctl::GridPage::kIntervalEast, on && choice_ == kFree);
}

bool CCECADDlgPageGrid::OnCommand(unsigned id) {
    if (id == ctl::GridPage::kEnable) {
        EnableFields();
        return true;
    }
    // A click on the choice already made keeps the intervals typed.
    if (id == ctl::GridPage::kFree) {
        if (choice_ != kFree)
            SelectFree();
        else
            Select(kFree);
        return true;
    }
    if (id == ctl::GridPage::kFromSnap) {
        if (choice_ != kFromSnap)
            SelectFromSnap();
        else
            Select(kFromSnap);
        return true;
    }
    return CGridSnapPage::OnCommand(id);
}

bool CCECADDlgPageGrid::WriteToGrid() {
    const bool on = IsDlgButtonChecked(ctl::GridPage::kEnable);
    if (choice_ == kFromSnap) {
        // A grid that follows the snap stays switched off while "Enable Grid"
        // is cleared, and follows the snap again once it is switched on.
        if (on)
            Grid().SetGridBySnap();
        else
            Grid().SetGrid(false, 0.0, 0.0);
        intervalEast_ = intervalNorth_ = 0.0;
        return true;
    }
    double east = 0, north = 0;
    if (!ReadNumber(intervalEastField_, Range::Interval, ctl::GridPage::kEnable, east) ||
        !ReadNumber(intervalNorthField_, Range::Interval, ctl::GridPage::kEnable, north))
        return false;
    intervalEast_ = east;
    intervalNorth_ = north;
    Grid().SetGrid(on, intervalEast_, intervalNorth_);
    return true;
}

}  // namespace veld5
