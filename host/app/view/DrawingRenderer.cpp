#include "DrawingRenderer.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <unordered_set>

#include "app/VELD.h"
#include "veld/Colors.h"

namespace drawingrender {

namespace {

using ulo::geom::PNT_3D;

constexpr double kPi = 3.14159265358979323846;
/// Texts lower than this many pixels are drawn as a point.
constexpr double kLowestText = 2.5;

QColor fromGColor(GColor c) {
    return QColor(c.Red(), c.Green(), c.Blue());
}

bool layerShown(const veld::CLayer* layer) {
    return !layer || (!layer->IsOff() && !layer->IsFrozen());
}

/// The colour index an entity is drawn in: its set's when the set has one,
/// its layer's for ByLayer, white for ByBlock.
int colourIndex(const veld::CEnt& e) {
    const veld::CDrawing* set = e.GetDrawing();
    if (set && set->UseColor())
        return static_cast<int>(set->GetColor());
    const int index = e.GetColor();
    if (index == 256)
        return e.GetLayer() ? e.GetLayer()->GetColor() : 7;
    return index == 0 ? 7 : index;
}

/// The colour of a colour index. White (7) turns black on a light
/// background, as it does on paper.
QColor indexColour(CVELD& cad, int index) {
    if (index == 7) {
        const QColor bg = fromGColor(GetClrGrphWndBkGrnd(&cad));
        return bg.lightness() > 128 ? QColor(Qt::black) : QColor(Qt::white);
    }
    return fromGColor(GColor(veld::IndexToRGB(index)));
}

QColor entityColour(CVELD& cad, const veld::CEnt& e) {
    return indexColour(cad, colourIndex(e));
}

/// The colours of one picture's marks, each index worked out once.
class Palette {
public:
    explicit Palette(CVELD& cad) : cad_(cad) {}
    QRgb operator()(const veld::CEnt& e) {
        const int index = colourIndex(e);
        if (index < 0 || index >= static_cast<int>(rgb_.size()))
            return indexColour(cad_, index).rgb();
        QRgb& c = rgb_[static_cast<std::size_t>(index)];
        if (!c)
            c = indexColour(cad_, index).rgb();  // opaque: never 0 once known
        return c;
    }

private:
    CVELD& cad_;
    std::array<QRgb, 257> rgb_{};
};

const veld::CLtype* entityLtype(const veld::CEnt& e) {
    const veld::CLtype* t = e.GetLtype();
    if (t && t->IsByLayer())
        t = e.GetLayer() ? e.GetLayer()->GetLtype() : nullptr;
    if (t && (t->IsByBlock() || t->IsByLayer()))
        t = nullptr;  // no block here: drawn solid
    return t;
}

/// The points of an entity's outline on the map (a circle as a polygon).
std::vector<PNT_3D> outline(const veld::CEnt& e) {
    if (e.GetKind() == veld::EntKind::Circle) {
        std::vector<PNT_3D> pts;
        const PNT_3D c = e.GetPoints().front();
        const int n = 72;
        for (int i = 0; i <= n; ++i) {
            const double a = 2 * kPi * i / n;
            pts.push_back(
                {c.x + e.GetRadius() * std::cos(a), c.y + e.GetRadius() * std::sin(a), c.z});
        }
        return pts;
    }
    std::vector<PNT_3D> pts = e.GetPoints();
    if (e.IsClosed() && pts.size() > 2)
        pts.push_back(pts.front());
    return pts;
}

QFont textFont(const veld::CStyle* style, double pixelHeight, double widthFactor) {
    QFont font;
    const veld::ICADFont* f = style ? style->GetFont() : nullptr;
    if (f && f->IsTrueType())
        font.setFamily(f->GetName().ToQString());
    else
        font.setStyleHint(QFont::SansSerif);
    // Clamped before the conversions: a drawing may hold any finite size.
    font.setPixelSize(static_cast<int>(std::lround(std::clamp(pixelHeight, 1.0, 1e5))));
    font.setStretch(static_cast<int>(std::clamp(widthFactor * 100, 1.0, 4000.0)));
    if (style) {
        font.setBold(style->IsBold());
        font.setItalic(style->IsItalic() || style->GetOblique() != 0.0);
    }
    return font;
}

/// Draws @p text with its insertion point at @p at, turned by @p rotation
/// (radians, counterclockwise) and placed by the alignment code (0 left,
/// 1 centre, 2 right on the base line; 4 middle; 6-8 top; 9, 10 middle;
/// 11 bottom centre).
void drawText(QPainter& p, const QString& text, const QFont& font, QPointF at, double rotation,
              unsigned align) {
    const QFontMetricsF m(font);
    const double w = m.horizontalAdvance(text);
    double dx = 0, dy = 0;
    switch (align) {
        case 1:
        case 7:
        case 11:
        case 4:
            dx = -w / 2;
            break;
        case 2:
        case 8:
        case 10:
            dx = -w;
            break;
        default:
            break;
    }
    switch (align) {
        case 6:
        case 7:
        case 8:
            dy = m.ascent();
            break;
        case 4:
        case 9:
        case 10:
            dy = m.ascent() / 2;
            break;
        case 11:
            dy = -m.descent();
            break;
        default:
            break;
    }
    p.save();
    p.translate(at);
    p.rotate(-rotation * 180 / kPi);
    p.setFont(font);
    p.drawText(QPointF(dx, dy), text);
    p.restore();
}

/// Strokes a screen polyline with a line type pattern (screen units).
void strokePattern(QPainter& p, const std::vector<QPointF>& pts, const veld::CLtype& ltype,
                   double unit) {
    double total = 0;
    for (unsigned i = 0; i < ltype.GetNoDashes(); ++i) {
        const veld::ILtypeComplexDash* d = ltype.GetDash(i);
        if (d->IsDouble())
            total += std::fabs(d->GetDouble()) * unit;
    }
    double length = 0;
    for (size_t i = 1; i < pts.size(); ++i)
        length += QLineF(pts[i - 1], pts[i]).length();
    // Too fine to show, or so many repetitions that they would blur, or too
    // large to measure: solid.
    if (!std::isfinite(unit) || !(total >= 3.0) || !(length / total <= 5000)) {
        p.drawPolyline(pts.data(), static_cast<int>(pts.size()));
        return;
    }
    size_t seg = 1;
    double segPos = 0;  // distance walked along the current segment
    unsigned element = 0;
    const auto pointAt = [&](size_t s, double d) {
        const QLineF line(pts[s - 1], pts[s]);
        return line.length() > 0 ? line.pointAt(d / line.length()) : pts[s - 1];
    };
    while (seg < pts.size()) {
        const veld::ILtypeComplexDash* d = ltype.GetDash(element);
        element = (element + 1) % ltype.GetNoDashes();
        if (const veld::TEXT_3D* t = d->GetText()) {
            const QLineF line(pts[seg - 1], pts[seg]);
            const double angle = std::atan2(-(line.dy()), line.dx());
            const QPointF at = pointAt(seg, segPos);
            const veld::CTextContext& c = t->GetContext();
            const double h = c.GetHeight() * unit;
            if (h >= 3.0) {
                const double ox = t->GetPoint().x * unit, oy = t->GetPoint().y * unit;
                const QPointF shifted(at.x() + ox * std::cos(angle) + oy * std::sin(angle),
                                      at.y() - ox * std::sin(angle) + oy * std::cos(angle));
                drawText(p, c.GetString().ToQString(),
                         textFont(t->GetStyle(), h, c.GetWidthFactor()), shifted,
                         angle + c.GetRotate(), 0);
            }
            continue;
        }
        double run = std::fabs(d->GetDouble()) * unit;
        const bool pen = d->GetDouble() >= 0;
        if (run == 0) {
            if (pen)
                p.drawPoint(pointAt(seg, segPos));
            continue;
        }
        QPolygonF piece{pointAt(seg, segPos)};
        while (run > 0 && seg < pts.size()) {
            const double left = QLineF(pts[seg - 1], pts[seg]).length() - segPos;
            if (run < left) {
                segPos += run;
                piece << pointAt(seg, segPos);
                run = 0;
            } else {
                run -= left;
                piece << pts[seg];
                ++seg;
                segPos = 0;
            }
        }
        if (pen && piece.size() > 1)
            p.drawPolyline(piece);
    }
}

void paintGrid(QPainter& p, CVELD& cad, const CGrid& grid, const ViewTransform& view,
               const QRectF& area) {
    if (!grid.IsGridActive())
        return;
    double be, bn, se, sn, angle, ge, gn;
    grid.GetSnap(be, bn, se, sn, angle);
    grid.GetGrid(ge, gn);
    if (grid.IsGridBySnap()) {
        ge = se;
        gn = sn;
    }
    ge = std::fabs(ge);
    gn = std::fabs(gn);
    if (ge * view.zoom < 6 || gn * view.zoom < 6)
        return;  // denser than the screen can show
    // The points of the area and those whose dot reaches into it.
    const QRectF reach = area.adjusted(-2, -2, 2, 2);
    const QPointF lo = view.ToMap(reach.bottomLeft());
    const QPointF hi = view.ToMap(reach.topRight());
    // Points by their number along each axis: far from the base, adding an
    // interval to a coordinate may not change it, and the walk must end.
    const double firstE = std::ceil((lo.x() - be) / ge), lastE = std::floor((hi.x() - be) / ge);
    const double firstN = std::ceil((lo.y() - bn) / gn), lastN = std::floor((hi.y() - bn) / gn);
    if (!(lastE - firstE < 1e5) || !(lastN - firstN < 1e5))
        return;  // numbers too large to tell the points apart
    p.setPen(QPen(fromGColor(GetClrGrid(&cad)), 1.5));
    for (double i = firstE; i <= lastE; ++i)
        for (double j = firstN; j <= lastN; ++j)
            p.drawPoint(view.ToScreen(be + i * ge, bn + j * gn));
}

void paintEntity(QPainter& p, CVELD& cad, const veld::CEnt& e, const ViewTransform& view,
                 bool selected) {
    QColor colour = entityColour(cad, e);
    double width = 1.2;
    if (selected) {
        if (DoColorSelectedEnts())
            colour = fromGColor(GetClrEntSelected(&cad));
        width = 2.6;
    }
    p.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap));
    p.setBrush(Qt::NoBrush);
    switch (e.GetKind()) {
        case veld::EntKind::Point: {
            const QPointF c = view.ToScreen(e.GetPoints().front().x, e.GetPoints().front().y);
            p.drawLine(c - QPointF(3, 3), c + QPointF(3, 3));
            p.drawLine(c - QPointF(3, -3), c + QPointF(3, -3));
            return;
        }
        case veld::EntKind::Text: {
            const auto& t = static_cast<const veld::CEntText&>(e);
            const veld::TEXT_3D text = t.GetText();
            const double h = text.GetContext().GetHeight() * view.zoom;
            const QPointF at = view.ToScreen(text.GetPoint().x, text.GetPoint().y);
            if (h < kLowestText) {
                p.drawPoint(at);
                return;
            }
            p.setPen(colour);
            drawText(p, t.GetString().ToQString(),
                     textFont(t.GetStyle(), h, text.GetContext().GetWidthFactor()), at,
                     text.GetContext().GetRotate(), t.GetAlignment());
            return;
        }
        default:
            break;
    }
    std::vector<QPointF> pts;
    for (const PNT_3D& m : outline(e))
        pts.push_back(view.ToScreen(m.x, m.y));
    if (pts.size() < 2)
        return;
    const veld::CLtype* ltype = entityLtype(e);
    if (ltype && ltype->GetNoDashes() > 0)
        strokePattern(p, pts, *ltype, GetLtypeScale(&cad) * view.zoom);
    else
        p.drawPolyline(pts.data(), static_cast<int>(pts.size()));
}

double distanceToSegment(const QPointF& p, const QPointF& a, const QPointF& b) {
    const QPointF ab = b - a;
    const double len2 = QPointF::dotProduct(ab, ab);
    const double t = len2 > 0 ? std::clamp(QPointF::dotProduct(p - a, ab) / len2, 0.0, 1.0) : 0.0;
    const QPointF d = p - (a + t * ab);
    return std::hypot(d.x(), d.y());
}

/// Shown as the entity iterator of the drawing has it (the set present and
/// visible) on a layer that is neither off nor frozen.
bool shown(CVELD& cad, const veld::CEnt& e) {
    const veld::CDrawing* set = e.GetDrawing();
    return set && set->IsVisible() && layerShown(e.GetLayer()) &&
           cad.GetData()->GetDrawingManager()->IsDrawingPresent(set);
}

/// Premultiplied @p colour over @p under at coverage @p alpha (0..255): two
/// channels at a time, each sum of products divided by 255 (as x + x / 256,
/// rounded, over 256).
QRgb over(QRgb under, QRgb colour, unsigned alpha) {
    const unsigned rest = 255 - alpha;
    unsigned rb = (colour & 0xFF00FFu) * alpha + (under & 0xFF00FFu) * rest;
    rb = ((rb + ((rb >> 8) & 0xFF00FFu) + 0x800080u) >> 8) & 0xFF00FFu;
    unsigned ag = ((colour >> 8) & 0xFF00FFu) * alpha + ((under >> 8) & 0xFF00FFu) * rest;
    ag = (ag + ((ag >> 8) & 0xFF00FFu) + 0x800080u) & 0xFF00FF00u;
    return ag | rb;
}

/// Marks the painter would take too long over, one by one: a pixel for an
/// entity smaller than a pixel, a point's cross. They go straight into an
/// image of the painted area in device pixels; Flush lays what was marked
/// onto the picture and clears it. Paint flushes before each entity the
/// painter draws, so that marks and painted entities keep the drawing order.
class Marks {
public:
    Marks(QPainter& p, const QRectF& area)
        : p_(p),
          ratio_(p.device()->devicePixelRatio()),
          device_(QRectF(area.topLeft() * ratio_, area.size() * ratio_).toAlignedRect()) {}

    /// Device pixels to a window pixel.
    double Ratio() const { return ratio_; }

    /// One pixel at @p at (window coordinates).
    void Dot(const QPointF& at, QRgb colour) {
        int x, y;
        if (!pixel(at, x, y))
            return;
        pixels()[y * pitch_ + x] = colour;
        touch(x, y, x, y);
    }

    /// A point's cross (as paintEntity draws it: arms of 3 pixels, a pen of
    /// 1.2, smoothed) centred on the pixel of @p at.
    void Cross(const QPointF& at, QRgb colour) {
        if (cross_.empty())
            makeCross();
        int cx, cy;
        pixel(at, cx, cy);
        const int w = device_.width(), h = device_.height();
        if (cx + crossReach_ < 0 || cy + crossReach_ < 0 || cx - crossReach_ >= w ||
            cy - crossReach_ >= h)
            return;
        // Most crosses lie wholly inside: their pixels need no test.
        const bool inside =
            cx >= crossReach_ && cy >= crossReach_ && cx + crossReach_ < w && cy + crossReach_ < h;
        QRgb* const image = pixels();
        for (const Stamp& s : cross_) {
            const int x = cx + s.dx, y = cy + s.dy;
            if (inside || (x >= 0 && y >= 0 && x < w && y < h)) {
                QRgb& d = image[y * pitch_ + x];
                d = over(d, colour, s.alpha);
            }
        }
        touch(std::max(cx - crossReach_, 0), std::max(cy - crossReach_, 0),
              std::min(cx + crossReach_, w - 1), std::min(cy + crossReach_, h - 1));
    }

    void Flush() {
        if (x1_ < x0_)
            return;
        const QRect dirty(QPoint(x0_, y0_), QPoint(x1_, y1_));
        p_.drawImage(QPointF(device_.topLeft() + dirty.topLeft()) / ratio_, image_, dirty);
        for (int y = y0_; y <= y1_; ++y)
            std::fill_n(pixels() + y * pitch_ + x0_, x1_ - x0_ + 1, 0u);
        x0_ = y0_ = 0;
        x1_ = y1_ = -1;
    }

private:
    struct Stamp {
        int dx, dy;
        unsigned alpha;
    };

    /// The image pixel of @p at; false when it lies outside the area.
    bool pixel(const QPointF& at, int& x, int& y) const {
        const double px = std::floor(at.x() * ratio_) - device_.x();
        const double py = std::floor(at.y() * ratio_) - device_.y();
        // Clamped first: a point far outside must not overflow an int.
        x = static_cast<int>(std::clamp(px, -1e6, 1e6));
        y = static_cast<int>(std::clamp(py, -1e6, 1e6));
        return x >= 0 && y >= 0 && x < device_.width() && y < device_.height();
    }
    QRgb* pixels() {
        if (!pixels_) {
            image_ = QImage(device_.size(), QImage::Format_ARGB32_Premultiplied);
            image_.fill(0);
            image_.setDevicePixelRatio(ratio_);
            // Taken once: bits() and scanLine() look for a copy to detach at every call.
            pixels_ = reinterpret_cast<QRgb*>(image_.bits());
            pitch_ = image_.bytesPerLine() / 4;
        }
        return pixels_;
    }
    void touch(int x0, int y0, int x1, int y1) {
        const bool none = x1_ < x0_;
        x0_ = none ? x0 : std::min(x0_, x0);
        y0_ = none ? y0 : std::min(y0_, y0);
        x1_ = none ? x1 : std::max(x1_, x1);
        y1_ = none ? y1 : std::max(y1_, y1);
    }
    void makeCross() {
        const double arm = 3 * ratio_, pen = 1.2 * ratio_;
        crossReach_ = static_cast<int>(std::ceil(arm + pen));
        const int side = 2 * crossReach_ + 1;
        QImage sprite(side, side, QImage::Format_ARGB32_Premultiplied);
        sprite.fill(0);
        QPainter s(&sprite);
        s.setRenderHint(QPainter::Antialiasing);
        s.setPen(QPen(Qt::black, pen, Qt::SolidLine, Qt::RoundCap));
        const QPointF c(crossReach_ + 0.5, crossReach_ + 0.5);
        s.drawLine(c - QPointF(arm, arm), c + QPointF(arm, arm));
        s.drawLine(c - QPointF(arm, -arm), c + QPointF(arm, -arm));
        s.end();
        for (int y = 0; y < side; ++y)
            for (int x = 0; x < side; ++x)
                if (const int a = qAlpha(sprite.pixel(x, y)))
                    cross_.push_back({x - crossReach_, y - crossReach_, static_cast<unsigned>(a)});
    }

    QPainter& p_;
    double ratio_;
    QRect device_;  // the area in device pixels
    QImage image_;  // made at the first mark
    QRgb* pixels_ = nullptr;
    qsizetype pitch_ = 0;                      // pixels from one line to the next
    int x0_ = 0, y0_ = 0, x1_ = -1, y1_ = -1;  // what was marked since the last flush
    std::vector<Stamp> cross_;
    int crossReach_ = 0;
};

/// How far an entity may draw outside its box, in pixels: a point's cross
/// and the pen of a selected entity, smoothed.
constexpr double kMarginPixels = 6.0;

/// True when the entity is drawn as one pixel: it is smaller than one
/// (@p pixel on the map), or a text too low to read (as paintEntity has it).
bool drawnAsDot(const CDrawingIndex::Entry& entry, double pixel, double zoom) {
    const Box& b = entry.box;
    if (b.x1 - b.x0 < pixel && b.y1 - b.y0 < pixel)
        return true;
    if (entry.ent->GetKind() != veld::EntKind::Text)
        return false;
    // A text's box is at least four of its heights wide: while a quarter of
    // it is too low to read, so is the text, and it need not be copied out.
    if ((b.x1 - b.x0) / 4 * zoom < kLowestText)
        return true;
    const auto* t = static_cast<const veld::CEntText*>(entry.ent);
    return t->GetText().GetContext().GetHeight() * zoom < kLowestText;
}

}  // namespace

void Paint(QPainter& p, CVELD& cad, const CGrid& grid, const ViewTransform& view,
           CDrawingIndex& index, const QRectF& area) {
    const QRectF window(QPointF(0, 0), view.size);
    const QRectF part = area.isEmpty() ? window : area;
    p.save();
    if (part != window)
        p.setClipRect(part);
    p.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    p.fillRect(part, fromGColor(GetClrGrphWndBkGrnd(&cad)));
    for (int i = 0; i < cad.GetNoImages(); ++i) {
        const CVELDImage* image = cad.GetImage(i);
        if (!image->GetImage() || image->GetImage()->GetQImage().isNull())
            continue;
        const QRectF target(view.ToScreen(image->GetXMin(), image->GetYMax()),
                            view.ToScreen(image->GetXMax(), image->GetYMin()));
        p.setOpacity(0.55);
        p.drawImage(target, image->GetImage()->GetQImage());
        p.setOpacity(1.0);
    }
    paintGrid(p, cad, grid, view, part);
    // Selected entities are drawn last, on top of the others; the selection is
    // looked up once per picture, not searched for every entity.
    const veld::CEntCollection& selection = GetSelectedEntCollection(&cad);
    std::unordered_set<const veld::CEnt*> selected;
    for (unsigned i = 0; i < selection.GetNoEnts(); ++i)
        selected.insert(selection.GetEnt(i));
    // The entities whose box meets the area grown by what may stand outside
    // a box: the margin in pixels and the texts of line types.
    index.Sync(*cad.GetData());
    double grow = kMarginPixels / view.zoom + index.PatternReach() * std::fabs(GetLtypeScale(&cad));
    if (std::isnan(grow))
        grow = std::numeric_limits<double>::infinity();  // reaching anywhere
    const QPointF lo = view.ToMap(part.bottomLeft()), hi = view.ToMap(part.topRight());
    const std::vector<std::uint32_t>& found =
        index.Find({lo.x() - grow, lo.y() - grow, hi.x() + grow, hi.y() + grow});
    Marks marks(p, part);
    Palette palette(cad);
    const double pixel = 1 / (view.zoom * marks.Ratio());
    std::vector<const veld::CEnt*> chosen;
    for (const std::uint32_t k : found) {
        const CDrawingIndex::Entry& entry = index.Entries()[k];
        const veld::CEnt& e = *entry.ent;
        if (!shown(cad, e))
            continue;
        if (!selected.empty() && selected.count(&e)) {
            chosen.push_back(&e);
        } else if (e.GetKind() == veld::EntKind::Point) {
            const PNT_3D& at = e.GetPoints().front();
            marks.Cross(view.ToScreen(at.x, at.y), palette(e));
        } else if (drawnAsDot(entry, pixel, view.zoom)) {
            const Box& b = entry.box;
            marks.Dot(view.ToScreen((b.x0 + b.x1) / 2, (b.y0 + b.y1) / 2), palette(e));
        } else {
            marks.Flush();
            paintEntity(p, cad, e, view, false);
        }
    }
    marks.Flush();
    for (const veld::CEnt* e : chosen)
        paintEntity(p, cad, *e, view, true);
    p.restore();
}

veld::CEnt* Pick(CVELD& cad, CDrawingIndex& index, const ViewTransform& view, const QPointF& screen,
                 double tolerance) {
    index.Sync(*cad.GetData());
    const QPointF map = view.ToMap(screen);
    const double reach = tolerance / view.zoom;
    const std::vector<std::uint32_t>& found =
        index.Find({map.x() - reach, map.y() - reach, map.x() + reach, map.y() + reach});
    veld::CEnt* best = nullptr;
    double bestDistance = tolerance;
    for (const std::uint32_t k : found) {
        veld::CEnt* e = index.Entries()[k].ent;
        if (!shown(cad, *e))
            continue;
        double d = 1e300;
        if (e->GetKind() == veld::EntKind::Text) {
            const auto* t = static_cast<const veld::CEntText*>(e);
            const PNT_3D at = e->GetPoints().front();
            const double h = t->GetText().GetContext().GetHeight();
            const QPointF a = view.ToScreen(at.x, at.y);
            const QPointF b = view.ToScreen(at.x + h * 0.6 * t->GetString().Length(), at.y + h);
            const QRectF box = QRectF(a, b).normalized();
            d = box.contains(screen) ? 0.0 : 1e300;
        } else {
            const auto pts = outline(*e);
            if (pts.size() == 1) {
                const QPointF c = view.ToScreen(pts[0].x, pts[0].y);
                d = std::hypot(c.x() - screen.x(), c.y() - screen.y());
            }
            for (size_t i = 1; i < pts.size(); ++i)
                d = std::min(d, distanceToSegment(screen, view.ToScreen(pts[i - 1].x, pts[i - 1].y),
                                                  view.ToScreen(pts[i].x, pts[i].y)));
        }
        if (d <= bestDistance) {
            bestDistance = d;
            best = e;
        }
    }
    return best;
}

QRectF Extents(CVELD& cad, CDrawingIndex& index) {
    double x0 = 1e300, y0 = 1e300, x1 = -1e300, y1 = -1e300;
    const auto add = [&](double ax, double ay, double bx, double by) {
        x0 = std::min({x0, ax, bx});
        y0 = std::min({y0, ay, by});
        x1 = std::max({x1, ax, bx});
        y1 = std::max({y1, ay, by});
    };
    index.Sync(*cad.GetData());
    for (const auto& [box, e] : index.Entries()) {
        if (!shown(cad, *e))
            continue;
        if (e->GetKind() == veld::EntKind::Text) {
            const PNT_3D& p = e->GetPoints().front();  // a text's box is its reach
            add(p.x, p.y, p.x, p.y);
        } else {
            add(box.x0, box.y0, box.x1, box.y1);
        }
    }
    for (int i = 0; i < cad.GetNoImages(); ++i) {
        const CVELDImage* im = cad.GetImage(i);
        add(im->GetXMin(), im->GetYMin(), im->GetXMax(), im->GetYMax());
    }
    return x0 > x1 ? QRectF() : QRectF(QPointF(x0, y0), QPointF(x1, y1));
}

}  // namespace drawingrender
