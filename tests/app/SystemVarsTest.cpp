// Cursor settings and colour values.
#include <gtest/gtest.h>

#include "app/MouseCursorInfo.h"

TEST(MouseCursorInfo, EachArgumentLandsInItsOwnField) {
    CMouseCursorInfo info;
    info.SetCursorInfo(3, GColor(0x0000FF), GColor(0x00FF00), 25, 7, 9, 2, true);
    EXPECT_EQ(info.GetCursorFormat(), 3u);
    EXPECT_EQ(info.GetCursorColor(), GColor(0x0000FF));
    EXPECT_EQ(info.GetCursorAlterColor(), GColor(0x00FF00));
    EXPECT_EQ(info.GetCursorSize(), 25);
    EXPECT_EQ(info.GetCursorSearchSize(), 7);
    EXPECT_EQ(info.GetCursorAperture(), 9);
    EXPECT_EQ(info.GetCursorPenWeight(), 2);
    EXPECT_TRUE(info.IsCursorAllScreen());
}

TEST(MouseCursorInfo, SystemVarsKeepOneRecordForTheProcess) {
    CSystemVars& vars = CSystemVars::GetInstance();
    const CMouseCursorInfo saved = vars.GetMouseCursorInfo();
    CMouseCursorInfo info = saved;
    info.SetCursorInfo(saved.GetCursorFormat(), saved.GetCursorColor(),
                       saved.GetCursorAlterColor(), 0, 30, saved.GetCursorAperture(),
                       saved.GetCursorPenWeight(), true);
    vars.SetMouseCursorInfo(info);
    EXPECT_EQ(&CSystemVars::GetInstance(), &vars);
    EXPECT_EQ(CSystemVars::GetInstance().GetMouseCursorInfo().GetCursorSearchSize(), 30);
    EXPECT_TRUE(CSystemVars::GetInstance().GetMouseCursorInfo().IsCursorAllScreen());
    vars.SetMouseCursorInfo(saved);
    EXPECT_TRUE(CSystemVars::GetInstance().GetMouseCursorInfo() == saved);
}

TEST(GColor, RedIsTheLowByte) {
    struct {
        unsigned long value;
        int r, g, b;
    } const rows[] = {
        {0x000000, 0, 0, 0},       {0x0000FF, 255, 0, 0}, {0x00FF00, 0, 255, 0},
        {0xFF0000, 0, 0, 255},     {0x804020, 0x20, 0x40, 0x80},
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
