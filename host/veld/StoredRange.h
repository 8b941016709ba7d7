#pragma once
// The range of every number a drawing and its settings keep, in one place.
// The drawing file's reader refuses a number outside its range, and every way
// into the model keeps to the same range (a dialog refuses the value, a setter
// keeps what it had), so that whatever the program holds, the writer writes
// and the reader reads back bit for bit. docs/drawing-file.md lists them.
//
// Nothing kept is NaN, an infinity or a negative zero: a drawing file's
// numbers have none of them (its writer writes -0 as 0), so a setter turns
// -0 into 0 with Kept().
#include <limits>
#include <numbers>

namespace veld {

struct StoredRange {
    double lo;
    double hi;
    /// False for NaN.
    constexpr bool Holds(double v) const { return v >= lo && v <= hi; }
};

/// @p v as the model keeps it: a negative zero becomes 0, all else stays.
constexpr double Kept(double v) {
    return v + 0.0;
}

namespace stored {

inline constexpr double kLargest = std::numeric_limits<double>::max();

/// Any finite number: the grid and snap of a view, the elements of line
/// types and the texts inside them (as a line type library gives them).
inline constexpr StoredRange kFinite{-kLargest, kLargest};
/// Coordinates of entities and images: squares and sums of a few of them
/// stay finite wherever the view measures or draws.
inline constexpr StoredRange kCoordinate{-1e100, 1e100};
/// Radii and text heights.
inline constexpr StoredRange kLength{0.0, 1e100};
/// Width factors of texts and text styles.
inline constexpr StoredRange kWidthFactor{1e-9, 1e100};
/// Rotation and slant of a text entity, in radians.
inline constexpr StoredRange kTextAngle{-1e100, 1e100};
/// Oblique angle of a text style, in radians.
inline constexpr StoredRange kOblique{-std::numbers::pi, std::numbers::pi};
/// The global line type scale: any positive number.
inline constexpr StoredRange kLtypeScale{std::numeric_limits<double>::denorm_min(), kLargest};
/// Base direction of the angle system, in radians.
inline constexpr StoredRange kAngleBase{-2 * std::numbers::pi, 2 * std::numbers::pi};
/// Metres per pixel of a raster image.
inline constexpr StoredRange kImageScale{1e-12, 1e100};

}  // namespace stored

}  // namespace veld
