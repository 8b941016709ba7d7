#pragma once
// Object snap: how the cursor picks points (freely, by typed coordinates, or
// by snapping to the chosen features of existing entities). The dialog edits
// a copy of the CAD instance's switch and mask; the caller writes them back
// with CVELD::SetOSnapper after OK.
#include "ulo/ctrl/Dialog.h"

class CVELD;

namespace veld5 {

class CCECADDlgOSnap : public CExDialog {
    Q_OBJECT
public:
    /// Bits of the object snap mask that have no check box of their own.
    static constexpr unsigned kMaskCoordInput = 0x20000;

    explicit CCECADDlgOSnap(CVELD& cad, CWnd* parent = nullptr);

    bool IsOSnapperOn() const { return on_; }
    unsigned GetOSnapperMask() const { return mask_; }

protected:
    void OnInitDialog() override;
    void OnOK() override;
    bool OnCommand(unsigned id) override;

private:
    void ApplyMode(unsigned radioId);
    void EnableSnapTypes(bool enable);
    unsigned MaskFromCheckBoxes() const;

    unsigned mask_;
    bool on_;
};

/// The factory's ShowDlgOSnap: runs the dialog (no parent window) on @p cad
/// and, after OK only, hands its switch and mask to CVELD::SetOSnapper.
void RunDlgOSnap(CVELD& cad);

}  // namespace veld5
