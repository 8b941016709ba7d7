#pragma once
// Large drawings for measuring: many layers, many entities spread over a
// square plot, the same drawing for the same sizes and seed. veld-gen writes
// them to files; the benchmarks build them in memory.
class CVELD;

struct LargeDrawingSize {
    unsigned layers = 1000;  ///< besides layer 0
    unsigned entities = 10000;
    unsigned seed = 1;
    double side = 10000.0;  ///< the plot's side in drawing units
};

/// Replaces the drawing of @p cad with a large one: a few dashed line types,
/// @p size.layers layers ("L000001", ...) and @p size.entities entities
/// (lines, polylines, circles, points and texts, short ones as in a survey
/// plan) on those layers in turn, in two entity sets.
void BuildLargeDrawing(CVELD& cad, const LargeDrawingSize& size);
