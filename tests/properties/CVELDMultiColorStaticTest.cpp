// The colour strips' indices, also at sizes without whole cells, and the colour
// swatch's colour and name. (The strips' cells, their fit and the presses on
// them, at every multiplier and layout: CCECADDlgColorTest.)
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
    EXPECT_EQ(std::set<int>(seen.begin(), seen.end()).size(), 255u);
    EXPECT_TRUE(*seen.begin() == 1 && *seen.rbegin() == 255);
}

// A point outside every painted cell picks nothing: none from the margin a
// size without whole cells leaves, none from a control too small to hold its
// cells or a strip of no cells; a point on a cell reports its index.
TEST(CVELDMultiColorStatic, APointOutsideTheCellsPicksNothing) {
    const struct {
        short first, count;
        int w, h;
        QPoint point;
        int index;  // -1: nothing
    } cases[] = {
        {1, 9, 100, 20, {99, 10}, -1},   {1, 9, 100, 20, {98, 10}, 9},
        {kOdd, 0, 220, 47, {5, 46}, -1}, {1, 9, 8, 20, {4, 10}, -1},
        {1, 0, 90, 20, {4, 10}, -1},     {kEven, 0, 20, 4, {1, 1}, -1},
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

// Built with an index or given it later, the swatch paints the colour of the
// index it resolves to and names it as the picker does (the properties the
// scripted user reads agree); a block colour of 256 is not resolved again, an
// entity set's "none" (65535) shows no palette colour; a new layer colour
// shows at once only through ByLayer.
TEST(CVELDEntColorStatic, ShowsTheColourAndNameOfTheResolvedIndex) {
    const struct {
        short colour;
        unsigned short layer, block;
        int shown;
        const char* name;
        int shownAfterLayer4;
    } cases[] = {
        {-32768, 3, 5, 250, "Varies", 250}, {256, 3, 5, 3, "ByLayer", 4},
        {7, 3, 5, 7, "White", 7},           {300, 3, 5, 300, "", 300},
        {0, 3, 256, 256, "ByBlock", 256},   {256, 65535, 65535, 65535, "ByLayer", 4},
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
        set.SetLayerColorIndex(4);
        EXPECT_EQ(set.GetLayerColorIndex(), 4) << what;
        EXPECT_EQ(centre(set), rgbOf(c.shownAfterLayer4)) << what << " after the layer's change";
    }
}
