#include "LtypePickers.h"

#include "CCECADDlgSelType.h"
#include "CLtypeLoadDialog.h"
#include "factory/Scopes.h"
#include "veld/HandleObjectVectorCollection.h"
#include "veld/Ltype.h"

extern "C" {

int ShowDlgSelLtype(QWidget* parent, CVELD* cad, veld::CLtype* preset, veld::CLtype** chosen) {
    if (!cad || !chosen)
        return -1;
    *chosen = nullptr;
    veld5::CModuleResourceScope scope;
    veld5::CCECADDlgSelType dialog(parent, cad);
    dialog.SetPresetLtype(preset);
    const auto result = dialog.DoModal();
    if (result == ulo::IDOK)
        *chosen = dialog.GetChosenLtype();
    return static_cast<int>(result);
}

int ShowDlgLoadLtype(CVELD* cad, veld::CHandleObjectVectorCollection* created) {
    if (!cad || !created)
        return -1;
    veld5::CModuleResourceScope scope;
    veld5::CLtypeLoadDialog dialog(cad);
    const auto result = dialog.DoModal();
    if (result == ulo::IDOK)
        for (unsigned i = 0; i < dialog.GetNoNewLtypes(); ++i)
            created->Add(dialog.GetNewLtypeNo(i));
    return static_cast<int>(result);
}

}  // extern "C"
