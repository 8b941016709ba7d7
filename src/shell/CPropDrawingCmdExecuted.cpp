#include "CPropDrawingCmdExecuted.h"

#include "app/VELD.h"
#include "factory/Scopes.h"
#include "ulo/Memento.h"

namespace veld5 {

using ulo::SwapMemento;

namespace {
veld::CDrawing* setAt(const veld::CHandleObjectVectorCollection& c, unsigned i) {
    return static_cast<veld::CDrawing*>(c.GetObjectNo(i));
}
}  // namespace

CPropDrawingCmdExecuted::CPropDrawingCmdExecuted(
    CVELD* cad, const veld::CDrawingList& activeBefore,
    const veld::CHandleObjectVectorCollection& created,
    const veld::CHandleObjectVectorCollection& deleted,
    const veld::CHandleObjectVectorCollection& orderBefore)
    : ICADCmdExecuted(cad), created_(created), deleted_(deleted), orderBefore_(orderBefore) {
    for (veld::CDrawing* d : activeBefore)
        activeBefore_.Add(d);
    const veld::CDrawingManager* manager = cad->GetData()->GetDrawingManager();
    for (veld::CDrawing* d : manager->GetActiveDrawings())
        activeAfter_.Add(d);
    for (unsigned i = 0; i < manager->GetNoDrawings(); ++i)
        orderAfter_.Add(manager->GetDrawingAtPos(i));
}

void CPropDrawingCmdExecuted::Changed(veld::CDrawing* drawing, ulo::IMemento* before) {
    modified_.Add(drawing);
    mementos_.push_back(ulo::RefPtr<ulo::IMemento>::Adopt(before));
}

void CPropDrawingCmdExecuted::DoCADUndo() {
    Apply(activeBefore_, deleted_, created_, orderBefore_);
}

void CPropDrawingCmdExecuted::DoCADRedo() {
    Apply(activeAfter_, created_, deleted_, orderAfter_);
}

void CPropDrawingCmdExecuted::Apply(const veld::CHandleObjectVectorCollection& active,
                                    const veld::CHandleObjectVectorCollection& add,
                                    const veld::CHandleObjectVectorCollection& remove,
                                    const veld::CHandleObjectVectorCollection& order) {
    CVELD* cad = GetVELD();
    CSourceEventScope scope(cad->GetVeldSourceEvent());
    veld::CDrawingManager* manager = cad->GetData()->GetDrawingManager();
    for (unsigned i = 0; i < add.GetNoElems(); ++i)
        manager->AddDrawing(setAt(add, i));
    for (unsigned i = 0; i < remove.GetNoElems(); ++i)
        manager->RemoveDrawing(setAt(remove, i));
    for (unsigned i = 0; i < modified_.GetNoElems(); ++i)
        SwapMemento(*setAt(modified_, i), mementos_[i]);

    veld::CDrawingList list;
    for (unsigned i = 0; i < order.GetNoElems(); ++i) {
        veld::CDrawing* d = setAt(order, i);
        if (!manager->IsDrawingPresent(d))
            manager->AddDrawing(d);
        list.push_back(d);
    }
    manager->ChangeOrder(list);

    // Active sets are found again by type and name: a set renamed or
    // replaced in the meantime is not the same set to the user.
    for (unsigned i = 0; i < active.GetNoElems(); ++i) {
        const veld::CDrawing* d = setAt(active, i);
        const veld::CDrawingType* type = d->GetDrawingType();
        if (veld::CDrawing* found = manager->FindDrawing(type ? type->GetID() : 0, d->GetName()))
            manager->SetActiveDrawing(found);
    }
}

}  // namespace veld5
