#include "Layer.h"

#include <algorithm>
#include <iterator>

namespace veld {

namespace {
// The pen widths of the plotting standards, in hundredths of a millimetre.
constexpr int kStandardWidths[] = {0,  5,  9,  13, 15, 18,  20,  25,  30,  35,  40,  50,
                                   53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};
}  // namespace

bool IsValidLineWidth(int width) {
    return width == kLineWidthDefault || width == kLineWidthByLayer || width == kLineWidthByBlock ||
           std::find(std::begin(kStandardWidths), std::end(kStandardWidths), width) !=
               std::end(kStandardWidths);
}

CLayer::CLayer(const ulo::WString& name, CLtype* ltype, unsigned short colour, enumLineWidth width,
               unsigned flags)
    : CStatefulItem(name, flags, {colour, ulo::RefPtr<CLtype>::Share(ltype), width}) {}

void CLayer::SetLayer(const CLayer& other) {
    s_ = other.s_;
    SetFlags(other.GetFlags());
}

}  // namespace veld
