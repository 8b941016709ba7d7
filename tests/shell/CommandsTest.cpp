// The library's undo commands: undo, redo and undo again return the drawing to
// each state in turn.
#include <gtest/gtest.h>

#include <set>

#include "app/VELD.h"
#include "shell/CGridSnapCmdExecuted.h"
#include "shell/CPropStyleCmdExecuted.h"

namespace {
/// The state the style command covers, as comparable text (styles by name:
/// a style put back joins the end of the table).
std::wstring styleState(CVELD& cad) {
    std::set<std::wstring> styles;
    veld::CData::CStyleIterator it(cad.GetData(), true);
    while (veld::CStyle* style = it.GetNext())
        styles.insert(style->GetName().str() + L":" + std::to_wstring(style->GetFixedHeight()));
    std::wstring s = L"current=" + GetCurStyle(&cad)->GetName().str();
    for (const auto& one : styles)
        s += L";" + one;
    return s;
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
    const std::wstring before = styleState(cad);

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
    const std::wstring after = styleState(cad);
    EXPECT_NE(before, after);
    EXPECT_EQ(command->GetMemSize(), 64u);

    ASSERT_TRUE(cad.Undo());
    EXPECT_EQ(styleState(cad), before);
    ASSERT_TRUE(cad.Redo());
    EXPECT_EQ(styleState(cad), after);
    ASSERT_TRUE(cad.Undo());
    EXPECT_EQ(styleState(cad), before);
}

TEST(GridCommand, UndoRedoUndoAlternatesTheSettings) {
    CVELD cad;
    CVELDView view(&cad);
    CGrid& grid = GetViewGridForEdit(&view);
    grid.SetSnap(false, 0, 0, 1, 1, 0);
    const CGrid old = grid;
    ulo::IMemento* before = grid.CreateMemento();
    grid.SetSnap(true, 10, 20, 5, 5, 30);
    grid.SetGridBySnap();
    const CGrid changed = grid;
    auto* command = new veld5::CGridSnapCmdExecuted(&view, before);
    EXPECT_GT(command->GetMemSize(), 16u);
    cad.AddChange(command);
    for (int i = 0; i < 3; ++i) {
        ASSERT_TRUE(i % 2 == 0 ? cad.Undo() : cad.Redo());
        EXPECT_TRUE(grid == (i % 2 == 0 ? old : changed)) << i;
    }
}
