#include "CCECADDlgPageSnap.h"

#include "ulo/HelpTopic.h"
#include "ulo/PalmDevice.h"

namespace veld5 {

namespace {
constexpr const wchar_t* kHelpTopic = L"QuadraCE.htm#Dlg OpzSnap";
}

CCECADDlgPageSnap::CCECADDlgPageSnap(CCECADDlgSnapGridCont* container)
    : CGridSnapPage(CPalmDevice::SelectIdDlgStd(11088, 11089, 11090, 11091), container) {}

BOOL CCECADDlgPageSnap::OnInitDialog() {
    CGridSnapPage::OnInitDialog();
    ulo::SetHelpTopic(kHelpTopic);
    return TRUE;
}

void CCECADDlgPageSnap::SetActive() {
    // Help follows the page in front, also when the user comes back to it.
    ulo::SetHelpTopic(kHelpTopic);
    double baseEast, baseNorth, intervalEast, intervalNorth, angle;
    Grid().GetSnap(baseEast, baseNorth, intervalEast, intervalNorth, angle);
    ShowNumber(intervalEastField_, intervalEast);
    ShowNumber(intervalNorthField_, intervalNorth);
    ShowNumber(baseEastField_, baseEast);
    ShowNumber(baseNorthField_, baseNorth);
    ShowNumber(angleField_, angle);
    CheckDlgButton(kIdEnable, Grid().IsSnapActive());
    EnableFields();
}

void CCECADDlgPageSnap::EnableFields() {
    const bool on = IsDlgButtonChecked(kIdEnable);
    for (unsigned id : {kIdIntervalEast, kIdIntervalNorth, kIdAngle, kIdBaseNorth, kIdBaseEast})
        EnableDlgItem(id, on);
}

bool CCECADDlgPageSnap::OnCommand(unsigned id) {
    if (id == kIdEnable) {
        EnableFields();
        return true;
    }
    return CGridSnapPage::OnCommand(id);
}

bool CCECADDlgPageSnap::WriteToGrid() {
    // Read in the order of the page's data; the first field refused is the
    // one the user is sent to, and nothing reaches the grid.
    double angle = 0, baseEast = 0, baseNorth = 0, intervalEast = 0, intervalNorth = 0;
    if (!ReadNumber(angleField_, Range::Any, kIdEnable, angle) ||
        !ReadNumber(baseEastField_, Range::Any, kIdEnable, baseEast) ||
        !ReadNumber(baseNorthField_, Range::Any, kIdEnable, baseNorth) ||
        !ReadNumber(intervalEastField_, Range::Interval, kIdEnable, intervalEast) ||
        !ReadNumber(intervalNorthField_, Range::Interval, kIdEnable, intervalNorth))
        return false;
    angle_ = angle;
    baseEast_ = baseEast;
    baseNorth_ = baseNorth;
    intervalEast_ = intervalEast;
    intervalNorth_ = intervalNorth;
    Grid().SetSnap(IsDlgButtonChecked(kIdEnable), baseEast_, baseNorth_, intervalEast_,
                   intervalNorth_, angle_);
    return true;
}

}  // namespace veld5
