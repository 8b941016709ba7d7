// Entities and entity sets: mementos restore every property, references keep
// items alive and in use, the manager keeps order and one active set per type.
// (Finding sets: CommandsTest; sets left out: DrawingRendererTest.)
#include <gtest/gtest.h>

#include "veld/Data.h"

namespace {
using ulo::geom::PNT_3D;

struct Drawing {
    veld::CData data;
    veld::CLayer* zero = data.GetLayerTable().Find(L"0");
    veld::CLtype* byLayer = data.GetLtypeTable().GetLtypeByLayer();
    veld::CDrawingManager* sets = data.GetDrawingManager();

    veld::CLayer* layer(const wchar_t* name) {
        veld::CLayer* l = data.GetObjectFactory()->CreateLayer(
            name, data.GetLtypeTable().GetLtypeContinuous(), 3, veld::kLineWidthDefault, 0, 0);
        data.GetLayerTable().Add(l);
        l->SubReference();
        return l;
    }
    veld::CEnt* add(veld::CEnt* e) {
        data.GetEntTable().Add(e);
        e->SubReference();
        return e;
    }
    veld::CEnt* line(veld::CDrawing* set) {
        return add(new veld::CEntLine({0, 0, 0}, {1, 1, 0}, zero, byLayer, 256, set));
    }
    std::wstring order() const {
        std::wstring s;
        for (unsigned i = 0; i < sets->GetNoDrawings(); ++i)
            s += (s.empty() ? L"" : L",") + sets->GetDrawingAtPos(i)->GetName().str();
        return s;
    }
};
}  // namespace

TEST(Entity, MementoRestoresEveryPropertyAndHasChangedSeesEachOne) {
    Drawing d;
    veld::CLayer* walls = d.layer(L"WALLS");
    veld::CDrawing* cad = d.sets->GetActiveDrawing(0);
    veld::CDrawing* other = d.sets->AddDrawing(0, L"Other", true, false, false, true);
    const auto text = [&](const wchar_t* s, unsigned short alignment) {
        return veld::TEXT_3D(s, d.data.GetStyleTable().GetStyleStandard(), 2, 0, 1, 0,
                             PNT_3D{1, 2, 3}, alignment, 0);
    };
    auto* e = static_cast<veld::CEntText*>(
        d.add(new veld::CEntText(text(L"A", 0), d.zero, d.byLayer, 256, cad)));
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"colour", [&] { e->SetColor(1); }},
        {"layer", [&] { e->SetLayer(walls); }},
        {"line type", [&] { e->SetLtype(d.data.GetLtypeTable().GetLtypeByBlock()); }},
        {"entity set", [&] { e->ChangeDrawing(other); }},
        {"user type", [&] { e->SetUserType(veld::CVeldUserType::Survey()); }},
        {"position", [&] { e->Move(1, 0, 0); }},
        {"text", [&] { e->SetText(text(L"B", 0)); }},
        {"alignment", [&] { e->SetText(text(L"A", 4)); }},
    };
    for (const auto& [what, change] : changes) {
        ulo::IMemento* before = e->CreateMemento();
        EXPECT_FALSE(e->HasChanged(before)) << what;
        change();
        EXPECT_TRUE(e->HasChanged(before)) << what;
        e->SetMemento(before);
        EXPECT_FALSE(e->HasChanged(before)) << what;
        before->SubReference();
    }
    EXPECT_EQ(e->GetDrawing(), cad);
    EXPECT_EQ(e->GetLayer(), d.zero);
    EXPECT_EQ(e->GetString(), L"A");
    EXPECT_EQ(e->GetPoints().front(), (PNT_3D{1, 2, 3}));
}

TEST(Entity, ReferencesMakeItemsUsedAndKeepThemAlive) {
    Drawing d;
    veld::CLayer* walls = d.layer(L"WALLS");
    EXPECT_FALSE(walls->IsItemUsed());
    veld::CEnt* e = d.line(d.sets->GetActiveDrawing(0));
    e->SetLayer(walls);
    EXPECT_TRUE(walls->IsItemUsed());

    // A memento holds the layer too: removing it from the table leaves it
    // alive for the way back.
    ulo::IMemento* m = e->CreateMemento();
    e->SetLayer(d.zero);
    EXPECT_FALSE(walls->IsItemUsed());
    walls->AddReference();
    d.data.GetLayerTable().Remove(walls);
    EXPECT_EQ(walls->GetReferenceCount(), 2u);  // ours and the memento's
    walls->SubReference();
    e->SetMemento(m);
    m->SubReference();
    EXPECT_EQ(e->GetLayer()->GetName(), L"WALLS");
    EXPECT_EQ(walls->GetReferenceCount(), 1u);
}

TEST(Entity, TheTableGivesHandlesAndEachSetCountsItsOwn) {
    Drawing d;
    veld::CEnt* a = d.line(d.sets->GetActiveDrawing(0));
    veld::CEnt* b = d.line(d.sets->GetActiveDrawing(0));
    EXPECT_NE(a->GetHandle(), 0u);
    EXPECT_NE(a->GetHandle(), b->GetHandle());
    EXPECT_EQ(d.data.GetEntTable().Find(b->GetHandle()), b);
    EXPECT_EQ(d.sets->GetActiveDrawing(0)->GetEntTable()->GetNoEnts(), 2u);
    a->ChangeDrawing(d.sets->GetActiveDrawing(1));
    EXPECT_EQ(d.sets->GetActiveDrawing(0)->GetEntTable()->GetNoEnts(), 1u);
}

TEST(EntitySets, OrderActiveSetsAndLookups) {
    Drawing d;
    EXPECT_EQ(d.order(), L"CAD1,Topog1");
    veld::CDrawing* cad1 = d.sets->GetActiveDrawing(0);
    veld::CDrawing* cad2 = d.sets->AddDrawing(0, L"CAD2", true, false, false, true);
    veld::CDrawing* first = d.sets->AddDrawing(1, L"First", true, false, false, false);
    EXPECT_EQ(d.order(), L"First,CAD1,Topog1,CAD2");
    EXPECT_EQ(d.sets->GetActiveDrawing(0), cad1) << "a new set does not take over";

    EXPECT_EQ(d.sets->AddDrawing(3, L"X", true, false, false, true), nullptr);

    // Order: the listed sets first, the rest after in their old order.
    d.sets->ChangeOrder({cad2, first});
    EXPECT_EQ(d.order(), L"CAD2,First,CAD1,Topog1");

    EXPECT_TRUE(d.sets->SetActiveDrawing(cad2));
    EXPECT_EQ(d.sets->GetActiveDrawings(), (veld::CDrawingList{cad2, d.sets->GetActiveDrawing(1)}));
    // Removing the active set hands activity to the first remaining of its type.
    cad2->AddReference();
    EXPECT_TRUE(d.sets->RemoveDrawing(cad2));
    EXPECT_FALSE(d.sets->RemoveDrawing(cad2));
    EXPECT_EQ(d.sets->GetActiveDrawing(0), cad1);
    EXPECT_FALSE(d.sets->SetActiveDrawing(cad2)) << "not in the drawing";
    EXPECT_TRUE(d.sets->AddDrawing(cad2));
    EXPECT_FALSE(d.sets->AddDrawing(cad2));
    cad2->SubReference();
    EXPECT_EQ(d.order(), L"First,CAD1,Topog1,CAD2");

    // A new name skips the names taken, ignoring case; each type has its own stem.
    EXPECT_EQ(d.sets->GetNewSuitableName(0, {}), L"CAD1");
    EXPECT_EQ(d.sets->GetNewSuitableName(0, {L"cad1", L"CAD3"}), L"CAD2");
    EXPECT_EQ(d.sets->GetNewSuitableName(1, {L"Topog1", L"Topog2"}), L"Topog3");
    EXPECT_EQ(d.sets->GetNewSuitableName(2, {}), L"Points1");
}
