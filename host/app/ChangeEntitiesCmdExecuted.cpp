#include "ChangeEntitiesCmdExecuted.h"

#include "VELD.h"

CChangeEntitiesCmdExecuted::CChangeEntitiesCmdExecuted(CVELD* cad) : ICADCmdExecuted(cad) {}

void CChangeEntitiesCmdExecuted::add(veld::CEnt* entity, ulo::IMemento* before) {
    auto memento = ulo::RefPtr<ulo::IMemento>::Adopt(before);
    if (entity)
        entries_.emplace_back(ulo::RefPtr<veld::CEnt>::Share(entity), std::move(memento));
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

void CChangeEntitiesCmdExecuted::Swap(Entry& entry) {
    ulo::SwapMemento(*entry.first, entry.second);
    ReflectEntModified(GetVELD(), entry.first.get());
}
