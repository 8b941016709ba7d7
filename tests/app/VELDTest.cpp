// The CAD instance: current items, angle system, colours, undo list and the
// layer and line type command, views, images and repaints.
#include <gtest/gtest.h>

#include <functional>
#include <numbers>
#include <set>
#include <string>
#include <vector>

#include "app/GColor.h"
#include "app/PropLayerLtypeCmdExecuted.h"
#include "app/UndoList.h"
#include "app/VELD.h"
#include "app/view/VELDView.h"

namespace {
/// A command that logs its calls and counts the live commands.
struct Log {
    std::vector<std::string> calls;
    int alive = 0;
};

class Command : public ICADCmdExecuted {
public:
    Command(Log& log, std::string name, unsigned size = 10, CVELD* cad = nullptr)
        : ICADCmdExecuted(cad), log_(log), name_(std::move(name)), size_(size) {
        ++log_.alive;
    }
    ~Command() override { --log_.alive; }
    unsigned GetMemSize() override { return size_; }

protected:
    void DoCADUndo() override { log_.calls.push_back("undo " + name_); }
    void DoCADRedo() override { log_.calls.push_back("redo " + name_); }

private:
    Log& log_;
    std::string name_;
    unsigned size_;
};
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

TEST(GColor, RedIsTheLowByteAndTheTopByteIsDropped) {
    const GColor c(0xFF804020);
    EXPECT_EQ(c.Red(), 0x20);
    EXPECT_EQ(c.Green(), 0x40);
    EXPECT_EQ(c.Blue(), 0x80);
    EXPECT_EQ(static_cast<unsigned long>(c), 0x804020u);
    EXPECT_EQ(c, GColor(0x804020));
    EXPECT_FALSE(c == GColor(0x804021));
}

TEST(UndoList, UndoRedoInOrderAndOwnership) {
    Log log;
    {
        CUndoList list;
        list.Add(new Command(log, "a"));
        list.Add(new Command(log, "b"));
        EXPECT_TRUE(list.Undo());
        EXPECT_TRUE(list.Undo());
        EXPECT_FALSE(list.Undo());
        EXPECT_TRUE(list.Redo());
        EXPECT_EQ(log.calls, (std::vector<std::string>{"undo b", "undo a", "redo a"}));
        list.Add(new Command(log, "c"));  // drops the undone "b"
        EXPECT_EQ(log.alive, 2);
        EXPECT_FALSE(list.CanRedo());
        EXPECT_TRUE(list.Undo());
        EXPECT_EQ(log.calls.back(), "undo c");
        list.Add(nullptr);
        EXPECT_EQ(list.GetCount(), 2u);
    }
    EXPECT_EQ(log.alive, 0);
}

TEST(UndoList, MemoryLimitDropsTheOldestButKeepsTheNewest) {
    Log log;
    CUndoList list(25);
    for (const char* name : {"a", "b", "c"})
        list.Add(new Command(log, name, 10));
    EXPECT_EQ(list.GetCount(), 2u);
    EXPECT_EQ(log.alive, 2);
    list.Add(new Command(log, "huge", 100));
    EXPECT_EQ(list.GetCount(), 1u);
    EXPECT_TRUE(list.Undo());
    EXPECT_EQ(log.calls.back(), "undo huge");
}

TEST(VELD, UndoListRunsTheCommandsAndRepaints) {
    Log log;
    {
        CVELD cad;
        int repaints = 0;
        cad.AddRedrawListener([&] { ++repaints; });
        cad.AddChange(new Command(log, "flip", 16, &cad));
        EXPECT_TRUE(cad.Undo());
        EXPECT_TRUE(cad.Redo());
        EXPECT_FALSE(cad.Redo());
        EXPECT_EQ(log.calls, (std::vector<std::string>{"undo flip", "redo flip"}));
        EXPECT_EQ(repaints, 3);
        EXPECT_EQ(log.alive, 1);
    }
    EXPECT_EQ(log.alive, 0);
}

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
        cad.GetData()->GetLayerTable().Remove(addLayer(cad, L"A", nullptr));
    }
    Log log;
    cad.AddChange(new Command(log, "flip", 16, &cad));
    using C = CVELD::Change;
    EXPECT_EQ(heard, (std::vector<C>{C::Redraw, C::Source, C::Source, C::UndoList}));
    EXPECT_EQ(cad.GetRedrawCount(), 1u);
    cad.RemoveChangeListener(id);
    redrawAllViews(cad);
    EXPECT_EQ(heard.size(), 4u);
    EXPECT_EQ(cad.GetRedrawCount(), 2u);
}

// Each setter reports its own variable, and nothing when the value stays;
// the angle system also chooses the converter.
TEST(VELD, SettersReportOnlyRealChanges) {
    CVELD cad;
    EXPECT_EQ(GetAngleConverter(&cad)->GetFormat(), 0u);
    veld::CVeldSourceEvent* own = cad.GetVeldSourceEvent();
    struct Row {
        const char* what;
        std::function<void(CVELD&)> set;
        int var;
    };
    const Row rows[] = {
        {"scale", [](CVELD& c) { SetLtypeScale(&c, 3.0); }, CVELD::kVarLtypeScale},
        {"angle", [](CVELD& c) { SetAngleSystem(&c, 2, std::numbers::pi / 2, true); },
         CVELD::kVarAngleSystem},
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
    EXPECT_EQ(GetAngleConverter(&cad)->GetFormat(), 2u);
    EXPECT_TRUE(GetAngleConverter(&cad)->IsClockWise());
    EXPECT_EQ(GetAngleConverter(&cad)->RadAngleToString(0.0), L"100.0000");
}

TEST(VELD, ImagesAreFoundByNameIgnoringCaseAndSpanTheirPixelCentres) {
    CVELD cad;
    auto dib = std::make_shared<pix::CDibImage>(QImage(101, 51, QImage::Format_RGB32));
    CVELDImage* ortho =
        cad.AddImage(std::make_unique<CVELDImage>(QStringLiteral("Ortho"), dib, 1.0, 1000, 2000));
    cad.AddImage(std::make_unique<CVELDImage>(QStringLiteral("plan"), dib));
    EXPECT_EQ(cad.GetNoImages(), 2);
    EXPECT_EQ(cad.FindImage(QStringLiteral("ORTHO")), ortho);
    EXPECT_EQ(cad.FindImage(QStringLiteral("missing")), nullptr);
    EXPECT_EQ(cad.GetImage(2), nullptr);
    // The maximum corner is the centre of the last pixel.
    EXPECT_DOUBLE_EQ(ortho->GetXMax(), 1100.0);
    EXPECT_DOUBLE_EQ(ortho->GetYMax(), 2050.0);
    ortho->Set(0.5, 10, 20);
    EXPECT_DOUBLE_EQ(ortho->GetXMax(), 60.0);
    EXPECT_DOUBLE_EQ(ortho->GetYMax(), 45.0);
    EXPECT_DOUBLE_EQ(CVELDImage(QStringLiteral("none"), nullptr, 2.0, 5, 5).GetXMax(), 5.0);
    EXPECT_TRUE(cad.RemoveImage(ortho));
    EXPECT_FALSE(cad.RemoveImage(ortho));
    EXPECT_EQ(cad.GetImage(0)->GetName(), QStringLiteral("plan"));
}

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
