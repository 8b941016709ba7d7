#include "CCECADDlgPageSnap.h"

#include "ulo/PalmDevice.h"

namespace veld5 {

CCECADDlgPageSnap::CCECADDlgPageSnap(CCECADDlgSnapGridCont* container)
    : CGridSnapPage(CPalmDevice::SelectIdDlgStd(11088, 11089, 11090, 11091), container) {}

void CCECADDlgPageSnap::OnSetActive() {
    double baseEast, baseNorth, intervalEast, intervalNorth, angle;
    Grid().GetSnap(baseEast, baseNorth, intervalEast, intervalNorth, angle);
    ShowNumber(intervalEastField_, intervalEast);
    ShowNumber(intervalNorthField_, intervalNorth);
    ShowNumber(baseEastField_, baseEast);
    ShowNumber(baseNorthField_, baseNorth);
    ShowNumber(angleField_, angle);
    CheckDlgButton(ctl::SnapPage::kEnable, Grid().IsSnapActive());
    EnableFields();
}

void CCECADDlgPageSnap::EnableFields() {
    const bool on = IsDlgButtonChecked(ctl::SnapPage::kEnable);
    for (unsigned id : {ctl::SnapPage::kIntervalEast, ctl::SnapPage::kIntervalNorth,
                        ctl::SnapPage::kAngle, ctl::SnapPage::kBaseNorth, ctl::SnapPage::kBaseEast})
        EnableDlgItem(id, on);
}

bool CCECADDlgPageSnap::OnCommand(unsigned id) {
    if (id == ctl::SnapPage::kEnable) {
        EnableFields();
        return true;
    }
    return CGridSnapPage::OnCommand(id);
}

bool CCECADDlgPageSnap::WriteToGrid() {
    // Read in the order of the page's data; the first field refused is the
    // one the user is sent to, and nothing reaches the grid.
    double angle = 0, baseEast = 0, baseNorth = 0, intervalEast = 0, intervalNorth = 0;
    if (!ReadNumber(angleField_, Range::Any, ctl::SnapPage::kEnable, angle) ||
        !ReadNumber(baseEastField_, Range::Any, ctl::SnapPage::kEnable, baseEast) ||
        !ReadNumber(baseNorthField_, Range::Any, ctl::SnapPage::kEnable, baseNorth) ||
        !ReadNumber(intervalEastField_, Range::Interval, ctl::SnapPage::kEnable, intervalEast) ||
        !ReadNumber(intervalNorthField_, Range::Interval, ctl::SnapPage::kEnable, intervalNorth))
        return false;
    angle_ = angle;
    baseEast_ = baseEast;
    baseNorth_ = baseNorth;
    intervalEast_ = intervalEast;
    intervalNorth_ = intervalNorth;
    Grid().SetSnap(IsDlgButtonChecked(ctl::SnapPage::kEnable), baseEast_, baseNorth_, intervalEast_,
                   intervalNorth_, angle_);
    return true;
}

}  // namespace veld5
