#include "Scopes.h"

#include "Module.h"

namespace veld5 {

CModuleResourceScope::CModuleResourceScope() : previous_(ulo::AfxGetResourceHandle()) {
    ulo::AfxSetResourceHandle(Module());
}

CModuleResourceScope::~CModuleResourceScope() {
    ulo::AfxSetResourceHandle(previous_);
}

}  // namespace veld5
