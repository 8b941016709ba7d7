#pragma once
// The line type selection dialog: one of the drawing's line types picked from
// a list that draws each pattern. The layers dialog opens it for the line
// type of a layer.
//
// Give the line type to start from with SetPresetLtype (its row is selected
// and marked current), run DoModal, and after IDOK read GetChosenLtype: null
// when no row was selected or when the selected line type depends on an
// external reference (the user was told it cannot be made current, and the
// dialog still ends with IDOK).
#include "ulo/ctrl/Dialog.h"

class CVELD;
class CVELDLtypeList;

namespace veld {
class CLtype;
}

namespace veld5 {

class CCECADDlgSelType : public CExDialog {
    Q_OBJECT
public:
    /// @p cad is the CAD instance whose drawing's line types are listed.
    CCECADDlgSelType(CWnd* parent, CVELD* cad);
    ~CCECADDlgSelType() override;

    /// The line type shown selected and current when the dialog opens (null:
    /// none). Set it before DoModal.
    void SetPresetLtype(veld::CLtype* ltype) { preset_ = ltype; }
    /// The line type chosen with OK, or null. It belongs to the drawing's
    /// table; no reference is taken for the caller.
    veld::CLtype* GetChosenLtype() const { return chosen_; }

protected:
    void OnInitDialog() override;
    void OnOK() override;
    QWidget* CreateCustomControl(const ulo::CtrlTemplate& ctrl, QWidget* parent) override;

private:
    CVELD* cad_;
    CVELDLtypeList* list_ = nullptr;  // a child of the dialog, made with it
    veld::CLtype* preset_ = nullptr;
    veld::CLtype* chosen_ = nullptr;
};

}  // namespace veld5
