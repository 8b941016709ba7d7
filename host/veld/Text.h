#pragma once
// Text records: the string with its size and angles (CTextContext) and its
// placement with a style (TEXT_3D), as texts and complex line types use them.
#include "StoredRange.h"
#include "ulo/Geom.h"
#include "ulo/WString.h"

namespace veld {

class CStyle;

class CTextContext {
public:
    CTextContext(const ulo::WString& text, double height, double slant, double widthFactor,
                 double rotation)
        : text_(text),
          height_(Kept(height)),
          slant_(Kept(slant)),
          width_(Kept(widthFactor)),
          rotation_(Kept(rotation)) {}
    const ulo::WString& GetString() const { return text_; }
    double GetHeight() const { return height_; }
    void SetHeight(double h) { height_ = Kept(h); }
    /// Rotation in radians.
    double GetRotate() const { return rotation_; }
    void SetRotate(double r) { rotation_ = Kept(r); }
    double GetSlant() const { return slant_; }
    double GetWidthFactor() const { return width_; }
    friend bool operator==(const CTextContext&, const CTextContext&) = default;

private:
    ulo::WString text_;
    double height_;
    double slant_;
    double width_;
    double rotation_;
};

class TEXT_3D {
public:
    /// A text with its numbers in the order height, slant, width factor,
    /// rotation (radians).
    TEXT_3D(const ulo::WString& text, CStyle* style, double height, double slant,
            double widthFactor, double rotation, const ulo::geom::PNT_3D& point,
            unsigned short alignment, unsigned short flags)
        : context_(text, height, slant, widthFactor, rotation),
          style_(style),
          point_(KeptPoint(point)),
          alignment_(alignment),
          flags_(flags) {}
    TEXT_3D(const CTextContext& context, CStyle* style, const ulo::geom::PNT_3D& point,
            unsigned short alignment, unsigned short flags)
        : context_(context),
          style_(style),
          point_(KeptPoint(point)),
          alignment_(alignment),
          flags_(flags) {}

    CTextContext& GetContext() { return context_; }
    const CTextContext& GetContext() const { return context_; }
    CStyle* GetStyle() const { return style_; }
    void SetStyle(CStyle* style) { style_ = style; }
    const ulo::geom::PNT_3D& GetPoint() const { return point_; }
    void SetPoint(const ulo::geom::PNT_3D& p) { point_ = KeptPoint(p); }
    unsigned short GetAlignment() const { return alignment_; }

    /// Name of alignment code 0..11 (empty for other codes).
    static ulo::WString GetAlignName(unsigned code);
    friend bool operator==(const TEXT_3D&, const TEXT_3D&) = default;

private:
    static ulo::geom::PNT_3D KeptPoint(const ulo::geom::PNT_3D& p) {
        return {Kept(p.x), Kept(p.y), Kept(p.z)};
    }

    CTextContext context_;
    CStyle* style_;
    ulo::geom::PNT_3D point_;
    unsigned short alignment_;
    unsigned short flags_;
};

}  // namespace veld
