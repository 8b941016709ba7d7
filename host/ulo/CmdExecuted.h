#pragma once
// An executed command kept in the host's undo list.

namespace ulo {

class ICmdExecuted {
public:
    virtual ~ICmdExecuted() = default;
    virtual void Undo() = 0;
    virtual void Redo() = 0;
    /// Memory the command holds, in bytes.
    virtual unsigned GetMemSize() = 0;
};

}  // namespace ulo
