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
    w.resize(20, 20);
    return w.grab().toImage().pixel(10, 10);
}

}  // namespace

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
