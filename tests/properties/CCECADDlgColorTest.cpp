// The colour picker, with a scripted user pressing its strips and buttons in
// each layout, through the factory and on its own.
#include <QImage>
#include <map>
#include <utility>
#include <vector>

#include "app/VELD.h"
#include "factory/Scopes.h"
#include "properties/CCECADDlgColor.h"
#include "properties/CVELDEntColorStatic.h"
#include "properties/CVELDMultiColorStatic.h"
#include "res/templates/ControlIds.h"
#include "support/FactoryFixture.h"
#include "support/ScopedMultiplier.h"
#include "ulo/ctrl/Dialog.h"

using automation::ScriptedUser;
using veld5::CCECADDlgColor;
using veld5::CVELDEntColorStatic;
using veld5::CVELDMultiColorStatic;

namespace {

namespace Color = veld5::ctl::Color;
constexpr unsigned kStandard = Color::kStandard, kGrey = Color::kGrey;
constexpr unsigned kUpper = Color::kPaletteEven, kLower = Color::kPaletteOdd;

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
    auto* preview = dialog ? dialog->GetDlgItem<CVELDEntColorStatic>(Color::kPreview) : nullptr;
    if (!preview)
        return {};
    return {dialog->GetSelColor(), preview->GetShownColorIndex(),
            dialog->GetDlgItemText(Color::kName),
            window->grab().toImage().pixel(preview->geometry().center())};
}

}  // namespace

class ColourPicker : public FactoryTest {};

// The dialog opens on the caller's colour, named (a negative index as
// "Varies") and previewed, ByLayer and ByBlock in the caller's colours. By
// Layer and By Block pick the logical colours only when the caller allows
// them; the strips pick either way. OK leaves the last pick, or the start; a
// caller that reads the colour after Cancel finds the one it gave.
TEST_F(ColourPicker, OpensOnTheStartingColourAndPicksLogicalColoursOnlyWhenAllowed) {
    const struct {
        short start, byLayer, byBlock;
        bool logical;
        std::vector<unsigned> clicks;
        std::vector<std::pair<unsigned, double>> presses;  // at mid-height
        std::vector<short> picks;  // at opening, after each click, then each press
        unsigned end = Color::kOk;
    } cases[] = {
        {256, 3, 6, true, {Color::kByLayer, Color::kByBlock}, {{kGrey, 0.01}}, {256, 256, 0, 250}},
        {42, 3, 6, false, {}, {{kStandard, 0.05}, {kUpper, 0.02}}, {42, 1, 14}},
        {0, 7, 5, true, {}, {}, {0}},
        {-1, 7, 7, true, {}, {}, {-1}},
        {5, 7, 7, true, {Color::kByLayer}, {}, {5, 256}, Color::kCancel},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.start);
        ScriptedUser user;
        bool layerEnabled = !c.logical, blockEnabled = !c.logical;
        std::vector<Seen> seen;
        user.Inspect([&](QWidget* w) {
            seen.push_back(look(w));
            layerEnabled = ulo::FindControl(w, Color::kByLayer)->isEnabled();
            blockEnabled = ulo::FindControl(w, Color::kByBlock)->isEnabled();
        });
        for (unsigned id : c.clicks)
            user.Click(id).Inspect([&](QWidget* w) { seen.push_back(look(w)); });
        for (const auto& [id, fx] : c.presses)
            user.Press(id, fx, 0.5).Inspect([&](QWidget* w) { seen.push_back(look(w)); });
        user.Click(c.end);
        veld5::CModuleResourceScope scope;
        CCECADDlgColor dialog(nullptr, c.start, c.byLayer, c.byBlock, c.logical, nullptr);
        EXPECT_EQ(dialog.DoModal(), c.end == Color::kOk ? ulo::IDOK : ulo::IDCANCEL);
        ExpectFinished(user);
        EXPECT_TRUE(layerEnabled == c.logical && blockEnabled == c.logical);
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
        EXPECT_EQ(dialog.GetSelColor(), c.end == Color::kOk ? c.picks.back() : c.start);
    }
}

// In each layout and at every density multiplier, each strip holds whole cells inside the
// rectangle its layout gives it (which tests/res's LayoutTest keeps clear of the others), at its
// corner; 10 x 20 (standard), 15 x 20 (greys) and 9 x 9 (palette) pixels at multiplier 1, never
// smaller at a higher one. A press on a cell (every row of both palette halves, the palette's
// middle, every grey, first and last columns, each strip's edges) picks that cell's index, painted
// under the finger between shared border lines when the press is in the cell's middle. Just beside
// a strip, and far outside the dialog, a press picks the cell of another strip that lies there, or
// nothing.
TEST_F(ColourPicker, WholeCellsInEveryLayoutAndPressesPickTheCellUnderTheFinger) {
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

    const std::map<unsigned, QSize> cellAtOne = {
        {kStandard, {10, 20}}, {kGrey, {15, 20}}, {kUpper, {9, 9}}, {kLower, {9, 9}}};
    for (int m : {1, 2, 3})
        for (int layout = 0; layout < 4; ++layout) {
            veldtest::ScopedMultiplier density(m);
            CPalmDevice::SetLayoutOverride(layout);
            SCOPED_TRACE("multiplier " + std::to_string(m) + ", layout " + std::to_string(layout));
            ScriptedUser user;
            std::vector<short> expected(presses.size());
            user.Inspect([&](QWidget* w) {
                auto* d = static_cast<CWSizeDialog*>(w);
                for (const auto& [id, cell] : cellAtOne) {
                    SCOPED_TRACE(id);
                    auto* strip = d->GetDlgItem<CVELDMultiColorStatic>(id);
                    const ulo::CtrlTemplate* ctrl = nullptr;
                    for (const auto& c : d->GetTemplate()->controls)
                        ctrl = c.id == id ? &c : ctrl;
                    const QRect own = d->Units().Rect(ctrl->rect[layout]);
                    const QSize has(strip->CellWidth(), strip->CellHeight());
                    EXPECT_EQ(strip->pos(), own.topLeft());
                    EXPECT_TRUE(own.contains(strip->geometry()) && d->rect().contains(own));
                    EXPECT_EQ(has.width() * strip->Columns(), strip->width());
                    EXPECT_EQ(has.height() * strip->Rows(), strip->height());
                    EXPECT_TRUE(m == 1 ? has == cell : has.expandedTo(cell) == has);
                }
                const QImage before = w->grab().toImage();
                for (std::size_t i = 0; i < presses.size(); ++i) {
                    const Press& p = presses[i];
                    QWidget* control = ulo::FindControl(w, p.strip);
                    const QPoint at = control->mapTo(
                        w, QPoint(int(p.fx * control->width()), int(p.fy * control->height())));
                    if (p.middle) {
                        // The fill, framed by one border line shared with the neighbours:
                        // the fill starts on the pixel after the line on the cell's left
                        // and top.
                        auto* s = static_cast<CVELDMultiColorStatic*>(control);
                        const QPoint in = s->mapFrom(w, at);
                        const int left = in.x() / s->CellWidth() * s->CellWidth();
                        const int top = in.y() / s->CellHeight() * s->CellHeight();
                        const QRgb pen = s->palette().color(QPalette::Dark).rgb();
                        const auto pixel = [&](int x, int y) {
                            return before.pixel(s->mapTo(w, QPoint(x, y)));
                        };
                        EXPECT_EQ(before.pixel(at), rgbOf(p.index)) << "press " << i;
                        EXPECT_TRUE(pixel(left, in.y()) == pen && pixel(in.x(), top) == pen &&
                                    pixel(left + 1, in.y()) == rgbOf(p.index) &&
                                    pixel(in.x(), top + 1) == rgbOf(p.index))
                            << "press " << i;
                    }
                    auto* other = qobject_cast<CVELDMultiColorStatic*>(w->childAt(at));
                    expected[i] = p.index != kUnder || !other
                                      ? p.index
                                      : short(other->IndexAt(other->mapFrom(w, at)));
                }
            });
            short last = 5;
            for (std::size_t i = 0; i < presses.size(); ++i)
                user.Press(presses[i].strip, presses[i].fx, presses[i].fy)
                    .Inspect([&, i](QWidget* w) {
                        const Seen s = look(w);
                        const short pick = expected[i] == kUnder ? last : expected[i];
                        EXPECT_EQ(s.chosen, pick) << "press " << i;
                        EXPECT_EQ(s.name, CVELDEntColorStatic::NameOf(pick)) << "press " << i;
                        EXPECT_EQ(s.previewPixel, rgbOf(pick)) << "press " << i;
                        last = s.chosen;
                    });
            user.Click(Color::kOk);
            short chosen = 99;
            EXPECT_TRUE(factory->ShowDlgColor(nullptr, nullptr, 5, 7, 7, true, chosen));
            ExpectFinished(user);
            EXPECT_EQ(chosen, last);
        }
}
