#pragma once
// The walk along a line type's pattern behind DrawLtypePreview, apart from
// the painting, so that what a sample is made of can be followed step by step.
#include <functional>

namespace veld {
class CLtype;
}

namespace veld5 {

/// One step of the pen along the sample's row.
struct PreviewStep {
    enum Kind {
        kLine,  ///< draw from the pen's position to x
        kMove,  ///< move to x without drawing
        kDot,   ///< set the single pixel x (the pen stays)
    };
    Kind kind;
    long long x;
};

/// Walks the sample of @p ltype from @p start to @p end (exclusive) for
/// @p repeats repetitions, handing each step to @p visit; a number element
/// gives one step, the solid line of an empty or too fine pattern one line
/// to @p end. Returns false when @p visit stopped the walk by returning
/// false, true when the walk reached its end by itself.
bool WalkLtypePreview(const veld::CLtype& ltype, long long start, long long end, int repeats,
                      const std::function<bool(const PreviewStep&)>& visit);

}  // namespace veld5
