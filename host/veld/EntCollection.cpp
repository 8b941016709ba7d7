#include "EntCollection.h"

namespace veld {

void CEntTable::Add(CEnt* ent) {
    if (!ent)
        return;
    if (ent->GetHandle() == 0 && gestor_)
        ent->SetHandle(gestor_->NewHandle());
    AddEnt(ent);
}

CEnt* CEntTable::Find(unsigned long handle) const {
    for (unsigned i = 0; i < GetNoEnts(); ++i)
        if (GetEnt(i)->GetHandle() == handle)
            return GetEnt(i);
    return nullptr;
}

unsigned CEntTable::CountIn(const CDrawing* drawing) const {
    unsigned n = 0;
    for (unsigned i = 0; i < GetNoEnts(); ++i)
        n += GetEnt(i)->GetDrawing() == drawing ? 1 : 0;
    return n;
}

}  // namespace veld
