#include "InsertEntsCmdExecuted.h"

#include "VELD.h"

CInsertEntsCmdExecuted::CInsertEntsCmdExecuted(CVELD* cad, const veld::CEntCollection& ents)
    : ICADCmdExecuted(cad) {
    ents_.Reserve(ents.GetNoEnts());
    for (unsigned i = 0; i < ents.GetNoEnts(); ++i)
        ents_.AddEnt(ents.GetEnt(i));
    DoCADRedo();
}

unsigned CInsertEntsCmdExecuted::GetMemSize() {
    return static_cast<unsigned>(sizeof(*this) + ents_.GetNoEnts() * (sizeof(void*) + 256));
}

void CInsertEntsCmdExecuted::DoCADUndo() {
    CVELD* cad = GetVELD();
    for (unsigned i = 0; i < ents_.GetNoEnts(); ++i) {
        NtfyDeselectedEnt(cad, ents_.GetEnt(i));
        cad->GetData()->GetEntTable().RemoveEnt(ents_.GetEnt(i));
    }
    cad->NotifyChange(CVELD::Change::Entity);
}

void CInsertEntsCmdExecuted::DoCADRedo() {
    CVELD* cad = GetVELD();
    for (unsigned i = 0; i < ents_.GetNoEnts(); ++i)
        if (!cad->GetData()->GetEntTable().Contains(ents_.GetEnt(i)))
            cad->GetData()->GetEntTable().Add(ents_.GetEnt(i));
    cad->NotifyChange(CVELD::Change::Entity);
}
