// Colour values.
#include <gtest/gtest.h>

#include "app/GColor.h"

TEST(GColor, RedIsTheLowByte) {
    struct {
        unsigned long value;
        int r, g, b;
    } const rows[] = {
        {0x000000, 0, 0, 0},
        {0x0000FF, 255, 0, 0},
        {0x00FF00, 0, 255, 0},
        {0xFF0000, 0, 0, 255},
        {0x804020, 0x20, 0x40, 0x80},
        {0xFF123456, 0x56, 0x34, 0x12},  // the top byte is not a colour
    };
    for (const auto& r : rows) {
        const GColor c(r.value);
        EXPECT_EQ(c.Red(), r.r) << std::hex << r.value;
        EXPECT_EQ(c.Green(), r.g) << std::hex << r.value;
        EXPECT_EQ(c.Blue(), r.b) << std::hex << r.value;
        EXPECT_EQ(static_cast<unsigned long>(c), r.value & 0xFFFFFF);
    }
    EXPECT_TRUE(GColor(0x10203) == GColor(0x10203));
    EXPECT_FALSE(GColor(0x10203) == GColor(0x10204));
}
