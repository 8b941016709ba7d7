#include "CGridSnapCmdExecuted.h"

#include "app/Grid.h"
#include "app/view/ViewAccess.h"
#include "ulo/Memento.h"

namespace veld5 {

using ulo::SwapMemento;

CGridSnapCmdExecuted::CGridSnapCmdExecuted(CVELDView* view, ulo::IMemento* before)
    : ICADCmdExecuted(GetViewVELD(view)),
      view_(view),
      memento_(ulo::RefPtr<ulo::IMemento>::Adopt(before)) {}

unsigned CGridSnapCmdExecuted::GetMemSize() {
    return (memento_ ? memento_->GetMemSize() : 0) + 16;
}

void CGridSnapCmdExecuted::Swap() {
    if (view_)
        SwapMemento(GetViewGridForEdit(view_), memento_);
}

}  // namespace veld5
