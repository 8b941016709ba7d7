#include "CPropertyMultiCmdExecuted.h"

#include "app/VELD.h"
#include "factory/Scopes.h"

namespace veld5 {

void CPropertyMultiCmdExecuted::SwapScale() {
    CVELD* cad = GetVELD();
    const double now = GetLtypeScale(cad);
    SetLtypeScale(cad, scale_);
    scale_ = now;
}

void CPropertyMultiCmdExecuted::DoCADUndo() {
    CSourceEventScope scope(GetVELD()->GetVeldSourceEvent());
    SwapScale();
    CChangeEntitiesCmdExecuted::DoCADUndo();
}

void CPropertyMultiCmdExecuted::DoCADRedo() {
    CSourceEventScope scope(GetVELD()->GetVeldSourceEvent());
    SwapScale();
    CChangeEntitiesCmdExecuted::DoCADRedo();
}

}  // namespace veld5
