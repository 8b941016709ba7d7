// The object snap dialog as the host runs it (ShowDlgOSnap): the mode and
// boxes it opens with in every layout, what the clicks make of the switch and
// mask written back on OK and which boxes each mode enables, and the refusal
// of a snap without a type.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <vector>

#include "app/VELD.h"
#include "res/templates/ControlIds.h"
#include "support/FactoryFixture.h"
#include "ulo/ctrl/Win.h"

using automation::ScriptedUser;
namespace OSnap = veld5::ctl::OSnap;

namespace {

// The boxes kEndPoints..kNear and their bits.
constexpr unsigned kBits[] = {0x1, 0x2, 0x4, 0x10, 0x20, 0x40, 0x80, 0x100, 0x200, 0x400};
constexpr unsigned kAllBoxes = 0x7F7, kCoordBit = 0x20000;

struct Widgets {
    unsigned mode = 0;     ///< the checked radio, 0 for none
    unsigned checked = 0;  ///< the bits of the checked boxes
    unsigned enabled = 0;  ///< the bits of the enabled boxes
};

Widgets Read(QWidget* window) {
    const auto button = [window](unsigned id) {
        return qobject_cast<QAbstractButton*>(ulo::FindControl(window, id));
    };
    Widgets w;
    for (unsigned id : {OSnap::kFree, OSnap::kCoordInput, OSnap::kSnap})
        if (QAbstractButton* b = button(id); b && b->isChecked())
            w.mode = w.mode ? ~0u : id;  // two checked radios read as neither
    for (unsigned i = 0; i < 10; ++i) {
        if (QAbstractButton* b = button(OSnap::kEndPoints + i)) {
            w.checked |= b->isChecked() ? kBits[i] : 0;
            w.enabled |= b->isEnabled() ? kBits[i] : 0;
        }
    }
    return w;
}

class OSnapDialogTest : public FactoryTest {
protected:
    CVELD cad;

    std::size_t OSnapNotifications() {
        std::size_t n = 0;
        for (int v : cad.GetVeldSourceEvent()->GetChangedVars())
            n += v == CVELD::kVarOSnap;
        return n;
    }
};

}  // namespace

// Opened on what is stored, in every layout, the clicks make the switch and
// mask OK hands to the CAD instance, notified once when they changed. Only
// "Snap" enables the boxes; they keep their checks in every mode. "Snap" with
// no type checked is refused, and the dialog stays open for the type the user
// then picks. (Cancel writes nothing: the random sessions check it for every
// way out.)
TEST_F(OSnapDialogTest, ClicksOverTheStoredStateMakeTheSwitchAndMaskWrittenOnOk) {
    const unsigned kFree = OSnap::kFree, kCoord = OSnap::kCoordInput, kSnap = OSnap::kSnap;
    const struct {
        bool on;
        unsigned mask;
        std::vector<unsigned> clicks;
        bool wantOn;
        unsigned wantMask;
        bool refused = false;  // then "Near" is picked and OK pressed again
    } cases[] = {
        // No click: free drawing keeps its boxes, the switch off wins over the
        // bit, a bit without a box stays, unknown bits read as nothing.
        {false, 0x21, {}, false, 0x21},
        {true, 0x20005, {}, true, 0x20005},
        {true, 0x008, {}, true, 0x008},
        {false, 0x20000, {}, false, 0x20000},
        {true, 0xFFFFFFFF, {}, true, 0xFFFFFFFF},
        // Modes: "Free drawing" keeps the mask, "Input coord." adds its bit,
        // "Snap" takes it away and keeps the rest.
        {true, 0x21, {kFree}, false, 0x21},
        {false, 0x0, {kCoord}, true, 0x20000},
        {true, 0x20005, {kSnap}, true, 0x5},
        {false, 0x21, {kSnap}, true, 0x21},
        {true, 0x1, {kSnap, kCoord, kSnap}, true, 0x1},
        // Boxes: the mask is rebuilt from the boxes alone.
        {true, 0x10009, {OSnap::kNear}, true, 0x401},
        {false, 0x0, {kSnap, OSnap::kMidPoint}, true, 0x2},
        {true, 0x5, {OSnap::kIntersection, kFree}, false, 0x1},
        {true, 0x20020, {kSnap, OSnap::kQuadrant, OSnap::kEndPoints}, true, 0x1},
        // No type is accepted when the snap is switched off, but refused in "Snap".
        {true, 0x1, {OSnap::kEndPoints, kFree}, false, 0x0},
        {true, 0x1, {OSnap::kEndPoints}, true, 0x400, true},
        {true, 0x20000, {kSnap}, true, 0x400, true},
    };
    for (int layout = 0; layout < 4; ++layout) {
        CPalmDevice::SetLayoutOverride(layout);
        for (const auto& c : cases) {
            std::string what = "layout " + std::to_string(layout) + " mask " +
                               std::to_string(c.mask) + (c.on ? " on," : " off,");
            for (unsigned id : c.clicks)
                what += " " + std::to_string(id);
            SCOPED_TRACE(what);
            ScriptedUser user;
            cad.SetOSnapper(c.on, c.mask);
            const std::size_t notifications = OSnapNotifications();
            for (unsigned id : c.clicks)
                user.Click(id);
            if (c.refused)
                user.Click(OSnap::kOk).Answer(ulo::IDOK).Click(OSnap::kNear);
            Widgets seen;
            user.Inspect([&](QWidget* w) { seen = Read(w); }).Click(OSnap::kOk);
            factory->ShowDlgOSnap(nullptr, cad);
            ExpectFinished(user);
            const unsigned mode = !c.wantOn ? kFree : c.wantMask & kCoordBit ? kCoord : kSnap;
            EXPECT_EQ(seen.mode, mode);
            EXPECT_EQ(seen.enabled, mode == kSnap ? kAllBoxes : 0u);
            EXPECT_EQ(seen.checked, c.wantMask & kAllBoxes);
            EXPECT_EQ(cad.IsOSnapperOn(), c.wantOn);
            EXPECT_EQ(cad.GetOSnapperMask(), c.wantMask);
            const bool changed = c.wantOn != c.on || c.wantMask != c.mask;
            EXPECT_EQ(OSnapNotifications(), notifications + (changed ? 1 : 0));
            ASSERT_EQ(user.Messages().size(), c.refused ? 1u : 0u);
            if (c.refused) {
                const auto& m = user.Messages()[0];
                EXPECT_EQ(m.caption + u'|' + m.text,
                          QStringLiteral("Warning|At least one snap must be selected!!!"));
                EXPECT_EQ(m.flags, 48u);
            }
        }
    }
}
