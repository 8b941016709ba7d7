// The grid and snap dialog as the host runs it (ShowDlgGridProp on a view):
// what the pages show, refusals word for word, hostile numbers in every field,
// Cancel putting the grid back, and OK as one undo step over random visits.
#include <gtest/gtest.h>

#include <QJsonArray>
#include <QMessageBox>
#include <array>
#include <cmath>
#include <cstring>
#include <functional>
#include <optional>
#include <random>

#include "app/DrawingFile.h"
#include "app/Grid.h"
#include "app/VELD.h"
#include "app/view/VELDView.h"
#include "support/FactoryFixture.h"
#include "ulo/HelpTopic.h"
#include "ulo/ctrl/Win.h"

using automation::ScriptedUser;

namespace {

constexpr unsigned kTabs = 11172, kOk = 11196, kCancel = 11197;
constexpr unsigned kEnableSnap = 11161, kSnapN = 11162, kBaseN = 11163, kSnapE = 11165,
                   kAngle = 11167, kBaseE = 11169;
constexpr unsigned kEnableGrid = 11168, kFree = 11164, kFromSnap = 11166, kGridN = 11170,
                   kGridE = 11171;
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
Values Read(const CGrid& g) {
    Values v{};
    v.snapOn = g.IsSnapActive();
    v.gridOn = g.IsGridActive();
    g.GetSnap(v.baseE, v.baseN, v.snapE, v.snapN, v.angle);
    g.GetGrid(v.gridE, v.gridN);
    return v;
}
std::array<double, 7> Numbers(const Values& v) {
    return {v.baseE, v.baseN, v.snapE, v.snapN, v.angle, v.gridE, v.gridN};
}
std::string Describe(const CGrid& g) {
    const Values v = Read(g);
    QString s = QStringLiteral("snap %1 grid %2:").arg(v.snapOn).arg(v.gridOn);
    for (double d : Numbers(v))
        s += u' ' + QString::number(d, 'g', 17);
    return s.toStdString();
}
/// Equal to the last bit: 0 and -0 differ.
bool SameBits(const CGrid& a, const CGrid& b) {
    const Values x = Read(a), y = Read(b);
    const auto xs = Numbers(x), ys = Numbers(y);
    return x.snapOn == y.snapOn && x.gridOn == y.gridOn &&
           std::memcmp(xs.data(), ys.data(), sizeof xs) == 0;
}
bool AllFinite(const CGrid& g) {
    const Values v = Read(g);
    for (double d : Numbers(v))
        if (!std::isfinite(d))
            return false;
    return std::abs(v.snapE) > 1e-12 && std::abs(v.snapN) > 1e-12;
}

const Values kSnapOnGridFree{true, 1, 2, 0.5, 0.25, 30, true, 2.5, 3.25};

class GridDialogTest : public FactoryTest {
protected:
    bool Show() { return factory->ShowDlgGridProp(&view); }
    CVELD cad;
    CVELDView view{&cad};
    CGrid& grid = GetViewGridForEdit(&view);
};

// What each page shows: the texts, the checks and what is enabled; nothing
// changes.
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
        const CGrid before = grid;
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
        EXPECT_EQ(gridHelp, Q("QuadraCE.htm#Dlg OpzGrid"));
        ASSERT_EQ(user.Dialogs().size(), 1u);
        EXPECT_EQ(user.Dialogs()[0].title, Q("Grid & Snap"));
        EXPECT_EQ(user.Dialogs()[0].templateId, 11020u);
        EXPECT_EQ(user.Dialogs()[0].help, Q("QuadraCE.htm#Dlg OpzSnap"));
        EXPECT_TRUE(grid == before) << Describe(grid);
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
// page stays in front and the grid never sees it.
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
        EXPECT_TRUE(grid == before) << Describe(grid);
        EXPECT_FALSE(cad.CanUndo());
    }
}

// Typed into each field and confirmed: the value kept as typed, bit for bit
// through a drawing file, or a refusal that leaves the grid as it was.
TEST_F(GridDialogTest, HostileNumbersInEveryField) {
    const struct {
        unsigned id;
        int page;
        bool interval;
        double Values::*value;
    } fields[] = {
        {kSnapE, 0, true, &Values::snapE},  {kSnapN, 0, true, &Values::snapN},
        {kBaseE, 0, false, &Values::baseE}, {kBaseN, 0, false, &Values::baseN},
        {kAngle, 0, false, &Values::angle}, {kGridE, 1, true, &Values::gridE},
        {kGridN, 1, true, &Values::gridN},
    };
    const std::optional<double> no;
    const struct {
        QString text;
        std::optional<double> plain, interval;  // accepted value, or refused
    } rows[] = {
        {Q("   "), no, no},
        {Q("-1e309"), no, no},
        {Q("-0"), -0.0, no},
        {Q("nan"), no, no},
        {Q("inf"), no, no},
        {Q("0x10"), no, no},
        {Q("1e-400"), 0.0, no},
        {Q(" 2.5 "), 2.5, 2.5},
        {Q("1e100"), 1e100, 1e100},
        {Q("0.0001"), 0.0001, 0.0001},
        {Q("-7.125"), -7.125, no},
        // Kept as typed, whatever the host's angle unit, however far out.
        {Q("45"), 45, 45},
        {Q("400"), 400, 400},
        {Q("1e200"), 1e200, no},
        {Q("-1.7976931348623157e308"), -1.7976931348623157e308, no},
        {Q("4.9406564584124654e-324"), 4.9406564584124654e-324, no},
    };
    for (const auto& f : fields) {
        for (const auto& r : rows) {
            SCOPED_TRACE(std::to_string(f.id) + " " + r.text.toStdString());
            Apply(grid, kSnapOnGridFree);
            const CGrid before = grid;
            const std::optional<double> expected = f.interval ? r.interval : r.plain;
            ScriptedUser user;
            if (f.page == 1)
                user.SwitchTab(kTabs, 1);
            user.SetText(f.id, r.text).Click(kOk);
            if (!expected)
                user.Answer(ulo::IDOK).Click(kCancel);
            EXPECT_EQ(Show(), expected.has_value());
            ExpectFinished(user);
            EXPECT_TRUE(AllFinite(grid));
            if (!expected) {
                EXPECT_TRUE(grid == before) << Describe(grid);
                continue;
            }
            EXPECT_EQ(Read(grid).*f.value, *expected);
            CVELD reopened;
            CVELDView reopenedView(&reopened);
            QString error;
            ASSERT_TRUE(drawingfile::Read(reopened, drawingfile::Write(cad), error))
                << error.toStdString();
            EXPECT_TRUE(SameBits(GetViewGrid(&reopenedView), grid));
        }
    }
}

// Edits on both pages reach the grid in place (the Grid tab sees the snap just
// switched off: it cannot follow it); whichever way the visit is cancelled,
// the grid is back exactly and nothing is recorded.
TEST_F(GridDialogTest, CancelPutsTheGridBackExactly) {
    const std::function<void(ScriptedUser&)> cancels[] = {
        [](ScriptedUser& u) { u.Click(kCancel); },
        [](ScriptedUser& u) { u.Key(kGridE, Qt::Key_Escape); },
        [](ScriptedUser& u) { u.Close(); },
    };
    for (const auto& cancel : cancels) {
        Apply(grid, {true, 1.0 / 3, -2e-7, 0.1, 0.2, 1e-9, true, 0.3, 0.7});
        const CGrid before = grid;
        bool editedInPlace = false, snapSeenOff = false;
        ScriptedUser user;
        user.SetText(kSnapE, Q("4.5"))
            .SetText(kAngle, Q("-90"))
            .SwitchTab(kTabs, 1)
            .Inspect([&](QWidget*) { editedInPlace = !(grid == before); })
            .SetText(kGridE, Q("6"))
            .SwitchTab(kTabs, 0)
            .Click(kEnableSnap)
            .SwitchTab(kTabs, 1)
            .Inspect([&](QWidget* w) {
                snapSeenOff = !On(w, kFromSnap, "enabled") && !grid.IsSnapActive();
            });
        cancel(user);
        EXPECT_FALSE(Show());
        ExpectFinished(user);
        EXPECT_TRUE(editedInPlace);
        EXPECT_TRUE(snapSeenOff);
        EXPECT_TRUE(grid == before) << Describe(grid);
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
        SCOPED_TRACE(Describe(before));
        ScriptedUser user;
        user.SwitchTab(kTabs, 1).SwitchTab(kTabs, 0).Click(kOk);
        EXPECT_TRUE(Show());
        ExpectFinished(user);
        EXPECT_TRUE(grid == before) << Describe(grid);
        EXPECT_FALSE(cad.CanUndo());
    }
}

// "Enable Grid" cleared with "From snap" selected switches the grid off; it
// still follows the snap and opens so again. Undo switches it back on.
TEST_F(GridDialogTest, EnableGridClearedSwitchesOffAGridFollowingTheSnap) {
    Apply(grid, {true, 0, 0, 2, 2, 0, true, 0, 0});
    const CGrid before = grid;
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
    ASSERT_TRUE(cad.Undo());
    EXPECT_TRUE(grid == before) << Describe(grid);
}

/// A user who decides as the visit goes: random tab switches, check boxes,
/// radio buttons and numbers (some refused) on whatever is enabled, then OK;
/// a refused OK is answered and the page's fields made valid.
class RandomUser {
public:
    RandomUser(ScriptedUser& user, unsigned seed) : user_(user), rng_(seed) {
        actions_ = std::uniform_int_distribution<int>(3, 14)(rng_);
        user_.whenIdle = [this](QWidget* w) { Next(w); };
    }

private:
    int Roll(int n) { return std::uniform_int_distribution<int>(0, n - 1)(rng_); }
    QString Number() {
        static const char* const refused[] = {"0", "-1", "abc", "1e309", ""};
        if (Roll(6) == 0)
            return Q(refused[Roll(5)]);
        const double v = std::uniform_real_distribution<double>(-500, 500)(rng_);
        return QString::number(Roll(2) ? std::abs(v) + 0.001 : v, 'f', Roll(8));
    }
    void Next(QWidget* w) {
        if (qobject_cast<QMessageBox*>(w)) {
            user_.Answer(ulo::IDOK);
            return;
        }
        const int page = State(w, kTabs).value(QStringLiteral("selected")).toInt();
        const unsigned enable = page == 0 ? kEnableSnap : kEnableGrid;
        if (finishing_) {  // the OK was refused: make the page's fields acceptable
            if (!On(w, enable, "checked"))
                user_.Click(enable);
            if (page == 1 && !On(w, kFree, "checked"))
                user_.Click(kFree);
            for (unsigned id : page == 0 ? kSnapEdits : kGridEdits)
                user_.SetText(id, Q("1.5"));
            user_.Click(kOk);
            return;
        }
        if (actions_-- <= 0) {
            finishing_ = true;
            user_.Click(kOk);
            return;
        }
        std::vector<unsigned> usable{enable};
        for (unsigned id : page == 0 ? kSnapEdits : std::vector{kGridN, kGridE, kFree, kFromSnap})
            if (On(w, id, "enabled"))
                usable.push_back(id);
        const int choice = Roll(static_cast<int>(usable.size()) + 1);
        if (choice == static_cast<int>(usable.size()))
            user_.SwitchTab(kTabs, 1 - page);
        else if (const unsigned id = usable[choice]; id == enable || id == kFree || id == kFromSnap)
            user_.Click(id);
        else
            user_.SetText(id, Number());
    }

    ScriptedUser& user_;
    std::mt19937 rng_;
    int actions_;
    bool finishing_ = false;
};

// After OK: one undo step exactly when the grid changed; undo gives the grid
// at opening, redo the confirmed one, each time, over random visits.
TEST_F(GridDialogTest, OkUndoRedoFollowTheVisitExactly) {
    int changed = 0;
    for (unsigned seed = 1; seed <= 36; ++seed) {
        SCOPED_TRACE(seed);
        std::mt19937 rng(seed * 7919u);
        auto roll = [&](double lo, double hi) {
            return std::uniform_real_distribution<double>(lo, hi)(rng);
        };
        const int kind = static_cast<int>(seed % 4);  // grid free, following, off
        Apply(grid, {seed % 3 != 0, roll(-1e3, 1e3), roll(-1e3, 1e3), roll(0.1, 50), roll(0.1, 50),
                     roll(0, 360), kind != 3, kind == 1 ? 0 : roll(0.5, 20),
                     kind == 1 ? 0 : roll(0.5, 20)});
        const CGrid opened = grid;
        const std::size_t steps = cad.GetUndoList().GetCount();
        ScriptedUser user;
        RandomUser random(user, seed);
        EXPECT_TRUE(Show());
        ExpectFinished(user);
        const CGrid confirmed = grid;
        EXPECT_TRUE(AllFinite(confirmed)) << Describe(confirmed);
        const bool differs = !(confirmed == opened);
        changed += differs;
        ASSERT_EQ(cad.GetUndoList().GetCount(), steps + (differs ? 1 : 0));
        if (!differs)
            continue;
        for (int i = 0; i < 4; ++i) {
            ASSERT_TRUE(i % 2 == 0 ? cad.Undo() : cad.Redo());
            const CGrid& expected = i % 2 == 0 ? opened : confirmed;
            EXPECT_TRUE(grid == expected) << "step " << i << ": " << Describe(grid);
        }
    }
    EXPECT_GT(changed, 20);  // the visits did change the grid
}

}  // namespace
