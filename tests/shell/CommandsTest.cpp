// The library's undo commands: undo, redo and undo again return the drawing to
// each state in turn. (The grid's: the grid dialog's random sessions.)
#include <gtest/gtest.h>

#include "app/DrawingFile.h"
#include "app/SampleDrawing.h"
#include "app/VELD.h"
#include "shell/CPropDrawingCmdExecuted.h"
#include "shell/CPropStyleCmdExecuted.h"
#include "shell/CPropertyMultiCmdExecuted.h"

namespace {
/// Undo, redo, undo: the drawing, as its file writes it, alternates between
/// @p before and what it is now, exactly.
void expectAlternates(CVELD& cad, const QByteArray& before) {
    const QByteArray after = drawingfile::Write(cad);
    EXPECT_NE(before, after);
    for (int i = 0; i < 3; ++i) {
        ASSERT_TRUE(i % 2 == 0 ? cad.Undo() : cad.Redo());
        EXPECT_EQ(drawingfile::Write(cad), i % 2 == 0 ? before : after) << "step " << i;
    }
}
}  // namespace

TEST(StyleCommand, UndoRedoUndoOfCreateDeleteChangeAndCurrent) {
    CVELD cad;
    veld::CStyleTable& table = cad.GetData()->GetStyleTable();
    const veld::ICADFont* font = veld::CFontTable::GetInstance()[0];
    for (const wchar_t* name : {L"Q", L"R"}) {
        veld::CStyle* s =
            cad.GetData()->GetObjectFactory()->CreateStyle(name, font, 1.0, 1.0, 0, 1, 0, 0);
        table.Add(s);
        s->SubReference();
    }
    const QByteArray before = drawingfile::Write(cad);
    // The dialog's session: create P, delete Q, change R's height, P current.
    veld::CHandleObjectVectorCollection created, deleted;
    veld::CStyle* p =
        cad.GetData()->GetObjectFactory()->CreateStyle(L"P", font, 2.0, 1.0, 0, 2, 0, 0);
    table.Add(p);
    created.Add(p);
    p->SubReference();
    veld::CStyle* q = table.Find(L"Q");
    deleted.Add(q);
    table.Remove(q);
    veld::CStyle* r = table.Find(L"R");
    ulo::IMemento* rBefore = r->CreateMemento();
    r->SetFixedHeight(7.5);
    auto* command = new veld5::CPropStyleCmdExecuted(&cad, p, created, deleted);
    SetCurStyle(&cad, p);
    command->Changed(r, rBefore);
    cad.AddChange(command);
    expectAlternates(cad, before);
}

TEST(EntitySetsCommand, UndoRedoUndoOfCreateDeleteRenameOrderAndActive) {
    CVELD cad;
    BuildSampleDrawing(cad);
    veld::CDrawingManager* sets = cad.GetData()->GetDrawingManager();
    const QByteArray before = drawingfile::Write(cad);
    const veld::CDrawingList activeBefore = sets->GetActiveDrawings();
    veld::CHandleObjectVectorCollection created, deleted, orderBefore;
    for (unsigned i = 0; i < sets->GetNoDrawings(); ++i)
        orderBefore.Add(sets->GetDrawingAtPos(i));

    // The dialog's OK: a new CAD set made active, "Details" deleted, "Plan"
    // renamed and switched off, and the two survey sets swapped.
    veld::CDrawing* plan = sets->FindDrawing(0, L"Plan");
    veld::CDrawing* details = sets->FindDrawing(0, L"Details");
    ulo::IMemento* planBefore = plan->CreateMemento();
    plan->SetName(L"Main plan");
    plan->SetVisible(false);
    veld::CDrawing* fresh = sets->AddDrawing(0, L"CAD1", true, false, false, true);
    created.Add(fresh);
    deleted.Add(details);
    sets->RemoveDrawing(details);
    sets->SetActiveDrawing(fresh);
    veld::CDrawingList order;
    for (const wchar_t* name :
         {L"Stations", L"Main plan", L"Stakeout", L"Survey", L"Basemap", L"CAD1"})
        for (unsigned i = 0; i < sets->GetNoDrawings(); ++i)
            if (sets->GetDrawingAtPos(i)->GetName() == name)
                order.push_back(sets->GetDrawingAtPos(i));
    sets->ChangeOrder(order);

    auto* command =
        new veld5::CPropDrawingCmdExecuted(&cad, activeBefore, created, deleted, orderBefore);
    command->Changed(plan, planBefore);
    cad.AddChange(command);
    expectAlternates(cad, before);
}

TEST(EntitySetsCommand, ActiveSetsAreFoundAgainByTypeAndName) {
    CVELD cad;
    veld::CDrawingManager* sets = cad.GetData()->GetDrawingManager();
    veld::CDrawing* cad1 = sets->GetActiveDrawing(0);
    veld::CDrawing* cad2 = sets->AddDrawing(0, L"CAD2", true, false, false, true);
    // A set that was active once but is in the drawing no more, and a set of
    // another drawing that shares a name with one of ours.
    auto* ghost = new veld::CDrawing(cad.GetData(), L"Ghost", 0, nullptr, sets->GetDrawingType(0));
    auto* twin = new veld::CDrawing(cad.GetData(), L"cad2", 0, nullptr, sets->GetDrawingType(0));
    veld::CHandleObjectVectorCollection none, order;
    order.Add(cad1);
    order.Add(cad2);

    for (const auto& [activeBefore, activeAfterUndo] : {std::pair{ghost, cad1}, {twin, cad2}}) {
        sets->SetActiveDrawing(cad1);
        cad.AddChange(new veld5::CPropDrawingCmdExecuted(&cad, {activeBefore}, none, none, order));
        ASSERT_TRUE(cad.Undo());
        EXPECT_EQ(sets->GetActiveDrawing(0), activeAfterUndo)
            << activeBefore->GetName().str().size();
    }
    ghost->SubReference();
    twin->SubReference();
}

TEST(EntityPropertyCommand, UndoRedoUndoOfEntitiesAndTheLineTypeScale) {
    CVELD cad;
    BuildSampleDrawing(cad);
    const QByteArray before = drawingfile::Write(cad);
    veld::CData* data = cad.GetData();
    veld::CLayer* roads = data->GetLayerTable().Find(L"ROADS");
    veld::CDrawing* details = data->GetDrawingManager()->FindDrawing(0, L"Details");

    const double oldScale = GetLtypeScale(&cad);
    auto* command = new veld5::CPropertyMultiCmdExecuted(&cad, oldScale);
    for (unsigned i : {0u, 3u, 20u}) {
        veld::CEnt* e = data->GetEntTable().GetEnt(i);
        ulo::IMemento* m = e->CreateMemento();
        e->SetLayer(roads);
        e->SetColor(static_cast<short>(10 + i));
        e->ChangeDrawing(details);
        command->add(e, m);
    }
    SetLtypeScale(&cad, 4.0);
    cad.AddChange(command);
    expectAlternates(cad, before);
    EXPECT_EQ(cad.GetReflectedEnts().size(), 9u) << "each undo and redo shows the three entities";
}
