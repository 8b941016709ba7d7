#pragma once
// CVELDLayerLtypeDlg: what the layers and line types dialogs share. Both are
// views over one table controller (CLayerLtypeCtrlDlg): they hold a reference
// on it, receive its warnings as message boxes, and offer the "Show :" filter
// (all, in use, unused), a first action button ("New" or "Load..."),
// "Delete", "Current", OK and Cancel. The caller ends the visit on the
// controller (Commit after IDOK, Rollback otherwise).
#include <QString>
#include <functional>
#include <memory>

#include "CLayerLtypeCtrlDlg.h"
#include "res/templates/ControlIds.h"
#include "ulo/ctrl/Dialog.h"

class CVELD;

namespace veld5 {

class CListEdit;

class CVELDLayerLtypeDlg : public CExDialog, public CLayerLtypeCtrlDlg::IMsgNotification {
    Q_OBJECT
public:
    /// Control ids of the dialog's own layout.
    struct ControlIds {
        unsigned filter, first, remove, current;
    };
    CVELDLayerLtypeDlg(CLayerLtypeCtrlDlg* controller, CVELD* cad, CWnd* parent, int templateId,
                       ControlIds ids);
    ~CVELDLayerLtypeDlg() override;

    int ShowMessage(const wchar_t* caption, const wchar_t* text, unsigned flags) override;
    /// The name editor's edit of @p item ended with @p text.
    virtual void OnEndEditItem(QString text, int item);

    static constexpr unsigned kIdNameEdit = ctl::Layers::kNameEdit;
    /// Masks of the filter's items.
    static constexpr int kMaskInUse = 1;
    static constexpr int kMaskUnused = 2;

protected:
    void OnInitDialog() override;
    QWidget* CreateCustomControl(const ulo::CtrlTemplate& ctrl, QWidget* parent) override;
    /// Lists the items again, as the filter says.
    virtual void FillList() = 0;
    /// The filter's mask (kMaskInUse, kMaskUnused or both).
    int GetFilterMask() const;
    /// Repaints the views of the drawing after a live edit.
    void RedrawViews() const;

    CVELD* cad_;
    CLayerLtypeCtrlDlg* controller_;
    CListEdit* nameEdit_ = nullptr;  // a child of the dialog, made with it

private:
    ControlIds ids_;
};

/// Builds a table dialog around the controller of one visit.
using MakeTableDialog =
    std::function<std::unique_ptr<CVELDLayerLtypeDlg>(CLayerLtypeCtrlDlg* controller)>;

/// One visit of the layers or line types dialog that @p make builds: every
/// edit is live in the drawing while it runs, its notifications bracketed
/// into one; OK commits the visit as one undo step, any other end rolls it
/// back.
void RunTableVisit(CVELD& cad, const MakeTableDialog& make);

}  // namespace veld5
