// The line type list: pattern samples checked pixel by pixel, samples of
// extreme patterns that must end, the rows of the model and the painted list.
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QTest>
#include <algorithm>
#include <climits>
#include <cmath>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "linetypes/CVELDLtypeList.h"
#include "linetypes/CVELDLtypeListDelegate.h"
#include "linetypes/CVELDLtypeListModel.h"
#include "linetypes/LtypePreview.h"
#include "linetypes/LtypePreview_p.h"
#include "support/ScopedMultiplier.h"
#include "veld/Data.h"

namespace {

/// Stands for a text element in a test pattern.
const double kText = std::numeric_limits<double>::quiet_NaN();

ulo::RefPtr<veld::CLtype> MakeLtype(const std::vector<double>& pattern) {
    veld::CLtypeComplexDashSeq seq;
    for (double e : pattern) {
        if (std::isnan(e))
            seq.AddDashText(veld::TEXT_3D(L"GAS", nullptr, 1.0, 0.0, 1.0, 0.0, {}, 0, 0));
        else
            seq.AddDashDouble(e);
    }
    return ulo::RefPtr<veld::CLtype>::Adopt(new veld::CLtype(L"T", L"", seq, 0));
}

const QRgb kPaper = qRgb(255, 255, 255);

/// The sample drawn on paper wide enough for the cell, or 240 pixels at most.
QImage RenderPreview(const veld::CLtype* ltype, int left, int right, int top, int bottom,
                     int repeats = 2) {
    QImage image(static_cast<int>(std::min(right + 4LL, 240LL)), bottom + 2, QImage::Format_RGB32);
    image.fill(kPaper);
    QPainter p(&image);
    DrawLtypePreview(nullptr, &p, ltype, left, right, top, bottom, repeats, true);
    return image;
}

/// Pixels of @p area in @p image that are not @p background.
int Ink(const QImage& image, const QRect& area, QRgb background) {
    int ink = 0;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            ink += image.pixel(x, y) != background;
    return ink;
}

/// Row @p y of @p image as '#' ink and '.' paper, followed by the count of
/// any ink on the other rows.
std::string InkRow(const QImage& image, int y) {
    std::string row;
    for (int x = 0; x < image.width(); ++x)
        row += image.pixel(x, y) == kPaper ? '.' : '#';
    const int off = Ink(image, image.rect(), kPaper) - Ink(image, {0, y, image.width(), 1}, kPaper);
    return off ? row + " and " + std::to_string(off) + " off the row" : row;
}

/// A drawing with ByBlock, ByLayer (both given a description, which the list
/// must not show) and Continuous, and @p extra line types.
struct Drawing {
    explicit Drawing(int extra = 0) {
        for (const wchar_t* logical : {L"ByBlock", L"ByLayer"})
            Named(logical)->SetDesc(L"Logical");
        for (int i = 0; i < extra; ++i)
            Add(L"LT" + std::to_wstring(i), L"Pattern " + std::to_wstring(i));
    }
    veld::CLtype* Add(const std::wstring& name, const std::wstring& desc) {
        veld::CLtypeComplexDashSeq seq;
        seq.AddDashDouble(1.0);
        seq.AddDashDouble(-1.0);
        veld::CLtype* t = data.GetObjectFactory()->CreateLtype(name, desc, seq, 0, 0);
        data.GetLtypeTable().Add(t);
        t->SubReference();
        return t;
    }
    std::vector<veld::CLtype*> All() {
        std::vector<veld::CLtype*> out;
        veld::CData::CLtypeIterator it(&data, true, true);
        while (veld::CLtype* t = it.GetNext())
            out.push_back(t);
        return out;
    }
    veld::CLtype* Named(const wchar_t* name) { return data.GetLtypeTable().Find(name); }
    veld::CData data;
};

QString Text(const CVELDLtypeListModel& model, int row, int column) {
    return model.data(model.index(row, column)).toString();
}

/// A list of the drawing's line types in a window, columns of equal width.
struct ShownList : CVELDLtypeList {
    explicit ShownList(Drawing& d) : CVELDLtypeList(nullptr) {
        resize(400, 200);
        for (int column = 0; column < 3; ++column)
            SetColumn(column, QString(), 120);
        SetItems(d.All());
        show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(this));
    }
    QRect Cell(int row, int column) { return visualRect(GetListModel()->index(row, column)); }
};

}  // namespace

TEST(LtypePreview, DashesGapsAndDotsFallWhereTheArithmeticPutsThem) {
    using Spans = std::vector<std::pair<int, int>>;  // pixels [first, second) drawn
    // 12.5 pixels a unit: dashes of 25 and gaps of 24, the last dash cut at the end.
    const Spans dashes25 = {{2, 27}, {51, 76}, {100, 125}, {149, 174}, {198, 202}};
    const struct {
        const char* what;
        std::vector<double> pattern;
        Spans ink;  ///< on the middle row
        int right = 204, multiplier = 1, left = 0, top = 0, bottom = 10;
    } cases[] = {
        // W = 200: below length 10 halved, 200 / (2 x 4) / 2 = 12.5 pixels a unit.
        // Length 20: 200 / (2 x 20) = 5 pixels a unit; the dot is one pixel.
        {"length 20", {10, -5, 0, -5}, {{2, 52}, {77, 78}, {102, 152}, {177, 178}}},
        {"length 10 is not halved", {5, -5}, {{2, 52}, {102, 152}}},
        {"just below 10 is halved", {5, -4.99}, dashes25},
        {"zero length: one pixel", {0, -5}, {{2, 3}, {52, 53}, {102, 103}, {152, 153}}},
        {"no elements: solid", {}, {{2, 202}}},
        // W = 7 and 8: 0.875 and 1 pixel an element.
        {"under a pixel an element on average: solid", {1, -1}, {{2, 9}}, 11},
        {"one pixel an element is shown", {1, -1}, {{2, 3}, {4, 5}, {6, 7}, {8, 9}}, 12},
        {"a text element takes no room", {2, -1, kText, -1}, dashes25},
        {"gaps only: nothing", {-1, -1}, {}},
        {"a cell 4 pixels wide: nothing", {}, {}, 4},
        {"a cell 5 pixels wide: one pixel", {}, {{2, 3}}, 5},
        {"off the origin", {10, -10}, {{32, 82}, {132, 182}}, 234, 1, 30, 20, 31},
        {"margins of 4 at multiplier 2", {10, -10}, {{4, 54}, {104, 154}}, 208, 2},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const veldtest::ScopedMultiplier m(c.multiplier);
        const QImage image =
            RenderPreview(MakeLtype(c.pattern).get(), c.left, c.right, c.top, c.bottom);
        std::string expected(image.width(), '.');
        for (const auto& [from, to] : c.ink)
            expected.replace(from, to - from, to - from, '#');
        EXPECT_EQ(InkRow(image, (c.top + c.bottom) / 2), expected);
    }
}

TEST(LtypePreview, ThePenIsTheRoutinesOwnOnlyWhenItSelectsIt) {
    const QColor callers(255, 0, 0);
    const QColor windowText = QGuiApplication::palette().color(QPalette::Text);
    const auto ltype = MakeLtype({10, -5, 0, -5});  // dash over [2, 52), dot at 77
    for (const bool selectPen : {true, false}) {
        SCOPED_TRACE(selectPen);
        // Antialiasing would blur a 1-pixel line: the routine's own pen comes
        // without it, the caller's pen with whatever the caller set.
        const bool antialiasing = selectPen;
        QImage image(210, 12, QImage::Format_RGB32);
        image.fill(kPaper);
        QPainter p(&image);
        p.setPen(QPen(callers, 0));
        p.setRenderHint(QPainter::Antialiasing, antialiasing);
        DrawLtypePreview(nullptr, &p, ltype.get(), 0, 204, 0, 10, 2, selectPen);
        EXPECT_EQ(p.pen().color(), callers);
        EXPECT_EQ(p.testRenderHint(QPainter::Antialiasing), antialiasing);
        p.end();
        EXPECT_EQ(QColor(image.pixel(20, 5)), selectPen ? windowText : callers);
        EXPECT_EQ(QColor(image.pixel(77, 5)), windowText);  // a dot is always window text
    }
}

TEST(LtypePreview, ExtremePatternsEndInFewSteps) {
    const struct {
        const char* what;
        std::vector<double> pattern;
        int ink;  ///< pixels on the row
        int repeats = 2, left = 0, right = 204;
    } cases[] = {
        {"a lone dot: zero length", {0}, 200},
        {"subnormal values", {1e-310, -1e-310}, 200},
        {"a length beyond the doubles", {1e308, -1e308}, 200},
        // The average reaches a pixel only by rounding: 0.2 x 4.99999 is 0.99999.
        {"elements each just short of a pixel", {0.2, -0.2, 0.2}, 12, 2, 0, 16},
        {"no repetitions", {1, -1}, 200, 0},
        // 536870911 pixels a dash: the third one covers all the paper.
        {"a cell across the whole int range", {1, -1}, 240, 2, INT_MIN, INT_MAX},
    };
    const veldtest::ScopedMultiplier m(1);
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const auto ltype = MakeLtype(c.pattern);
        // The visitor stops a walk that does not end by itself at the cap.
        long long steps = 0;
        ASSERT_TRUE(veld5::WalkLtypePreview(
            *ltype, c.left + 2LL, c.right - 2LL, c.repeats,
            [&steps](const veld5::PreviewStep&) { return ++steps < 1'000'000; }));
        EXPECT_LT(steps, 20);
        const std::string row =
            InkRow(RenderPreview(ltype.get(), c.left, c.right, 0, 10, c.repeats), 5);
        EXPECT_EQ(std::count(row.begin(), row.end(), '#'), c.ink) << row;
    }
}

TEST(LtypeListModel, EachRowShowsItsLineTypeInThreeColumns) {
    Drawing d;
    d.Add(L"DASHED", L"Dashed __ __");
    d.Named(L"Continuous")->SetDesc(L"Solid line");
    CVELDLtypeListModel model;
    model.SetItems(d.All());
    QStringList rows;  // "name|description": none for ByBlock and ByLayer
    for (int row = 0; row < model.rowCount(); ++row) {
        rows << Text(model, row, 0) + u'|' + Text(model, row, 2);
        const auto ltype =
            reinterpret_cast<quintptr>(d.Named(Text(model, row, 0).toStdWString().c_str()));
        for (int column = 0; column < 3; ++column)
            EXPECT_EQ(model.data(model.index(row, column), CVELDLtypeListModel::kItemRole),
                      QVariant::fromValue(ltype));
        EXPECT_EQ(model.flags(model.index(row, 0)), Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    }
    EXPECT_EQ(rows.join(u' '),
              QStringLiteral("ByBlock| ByLayer| Continuous|Solid line DASHED|Dashed __ __"));
}

TEST(LtypeListModel, ChangesToTheRowsReachTheViews) {
    Drawing d(3);
    veld::CLtype* lt1 = d.Named(L"LT1");
    veld::CLtype* lt2 = d.Named(L"LT2");
    CVELDLtypeListModel model;
    model.SetItems(std::vector<veld::CLtype*>{d.Named(L"LT0"), lt1, lt2});
    std::string log;
    const auto note = [&log](const char* what) {
        return [&log, what](const QModelIndex&, int first, int last) {
            log += QString::asprintf("[%s %d-%d]", what, first, last).toStdString();
        };
    };
    QObject::connect(&model, &QAbstractItemModel::rowsInserted, note("inserted"));
    QObject::connect(&model, &QAbstractItemModel::rowsRemoved, note("removed"));
    const auto changed = [&log](const QModelIndex& a, const QModelIndex& b) {
        const int at[] = {a.row(), a.column(), b.row(), b.column()};
        log += QString::asprintf("[changed %d,%d-%d,%d]", at[0], at[1], at[2], at[3]).toStdString();
    };
    QObject::connect(&model, &QAbstractItemModel::dataChanged, changed);
    // The names, each after its background colour where it has one (#0096fa is
    // RGB(0, 150, 250)).
    const auto names = [&] {
        QStringList out;
        for (int row = 0; row < model.rowCount(); ++row) {
            const QColor paint = model.index(row, 1).data(Qt::BackgroundRole).value<QColor>();
            out << (paint.isValid() ? paint.name() + u'|' : QString()) + Text(model, row, 0);
        }
        return out.join(u' ').toStdString();
    };
    const struct {
        std::function<void()> change;
        const char* signals;
        const char* names;
    } cases[] = {
        {[&] { model.AppendItem(d.Add(L"NEW", L"")); }, "[inserted 3-3]", "LT0 LT1 LT2 NEW"},
        {[&] { EXPECT_EQ(model.AppendItem(lt1), 1); }, "", "LT0 LT1 LT2 NEW"},
        {[&] {
             lt1->SetName(L"X");
             model.ItemChanged(lt1);
         },
         "[changed 1,0-1,2]", "LT0 X LT2 NEW"},
        {[&] { model.SetCurMark(lt2); }, "[changed 2,0-2,2]", "LT0 X #0096fa|LT2 NEW"},
        {[&] { model.SetCurMark(lt1); }, "[changed 2,0-2,2][changed 1,0-1,2]",
         "LT0 #0096fa|X LT2 NEW"},
        {[&] { model.SetCurMark(lt1); }, "", "LT0 #0096fa|X LT2 NEW"},
        {[&] { EXPECT_TRUE(model.RemoveItem(lt1)); }, "[removed 1-1]", "LT0 LT2 NEW"},
        {[&] { EXPECT_FALSE(model.RemoveItem(lt1)); }, "", "LT0 LT2 NEW"},
        {[&] { model.ItemChanged(lt1); }, "", "LT0 LT2 NEW"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(&c - cases);
        log.clear();
        c.change();
        EXPECT_EQ(log, c.signals);
        EXPECT_EQ(names(), c.names);
    }
}

TEST(LtypeListModel, RowsOfTenThousandLineTypesAreFoundAfterEveryChange) {
    Drawing d(10000);
    std::vector<veld::CLtype*> all = d.All();
    std::vector<veld::CLtype*> withRepeats = all;
    withRepeats.insert(withRepeats.end(), {all[7], nullptr});  // listed once, and not at all
    CVELDLtypeListModel model;
    model.SetItems(withRepeats);
    ASSERT_EQ(model.rowCount(), static_cast<int>(all.size()));
    const auto everyRowFound = [&] {
        for (int row = 0; row < model.rowCount(); ++row)
            if (model.RowOf(model.ItemAt(row)) != row)
                return false;
        return true;
    };
    EXPECT_TRUE(everyRowFound());
    // Removals at the start, in the middle and at the end shift the rows after them.
    for (veld::CLtype* gone : {all[0], all[5000], all.back()}) {
        ASSERT_TRUE(model.RemoveItem(gone));
        EXPECT_EQ(model.RowOf(gone), -1);
    }
    EXPECT_EQ(model.rowCount(), static_cast<int>(all.size()) - 3);
    EXPECT_EQ(model.RowOf(all[5001]), 4999);
    EXPECT_TRUE(everyRowFound());
    const int appended = model.AppendItem(all[0]);
    EXPECT_EQ(appended, model.rowCount() - 1);
    EXPECT_TRUE(everyRowFound());
    EXPECT_EQ(model.RowOf(nullptr), -1);
    EXPECT_EQ(model.ItemAt(-1), nullptr);
    EXPECT_EQ(model.ItemAt(model.rowCount()), nullptr);
    model.Clear();
    EXPECT_EQ(model.RowOf(all[1]), -1);
}

TEST(LtypeListModel, ARowKeepsItsLineTypeAliveUntilTheRowGoes) {
    Drawing d;
    veld::CLtype* temp = d.Add(L"TEMP", L"");
    temp->AddReference();  // the test's own, to watch the count
    CVELDLtypeListModel model;
    const struct {
        const char* what;
        std::function<void()> step;
        unsigned references;  ///< the table's, the test's and the model's
    } steps[] = {
        {"listed", [&] { model.AppendItem(temp); }, 3},
        {"marked as current too", [&] { model.SetCurMark(temp); }, 4},
        {"out of the drawing's table", [&] { d.data.GetLtypeTable().Remove(temp); }, 3},
        {"still readable", [&] { EXPECT_EQ(Text(model, 0, 0), QStringLiteral("TEMP")); }, 3},
        {"rows cleared", [&] { model.Clear(); }, 2},
        {"mark cleared", [&] { model.SetCurMark(nullptr); }, 1},
    };
    for (const auto& s : steps) {
        SCOPED_TRACE(s.what);
        s.step();
        EXPECT_EQ(temp->GetReferenceCount(), s.references);
    }
    temp->SubReference();
}

TEST(LtypeList, RowsPaintEachColumnInsideItsCell) {
    for (int multiplier : {1, 2}) {
        SCOPED_TRACE(multiplier);
        const veldtest::ScopedMultiplier m(multiplier);
        const int margin = 2 * multiplier;
        Drawing d;
        veld::CLtype* dashed = d.Add(L"DASHED", L"Dashed");
        d.Add(std::wstring(200, L'W'), L"Very long description " + std::wstring(300, L'x'));
        ShownList shown(d);
        shown.SetCurLtypeMark(dashed);
        QApplication::processEvents();
        const QImage picture =
            shown.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
        for (int row = 0; row < shown.GetItemCount(); ++row) {
            SCOPED_TRACE(row);
            veld::CLtype* ltype = shown.GetItem(row);
            const QRgb background =
                ltype == dashed ? qRgb(0, 150, 250) : shown.palette().color(QPalette::Base).rgb();
            const QRect name = shown.Cell(row, 0), look = shown.Cell(row, 1),
                        desc = shown.Cell(row, 2);
            // No column's ink reaches the margins on either side of a boundary.
            for (const QRect& cell : {name, look, desc})
                for (int x : {cell.left(), cell.right() + 1 - margin})
                    EXPECT_EQ(Ink(picture, {x, cell.top(), margin, cell.height()}, background), 0);
            // The appearance is the sample as DrawLtypePreview draws it for that cell.
            QImage alone(look.size(), QImage::Format_RGB32);
            alone.fill(background);
            {
                QPainter p(&alone);
                DrawLtypePreview(nullptr, &p, ltype, 0, look.width(), 0, look.height(), 2, true);
            }
            EXPECT_EQ(picture.copy(look), alone);
            EXPECT_GT(Ink(picture, name, background), 0);
            const bool described = !ltype->IsByBlock() && !ltype->IsByLayer();
            EXPECT_EQ(Ink(picture, desc, background) > 0, described);
        }
    }
}

TEST(LtypeList, SelectionReportsLeavingBeforeArriving) {
    Drawing d(3);
    ShownList shown(d);
    veld::CLtype* byLayer = d.Named(L"ByLayer");
    std::vector<std::string> log;
    const auto note = [&log](std::string sign) {
        return [&log, sign](veld::CLtype* t) {
            log.push_back(sign + t->GetName().ToQString().toStdString());
        };
    };
    QObject::connect(&shown, &CVELDLtypeList::ltypeSelected, note("+"));
    QObject::connect(&shown, &CVELDLtypeList::ltypeDeselected, note("-"));
    const auto tap = [&](int row, int column) {
        QTest::mouseClick(shown.viewport(), Qt::LeftButton, {}, shown.Cell(row, column).center());
    };
    const struct {
        const char* what;
        std::function<void()> act;
        std::vector<std::string> signals;
        const wchar_t* selected;  ///< null: none
    } steps[] = {
        {"preset", [&] { shown.SelectLtype(d.Named(L"LT1")); }, {"+LT1"}, L"LT1"},
        {"tap on another row's sample", [&] { tap(3, 1); }, {"-LT1", "+LT0"}, L"LT0"},
        {"tap on the same row's description", [&] { tap(3, 2); }, {}, L"LT0"},
        {"tap on ByLayer's name", [&] { tap(1, 0); }, {"-LT0", "+ByLayer"}, L"ByLayer"},
        {"its row deleted", [&] { EXPECT_TRUE(shown.DeleteItem(byLayer)); }, {"-ByLayer"}, nullptr},
        {"preset again", [&] { shown.SelectLtype(d.Named(L"LT2")); }, {"+LT2"}, L"LT2"},
        {"an unlisted one: none", [&] { shown.SelectLtype(byLayer); }, {"-LT2"}, nullptr},
    };
    for (const auto& s : steps) {
        SCOPED_TRACE(s.what);
        log.clear();
        s.act();
        EXPECT_EQ(log, s.signals);
        EXPECT_EQ(shown.GetSelectedLtype(), s.selected ? d.Named(s.selected) : nullptr);
    }
}

TEST(LtypeList, ColumnsAndRowsTakeTheSizesTheOwnerGives) {
    Drawing d(2);
    ShownList shown(d);
    for (const auto& [column, width] : std::vector<std::pair<int, int>>{{0, 3}, {1, 0}, {2, 517}}) {
        shown.SetColumn(column, QString(), width);
        EXPECT_EQ(shown.GetColumnWidth(column), width);
    }
    shown.SetRowHeight(31);
    EXPECT_EQ(shown.Cell(1, 0).height(), 31);
    EXPECT_EQ(shown.Cell(1, 0).top(), 31);
    // A text box starts 2 base pixels in, is 4 wider than the text, and stops at the cell.
    const struct {
        int multiplier, cellWidth, textWidth;
        QRect box;
    } boxes[] = {
        {1, 100, 50, QRect(2, 0, 54, 10)}, {2, 100, 50, QRect(4, 0, 58, 10)},
        {2, 100, 99, QRect(4, 0, 96, 10)}, {1, 6, 10, QRect()},
        {1, 7, 10, QRect(2, 0, 5, 10)},
    };
    for (const auto& [multiplier, cell, text, box] : boxes)
        EXPECT_EQ(CVELDLtypeListDelegate::TextBox({0, 0, cell, 10}, text, multiplier), box)
            << multiplier << " " << cell << " " << text;
}
