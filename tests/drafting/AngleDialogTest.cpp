// The angle system dialog as the host runs it (ShowDlgAngle), with a scripted
// user: the button it opens on for each stored system, what OK stores and
// Cancel keeps, the command stop and deselection that happen either way, the
// converter of the CAD instance, the help topic and the labels.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <numbers>

#include "../factory/FactoryFixture.h"
#include "app/SampleDrawing.h"
#include "app/VELD.h"
#include "ulo/ctrl/Dialog.h"
#include "ulo/ctrl/Win.h"
#include "veld/Data.h"
#include "veld/EntCollection.h"

using automation::ScriptedUser;

namespace {

constexpr unsigned kOk = 11196, kCancel = 11197;
constexpr unsigned kDegrees = 11123, kGons = 11124;
constexpr double kPi = std::numbers::pi;

struct System {
    short format;
    double base;
    bool clockwise;
};

System Stored(const CVELD& cad) {
    System s{};
    GetAngleSystem(&cad, s.format, s.base, s.clockwise);
    return s;
}

bool Checked(QWidget* window, unsigned id) {
    auto* b = qobject_cast<QAbstractButton*>(ulo::FindControl(window, id));
    return b && b->isChecked();
}

class AngleDialogTest : public FactoryTest {
protected:
    void SetUp() override {
        FactoryTest::SetUp();
        BuildSampleDrawing(cad);
        // A command in progress and two selected entities.
        cad.StartOperation(L"MOVE");
        veld::CEntTable& ents = cad.GetData()->GetEntTable();
        ASSERT_GE(ents.GetNoEnts(), 2u);
        NtfySelectedEnt(&cad, ents.GetEnt(0));
        NtfySelectedEnt(&cad, ents.GetEnt(1));
    }

    /// Runs ShowDlgAngle over the stored system @p before with @p act queued
    /// after a look at the buttons it opened with.
    bool Run(const System& before, const std::function<void(ScriptedUser&)>& act,
             unsigned& openedOn) {
        SetAngleSystem(&cad, before.format, before.base, before.clockwise);
        stopsBefore = cad.GetStopCount();
        ScriptedUser user;
        openedOn = 1;
        user.Inspect([&](QWidget* w) {
            const bool degrees = Checked(w, kDegrees), gons = Checked(w, kGons);
            openedOn = degrees == gons ? 0 : degrees ? kDegrees : kGons;
        });
        act(user);
        const bool result = factory->ShowDlgAngle(nullptr, cad);
        ExpectFinished(user);
        dialogs = user.Dialogs();
        return result;
    }

    CVELD cad;
    unsigned stopsBefore = 0;
    std::vector<automation::DialogRecord> dialogs;
};

const System kDegreeSystem{0, 0.0, false};
const System kGonSystem{2, kPi / 2, true};

}  // namespace

// The stored system picks the button; OK stores exactly one of the two
// systems the dialog offers, also when it equals the one in force, and the
// CAD instance converts with it from then on.
TEST_F(AngleDialogTest, OkStoresTheChosenSystemAndItsConverter) {
    const struct {
        const char* what;
        System before;
        unsigned click;  // 0: none
        unsigned openedOn;
        System after;
        const wchar_t* eastText;  // how the converter shows 0 radians
    } rows[] = {
        {"degrees kept", kDegreeSystem, 0, kDegrees, kDegreeSystem, L"0.0000"},
        {"degrees to gons", kDegreeSystem, kGons, kDegrees, kGonSystem, L"100.0000"},
        {"gons kept", kGonSystem, 0, kGons, kGonSystem, L"100.0000"},
        {"gons to degrees", kGonSystem, kDegrees, kGons, kDegreeSystem, L"0.0000"},
        // A stored 1 opens on gons and is not kept.
        {"system 1 confirmed", {1, 0.25, false}, 0, kGons, kGonSystem, L"100.0000"},
        {"radians confirmed", {3, 0.0, false}, 0, kGons, kGonSystem, L"100.0000"},
        {"radians to degrees", {3, 1.0, true}, kDegrees, kGons, kDegreeSystem, L"0.0000"},
        // Any format but 0 opens on gons, whatever its base and sense.
        {"degrees clockwise from North", {0, kPi / 2, true}, 0, kDegrees, kDegreeSystem, L"0.0000"},
        {"negative format", {-7, 0.0, false}, 0, kGons, kGonSystem, L"100.0000"},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.what);
        unsigned openedOn = 0;
        const bool ok = Run(
            r.before,
            [&](ScriptedUser& u) {
                if (r.click)
                    u.Click(r.click);
                u.Click(kOk);
            },
            openedOn);
        EXPECT_TRUE(ok);
        EXPECT_EQ(openedOn, r.openedOn);
        const System s = Stored(cad);
        EXPECT_EQ(s.format, r.after.format);
        EXPECT_EQ(s.base, r.after.base);
        EXPECT_EQ(s.clockwise, r.after.clockwise);
        const IAngleConverter* c = GetAngleConverter(&cad);
        EXPECT_EQ(c->GetFormat(), static_cast<unsigned>(r.after.format));
        EXPECT_EQ(c->IsClockWise(), r.after.clockwise);
        EXPECT_EQ(c->RadAngleToString(0.0), ulo::WString(r.eastText));
        EXPECT_EQ(cad.GetStopCount(), stopsBefore + 1);
        EXPECT_EQ(cad.GetSelection().GetNoEnts(), 0u);
    }
}

// Cancel, the close box, or a choice then Cancel: the system stays as it
// was, yet the command has been stopped and the selection cleared.
TEST_F(AngleDialogTest, CancelKeepsTheSystemButStopsAndDeselects) {
    const struct {
        const char* what;
        System before;
        unsigned click;
        bool closeBox;
    } rows[] = {
        {"cancel in degrees", kDegreeSystem, 0, false},
        {"gons chosen then cancel", kDegreeSystem, kGons, false},
        {"degrees chosen then close box", {1, 0.25, false}, kDegrees, true},
        {"cancel in radians", {3, -2.0, true}, 0, false},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.what);
        unsigned openedOn = 0;
        const bool ok = Run(
            r.before,
            [&](ScriptedUser& u) {
                if (r.click)
                    u.Click(r.click);
                if (r.closeBox)
                    u.Close();
                else
                    u.Click(kCancel);
            },
            openedOn);
        EXPECT_FALSE(ok);
        const System s = Stored(cad);
        EXPECT_EQ(s.format, r.before.format);
        EXPECT_EQ(s.base, r.before.base);
        EXPECT_EQ(s.clockwise, r.before.clockwise);
        EXPECT_EQ(GetAngleConverter(&cad)->GetStartAngle(), r.before.base);
        EXPECT_EQ(cad.GetStopCount(), stopsBefore + 1);
        EXPECT_FALSE(cad.GetActiveOperation()->IsRunning());
        EXPECT_EQ(cad.GetSelection().GetNoEnts(), 0u);
    }
}

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
    EXPECT_EQ(Stored(cad).format, 2);
}
