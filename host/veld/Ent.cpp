#include "Ent.h"

#include <cwctype>

namespace veld {

namespace {
constexpr CVeldUserType kStandard(0, CVeldUserType::kAll);
constexpr CVeldUserType kSurvey(1, CVeldUserType::kAll & ~(CVeldUserType::kChangeLayer |
                                                           CVeldUserType::kChangeDrawing));
constexpr struct {
    EntKind kind;
    const wchar_t* name;
} kKindNames[] = {{EntKind::Line, L"LINE"},
                  {EntKind::Polyline, L"POLYLINE"},
                  {EntKind::Circle, L"CIRCLE"},
                  {EntKind::Point, L"POINT"},
                  {EntKind::Text, L"TEXT"}};
}  // namespace

const CVeldUserType* CVeldUserType::Standard() {
    return &kStandard;
}
const CVeldUserType* CVeldUserType::Survey() {
    return &kSurvey;
}
const CVeldUserType* CVeldUserType::FromID(unsigned id) {
    const CVeldUserType* type = Find(id);
    return type ? type : &kStandard;
}
const CVeldUserType* CVeldUserType::Find(unsigned id) {
    for (const CVeldUserType* type : {&kStandard, &kSurvey})
        if (type->GetID() == id)
            return type;
    return nullptr;
}

bool CEnt::State::operator==(const State& o) const {
    return colour == o.colour && layer.get() == o.layer.get() && ltype.get() == o.ltype.get() &&
           drawing.get() == o.drawing.get() && userType == o.userType && points == o.points &&
           radius == o.radius && closed == o.closed && text == o.text;
}

CEnt::CEnt(EntKind kind, CLayer* layer, CLtype* ltype, short colour, CDrawing* drawing)
    : kind_(kind) {
    s_.colour = colour;
    s_.layer = ulo::RefPtr<CLayer>::Share(layer);
    s_.ltype = ulo::RefPtr<CLtype>::Share(ltype);
    s_.drawing = ulo::RefPtr<CDrawing>::Share(drawing);
    s_.userType = CVeldUserType::Standard();
}

const wchar_t* CEnt::GetKindName() const {
    for (const auto& k : kKindNames)
        if (k.kind == kind_)
            return k.name;
    return L"";
}

bool CEnt::KindFromName(const ulo::WString& name, EntKind& kind) {
    for (const auto& k : kKindNames)
        if (name.CompareIgnoreCase(k.name) == 0) {
            kind = k.kind;
            return true;
        }
    return false;
}

void CEnt::Move(double dx, double dy, double dz) {
    for (auto& p : s_.points) {
        p.x += dx;
        p.y += dy;
        p.z += dz;
    }
}

bool CEnt::RefersTo(const ITableItem* item) const {
    return item &&
           (item == s_.layer.get() || item == s_.ltype.get() || item == s_.text.style.get());
}

ulo::IMemento* CEnt::CreateMemento() const {
    return new ulo::CValueMemento<State>(s_);
}

bool CEnt::HasChanged(const ulo::IMemento* memento) const {
    const auto* m = dynamic_cast<const ulo::CValueMemento<State>*>(memento);
    return !m || !(m->state == s_);
}

void CEnt::OnSetMemento(ulo::IMemento* memento) {
    if (const auto* m = dynamic_cast<const ulo::CValueMemento<State>*>(memento))
        s_ = m->state;
}

CEntLine::CEntLine(const ulo::geom::PNT_3D& from, const ulo::geom::PNT_3D& to, CLayer* layer,
                   CLtype* ltype, short colour, CDrawing* drawing)
    : CEnt(EntKind::Line, layer, ltype, colour, drawing) {
    SetPoints({from, to});
}

CEntPolyline::CEntPolyline(std::vector<ulo::geom::PNT_3D> points, bool closed, CLayer* layer,
                           CLtype* ltype, short colour, CDrawing* drawing)
    : CEnt(EntKind::Polyline, layer, ltype, colour, drawing) {
    SetPoints(std::move(points));
    SetClosed(closed);
}

CEntCircle::CEntCircle(const ulo::geom::PNT_3D& centre, double radius, CLayer* layer, CLtype* ltype,
                       short colour, CDrawing* drawing)
    : CEnt(EntKind::Circle, layer, ltype, colour, drawing) {
    SetPoints({centre});
    SetRadius(radius);
}

CEntPoint::CEntPoint(const ulo::geom::PNT_3D& point, CLayer* layer, CLtype* ltype, short colour,
                     CDrawing* drawing)
    : CEnt(EntKind::Point, layer, ltype, colour, drawing) {
    SetPoints({point});
}

CEntText::CEntText(const TEXT_3D& text, CLayer* layer, CLtype* ltype, short colour,
                   CDrawing* drawing)
    : CEnt(EntKind::Text, layer, ltype, colour, drawing) {
    SetText(text);
}

TEXT_3D CEntText::GetText() const {
    const TextState& t = Text();
    const ulo::geom::PNT_3D at = GetPoints().empty() ? ulo::geom::PNT_3D{} : GetPoints().front();
    return TEXT_3D(t.text, t.style.get(), t.height, t.slant, t.width, t.rotation, at, t.alignment,
                   0);
}

void CEntText::SetText(const TEXT_3D& text) {
    TextState& t = Text();
    const CTextContext& c = text.GetContext();
    t.text = c.GetString();
    t.height = c.GetHeight();
    t.slant = c.GetSlant();
    t.width = c.GetWidthFactor();
    t.rotation = c.GetRotate();
    t.alignment = text.GetAlignment();
    t.style = ulo::RefPtr<CStyle>::Share(text.GetStyle());
    SetPoints({text.GetPoint()});
}

CEnt* CreateEnt(EntKind kind, CLayer* layer, CLtype* ltype, short colour, CDrawing* drawing) {
    const ulo::geom::PNT_3D o{};
    switch (kind) {
        case EntKind::Line:
            return new CEntLine(o, o, layer, ltype, colour, drawing);
        case EntKind::Polyline:
            return new CEntPolyline({o, o}, false, layer, ltype, colour, drawing);
        case EntKind::Circle:
            return new CEntCircle(o, 0.0, layer, ltype, colour, drawing);
        case EntKind::Point:
            return new CEntPoint(o, layer, ltype, colour, drawing);
        case EntKind::Text:
            return new CEntText(TEXT_3D(L"", nullptr, 0, 0, 1, 0, o, 0, 0), layer, ltype, colour,
                                drawing);
    }
    return nullptr;
}

}  // namespace veld
