#include "LargeDrawing.h"

#include <cstdio>
#include <random>
#include <string>

#include "VELD.h"

namespace {

using ulo::geom::PNT_3D;

std::wstring numbered(const wchar_t* prefix, unsigned n) {
    wchar_t buf[32];
    std::swprintf(buf, 32, L"%ls%06u", prefix, n);
    return buf;
}

}  // namespace

void BuildLargeDrawing(CVELD& cad, const LargeDrawingSize& size) {
    auto data = std::make_unique<veld::CData>();
    const veld::CObjectFactory* make = data->GetObjectFactory();
    veld::CLtypeTable& ltypes = data->GetLtypeTable();
    veld::CStyle* standard = data->GetStyleTable().GetStyleStandard();

    std::vector<veld::CLtype*> dashed;
    for (int i = 0; i < 4; ++i) {
        veld::CLtypeComplexDashSeq seq;
        seq.AddDashDouble(1.0 + i);
        seq.AddDashDouble(-0.5 - 0.25 * i);
        veld::CLtype* t = make->CreateLtype(numbered(L"DASH", static_cast<unsigned>(i)),
                                            L"Dashed __ __", std::move(seq), 0, 0);
        ltypes.Add(t);
        t->SubReference();
        dashed.push_back(t);
    }

    std::vector<veld::CLayer*> layers{data->GetLayerTable().Find(L"0")};
    layers.reserve(size.layers + 1);
    for (unsigned i = 1; i <= size.layers; ++i) {
        veld::CLtype* lt = i % 5 == 0 ? dashed[i % dashed.size()] : ltypes.GetLtypeContinuous();
        veld::CLayer* l =
            make->CreateLayer(numbered(L"L", i), lt, static_cast<unsigned short>(1 + i % 255),
                              veld::kLineWidthDefault, 0, 0);
        data->GetLayerTable().Add(l);
        l->SubReference();
        layers.push_back(l);
    }

    veld::CDrawingManager* sets = data->GetDrawingManager();
    veld::CDrawing* plan = sets->GetActiveDrawing(0);
    veld::CDrawing* survey = sets->GetActiveDrawing(1);
    veld::CLtype* byLayer = ltypes.GetLtypeByLayer();

    std::mt19937 rng(size.seed);
    std::uniform_real_distribution<double> where(0.0, size.side);
    std::uniform_real_distribution<double> step(-5.0, 5.0);
    veld::CEntTable& ents = data->GetEntTable();
    ents.Reserve(size.entities);
    for (unsigned i = 0; i < size.entities; ++i) {
        veld::CLayer* layer = layers[i % layers.size()];
        const PNT_3D at{where(rng), where(rng), 0.0};
        const PNT_3D next{at.x + step(rng), at.y + step(rng), 0.0};
        veld::CEnt* e = nullptr;
        switch (i % 8) {
            case 0:
            case 1:
            case 2:
                e = new veld::CEntLine(at, next, layer, byLayer, 256, plan);
                break;
            case 3:
                e = new veld::CEntPolyline({at, next, {next.x + step(rng), next.y, 0.0}},
                                           i % 16 == 3, layer, byLayer, 256, plan);
                break;
            case 4:
                e = new veld::CEntCircle(at, 0.5 + std::abs(step(rng)) / 4, layer, byLayer, 256,
                                         plan);
                break;
            case 5:
            case 6:
                e = new veld::CEntPoint({at.x, at.y, 100.0 + step(rng)}, layer, byLayer, 256,
                                        survey);
                break;
            default:
                e = new veld::CEntText(veld::TEXT_3D(std::to_wstring(1000 + i), standard, 1.2, 0.0,
                                                     1.0, 0.0, at, 0, 0),
                                       layer, byLayer, 256, survey);
                break;
        }
        ents.Add(e);
        e->SubReference();
    }
    cad.SetData(std::move(data));
}
