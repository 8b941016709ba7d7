// The layer and line type table controller on the sample drawing: the rules
// and their warnings (each leaving the drawing as it was at once, before any
// Cancel), new layers, the rename check, and what Commit hands over.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "app/DrawingFile.h"
#include "app/SampleDrawing.h"
#include "app/VELD.h"
#include "tables/CLayerLtypeCtrlDlg.h"
#include "veld/Data.h"

using veld5::CLayerLtypeCtrlDlg;

namespace {

constexpr const wchar_t* kNotCurrent =
    L"The layer selected can not be made current.\r\n\r\nThe following layers can not be made "
    L"current:\r\n\t-XRef Layers\r\n\t-Frozen Layers";
constexpr const wchar_t* kNotDeleted =
    L"The layer selected is not was deleted.\r\n\r\nThe following layers can not be "
    L"deleted:\r\n\tLayer 0\r\n\tCurrent Layer\r\n\tXRef Layers\r\n\tLayers with objects";
constexpr const wchar_t* kLtypeNotDeleted =
    L"The line type selected has not been canceled.\r\n\r\nThe following types of line can not "
    L"be deleted.\r\n\tLine type ByBlock, ByLayer and Continuous\r\n\tLine type current\r\n\tLine "
    L"type Xref\r\n\tLine type in objects or layers";

std::string write(const CVELD& cad) {
    return drawingfile::Write(cad).toStdString();
}

struct Message {
    std::wstring caption, text;
    unsigned flags;
};

class Recorder : public CLayerLtypeCtrlDlg::IMsgNotification {
public:
    int ShowMessage(const wchar_t* caption, const wchar_t* text, unsigned flags) override {
        messages.push_back({caption, text, flags});
        return 1;
    }
    std::vector<Message> messages;
};

/// One visit of the dialogs: the sample drawing with two unused layers and an
/// unused line type added, and a controller made on it.
struct Visit {
    Visit() {
        BuildSampleDrawing(cad);
        for (const wchar_t* name : {L"SPARE1", L"SPARE2"}) {
            veld::CLayer* l = data()->GetObjectFactory()->CreateLayer(
                name, ltype(L"Continuous"), 30, veld::kLineWidthDefault, 0, 0);
            data()->GetLayerTable().Add(l);
            l->SubReference();
        }
        data()->GetLtypeTable().Add(newLtype(L"SPARE_LT", 1.0).get());
        writeBefore = write(cad);
        ctrl = ulo::RefPtr<CLayerLtypeCtrlDlg>::Adopt(new CLayerLtypeCtrlDlg(&cad));
        ctrl->SetNotifier(&recorder);
    }
    veld::CData* data() { return cad.GetData(); }
    veld::CLayer* layer(const wchar_t* name) { return veld::FindLayer(data(), name); }
    veld::CLtype* ltype(const wchar_t* name) { return data()->GetLtypeTable().Find(name); }
    /// A line type in no table, as the loading dialog makes them.
    ulo::RefPtr<veld::CLtype> newLtype(const wchar_t* name, double dash) {
        veld::CLtypeComplexDashSeq seq;
        seq.AddDashDouble(dash);
        seq.AddDashDouble(-dash / 2);
        return ulo::RefPtr<veld::CLtype>::Adopt(
            data()->GetObjectFactory()->CreateLtype(name, L"loaded", seq, 0, 0));
    }
    void select(const std::vector<const wchar_t*>& names) {
        ctrl->ClearSelLayers();
        for (const wchar_t* name : names)
            ctrl->AddSelLayer(layer(name));
    }

    CVELD cad;
    Recorder recorder;
    std::string writeBefore;
    ulo::RefPtr<CLayerLtypeCtrlDlg> ctrl;
};

}  // namespace

// Refusals: each shows its own text, caption "Warning", exclamation and OK,
// and leaves the drawing and the chosen current items as they were.
TEST(LayerLtypeCtrlRules, RefusalsWarnWordForWordAndChangeNothing) {
    struct Row {
        const char* what;
        std::function<void(Visit&)> prepare;
        std::function<bool(Visit&)> act;
        const wchar_t* text;
    };
    const auto makeCurrent = [](const wchar_t* name) {
        return [name](Visit& v) {
            v.select({name});
            return v.ctrl->MakeSelLayerCurrent();
        };
    };
    const auto erase = [](std::vector<const wchar_t*> names) {
        return [names](Visit& v) {
            v.select(names);
            v.ctrl->DeleteSelLayers();
            return false;
        };
    };
    const auto ltypeAct = [](const wchar_t* name, bool (CLayerLtypeCtrlDlg::*op)()) {
        return [name, op](Visit& v) {
            v.ctrl->SetSelLtype(name ? v.ltype(name) : nullptr);
            return ((*v.ctrl).*op)();
        };
    };
    const auto current = &CLayerLtypeCtrlDlg::MakeSelLtypeCurrent;
    const auto del = &CLayerLtypeCtrlDlg::DeleteSelLtype;
    const Row rows[] = {
        {"frozen layer made current", nullptr, makeCurrent(L"CONTOURS"), kNotCurrent},
        {"external layer made current", nullptr, makeCurrent(L"BASEMAP|ROADS"), kNotCurrent},
        {"nothing selected to erase", nullptr, erase({}), L"Select a layer to erase"},
        {"layer 0 alone", nullptr, erase({L"0"}), kNotDeleted},
        {"host's current layer", nullptr, erase({L"BUILDINGS"}), kNotDeleted},
        {"layer chosen current in the visit", makeCurrent(L"SPARE1"), erase({L"SPARE1"}),
         kNotDeleted},
        {"layer with objects", nullptr, erase({L"TREES"}), kNotDeleted},
        {"external layer", nullptr, erase({L"BASEMAP|ROADS"}), kNotDeleted},
        {"no line type to make current", nullptr, ltypeAct(nullptr, current),
         L"Select a linetype to make it current"},
        {"external line type made current", nullptr, ltypeAct(L"BASEMAP|TRACK", current),
         L"A type line XRef-dependent can not be made current"},
        {"no line type to erase", nullptr, ltypeAct(nullptr, del), L"Select a linetype to erase."},
        {"ByBlock", nullptr, ltypeAct(L"ByBlock", del), kLtypeNotDeleted},
        {"ByLayer", nullptr, ltypeAct(L"ByLayer", del), kLtypeNotDeleted},
        {"Continuous", nullptr, ltypeAct(L"Continuous", del), kLtypeNotDeleted},
        {"external line type", nullptr, ltypeAct(L"BASEMAP|TRACK", del), kLtypeNotDeleted},
        {"line type of a layer", nullptr, ltypeAct(L"HIDDEN", del), kLtypeNotDeleted},
        {"line type chosen current in the visit", ltypeAct(L"SPARE_LT", current),
         ltypeAct(L"SPARE_LT", del), kLtypeNotDeleted},
    };
    for (const Row& row : rows) {
        Visit v;
        ASSERT_TRUE(v.layer(L"TREES")->IsItemUsed());
        if (row.prepare)
            row.prepare(v);
        const std::string drawing = write(v.cad);
        veld::CLayer* curLayer = v.ctrl->GetCurLayer();
        veld::CLtype* curLtype = v.ctrl->GetCurLtype();
        v.recorder.messages.clear();

        EXPECT_FALSE(row.act(v)) << row.what;
        ASSERT_EQ(v.recorder.messages.size(), 1u) << row.what;
        EXPECT_EQ(v.recorder.messages[0].caption, L"Warning") << row.what;
        EXPECT_EQ(v.recorder.messages[0].text, row.text) << row.what;
        EXPECT_EQ(v.recorder.messages[0].flags, 0x30u) << row.what;
        EXPECT_EQ(write(v.cad), drawing) << row.what;
        EXPECT_EQ(v.ctrl->GetCurLayer(), curLayer) << row.what;
        EXPECT_EQ(v.ctrl->GetCurLtype(), curLtype) << row.what;
    }
}

TEST(LayerLtypeCtrlRules, SeveralSelectedDeleteWhatMayGoWithoutAWarning) {
    Visit v;
    v.select({L"0", L"SPARE1", L"TREES", L"SPARE2"});
    v.ctrl->DeleteSelLayers();
    EXPECT_TRUE(v.recorder.messages.empty());
    EXPECT_EQ(v.layer(L"SPARE1"), nullptr);
    EXPECT_EQ(v.layer(L"SPARE2"), nullptr);
    EXPECT_NE(v.layer(L"0"), nullptr);
    EXPECT_NE(v.layer(L"TREES"), nullptr);
    EXPECT_EQ(v.ctrl->GetNoSelLayers(), 0u);
}

TEST(LayerLtypeCtrlRules, NameChangeIsJudgedAgainstTheNameAtTheStart) {
    Visit v;
    v.layer(L"ROADS")->SetName(L"STREETS");  // renamed during the visit
    veld::CLayer* fresh = v.ctrl->NewLayer();
    struct Row {
        std::vector<const wchar_t*> selected;
        const wchar_t* name;
        bool changed;
    } const rows[] = {
        {{}, L"ANY", false},
        {{L"STREETS", L"TREES"}, L"ANY", false},
        {{L"STREETS"}, L"ROADS", false},
        {{L"STREETS"}, L"roads", true},
        {{L"STREETS"}, L"STREETS", true},
        {{L"TREES"}, L"TREES", false},
        {{L"TREES"}, L"", true},
        {{L"Layer1"}, L"Layer1", true},
    };
    ASSERT_EQ(fresh->GetName(), L"Layer1");
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        v.select(rows[i].selected);
        EXPECT_EQ(v.ctrl->IsLayerNameChanged(rows[i].name), rows[i].changed) << "row " << i;
    }
}

TEST(LayerLtypeCtrlNewLayer, TakesTheOneSelectedLayerOrTheCurrentOneAsModel) {
    struct Row {
        std::vector<const wchar_t*> selected;
        const wchar_t* model;
    } const rows[] = {
        {{}, L"BUILDINGS"},
        {{L"CONSTRUCTION"}, L"CONSTRUCTION"},
        {{L"CONSTRUCTION", L"TREES"}, L"BUILDINGS"},
    };
    for (const Row& row : rows) {
        Visit v;
        v.select(row.selected);
        const veld::CLayer* model = v.layer(row.model);
        for (const wchar_t* name : {L"Layer1", L"Layer2"}) {
            veld::CLayer* made = v.ctrl->NewLayer();
            EXPECT_EQ(made->GetName(), name) << row.model;
            EXPECT_EQ(v.layer(name), made) << row.model;
            EXPECT_EQ(made->GetColor(), model->GetColor()) << row.model;
            EXPECT_EQ(made->GetLtype(), model->GetLtype()) << row.model;
            EXPECT_EQ(made->GetLineWidth(), model->GetLineWidth()) << row.model;
            EXPECT_EQ(made->GetFlags(), model->GetFlags()) << row.model;
        }
    }
}

TEST(LayerLtypeCtrlNewLayer, LineTypeOfAnExistingNameTakesTheNewDefinition) {
    Visit v;
    const unsigned count = v.data()->GetLtypeTable().GetNoItems();
    const auto loaded = v.newLtype(L"dashed", 9.0);
    v.ctrl->AddLtype(loaded.get());
    EXPECT_EQ(v.data()->GetLtypeTable().GetNoItems(), count);
    EXPECT_EQ(v.ltype(L"DASHED")->GetName(), L"DASHED");
    EXPECT_TRUE(v.ltype(L"DASHED")->GetLtypeComplexDashSeq() == loaded->GetLtypeComplexDashSeq());
}

TEST(LayerLtypeCtrlEnd, LayerMadeAndDeletedInOneVisitLeavesNoTrace) {
    Visit v;
    const auto made = ulo::RefPtr<veld::CLayer>::Share(v.ctrl->NewLayer());
    v.select({L"Layer1"});
    v.ctrl->DeleteSelLayers();
    EXPECT_TRUE(v.recorder.messages.empty());
    v.ctrl->Commit();
    EXPECT_EQ(made->GetReferenceCount(), 1u);  // neither the table nor the command holds it
    EXPECT_EQ(write(v.cad), v.writeBefore);
    ASSERT_TRUE(v.cad.Undo());
    EXPECT_EQ(write(v.cad), v.writeBefore);
    ASSERT_TRUE(v.cad.Redo());
    EXPECT_EQ(write(v.cad), v.writeBefore);
}

TEST(LayerLtypeCtrlEnd, CommandHoldsOnlyChangedItemsAndDeletedOnesAsAtTheStart) {
    Visit v;
    veld::CLayer* roads = v.layer(L"ROADS");
    veld::CLayer* trees = v.layer(L"TREES");
    const auto spare = ulo::RefPtr<veld::CLayer>::Share(v.layer(L"SPARE1"));
    const unsigned short roadsColour = roads->GetColor(), spareColour = spare->GetColor();
    roads->SetColor(77);
    spare->SetColor(200);
    v.select({L"SPARE1"});
    v.ctrl->DeleteSelLayers();
    v.ctrl->Commit();
    EXPECT_EQ(spare->GetColor(), spareColour);
    EXPECT_EQ(roads->GetColor(), 77);

    // Changed after the visit: undo of the visit leaves TREES alone, since
    // the visit did not change it.
    trees->SetColor(55);
    ASSERT_TRUE(v.cad.Undo());
    EXPECT_EQ(roads->GetColor(), roadsColour);
    EXPECT_EQ(trees->GetColor(), 55);
    EXPECT_EQ(v.layer(L"SPARE1"), spare.get());
    EXPECT_EQ(spare->GetColor(), spareColour);
}
