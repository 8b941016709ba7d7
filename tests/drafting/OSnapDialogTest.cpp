// The object snap dialog as the host runs it (ShowDlgOSnap), with a scripted
// user: the mode and boxes it opens with, what the clicks make of the switch
// and mask written back on OK, the refusal of a snap without a type, Cancel,
// and which boxes each mode leaves enabled.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <vector>

#include "../factory/FactoryFixture.h"
#include "app/VELD.h"
#include "ulo/ctrl/Win.h"

using automation::ScriptedUser;

namespace {

constexpr unsigned kOk = 11196, kCancel = 11197;
constexpr unsigned kFree = 1135, kCoord = 1136, kSnap = 1137;
// The boxes 1138..1147 and their bits.
constexpr unsigned kEnd = 1138, kMid = 1139, kInters = 1140, kQuadrant = 1142, kNear = 1147;
constexpr unsigned kBits[] = {0x1, 0x2, 0x4, 0x10, 0x20, 0x40, 0x80, 0x100, 0x200, 0x400};
constexpr unsigned kAllBoxes = 0x7F7;

struct Widgets {
    unsigned mode = 0;     ///< the checked radio, 0 for none
    unsigned checked = 0;  ///< the bits of the checked boxes
    unsigned enabled = 0;  ///< the bits of the enabled boxes
};

QAbstractButton* Button(QWidget* window, unsigned id) {
    return qobject_cast<QAbstractButton*>(ulo::FindControl(window, id));
}

Widgets Read(QWidget* window) {
    Widgets w;
    for (unsigned id : {kFree, kCoord, kSnap})
        if (QAbstractButton* b = Button(window, id); b && b->isChecked())
            w.mode = w.mode ? ~0u : id;  // two checked radios read as neither
    for (unsigned i = 0; i < 10; ++i) {
        QAbstractButton* b = Button(window, 1138 + i);
        if (!b)
            continue;
        if (b->isChecked())
            w.checked |= kBits[i];
        if (b->isEnabled())
            w.enabled |= kBits[i];
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

// ------------------------------------------------------------------ opening

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
            cad.SetOSnapper(c.on, c.mask);
            ScriptedUser user;
            Widgets seen;
            user.Inspect([&](QWidget* w) { seen = Read(w); }).Click(kOk);
            factory->ShowDlgOSnap(nullptr, cad);
            ExpectFinished(user);
            const std::string what = "layout " + std::to_string(layout) + " mask " +
                                     std::to_string(c.mask) + (c.on ? " on" : " off");
            EXPECT_EQ(seen.mode, c.mode) << what;
            EXPECT_EQ(seen.checked, c.checked) << what;
            EXPECT_EQ(seen.enabled, c.enabled) << what;
            // OK without a click writes back what was stored.
            EXPECT_EQ(cad.IsOSnapperOn(), c.on) << what;
            EXPECT_EQ(cad.GetOSnapperMask(), c.mask) << what;
            EXPECT_TRUE(user.Messages().empty()) << what;
            ASSERT_EQ(user.Dialogs().size(), 1u) << what;
            EXPECT_EQ(user.Dialogs()[0].title, QStringLiteral("Snap type selection"));
            EXPECT_EQ(user.Dialogs()[0].templateId, 11060u);
            EXPECT_EQ(user.Dialogs()[0].layout, layout);
            EXPECT_EQ(user.Dialogs()[0].help, QStringLiteral("QuadraCE.htm#Dlg SelTypeSnap"));
        }
    }
}

// ------------------------------------------------------- clicks, then OK

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
        {true, 0x20001, {kFree}, false, 0x20001},
        {true, 0x1, {kCoord}, true, 0x20001},
        {false, 0x0, {kCoord}, true, 0x20000},
        {true, 0x20005, {kSnap}, true, 0x5},
        {false, 0x21, {kSnap}, true, 0x21},
        {true, 0x5, {kFree, kSnap}, true, 0x5},
        {true, 0x1, {kSnap, kCoord, kSnap}, true, 0x1},
        {true, 0x20001, {kFree, kCoord}, true, 0x20001},
        {true, 0x1, {kSnap, kSnap}, true, 0x1},
        // Boxes: the mask is rebuilt from the boxes alone.
        {true, 0x008, {kEnd}, true, 0x1},
        {true, 0x10009, {kNear}, true, 0x401},
        {false, 0x0, {kSnap, kMid}, true, 0x2},
        {true, 0x3, {kEnd, kEnd}, true, 0x3},
        {true, 0x5, {kInters, kFree}, false, 0x1},
        {true, 0x20020, {kSnap, kQuadrant, kEnd}, true, 0x1},
        // No type is accepted when the snap is switched off.
        {true, 0x1, {kEnd, kFree}, false, 0x0},
    };
    for (const auto& c : cases) {
        cad.SetOSnapper(c.on, c.mask);
        ScriptedUser user;
        for (unsigned id : c.clicks)
            user.Click(id);
        user.Click(kOk);
        factory->ShowDlgOSnap(nullptr, cad);
        ExpectFinished(user);
        std::string what =
            "mask " + std::to_string(c.mask) + (c.on ? " on, clicks" : " off, clicks");
        for (unsigned id : c.clicks)
            what += " " + std::to_string(id);
        EXPECT_EQ(cad.IsOSnapperOn(), c.wantOn) << what;
        EXPECT_EQ(cad.GetOSnapperMask(), c.wantMask) << what;
        EXPECT_TRUE(user.Messages().empty()) << what;
    }
}

// ------------------------------------------------------ snap without a type

TEST_F(OSnapDialogTest, SnapWithoutATypeIsRefusedAndTheDialogStaysOpen) {
    const struct {
        bool on;
        unsigned mask;
        std::vector<unsigned> clicks;  // before the first OK
    } cases[] = {
        {true, 0x1, {kEnd}},
        {true, 0x20000, {kSnap}},
        {false, 0x0, {kSnap}},
        {true, 0x6, {kMid, kInters}},
    };
    for (const auto& c : cases) {
        cad.SetOSnapper(c.on, c.mask);
        ScriptedUser user;
        for (unsigned id : c.clicks)
            user.Click(id);
        bool openAfterRefusal = false;
        user.Click(kOk).Answer(ulo::IDOK).Inspect(
            [&](QWidget* w) { openAfterRefusal = Read(w).mode == kSnap; });
        // The user then picks a type and confirms.
        user.Click(kNear).Click(kOk);
        factory->ShowDlgOSnap(nullptr, cad);
        ExpectFinished(user);
        const std::string what = "mask " + std::to_string(c.mask);
        ASSERT_EQ(user.Messages().size(), 1u) << what;
        EXPECT_EQ(user.Messages()[0].text, QStringLiteral("At least one snap must be selected!!!"));
        EXPECT_EQ(user.Messages()[0].caption, QStringLiteral("Warning"));
        EXPECT_EQ(user.Messages()[0].flags, 48u);
        EXPECT_TRUE(openAfterRefusal) << what;
        EXPECT_TRUE(cad.IsOSnapperOn()) << what;
        EXPECT_EQ(cad.GetOSnapperMask(), 0x400u) << what;
    }
}

// ------------------------------------------------------------------ Cancel

TEST_F(OSnapDialogTest, CancelWritesNothingWhateverWasClicked) {
    const struct {
        bool on;
        unsigned mask;
        std::vector<unsigned> clicks;
        bool escape;  // leave with the Escape key instead of the button
    } cases[] = {
        {true, 0x21, {kFree}, false},   {false, 0x21, {kSnap, kMid}, false},
        {true, 0x1, {kCoord}, false},   {true, 0x20005, {kSnap, kEnd, kNear}, true},
        {true, 0x008, {kInters}, true},
    };
    for (const auto& c : cases) {
        cad.SetOSnapper(c.on, c.mask);
        const std::size_t before = OSnapNotifications();
        ScriptedUser user;
        for (unsigned id : c.clicks)
            user.Click(id);
        if (c.escape)
            user.Key(kCancel, Qt::Key_Escape);
        else
            user.Click(kCancel);
        factory->ShowDlgOSnap(nullptr, cad);
        ExpectFinished(user);
        const std::string what = "mask " + std::to_string(c.mask);
        EXPECT_EQ(cad.IsOSnapperOn(), c.on) << what;
        EXPECT_EQ(cad.GetOSnapperMask(), c.mask) << what;
        EXPECT_EQ(OSnapNotifications(), before) << what;
    }
}

TEST_F(OSnapDialogTest, OkHandsAChangedStateToTheCadInstanceOnce) {
    cad.SetOSnapper(true, 0x1);
    const std::size_t before = OSnapNotifications();
    ScriptedUser user;
    user.Click(kMid).Click(kOk);
    factory->ShowDlgOSnap(nullptr, cad);
    ExpectFinished(user);
    EXPECT_EQ(cad.GetOSnapperMask(), 0x3u);
    EXPECT_EQ(OSnapNotifications(), before + 1);
}

// ---------------------------------------------------------- enabling rules

TEST_F(OSnapDialogTest, OnlySnapModeEnablesTheTypesAndBoxesKeepTheirChecks) {
    const struct {
        bool on;
        unsigned mask;
        unsigned radio;
        unsigned wantEnabled;
        unsigned wantChecked;
    } cases[] = {
        {true, 0x21, kFree, 0, 0x21},         {true, 0x21, kCoord, 0, 0x21},
        {true, 0x21, kSnap, kAllBoxes, 0x21}, {false, 0x6, kSnap, kAllBoxes, 0x6},
        {false, 0x6, kCoord, 0, 0x6},         {false, 0x6, kFree, 0, 0x6},
        {true, 0x20001, kSnap, kAllBoxes, 1}, {true, 0x20001, kFree, 0, 0x1},
    };
    for (const auto& c : cases) {
        cad.SetOSnapper(c.on, c.mask);
        ScriptedUser user;
        Widgets seen;
        bool boxClickRefused = false;
        user.Click(c.radio).Inspect([&](QWidget* w) {
            seen = Read(w);
            // A disabled box does not react to a click.
            QAbstractButton* end = Button(w, kEnd);
            const bool was = end->isChecked();
            end->click();
            boxClickRefused = !end->isEnabled() && end->isChecked() == was;
        });
        user.Click(kCancel);
        factory->ShowDlgOSnap(nullptr, cad);
        ExpectFinished(user);
        const std::string what =
            "mask " + std::to_string(c.mask) + " radio " + std::to_string(c.radio);
        EXPECT_EQ(seen.mode, c.radio) << what;
        EXPECT_EQ(seen.enabled, c.wantEnabled) << what;
        EXPECT_EQ(seen.checked, c.wantChecked) << what;
        EXPECT_EQ(boxClickRefused, c.wantEnabled == 0) << what;
    }
}

}  // namespace
