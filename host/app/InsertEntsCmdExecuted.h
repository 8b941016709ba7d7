#pragma once
// CInsertEntsCmdExecuted: entities added to the drawing in one step (the texts
// of the text insertion, say). Undo takes them out of the drawing (and out of
// the selection), redo puts them back; the command keeps them alive between.
#include "ICADCmdExecuted.h"
#include "veld/EntCollection.h"

class CInsertEntsCmdExecuted : public ICADCmdExecuted {
public:
    /// Adds every entity of @p ents to the drawing of @p cad.
    CInsertEntsCmdExecuted(CVELD* cad, const veld::CEntCollection& ents);
    unsigned GetMemSize() override;
    unsigned GetNoEnts() const { return ents_.GetNoEnts(); }

protected:
    void DoCADUndo() override;
    void DoCADRedo() override;

private:
    veld::CEntCollection ents_;
};
