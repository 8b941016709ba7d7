#pragma once
// A drawing view: a window of the host showing the drawing, with its own grid
// and snap settings and preset view direction. It repaints when the CAD
// instance reports a change; the mouse (or a finger) pans by dragging, the
// wheel and a pinch zoom, and a tap selects or deselects the entity under it
// (a tap on nothing clears the selection).
//
// The view keeps the drawing's index (built again after every reported
// change but a new selection) and the picture it drew last: a pan moves the
// picture by whole device pixels and draws only the strips it uncovers.
#include <QPixmap>
#include <QWidget>

#include "DrawingRenderer.h"
#include "ViewAccess.h"
#include "app/ViewState.h"

namespace veld {
class CData;
}

class CVELDView : public QWidget, public CViewState {
    Q_OBJECT
public:
    explicit CVELDView(CVELD* cad, QWidget* parent = nullptr);
    ~CVELDView() override;
    CVELD* GetVELD() const { return cad_; }
    void ForgetVELD() override;

    /// Shows the whole drawing.
    void ZoomExtents();
    /// Zooms by @p factor keeping the map point under @p screen in place.
    void ZoomAt(const QPointF& screen, double factor);
    const ViewTransform& GetTransform() const { return view_; }
    /// Draws the drawing again, looking at its entities anew: for changes that
    /// come without a notification (a grid edited in place). Notified changes
    /// redraw by themselves.
    void Redraw();
    /// Puts the cross-hair on the map point (@p east, @p north), centring the
    /// view there when the point is out of sight (a typed point).
    void MoveCrossHairTo(double east, double north);
    /// Where a tap at @p screen lands: the entity it would select, or null.
    veld::CEnt* EntityAt(const QPointF& screen) const;

Q_SIGNALS:
    /// The map point under the pointer, for a status bar.
    void PointerMoved(double east, double north);

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool event(QEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void Tap(const QPointF& screen);
    /// Draws the picture again (the view moved, or the selection changed).
    void Repaint();

    CVELD* cad_;
    int listener_ = 0;
    ViewTransform view_;
    const veld::CData* shownData_ = nullptr;  // zoomed to extents for this drawing
    QPointF pressAt_;
    bool pressed_ = false;
    bool panning_ = false;
    bool moved_ = false;  // panned or zoomed since the last zoom to extents
    QPointF pointer_;
    bool pointerIn_ = false;
    // A cache, which EntityAt may build.
    mutable drawingrender::CDrawingIndex index_;
    QPixmap picture_;  // the drawing as last drawn, under the cross-hair
    bool pictureValid_ = false;
    // Device pixels the picture is to move by, from pans since it was painted.
    QPoint shift_;
};
