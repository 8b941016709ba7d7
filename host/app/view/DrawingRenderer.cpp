#include "DrawingRenderer.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <unordered_set>

#include "app/VELD.h"
#include "veld/Colors.h"

namespace drawingrender {

namespace {

using ulo::geom::PNT_3D;

constexpr double kPi = 3.14159265358979323846;

QColor fromGColor(GColor c) {
    return QColor(c.Red(), c.Green(), c.Blue());
}

bool layerShown(const veld::CLayer* layer) {
    return !layer || (!layer->IsOff() && !layer->IsFrozen());
}

/// The colour an entity is drawn in. White (7) turns black on a light
/// background, as it does on paper.
QColor entityColour(CVELD& cad, const veld::CEnt& e) {
    int index = e.GetColor();
    const veld::CDrawing* set = e.GetDrawing();
    if (set && set->UseColor())
        index = static_cast<int>(set->GetColor());
    else if (index == 256)
        index = e.GetLayer() ? e.GetLayer()->GetColor() : 7;
    else if (index == 0)
        index = 7;
    if (index == 7) {
        const QColor bg = fromGColor(GetClrGrphWndBkGrnd(&cad));
        return bg.lightness() > 128 ? QColor(Qt::black) : QColor(Qt::white);
    }
    return fromGColor(GColor(veld::IndexToRGB(index)));
}

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
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(pixelHeight))));
    font.setStretch(std::clamp(static_cast<int>(widthFactor * 100), 1, 4000));
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
    // Too fine to show, or so many repetitions that they would blur: solid.
    if (total < 3.0 || length / total > 5000) {
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

void paintGrid(QPainter& p, CVELD& cad, const CGrid& grid, const ViewTransform& view) {
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
    const QPointF lo = view.ToMap({0, view.size.height()});
    const QPointF hi = view.ToMap({view.size.width(), 0});
    p.setPen(QPen(fromGColor(GetClrGrid(&cad)), 1.5));
    for (double x = be + std::ceil((lo.x() - be) / ge) * ge; x <= hi.x(); x += ge)
        for (double y = bn + std::ceil((lo.y() - bn) / gn) * gn; y <= hi.y(); y += gn)
            p.drawPoint(view.ToScreen(x, y));
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
            if (h < 2.5) {
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

bool shown(const veld::CEnt& e) {
    return layerShown(e.GetLayer());
}

}  // namespace

void Paint(QPainter& p, CVELD& cad, const CGrid& grid, const ViewTransform& view) {
    p.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    p.fillRect(QRectF(QPointF(0, 0), view.size), fromGColor(GetClrGrphWndBkGrnd(&cad)));
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
    paintGrid(p, cad, grid, view);
    // Selected entities are drawn last, on top of the others; the selection is
    // looked up once per picture, not searched for every entity.
    const veld::CEntCollection& selection = GetSelectedEntCollection(&cad);
    std::unordered_set<const veld::CEnt*> selected;
    for (unsigned i = 0; i < selection.GetNoEnts(); ++i)
        selected.insert(selection.GetEnt(i));
    veld::CData::CHandleObjectIterator it(cad.GetData(), false);
    std::vector<const veld::CEnt*> chosen;
    while (veld::CEnt* e = it.GetNext()) {
        if (!shown(*e))
            continue;
        if (selected.count(e))
            chosen.push_back(e);
        else
            paintEntity(p, cad, *e, view, false);
    }
    for (const veld::CEnt* e : chosen)
        paintEntity(p, cad, *e, view, true);
}

veld::CEnt* Pick(CVELD& cad, const ViewTransform& view, const QPointF& screen, double tolerance) {
    veld::CEnt* best = nullptr;
    double bestDistance = tolerance;
    veld::CData::CHandleObjectIterator it(cad.GetData(), false);
    while (veld::CEnt* e = it.GetNext()) {
        if (!shown(*e))
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

QRectF Extents(CVELD& cad) {
    double x0 = 1e300, y0 = 1e300, x1 = -1e300, y1 = -1e300;
    const auto add = [&](double ax, double ay, double bx, double by) {
        x0 = std::min({x0, ax, bx});
        y0 = std::min({y0, ay, by});
        x1 = std::max({x1, ax, bx});
        y1 = std::max({y1, ay, by});
    };
    veld::CData::CHandleObjectIterator it(cad.GetData(), false);
    while (const veld::CEnt* e = it.GetNext()) {
        if (!shown(*e))
            continue;
        const double r = e->GetKind() == veld::EntKind::Circle ? e->GetRadius() : 0.0;
        for (const PNT_3D& p : e->GetPoints())
            add(p.x - r, p.y - r, p.x + r, p.y + r);
    }
    for (int i = 0; i < cad.GetNoImages(); ++i) {
        const CVELDImage* im = cad.GetImage(i);
        add(im->GetXMin(), im->GetYMin(), im->GetXMax(), im->GetYMax());
    }
    return x0 > x1 ? QRectF() : QRectF(QPointF(x0, y0), QPointF(x1, y1));
}

}  // namespace drawingrender
