#pragma once
// CChangeEntitiesCmdExecuted: the undo command of changes to entities. Each
// changed entity is recorded with a memento of its state from before the
// change; undo and redo exchange the entity's state with the memento and tell
// the CAD instance that the entity changed.
//
// Derived commands that restore more than the entities override DoCADUndo
// and DoCADRedo and call these within their own work.
#include <utility>
#include <vector>

#include "ICADCmdExecuted.h"
#include "ulo/Memento.h"
#include "veld/Ent.h"

class CChangeEntitiesCmdExecuted : public ICADCmdExecuted {
public:
    explicit CChangeEntitiesCmdExecuted(CVELD* cad);

    /// Records @p entity (the command holds a reference on it) with its
    /// memento from before the change; the command takes over the caller's
    /// reference to @p before.
    void add(veld::CEnt* entity, ulo::IMemento* before);
    unsigned GetNoEnts() const { return static_cast<unsigned>(entries_.size()); }
    veld::CEnt* GetEnt(unsigned i) const {
        return i < entries_.size() ? entries_[i].first.get() : nullptr;
    }

    /// The command itself and every memento it holds.
    unsigned GetMemSize() override;

protected:
    /// Restores the entities, last recorded first.
    void DoCADUndo() override;
    /// Repeats the changes, first recorded first.
    void DoCADRedo() override;

private:
    using Entry = std::pair<ulo::RefPtr<veld::CEnt>, ulo::RefPtr<ulo::IMemento>>;
    void Swap(Entry& entry);
    std::vector<Entry> entries_;
};
