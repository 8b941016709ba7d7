// The layers dialog's list: the order of every column in both directions, the
// words tools read, rows found after a sort, the selection across sorts, the
// compiled-in icons and the painted rows with the current layer marked.
#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QTest>
#include <string>
#include <vector>

#include "app/VELD.h"
#include "tables/CVELDLayerList.h"
#include "tables/CVELDLayerListDelegate.h"
#include "tables/CVELDLayerListModel.h"
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
        veld::CLtype* continuous = cad.GetData()->GetLtypeTable().GetLtypeContinuous();
        veld::CLtype* dashed = AddLtype(L"DASHED");
        veld::CLtype* center = AddLtype(L"center");
        Add(L"Beta", kFrozen, 3, dashed);
        Add(L"alpha10", kOff | kLocked, 1, center);
        Add(L"Alpha", kLocked, 3, continuous);
        Add(L"delta", kOff | kFrozen, 5, continuous);
        Add(L"Gamma", 0, 1, dashed);
        Add(L"epsilon", kFrozen | kLocked, 5, center);
    }
    veld::CLtype* AddLtype(const wchar_t* name) {
        veld::CLtypeComplexDashSeq seq;
        seq.AddDashDouble(1.0);
        seq.AddDashDouble(-0.5);
        veld::CLtype* t = cad.GetData()->GetObjectFactory()->CreateLtype(name, L"", seq, 0, 0);
        cad.GetData()->GetLtypeTable().Add(t);
        t->SubReference();
        return t;
    }
    veld::CLayer* Add(const wchar_t* name, unsigned flags, unsigned short colour,
                      veld::CLtype* ltype) {
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

/// The layers a list reported selected ('+') and deselected ('-'), in order.
struct SelectionLog {
    explicit SelectionLog(CVELDLayerList& list) {
        QObject::connect(&list, &CVELDLayerList::layerSelected, &guard,
                         [this](veld::CLayer* l) { events.emplace_back('+', l); });
        QObject::connect(&list, &CVELDLayerList::layerDeselected, &guard,
                         [this](veld::CLayer* l) { events.emplace_back('-', l); });
    }
    std::vector<std::pair<char, veld::CLayer*>> events;
    QObject guard;  // ends the connections with the log
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
    std::string Names() const {
        std::string out;
        for (int row = 0; row < GetItemCount(); ++row) {
            if (row > 0)
                out += ' ';
            out += GetItem(row)->GetName().ToQString().toStdString();
        }
        return out;
    }
    QString Text(int row, int column) const {
        return GetListModel()->data(GetListModel()->index(row, column)).toString();
    }
};

}  // namespace

TEST(LayerListSort, EveryColumnBothWaysTiesByNameAscending) {
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
            for (int row = 0; row < list.GetItemCount(); ++row)
                EXPECT_EQ(list.FindItem(list.GetItem(row)), row);
        }
    }
}

TEST(LayerListSort, NamesFollowCompareIgnoreCase) {
    // Upper-case folding puts '_' after the letters, lower-case folding
    // before; digits, prefixes and case-only differences.
    const std::vector<const wchar_t*> names = {L"a_",  L"AB", L"ab1", L"A",   L"Z9",
                                               L"z10", L"_x", L"b",   L"aB2", L"0"};
    Drawing d;
    std::vector<veld::CLayer*> layers;
    for (const wchar_t* name : names)
        layers.push_back(d.Add(name, 0, 1, nullptr));
    CVELDLayerList list(&d.cad);
    list.SetLayers(layers);
    for (const int direction : {1, -1}) {
        list.SortRows(CVELDLayerList::kColName, direction);
        for (int row = 1; row < list.GetItemCount(); ++row) {
            const int order =
                list.GetItem(row - 1)->GetName().CompareIgnoreCase(list.GetItem(row)->GetName());
            EXPECT_LT(order * direction, 0) << "rows " << row - 1 << " and " << row;
        }
    }
}

TEST(LayerListRows, DisplayWordsAndLookups) {
    const struct {
        const wchar_t* layer;
        const char* words[6];
    } cases[] = {
        {L"delta", {"delta", "off", "frozen", "unlocked", "Blue", "Continuous"}},
        {L"alpha10", {"alpha10", "off", "thawed", "locked", "Red", "center"}},
        {L"Gamma", {"Gamma", "on", "thawed", "unlocked", "Red", "DASHED"}},
        {L"Beta", {"Beta", "on", "frozen", "unlocked", "Green", "DASHED"}},
    };
    Drawing d;
    ShownList list(d);
    list.SortRows(CVELDLayerList::kColColor, -1);
    for (const auto& c : cases) {
        SCOPED_TRACE(QString::fromWCharArray(c.layer).toStdString());
        veld::CLayer* layer = d.Named(c.layer);
        const int row = list.FindItem(layer);
        ASSERT_GE(row, 0);
        EXPECT_EQ(list.GetItem(row), layer);
        for (int column = 0; column < CVELDLayerList::kColumnCount; ++column)
            EXPECT_EQ(list.Text(row, column).toStdString(), c.words[column]) << column;
    }
    veld::CLayer* unlisted = d.Add(L"later", 0, 1, nullptr);
    EXPECT_EQ(list.FindItem(unlisted), -1);
    EXPECT_EQ(list.AppendItem(unlisted), 6);
    EXPECT_EQ(list.AppendItem(unlisted), 6) << "a listed layer keeps its row";
    EXPECT_EQ(list.FindItem(unlisted), 6);
}

TEST(LayerListSelection, FollowsItsLayerAcrossSortsWithoutSignals) {
    const struct {
        int column, direction;
    } sorts[] = {{4, -1}, {0, -1}, {5, 1}, {1, -1}, {3, 1}, {0, 1}};
    Drawing d;
    ShownList list(d);
    veld::CLayer* delta = d.Named(L"delta");
    list.SelectItem(delta);
    const SelectionLog log(list);
    for (const auto& s : sorts) {
        SCOPED_TRACE(testing::Message() << "column " << s.column << " direction " << s.direction);
        list.SortRows(s.column, s.direction);
        EXPECT_EQ(list.GetSelectedItem(), delta);
        EXPECT_EQ(list.currentIndex().row(), list.FindItem(delta));
        EXPECT_EQ(list.selectionModel()->selectedRows().size(), 1);
    }
    EXPECT_TRUE(log.events.empty());
}

TEST(LayerListIcons, EveryIconIsCompiledInAndDrawsAtEachDensity) {
    using Icon = CVELDLayerListDelegate::Icon;
    for (const Icon icon :
         {Icon::On, Icon::Off, Icon::Frozen, Icon::Thawed, Icon::Locked, Icon::Unlocked}) {
        const QString path = CVELDLayerListDelegate::IconPath(icon);
        SCOPED_TRACE(path.toStdString());
        EXPECT_TRUE(QFile::exists(path));
        for (const qreal dpr : {1.0, 2.0}) {
            const QImage image = CVELDLayerListDelegate::IconPixmap(icon, 14, dpr).toImage();
            ASSERT_EQ(image.size(), QSize(14, 14) * dpr);
            int opaque = 0;
            for (int y = 0; y < image.height(); ++y)
                for (int x = 0; x < image.width(); ++x)
                    opaque += qAlpha(image.pixel(x, y)) > 128;
            EXPECT_GT(opaque, image.width() * image.height() / 8) << dpr;
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
    const auto ink = [&](int row, int column) {
        const QImage c = cell(row, column);
        int count = 0;
        for (int y = 0; y < c.height(); ++y)
            for (int x = 0; x < c.width(); ++x)
                count += c.pixelColor(x, y) != base;
        return count;
    };
    for (int row : {0, 1, 3, 5})
        for (int column : {1, 2, 3})
            EXPECT_GT(ink(row, column), 20) << row << " " << column;
    EXPECT_EQ(cell(0, 1), cell(5, 1));
    EXPECT_NE(cell(0, 1), cell(1, 1));
    EXPECT_EQ(cell(0, 2), cell(5, 2));
    EXPECT_NE(cell(0, 2), cell(3, 2));
    EXPECT_NE(cell(0, 3), cell(5, 3));
    // The swatch of Alpha's green, 2 pixels in and vertically centred.
    EXPECT_EQ(at(0, 4, 6), QColor(0, 255, 0));
}
