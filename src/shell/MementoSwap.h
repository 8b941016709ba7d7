#pragma once
// The memento swap: one stored memento per object serves both directions.
// Take a fresh memento, restore the object from the stored one, release the
// stored one and keep the fresh one in its place.
#include "ulo/Memento.h"

namespace veld5 {

inline void SwapMemento(ulo::IMementable& object, ulo::IMemento*& stored) {
    ulo::IMemento* fresh = object.CreateMemento();
    object.SetMemento(stored);
    stored->SubReference();
    stored = fresh;
}

}  // namespace veld5
