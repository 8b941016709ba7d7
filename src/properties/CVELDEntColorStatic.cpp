#include "CVELDEntColorStatic.h"

#include "app/VELD.h"
#include "res/StringIds.h"
#include "shell/ResString.h"
#include "veld/Colors.h"

namespace veld5 {

CVELDEntColorStatic::CVELDEntColorStatic(const CVELD* cad, short colour, unsigned short layerColour,
                                         unsigned short blockColour, QWidget* parent)
    : CColorStatic(parent),
      cad_(cad),
      colour_(colour),
      layerColour_(layerColour),
      blockColour_(blockColour) {
    Resolve();
}

int CVELDEntColorStatic::GetShownColorIndex() const {
    if (colour_ < 0)
        return kVariesShownAs;
    if (colour_ == kByBlock)
        return blockColour_;
    if (colour_ == kByLayer)
        return layerColour_;
    return colour_;
}

void CVELDEntColorStatic::Resolve() {
    SetColor(GetClrNo(cad_, GetShownColorIndex()).value);
}

void CVELDEntColorStatic::SetColorIndex(unsigned short colour) {
    colour_ = static_cast<short>(colour);
    Resolve();
    update();
}

void CVELDEntColorStatic::SetLayerColorIndex(unsigned short colour) {
    if (colour == layerColour_)
        return;
    layerColour_ = colour;
    if (colour_ == kByLayer) {
        Resolve();
        update();
    }
}

QString CVELDEntColorStatic::NameOf(short index) {
    if (index < 0)
        return LoadResString(ids::kVaries).ToQString();
    return veld::CColors::GetInstance()[index].ToQString();
}

}  // namespace veld5
