// The exported preset view helpers reach the view, each with its own preset.
#include <gtest/gtest.h>

#include "app/VELD.h"
#include "app/view/VELDView.h"
#include "factory/IVELDDlgFactory.h"
#include "veld/EntCollection.h"

TEST(ExportedHelpers, PresetViewsInTheirOrder) {
    using Fn = void (*)(CVELDView*);
    const Fn helpers[] = {SetPresetViewTop,   SetPresetViewBottom, SetPresetViewFront,
                          SetPresetViewBack,  SetPresetViewLeft,   SetPresetViewRight,
                          SetPresetViewSWIso, SetPresetViewSEIso,  SetPresetViewNEIso,
                          SetPresetViewNWIso};
    CVELD cad;
    CVELDView view(&cad);
    for (int i = 0; i < 10; ++i) {
        helpers[i](&view);
        EXPECT_EQ(view.GetPresetView(), i + 1);
    }
}

TEST(ExportedHelpers, NtfySelectedEntSelectsAndDeselects) {
    CVELD cad;
    veld::CData* data = cad.GetData();
    auto* line = new veld::CEntLine({0, 0, 0}, {1, 0, 0}, data->GetLayerTable().Find(L"0"),
                                    data->GetLtypeTable().GetLtypeByLayer(), 256,
                                    data->GetDrawingManager()->GetActiveDrawing(0));
    data->GetEntTable().Add(line);
    line->SubReference();
    const veld::CEntCollection& selection = GetSelectedEntCollection(&cad);
    void (*exported)(CVELD*, veld::CEnt*, bool) = NtfySelectedEnt;
    exported(&cad, line, true);
    exported(&cad, line, true);
    EXPECT_EQ(selection.GetNoEnts(), 1u) << "selected once";
    exported(&cad, line, false);
    EXPECT_EQ(selection.GetNoEnts(), 0u);
}
