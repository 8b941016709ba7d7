#include "ChangeEntitiesCmdExecuted.h"

#include "VELD.h"
#include "veld/Ent.h"
#include "ulo/Memento.h"

CChangeEntitiesCmdExecuted::CChangeEntitiesCmdExecuted(CVELD* cad) : ICADCmdExecuted(cad) {}

CChangeEntitiesCmdExecuted::~CChangeEntitiesCmdExecuted() {
    for (auto& [entity, memento] : entries_) {
        if (memento)
            memento->SubReference();
        entity->SubReference();
    }
}

void CChangeEntitiesCmdExecuted::add(veld::CEnt* entity, ulo::IMemento* before) {
    if (!entity) {
        if (before)
            before->SubReference();
        return;
    }
    entity->AddReference();
    entries_.emplace_back(entity, before);
}

unsigned CChangeEntitiesCmdExecuted::GetMemSize() {
    unsigned size = sizeof(*this);
    for (const auto& [entity, memento] : entries_)
        size += static_cast<unsigned>(sizeof(entity)) + (memento ? memento->GetMemSize() : 0);
    return size;
}

void CChangeEntitiesCmdExecuted::DoCADUndo() {
    for (auto it = entries_.rbegin(); it != entries_.rend(); ++it)
        Swap(*it);
}

void CChangeEntitiesCmdExecuted::DoCADRedo() {
    for (auto& entry : entries_)
        Swap(entry);
}

void CChangeEntitiesCmdExecuted::Swap(std::pair<veld::CEnt*, ulo::IMemento*>& entry) {
    ulo::SwapMemento(*entry.first, entry.second);
    ReflectEntModified(GetVELD(), entry.first);
}
