#pragma once
// A text style: font, heights, width factor, oblique angle (radians) and
// flags. Styles with flag 0x01 describe shapes (symbols), not text.
#include "Font.h"
#include "StoredRange.h"
#include "TableItem.h"

namespace veld {

/// What a text style's memento keeps beside its name and flags.
struct StyleState {
    const ICADFont* font;
    double fixedHeight, lastHeight, widthScale, oblique;
    bool bold = false, italic = false, horizontal = true;
    bool operator==(const StyleState&) const = default;
};

class CStyle : public CStatefulItem<StyleState> {
public:
    CStyle(const ulo::WString& name, const ICADFont* font, double fixedHeight, double widthScale,
           double oblique, double lastHeight, unsigned flags);

    const ICADFont* GetFont() const { return s_.font; }
    void SetFont(const ICADFont* font) { s_.font = font; }
    double GetFixedHeight() const { return s_.fixedHeight; }
    void SetFixedHeight(double h) { s_.fixedHeight = Kept(h); }
    double GetLastHeight() const { return s_.lastHeight; }
    void SetLastHeight(double h) { s_.lastHeight = Kept(h); }
    double GetWidthScale() const { return s_.widthScale; }
    void SetWidthScale(double w) { s_.widthScale = Kept(w); }
    double GetOblique() const { return s_.oblique; }
    void SetOblique(double radians) { s_.oblique = Kept(radians); }
    bool IsBold() const { return s_.bold; }
    void SetBold(bool b) { s_.bold = b; }
    bool IsItalic() const { return s_.italic; }
    void SetItalic(bool i) { s_.italic = i; }
    bool IsHoriz() const { return s_.horizontal; }
    void SetHoriz(bool h) { s_.horizontal = h; }
    bool IsShape() const { return (GetFlags() & kFlagShape) != 0; }
    virtual bool IsXRefDependent() const { return IsXRef(); }

    static constexpr unsigned kFlagShape = 0x01;
};

}  // namespace veld
