#include "LtypePickers.h"

#include "CCECADDlgSelType.h"
#include "CLtypeLoadDialog.h"
#include "factory/RunDialog.h"
#include "veld/HandleObjectVectorCollection.h"
#include "veld/Ltype.h"

extern "C" {

int ShowDlgSelLtype(QWidget* parent, CVELD* cad, veld::CLtype* preset, veld::CLtype** chosen) {
    if (!cad || !chosen)
        return -1;
    *chosen = nullptr;
    const auto make = [&] {
        auto dialog = std::make_unique<veld5::CCECADDlgSelType>(parent, cad);
        dialog->SetPresetLtype(preset);
        return dialog;
    };
    return static_cast<int>(veld5::RunDialog(
        make, [&](const veld5::CCECADDlgSelType& dialog) { *chosen = dialog.GetChosenLtype(); }));
}

int ShowDlgLoadLtype(CVELD* cad, veld::CHandleObjectVectorCollection* created) {
    if (!cad || !created)
        return -1;
    const auto make = [&] { return std::make_unique<veld5::CLtypeLoadDialog>(cad); };
    return static_cast<int>(veld5::RunDialog(make, [&](const veld5::CLtypeLoadDialog& dialog) {
        for (unsigned i = 0; i < dialog.GetNoNewLtypes(); ++i)
            created->Add(dialog.GetNewLtypeNo(i));
    }));
}

}  // extern "C"
