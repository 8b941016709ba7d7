// The line type list: pattern samples checked pixel by pixel, samples of
// extreme patterns that must end, and the list's columns as shown and painted
// (what every list over a table does, tables/TableListTest checks).
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QTest>
#include <algorithm>
#include <climits>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "linetypes/CVELDLtypeList.h"
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

}  // namespace

// Where the pixels fall, and that any pattern, however extreme, is walked in
// a few steps (a visitor that stops at a cap tells a walk that would not end).
TEST(LtypePreview, DashesGapsAndDotsFallWhereTheArithmeticPutsThemInFewSteps) {
    using Spans = std::vector<std::pair<int, int>>;  // pixels [first, second) drawn
    // 12.5 pixels a unit: dashes of 25 and gaps of 24, the last dash cut at the end.
    const Spans dashes25 = {{2, 27}, {51, 76}, {100, 125}, {149, 174}, {198, 202}};
    const Spans solid = {{2, 202}};
    const struct {
        const char* what;
        std::vector<double> pattern;
        Spans ink;  ///< on the middle row
        int right = 204, multiplier = 1, left = 0, top = 0, bottom = 10, repeats = 2;
    } cases[] = {
        // W = 200: below length 10 halved, 200 / (2 x 4) / 2 = 12.5 pixels a unit.
        // Length 20: 200 / (2 x 20) = 5 pixels a unit; the dot is one pixel.
        {"length 20", {10, -5, 0, -5}, {{2, 52}, {77, 78}, {102, 152}, {177, 178}}},
        {"length 10 is not halved", {5, -5}, {{2, 52}, {102, 152}}},
        {"just below 10 is halved", {5, -4.99}, dashes25},
        {"zero length: one pixel", {0, -5}, {{2, 3}, {52, 53}, {102, 103}, {152, 153}}},
        {"no elements: solid", {}, solid},
        // W = 7 and 8: 0.875 and 1 pixel an element.
        {"under a pixel an element on average: solid", {1, -1}, {{2, 9}}, 11},
        {"one pixel an element is shown", {1, -1}, {{2, 3}, {4, 5}, {6, 7}, {8, 9}}, 12},
        {"a text element takes no room", {2, -1, kText, -1}, dashes25},
        {"gaps only: nothing", {-1, -1}, {}},
        {"a cell 4 pixels wide: nothing", {}, {}, 4},
        {"a cell 5 pixels wide: one pixel", {}, {{2, 3}}, 5},
        {"off the origin", {10, -10}, {{32, 82}, {132, 182}}, 234, 1, 30, 20, 31},
        {"margins of 4 at multiplier 2", {10, -10}, {{4, 54}, {104, 154}}, 208, 2},
        {"a lone dot: zero length", {0}, solid},
        {"subnormal values", {1e-310, -1e-310}, solid},
        {"a length beyond the doubles", {1e308, -1e308}, solid},
        // The average reaches a pixel only by rounding: 0.2 x 4.99999 is 0.99999.
        {"elements each just short of a pixel", {0.2, -0.2, 0.2}, {{2, 14}}, 16},
        {"no repetitions", {1, -1}, solid, 204, 1, 0, 0, 10, 0},
        // 536870911 pixels a dash: the third one covers all the paper.
        {"a cell across the whole int range", {1, -1}, {{0, 240}}, INT_MAX, 1, INT_MIN},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        const veldtest::ScopedMultiplier m(c.multiplier);
        const auto ltype = MakeLtype(c.pattern);
        long long steps = 0;
        ASSERT_TRUE(veld5::WalkLtypePreview(
            *ltype, c.left + 2LL * c.multiplier, c.right - 2LL * c.multiplier, c.repeats,
            [&steps](const veld5::PreviewStep&) { return ++steps < 1'000'000; }));
        EXPECT_LT(steps, 20);
        const QImage image =
            RenderPreview(ltype.get(), c.left, c.right, c.top, c.bottom, c.repeats);
        std::string expected(image.width(), '.');
        for (const auto& [from, to] : c.ink)
            expected.replace(from, to - from, to - from, '#');
        EXPECT_EQ(InkRow(image, (c.top + c.bottom) / 2), expected);
    }
}

// Each column's ink keeps inside its cell, on the row's background (blue for
// the marked line type); the appearance is the sample DrawLtypePreview draws
// for the cell; ByBlock and ByLayer show no description (they stand for
// another row's line type).
TEST(LtypeList, RowsPaintEachColumnInsideItsCell) {
    veld::CData data;
    for (const wchar_t* logical : {L"ByBlock", L"ByLayer"})
        data.GetLtypeTable().Find(logical)->SetDesc(L"Logical");
    veld::CLtype* dashed = data.GetObjectFactory()->CreateLtype(
        L"DASHED", L"Dashed", MakeLtype({1, -1})->GetLtypeComplexDashSeq(), 0, 0);
    veld::CLtype* wide = data.GetObjectFactory()->CreateLtype(
        std::wstring(200, L'W'), std::wstring(300, L'x'), dashed->GetLtypeComplexDashSeq(), 0, 0);
    std::vector<veld::CLtype*> all;
    veld::CData::CLtypeIterator it(&data, true, true);
    while (veld::CLtype* t = it.GetNext())
        all.push_back(t);
    for (veld::CLtype* t : {dashed, wide}) {
        data.GetLtypeTable().Add(t);
        t->SubReference();
        all.push_back(t);
    }
    for (int multiplier : {1, 2}) {
        SCOPED_TRACE(multiplier);
        const veldtest::ScopedMultiplier m(multiplier);
        const int margin = 2 * multiplier;
        CVELDLtypeList list(nullptr);
        list.resize(400, 200);
        for (int column = 0; column < 3; ++column)
            list.SetColumn(column, QString(), 120);
        list.SetLtypes(all);
        list.SetCurLtypeMark(dashed);
        list.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&list));
        const QImage picture =
            list.viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
        const auto text = [&](int row, int column) {
            return list.GetListModel()->index(row, column).data().toString();
        };
        for (int row = 0; row < list.GetItemCount(); ++row) {
            SCOPED_TRACE(row);
            veld::CLtype* ltype = list.GetItem(row);
            const QRgb background =
                ltype == dashed ? qRgb(0, 150, 250) : list.palette().color(QPalette::Base).rgb();
            const QRect name = list.CellRect(row, 0), look = list.CellRect(row, 1),
                        desc = list.CellRect(row, 2);
            for (const QRect& cell : {name, look, desc})
                for (int x : {cell.left(), cell.right() + 1 - margin})
                    EXPECT_EQ(Ink(picture, {x, cell.top(), margin, cell.height()}, background), 0);
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
            EXPECT_EQ(text(row, 0), ltype->GetName().ToQString());
            EXPECT_EQ(text(row, 1), QString());
            EXPECT_EQ(text(row, 2), described ? ltype->GetDesc().ToQString() : QString());
        }
    }
}
