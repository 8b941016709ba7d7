#include "LtypePreview.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPalette>
#include <cmath>

#include "LtypePreview_p.h"
#include "ulo/PalmDevice.h"
#include "veld/Ltype.h"

namespace {

QColor WindowTextColour() {
    return QGuiApplication::palette().color(QPalette::Text);
}

/// Puts a 1-pixel solid pen of @p ink into @p dc for its lifetime when
/// @p select is true. Antialiasing goes off with it: a 1-pixel line on
/// whole-pixel coordinates would otherwise smear over two rows.
class PenSelection {
public:
    PenSelection(QPainter* dc, bool select, const QColor& ink) : dc_(select ? dc : nullptr) {
        if (!dc_)
            return;
        savedPen_ = dc_->pen();
        savedAntialiasing_ = dc_->testRenderHint(QPainter::Antialiasing);
        QPen pen(ink, 1, Qt::SolidLine, Qt::FlatCap);
        // A flat cap leaves the end point out, so consecutive dashes meet
        // without overlapping, as LineTo did.
        pen.setCosmetic(true);
        dc_->setPen(pen);
        dc_->setRenderHint(QPainter::Antialiasing, false);
    }
    ~PenSelection() {
        if (!dc_)
            return;
        dc_->setPen(savedPen_);
        dc_->setRenderHint(QPainter::Antialiasing, savedAntialiasing_);
    }
    PenSelection(const PenSelection&) = delete;
    PenSelection& operator=(const PenSelection&) = delete;

private:
    QPainter* dc_;
    QPen savedPen_;
    bool savedAntialiasing_ = false;
};

/// Draws along one row: the line from the current position is only issued
/// when something interrupts it, so a run of dashes costs one call.
class Pencil {
public:
    Pencil(QPainter* dc, int y, long long x, const QColor& ink)
        : dc_(dc), y_(y), x_(x), ink_(ink) {}
    ~Pencil() { Flush(); }
    Pencil(const Pencil&) = delete;
    Pencil& operator=(const Pencil&) = delete;

    void LineTo(long long x) {
        if (x <= x_)
            return;
        if (!inRun_) {
            inRun_ = true;
            runStart_ = x_;
        }
        x_ = x;
    }
    void MoveTo(long long x) {
        Flush();
        x_ = x;
    }
    void Dot() {
        Flush();
        // Elements finer than a pixel put several dots on one pixel.
        if (dotted_ && x_ == lastDot_)
            return;
        dotted_ = true;
        lastDot_ = x_;
        dc_->fillRect(QRect(static_cast<int>(x_), y_, 1, 1), ink_);
    }

private:
    void Flush() {
        if (!inRun_)
            return;
        dc_->drawLine(QPoint(static_cast<int>(runStart_), y_), QPoint(static_cast<int>(x_), y_));
        inRun_ = false;
    }
    QPainter* dc_;
    int y_;
    long long x_;
    QColor ink_;
    bool inRun_ = false;
    long long runStart_ = 0;
    bool dotted_ = false;
    long long lastDot_ = 0;
};

/// Whole pixels an element of @p pixels covers, at most @p room. Anything
/// that is not a number of at least one pixel (NaN from 0 x infinity
/// included) covers none.
long long PixelStep(double pixels, long long room) {
    if (!(pixels >= 1.0))
        return 0;
    if (pixels >= static_cast<double>(room))
        return room;
    return static_cast<long long>(pixels);
}

}  // namespace

namespace veld5 {

bool WalkLtypePreview(const veld::CLtype& ltype, long long start, long long end, int repeats,
                      const std::function<bool(const PreviewStep&)>& visit) {
    if (end - start < 1)
        return true;
    const unsigned count = ltype.GetNoDashes();
    if (count == 0)
        return visit({PreviewStep::kLine, end});
    const double length = ltype.GetPatternLen();
    double scale = static_cast<double>(end - start) / (static_cast<double>(repeats) * length);
    if (length < 10.0)
        scale /= 2.0;
    // Written as "not at least one" so that a NaN (a pattern of zero length
    // gives 0 x infinity) counts as too fine as well.
    if (!(std::floor(length * scale / count) >= 1.0))
        return visit({PreviewStep::kLine, end});

    // Each element covers the same pixels on every round, so a round that
    // moves nothing would repeat for ever: its elements are all finer than a
    // pixel, and the rest of the line is drawn solid as for a fine pattern.
    long long x = start;
    unsigned i = 0;
    bool moved = false;
    while (x < end) {
        const veld::ILtypeComplexDash* dash = ltype.GetDash(i);
        if (dash && dash->IsDouble()) {
            const double v = dash->GetDouble();
            const long long step = PixelStep(std::fabs(v) * scale, end - x);
            moved = moved || step > 0;
            x += step;
            const PreviewStep::Kind kind = v > 0    ? PreviewStep::kLine
                                           : v == 0 ? PreviewStep::kDot
                                                    : PreviewStep::kMove;
            if (!visit({kind, x}))
                return false;
        }
        if (++i == count) {
            if (!moved)
                return visit({PreviewStep::kLine, end});
            i = 0;
            moved = false;
        }
    }
    return true;
}

}  // namespace veld5

void DrawLtypePreview(CVELD* /*cad*/, QPainter* dc, const veld::CLtype* ltype, int left, int right,
                      int top, int bottom, int repeats, bool selectPen) {
    if (!dc || !ltype)
        return;
    const long long margin = 2LL * CPalmDevice::GetResMultiplier();
    // 64 bits: the margins and the width must not wrap around for cells at
    // the ends of the int range.
    const long long start = static_cast<long long>(left) + margin;
    const long long end = static_cast<long long>(right) - margin;
    if (end - start < 1)
        return;
    const int y = static_cast<int>((static_cast<long long>(top) + bottom) / 2);

    const QColor ink = WindowTextColour();
    const PenSelection pen(dc, selectPen, ink);
    Pencil pencil(dc, y, start, ink);
    veld5::WalkLtypePreview(*ltype, start, end, repeats, [&pencil](const veld5::PreviewStep& s) {
        switch (s.kind) {
            case veld5::PreviewStep::kLine:
                pencil.LineTo(s.x);
                break;
            case veld5::PreviewStep::kMove:
                pencil.MoveTo(s.x);
                break;
            case veld5::PreviewStep::kDot:
                pencil.Dot();
                break;
        }
        return true;
    });
}
