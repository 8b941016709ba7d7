#include "SourceEvent.h"

#include <algorithm>

namespace ulo {

void CSourceEvent::EndEvent() {
    if (depth_ == 0)
        return;  // unbalanced EndEvent: ignore rather than underflow
    if (--depth_ == 0 && pending_)
        Notify();
}

void CSourceEvent::Changed() {
    pending_ = true;
    if (depth_ == 0)
        Notify();
}

void CSourceEvent::AddListener(ISourceEventListener* listener) {
    if (std::find(listeners_.begin(), listeners_.end(), listener) == listeners_.end())
        listeners_.push_back(listener);
}

void CSourceEvent::RemoveListener(ISourceEventListener* listener) {
    listeners_.erase(std::remove(listeners_.begin(), listeners_.end(), listener), listeners_.end());
}

void CSourceEvent::Notify() {
    pending_ = false;
    ++notifications_;
    // A listener may unsubscribe while being told; walk a copy.
    const auto listeners = listeners_;
    for (auto* l : listeners)
        l->OnSourceEvent(*this);
}

}  // namespace ulo
