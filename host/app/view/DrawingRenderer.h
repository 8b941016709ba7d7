#pragma once
// Draws a CAD instance's drawing into a painter: the raster images, the grid,
// then every entity of the visible entity sets on layers that are neither off
// nor frozen, in its resolved colour (ByLayer, ByBlock, the set's own colour)
// and line type pattern (scaled by the global line type scale), with the
// selection highlighted. Also finds the entity under a point and the extents.
//
// Each call takes the drawing's CDrawingIndex and looks only at the entities
// whose box meets the window. An entity smaller than a pixel is one pixel and
// a point's cross is stamped, each a few writes into an image rather than a
// call of the painter; the image is laid onto the picture before the next
// entity the painter draws, so that the drawing order holds.
#include <QPointF>
#include <QRectF>

#include "DrawingIndex.h"

class CVELD;
class CGrid;
class QPainter;
namespace veld {
class CEnt;
}

/// Map coordinates to pixels: East right, North up.
struct ViewTransform {
    QPointF centre;     ///< map point at the middle of the window
    double zoom = 1.0;  ///< pixels per drawing unit
    QSizeF size;        ///< window size in pixels

    QPointF ToScreen(double x, double y) const {
        return {size.width() / 2 + (x - centre.x()) * zoom,
                size.height() / 2 - (y - centre.y()) * zoom};
    }
    QPointF ToMap(const QPointF& p) const {
        return {centre.x() + (p.x() - size.width() / 2) / zoom,
                centre.y() - (p.y() - size.height() / 2) / zoom};
    }
};

namespace drawingrender {

/// Paints @p area of the window (all of it when empty), clipped to it.
void Paint(QPainter& painter, CVELD& cad, const CGrid& grid, const ViewTransform& view,
           CDrawingIndex& index, const QRectF& area = QRectF());
/// The entity drawn nearest to @p screen within @p tolerance pixels, or null.
veld::CEnt* Pick(CVELD& cad, CDrawingIndex& index, const ViewTransform& view, const QPointF& screen,
                 double tolerance);
/// The box around the shown entities and the images (empty for none).
QRectF Extents(CVELD& cad, CDrawingIndex& index);

}  // namespace drawingrender
