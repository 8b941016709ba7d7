#pragma once
// Undo and redo of an entity sets session: the sets created and deleted, the
// sets modified, the drawing order and the active set of each type.
#include <vector>

#include "app/ICADCmdExecuted.h"
#include "ulo/Memento.h"
#include "veld/Drawing.h"
#include "veld/HandleObjectVectorCollection.h"

namespace veld5 {

class CPropDrawingCmdExecuted : public ICADCmdExecuted {
public:
    /// Construct it after the changes are applied: the active sets and the
    /// order found now are what redo returns to.
    CPropDrawingCmdExecuted(CVELD* cad, const veld::CDrawingList& activeBefore,
                            const veld::CHandleObjectVectorCollection& created,
                            const veld::CHandleObjectVectorCollection& deleted,
                            const veld::CHandleObjectVectorCollection& orderBefore);
    /// Records a modified set; the command takes over @p before.
    void Changed(veld::CDrawing* drawing, ulo::IMemento* before);
    unsigned GetMemSize() override { return 120; }

protected:
    void DoCADUndo() override;
    void DoCADRedo() override;

private:
    void Apply(const veld::CHandleObjectVectorCollection& active,
               const veld::CHandleObjectVectorCollection& add,
               const veld::CHandleObjectVectorCollection& remove,
               const veld::CHandleObjectVectorCollection& order);

    // The collections hold a reference on every set they name, so a set that
    // leaves the drawing stays alive for the way back.
    veld::CHandleObjectVectorCollection activeBefore_;
    veld::CHandleObjectVectorCollection created_;
    veld::CHandleObjectVectorCollection deleted_;
    veld::CHandleObjectVectorCollection orderBefore_;
    veld::CHandleObjectVectorCollection modified_;
    std::vector<ulo::RefPtr<ulo::IMemento>> mementos_;
    veld::CHandleObjectVectorCollection activeAfter_;
    veld::CHandleObjectVectorCollection orderAfter_;
};

}  // namespace veld5
