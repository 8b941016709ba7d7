#pragma once
// A swatch showing one colour index as an entity would be drawn with it: the
// logical colours ByLayer (256) and ByBlock (0) show the layer's and the
// block's colour, and a negative index (no single colour) shows grey 250.
// The colour picker uses it as its preview, the entity property dialog as
// its colour field.
#include <QString>

#include "ulo/ctrl/Controls.h"

class CVELD;

namespace veld5 {

class CVELDEntColorStatic : public CColorStatic {
    Q_OBJECT
    /// The index set (signed: -1 is "varies") and the index whose colour is shown.
    Q_PROPERTY(int colorIndex READ GetColorIndex)
    Q_PROPERTY(int shownColorIndex READ GetShownColorIndex)
    /// The name of the index set, as the colour picker shows it.
    Q_PROPERTY(QString colorName READ GetColorName)
public:
    static constexpr short kByBlock = 0;
    static constexpr short kByLayer = 256;
    /// Shown for an index that stands for no single colour.
    static constexpr short kVariesShownAs = 250;

    CVELDEntColorStatic(const CVELD* cad, short colour, unsigned short layerColour,
                        unsigned short blockColour, QWidget* parent = nullptr);

    /// Shows @p colour (a negative index arrives as its 16-bit pattern and
    /// reads as negative again).
    void SetColorIndex(unsigned short colour);
    /// The index ByLayer stands for; repaints only when it shows.
    void SetLayerColorIndex(unsigned short colour);

    short GetColorIndex() const { return colour_; }
    unsigned short GetLayerColorIndex() const { return layerColour_; }
    unsigned short GetBlockColorIndex() const { return blockColour_; }
    /// The index whose RGB the swatch shows.
    int GetShownColorIndex() const;
    QString GetColorName() const { return NameOf(colour_); }

    /// The name of a colour index: "Varies" (from the string table) when it
    /// is negative, else the drawing's name for it.
    static QString NameOf(short index);

private:
    void Resolve();

    const CVELD* cad_;
    short colour_;
    unsigned short layerColour_;
    unsigned short blockColour_;
};

}  // namespace veld5
