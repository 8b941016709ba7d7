// The module's scope objects restore what they changed on every exit path;
// its exported selection helper selects an entity once and deselects it.
#include <gtest/gtest.h>

#include <stdexcept>

#include "app/VELD.h"
#include "factory/IVELDDlgFactory.h"
#include "factory/Module.h"
#include "factory/Scopes.h"
#include "veld/EntCollection.h"

TEST(Scopes, ResourceModuleAndEventBracketRestoreOnExceptions) {
    const ulo::CResourceModule other("other", {}, {});
    ulo::AfxSetResourceHandle(&other);
    ulo::CSourceEvent source;
    try {
        veld5::CModuleResourceScope resources;
        veld5::CSourceEventScope events(&source);
        EXPECT_EQ(ulo::AfxGetResourceHandle(), static_cast<ulo::HINSTANCE>(veld5::Module()));
        EXPECT_EQ(source.GetDepth(), 1);
        throw std::runtime_error("dialog failed");
    } catch (const std::runtime_error&) {
    }
    EXPECT_EQ(ulo::AfxGetResourceHandle(), &other);
    EXPECT_EQ(source.GetDepth(), 0);
    ulo::AfxSetResourceHandle(nullptr);
    veld5::CSourceEventScope none(nullptr);  // no source: no bracket, no crash
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
