#include "DrawingIndex.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

#include "veld/Data.h"

namespace drawingrender {

namespace {

/// How far from its insertion point a text may draw: its advance (no glyph
/// wider than one and a half heights, stretched by the width factor) at any
/// alignment and rotation, and two heights more for what stands above and
/// below the base line and for a slant.
double textReach(double height, double widthFactor, std::size_t length) {
    return std::fabs(height) *
           (2 + 1.5 * std::max(1.0, std::fabs(widthFactor)) * static_cast<double>(length));
}

Box boxOf(const veld::CEnt& e) {
    const auto& pts = e.GetPoints();
    if (e.GetKind() == veld::EntKind::Text) {
        const veld::TEXT_3D text = static_cast<const veld::CEntText&>(e).GetText();
        const veld::CTextContext& c = text.GetContext();
        const double r = textReach(c.GetHeight(), c.GetWidthFactor(), c.GetString().Length());
        return {pts[0].x - r, pts[0].y - r, pts[0].x + r, pts[0].y + r};
    }
    const double r = e.GetKind() == veld::EntKind::Circle ? std::fabs(e.GetRadius()) : 0.0;
    Box b{pts[0].x, pts[0].y, pts[0].x, pts[0].y};
    for (const auto& p : pts)
        b = {std::min(b.x0, p.x), std::min(b.y0, p.y), std::max(b.x1, p.x), std::max(b.y1, p.y)};
    return {b.x0 - r, b.y0 - r, b.x1 + r, b.y1 + r};
}

/// The least power of two that no more than @p allowed of @p entries
/// exceed in width or height (0 when none has a size).
double fitting(const std::vector<CDrawingIndex::Entry>& entries, std::size_t allowed) {
    // Entries by the binary exponent of their size (a finite double's lies
    // in [kLeast, 1023]); those without a size fit anywhere.
    constexpr int kLeast = -1074;
    std::vector<std::size_t> bySize(1023 - kLeast + 1, 0);
    for (const CDrawingIndex::Entry& e : entries) {
        const double size = std::max(e.box.x1 - e.box.x0, e.box.y1 - e.box.y0);
        if (size > 0)
            ++bySize[static_cast<std::size_t>(std::ilogb(size) - kLeast)];
    }
    std::size_t above = 0, b = bySize.size();
    while (b > 0 && above + bySize[b - 1] <= allowed)
        above += bySize[--b];
    return b == 0 ? 0.0 : std::ldexp(1.0, std::min(static_cast<int>(b) + kLeast, 1023));
}

}  // namespace

void CDrawingIndex::Sync(veld::CData& data) {
    const veld::CEntTable& table = data.GetEntTable();
    if (data_ == &data && count_ == table.GetNoEnts())
        return;
    data_ = &data;
    count_ = table.GetNoEnts();
    entries_.clear();
    entries_.reserve(count_);
    constexpr double kFar = std::numeric_limits<double>::max();
    Box centres{kFar, kFar, -kFar, -kFar};
    for (unsigned i = 0; i < count_; ++i) {
        veld::CEnt* e = table.GetEnt(i);
        if (e->GetPoints().empty())
            continue;  // draws nothing
        const Box b = boxOf(*e);
        entries_.push_back({b, e});
        const double cx = (b.x0 + b.x1) / 2, cy = (b.y0 + b.y1) / 2;
        centres = {std::min(centres.x0, cx), std::min(centres.y0, cy), std::max(centres.x1, cx),
                   std::max(centres.y1, cy)};
    }

    patternReach_ = 0;
    veld::CData::CLtypeIterator ltypes(&data, true, true);
    while (const veld::CLtype* t = ltypes.GetNext()) {
        for (unsigned i = 0; i < t->GetNoDashes(); ++i) {
            if (const veld::TEXT_3D* text = t->GetDash(i)->GetText()) {
                const veld::CTextContext& c = text->GetContext();
                patternReach_ = std::max(
                    patternReach_,
                    std::fabs(text->GetPoint().x) + std::fabs(text->GetPoint().y) +
                        textReach(c.GetHeight(), c.GetWidthFactor(), c.GetString().Length()));
            }
        }
    }

    large_.clear();
    items_.clear();
    start_.assign(1, 0);
    columns_ = rows_ = 0;
    if (entries_.empty())
        return;
    // About four entries to a cell, and no more cells along a side than that;
    // but no smaller than nine entries in ten, so that the list of those too
    // large to file stays short.
    const double target = std::max(1.0, static_cast<double>(entries_.size()) / 4);
    const double w = centres.x1 - centres.x0, h = centres.y1 - centres.y0;
    cell_ = std::max({std::sqrt(w / target) * std::sqrt(h), std::max(w, h) / target,
                      fitting(entries_, entries_.size() / 10), std::numeric_limits<double>::min()});
    x0_ = centres.x0;
    y0_ = centres.y0;
    columns_ = static_cast<int>(w / cell_) + 1;
    rows_ = static_cast<int>(h / cell_) + 1;
    const auto fits = [this](const Box& b) { return b.x1 - b.x0 <= cell_ && b.y1 - b.y0 <= cell_; };
    const auto cellOf = [this](const Box& b) {
        const int i = std::min(static_cast<int>(((b.x0 + b.x1) / 2 - x0_) / cell_), columns_ - 1);
        const int j = std::min(static_cast<int>(((b.y0 + b.y1) / 2 - y0_) / cell_), rows_ - 1);
        return static_cast<std::size_t>(j) * columns_ + i;
    };
    start_.assign(static_cast<std::size_t>(columns_) * rows_ + 1, 0);
    for (std::uint32_t k = 0; k < entries_.size(); ++k) {
        if (fits(entries_[k].box))
            ++start_[cellOf(entries_[k].box) + 1];
        else
            large_.push_back(k);
    }
    std::partial_sum(start_.begin(), start_.end(), start_.begin());
    items_.resize(start_.back());
    std::vector<std::uint32_t> next(start_.begin(), start_.end() - 1);
    for (std::uint32_t k = 0; k < entries_.size(); ++k)
        if (fits(entries_[k].box))
            items_[next[cellOf(entries_[k].box)]++] = k;
}

const std::vector<std::uint32_t>& CDrawingIndex::Find(const Box& window) {
    found_.clear();
    // An entry filed in a cell has its box's centre there and is at most a
    // cell wide: the cells that matter are those within half a cell of the
    // window. Each row of them is one run of items_.
    const double half = cell_ / 2;
    const double gx0 = (window.x0 - half - x0_) / cell_, gx1 = (window.x1 + half - x0_) / cell_;
    const double gy0 = (window.y0 - half - y0_) / cell_, gy1 = (window.y1 + half - y0_) / cell_;
    std::vector<std::pair<std::uint32_t, std::uint32_t>> runs;
    std::size_t inRuns = 0;
    if (gx1 >= 0 && gx0 < columns_ && gy1 >= 0 && gy0 < rows_) {
        const int i0 = static_cast<int>(std::max(gx0, 0.0));
        const int i1 = static_cast<int>(std::min(gx1, columns_ - 1.0));
        const int j0 = static_cast<int>(std::max(gy0, 0.0));
        const int j1 = static_cast<int>(std::min(gy1, rows_ - 1.0));
        for (int j = j0; j <= j1; ++j) {
            const std::size_t row = static_cast<std::size_t>(j) * columns_;
            runs.emplace_back(start_[row + i0], start_[row + i1 + 1]);
            inRuns += runs.back().second - runs.back().first;
        }
    }
    if (inRuns + large_.size() > entries_.size() / 8) {
        // Much of the drawing: one walk in drawing order costs less than
        // gathering and sorting.
        for (std::uint32_t k = 0; k < entries_.size(); ++k)
            if (entries_[k].box.Meets(window))
                found_.push_back(k);
        return found_;
    }
    for (const auto& [from, to] : runs)
        for (std::uint32_t n = from; n < to; ++n)
            if (entries_[items_[n]].box.Meets(window))
                found_.push_back(items_[n]);
    for (std::uint32_t k : large_)
        if (entries_[k].box.Meets(window))
            found_.push_back(k);
    std::sort(found_.begin(), found_.end());
    return found_;
}

}  // namespace drawingrender
