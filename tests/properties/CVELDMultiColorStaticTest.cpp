// The colour strips: what each cell shows, where the borders fall, and which
// index a point picks, also at sizes that hold no whole cells. The colour
// swatch: which colour an index shows, and its name.
#include <gtest/gtest.h>

#include <QImage>
#include <QSignalSpy>
#include <memory>
#include <set>

#include "app/VELD.h"
#include "properties/CVELDEntColorStatic.h"
#include "properties/CVELDMultiColorStatic.h"
#include "ulo/ctrl/Controls.h"

using veld5::CVELDEntColorStatic;
using veld5::CVELDMultiColorStatic;

namespace {

// A "first index" that makes a palette half instead of a strip.
constexpr short kEven = -1;
constexpr short kOdd = -2;

std::unique_ptr<CVELDMultiColorStatic> make(short first, short count, int w, int h) {
    auto s = first < 0 ? std::make_unique<CVELDMultiColorStatic>(first == kEven)
                       : std::make_unique<CVELDMultiColorStatic>(first, count);
    s->resize(w, h);
    return s;
}

QRgb rgbOf(int index) {
    return ulo::ColorFromRef(GetClrNo(nullptr, index).value).rgb();
}

QRgb centre(QWidget& w) {
    w.resize(20, 20);
    return w.grab().toImage().pixel(10, 10);
}

}  // namespace

// Each cell is filled with the RGB of its index, framed by one line in the
// shadow colour that neighbouring cells share: the line on the left of a cell
// is the previous cell's right border, never doubled, and the fill starts on
// the very next pixel.
TEST(CVELDMultiColorStatic, CellsShowTheirColoursBetweenSharedBorders) {
    const struct {
        short first, count;
        int w, h, cellW, cellH;
        std::vector<std::tuple<int, int, int>> cells;  // column, row, index
    } cases[] = {
        {1, 9, 90, 20, 10, 20, {{0, 0, 1}, {2, 0, 3}, {8, 0, 9}}},
        {250, 6, 90, 20, 15, 20, {{0, 0, 250}, {5, 0, 255}}},
        {kEven, 0, 216, 45, 9, 9, {{0, 0, 18}, {0, 4, 10}, {1, 0, 28}, {23, 4, 240}, {12, 2, 134}}},
        {kOdd, 0, 216, 45, 9, 9, {{0, 0, 11}, {0, 4, 19}, {1, 0, 21}, {23, 4, 249}, {12, 2, 135}}},
        {kEven, 0, 432, 90, 18, 18, {{0, 0, 18}, {23, 4, 240}}},
    };
    for (const auto& c : cases) {
        auto s = make(c.first, c.count, c.w, c.h);
        const QImage image = s->grab().toImage();
        const QRgb pen = s->palette().color(QPalette::Dark).rgb();
        const auto rgb = [&](int x, int y) { return image.pixelColor(x, y).rgb(); };
        const std::string what = std::to_string(c.first) + " at " + std::to_string(c.w);
        EXPECT_EQ(s->CellWidth(), c.cellW) << what;
        EXPECT_EQ(s->CellHeight(), c.cellH) << what;
        for (const auto& [column, row, index] : c.cells) {
            const int x = column * c.cellW, y = row * c.cellH;
            const QRgb fill = rgbOf(index);
            const std::string where = what + ", cell " + std::to_string(index);
            EXPECT_EQ(rgb(x + c.cellW / 2, y + c.cellH / 2), fill) << where;
            // One border line, then the fill.
            EXPECT_EQ(rgb(x, y + c.cellH / 2), pen) << where;
            EXPECT_EQ(rgb(x + 1, y + c.cellH / 2), fill) << where;
            EXPECT_EQ(rgb(x + c.cellW / 2, y), pen) << where;
            EXPECT_EQ(rgb(x + c.cellW / 2, y + 1), fill) << where;
            EXPECT_EQ(s->IndexAt(QPoint(x + c.cellW / 2, y + c.cellH / 2)), index) << where;
        }
        // The outermost lines of a strip close its last cell inside the control.
        if (s->IsStrip()) {
            EXPECT_EQ(rgb(s->width() - 1, s->height() / 2), pen) << what;
            EXPECT_EQ(rgb(s->width() / 2, s->height() - 1), pen) << what;
        }
    }
}

// The standard colours, the greys and the two palette halves together offer
// every index from 1 to 255 once.
TEST(CVELDMultiColorStatic, TheStripsTogetherHoldEveryIndexOnce) {
    std::multiset<int> seen;
    for (const auto& [first, count] : {std::pair{1, 9}, {250, 6}, {kEven, 0}, {kOdd, 0}}) {
        auto s = make(short(first), short(count), first > 0 ? 90 : 216, first > 0 ? 20 : 45);
        for (int row = 0; row < s->Rows(); ++row)
            for (int column = 0; column < s->Columns(); ++column)
                seen.insert(s->IndexAt(QPoint(column * s->CellWidth() + s->CellWidth() / 2,
                                              row * s->CellHeight() + s->CellHeight() / 2)));
    }
    ASSERT_EQ(seen.size(), 255u);
    for (int index = 1; index <= 255; ++index)
        EXPECT_EQ(seen.count(index), 1u) << index;
}

// A point outside every painted cell picks nothing: none beyond a strip's
// run, none from the margin a size without whole cells leaves, none from a
// control too small to hold its cells; a point on a cell reports its index.
// (The picker's presses at the first and last pixels of each strip, and just
// beside it, at every multiplier: CCECADDlgColorTest.)
TEST(CVELDMultiColorStatic, APointOutsideTheCellsPicksNothing) {
    const struct {
        short first, count;
        int w, h;
        QPoint point;
        int index;  // -1: nothing
    } cases[] = {
        {1, 9, 90, 20, {90, 10}, -1},      {1, 9, 90, 20, {10, 20}, -1},
        {1, 9, 90, 20, {-1, 10}, -1},      {1, 9, 90, 20, {10, -1}, -1},
        {1, 9, 100, 20, {99, 10}, -1},     {1, 9, 100, 20, {98, 10}, 9},
        {1, 9, 8, 20, {4, 10}, -1},        {1, 0, 90, 20, {4, 10}, -1},
        {kOdd, 0, 220, 47, {217, 10}, -1}, {kOdd, 0, 220, 47, {5, 46}, -1},
        {kEven, 0, 20, 4, {1, 1}, -1},
    };
    for (const auto& c : cases) {
        auto s = make(c.first, c.count, c.w, c.h);
        const std::string what = std::to_string(c.first) + " at " + std::to_string(c.w) + ", " +
                                 std::to_string(c.point.x()) + "," + std::to_string(c.point.y());
        EXPECT_EQ(s->IndexAt(c.point), c.index) << what;
        QSignalSpy picked(s.get(), &CVELDMultiColorStatic::colorPicked);
        s->OnLButtonDown(c.point);
        ASSERT_EQ(picked.count(), c.index < 0 ? 0 : 1) << what;
        if (c.index >= 0) {
            EXPECT_EQ(picked.at(0).at(0).value<short>(), c.index) << what;
        }
    }
}

// Fitted into a rectangle, a strip takes its corner and whole cells: the
// largest cells asked for where the rectangle has room, else the largest
// whole cells it holds, never a pixel outside it, nothing when it cannot hold
// one pixel per cell.
TEST(CVELDMultiColorStatic, FitsWholeCellsInsideItsRectangle) {
    const struct {
        short first, count;
        QRect area;
        QSize largest;
        QRect placed;
    } cases[] = {
        {1, 9, {3, 4, 91, 21}, {10, 20}, {3, 4, 90, 20}},
        {1, 9, {3, 4, 91, 21}, {20, 40}, {3, 4, 90, 21}},
        {250, 6, {0, 0, 91, 21}, {30, 40}, {0, 0, 90, 21}},
        {kEven, 0, {7, 50, 217, 45}, {9, 9}, {7, 50, 216, 45}},
        {kOdd, 0, {7, 95, 217, 46}, {18, 18}, {7, 95, 216, 45}},
        {kEven, 0, {0, 0, 1000, 500}, {18, 18}, {0, 0, 432, 90}},
        {kEven, 0, {0, 0, 100, 30}, {9, 9}, {0, 0, 96, 30}},
        {1, 9, {5, 5, 8, 20}, {10, 20}, {5, 5, 0, 20}},
        {kOdd, 0, {5, 5, 20, 4}, {9, 9}, {5, 5, 0, 0}},
    };
    for (const auto& c : cases) {
        auto s = make(c.first, c.count, 500, 500);
        s->FitWholeCells(c.area, c.largest);
        const std::string what = std::to_string(c.first) + " in " + std::to_string(c.area.width()) +
                                 "x" + std::to_string(c.area.height());
        EXPECT_EQ(s->geometry(), c.placed) << what;
        EXPECT_EQ(s->CellWidth() * s->Columns(), s->width()) << what;
        EXPECT_EQ(s->CellHeight() * s->Rows(), s->height()) << what;
    }
}

// Constructed with an index or given it later, the swatch paints the colour of
// the index it resolves to and names the index as the picker does; the
// properties the scripted user reads agree. A block colour of 256 is not
// resolved again, and an entity set's "none" (65535) shows no palette colour.
TEST(CVELDEntColorStatic, ShowsTheColourAndNameOfTheResolvedIndex) {
    const struct {
        short colour;
        unsigned short layer, block;
        int shown;
        const char* name;
    } cases[] = {
        {-1, 3, 5, 250, "Varies"},   {-32768, 3, 5, 250, "Varies"},
        {0, 3, 5, 5, "ByBlock"},     {256, 3, 5, 3, "ByLayer"},
        {7, 3, 5, 7, "White"},       {8, 3, 5, 8, "8"},
        {255, 3, 5, 255, "255"},     {300, 3, 5, 300, ""},
        {0, 3, 256, 256, "ByBlock"}, {256, 65535, 65535, 65535, "ByLayer"},
    };
    for (const auto& c : cases) {
        const std::string what = std::to_string(c.colour) + ", layer " + std::to_string(c.layer) +
                                 ", block " + std::to_string(c.block);
        CVELDEntColorStatic built(nullptr, c.colour, c.layer, c.block);
        EXPECT_EQ(built.GetShownColorIndex(), c.shown) << what;
        EXPECT_EQ(centre(built), rgbOf(c.shown)) << what;
        EXPECT_EQ(built.property("colorIndex").toInt(), c.colour) << what;
        EXPECT_EQ(built.property("shownColorIndex").toInt(), c.shown) << what;
        EXPECT_EQ(built.property("colorName").toString(), QString::fromLatin1(c.name)) << what;
        EXPECT_EQ(CVELDEntColorStatic::NameOf(c.colour), QString::fromLatin1(c.name)) << what;

        // The same through the setter, from a swatch that showed another colour.
        CVELDEntColorStatic set(nullptr, 2, c.layer, c.block);
        ASSERT_EQ(centre(set), rgbOf(2));
        set.SetColorIndex(static_cast<unsigned short>(c.colour));
        EXPECT_EQ(set.GetColorIndex(), c.colour) << what;
        EXPECT_EQ(centre(set), rgbOf(c.shown)) << what << " after SetColorIndex";
    }
}

// A new layer colour shows at once when the swatch shows ByLayer; otherwise it
// is kept for when it does.
TEST(CVELDEntColorStatic, ALayerColourChangeShowsOnlyThroughByLayer) {
    const struct {
        short colour;
        int shownAfterChange;
    } cases[] = {{256, 4}, {5, 5}, {0, 6}, {-1, 250}};
    for (const auto& c : cases) {
        CVELDEntColorStatic s(nullptr, c.colour, 3, 6);
        s.SetLayerColorIndex(4);
        EXPECT_EQ(s.GetLayerColorIndex(), 4) << c.colour;
        EXPECT_EQ(centre(s), rgbOf(c.shownAfterChange)) << c.colour;
        s.SetColorIndex(256);
        EXPECT_EQ(centre(s), rgbOf(4)) << c.colour << ", then ByLayer";
    }
}
