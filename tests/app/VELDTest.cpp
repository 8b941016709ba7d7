// The CAD instance: current items, angle system, colours, undo list and the
// layer and line type command, views, images and repaints. (Undo and redo of
// each command through the CAD instance: CommandsTest, VisitInvariantTest and
// DemoTest's Edit menu; the preset and grid of a view: ExportedHelpersTest,
// GridDialogTest; what the listeners hear: DemoTest, whose window repaints on
// them.)
#include <gtest/gtest.h>

#include <functional>
#include <numbers>
#include <string>
#include <vector>

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
veld::CLayer* addLayer(CVELD& cad, const wchar_t* name, veld::CLtype* ltype) {
    veld::CLayer* l = cad.GetData()->GetObjectFactory()->CreateLayer(name, ltype, 3,
                                                                     veld::kLineWidthDefault, 0, 0);
    cad.GetData()->GetLayerTable().Add(l);
    l->SubReference();
    return l;
}
}  // namespace

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

TEST(VELD, ViewsAttachAndDetachAndTheActiveOnePassesOn) {
    CVELDView* outliving = nullptr;
    {
        CVELD cad;
        EXPECT_EQ(cad.GetActiveView(), nullptr);
        CVELDView first(&cad);
        EXPECT_EQ(cad.GetActiveView(), &first);
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

TEST(VELD, ImagesSpanTheirPixelCentres) {
    CVELD cad;
    auto dib = std::make_shared<pix::CDibImage>(QImage(101, 51, QImage::Format_RGB32));
    CVELDImage* ortho =
        cad.AddImage(std::make_unique<CVELDImage>(QStringLiteral("Ortho"), dib, 1.0, 1000, 2000));
    cad.AddImage(std::make_unique<CVELDImage>(QStringLiteral("plan"), dib));
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

// The command's undo reaches the tables as one notification, and the command
// lets go of everything it holds.
TEST(LayerLtypeCommand, UndoNotifiesOnceAndTheCommandReleasesWhatItHolds) {
    CVELD cad;
    veld::CLtype* continuous = cad.GetData()->GetLtypeTable().GetLtypeContinuous();
    veld::CHandleObjectVectorCollection createdLayers, none;
    createdLayers.Add(addLayer(cad, L"A", continuous));
    createdLayers.Add(addLayer(cad, L"B", continuous));
    cad.AddChange(new CPropLayerLtypeCmdExecuted(&cad, nullptr, nullptr, GetLtypeScale(&cad),
                                                 createdLayers, none, none, none));
    ulo::CSourceEvent* tables = cad.GetData()->GetDataTablesSourceEvent();
    const unsigned notifications = tables->GetNotificationCount();
    ASSERT_TRUE(cad.Undo());
    EXPECT_EQ(tables->GetNotificationCount(), notifications + 1);
    EXPECT_EQ(cad.GetData()->GetLayerTable().Find(L"A"), nullptr);
    EXPECT_EQ(GetCurLayer(&cad)->GetName(), L"0");  // no new current layer: kept

    veld::CLayer* layer = addLayer(cad, L"KEPT", continuous);
    const unsigned layerRefs = layer->GetReferenceCount();
    const unsigned ltypeRefs = continuous->GetReferenceCount();
    {
        CPropLayerLtypeCmdExecuted command(&cad, layer, continuous, 1.0, none, none, none, none);
        command.Changed(layer, layer->CreateMemento());
        EXPECT_GT(layer->GetReferenceCount(), layerRefs);
    }
    EXPECT_EQ(layer->GetReferenceCount(), layerRefs);
    EXPECT_EQ(continuous->GetReferenceCount(), ltypeRefs);
}
