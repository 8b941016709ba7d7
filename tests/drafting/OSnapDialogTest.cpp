// The object snap dialog as the host runs it (ShowDlgOSnap): the mode and
// boxes it opens with in every layout, what the clicks make of the switch and
// mask written back on OK (none on Cancel) and which boxes each mode enables,
// and the refusal of a snap without a type.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <vector>

#include "app/VELD.h"
#include "support/FactoryFixture.h"
#include "ulo/ctrl/Win.h"

using automation::ScriptedUser;

namespace {

constexpr unsigned kOk = 11196, kCancel = 11197;
constexpr unsigned kFree = 1135, kCoord = 1136, kSnap = 1137;
// The boxes 1138..1147 and their bits.
constexpr unsigned kEnd = 1138, kMid = 1139, kInters = 1140, kQuadrant = 1142, kNear = 1147;
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
    for (unsigned id : {kFree, kCoord, kSnap})
        if (QAbstractButton* b = button(id); b && b->isChecked())
            w.mode = w.mode ? ~0u : id;  // two checked radios read as neither
    for (unsigned i = 0; i < 10; ++i) {
        if (QAbstractButton* b = button(1138 + i)) {
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
    /// Clicks @p clicks over the stored state, then @p end; what the dialog
    /// showed after the clicks lands in seen.
    ScriptedUser& Run(ScriptedUser& user, bool on, unsigned mask,
                      const std::vector<unsigned>& clicks) {
        cad.SetOSnapper(on, mask);
        notifications = OSnapNotifications();
        for (unsigned id : clicks)
            user.Click(id);
        return user.Inspect([this](QWidget* w) { seen = Read(w); });
    }
    std::size_t notifications = 0;
    Widgets seen;
};

}  // namespace

// Opened on what is stored, in every layout; OK without a click writes it back.
TEST_F(OSnapDialogTest, OpensInTheStoredModeWithTheStoredBoxesInEveryLayout) {
    const struct {
        bool on;
        unsigned mask;
        unsigned mode, checked, enabled;
    } cases[] = {
        {false, 0x21, kFree, 0x21, 0},             // free drawing keeps its boxes, disabled
        {true, 0x20005, kCoord, 0x5, 0},           // coordinate input
        {true, 0x008, kSnap, 0, kAllBoxes},        // a bit without a box
        {true, 0x7F7, kSnap, 0x7F7, kAllBoxes},    // every type
        {false, 0x20000, kFree, 0, 0},             // the switch off wins over the bit
        {true, 0xFFFFFFFF, kCoord, kAllBoxes, 0},  // unknown bits read as nothing
    };
    for (int layout = 0; layout < 4; ++layout) {
        CPalmDevice::SetLayoutOverride(layout);
        for (const auto& c : cases) {
            SCOPED_TRACE("layout " + std::to_string(layout) + " mask " + std::to_string(c.mask) +
                         (c.on ? " on" : " off"));
            ScriptedUser user;
            Run(user, c.on, c.mask, {}).Click(kOk);
            factory->ShowDlgOSnap(nullptr, cad);
            ExpectFinished(user);
            EXPECT_EQ(seen.mode, c.mode);
            EXPECT_EQ(seen.checked, c.checked);
            EXPECT_EQ(seen.enabled, c.enabled);
            EXPECT_EQ(cad.IsOSnapperOn(), c.on);
            EXPECT_EQ(cad.GetOSnapperMask(), c.mask);
            EXPECT_EQ(OSnapNotifications(), notifications);
            EXPECT_TRUE(user.Messages().empty());
            ASSERT_EQ(user.Dialogs().size(), 1u);
            EXPECT_EQ(user.Dialogs()[0].title, QStringLiteral("Snap type selection"));
            EXPECT_EQ(user.Dialogs()[0].templateId, 11060u);
            EXPECT_EQ(user.Dialogs()[0].layout, layout);
            EXPECT_EQ(user.Dialogs()[0].help, QStringLiteral("QuadraCE.htm#Dlg SelTypeSnap"));
        }
    }
}

// The clicks make the switch and mask OK hands to the CAD instance, once when
// they changed; Cancel writes nothing. Only "Snap" enables the boxes; they
// keep their checks in every mode.
TEST_F(OSnapDialogTest, ClicksMakeTheSwitchAndMaskWrittenOnOk) {
    const struct {
        bool on;
        unsigned mask;
        std::vector<unsigned> clicks;
        bool wantOn;
        unsigned wantMask;
    } cases[] = {
        // Modes: "Free drawing" keeps the mask, "Input coord." adds its bit,
        // "Snap" takes it away and keeps the rest.
        {true, 0x21, {kFree}, false, 0x21},
        {true, 0x1, {kCoord}, true, 0x20001},
        {false, 0x0, {kCoord}, true, 0x20000},
        {true, 0x20005, {kSnap}, true, 0x5},
        {false, 0x21, {kSnap}, true, 0x21},
        {true, 0x1, {kSnap, kCoord, kSnap}, true, 0x1},
        // Boxes: the mask is rebuilt from the boxes alone.
        {true, 0x008, {kEnd}, true, 0x1},
        {true, 0x10009, {kNear}, true, 0x401},
        {false, 0x0, {kSnap, kMid}, true, 0x2},
        {true, 0x5, {kInters, kFree}, false, 0x1},
        {true, 0x20020, {kSnap, kQuadrant, kEnd}, true, 0x1},
        // No type is accepted when the snap is switched off.
        {true, 0x1, {kEnd, kFree}, false, 0x0},
    };
    for (const auto& c : cases) {
        for (const bool ok : {true, false}) {
            std::string what = "mask " + std::to_string(c.mask) + (c.on ? " on," : " off,");
            for (unsigned id : c.clicks)
                what += " " + std::to_string(id);
            SCOPED_TRACE(what + (ok ? " OK" : " Cancel"));
            ScriptedUser user;
            Run(user, c.on, c.mask, c.clicks).Click(ok ? kOk : kCancel);
            factory->ShowDlgOSnap(nullptr, cad);
            ExpectFinished(user);
            const unsigned mode = !c.wantOn ? kFree : c.wantMask & kCoordBit ? kCoord : kSnap;
            EXPECT_EQ(seen.mode, mode);
            EXPECT_EQ(seen.enabled, mode == kSnap ? kAllBoxes : 0u);
            EXPECT_EQ(seen.checked, c.wantMask & kAllBoxes);
            EXPECT_EQ(cad.IsOSnapperOn(), ok ? c.wantOn : c.on);
            EXPECT_EQ(cad.GetOSnapperMask(), ok ? c.wantMask : c.mask);
            const bool changed = ok && (c.wantOn != c.on || c.wantMask != c.mask);
            EXPECT_EQ(OSnapNotifications(), notifications + (changed ? 1 : 0));
            EXPECT_TRUE(user.Messages().empty());
        }
    }
}

// "Snap" with no type checked is refused; the dialog stays open in "Snap" and
// takes the type the user then picks.
TEST_F(OSnapDialogTest, SnapWithoutATypeIsRefusedAndTheDialogStaysOpen) {
    const struct {
        unsigned mask;
        unsigned click;  // before the first OK
    } cases[] = {{0x1, kEnd}, {0x20000, kSnap}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.mask);
        ScriptedUser user;
        Run(user, true, c.mask, {c.click}).Click(kOk).Answer(ulo::IDOK);
        bool openAfterRefusal = false;
        user.Inspect([&](QWidget* w) { openAfterRefusal = Read(w).mode == kSnap; });
        user.Click(kNear).Click(kOk);
        factory->ShowDlgOSnap(nullptr, cad);
        ExpectFinished(user);
        ASSERT_EQ(user.Messages().size(), 1u);
        EXPECT_EQ(user.Messages()[0].text, QStringLiteral("At least one snap must be selected!!!"));
        EXPECT_EQ(user.Messages()[0].caption, QStringLiteral("Warning"));
        EXPECT_EQ(user.Messages()[0].flags, 48u);
        EXPECT_TRUE(openAfterRefusal);
        EXPECT_TRUE(cad.IsOSnapperOn());
        EXPECT_EQ(cad.GetOSnapperMask(), 0x400u);
    }
}
