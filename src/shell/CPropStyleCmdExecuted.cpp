#include "CPropStyleCmdExecuted.h"

#include "app/VELD.h"
#include "factory/Scopes.h"
#include "ulo/Memento.h"

namespace veld5 {

using ulo::SwapMemento;

CPropStyleCmdExecuted::CPropStyleCmdExecuted(CVELD* cad, veld::CStyle* newCurrent,
                                             const veld::CHandleObjectVectorCollection& created,
                                             const veld::CHandleObjectVectorCollection& deleted)
    : ICADCmdExecuted(cad),
      before_(ulo::RefPtr<veld::CStyle>::Share(GetCurStyle(cad))),
      after_(ulo::RefPtr<veld::CStyle>::Share(newCurrent)),
      created_(created),
      deleted_(deleted) {}

void CPropStyleCmdExecuted::Changed(veld::CStyle* style, ulo::IMemento* before) {
    modified_.Add(style);
    mementos_.push_back(ulo::RefPtr<ulo::IMemento>::Adopt(before));
}

void CPropStyleCmdExecuted::DoCADUndo() {
    Apply(before_.get(), deleted_, created_);
}
void CPropStyleCmdExecuted::DoCADRedo() {
    Apply(after_.get(), created_, deleted_);
}

void CPropStyleCmdExecuted::Apply(veld::CStyle* current,
                                  const veld::CHandleObjectVectorCollection& add,
                                  const veld::CHandleObjectVectorCollection& remove) {
    CVELD* cad = GetVELD();
    CSourceEventScope scope(cad->GetData()->GetDataTablesSourceEvent());
    SetCurStyle(cad, current);
    veld::CStyleTable* table = veld::GetMainStyleTable(cad->GetData());
    for (unsigned i = 0; i < add.GetNoElems(); ++i)
        table->Add(static_cast<veld::CStyle*>(add.GetObjectNo(i)));
    for (unsigned i = 0; i < remove.GetNoElems(); ++i)
        table->Remove(static_cast<veld::CStyle*>(remove.GetObjectNo(i)));
    for (unsigned i = 0; i < modified_.GetNoElems(); ++i)
        SwapMemento(*static_cast<veld::CStyle*>(modified_.GetObjectNo(i)), mementos_[i]);
}

}  // namespace veld5
