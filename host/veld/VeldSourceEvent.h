#pragma once
// The drawing's change notification, with what changed besides the tables.
#include <vector>

#include "ulo/SourceEvent.h"

namespace veld {

class CVeldSourceEvent : public ulo::CSourceEvent {
public:
    /// A system variable changed (by number).
    void NotifyVarChanged(int variable) {
        changedVars_.push_back(variable);
        Changed();
    }
    void NotifyChangedDrawingOrder() {
        ++orderChanges_;
        Changed();
    }
    const std::vector<int>& GetChangedVars() const { return changedVars_; }
    unsigned GetOrderChanges() const { return orderChanges_; }

private:
    std::vector<int> changedVars_;
    unsigned orderChanges_ = 0;
};

}  // namespace veld
