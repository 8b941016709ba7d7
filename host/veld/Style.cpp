#include "Style.h"

namespace veld {

CStyle::CStyle(const ulo::WString& name, const ICADFont* font, double fixedHeight,
               double widthScale, double oblique, double lastHeight, unsigned flags)
    : ITableItem(name, flags), s_{font, fixedHeight, lastHeight, widthScale, oblique} {}

ulo::IMemento* CStyle::CreateMemento() const {
    return MakeMemento(s_);
}
bool CStyle::HasChanged(const ulo::IMemento* memento) const {
    return DiffersFrom(memento, s_);
}
void CStyle::OnSetMemento(ulo::IMemento* memento) {
    RestoreFrom(memento, s_);
}

}  // namespace veld
