// The colour swatch: which colour a logical or "varies" index shows, after
// construction and after each setter, and the name that goes with an index.
#include <gtest/gtest.h>

#include <QImage>

#include "app/VELD.h"
#include "properties/CVELDEntColorStatic.h"

using veld5::CVELDEntColorStatic;

namespace {

QRgb rgbOf(int index) {
    return ulo::ColorFromRef(GetClrNo(nullptr, index).value).rgb();
}

QRgb centre(QWidget& w) {
    return w.grab().toImage().pixel(w.width() / 2, w.height() / 2);
}

std::string describe(int colour, int layer, int block) {
    return "colour " + std::to_string(colour) + ", layer " + std::to_string(layer) + ", block " +
           std::to_string(block);
}

}  // namespace

// Constructed with an index or given it later, the swatch paints the colour of
// the index it resolves to; the property the scripted user reads agrees.
TEST(CVELDEntColorStatic, ShowsTheColourOfTheResolvedIndex) {
    const struct {
        short colour;
        unsigned short layer, block;
        int shown;
    } cases[] = {
        {-1, 3, 5, 250},             // varies
        {-32768, 3, 5, 250},         // any negative index varies
        {0, 3, 5, 5},                // ByBlock
        {256, 3, 5, 3},              // ByLayer
        {1, 3, 5, 1},                // standard
        {7, 3, 5, 7},                //
        {255, 3, 5, 255},            // grey
        {256, 250, 7, 250},          // a property dialog's "layers differ"
        {256, 65535, 65535, 65535},  // an entity set's "none": shown as no palette colour
        {0, 3, 256, 256},            // a block colour is not resolved again
        {300, 3, 5, 300},            // beyond the palette
    };
    for (const auto& c : cases) {
        const std::string what = describe(c.colour, c.layer, c.block);
        CVELDEntColorStatic built(nullptr, c.colour, c.layer, c.block);
        built.resize(20, 20);
        EXPECT_EQ(built.GetShownColorIndex(), c.shown) << what;
        EXPECT_EQ(built.GetColor(), GetClrNo(nullptr, c.shown).value) << what;
        EXPECT_EQ(centre(built), rgbOf(c.shown)) << what;
        EXPECT_EQ(built.property("colorIndex").toInt(), c.colour) << what;
        EXPECT_EQ(built.property("shownColorIndex").toInt(), c.shown) << what;

        // The same through the setter, from a swatch that showed another colour.
        CVELDEntColorStatic set(nullptr, 2, c.layer, c.block);
        set.resize(20, 20);
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
        unsigned short newLayer;
        int shownAfterChange;
    } cases[] = {{256, 4, 4}, {256, 3, 3}, {5, 4, 5}, {0, 4, 6}, {-1, 4, 250}};
    for (const auto& c : cases) {
        const std::string what = describe(c.colour, c.newLayer, 6);
        CVELDEntColorStatic s(nullptr, c.colour, 3, 6);
        s.resize(20, 20);
        s.SetLayerColorIndex(c.newLayer);
        EXPECT_EQ(s.GetLayerColorIndex(), c.newLayer) << what;
        EXPECT_EQ(centre(s), rgbOf(c.shownAfterChange)) << what;
        s.SetColorIndex(256);
        EXPECT_EQ(centre(s), rgbOf(c.newLayer)) << what << ", then ByLayer";
    }
}

TEST(CVELDEntColorStatic, NamesAnIndexAsThePickerShowsIt) {
    const struct {
        short index;
        const char* name;
    } cases[] = {
        {-1, "Varies"}, {-300, "Varies"}, {0, "ByBlock"}, {256, "ByLayer"}, {1, "Red"},
        {2, "Yellow"},  {3, "Green"},     {4, "Cyan"},    {5, "Blue"},      {6, "Magenta"},
        {7, "White"},   {8, "8"},         {10, "10"},     {249, "249"},     {255, "255"},
        {257, ""},      {32767, ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(CVELDEntColorStatic::NameOf(c.index), QString::fromLatin1(c.name)) << c.index;
        CVELDEntColorStatic s(nullptr, c.index, 7, 7);
        EXPECT_EQ(s.property("colorName").toString(), QString::fromLatin1(c.name)) << c.index;
    }
}
