// The CAD instance: current items, angle system, undo list, views and repaints.
#include <gtest/gtest.h>

#include <numbers>

#include "app/VELD.h"

namespace {
class FlipCommand : public ICADCmdExecuted {
public:
    FlipCommand(CVELD* cad, int& state, int& alive)
        : ICADCmdExecuted(cad), state_(state), alive_(alive) {
        ++alive_;
    }
    ~FlipCommand() override { --alive_; }
    unsigned GetMemSize() override { return 16; }

protected:
    void DoCADUndo() override { --state_; }
    void DoCADRedo() override { ++state_; }

private:
    int& state_;
    int& alive_;
};
}  // namespace

TEST(VELD, CurrentItemsHoldAReference) {
    CVELD cad;
    ASSERT_NE(GetCurLayer(&cad), nullptr);
    EXPECT_EQ(GetCurLayer(&cad)->GetName(), L"0");
    EXPECT_TRUE(GetCurLtype(&cad)->IsByLayer());
    EXPECT_EQ(GetCurStyle(&cad)->GetName(), L"STANDARD");
    veld::CLtype* cont = cad.GetData()->GetLtypeTable().GetLtypeContinuous();
    const unsigned refs = cont->GetReferenceCount();
    SetCurLtype(&cad, cont);
    EXPECT_EQ(cont->GetReferenceCount(), refs + 1);
    SetCurLtype(&cad, cont);
    EXPECT_EQ(cont->GetReferenceCount(), refs + 1);
    SetCurLtype(&cad, cad.GetData()->GetLtypeTable().GetLtypeByBlock());
    EXPECT_EQ(cont->GetReferenceCount(), refs);
}

TEST(VELD, AngleSystemChoosesTheConverter) {
    CVELD cad;
    EXPECT_EQ(GetAngleConverter(&cad)->GetFormat(), 0u);
    SetAngleSystem(&cad, 2, std::numbers::pi / 2, true);
    short system = 0;
    double base = 0;
    bool cw = false;
    GetAngleSystem(&cad, system, base, cw);
    EXPECT_EQ(system, 2);
    EXPECT_TRUE(cw);
    EXPECT_EQ(GetAngleConverter(&cad)->GetFormat(), 2u);
    EXPECT_TRUE(GetAngleConverter(&cad)->IsClockWise());
    EXPECT_EQ(GetAngleConverter(&cad)->RadAngleToString(0.0), L"100.0000");
}

TEST(VELD, UndoListRunsTheCommandsAndRepaints) {
    int state = 1, alive = 0;
    {
        CVELD cad;
        int repaints = 0;
        cad.AddRedrawListener([&] { ++repaints; });
        cad.AddChange(new FlipCommand(&cad, state, alive));
        EXPECT_TRUE(cad.Undo());
        EXPECT_EQ(state, 0);
        EXPECT_TRUE(cad.Redo());
        EXPECT_EQ(state, 1);
        EXPECT_FALSE(cad.Redo());
        EXPECT_EQ(repaints, 3);
        EXPECT_EQ(alive, 1);
    }
    EXPECT_EQ(alive, 0);
}

TEST(VELD, ViewsAttachAndKeepTheirGridAndPreset) {
    CVELD cad;
    {
        CVELDView view(&cad);
        EXPECT_EQ(cad.GetNoViews(), 1);
        EXPECT_EQ(cad.GetActiveView(), &view);
        SetPresetView(&view, 7);
        SetPresetView(&view, 11);  // out of range: ignored
        EXPECT_EQ(view.GetPresetView(), 7);
        GetViewGridForEdit(&view).SetGridBySnap();
        EXPECT_TRUE(GetViewGrid(&view).IsGridBySnap());
        SetDoColorSelectedEnts(&view, false);
        EXPECT_FALSE(view.GetColorSelected());
    }
    EXPECT_EQ(cad.GetNoViews(), 0);
}

TEST(VELD, NumericInput) {
    struct {
        const wchar_t* text;
        bool notNumeric;
    } const rows[] = {{L"0", false},  {L" 12x", false}, {L"-0.0", false}, {L"", true},
                      {L"abc", true}, {L"-", true},     {L".", true}};
    for (const auto& r : rows)
        EXPECT_EQ(not_numeric_input(r.text), r.notNumeric);
    EXPECT_TRUE(not_numeric_input(nullptr));
}
