#include "Ltype.h"

#include <cmath>

namespace veld {

CLtype::CLtype(const ulo::WString& name, const ulo::WString& desc, const CLtypeComplexDashSeq& seq,
               unsigned flags)
    : CStatefulItem(name, flags, {desc, seq}) {}

CLtype::CLtype(ulo::WString name, ulo::WString desc, CLtypeComplexDashSeq&& seq, unsigned flags)
    : CStatefulItem(std::move(name), flags, {std::move(desc), std::move(seq)}) {}

double CLtype::GetPatternLen() const {
    double len = 0.0;
    for (unsigned i = 0; i < s_.seq.GetNoDashes(); ++i) {
        const ILtypeComplexDash* d = s_.seq.GetDash(i);
        if (d->IsDouble())
            len += std::fabs(d->GetDouble());
    }
    return len;
}

void CLtype::Copy(const CLtype& other) {
    s_ = other.s_;
}

bool CLtype::IsByBlock() const {
    return GetName().CompareIgnoreCase(L"ByBlock") == 0;
}
bool CLtype::IsByLayer() const {
    return GetName().CompareIgnoreCase(L"ByLayer") == 0;
}
bool CLtype::IsContinuous() const {
    return GetName().CompareIgnoreCase(L"Continuous") == 0;
}
bool CLtype::CanBeRenamed() const {
    return !IsByBlock() && !IsByLayer() && !IsContinuous() && !IsXRef();
}

}  // namespace veld
