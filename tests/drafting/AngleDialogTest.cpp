// The angle system dialog as the host runs it (ShowDlgAngle): the button it
// opens on for each stored system, what OK stores and Cancel keeps, the
// command stop and deselection that happen either way, and the help command.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <numbers>

#include "app/SampleDrawing.h"
#include "app/VELD.h"
#include "support/FactoryFixture.h"
#include "ulo/ctrl/Dialog.h"
#include "ulo/ctrl/Win.h"
#include "veld/Data.h"
#include "veld/EntCollection.h"

using automation::ScriptedUser;

namespace {

constexpr unsigned kOk = 11196, kCancel = 11197;
constexpr unsigned kDegrees = 11123, kGons = 11124, kCloseBox = 0;
constexpr double kPi = std::numbers::pi;

struct System {
    short format;
    double base;
    bool clockwise;
};

bool Checked(QWidget* window, unsigned id) {
    auto* b = qobject_cast<QAbstractButton*>(ulo::FindControl(window, id));
    return b && b->isChecked();
}

class AngleDialogTest : public FactoryTest {
protected:
    void SetUp() override {
        FactoryTest::SetUp();
        BuildSampleDrawing(cad);
    }
    CVELD cad;
};

const System kDegreeSystem{0, 0.0, false};
const System kGonSystem{2, kPi / 2, true};

}  // namespace

// The stored system picks the button (any format but 0 opens on gons); OK
// stores exactly one of the two systems offered, also when it is the one in
// force, and the CAD instance converts with it; Cancel and the close box keep
// the system. Either way the command in progress stops and the selection goes.
TEST_F(AngleDialogTest, OkStoresTheChosenSystemCancelKeepsIt) {
    const struct {
        const char* what;
        System before;
        unsigned click, end;  // click 0: none
        unsigned openedOn;
        System after;
        const wchar_t* eastText;  // how the converter shows 0 radians
    } rows[] = {
        {"degrees to gons", kDegreeSystem, kGons, kOk, kDegrees, kGonSystem, L"100.0000"},
        {"system 1 confirmed", {1, 0.25, false}, 0, kOk, kGons, kGonSystem, L"100.0000"},
        {"radians to degrees", {3, 1.0, true}, kDegrees, kOk, kGons, kDegreeSystem, L"0.0000"},
        {"degrees clockwise from North confirmed",
         {0, kPi / 2, true},
         0,
         kOk,
         kDegrees,
         kDegreeSystem,
         L"0.0000"},
        {"negative format confirmed", {-7, 0.0, false}, 0, kOk, kGons, kGonSystem, L"100.0000"},
        {"gons chosen then Cancel", kDegreeSystem, kGons, kCancel, kDegrees, kDegreeSystem,
         L"0.0000"},
        {"degrees chosen then close box",
         {1, 0.25, false},
         kDegrees,
         kCloseBox,
         kGons,
         {1, 0.25, false},
         nullptr},
        {"Cancel in radians", {3, -2.0, true}, 0, kCancel, kGons, {3, -2.0, true}, nullptr},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.what);
        SetAngleSystem(&cad, r.before.format, r.before.base, r.before.clockwise);
        cad.StartOperation(L"MOVE");
        veld::CEntTable& ents = cad.GetData()->GetEntTable();
        NtfySelectedEnt(&cad, ents.GetEnt(0));
        NtfySelectedEnt(&cad, ents.GetEnt(1));
        const unsigned stopsBefore = cad.GetStopCount();
        ScriptedUser user;
        unsigned openedOn = 1;
        user.Inspect([&](QWidget* w) {
            const bool degrees = Checked(w, kDegrees), gons = Checked(w, kGons);
            openedOn = degrees == gons ? 0 : degrees ? kDegrees : kGons;
        });
        if (r.click)
            user.Click(r.click);
        if (r.end == kCloseBox)
            user.Close();
        else
            user.Click(r.end);
        EXPECT_EQ(factory->ShowDlgAngle(nullptr, cad), r.end == kOk);
        ExpectFinished(user);
        EXPECT_EQ(openedOn, r.openedOn);
        System s{};
        GetAngleSystem(&cad, s.format, s.base, s.clockwise);
        EXPECT_EQ(s.format, r.after.format);
        EXPECT_EQ(s.base, r.after.base);
        EXPECT_EQ(s.clockwise, r.after.clockwise);
        const IAngleConverter* c = GetAngleConverter(&cad);
        EXPECT_EQ(c->GetStartAngle(), r.after.base);
        EXPECT_EQ(c->IsClockWise(), r.after.clockwise);
        if (r.eastText) {
            EXPECT_EQ(c->GetFormat(), static_cast<unsigned>(r.after.format));
            EXPECT_EQ(c->RadAngleToString(0.0), ulo::WString(r.eastText));
        }
        EXPECT_EQ(cad.GetStopCount(), stopsBefore + 1);
        EXPECT_FALSE(cad.GetActiveOperation()->IsRunning());
        EXPECT_EQ(cad.GetSelection().GetNoEnts(), 0u);
    }
}

// Help is left to the topic: the host's help command is not run, and the
// dialog stays open for the choice.
TEST_F(AngleDialogTest, HelpCommandChangesNothingAndLeavesTheDialogOpen) {
    int hostHelp = 0;
    ulo::SetHelpCommandHandler([&](QWidget*) { ++hostHelp; });
    ScriptedUser user;
    user.Click(kGons).Help().Click(kOk);
    const bool ok = factory->ShowDlgAngle(nullptr, cad);
    ulo::SetHelpCommandHandler({});
    ExpectFinished(user);
    EXPECT_TRUE(ok);
    EXPECT_EQ(hostHelp, 0);
    System s{};
    GetAngleSystem(&cad, s.format, s.base, s.clockwise);
    EXPECT_EQ(s.format, 2);
}
