#pragma once
// Undo and redo of a grid and snap change of one view: the memento swap on
// the view's grid.
#include "app/ICADCmdExecuted.h"
#include "ulo/Memento.h"

class CVELDView;

namespace veld5 {

class CGridSnapCmdExecuted : public ICADCmdExecuted {
public:
    /// Takes over the reference to @p before, a memento of the view's grid
    /// taken before the change.
    CGridSnapCmdExecuted(CVELDView* view, ulo::IMemento* before);
    unsigned GetMemSize() override;

protected:
    void DoCADUndo() override { Swap(); }
    void DoCADRedo() override { Swap(); }

private:
    void Swap();
    CVELDView* view_;
    ulo::RefPtr<ulo::IMemento> memento_;
};

}  // namespace veld5
