// The grid and snap dialog as the host runs it (ShowDlgGridProp on a view):
// what the pages show, refusals word for word, hostile numbers in every
// field, OK without a change recording nothing and Cancel putting back what a
// page wrote. (OK as one exact undo step: the random sessions, for every dialog.)
#include <gtest/gtest.h>

#include <QJsonArray>
#include <bit>
#include <cmath>
#include <cstdint>
#include <functional>

#include "app/Grid.h"
#include "app/VELD.h"
#include "app/view/VELDView.h"
#include "res/templates/ControlIds.h"
#include "support/FactoryFixture.h"
#include "ulo/HelpTopic.h"
#include "ulo/ctrl/Win.h"

using automation::ScriptedUser;

namespace {

namespace ctl = veld5::ctl;
constexpr unsigned kTabs = ctl::GridSnap::kTabs, kOk = ctl::GridSnap::kOk,
                   kCancel = ctl::GridSnap::kCancel;
constexpr unsigned kEnableSnap = ctl::SnapPage::kEnable, kSnapN = ctl::SnapPage::kIntervalNorth,
                   kBaseN = ctl::SnapPage::kBaseNorth, kSnapE = ctl::SnapPage::kIntervalEast,
                   kAngle = ctl::SnapPage::kAngle, kBaseE = ctl::SnapPage::kBaseEast;
constexpr unsigned kEnableGrid = ctl::GridPage::kEnable, kFree = ctl::GridPage::kFree,
                   kFromSnap = ctl::GridPage::kFromSnap, kGridN = ctl::GridPage::kIntervalNorth,
                   kGridE = ctl::GridPage::kIntervalEast;
const std::vector<unsigned> kSnapEdits = {kSnapE, kSnapN, kAngle, kBaseN, kBaseE};
const std::vector<unsigned> kGridEdits = {kGridN, kGridE};

QString Q(const char* text) {
    return QString::fromUtf8(text);
}
const QString kNumber = Q("Please enter a number.");
const QString kRange = Q("Please enter a number between 0.0001 and 1e+100.");
const QString kOutOfRange = Q("The value is out of range");

QJsonObject State(QWidget* w, unsigned id) {
    QWidget* c = ulo::FindControl(w, id);
    return c ? ScriptedUser::ControlState(c) : QJsonObject();
}
bool On(QWidget* w, unsigned id, const char* what) {
    return State(w, id).value(QString::fromLatin1(what)).toBool();
}
/// The controls as words: an edit's text, "on" or "off" for a button, each
/// followed by '!' when disabled.
QString Look(QWidget* w, std::initializer_list<unsigned> ids) {
    QStringList words;
    for (unsigned id : ids) {
        const QJsonObject s = State(w, id);
        QString word = s.contains(QStringLiteral("checked"))
                           ? QString::fromLatin1(On(w, id, "checked") ? "on" : "off")
                           : s.value(QStringLiteral("text")).toString();
        if (!s.value(QStringLiteral("enabled")).toBool())
            word += u'!';
        words << word;
    }
    return words.join(u' ');
}

struct Values {
    bool snapOn;
    double baseE, baseN, snapE, snapN, angle;
    bool gridOn;
    double gridE, gridN;  // both 0 with the grid on: the grid follows the snap
};
void Apply(CGrid& g, const Values& v) {
    g.SetSnap(v.snapOn, v.baseE, v.baseN, v.snapE, v.snapN, v.angle);
    if (v.gridOn && v.gridE == 0 && v.gridN == 0)
        g.SetGridBySnap();
    else
        g.SetGrid(v.gridOn, v.gridE, v.gridN);
}
const Values kSnapOnGridFree{true, 1, 2, 0.5, 0.25, 30, true, 2.5, 3.25};

class GridDialogTest : public FactoryTest {
protected:
    bool Show() { return factory->ShowDlgGridProp(&view); }
    CVELD cad;
    CVELDView view{&cad};
    CGrid& grid = GetViewGridForEdit(&view);
};

}  // namespace

// What each page shows: the texts, the checks and what is enabled; the help
// topic follows the page in front.
TEST_F(GridDialogTest, PagesOpenFilledFromTheGrid) {
    const struct {
        Values grid;
        const char *snap, *gridPage;
    } rows[] = {
        {{true, 1, 2, 0.5, 0.25, 30, true, 0, 0},
         "on 0.500 0.250 1.000 2.000 30.0000",
         "on off on 0.000! 0.000!"},
        {{false, 0, 0, 1, 1, 0, true, 0, 0},
         "off 1.000! 1.000! 0.000! 0.000! 0.0000!",
         "on on off! 10.000 10.000"},
        {kSnapOnGridFree, "on 0.500 0.250 1.000 2.000 30.0000", "on on off 3.250 2.500"},
        {{false, -1234.56789, 0.0004, 7, 8, 12.345678, false, 4, 5},
         "off 7.000! 8.000! -1234.568! 0.000! 12.3457!",
         "off on! off! 5.000! 4.000!"},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.snap);
        Apply(grid, r.grid);
        QString snap, gridPage, gridHelp;
        QJsonArray tabs;
        ScriptedUser user;
        user.Inspect([&](QWidget* w) {
                snap = Look(w, {kEnableSnap, kSnapE, kSnapN, kBaseE, kBaseN, kAngle});
                tabs = State(w, kTabs).value(QStringLiteral("items")).toArray();
            })
            .SwitchTab(kTabs, 1)
            .Inspect([&](QWidget* w) {
                gridPage = Look(w, {kEnableGrid, kFree, kFromSnap, kGridN, kGridE});
                gridHelp = ulo::GetHelpTopic().ToQString();
            })
            .Click(kCancel);
        EXPECT_FALSE(Show());
        ExpectFinished(user);
        EXPECT_EQ(snap, Q(r.snap));
        EXPECT_EQ(gridPage, Q(r.gridPage));
        EXPECT_EQ(tabs, (QJsonArray{Q("Snap"), Q("Grid")}));
        EXPECT_EQ(gridHelp, Q("QuadraCE.htm#Dlg OpzGrid"));  // the page in front
    }
}

TEST_F(GridDialogTest, WithoutAViewNothingIsShown) {
    QWidget notAView;
    ScriptedUser user;
    EXPECT_FALSE(factory->ShowDlgGridProp(nullptr));
    EXPECT_FALSE(factory->ShowDlgGridProp(&notAView));
    EXPECT_TRUE(user.Dialogs().empty());
}

// A refused value (by OK or by the tab switch) is named word for word, its
// page stays in front and the grid never sees it. (A number typed and
// accepted is read as every number field reads it: tests/factory's
// CatalogueTest types into the snap base.)
TEST_F(GridDialogTest, RefusalsAreWordForWordAndNeverReachTheGrid) {
    const Values allOff{false, 0, 0, 1, 1, 0, false, 0, 0};
    const auto set = [](unsigned id, const char* text) {
        return [id, text](ScriptedUser& u) { u.SetText(id, Q(text)); };
    };
    const struct {
        const char* what;
        Values start;
        int page;
        std::function<void(ScriptedUser&)> edit;
        bool byOk;  // or by the tab switch
        QString message;
    } rows[] = {
        {"zero snap interval", kSnapOnGridFree, 0, set(kSnapE, "0"), false, kRange},
        {"snap interval under 0.0001", kSnapOnGridFree, 0, set(kSnapE, "0.00009"), false, kRange},
        {"snap interval over 1e100", kSnapOnGridFree, 0, set(kSnapN, "1e101"), true, kRange},
        {"interval beyond a double", kSnapOnGridFree, 0, set(kSnapE, "1e309"), false, kRange},
        {"negative interval", kSnapOnGridFree, 0, set(kSnapN, "-7.125"), true, kRange},
        {"empty base", kSnapOnGridFree, 0, [](ScriptedUser& u) { u.Clear(kBaseE); }, false,
         kNumber},
        {"base beyond a double", kSnapOnGridFree, 0, set(kBaseN, "1e309"), true, kOutOfRange},
        {"text typed, then the snap switched off", kSnapOnGridFree, 0,
         [](ScriptedUser& u) { u.SetText(kBaseE, Q("12x")).Click(kEnableSnap); }, true, kNumber},
        {"zero grid interval", kSnapOnGridFree, 1, set(kGridE, "0"), true, kRange},
        {"grid interval not a number", kSnapOnGridFree, 1, set(kGridN, "x"), false, kNumber},
        {"grid switched on with intervals 0", allOff, 1,
         [](ScriptedUser& u) { u.Click(kEnableGrid); }, true, kRange},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.what);
        Apply(grid, r.start);
        const CGrid before = grid;
        int tabAfter = -1;
        bool untouched = false;
        ScriptedUser user;
        if (r.page == 1)
            user.SwitchTab(kTabs, 1);
        r.edit(user);
        if (r.byOk)
            user.Click(kOk);
        else
            user.SwitchTab(kTabs, 1 - r.page);
        user.Answer(ulo::IDOK)
            .Inspect([&](QWidget* w) {
                tabAfter = State(w, kTabs).value(QStringLiteral("selected")).toInt();
                untouched = grid == before;
            })
            .Click(kCancel);
        EXPECT_FALSE(Show());
        ExpectFinished(user);
        ASSERT_EQ(user.Messages().size(), 1u);
        EXPECT_EQ(user.Messages()[0].text, r.message);
        EXPECT_EQ(user.Messages()[0].caption, Q("Warning"));
        EXPECT_EQ(tabAfter, r.page);
        EXPECT_TRUE(untouched);
        EXPECT_TRUE(grid == before);
        EXPECT_FALSE(cad.CanUndo());
    }
}

// Confirmed untouched, with values the fields show rounded (or out of range
// where unused): the grid exactly as it was and no undo step.
TEST_F(GridDialogTest, ConfirmedUntouchedChangesNothing) {
    const Values rows[] = {
        kSnapOnGridFree,
        {true, 1.23456789, -9.87654321e5, 0.12345, 1e100, 359.99999, true, 0, 0},
        {false, 0, 0, 1e-5, -3, 0, false, 0, 0},
        {true, 0, 0, 0.0004, 0.0004, 0, false, 1e-5, 0.00049},
    };
    for (const Values& v : rows) {
        Apply(grid, v);
        const CGrid before = grid;
        SCOPED_TRACE(v.baseE);
        ScriptedUser user;
        user.SwitchTab(kTabs, 1).SwitchTab(kTabs, 0).Click(kOk);
        EXPECT_TRUE(Show());
        ExpectFinished(user);
        EXPECT_TRUE(grid == before);
        EXPECT_FALSE(cad.CanUndo());
    }
}

// A page writes its fields to the grid when it is left, and the view shows
// them at once; Cancel then puts the grid back as it was, and no undo step.
TEST_F(GridDialogTest, CancelPutsBackWhatALeftPageWrote) {
    Apply(grid, kSnapOnGridFree);
    const CGrid before = grid;
    double written = 0, unused = 0;
    ScriptedUser user;
    user.SetText(kSnapE, Q("7"))
        .SwitchTab(kTabs, 1)
        .Inspect([&](QWidget*) { grid.GetSnap(unused, unused, written, unused, unused); })
        .Click(kCancel);
    EXPECT_FALSE(Show());
    ExpectFinished(user);
    EXPECT_EQ(written, 7.0);
    EXPECT_TRUE(grid == before);
    EXPECT_FALSE(cad.CanUndo());
}

// "Enable Grid" cleared with "From snap" selected switches the grid off; it
// still follows the snap and opens so again.
TEST_F(GridDialogTest, EnableGridClearedSwitchesOffAGridFollowingTheSnap) {
    Apply(grid, {true, 0, 0, 2, 2, 0, true, 0, 0});
    ScriptedUser user;
    user.SwitchTab(kTabs, 1).Click(kEnableGrid).Click(kOk);
    EXPECT_TRUE(Show());
    ExpectFinished(user);
    EXPECT_FALSE(grid.IsGridActive());
    EXPECT_TRUE(grid.IsGridBySnap());
    QString reopened;
    ScriptedUser again;
    again.SwitchTab(kTabs, 1)
        .Inspect([&](QWidget* w) {
            reopened = Look(w, {kEnableGrid, kFromSnap});
        })
        .Click(kCancel);
    EXPECT_FALSE(Show());
    ExpectFinished(again);
    EXPECT_EQ(reopened, Q("off on!"));
}
