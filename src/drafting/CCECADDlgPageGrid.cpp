#include "CCECADDlgPageGrid.h"

#include "ulo/HelpTopic.h"
#include "ulo/NumberText.h"
#include "ulo/PalmDevice.h"

namespace veld5 {

namespace {
constexpr const wchar_t* kHelpTopic = L"QuadraCE.htm#Dlg OpzGrid";
constexpr int kFree = 0;
constexpr int kFromSnap = 1;
}  // namespace

CCECADDlgPageGrid::CCECADDlgPageGrid(CCECADDlgSnapGridCont* container)
    : CGridSnapPage(CPalmDevice::SelectIdDlgStd(11084, 11085, 11086, 11087), container) {}

BOOL CCECADDlgPageGrid::OnInitDialog() {
    CGridSnapPage::OnInitDialog();
    ulo::SetHelpTopic(kHelpTopic);
    return TRUE;
}

void CCECADDlgPageGrid::SetActive() {
    ulo::SetHelpTopic(kHelpTopic);
    const CGrid& grid = Grid();
    const bool snapOn = grid.IsSnapActive();
    double east, north;
    grid.GetGrid(east, north);
    ShowNumber(intervalNorthField_, north);
    ShowNumber(intervalEastField_, east);
    CheckDlgButton(kIdEnable, grid.IsGridActive());
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
    CheckRadioButton(kIdFree, kIdFromSnap, choice == kFree ? kIdFree : kIdFromSnap);
}

void CCECADDlgPageGrid::SelectFree() {
    Select(kFree);
    const QString text = CStringDaDouble(10.0, 0, 3).ToQString();
    ShowText(intervalNorthField_, text);
    ShowText(intervalEastField_, text);
    EnableDlgItem(kIdIntervalNorth, true);
    EnableDlgItem(kIdIntervalEast, true);
}

void CCECADDlgPageGrid::SelectFromSnap() {
    Select(kFromSnap);
    const QString text = CStringDaDouble(0.0, 0, 3).ToQString();
    ShowText(intervalNorthField_, text);
    ShowText(intervalEastField_, text);
    EnableDlgItem(kIdIntervalNorth, false);
    EnableDlgItem(kIdIntervalEast, false);
}

void CCECADDlgPageGrid::EnableFields() {
    const bool on = IsDlgButtonChecked(kIdEnable);
    EnableDlgItem(kIdFree, on);
    EnableDlgItem(kIdFromSnap, on && Grid().IsSnapActive());
    EnableDlgItem(kIdIntervalNorth, on && choice_ == kFree);
    EnableDlgItem(kIdIntervalEast, on && choice_ == kFree);
}

bool CCECADDlgPageGrid::OnCommand(unsigned id) {
    if (id == kIdEnable) {
        EnableFields();
        return true;
    }
    // A click on the choice already made keeps the intervals typed.
    if (id == kIdFree) {
        if (choice_ != kFree)
            SelectFree();
        else
            Select(kFree);
        return true;
    }
    if (id == kIdFromSnap) {
        if (choice_ != kFromSnap)
            SelectFromSnap();
        else
            Select(kFromSnap);
        return true;
    }
    return CGridSnapPage::OnCommand(id);
}

bool CCECADDlgPageGrid::WriteToGrid() {
    const bool on = IsDlgButtonChecked(kIdEnable);
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
    if (!ReadNumber(intervalEastField_, Range::Interval, kIdEnable, east) ||
        !ReadNumber(intervalNorthField_, Range::Interval, kIdEnable, north))
        return false;
    intervalEast_ = east;
    intervalNorth_ = north;
    Grid().SetGrid(on, intervalEast_, intervalNorth_);
    return true;
}

}  // namespace veld5
