// The colour picker through the factory, with a scripted user pressing its
// strips and buttons in each layout.
#include <QGroupBox>
#include <QImage>
#include <map>
#include <memory>
#include <set>

#include "app/VELD.h"
#include "factory/FactoryFixture.h"
#include "factory/Scopes.h"
#include "properties/CCECADDlgColor.h"
#include "properties/CVELDEntColorStatic.h"
#include "properties/CVELDMultiColorStatic.h"
#include "support/ScopedMultiplier.h"
#include "ulo/ctrl/Dialog.h"

using automation::ScriptedUser;
using veld5::CCECADDlgColor;
using veld5::CVELDEntColorStatic;
using veld5::CVELDMultiColorStatic;

namespace {

constexpr unsigned kOk = 11196;
constexpr unsigned kCancel = 11197;
constexpr unsigned kStandard = 11187;
constexpr unsigned kGrey = 11189;
constexpr unsigned kByLayer = 11190;
constexpr unsigned kByBlock = 11191;
constexpr unsigned kUpper = 11192;
constexpr unsigned kLower = 11193;
constexpr unsigned kName = 11194;
constexpr unsigned kPreview = 11195;
constexpr unsigned kStrips[] = {kStandard, kGrey, kUpper, kLower};

QRgb rgbOf(int index) {
    return ulo::ColorFromRef(GetClrNo(nullptr, index).value).rgb();
}

/// What the user sees of the choice at one moment.
struct Seen {
    bool found = false;
    short chosen = -999;
    int shown = -999;
    QString name;
    QRgb previewPixel = 0;
};

Seen look(QWidget* window) {
    Seen s;
    auto* dialog = qobject_cast<CCECADDlgColor*>(window);
    auto* preview = dialog ? dialog->GetDlgItem<CVELDEntColorStatic>(kPreview) : nullptr;
    if (!preview)
        return s;
    s.found = true;
    s.chosen = dialog->GetSelColor();
    s.shown = preview->GetShownColorIndex();
    s.name = dialog->GetDlgItemText(kName);
    s.previewPixel = window->grab().toImage().pixel(preview->geometry().center());
    return s;
}

/// The point, in window coordinates, where the scripted user presses at the
/// fractions @p fx, @p fy of a control.
QPoint pressPoint(QWidget* control, double fx, double fy) {
    const QPoint local(int(fx * control->width()), int(fy * control->height()));
    return control->mapTo(control->window(), local);
}

std::string at(unsigned id, double fx, double fy) {
    return std::to_string(id) + " at " + std::to_string(fx) + "," + std::to_string(fy);
}

}  // namespace

class ColourPicker : public FactoryTest {};

// The dialog opens on the caller's colour: named (a negative index as
// "Varies"), previewed with ByLayer and ByBlock standing for the caller's
// colours; confirmed without a pick it hands that colour back.
TEST_F(ColourPicker, OpensOnTheStartingColourNamedAndPreviewed) {
    const struct {
        short start, byLayer, byBlock;
        bool logical;
        const char* name;
        int shown;
    } cases[] = {
        {-1, 7, 7, true, "Varies", 250},     {256, 3, 7, true, "ByLayer", 3},
        {0, 7, 5, true, "ByBlock", 5},       {1, 7, 7, true, "Red", 1},
        {42, 7, 7, true, "42", 42},          {255, 7, 7, false, "255", 255},
        {256, 250, 7, true, "ByLayer", 250},  // the property dialog's "layers differ"
        {-1, -1, -1, false, "Varies", 250},   // the entity sets dialog's call
    };
    for (const auto& c : cases) {
        ScriptedUser user;
        Seen seen;
        user.Inspect([&](QWidget* w) { seen = look(w); }).Click(kOk);
        short chosen = 99;
        EXPECT_TRUE(factory->ShowDlgColor(nullptr, nullptr, c.start, c.byLayer, c.byBlock,
                                          c.logical, chosen))
            << c.start;
        ExpectFinished(user);
        ASSERT_TRUE(seen.found) << c.start;
        EXPECT_EQ(seen.name, QString::fromLatin1(c.name)) << c.start;
        EXPECT_EQ(seen.shown, c.shown) << c.start;
        EXPECT_EQ(seen.previewPixel, rgbOf(c.shown)) << c.start;
        EXPECT_EQ(chosen, c.start);
    }
}

// Known cells (the third standard colour, the last grey, the corners of both
// palette halves) in every layout: a press reaches the strip under the finger
// whatever the strips' placement.
TEST_F(ColourPicker, PressOnANamedCellPicksItsIndexInEveryLayout) {
    const struct {
        unsigned strip;
        double fx, fy;
        short index;
        const char* name;
    } presses[] = {
        {kStandard, 2.5 / 9, 0.5, 3, "Green"},    {kGrey, 5.5 / 6, 0.5, 255, "255"},
        {kUpper, 0.5 / 24, 0.5 / 5, 18, "18"},    {kLower, 0.5 / 24, 0.5 / 5, 11, "11"},
        {kUpper, 23.5 / 24, 4.5 / 5, 240, "240"}, {kLower, 23.5 / 24, 4.5 / 5, 249, "249"},
        {kStandard, 0.5 / 9, 0.5, 1, "Red"},
    };
    for (int layout = 0; layout < 4; ++layout) {
        CPalmDevice::SetLayoutOverride(layout);
        ScriptedUser user;
        std::vector<Seen> seen;
        for (const auto& p : presses)
            user.Press(p.strip, p.fx, p.fy).Inspect([&](QWidget* w) { seen.push_back(look(w)); });
        user.Click(kOk);
        short chosen = 99;
        EXPECT_TRUE(factory->ShowDlgColor(nullptr, nullptr, 5, 7, 7, true, chosen));
        ExpectFinished(user);
        ASSERT_EQ(seen.size(), std::size(presses)) << "layout " << layout;
        for (std::size_t i = 0; i < seen.size(); ++i) {
            const auto& p = presses[i];
            const std::string what =
                "layout " + std::to_string(layout) + ", " + at(p.strip, p.fx, p.fy);
            EXPECT_EQ(seen[i].chosen, p.index) << what;
            EXPECT_EQ(seen[i].name, QString::fromLatin1(p.name)) << what;
            EXPECT_EQ(seen[i].previewPixel, rgbOf(p.index)) << what;
        }
        EXPECT_EQ(chosen, 1) << "layout " << layout;
        ASSERT_EQ(user.Dialogs().size(), 1u);
        EXPECT_EQ(user.Dialogs()[0].layout, layout);
    }
}

// Every cell of every strip, pressed in its middle, picks the colour painted
// under the finger, and the strips together offer each index 1 to 255 once.
TEST_F(ColourPicker, EveryCellPicksTheColourUnderTheFinger) {
    struct Cell {
        unsigned strip;
        double fx, fy;
    };
    std::vector<Cell> cells;
    for (int i = 0; i < 9; ++i)
        cells.push_back({kStandard, (i + 0.5) / 9, 0.5});
    for (int i = 0; i < 6; ++i)
        cells.push_back({kGrey, (i + 0.5) / 6, 0.5});
    for (unsigned strip : {kUpper, kLower})
        for (int row = 0; row < 5; ++row)
            for (int column = 0; column < 24; ++column)
                cells.push_back({strip, (column + 0.5) / 24, (row + 0.5) / 5});

    for (int layout : {0, 3}) {
        CPalmDevice::SetLayoutOverride(layout);
        ScriptedUser user;
        QImage before;
        std::multiset<int> picked;
        int mismatches = 0;
        user.Inspect([&](QWidget* w) { before = w->grab().toImage(); });
        for (const Cell& cell : cells)
            user.Press(cell.strip, cell.fx, cell.fy).Inspect([&, cell](QWidget* w) {
                const Seen s = look(w);
                const QPoint p = pressPoint(ulo::FindControl(w, cell.strip), cell.fx, cell.fy);
                picked.insert(s.chosen);
                if (s.previewPixel != before.pixel(p) && ++mismatches <= 5)
                    ADD_FAILURE() << "layout " << layout << ", " << at(cell.strip, cell.fx, cell.fy)
                                  << " picked " << s.chosen << " under a finger on "
                                  << QColor(before.pixel(p)).name().toStdString();
            });
        user.Click(kCancel);
        short chosen = 99;
        EXPECT_FALSE(factory->ShowDlgColor(nullptr, nullptr, 5, 7, 7, true, chosen));
        ExpectFinished(user);
        EXPECT_EQ(mismatches, 0) << "layout " << layout;
        ASSERT_EQ(picked.size(), 255u) << "layout " << layout;
        for (int index = 1; index <= 255; ++index)
            EXPECT_EQ(picked.count(index), 1u) << "layout " << layout << ", index " << index;
        EXPECT_EQ(chosen, 99);
    }
}

// By Layer and By Block pick the logical colours, previewed in the caller's
// colours, only when the caller allows them; the strips pick either way.
TEST_F(ColourPicker, LogicalColoursOnlyWhenAllowedStripsAlways) {
    const struct {
        bool logical;
        std::vector<unsigned> clicks;
        std::vector<std::tuple<unsigned, double, double>> presses;
        std::vector<short> picks;  // after each click, then each press
    } cases[] = {
        {true, {kByLayer, kByBlock}, {{kGrey, 0.01, 0.5}}, {256, 0, 250}},
        {true, {kByBlock, kByLayer}, {}, {0, 256}},
        {false,
         {},
         {{kStandard, 0.05, 0.5}, {kGrey, 0.99, 0.99}, {kUpper, 0.02, 0.99}, {kLower, 0.99, 0.02}},
         {1, 255, 10, 241}},
    };
    for (const auto& c : cases) {
        ScriptedUser user;
        bool layerEnabled = !c.logical, blockEnabled = !c.logical;
        int layerScheme = -1, okScheme = -1;
        std::vector<Seen> seen;
        user.Inspect([&](QWidget* w) {
            auto* d = static_cast<CWSizeDialog*>(w);
            layerEnabled = d->GetDlgItem(kByLayer)->isEnabled();
            blockEnabled = d->GetDlgItem(kByBlock)->isEnabled();
            auto* layer = d->GetDlgItem<CColButton>(kByLayer);
            auto* ok = d->GetDlgItem<CColButton>(kOk);
            layerScheme = layer->GetTextScheme() * 10 + layer->GetBackScheme();
            okScheme = ok->GetTextScheme() * 10 + ok->GetBackScheme();
        });
        for (unsigned id : c.clicks)
            user.Click(id).Inspect([&](QWidget* w) { seen.push_back(look(w)); });
        for (const auto& [id, fx, fy] : c.presses)
            user.Press(id, fx, fy).Inspect([&](QWidget* w) { seen.push_back(look(w)); });
        user.Click(kOk);
        short chosen = 99;
        EXPECT_TRUE(factory->ShowDlgColor(nullptr, nullptr, 5, 3, 6, c.logical, chosen));
        ExpectFinished(user);
        EXPECT_EQ(layerEnabled, c.logical);
        EXPECT_EQ(blockEnabled, c.logical);
        EXPECT_EQ(layerScheme, 23);
        EXPECT_EQ(okScheme, 2);
        ASSERT_EQ(seen.size(), c.picks.size());
        for (std::size_t i = 0; i < seen.size(); ++i) {
            const short pick = c.picks[i];
            EXPECT_EQ(seen[i].chosen, pick) << i;
            EXPECT_EQ(seen[i].name, CVELDEntColorStatic::NameOf(pick)) << i;
            const int shown = pick == 256 ? 3 : pick == 0 ? 6 : pick;
            EXPECT_EQ(seen[i].previewPixel, rgbOf(shown)) << "pick " << pick;
        }
        EXPECT_EQ(chosen, c.picks.back());
    }
}

// The choice reaches the caller only through OK; every other
// ending leaves the factory's result as it was and the dialog's colour back
// at the start, for a caller that reads it anyway.
TEST_F(ColourPicker, ThePickReachesTheCallerOnlyOnOk) {
    enum class End { Ok, Cancel, CloseBox, Escape };
    const struct {
        const char* what;
        End end;
        bool confirmed;
    } cases[] = {
        {"OK", End::Ok, true},
        {"Cancel", End::Cancel, false},
        {"close box", End::CloseBox, false},
        {"Escape", End::Escape, false},
    };
    const auto end = [](ScriptedUser& user, End how) {
        switch (how) {
            case End::Ok:
                user.Click(kOk);
                break;
            case End::Cancel:
                user.Click(kCancel);
                break;
            case End::CloseBox:
                user.Close();
                break;
            case End::Escape:
                user.Key(kName, Qt::Key_Escape);
                break;
        }
    };
    for (const auto& c : cases) {
        {
            ScriptedUser user;
            user.Press(kStandard, 2.5 / 9, 0.5);
            end(user, c.end);
            short chosen = 99;
            EXPECT_EQ(factory->ShowDlgColor(nullptr, nullptr, 5, 7, 7, true, chosen), c.confirmed)
                << c.what;
            ExpectFinished(user);
            EXPECT_EQ(chosen, c.confirmed ? 3 : 99) << c.what;
        }
        {
            veld5::CModuleResourceScope scope;
            CCECADDlgColor dialog(nullptr, 5, 7, 7, true, nullptr);
            ScriptedUser user;
            user.Click(kByLayer);
            end(user, c.end);
            EXPECT_EQ(dialog.DoModal(), c.confirmed ? ulo::IDOK : ulo::IDCANCEL) << c.what;
            ExpectFinished(user);
            EXPECT_EQ(dialog.GetSelColor(), c.confirmed ? 256 : 5) << c.what;
        }
    }
}

// In each layout the dialog comes from its own template with its help topic,
// and the strips hold whole cells at their layout corners, inside the dialog,
// clear of every other control but the groups that frame them.
TEST_F(ColourPicker, EachLayoutHoldsWholeCellsClearOfTheOtherControls) {
    for (int layout = 0; layout < 4; ++layout) {
        CPalmDevice::SetLayoutOverride(layout);
        const std::string where = "layout " + std::to_string(layout);
        ScriptedUser user;
        int checked = 0;
        QString greyTitle;
        bool nameEnabled = true;
        user.Inspect([&](QWidget* w) {
            auto* d = static_cast<CWSizeDialog*>(w);
            const ulo::DialogTemplate* t = d->GetTemplate();
            ASSERT_NE(t, nullptr);
            for (const auto& ctrl : t->controls) {
                auto* strip = qobject_cast<CVELDMultiColorStatic*>(d->GetDlgItem(ctrl.id));
                if (!strip || ctrl.id == ulo::kStaticId)
                    continue;
                ++checked;
                const QSize expected = strip->IsStrip() ? QSize(90, 20) : QSize(216, 45);
                EXPECT_EQ(strip->size(), expected) << where << ", strip " << ctrl.id;
                EXPECT_EQ(strip->pos(), d->Units().Rect(ctrl.rect[layout]).topLeft())
                    << where << ", strip " << ctrl.id;
                EXPECT_EQ(strip->CellWidth() * strip->Columns(), strip->width()) << ctrl.id;
                EXPECT_EQ(strip->CellHeight() * strip->Rows(), strip->height()) << ctrl.id;
                EXPECT_TRUE(d->rect().contains(strip->geometry())) << where << ", " << ctrl.id;
                for (QWidget* other : d->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
                    if (other == strip || other->isHidden() ||
                        !other->geometry().intersects(strip->geometry()))
                        continue;
                    auto* group = qobject_cast<QGroupBox*>(other);
                    const bool framed =
                        group &&
                        group->contentsRect().translated(group->pos()).contains(strip->geometry());
                    EXPECT_TRUE(framed) << where << ", strip " << ctrl.id << " overlaps control "
                                        << ulo::GetDlgCtrlID(other);
                }
            }
            for (QGroupBox* g : d->findChildren<QGroupBox*>())
                if (g->title().startsWith(QStringLiteral("Gray")))
                    greyTitle = g->title();
            nameEnabled = d->GetDlgItem(kName)->isEnabled();
        });
        user.Click(kCancel);
        short chosen = 0;
        factory->ShowDlgColor(nullptr, nullptr, 1, 7, 7, true, chosen);
        ExpectFinished(user);
        EXPECT_EQ(checked, 4) << where;
        EXPECT_EQ(greyTitle,
                  layout >= 2 ? QStringLiteral("Gray tone") : QStringLiteral("Gray shades"))
            << where;
        EXPECT_EQ(nameEnabled, layout < 2) << where;
        ASSERT_EQ(user.Dialogs().size(), 1u);
        EXPECT_EQ(user.Dialogs()[0].templateId, 11044u);
        EXPECT_EQ(user.Dialogs()[0].layout, layout);
        EXPECT_EQ(user.Dialogs()[0].title, QStringLiteral("Color options"));
        EXPECT_EQ(user.Dialogs()[0].help, QStringLiteral("QuadraCE.htm#Dlg OpzColori"));
    }
}

// On a denser screen the strips grow by the multiplier and their cells with
// them: a press still lands on the cell it aims at.
TEST_F(ColourPicker, StripsScaleWithTheDensityMultiplier) {
    for (int m : {1, 2, 3}) {
        veldtest::ScopedMultiplier density(m);
        ScriptedUser user;
        QSize standard, palette;
        std::vector<short> picks;
        user.Inspect([&](QWidget* w) {
            standard = ulo::FindControl(w, kStandard)->size();
            palette = ulo::FindControl(w, kUpper)->size();
        });
        user.Press(kStandard, 2.5 / 9, 0.5).Inspect([&](QWidget* w) {
            picks.push_back(look(w).chosen);
        });
        user.Press(kUpper, 1.5 / 24, 0.5 / 5).Inspect([&](QWidget* w) {
            picks.push_back(look(w).chosen);
        });
        user.Click(kCancel);
        short chosen = 0;
        factory->ShowDlgColor(nullptr, nullptr, 1, 7, 7, true, chosen);
        ExpectFinished(user);
        EXPECT_EQ(standard, QSize(90 * m, 20 * m)) << m;
        EXPECT_EQ(palette, QSize(216 * m, 45 * m)) << m;
        EXPECT_EQ(picks, (std::vector<short>{3, 28})) << m;
    }
}

// Presses on the edges of a strip pick the cells there; presses beside, above,
// below and far outside a strip pick what is under them (another strip's
// cell, a logical colour's button) or nothing, in every layout, and the
// dialog stays consistent and open.
TEST_F(ColourPicker, PressesOnAndBesideTheStripsNeverPickNonsense) {
    constexpr short kUnder = -1;    // whatever a finger there touches
    constexpr short kOnStrip = -2;  // some cell of the strip pressed
    const struct {
        double fx, fy;
        short expected[4];  // standard, grey, upper, lower
    } fractions[] = {
        {0, 0.5, {1, 250, 14, 15}},
        {0.5, 0, {5, 253, 138, 131}},
        {0.999, 0.999, {9, 255, 240, 249}},
        // QTest reads a press at a control's own (0, 0) as one at its centre:
        // the corner only has to reach the strip.
        {0, 0, {kOnStrip, kOnStrip, kOnStrip, kOnStrip}},
        {1, 1, {kUnder, kUnder, kUnder, kUnder}},
        {0.5, 1, {kUnder, kUnder, kUnder, kUnder}},
        {-0.02, 0.5, {kUnder, kUnder, kUnder, kUnder}},
        {-0.5, 0.5, {kUnder, kUnder, kUnder, kUnder}},
        {0.5, -0.5, {kUnder, kUnder, kUnder, kUnder}},
        {-100, -100, {kUnder, kUnder, kUnder, kUnder}},
        {100, 100, {kUnder, kUnder, kUnder, kUnder}},
    };
    const auto onStrip = [](unsigned id, short index) {
        switch (id) {
            case kStandard:
                return index >= 1 && index <= 9;
            case kGrey:
                return index >= 250 && index <= 255;
            default:
                return index >= 10 && index <= 249 && index % 2 == (id == kUpper ? 0 : 1);
        }
    };
    for (int layout = 0; layout < 4; ++layout) {
        CPalmDevice::SetLayoutOverride(layout);
        ScriptedUser user;
        int checks = 0;
        for (std::size_t strip = 0; strip < std::size(kStrips); ++strip)
            for (const auto& f : fractions) {
                const unsigned id = kStrips[strip];
                const short rule = f.expected[strip];
                auto expected = std::make_shared<short>(0);
                const std::string what =
                    "layout " + std::to_string(layout) + ", " + at(id, f.fx, f.fy);
                user.Inspect([=](QWidget* w) {
                    // What a finger there touches, found as the scripted user finds it.
                    const QPoint p = pressPoint(ulo::FindControl(w, id), f.fx, f.fy);
                    QWidget* target = w->childAt(p);
                    const unsigned targetId = ulo::GetDlgCtrlID(target);
                    auto* strip = qobject_cast<CVELDMultiColorStatic*>(target);
                    *expected = static_cast<CCECADDlgColor*>(w)->GetSelColor();
                    if (rule >= 0)
                        *expected = rule;
                    else if (strip)
                        *expected = short(strip->IndexAt(strip->mapFrom(w, p)));
                    else if (targetId == kByLayer)
                        *expected = 256;
                    else if (targetId == kByBlock)
                        *expected = 0;
                    EXPECT_NE(targetId, kOk) << what;
                    EXPECT_NE(targetId, kCancel) << what;
                });
                user.Press(id, f.fx, f.fy).Inspect([=, &checks](QWidget* w) {
                    const Seen s = look(w);
                    ++checks;
                    if (rule == kOnStrip) {
                        EXPECT_TRUE(onStrip(id, s.chosen)) << what << " picked " << s.chosen;
                    } else {
                        EXPECT_EQ(s.chosen, *expected) << what;
                    }
                    EXPECT_TRUE(s.chosen >= 0 && s.chosen <= 256) << what;
                    EXPECT_EQ(s.name, CVELDEntColorStatic::NameOf(s.chosen)) << what;
                    EXPECT_FALSE(s.name.isEmpty()) << what;
                });
            }
        user.Click(kOk);
        short chosen = 99;
        EXPECT_TRUE(factory->ShowDlgColor(nullptr, nullptr, 5, 7, 7, true, chosen));
        ExpectFinished(user);
        EXPECT_EQ(checks, int(std::size(kStrips) * std::size(fractions))) << layout;
        EXPECT_TRUE(chosen >= 0 && chosen <= 256) << chosen;
    }
}
