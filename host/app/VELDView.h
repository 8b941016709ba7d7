#pragma once
// A drawing view: a window of the host showing the drawing, with its own grid
// and snap settings and preset view direction. It repaints when the CAD
// instance reports a change; the mouse (or a finger) pans by dragging, the
// wheel and a pinch zoom, and a tap selects or deselects the entity under it
// (a tap on nothing clears the selection).
#include <QPixmap>
#include <QWidget>

#include "DrawingRenderer.h"
#include "Grid.h"

class CVELD;
namespace veld {
class CData;
}

class CVELDView : public QWidget {
    Q_OBJECT
public:
    explicit CVELDView(CVELD* cad, QWidget* parent = nullptr);
    ~CVELDView() override;
    CVELD* GetVELD() const { return cad_; }
    /// The CAD instance is going away before the view.
    void ForgetVELD();
    CGrid& GetGrid() { return grid_; }
    const CGrid& GetGrid() const { return grid_; }
    /// Preset view 1..10 (top, bottom, front, back, left, right, SW, SE, NE,
    /// NW isometric); 1 at start.
    int GetPresetView() const { return preset_; }
    void SetPresetView(int preset) { preset_ = preset; }
    bool GetColorSelected() const { return colorSelected_; }
    void SetColorSelected(bool on) { colorSelected_ = on; }

    /// Shows the whole drawing.
    void ZoomExtents();
    /// Zooms by @p factor keeping the map point under @p screen in place.
    void ZoomAt(const QPointF& screen, double factor);
    const ViewTransform& GetTransform() const { return view_; }
    /// Draws the drawing again: for changes that come without a notification
    /// (a grid edited in place). Notified changes redraw by themselves.
    void Redraw();
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

    CVELD* cad_;
    int listener_ = 0;
    CGrid grid_;
    int preset_ = 1;
    bool colorSelected_ = true;
    ViewTransform view_;
    const veld::CData* shownData_ = nullptr;  // zoomed to extents for this drawing
    QPointF pressAt_;
    bool pressed_ = false;
    bool panning_ = false;
    bool moved_ = false;  // panned or zoomed since the last zoom to extents
    QPointF pointer_;
    bool pointerIn_ = false;
    QPixmap picture_;  // the drawing as last drawn, under the cross-hair
    bool pictureValid_ = false;
};

/// The grid the dialogs edit in place.
const CGrid& GetViewGrid(const CVELDView* view);
CGrid& GetViewGridForEdit(CVELDView* view);
/// Sets the preset view direction 1..10; other numbers are ignored.
void SetPresetView(CVELDView* view, int preset);
