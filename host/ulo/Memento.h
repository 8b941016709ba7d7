#pragma once
// Mementos: a reference-counted snapshot of an object's state, taken with
// CreateMemento and put back with SetMemento.
#include <utility>

#include "RefCounter.h"

namespace ulo {

class IMemento : public IRefCounter {
public:
    /// Bytes held by the snapshot, for the undo list's memory accounting.
    virtual unsigned GetMemSize() const { return sizeof(*this); }

protected:
    IMemento() = default;
};

class IMementable {
public:
    virtual ~IMementable() = default;
    /// A new memento holding one reference for the caller.
    virtual IMemento* CreateMemento() const = 0;
    virtual bool HasChanged(const IMemento* memento) const = 0;
    void SetMemento(IMemento* memento) { OnSetMemento(memento); }

protected:
    virtual void OnSetMemento(IMemento* memento) = 0;
};

/// The memento swap: one stored memento per object serves undo and redo alike.
/// Takes a fresh memento, restores the object from the stored one and keeps
/// the fresh one in its place (the stored one is released). Nothing happens
/// without a stored memento.
inline void SwapMemento(IMementable& object, RefPtr<IMemento>& stored) {
    if (!stored)
        return;
    RefPtr<IMemento> fresh = RefPtr<IMemento>::Adopt(object.CreateMemento());
    object.SetMemento(stored.get());
    stored = std::move(fresh);
}

/// A memento that stores a copy of a value type.
template <class State>
class CValueMemento : public IMemento {
public:
    explicit CValueMemento(State state) : state(std::move(state)) {}
    unsigned GetMemSize() const override { return sizeof(*this); }
    State state;
};

}  // namespace ulo
