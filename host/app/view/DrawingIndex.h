#pragma once
// CDrawingIndex: where the entities of a drawing lie, so that a view of a
// small part of a large drawing looks at the entities there only.
//
// Every entity of the entity table has a box on the map that holds all it
// draws: its points, a circle's square, a text's reach around its insertion
// point (what its glyphs may cover at any alignment and rotation). The boxes
// are kept in drawing order and filed in a uniform grid of square cells over
// the drawing, about four entities to a cell: an entity no wider and no
// taller than a cell is filed in the cell of its box's centre, a larger one in
// a list that every search walks. A grid rather than an R-tree: survey
// drawings spread many short entities fairly evenly over the plot, the grid
// is built in two passes over them, and each cell keeps them in drawing order.
//
// The index is a cache. It builds itself on first use, and again after
// Invalidate() (its owner calls that when the CAD instance reports a change),
// for another drawing, or when the number of entities changed (a guard for
// entities added or taken out without a report). Whether an entity is shown
// (its layer, its set) is not kept: callers ask the entity. Entities without
// points draw nothing and are left out.
#include <cstdint>
#include <vector>

namespace veld {
class CData;
class CEnt;
}  // namespace veld

namespace drawingrender {

/// A closed box on the map (a point or a level line is a box too).
struct Box {
    double x0, y0, x1, y1;
    bool Meets(const Box& o) const { return x0 <= o.x1 && o.x0 <= x1 && y0 <= o.y1 && o.y0 <= y1; }
};

class CDrawingIndex {
public:
    struct Entry {
        Box box;
        veld::CEnt* ent;
    };

    /// The drawing changed: the next use builds the index again.
    void Invalidate() { data_ = nullptr; }
    /// Builds the index for @p data unless it is up to date.
    void Sync(veld::CData& data);
    /// The entities of the entity table that have points, in drawing order.
    const std::vector<Entry>& Entries() const { return entries_; }
    /// The positions in Entries() of the entries whose box meets @p window,
    /// ascending, so in drawing order; valid until the next call.
    const std::vector<std::uint32_t>& Find(const Box& window);
    /// How far the texts of the drawing's line types may stand off their line,
    /// in line type units: times the line type scale on the map.
    double PatternReach() const { return patternReach_; }

private:
    const veld::CData* data_ = nullptr;
    unsigned count_ = 0;  // entities in the table when built
    std::vector<Entry> entries_;
    double patternReach_ = 0;
    // Cell (i, j) is number j * columns_ + i and holds the centres in
    // [x0_ + i * cell_, x0_ + (i + 1) * cell_) x [y0_ + j * cell_, ...); its
    // entries are items_[start_[c]] .. items_[start_[c + 1] - 1].
    double x0_ = 0, y0_ = 0, cell_ = 1;
    int columns_ = 0, rows_ = 0;
    std::vector<std::uint32_t> start_, items_, large_;
    std::vector<std::uint32_t> found_;  // kept from call to call: no allocation per frame
};

}  // namespace drawingrender
