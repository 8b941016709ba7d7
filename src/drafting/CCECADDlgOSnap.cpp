#include "CCECADDlgOSnap.h"

#include <array>

#include "app/VELD.h"
#include "factory/Scopes.h"
#include "res/StringIds.h"
#include "shell/DialogIds.h"
#include "shell/ResString.h"
#include "ulo/HelpTopic.h"
#include "ulo/PalmDevice.h"

namespace veld5 {

namespace {

/// The check boxes 1138 to 1147 and the mask bit of each, in id order.
constexpr unsigned kIdFirstType = 1138;
constexpr std::array<unsigned, 10> kTypeBits = {0x001, 0x002, 0x004, 0x010, 0x020,
                                                0x040, 0x080, 0x100, 0x200, 0x400};

bool IsTypeBox(unsigned id) {
    return id >= kIdFirstType && id < kIdFirstType + kTypeBits.size();
}

}  // namespace

CCECADDlgOSnap::CCECADDlgOSnap(CVELD& cad, CWnd* parent)
    : CExDialog(CPalmDevice::SelectIdDlgStd(11060, 11061, 11062, 11063), parent),
      mask_(cad.GetOSnapperMask()),
      on_(cad.IsOSnapperOn()) {
    SetOkCancelIds(kIdOk, kIdCancel);
}

BOOL CCECADDlgOSnap::OnInitDialog() {
    if (!CExDialog::OnInitDialog())
        return FALSE;
    ulo::SetHelpTopic(L"QuadraCE.htm#Dlg SelTypeSnap");
    GetDlgItem<CColButton>(kIdOk)->SetBtnColor(0, 2);
    GetDlgItem<CColButton>(kIdCancel)->SetBtnColor(0, 2);

    const unsigned mode = !on_ ? kIdFree : (mask_ & kMaskCoordInput) ? kIdCoordInput : kIdSnap;
    CheckRadioButton(kIdFree, kIdSnap, mode);
    ApplyMode(mode);
    for (std::size_t i = 0; i < kTypeBits.size(); ++i)
        CheckDlgButton(kIdFirstType + static_cast<unsigned>(i), (mask_ & kTypeBits[i]) != 0);
    return TRUE;
}

void CCECADDlgOSnap::ApplyMode(unsigned radioId) {
    switch (radioId) {
        case kIdFree:
            // The mask is kept, so that going back to "Snap" restores the choice.
            on_ = false;
            EnableSnapTypes(false);
            break;
        case kIdCoordInput:
            mask_ |= kMaskCoordInput;
            on_ = true;
            EnableSnapTypes(false);
            break;
        case kIdSnap:
            EnableSnapTypes(true);
            mask_ &= ~kMaskCoordInput;
            on_ = true;
            break;
        default:
            break;
    }
}

void CCECADDlgOSnap::EnableSnapTypes(bool enable) {
    for (std::size_t i = 0; i < kTypeBits.size(); ++i)
        EnableDlgItem(kIdFirstType + static_cast<unsigned>(i), enable);
}

unsigned CCECADDlgOSnap::MaskFromCheckBoxes() const {
    unsigned mask = 0;
    for (std::size_t i = 0; i < kTypeBits.size(); ++i)
        if (IsDlgButtonChecked(kIdFirstType + static_cast<unsigned>(i)))
            mask |= kTypeBits[i];
    return mask;
}

bool CCECADDlgOSnap::OnCommand(unsigned id) {
    if (id >= kIdFree && id <= kIdSnap) {
        ApplyMode(id);
        return true;
    }
    if (IsTypeBox(id)) {
        // The boxes alone make the mask: bits without a box fall away here.
        mask_ = MaskFromCheckBoxes();
        on_ = true;
        return true;
    }
    return CExDialog::OnCommand(id);
}

void CCECADDlgOSnap::OnOK() {
    if (on_ && mask_ == 0) {
        Warn(this, ids::kOneSnapRequired);
        return;
    }
    CExDialog::OnOK();
}

void RunDlgOSnap(CVELD& cad) {
    CModuleResourceScope scope;
    CCECADDlgOSnap dialog(cad);
    if (dialog.DoModal() == ulo::IDOK)
        cad.SetOSnapper(dialog.IsOSnapperOn(), dialog.GetOSnapperMask());
}

}  // namespace veld5
