// The exported preset view helpers reach the view, each with its own preset.
#include <gtest/gtest.h>

#include "app/VELD.h"
#include "factory/IVELDDlgFactory.h"

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
