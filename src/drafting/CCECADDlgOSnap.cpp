#include "CCECADDlgOSnap.h"

#include <array>

#include "app/VELD.h"
#include "factory/RunDialog.h"
#include "res/StringIds.h"
#include "res/templates/ControlIds.h"
#include "shell/ResString.h"
#include "ulo/PalmDevice.h"

namespace veld5 {

namespace {

/// The check boxes kEndPoints to kNear and the mask bit of each, in id order.
constexpr unsigned kIdFirstType = ctl::OSnap::kEndPoints;
constexpr std::array<unsigned, 10> kTypeBits = {0x001, 0x002, 0x004, 0x010, 0x020,
                                                0x040, 0x080, 0x100, 0x200, 0x400};
static_assert(ctl::OSnap::kNear == kIdFirstType + kTypeBits.size() - 1);

bool IsTypeBox(unsigned id) {
    return id >= kIdFirstType && id < kIdFirstType + kTypeBits.size();
}

}  // namespace

CCECADDlgOSnap::CCECADDlgOSnap(CVELD& cad, CWnd* parent)
    : CExDialog(CPalmDevice::SelectIdDlgStd(11060, 11061, 11062, 11063), parent),
      mask_(cad.GetOSnapperMask()),
      on_(cad.IsOSnapperOn()) {}

void CCECADDlgOSnap::OnInitDialog() {
    const unsigned mode = !on_                        ? ctl::OSnap::kFree
                          : (mask_ & kMaskCoordInput) ? ctl::OSnap::kCoordInput
                                                      : ctl::OSnap::kSnap;
    CheckRadioButton(ctl::OSnap::kFree, ctl::OSnap::kSnap, mode);
    ApplyMode(mode);
    for (std::size_t i = 0; i < kTypeBits.size(); ++i)
        CheckDlgButton(kIdFirstType + static_cast<unsigned>(i), (mask_ & kTypeBits[i]) != 0);
}

void CCECADDlgOSnap::ApplyMode(unsigned radioId) {
    switch (radioId) {
        case ctl::OSnap::kFree:
            // The mask is kept, so that going back to "Snap" restores the choice.
            on_ = false;
            EnableSnapTypes(false);
            break;
        case ctl::OSnap::kCoordInput:
            mask_ |= kMaskCoordInput;
            on_ = true;
            EnableSnapTypes(false);
            break;
        case ctl::OSnap::kSnap:
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
    if (id >= ctl::OSnap::kFree && id <= ctl::OSnap::kSnap) {
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
    RunDialog([&] { return std::make_unique<CCECADDlgOSnap>(cad); },
              [&](const CCECADDlgOSnap& dialog) {
                  cad.SetOSnapper(dialog.IsOSnapperOn(), dialog.GetOSnapperMask());
              });
}

}  // namespace veld5
