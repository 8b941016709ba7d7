#include "CCECADDlgRotate.h"

#include "ulo/HelpTopic.h"
#include "ulo/PalmDevice.h"

namespace veld5 {

CCECADDlgRotate::CCECADDlgRotate(CWnd* parent)
    : CCECADDlgGetDoubleBase(CPalmDevice::SelectIdDlgStd(11068, 11069, 11070, 11071), parent) {}

BOOL CCECADDlgRotate::OnInitDialog() {
    CCECADDlgGetDoubleBase::OnInitDialog();
    rotationType_ = 2;
    CheckRadioButton(kIdFirstType, kIdLastType, kIdLastType);
    ulo::SetHelpTopic(L"QuadraCE.htm#Dlg ScegliRotazione");
    EnableDlgItem(kIdValue, true);
    return TRUE;
}

bool CCECADDlgRotate::OnCommand(unsigned id) {
    if (id == kIdFirstType || id == kIdFirstType + 1) {
        // The reference point types take no typed angle; the field keeps its text.
        EnableDlgItem(kIdValue, false);
        return true;
    }
    if (id == kIdLastType) {
        EnableDlgItem(kIdValue, true);
        return true;
    }
    return CCECADDlgGetDoubleBase::OnCommand(id);
}

void CCECADDlgRotate::ReadControls() {
    const unsigned checked = GetCheckedRadioButton(kIdFirstType, kIdLastType);
    rotationType_ = checked ? static_cast<int>(checked - kIdFirstType) : -1;
}

double CCECADDlgRotate::GetValue(int& code) const {
    if (rotationType_ >= 0 && rotationType_ <= 2)
        code = 4 + rotationType_;
    return GetValue();
}

}  // namespace veld5
