// What the view draws: colours resolved through layer and entity set, hidden
// layers and sets left out of the picture and of picking.
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>

#include "app/VELD.h"
#include "app/view/DrawingRenderer.h"
#include "veld/EntCollection.h"

namespace {

struct Scene {
    CVELD cad;
    veld::CData* data = cad.GetData();
    veld::CLayer* layer = nullptr;
    veld::CDrawing* set = data->GetDrawingManager()->GetActiveDrawing(0);
    veld::CEnt* line = nullptr;
    CGrid grid;
    // An odd size puts the map origin at the centre of pixel (50, 50).
    ViewTransform view{QPointF(0, 0), 10.0, QSizeF(101, 101)};

    Scene() {
        layer = data->GetObjectFactory()->CreateLayer(
            L"RED", data->GetLtypeTable().GetLtypeContinuous(), 1, veld::kLineWidthDefault, 0, 0);
        data->GetLayerTable().Add(layer);
        layer->SubReference();
        // A horizontal line through the middle of the picture.
        line = new veld::CEntLine({-4, 0, 0}, {4, 0, 0}, layer,
                                  data->GetLtypeTable().GetLtypeByLayer(), 256, set);
        data->GetEntTable().Add(line);
        line->SubReference();
    }
    /// The colour drawn at (@p x, 0); at 0, the centre of pixel (50, 50).
    QColor pixelAt(double x = 0) {
        QImage image(101, 101, QImage::Format_RGB32);
        QPainter p(&image);
        drawingrender::Paint(p, cad, grid, view);
        p.end();
        const QPointF at = view.ToScreen(x, 0);
        return image.pixelColor(static_cast<int>(at.x()), static_cast<int>(at.y()));
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
    };
    for (const auto& c : cases) {
        Scene s;
        c.setup(s);
        EXPECT_EQ(s.pixelAt(), c.expected) << c.what;
    }
}

TEST(DrawingRenderer, PickingAndExtentsSeeOnlyWhatIsDrawn) {
    Scene s;
    const QPointF onLine = s.view.ToScreen(2, 0.1);
    EXPECT_EQ(drawingrender::Pick(s.cad, s.view, onLine, 3), s.line);
    EXPECT_EQ(drawingrender::Pick(s.cad, s.view, s.view.ToScreen(2, 2), 3), nullptr);
    EXPECT_EQ(drawingrender::Extents(s.cad), QRectF(QPointF(-4, 0), QPointF(4, 0)));

    s.layer->SetFrozen(true);
    EXPECT_EQ(drawingrender::Pick(s.cad, s.view, onLine, 3), nullptr);
    EXPECT_TRUE(drawingrender::Extents(s.cad).isNull());
}

TEST(DrawingRenderer, ADashedLineLeavesGapsScaledByTheLineTypeScale) {
    Scene s;
    veld::CLtypeComplexDashSeq seq;
    seq.AddDashDouble(1.0);
    seq.AddDashDouble(-1.0);
    veld::CLtype* dashed = s.data->GetObjectFactory()->CreateLtype(L"D", L"", seq, 0, 0);
    s.data->GetLtypeTable().Add(dashed);
    dashed->SubReference();
    s.line->SetLtype(dashed);
    // The pattern starts at x = -4: dashes of 1 unit and gaps of 1 unit, twice
    // as long at line type scale 2.
    EXPECT_EQ(s.pixelAt(-3.5), QColor(255, 0, 0)) << "inside the first dash";
    EXPECT_EQ(s.pixelAt(-2.5), QColor(0, 0, 0)) << "inside the first gap";
    SetLtypeScale(&s.cad, 2.0);
    EXPECT_EQ(s.pixelAt(-2.5), QColor(255, 0, 0)) << "the first dash is twice as long now";
    EXPECT_EQ(s.pixelAt(-1.5), QColor(0, 0, 0));
}
