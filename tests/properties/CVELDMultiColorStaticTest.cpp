// The colour strips: what each cell shows, where the borders fall, and which
// index a point picks, also at sizes that hold no whole cells.
#include <gtest/gtest.h>

#include <QImage>
#include <QSignalSpy>
#include <functional>
#include <memory>
#include <set>

#include "app/VELD.h"
#include "properties/CVELDMultiColorStatic.h"
#include "ulo/ctrl/Controls.h"

using veld5::CVELDMultiColorStatic;

namespace {

QColor rgbOf(int index) {
    return ulo::ColorFromRef(GetClrNo(nullptr, index).value);
}

std::unique_ptr<CVELDMultiColorStatic> strip(short first, short count, int w, int h) {
    auto s = std::make_unique<CVELDMultiColorStatic>(first, count);
    s->resize(w, h);
    return s;
}

std::unique_ptr<CVELDMultiColorStatic> palette(bool even, int w, int h) {
    auto s = std::make_unique<CVELDMultiColorStatic>(even);
    s->resize(w, h);
    return s;
}

QImage render(QWidget& w) {
    return w.grab().toImage();
}

}  // namespace

// Each cell is filled with the RGB of its index, framed by one line in the
// shadow colour that neighbouring cells share: the line on the left of a cell
// is the previous cell's right border, never doubled, and the fill starts on
// the very next pixel.
TEST(CVELDMultiColorStatic, CellsShowTheirColoursBetweenSharedBorders) {
    const struct {
        const char* what;
        std::function<std::unique_ptr<CVELDMultiColorStatic>()> make;
        int cellW, cellH;
        // (column, row, index) of cells whose colour is checked
        std::vector<std::tuple<int, int, int>> cells;
    } cases[] = {
        {"standard",
         [] { return strip(1, 9, 90, 20); },
         10,
         20,
         {{0, 0, 1}, {1, 0, 2}, {2, 0, 3}, {5, 0, 6}, {8, 0, 9}}},
        {"grey",
         [] { return strip(250, 6, 90, 20); },
         15,
         20,
         {{0, 0, 250}, {1, 0, 251}, {4, 0, 254}, {5, 0, 255}}},
        {"double density", [] { return strip(1, 9, 180, 40); }, 20, 40, {{0, 0, 1}, {8, 0, 9}}},
        {"upper palette",
         [] { return palette(true, 216, 45); },
         9,
         9,
         {{0, 0, 18},
          {0, 1, 16},
          {0, 4, 10},
          {1, 0, 28},
          {23, 0, 248},
          {23, 4, 240},
          {12, 2, 134}}},
        {"lower palette",
         [] { return palette(false, 216, 45); },
         9,
         9,
         {{0, 0, 11},
          {0, 1, 13},
          {0, 4, 19},
          {1, 0, 21},
          {23, 0, 241},
          {23, 4, 249},
          {12, 2, 135}}},
        {"palette at double density",
         [] { return palette(true, 432, 90); },
         18,
         18,
         {{0, 0, 18}, {23, 4, 240}}},
    };
    for (const auto& c : cases) {
        auto s = c.make();
        const QImage image = render(*s);
        const QColor pen = s->palette().color(QPalette::Dark).toRgb();
        const auto rgb = [&](int x, int y) { return image.pixelColor(x, y).rgb(); };
        EXPECT_EQ(s->CellWidth(), c.cellW) << c.what;
        EXPECT_EQ(s->CellHeight(), c.cellH) << c.what;
        for (const auto& [column, row, index] : c.cells) {
            const int x = column * c.cellW;
            const int y = row * c.cellH;
            const std::string where =
                std::string(c.what) + " cell " + std::to_string(column) + "," + std::to_string(row);
            EXPECT_EQ(rgb(x + c.cellW / 2, y + c.cellH / 2), rgbOf(index).rgb()) << where;
            // One border line, then the fill.
            EXPECT_EQ(rgb(x, y + c.cellH / 2), pen.rgb()) << where;
            EXPECT_EQ(rgb(x + 1, y + c.cellH / 2), rgbOf(index).rgb()) << where;
            EXPECT_EQ(rgb(x + c.cellW / 2, y), pen.rgb()) << where;
            EXPECT_EQ(rgb(x + c.cellW / 2, y + 1), rgbOf(index).rgb()) << where;
            EXPECT_EQ(s->IndexAt(QPoint(x + c.cellW / 2, y + c.cellH / 2)), index) << where;
        }
        // The outermost line of a strip closes its last cell inside the control.
        if (s->IsStrip()) {
            EXPECT_EQ(rgb(s->width() - 1, s->height() / 2), pen.rgb()) << c.what;
            EXPECT_EQ(rgb(s->width() / 2, s->height() - 1), pen.rgb()) << c.what;
        }
    }
}

TEST(CVELDMultiColorStatic, TheTwoPaletteHalvesHoldEveryPaletteIndexOnce) {
    std::multiset<int> seen;
    for (bool even : {true, false}) {
        auto s = palette(even, 216, 45);
        for (int row = 0; row < 5; ++row)
            for (int column = 0; column < 24; ++column)
                seen.insert(s->IndexAt(QPoint(column * 9 + 4, row * 9 + 4)));
    }
    ASSERT_EQ(seen.size(), 240u);
    for (int index = 10; index <= 249; ++index)
        EXPECT_EQ(seen.count(index), 1u) << index;
}

// A point outside every painted cell picks nothing: no index beyond a strip's
// run, none from the margin a size without whole cells leaves, none from a
// control too small to hold its cells.
TEST(CVELDMultiColorStatic, APointOutsideTheCellsPicksNothing) {
    const struct {
        const char* what;
        std::function<std::unique_ptr<CVELDMultiColorStatic>()> make;
        QPoint point;
        int index;  // -1: nothing
    } cases[] = {
        {"standard, left edge", [] { return strip(1, 9, 90, 20); }, {0, 0}, 1},
        {"standard, last pixel", [] { return strip(1, 9, 90, 20); }, {89, 19}, 9},
        {"standard, right of the control", [] { return strip(1, 9, 90, 20); }, {90, 10}, -1},
        {"standard, below the control", [] { return strip(1, 9, 90, 20); }, {10, 20}, -1},
        {"standard, left of the control", [] { return strip(1, 9, 90, 20); }, {-1, 10}, -1},
        {"standard, above the control", [] { return strip(1, 9, 90, 20); }, {10, -1}, -1},
        {"margin of a strip 100 wide", [] { return strip(1, 9, 100, 20); }, {99, 10}, -1},
        {"last cell of a strip 100 wide", [] { return strip(1, 9, 100, 20); }, {98, 10}, 9},
        {"strip narrower than its cells", [] { return strip(1, 9, 8, 20); }, {4, 10}, -1},
        {"strip of no cells", [] { return strip(1, 0, 90, 20); }, {4, 10}, -1},
        {"palette, last pixel", [] { return palette(true, 216, 45); }, {215, 44}, 240},
        {"palette, right of the control", [] { return palette(true, 216, 45); }, {216, 0}, -1},
        {"palette, below the control", [] { return palette(false, 216, 45); }, {0, 45}, -1},
        {"palette margin of 220 x 47", [] { return palette(false, 220, 47); }, {217, 10}, -1},
        {"palette bottom margin of 220 x 47", [] { return palette(false, 220, 47); }, {5, 46}, -1},
        {"palette smaller than its cells", [] { return palette(true, 20, 4); }, {1, 1}, -1},
        {"palette of no size", [] { return palette(true, 0, 0); }, {0, 0}, -1},
    };
    for (const auto& c : cases) {
        auto s = c.make();
        EXPECT_EQ(s->IndexAt(c.point), c.index) << c.what;
        QSignalSpy picked(s.get(), &CVELDMultiColorStatic::colorPicked);
        s->OnLButtonDown(c.point);
        if (c.index < 0) {
            EXPECT_EQ(picked.count(), 0) << c.what;
        } else {
            ASSERT_EQ(picked.count(), 1) << c.what;
            EXPECT_EQ(picked.at(0).at(0).value<short>(), c.index) << c.what;
        }
        // Painting at such sizes draws what fits and nothing outside.
        const QImage image = render(*s);
        EXPECT_EQ(image.size(), s->size()) << c.what;
    }
}
