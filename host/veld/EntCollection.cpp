#include "EntCollection.h"

#include <algorithm>

namespace veld {

void CEntCollection::AddEnt(CEnt* ent) {
    if (!ent)
        return;
    ent->AddReference();
    ents_.push_back(ent);
}

bool CEntCollection::RemoveEnt(const CEnt* ent) {
    const auto it = std::find(ents_.begin(), ents_.end(), ent);
    if (it == ents_.end())
        return false;
    CEnt* e = *it;
    ents_.erase(it);
    e->SubReference();
    return true;
}

bool CEntCollection::Contains(const CEnt* ent) const {
    return std::find(ents_.begin(), ents_.end(), ent) != ents_.end();
}

void CEntCollection::RemoveAllEnts() {
    // Release after emptying: a destructor that looks at the list finds it
    // consistent.
    std::vector<CEnt*> ents;
    ents.swap(ents_);
    for (CEnt* e : ents)
        e->SubReference();
}

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
