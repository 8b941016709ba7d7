// What the view draws: colours resolved through layer and entity set, hidden
// layers and sets left out of the picture and of picking; a part of the window
// drawn as the whole picture has it; the view after an undone change and
// after a pan.
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QTest>
#include <functional>
#include <random>

#include "app/ChangeEntitiesCmdExecuted.h"
#include "app/VELD.h"
#include "app/view/DrawingRenderer.h"
#include "app/view/VELDView.h"
#include "veld/EntCollection.h"

namespace {

using ulo::geom::PNT_3D;

/// A drawing and what the renderer needs beside it.
struct Drawn {
    CVELD cad;
    veld::CData* data = cad.GetData();
    veld::CDrawing* set = data->GetDrawingManager()->GetActiveDrawing(0);
    veld::CLayer* layer = veld::FindLayer(data, L"0");
    veld::CLtype* byLayer = data->GetLtypeTable().GetLtypeByLayer();
    CGrid grid;
    drawingrender::CDrawingIndex index;

    veld::CEnt* Add(veld::CEnt* e) {
        data->GetEntTable().Add(e);
        e->SubReference();
        return e;
    }
    veld::CEnt* Line(PNT_3D a, PNT_3D b, short colour, veld::CLtype* ltype = nullptr) {
        return Add(new veld::CEntLine(a, b, layer, ltype ? ltype : byLayer, colour, set));
    }
    veld::CLtype* Ltype(const wchar_t* name, const veld::CLtypeComplexDashSeq& seq) {
        veld::CLtype* t = data->GetObjectFactory()->CreateLtype(name, L"", seq, 0, 0);
        data->GetLtypeTable().Add(t);
        t->SubReference();
        return t;
    }
    QImage Picture(const ViewTransform& view) {
        QImage image(view.size.toSize(), QImage::Format_RGB32);
        QPainter p(&image);
        drawingrender::Paint(p, cad, grid, view, index);
        return image;
    }
};

/// A red layer and a horizontal line on it through the middle of the picture.
struct Scene : Drawn {
    veld::CEnt* line = nullptr;
    // An odd size puts the map origin at the centre of pixel (50, 50).
    ViewTransform view{QPointF(0, 0), 10.0, QSizeF(101, 101)};

    Scene() {
        layer = data->GetObjectFactory()->CreateLayer(
            L"RED", data->GetLtypeTable().GetLtypeContinuous(), 1, veld::kLineWidthDefault, 0, 0);
        data->GetLayerTable().Add(layer);
        layer->SubReference();
        line = Line({-4, 0, 0}, {4, 0, 0}, 256);
    }
    /// The colour drawn at (@p x, 0); at 0, the centre of pixel (50, 50).
    QColor pixelAt(double x = 0) {
        const QPointF at = view.ToScreen(x, 0);
        return Picture(view).pixelColor(static_cast<int>(at.x()), static_cast<int>(at.y()));
    }
};

}  // namespace

TEST(DrawingRenderer, ColoursResolveThroughLayerSetAndBackground) {
    const struct {
        const char* what;
        std::function<void(Scene&)> setup;
        QColor expected;
    } cases[] = {
        {"ByLayer takes the layer's", [](Scene&) {}, QColor(255, 0, 0)},
        {"an own colour", [](Scene& s) { s.line->SetColor(3); }, QColor(0, 255, 0)},
        {"the set's colour wins",
         [](Scene& s) {
             s.line->SetColor(3);
             s.set->SetUseColor(true);
             s.set->SetColor(5);
         },
         QColor(0, 0, 255)},
        {"ByBlock is white on black", [](Scene& s) { s.line->SetColor(0); }, QColor(255, 255, 255)},
        {"and black on white",
         [](Scene& s) {
             s.line->SetColor(0);
             SetClrGrphWndBkGrnd(&s.cad, 0xFFFFFF);
         },
         QColor(0, 0, 0)},
        {"selected entities in the selection colour",
         [](Scene& s) {
             SetClrEntSelected(&s.cad, 0x00FFFF);  // yellow (0x00BBGGRR)
             NtfySelectedEnt(&s.cad, s.line);
         },
         QColor(255, 255, 0)},
        {"an off layer is not drawn", [](Scene& s) { s.layer->SetOff(true); }, QColor(0, 0, 0)},
        {"nor a frozen one", [](Scene& s) { s.layer->SetFrozen(true); }, QColor(0, 0, 0)},
        {"nor a set that is off", [](Scene& s) { s.set->SetVisible(false); }, QColor(0, 0, 0)},
        // Marks and painted entities keep the drawing order: a line a
        // hundredth of a pixel long is one pixel, a point's cross is stamped.
        {"a dot after the line is on top",
         [](Scene& s) {
             s.Line({0, 0, 0}, {0.001, 0, 0}, 3);
         },
         QColor(0, 255, 0)},
        {"a line after the dot is on top",
         [](Scene& s) {
             s.Line({0, 0, 0}, {0.001, 0, 0}, 3);
             s.Line({0, -4, 0}, {0, 4, 0}, 256);
         },
         QColor(255, 0, 0)},
        {"a point after the line is on top",
         [](Scene& s) {
             s.Add(new veld::CEntPoint({0, 0, 0}, s.layer, s.byLayer, 5, s.set));
         },
         QColor(0, 0, 255)},
        {"the later of two dots is on top",
         [](Scene& s) {
             s.Line({0, 0, 0}, {0.001, 0, 0}, 5);
             s.Line({0, 0, 0}, {0.001, 0, 0}, 3);
         },
         QColor(0, 255, 0)},
    };
    for (const auto& c : cases) {
        Scene s;
        c.setup(s);
        EXPECT_EQ(s.pixelAt(), c.expected) << c.what;
        // Picking and the extents see the line exactly when it is drawn.
        const bool hidden = s.layer->IsOff() || s.layer->IsFrozen() || !s.set->IsVisible();
        const auto pick = [&](double x, double y) {
            return drawingrender::Pick(s.cad, s.index, s.view, s.view.ToScreen(x, y), 3);
        };
        EXPECT_EQ(pick(2, 0.1), hidden ? nullptr : s.line) << c.what;
        EXPECT_EQ(pick(2, 2), nullptr) << c.what;
        EXPECT_EQ(drawingrender::Extents(s.cad, s.index).isNull(), hidden) << c.what;
    }
}

TEST(DrawingRenderer, ADashedLineLeavesGapsScaledByTheLineTypeScale) {
    Scene s;
    veld::CLtypeComplexDashSeq seq;
    seq.AddDashDouble(1.0);
    seq.AddDashDouble(-1.0);
    s.line->SetLtype(s.Ltype(L"D", seq));
    // The pattern starts at x = -4: dashes of 1 unit and gaps of 1 unit, twice
    // as long at line type scale 2.
    EXPECT_EQ(s.pixelAt(-3.5), QColor(255, 0, 0)) << "inside the first dash";
    EXPECT_EQ(s.pixelAt(-2.5), QColor(0, 0, 0)) << "inside the first gap";
    SetLtypeScale(&s.cad, 2.0);
    EXPECT_EQ(s.pixelAt(-2.5), QColor(255, 0, 0)) << "the first dash is twice as long now";
    EXPECT_EQ(s.pixelAt(-1.5), QColor(0, 0, 0));
}

namespace {

/// A plan of many small entities over 600 x 600 units about the origin, so
/// that the index files them in small cells, to which a case adds its own.
struct Plan : Drawn {
    Plan() {
        std::mt19937 rng(7);
        std::uniform_real_distribution<double> where(-300.0, 300.0);
        for (int i = 0; i < 3000; ++i) {
            const PNT_3D at{where(rng), where(rng), 0};
            const auto colour = static_cast<short>(1 + i % 6);
            if (i % 10 == 0)
                Add(new veld::CEntPoint(at, layer, byLayer, colour, set));
            else if (i % 10 == 1)
                Add(new veld::CEntCircle(at, 0.4, layer, byLayer, colour, set));
            else
                Line(at, {at.x + 1, at.y + 0.5, 0}, colour);
        }
    }
};

/// Pixels in which @p a and @p b differ (all of them for another size).
int differences(const QImage& a, const QImage& b) {
    if (a.size() != b.size())
        return a.width() * a.height();
    int n = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            n += a.pixel(x, y) != b.pixel(x, y);
    return n;
}

}  // namespace

TEST(DrawingRenderer, AWindowShowsWhatTheWholePictureShowsThere) {
    // A window of 61 pixels and one of 961 about the same centre at the same
    // zoom: the small picture is the middle of the large one, whatever
    // reaches into it from outside. Places are in pixels from the centre
    // (@p px map units to a pixel); at zoom 0.5 the plan's entities are
    // smaller than a pixel.
    const struct {
        const char* what;
        std::function<void(Plan&, double)> add;
    } cases[] = {
        {"the plan alone", [](Plan&, double) {}},
        {"a line across the window, its ends far outside",
         [](Plan& d, double px) {
             d.Line({-2000 * px, 5 * px, 0}, {2000 * px, -3 * px, 0}, 3);
         }},
        {"short lines from outside into the window, across each side",
         [](Plan& d, double px) {
             // 60 pixels long (at zoom 3 less than a cell of the plan's
             // index), their middles 6 to 24 pixels outside the window.
             for (const double off : {6.0, 12.0, 18.0, 24.0}) {
                 const double in = 30.5 + off - 30, out = 30.5 + off + 30, along = off - 15;
                 for (const double side : {-1.0, 1.0}) {
                     d.Line({side * in * px, along * px, 0}, {side * out * px, along * px, 0}, 3);
                     d.Line({along * px, side * in * px, 0}, {along * px, side * out * px, 0}, 3);
                 }
             }
         }},
        {"a circle whose arc crosses the window",
         [](Plan& d, double px) {
             d.Add(new veld::CEntCircle({60 * px, 0, 0}, 45 * px, d.layer, d.byLayer, 4, d.set));
         }},
        {"a point whose cross reaches in",
         [](Plan& d, double px) {
             d.Add(new veld::CEntPoint({33 * px, -10 * px, 0}, d.layer, d.byLayer, 2, d.set));
         }},
        {"a right-aligned text set outside",
         [](Plan& d, double px) {
             const veld::TEXT_3D text(L"WWWWWWWW", veld::GetStyleStandard(d.data), 10 * px, 0, 1, 0,
                                      {60 * px, -20 * px, 0}, 2, 0);
             d.Add(new veld::CEntText(text, d.layer, d.byLayer, 5, d.set));
         }},
        {"a line type's text standing off a line outside",
         [](Plan& d, double px) {
             // One pattern unit to a pixel: the text stands 20 pixels below
             // a line 14 pixels above the window.
             veld::CLtypeComplexDashSeq seq;
             seq.AddDashDouble(10);
             seq.AddDashText(
                 veld::TEXT_3D(L"T", veld::GetStyleStandard(d.data), 8, 0, 1, 0, {0, 20, 0}, 0, 0));
             seq.AddDashDouble(-10);
             SetLtypeScale(&d.cad, px);
             d.Line({-100 * px, 44.5 * px, 0}, {100 * px, 44.5 * px, 0}, 3,
                    d.Ltype(L"TEXTED", seq));
         }},
        {"a selected line along the edge, outside",
         [](Plan& d, double px) {
             NtfySelectedEnt(&d.cad,
                             d.Line({-100 * px, -31.2 * px, 0}, {100 * px, -31.2 * px, 0}, 6));
         }},
    };
    for (const double zoom : {3.0, 0.5}) {
        for (const auto& c : cases) {
            Plan plan;
            c.add(plan, 1 / zoom);
            const QImage small = plan.Picture({QPointF(0, 0), zoom, QSizeF(61, 61)});
            const QImage large = plan.Picture({QPointF(0, 0), zoom, QSizeF(961, 961)});
            EXPECT_EQ(differences(small, large.copy(450, 450, 61, 61)), 0)
                << c.what << ", zoom " << zoom;
        }
    }
}

TEST(DrawingView, AnEntityMovedByACommandIsDrawnAndPickedWhereItIs) {
    Scene s;
    // A green line far from the red one, out of sight once the view zooms in
    // at the origin.
    veld::CEnt* far = s.Line({20, 20.5, 0}, {24, 20.5, 0}, 3);
    CVELDView view(&s.cad);
    view.resize(101, 101);
    view.grab();  // zooms to the extents
    view.ZoomAt(view.GetTransform().ToScreen(0, 0), 8);
    const auto moveInto = [&] {
        ulo::IMemento* before = far->CreateMemento();
        far->Move(-22, -20, 0);  // now from (-2, 0.5) to (2, 0.5)
        auto* command = new CChangeEntitiesCmdExecuted(&s.cad);
        command->add(far, before);
        s.cad.AddChange(command);
    };
    const struct {
        const char* what;
        std::function<void()> act;
        bool inSight;
    } steps[] = {
        {"before the move", [] {}, false},
        {"moved into sight", moveInto, true},
        {"undone", [&] { s.cad.Undo(); }, false},
        {"redone", [&] { s.cad.Redo(); }, true},
    };
    for (const auto& step : steps) {
        step.act();
        const QImage picture = view.grab().toImage();
        const QPoint at = view.GetTransform().ToScreen(1, 0.5).toPoint();
        EXPECT_EQ(picture.pixelColor(at).green() > 100, step.inSight) << step.what;
        EXPECT_EQ(view.EntityAt(at), step.inSight ? far : nullptr) << step.what;
        EXPECT_EQ(view.EntityAt(view.GetTransform().ToScreen(1, 0)), s.line) << step.what;
    }
}

TEST(DrawingView, APanShowsWhatAFreshPictureShows) {
    // The plan as a whole (entities smaller than a pixel) and zoomed in; each
    // step of the drag moves the picture the steps before left.
    for (const double zoom : {1.0, 40.0}) {
        Plan plan;
        CVELDView view(&plan.cad);
        view.resize(160, 120);
        view.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
        view.ZoomAt(QPointF(80, 60), zoom);
        view.grab();
        const QPointF centre = view.GetTransform().centre;
        QTest::mousePress(&view, Qt::LeftButton, {}, QPoint(80, 60));
        for (const QPoint to : {QPoint(97, 69), QPoint(57, 94), QPoint(61, 30)}) {
            QTest::mouseMove(&view, to);
            QEvent leave(QEvent::Leave);  // no cross-hair over the picture
            QApplication::sendEvent(&view, &leave);
            EXPECT_EQ(differences(view.grab().toImage(), plan.Picture(view.GetTransform())), 0)
                << "zoom " << zoom << ", to " << to.x() << ", " << to.y();
        }
        QTest::mouseRelease(&view, Qt::LeftButton, {}, QPoint(61, 30));
        EXPECT_NE(view.GetTransform().centre, centre) << "the drag panned";
    }
}
