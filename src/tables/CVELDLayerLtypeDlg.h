#pragma once
// CVELDLayerLtypeDlg: what the layers and line types dialogs share. Both are
// views over one table controller (CLayerLtypeCtrlDlg): they hold a reference
// on it, receive its warnings as message boxes, and offer the "Show :" filter
// (all, in use, unused), a first action button ("New" or "Load..."),
// "Delete", "Current", OK and Cancel. The caller ends the visit on the
// controller (Commit after IDOK, Rollback otherwise).
#include <QString>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "CLayerLtypeCtrlDlg.h"
#include "res/StringIds.h"
#include "res/templates/ControlIds.h"
#include "ulo/ctrl/Dialog.h"
#include "veld/Data.h"

class CReportListView;
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
    /// The first action button, "Delete" and "Current".
    bool OnCommand(unsigned id) override;
    /// Lists the items again, as the filter says.
    virtual void FillList() = 0;
    /// The dialog's list.
    virtual CReportListView* List() const = 0;
    /// The first action button ("New", "Load...").
    virtual void OnFirstAction() = 0;
    /// "Delete".
    virtual void OnDelete() = 0;
    /// The text of the warning that refuses to make @p item current, if
    /// one does.
    virtual std::optional<StringId> CurrentRefusal(const veld::ITableItem& item) const = 0;
    /// Has the controller make the selected item current; false when it
    /// refuses.
    virtual bool MakeSelCurrent() = 0;
    /// The items of @p data that @p it gives and the filter lets through, in
    /// table order; private items never. @p expected: how many to make room
    /// for.
    template <class T, class Iterator>
    std::vector<T*> ListedItems(const veld::CData& data, Iterator it,
                                std::size_t expected = 0) const {
        const int mask = GetFilterMask();
        // One pass over the drawing tells which items are in use, where
        // asking each item would walk the drawing once per item.
        const veld::CData::CItemUsage usage(data);
        std::vector<T*> items;
        items.reserve(expected);
        while (T* item = it.GetNext())
            if (IsListed(*item, usage, mask))
                items.push_back(item);
        return items;
    }
    /// The filter's mask (kMaskInUse, kMaskUnused or both).
    int GetFilterMask() const;
    /// Repaints the views of the drawing after a live edit.
    void RedrawViews() const;

    CVELD* cad_;
    CLayerLtypeCtrlDlg* controller_;
    CListEdit* nameEdit_ = nullptr;  // a child of the dialog, made with it

private:
    static bool IsListed(const veld::ITableItem& item, const veld::CData::CItemUsage& usage,
                         int mask);
    void OnCurrent();

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
