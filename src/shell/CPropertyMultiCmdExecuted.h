#pragma once
// Undo and redo of an entity property change: the changed entities (through
// the host's entity command) and the global line type scale.
#include "app/ChangeEntitiesCmdExecuted.h"

namespace veld5 {

class CPropertyMultiCmdExecuted : public CChangeEntitiesCmdExecuted {
public:
    /// @p lineTypeScale is the scale to return to on undo.
    CPropertyMultiCmdExecuted(CVELD* cad, double lineTypeScale)
        : CChangeEntitiesCmdExecuted(cad), scale_(lineTypeScale) {}

protected:
    void DoCADUndo() override;
    void DoCADRedo() override;

private:
    void SwapScale();
    double scale_;
};

}  // namespace veld5
