#pragma once
// The undo list: owns the commands handed to it. A new command after some
// undos discards the undone ones; the oldest commands are dropped while the
// memory the list holds (the commands' GetMemSize) exceeds its limit, but the
// newest command always stays.
#include <cstddef>
#include <memory>
#include <vector>

#include "ulo/CmdExecuted.h"

class CUndoList {
public:
    explicit CUndoList(std::size_t memoryLimit = 16u << 20) : limit_(memoryLimit) {}
    /// Takes ownership of @p command (done state).
    void Add(ulo::ICmdExecuted* command);
    bool CanUndo() const { return done_ > 0; }
    bool CanRedo() const { return done_ < commands_.size(); }
    /// False when there is nothing to undo (redo).
    bool Undo();
    bool Redo();
    void Clear();
    std::size_t GetCount() const { return commands_.size(); }
    std::size_t GetDoneCount() const { return done_; }
    std::size_t GetMemory() const;

private:
    std::vector<std::unique_ptr<ulo::ICmdExecuted>> commands_;
    std::size_t done_ = 0;
    std::size_t limit_;
};
