// The drawing model: items and their mementos, tables, names, iterators,
// collections, colours and legacy hatch types.
#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <functional>
#include <set>
#include <string>

#include "veld/Colors.h"
#include "veld/Data.h"
#include "veld/HandleObjectVectorCollection.h"
#include "veld/HatchType.h"

using namespace veld;

namespace {
CLtypeComplexDashSeq dashes(std::initializer_list<double> values) {
    CLtypeComplexDashSeq s;
    for (double v : values)
        s.AddDashDouble(v);
    return s;
}

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

/// The memento taken before @p change (and a rename) puts the item back, and
/// the one taken after it redoes it. Releases @p item.
template <class Item>
void expectMementoRestores(const char* what, Item* item, const std::function<void(Item&)>& change) {
    ulo::IMemento* before = item->CreateMemento();
    EXPECT_FALSE(item->HasChanged(before)) << what;
    change(*item);
    item->SetName(item->GetName() + ulo::WString(L"X"));
    EXPECT_TRUE(item->HasChanged(before)) << what;
    ulo::IMemento* after = item->CreateMemento();
    item->SetMemento(before);
    EXPECT_FALSE(item->HasChanged(before)) << what;
    EXPECT_TRUE(item->HasChanged(after)) << what;
    item->SetMemento(after);
    EXPECT_FALSE(item->HasChanged(after)) << what;
    before->SubReference();
    after->SubReference();
    item->SubReference();
}
}  // namespace

TEST(ItemMemento, RestoresEachPropertyAndTheName) {
    CData d;
    using Layer = std::function<void(CLayer&)>;
    using Ltype = std::function<void(CLtype&)>;
    using Style = std::function<void(CStyle&)>;
    const auto ltype = [] {
        return new CLtype(L"DASHED", L"Dashed __ __", dashes({0.5, -0.25}), 0);
    };
    const auto style = [] {
        return new CStyle(L"TITLE", CFontTable::GetInstance()[0], 2.5, 1.0, 0.0, 2.5, 0);
    };
    expectMementoRestores("layer colour", newLayer(d), Layer([](CLayer& l) { l.SetColor(5); }));
    expectMementoRestores("layer frozen", newLayer(d), Layer([](CLayer& l) { l.SetFrozen(true); }));
    expectMementoRestores("layer line type", newLayer(d), Layer([&](CLayer& l) {
                              l.SetLtype(d.GetLtypeTable().GetLtypeByBlock());
                          }));
    expectMementoRestores("layer width", newLayer(d),
                          Layer([](CLayer& l) { l.SetLineWidth(kLineWidthByBlock); }));
    expectMementoRestores("ltype description", ltype(), Ltype([](CLtype& t) { t.SetDesc(L"x"); }));
    expectMementoRestores("ltype pattern", ltype(),
                          Ltype([](CLtype& t) { t.Copy(CLtype(L"o", L"", dashes({1}), 0)); }));
    expectMementoRestores("style font", style(),
                          Style([](CStyle& s) { s.SetFont(CFontTable::GetInstance()[4]); }));
    expectMementoRestores("style oblique", style(), Style([](CStyle& s) { s.SetOblique(0.2); }));
    expectMementoRestores("style bold", style(), Style([](CStyle& s) { s.SetBold(true); }));
    expectMementoRestores("style vertical", style(), Style([](CStyle& s) { s.SetHoriz(false); }));
}

TEST(Tables, AddRemoveFindAndFreshNames) {
    CData data;
    CLayerTable& layers = data.GetLayerTable();
    EXPECT_EQ(layers.GetProgName(L"Layer"), L"Layer1");
    CLayer* a = newLayer(data, L"layer1");
    EXPECT_TRUE(layers.Add(a));
    EXPECT_FALSE(layers.Add(a));  // already there
    EXPECT_EQ(a->GetReferenceCount(), 2u);
    EXPECT_EQ(layers.Find(L"LAYER1"), a);
    EXPECT_EQ(layers.GetProgName(L"Layer"), L"Layer2");  // ignoring case
    const unsigned before = data.GetDataTablesSourceEvent()->GetNotificationCount();
    EXPECT_TRUE(layers.Remove(a));
    EXPECT_FALSE(layers.Remove(a));
    EXPECT_GT(data.GetDataTablesSourceEvent()->GetNotificationCount(), before);
    EXPECT_EQ(a->GetReferenceCount(), 1u);
    EXPECT_EQ(layers.Find(L"layer1"), nullptr);
    a->SubReference();
}

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
    layers.Remove(b);
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

TEST(Tables, PredicatesOfSpecialItems) {
    CData data;
    CLtypeTable& lt = data.GetLtypeTable();
    CLtype* xref = new CLtype(L"SITE|FENCE", L"", dashes({1, -1}), 0);
    lt.Add(xref);
    xref->SubReference();
    EXPECT_TRUE(xref->IsXRef());
    EXPECT_FALSE(xref->CanBeCurrent());
    EXPECT_FALSE(lt.GetLtypeContinuous()->CanBeRenamed());
    // Continuous is used by layer 0; a line type no layer uses is not.
    EXPECT_TRUE(lt.GetLtypeContinuous()->IsItemUsed());
    EXPECT_FALSE(xref->IsItemUsed());
    CLayer* zero = FindLayer(&data, L"0");
    EXPECT_TRUE(zero->IsLayer0());
    EXPECT_FALSE(zero->CanBeRenamed());
    zero->SetFrozen(true);
    EXPECT_EQ(zero->GetFlags(), 0x01u);
    EXPECT_FALSE(zero->CanBeCurrent());
    zero->SetOff(true);
    zero->SetLocked(true);
    EXPECT_EQ(zero->GetFlags(), 0x85u);

    // The iterators choose external references and the logical ByBlock and ByLayer.
    const auto count = [&](bool withXRef, bool withLogical) {
        CData::CLtypeIterator it(&data, withXRef, withLogical);
        int n = 0;
        while (it.GetNext())
            ++n;
        return n;
    };
    EXPECT_EQ(count(true, true), 4);
    EXPECT_EQ(count(true, false), 2);
    EXPECT_EQ(count(false, false), 1);
    EXPECT_EQ(count(false, true), 3);
}

TEST(Collections, HoldOneReferenceEachAndCopiesTheirOwn) {
    ITableItem* a = new CLtype(L"DASHED", L"", dashes({0.5, -0.25}), 0);
    {
        CHandleObjectVectorCollection c;
        c.Add(a);
        EXPECT_EQ(c.GetNoElems(), 1u);
        EXPECT_EQ(a->GetReferenceCount(), 2u);
        CHandleObjectVectorCollection copy(c);
        EXPECT_EQ(a->GetReferenceCount(), 3u);
        copy = copy;
        EXPECT_EQ(a->GetReferenceCount(), 3u);
        EXPECT_TRUE(copy.Remove(a));
        EXPECT_FALSE(copy.IsInserted(a));
        EXPECT_EQ(a->GetReferenceCount(), 2u);
    }
    EXPECT_EQ(a->GetReferenceCount(), 1u);
    a->SubReference();
}

TEST(LineTypes, PatternLengthCountsNumberElementsOnly) {
    CLtypeComplexDashSeq seq = dashes({0.5, -0.25, 0.0});
    seq.AddDashText(TEXT_3D(L"GAS", nullptr, 1.0, 0.0, 1.0, 0.0, {}, 0, 0));
    const CLtype t(L"GAS", L"Gas line", seq, 0);
    EXPECT_DOUBLE_EQ(t.GetPatternLen(), 0.75);
    ASSERT_NE(t.GetDash(3)->GetText(), nullptr);
    EXPECT_FALSE(t.GetDash(3)->IsDouble());
    EXPECT_EQ(t.GetDash(4), nullptr);
}

// The basic colours: DrawingRendererTest.ColoursResolveThroughLayerSetAndBackground.
TEST(Colours, NamesAndPalette) {
    const CColors& names = CColors::GetInstance();
    EXPECT_EQ(names[0], L"ByBlock");
    EXPECT_EQ(names[1], L"Red");
    EXPECT_EQ(names[256], L"ByLayer");
    EXPECT_EQ(names[42], L"42");
    EXPECT_EQ(names[300], L"");
    EXPECT_EQ(IndexToRGB(10), 0x0000FFu);  // hue 0, full colour
    EXPECT_EQ(IndexToRGB(250), 0x333333u);
    std::set<std::uint32_t> distinct;
    for (int i = 10; i < 250; ++i)
        distinct.insert(IndexToRGB(i));
    EXPECT_GT(distinct.size(), 200u);
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
