// The CAD instance: current items, angle system, undo list, views and repaints.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <numbers>
#include <vector>

#include "app/VELD.h"
#include "app/view/VELDView.h"

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

TEST(VELD, ViewsAttachAndDetachAndKeepTheirGridAndPreset) {
    CVELDView* outliving = nullptr;
    {
        CVELD cad;
        EXPECT_EQ(cad.GetActiveView(), nullptr);
        CVELDView first(&cad);
        EXPECT_EQ(cad.GetActiveView(), &first);
        SetPresetView(&first, 7);
        SetPresetView(&first, 11);  // out of range: ignored
        EXPECT_EQ(first.GetPresetView(), 7);
        GetViewGridForEdit(&first).SetGridBySnap();
        EXPECT_TRUE(GetViewGrid(&first).IsGridBySnap());
        {
            CVELDView second(&cad);
            EXPECT_EQ(cad.GetNoViews(), 2);
            cad.SetActiveView(&second);
            EXPECT_EQ(cad.GetActiveView(), &second);
        }
        EXPECT_EQ(cad.GetActiveView(), &first);
        EXPECT_EQ(cad.GetNoViews(), 1);
        outliving = new CVELDView(&cad);
    }
    EXPECT_EQ(outliving->GetVELD(), nullptr);  // a view outliving its CAD instance forgets it
    delete outliving;
}

TEST(VELD, NumericInput) {
    struct {
        const wchar_t* text;
        bool notNumeric;
    } const rows[] = {
        {L"0", false},  {L" 12 ", false}, {L"-0.0", false}, {L"1e3", false}, {L"+.5", false},
        {L"", true},    {L"   ", true},   {L"abc", true},   {L"-", true},    {L".", true},
        {L"12x", true}, {L"inf", true},   {L"nan", true},   {L"0x10", true}, {L"1 2", true},
    };
    for (const auto& r : rows)
        EXPECT_EQ(not_numeric_input(r.text), r.notNumeric)
            << QString::fromWCharArray(r.text).toStdString();
    EXPECT_TRUE(not_numeric_input(nullptr));
}

TEST(VELD, ListenersLearnWhyToLookAgain) {
    CVELD cad;
    std::vector<CVELD::Change> heard;
    const int id = cad.AddChangeListener([&](CVELD::Change why) { heard.push_back(why); });
    redrawAllViews(cad);
    SetCurLtype(&cad, cad.GetData()->GetLtypeTable().GetLtypeContinuous());  // own source event
    {
        ulo::CSourceEventBracket bracket(cad.GetData()->GetDataTablesSourceEvent());
        veld::CLayer* a = cad.GetData()->GetObjectFactory()->CreateLayer(
            L"A", nullptr, 1, veld::kLineWidthDefault, 0, 0);
        cad.GetData()->GetLayerTable().Add(a);
        cad.GetData()->GetLayerTable().Remove(a);
        a->SubReference();
    }
    int state = 0, alive = 0;
    cad.AddChange(new FlipCommand(&cad, state, alive));
    using C = CVELD::Change;
    EXPECT_EQ(heard, (std::vector<C>{C::Redraw, C::Source, C::Source, C::UndoList}));
    EXPECT_EQ(cad.GetRedrawCount(), 1u);
    cad.RemoveChangeListener(id);
    redrawAllViews(cad);
    EXPECT_EQ(heard.size(), 4u);
    EXPECT_EQ(cad.GetRedrawCount(), 2u);
}

TEST(VELD, SettersReportOnlyRealChanges) {
    CVELD cad;
    veld::CVeldSourceEvent* own = cad.GetVeldSourceEvent();
    struct Row {
        const char* what;
        std::function<void(CVELD&)> set;
        int var;
    };
    const Row rows[] = {
        {"scale", [](CVELD& c) { SetLtypeScale(&c, 3.0); }, CVELD::kVarLtypeScale},
        {"angle", [](CVELD& c) { SetAngleSystem(&c, 2, 1.0, true); }, CVELD::kVarAngleSystem},
        {"cross", [](CVELD& c) { SetCrossDim(&c, 0); }, CVELD::kVarCursor},
        {"pick", [](CVELD& c) { SetDeltaPick(&c, 9); }, CVELD::kVarCursor},
        {"grid colour", [](CVELD& c) { SetClrGrid(&c, 0x123456); }, CVELD::kVarColors},
        {"background", [](CVELD& c) { SetClrGrphWndBkGrnd(&c, 0x808080); }, CVELD::kVarColors},
        {"selected", [](CVELD& c) { SetClrEntSelected(&c, 0x00FF00); }, CVELD::kVarColors},
        {"cross hair", [](CVELD& c) { SetClrCrossHair(&c, 0x0000FF); }, CVELD::kVarColors},
        {"osnap", [](CVELD& c) { c.SetOSnapper(true, 0x24); }, CVELD::kVarOSnap},
    };
    for (const Row& r : rows) {
        const std::size_t before = own->GetChangedVars().size();
        r.set(cad);
        ASSERT_EQ(own->GetChangedVars().size(), before + 1) << r.what;
        EXPECT_EQ(own->GetChangedVars().back(), r.var) << r.what;
        r.set(cad);  // the same value again: nothing to report
        EXPECT_EQ(own->GetChangedVars().size(), before + 1) << r.what;
    }
}

TEST(VELD, ImagesAreFoundByNameIgnoringCase) {
    CVELD cad;
    auto dib = std::make_shared<pix::CDibImage>(QImage(4, 3, QImage::Format_RGB32));
    CVELDImage* ortho = cad.AddImage(std::make_unique<CVELDImage>(QStringLiteral("Ortho"), dib));
    cad.AddImage(std::make_unique<CVELDImage>(QStringLiteral("plan"), dib));
    EXPECT_EQ(cad.GetNoImages(), 2);
    EXPECT_EQ(cad.FindImage(QStringLiteral("ORTHO")), ortho);
    EXPECT_EQ(cad.FindImage(QStringLiteral("missing")), nullptr);
    EXPECT_EQ(cad.GetImage(2), nullptr);
    EXPECT_TRUE(cad.RemoveImage(ortho));
    EXPECT_FALSE(cad.RemoveImage(ortho));
    EXPECT_EQ(cad.GetImage(0)->GetName(), QStringLiteral("plan"));
}
