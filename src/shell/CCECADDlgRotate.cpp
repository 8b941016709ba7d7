#include "CCECADDlgRotate.h"

#include "ResString.h"
#include "factory/RunDialog.h"
#include "res/StringIds.h"
#include "ulo/PalmDevice.h"

namespace veld5 {

CCECADDlgRotate::CCECADDlgRotate(CWnd* parent)
    : CCECADDlgGetDoubleBase(CPalmDevice::SelectIdDlgStd(11068, 11069, 11070, 11071), parent) {}

void CCECADDlgRotate::OnInitDialog() {
    CCECADDlgGetDoubleBase::OnInitDialog();
    rotationType_ = 2;
    CheckRadioButton(ctl::Rotate::kOnePoint, ctl::Rotate::kAngle, ctl::Rotate::kAngle);
    EnableDlgItem(kIdValue, true);
}

bool CCECADDlgRotate::OnCommand(unsigned id) {
    if (id == ctl::Rotate::kOnePoint || id == ctl::Rotate::kTwoPoints) {
        // The reference point types take no typed angle; the field keeps its text.
        EnableDlgItem(kIdValue, false);
        return true;
    }
    if (id == ctl::Rotate::kAngle) {
        EnableDlgItem(kIdValue, true);
        return true;
    }
    return CCECADDlgGetDoubleBase::OnCommand(id);
}

void CCECADDlgRotate::ReadControls() {
    // The types in id order: one point, two points, an angle.
    const unsigned checked = GetCheckedRadioButton(ctl::Rotate::kOnePoint, ctl::Rotate::kAngle);
    rotationType_ = checked ? static_cast<int>(checked - ctl::Rotate::kOnePoint) : -1;
}

double CCECADDlgRotate::GetValue(int& code) const {
    if (rotationType_ >= 0 && rotationType_ <= 2)
        code = 4 + rotationType_;
    return GetValue();
}

long RunDlgRotate(CWnd* parent, double& angle) {
    const auto make = [&] {
        auto dialog = std::make_unique<CCECADDlgRotate>(parent);
        dialog->SetRequest(angle, LoadResString(ids::kSelectRotationType), true, true, true);
        return dialog;
    };
    int code = ulo::IDOK;
    const ulo::INT_PTR result =
        RunDialog(make, [&](const CCECADDlgRotate& dialog) { angle = dialog.GetValue(code); });
    return result == ulo::IDOK ? code : static_cast<long>(result);
}

}  // namespace veld5
