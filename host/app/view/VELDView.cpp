#include "VELDView.h"

#include <QGestureEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPinchGesture>
#include <QRegion>
#include <cmath>

#include "app/VELD.h"

namespace {
constexpr double kDragStart = 6.0;  // pixels a press moves before it pans
}

CVELDView::CVELDView(CVELD* cad, QWidget* parent) : QWidget(parent), cad_(cad) {
    setMouseTracking(true);
    setAttribute(Qt::WA_AcceptTouchEvents);
    grabGesture(Qt::PinchGesture);
    view_.size = size();
    if (!cad_)
        return;
    cad_->AttachView(this, this);
    listener_ = cad_->AddChangeListener([this](CVELD::Change why) {
        if (why == CVELD::Change::Selection)
            Repaint();
        else
            Redraw();
    });
}

CVELDView::~CVELDView() {
    ForgetVELD();
}

void CVELDView::ForgetVELD() {
    if (!cad_)
        return;
    cad_->RemoveChangeListener(listener_);
    cad_->DetachView(this);
    cad_ = nullptr;
}

void CVELDView::ZoomExtents() {
    view_.size = size();
    if (!cad_)
        return;
    shownData_ = cad_->GetData();
    moved_ = false;
    const QRectF box = drawingrender::Extents(*cad_, index_);
    if (box.width() <= 0 && box.height() <= 0) {
        view_.centre = box.center();  // nothing, or one point
        view_.zoom = 4.0;
    } else {
        view_.centre = box.center();
        const double w = std::max(box.width(), 1e-6), h = std::max(box.height(), 1e-6);
        view_.zoom = std::max(1e-6, 0.92 * std::min(width() / w, height() / h));
    }
    Repaint();
}

void CVELDView::Redraw() {
    index_.Invalidate();
    Repaint();
}

void CVELDView::Repaint() {
    pictureValid_ = false;
    update();
}

void CVELDView::ZoomAt(const QPointF& screen, double factor) {
    const QPointF before = view_.ToMap(screen);
    view_.zoom = std::clamp(view_.zoom * factor, 1e-6, 1e6);
    const QPointF after = view_.ToMap(screen);
    view_.centre += before - after;
    moved_ = true;
    Repaint();
}

veld::CEnt* CVELDView::EntityAt(const QPointF& screen) const {
    if (!cad_)
        return nullptr;
    const double tolerance = std::max<double>(4.0, static_cast<double>(GetDeltaPick(cad_)) * 2);
    return drawingrender::Pick(*cad_, index_, view_, screen, tolerance);
}

void CVELDView::paintEvent(QPaintEvent*) {
    if (!cad_)
        return;
    if (shownData_ != cad_->GetData())
        ZoomExtents();
    view_.size = size();
    const qreal ratio = devicePixelRatioF();
    if (!pictureValid_ || picture_.size() != size() * ratio) {
        // The drawing is drawn again only when it, its settings or the view
        // changed; pointer moves reuse the picture.
        picture_ = QPixmap(size() * ratio);
        picture_.setDevicePixelRatio(ratio);
        QPainter p(&picture_);
        drawingrender::Paint(p, *cad_, GetGrid(), view_, index_);
        pictureValid_ = true;
    } else if (!shift_.isNull()) {
        // A pan: what stays in sight moves, the strips it uncovers are drawn.
        QRegion uncovered;
        picture_.scroll(shift_.x(), shift_.y(), picture_.rect(), &uncovered);
        QPainter p(&picture_);
        for (const QRect& r : uncovered)
            drawingrender::Paint(p, *cad_, GetGrid(), view_, index_,
                                 QRectF(QPointF(r.topLeft()) / ratio, QSizeF(r.size()) / ratio));
    }
    shift_ = QPoint();
    QPainter painter(this);
    painter.drawPixmap(0, 0, picture_);
    if (pointerIn_) {
        // The cross-hair and the pick box at the pointer, as the settings size them.
        const GColor c = GetClrLogCrossHair(cad_);
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.setPen(QColor(c.Red(), c.Green(), c.Blue()));
        const double arm = static_cast<double>(GetCrossDim(cad_));
        const double box = static_cast<double>(GetDeltaPick(cad_));
        painter.drawLine(pointer_ - QPointF(arm, 0), pointer_ + QPointF(arm, 0));
        painter.drawLine(pointer_ - QPointF(0, arm), pointer_ + QPointF(0, arm));
        painter.drawRect(QRectF(pointer_ - QPointF(box, box), QSizeF(2 * box, 2 * box)));
    }
}

void CVELDView::leaveEvent(QEvent*) {
    pointerIn_ = false;
    update();
}

void CVELDView::resizeEvent(QResizeEvent*) {
    view_.size = size();
    pictureValid_ = false;
    if (!moved_)
        ZoomExtents();  // keep the whole drawing in sight until the user moves
}

void CVELDView::MoveCrossHairTo(double east, double north) {
    if (!std::isfinite(east) || !std::isfinite(north))
        return;
    QPointF at = view_.ToScreen(east, north);
    if (!rect().contains(at.toPoint())) {
        view_.centre = QPointF(east, north);
        moved_ = true;
        pictureValid_ = false;
        at = view_.ToScreen(east, north);
    }
    pointer_ = at;
    pointerIn_ = true;
    update();
    Q_EMIT PointerMoved(east, north);
}

void CVELDView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton)
        return;
    pressed_ = true;
    panning_ = false;
    pressAt_ = event->position();
}

void CVELDView::mouseMoveEvent(QMouseEvent* event) {
    const QPointF at = event->position();
    const QPointF map = view_.ToMap(at);
    pointer_ = at;
    pointerIn_ = true;
    update();  // the cross-hair only: the drawing's picture stays
    Q_EMIT PointerMoved(map.x(), map.y());
    if (!pressed_)
        return;
    if (!panning_ && QLineF(pressAt_, at).length() < kDragStart)
        return;
    panning_ = true;
    moved_ = true;
    // The picture moves by whole device pixels and the map by as much; the
    // rest of the drag is left for the next move.
    const qreal ratio = devicePixelRatioF();
    const QPoint shift = ((at - pressAt_) * ratio).toPoint();
    if (shift.isNull())
        return;
    const QPointF moved = QPointF(shift) / ratio;
    view_.centre -= QPointF(moved.x() / view_.zoom, -moved.y() / view_.zoom);
    pressAt_ += moved;
    shift_ += shift;
}

void CVELDView::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !pressed_)
        return;
    pressed_ = false;
    if (!panning_)
        Tap(event->position());
    panning_ = false;
}

void CVELDView::wheelEvent(QWheelEvent* event) {
    const double steps = event->angleDelta().y() / 120.0;
    if (steps != 0)
        ZoomAt(event->position(), std::pow(1.25, steps));
}

bool CVELDView::event(QEvent* event) {
    if (event->type() == QEvent::Gesture) {
        auto* g = static_cast<QGestureEvent*>(event);
        if (auto* pinch = static_cast<QPinchGesture*>(g->gesture(Qt::PinchGesture))) {
            ZoomAt(mapFromGlobal(pinch->centerPoint().toPoint()), pinch->scaleFactor());
            pressed_ = false;  // the fingers zoom; their touch is not a tap
            return true;
        }
    }
    return QWidget::event(event);
}

void CVELDView::Tap(const QPointF& screen) {
    if (!cad_)
        return;
    if (veld::CEnt* e = EntityAt(screen)) {
        if (GetSelectedEntCollection(cad_).Contains(e))
            NtfyDeselectedEnt(cad_, e);
        else
            NtfySelectedEnt(cad_, e);
    } else {
        NtfyDeselectAll(cad_);
    }
}

CVELD* GetViewVELD(const CVELDView* view) {
    return view ? view->GetVELD() : nullptr;
}
const CGrid& GetViewGrid(const CVELDView* view) {
    return view->GetGrid();
}
CGrid& GetViewGridForEdit(CVELDView* view) {
    return view->GetGrid();
}
void SetPresetView(CVELDView* view, int preset) {
    if (view && preset >= 1 && preset <= 10)
        view->SetPresetView(preset);
}
void SetDoColorSelectedEnts(CVELDView* view, bool on) {
    if (view)
        view->SetColorSelected(on);
}
