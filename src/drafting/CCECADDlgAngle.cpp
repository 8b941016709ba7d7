#include "CCECADDlgAngle.h"

#include <numbers>

#include "app/VELD.h"
#include "factory/RunDialog.h"
#include "res/templates/ControlIds.h"
#include "ulo/PalmDevice.h"

namespace veld5 {

namespace {
constexpr short kFormatDegrees = 0;
constexpr short kFormatGons = 2;
}  // namespace

CCECADDlgAngle::CCECADDlgAngle(CWnd* parent)
    : CExDialog(CPalmDevice::SelectIdDlgStd(11040, 11041, 11042, 11043), parent) {}

void CCECADDlgAngle::OnInitDialog() {
    // An index outside the two buttons leaves both unchecked.
    const unsigned id = system_ == 0 ? ctl::Angle::kDegrees : system_ == 1 ? ctl::Angle::kGons : 0;
    CheckRadioButton(ctl::Angle::kDegrees, ctl::Angle::kGons, id);
}

void CCECADDlgAngle::OnOK() {
    const unsigned checked = GetCheckedRadioButton(ctl::Angle::kDegrees, ctl::Angle::kGons);
    system_ = checked ? static_cast<int>(checked - ctl::Angle::kDegrees) : -1;
    CExDialog::OnOK();
}

bool RunDlgAngle(CWnd* parent, CVELD& cad) {
    // The command in progress ends and the selection goes, whatever the
    // user then decides.
    cad.stopExecute();
    NtfyDeselectAll(&cad);
    short format = 0;
    double base = 0.0;
    bool clockwise = false;
    GetAngleSystem(&cad, format, base, clockwise);
    const auto make = [&] {
        auto dialog = std::make_unique<CCECADDlgAngle>(parent);
        // The dialog offers two systems: any stored one but degrees opens on gons.
        dialog->SetSystemIndex(format == kFormatDegrees ? 0 : 1);
        return dialog;
    };
    const auto store = [&](const CCECADDlgAngle& dialog) {
        if (dialog.GetSystemIndex() == 0)
            SetAngleSystem(&cad, kFormatDegrees, 0.0, false);
        else
            SetAngleSystem(&cad, kFormatGons, std::numbers::pi / 2, true);
    };
    return RunDialog(make, store) == ulo::IDOK;
}

}  // namespace veld5
