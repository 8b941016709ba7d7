#include "UndoList.h"

void CUndoList::Add(ulo::ICmdExecuted* command) {
    if (!command)
        return;
    commands_.erase(commands_.begin() + static_cast<std::ptrdiff_t>(done_), commands_.end());
    commands_.emplace_back(command);
    done_ = commands_.size();
    while (commands_.size() > 1 && GetMemory() > limit_) {
        commands_.erase(commands_.begin());
        --done_;
    }
}

bool CUndoList::Undo() {
    if (!CanUndo())
        return false;
    commands_[--done_]->Undo();
    return true;
}

bool CUndoList::Redo() {
    if (!CanRedo())
        return false;
    commands_[done_++]->Redo();
    return true;
}

void CUndoList::Clear() {
    commands_.clear();
    done_ = 0;
}

std::size_t CUndoList::GetMemory() const {
    std::size_t total = 0;
    for (const auto& c : commands_)
        total += c->GetMemSize();
    return total;
}
