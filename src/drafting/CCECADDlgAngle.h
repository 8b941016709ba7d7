#pragma once
// The angle system dialog: the user picks degrees (origin East,
// counterclockwise) or gons (origin North, clockwise) for every angle the
// dialogs show and read. The dialog only moves a choice index between the
// caller and its two radio buttons; RunDlgAngle applies it to the CAD
// instance.
#include "ulo/ctrl/Dialog.h"

class CVELD;

namespace veld5 {

class CCECADDlgAngle : public CExDialog {
    Q_OBJECT
public:
    explicit CCECADDlgAngle(CWnd* parent);

    /// 0 degrees, 1 gons; -1 (no button checked) at construction.
    void SetSystemIndex(int index) { system_ = index; }
    int GetSystemIndex() const { return system_; }

protected:
    void OnInitDialog() override;
    void OnOK() override;

private:
    int system_ = -1;
};

/// ShowDlgAngle: ends the running command and clears the selection, then
/// lets the user choose; OK stores degrees (format 0, base 0, counterclockwise)
/// for index 0 and gons (format 2, base pi/2, clockwise) for any other.
/// True exactly when the dialog ended with OK.
bool RunDlgAngle(CWnd* parent, CVELD& cad);

}  // namespace veld5
