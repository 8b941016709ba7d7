#pragma once
// The sample of a line type's pattern that line type lists show in a cell: a
// horizontal line through the middle of the cell with the dashes, gaps and
// dots of the pattern scaled so that it fits the width about @p repeats times.
class CVELD;
class QPainter;

namespace veld {
class CLtype;
}

/// Draws the sample of @p ltype in the cell (left, top) - (right, bottom),
/// right and bottom exclusive, in pixels of @p dc. The line keeps a margin of
/// 2 x CPalmDevice::GetResMultiplier() pixels on either side; a cell with no
/// room left between the margins gets nothing. Dashes and the solid line are
/// drawn with a solid pen of 1 pixel in the system window text colour, which
/// the routine selects itself when @p selectPen is true (the caller's pen is
/// restored at the end) and otherwise takes from @p dc as it stands; a dot is
/// always one pixel of that colour. Patterns too fine to show (on average
/// less than a pixel per element) and patterns without elements are drawn
/// solid. Text elements take no room. Always returns, whatever the numbers of
/// the pattern; @p cad is the CAD instance whose drawing the line type
/// belongs to (null is accepted).
void DrawLtypePreview(CVELD* cad, QPainter* dc, const veld::CLtype* ltype, int left, int right,
                      int top, int bottom, int repeats, bool selectPen);
