#pragma once
// The built-in sample drawing: a small survey plan (a plot with two buildings,
// a road, fences, utilities, trees, contours and surveyed points) that shows
// every kind of table item, entity and entity set the dialogs deal with,
// including a frozen, a locked, an off, an external-reference and a private
// layer, line types with text, and a hidden entity set.
class CVELD;

/// Replaces the drawing of @p cad with the sample (undo list and selection
/// are emptied) and adds the sample's aerial picture.
void BuildSampleDrawing(CVELD& cad);
