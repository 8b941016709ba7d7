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
    : ITableItem(name, flags), s_{colour, ulo::RefPtr<CLtype>::Share(ltype), width} {}

void CLayer::SetLayer(const CLayer& other) {
    s_ = other.s_;
    SetFlags(other.GetFlags());
}

ulo::IMemento* CLayer::CreateMemento() const {
    return MakeMemento(s_);
}
bool CLayer::HasChanged(const ulo::IMemento* memento) const {
    return DiffersFrom(memento, s_);
}
void CLayer::OnSetMemento(ulo::IMemento* memento) {
    RestoreFrom(memento, s_);
}

}  // namespace veld
