#pragma once
// Undo and redo of a text styles session: the current style, the styles
// created and deleted, and the styles modified.
#include <vector>

#include "app/ICADCmdExecuted.h"
#include "ulo/Memento.h"
#include "veld/HandleObjectVectorCollection.h"
#include "veld/Style.h"

namespace veld5 {

class CPropStyleCmdExecuted : public ICADCmdExecuted {
public:
    /// Records the style current now, to return to on undo; construct it
    /// before @p newCurrent is made current.
    CPropStyleCmdExecuted(CVELD* cad, veld::CStyle* newCurrent,
                          const veld::CHandleObjectVectorCollection& created,
                          const veld::CHandleObjectVectorCollection& deleted);
    /// Records a modified style; the command takes over @p before.
    void Changed(veld::CStyle* style, ulo::IMemento* before);
    unsigned GetMemSize() override { return 64; }

protected:
    void DoCADUndo() override;
    void DoCADRedo() override;

private:
    void Apply(veld::CStyle* current, const veld::CHandleObjectVectorCollection& add,
               const veld::CHandleObjectVectorCollection& remove);

    ulo::RefPtr<veld::CStyle> before_;
    ulo::RefPtr<veld::CStyle> after_;
    veld::CHandleObjectVectorCollection modified_;
    veld::CHandleObjectVectorCollection created_;
    veld::CHandleObjectVectorCollection deleted_;
    std::vector<ulo::RefPtr<ulo::IMemento>> mementos_;
};

}  // namespace veld5
