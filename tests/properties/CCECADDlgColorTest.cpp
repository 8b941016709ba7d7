// The colour picker through the factory, with a scripted user pressing its
// strips and buttons in each layout.
#include <QGroupBox>
#include <QImage>
#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "app/VELD.h"
#include "factory/Scopes.h"
#include "properties/CCECADDlgColor.h"
#include "properties/CVELDEntColorStatic.h"
#include "properties/CVELDMultiColorStatic.h"
#include "support/FactoryFixture.h"
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

QRgb rgbOf(int index) {
    return ulo::ColorFromRef(GetClrNo(nullptr, index).value).rgb();
}

/// What the user sees of the choice at one moment.
struct Seen {
    short chosen = -999;
    int shown = -999;
    QString name;
    QRgb previewPixel = 0;
};

Seen look(QWidget* window) {
    auto* dialog = qobject_cast<CCECADDlgColor*>(window);
    auto* preview = dialog ? dialog->GetDlgItem<CVELDEntColorStatic>(kPreview) : nullptr;
    if (!preview)
        return {};
    return {dialog->GetSelColor(), preview->GetShownColorIndex(), dialog->GetDlgItemText(kName),
            window->grab().toImage().pixel(preview->geometry().center())};
}

}  // namespace

class ColourPicker : public FactoryTest {};

// The dialog opens on the caller's colour, named (a negative index as
// "Varies") and previewed, ByLayer and ByBlock in the caller's colours. By
// Layer and By Block pick the logical colours only when the caller allows
// them; the strips pick either way. OK hands back the last pick, or the start.
TEST_F(ColourPicker, OpensOnTheStartingColourAndPicksLogicalColoursOnlyWhenAllowed) {
    const struct {
        short start, byLayer, byBlock;
        bool logical;
        std::vector<unsigned> clicks;
        std::vector<std::pair<unsigned, double>> presses;  // at mid-height
        std::vector<short> picks;  // at opening, after each click, then each press
    } cases[] = {
        {256, 3, 6, true, {kByLayer, kByBlock}, {{kGrey, 0.01}}, {256, 256, 0, 250}},
        {42, 3, 6, false, {}, {{kStandard, 0.05}, {kUpper, 0.02}}, {42, 1, 14}},
        {0, 7, 5, true, {}, {}, {0}},
        {-1, 7, 7, true, {}, {}, {-1}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.start);
        ScriptedUser user;
        bool layerEnabled = !c.logical, blockEnabled = !c.logical;
        std::vector<Seen> seen;
        user.Inspect([&](QWidget* w) {
            seen.push_back(look(w));
            layerEnabled = ulo::FindControl(w, kByLayer)->isEnabled();
            blockEnabled = ulo::FindControl(w, kByBlock)->isEnabled();
        });
        for (unsigned id : c.clicks)
            user.Click(id).Inspect([&](QWidget* w) { seen.push_back(look(w)); });
        for (const auto& [id, fx] : c.presses)
            user.Press(id, fx, 0.5).Inspect([&](QWidget* w) { seen.push_back(look(w)); });
        user.Click(kOk);
        short chosen = 99;
        EXPECT_TRUE(factory->ShowDlgColor(nullptr, nullptr, c.start, c.byLayer, c.byBlock,
                                          c.logical, chosen));
        ExpectFinished(user);
        EXPECT_EQ(layerEnabled, c.logical);
        EXPECT_EQ(blockEnabled, c.logical);
        ASSERT_EQ(seen.size(), c.picks.size());
        for (std::size_t i = 0; i < seen.size(); ++i) {
            const short pick = c.picks[i];
            const int shown = pick == 256 ? c.byLayer
                              : pick == 0 ? c.byBlock
                              : pick < 0  ? 250
                                          : pick;
            EXPECT_EQ(seen[i].chosen, pick) << i;
            EXPECT_EQ(seen[i].shown, shown) << i;
            EXPECT_EQ(seen[i].name, CVELDEntColorStatic::NameOf(pick)) << i;
            EXPECT_EQ(seen[i].previewPixel, rgbOf(shown)) << i;
        }
        EXPECT_EQ(chosen, c.picks.back());
    }
}

// Presses in a portrait and a landscape layout, at every density multiplier. On a cell (every row
// of both palette halves, the palette's middle, every grey, first and last columns, each strip's
// edges) the pick is that cell's index, painted under the finger when the press is in the cell's
// middle. Just beside a strip, and far outside the dialog, a press picks the cell of another strip
// that lies there, or nothing: the pick stays as it was.
TEST_F(ColourPicker, PressesPickTheCellUnderTheFingerAndNothingBesideIt) {
    constexpr short kUnder = -1;  // whatever lies under the finger
    struct Press {
        unsigned strip;
        double fx, fy;
        short index;
        bool middle = false;
    };
    const auto cell = [](unsigned strip, int column, int row, short index) {
        const bool palette = strip == kUpper || strip == kLower;
        const int columns = palette ? 24 : strip == kStandard ? 9 : 6;
        return Press{strip, (column + 0.5) / columns, (row + 0.5) / (palette ? 5 : 1), index, true};
    };
    // Middles of cells (every row of both palette halves, first and last
    // columns), the middle of the upper palette, the first and last pixels of
    // each strip, far outside the dialog, then every grey and just beside
    // each strip.
    std::vector<Press> presses = {
        cell(kStandard, 2, 0, 3),   cell(kGrey, 5, 0, 255),      cell(kUpper, 0, 0, 18),
        cell(kLower, 0, 0, 11),     cell(kUpper, 23, 4, 240),    cell(kLower, 23, 4, 249),
        cell(kUpper, 5, 1, 66),     cell(kUpper, 15, 3, 162),    cell(kLower, 5, 3, 67),
        cell(kLower, 15, 1, 163),   {kStandard, 0, 0.5, 1},      {kStandard, 0.999, 0.999, 9},
        {kGrey, 0, 0.5, 250},       {kGrey, 0.999, 0.999, 255},  {kUpper, 0, 0.5, 14},
        {kUpper, 0.5, 0, 138},      {kUpper, 0.999, 0.999, 240}, {kLower, 0, 0.5, 15},
        {kLower, 0.5, 0, 131},      {kLower, 0.999, 0.999, 249}, {kStandard, -100, -100, kUnder},
        {kLower, 100, 100, kUnder}, cell(kUpper, 12, 2, 134),    {kUpper, 0.5, 0.5, 134},
    };
    for (int column = 0; column < 6; ++column)
        presses.push_back(cell(kGrey, column, 0, short(250 + column)));
    for (unsigned strip : {kStandard, kGrey, kUpper, kLower})
        for (const auto& [fx, fy] : {std::pair{-0.015, 0.5}, {1.0, 0.5}, {0.5, -0.06}, {0.5, 1.0}})
            presses.push_back({strip, fx, fy, kUnder});

    for (const auto& [m, layout] : {std::pair{1, 0}, {1, 2}, {2, 0}, {2, 2}, {3, 0}, {3, 2}}) {
        veldtest::ScopedMultiplier density(m);
        CPalmDevice::SetLayoutOverride(layout);
        ScriptedUser user;
        SCOPED_TRACE("multiplier " + std::to_string(m) + ", layout " + std::to_string(layout));
        std::vector<short> expected(presses.size());
        user.Inspect([&](QWidget* w) {
            const QImage before = w->grab().toImage();
            for (std::size_t i = 0; i < presses.size(); ++i) {
                const Press& p = presses[i];
                QWidget* control = ulo::FindControl(w, p.strip);
                const QPoint at = control->mapTo(
                    w, QPoint(int(p.fx * control->width()), int(p.fy * control->height())));
                if (p.middle) {
                    EXPECT_EQ(before.pixel(at), rgbOf(p.index)) << "press " << i;
                }
                auto* other = qobject_cast<CVELDMultiColorStatic*>(w->childAt(at));
                expected[i] = p.index != kUnder || !other
                                  ? p.index
                                  : short(other->IndexAt(other->mapFrom(w, at)));
            }
        });
        short last = 5;
        for (std::size_t i = 0; i < presses.size(); ++i)
            user.Press(presses[i].strip, presses[i].fx, presses[i].fy).Inspect([&, i](QWidget* w) {
                const Seen s = look(w);
                const short pick = expected[i] == kUnder ? last : expected[i];
                EXPECT_EQ(s.chosen, pick) << "press " << i;
                EXPECT_EQ(s.name, CVELDEntColorStatic::NameOf(pick)) << "press " << i;
                EXPECT_EQ(s.previewPixel, rgbOf(pick)) << "press " << i;
                last = s.chosen;
            });
        user.Click(kCancel);
        short chosen = 99;
        EXPECT_FALSE(factory->ShowDlgColor(nullptr, nullptr, 5, 7, 7, true, chosen));
        ExpectFinished(user);
    }
}

// The choice reaches the caller only through OK; every other ending leaves the
// factory's result as it was and the dialog's colour back at the start, for a
// caller that reads it anyway.
TEST_F(ColourPicker, ThePickReachesTheCallerOnlyOnOk) {
    const struct {
        const char* what;
        std::function<void(ScriptedUser&)> end;
        bool confirmed;
    } cases[] = {
        {"OK", [](ScriptedUser& u) { u.Click(kOk); }, true},
        {"Cancel", [](ScriptedUser& u) { u.Click(kCancel); }, false},
        {"Escape", [](ScriptedUser& u) { u.Key(kName, Qt::Key_Escape); }, false},
    };
    for (const auto& c : cases) {
        {
            ScriptedUser user;
            c.end(user.Press(kStandard, 2.5 / 9, 0.5));
            short chosen = 99;
            EXPECT_EQ(factory->ShowDlgColor(nullptr, nullptr, 5, 7, 7, true, chosen), c.confirmed)
                << c.what;
            ExpectFinished(user);
            EXPECT_EQ(chosen, c.confirmed ? 3 : 99) << c.what;
        }
        veld5::CModuleResourceScope scope;
        CCECADDlgColor dialog(nullptr, 5, 7, 7, true, nullptr);
        ScriptedUser user;
        c.end(user.Click(kByLayer));
        EXPECT_EQ(dialog.DoModal(), c.confirmed ? ulo::IDOK : ulo::IDCANCEL) << c.what;
        ExpectFinished(user);
        EXPECT_EQ(dialog.GetSelColor(), c.confirmed ? 256 : 5) << c.what;
    }
}

// In each layout and at every density multiplier the dialog comes from its own template with its
// help topic, and each strip holds whole cells inside the rectangle its layout gives it: at its
// corner, clear of every other control but the groups that frame it. The cells are 10 x 20
// (standard), 15 x 20 (greys) and 9 x 9 (palette) pixels at multiplier 1, never smaller at a higher
// one.
TEST_F(ColourPicker, EachLayoutHoldsWholeCellsInsideTheStripsRectangles) {
    const std::map<unsigned, QSize> cellAtOne = {
        {kStandard, {10, 20}}, {kGrey, {15, 20}}, {kUpper, {9, 9}}, {kLower, {9, 9}}};
    for (int m : {1, 2, 3})
        for (int layout = 0; layout < 4; ++layout) {
            veldtest::ScopedMultiplier density(m);
            CPalmDevice::SetLayoutOverride(layout);
            SCOPED_TRACE("multiplier " + std::to_string(m) + ", layout " + std::to_string(layout));
            ScriptedUser user;
            int checked = 0;
            user.Inspect([&](QWidget* w) {
                auto* d = static_cast<CWSizeDialog*>(w);
                const ulo::DialogTemplate* t = d->GetTemplate();
                ASSERT_NE(t, nullptr);
                for (const auto& ctrl : t->controls) {
                    auto* strip = qobject_cast<CVELDMultiColorStatic*>(d->GetDlgItem(ctrl.id));
                    if (!strip || ctrl.id == ulo::kStaticId)
                        continue;
                    ++checked;
                    const std::string what = "strip " + std::to_string(ctrl.id);
                    const QRect own = d->Units().Rect(ctrl.rect[layout]);
                    const QSize cell(strip->CellWidth(), strip->CellHeight());
                    EXPECT_EQ(strip->pos(), own.topLeft()) << what;
                    EXPECT_TRUE(own.contains(strip->geometry())) << what;
                    EXPECT_EQ(cell.width() * strip->Columns(), strip->width()) << what;
                    EXPECT_EQ(cell.height() * strip->Rows(), strip->height()) << what;
                    if (m == 1) {
                        EXPECT_EQ(cell, cellAtOne.at(ctrl.id)) << what;
                    } else {
                        EXPECT_TRUE(cell.expandedTo(cellAtOne.at(ctrl.id)) == cell) << what;
                    }
                    EXPECT_TRUE(d->rect().contains(strip->geometry())) << what;
                    for (QWidget* other : d->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
                        if (other == strip || other->isHidden() ||
                            !other->geometry().intersects(strip->geometry()))
                            continue;
                        auto* group = qobject_cast<QGroupBox*>(other);
                        EXPECT_TRUE(group && group->contentsRect()
                                                 .translated(group->pos())
                                                 .contains(strip->geometry()))
                            << what << " overlaps control " << ulo::GetDlgCtrlID(other);
                    }
                }
            });
            user.Click(kCancel);
            short chosen = 0;
            factory->ShowDlgColor(nullptr, nullptr, 1, 7, 7, true, chosen);
            ExpectFinished(user);
            EXPECT_EQ(checked, 4);
            ASSERT_EQ(user.Dialogs().size(), 1u);
            EXPECT_EQ(user.Dialogs()[0].templateId, 11044u);
            EXPECT_EQ(user.Dialogs()[0].layout, layout);
            EXPECT_EQ(user.Dialogs()[0].title, QStringLiteral("Color options"));
            EXPECT_EQ(user.Dialogs()[0].help, QStringLiteral("QuadraCE.htm#Dlg OpzColori"));
        }
}
