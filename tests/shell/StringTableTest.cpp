// The string table holds every text the code loads, once, in id order.
#include <gtest/gtest.h>

#include <utility>

#include "res/Resources.h"
#include "res/StringIds.h"
#include "shell/ResString.h"
#include "ulo/Xlate.h"

TEST(StringTable, SortedUniqueAndNeverEmpty) {
    const auto table = veld5::StringTable();
    ASSERT_FALSE(table.empty());
    for (std::size_t i = 1; i < table.size(); ++i)
        EXPECT_LT(table[i - 1].id, table[i].id);
    for (const auto& e : table)
        EXPECT_NE(e.text[0], L'\0') << e.id;
}

// Every id the code loads exists, and the name of every hatch pattern.
TEST(StringTable, EveryLoadedIdAndHatchNameExists) {
    for (const veld5::StringId id : veld5::ids::kLoadedStringIds)
        EXPECT_NE(veld5::ModuleResources().FindString(veld5::Value(id)), nullptr)
            << veld5::Value(id);
    for (const auto& [first, last] :
         {std::pair{100u, 135u}, {201u, 214u}, {301u, 308u}, {401u, 411u}})
        for (unsigned id = first; id <= last; ++id)
            EXPECT_NE(veld5::ModuleResources().FindString(id), nullptr) << id;
}

TEST(StringTable, LoadingPassesThroughTheTranslationHook) {
    EXPECT_EQ(veld5::LoadResString(veld5::ids::kWarning), L"Warning");
    ulo::SetTranslator(
        [](const ulo::WString& s) { return s == L"Warning" ? ulo::WString(L"Attenzione") : s; });
    ulo::WString out(L"previous");
    veld5::LoadResString(out, veld5::ids::kWarning);
    EXPECT_EQ(out, L"Attenzione");
    ulo::SetTranslator({});
    veld5::LoadResString(out, veld5::StringId{99999});  // no such string: empty
    EXPECT_EQ(out, L"");
}
