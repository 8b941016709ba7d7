#include "Layer.h"

namespace veld {

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
