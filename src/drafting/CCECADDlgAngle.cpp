#include "CCECADDlgAngle.h"

#include <numbers>

#include "app/VELD.h"
#include "factory/Scopes.h"
#include "shell/DialogIds.h"
#include "ulo/HelpTopic.h"
#include "ulo/PalmDevice.h"

namespace veld5 {

namespace {
constexpr short kFormatDegrees = 0;
constexpr short kFormatGons = 2;
}  // namespace

CCECADDlgAngle::CCECADDlgAngle(CWnd* parent)
    : CExDialog(CPalmDevice::SelectIdDlgStd(11040, 11041, 11042, 11043), parent) {
    SetOkCancelIds(kIdOk, kIdCancel);
}

BOOL CCECADDlgAngle::OnInitDialog() {
    CExDialog::OnInitDialog();
    ulo::SetHelpTopic(L"QuadraCE.htm#Dlg AngleSystem");
    // An index outside the two buttons leaves both unchecked.
    const unsigned id = system_ == 0 ? kIdDegrees : system_ == 1 ? kIdGons : 0;
    CheckRadioButton(kIdDegrees, kIdGons, id);
    GetDlgItem<CColButton>(kIdOk)->SetBtnColor(0, 2);
    GetDlgItem<CColButton>(kIdCancel)->SetBtnColor(0, 2);
    return TRUE;
}

void CCECADDlgAngle::OnOK() {
    const unsigned checked = GetCheckedRadioButton(kIdDegrees, kIdGons);
    system_ = checked ? static_cast<int>(checked - kIdDegrees) : -1;
    CExDialog::OnOK();
}

bool CCECADDlgAngle::OnCommand(unsigned id) {
    if (id == ulo::ID_HELP)
        return true;  // help comes only through the topic
    return CExDialog::OnCommand(id);
}

bool RunAngleSystemDialog(CWnd* parent, CVELD& cad) {
    CModuleResourceScope scope;
    // The command in progress ends and the selection goes, whatever the
    // user then decides.
    cad.stopExecute();
    NtfyDeselectAll(&cad);
    short format = 0;
    double base = 0.0;
    bool clockwise = false;
    GetAngleSystem(&cad, format, base, clockwise);

    CCECADDlgAngle dialog(parent);
    // The dialog offers two systems: any stored one but degrees opens on gons.
    dialog.SetSystemIndex(format == kFormatDegrees ? 0 : 1);
    if (dialog.DoModal() != ulo::IDOK)
        return false;
    if (dialog.GetSystemIndex() == 0)
        SetAngleSystem(&cad, kFormatDegrees, 0.0, false);
    else
        SetAngleSystem(&cad, kFormatGons, std::numbers::pi / 2, true);
    return true;
}

}  // namespace veld5
