#include "Grid.h"

ulo::IMemento* CGrid::CreateMemento() const {
    return new CGridMemento(*this);
}

bool CGrid::HasChanged(const ulo::IMemento* memento) const {
    const auto* m = dynamic_cast<const CGridMemento*>(memento);
    return !m || !(*this == *m);
}

void CGrid::OnSetMemento(ulo::IMemento* memento) {
    if (const auto* m = dynamic_cast<const CGridMemento*>(memento))
        CGrid::operator=(*m);
}
