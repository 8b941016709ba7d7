// Every dialog opens from the template variant of the device's layout and shows
// the same controls in each.
#include "support/FactoryFixture.h"
#include "ulo/ctrl/Dialog.h"

using automation::ScriptedUser;

class LayoutChoice : public FactoryTest, public ::testing::WithParamInterface<int> {};

TEST_P(LayoutChoice, ValueDialogsOpenFromTheVariantOfTheLayout) {
    const int layout = GetParam();
    CPalmDevice::SetLayoutOverride(layout);
    ScriptedUser user;
    user.Click(11197).Click(11197).Click(11197);
    double v = 0;
    ulo::WString s;
    factory->ShowDlgGetDouble(nullptr, L"", v, true, true, true);
    factory->ShowDlgRotate(nullptr, v);
    factory->ShowDlgGetString(nullptr, L"", L"", s);
    ExpectFinished(user);
    const unsigned bases[] = {11012, 11068, 11016};
    ASSERT_EQ(user.Dialogs().size(), 3u);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(user.Dialogs()[i].templateId, bases[i]);
        EXPECT_EQ(user.Dialogs()[i].layout, layout);
    }
}

INSTANTIATE_TEST_SUITE_P(AllLayouts, LayoutChoice, ::testing::Values(0, 1, 2, 3));

TEST(LayoutRule, ScreenShapesMapToTheirLayouts) {
    struct {
        int w, h, layout;
    } const rows[] = {{240, 320, 0}, {320, 320, 0}, {480, 800, 1}, {240, 400, 1},  {320, 240, 2},
                      {800, 600, 2}, {800, 480, 2}, {854, 480, 3}, {1920, 1080, 3}};
    for (const auto& r : rows)
        EXPECT_EQ(CPalmDevice::LayoutForScreen(r.w, r.h), r.layout) << r.w << "x" << r.h;
}
