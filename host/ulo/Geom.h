#pragma once
// Points of the drawing: East is x, North is y, elevation z.

namespace ulo::geom {

struct PNT_3D {
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    static const PNT_3D Origin;
    friend bool operator==(const PNT_3D&, const PNT_3D&) = default;
};

inline const PNT_3D PNT_3D::Origin{0.0, 0.0, 0.0};

struct PNT_2D {
    double x = 0.0;
    double y = 0.0;
    friend bool operator==(const PNT_2D&, const PNT_2D&) = default;
};

}  // namespace ulo::geom
