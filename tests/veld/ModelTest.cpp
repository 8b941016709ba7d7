// The drawing model: tables, names, collections, line type patterns and
// legacy hatch types. (Item mementos and the collections a command holds:
// VisitInvariantTest, through OK then Undo and Redo of the layer and line type
// dialogs, and CommandsTest.)
#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <set>
#include <string>

#include "veld/Data.h"
#include "veld/HatchType.h"

using namespace veld;

namespace {
/// A new layer named @p name, holding the caller's reference.
CLayer* newLayer(CData& d, const wchar_t* name = L"ROADS") {
    return d.GetObjectFactory()->CreateLayer(name, d.GetLtypeTable().GetLtypeContinuous(), 3,
                                             kLineWidthDefault, 0, 0);
}
/// A new layer named @p name in @p d's table, which holds the only reference.
CLayer* addLayer(CData& d, const wchar_t* name) {
    CLayer* l = newLayer(d, name);
    d.GetLayerTable().Add(l);
    l->SubReference();
    return l;
}

}  // namespace

// A drawing saved under one locale must open under every other: whether two
// names are the same may not depend on the process locale.
TEST(Tables, NamesMatchIgnoringCaseAlikeInEveryLocale) {
    struct {
        const wchar_t *a, *b;
        bool same;
    } const rows[] = {
        {L"città", L"CITTÀ", true},
        {L"ſ", L"S", true},
        {L"ａ", L"Ａ", true},
        {L"ΣΟΦΊΑ", L"σοφία", true},
        {L"ς", L"Σ", true},
        {L"ı", L"I", false},
        {L"straße", L"STRASSE", false},
        {L"Ärzte_1", L"ärzte_1", true},
        {L"A", L"À", false},
    };
    const std::string before = std::setlocale(LC_ALL, nullptr);
    for (const char* locale : {"C", "C.UTF-8", "it_IT.UTF-8"}) {
        if (!std::setlocale(LC_ALL, locale))
            continue;  // not on this machine; the others still run
        for (const auto& r : rows) {
            const std::string where = std::string(locale) + " " +
                                      ulo::WString(r.a).ToQString().toStdString() + " / " +
                                      ulo::WString(r.b).ToQString().toStdString();
            EXPECT_EQ(ulo::WString(r.a).CompareIgnoreCase(r.b) == 0, r.same) << where;
            CData data;
            CLayer* layer = addLayer(data, r.a);
            EXPECT_EQ(data.GetLayerTable().Find(r.b) == layer, r.same) << where;
        }
    }
    std::setlocale(LC_ALL, before.c_str());
}

TEST(Tables, FindFollowsRenamesUndoAndNamesTakenTwice) {
    CData data;
    CLayerTable& layers = data.GetLayerTable();
    CLayer* a = addLayer(data, L"Roads");
    const auto before = ulo::RefPtr<ulo::IMemento>::Adopt(a->CreateMemento());
    a->SetName(L"Streets");
    EXPECT_EQ(layers.Find(L"ROADS"), nullptr);
    EXPECT_EQ(layers.Find(L"streets"), a);
    a->SetMemento(before.get());  // undo goes through the memento
    EXPECT_EQ(layers.Find(L"roads"), a);
    EXPECT_EQ(layers.Find(L"Streets"), nullptr);

    // Two items of one name: the first in table order is found, and the
    // other once the first goes or is renamed.
    CLayer* b = addLayer(data, L"twice");
    CLayer* c = addLayer(data, L"TWICE");
    EXPECT_EQ(layers.Find(L"Twice"), b);
    b->SetName(L"once");
    EXPECT_EQ(layers.Find(L"Twice"), c);
    b->SetName(L"Twice");
    EXPECT_EQ(layers.Find(L"twice"), b);
    b->AddReference();
    EXPECT_TRUE(layers.Remove(b));
    EXPECT_FALSE(layers.Remove(b));
    EXPECT_EQ(layers.Find(L"twice"), c);
    b->SetName(L"gone");  // outside the table: the table does not see it
    EXPECT_EQ(layers.Find(L"gone"), nullptr);
    b->SubReference();

    // A name longer than the stack buffer of the lookup.
    CLayer* d = addLayer(data, std::wstring(300, L'x').c_str());
    EXPECT_EQ(layers.Find(std::wstring(300, L'X')), d);
}

// Items removed and added again return to their place; the first of two
// namesakes ("twice", "TWICE") in table order is found whatever order they
// come back in. (A table once emptied takes a new order:
// DrawingFileTest.LoadingTheSameFileTwiceGivesTheSameObjectsInTableOrder.)
TEST(Tables, ItemsPutBackReturnToTheirPlace) {
    const std::vector<std::wstring> start = {L"0", L"A", L"twice", L"C", L"TWICE", L"E"};
    struct Row {
        const char* what;
        std::vector<std::wstring> removed, putBack;
        bool newItemBetween;  // a new layer joins while the others are out
    } const rows[] = {
        {"one from the middle", {L"twice"}, {L"twice"}, false},
        {"several, back in reverse", {L"A", L"twice", L"C"}, {L"C", L"twice", L"A"}, false},
        {"first and last", {L"0", L"E"}, {L"E", L"0"}, false},
        {"namesakes, later one first", {L"twice", L"TWICE"}, {L"TWICE", L"twice"}, false},
        {"namesakes, first one first", {L"TWICE", L"twice"}, {L"twice", L"TWICE"}, false},
        {"with a new item meanwhile", {L"A", L"E"}, {L"E", L"A"}, true},
    };
    for (const Row& row : rows) {
        CData data;
        CLayerTable& layers = data.GetLayerTable();
        std::vector<ulo::RefPtr<CLayer>> byName;  // in start order
        for (const auto& name : start)
            byName.push_back(ulo::RefPtr<CLayer>::Share(
                name == L"0" ? layers.Find(L"0") : addLayer(data, name.c_str())));
        const auto item = [&](const std::wstring& name) {
            return byName[std::find(start.begin(), start.end(), name) - start.begin()].get();
        };
        for (const auto& name : row.removed)
            ASSERT_TRUE(layers.Remove(item(name))) << row.what;
        std::vector<std::wstring> expected = start;
        if (row.newItemBetween) {
            addLayer(data, L"NEW");
            expected.push_back(L"NEW");
        }
        for (const auto& name : row.putBack)
            ASSERT_TRUE(layers.Add(item(name))) << row.what;

        std::vector<std::wstring> order;
        for (unsigned i = 0; i < layers.GetNoItems(); ++i)
            order.push_back(layers.GetNo(i)->GetName().str());
        EXPECT_EQ(order, expected) << row.what;
        for (const auto& name : start)
            EXPECT_EQ(layers.Find(name), item(name == L"TWICE" ? L"twice" : name)) << row.what;
    }

    // An item another table held joins the end.
    CData one, other;
    const auto moved = ulo::RefPtr<CLayer>::Adopt(newLayer(one));
    one.GetLayerTable().Add(moved.get());
    one.GetLayerTable().Remove(moved.get());
    addLayer(other, L"LATER");
    other.GetLayerTable().Add(moved.get());
    EXPECT_EQ(other.GetLayerTable().GetNo(other.GetLayerTable().GetNoItems() - 1), moved.get());
}

TEST(Tables, NameRule) {
    struct {
        const wchar_t* name;
        bool ok;
    } const rows[] = {{L"ROADS_2", true},    {L"a-b$c", true}, {L"", false},
                      {L"two words", false}, {L"x|y", false},  {L"città", false}};
    for (const auto& r : rows)
        EXPECT_EQ(is_valid_table_name14(r.name, false), r.ok) << r.name;
    EXPECT_FALSE(is_valid_table_name14(ulo::WString(std::wstring(256, L'A')), false));
}

TEST(LineTypes, PatternLengthCountsNumberElementsOnly) {
    CLtypeComplexDashSeq seq;
    for (const double v : {0.5, -0.25, 0.0})
        seq.AddDashDouble(v);
    seq.AddDashText(TEXT_3D(L"GAS", nullptr, 1.0, 0.0, 1.0, 0.0, {}, 0, 0));
    const CLtype t(L"GAS", L"Gas line", seq, 0);
    EXPECT_DOUBLE_EQ(t.GetPatternLen(), 0.75);
}

TEST(HatchTypes, SixtyNineLegacyTypes) {
    const CHatchTypeProvider* p = CHatchTypeProvider::GetInstance();
    std::set<const CHatchType*> seen;
    for (int n = -1; n <= 67; ++n) {
        const CHatchType* t = p->GetLegacyHatchType(n);
        ASSERT_NE(t, nullptr);
        EXPECT_EQ(t->GetLegacyNumber(), n);
        seen.insert(t);
    }
    EXPECT_EQ(seen.size(), 69u);
    EXPECT_EQ(p->GetLegacyHatchType(-2), nullptr);
    EXPECT_EQ(p->GetLegacyHatchType(68), nullptr);
}
