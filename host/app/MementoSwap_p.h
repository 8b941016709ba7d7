#pragma once
// One stored memento per object serves undo and redo alike: restore the
// object from the stored memento and keep a fresh one of the state it left.
#include "ulo/Memento.h"

namespace app_detail {

inline void SwapMemento(ulo::IMementable& object, ulo::IMemento*& stored) {
    if (!stored)
        return;
    ulo::IMemento* fresh = object.CreateMemento();
    object.SetMemento(stored);
    stored->SubReference();
    stored = fresh;
}

}  // namespace app_detail
