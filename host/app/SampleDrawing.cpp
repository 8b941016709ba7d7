#include "SampleDrawing.h"

#include <QImage>
#include <QPainter>
#include <cmath>

#include "VELD.h"

namespace {

using ulo::geom::PNT_3D;

class Builder {
public:
    explicit Builder(veld::CData& data) : data_(data) {}

    veld::CStyle* Style(const wchar_t* name, const wchar_t* font, double fixedHeight, double width,
                        double oblique, unsigned flags) {
        veld::CStyle* s = data_.GetStyleTable().Find(name);
        if (!s) {
            s = data_.GetObjectFactory()->CreateStyle(name,
                                                      veld::CFontTable::GetInstance().Find(font),
                                                      fixedHeight, width, oblique, 2.5, flags, 0);
            data_.GetStyleTable().Add(s);
            s->SubReference();
        }
        return s;
    }

    /// @p pattern: numbers; a text element is written as {0, text} through AddText.
    veld::CLtype* Ltype(const wchar_t* name, const wchar_t* desc,
                        std::initializer_list<double> pattern, unsigned flags = 0) {
        veld::CLtypeComplexDashSeq seq;
        for (double d : pattern)
            seq.AddDashDouble(d);
        return Add(name, desc, std::move(seq), flags);
    }
    /// A line with a text in every repetition: dash, gap, text, gap.
    veld::CLtype* TextLtype(const wchar_t* name, const wchar_t* desc, const wchar_t* text,
                            veld::CStyle* style, double dash) {
        veld::CLtypeComplexDashSeq seq;
        seq.AddDashDouble(dash);
        seq.AddDashDouble(-0.8);
        const double h = 0.6;
        seq.AddDashText(veld::TEXT_3D(text, style, h, 0.0, 1.0, 0.0,
                                      PNT_3D{-0.2 * std::wcslen(text), -h / 2, 0}, 0, 0));
        seq.AddDashDouble(-0.8 - 0.4 * static_cast<double>(std::wcslen(text)));
        return Add(name, desc, std::move(seq), 0);
    }

    veld::CLayer* Layer(const wchar_t* name, unsigned short colour, veld::CLtype* ltype,
                        unsigned flags = 0) {
        veld::CLayer* l = data_.GetObjectFactory()->CreateLayer(
            name, ltype ? ltype : data_.GetLtypeTable().GetLtypeContinuous(), colour,
            veld::kLineWidthDefault, flags, 0);
        data_.GetLayerTable().Add(l);
        l->SubReference();
        return l;
    }

    template <class E>
    E* Add(E* ent) {
        data_.GetEntTable().Add(ent);
        ent->SubReference();
        return ent;
    }

    veld::CLtype* ByLayer() { return data_.GetLtypeTable().GetLtypeByLayer(); }

private:
    veld::CLtype* Add(const wchar_t* name, const wchar_t* desc, veld::CLtypeComplexDashSeq seq,
                      unsigned flags) {
        veld::CLtype* t =
            data_.GetObjectFactory()->CreateLtype(name, desc, std::move(seq), flags, 0);
        data_.GetLtypeTable().Add(t);
        t->SubReference();
        return t;
    }
    veld::CData& data_;
};

/// A made-up aerial picture of the plot: fields, the road and two roofs.
QImage aerialPicture() {
    QImage image(192, 128, QImage::Format_RGB32);
    image.fill(QColor(96, 128, 72));
    QPainter p(&image);
    p.fillRect(0, 90, 192, 16, QColor(150, 150, 140));
    p.fillRect(30, 20, 40, 28, QColor(160, 80, 60));
    p.fillRect(100, 30, 36, 24, QColor(170, 90, 70));
    p.setPen(QColor(60, 90, 50));
    for (int x = 0; x < 192; x += 12)
        p.drawLine(x, 0, x + 20, 88);
    return image;
}

}  // namespace

void BuildSampleDrawing(CVELD& cad) {
    auto data = std::make_unique<veld::CData>();
    Builder b(*data);
    veld::CStyle* standard = data->GetStyleTable().GetStyleStandard();
    veld::CStyle* annotation = b.Style(L"ANNOTATION", L"Arial", 0.0, 1.0, 0.0, 0);
    veld::CStyle* title = b.Style(L"TITLE", L"Times New Roman", 2.5, 1.0, 0.0, 0);
    title->SetBold(true);
    veld::CStyle* survey = b.Style(L"SURVEY", L"romans", 0.0, 0.8, 0.2618, 0);
    b.Style(L"SYMBOLS", L"simplex", 0.0, 1.0, 0.0, veld::CStyle::kFlagShape);

    b.Ltype(L"DASHED", L"Dashed __ __ __", {2.0, -1.0});
    veld::CLtype* hidden = b.Ltype(L"HIDDEN", L"Hidden _ _ _", {1.0, -0.5});
    veld::CLtype* center = b.Ltype(L"CENTER", L"Centre ____ _ ____", {5.0, -1.0, 1.0, -1.0});
    b.Ltype(L"PHANTOM", L"Phantom ____ _ _ ____", {5.0, -1.0, 1.0, -1.0, 1.0, -1.0});
    b.Ltype(L"DOT", L"Dotted . . .", {0.0, -0.8});
    veld::CLtype* dashdot = b.Ltype(L"DASHDOT", L"Dash dot __ . __", {2.0, -0.8, 0.0, -0.8});
    b.Ltype(L"BORDER", L"Border __ __ . __", {2.0, -0.8, 2.0, -0.8, 0.0, -0.8});
    b.Ltype(L"DIVIDE", L"Divide __ . . __", {2.0, -0.8, 0.0, -0.8, 0.0, -0.8});
    veld::CLtype* gas = b.TextLtype(L"GAS_LINE", L"Gas line ---GAS---", L"GAS", standard, 4.0);
    veld::CLtype* water = b.TextLtype(L"WATER_LINE", L"Water supply ---W---", L"W", standard, 4.0);
    veld::CLtype* fence = b.TextLtype(L"FENCE_LINE", L"Fence ---X---", L"X", standard, 3.0);
    veld::CLtype* boundary =
        b.TextLtype(L"BOUNDARY", L"Property boundary ---B---", L"B", standard, 5.0);
    veld::CLtype* track = b.Ltype(L"BASEMAP|TRACK", L"Track of the base map", {3.0, -1.5});

    veld::CLayer* zero = data->GetLayerTable().Find(L"0");
    veld::CLayer* buildings = b.Layer(L"BUILDINGS", 1, nullptr);
    veld::CLayer* roads = b.Layer(L"ROADS", 9, nullptr);
    veld::CLayer* fences = b.Layer(L"FENCES", 3, fence);
    veld::CLayer* utilities = b.Layer(L"UTILITIES", 5, gas);
    veld::CLayer* bounds = b.Layer(L"BOUNDARY", 6, boundary, veld::CLayer::kFlagLocked);
    veld::CLayer* text = b.Layer(L"TEXT", 2, nullptr);
    veld::CLayer* points = b.Layer(L"POINTS", 4, nullptr);
    veld::CLayer* trees = b.Layer(L"TREES", 94, nullptr);
    veld::CLayer* contours = b.Layer(L"CONTOURS", 32, dashdot, veld::CLayer::kFlagFrozen);
    veld::CLayer* construction = b.Layer(L"CONSTRUCTION", 8, hidden, veld::CLayer::kFlagOff);
    veld::CLayer* baseRoads = b.Layer(L"BASEMAP|ROADS", 8, track);
    b.Layer(L"$PLOT_FRAME", 7, nullptr, veld::ITableItem::kFlagPrivate);

    veld::CDrawingManager* sets = data->GetDrawingManager();
    while (sets->GetNoDrawings() > 0)
        sets->RemoveDrawing(sets->GetDrawingAtPos(0));
    veld::CDrawing* stations = sets->AddDrawing(2, L"Stations", true, false, true, true);
    veld::CDrawing* plan = sets->AddDrawing(0, L"Plan", true, false, false, true);
    veld::CDrawing* details = sets->AddDrawing(0, L"Details", true, false, false, true);
    details->SetUseColor(true);
    details->SetColor(30);
    veld::CDrawing* surveySet = sets->AddDrawing(1, L"Survey", true, false, false, true);
    veld::CDrawing* stakeout = sets->AddDrawing(1, L"Stakeout", false, false, false, true);
    veld::CDrawing* basemap = sets->AddDrawing(4, L"Basemap", true, true, false, true);
    basemap->SetNoRef(1);
    sets->SetActiveDrawing(plan);
    sets->SetActiveDrawing(surveySet);

    veld::CLtype* byLayer = b.ByLayer();
    const auto line = [&](veld::CLayer* layer, veld::CDrawing* set, PNT_3D a, PNT_3D c,
                          veld::CLtype* lt = nullptr, short colour = 256) {
        return b.Add(new veld::CEntLine(a, c, layer, lt ? lt : byLayer, colour, set));
    };
    const auto poly = [&](veld::CLayer* layer, veld::CDrawing* set, std::vector<PNT_3D> pts,
                          bool closed, veld::CLtype* lt = nullptr, short colour = 256) {
        return b.Add(
            new veld::CEntPolyline(std::move(pts), closed, layer, lt ? lt : byLayer, colour, set));
    };
    const auto label = [&](veld::CLayer* layer, veld::CDrawing* set, const wchar_t* s, PNT_3D at,
                           veld::CStyle* style, double height, double rotation = 0.0,
                           unsigned short align = 0) {
        return b.Add(
            new veld::CEntText(veld::TEXT_3D(s, style, height, style->GetOblique(),
                                             style->GetWidthScale(), rotation, at, align, 0),
                               layer, byLayer, 256, set));
    };

    // The plot, its buildings and the road in front of it.
    poly(bounds, plan, {{0, 0, 0}, {120, 0, 0}, {120, 80, 0}, {0, 80, 0}}, true);
    poly(buildings, plan, {{20, 40, 0}, {50, 40, 0}, {50, 62, 0}, {20, 62, 0}}, true);
    poly(buildings, plan, {{70, 35, 0}, {98, 35, 0}, {98, 55, 0}, {70, 55, 0}}, true);
    line(buildings, plan, {20, 51, 0}, {50, 51, 0}, nullptr, 256);
    line(buildings, plan, {35, 40, 0}, {35, 62, 0}, nullptr, 256);
    line(buildings, plan, {84, 35, 0}, {84, 55, 0}, hidden, 256);
    line(roads, plan, {-10, -4, 0}, {130, -4, 0});
    line(roads, plan, {-10, -16, 0}, {130, -16, 0});
    line(roads, plan, {-10, -10, 0}, {130, -10, 0}, center, 2);
    poly(fences, plan, {{0, 80, 0}, {60, 84, 0}, {120, 80, 0}}, false);
    poly(utilities, plan, {{-10, -7, 0}, {60, -7, 0}, {60, 40, 0}}, false);
    line(utilities, plan, {90, -13, 0}, {90, 35, 0}, water, 5);
    poly(zero, plan, {{55, 10, 0}, {65, 10, 0}, {65, 20, 0}, {55, 20, 0}}, true, nullptr, 0);
    line(baseRoads, basemap, {-10, 100, 0}, {130, 100, 0});
    line(baseRoads, basemap, {-10, 94, 0}, {130, 94, 0});

    // Trees along the fence and in the garden.
    for (int i = 0; i < 12; ++i) {
        const PNT_3D at{8.0 + i * 9.5, i % 2 ? 72.0 : 68.0, 0};
        b.Add(new veld::CEntCircle(at, 1.5 + 0.25 * (i % 3), trees, byLayer, 256, plan));
        b.Add(new veld::CEntPoint(at, trees, byLayer, 256, plan));
    }

    // Details: manholes and the front steps, drawn in the set's colour.
    for (int i = 0; i < 4; ++i)
        b.Add(
            new veld::CEntCircle({10.0 + 30.0 * i, -7, 0}, 0.6, utilities, byLayer, 256, details));
    poly(buildings, details, {{30, 38, 0}, {40, 38, 0}, {40, 40, 0}, {30, 40, 0}}, true);
    line(buildings, details, {30, 39, 0}, {40, 39, 0});

    // Contour lines (frozen layer) and construction lines (layer off).
    for (int i = 0; i < 5; ++i) {
        const double y = 8.0 + 15.0 * i;
        poly(contours, plan, {{0, y, 0}, {40, y + 4, 0}, {80, y - 2, 0}, {120, y + 3, 0}}, false);
    }
    line(construction, plan, {0, 0, 0}, {120, 80, 0});
    line(construction, plan, {0, 80, 0}, {120, 0, 0});

    // Surveyed points with their numbers; their entities keep their set and layer.
    for (int i = 0; i < 30; ++i) {
        const double a = i * 0.7;
        const PNT_3D at{60 + (20 + i) * std::cos(a), 40 + (14 + i * 0.6) * std::sin(a),
                        100.0 + 0.05 * i};
        veld::CEntPoint* pt = b.Add(new veld::CEntPoint(at, points, byLayer, 256, surveySet));
        pt->SetUserType(veld::CVeldUserType::Survey());
        veld::CEntText* number = label(text, surveySet, std::to_wstring(101 + i).c_str(),
                                       {at.x + 0.5, at.y + 0.5, at.z}, survey, 1.2);
        number->SetUserType(veld::CVeldUserType::Survey());
    }
    for (int i = 0; i < 4; ++i)
        b.Add(new veld::CEntPoint({10.0 + 33.0 * i, 3, 0}, points, byLayer, 3, stakeout));
    // Survey stations: the program's own set, never listed.
    for (int i = 0; i < 6; ++i) {
        auto* st =
            b.Add(new veld::CEntPoint({-5.0 + 26.0 * i, -20, 0}, points, byLayer, 1, stations));
        st->SetUserType(veld::CVeldUserType::Survey());
    }

    // Labels and the title.
    label(text, plan, L"Building A", {24, 56, 0}, annotation, 2.0);
    label(text, plan, L"Building B", {73, 49, 0}, annotation, 2.0);
    label(text, plan, L"Main road", {40, -13, 0}, annotation, 2.0);
    label(text, plan, L"Gas", {62, 25, 0}, annotation, 1.2, M_PI / 2);
    label(text, plan, L"Parcel 112 - survey plan", {60, 90, 0}, title, 3.5, 0.0, 1);
    label(text, plan, L"Scale 1:500", {60, 85.5, 0}, standard, 1.8, 0.0, 1);

    cad.SetData(std::move(data));
    SetCurLayer(&cad, cad.GetData()->GetLayerTable().Find(L"BUILDINGS"));
    SetLtypeScale(&cad, 1.0);
    while (cad.GetNoImages() > 0)
        cad.RemoveImage(cad.GetImage(0));
    cad.AddImage(std::make_unique<CVELDImage>(QStringLiteral("Orthophoto"),
                                              std::make_shared<pix::CDibImage>(aerialPicture()),
                                              0.625, 0.0, 0.0));
}
