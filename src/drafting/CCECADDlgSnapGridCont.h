#pragma once
// The "Grid & Snap" dialog: a tab control over the snap page and the grid
// page, which edit the grid of a view in place. Leaving a page writes it into
// the grid and the view shows the result; Cancel puts the grid back, OK
// records the visit as one undoable command (none when nothing changed).
//
// A page whose fields do not hold acceptable numbers says why and keeps the
// grid as it was; the tab switch or the OK that tried to leave it is refused.
#include <QString>
#include <memory>

#include "app/Grid.h"
#include "res/templates/ControlIds.h"
#include "ulo/Memento.h"
#include "ulo/ctrl/Dialog.h"

class CVELDView;
class QTabBar;

namespace veld5 {

class CCECADDlgPageSnap;
class CCECADDlgPageGrid;
class CCECADDlgSnapGridCont;

/// A page of the container. SetActive fills it from the grid (OnSetActive);
/// KillActive (and WriteToGrid, which tells the container how it went)
/// writes it back.
class CGridSnapPage : public CExDialog {
    Q_OBJECT
public:
    CGridSnapPage(unsigned templateId, CCECADDlgSnapGridCont* container);
    /// Writes the page into the grid. Returns false, with the reason shown
    /// and the grid untouched, when a field the page reads is not acceptable.
    virtual bool WriteToGrid() = 0;
    void KillActive() override { WriteToGrid(); }

protected:
    /// A number field as the page filled it: a field the user leaves as shown
    /// gives back the grid's own value, not its rounded text.
    struct NumberField {
        NumberField(unsigned id, int decimals) : id(id), decimals(decimals) {}
        unsigned id;
        int decimals;
        QString shown;
        double value = 0.0;
        bool fromGrid = false;  // shown holds the grid's value
    };
    enum class Range { Any, Interval };

    CGrid& Grid() const;
    void ShowNumber(NumberField& field, double value);
    void ShowText(NumberField& field, const QString& text);
    /// Reads a field. A field in use (enabled) or edited must hold a number,
    /// and an interval one between 0.0001 and 1e100; otherwise the reason is
    /// shown, the focus goes into the field (onto @p enabler while the field
    /// is disabled) and the result is false.
    bool ReadNumber(const NumberField& field, Range range, unsigned enabler, double& value);
    /// Return and Escape in a page act on the container.
    bool OnCommand(unsigned id) override;

    CCECADDlgSnapGridCont* container_;
};

class CCECADDlgSnapGridCont : public CExDialog {
    Q_OBJECT
public:
    /// @p parent is the view whose grid is edited.
    explicit CCECADDlgSnapGridCont(CWnd* parent);
    ~CCECADDlgSnapGridCont() override;

    CGrid& GetGrid() const { return *grid_; }

protected:
    void OnInitDialog() override;
    void OnOK() override;
    void OnCancel() override;

private:
    /// Leaves the current page and shows page @p index (0 snap, 1 grid).
    /// False when the current page refused to be left.
    bool ShowPage(int index);
    /// Writes the current page into the grid; the view shows the result.
    bool LeaveCurrentPage();
    void TabChanged(int index);

    CVELDView* view_;
    CGrid spare_;  // edited when there is no view
    CGrid* grid_;
    ulo::RefPtr<ulo::IMemento> memento_;     // the grid at opening: Cancel, change test
    ulo::RefPtr<ulo::IMemento> cmdMemento_;  // handed to the undo command at OK
    std::unique_ptr<CCECADDlgPageSnap> snapPage_;
    std::unique_ptr<CCECADDlgPageGrid> gridPage_;
    CGridSnapPage* current_ = nullptr;
    int currentIndex_ = -1;
    QTabBar* tabs_ = nullptr;
    bool viewShowsEdits_ = false;
};

/// Runs the dialog on the grid of @p parent, a CVELDView; true when it ended
/// with OK. Without a view there is no grid to edit: nothing is shown.
bool RunDlgGridProp(CWnd* parent);

}  // namespace veld5
