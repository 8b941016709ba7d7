// The lists over drawing tables: the list stack (src/lists: rows, index, mark,
// sort, selection, sizes, painting) through the layers list, and the layers
// list's own columns (the order of each, the state icons, the swatch).
#include <gtest/gtest.h>

#include <QImage>
#include <QTest>
#include <functional>
#include <string>
#include <vector>

#include "app/VELD.h"
#include "tables/CVELDLayerList.h"
#include "tables/CVELDLayerListDelegate.h"
#include "veld/Data.h"
#include "veld/ObjectFactory.h"
#include "veld/Tables.h"

namespace {

constexpr unsigned kOff = veld::CLayer::kFlagOff, kFrozen = veld::CLayer::kFlagFrozen,
                   kLocked = veld::CLayer::kFlagLocked;

/// Six layers whose names, states, colours and line types tie in pairs, and
/// whose names and line type names order differently with and without
/// letter case ("Beta" < "alpha10", "DASHED" < "center" by code point).
struct Drawing {
    Drawing() {
        veld::CLtype* ltypes[3] = {cad.GetData()->GetLtypeTable().GetLtypeContinuous()};
        for (const int i : {1, 2}) {
            veld::CLtypeComplexDashSeq seq;
            seq.AddDashDouble(1.0);
            seq.AddDashDouble(-0.5);
            ltypes[i] = cad.GetData()->GetObjectFactory()->CreateLtype(
                i == 1 ? L"DASHED" : L"center", L"", seq, 0, 0);
            cad.GetData()->GetLtypeTable().Add(ltypes[i]);
            ltypes[i]->SubReference();
        }
        Add(L"Beta", kFrozen, 3, ltypes[1]);
        Add(L"alpha10", kOff | kLocked, 1, ltypes[2]);
        Add(L"Alpha", kLocked, 3, ltypes[0]);
        Add(L"delta", kOff | kFrozen, 5, ltypes[0]);
        Add(L"Gamma", 0, 1, ltypes[1]);
        Add(L"epsilon", kFrozen | kLocked, 5, ltypes[2]);
    }
    veld::CLayer* Add(const wchar_t* name, unsigned flags = 0, unsigned short colour = 1,
                      veld::CLtype* ltype = nullptr) {
        veld::CLayer* l = cad.GetData()->GetObjectFactory()->CreateLayer(
            name, ltype, colour, veld::kLineWidthDefault, flags, 0);
        cad.GetData()->GetLayerTable().Add(l);
        l->SubReference();
        layers.push_back(l);
        return l;
    }
    veld::CLayer* Named(const wchar_t* name) { return cad.GetData()->GetLayerTable().Find(name); }
    CVELD cad;
    std::vector<veld::CLayer*> layers;  // in table order
};

/// A list of the drawing's layers in a dialog-sized window.
struct ShownList : CVELDLayerList {
    explicit ShownList(Drawing& d) : CVELDLayerList(&d.cad) {
        resize(400, 300);
        const int widths[kColumnCount] = {120, 25, 25, 25, 80, 100};
        for (int column = 0; column < kColumnCount; ++column)
            SetColumn(column, QStringLiteral("C%1").arg(column), widths[column]);
        SetLayers(d.layers);
        show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(this));
    }
    /// The names of the rows, each after its background where it has one
    /// (#0096fa: RGB(0, 150, 250)), or the first row not found as itself.
    std::string Names() const {
        std::string out;
        for (int row = 0; row < GetItemCount(); ++row) {
            const QColor paint = CellIndex(row, 1).data(Qt::BackgroundRole).value<QColor>();
            out += (row ? " " : "") + (paint.isValid() ? paint.name().toStdString() + '|' : "") +
                   CellIndex(row, 0).data().toString().toStdString();
            if (FindItem(GetItem(row)) != row)
                return "row " + std::to_string(row) + " not found";
        }
        return out;
    }
    QModelIndex CellIndex(int row, int column) const { return model()->index(row, column); }
};

}  // namespace

TEST(TableListSort, EveryColumnBothWaysTiesAndNamesIgnoringCase) {
    const struct {
        int column, direction;
        const char* order;
    } cases[] = {
        {0, 1, "Alpha alpha10 Beta delta epsilon Gamma"},
        {0, -1, "Gamma epsilon delta Beta alpha10 Alpha"},
        {1, 1, "Alpha Beta epsilon Gamma alpha10 delta"},
        {1, -1, "alpha10 delta Alpha Beta epsilon Gamma"},
        {2, 1, "Alpha alpha10 Gamma Beta delta epsilon"},
        {2, -1, "Beta delta epsilon Alpha alpha10 Gamma"},
        {3, 1, "Beta delta Gamma Alpha alpha10 epsilon"},
        {3, -1, "Alpha alpha10 epsilon Beta delta Gamma"},
        {4, 1, "alpha10 Gamma Alpha Beta delta epsilon"},
        {4, -1, "delta epsilon Alpha Beta alpha10 Gamma"},
        {5, 1, "alpha10 epsilon Alpha delta Beta Gamma"},
        {5, -1, "Beta Gamma Alpha delta alpha10 epsilon"},
    };
    Drawing d;
    ShownList list(d);
    for (const auto& c : cases) {
        // The order may not depend on the one before: from table order and
        // from the reverse of another column.
        for (const int before : {-1, (c.column + 1) % 6}) {
            SCOPED_TRACE(testing::Message() << "column " << c.column << " direction " << c.direction
                                            << " after column " << before);
            if (before < 0)
                list.SetLayers(d.layers);
            else
                list.SortRows(before, -c.direction);
            list.SortRows(c.column, c.direction);
            EXPECT_EQ(list.Names(), c.order);
        }
    }
    // Names in both directions as CompareIgnoreCase orders them: folded to
    // upper case '_' would follow the letters, to lower case it goes before;
    // digits, prefixes, letter case alone, and letters of other scripts.
    for (const wchar_t* name : {L"a_", L"AB", L"ab1", L"A", L"Z9", L"z10", L"_x", L"b", L"aB2",
                                L"0", L"\u00e0", L"\u017f"})
        d.Add(name);
    list.SetLayers(d.layers);
    for (const int direction : {1, -1}) {
        list.SortRows(CVELDLayerList::kColName, direction);
        for (int row = 1; row < list.GetItemCount(); ++row)
            EXPECT_LT(direction * list.GetItem(row - 1)->GetName().CompareIgnoreCase(
                                      list.GetItem(row)->GetName()),
                      0)
                << "rows " << row - 1 << " and " << row;
    }
}

// Each change as the views ("[...]") and the owner ("[+name]" selected,
// "[-name]" deselected) hear of it, every row found as itself after it, the
// selection on its layer, and the references the list holds: a row or the
// mark keeps its layer alive after the layer left the drawing's table. The
// selection leaves the list (with a word) when its row goes or the rows are
// replaced, never moving to a row the user did not touch.
TEST(TableList, ChangesReachTheViewsAndTheOwner) {
    Drawing d;
    ShownList list(d);
    CVELDLayerListModel& model = *list.GetListModel();
    veld::CLayer* beta = d.Named(L"Beta");
    veld::CLayer* gamma = d.Named(L"Gamma");
    veld::CLayer* later = d.Add(L"later");
    d.layers.pop_back();
    later->AddReference();  // the test's own, to watch the count
    std::string log;
    const auto note = [&log](const char* what) {
        return [&log, what](const QModelIndex&, int first, int last) {
            log += QString::asprintf("[%s %d-%d]", what, first, last).toStdString();
        };
    };
    QObject::connect(&model, &QAbstractItemModel::rowsInserted, note("inserted"));
    QObject::connect(&model, &QAbstractItemModel::rowsRemoved, note("removed"));
    QObject::connect(&model, &QAbstractItemModel::modelReset, [&log] { log += "[reset]"; });
    QObject::connect(&model, &QAbstractItemModel::layoutChanged, [&log] { log += "[sorted]"; });
    QObject::connect(
        &model, &QAbstractItemModel::dataChanged, [&log](QModelIndex a, QModelIndex b) {
            const bool whole = a.column() == 0 && b.column() == 5;
            log += QString::asprintf("[changed %d-%d%s]", a.row(), b.row(), whole ? "" : " in part")
                       .toStdString();
        });
    const auto owner = [&log](const char* sign) {
        return [&log, sign](veld::CLayer* l) {
            log += std::string("[") + sign + l->GetName().ToQString().toStdString() + "]";
        };
    };
    QObject::connect(&list, &CVELDLayerList::layerSelected, owner("+"));
    QObject::connect(&list, &CVELDLayerList::layerDeselected, owner("-"));
    const auto tap = [&](veld::CLayer* layer, int column) {
        const QRect cell = list.CellRect(list.FindItem(layer), column);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, cell.center());
    };
    std::vector<veld::CLayer*> withRepeats = d.layers;
    withRepeats.insert(withRepeats.begin() + 2, {beta, nullptr});  // listed once, and not at all
    const std::string rest = "alpha10 Alpha delta Gamma epsilon", sorted = "epsilon delta alpha10";
    veld::CLayer* delta = d.Named(L"delta");
    const struct {
        std::function<void()> change;
        std::string signals, names;
        veld::CLayer* selected;
        unsigned references;  ///< of "later": the table's, the test's and the list's
    } steps[] = {
        {[&] { list.SetLayers(withRepeats); }, "[reset]", "Beta " + rest, nullptr, 2},
        {[&] { list.SelectItem(delta); }, "[+delta]", "Beta " + rest, delta, 2},
        {[&] {
             EXPECT_EQ(list.AppendItem(later), 6);
             EXPECT_EQ(list.AppendItem(beta), 0);
         },
         "[inserted 6-6]", "Beta " + rest + " later", delta, 3},
        {[&] { beta->SetName(L"zeta"), list.ItemChanged(beta); }, "[changed 0-0]",
         "zeta " + rest + " later", delta, 3},
        {[&] { tap(gamma, 3), tap(gamma, 5); }, "[-delta][+Gamma]", "zeta " + rest + " later",
         gamma, 3},
        {[&] { list.SetCurMark(later); }, "[changed 6-6]", "zeta " + rest + " #0096fa|later", gamma,
         4},
        {[&] { list.SortRows(0, -1); }, "[sorted]", "zeta #0096fa|later Gamma " + sorted + " Alpha",
         gamma, 4},
        {[&] { list.SetCurMark(gamma); }, "[changed 1-1][changed 2-2]",
         "zeta later #0096fa|Gamma " + sorted + " Alpha", gamma, 3},
        {[&] { EXPECT_TRUE(list.DeleteItem(gamma)); }, "[-Gamma][removed 2-2]",
         "zeta later " + sorted + " Alpha", nullptr, 3},
        {[&] { d.cad.GetData()->GetLayerTable().Remove(later), list.SelectItem(later); },
         "[+later]", "zeta later " + sorted + " Alpha", later, 2},
        {[&] {
             EXPECT_TRUE(list.DeleteItem(later));
             EXPECT_FALSE(list.DeleteItem(later));
             list.ItemChanged(later);
         },
         "[-later][removed 1-1]", "zeta " + sorted + " Alpha", nullptr, 1},
        {[&] { list.SelectItem(beta), list.SelectItem(later); }, "[+zeta][-zeta]",
         "zeta " + sorted + " Alpha", nullptr, 1},
        {[&] { list.SelectItem(beta), list.SetLayers(d.layers); }, "[+zeta][-zeta][reset]",
         "zeta alpha10 Alpha delta #0096fa|Gamma epsilon", nullptr, 1},
        {[&] { list.DeleteAllItems(); }, "[reset]", "", nullptr, 1},
    };
    for (const auto& s : steps) {
        SCOPED_TRACE(&s - steps);
        log.clear();
        s.change();
        EXPECT_EQ(log, s.signals);
        EXPECT_EQ(list.Names(), s.names);
        EXPECT_EQ(list.GetSelectedItem(), s.selected);
        if (s.selected) {
            EXPECT_EQ(list.currentIndex().row(), list.FindItem(s.selected));
        }
        EXPECT_EQ(later->GetReferenceCount(), s.references);
    }
    later->SubReference();
}

// A dense screen gets each icon drawn at its own pixels, not a small one
// scaled up: twice the pixels, as much of them covered.
TEST(LayerListIcons, EveryIconDrawsAtEachDensity) {
    using Icon = CVELDLayerListDelegate::Icon;
    for (const Icon icon :
         {Icon::On, Icon::Off, Icon::Frozen, Icon::Thawed, Icon::Locked, Icon::Unlocked}) {
        for (const qreal dpr : {1.0, 2.0}) {
            const QImage image = CVELDLayerListDelegate::IconPixmap(icon, 14, dpr).toImage();
            ASSERT_EQ(image.size(), QSize(14, 14) * dpr) << int(icon);
            int opaque = 0;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    opaque += qAlpha(image.pixel(x, y)) > 128;
            EXPECT_GT(opaque, image.width() * image.height() / 8) << int(icon) << " " << dpr;
        }
    }
}

TEST(LayerListPaint, MarkedRowIsBlueAndStatesShowTheirIcons) {
    Drawing d;
    ShownList list(d);
    list.SortRows(CVELDLayerList::kColName, 1);  // Alpha alpha10 Beta delta epsilon Gamma
    list.SetCurLayerMark(d.Named(L"Beta"));
    const QImage image = list.viewport()->grab().toImage();
    const QColor base = list.palette().color(QPalette::Base);
    const auto at = [&](int row, int column, int dx) {
        const QRect cell = list.CellRect(row, column);
        return image.pixelColor(dx < 0 ? cell.right() + dx : cell.left() + dx, cell.center().y());
    };
    // Past the name's box and at the edge of an icon cell: only the row's
    // background.
    EXPECT_EQ(at(2, 0, -2), QColor(0, 150, 250));
    EXPECT_EQ(at(2, 1, 1), QColor(0, 150, 250));
    EXPECT_EQ(at(3, 0, -2), base);
    EXPECT_EQ(at(3, 5, -2), base);
    const auto cell = [&](int row, int column) { return image.copy(list.CellRect(row, column)); };
    // Rows 0 (Alpha) and 5 (Gamma) are on and thawed, 1 (alpha10) is off,
    // 3 (delta) frozen; Alpha locked and Gamma unlocked.
    QImage blank = cell(3, 1);
    blank.fill(base);
    for (int row : {0, 1, 3, 5})
        for (int column : {1, 2, 3})
            EXPECT_NE(cell(row, column), blank) << row << " " << column;
    EXPECT_EQ(cell(0, 1), cell(5, 1));
    EXPECT_NE(cell(0, 1), cell(1, 1));
    EXPECT_EQ(cell(0, 2), cell(5, 2));
    EXPECT_NE(cell(0, 2), cell(3, 2));
    EXPECT_NE(cell(0, 3), cell(5, 3));
    // The swatch of Alpha's green, 2 pixels in and vertically centred.
    EXPECT_EQ(at(0, 4, 6), QColor(0, 255, 0));
}
