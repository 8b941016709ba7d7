#include <gtest/gtest.h>

#include "ulo/WString.h"

TEST(WString, CompareIgnoreCaseOrdersWithoutCase) {
    EXPECT_EQ(ulo::WString(L"Layer").CompareIgnoreCase(L"LAYER"), 0);
    EXPECT_LT(ulo::WString(L"abc").CompareIgnoreCase(L"ABD"), 0);
    EXPECT_GT(ulo::WString(L"abcd").CompareIgnoreCase(L"ABC"), 0);
}
