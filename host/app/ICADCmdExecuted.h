#pragma once
// A command of the CAD instance's undo list: Undo and Redo run the command's
// DoCADUndo and DoCADRedo.
#include "ulo/CmdExecuted.h"

class CVELD;

class ICADCmdExecuted : public ulo::ICmdExecuted {
public:
    explicit ICADCmdExecuted(CVELD* cad) : cad_(cad) {}
    void Undo() override { DoCADUndo(); }
    void Redo() override { DoCADRedo(); }
    CVELD* GetVELD() const { return cad_; }

protected:
    virtual void DoCADUndo() = 0;
    virtual void DoCADRedo() = 0;

private:
    CVELD* cad_;
};
