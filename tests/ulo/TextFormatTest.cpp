// Strings, numbers as text, placeholders and translation.
#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <locale>
#include <string>

#include "ulo/NumberText.h"
#include "ulo/WString.h"
#include "ulo/Xlate.h"

using ulo::WString;

// Numbers as text: fixed decimals rounded, no sign on what rounds to zero, 0
// for NaN and infinities; ValueOf drops trailing zeros, ArCharDaDouble cuts to
// its buffer; ExactText is the shortest text that reads back, -0 kept. The
// same in a decimal-comma locale, in C and in C++. (Reading: FieldInputTest.)
TEST(NumberText, WritesTheCNotationInEveryLocale) {
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    constexpr double kInf = std::numeric_limits<double>::infinity();
    const std::string previous = std::setlocale(LC_ALL, nullptr);
    for (const char* locale : {"C", "it_IT.UTF-8"}) {
        if (!std::setlocale(LC_ALL, locale))
            continue;  // not on this machine; the other still runs
        const std::locale global = std::locale::global(std::locale(locale));
        const struct {
            double v;
            int decimals;
            const wchar_t* text;
        } fixed[] = {
            {1.2345678, 6, L"1.234568"},
            {-1234.5, 3, L"-1234.500"},
            {20.0, 0, L"20"},
            {-0.0001, 3, L"0.000"},
            {-0.0, 2, L"0.00"},
            {kNaN, 3, L"0.000"},
            {kInf, 2, L"0.00"},
            {std::ldexp(1.0, 100), 0, L"1267650600228229401496703205376"},
        };
        for (const auto& r : fixed)
            EXPECT_EQ(ulo::CStringDaDouble(r.v, 0, r.decimals), r.text) << locale;
        const struct {
            double v;
            const wchar_t *valueOf, *exact;
        } shortest[] = {{0.1, L"0.1", L"0.1"},
                        {-2.125, L"-2.125", L"-2.125"},
                        {-0.0, L"0", L"-0"},
                        {1e-7, L"0", L"1e-07"},
                        {12.3456789, L"12.345679", L"12.3456789"},
                        {kInf, L"0", L"0"}};
        for (const auto& r : shortest) {
            EXPECT_EQ(WString::ValueOf(r.v, 6), r.valueOf) << locale;
            EXPECT_EQ(WString(ulo::ExactText(r.v)), r.exact) << locale;
        }
        wchar_t buffer[6];
        ulo::ArCharDaDouble(buffer, 6, 100.0, 0, 6);
        EXPECT_EQ(WString(buffer), L"100.0") << locale;
        std::locale::global(global);
    }
    std::setlocale(LC_ALL, previous.c_str());
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

// (The hook on loaded strings: StringTableTest.)
TEST(Translation, HookAppliesToFormatsBeforeFilling) {
    ulo::SetTranslator([](const WString& s) {
        return s == L"The value is not between {1} and {2}" ? WString(L"Fuori da {1}..{2}") : s;
    });
    EXPECT_EQ(ulo::FormatMessage(L"The value is not between {1} and {2}", L"0.01", L"100"),
              L"Fuori da 0.01..100");
    ulo::SetTranslator({});
}

TEST(WString, ComparisonsWithAndWithoutCase) {
    struct {
        const wchar_t *a, *b;
        int exact, ignoringCase;
    } const rows[] = {
        {L"Layer", L"LAYER", 1, 0}, {L"abc", L"ABD", 1, -1}, {L"abcd", L"ABC", 1, 1},
        {L"", L"", 0, 0},           {L"a", L"b", -1, -1},    {L"Z", L"a", -1, 1},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(WString(r.a).ToQString().toStdString());
        EXPECT_EQ(WString(r.a).Compare(r.b), r.exact);
        EXPECT_EQ(WString(r.a).CompareIgnoreCase(r.b), r.ignoringCase);
    }
}
