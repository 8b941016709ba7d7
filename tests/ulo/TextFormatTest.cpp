// Numbers as text, placeholders and translation.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "ulo/NumberText.h"
#include "ulo/Xlate.h"

using ulo::WString;

TEST(NumberText, FixedDecimals) {
    struct {
        double v;
        int decimals;
        const wchar_t* text;
    } const rows[] = {
        {1.2345678, 6, L"1.234568"},
        {0.0, 0, L"0"},
        {20.0, 0, L"20"},
        {-2.5, 3, L"-2.500"},
        {-0.0001, 3, L"0.000"},
        {-0.0, 2, L"0.00"},
        {1e-9, 4, L"0.0000"},
        {12.34567, 8, L"12.34567000"},
        {std::numeric_limits<double>::quiet_NaN(), 3, L"0.000"},
        {std::numeric_limits<double>::infinity(), 2, L"0.00"},
    };
    for (const auto& r : rows)
        EXPECT_EQ(ulo::CStringDaDouble(r.v, 0, r.decimals), r.text);
}

TEST(NumberText, ReadingTakesTheLeadingNumberOrZero) {
    struct {
        const wchar_t* text;
        double v;
    } const rows[] = {{L"12.5", 12.5}, {L"  -3", -3},  {L"12abc", 12}, {L"abc", 0},
                      {L"", 0},        {L"1e3", 1000}, {L".5", 0.5},   {L"-", 0}};
    for (const auto& r : rows) {
        EXPECT_DOUBLE_EQ(ulo::DoubleDaCString(r.text), r.v);
        EXPECT_DOUBLE_EQ(ulo::wtof(r.text), r.v);
    }
    EXPECT_EQ(ulo::wtof(nullptr), 0.0);
}

TEST(NumberText, ValueOfDropsTrailingZeros) {
    struct {
        double v;
        const wchar_t* text;
    } const rows[] = {{1.0, L"1"},  {0.5, L"0.5"},      {-2.125, L"-2.125"},
                      {1e-7, L"0"}, {-0.0000001, L"0"}, {12.3456789, L"12.345679"}};
    for (const auto& r : rows)
        EXPECT_EQ(WString::ValueOf(r.v, 6), r.text);
}

TEST(NumberText, ArCharDaDoubleNeverOverrunsItsBuffer) {
    wchar_t buffer[6];
    ulo::ArCharDaDouble(buffer, 6, 100.0, 0, 6);
    EXPECT_EQ(WString(buffer), L"100.0");
    wchar_t big[32];
    ulo::ArCharDaDouble(big, 32, 0.01, 0, 6);
    EXPECT_EQ(WString(big), L"0.010000");
}

TEST(SafeFormat, FillsNumberedPlaceholders) {
    const WString args[] = {L"DASHED", L"12", L"veld.lin", L"invalid alignment code"};
    struct {
        const wchar_t* format;
        unsigned count;
        const wchar_t* out;
    } const rows[] = {
        {L"Definition of {1} is not correct on line {2} in file {3}: {4}", 4,
         L"Definition of DASHED is not correct on line 12 in file veld.lin: invalid alignment "
         L"code"},
        {L"{2} before {1}", 2, L"12 before DASHED"},
        {L"missing {3}", 2, L"missing {3}"},
        {L"{0} and {} and {x}", 4, L"{0} and {} and {x}"},
        {L"{1}{1}", 1, L"DASHEDDASHED"},
        {L"open {1", 1, L"open {1"},
        {L"{99999999999}", 4, L"{99999999999}"},
    };
    for (const auto& r : rows)
        EXPECT_EQ(ulo::detail::ulo_safefmt(r.format, r.count, args), r.out);
    EXPECT_EQ(ulo::detail::ulo_safefmt(L"{1}", 1, nullptr), L"{1}");
}

TEST(Translation, HookAppliesToFormatsBeforeFilling) {
    EXPECT_EQ(ulo::Xlate(L"Warning"), L"Warning");
    ulo::SetTranslator([](const WString& s) {
        return s == L"The value is not between {1} and {2}" ? WString(L"Fuori da {1}..{2}") : s;
    });
    EXPECT_EQ(ulo::FormatMessage(L"The value is not between {1} and {2}", L"0.01", L"100"),
              L"Fuori da 0.01..100");
    ulo::SetTranslator({});
    EXPECT_EQ(ulo::Xlate(L"Warning"), L"Warning");
}
