// The host's layer and line type command: undo, redo and undo again walk the
// tables, the current items and the scale between the two states.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "app/PropLayerLtypeCmdExecuted.h"
#include "app/VELD.h"

namespace {
/// Everything the command covers, as comparable text (items by name).
std::wstring tableState(CVELD& cad) {
    std::set<std::wstring> items;
    veld::CData::CLayerIterator layers(cad.GetData(), true);
    while (veld::CLayer* l = layers.GetNext())
        items.insert(L"layer " + l->GetName().str() + L" colour " + std::to_wstring(l->GetColor()) +
                     L" ltype " + (l->GetLtype() ? l->GetLtype()->GetName().str() : L"-"));
    veld::CData::CLtypeIterator ltypes(cad.GetData(), true, true);
    while (veld::CLtype* t = ltypes.GetNext())
        items.insert(L"ltype " + t->GetName().str() + L" desc " + t->GetDesc().str());
    std::wstring s = L"layer=" + GetCurLayer(&cad)->GetName().str() + L" ltype=" +
                     GetCurLtype(&cad)->GetName().str() + L" scale=" +
                     std::to_wstring(GetLtypeScale(&cad));
    for (const auto& one : items)
        s += L"\n" + one;
    return s;
}

veld::CLtype* addLtype(CVELD& cad, const wchar_t* name) {
    veld::CLtypeComplexDashSeq seq;
    seq.AddDashDouble(1.0);
    seq.AddDashDouble(-0.5);
    veld::CLtype* t = cad.GetData()->GetObjectFactory()->CreateLtype(name, L"dashes", seq, 0, 0);
    cad.GetData()->GetLtypeTable().Add(t);
    t->SubReference();
    return t;
}

veld::CLayer* addLayer(CVELD& cad, const wchar_t* name, veld::CLtype* ltype) {
    veld::CLayer* l = cad.GetData()->GetObjectFactory()->CreateLayer(name, ltype, 3,
                                                                     veld::kLineWidthDefault, 0, 0);
    cad.GetData()->GetLayerTable().Add(l);
    l->SubReference();
    return l;
}
}  // namespace

TEST(LayerLtypeCommand, UndoRedoUndoOfEveryKindOfChange) {
    CVELD cad;
    veld::CLtype* continuous = cad.GetData()->GetLtypeTable().GetLtypeContinuous();
    veld::CLtype* oldDash = addLtype(cad, L"OLDDASH");
    veld::CLayer* walls = addLayer(cad, L"WALLS", continuous);
    veld::CLayer* doomed = addLayer(cad, L"DOOMED", oldDash);
    const std::wstring before = tableState(cad);

    // A dialog session: a new line type and a new layer using it, DOOMED and
    // OLDDASH deleted, WALLS recoloured and given the new line type, the new
    // layer and line type made current, the scale changed after the command.
    veld::CHandleObjectVectorCollection createdLayers, deletedLayers, createdLtypes, deletedLtypes;
    veld::CLtype* newDash = addLtype(cad, L"NEWDASH");
    createdLtypes.Add(newDash);
    veld::CLayer* fresh = addLayer(cad, L"FRESH", newDash);
    createdLayers.Add(fresh);
    deletedLayers.Add(doomed);
    cad.GetData()->GetLayerTable().Remove(doomed);
    deletedLtypes.Add(oldDash);
    cad.GetData()->GetLtypeTable().Remove(oldDash);
    ulo::IMemento* wallsBefore = walls->CreateMemento();
    walls->SetColor(5);
    walls->SetLtype(newDash);
    ulo::IMemento* contBefore = continuous->CreateMemento();
    continuous->SetDesc(L"solid line");

    const double scaleBefore = GetLtypeScale(&cad);
    auto* command = new CPropLayerLtypeCmdExecuted(&cad, fresh, newDash, scaleBefore, createdLayers,
                                                   deletedLayers, createdLtypes, deletedLtypes);
    SetCurLayer(&cad, fresh);
    command->Changed(walls, wallsBefore);
    SetCurLtype(&cad, newDash);
    SetLtypeScale(&cad, 2.5);
    command->Changed(continuous, contBefore);
    cad.AddChange(command);
    const std::wstring after = tableState(cad);
    ASSERT_NE(before, after);

    for (int i = 0; i < 3; ++i) {
        ASSERT_TRUE(i % 2 == 0 ? cad.Undo() : cad.Redo());
        EXPECT_EQ(tableState(cad), i % 2 == 0 ? before : after) << "step " << i;
    }
}

TEST(LayerLtypeCommand, ChangesReachTheTablesAsOneNotification) {
    CVELD cad;
    veld::CHandleObjectVectorCollection createdLayers, none;
    veld::CLayer* a = addLayer(cad, L"A", cad.GetData()->GetLtypeTable().GetLtypeContinuous());
    veld::CLayer* b = addLayer(cad, L"B", cad.GetData()->GetLtypeTable().GetLtypeContinuous());
    createdLayers.Add(a);
    createdLayers.Add(b);
    cad.AddChange(new CPropLayerLtypeCmdExecuted(&cad, nullptr, nullptr, GetLtypeScale(&cad),
                                                 createdLayers, none, none, none));
    ulo::CSourceEvent* tables = cad.GetData()->GetDataTablesSourceEvent();
    const unsigned notifications = tables->GetNotificationCount();
    ASSERT_TRUE(cad.Undo());
    EXPECT_EQ(tables->GetNotificationCount(), notifications + 1);
    EXPECT_EQ(cad.GetData()->GetLayerTable().Find(L"A"), nullptr);
    EXPECT_EQ(GetCurLayer(&cad)->GetName(), L"0");  // no new current layer: kept
}

TEST(LayerLtypeCommand, ReleasesEverythingItHolds) {
    CVELD cad;
    veld::CLtype* continuous = cad.GetData()->GetLtypeTable().GetLtypeContinuous();
    veld::CLayer* layer = addLayer(cad, L"KEPT", continuous);
    const unsigned layerRefs = layer->GetReferenceCount();
    const unsigned ltypeRefs = continuous->GetReferenceCount();
    veld::CHandleObjectVectorCollection none;
    {
        CPropLayerLtypeCmdExecuted command(&cad, layer, continuous, 1.0, none, none, none, none);
        command.Changed(layer, layer->CreateMemento());
        EXPECT_GT(layer->GetReferenceCount(), layerRefs);
    }
    EXPECT_EQ(layer->GetReferenceCount(), layerRefs);
    EXPECT_EQ(continuous->GetReferenceCount(), ltypeRefs);
}
