#pragma once
// The line types dialog: the drawing's line types with a drawn sample of each
// pattern. The user loads line types from a library file ("Load..."),
// deletes one, makes one current and edits the global line type scale. Like
// the layers dialog it works through the table controller: loaded line types
// are in the drawing at once, and the caller commits or rolls back.
#include "CVELDLayerLtypeDlg.h"

class CVELDLtypeList;

namespace veld5 {

class CEVELDLtypeDLg : public CVELDLayerLtypeDlg {
    Q_OBJECT
public:
    CEVELDLtypeDLg(CLayerLtypeCtrlDlg* controller, CVELD* cad, CWnd* parent, int templateId);
    ~CEVELDLtypeDLg() override;

    /// The scale as last read from the edit.
    double GetScale() const { return scale_; }

protected:
    void OnInitDialog() override;
    QWidget* CreateCustomControl(const ulo::CtrlTemplate& ctrl, QWidget* parent) override;
    void FillList() override;
    CReportListView* List() const override;
    /// "Load...".
    void OnFirstAction() override;
    void OnDelete() override;
    std::optional<StringId> CurrentRefusal(const veld::ITableItem& item) const override;
    bool MakeSelCurrent() override;

private:
    void OnScaleEdited(const QString& text);

    CVELDLtypeList* list_ = nullptr;  // a child of the dialog, made with it
    double scale_ = 0;
};

/// ShowDlgLtype: one visit of the line types dialog (RunTableVisit).
void RunDlgLtype(CWnd* parent, CVELD& cad);

}  // namespace veld5
