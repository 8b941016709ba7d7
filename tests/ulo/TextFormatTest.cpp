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

// Fixed decimals: rounded, no sign on what rounds to zero, 0 for NaN and
// infinities; ValueOf drops trailing zeros, ArCharDaDouble cuts to its buffer.
TEST(NumberText, FixedDecimals) {
    struct {
        double v;
        int decimals;
        std::wstring text;
    } const rows[] = {
        {1.2345678, 6, L"1.234568"},
        {20.0, 0, L"20"},
        {-2.5, 3, L"-2.500"},
        {-0.0001, 3, L"0.000"},
        {-0.0, 2, L"0.00"},
        {12.34567, 8, L"12.34567000"},
        {std::numeric_limits<double>::quiet_NaN(), 3, L"0.000"},
        {std::numeric_limits<double>::infinity(), 2, L"0.00"},
        {std::ldexp(1.0, 100), 0, L"1267650600228229401496703205376"},
    };
    for (const auto& r : rows)
        EXPECT_EQ(ulo::CStringDaDouble(r.v, 0, r.decimals), r.text);
    struct {
        double v;
        const wchar_t* text;
    } const trimmed[] = {{1.0, L"1"},  {0.5, L"0.5"},      {-2.125, L"-2.125"},
                         {1e-7, L"0"}, {-0.0000001, L"0"}, {12.3456789, L"12.345679"}};
    for (const auto& r : trimmed)
        EXPECT_EQ(WString::ValueOf(r.v, 6), r.text);
    wchar_t buffer[6];
    ulo::ArCharDaDouble(buffer, 6, 100.0, 0, 6);
    EXPECT_EQ(WString(buffer), L"100.0");
    wchar_t big[32];
    ulo::ArCharDaDouble(big, 32, 0.01, 0, 6);
    EXPECT_EQ(WString(big), L"0.010000");
}

TEST(NumberText, ReadingTakesTheLeadingNumberOrZero) {
    const std::wstring nines(10000, L'9');
    const std::wstring tiny = L"-0." + std::wstring(70, L'0') + L"1";
    const std::wstring e300 = L"1" + std::wstring(300, L'0');
    const double inf = std::numeric_limits<double>::infinity();
    struct {
        std::wstring text;
        double v;
        std::size_t length;
        bool outOfRange;
    } const rows[] = {
        {L"", 0, 0, false},
        {L".5", 0.5, 2, false},
        {L"2.", 2, 2, false},
        {L"-", 0, 0, false},
        {L" +0.5", 0.5, 5, false},
        {L"1,5", 1, 1, false},
        {L"1e", 1, 1, false},
        {L"1e+2x", 100, 4, false},
        // Only decimal notation: no hexadecimal, no words.
        {L"0x10", 0, 1, false},
        {L"inf", 0, 0, false},
        {L"nan", 0, 0, false},
        // The whole number counts, however long it is.
        {tiny, -1e-71, tiny.size(), false},
        {e300, 1e300, e300.size(), false},
        {L"4e-320", 4e-320, 6, false},
        {L"1e-400", 0, 6, false},
        {L"1e309", inf, 5, true},
        {L"-" + nines, -inf, nines.size() + 1, true},
        {L"1e99999999999999999999", inf, 22, true},
    };
    for (const auto& r : rows) {
        const ulo::NumberScan scan = ulo::ScanNumber(r.text);
        const std::string name = QString::fromStdWString(r.text.substr(0, 30)).toStdString();
        EXPECT_EQ(scan.value, r.v) << name;
        EXPECT_EQ(scan.length, r.length) << name;
        EXPECT_EQ(scan.outOfRange, r.outOfRange) << name;
        EXPECT_EQ(ulo::DoubleDaCString(r.text), r.v) << name;
        EXPECT_EQ(ulo::wtof(r.text.c_str()), r.v) << name;
    }
    EXPECT_EQ(ulo::wtof(nullptr), 0.0);
}

TEST(NumberText, ExactTextReadsBackToTheSameValue) {
    const double values[] = {0.1, -0.0, 1e55, -1e300, 4e-320, 123456789012345678.0, 2.5};
    for (const double v : values) {
        const std::wstring text = ulo::ExactText(v);
        EXPECT_LE(text.size(), 24u);
        const double back = ulo::wtof(text.c_str());
        EXPECT_EQ(back, v) << QString::fromStdWString(text).toStdString();
        EXPECT_EQ(std::signbit(back), std::signbit(v));
    }
    EXPECT_EQ(ulo::ExactText(std::numeric_limits<double>::quiet_NaN()), L"0");
}

TEST(NumberText, NotationIgnoresTheProcessLocale) {
    // A Qt program runs in the user's locale; Italian and German write "1,5",
    // in C and in C++. The angle texts of the dialogs are made by the same functions.
    const std::string previous = std::setlocale(LC_ALL, nullptr);
    const char* comma = std::setlocale(LC_ALL, "it_IT.UTF-8")   ? "it_IT.UTF-8"
                        : std::setlocale(LC_ALL, "de_DE.UTF-8") ? "de_DE.UTF-8"
                                                                : nullptr;
    if (!comma)
        GTEST_SKIP() << "no decimal-comma locale on this machine";
    const std::locale global = std::locale::global(std::locale(comma));
    const WString text = ulo::CStringDaDouble(-1234.5, 0, 3);
    const double back = ulo::wtof(L"-0.25");
    const WString value = WString::ValueOf(1.5, 6);
    std::locale::global(global);
    std::setlocale(LC_ALL, previous.c_str());
    EXPECT_EQ(text, L"-1234.500");
    EXPECT_EQ(back, -0.25);
    EXPECT_EQ(value, L"1.5");
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

TEST(WString, ComparisonsWithAndWithoutCase) {
    struct {
        const wchar_t *a, *b;
        int exact, ignoringCase;
    } const rows[] = {
        {L"Layer", L"LAYER", 1, 0}, {L"abc", L"ABD", 1, -1}, {L"abcd", L"ABC", 1, 1},
        {L"", L"", 0, 0},           {L"a", L"b", -1, -1},    {L"Z", L"a", -1, 1},
    };
    for (const auto& r : rows) {
        EXPECT_EQ(WString(r.a).Compare(r.b), r.exact) << WString(r.a).ToQString().toStdString();
        EXPECT_EQ(WString(r.a).CompareIgnoreCase(r.b), r.ignoringCase)
            << WString(r.a).ToQString().toStdString();
    }
}

TEST(WString, TrimBufferAndCharacterAccess) {
    EXPECT_EQ(WString(L"  a b \t\r\n").Trim(), L"a b");  // blanks at both ends only
    EXPECT_EQ(WString(L" \t ").Trim(), L"");
    WString s;
    wchar_t* p = s.GetBufferSetLength(3);
    p[0] = L'a';
    p[1] = L'b';
    p[2] = L'c';
    EXPECT_EQ(s, L"abc");
    EXPECT_EQ(s.ReadChar(1), L'b');
    EXPECT_EQ(s.ReadChar(3), L'\0');
    EXPECT_EQ(s.Concat(L"d").Length(), 4u);
    EXPECT_EQ(WString::FromQString(QStringLiteral("über")).ToQString(), QStringLiteral("über"));
}
