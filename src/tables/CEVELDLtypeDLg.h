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

    static constexpr unsigned kIdFilter = 11125;
    static constexpr unsigned kIdList = 11126;
    static constexpr unsigned kIdDelete = 11127;
    static constexpr unsigned kIdLoad = 11128;
    static constexpr unsigned kIdCurrent = 11129;
    static constexpr unsigned kIdScale = 11130;

protected:
    BOOL OnInitDialog() override;
    QWidget* CreateCustomControl(const ulo::CtrlTemplate& ctrl, QWidget* parent) override;
    void FillList() override;
    CReportListView* List() const override;
    /// "Load...".
    void OnFirstAction() override;
    void OnDelete() override;
    unsigned CurrentRefusal(const veld::ITableItem& item) const override;
    bool MakeSelCurrent() override;

private:
    void OnScaleEdited(const QString& text);

    CVELDLtypeList* list_ = nullptr;  // a child of the dialog, made with it
    double scale_ = 0;
};

}  // namespace veld5
