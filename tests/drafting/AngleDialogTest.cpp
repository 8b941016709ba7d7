// The angle system dialog as the host runs it (ShowDlgAngle): the button it
// opens on for each stored system, what OK stores, and the command stop and
// deselection that happen whatever the user decides.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <numbers>

#include "app/SampleDrawing.h"
#include "app/VELD.h"
#include "res/templates/ControlIds.h"
#include "support/FactoryFixture.h"
#include "ulo/ctrl/Win.h"
#include "veld/Data.h"
#include "veld/EntCollection.h"

using automation::ScriptedUser;
namespace Angle = veld5::ctl::Angle;

namespace {

struct System {
    short format;
    double base;
    bool clockwise;
};
const System kDegreeSystem{0, 0.0, false};
const System kGonSystem{2, std::numbers::pi / 2, true};

bool Checked(QWidget* window, unsigned id) {
    auto* b = qobject_cast<QAbstractButton*>(ulo::FindControl(window, id));
    return b && b->isChecked();
}

}  // namespace

// The stored system picks the button (any format but 0 opens on gons); OK
// stores exactly one of the two systems offered, also when it is the one in
// force, and the CAD instance converts with it. Cancel and the close box keep
// the system (as the random sessions check for every way out); either way the
// command in progress stops and the selection goes.
TEST_F(FactoryTest, AngleSystemOkStoresTheChosenSystem) {
    CVELD cad;
    BuildSampleDrawing(cad);
    const struct {
        System before;
        unsigned click, end;  // click 0: none; end 0: the close box
        unsigned openedOn;
    } rows[] = {
        {kDegreeSystem, Angle::kGons, Angle::kOk, Angle::kDegrees},
        {{1, 0.25, false}, 0, Angle::kOk, Angle::kGons},
        {{3, 1.0, true}, Angle::kDegrees, Angle::kOk, Angle::kGons},
        {{0, std::numbers::pi / 2, true}, 0, Angle::kOk, Angle::kDegrees},
        {{-7, 0.0, false}, 0, Angle::kOk, Angle::kGons},
        {kDegreeSystem, Angle::kGons, Angle::kCancel, Angle::kDegrees},
        {{1, 0.25, false}, Angle::kDegrees, 0, Angle::kGons},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(std::to_string(r.before.format) + " " + std::to_string(r.click));
        SetAngleSystem(&cad, r.before.format, r.before.base, r.before.clockwise);
        cad.StartOperation(L"MOVE");
        veld::CEntTable& ents = cad.GetData()->GetEntTable();
        NtfySelectedEnt(&cad, ents.GetEnt(0));
        NtfySelectedEnt(&cad, ents.GetEnt(1));
        const unsigned stopsBefore = cad.GetStopCount();
        ScriptedUser user;
        unsigned openedOn = 1;
        user.Inspect([&](QWidget* w) {
            const bool degrees = Checked(w, Angle::kDegrees), gons = Checked(w, Angle::kGons);
            openedOn = degrees == gons ? 0 : degrees ? Angle::kDegrees : Angle::kGons;
        });
        if (r.click)
            user.Click(r.click);
        r.end ? user.Click(r.end) : user.Close();
        const bool ok = r.end == Angle::kOk;
        EXPECT_EQ(factory->ShowDlgAngle(nullptr, cad), ok);
        ExpectFinished(user);
        EXPECT_EQ(openedOn, r.openedOn);
        const bool gons = (r.click ? r.click : r.openedOn) == Angle::kGons;
        const System want = !ok ? r.before : gons ? kGonSystem : kDegreeSystem;
        System s{};
        GetAngleSystem(&cad, s.format, s.base, s.clockwise);
        EXPECT_TRUE(s.format == want.format && s.base == want.base &&
                    s.clockwise == want.clockwise);
        const IAngleConverter* c = GetAngleConverter(&cad);
        EXPECT_EQ(c->GetStartAngle(), want.base);
        EXPECT_EQ(c->IsClockWise(), want.clockwise);
        if (ok) {
            EXPECT_EQ(c->GetFormat(), static_cast<unsigned>(want.format));
            EXPECT_EQ(c->RadAngleToString(0.0), ulo::WString(gons ? L"100.0000" : L"0.0000"));
        }
        EXPECT_EQ(cad.GetStopCount(), stopsBefore + 1);
        EXPECT_FALSE(cad.GetActiveOperation()->IsRunning());
        EXPECT_EQ(cad.GetSelection().GetNoEnts(), 0u);
    }
}
