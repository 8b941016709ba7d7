#pragma once
// The layers dialog: the drawing's layers in a list (name, on, freeze, lock,
// colour, line type) where the user creates, deletes, renames and makes
// current layers and switches their properties by tapping cells. Every
// change goes to the drawing at once, through the table controller, and the
// views are redrawn; the caller commits or rolls the visit back.
#include "CVELDLayerLtypeDlg.h"

class CVELDLayerList;

namespace veld {
class CLayer;
}

namespace veld5 {

class CEVELDLayerDLg : public CVELDLayerLtypeDlg {
    Q_OBJECT
public:
    CEVELDLayerDLg(CLayerLtypeCtrlDlg* controller, CVELD* cad, CWnd* parent, int templateId);
    ~CEVELDLayerDLg() override;

    void OnEndEditItem(QString text, int item) override;

protected:
    void OnInitDialog() override;
    QWidget* CreateCustomControl(const ulo::CtrlTemplate& ctrl, QWidget* parent) override;
    void FillList() override;
    CReportListView* List() const override;
    /// "New".
    void OnFirstAction() override;
    void OnDelete() override;
    std::optional<StringId> CurrentRefusal(const veld::ITableItem& item) const override;
    bool MakeSelCurrent() override;

private:
    void OnCellTapped(int row, int column);
    void OnColumnClicked(int column);
    void EditName(int row);
    void PickColour(veld::CLayer* layer);
    void PickLtype(veld::CLayer* layer);

    CVELDLayerList* list_ = nullptr;  // a child of the dialog, made with it
    int sortColumn_ = 0;
    int sortDirection_ = 1;
    bool changedSinceSort_ = false;
};

/// ShowDlgLayer: one visit of the layers dialog (RunTableVisit).
void RunDlgLayer(CWnd* parent, CVELD& cad);

}  // namespace veld5
