#include <gtest/gtest.h>

#include "ulo/WString.h"

using ulo::WString;

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

TEST(WString, TrimRemovesBlanksAtBothEndsOnly) {
    struct {
        const wchar_t *in, *out;
    } const rows[] = {{L"  a b \t\r\n", L"a b"}, {L" \t ", L""}, {L"x", L"x"}, {L"", L""}};
    for (const auto& r : rows)
        EXPECT_EQ(WString(r.in).Trim(), r.out);
}

TEST(WString, BufferAndCharacterAccess) {
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
